#include "TPopupWindow.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "MorvanePlatformInterface.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"
#include "TButtonBar.h"
#include "TCanvas.h"
#include "TNavigationBar.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QPainter>
#include <QPixmap>

namespace
{
constexpr unsigned WheelDelay = 500;
constexpr int TitleSize = 18;
constexpr int TitleMinimumSize = 12;
constexpr int TitleMargin = 8;
constexpr int TitleFlags = Qt::AlignHCenter | Qt::AlignVCenter;
} // namespace

TPopupWindow::TPopupWindow(QWidget* parent)
    : TWindow(parent)
    , m_ButtonBar(new TButtonBar(this))
{
    // One press of enter works a button; the bar is no step on the way.
    m_ButtonBar->SetMMIBehaviour(MMI_TRANSPARENT);
    hide();
}

void TPopupWindow::ClearModal()
{
    ClearModalFlag();
}

void TPopupWindow::SetSurfaceID(KVN::MorvaneID const& id)
{
    if (id == m_SurfaceId)
        return;
    KVN::MorvaneID const before = m_SurfaceId;
    m_SurfaceId = id;
    Q_EMIT ParentAppIDChanged(before, m_SurfaceId);
}

KVN::MorvaneID const& TPopupWindow::SurfaceID() const
{
    return m_SurfaceId;
}

int TPopupWindow::GetBorderSize() const
{
    return POPUP_WINDOW_FRAME_BORDER_SIZE;
}

QSize TPopupWindow::GetWindowStaticComponentsSize() const
{
    int const barHeight = m_ButtonBar->GetNumberOfVisibleButtons() > 0 ? m_ButtonBar->height() : 0;
    return {GetBorderSize(), GetBorderSize() + POPUP_WINDOW_TITLEBAR_HEIGHT + barHeight};
}

QSize TPopupWindow::GetContentSizeForWindowSize(QSize const& size) const
{
    return (size - GetWindowStaticComponentsSize()).expandedTo(QSize(0, 0));
}

QSize TPopupWindow::GetWindowSizeForContentSize(QSize const& size) const
{
    return size + GetWindowStaticComponentsSize();
}

void TPopupWindow::HideBackground(bool background, bool titleBar)
{
    if (m_ShowBackground == !background && m_ShowTitleBar == !titleBar)
        return;
    m_ShowBackground = !background;
    m_ShowTitleBar = !titleBar;
    update();
}

void TPopupWindow::SetText(int id, QString const& text)
{
    if (!m_ButtonBar->GetButton(id))
        SetIcon(id, QString(), QString(), QString());
    m_ButtonBar->GetButton(id)->SetText(text, text, false, QString(), false);
    SetButtonVisibility(id, true);
}

void TPopupWindow::SetIcon(int id, QString const& icon, QString const& text, QString const& toolTip)
{
    m_ButtonBar->AssignButton(id, icon, text, toolTip);
}

TPushButton* TPopupWindow::GetButton(int id)
{
    return m_ButtonBar->GetButton(id);
}

void TPopupWindow::SetButtonVisibility(int id, bool visible)
{
    m_ButtonBar->SetButtonVisibility(id, visible);
    // A bar that is left without a button arranges nothing any more, not even the last one away.
    TPushButton* const button = visible ? nullptr : GetButton(id);
    if (button)
        button->hide();
}

void TPopupWindow::Setup()
{
    TWindow::Setup();
    setFixedSize(POPUP_WINDOW_WIDTH, POPUP_WINDOW_HEIGHT);
    SetBackground(PixmapNames::PopupWindowBackground);
}

void TPopupWindow::AdjustForShow()
{
    QWidget* const frame = parentWidget() ? parentWidget() : MainScreen;
    if (!m_AdjustNeeded || !frame)
        return;
    m_AdjustNeeded = false;
    int const margins = 2 * POPUP_PARENT_WINDOW_MARGIN;
    if (width() + margins > frame->width())
        setFixedWidth(qMax(0, frame->width() - margins));
    if (height() + margins > frame->height())
        setFixedHeight(qMax(0, frame->height() - margins));
    int const widthOfButtons = m_ButtonBar->width() + GetBorderSize();
    if (widthOfButtons > width())
        setFixedWidth(qMin(widthOfButtons, frame->width()));
    ReCentre(frame);
}

unsigned TPopupWindow::GetMMISelectionDelay()
{
    return WheelDelay;
}

void TPopupWindow::ShowWindow(bool modal)
{
    ShowWindow(modal, false);
}

