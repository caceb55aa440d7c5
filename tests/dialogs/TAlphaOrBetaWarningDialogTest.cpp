#include "TAlphaOrBetaWarningDialog.h"
#include "Fonts.h"
#include "TestCase.h"
#include "TMessageStage.h"

#include <QLabel>

namespace
{
// A warning in a window that shows only a part of the terms.
class TWarningStage : public TMessageStage
{
public:
    explicit TWarningStage(QSize const& room = QSize(400, 300))
        : warning(Window(room))
    {
    }

    TPushButton* Yes() const { return warning.GetMessageDialogButton(MESSAGE_BUTTON_YES); }
    QScrollBar* Bar() const { return BarOf(warning); }

    TAlphaOrBetaWarningDialog warning;
};
} // namespace

class TAlphaOrBetaWarningDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itHasTheTerms()
    {
        TWarningStage stage;
        QCOMPARE(stage.warning.GetTitle(), QStringLiteral("WARNING"));
        QStringList const paragraphs = stage.warning.GetMessageString().split(QStringLiteral("\n\n"));
        QCOMPARE(paragraphs.size(), 6);
        QCOMPARE(paragraphs[0],
                 QStringLiteral("This software product (and any attached steering or control systems) "
                                "are for testing purposes only."));
        QCOMPARE(
            paragraphs[1],
            QStringLiteral(
                "Harlind Agriculture has provided this software and system on an \"as is\" basis without "
                "warranties or conditions of any kind, either express or implied, including without "
                "limitation any warranties or conditions of merchantability or fitness for ANY purpose."));
        QCOMPARE(
            paragraphs[2],
            QStringLiteral(
                "You are solely responsible for determining the appropriateness of using the software and "
                "attached systems and assume any risks associated with the use of this product."));
        QCOMPARE(paragraphs[3], QStringLiteral("By selecting the \"YES\" button you agree that you:"));
        QCOMPARE(paragraphs[4], QStringLiteral("have read the above, acknowledged it; and"));
        QCOMPARE(paragraphs[5],
                 QStringLiteral("assume the responsibility for the use of this software product."));
        stage.warning.ShowWindow(true);
        auto const* const label = TMessageStage::TextOf(stage.warning)->findChild<QLabel*>();
        QCOMPARE(label->alignment(), Qt::AlignLeft);
        QVERIFY(label->wordWrap());
        QFont font = STANDARD_BOLD_FONT;
        font.setPixelSize(14);
        QCOMPARE(label->font().toString(), font.toString());
        QCOMPARE(stage.Yes()->GetText(), QStringLiteral("YES"));
    }

    void yesWaitsForTheEndAndStaysEnabled()
    {
        TWarningStage stage;
        int answers = 0;
        connect(&stage.warning, &TMessageDialog::Yes, this, [&] { ++answers; });
        stage.warning.ShowWindow(true);
        QCoreApplication::processEvents();
        QVERIFY(stage.Bar()->maximum() > 100);
        QVERIFY(!stage.Yes()->isEnabled());
        stage.finger.Touch(stage.Yes());
        QCOMPARE(answers, 0);
        stage.Bar()->setValue(stage.Bar()->maximum() - 1);
        QVERIFY(!stage.Yes()->isEnabled());
        stage.Bar()->setValue(stage.Bar()->maximum());
        QVERIFY(stage.Yes()->isEnabled());
        stage.Bar()->setValue(0);
        QVERIFY(stage.Yes()->isEnabled());
        stage.finger.Touch(stage.Yes());
        QCOMPARE(answers, 1);
        QVERIFY(!stage.warning.isVisible());
    }

    void shownAgainItKeepsTheAgreement()
    {
        TWarningStage stage;
        stage.warning.ShowWindow(true);
        stage.Bar()->setValue(stage.Bar()->maximum());
        stage.warning.HideWindow();
        stage.Bar()->setValue(0);
        stage.warning.ShowWindow(true);
        QVERIFY(stage.Yes()->isEnabled());
    }

    void termsThatFitNeedNoScrolling()
    {
        TWarningStage stage(QSize(1000, 700));
        stage.warning.setMinimumWidth(700);
        stage.warning.ShowWindow(true);
        stage.warning.HideWindow();
        stage.warning.SetMessage(QStringLiteral("Mind the boom."));
        stage.warning.ShowWindow(true);
        QCOMPARE(stage.Bar()->maximum(), 0);
        QVERIFY(stage.Yes()->isEnabled());
    }

    void termsThatComeToFitNeedNoScrolling()
    {
        TWarningStage stage;
        stage.warning.ShowWindow(true);
        QCoreApplication::processEvents();
        QVERIFY(!stage.Yes()->isEnabled());
        stage.warning.SetMessage(stage.warning.GetMessageString() + stage.warning.GetMessageString());
        QVERIFY(!stage.Yes()->isEnabled());
        stage.warning.SetMessage(QStringLiteral("Mind the boom."));
        QVERIFY(stage.Yes()->isEnabled());
    }

    void aWarningThatWaitsForTheScreenIsNotAgreedTo()
    {
        TWarningStage stage;
        stage.screen->hide();
        stage.warning.ShowWindow(true, true);
        QVERIFY(!stage.Yes()->isEnabled());
        stage.screen->show();
        QCoreApplication::processEvents();
        QVERIFY(!stage.Yes()->isEnabled());
        stage.Bar()->setValue(stage.Bar()->maximum());
        QVERIFY(stage.Yes()->isEnabled());
    }

    void theFingerReadsToTheEnd()
    {
        TWarningStage stage;
        stage.warning.ShowWindow(true);
        QCoreApplication::processEvents();
        for (int i = 0; i < 20 && !stage.Yes()->isEnabled(); ++i)
        {
            stage.finger.Press(stage.warning.mapTo(stage.screen.get(), QPoint(60, 150)));
            stage.finger.Move(stage.warning.mapTo(stage.screen.get(), QPoint(60, 50)));
            stage.finger.Lift();
        }
        QVERIFY(stage.Yes()->isEnabled());
        QCOMPARE(stage.Bar()->value(), stage.Bar()->maximum());
    }

    void theWheelAloneAgrees()
    {
        TWarningStage stage;
        bool agreed = false;
        connect(&stage.warning, &TMessageDialog::Yes, this, [&] { agreed = true; });
        stage.warning.ShowWindow(true);
        QCoreApplication::processEvents();
        stage.LetTheWheelSettle();
        stage.WakeTheWheel();
        stage.navigator.OnEnter();
        stage.Tick();
        int steps = 0;
        for (; !stage.Yes()->isEnabled() && steps < 200; ++steps)
            stage.WheelRight();
        QCOMPARE(steps, (stage.Bar()->maximum() + 29) / 30);
        stage.navigator.OnBack();
        stage.Tick();
        stage.WheelRight();
        stage.navigator.OnEnter();
        QTRY_VERIFY(agreed);
    }

    void itMayEndWhileItIsShown()
    {
        TMessageStage stage;
        QPointer<TAlphaOrBetaWarningDialog> const warning = new TAlphaOrBetaWarningDialog(nullptr);
        connect(warning.data(), &TWindow::WindowShown, this, [warning] { delete warning; });
        warning->ShowWindow(true, true);
        QVERIFY(!warning);
    }

    void withoutContentsThereIsNothingToAgreeTo()
    {
        TAlphaOrBetaWarningDialog warning(nullptr);
        warning.show();
        QVERIFY(warning.isVisible());
        QVERIFY(!warning.GetMessageDialogButton(MESSAGE_BUTTON_YES));
    }

    void beforeItIsBuiltThereIsNothingToRefresh()
    {
        TMessageStage stage;
        TAlphaOrBetaWarningDialog warning(nullptr);
        warning.RefreshButtons();
        warning.ShowWindow(true);
        QVERIFY(!warning.GetMessageDialogButton(MESSAGE_BUTTON_YES)->isEnabled());
    }
};

COMMONUI_TEST(TAlphaOrBetaWarningDialogTest)
#include "TAlphaOrBetaWarningDialogTest.moc"
