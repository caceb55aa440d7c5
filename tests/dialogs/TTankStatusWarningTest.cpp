#include "TTankStatusWarning.h"
#include "TestCase.h"
#include "TMessageStage.h"

class TTankStatusWarningTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itTellsWhyTheSwitchDoesNotWork()
    {
        TMessageStage stage;
        TTankStatusWarning message(nullptr);
        QCOMPARE(message.GetTitle(), QStringLiteral("Virtual Tank Switch"));
        QCOMPARE(message.GetMessageString(),
                 QStringLiteral("The virtual tank switch is not available. To use this button change the "
                                "implement's cabin/calibration switch box configuration."));
        QVERIFY(!message.isVisible());
        message.OnTankStatusWarning();
        QVERIFY(message.isVisible());
        QCOMPARE(message.ModalType(), int(KVN::MODAL_NONE));
        QCOMPARE(message.pos(), QPoint(350, 60));
        stage.finger.Touch(message.GetMessageDialogButton(MESSAGE_BUTTON_OK));
        QVERIFY(!message.isVisible());
    }

    void aSlotMayDeleteIt()
    {
        TMessageStage stage;
        QPointer<TTankStatusWarning> const message = new TTankStatusWarning(nullptr);
        message->OnTankStatusWarning();
        connect(message.data(), &TMessageDialog::Ok, this, [message] { delete message; });
        stage.finger.Touch(message->GetMessageDialogButton(MESSAGE_BUTTON_OK));
        QVERIFY(!message);
    }
};

COMMONUI_TEST(TTankStatusWarningTest)
#include "TTankStatusWarningTest.moc"
