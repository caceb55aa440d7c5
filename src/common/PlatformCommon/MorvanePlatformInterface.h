#pragma once

#include "PlatformCommonExport.h"

#include <QObject>
#include <QPixmap>
#include <QSharedPointer>
#include <QString>

class QWidget;
class TPopupWindow;
class TTaskWindow;

/// What the toolkit asks of the platform around it: the stacks of popups and task windows, the tool tips. The
/// host implements it once; a unit test may run without any, then tool tips do nothing. GUI thread only.
class PLATFORMCOMMON_EXPORT MorvanePlatformInterface : public QObject
{
    Q_OBJECT

public:
    ~MorvanePlatformInterface() override;

    /// The one platform, null where there is none. The latest constructed stands until it is destroyed.
    static MorvanePlatformInterface* Instance();

    /// Pushes \a window on the stack of popups of its module and shows it; see TPopupWindow::SurfaceID.
    virtual void ShowPopupWindow(TPopupWindow* window, bool localWindow) = 0;
    /// Pushes \a window on the stack of task windows of its module, places and shows it.
    virtual void ShowTaskWindow(TTaskWindow* window, bool localWindow) = 0;

    /// Is tool-tip mode on: a press then explains a button instead of working it.
    virtual bool ToolTipVisible() const = 0;
    /// Is the tool tip of \a source on the screen.
    virtual bool IsToolTipShownFor(QWidget* source) const = 0;
    /// Shows the tool tip of \a source in place of any other. \a placement is 0 for the platform's own
    /// choice. The icon may be null.
    virtual void ShowToolTipFor(QWidget* source, int placement, QString const& text,
                                QSharedPointer<QPixmap> icon) = 0;
    /// Takes the tool tip off the screen, if there is one.
    virtual void HideToolTip() = 0;

    /// The top-level window that is in use now.
    virtual QWidget* GetCurrentTopLevelWindow() const = 0;

Q_SIGNALS:
    /// Tool-tip mode was switched; ToolTipVisible() has the new answer already.
    void NotifyToolTipsEnabled(bool enabled);

protected:
    explicit MorvanePlatformInterface(QObject* parent = nullptr);
};
