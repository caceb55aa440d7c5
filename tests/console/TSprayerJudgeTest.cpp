#include "TSprayerJudge.h"

#include "MenuBench.h"
#include "TestCase.h"

namespace
{
enum EElement
{
    MASTER,
    MASTER_SHORTCUT,
    SECTIONS,
    ALL_SECTIONS,
    TANK,
    FILL,
    DRAIN,
    SECTION_1
};

struct TBench : TMenuBench
{
    TBench()
    {
        TSprayerElements elements;
        for (TMenuElement* const element :
             {&elements.master, &elements.masterShortcut, &elements.sections, &elements.allSections,
              &elements.tank, &elements.fill, &elements.drain})
            *element = Add();
        for (TMenuElement& section : elements.section)
            section = Add();
        judge.SetElements(elements);
        state.isMasterOn = true;
        state.isOn.fill(true);
    }
    void Take() { judge.Take(state); }

    TSprayerState state;
    TSprayerJudge judge;
};
} // namespace

class TSprayerJudgeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theMasterIsGreenOrRed()
    {
        TBench bench;
        for (bool const isOn : {false, true, false})
        {
            bench.state.isMasterOn = isOn;
            bench.Take();
            for (int const element : {MASTER, MASTER_SHORTCUT})
            {
                QCOMPARE(bench.Control(element), int(isOn ? MENU_CONTROL_GOOD : MENU_CONTROL_BAD));
                QCOMPARE(bench.Name(element), QLatin1String(isOn ? "Sprayer is on" : "Sprayer is off"));
            }
        }
    }

    void aSectionShowsWhetherItSpraysOrOnlyMight()
    {
        TBench bench;
        bench.state.isFlowing[0] = true;
        bench.state.isOn[2] = false;
        bench.state.isFlowing[2] = true;
        bench.Take();
        QCOMPARE(bench.Control(SECTION_1), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.Control(SECTION_1 + 1), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.Control(SECTION_1 + 2), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.Name(SECTION_1), QStringLiteral("before"));
    }

    void sectionsThatAreOffAreTold()
    {
        TBench bench;
        bench.Take();
        QCOMPARE(bench.Control(SECTIONS), int(MENU_CONTROL_PLAIN));
        QVERIFY(!bench.IsEnabled(ALL_SECTIONS));
        bench.state.isOn[7] = false;
        bench.state.isOn[3] = false;
        bench.Take();
        QCOMPARE(bench.Control(SECTIONS), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.Name(SECTIONS), QStringLiteral("Sections: 6 of 8 on"));
        QVERIFY(bench.IsEnabled(ALL_SECTIONS));
    }

    void theTankIsYellowWhenLowAndRedWhenEmpty()
    {
        TBench bench;
        bench.state.isTankFull = true;
        bench.Take();
        QCOMPARE(bench.Control(TANK), int(MENU_CONTROL_PLAIN));
        QVERIFY(!bench.IsEnabled(FILL));
        QVERIFY(bench.IsEnabled(DRAIN));
        bench.state.isTankFull = false;
        bench.state.isTankLow = true;
        bench.Take();
        QCOMPARE(bench.Control(TANK), int(MENU_CONTROL_FAIR));
        QVERIFY(bench.IsEnabled(FILL));
        bench.state.isTankEmpty = true;
        bench.Take();
        QCOMPARE(bench.Control(TANK), int(MENU_CONTROL_BAD));
        QVERIFY(!bench.IsEnabled(DRAIN));
    }
};

COMMONUI_TEST(TSprayerJudgeTest)
#include "TSprayerJudgeTest.moc"
