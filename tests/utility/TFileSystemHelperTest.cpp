#include "TFileSystemHelper.h"
#include "TestCase.h"

class TFileSystemHelperTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesWhatNoFileNameMayHold();
};

void TFileSystemHelperTest::namesWhatNoFileNameMayHold()
{
    QString const invalid = TFileSystemHelper::GetInvalidFileNameString();
    for (char const reserved : {'\\', '/', ':', '*', '?', '"', '<', '>', '|', '\0', '\n', '\r', '\t', '\x7F'})
        QVERIFY(invalid.contains(QLatin1Char(reserved)));
    for (char const allowed : {' ', '.', '-', '_', '\'', '~', 'A', 'z', '0'})
        QVERIFY(!invalid.contains(QLatin1Char(allowed)));
    QVERIFY(!invalid.contains(QChar(0xE4)));
}

COMMONUI_TEST(TFileSystemHelperTest)

#include "TFileSystemHelperTest.moc"
