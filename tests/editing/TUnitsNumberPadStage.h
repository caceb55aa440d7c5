#pragma once

#include "TNumberPadStage.h"
#include "TUnitsNumberPad.h"

/// A shown screen with a number pad for values with units.
class TUnitsNumberPadStage : public TNumberPadStage
{
public:
    explicit TUnitsNumberPadStage(ENumberPadType type = NUMBER_PAD_DECIMAL)
        : TNumberPadStage(true, [type](QWidget* parent) { return new TUnitsNumberPad(parent, type); })
    {
    }

    TUnitsNumberPad* Pad() const { return static_cast<TUnitsNumberPad*>(pad.data()); }
};
