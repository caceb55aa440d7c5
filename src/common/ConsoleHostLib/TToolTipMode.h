#pragma once

#include "ConsoleHostLibExport.h"
#include "TParentTracker.h"

#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QSharedPointer>
#include <QString>
#include <QWidget>

class TScreen;
class TToolTip;

/// Explains the buttons of a screen: one bubble at a time, beside the button that it explains and never over
/// it where there is room elsewhere. It follows the button, and goes by a tap, when the mode is switched off,
/// and when the button cannot be seen any more. THostPlatform hands the calls of the toolkit on to it.
///
/// A tip may also be shown while the mode is off, for a finger that rests on something. For what places
/// itself see TAnnotationLayer. GUI thread only.
class CONSOLEHOSTLIB_EXPORT TToolTipMode : public QObject
{
    Q_OBJECT

public:
    /// \a screen may not be null and may die first; nothing is shown any more then.
    explicit TToolTipMode(TScreen* screen, QObject* parent = nullptr);
    ~TToolTipMode() override;

    /// Off at first.
    void SetOn(bool on);
    /// Is the mode on.
    bool ToolTipVisible() const;

    /// Shows \a text, with \a icon unless that is null, beside \a source in place of any other tip. Without a
    /// text, or for a source of which nothing can be seen on the screen, there is no tip then. The place is
    /// always that of PlaceBeside(), whatever \a placement says.
    void ShowToolTipFor(QWidget* source, int placement, QString const& text, QSharedPointer<QPixmap> icon);
    bool IsToolTipShownFor(QWidget* source) const;
    void HideToolTip();

    /// Where a tip of \a size stands inside \a room: at the right of \a source, else at its left, below it or
    /// above it, at the first of these sides that has the room. Where none has, it covers the source from the
    /// side that lacks the least. One that is larger than the room begins at its upper left corner.
    static QPoint PlaceBeside(QRect const& source, QSize const& size, QRect const& room);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The mode was switched; ToolTipVisible() answers \a on already, and the tip is down.
    void Switched(bool on);

private:
    QRect VisiblePart(QWidget const* source) const;
    void Follow();
    void TakeDown();

    QPointer<TScreen> m_Screen;
    QPointer<TToolTip> m_ToolTip;
    QPointer<QWidget> m_Source; // null while there is no tip
    TParentTracker m_Tracker;
    QString m_Text;
    QSharedPointer<QPixmap> m_Icon;
    bool m_IsOn = false;
};
