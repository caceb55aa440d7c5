#include "TSetupWindow.h"

#include "Metrics.h"
#include "Palette.h"
#include "RenderUtils.h"
#include "TPushButton.h"

#include <QPainter>

namespace
{
constexpr int TitleFlags = Qt::AlignLeft | Qt::AlignVCenter;
} // namespace

TSetupWindow::TSetupWindow(QWidget* parent)
    : TWindow(parent)
{
    setFixedSize(SETUP_WINDOW_WIDTH, SETUP_WINDOW_HEIGHT);
    move(SETUP_WINDOW_POS_X, SETUP_WINDOW_POS_Y);
}

void TSetupWindow::RepositionButtons()
{
    QWidget const* const content = GetWindowContent();
    int right = width() - SETUP_BUTTON_RIGHT_MARGIN;
    QVector<TPushButton*> const& controls = GetControlButtons();
    for (int index = 0; index < controls.size(); ++index)
    {
        TPushButton* const button = controls[index];
        if (!button)
            continue;
        int const step = button->height() - CONTROL_BUTTON_OVERLAP;
        button->move(right - button->width(), step * index + SETUP_TOP_MARGIN);
        button->raise();
    }
    for (TPushButton* const button : {GetOkButton(), GetCancelButton()})
    {
        if (!button->isVisibleTo(content))
            continue;
        right -= button->width();
        button->move(right, height() - button->height() - SETUP_BOTTOM_MARGIN - content->y());
    }
}

void TSetupWindow::SetFrameSize(int width, int height)
{
    QWidget* const content = GetWindowContent();
    content->setFixedSize(qMax(0, width), qMax(0, height));
    content->move(0, TITLEBAR_HEIGHT);
    SetContentRect(content->geometry());
}

void TSetupWindow::Setup()
{
    TWindow::Setup();
    for (TPushButton* const button : GetControlButtons())
    {
        if (button)
            button->setFixedSize(TAB_BUTTON_WIDTH, SMALL_TAB_BUTTON_HEIGHT);
    }
    GetCancelButton()->SetIcon(QStringLiteral("icon-cross"), QSize(-1, -1), false);
}

void TSetupWindow::AddControlButton(int id, QString const& icon, QString const& toolTip)
{
    TWindow::AddControlButton(id, icon, toolTip);
    if (TPushButton* const button = GetControlButtons().value(id, nullptr))
        button->setFixedSize(TAB_BUTTON_WIDTH, SMALL_TAB_BUTTON_HEIGHT);
    RepositionButtons();
}

void TSetupWindow::paintEvent(QPaintEvent* event)
{
    TWindow::paintEvent(event);
    QString const title = GetTitle();
    if (title.isEmpty())
        return;
    QPainter painter(this);
    QRect const bar(TITLE_X_OFFSET, 0, width() - TITLE_X_OFFSET, TITLEBAR_HEIGHT);
    KVN::RenderUtils::RenderTextInsideRect(&painter, bar, TitleFlags, title, SETUP_WINDOW_TITLE_MAX_FONT,
                                           SETUP_WINDOW_TITLE_MIN_FONT, regularTextColor, true, true, true,
                                           true, false);
}

void TSetupWindow::resizeEvent(QResizeEvent* event)
{
    SetFrameSize(width(), height() - TITLEBAR_HEIGHT);
    TWindow::resizeEvent(event);
    RepositionButtons();
}

void TSetupWindow::showEvent(QShowEvent* event)
{
    RepositionButtons();
    TWindow::showEvent(event);
}
