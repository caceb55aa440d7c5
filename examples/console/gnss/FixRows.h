#pragma once

#include "TFix.h"
#include "TTablePanel.h"

class TMachine;

/// The name of a quality. Any thread may ask.
QString QualityText(EFixQuality quality);

/// What there is to say about the position, as rows of a table.
QVector<TTableRow> FixRows(TMachine const& machine);
