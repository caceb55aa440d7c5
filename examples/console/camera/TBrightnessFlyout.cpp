#include "TBrightnessFlyout.h"

#include "ConsoleText.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QPainter>

namespace
{
constexpr int Margin = 8;
constexpr int ButtonWidth = 80;
constexpr int ButtonHeight = 66;
constexpr int TitleHeight = 30;
constexpr int TitleSize = 16;

struct TFlyoutButton
{
    char const* icon;
    char const* toolTip;
    int step; // 0 closes
};

constexpr TFlyoutButton Buttons[] = {
    {"icon-minus-larger", QT_TRANSLATE_NOOP("TBrightnessFlyout", "Darker"), -1},
    {"icon-plus-larger", QT_TRANSLATE_NOOP("TBrightnessFlyout", "Brighter"), 1},
    {"icon-tick-larger", QT_TRANSLATE_NOOP("TBrightnessFlyout", "Done"), 0},
};
constexpr int ButtonCount = 3;
} // namespace

TBrightnessFlyout::TBrightnessFlyout(QWidget* parent)
    : TWindow(parent)
{
    setFixedSize(ButtonCount * ButtonWidth + 2 * Margin, TitleHeight + ButtonHeight + Margin);
    hide();
}

void TBrightnessFlyout::Setup()
{
    TWindow::Setup();
    GetWindowContent()->setGeometry(rect());
    int x = Margin;
    for (TFlyoutButton const& entry : Buttons)
    {
        auto* const button =
            new TPushButton(GetWindowContent(), QLatin1String(entry.icon), QSize(ButtonWidth, ButtonHeight),
                            QPoint(x, TitleHeight), 0, tr(entry.toolTip));
        button->resize(ButtonWidth, ButtonHeight);
        int const step = entry.step;
        if (step == 0)
            connect(button, &TPushButton::Clicked, this, &TBrightnessFlyout::HideWindow);
        else
            connect(button, &TPushButton::Clicked, this, [this, step] { Q_EMIT BrightnessStepped(step); });
        x += ButtonWidth;
    }
}

void TBrightnessFlyout::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    ConsoleText::DrawSurface(&painter, rect());
    painter.setPen(ConsoleText::LightEdgeColor());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    ConsoleText::Draw(&painter, QRect(0, 0, width(), TitleHeight), Qt::AlignCenter, tr("Brightness"),
                      TitleSize, ConsoleText::CaptionColor());
}

void TBrightnessFlyout::showEvent(QShowEvent* event)
{
    TWindow::showEvent(event);
    if (m_IsOut || !MainScreen)
        return;
    m_IsOut = true;
    MainScreen->OnFlyoutWindowOpened();
}

// Also when the view behind it goes.
void TBrightnessFlyout::hideEvent(QHideEvent* event)
{
    TWindow::hideEvent(event);
    if (!m_IsOut)
        return;
    m_IsOut = false;
    if (MainScreen)
        MainScreen->OnFlyoutWindowClosed();
}
