#include "TObstructionManagerHelpers.h"

#include "TObstructionManager.h"

#include <QWidget>

#include <algorithm>

namespace
{
bool IsAlongVerticalEdge(EObstructionSide side)
{
    return side == OBSTRUCTION_LEFT || side == OBSTRUCTION_RIGHT;
}

bool TouchesSpan(TObstructionData const& entry, int from, int to)
{
    bool const isVertical = IsAlongVerticalEdge(entry.side);
    int const first = isVertical ? entry.top : entry.left;
    int const last = isVertical ? entry.bottom : entry.right;
    auto const isWithin = [from, to](int end) { return from <= end && end <= to; };
    bool const overlaps = first <= to && last >= from;
    return isWithin(first) || isWithin(last) || overlaps;
}

// The + 1 on the right and at the bottom is deliberate: modules were laid out to it.
int MoveLimit(int limit, TObstructionData const& entry)
{
    switch (entry.side)
    {
    case OBSTRUCTION_LEFT:
        return std::max(limit, entry.right + 1);
    case OBSTRUCTION_RIGHT:
        return std::min(limit, entry.left + 1);
    case OBSTRUCTION_TOP:
        return std::max(limit, entry.bottom + 1);
    case OBSTRUCTION_BOTTOM:
        return std::min(limit, entry.top + 1);
    }
    return limit;
}

template<typename Map>
QList<TObstructionData> MapEach(QList<TObstructionData> const& list, Map const& map)
{
    QList<TObstructionData> mapped;
    mapped.reserve(list.size());
    for (TObstructionData const& entry : list)
    {
        QPoint const topLeft = map(QPoint(entry.left, entry.top));
        QPoint const bottomRight = map(QPoint(entry.right, entry.bottom));
        mapped.append({topLeft.x(), topLeft.y(), bottomRight.x(), bottomRight.y(), entry.side});
    }
    return mapped;
}
} // namespace

int TObstructionManagerHelpers::GetDefaultLimit(QWidget* widget, EObstructionSide side)
{
    switch (side)
    {
    case OBSTRUCTION_RIGHT:
        return widget->width();
    case OBSTRUCTION_BOTTOM:
        return widget->height();
    default:
        return 0;
    }
}

int TObstructionManagerHelpers::GetObstructionLimitBetween(QWidget* widget,
                                                           QList<TObstructionData> const& data,
                                                           EObstructionSide side, int from, int to)
{
    auto const [low, high] = std::minmax(from, to);
    int limit = GetDefaultLimit(widget, side);
    for (TObstructionData const& entry : data)
    {
        if (entry.side == side && TouchesSpan(entry, low, high))
            limit = MoveLimit(limit, entry);
    }
    return limit;
}

int TObstructionManagerHelpers::GetObstructionLimitAt(QWidget* widget, QList<TObstructionData> const& data,
                                                      EObstructionSide side, int at)
{
    return GetObstructionLimitBetween(widget, data, side, at, at);
}

int TObstructionManagerHelpers::GetObstructionLimitAtSideOf(TObstructionManager const& manager,
                                                            QWidget* widget, EObstructionSide side)
{
    bool const isVertical = IsAlongVerticalEdge(side);
    int const from = isVertical ? MapYToGlobal(widget, 0) : MapXToGlobal(widget, 0);
    int const to =
        isVertical ? MapYToGlobal(widget, widget->height()) : MapXToGlobal(widget, widget->width());
    int const limit = GetObstructionLimitBetween(widget, manager.GetObstructionData(), side, from, to);
    // The axes are crossed on purpose: only full-screen widgets ask, and for them the limit is the same
    // either way.
    return isVertical ? MapYFromGlobalAndConstrain(widget, limit) : MapXFromGlobalAndConstrain(widget, limit);
}

int TObstructionManagerHelpers::MapXToGlobal(QWidget* widget, int x)
{
    return widget->mapTo(widget->window(), QPoint(x, 0)).x();
}

int TObstructionManagerHelpers::MapYToGlobal(QWidget* widget, int y)
{
    return widget->mapTo(widget->window(), QPoint(0, y)).y();
}

int TObstructionManagerHelpers::MapXFromGlobalAndConstrain(QWidget* widget, int x)
{
    return qBound(0, widget->mapFrom(widget->window(), QPoint(x, 0)).x(), widget->width());
}

int TObstructionManagerHelpers::MapYFromGlobalAndConstrain(QWidget* widget, int y)
{
    return qBound(0, widget->mapFrom(widget->window(), QPoint(0, y)).y(), widget->height());
}

QList<TObstructionData> TObstructionManagerHelpers::MapTo(QList<TObstructionData> const& list, QWidget* from,
                                                          QWidget* to)
{
    return MapEach(list, [from, to](QPoint const& point) { return from->mapTo(to, point); });
}

QList<TObstructionData> TObstructionManagerHelpers::MapFrom(QList<TObstructionData> const& list,
                                                            QWidget* from, QWidget* to)
{
    return MapEach(list, [from, to](QPoint const& point) { return to->mapFrom(from, point); });
}
