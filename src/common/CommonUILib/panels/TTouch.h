#pragma once

#include "CommonUILibExport.h"

#include <QPointer>
#include <QWidget>

class QPoint;

/// A finger that went down on a container. Qt brings its moves and its lift to a container by way of the
/// widget that was touched; when that one is deleted, the container may never hear of a lift beside it. GUI
/// thread only.
class COMMONUILIB_EXPORT TTouch
{
public:
    void Begin(QWidget const& container, QPoint const& place);
    void End() { m_IsDown = false; }
    /// From the press until End(), whatever became of the finger.
    bool IsDown() const { return m_IsDown; }
    /// Whether the finger has lifted somewhere else.
    bool IsLost() const;

private:
    QPointer<QWidget const> m_Touched;
    bool m_IsDown = false;
};
