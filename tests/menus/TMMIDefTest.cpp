#include "TMMIDef.h"
#include "TestCase.h"

class TMMIDefTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutStepsThePathIsEmpty();
    void thePathJoinsTheFirstOrTheSecondNames();
    void noSeparatorStandsAtTheEnds();
    void emptyNamesKeepTheirPlaceInThePath();
    void aSumIsTheStepsOfBothInTheirOrder();
    void aSumHasAFlagOnlyIfBothHadOne_data();
    void aSumHasAFlagOnlyIfBothHadOne();
};

namespace
{
TMMIDef Step(char const* first, char const* second, bool flag = true)
{
    return TMMIDef(QLatin1String(first), QLatin1String(second), flag);
}
} // namespace

void TMMIDefTest::withoutStepsThePathIsEmpty()
{
    TMMIDef const none;
    QCOMPARE(none.ToPath(true, QLatin1Char('/')), QString());
    QCOMPARE(none.ToPath(false, QLatin1Char('/')), QString());
    QVERIFY(!none.GetFlag());
    QVERIFY(none.GetData().isEmpty());
}

void TMMIDefTest::thePathJoinsTheFirstOrTheSecondNames()
{
    TMMIDef const path = Step("Setup", "s") + Step("Sprayer", "p") + Step("Tank", "t");
    QCOMPARE(path.ToPath(true, QLatin1Char('/')), QStringLiteral("Setup/Sprayer/Tank"));
    QCOMPARE(path.ToPath(false, QLatin1Char('.')), QStringLiteral("s.p.t"));
}

void TMMIDefTest::noSeparatorStandsAtTheEnds()
{
    QCOMPARE(Step("Setup", "s").ToPath(true, QLatin1Char('/')), QStringLiteral("Setup"));
    QCOMPARE((TMMIDef() + Step("Setup", "s") + TMMIDef()).ToPath(true, QLatin1Char('/')),
             QStringLiteral("Setup"));
}

void TMMIDefTest::emptyNamesKeepTheirPlaceInThePath()
{
    TMMIDef const path = Step("", "a") + Step("b", "") + Step("", "c");
    QCOMPARE(path.ToPath(true, QLatin1Char('/')), QStringLiteral("/b/"));
    QCOMPARE(path.ToPath(false, QLatin1Char('/')), QStringLiteral("a//c"));
}

void TMMIDefTest::aSumIsTheStepsOfBothInTheirOrder()
{
    TMMIDef const left = Step("a", "1") + Step("b", "2");
    TMMIDef const sum = left + Step("c", "3");
    QCOMPARE(sum.GetData().size(), 3);
    QCOMPARE(sum.GetData().at(0).first, QStringLiteral("a"));
    QCOMPARE(sum.GetData().at(2).second, QStringLiteral("3"));
    QCOMPARE(left.GetData().size(), 2);
}

void TMMIDefTest::aSumHasAFlagOnlyIfBothHadOne_data()
{
    QTest::addColumn<bool>("left");
    QTest::addColumn<bool>("right");
    QTest::addColumn<bool>("sum");
    QTest::newRow("both") << true << true << true;
    QTest::newRow("left") << true << false << false;
    QTest::newRow("right") << false << true << false;
    QTest::newRow("none") << false << false << false;
}

void TMMIDefTest::aSumHasAFlagOnlyIfBothHadOne()
{
    QFETCH(bool, left);
    QFETCH(bool, right);
    QTEST((Step("a", "b", left) + Step("c", "d", right)).GetFlag(), "sum");
}

COMMONUI_TEST(TMMIDefTest)
#include "TMMIDefTest.moc"
