#include "TMenuElement.h"

#include "TMenuState.h"

TMenuElement::TMenuElement(TMenuState* menu, int id)
    : m_Menu(menu)
    , m_ID(id)
{
}

void TMenuElement::Show(TElementLook const& look) const
{
    if (!m_Menu)
        return;
    TElementState const before = m_Menu->GetElement(m_ID);
    TElementState element = before;
    element.SetControlID(look.control);
    element.SetEnabled(look.isEnabled);
    if (!look.name.isEmpty())
        element.SetName(look.name);
    if (element != before)
        m_Menu->SetElement(element);
}
