#include "TLabel.h"

#include "LongLabel.h"
#include "Palette.h"
#include "RenderUtils.h"

#include <QPainter>
#include <QPaintEvent>

namespace
{
// Role 5 of a palette. Style sheets and styles leave it alone, so the colour of a label stays its own.
constexpr QPalette::ColorRole TextRole = QPalette::Mid;
} // namespace

TLabel::TLabel(QWidget* parent)
    : QLabel(parent)
{
    Init();
}

TLabel::TLabel(QString const& text, QWidget* parent)
    : QLabel(parent)
{
    Init();
    setText(text);
}

TLabel::~TLabel() = default;

void TLabel::Init()
{
    setTextFormat(Qt::PlainText);
    SetTextColor(regularTextColor);
    QSizePolicy policy = sizePolicy();
    policy.setVerticalPolicy(QSizePolicy::Preferred);
    setSizePolicy(policy);
}

void TLabel::SetTextColor(QColor const& color)
{
    QPalette colors = palette();
    colors.setBrush(TextRole, color);
    setPalette(colors);
    update();
}

void TLabel::SetShadow(bool shadow)
{
    if (shadow == m_Shadow)
        return;
    m_Shadow = shadow;
    update();
}

void TLabel::SetLeftMargin(int margin)
{
    if (margin == m_LeftMargin)
        return;
    m_LeftMargin = margin;
    Resize();
    updateGeometry();
    update();
}

void TLabel::SetAdjustHeight(bool adjust)
{
    m_AdjustHeight = adjust;
    Resize();
}

void TLabel::setText(QString const& text)
{
    if (text == this->text())
        return;
    QLabel::setText(text);
    Resize();
    updateGeometry();
}

void TLabel::Resize()
{
    if (m_AdjustHeight && !text().isEmpty())
        setFixedHeight(
            KVN::RenderUtils::GetTextHeight(text(), LongLabel::PixelFont(*this), width() - m_LeftMargin));
}

int TLabel::heightForWidth(int width) const
{
    return LongLabel::HeightForWidth(*this, width - m_LeftMargin);
}

QSize TLabel::sizeHint() const
{
    QSize const hint = LongLabel::IsLong(*this) ? LongLabel::SizeHint(*this) : QLabel::sizeHint();
    return {hint.width() + m_LeftMargin, hint.height()};
}

QSize TLabel::minimumSizeHint() const
{
    QSize const hint = LongLabel::IsLong(*this) ? QSize() : QLabel::minimumSizeHint();
    return {qMax(0, hint.width()) + m_LeftMargin, qMax(0, hint.height())};
}

void TLabel::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    QRect const area = rect().adjusted(m_LeftMargin, 0, 0, 0);
    // Of a giant text only the lines that came into sight are drawn.
    if (event->rect() != rect())
        painter.setClipRect(event->rect());
    QFont const font = LongLabel::PixelFont(*this);
    KVN::RenderUtils::RenderText(&painter, area, int(alignment()),
                                 wordWrap() ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap,
                                 text(), font.pixelSize(), palette().color(TextRole), font.bold(), m_Shadow,
                                 font);
}

void TLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        Resize();
}
