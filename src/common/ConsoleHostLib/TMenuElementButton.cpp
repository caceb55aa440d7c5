#include "TMenuElementButton.h"

#include "EMenuControl.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "TMenuBar.h"

namespace
{
constexpr int NameSize = 16;
constexpr int Centred = Qt::AlignHCenter | Qt::AlignVCenter;

struct TSkin
{
    QString normal;
    QString selected;
};

TSkin SkinOf(int control, bool isShortcut)
{
    switch (control)
    {
    case MENU_CONTROL_ON:
        return {PixmapNames::WindowToolbarButtonHighlight, PixmapNames::WindowToolbarButtonHighlightSelected};
    case MENU_CONTROL_GOOD:
        return {PixmapNames::NewGreenButton, PixmapNames::NewGreenButtonSelected};
    case MENU_CONTROL_FAIR:
        return {PixmapNames::NewYellowButton, PixmapNames::NewYellowButtonSelected};
    case MENU_CONTROL_BAD:
        return {PixmapNames::NewRedButton, PixmapNames::NewRedButtonSelected};
    default:
        break;
    }
    if (isShortcut)
        return {PixmapNames::ShortcutButton, PixmapNames::ShortcutButtonSelected};
    return {PixmapNames::WindowToolbarButton, PixmapNames::WindowToolbarButtonSelected};
}

QString MacroNameOf(TElementState const& element)
{
    QList<TMMIDef::Data> const steps = element.GetMMIDef().GetData();
    return steps.isEmpty() ? QString() : steps.constLast().first;
}
} // namespace

TMenuElementButton::TMenuElementButton(QWidget* parent, int id, bool isShortcut)
    : TTaskToolBarButton(parent, id)
    , m_IsShortcut(isShortcut)
{
    SetFontProperties(regularButtonTextColor, NameSize, true, true, false, Centred, false);
    ShowSkin();
}

void TMenuElementButton::SetElement(TElementState const& element)
{
    TElementState const before = m_Element;
    m_Element = element;
    SetObjectName(MacroNameOf(element), NAME_EXPLICIT);
    if (before.GetIconName() != element.GetIconName() || before.GetName() != element.GetName())
        ShowFace(element.GetIconName(), element.GetName());
    if (before.GetControlID() != element.GetControlID())
        ShowSkin();
}

void TMenuElementButton::ShowFace(QString const& icon, QString const& name)
{
    SetIcon(icon, QSize(), false);
    SetText(icon.isEmpty() ? name : QString(), QString(), false, QString(), false);
    SetToolTip(name);
}

void TMenuElementButton::SetOpenedBar(TMenuBar* bar)
{
    m_OpenedBar = bar;
    if (m_IsLit == (bar != nullptr))
        return;
    m_IsLit = bar != nullptr;
    ShowSkin();
}

void TMenuElementButton::ShowSkin()
{
    TSkin const skin = SkinOf(m_IsLit ? int(MENU_CONTROL_ON) : m_Element.GetControlID(), m_IsShortcut);
    SetBackground(skin.normal);
    SetBackgroundSelected(skin.selected);
    SetBackgroundDisabled(skin.normal);
}

KVN::MMICapableWidget* TMenuElementButton::OnMMIEnter()
{
    if (m_OpenedBar && m_OpenedBar->isVisible())
        return m_OpenedBar;
    return TTaskToolBarButton::OnMMIEnter();
}
