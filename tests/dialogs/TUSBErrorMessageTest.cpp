#include "TUSBErrorMessage.h"
#include "TestCase.h"
#include "TMessageStage.h"
#include "TroubleCodeManager.h"

#include <QTranslator>

namespace
{
/// A language in which everything is said in capitals.
class TCapitals : public QTranslator
{
public:
    TCapitals() { QCoreApplication::installTranslator(this); }

    QString translate(char const*, char const* text, char const*, int) const override
    {
        return QString::fromUtf8(text).toUpper();
    }
    bool isEmpty() const override { return false; }
};
} // namespace

class TUSBErrorMessageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachErrorIsReportedAndShown_data()
    {
        QTest::addColumn<int>("error");
        QTest::addColumn<QString>("entry");
        QTest::newRow("no space") << 0 << "E USB Operation Error: No space";
        QTest::newRow("write") << 1 << "E USB Operation Error: Write error";
        QTest::newRow("read") << 2 << "E USB Operation Error: Read error";
        QTest::newRow("unknown") << 3 << "E USB Operation Error: Unknown error";
    }

    void eachErrorIsReportedAndShown()
    {
        QFETCH(int, error);
        QFETCH(QString, entry);
        TMessageStage stage;
        TTestUserLog const log;
        TUSBErrorMessage message(nullptr);
        QCOMPARE(message.GetTitle(), QStringLiteral("USB Operation Error"));
        message.OnUSBError(TUSBError(error));
        QCOMPARE(log.Entries(), QStringList{entry});
        QVERIFY(message.isVisible());
        QCOMPARE(message.ModalType(), int(KVN::MODAL_NONE));
        QCOMPARE(message.GetMessageString(),
                 QStringLiteral(
                     "The USB operation has failed to complete correctly. Please check USB and try again."));
        QCOMPARE(TMessageStage::TextOf(message)->GetText(), message.GetMessageString());
        stage.finger.Touch(message.GetMessageDialogButton(MESSAGE_BUTTON_OK));
        QVERIFY(!message.isVisible());
        message.OnUSBError(TUSBError(error));
        QCOMPARE(log.Entries().size(), 2);
        QVERIFY(message.isVisible());
    }

    void theEntryIsFoundInEveryLanguage()
    {
        TMessageStage const stage;
        TTestUserLog const log;
        TCapitals const language;
        TUSBErrorMessage message(nullptr);
        message.OnUSBError(USB_ERROR_NO_SPACE);
        QCOMPARE(log.Entries(), QStringList{QStringLiteral("E USB Operation Error: NO SPACE")});
        QCOMPARE(message.GetTitle(), QStringLiteral("USB OPERATION ERROR"));
        QCOMPARE(message.GetMessageString(),
                 QStringLiteral(
                     "THE USB OPERATION HAS FAILED TO COMPLETE CORRECTLY. PLEASE CHECK USB AND TRY AGAIN."));
    }

    void oneErrorAfterTheOtherIsOneMessageAndTwoEntries()
    {
        TMessageStage stage;
        TTestUserLog const log;
        TUSBErrorMessage message(nullptr);
        message.OnUSBError(USB_ERROR_WRITE);
        message.OnUSBError(USB_ERROR_READ);
        QCOMPARE(log.Entries().size(), 2);
        QVERIFY(message.isVisible());
        QCOMPARE(stage.screen->findChildren<TMessageDialog*>().size(), 1);
        stage.finger.Touch(message.GetMessageDialogButton(MESSAGE_BUTTON_OK));
        QVERIFY(!message.isVisible());
    }

    void otherValuesAreNoErrors_data()
    {
        QTest::addColumn<int>("error");
        QTest::newRow("one past") << 4;
        QTest::newRow("far past") << INT_MAX;
        QTest::newRow("negative") << -1;
    }

    void otherValuesAreNoErrors()
    {
        QFETCH(int, error);
        TMessageStage const stage;
        TTestUserLog const log;
        TUSBErrorMessage message(nullptr);
        message.OnUSBError(TUSBError(error));
        QVERIFY(log.Entries().isEmpty());
        QVERIFY(!message.isVisible());
    }

    // The next error takes a message that was scrolled back to its beginning.
    void aSlotOfItsTextMayDeleteTheMessage()
    {
        TMessageStage stage;
        TTestUserLog const log;
        QPointer<TUSBErrorMessage> const message = new TUSBErrorMessage(stage.Window(QSize(150, 150)));
        message->OnUSBError(USB_ERROR_READ);
        QCoreApplication::processEvents();
        TMessageStage::BarOf(*message)->setValue(10);
        QCOMPARE(TMessageStage::BarOf(*message)->value(), 10);
        connect(TMessageStage::TextOf(*message), &TScrollArea::Scroll, this, [message] { delete message; });
        message->OnUSBError(USB_ERROR_WRITE);
        QVERIFY(!message);
        QCOMPARE(log.Entries().size(), 2);
    }

    void aTroubleManagerMayDeleteTheMessage()
    {
        struct TDeleting : TroubleCodeManager
        {
            void Report(QString const&, QString const&) override { delete message; }
            QPointer<TUSBErrorMessage> message;
        };
        TMessageStage const stage;
        TDeleting deleting;
        TroubleCodeManager::Install(&deleting);
        deleting.message = new TUSBErrorMessage(nullptr);
        deleting.message->OnUSBError(USB_ERROR_READ);
        TroubleCodeManager::Install(nullptr);
        QVERIFY(!deleting.message);
    }
};

COMMONUI_TEST(TUSBErrorMessageTest)
#include "TUSBErrorMessageTest.moc"
