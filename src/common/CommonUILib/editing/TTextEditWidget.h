#pragma once

#include "CommonUILibExport.h"
#include "ETextRestrictionType.h"
#include "IAnnotationHandler.h"
#include "TEditOverlay.h"

#include <QPointer>
#include <QSharedPointer>
#include <QWidget>

class QLineEdit;
class QPixmap;
class TKeyboard;
class TPushButton;

namespace Keyboard_layouts_api
{
class KeyCheck;
} // namespace Keyboard_layouts_api

/// The overlay in which the operator edits one line of text: a light field over the control that asked for
/// it, and the on-screen keyboard, which it borrows from the top-level window for as long as it is seen. For
/// numbers and lists see TEditWidget.
///
/// Of several that are open the last one has the keyboard: it sends the one before away, which says Cancel().
/// The same happens when the keyboard is taken off the screen under it. One whose source is hidden gives the
/// keyboard back, and takes up the edit again when the source is seen again.
///
/// A slot of any of its signals may delete it. GUI thread only.
class COMMONUILIB_EXPORT TTextEditWidget : public QWidget, public KVN::IAnnotationHandler
{
    Q_OBJECT

public:
    /// The screen as \a parent counts as none: the overlay belongs to it only while it is open.
    explicit TTextEditWidget(QWidget* parent);
    /// Gives the keyboard back.
    ~TTextEditWidget() override;

    /// The one check for names of files. Never null.
    static Keyboard_layouts_api::KeyCheck const* GetInvalidFileNameKeyCheck();

    /// Shows the overlay above all others, with its whole text selected. Nothing without a platform.
    void Open();
    /// Takes the overlay off without a signal.
    void Close();
    /// Where the text stands that is edited: \a rect tells it in the coordinates of the widget it is given;
    /// without it it is the place of \a source. Both may be none. Moves an overlay that is open.
    void SetPosition(QWidget* source, TEditOverlay::TSourceRect rect);

    /// Whether the operator can type now. Hides QWidget::isVisible(), which doesn't know of the keyboard.
    bool isVisible() const;
    bool IsTextHidden() const;
    bool IsValueFieldHidden() const;

    /// \name What may be typed
    /// While the overlay is open the rules hold for what it shows already as well: what they refuse is left
    /// out. All are off at first.
    /// @{
    /// The text to begin with. A line end becomes a blank, and other control characters are left out.
    void SetValue(QString const& text);
    /// Whether an empty text, or one of blanks, can be confirmed.
    void SetAllowEmptyStrings(bool allow);
    /// True: the text can neither begin with a blank, nor begin or end with a full stop.
    void SetFilenameMode(bool filenameMode);
    /// True: the keyboard offers hexadecimal digits, in capitals, and nothing else can be typed.
    void SetHexMode(bool hexMode);
    /// From 0 to 32767 characters; 32767 at first. A longer text is cut.
    void SetMaxLength(int length);
    /// File names also turn the file-name mode on, and empty texts off. No restriction leaves both as they
    /// are.
    void SetTextRestriction(ETextRestrictionType type);
    /// @}

    /// \name What can be seen
    /// @{
    /// True: each character shows as the same sign.
    void SetHideText(bool hide);
    /// True: the control that asked for the edit stays as it is, and the text is seen on the keyboard only.
    void SetHideValueField(bool hide);
    /// True: a press of a key cannot be seen.
    void SetHideButtonPress(bool hide);
    /// @}

    QPoint Position(QWidget* reference) override;
    void PositionChanged() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The operator has confirmed \a text, which neither begins nor ends with a blank. The overlay is closed.
    void NewText(QString const& text);
    /// The edit has ended without a text. The overlay is closed.
    void Cancel();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private Q_SLOTS:
    void SourceMovedSlot();
    void OnNewChar(QChar character);
    void OnBackspace();
    void OnLeftArrow();
    void OnRightArrow();
    void OnKeyboardDone();
    void OnKeyboardCancel();
    void OnKeyboardGeometryChanged();
    void OnLayoutSelectorUp();
    void OnLayoutSelectorDown();
    void OnLineEditChanged(QString const& text);
    void OnLineEditReturn();
    void OnKeyboardLost();
    void OnSentAway();
    void UpdateEnabledKeys();

private:
    class TTypedText;
    /// What the keyboard was told last. All true is how it is found and left.
    struct TEnabledKeys
    {
        bool edit = true;
        bool ok = true;
        bool start = true; ///< those that may not stand at the start of a file's name
    };

    static Keyboard_layouts_api::KeyCheck const* Convert(ETextRestrictionType type);

    void MakeValueButton();
    void MakeLineEdit();

    TKeyboard* FreeKeyboard();
    bool BorrowKeyboard();
    void ConnectKeyboard();
    void PrepareKeyboard();
    void ReleaseKeyboard();
    void HandBack(TKeyboard* keyboard);
    void NoticeKeyboard(QEvent const& event);
    void CheckKeyboardLater();
    void SendAway();
    bool CloseForGood();

    void ShowLineEdit();
    void SetLineEditGeometry();
    void PlaceValueField(QRect const& source);
    void ShowValueField();
    void ShowValue();
    bool IsTypedOnValueField() const;

    void FollowRules();
    QString Permitted(QString const& text) const;
    bool IsConfirmable(QString const& text) const;
    bool IsLineEditEmpty(QString const& text) const;
    bool IsFullStopAtStart(QString const& text) const;
    bool IsFullStopAtEnd(QString const& text) const;
    bool IsLineEditAtStart() const;
    void SetEditKeysEnabled(QString const& text, bool force);
    void TellKeyboard(TEnabledKeys const& keys, bool force);

    TEditOverlay m_Overlay;
    TKeyboard* m_Keyboard = nullptr; // borrowed; null when it has died
    QPointer<QWidget> m_FormerParent;
    TPushButton* m_ValueButton = nullptr;
    QLineEdit* m_LineEdit = nullptr;
    TTypedText* m_TypedText;
    QSharedPointer<QPixmap> m_Field; // beneath the value, only while it is seen
    Keyboard_layouts_api::KeyCheck const* m_KeyCheck = nullptr;
    bool m_AllowEmptyStrings = false;
    bool m_FilenameMode = false;
    bool m_HexMode = false;
    bool m_HideText = false;
    bool m_HideValueField = false;
    bool m_HideButtonPress = false;
    int m_SelectionStart = -1; // while a layout is chosen; none: -1
    int m_SelectionLength = 0;
    TEnabledKeys m_EnabledKeys;
    bool m_KeyboardConnected = false;
};
