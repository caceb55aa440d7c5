#pragma once

#include "CommonUILibExport.h"
#include "MMICapableWidget.h"

#include <QAbstractButton>
#include <QColor>
#include <QPixmap>
#include <QSharedPointer>

#include <array>
#include <memory>

class QMouseEvent;
class QPainter;
class QTimer;

/// Where the text of a button with an icon stands.
enum ETextPlacement : int
{
    TEXT_RIGHT_OF_ICON = 0,
    TEXT_BELOW_ICON = 1,
    TEXT_WHOLE_BUTTON = 2 ///< the icon takes no room of its own; as any other value
};

/// Who gave a button its object name, by which macro paths find it. A lower value replaces a higher one.
enum EObjectNameSource
{
    NAME_EXPLICIT = 0,
    NAME_FROM_ICON = 1,
    NAME_FROM_TEXT = 2,
    NAME_FROM_TOOL_TIP = 3,
    NAME_NONE = 4
};

/// The button on which nearly every control of the toolkit stands: a skin for each state or one flat colour,
/// an icon with a grey form, one or two lines of text, a second icon at the right, an identity, a click
/// sound, and a tool tip that explains it in tool-tip mode instead of working it.
///
/// A press is cancelled when the button itself moves under the finger. Mouse events are offered to the parent
/// as well, whatever the button did with them, so that a bar or list can follow a drag that began on a
/// button; the parent of a button must ignore what it has no use for. A button may be deleted by a slot of
/// any of its signals; the parent does not get that event.
///
/// The wheel's enter key works it like a short touch. It shows the wheel's selection by its selected skin.
/// GUI thread only; without a screen there are no named pixmaps.
class COMMONUILIB_EXPORT TPushButton : public QAbstractButton, public KVN::MMICapableWidget
{
    Q_OBJECT

public:
    /// \name Construction
    /// \a id is carried by Clicked(), Pressed() and Released(), which stay silent for a negative one. An
    /// empty \a toolTip means none. All but the first show the button when \a parent is not null, and give it
    /// STANDARD_BUTTON_WIDTH by STANDARD_BUTTON_HEIGHT as its minimum size unless a size with both parts
    /// above 0 is given.
    /// @{
    TPushButton(QWidget* parent, int id, QString const& toolTip);
    TPushButton(QWidget* parent, QString const& iconName, QString const& backgroundName,
                QSize const& minimumSize, QPoint const& position, int id, QString const& toolTip);
    /// With the standard skin.
    TPushButton(QWidget* parent, QString const& iconName, QSize const& minimumSize, QPoint const& position,
                int id, QString const& toolTip);
    TPushButton(QWidget* parent, QString const& iconName, QString const& backgroundName,
                QString const& selectedBackgroundName, int id, QString const& toolTip);
    TPushButton(QWidget* parent, QString const& iconName, QSharedPointer<QPixmap> background,
                QSharedPointer<QPixmap> selectedBackground, int id, QString const& toolTip);
    /// @}
    /// Takes the tool tip off the screen if it is this button's.
    ~TPushButton() override;

