#include "TMessageDialog.h"

#include "Fonts.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "PixmapNames.h"
#include "TButtonBar.h"
#include "TPushButton.h"
#include "TScreen.h"
#include "TScrollableTextContainer.h"

#include <QCoreApplication>
#include <QLabel>

#include <array>

namespace
{
constexpr int WideScreen = 1024;
// What a message needs beside its picture on a small screen.
constexpr int SmallScreenTextWidth = 300;
constexpr int MaxButtons = 4;
constexpr int TextGap = 3; // times POPUP_WINDOW_CONTENT_X_OFFSET, at the left of picture and text
constexpr char TickIcon[] = "icon-tick-larger";
constexpr char CrossIcon[] = "icon-cross-larger";

struct TButtonLook
{
    EMessageDialogButton button;
    char const* text; // null: the icon
    char const* icon;
};

struct TButtonRow
{
    int count;
    std::array<TButtonLook, MaxButtons> buttons;
};

constexpr TButtonLook Tick{MESSAGE_BUTTON_OK, nullptr, TickIcon};
constexpr TButtonLook Cross{MESSAGE_BUTTON_CANCEL, nullptr, CrossIcon};
constexpr TButtonLook LoudYes{MESSAGE_BUTTON_YES, QT_TRANSLATE_NOOP("TMessageDialog", "YES"), nullptr};
constexpr TButtonLook Yes{MESSAGE_BUTTON_YES, QT_TRANSLATE_NOOP("TMessageDialog", "Yes"), nullptr};
constexpr TButtonLook No{MESSAGE_BUTTON_NO, QT_TRANSLATE_NOOP("TMessageDialog", "No"), nullptr};
constexpr TButtonLook Cancel{MESSAGE_BUTTON_CANCEL, QT_TRANSLATE_NOOP("TMessageDialog", "Cancel"), nullptr};
constexpr TButtonLook All{MESSAGE_BUTTON_ALL, QT_TRANSLATE_NOOP("TMessageDialog", "All"), nullptr};
constexpr TButtonLook YesAll{MESSAGE_BUTTON_YES_ALL, QT_TRANSLATE_NOOP("TMessageDialog", "Yes All"), nullptr};
constexpr TButtonLook NoAll{MESSAGE_BUTTON_NO_ALL, QT_TRANSLATE_NOOP("TMessageDialog", "No All"), nullptr};
constexpr TButtonLook Continue{MESSAGE_BUTTON_CONTINUE, QT_TRANSLATE_NOOP("TMessageDialog", "Continue"),
                               nullptr};
constexpr TButtonLook Retry{MESSAGE_BUTTON_RETRY, QT_TRANSLATE_NOOP("TMessageDialog", "Retry"), nullptr};
constexpr TButtonLook Restart{MESSAGE_BUTTON_RESTART, QT_TRANSLATE_NOOP("TMessageDialog", "Restart"),
                              nullptr};

// By type.
constexpr TButtonRow ButtonRows[] = {
    {1, {Tick}},
    {1, {Cross}},
    {2, {Tick, Cross}},
    {1, {LoudYes}},
    {2, {Yes, No}},
    {3, {Yes, No, Cancel}},
    {3, {Yes, No, All}},
    {4, {Yes, No, YesAll, NoAll}},
    {2, {Continue, Cancel}},
    {3, {Continue, Cancel, Retry}},
    {3, {Continue, Cancel, Restart}},
    {2, {Cancel, Restart}},
    {0, {}},
};

// By button.
constexpr void (TMessageDialog::*Answers[])() = {
    &TMessageDialog::OnOk,      &TMessageDialog::OnCancel,   &TMessageDialog::OnYes,
    &TMessageDialog::OnNo,      &TMessageDialog::OnAll,      &TMessageDialog::OnYesAll,
    &TMessageDialog::OnNoAll,   &TMessageDialog::OnContinue, &TMessageDialog::OnRetry,
    &TMessageDialog::OnRestart,
};

EMessageDialogType KnownType(EMessageDialogType type)
{
    return type >= MESSAGE_OK && type <= MESSAGE_NO_BUTTON ? type : MESSAGE_OK;
}

QFont MessageFont()
{
    QFont font = CONDENSED_BOLD_FONT;
    font.setPixelSize(STANDARD_FONT_SIZE);
    return font;
}
} // namespace

/// How the height was shared out.
struct TMessageDialog::TFit
{
    int textWidth;
    int textHeight;
    int areaHeight; // for text and picture
    bool isEnough;
};

