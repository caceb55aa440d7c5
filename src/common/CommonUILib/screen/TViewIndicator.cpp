#include "TViewIndicator.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace
{
constexpr int Gap = 5;
constexpr int Whole = 100;
// Above it nobody sees that something is missing.
constexpr int NearlyWhole = 99;
constexpr int BreadthOfTheEdges = 2;
const QColor InViewColor(150, 150, 150, 255);
const QColor OutOfViewColor(75, 75, 75, 255);
} // namespace

TViewIndicator::TViewIndicator(QWidget* parent, bool horizontal)
    : QWidget(parent)
    , m_Horizontal(horizontal)
{
}

void TViewIndicator::SetNumberOfItems(int count)
{
    int const held = qBound(0, count, MaxItems);
    if (held == m_Percentages.size())
        return;
    m_Percentages.fill(0, held);
    AdjustLayout();
}

void TViewIndicator::SetVisibleInView(int item, bool visible)
{
    SetPartiallyVisibleInView(item, visible ? Whole : 0);
}

void TViewIndicator::SetPartiallyVisibleInView(int item, int percent)
{
    if (item < 0 || item >= m_Percentages.size() || percent < -Whole || percent > Whole ||
        percent == m_Percentages[item])
        return;
    m_Percentages[item] = percent;
    update();
}

void TViewIndicator::AdjustLayout()
{
    int const count = m_Percentages.size();
    if (count > 0)
    {
        int const length = m_Horizontal ? width() : height();
        int const breadth = m_Horizontal ? height() : width();
        int const gaps = (count - 1) * Gap;
        m_ItemLength = std::floor(float(length - 1 - gaps) / float(count));
        m_MarginAlong = int((float(length) - (m_ItemLength * float(count) + float(gaps))) / 2);
        m_ItemBreadth = float(breadth - BreadthOfTheEdges);
        m_MarginAcross = int((float(breadth) - m_ItemBreadth) / 2);
    }
    update();
}

bool TViewIndicator::IsEverythingInView() const
{
    return std::all_of(m_Percentages.begin(), m_Percentages.end(),
                       [](int percent) { return std::abs(percent) > NearlyWhole; });
}

QRectF TViewIndicator::MarkRect(float along, float length) const
{
    QRectF const mark{qreal(along), qreal(m_MarginAcross), qreal(length), qreal(m_ItemBreadth)};
    return m_Horizontal ? mark : QRectF(mark.y(), mark.x(), mark.height(), mark.width());
}

void TViewIndicator::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    // True without items too.
    if (IsEverythingInView() || m_ItemLength < 1 || m_ItemBreadth < 1)
        return;
    QPainter painter(this);
    for (int item = 0; item < m_Percentages.size(); ++item)
        PaintItem(painter, item);
}

void TViewIndicator::PaintItem(QPainter& painter, int item) const
{
    float const start = float(m_MarginAlong) + float(item) * (m_ItemLength + float(Gap));
    int const percent = m_Percentages[item];
    float const shown = std::round(m_ItemLength * float(std::abs(percent)) / Whole);
    float const hidden = m_ItemLength - shown;
    bool const isAtNearEnd = percent > 0;
    painter.fillRect(MarkRect(isAtNearEnd ? start + shown : start, hidden), OutOfViewColor);
    painter.fillRect(MarkRect(isAtNearEnd ? start : start + hidden, shown), InViewColor);
}

void TViewIndicator::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    AdjustLayout();
}