    /// The icon \a name, square, as large as the smaller part of \a size, or of the button where a part of \a
    /// size is negative; it follows the button's size then. Empty: no icon. \a enable enables the button;
    /// false leaves it as it is.
    virtual void SetIcon(QString const& name, QSize const& size, bool enable);
    /// As above for a picture that is at hand: scaled down to the square where it exceeds it, never up, and
    /// not on a later resize.
    virtual void SetIcon(QImage const& image, QSize const& size, bool enable);
    /// The two forms as they are; either may be null.
    virtual void SetIcon(QSharedPointer<QPixmap> icon, QSharedPointer<QPixmap> disabledIcon);
    /// The text, in bold condensed type of STANDARD_FONT_SIZE unless SetFontProperties() says otherwise.
    /// Without \a useSecondLine the stored second line stays and is not shown. \a objectName is the name for
    /// macro paths, where no icon gave one.
    virtual void SetText(QString text, QString objectName, bool enable, QString secondLine,
                         bool useSecondLine);
    /// A click with a press that is seen for 100 ms.
    KVN::MMICapableWidget* OnMMIEnter() override;
    void OnMMIHighlight() override;
    void OnMMIUnHighlight() override;
    /// Shows the tool tip, or hides the one that is shown when this button has none.
    virtual void ShowToolTip();
    /// Fits skins, icon and text to the present size; runs on each resize.
    virtual void ResizeContents();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// \name Backgrounds
    /// By name they follow the button's size; by pointer the corners of 16 pixels are kept and the rest is
    /// stretched. An empty name or a null pointer: none. A button that is down or highlighted shows the
    /// selected background and a checked one the checked background, or none at all where there is no such
    /// pixmap.
    /// @{
    void SetBackground(QString const& name);
    void SetBackground(QSharedPointer<QPixmap> const& pixmap);
    void SetBackgroundSelected(QString const& name);
    void SetBackgroundSelected(QSharedPointer<QPixmap> const& pixmap);
    void SetBackgroundChecked(QString const& name);
    void SetBackgroundChecked(QSharedPointer<QPixmap> const& pixmap);
    void SetBackgroundDisabled(QString const& name);
    void SetBackgroundDisabled(QSharedPointer<QPixmap> const& pixmap);
    /// One framed flat colour in place of the pixmaps, until a background is set again; an invalid one:
    /// pushButtonColor.
    void SetBackgroundColor(QColor const& colour);
    /// From 0 to 1; the opacity of a disabled button becomes half of it.
    void SetBackgroundOpacity(float opacity);
    void SetBackgroundDisabledOpacity(float opacity);
    void SetForegroundDisabledOpacity(float opacity);
    /// The border in pixels that the text keeps free and of which half does not take the finger; 5 on each
    /// side at first.
    void SetBackgroundBorderArea(int left, int top, int right, int bottom);
    /// @}

    /// \name Icons
    /// @{
    /// The icon's top-left corner; with \a centreVertically only its x counts.
    void SetIconPosition(QPoint const& position, bool centreVertically);
    /// The icon's distance from where it would stand in the middle.
    void SetIconPositionFromCentre(QPoint const& offset);
    /// An icon of its standard size at the right edge; empty: none.
    void SetRightSideIcon(QString const& name);
    /// Pixels between that icon and the right edge.
    void SetRightSideIconMargin(int margin);
    int GetIconLeftPosition() const;
    int GetIconTopPosition() const;
    /// Size of the icon that is shown; empty without one.
    QSize GetIconSize() const;
    /// @}

    /// \name Text
    /// @{
    /// Hides QAbstractButton::setText(), which does not lay the text out.
    void setText(QString const& text);
    QString GetText() const;
    QString GetSecondLine() const;
    /// \a pixelSize is at least 1. \a wrap allows several lines and \a shadow draws a dark copy beneath. \a
    /// alignment are flags of Qt::Alignment and Qt::TextFlag.
    void SetFontProperties(QColor colour, int pixelSize, bool bold, bool wrap, bool shadow, int alignment,
                           bool secondLine);
    void SetFontSize(int pixelSize, bool secondLine);
    void SetAlignment(int alignment, bool secondLine);
    void SetTextPlacement(ETextPlacement placement);
    /// Invalid while no text can be drawn.
    QRect GetFirstLineRect() const;
    QRect GetSecondLineRect() const;
    /// @}

