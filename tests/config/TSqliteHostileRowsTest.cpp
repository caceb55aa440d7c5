#include "TestCase.h"
#include "TestSettingsFile.h"
#include "TestSupport.h"
#include "TSqliteConfigManager.h"

#include <QRandomGenerator>

namespace
{
constexpr int SETTING = 4711;

QtMessageHandler messageHandlerBefore = nullptr;

// Qt complains of pointers and broken pictures that it is asked to load; which ones come is chance.
void HandleMessage(QtMsgType type, QMessageLogContext const& context, QString const& message)
{
    bool const isExpected = message.startsWith(QLatin1String("QVariant::load")) ||
                            QByteArray(context.category).startsWith("qt.gui");
    if (!isExpected)
        messageHandlerBefore(type, context, message);
}

QByteArray Bytes(std::initializer_list<quint32> numbers)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    for (quint32 const number : numbers)
        stream << number;
    return bytes;
}

// A value's head: its type, and that it is not null.
QByteArray Head(quint32 type)
{
    return Bytes({type}) + '\0';
}

QByteArray NestedLists(int depth)
{
    QByteArray const level = Head(QMetaType::QVariantList) + Bytes({1});
    return level.repeated(depth) + TTestSettingsFile::Stream(1);
}
} // namespace

/// A type whose operators a module registers late.
struct TLateValue
{
    qint32 number = 0;
};
Q_DECLARE_METATYPE(TLateValue)

QDataStream& operator<<(QDataStream& stream, TLateValue const& value)
{
    return stream << value.number;
}

QDataStream& operator>>(QDataStream& stream, TLateValue& value)
{
    return stream >> value.number;
}

/// Rows of a sound file that are not what the store has written.
class TSqliteHostileRowsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { qInstallMessageHandler(messageHandlerBefore); }
    void init();
    void cleanup();

    void rowWithWrongDigestIsSkippedWithOneLogLine_data();
    void rowWithWrongDigestIsSkippedWithOneLogLine();
    void manyDamagedRowsShareOneLogLine();
    void numberBeyondTheRangeIsSkipped();
    void streamThatIsNoValueIsSkippedWithOneLogLine_data();
    void streamThatIsNoValueIsSkippedWithOneLogLine();
    void damagedRowIsReplacedByTheNextWrite();
    void wrongTypeOfAKnownSettingGivesItsDefault();
    void typeThatIsRegisteredLaterIsRead();
    void nestedValuesUpToTheLimitAreKept();
    void changedBytesAreSurvived();

private:
    QTemporaryDir m_PristineFolder;
    QString m_Pristine;
    std::unique_ptr<QTemporaryDir> m_Folder;
    QString m_Path;
    std::unique_ptr<TTestUserLog> m_Log;
};

void TSqliteHostileRowsTest::initTestCase()
{
    messageHandlerBefore = qInstallMessageHandler(HandleMessage);
    m_Pristine = m_PristineFolder.filePath("settings.sqlite");
    TSqliteConfigManager store(m_Pristine);
    store.Write(SETTING + 1, QStringLiteral("neighbour"), true);
}

void TSqliteHostileRowsTest::init()
{
    m_Folder = std::make_unique<QTemporaryDir>();
    m_Path = m_Folder->filePath("settings.sqlite");
    QVERIFY(QFile::copy(m_Pristine, m_Path));
    m_Log = std::make_unique<TTestUserLog>();
}

void TSqliteHostileRowsTest::cleanup()
{
    m_Log.reset();
    m_Folder.reset();
}

void TSqliteHostileRowsTest::rowWithWrongDigestIsSkippedWithOneLogLine_data()
{
    QByteArray const bytes = TTestSettingsFile::Stream(7);
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("digest");
    QTest::newRow("no digest") << QVariant(bytes) << QByteArray("");
    QTest::newRow("digest of another number") << QVariant(bytes) << TTestSettingsFile::Digest(1, bytes);
    QTest::newRow("digest of another value") << QVariant(bytes) << TTestSettingsFile::Digest(SETTING, "x");
    QTest::newRow("text") << QVariant("seven") << TTestSettingsFile::Digest(SETTING, bytes);
    QTest::newRow("number") << QVariant(7) << TTestSettingsFile::Digest(SETTING, bytes);
}

