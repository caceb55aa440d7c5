#include "ConfigManager.h"
#include "ConsoleSettings.h"
#include "ConsoleStage.h"
#include "SetupScreens.h"
#include "TDiagnosticsModule.h"
#include "TDial.h"
#include "TEditButton.h"
#include "TEditWidget.h"
#include "TestCase.h"
#include "TGuidanceModule.h"
#include "TKey.h"
#include "TLightBar.h"
#include "TMachineSetupWindow.h"
#include "TMessageDialog.h"
#include "TSectionsPage.h"
#include "TSelectWidget.h"
#include "TSetupModule.h"
#include "TSprayerModule.h"
#include "TTablePanel.h"
#include "TTankGauge.h"
#include "TTextEditWidget.h"
#include "TUnitSettings.h"
#include "TUnitsNumberPad.h"
#include "TValueField.h"
#include "TValueRow.h"

#include <QListWidget>
#include <QScrollBar>
#include <QTemporaryDir>

namespace
{
/// A started console whose setup shows a page.
struct TSetupStage : TStage
{
    explicit TSetupStage(QString const& folder)
        : TStage(folder)
    {
    }
    TSetupStage(QString const& folder, QString const& screen)
        : TStage(folder)
    {
        OpenSetup(screen);
    }

    /// Pages through the screens of the menu to the one that was asked for, and leaves the menu.
    bool OpenByWheel(QString const& screen)
    {
        GoBackToTheScreen();
        // The setup's button stands below the bar, in a group of its own.
        if (!TurnTo(SpecialButton(TSetupModule::Id())->parentWidget()))
            return false;
        Enter();
        if (!EnterByWheel(SpecialButton(TSetupModule::Id())) || !TurnTo(SetupMenu()))
            return false;
        Enter();
        PageTo(screen, -1);
        PageTo(screen, 1);
        finger.Key(Qt::Key_Escape);
        time.Pass(2 * SettleTime);
        return SetupMenu()->Screen() == screen;
    }
    /// As far as the wheel goes that way.
    void PageTo(QString const& screen, int step)
    {
        QString before;
        while (SetupMenu()->Screen() != screen && SetupMenu()->Screen() != before)
        {
            before = SetupMenu()->Screen();
            Turn(step);
        }
    }
    /// Three ways out of a page that do not end its edits.
    void Leave(int way)
    {
        if (way == 0)
            SetupMenu()->ShowScreen(QLatin1String(SetupScreens::Sound));
        else if (way == 1)
            ShowFull(TGuidanceModule::Id());
        else
            console.Screen()->findChild<TMachineSetupWindow*>()->HideWindow();
        time.Pass(SettleTime);
    }
    /// Takes the row number \a row of the list that the button \a name opens; it is not the selected one.
    bool Choose(QString const& name, int row, bool isByWheel)
    {
        TEditButton* const button = Edit(name);
        if (!(isByWheel ? EnterByWheel(button) : Tap(button)))
            return false;
        if (isByWheel)
        {
            Turn(row - qRound(button->GetCurrentValue()));
            Enter();
            return true;
        }
        auto* const list = button->GetEditWidget()->findChild<QListWidget*>();
        QRect const item = list->visualItemRect(list->item(row));
        finger.Tap(list->viewport()->mapTo(console.Screen(), item.center()));
        time.Pass(SettleTime);
        return TapOnTop(QStringLiteral("icon-tick-larger"));
    }
    /// Has the operator's name edited, and answers its button; null where it cannot be reached.
    TPushButton* OpenName(bool isByWheel)
    {
        if (!(isByWheel ? OpenByWheel(QLatin1String(SetupScreens::Job))
                        : OpenSetup(QLatin1String(SetupScreens::Job))))
            return nullptr;
        TPushButton* const name = Button(QStringLiteral("setup-operator"));
        return (isByWheel ? EnterByWheel(name) : Tap(name)) ? name : nullptr;
    }
    bool IsTextOpen() const
    {
        auto const* const edit = console.Screen()->findChild<TTextEditWidget*>();
        return edit && edit->isVisible();
    }
    TPushButton* KeyOnKeyboard(QString const& name) const
    {
        auto const keys = console.Screen()->findChildren<TKey*>(name);
        auto const seen =
            std::find_if(keys.begin(), keys.end(), [](TKey const* key) { return key->isVisible(); });
        return seen == keys.end() ? nullptr : *seen;
    }
    TPushButton* KeyOnPad(QString const& name) const
    {
        auto const pads = console.Screen()->findChildren<TUnitsNumberPad*>();
        for (TUnitsNumberPad const* const pad : pads)
        {
            if (pad->isVisible())
                return pad->findChild<TKey*>(name);
        }
        return nullptr;
    }
    /// The text of a button, whether its page is shown or not.
    QString Shown(QString const& name) const
    {
        auto const* const button = console.Screen()->findChild<TEditButton*>(name);
        return button ? button->GetText() : QString();
    }
    bool HasRow(QString const& name, QString const& value) const
    {
        auto const tables = console.Screen()->findChildren<TTablePanel*>();
        for (TTablePanel const* const table : tables)
        {
            for (TTableRow const& row : table->Rows())
            {
                if (row.name == name && row.value.endsWith(value))
                    return true;
            }
        }
        return false;
    }
    /// Everything that the console shows with a unit, whether it is seen or not: of the sprayer, the
    /// guidance, the position and the setup, but for the values of the diagnostics.
    QStringList AllTexts() const
    {
        QStringList texts;
        auto const fields = console.Screen()->findChildren<TValueField*>();
        for (TValueField const* const field : fields)
            texts += field->Text().value + QLatin1Char(' ') + field->Text().unit;
        auto const dials = console.Screen()->findChildren<TDial*>();
        for (TDial const* const dial : dials)
            texts += dial->Text();
        auto const gauges = console.Screen()->findChildren<TTankGauge*>();
        for (TTankGauge const* const gauge : gauges)
            texts += gauge->Text();
        auto const tables = console.Screen()->findChildren<TTablePanel*>();
        for (TTablePanel const* const table : tables)
        {
            for (TTableRow const& row : table->Rows())
                texts += row.value;
        }
        auto const rows = console.Screen()->findChildren<TSetupRow*>();
        for (TSetupRow const* const row : rows)
        {
            auto const buttons = row->findChildren<TPushButton*>();
            for (TPushButton const* const button : buttons)
                texts += button->GetText();
        }
        texts += console.Screen()->findChild<TLightBar*>()->Text();
        texts += console.Screen()->findChild<TValueRow*>()->Text();
        return texts;
    }
    static int CountOf(QStringList const& texts, char const* unit)
    {
        return int(std::count_if(texts.begin(), texts.end(),
                                 [unit](QString const& text) { return text.endsWith(QLatin1String(unit)); }));
    }