    /// \name Behaviour
    /// @{
    /// A held button clicks again and again, and sounds once.
    void SetAutoRepeat(bool enabled, int delayMs, int intervalMs);
    void PlayButtonPressSounds(bool play);
    /// False: releases click no more until the button is shown again.
    void SetPropagateClicks(bool propagate);
    void SetButtonID(int id);
    int GetButtonId() const;
    /// Hides QAbstractButton::animateClick(), which does not survive that a slot of pressed() deletes the
    /// button.
    void animateClick(int msec);
    /// Needed for DelayedSingleClicked(). May be called twice.
    void MakeDoubleClickConnections();
    void MakeDoubleClickDisconnect();
    /// Names the button for macro paths, unless the name is empty or a source of the same or a lower value
    /// named it already.
    void SetObjectName(QString const& name, EObjectNameSource source);
    /// @}

    /// \name Tool tip
    /// @{
    void SetToolTip(QString const& text);
    QString GetToolTip() const;
    /// The picture in the tool tip; a null one: the button's icon.
    void SetToolTipIcon(QPixmap const& icon);
    void SetToolTipIcon(QImage const& icon);
    QSharedPointer<QPixmap> GetToolTipIcon() const;
    /// Where the mark of tool-tip mode stands on the button.
    void SetToolTipMarkOffset(QPoint const& offset);
    /// Is tool-tip mode on.
    bool ToolTipVisible() const;
    /// @}

Q_SIGNALS:
    /// After clicked(); the sound comes after it.
    void Clicked(int id);
    void Pressed(int id);
    void Released(int id);
    /// No second release came within 300 ms of one on the button. Only with MakeDoubleClickConnections().
    void DelayedSingleClicked();
    /// A second release came. clicked() was not held back: it came twice.
    void DoubleClicked();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    /// Within the border, or within 50 pixels around that while the button is down.
    bool hitButton(QPoint const& position) const override;
    /// Whether a finger that was pressed on the button has not lifted yet; it may have slid off.
    bool IsHeld() const;
    /// For a gesture that has taken the finger over: what it does until the next press does not press the
    /// button again. Does not lift the button.
    void ClearHeld();

    /// \name Parts of the picture
    /// For a button that lays its own texts out, in the order of a paintEvent() of its own.
    /// @{
    /// Background and icons; the painter is left with the opacity of what stands on them.
    void PaintBackgroundAndIcons(QPainter& painter);
    /// \a text in the font, colour and alignment of the first line. Nothing without a font.
    void PaintAsFirstLine(QPainter& painter, QRect const& rect, QString const& text) const;
    /// The mark of tool-tip mode.
    void RenderToolTipMark(QPainter& painter);
    /// @}

private Q_SLOTS:
    void OnClicked();
    void OnButtonDown();
    void OnButtonRelease();
    void OnDoubleClickTimeOut();

private:
    enum EFace
    {
        FACE_NORMAL,
        FACE_SELECTED,
        FACE_CHECKED,
        FACE_DISABLED,
        FACE_COUNT
    };
    /// The background of one state.
    struct TFace
    {
        QString name;                   ///< follows the size by it; empty when handed over as a pixmap
        QSharedPointer<QPixmap> source; ///< as handed over
        QSharedPointer<QPixmap> shown;  ///< at the size of the button
        bool opaque = false;
    };
    struct TTextLine
    {
        TTextLine();
        ~TTextLine();

        std::unique_ptr<QFont> font;
        QString text;
        QColor colour;
        int alignment;
        bool wrap = true;
        bool shadow = false;
        QRect rect;
    };
    /// What one picture of the whole button is good for.
    struct TLook
    {
        qint64 face = 0;
        qint64 icon = 0;
        qint64 rightSideIcon = 0;
        QString text;

        bool operator==(TLook const& other) const
        {
            return face == other.face && icon == other.icon && rightSideIcon == other.rightSideIcon &&
                   text == other.text;
        }
    };
    struct TTextArea;
    struct TTextHeights;
    struct TBorder
    {
        int left;
        int top;
        int right;
        int bottom;
    };

    void ConstructorPreInitialize();
    void ConstructorPostInitialize(QString const& toolTip);
    void SetMinimumSizeOrStandard(QSize const& size);
    void ShowOnParent();

