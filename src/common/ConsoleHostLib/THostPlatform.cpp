#include "THostPlatform.h"

#include "TAnnotationLayer.h"
#include "TPopupWindow.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TTaskWindow.h"
#include "TToolTipMode.h"
#include "TWindowStacks.h"

namespace
{
void RepaintButtons(TScreen const& screen)
{
    auto const buttons = screen.findChildren<TPushButton*>();
    for (TPushButton* const button : buttons)
        button->update();
}
} // namespace

THostPlatform::THostPlatform(TScreen* screen, QObject* parent)
    : MorvanePlatformInterface(parent)
    , m_Screen(screen)
    , m_Stacks(std::make_unique<TWindowStacks>(screen))
    , m_Annotations(std::make_unique<TAnnotationLayer>(screen))
    , m_ToolTips(std::make_unique<TToolTipMode>(screen))
{
    // Comes before the screen deletes its children, which may ask for windows in their end.
    connect(screen, &QObject::destroyed, this, [this] { m_Screen.clear(); });
    connect(m_ToolTips.get(), &TToolTipMode::Switched, this, &THostPlatform::NotifyToolTipsEnabled);
    // Buttons that are older than the platform do not hear it, and have their marks all the same.
    connect(m_ToolTips.get(), &TToolTipMode::Switched, screen, [screen] { RepaintButtons(*screen); });
    connect(m_Stacks.get(), &TWindowStacks::Restacked, m_Annotations.get(),
            &TAnnotationLayer::RaiseAnnotations);
}

THostPlatform::~THostPlatform()
{
    // What their end brings about must not find them any more.
    std::unique_ptr<TWindowStacks> const stacks = std::move(m_Stacks);
    std::unique_ptr<TAnnotationLayer> const annotations = std::move(m_Annotations);
    std::unique_ptr<TToolTipMode> const toolTips = std::move(m_ToolTips);
}

TWindowStacks* THostPlatform::GetWindowStacks() const
{
    return m_Stacks.get();
}

TToolTipMode* THostPlatform::GetToolTipMode() const
{
    return m_ToolTips.get();
}

// Whether a window is local is known to the window itself: its modal type says so.
void THostPlatform::ShowPopupWindow(TPopupWindow* window, bool localWindow)
{
    Q_UNUSED(localWindow)
    Show(window);
}

void THostPlatform::ShowTaskWindow(TTaskWindow* window, bool localWindow)
{
    Q_UNUSED(localWindow)
    Show(window);
}

template<typename TStacked>
void THostPlatform::Show(TStacked* window)
{
    if (!window)
        return;
    if (m_Stacks && m_Screen)
        m_Stacks->Push(window);
    else
        window->TWindow::ShowWindow(false);
}

void THostPlatform::ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source)
{
    if (m_Annotations)
        m_Annotations->ShowAnnotation(widget, handler, source);
}

void THostPlatform::HideAnnotation(QWidget* widget)
{
    if (m_Annotations)
        m_Annotations->HideAnnotation(widget);
}

bool THostPlatform::ToolTipVisible() const
{
    return m_ToolTips && m_ToolTips->ToolTipVisible();
}

bool THostPlatform::IsToolTipShownFor(QWidget* source) const
{
    return m_ToolTips && m_ToolTips->IsToolTipShownFor(source);
}

void THostPlatform::ShowToolTipFor(QWidget* source, int placement, QString const& text,
                                   QSharedPointer<QPixmap> icon)
{
    if (m_ToolTips)
        m_ToolTips->ShowToolTipFor(source, placement, text, icon);
}

void THostPlatform::HideToolTip()
{
    if (m_ToolTips)
        m_ToolTips->HideToolTip();
}

QWidget* THostPlatform::GetTopLevelWindow() const
{
    return m_Screen;
}
