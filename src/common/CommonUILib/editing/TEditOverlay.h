#pragma once

#include "CommonUILibExport.h"
#include "ModalData.h"

#include <QPointer>
#include <QRect>
#include <QString>

#include <functional>

class ITopLevelWindow;
class QRegion;
class QWidget;

namespace KVN
{
class IAnnotationHandler;
} // namespace KVN

/// What lies under every overlay in which the operator edits a value: the control that asked for it and where
/// that stands, the way onto the screen and off it, and the lock on the window behind. Part of TEditWidget
/// and TTextEditWidget. GUI thread only.
class COMMONUILIB_EXPORT TEditOverlay
{
public:
    /// Tells the rectangle of the source in the coordinates of the widget that it is given.
    using TSourceRect = std::function<QRect(QWidget*)>;

    /// \a widget is the overlay, to which this belongs.
    explicit TEditOverlay(QWidget* widget);

    /// \a rect may be empty: the rectangle is that of \a source then. Both may be none.
    void SetSource(QWidget* source, TSourceRect rect);
    /// Null also when it has died.
    QWidget* GetSource() const;
    /// In the coordinates of the overlay's parent; null without a parent or a source.
    QRect SourceRect() const;
    /// The visible part of the source in the coordinates of the overlay; the whole screen without a source.
    QRegion VisibleRegionOfSource() const;

    /// Shows the overlay above all others for as long as the source is seen. Nothing without a platform, nor
    /// for one that is up.
    void Open(KVN::IAnnotationHandler* handler);
    void Close();
    /// Gives the overlay the size of its parent.
    void FillParent();
    /// Calls \a slot of the overlay after the move of the source that is under way.
    void FollowLater(char const* slot);

    /// The window in which the overlay stands, null if it offers nothing to those in it.
    ITopLevelWindow* TopLevelWindow() const;
    /// The part of that window that may be used, in the coordinates of the overlay; the whole overlay
    /// without one.
    QRect UsableRect() const;
    /// Locks the parent in the name of the overlay until Unlock(), which knows it however the overlay has
    /// moved since. Locking twice locks once.
    void Lock(QString const& name, KVN::EModalType type);
    void Unlock();

private:
    QWidget* const m_Widget;
    QPointer<QWidget> m_Source;
    bool m_HasSource = false; // it may have died since
    TSourceRect m_SourceRect;
    QPointer<QWidget> m_Locked;
};