    TEditButton* Edit(QString const& name) const { return qobject_cast<TEditButton*>(Button(name)); }
    bool IsEditOpen() const
    {
        auto const edits = console.Screen()->findChildren<TEditWidget*>();
        return std::any_of(edits.begin(), edits.end(),
                           [](TEditWidget const* edit) { return edit->isVisible(); });
    }
    /// Whatever was edited, nothing is left of it and the screen is free.
    bool IsQuiet() const { return !IsEditOpen() && console.Screen()->GetLockingWidgets().isEmpty(); }

    /// What the machine or the job knows of \a setting.
    QString Known(int setting)
    {
        TMachine const& machine = console.Machine();
        TJob const& job = console.Job();
        switch (setting)
        {
        case ConsoleSettings::SETTING_TANK_SIZE:
            return QString::number(machine.TankSize());
        case ConsoleSettings::SETTING_NOZZLE_FLOW:
            return QString::number(machine.NozzleFlow());
        case ConsoleSettings::SETTING_START_DAY:
            return QDate::fromJulianDay(qint64(job.StartDay())).toString(Qt::ISODate);
        case ConsoleSettings::SETTING_START_TIME:
            return QString::number(job.StartTime());
        case ConsoleSettings::SETTING_SERVER:
            return job.Server();
        default:
            return QString::number(
                machine.Boom().SectionWidth(setting - ConsoleSettings::SETTING_SECTION_WIDTH));
        }
    }
};

void ValueRows()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("setting");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("known");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("steps"); // of the wheel; 0 where it walks over the keys
    QTest::newRow("tank") << SetupScreens::Tank << "setup-tank" << int(ConsoleSettings::SETTING_TANK_SIZE)
                          << "4150"
                          << "4150"
                          << "4150 L" << 23;
    QTest::newRow("nozzle") << SetupScreens::Nozzles << "setup-nozzle"
                            << int(ConsoleSettings::SETTING_NOZZLE_FLOW) << "1250"
                            << "1.25"
                            << "1250 mL/min" << 0;
    QTest::newRow("first section") << SetupScreens::Sections << "setup-section-1"
                                   << int(ConsoleSettings::SETTING_SECTION_WIDTH) << "2.5"
                                   << "2.5"
                                   << "2.50 m" << -10;
    QTest::newRow("last section") << SetupScreens::Sections << "setup-section-8"
                                  << ConsoleSettings::SETTING_SECTION_WIDTH + 7 << "4.05"
                                  << "4.05"
                                  << "4.05 m" << 21;
    QTest::newRow("day") << SetupScreens::Job << "setup-start-day" << int(ConsoleSettings::SETTING_START_DAY)
                         << "24/12/2025"
                         << "2025-12-24"
                         << "24/12/2025" << 0;
    QTest::newRow("time") << SetupScreens::Job << "setup-start-time"
                          << int(ConsoleSettings::SETTING_START_TIME) << "17:45"
                          << "17.75"
                          << "17:45" << 0;
    QTest::newRow("server") << SetupScreens::Job << "setup-server" << int(ConsoleSettings::SETTING_SERVER)
                            << "10.1.0.7"
                            << "10.1.0.7"
                            << "10.1.0.7" << 0;
}
} // namespace

