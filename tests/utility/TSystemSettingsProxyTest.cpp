#include "TSystemSettingsProxy.h"
#include "TestCase.h"
#include "TestSupport.h"

class TSystemSettingsProxyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAHostThereIsNoStick();
    void installedProxyAnswersUntilAnotherComes();
};

void TSystemSettingsProxyTest::withoutAHostThereIsNoStick()
{
    TSystemSettingsProxy const* const proxy = TSystemSettingsProxy::Instance();
    QVERIFY(proxy != nullptr);
    QVERIFY(!proxy->IsExternalDrivePresent());
    QString path = "as before";
    QVERIFY(!proxy->GetExternalDrivePath(path));
    QCOMPARE(path, QString("as before"));
}

void TSystemSettingsProxyTest::installedProxyAnswersUntilAnotherComes()
{
    TSystemSettingsProxy* const fallback = TSystemSettingsProxy::Instance();
    {
        TTestDrives drives;
        QCOMPARE(TSystemSettingsProxy::Instance(), &drives);
        drives.Insert();
        QString path;
        QVERIFY(TSystemSettingsProxy::Instance()->GetExternalDrivePath(path));
        QCOMPARE(path, drives.StickPath());
        TSystemSettingsProxy other;
        QCOMPARE(TSystemSettingsProxy::Install(&other), &drives);
        QCOMPARE(TSystemSettingsProxy::Install(&drives), &other);
    }
    QCOMPARE(TSystemSettingsProxy::Instance(), fallback);
    QVERIFY(TSystemSettingsProxy::Install(nullptr) == nullptr);
}

COMMONUI_TEST(TSystemSettingsProxyTest)
#include "TSystemSettingsProxyTest.moc"
