#pragma once

#include "CommonUILibExport.h"
#include "TObstructionData.h"

#include <QList>

class QWidget;
class TObstructionManager;

/// The arithmetic of obstructions. Global means the coordinates of the top-level window. A widget argument
/// must not be null.
class COMMONUILIB_EXPORT TObstructionManagerHelpers
{
public:
    /// The limit of a side that nothing obstructs: the width on the right, the height at the bottom, else 0.
    static int GetDefaultLimit(QWidget* widget, EObstructionSide side);

    /// How far \a side reaches in along the span from \a from to \a to (in either order): the default limit,
    /// moved by every entry of that side that touches the span.
    static int GetObstructionLimitBetween(QWidget* widget, QList<TObstructionData> const& data,
                                          EObstructionSide side, int from, int to);
    static int GetObstructionLimitAt(QWidget* widget, QList<TObstructionData> const& data,
                                     EObstructionSide side, int at);

    /// The limit along the whole of \a widget, in its own coordinates.
    static int GetObstructionLimitAtSideOf(TObstructionManager const& manager, QWidget* widget,
                                           EObstructionSide side);

    static int MapXToGlobal(QWidget* widget, int x);
    static int MapYToGlobal(QWidget* widget, int y);
    /// From global coordinates, held to 0 .. width.
    static int MapXFromGlobalAndConstrain(QWidget* widget, int x);
    /// From global coordinates, held to 0 .. height.
    static int MapYFromGlobalAndConstrain(QWidget* widget, int y);

    /// The list with each rectangle mapped from \a from to its ancestor \a to.
    static QList<TObstructionData> MapTo(QList<TObstructionData> const& list, QWidget* from, QWidget* to);
    /// The list with each rectangle mapped from \a from to its descendant \a to.
    static QList<TObstructionData> MapFrom(QList<TObstructionData> const& list, QWidget* from, QWidget* to);
};
