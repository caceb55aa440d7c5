#include "TMMIStopFinder.h"

#include "MMICapableWidget.h"

#include <QWidget>

#include <algorithm>
#include <cstddef>
#include <typeinfo>

namespace
{
constexpr int LINE_TOLERANCE = 2; // pixels by which centres of one row or column may differ
constexpr size_t SHORT_RUN = 12;  // below this length, inserting is quicker than merging

// Centres on the screen. The way up from a parent to the screen is gone once for all of its children in a
// row.
class TCentres
{
public:
    QPoint Of(QObject* object)
    {
        if (!object->isWidgetType())
            return QPoint();
        auto const* const widget = static_cast<QWidget const*>(object);
        QPoint const middle(widget->width() / 2, widget->height() / 2);
        if (widget->isWindow() || widget->internalWinId())
            return widget->mapToGlobal(middle);
        if (widget->parentWidget() != m_Parent)
        {
            m_Parent = widget->parentWidget();
            m_Origin = m_Parent->mapToGlobal(QPoint());
        }
        return m_Origin + widget->pos() + middle;
    }

private:
    QWidget const* m_Parent = nullptr;
    QPoint m_Origin;
};

void InsertionSort(std::vector<TMMIStopKey>& keys, size_t from, size_t to)
{
    for (size_t i = from + 1; i < to; ++i)
    {
        TMMIStopKey const key = keys[i];
        size_t hole = i;
        for (; hole > from && key.IsBefore(keys[hole - 1]); --hole)
            keys[hole] = keys[hole - 1];
        keys[hole] = key;
    }
}

// Merges the neighbours [from, middle) and [middle, to) of source into the same range of target.
void Merge(std::vector<TMMIStopKey> const& source, std::vector<TMMIStopKey>& target, size_t from,
           size_t middle, size_t to)
{
    size_t left = from;
    size_t right = middle;
    for (size_t out = from; out < to; ++out)
    {
        bool const takeRight = right < to && (left == middle || source[right].IsBefore(source[left]));
        target[out] = takeRight ? source[right++] : source[left++];
    }
}
} // namespace

// Casts one object after the other. All objects of a type hold the mixin at the same distance, so that a run
// of siblings of one type costs one dynamic cast, the dearest part of a search.
class TMMIStopFinder::TMixinCast
{
public:
    KVN::MMICapableWidget* operator()(QObject* object)
    {
        std::type_info const& type = typeid(*object);
        if (!m_Type || *m_Type != type)
        {
            auto* const widget = dynamic_cast<KVN::MMICapableWidget*>(object);
            m_Type = &type;
            m_HasMixin = widget != nullptr;
            m_Distance = widget ? reinterpret_cast<char*>(widget) - reinterpret_cast<char*>(object) : 0;
        }
        if (!m_HasMixin)
            return nullptr;
        return reinterpret_cast<KVN::MMICapableWidget*>(reinterpret_cast<char*>(object) + m_Distance);
    }

private:
    std::type_info const* m_Type = nullptr;
    std::ptrdiff_t m_Distance = 0;
    bool m_HasMixin = false;
};

TMMIStopKey::TMMIStopKey(unsigned precedence, QPoint const& centre, bool columnFirst, int index)
    : precedence(precedence)
    , line(columnFirst ? centre.x() : centre.y())
    , place(columnFirst ? centre.y() : centre.x())
    , index(index)
{
}

bool TMMIStopKey::IsBefore(TMMIStopKey const& other) const
{
    if (precedence != other.precedence)
        return precedence < other.precedence;
    qint64 const ahead = qint64(other.line) - line;
    if (ahead > LINE_TOLERANCE || ahead < -LINE_TOLERANCE)
        return ahead > 0;
    return place < other.place;
}

void SortStopKeys(std::vector<TMMIStopKey>& keys)
{
    size_t const count = keys.size();
    for (size_t from = 0; from < count; from += SHORT_RUN)
        InsertionSort(keys, from, std::min(from + SHORT_RUN, count));
    if (count <= SHORT_RUN)
        return;
    std::vector<TMMIStopKey> merged = keys;
    for (size_t run = SHORT_RUN; run < count; run *= 2)
    {
        for (size_t from = 0; from < count; from += 2 * run)
            Merge(keys, merged, from, std::min(from + run, count), std::min(from + 2 * run, count));
        keys.swap(merged);
    }
}

TMMIStopFinder::TMMIStopFinder(QObject* root)
{
    TMixinCast cast;
    if (root)
        Search(root, cast);
}

void TMMIStopFinder::Search(QObject* object, TMixinCast& cast)
{
    // By index, since a widget may still lay itself out, and so make children, when it is asked for its
    // behaviour.
    for (int i = 0; i < object->children().size(); ++i)
    {
        QObject* const child = object->children().at(i);
        // A parent that is deleting its children leaves null in their places.
        if (!child)
            continue;
        KVN::MMICapableWidget* const widget = cast(child);
        EMMIWidgetBehaviour const behaviour = widget ? widget->GetMMIBehaviour() : MMI_TRANSPARENT;
        if (behaviour == MMI_TRANSPARENT)
            Search(child, cast);
        else if (behaviour != MMI_EXCLUDED)
            m_Stops.push_back({child, widget});
    }
}

QList<TMMICapableWeakRef> TMMIStopFinder::Found() const
{
    QList<TMMICapableWeakRef> refs;
    refs.reserve(int(m_Stops.size()));
    for (TStop const& stop : m_Stops)
        AppendRef(refs, stop);
    return refs;
}

QList<TMMICapableWeakRef> TMMIStopFinder::Sorted(bool columnFirst) const
{
    std::vector<TMMIStopKey> keys;
    keys.reserve(m_Stops.size());
    TCentres centres;
    for (TStop const& stop : m_Stops)
        keys.emplace_back(stop.widget->GetMMISortPrecedence(), centres.Of(stop.object), columnFirst,
                          int(keys.size()));
    SortStopKeys(keys);

    QList<TMMICapableWeakRef> refs;
    refs.reserve(int(keys.size()));
    for (TMMIStopKey const& key : keys)
        AppendRef(refs, m_Stops[size_t(key.index)]);
    return refs;
}

// Moved into its place: a copy would count the reference up and down once more, for each stop.
void TMMIStopFinder::AppendRef(QList<TMMICapableWeakRef>& refs, TStop const& stop)
{
    refs.append(TMMICapableWeakRef());
    refs.last() = TMMICapableWeakRef(stop.object, stop.widget);
}
