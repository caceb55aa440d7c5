#include "ConfigManager.h"
#include "TestCase.h"
#include "TestSupport.h"
#include "TSqliteConfigManager.h"
#include "TUnits.h"
#include "TUnitSettings.h"

#include <QLocale>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>

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
    void unitSystemSwitchesWhatIsShownAtOnce_data();
    void unitSystemSwitchesWhatIsShownAtOnce();
    void installedStoreBringsItsUnits();
    void storeInTheBackgroundChangesNoUnits();
    void otherSettingsLeaveTheUnitsInPeace();
    void forgottenUnitSettingIsTheDefaultAgain();
    void emptyLocaleIsThatOfTheSystem();
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
    QTest::newRow("clock") << 22793 << QByteArray("24HourClock") << QVariant(true);
    QTest::newRow("date") << 22794 << QByteArray("DateFormat") << QVariant(0);
    QTest::newRow("units") << 22795 << QByteArray("UnitSystem") << QVariant(0);
    QTest::newRow("locale") << 22796 << QByteArray("Locale") << QVariant(QString());
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

namespace
{
constexpr int US = UNIT_SYSTEM_US;

QString Speed()
{
    return TUnits::GetValueStringInContext(10.0, UNIT_TYPE_SPEED, UNITS_CONTEXT_GENERAL, 1, nullptr, 1.0);
}
} // namespace

void ConfigManagerTest::unitSystemSwitchesWhatIsShownAtOnce_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::newRow("in memory") << false;
    QTest::newRow("in a file") << true;
}

void ConfigManagerTest::unitSystemSwitchesWhatIsShownAtOnce()
{
    QFETCH(bool, isFile);
    QTemporaryDir const folder;
    std::unique_ptr<ConfigManager> store;
    if (isFile)
        store = std::make_unique<TSqliteConfigManager>(folder.filePath("settings"));
    else
        store = std::make_unique<TMemoryConfigManager>();
    ConfigManager* const before = ConfigManager::Install(store.get());
    QStringList shown;
    QObject display;
    connect(TUnitSettings::Instance(), &TUnitSettings::Changed, &display, [&shown] { shown += Speed(); });
    store->Write(CONFIG_UNIT_SYSTEM, US, true);
    store->Write(CONFIG_LOCALE, QStringLiteral("de_DE"), false);
    store->Write(CONFIG_UNIT_SYSTEM, US, true);
    store->Write(CONFIG_DATE_FORMAT, int(DATE_FORMAT_YEAR_MONTH_DAY), false);
    store->Write(CONFIG_24_HOUR_CLOCK, false, false);
    QCOMPARE(shown, (QStringList{"22.4 mph", "22,4 mph", "22,4 mph", "22,4 mph"}));
    QCOMPARE(TUnits::GetValueString(13.5, UNIT_TIME_OF_DAY, 0, nullptr, 1.0), QString("1:30 pm"));
    QCOMPARE(TUnits::GetValueString(2460311.0, QStringLiteral("DD/MM/YYYY"), 0, nullptr),
             QString("2024/01/01"));
    ConfigManager::Install(before);
    QCOMPARE(shown.size(), 5);
    QCOMPARE(shown.constLast(), QString("36.0 km/h"));
}

void ConfigManagerTest::installedStoreBringsItsUnits()
{
    TMemoryConfigManager store;
    store.Write(CONFIG_UNIT_SYSTEM, US, true);
    QCOMPARE(Speed(), QString("36.0 km/h"));
    ConfigManager* const before = ConfigManager::Install(&store);
    QCOMPARE(Speed(), QString("22.4 mph"));
    ConfigManager::Install(before);
    QCOMPARE(Speed(), QString("36.0 km/h"));
}

void ConfigManagerTest::storeInTheBackgroundChangesNoUnits()
{
    TTestConfig const installed;
    TMemoryConfigManager other;
    QSignalSpy const told(TUnitSettings::Instance(), &TUnitSettings::Changed);
    other.Write(CONFIG_UNIT_SYSTEM, US, true);
    QCOMPARE(told.count(), 0);
    QCOMPARE(Speed(), QString("36.0 km/h"));
}

void ConfigManagerTest::otherSettingsLeaveTheUnitsInPeace()
{
    TTestConfig settings;
    QSignalSpy const told(TUnitSettings::Instance(), &TUnitSettings::Changed);
    TUnitChoices const chosen = TUnitChoices::FromNumbers('.', US, 0, true);
    TUnitSettings::Instance()->SetChoices(chosen);
    settings.Write(CONFIG_SOUND_VOLUME, 7, true);
    settings.Write(CONFIG_LAYOUT_SNAPSHOT, QStringLiteral("<State/>"), true);
    QCOMPARE(told.count(), 1);
    QVERIFY(TUnitSettings::Instance()->Choices() == chosen);
}

void ConfigManagerTest::forgottenUnitSettingIsTheDefaultAgain()
{
    TTestConfig settings;
    settings.Write(CONFIG_UNIT_SYSTEM, US, true);
    QCOMPARE(Speed(), QString("22.4 mph"));
    settings.Write(CONFIG_UNIT_SYSTEM, QVariant(), true);
    QCOMPARE(Speed(), QString("36.0 km/h"));
    settings.Write(CONFIG_UNIT_SYSTEM, QStringLiteral("nonsense"), true);
    QCOMPARE(Speed(), QString("36.0 km/h"));
    settings.Write(CONFIG_UNIT_SYSTEM, 77, true);
    QCOMPARE(Speed(), QString("36.0 km/h"));
    settings.Write(CONFIG_LOCALE, QStringLiteral("nonsense"), true);
    QCOMPARE(Speed(), QString("36.0 km/h"));
}

void ConfigManagerTest::emptyLocaleIsThatOfTheSystem()
{
    QLocale const before;
    QLocale::setDefault(QLocale(QLocale::German));
    auto const restore = qScopeGuard([&before] { QLocale::setDefault(before); });
    TTestConfig settings;
    QCOMPARE(Speed(), QString("36.0 km/h"));
    settings.Write(CONFIG_LOCALE, QStringLiteral("de_DE"), true);
    QCOMPARE(Speed(), QString("36,0 km/h"));
    settings.Write(CONFIG_LOCALE, QString(), true);
    QCOMPARE(Speed(), QString("36.0 km/h"));
}

COMMONUI_TEST(ConfigManagerTest)
#include "ConfigManagerTest.moc"
