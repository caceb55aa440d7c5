#pragma once

#include <QObject>

class TCameraXVOverlayManager;

/// Knows whether the camera's picture may be on the screen now. A picture that hardware lays over all widgets
/// must stand aside when something is to be seen above it.
class TCameraOverlay : public QObject
{
    Q_OBJECT

public:
    explicit TCameraOverlay(TCameraXVOverlayManager const* manager);

    bool IsAside() const { return m_Reasons != 0; }

Q_SIGNALS:
    /// IsAside() has the new answer already.
    void Changed();

private:
    enum EReason : unsigned
    {
        REASON_POPUP = 1,
        REASON_TASK_WINDOW = 2,
        REASON_ANNOTATION = 4,
        REASON_ALARM = 8,
        REASON_FLYOUT = 16,
        REASON_SCREENSHOT = 32
    };

    void Set(EReason reason, bool on);

    unsigned m_Reasons = 0;
};