    bool LetGoAfter(QEvent* event);
    bool HandOverToParent(QMouseEvent* event, void (TPushButton::*handle)(QMouseEvent*));
    void TakePress(QMouseEvent* event);
    void TakeMove(QMouseEvent* event);
    void TakeRelease(QMouseEvent* event);
    void FinishRelease(QMouseEvent* event);
    void NoticeSecondRelease(QPoint const& position);
    void LetGo();
    QTimer* DoubleClickTimer();
    bool ExplainsItself() const;
    bool HasTransparentAncestor() const;
    QPoint OwnGlobalPosition() const;
    void RearmSound();
    bool TakeClickSound();

    void SetFace(EFace face, QString const& name);
    void SetFace(EFace face, QSharedPointer<QPixmap> const& pixmap);
    void ShowFaceChange(EFace face);
    void FitFace(TFace& face) const;
    TFace const* VisibleFace() const;
    QColor FlatColour() const;
    float BackgroundOpacity() const;
    bool CanCoverItself() const;
    bool CoversItself() const;
    void FollowOpacity();

    int IconSide(QSize const& size) const;
    bool HasText() const;
    QString DrawnSecondLine() const;

    TTextLine& Line(bool second) { return m_Lines[second ? 1 : 0]; }
    void SetLineFont(bool secondLine, bool bold, int pixelSize);
    void RecalculateTextRects();
    void PlaceLines();
    TTextArea TextArea() const;
    TTextHeights MeasureText(TTextLine const& line, QString const& text, int width) const;

    void FollowHints();
    bool IsComposed();
    std::unique_ptr<QPixmap> Compose(TFace const& face) const;
    void ForgetComposed();
    void PaintForeground(QPainter& painter) const;
    void PaintBackground(QPainter& painter) const;
    void PaintIcons(QPainter& painter) const;
    void PaintLine(QPainter& painter, TTextLine const& line, QRect const& rect, QString const& text) const;

    int m_ButtonId;
    QSharedPointer<QPixmap> m_Icon;
    QString m_IconName;
    bool m_Pressed = false;
    bool m_AnimatedPress = false;
    bool m_LetGoWaits = false;
    bool m_ExplicitIconPosition = false;
    QSharedPointer<QPixmap> m_RightSideIcon;
    std::array<TFace, FACE_COUNT> m_Faces;
    bool m_PropagateClicks = true;
    bool m_IconVerticallyCentred = false;
    QSharedPointer<QPixmap> m_DisabledIcon;
    QSharedPointer<QPixmap> m_ToolTipIcon;
    QString m_ToolTip;
    bool m_UseSecondLine = false;
    QColor m_BackgroundColour;
    std::array<TTextLine, 2> m_Lines;
    bool m_FlatColour = false;
    QPoint m_PressPosition;
    bool m_IconFromCentre = false;
    QPoint m_IconPosition;
    int m_RightSideIconMargin = 0;
    QSize m_RequestedIconSize;
    float m_BackgroundOpacity = 1.0F;
    float m_BackgroundDisabledOpacity = 0.5F;
    float m_ForegroundDisabledOpacity = 0.5F;
    TBorder m_Border;
    ETextPlacement m_TextPlacement = TEXT_RIGHT_OF_ICON;
    QTimer* m_DoubleClickTimer = nullptr;
    bool m_ArmedForDoubleClick = false;
    bool m_PlayPressSounds = true;
    bool m_SoundOnNextClick = true;
    bool m_InsideSetText = false;
    bool m_LayoutLater = false;
    bool m_MMIHighlighted = false;
    EObjectNameSource m_ObjectNameSource = NAME_NONE;
    QPoint m_ToolTipMarkOffset;
    QSize m_Hint;
    QSize m_MinimumHint;
    TLook m_SeenLook;
    TLook m_ComposedLook;
    std::unique_ptr<QPixmap> m_Composed;
};
