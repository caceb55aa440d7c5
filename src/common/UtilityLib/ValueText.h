#pragma once

#include "TUnitSettings.h"

#include <QString>

/// Appends \a value to \a text as TUnits::GetValueStringInContext() says of numbers.
void AppendNumber(QString& text, double value, int decimals, QChar decimalPoint);

/// The time of day for hours as a fraction.
QString TimeText(double hours, bool is24HourClock);

/// The date of a Julian day number; a fraction of a day is left away. "---" for one outside of the years 1 to
/// 9999.
QString DateText(double julianDay, EDateFormat format);
