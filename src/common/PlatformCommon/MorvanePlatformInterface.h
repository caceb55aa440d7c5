#pragma once

#include "PlatformCommonExport.h"

#include <QObject>
#include <QPixmap>
#include <QSharedPointer>
#include <QString>

class QWidget;
class TPopupWindow;
class TTaskWindow;

namespace KVN
{
class IAnnotationHandler;
} // namespace KVN

/// What the toolkit asks of the platform around it: the stacks of popups and task windows, the annotations,
/// the tool tips. The host implements it once; a unit test may run without any, then tool tips and
/// annotations do nothing. GUI thread only.
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

    /// Lays \a widget over all others of the screen, at the place that \a handler names, and keeps it there
    /// while \a source moves, with its ancestors or alone. It hides with the source and comes back with it. A
    /// widget that is up already gets the new handler and source. Without a source it stays up until it is
    /// taken down, without a handler where it is. A handler that is no QObject outlives the annotation.
    virtual void ShowAnnotation(QWidget* widget, KVN::IAnnotationHandler* handler, QWidget* source) = 0;
    /// Takes \a widget down and gives it back to the parent that it had; any other widget is ignored.
    virtual void HideAnnotation(QWidget* widget) = 0;

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
    virtual QWidget* GetTopLevelWindow() const = 0;

Q_SIGNALS:
    /// Tool-tip mode was switched; ToolTipVisible() has the new answer already.
    void NotifyToolTipsEnabled(bool enabled);

protected:
    explicit MorvanePlatformInterface(QObject* parent = nullptr);
};