TMessageDialog::TMessageDialog(QWidget* parent, QString const& title, QString const& message,
                               EMessageDialogType type, bool deleteOnClose, QPixmap const& pixmap)
    : TPopupWindow(parent)
    , m_Type(KnownType(type))
    , m_Message(message)
    , m_Font(MessageFont())
    , m_Pixmap(pixmap)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Mid, Qt::white);
    setPalette(colors);
    SetTitle(title);
    if (m_Type == MESSAGE_NO_BUTTON)
        SetMMIBehaviour(MMI_EXCLUDED);
    if (!deleteOnClose)
        return;
    setAttribute(Qt::WA_DeleteOnClose);
    // The last message of a console without a visible screen must not end the program.
    setAttribute(Qt::WA_QuitOnClose, false);
    connect(this, &TWindow::WindowHidden, this, &QWidget::close);
}

TMessageDialog::~TMessageDialog() = default;

void TMessageDialog::SetMessage(QString const& message)
{
    m_Message = message;
    QPointer<TMessageDialog> const self(this);
    if (m_Text)
        m_Text->SetText(message);
    if (self)
        ContentsChanged();
}

QString TMessageDialog::GetMessageString() const
{
    return m_Message;
}

void TMessageDialog::SetPixmap(QPixmap const& pixmap)
{
    m_Pixmap = pixmap;
    if (m_Picture)
        m_Picture->setPixmap(pixmap);
    ContentsChanged();
}

void TMessageDialog::SetTextFormat(QFlags<Qt::AlignmentFlag> alignment, bool wordWrap, QFont const& font)
{
    m_Alignment = alignment;
    m_WordWrap = wordWrap;
    m_Font = font;
    if (m_Text)
        m_Text->SetTextFormat(alignment, wordWrap, font);
    ContentsChanged();
}

void TMessageDialog::SetDesiredWidth(int width)
{
    m_DesiredWidth = width;
    ContentsChanged();
}

void TMessageDialog::ContentsChanged()
{
    SetAdjustNeeded();
    if (!isVisible())
        return;
    AdjustForShow();
    tscreenRefreshMMIWidgets(this);
}

void TMessageDialog::showEvent(QShowEvent* event)
{
    TPopupWindow::showEvent(event);
    // It has its size only now, and a text is a stop only where it is scrolled.
    tscreenRefreshMMIWidgets(this);
}

TScrollableTextContainer* TMessageDialog::GetTextContainer() const
{
    return m_Text;
}

TPushButton* TMessageDialog::GetMessageDialogButton(EMessageDialogButton button) const
{
    TButtonRow const& row = ButtonRows[m_Type];
    for (int position = 0; position < row.count; ++position)
    {
        if (row.buttons[std::size_t(position)].button == button)
            return GetButtonBar()->GetButton(position);
    }
    return nullptr;
}

void TMessageDialog::EnableButton(EMessageDialogButton button, bool enabled)
{
    if (TPushButton* const found = GetMessageDialogButton(button))
        found->setEnabled(enabled);
}

void TMessageDialog::Setup()
{
    m_Picture = new QLabel(this);
    m_Picture->setPixmap(m_Pixmap);
    m_Picture->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // One that is higher than the dialog lies over the buttons.
    m_Picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    TPopupWindow::Setup();
    m_Text = new TScrollableTextContainer(this);
    m_Text->SetTextFormat(m_Alignment, m_WordWrap, m_Font);
    m_Text->SetText(m_Message);
    MakeButtons();
}

void TMessageDialog::MakeButtons()
{
    TButtonRow const& row = ButtonRows[m_Type];
    QList<int> fromTheRight;
    for (int position = 0; position < row.count; ++position)
    {
        TButtonLook const& look = row.buttons[std::size_t(position)];
        if (look.text)
            SetText(position, tr(look.text));
        else
            SetIcon(position, QLatin1String(look.icon), QString(), QString());
        TPushButton* const button = GetButton(position);
        connect(button, &QAbstractButton::clicked, this, Answers[look.button]);
        if (m_Type == MESSAGE_YES)
            button->SetBackgroundDisabled(PixmapNames::NewDisabledButton);
        fromTheRight.prepend(position);
    }
    GetButtonBar()->AssignButtonOrder(fromTheRight);
}

void TMessageDialog::AdjustForShow()
{
    QWidget* const reference = parentWidget() ? parentWidget() : MainScreen;
    if (!IsAdjustNeeded() || !reference || !m_Text)
        return;
    TPopupWindow::AdjustForShow();
    FitWidth(*reference);
    FitHeight(*reference);
    ReCentre(reference);
}

int TMessageDialog::PictureWidth() const
{
    return m_Pixmap.isNull() ? 0 : m_Pixmap.width() + POPUP_WINDOW_CONTENT_X_OFFSET;
}

