#include "TCameraXVOverlayManager.h"
#include "TestCase.h"
#include "TExternalDrive.h"
#include "TFinger.h"
#include "TInsertUSBMessage.h"
#include "TPushButton.h"
#include "TScreenStage.h"

#include <QSignalSpy>

namespace
{
/// How the stick comes off, in force while the object lives.
class THostEject
{
public:
    explicit THostEject(bool ejects)
        : m_Before(TExternalDrive::SetHostEject([ejects](QString const&) { return ejects; }))
    {
    }
    ~THostEject() { TExternalDrive::SetHostEject(m_Before); }
    THostEject(THostEject const&) = delete;
    THostEject& operator=(THostEject const&) = delete;

private:
    TExternalDrive::TEject m_Before;
};

// The message that is up, null for none or several.
TMessageDialog* Shown(TScreen const& screen)
{
    TMessageDialog* shown = nullptr;
    auto const messages = screen.findChildren<TMessageDialog*>();
    for (TMessageDialog* const message : messages)
    {
        if (!message->isVisible())
            continue;
        if (shown)
            return nullptr;
        shown = message;
    }
    return shown;
}
} // namespace

class TScreenUSBTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beforeTheSetupNothingIsTold()
    {
        TTestUserLog const log;
        TScreenStage stage;
        stage.screen->OnUSBButtonClick();
        stage.screen->TakeScreenShot();
        QVERIFY(!Shown(*stage.screen.get()));
        QVERIFY(log.Entries().isEmpty());
        stage.screen.m_Drives.Insert();
        stage.screen->OnUSBButtonClick();
        QVERIFY(!stage.screen->GetExternalDrive()->IsEjecting());
    }

    void aMissingStickIsAskedFor_data()
    {
        QTest::addColumn<bool>("screenShot");
        QTest::newRow("to eject") << false;
        QTest::newRow("for a screenshot") << true;
    }

    void aMissingStickIsAskedFor()
    {
        QFETCH(bool, screenShot);
        TScreenStage stage;
        stage.screen->SetupUSBButton();
        stage.screen->SetupUSBButton();
        QSignalSpy const shots(stage.screen->GetCameraOverlayManager(),
                               &TCameraXVOverlayManager::NotifyScreenShot);
        for (int i = 0; i < 2; ++i)
        {
            if (screenShot)
                stage.screen->TakeScreenShot();
            else
                stage.screen->OnUSBButtonClick();
            TMessageDialog* const shown = Shown(*stage.screen.get());
            QVERIFY(qobject_cast<TInsertUSBMessage*>(shown));
            QCOMPARE(shown->ModalType(), int(KVN::MODAL_NONE));
            TFinger(stage.screen.get()).Touch(shown->GetMessageDialogButton(MESSAGE_BUTTON_OK));
            QVERIFY(!Shown(*stage.screen.get()));
        }
        QVERIFY(shots.isEmpty());
    }

    void anEjectedStickIsTold()
    {
        THostEject const eject(true);
        TScreenStage stage;
        stage.screen.m_Drives.Insert();
        stage.screen->SetupUSBButton();
        stage.screen->OnUSBButtonClick();
        QTRY_VERIFY(Shown(*stage.screen.get()));
        QCOMPARE(Shown(*stage.screen.get())->GetTitle(), QStringLiteral("Eject USB"));
        QCOMPARE(Shown(*stage.screen.get())->GetMessageString(),
                 QStringLiteral("The USB device is safe to remove now."));
        QCOMPARE(Shown(*stage.screen.get())->ModalType(), int(KVN::MODAL_NONE));
    }

    // The stick of the tests is a plain folder, which nobody can unmount. It takes as long as the machine has
    // to write out.
    void anEjectThatFailedIsTold()
    {
        TTestUserLog const log;
        THostEject const eject(false);
        TScreenStage stage;
        stage.screen.m_Drives.Insert();
        stage.screen->SetupUSBButton();
        stage.screen->OnUSBButtonClick();
        QTRY_VERIFY_WITH_TIMEOUT(Shown(*stage.screen.get()), 60000);
        QCOMPARE(Shown(*stage.screen.get())->GetTitle(), QStringLiteral("USB Eject Failed"));
        QCOMPARE(
            Shown(*stage.screen.get())->GetMessageString(),
            QStringLiteral("USB Eject failed. The device may be busy right now. Try again in a moment."));
    }

    void aScreenshotThatCouldNotBeSavedIsNotTold()
    {
        TTestUserLog const log;
        TScreenStage stage;
        stage.screen.m_Drives.Insert();
        stage.screen->SetupUSBButton();
        QSignalSpy const failed(stage.screen->GetExternalDrive(), &TExternalDrive::SaveFailed);
        QTimer::singleShot(0, this, [&] { stage.screen.m_Drives.Pull(); });
        stage.screen->TakeScreenShot();
        QCOMPARE(failed.count(), 1);
        QVERIFY(!Shown(*stage.screen.get()));
        QCOMPARE(log.Entries().size(), 1);
    }

    void theScreenMayGoWithAMessageUp()
    {
        TScreenStage stage;
        stage.screen->SetupUSBButton();
        stage.screen->OnUSBButtonClick();
        QPointer<TMessageDialog> const shown = Shown(*stage.screen.get());
        QVERIFY(shown);
        delete stage.screen.get();
        QVERIFY(!shown);
    }
};

COMMONUI_TEST(TScreenUSBTest)
#include "TScreenUSBTest.moc"
