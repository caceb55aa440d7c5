#include "EditItems.h"

#include "TQuantity.h"

TEditItem EditItems::Stepped(TQuantity const& quantity, double minimum, double maximum, double increment)
{
    TEditItem item = Typed(quantity, minimum, maximum, NUMBER_PAD_DECIMAL);
    item.increment = increment;
    item.floatingButtons = true;
    return item;
}

TEditItem EditItems::Typed(TQuantity const& quantity, double minimum, double maximum, ENumberPadType pad)
{
    TEditItem item;
    item.SetMinMaxInc(minimum, maximum, 1.0);
    item.SetUnitAndDecimalPlaces(quantity.type, quantity.decimals);
    item.unitsContext = quantity.context;
    item.useNumberPad = true;
    item.numberPadType = pad;
    return item;
}

TEditItem EditItems::OneOf(QStringList const& texts)
{
    TEditItem item;
    item.kind = EDIT_KIND_TEXT_LIST;
    item.SetMinMaxInc(0, texts.size() - 1, 1);
    for (int i = 0; i < texts.size(); ++i)
        item.textItems.setAt(i, texts[i]);
    return item;
}

TEditItem EditItems::Address()
{
    TEditItem item;
    item.useNumberPad = true;
    item.numberPadType = NUMBER_PAD_IP_ADDRESS;
    return item;
}
