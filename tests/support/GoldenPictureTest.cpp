#include "GoldenPicture.h"
#include "TestCase.h"

#include <QTemporaryDir>

namespace
{
QImage Plain(QSize const& size, QColor const& color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

// One variable of the environment for the lifetime of the object.
class TScopedVariable
{
public:
    TScopedVariable(char const* name, bool set)
        : m_Name(name)
        , m_WasSet(qEnvironmentVariableIsSet(name))
    {
        Put(set);
    }
    ~TScopedVariable() { Put(m_WasSet); }
    TScopedVariable(TScopedVariable const&) = delete;
    TScopedVariable& operator=(TScopedVariable const&) = delete;

private:
    void Put(bool set) const
    {
        if (set)
            qputenv(m_Name, "1");
        else
            qunsetenv(m_Name);
    }

    char const* m_Name;
    bool m_WasSet;
};

// The sheet that a fault names.
QImage Sheet(QString const& fault)
{
    return QImage(fault.section(QStringLiteral("; see "), 1));
}
} // namespace

class GoldenPictureTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Renew.reset(new TScopedVariable("COMMONUI_RENEW_PICTURES", false));
        m_Path = m_Folder.filePath(QStringLiteral("picture.png"));
        QVERIFY(Plain({20, 10}, Qt::white).save(m_Path));
    }
    void cleanup() { m_Renew.reset(); }

    void theSamePictureIsNoFault()
    {
        QCOMPARE(Fault(Plain({20, 10}, Qt::white)), QString());
        QCOMPARE(Fault(Plain({20, 10}, Qt::white).convertToFormat(QImage::Format_RGB32)), QString());
    }

    void onePixelIsAFaultThatIsSeenInRed()
    {
        QImage actual = Plain({20, 10}, Qt::white);
        actual.setPixelColor(7, 3, QColor(255, 255, 254));
        QString const fault = Fault(actual);
        QVERIFY(fault.startsWith(QLatin1String("the picture differs")));
        QImage const sheet = Sheet(fault);
        QCOMPARE(sheet.size(), QSize(76, 10));
        QCOMPARE(sheet.pixelColor(7, 3), QColor(255, 255, 255));
        QCOMPARE(sheet.pixelColor(28 + 7, 3), QColor(255, 255, 254));
        QCOMPARE(sheet.pixelColor(56 + 7, 3), QColor(255, 0, 0));
        QCOMPARE(sheet.pixelColor(56 + 8, 3), QColor(63, 63, 63));
    }

    void transparencyCounts() { QVERIFY(!Fault(Plain({20, 10}, QColor(255, 255, 255, 254))).isEmpty()); }

    void anotherSizeIsAFault()
    {
        QImage const sheet = Sheet(Fault(Plain({22, 9}, Qt::white)));
        QCOMPARE(sheet.size(), QSize(3 * 22 + 16, 10));
        QCOMPARE(sheet.pixelColor(60 + 21, 0), QColor(255, 0, 0));
        QCOMPARE(sheet.pixelColor(60 + 0, 9), QColor(255, 0, 0));
        QCOMPARE(sheet.pixelColor(60 + 0, 0), QColor(63, 63, 63));
    }

    void aMissingPictureIsAFaultWithASheet()
    {
        QVERIFY(QFile::remove(m_Path));
        QString const fault = Fault(Plain({20, 10}, Qt::green));
        QVERIFY(fault.startsWith(QLatin1String("there is no picture")));
        QCOMPARE(Sheet(fault).pixelColor(28, 0), QColor(Qt::green));
        QVERIFY(!QFile::exists(m_Path));
    }

    void renewingWritesWhatIsDrawn_data()
    {
        QTest::addColumn<QString>("file");
        QTest::newRow("another picture") << "picture.png";
        QTest::newRow("no picture") << "new.png";
        QTest::newRow("no folder") << "deeper/new.png";
    }

    void renewingWritesWhatIsDrawn()
    {
        QFETCH(QString, file);
        m_Path = m_Folder.filePath(file);
        {
            TScopedVariable const renew("COMMONUI_RENEW_PICTURES", true);
            QCOMPARE(Fault(Plain({30, 30}, Qt::blue)), QString());
        }
        QCOMPARE(Fault(Plain({30, 30}, Qt::blue)), QString());
        QVERIFY(!Fault(Plain({30, 30}, Qt::red)).isEmpty());
    }

    void renewingWhereNothingCanBeWrittenIsAFault()
    {
        m_Path = m_Path + QStringLiteral("/below-a-file.png");
        TScopedVariable const renew("COMMONUI_RENEW_PICTURES", true);
        QVERIFY(!Fault(Plain({30, 30}, Qt::blue)).isEmpty());
    }

private:
    QString Fault(QImage const& actual) const
    {
        return GoldenPictureFault(actual, m_Path, QStringLiteral("GoldenPictureTest"));
    }

    QTemporaryDir m_Folder;
    QString m_Path;
    std::unique_ptr<TScopedVariable> m_Renew;
};

COMMONUI_TEST(GoldenPictureTest)
#include "GoldenPictureTest.moc"
