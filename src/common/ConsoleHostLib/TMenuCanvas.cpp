#include "TMenuCanvas.h"

#include "TCanvasMenuDisplay.h"
#include "TFullWindow.h"

#include <QChildEvent>

TMenuCanvas::TMenuCanvas(QWidget* parent, TMenuManager& manager)
    : TCanvas(parent)
    , m_Display(std::make_unique<TCanvasMenuDisplay>(manager, this))
{
    SetMenuManagers(&manager, m_Display.get());
}

TMenuCanvas::~TMenuCanvas()
{
    SetMenuManagers(nullptr, nullptr);
}

bool TMenuCanvas::HasMenus() const
{
    return true;
}

TCanvasMenuDisplay* TMenuCanvas::GetMenuDisplay() const
{
    return m_Display.get();
}

// A full window that was given to the canvas later than the menus lies above them so far.
void TMenuCanvas::showEvent(QShowEvent* event)
{
    for (TFullWindow* const window : findChildren<TFullWindow*>(QString(), Qt::FindDirectChildrenOnly))
        m_Display->StackAbove(window);
    TCanvas::showEvent(event);
}

void TMenuCanvas::childEvent(QChildEvent* event)
{
    TCanvas::childEvent(event);
    auto* const window = event->polished() ? qobject_cast<TFullWindow*>(event->child()) : nullptr;
    if (window && m_Display)
        m_Display->StackAbove(window);
}

void TMenuCanvas::resizeEvent(QResizeEvent* event)
{
    TCanvas::resizeEvent(event);
    if (m_Display)
        m_Display->Arrange();
}
