#pragma once

#include "TFix.h"
#include "TTablePanel.h"

class TMachine;

/// The name of a quality. Any thread may ask.
QString QualityText(EFixQuality quality);
/// The same for a button: no word of it is wider than that.
QString ShortQualityText(EFixQuality quality);

/// What there is to say about the position, as rows of a table.
QVector<TTableRow> FixRows(TMachine const& machine);