void TSqliteHostileRowsTest::rowWithWrongDigestIsSkippedWithOneLogLine()
{
    QFETCH(QVariant, value);
    QFETCH(QByteArray, digest);
    QVERIFY(TTestSettingsFile(m_Path).Insert(SETTING, value, digest));
    TSqliteConfigManager const store(m_Path);
    QVERIFY(!store.Read(SETTING).isValid());
    QCOMPARE(store.Read(SETTING + 1).toString(), QStringLiteral("neighbour"));
    QVERIFY(store.IsPersistent());
    QCOMPARE(m_Log->Entries(),
             QStringList{QStringLiteral("1 damaged settings in \"%1\" were skipped: 4711").arg(m_Path)});
}

void TSqliteHostileRowsTest::manyDamagedRowsShareOneLogLine()
{
    {
        TTestSettingsFile file(m_Path);
        for (int i = 1; i <= 1000; ++i)
            QVERIFY(file.Insert(i, QByteArray("x"), QByteArray("x")));
    }
    TSqliteConfigManager const store(m_Path);
    QCOMPARE(
        m_Log->Entries(),
        QStringList{
            QStringLiteral("1000 damaged settings in \"%1\" were skipped: 1, 2, 3, 4, 5, ...").arg(m_Path)});
}

void TSqliteHostileRowsTest::numberBeyondTheRangeIsSkipped()
{
    constexpr qlonglong BEYOND = (1LL << 32) + SETTING;
    QByteArray const bytes = TTestSettingsFile::Stream(7);
    // The digest fits what is left of the number when it is cut to an int.
    QVERIFY(TTestSettingsFile(m_Path).Insert(BEYOND, bytes, TTestSettingsFile::Digest(SETTING, bytes)));
    TSqliteConfigManager const store(m_Path);
    QVERIFY(!store.Read(SETTING).isValid());
    QCOMPARE(m_Log->Entries().size(), 1);
}

void TSqliteHostileRowsTest::streamThatIsNoValueIsSkippedWithOneLogLine_data()
{
    constexpr quint32 USER_TYPE = 1024;
    QByteArray const string = TTestSettingsFile::Stream(QStringLiteral("text"));
    QTest::addColumn<QVariant>("value");
    QTest::newRow("nothing") << QVariant(QByteArray(""));
    QTest::newRow("one byte") << QVariant(QByteArray("x"));
    QTest::newRow("text") << QVariant(QStringLiteral("some text in place of bytes"));
    QTest::newRow("cut") << QVariant(string.left(string.size() - 1));
    QTest::newRow("more than one value") << QVariant(string + '\0');
    QTest::newRow("invalid value") << QVariant(TTestSettingsFile::Stream(QVariant()));
    QTest::newRow("type that is none") << QVariant(Head(QMetaType::Void));
    QTest::newRow("unknown type") << QVariant(Head(200) + Bytes({1}));
    QTest::newRow("type out of range") << QVariant(Head(0xffffffffU) + Bytes({1}));
    QTest::newRow("user type unknown") << QVariant(Head(USER_TYPE) + Bytes({5}) + QByteArray("None\0", 5));
    QTest::newRow("user type without a name") << QVariant(Head(USER_TYPE));
    QTest::newRow("user type that is a pointer")
        << QVariant(Head(USER_TYPE) + Bytes({9}) + QByteArray("QObject*\0", 9));
    for (int const type :
         {QMetaType::QVariantList, QMetaType::QVariantMap, QMetaType::QVariantHash, QMetaType::QStringList,
          QMetaType::QByteArrayList, QMetaType::QPolygon, QMetaType::QPolygonF, QMetaType::QString,
          QMetaType::QByteArray, QMetaType::QBitArray})
    {
        for (quint32 const count : {0x7fffffffU, 0x80000000U, 0xfffffffeU, 1000000U})
            QTest::addRow("%s of %u", QMetaType::typeName(type), count)
                << QVariant(Head(type) + Bytes({count, 0, 0, 0}));
    }
    QTest::newRow("nested 65 deep") << QVariant(NestedLists(65));
    QTest::newRow("nested 100000 deep") << QVariant(NestedLists(100000));
}

