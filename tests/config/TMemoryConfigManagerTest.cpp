#include "TMemoryConfigManager.h"
#include "TestCase.h"

class TMemoryConfigManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersOfModulesAreKept();
    void storesShareNothing();
    void knownSettingComesInItsOwnType_data();
    void knownSettingComesInItsOwnType();
    void invalidValueForgetsTheNumber();
};

void TMemoryConfigManagerTest::numbersOfModulesAreKept()
{
    TMemoryConfigManager store;
    QVERIFY(!store.Read(7).isValid());
    store.Write(7, QSize(3, 4), false);
    store.Write(-7, QStringLiteral("negative"), true);
    QCOMPARE(store.Read(7), QVariant(QSize(3, 4)));
    QCOMPARE(store.Read(-7), QVariant(QStringLiteral("negative")));
}

void TMemoryConfigManagerTest::storesShareNothing()
{
    TMemoryConfigManager first;
    TMemoryConfigManager const second;
    first.Write(CONFIG_SOUND_VOLUME, 11, true);
    QCOMPARE(first.Read(CONFIG_SOUND_VOLUME), QVariant(11));
    QCOMPARE(second.Read(CONFIG_SOUND_VOLUME), QVariant(50));
}

void TMemoryConfigManagerTest::knownSettingComesInItsOwnType_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QVariant>("read");
    QTest::newRow("as it is") << int(CONFIG_SOUND_VOLUME) << QVariant(70) << QVariant(70);
    QTest::newRow("text of a number") << int(CONFIG_SOUND_VOLUME) << QVariant("70") << QVariant(70);
    QTest::newRow("number with a fraction") << int(CONFIG_SOUND_VOLUME) << QVariant(69.6) << QVariant(70);
    QTest::newRow("no number") << int(CONFIG_SOUND_VOLUME) << QVariant("loud") << QVariant(50);
    QTest::newRow("empty text for a number") << int(CONFIG_SOUND_VOLUME) << QVariant("") << QVariant(50);
    QTest::newRow("list for a number")
        << int(CONFIG_SOUND_VOLUME) << QVariant(QVariantList{1}) << QVariant(50);
    QTest::newRow("number for a bool") << int(CONFIG_SOUND_ENABLED) << QVariant(0) << QVariant(false);
    QTest::newRow("map for a bool") << int(CONFIG_SOUND_ENABLED) << QVariant(QVariantMap()) << QVariant(true);
    QTest::newRow("bytes for a text")
        << int(CONFIG_LAYOUT_SNAPSHOT) << QVariant(QByteArray("<a/>")) << QVariant(QString("<a/>"));
    QTest::newRow("size for a text") << int(CONFIG_LAYOUT_SNAPSHOT) << QVariant(QSize(1, 2))
                                     << QVariant(QString(""));
}

void TMemoryConfigManagerTest::knownSettingComesInItsOwnType()
{
    QFETCH(int, id);
    QFETCH(QVariant, stored);
    QFETCH(QVariant, read);
    TMemoryConfigManager store;
    store.Write(id, stored, false);
    QCOMPARE(store.Read(id), read);
    QCOMPARE(store.Read(id).userType(), read.userType());
}

void TMemoryConfigManagerTest::invalidValueForgetsTheNumber()
{
    TMemoryConfigManager store;
    store.Write(CONFIG_SOUND_VOLUME, 70, true);
    store.Write(7, 7, true);
    store.Write(CONFIG_SOUND_VOLUME, QVariant(), true);
    store.Write(7, QVariant(), true);
    QCOMPARE(store.Read(CONFIG_SOUND_VOLUME), QVariant(50));
    QVERIFY(!store.Read(7).isValid());
}

COMMONUI_TEST(TMemoryConfigManagerTest)
#include "TMemoryConfigManagerTest.moc"
