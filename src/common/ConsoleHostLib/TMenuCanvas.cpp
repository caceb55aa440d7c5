#include "TMenuCanvas.h"

#include "TCanvasMenuDisplay.h"
#include "TFullWindow.h"

#include <QChildEvent>
#include <QScopedValueRollback>

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

// A full window that is built on the canvas is known as such only when it has been polished.
void TMenuCanvas::childEvent(QChildEvent* event)
{
    TCanvas::childEvent(event);
    bool const isFullWindow = event->child()->metaObject()->inherits(&TFullWindow::staticMetaObject);
    if (event->removed() || !isFullWindow || !m_Display)
        return;
    auto* const window = static_cast<QWidget*>(event->child());
    m_Display->StackAbove(window);
    window->installEventFilter(this);
}

// The screen's manager raises a full window when it comes up.
bool TMenuCanvas::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ZOrderChange && !m_IsStacking)
    {
        QScopedValueRollback<bool> const stacking(m_IsStacking, true);
        m_Display->StackAbove(static_cast<QWidget*>(watched));
    }
    return TCanvas::eventFilter(watched, event);
}

void TMenuCanvas::resizeEvent(QResizeEvent* event)
{
    TCanvas::resizeEvent(event);
    if (m_Display)
        m_Display->Arrange();
}
