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

// A full window lies above the menus when it comes. One that is built on the canvas is known as such only
// when it has been polished.
void TMenuCanvas::childEvent(QChildEvent* event)
{
    TCanvas::childEvent(event);
    auto* const window =
        event->added() || event->polished() ? qobject_cast<TFullWindow*>(event->child()) : nullptr;
    if (window && m_Display)
        m_Display->StackAbove(window);
}

void TMenuCanvas::resizeEvent(QResizeEvent* event)
{
    TCanvas::resizeEvent(event);
    if (m_Display)
        m_Display->Arrange();
}