void TSqliteHostileRowsTest::streamThatIsNoValueIsSkippedWithOneLogLine()
{
    QFETCH(QVariant, value);
    QVERIFY(TTestSettingsFile(m_Path).InsertSigned(SETTING, value));
    TSqliteConfigManager const store(m_Path);
    QVERIFY(!store.Read(SETTING).isValid());
    QVERIFY(!store.Read(SETTING).isValid());
    QCOMPARE(store.Read(SETTING + 1).toString(), QStringLiteral("neighbour"));
    QCOMPARE(m_Log->Entries(), QStringList{"The stored value of setting 4711 cannot be read"});
}

void TSqliteHostileRowsTest::damagedRowIsReplacedByTheNextWrite()
{
    QVERIFY(TTestSettingsFile(m_Path).InsertSigned(SETTING, QByteArray("x")));
    {
        TSqliteConfigManager store(m_Path);
        store.Write(SETTING, 8, true);
        QCOMPARE(store.Read(SETTING), QVariant(8));
    }
    QCOMPARE(TSqliteConfigManager(m_Path).Read(SETTING), QVariant(8));
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSqliteHostileRowsTest::wrongTypeOfAKnownSettingGivesItsDefault()
{
    {
        TTestSettingsFile file(m_Path);
        QVERIFY(file.InsertSigned(CONFIG_SOUND_VOLUME, TTestSettingsFile::Stream(QVariantList{1, 2})));
        QVERIFY(file.InsertSigned(CONFIG_LAYOUT_SNAPSHOT, TTestSettingsFile::Stream(QSize(1, 2))));
        QVERIFY(file.InsertSigned(CONFIG_BUTTON_SIZE, TTestSettingsFile::Stream(QStringLiteral("2"))));
    }
    TSqliteConfigManager const store(m_Path);
    QCOMPARE(store.Read(CONFIG_SOUND_VOLUME), QVariant(50));
    QCOMPARE(store.Read(CONFIG_LAYOUT_SNAPSHOT), QVariant(QString("")));
    QCOMPARE(store.Read(CONFIG_BUTTON_SIZE), QVariant(2));
}

void TSqliteHostileRowsTest::typeThatIsRegisteredLaterIsRead()
{
    constexpr quint32 USER_TYPE = 1024;
    QByteArray const name("TLateValue", 11);
    QVERIFY(
        TTestSettingsFile(m_Path).InsertSigned(SETTING, Head(USER_TYPE) + Bytes({11}) + name + Bytes({42})));
    TSqliteConfigManager const store(m_Path);
    qRegisterMetaType<TLateValue>("TLateValue");
    qRegisterMetaTypeStreamOperators<TLateValue>("TLateValue");
    QCOMPARE(store.Read(SETTING).value<TLateValue>().number, 42);
    QCOMPARE(m_Log->Entries(), QStringList());
}

void TSqliteHostileRowsTest::nestedValuesUpToTheLimitAreKept()
{
    constexpr int LIMIT = 64;
    QVERIFY(TTestSettingsFile(m_Path).InsertSigned(SETTING, NestedLists(LIMIT)));
    QVariant value = TSqliteConfigManager(m_Path).Read(SETTING);
    for (int i = 0; i < LIMIT; ++i)
        value = value.toList().value(0);
    QCOMPARE(value, QVariant(1));
}

void TSqliteHostileRowsTest::changedBytesAreSurvived()
{
    constexpr int ROWS = 3000;
    QByteArray const whole = TTestSettingsFile::Stream(
        QVariantMap{{"list", QVariantList{1, 2.5, QStringLiteral("text"), QSize(1, 2),
                                          QDateTime(QDate(2024, 2, 29), {})}},
                    {"strings", QStringList{"a", "b"}},
                    {"bytes", QByteArray(20, 'x')}});
    QRandomGenerator random(1);
    {
        TTestSettingsFile file(m_Path);
        QVERIFY(file.Run("BEGIN"));
        for (int i = 0; i < ROWS; ++i)
        {
            QByteArray changed = whole;
            for (int change = 0; change <= i % 3; ++change)
                changed[random.bounded(changed.size())] = static_cast<char>(random.bounded(256));
            QVERIFY(file.InsertSigned(i, changed));
        }
        QVERIFY(file.Run("COMMIT"));
    }
    TSqliteConfigManager const store(m_Path);
    int readable = 0;
    for (int i = 0; i < ROWS; ++i)
        readable += store.Read(i).isValid() ? 1 : 0;
    QCOMPARE(readable + m_Log->Entries().size(), ROWS);
}

COMMONUI_TEST(TSqliteHostileRowsTest)
#include "TSqliteHostileRowsTest.moc"
