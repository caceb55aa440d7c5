#include "TNavigationWindow.h"

#include "Metrics.h"
#include "Palette.h"
#include "PixmapNames.h"
#include "RenderUtils.h"
#include "TNavigationButton.h"

#include <QPainter>

namespace
{
constexpr int TitleSize = 24;
constexpr int TitleMinimumSize = 12;
constexpr int GridSpacing = 12;
} // namespace

TNavigationWindow::TNavigationWindow(QWidget* parent)
    : TWindow(parent)
{
    SetTitle(tr("Select View"));
    SetBackground(PixmapNames::TaskWindowNoShadow);
    GetCancelButton()->show();
}

void TNavigationWindow::AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip)
{
    QPointer<TPushButton>& button = m_Buttons[id];
    if (!button)
    {
        button = new TNavigationButton(GetWindowContent(), id);
        button->setFixedSize(NAVIGATION_BUTTON_WIDTH, NAVIGATION_BUTTON_HEIGHT);
        // The choice is made: the window has done its work.
        connect(button, &QAbstractButton::clicked, this, &TNavigationWindow::HideWindow);
    }
    button->SetIcon(icon, QSize(-1, -1), true);
    button->SetText(text, QString(), true, QString(), false);
    button->SetToolTip(toolTip);
    button->show();
    ArrangeButtons();
}

TPushButton* TNavigationWindow::GetButton(int id)
{
    return m_Buttons.value(id);
}

void TNavigationWindow::RemoveButton(int id)
{
    TPushButton* const button = m_Buttons.take(id);
    if (!button)
        return;
    // The button may be the one whose click is being handled.
    button->hide();
    button->deleteLater();
    ArrangeButtons();
}

void TNavigationWindow::SetButtonVisibility(int id, bool visible)
{
    if (TPushButton* const button = GetButton(id))
    {
        button->setVisible(visible);
        ArrangeButtons();
    }
}

void TNavigationWindow::SetButtonEnabled(int id, bool enabled)
{
    if (TPushButton* const button = GetButton(id))
        button->setEnabled(enabled);
}

void TNavigationWindow::ArrangeButtons()
{
    int const columnWidth = NAVIGATION_BUTTON_WIDTH + GridSpacing;
    int const rowHeight = NAVIGATION_BUTTON_HEIGHT + GridSpacing;
    int const left = (width() - NAVIGATION_WINDOW_COLUMNS * columnWidth + GridSpacing) / 2;
    int index = 0;
    for (QPointer<TPushButton> const& button : qAsConst(m_Buttons))
    {
        if (!button || button->isHidden())
            continue;
        button->move(left + index % NAVIGATION_WINDOW_COLUMNS * columnWidth,
                     NAVIGATION_BUTTON_Y_POS + index / NAVIGATION_WINDOW_COLUMNS * rowHeight);
        ++index;
    }
}

void TNavigationWindow::OnCancel()
{
    HideWindow();
}

void TNavigationWindow::paintEvent(QPaintEvent* event)
{
    TWindow::paintEvent(event);
    QPainter painter(this);
    QRect const titleRect(TITLE_X_OFFSET, 0, width() - 2 * TITLE_X_OFFSET, TITLEBAR_HEIGHT);
    KVN::RenderUtils::RenderTextInsideRect(&painter, titleRect, Qt::AlignLeft | Qt::AlignVCenter, GetTitle(),
                                           TitleSize, TitleMinimumSize, regularTextColor, true, true, true,
                                           true, false);
}

void TNavigationWindow::resizeEvent(QResizeEvent* event)
{
    TWindow::resizeEvent(event);
    GetWindowContent()->setGeometry(rect());
    SetContentRect(rect());
    TPushButton* const cancel = GetCancelButton();
    cancel->move(width() - cancel->width() - SCREEN_MARGIN - WINDOW_SHADOW,
                 height() - cancel->height() - SCREEN_MARGIN - WINDOW_SHADOW);
    ArrangeButtons();
}