// The title bar is as wide as the window without its border, so that a desired width only ever widens.
void TMessageDialog::FitWidth(QWidget const& reference)
{
    bool const isOverAnother = parentWidget() && parentWidget() != MainScreen;
    if (SCREEN_WIDTH < WideScreen && !isOverAnother)
        setMinimumWidth(PictureWidth() + SmallScreenTextWidth);
    int const widest = qMax(0, reference.width() - 2 * POPUP_PARENT_WINDOW_MARGIN);
    int const wanted = qMin(qMax(m_DesiredWidth, width()), widest);
    if (wanted != width())
        setFixedWidth(wanted);
}

// Title, border and buttons.
int TMessageDialog::HeightOfFrame() const
{
    int const buttons = GetButtonBar()->GetNumberOfButtons() > 0 ? GetButtonBar()->height() : 0;
    return POPUP_WINDOW_TITLEBAR_HEIGHT + 2 * POPUP_WINDOW_CONTENT_Y_OFFSET + GetBorderSize() + buttons;
}

// From where the dialog stands before it grows: what a long message may take depends on that.
int TMessageDialog::AllowedHeight(QWidget const& reference) const
{
    if (SCREEN_WIDTH < WideScreen)
        return reference.height();
    return qMin(reference.height(), SCREEN_HEIGHT - y()) - POPUP_WINDOW_NESTING_MARGIN;
}

void TMessageDialog::FitHeight(QWidget const& reference)
{
    TFit fit;
    fit.textWidth =
        qMax(0, width() - PictureWidth() - GetBorderSize() - TextGap * POPUP_WINDOW_CONTENT_X_OFFSET);
    fit.textHeight = m_Text->GetTextHeightForWidth(fit.textWidth);
    int const wanted = HeightOfFrame() + qMax(fit.textHeight, m_Pixmap.height());
    int const height = qMax(0, qMin(qMax(wanted, m_Pixmap.height()), AllowedHeight(reference)));
    fit.areaHeight = qMax(0, height - HeightOfFrame());
    fit.isEnough = wanted <= height;
    setFixedHeight(height);
    PlaceContents(fit);
}

void TMessageDialog::PlaceContents(TFit const& fit)
{
    int const left = TextGap * POPUP_WINDOW_CONTENT_X_OFFSET;
    int const top = POPUP_WINDOW_TITLEBAR_HEIGHT + 2 * POPUP_WINDOW_CONTENT_Y_OFFSET;
    // The shorter one stands in the middle of the other.
    int const spare = fit.isEnough && !m_Pixmap.isNull() ? (fit.textHeight - m_Pixmap.height()) / 2 : 0;
    m_Text->setGeometry(PictureWidth() + left, top + qMax(0, -spare), fit.textWidth, fit.areaHeight);
    m_Picture->setGeometry(left, top + qMax(0, spare), m_Pixmap.width(), qMin(m_Pixmap.height(), height()));
    m_Picture->show();
    RaiseBelowFade(m_Picture);
    // The area of a lowered text reaches down behind the buttons.
    RaiseBelowFade(GetButtonBar());
    m_Text->setVerticalScrollBarPolicy(fit.isEnough ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
}

void TMessageDialog::Accept()
{
    HideWindow();
}

void TMessageDialog::Decline()
{
    HideWindow();
}

// The signal first: its slots find the dialog still up.
void TMessageDialog::Answer(void (TMessageDialog::*signal)(), void (TMessageDialog::*end)())
{
    QPointer<TMessageDialog> const self(this);
    Q_EMIT(this->*signal)();
    if (self)
        (this->*end)();
}

void TMessageDialog::OnOk()
{
    Answer(&TMessageDialog::Ok, &TMessageDialog::Accept);
}

void TMessageDialog::OnYes()
{
    Answer(&TMessageDialog::Yes, &TMessageDialog::Accept);
}

void TMessageDialog::OnNo()
{
    Answer(&TMessageDialog::No, &TMessageDialog::Decline);
}

void TMessageDialog::OnCancel()
{
    Answer(&TMessageDialog::Cancel, &TMessageDialog::Decline);
}

void TMessageDialog::OnAll()
{
    Answer(&TMessageDialog::All, &TMessageDialog::Accept);
}

void TMessageDialog::OnYesAll()
{
    Answer(&TMessageDialog::YesAll, &TMessageDialog::Accept);
}

void TMessageDialog::OnNoAll()
{
    Answer(&TMessageDialog::NoAll, &TMessageDialog::Decline);
}

void TMessageDialog::OnContinue()
{
    Answer(&TMessageDialog::Continue, &TMessageDialog::Accept);
}

void TMessageDialog::OnRetry()
{
    Answer(&TMessageDialog::Retry, &TMessageDialog::Accept);
}

void TMessageDialog::OnRestart()
{
    Answer(&TMessageDialog::Restart, &TMessageDialog::Accept);
}
