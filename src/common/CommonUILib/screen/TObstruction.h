#pragma once

#include "CommonUILibExport.h"
#include "EObstructionSide.h"

#include <QObject>
#include <QRect>

class QWidget;

/// One widget that takes room at one side of a surface. Follows the widget's geometry as an event filter,
/// unless its updates are switched off around an animation; then the last geometry stands. Made and owned by
/// a TObstructionManager.
class COMMONUILIB_EXPORT TObstruction : public QObject
{
    Q_OBJECT

public:
    /// Neither \a reference nor \a widget may be null; both stay the caller's.
    TObstruction(QWidget* reference, QWidget* widget, EObstructionSide side);

    QWidget* GetWidget() const;
    EObstructionSide GetSide() const;
    /// The cached geometry: in coordinates of the reference widget where the widget lies in it, else as it
    /// stands in its parent.
    QRect GetGeometry() const;
    bool GetUpdatesEnabled() const;

    /// Switches the following of the widget. Switching on takes its present geometry; nothing is emitted.
    void SetUpdatesEnabled(bool enabled);

    /// Takes the widget's present geometry; with \a notify emits ObstructionGeomChanged(), whether or not
    /// anything moved.
    void RefreshGeometryCache(bool notify);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The widget moved, changed its size, came or went; GetGeometry() is up to date.
    void ObstructionGeomChanged(EObstructionSide side);

private:
    QWidget* m_Reference;
    QWidget* m_Widget;
    EObstructionSide m_Side;
    bool m_UpdatesEnabled = true;
    QRect m_Geometry;
};