void TPopupWindow::ShowWindow(bool modal, bool localWindow)
{
    SetupIfRequired();
    SetLocalModal(localWindow);
    if (modal)
        SetModalFlag();
    AdjustForShow();
    MorvanePlatformInterface* const platform = MorvanePlatformInterface::Instance();
    if (IsOnScreen() && platform)
        platform->ShowPopupWindow(this, localWindow);
    else
        TWindow::ShowWindow(modal);
}

// Hidden popups of the screen have no parent.
bool TPopupWindow::IsOnScreen() const
{
    return !parentWidget() || parentWidget() == MainScreen;
}

bool TPopupWindow::ShouldAutoReCentre() const
{
    return IsModal() || qobject_cast<TWindow*>(parentWidget());
}

void TPopupWindow::ReCentre(QWidget* parent)
{
    if (!parent)
        return;
    bool const isOnScreen = parent == MainScreen;
    if (!IsModal() && (isOnScreen || (MainScreen && parent == MainScreen->GetCurrentCanvas())))
    {
        move(POPUP_WINDOW_POS_X, POPUP_WINDOW_POS_Y);
        return;
    }
    // The shadow is no part of what the operator sees as the window.
    int const shadow = IsModal() && isOnScreen ? WINDOW_SHADOW : 0;
    int const y = (parent->height() - height() + shadow) / 2;
    if (!IsModal() || !isOnScreen || ModalType() != KVN::MODAL_LOCAL)
    {
        move((parent->width() - width() + shadow) / 2, y);
        return;
    }
    int const left = MainScreen->IsNavigationBarVisible() ? NAVBAR_WIDTH : 0;
    int const right = parent->width() - MainScreen->GetSystemToolBarWidth();
    int const x = (qMax(0, right - left) - width() + shadow) / 2 + left;
    move(qMax(shadow, qMin(x, right - width())), y);
}

QRect TPopupWindow::TitleBarRect() const
{
    return {POPUP_WINDOW_CONTENT_X_OFFSET, POPUP_WINDOW_CONTENT_X_OFFSET, width() - GetBorderSize(),
            POPUP_WINDOW_TITLEBAR_HEIGHT};
}

void TPopupWindow::paintEvent(QPaintEvent* event)
{
    if (m_ShowBackground)
        TWindow::paintEvent(event);
    QRect const bar = TitleBarRect();
    QString const title = GetTitle();
    if (!m_ShowTitleBar || title.isEmpty() || bar.isEmpty())
        return;
    QPainter painter(this);
    if (m_TitleBar)
        painter.drawPixmap(bar.topLeft(), *m_TitleBar);
    KVN::RenderUtils::RenderTextInsideRect(&painter, bar.adjusted(TitleMargin, 0, -TitleMargin, 0),
                                           TitleFlags, title, TitleSize, TitleMinimumSize, regularTextColor,
                                           true, true, true, true, false);
}

void TPopupWindow::resizeEvent(QResizeEvent* event)
{
    // The whole of what is seen, buttons included, is behind the fade of a modal popup over this one.
    SetContentRect(rect().adjusted(0, 0, -WINDOW_SHADOW, -WINDOW_SHADOW));
    QSize const content = GetContentSizeForWindowSize(size());
    GetWindowContent()->setGeometry(POPUP_WINDOW_CONTENT_X_OFFSET,
                                    POPUP_WINDOW_CONTENT_Y_OFFSET + POPUP_WINDOW_TITLEBAR_HEIGHT,
                                    content.width(), content.height());
    m_ButtonBar->SetFixedWidth(content.width());
    m_ButtonBar->move(POPUP_WINDOW_CONTENT_X_OFFSET,
                      POPUP_WINDOW_CONTENT_Y_OFFSET + height() - GetBorderSize() - TASK_WINDOW_BUTTON_HEIGHT);
    m_ButtonBar->show();
    RaiseBelowFade(m_ButtonBar);
    if (KVN::PixmapManager* const pixmaps = tscreenPixmapManager())
    {
        QSize const bar = TitleBarRect().size();
        m_TitleBar = pixmaps->GetResizedPixmap(PixmapNames::PopupWindowTitlebar, bar.width(), bar.height());
    }
    TWindow::resizeEvent(event);
}

void TPopupWindow::showEvent(QShowEvent* event)
{
    TWindow::showEvent(event);
    ReCentre(parentWidget());
    if (MainScreen && parentWidget() == MainScreen)
        MainScreen->RaiseToBelowAlarm(this);
    else if (parentWidget())
        raise();
}

TButtonBar* TPopupWindow::GetButtonBar() const
{
    return m_ButtonBar;
}

void TPopupWindow::SetAdjustNeeded()
{
    m_AdjustNeeded = true;
}

bool TPopupWindow::IsAdjustNeeded() const
{
    return m_AdjustNeeded;
}
