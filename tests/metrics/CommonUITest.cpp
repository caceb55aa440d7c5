#include "CommonUI.h"
#include "TestCase.h"

class CommonUITest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { CommonUI::SetCommonUIOptions(CommonUIOptions()); }

    void optionsStartWithTheShippedDefaults()
    {
        CommonUIOptions const options = CommonUI::GetCommonUIOptions();
        QVERIFY(options.moduleOption);
        QVERIFY(!options.offScreenButtonsEnabled);
        QVERIFY(!options.viewChangeSoundEnabled);
        QVERIFY(options.dashboardEnabled);
        QVERIFY(options.folderButtonsEnabled);
    }

    void theWholeRecordIsTakenOver()
    {
        CommonUIOptions options;
        options.moduleOption = false;
        options.offScreenButtonsEnabled = true;
        options.viewChangeSoundEnabled = true;
        options.dashboardEnabled = false;
        options.folderButtonsEnabled = false;
        CommonUI::SetCommonUIOptions(options);
        CommonUIOptions const read = CommonUI::GetCommonUIOptions();
        QVERIFY(!read.moduleOption);
        QVERIFY(read.offScreenButtonsEnabled);
        QVERIFY(read.viewChangeSoundEnabled);
        QVERIFY(!read.dashboardEnabled);
        QVERIFY(!read.folderButtonsEnabled);
    }

    void aReaderHoldsACopyThatLaterSettingDoesNotTouch()
    {
        CommonUIOptions const before = CommonUI::GetCommonUIOptions();
        CommonUIOptions changed;
        changed.dashboardEnabled = false;
        CommonUI::SetCommonUIOptions(changed);
        QVERIFY(before.dashboardEnabled);
        QVERIFY(!CommonUI::GetCommonUIOptions().dashboardEnabled);
    }
};

COMMONUI_TEST(CommonUITest)
#include "CommonUITest.moc"
