#include "TFileHash.h"
#include "TestCase.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

#include <sys/stat.h>

class TFileHashTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void digestIsThatOfSaltAndContent_data();
    void digestIsThatOfSaltAndContent();
    void digestIsTheOneThatIsPrintedOnBrandingFiles();
    void unreadableFileHasNoDigest_data();
    void unreadableFileHasNoDigest();

private:
    QTemporaryDir m_Folder;
};

void TFileHashTest::digestIsThatOfSaltAndContent_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("x");
    QTest::newRow("zeros") << QByteArray("a\0b\0", 4);
    QTest::newRow("just a piece") << QByteArray(65536, 'x');
    QTest::newRow("a piece and one") << QByteArray(65537, 'x');
    QTest::newRow("many pieces") << QByteArray("0123456789").repeated(300000);
}

void TFileHashTest::digestIsThatOfSaltAndContent()
{
    QFETCH(QByteArray, content);
    QFile file(m_Folder.filePath("content"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    QByteArray const expected =
        QCryptographicHash::hash("CommonUI console file 1\n" + content, QCryptographicHash::Sha1);
    QCOMPARE(TFileHash::CalculateFileSaltedSHA1(file.fileName()), expected);
}

// A change of the salt would lock out every branding file in the field.
void TFileHashTest::digestIsTheOneThatIsPrintedOnBrandingFiles()
{
    QFile file(m_Folder.filePath("branding"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("splash");
    file.close();
    QCOMPARE(TFileHash::CalculateFileSaltedSHA1(file.fileName()).toHex(),
             QByteArray("3e91a784b08a2a53b9cbb40eef5411f27b2010c3"));
}

void TFileHashTest::unreadableFileHasNoDigest_data()
{
    QString const pipe = m_Folder.filePath("pipe");
    mkfifo(QFile::encodeName(pipe).constData(), 0600);
    QTest::addColumn<QString>("path");
    QTest::newRow("no name") << QString();
    QTest::newRow("missing") << m_Folder.filePath("missing");
    QTest::newRow("folder") << m_Folder.path();
    QTest::newRow("pipe without a writer") << pipe;
    QTest::newRow("device without an end") << "/dev/zero";
    QTest::newRow("error while reading") << "/proc/self/mem";
}

void TFileHashTest::unreadableFileHasNoDigest()
{
    QFETCH(QString, path);
    QCOMPARE(TFileHash::CalculateFileSaltedSHA1(path), QByteArray());
}

COMMONUI_TEST(TFileHashTest)
#include "TFileHashTest.moc"
