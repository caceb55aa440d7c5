#include "TGuidanceJudge.h"

#include "MenuBench.h"
#include "TestCase.h"
#include "TLightBar.h"
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

QColor ColourOf(int control)
{
    if (control == MENU_CONTROL_GOOD)
        return {90, 220, 100};
    return control == MENU_CONTROL_FAIR ? QColor(245, 205, 60) : QColor(240, 70, 60);
}

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

// Of the lights at the left, which are lit from the middle on.
QColor OutermostLight(TLightBar& bar)
{
    QImage const picture = bar.grab().toImage();
    for (int x = 0; x < picture.width() / 2; ++x)
    {
        QColor const colour = picture.pixelColor(x, picture.height() / 2);
        for (int const control : {MENU_CONTROL_GOOD, MENU_CONTROL_FAIR, MENU_CONTROL_BAD})
        {
            if (colour == ColourOf(control))
                return colour;
        }
    }
    return ColourOf(MENU_CONTROL_GOOD); // in the middle
}
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
        QCOMPARE(bench.LinesAt(12), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.LinesAt(13), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(11), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(10), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.LinesAt(11), int(MENU_CONTROL_GOOD));
        QCOMPARE(bench.LinesAt(22), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(23), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.LinesAt(21), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.LinesAt(20), int(MENU_CONTROL_FAIR));
        QCOMPARE(bench.LinesAt(1200), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.LinesAt(0), int(MENU_CONTROL_GOOD));
    }

    void theLinesHaveTheColourOfTheLightBar_data()
    {
        QTest::addColumn<int>("step");
        for (int step = 0; step < LightBarScale::StepCount; ++step)
            QTest::addRow("%d cm", LightBarScale::Centimetres(step)) << step;
    }

    void theLinesHaveTheColourOfTheLightBar()
    {
        QFETCH(int, step);
        TLightBar bar(nullptr);
        bar.resize(460, 44);
        bar.SetStep(step);
        for (int centimetres = 1; centimetres < 80; ++centimetres)
        {
            bar.SetOffset(-centimetres / 100.0, true);
            TBench bench;
            bench.state.lightBarStep = step;
            QColor const outermost = OutermostLight(bar);
            int const expected = bench.LinesAt(centimetres);
            QVERIFY2(outermost == ColourOf(expected), qPrintable(QString::number(centimetres)));
        }
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
    }

    void linesAtTheirEndGoOnlyBack()
    {
        TBench bench;
        for (bool const isAtTheLeft : {true, false})
        {
            bench.state.canShiftLeft = !isAtTheLeft;
            bench.state.canShiftRight = isAtTheLeft;
            bench.judge.Take(bench.state);
            QCOMPARE(bench.IsEnabled(SHIFT_LEFT), !isAtTheLeft);
            QCOMPARE(bench.IsEnabled(SHIFT_RIGHT), isAtTheLeft);
        }
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
