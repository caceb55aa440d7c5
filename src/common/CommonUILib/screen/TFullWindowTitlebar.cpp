#include "TFullWindowTitlebar.h"

#include "MainScreen.h"
#include "Metrics.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"

#include <QPainter>

namespace
{
constexpr int TextMargin = 10;
constexpr int WidgetRightMargin = 11;
constexpr int WidgetGap = 10;
constexpr int TitleSize = 24;
constexpr int TitleMinimumSize = 12;
} // namespace

TFullWindowTitlebar::TFullWindowTitlebar(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(FULL_WINDOW_WIDTH, FULL_WINDOW_TITLEBAR_WIDGET_HEIGHT);
    RepositionContents();
}

void TFullWindowTitlebar::SetTitle(QString const& title, int flags)
{
    if (title == m_Title && flags == m_TextFlags)
        return;
    m_Title = title;
    m_TextFlags = flags;
    update();
}

QString TFullWindowTitlebar::GetTitle() const
{
    return m_Title;
}

void TFullWindowTitlebar::IncludeWidgetInTitle(bool include)
{
    m_IncludeWidget = include;
    if (m_IncludedWidget)
        m_IncludedWidget->setVisible(include);
    RepositionContents();
}

void TFullWindowTitlebar::IncludeWidget(QWidget* widget)
{
    if (m_IncludedWidget && m_IncludedWidget != widget)
    {
        m_IncludedWidget->hide();
        m_IncludedWidget->setParent(nullptr);
    }
    m_IncludedWidget = widget;
    if (widget)
    {
        widget->setParent(this);
        widget->setVisible(m_IncludeWidget);
    }
    RepositionContents();
}

void TFullWindowTitlebar::RepositionContents()
{
    int const bottom = height() - FULL_WINDOW_TITLEBAR_WIDGET_HEIGHT + FULL_WINDOW_TITLEBAR_HEIGHT - 1;
    m_TextRect = QRect(QPoint(TextMargin, 0), QPoint(width() - 1 - TextMargin, bottom));
    if (m_IncludeWidget && m_IncludedWidget)
    {
        int const x = width() - m_IncludedWidget->width() - WidgetRightMargin;
        m_IncludedWidget->move(x, (m_TextRect.height() - m_IncludedWidget->height()) / 2);
        m_TextRect.setRight(x - WidgetGap);
    }
    update();
}

QRect TFullWindowTitlebar::GetTextRect() const
{
    return m_TextRect;
}

void TFullWindowTitlebar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (KVN::PixmapManager* const pixmaps = tscreenPixmapManager())
        m_Background = pixmaps->GetResizedPixmap(PixmapNames::FullWindowTitlebar, width(), height());
    RepositionContents();
}

void TFullWindowTitlebar::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    if (m_Title.isEmpty())
        return;
    QPainter painter(this);
    if (m_Background)
        painter.drawPixmap(0, 0, *m_Background);
    KVN::RenderUtils::RenderTextInsideRect(&painter, m_TextRect, m_TextFlags, m_Title, TitleSize,
                                           TitleMinimumSize, regularTextColor, true, true, true, true, false);
}
