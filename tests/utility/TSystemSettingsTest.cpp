#include "TSystemSettings.h"
#include "TestCase.h"

#include <QStandardPaths>

class TSystemSettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { TSystemSettings::SetInternalDrivePath({}); }

    void defaultDriveIsInTheDataLocationOfTheUser();
    void drivePathEndsInOneSeparator_data();
    void drivePathEndsInOneSeparator();
    void emptyPathBringsTheDefaultBack();
    void brandingFolderIsABareName();
};

void TSystemSettingsTest::defaultDriveIsInTheDataLocationOfTheUser()
{
    QString const data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QCOMPARE(TSystemSettings::GetInternalDrivePath(), data + "/CommonUI/");
}

void TSystemSettingsTest::drivePathEndsInOneSeparator_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("drive");
    QTest::newRow("without") << "/media/internal"
                             << "/media/internal/";
    QTest::newRow("with") << "/media/internal/"
                          << "/media/internal/";
    QTest::newRow("root") << "/"
                          << "/";
    QTest::newRow("relative") << "data"
                              << "data/";
}

void TSystemSettingsTest::drivePathEndsInOneSeparator()
{
    QFETCH(QString, path);
    TSystemSettings::SetInternalDrivePath(path);
    QTEST(TSystemSettings::GetInternalDrivePath(), "drive");
}

void TSystemSettingsTest::emptyPathBringsTheDefaultBack()
{
    QString const before = TSystemSettings::GetInternalDrivePath();
    TSystemSettings::SetInternalDrivePath("/media/internal");
    TSystemSettings::SetInternalDrivePath({});
    QCOMPARE(TSystemSettings::GetInternalDrivePath(), before);
}

void TSystemSettingsTest::brandingFolderIsABareName()
{
    QString const folder = TSystemSettings::BrandingFolder;
    QVERIFY(!folder.isEmpty());
    QVERIFY(!folder.contains('/'));
}

COMMONUI_TEST(TSystemSettingsTest)
#include "TSystemSettingsTest.moc"
