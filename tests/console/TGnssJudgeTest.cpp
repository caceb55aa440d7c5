#include "TGnssJudge.h"

#include "FixRows.h"
#include "MenuBench.h"
#include "TestCase.h"

#include <limits>

Q_DECLARE_METATYPE(EFixQuality)

namespace
{
struct TBench : TMenuBench
{
    TBench()
    {
        TGnssElements elements;
        elements.position = Add();
        elements.quality = Add();
        elements.satellites = Add();
        judge.SetElements(elements);
    }
    void Take(int quality, int times = 1, int satellites = 12)
    {
        for (int i = 0; i < times; ++i)
            judge.Take({quality, satellites});
    }
    int Position() const { return Control(0); }
    int Quality() const { return Control(1); }

    TGnssJudge judge;
};
} // namespace

class TGnssJudgeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachQualityHasItsColourAndItsName_data()
    {
        QTest::addColumn<EFixQuality>("quality");
        QTest::addColumn<int>("control");
        QTest::addColumn<QString>("name");
        QTest::newRow("none") << FIX_NONE << int(MENU_CONTROL_BAD) << "no fix";
        QTest::newRow("estimated") << FIX_ESTIMATED << int(MENU_CONTROL_BAD) << "estimated";
        QTest::newRow("plain") << FIX_GNSS << int(MENU_CONTROL_BAD) << "GNSS";
        QTest::newRow("differential") << FIX_DIFFERENTIAL << int(MENU_CONTROL_FAIR) << "DGNSS";
        QTest::newRow("float") << FIX_RTK_FLOAT << int(MENU_CONTROL_FAIR) << "RTK float";
        QTest::newRow("fixed") << FIX_RTK << int(MENU_CONTROL_GOOD) << "RTK fixed";
    }

    void eachQualityHasItsColourAndItsName()
    {
        QFETCH(EFixQuality, quality);
        TBench bench;
        bench.Take(quality);
        QTEST(bench.Position(), "control");
        QTEST(bench.Quality(), "control");
        QTEST(bench.Name(1), "name");
        QCOMPARE(bench.Name(0), QStringLiteral("Position: ") + QualityText(quality));
    }

    void strayFixesChangeNothing()
    {
        TBench bench;
        bench.Take(FIX_RTK, TGnssJudge::Window);
        bench.Take(FIX_GNSS, TGnssJudge::StrayPerTen);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_GOOD));
        bench.Take(FIX_RTK_FLOAT);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_FAIR));
        bench.Take(FIX_GNSS);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_BAD));
    }

    void aReceiverThatRecoversIsTrustedAgain()
    {
        TBench bench;
        bench.Take(FIX_GNSS, TGnssJudge::Window);
        bench.Take(FIX_RTK, TGnssJudge::Window - TGnssJudge::StrayPerTen - 1);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_BAD));
        bench.Take(FIX_RTK);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_GOOD));
    }

    void aLossIsToldAtOnceAndForgetsWhatWasBefore()
    {
        TBench bench;
        bench.Take(FIX_RTK, TGnssJudge::Window);
        bench.Take(FIX_NONE);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.Name(1), QStringLiteral("no fix"));
        QCOMPARE(bench.Name(2), QStringLiteral("Satellites: 0"));
        bench.Take(FIX_DIFFERENTIAL);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_FAIR));
    }

    void whatIsNoQualityCountsAsNone_data()
    {
        QTest::addColumn<int>("quality");
        QTest::newRow("negative") << -7;
        QTest::newRow("one past the best") << int(FIX_RTK) + 1;
        QTest::newRow("far off") << std::numeric_limits<int>::max();
    }

    void whatIsNoQualityCountsAsNone()
    {
        QFETCH(int, quality);
        TBench bench;
        bench.Take(FIX_RTK);
        bench.Take(quality);
        QCOMPARE(bench.Quality(), int(MENU_CONTROL_BAD));
        QCOMPARE(bench.Name(1), QStringLiteral("no fix"));
    }

    void satellitesAreCounted()
    {
        TBench bench;
        bench.Take(FIX_RTK, 1, 14);
        QCOMPARE(bench.Name(2), QStringLiteral("Satellites: 14"));
        bench.Take(FIX_RTK, 1, -3);
        QCOMPARE(bench.Name(2), QStringLiteral("Satellites: 0"));
    }
};

COMMONUI_TEST(TGnssJudgeTest)
#include "TGnssJudgeTest.moc"
