#include "TMenuElementButton.h"

#include "EMenuControl.h"
#include "MainScreen.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "TMenuBar.h"

#include <utility>

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
    if (!(m_Element != element))
        return;
    TElementState const before = std::exchange(m_Element, element);
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
    int const control = m_Element.GetControlID();
    // What it says by its colour counts for more than that its menu is open.
    bool const isPlain = control < MENU_CONTROL_ON || control > MENU_CONTROL_BAD;
    TSkin const skin = SkinOf(m_IsLit && isPlain ? int(MENU_CONTROL_ON) : control, m_IsShortcut);
    SetBackground(skin.normal);
    SetBackgroundSelected(skin.selected);
    SetBackgroundDisabled(skin.normal);
}

bool TMenuElementButton::CanEnterOpenedBar() const
{
    return m_OpenedBar && m_OpenedBar->isVisible() && m_OpenedBar->GetNumberOfVisibleButtons() > 0 &&
           m_OpenedBar != parentWidget();
}

// The bar is pushed here, since what a macro path enters by itself is left again as soon as it has arrived.
KVN::MMICapableWidget* TMenuElementButton::OnMMIEnter()
{
    if (CanEnterOpenedBar())
    {
        tscreenPushMMIWidget(m_OpenedBar);
        return nullptr;
    }
    m_IsPressedByWheel = true;
    return TTaskToolBarButton::OnMMIEnter();
}

bool TMenuElementButton::TakeWheelPress()
{
    return std::exchange(m_IsPressedByWheel, false);
}
