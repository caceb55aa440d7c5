#include "TGuidanceJudge.h"

#include "MenuBench.h"
#include "TestCase.h"
#include "TMapView.h"

namespace
{
enum EElement
{
    RECORD,
    RECORD_SHORTCUT,
    LINES,
    SHIFT_LEFT,
    SHIFT_RIGHT,
    CENTRE,
    ZOOM_IN,
    ZOOM_OUT,
    FAR_VIEW
};

struct TBench : TMenuBench
{
    TBench()
    {
        TGuidanceElements elements;
        for (TMenuElement* const element :
             {&elements.record, &elements.recordShortcut, &elements.lines, &elements.shiftLeft,
              &elements.shiftRight, &elements.centre, &elements.zoomIn, &elements.zoomOut, &elements.farView})
            *element = Add();
        judge.SetElements(elements);
        state.hasLines = true;
        state.hasFix = true;
    }
    int LinesAt(int centimetres)
    {
        state.centimetresOffLine = centimetres;
        judge.Take(state);
        return Control(LINES);
    }

    TGuidanceState state;
    TGuidanceJudge judge;
};
} // namespace

class TGuidanceJudgeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theRecordIsLitWhileItRuns()
    {
        TBench bench;
        for (bool const isRecording : {true, false, true})
        {
            bench.state.isRecording = isRecording;
            bench.judge.Take(bench.state);
            for (int const element : {RECORD, RECORD_SHORTCUT})
            {
                QCOMPARE(bench.Control(element), int(isRecording ? MENU_CONTROL_ON : MENU_CONTROL_PLAIN));
                QVERIFY(
                    bench.Name(element).endsWith(isRecording ? QLatin1String(" on") : QLatin1String(" off")));
            }
        }
    }

    void theLineIsWorseAtOnceAndBetterWithSomeSlack()
    {
        TBench bench;
        QCOMPARE(bench.LinesAt(0), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.LinesAt(10), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.LinesAt(11), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(9), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(8), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.LinesAt(9), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.LinesAt(20), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(21), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.LinesAt(19), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.LinesAt(18), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(1200), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.LinesAt(0), int(MENU_CONTROL_GOOD));
    }

    void withoutAFixOrLinesNothingIsSaidOfThem_data()
    {
        QTest::addColumn<bool>("hasFix");
        QTest::addColumn<bool>("hasLines");
        QTest::newRow("no fix") << false << true;
        QTest::newRow("no lines") << true << false;
    }

    void withoutAFixOrLinesNothingIsSaidOfThem()
    {
        QFETCH(bool, hasFix);
        QFETCH(bool, hasLines);
        TBench bench;
        QCOMPARE(bench.LinesAt(50), int(MENU_CONTROL_BAD));
        bench.state.hasFix = hasFix;
        bench.state.hasLines = hasLines;
        QCOMPARE(bench.LinesAt(50), int(MENU_CONTROL_PLAIN));
        QCOMPARE(bench.IsEnabled(SHIFT_LEFT), hasLines);
        QCOMPARE(bench.IsEnabled(SHIFT_RIGHT), hasLines);
    }

    void linesThatStandInTheCentreNeedNoWayBack()
    {
        TBench bench;
        bench.judge.Take(bench.state);
        QVERIFY(!bench.IsEnabled(CENTRE));
        bench.state.areLinesShifted = true;
        bench.judge.Take(bench.state);
        QVERIFY(bench.IsEnabled(CENTRE));
    }

    void theZoomEndsAtItsLevels()
    {
        TBench bench;
        for (int level = 0; level < TMapView::ZoomLevelCount; ++level)
        {
            bench.state.zoomLevel = level;
            bench.judge.Take(bench.state);
            QCOMPARE(bench.IsEnabled(ZOOM_IN), level < TMapView::ZoomLevelCount - 1);
            QCOMPARE(bench.IsEnabled(ZOOM_OUT), level > 0);
            QCOMPARE(bench.Control(FAR_VIEW), int(level == 0 ? MENU_CONTROL_ON : MENU_CONTROL_PLAIN));
        }
    }
};

COMMONUI_TEST(TGuidanceJudgeTest)
#include "TGuidanceJudgeTest.moc"
