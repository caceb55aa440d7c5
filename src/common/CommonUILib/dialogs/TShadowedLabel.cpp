#include "TShadowedLabel.h"

#include "LongLabel.h"
#include "Metrics.h"
#include "RenderUtils.h"

#include <QPainter>

namespace
{
// More characters than any label on the screen can show; measuring what lies behind them tells nothing.
constexpr int LongestMeasured = 16384;
} // namespace

TShadowedLabel::TShadowedLabel(EFitOptions fit)
    : TShadowedLabel(nullptr, fit)
{
}

TShadowedLabel::TShadowedLabel(QWidget* parent, EFitOptions fit)
    : TShadowedLabel(QString(), parent, fit)
{
}

TShadowedLabel::TShadowedLabel(QString const& text, QWidget* parent, EFitOptions fit)
    : QLabel(parent)
    , m_Fit(fit)
    , m_FitMinimumTextSize(MINIMUM_FONT_SIZE)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

TShadowedLabel::~TShadowedLabel() = default;

void TShadowedLabel::SetTextColor(QColor color)
{
    if (color == m_Color)
        return;
    m_Color = color;
    update();
}

void TShadowedLabel::SetLeftMargin(int margin)
{
    if (margin == m_LeftMargin)
        return;
    m_LeftMargin = margin;
    updateGeometry();
    update();
}

void TShadowedLabel::SetFitMinimumTextSize(int size)
{
    if (size == m_FitMinimumTextSize)
        return;
    m_FitMinimumTextSize = size;
    update();
}

void TShadowedLabel::SetFitOption(EFitOptions fit)
{
    if (fit == m_Fit)
        return;
    m_Fit = fit;
    update();
}

int TShadowedLabel::Flags() const
{
    return int(alignment()) | (wordWrap() ? int(Qt::TextWordWrap) : 0);
}

QRect TShadowedLabel::GetTextBoundary(QRect const& rect) const
{
    return QFontMetrics(font()).boundingRect(rect, Flags(), text().left(LongestMeasured));
}

bool TShadowedLabel::SetHeight(int maxLines)
{
    for (QRect const& area : {rect(), rect().adjusted(m_LeftMargin, 0, 0, 0)})
    {
        QSize const text = GetTextBoundary(area).size();
        if (height() < 1 || qRound(double(text.height()) / height()) > maxLines)
            continue;
        if (text.width() <= area.width() && text.height() <= area.height())
            return false;
        setFixedHeight(text.height());
        return true;
    }
    return false;
}

QSize TShadowedLabel::sizeHint() const
{
    QSize const hint = LongLabel::IsLong(*this) ? LongLabel::SizeHint(*this) : QLabel::sizeHint();
    return {hint.width() + m_LeftMargin, hint.height()};
}

QSize TShadowedLabel::minimumSizeHint() const
{
    QSize const hint = LongLabel::IsLong(*this) ? QSize() : QLabel::minimumSizeHint();
    return {qMax(0, hint.width()) + m_LeftMargin, qMax(0, hint.height())};
}

int TShadowedLabel::heightForWidth(int width) const
{
    int const textWidth = width - m_LeftMargin;
    return LongLabel::IsLong(*this) ? LongLabel::HeightForWidth(*this, textWidth)
                                    : QLabel::heightForWidth(textWidth);
}

void TShadowedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QFont const font = LongLabel::PixelFont(*this);
    painter.setFont(font);
    QColor const color = m_Color.isValid() ? m_Color : palette().color(foregroundRole());
    KVN::RenderUtils::RenderTextInsideRect(&painter, rect().adjusted(m_LeftMargin, 0, 0, 0), Flags(), text(),
                                           font.pixelSize(), m_FitMinimumTextSize, color, wordWrap(),
                                           (m_Fit & FIT_SHRINK) != 0, (m_Fit & FIT_ELIDE) != 0, true, true);
}
