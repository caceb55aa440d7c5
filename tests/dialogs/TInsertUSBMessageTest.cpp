#include "TInsertUSBMessage.h"
#include "TestCase.h"
#include "TMessageStage.h"

class TInsertUSBMessageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itAsksForAStick()
    {
        TMessageStage stage;
        TInsertUSBMessage message(nullptr);
        QCOMPARE(message.GetTitle(), QStringLiteral("No External Media Detected"));
        QCOMPARE(message.GetMessageString(),
                 QStringLiteral("Please insert a USB storage device and try again."));
        QVERIFY(!message.isVisible());
        message.ShowWindow(false);
        QVERIFY(message.isVisible());
        QCOMPARE(message.ModalType(), int(KVN::MODAL_NONE));
        QCOMPARE(message.pos(), QPoint(350, 60));
        stage.finger.Touch(message.GetMessageDialogButton(MESSAGE_BUTTON_OK));
        QVERIFY(!message.isVisible());
    }

    void aSlotMayDeleteIt()
    {
        TMessageStage stage;
        QPointer<TInsertUSBMessage> const message = new TInsertUSBMessage(nullptr);
        message->ShowWindow(false);
        connect(message.data(), &TMessageDialog::Ok, this, [message] { delete message; });
        stage.finger.Touch(message->GetMessageDialogButton(MESSAGE_BUTTON_OK));
        QVERIFY(!message);
    }
};

COMMONUI_TEST(TInsertUSBMessageTest)
#include "TInsertUSBMessageTest.moc"
