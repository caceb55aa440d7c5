#pragma once

#include "TTablePanel.h"

class TMachine;

/// What there is to say about the position, as rows of a table.
QVector<TTableRow> FixRows(TMachine const& machine);
