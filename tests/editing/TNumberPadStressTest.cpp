#include "KeySteps.h"
#include "TestCase.h"
#include "TNumberPadPlayer.h"

#include <QDate>

/// Random keys into each pad. The count is taken from COMMONUI_KEY_STEPS, if it is set.
class TNumberPadStressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noKeysBringAPadOutOfOrder_data();
    void noKeysBringAPadOutOfOrder();
};

void TNumberPadStressTest::noKeysBringAPadOutOfOrder_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::newRow("number") << int(NUMBER_PAD_DECIMAL) << -250.0 << 1234.5;
    QTest::newRow("time") << int(NUMBER_PAD_TIME) << 6.0 << 18.5;
    QTest::newRow("date") << int(NUMBER_PAD_DATE) << double(QDate(2020, 1, 1).toJulianDay())
                          << double(QDate(2030, 12, 31).toJulianDay());
    QTest::newRow("address") << int(NUMBER_PAD_IP_ADDRESS) << 0.0 << 0.0;
}

void TNumberPadStressTest::noKeysBringAPadOutOfOrder()
{
    QFETCH(int, type);
    QFETCH(double, low);
    QFETCH(double, high);
    TNumberPadStage stage{ENumberPadType(type)};
    TNumberPadPlayer player(stage, low, high, quint32(20250623 + type));
    int const steps = KeySteps::Wanted();
    QString const fault = player.Play(steps);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
    // Random keys seldom make an address.
    if (steps >= KeySteps::Usual)
    {
        QVERIFY(type == NUMBER_PAD_IP_ADDRESS || player.Accepted() > 0);
        QVERIFY(player.Refused() > 0);
    }
}

COMMONUI_TEST(TNumberPadStressTest)
#include "TNumberPadStressTest.moc"