/// The setup of the console, where values are edited: by touch, and by the wheel with its two keys alone.
class TConsoleSetupTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aValueIsEditedByTouch_data() { ValueRows(); }

    void aValueIsEditedByTouch()
    {
        QFETCH(QString, page);
        QFETCH(QString, button);
        QFETCH(int, setting);
        QFETCH(QString, typed);
        QFETCH(QString, known);
        QFETCH(QString, shown);
        QTemporaryDir folder;
        {
            TSetupStage stage(folder.path(), page);
            QString const before = stage.Known(setting);
            QVERIFY(stage.Tap(stage.Button(button)));
            QVERIFY(stage.TypeOnPad(typed));
            QCOMPARE(stage.Known(setting), before);
            QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
            QCOMPARE(stage.Known(setting), known);
            QCOMPARE(stage.Edit(button)->GetText(), shown);
            QVERIFY(stage.IsQuiet());
        }
        TSetupStage stage(folder.path(), page);
        QCOMPARE(stage.Known(setting), known);
        QCOMPARE(stage.Edit(button)->GetText(), shown);
    }

    void aCancelledEditLeavesTheMachineAsItIs_data() { ValueRows(); }

    void aCancelledEditLeavesTheMachineAsItIs()
    {
        QFETCH(QString, page);
        QFETCH(QString, button);
        QFETCH(int, setting);
        QFETCH(QString, typed);
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), page);
        QString const before = stage.Known(setting);
        QString const shown = stage.Edit(button)->GetText();
        for (bool const isByKey : {false, true})
        {
            QVERIFY(stage.Tap(stage.Button(button)));
            QVERIFY(stage.TypeOnPad(typed));
            stage.Turn(isByKey ? 1 : 0);
            if (isByKey)
                stage.finger.Key(Qt::Key_Escape);
            else
                QVERIFY(stage.TapOnTop(QStringLiteral("icon-cross-larger")));
            stage.time.Pass(2 * SettleTime);
            QVERIFY(stage.IsQuiet());
            QCOMPARE(stage.Known(setting), before);
            QCOMPARE(stage.Edit(button)->GetText(), shown);
        }
    }

    // From the first step of the wheel on: to the setup, to its page, to the row and over the keys.
    void aValueIsEditedByTheWheelAlone_data() { ValueRows(); }

    void aValueIsEditedByTheWheelAlone()
    {
        QFETCH(QString, page);
        QFETCH(QString, button);
        QFETCH(int, setting);
        QFETCH(QString, typed);
        QFETCH(QString, known);
        QFETCH(int, steps);
        QTemporaryDir folder;
        TSetupStage stage(folder.path());
        QVERIFY(stage.OpenByWheel(page));
        QString const before = stage.Known(setting);
        QVERIFY(stage.EnterByWheel(stage.Button(button)));
        QVERIFY(stage.IsEditOpen());
        if (steps != 0)
            stage.Turn(steps);
        else
            QVERIFY(stage.TypeByWheel(typed));
        QCOMPARE(stage.Known(setting), before);
        if (steps != 0)
            stage.Enter();
        else
            QVERIFY(stage.EnterByWheel(stage.KeyOnPad(QStringLiteral("icon-tick-larger"))));
        QCOMPARE(stage.Known(setting), known);
        QVERIFY(stage.IsQuiet());
        // The wheel is back where it was.
        stage.Enter();
        QVERIFY(stage.IsEditOpen());
        stage.finger.Key(Qt::Key_Escape);
        stage.time.Pass(2 * SettleTime);
        QVERIFY(stage.IsQuiet());
        QCOMPARE(stage.Known(setting), known);
    }

    void theOperatorTellsHisName_data() { theUnitSystemIsChosenFromItsList_data(); }

    void theOperatorTellsHisName()
    {
        QFETCH(bool, isByWheel);
        QTemporaryDir folder;
        {
            TSetupStage stage(folder.path());
            TPushButton* const name = stage.OpenName(isByWheel);
            QVERIFY(name && stage.IsTextOpen());
            QString const typed = QStringLiteral("ANA");
            QVERIFY(isByWheel ? stage.TypeByWheel(typed) : stage.TypeOnPad(typed));
            QCOMPARE(stage.console.Job().Operator(), QString());
            QVERIFY(isByWheel ? stage.EnterByWheel(stage.KeyOnKeyboard(QStringLiteral("icon-tick")))
                              : stage.TapOnTop(QStringLiteral("icon-tick")));
            QCOMPARE(stage.console.Job().Operator(), QStringLiteral("ANA"));
            QCOMPARE(name->GetText(), QStringLiteral("ANA"));
            QVERIFY(!stage.IsTextOpen() && stage.IsQuiet());
        }
        TStage next(folder.path());
        QCOMPARE(next.console.Job().Operator(), QStringLiteral("ANA"));
    }

    void aNameThatIsGivenUpStaysWhatItWas_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("by its button") << -2;
        QTest::newRow("by the back key") << -1;
        QTest::newRow("with its page") << 0;
        QTest::newRow("with the view") << 1;
        QTest::newRow("with the setup") << 2;
    }

    void aNameThatIsGivenUpStaysWhatItWas()
    {
        QFETCH(int, way);
        QTemporaryDir folder;
        TSetupStage stage(folder.path());
        stage.console.Job().SetOperator(QStringLiteral("Eva"));
        TPushButton* const name = stage.OpenName(false);
        QVERIFY(name && stage.TypeOnPad(QStringLiteral("X")));
        stage.Turn(way == -1 ? 1 : 0);
        if (way == -2)
            QVERIFY(stage.TapOnTop(QStringLiteral("icon-cross")));
        else if (way == -1)
            stage.finger.Key(Qt::Key_Escape);
        else
            stage.Leave(way);
        stage.time.Pass(2 * SettleTime);
        QVERIFY(!stage.IsTextOpen() && stage.IsQuiet());
        QVERIFY(stage.OpenSetup(QLatin1String(SetupScreens::Job)));
        QVERIFY(!stage.IsTextOpen() && stage.IsQuiet());
        QCOMPARE(name->GetText(), QStringLiteral("Eva"));
        QCOMPARE(stage.console.Job().Operator(), QStringLiteral("Eva"));
    }

    void aConsoleThatStopsTakesTheKeyboardAlong()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path());
        QVERIFY(stage.OpenName(false) && stage.IsTextOpen());
    }

    void aValueOutOfItsBoundsIsRefused()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Tank));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-tank"))));
        QVERIFY(stage.TypeOnPad(QStringLiteral("99999")));
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        QCOMPARE(stage.console.Machine().TankSize(), TMachine::StandardTankSize);
        // The message first, then the pad.
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        QVERIFY(stage.TypeOnPad(QStringLiteral("5000")));
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        QCOMPARE(stage.console.Machine().TankSize(), 5000.0);
        QVERIFY(stage.IsQuiet());
    }

    void aNozzleIsTypedInAnyUnit()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Nozzles));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-nozzle"))));
        auto* const edit = stage.Edit(QStringLiteral("setup-nozzle"))->GetEditWidget();
        auto* const pad = edit->findChild<TUnitsNumberPad*>();
        QVERIFY(pad && pad->GetUnitsButton());
        QVERIFY(stage.Tap(pad->GetUnitsButton()));
        stage.Turn(1);
        stage.Enter();
        QVERIFY(stage.TypeOnPad(QStringLiteral("1.25")));
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        QCOMPARE(stage.console.Machine().NozzleFlow(), 1.25);
        QVERIFY(stage.IsQuiet());
    }

    void theWorkingWidthFollowsItsSections()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Sections));
        auto* const width = stage.console.Screen()->findChild<TValueRow*>();
        QCOMPARE(width->Text(), QStringLiteral("24.00 m"));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-section-4"))));
        QVERIFY(stage.TypeOnPad(QStringLiteral("1.5")));
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        QCOMPARE(width->Text(), QStringLiteral("22.50 m"));
        QCOMPARE(stage.console.Machine().Boom().Width(), 22.5);
    }

    void theJobIsToldByTheDiagnostics()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Job));
        stage.console.Job().SetOperator(QStringLiteral("Anna"));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-start-time"))));
        QVERIFY(stage.TypeOnPad(QStringLiteral("6:05")));
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        stage.ShowFull(TDiagnosticsModule::Id());
        QVERIFY(stage.HasRow(QStringLiteral("Operator"), QStringLiteral("Anna")));
        QVERIFY(stage.HasRow(QStringLiteral("Begun"), QStringLiteral("6:05")));
        QVERIFY(stage.HasRow(QStringLiteral("Server"), QStringLiteral("0.0.0.0")));
    }

    // Units, language, dates and clock

    void theUnitSystemIsChosenFromItsList_data()
    {
        QTest::addColumn<bool>("isByWheel");
        QTest::newRow("by touch") << false;
        QTest::newRow("by wheel") << true;
    }

    void theUnitSystemIsChosenFromItsList()
    {
        QFETCH(bool, isByWheel);
        QTemporaryDir folder;
        TSetupStage stage(folder.path());
        QVERIFY(isByWheel ? stage.OpenByWheel(QLatin1String(SetupScreens::Units))
                          : stage.OpenSetup(QLatin1String(SetupScreens::Units)));
        QVERIFY(stage.Choose(QStringLiteral("setup-units"), 2, isByWheel));
        QCOMPARE(int(TUnitSettings::Instance()->Choices().system), int(UNIT_SYSTEM_US));
        QCOMPARE(ConfigManager::Instance()->Read(CONFIG_UNIT_SYSTEM).toInt(), int(UNIT_SYSTEM_US));
        QCOMPARE(stage.Edit(QStringLiteral("setup-units"))->GetText(), QStringLiteral("US"));
        QVERIFY(stage.IsQuiet());
    }

    void theLanguageIsChosenFromItsList_data() { theUnitSystemIsChosenFromItsList_data(); }

    void theLanguageIsChosenFromItsList()
    {
        QFETCH(bool, isByWheel);
        QTemporaryDir folder;
        TSetupStage stage(folder.path());
        stage.console.Job().SetStartDay(double(QDate(2025, 12, 24).toJulianDay()));
        QVERIFY(isByWheel ? stage.OpenByWheel(QLatin1String(SetupScreens::Language))
                          : stage.OpenSetup(QLatin1String(SetupScreens::Language)));
        QVERIFY(stage.Choose(QStringLiteral("setup-language"), 2, isByWheel));
        QCOMPARE(ConfigManager::Instance()->Read(CONFIG_LOCALE).toString(), QStringLiteral("en_US"));
        QCOMPARE(stage.Shown(QStringLiteral("setup-start-day")), QStringLiteral("12/24/2025"));
        QCOMPARE(stage.Shown(QStringLiteral("setup-section-1")), QStringLiteral("3.00 m"));
        QVERIFY(stage.Choose(QStringLiteral("setup-language"), 4, isByWheel));
        QCOMPARE(ConfigManager::Instance()->Read(CONFIG_LOCALE).toString(), QStringLiteral("de_DE"));
        QCOMPARE(stage.Shown(QStringLiteral("setup-start-day")), QStringLiteral("24/12/2025"));
        QCOMPARE(stage.Shown(QStringLiteral("setup-section-1")), QStringLiteral("3,00 m"));
        QVERIFY(stage.IsQuiet());
    }

    void aLanguageThatIsNotOfferedStaysWhatItIs()
    {
        QTemporaryDir folder;
        {
            TStage const stage(folder.path());
            ConfigManager::Instance()->Write(CONFIG_LOCALE, QStringLiteral("fi_FI"), true);
        }
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Language));
        QCOMPARE(stage.Shown(QStringLiteral("setup-language")), QStringLiteral("suomi"));
        QCOMPARE(ConfigManager::Instance()->Read(CONFIG_LOCALE).toString(), QStringLiteral("fi_FI"));
    }

    void datesAndClockFollowTheirRows()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Clock));
        stage.console.Job().SetStartDay(double(QDate(2025, 12, 24).toJulianDay()));
        stage.console.Job().SetStartTime(17.75);
        auto* const dates = stage.console.Screen()->findChild<TSelectWidget*>();
        auto const buttons = dates->findChildren<TPushButton*>();
        QVERIFY(stage.Tap(buttons[1]));
        QCOMPARE(stage.Shown(QStringLiteral("setup-start-day")), QStringLiteral("24/2025/12"));
        QVERIFY(stage.Tap(buttons[0]));
        QCOMPARE(stage.Shown(QStringLiteral("setup-start-day")), QStringLiteral("24/12/2025"));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("12 hours"))));
        QCOMPARE(stage.Shown(QStringLiteral("setup-start-time")), QStringLiteral("5:45 pm"));
    }

    void theUnitSystemSwitchesEverythingAtOnce()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Tank));
        stage.ShowFull(TSprayerModule::Id());
        stage.ShowFull(TGuidanceModule::Id());
        // What the views show is a little older than what they would show anew.
        Q_EMIT TUnitSettings::Instance()->Changed();
        QStringList const metric = stage.AllTexts();
        for (char const* const unit : {" L", " km/h", " ha", " L/ha", " L/min", " m", " cm", " mL/min"})
            QVERIFY2(stage.CountOf(metric, unit) > 0, unit);
        // Without any time for a refresh.
        ConfigManager::Instance()->Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_US), false);
        QStringList const imperial = stage.AllTexts();
        for (char const* const unit : {" L", " km/h", " ha", " L/ha", " L/min", " m", " cm", " mL/min"})
            QVERIFY2(stage.CountOf(imperial, unit) == 0, unit);
        for (char const* const unit :
             {" gal", " mph", " ac", " gal/ac", " gal/min", " ft", " in", " fl oz/min"})
            QVERIFY2(stage.CountOf(imperial, unit) > 0, unit);
        QCOMPARE(imperial.size(), metric.size());
        ConfigManager::Instance()->Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_METRIC), false);
        QCOMPARE(stage.AllTexts(), metric);
    }

    void aMessageThatIsUpSwitchesItsUnits()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path());
        stage.console.Machine().DrainTank();
        stage.time.Pass(SettleTime);
        auto* const message = stage.console.Screen()->findChild<TMessageDialog*>();
        QVERIFY(message->GetMessageString().contains(QStringLiteral("450 L")));
        ConfigManager::Instance()->Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_US), false);
        QVERIFY(message->GetMessageString().contains(QStringLiteral("119 gal")));
    }

    void aTankIsTypedInGallons()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Tank));
        ConfigManager::Instance()->Write(CONFIG_UNIT_SYSTEM, int(UNIT_SYSTEM_US), false);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-tank"))));
        QVERIFY(stage.TypeOnPad(QStringLiteral("1000")));
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        QVERIFY(qAbs(stage.console.Machine().TankSize() - 3785.412) < 1e-3);
        QCOMPARE(stage.Shown(QStringLiteral("setup-tank")), QStringLiteral("1000 gal"));
    }

    // What is under edit when something else happens

    void anEditEndsWithItsPage_data() { ValueRows(); }

    void anEditEndsWithItsPage()
    {
        QFETCH(QString, page);
        QFETCH(QString, button);
        QFETCH(int, setting);
        QFETCH(QString, typed);
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), page);
        QString const before = stage.Known(setting);
        QString const shown = stage.Edit(button)->GetText();
        // Another page, another view, and the setup away for good.
        for (int way = 0; way < 3; ++way)
        {
            QVERIFY(stage.Tap(stage.Button(button)));
            QVERIFY(stage.TypeOnPad(typed.left(2)));
            stage.Leave(way);
            QVERIFY(stage.IsQuiet());
            QVERIFY(stage.OpenSetup(page));
            QVERIFY(stage.IsQuiet());
            QCOMPARE(stage.Edit(button)->GetText(), shown);
            QCOMPARE(stage.Known(setting), before);
        }
    }

    void aListEndsWithItsPage()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Units));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-units"))));
        stage.Turn(1);
        QVERIFY(stage.IsEditOpen());
        stage.Leave(0);
        QVERIFY(stage.IsQuiet());
        QVERIFY(stage.OpenSetup(QLatin1String(SetupScreens::Units)));
        QCOMPARE(stage.Shown(QStringLiteral("setup-units")), QStringLiteral("Metric"));
    }

    void aSourceThatScrollsAwayTakesItsEditAlong()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Sections));
        auto* const page = stage.console.Screen()->findChild<TSectionsPage*>();
        page->setFixedHeight(150);
        stage.time.Pass(SettleTime);
        QVERIFY(page->verticalScrollBar()->maximum() > 0);
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-section-1"))));
        QVERIFY(stage.IsEditOpen());
        page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
        stage.time.Pass(SettleTime);
        page->verticalScrollBar()->setValue(0);
        stage.time.Pass(SettleTime);
        QVERIFY(stage.TypeOnPad(QStringLiteral("2.5")));
        QVERIFY(stage.TapOnTop(QStringLiteral("icon-tick-larger")));
        QCOMPARE(stage.console.Machine().Boom().SectionWidth(0), 2.5);
        QVERIFY(stage.IsQuiet());
    }

    void aMachineThatChangesDoesNotDisturbTheOperator()
    {
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), QLatin1String(SetupScreens::Tank));
        QVERIFY(stage.Tap(stage.Button(QStringLiteral("setup-tank"))));
        stage.Turn(2);
        stage.console.Machine().SetTankSize(2000.0);
        stage.console.Machine().SetRate(150);
        QCOMPARE(stage.Edit(QStringLiteral("setup-tank"))->GetCurrentValue(), 3100.0);
        stage.finger.Key(Qt::Key_Escape);
        stage.time.Pass(2 * SettleTime);
        QCOMPARE(stage.Shown(QStringLiteral("setup-tank")), QStringLiteral("2000 L"));
    }

    void aConsoleThatStopsTakesAnOpenEditAlong_data() { ValueRows(); }

    void aConsoleThatStopsTakesAnOpenEditAlong()
    {
        QFETCH(QString, page);
        QFETCH(QString, button);
        QTemporaryDir folder;
        TSetupStage stage(folder.path(), page);
        QVERIFY(stage.Tap(stage.Button(button)));
        QVERIFY(stage.IsEditOpen());
    }
};

COMMONUI_TEST(TConsoleSetupTest)
#include "TConsoleSetupTest.moc"
