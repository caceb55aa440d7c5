#pragma once

#include "TEditItem.h"

#include <QStringList>

struct TQuantity;

/// What the rows of the setup are edited by.
namespace EditItems
{
/// A measure that is typed on a pad, while plus, minus and the wheel step it by \a increment in the
/// operator's unit.
TEditItem Stepped(TQuantity const& quantity, double minimum, double maximum, double increment);
/// A measure that is typed on a pad, key by key.
TEditItem Typed(TQuantity const& quantity, double minimum, double maximum, ENumberPadType pad);
/// One of some texts, the value being its index.
TEditItem OneOf(QStringList const& texts);
TEditItem Address();
} // namespace EditItems
