#include "ConfigManager.h"
#include "TestCase.h"
#include "TestSupport.h"

class ConfigManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsAlwaysAStore();
    void installedStoreServesUntilAnotherComes();
    void knownSettingsHaveNameAndDefault_data();
    void knownSettingsHaveNameAndDefault();
    void knownSettingsAreInOrder();
    void unknownNumberHasNoDefault_data();
    void unknownNumberHasNoDefault();
};

void ConfigManagerTest::thereIsAlwaysAStore()
{
    ConfigManager* const store = ConfigManager::Instance();
    QVERIFY(store != nullptr);
    QVERIFY(dynamic_cast<TMemoryConfigManager*>(store) != nullptr);
    QCOMPARE(ConfigManager::Instance(), store);
    QCOMPARE(store->Read(CONFIG_SOUND_VOLUME), QVariant(50));
}

void ConfigManagerTest::installedStoreServesUntilAnotherComes()
{
    ConfigManager* const fallback = ConfigManager::Instance();
    TMemoryConfigManager first;
    TMemoryConfigManager second;
    QVERIFY(ConfigManager::Install(&first) == nullptr);
    QCOMPARE(ConfigManager::Instance(), &first);
    QCOMPARE(ConfigManager::Install(&second), &first);
    QCOMPARE(ConfigManager::Instance(), &second);
    QCOMPARE(ConfigManager::Install(nullptr), &second);
    QCOMPARE(ConfigManager::Instance(), fallback);
}

void ConfigManagerTest::knownSettingsHaveNameAndDefault_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("volume") << 22725 << QByteArray("SoundVolume") << QVariant(50);
    QTest::newRow("sound") << 22726 << QByteArray("SoundEnabled") << QVariant(true);
    QTest::newRow("buttons") << 22753 << QByteArray("ButtonSize") << QVariant(0);
    QTest::newRow("layout") << 22797 << QByteArray("LayoutSnapshot") << QVariant(QString());
    QTest::newRow("dashboard") << 22798 << QByteArray("DashboardSnapshot") << QVariant(QString());
}

void ConfigManagerTest::knownSettingsHaveNameAndDefault()
{
    QFETCH(int, id);
    QFETCH(QVariant, value);
    auto const& entries = ConfigManager::KnownEntries();
    auto const found = std::find_if(entries.begin(), entries.end(),
                                    [id](TConfigEntry const& entry) { return entry.id == id; });
    QVERIFY(found != entries.end());
    QTEST(QByteArray(found->name), "name");
    QCOMPARE(found->defaultValue, value);
    QCOMPARE(found->defaultValue.userType(), value.userType());
    QCOMPARE(ConfigManager::DefaultValue(id), value);
}

void ConfigManagerTest::knownSettingsAreInOrder()
{
    auto const& entries = ConfigManager::KnownEntries();
    for (size_t i = 1; i < entries.size(); ++i)
        QVERIFY(entries[i - 1].id < entries[i].id);
}

void ConfigManagerTest::unknownNumberHasNoDefault_data()
{
    QTest::addColumn<int>("id");
    QTest::newRow("nothing") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("just before the first") << CONFIG_SOUND_VOLUME - 1;
    QTest::newRow("between") << CONFIG_SOUND_ENABLED + 1;
    QTest::newRow("just after the last") << CONFIG_DASHBOARD_SNAPSHOT + 1;
}

void ConfigManagerTest::unknownNumberHasNoDefault()
{
    QFETCH(int, id);
    QVERIFY(!ConfigManager::DefaultValue(id).isValid());
}

COMMONUI_TEST(ConfigManagerTest)
#include "ConfigManagerTest.moc"
