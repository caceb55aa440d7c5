#pragma once

#include "TMMICapableWeakRef.h"

#include <QList>
#include <QPoint>

#include <vector>

/// What the place of a stop in the wheel's order depends on. Centres that differ by no more than a tolerance
/// across the line share it, so the order is not transitive: three stops can each come before the next in a
/// ring.
struct TMMIStopKey
{
    unsigned precedence; ///< lower comes first
    int line;            ///< across the lines: y for rows, x for columns
    int place;           ///< along the line
    int index;           ///< of the stop in the order of finding; takes no part in the comparison

    TMMIStopKey(unsigned precedence, QPoint const& centre, bool columnFirst, int index);
    bool IsBefore(TMMIStopKey const& other) const;
};

/// Puts \a keys in order. A merge sort, since it looks at each pair at most once, ends and keeps every key
/// whatever the comparison answers; stops that are equal stay in their order.
void SortStopKeys(std::vector<TMMIStopKey>& keys);

/// One search for the stops beneath an object: the nearest descendants that are MMI capable, through plain
/// widgets and transparent ones.
class TMMIStopFinder
{
public:
    explicit TMMIStopFinder(QObject* root);

    /// In the order of the object tree.
    QList<TMMICapableWeakRef> Found() const;
    /// In the order of the wheel.
    QList<TMMICapableWeakRef> Sorted(bool columnFirst) const;

private:
    struct TStop
    {
        QObject* object;
        KVN::MMICapableWidget* widget;
    };

    class TMixinCast;

    void Search(QObject* object, TMixinCast& cast);
    static void AppendRef(QList<TMMICapableWeakRef>& refs, TStop const& stop);

    std::vector<TStop> m_Stops;
};
