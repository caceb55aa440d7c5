#pragma once

#include "CommonUILibExport.h"
#include "TObstructionData.h"

#include <QList>
#include <QObject>

#include <set>
#include <vector>

class QWidget;
class TObstruction;

/// Knows what takes room at the edges of one surface: bars, panels, mini windows. Consumers ask through
/// TObstructionManagerHelpers how far a side reaches, and listen to ObstructionLimitChanged(). The screen has
/// one, and so has every canvas. GUI thread only.
class COMMONUILIB_EXPORT TObstructionManager : public QObject
{
    Q_OBJECT

public:
    /// \a reference is the surface; it must outlive this manager.
    TObstructionManager(QWidget* reference, QObject* parent);
    ~TObstructionManager() override;

    /// From now on \a widget takes room at \a side, as long as it is visible, until it dies or is removed.
    /// Null is ignored. A widget may stand at several sides.
    void RegisterObstruction(QWidget* widget, EObstructionSide side);

    /// Forgets \a object at all sides, then emits ObstructionLimitChanged() once for each of these sides,
    /// ascending.
    void RemoveObstruction(QObject* object);

    int GetObstructionCount() const;

    /// One record for each obstruction whose widget is visible, in order of registration.
    QList<TObstructionData> GetObstructionData() const;

    /// Switches the following of the first obstruction of \a widget and emits ObstructionLimitChanged() for
    /// its side.
    void SetUpdatesEnabled(QWidget* widget, bool enabled);

    /// Switches several at once. Emits ObstructionLimitChanged() once for each side on which one was switched
    /// on, ascending; nothing when switching off.
    void SetUpdatesEnabled(std::vector<QWidget*> const& widgets, bool enabled);

    /// False for a widget that is no obstruction.
    bool GetUpdatesEnabled(QWidget* widget) const;

Q_SIGNALS:
    void ObstructionLimitChanged(EObstructionSide side);

public Q_SLOTS:
    void OnObstructionDestroyed(QObject* object);

private:
    TObstruction* Find(QWidget* widget) const;
    void NotifySides(std::set<EObstructionSide> const& sides);

    QWidget* m_Reference;
    std::vector<TObstruction*> m_Obstructions;
};
