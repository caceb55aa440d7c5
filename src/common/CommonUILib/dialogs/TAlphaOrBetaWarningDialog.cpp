#include "TAlphaOrBetaWarningDialog.h"

#include "Fonts.h"
#include "Metrics.h"
#include "TScrollableTextContainer.h"

#include <QCoreApplication>
#include <QScrollBar>

namespace
{
constexpr char const* Paragraphs[] = {
    QT_TRANSLATE_NOOP("TAlphaOrBetaWarningDialog",
                      "This software product (and any attached steering or control systems) are for testing "
                      "purposes only."),
    QT_TRANSLATE_NOOP("TAlphaOrBetaWarningDialog",
                      "Harlind Agriculture has provided this software and system on an \"as is\" basis "
                      "without warranties or conditions of any kind, either express or implied, including "
                      "without limitation any warranties or conditions of merchantability or fitness for ANY "
                      "purpose."),
    QT_TRANSLATE_NOOP("TAlphaOrBetaWarningDialog",
                      "You are solely responsible for determining the appropriateness of using the software "
                      "and attached systems and assume any risks associated with the use of this product."),
    QT_TRANSLATE_NOOP("TAlphaOrBetaWarningDialog", "By selecting the \"YES\" button you agree that you:"),
    QT_TRANSLATE_NOOP("TAlphaOrBetaWarningDialog", "have read the above, acknowledged it; and"),
    QT_TRANSLATE_NOOP("TAlphaOrBetaWarningDialog",
                      "assume the responsibility for the use of this software product."),
};

QString Terms()
{
    QStringList paragraphs;
    for (char const* const paragraph : Paragraphs)
        paragraphs << TAlphaOrBetaWarningDialog::tr(paragraph);
    return paragraphs.join(QLatin1String("\n\n"));
}
} // namespace

TAlphaOrBetaWarningDialog::TAlphaOrBetaWarningDialog(QWidget* parent)
    : TMessageDialog(parent, tr("WARNING"), Terms(), MESSAGE_YES)
{
    QFont font = STANDARD_BOLD_FONT;
    font.setPixelSize(STANDARD_FONT_SIZE);
    SetTextFormat(Qt::AlignLeft, true, font);
}

void TAlphaOrBetaWarningDialog::Setup()
{
    TMessageDialog::Setup();
    connect(GetTextContainer()->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &TAlphaOrBetaWarningDialog::OnSliderValueChanged);
    EnableButton(MESSAGE_BUTTON_YES, false);
}

// Terms that were changed to fit while they are up move no scroll bar.
void TAlphaOrBetaWarningDialog::AdjustForShow()
{
    TMessageDialog::AdjustForShow();
    RefreshButtons();
}

void TAlphaOrBetaWarningDialog::ShowWindow(bool modal, bool localWindow)
{
    QPointer<TAlphaOrBetaWarningDialog> const self(this);
    TMessageDialog::ShowWindow(modal, localWindow);
    if (self)
        RefreshButtons();
}

// A dialog that waits below another window, or for the screen, is laid out when it comes up.
void TAlphaOrBetaWarningDialog::showEvent(QShowEvent* event)
{
    TMessageDialog::showEvent(event);
    RefreshButtons();
}

void TAlphaOrBetaWarningDialog::OnSliderValueChanged()
{
    RefreshButtons();
}

void TAlphaOrBetaWarningDialog::RefreshButtons()
{
    // The end of a text that was never laid out would be its beginning.
    if (!isVisible() || !GetTextContainer())
        return;
    QScrollBar const* const bar = GetTextContainer()->verticalScrollBar();
    if (bar->value() == bar->maximum())
        EnableButton(MESSAGE_BUTTON_YES, true);
}
