#pragma once

#include "TPopupWindow.h"

#include <QFont>
#include <QPixmap>

class QLabel;
class TScrollableTextContainer;

/// Which buttons a message has, from left to right.
enum EMessageDialogType : int
{
    MESSAGE_OK = 0,        ///< a tick
    MESSAGE_CANCEL = 1,    ///< a cross
    MESSAGE_OK_CANCEL = 2, ///< a tick and a cross
    MESSAGE_YES = 3,       ///< a yes in capitals that shows when it is disabled
    MESSAGE_YES_NO = 4,
    MESSAGE_YES_NO_CANCEL = 5,
    MESSAGE_YES_NO_ALL = 6,
    MESSAGE_YES_NO_YES_ALL_NO_ALL = 7,
    MESSAGE_CONTINUE_CANCEL = 8,
    MESSAGE_CONTINUE_CANCEL_RETRY = 9,
    MESSAGE_CONTINUE_CANCEL_RESTART = 10,
    MESSAGE_CANCEL_RESTART = 11,
    MESSAGE_NO_BUTTON = 12 ///< only its owner closes it; the wheel passes it by
};

/// One of the answers to a message.
enum EMessageDialogButton : int
{
    MESSAGE_BUTTON_OK = 0,
    MESSAGE_BUTTON_CANCEL = 1,
    MESSAGE_BUTTON_YES = 2,
    MESSAGE_BUTTON_NO = 3,
    MESSAGE_BUTTON_ALL = 4,
    MESSAGE_BUTTON_YES_ALL = 5,
    MESSAGE_BUTTON_NO_ALL = 6,
    MESSAGE_BUTTON_CONTINUE = 7,
    MESSAGE_BUTTON_RETRY = 8,
    MESSAGE_BUTTON_RESTART = 9
};

/// The one way to put a question to the operator: a title, a message of any length that scrolls where it does
/// not fit, on request a picture at its left, and up to four buttons. It is as high as its text, up to what
/// lies below it on the screen. For a window to work in see TTaskWindow, for a list of steps TWizardWindow.
///
/// A button emits its signal while the dialog is still up, then the dialog hides. It may be shown again,
/// unless it deletes itself when it is hidden. A slot of any of its signals may delete it. GUI thread only.
class COMMONUILIB_EXPORT TMessageDialog : public TPopupWindow
{
    Q_OBJECT
    Q_PROPERTY(QString Message READ GetMessageString WRITE SetMessage)

public:
    /// An unknown \a type counts as MESSAGE_OK, so that the operator can always leave. With \a deleteOnClose
    /// the dialog is deleted as soon as the event loop allows after it was hidden: keep no pointer to it. A
    /// null \a pixmap: no picture.
    TMessageDialog(QWidget* parent, QString const& title, QString const& message, EMessageDialogType type,
                   bool deleteOnClose = false, QPixmap const& pixmap = QPixmap());
    ~TMessageDialog() override;

    /// \name Contents
    /// A dialog that is up fits itself to the change at once, a hidden one when it is shown.
    /// @{
    /// Plain text; markup is shown as it is written.
    void SetMessage(QString const& message);
    QString GetMessageString() const;
    /// Shown in its own size, at the left of the text.
    void SetPixmap(QPixmap const& pixmap);
    /// Bold condensed type of STANDARD_FONT_SIZE, wrapped and centred both ways, at first.
    void SetTextFormat(QFlags<Qt::AlignmentFlag> alignment, bool wordWrap, QFont const& font);
    /// @}

    /// Null for a button that this type of dialog has not. There are no buttons before Setup().
    TPushButton* GetMessageDialogButton(EMessageDialogButton button) const;
    /// Nothing where the dialog has no such button.
    void EnableButton(EMessageDialogButton button, bool enabled);

    void Setup() override;
    /// Fits width, height, picture and text to each other and to what the dialog lies on, and centres it.
    /// Whenever the contents have changed since the last time.
    void AdjustForShow() override;
    /// Ends the dialog after an answer that lets things go on.
    virtual void Accept();
    /// Ends the dialog after an answer that does not.
    virtual void Decline();

public Q_SLOTS:
    /// What the buttons do: each emits the signal of its name and then calls Accept() or, for No, NoAll and
    /// Cancel, Decline().
    void OnOk() override;
    void OnYes();
    void OnNo();
    void OnCancel() override;
    void OnAll();
    void OnYesAll();
    void OnNoAll();
    void OnContinue();
    void OnRetry();
    void OnRestart();

Q_SIGNALS:
    /// The answers of the operator; the dialog is still up.
    void Ok();
    void Yes();
    void No();
    void Cancel();
    void All();
    void YesAll();
    void NoAll();
    void Continue();
    void Retry();
    void Restart();

protected:
    void showEvent(QShowEvent* event) override;

    /// Null before Setup().
    TScrollableTextContainer* GetTextContainer() const;
    /// The width to take in pixels, where the surroundings allow; -1, as at first, keeps the present one.
    void SetDesiredWidth(int width);

private:
    struct TFit;

    void MakeButtons();
    void ContentsChanged();
    void Answer(void (TMessageDialog::*signal)(), void (TMessageDialog::*end)());
    int PictureWidth() const;
    int HeightOfFrame() const;
    int AllowedHeight(QWidget const& reference) const;
    void FitWidth(QWidget const& reference);
    void FitHeight(QWidget const& reference);
    void PlaceContents(TFit const& fit);

    TScrollableTextContainer* m_Text = nullptr;
    EMessageDialogType const m_Type;
    int m_DesiredWidth = -1;
    QString m_Message;
    QFlags<Qt::AlignmentFlag> m_Alignment = Qt::AlignCenter;
    bool m_WordWrap = true;
    QFont m_Font;
    QLabel* m_Picture = nullptr;
    QPixmap m_Pixmap;
};
