#include "TestCase.h"
#include "TNumberPadStage.h"

#include <QDate>

namespace
{
using TStage = TNumberPadStage;

double DayOf(int year, int month, int day)
{
    return double(QDate(year, month, day).toJulianDay());
}

// The message when an entry was refused, else the value.
QString Outcome(TStage& stage, QString const& keys)
{
    QString const message = stage.Enter(keys);
    if (!message.isEmpty())
        return message;
    return stage.values.isEmpty() ? QStringLiteral("nothing") : QString::number(stage.values.last());
}

QString DateOutcome(TStage& stage, QString const& keys)
{
    QString const message = stage.Enter(keys);
    if (!message.isEmpty())
        return message;
    return QDate::fromJulianDay(qint64(stage.LastValue())).toString(Qt::ISODate);
}
} // namespace

/// The entry of times, dates and addresses.
class TNumberPadTypesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timesAreShown_data();
    void timesAreShown();
    void aTimeOf7_999Shows7_60();
    void theKeyForAmAndPmIsThereUnderThe12HourClock();
    void theColonIsDisabledWhileTheEntryHasOne();
    void aColonAloneGetsAZero();
    void amAndPmTakeTurns();
    void theSuffixOfATimeStandsBeforeAmAndPm();
    void times_data();
    void times();
    void theEntry12_30WithAmYieldsHalfAnHourAndWithPm12AndAHalf();
    void theEntry12_99GivesTheMinutesMessageBeforeAnythingElse();
    void theEntry13_00OnA12HourClockGivesTheHourMessage();
    void on12HourClocks0_30IsAcceptedAsHalfAnHour();
    void aTimeOutOfItsBoundsIsRefused();
    void anHourBelowTheMinimumIsRefusedBeforeItIsOneOfTheAfternoon();
    void aHalfDayOutOfItsBoundsIsRefused_data();
    void aHalfDayOutOfItsBoundsIsRefused();
    void boundsOfATimeWithoutRoom();
    void theValueOfATimeIsWhatIsTyped();
    void anEmptyTimeIsTheEmptyValue();
    void afterAMessageTheTimeStartsAnew();
    void aNewClockShowsTheTimeAnew();
    void aTimeShownAnewIsReplacedByTheNextKey();
    void aTimeThatIsRefusedLeavesTheValue();
    void boundsWithoutADayAreNone();

    void datesAreShownInTheFormatOfTheOperator_data();
    void datesAreShownInTheFormatOfTheOperator();
    void datesAreReadInTheFormatOfTheOperator_data();
    void datesAreReadInTheFormatOfTheOperator();
    void aDateFormatThatDoesNotExistGivesTheDayMessage();
    void dates_data();
    void dates();
    void aDayThatTheMonthDoesNotHave_data();
    void aDayThatTheMonthDoesNotHave();
    void theSlashReplacesTheFirstEntryToo();
    void digitsAndSlashStayAliveOnADate();
    void aDateOutOfItsBoundsIsRefused();
    void aDateThatIsNoneLeavesTheValue();
    void theValueOfADateIsWhatIsTyped();
    void afterAMessageTheDateStartsAnew();
    void aNewDateFormatShowsTheDateAnew();
    void anEmptyDateIsTheEmptyValue();

    void addresses_data();
    void addresses();
    void theEntry1_2_3OnOkAsksForFourNumbers();
    void theEntry1__2_3SaysEachNumberMustBeBetween0And255();
    void theDotChecksTheNumberBeforeIt();
    void theDotRefusesAFifthNumber();
    void theDotRefusesAnAddressOfTooManyNumbers();
    void afterAMessageTheAddressStartsAnew();
    void anAddressIsNormalised();
    void anAddressThatWasSetIsShownWithoutASignal();
};

void TNumberPadTypesTest::timesAreShown_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("at24");
    QTest::addColumn<QString>("at12");
    QTest::newRow("midnight") << 0.0 << "0:00"
                              << "12:00 am";
    QTest::newRow("half past midnight") << 0.5 << "0:30"
                                        << "12:30 am";
    QTest::newRow("morning") << 7.5 << "7:30"
                             << "7:30 am";
    QTest::newRow("late morning") << 11.75 << "11:45"
                                  << "11:45 am";
    QTest::newRow("noon") << 12.0 << "12:00"
                          << "12:00 pm";
    QTest::newRow("afternoon") << 13.1 << "13:06"
                               << "1:06 pm";
    QTest::newRow("evening") << 23.0 + 59.0 / 60.0 << "23:59"
                             << "11:59 pm";
    QTest::newRow("half a minute goes up") << 7.0 + 0.5 / 60.0 << "7:01"
                                           << "7:01 am";
    QTest::newRow("not a number") << qQNaN() << "0:00"
                                  << "12:00 am";
    QTest::newRow("infinite") << qInf() << "0:00"
                              << "12:00 am";
}

void TNumberPadTypesTest::timesAreShown()
{
    QFETCH(double, value);
    QFETCH(QString, at24);
    QFETCH(QString, at12);
    TStage stage(NUMBER_PAD_TIME);
    stage.Show(value);
    QCOMPARE(stage.Shown(), at24);
    QCOMPARE(stage.texts.last(), at24);
    stage.UseClock(false);
    stage.Show(value);
    QCOMPARE(stage.Shown(), at12);
}

void TNumberPadTypesTest::aTimeOf7_999Shows7_60()
{
    TStage stage(NUMBER_PAD_TIME);
    stage.Show(7.999);
    QCOMPARE(stage.Shown(), QStringLiteral("7:60"));
}

void TNumberPadTypesTest::theKeyForAmAndPmIsThereUnderThe12HourClock()
{
    TStage stage(NUMBER_PAD_TIME);
    QVERIFY(!stage.Key(TStage::Extra)->isVisible());
    QSize const size = stage.pad->size();
    stage.UseClock(false);
    stage.Show();
    QVERIFY(stage.Key(TStage::Extra)->isVisible());
    QCOMPARE(stage.pad->size(), size);
}

void TNumberPadTypesTest::theColonIsDisabledWhileTheEntryHasOne()
{
    TStage stage(NUMBER_PAD_TIME);
    stage.Show(7.5);
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("8"));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    QCOMPARE(stage.Shown(), QStringLiteral("8"));
    stage.Type(QStringLiteral("."));
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
    stage.pad->OnColon();
    QCOMPARE(stage.Shown(), QStringLiteral("8:"));
    stage.Type(QStringLiteral("<"));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    QVERIFY(stage.AllDigitsAre(true));
}

void TNumberPadTypesTest::aColonAloneGetsAZero()
{
    TStage stage(NUMBER_PAD_TIME);
    stage.Show(7.5);
    stage.Type(QStringLiteral("<<<<."));
    QCOMPARE(stage.Shown(), QStringLiteral("0:"));
}

void TNumberPadTypesTest::amAndPmTakeTurns()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.Show(7.5);
    stage.Type(QStringLiteral("-"));
    QCOMPARE(stage.Shown(), QStringLiteral("7:30 pm"));
    stage.Type(QStringLiteral("-"));
    QCOMPARE(stage.Shown(), QStringLiteral("7:30 am"));
}

void TNumberPadTypesTest::theSuffixOfATimeStandsBeforeAmAndPm()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.pad->SetSuffix(QStringLiteral("h"));
    stage.Show(7.5);
    QCOMPARE(stage.Shown(), QStringLiteral("7:30\u00A0h am"));
}

void TNumberPadTypesTest::times_data()
{
    QTest::addColumn<bool>("is24HourClock");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("outcome");
    QString const minutes = QStringLiteral("Enter minutes between 0 and 59\n");
    QString const to12 = QStringLiteral("Enter hour value between 0 and 12\n");
    QString const to23 = QStringLiteral("Enter hour value between 0 and 23\n");
    QTest::newRow("24: a time") << true << 0.0 << "7.30"
                                << "7.5";
    QTest::newRow("24: the last") << true << 0.0 << "23.45"
                                  << "23.75";
    QTest::newRow("24: nothing typed") << true << 7.5 << ""
                                       << "7.5";
    QTest::newRow("24: hours alone") << true << 0.0 << "7"
                                     << "7";
    QTest::newRow("24: no minutes") << true << 0.0 << "7."
                                    << "7";
    QTest::newRow("24: one digit") << true << 0.0 << "7.6"
                                   << "7.1";
    QTest::newRow("24: minutes of 60") << true << 0.0 << "7.60" << minutes;
    QTest::newRow("24: three digits") << true << 0.0 << "7.030" << minutes;
    QTest::newRow("24: hours of 24") << true << 0.0 << "24.00" << to23;
    QTest::newRow("24: hours without end") << true << 0.0 << "99999999999.00" << to23;
    QTest::newRow("24: hours alone, out of bounds") << true << 0.0 << "25" << to23;
    QTest::newRow("24: hours alone, the bound") << true << 0.0 << "24"
                                                << "24";
    QTest::newRow("24: both wrong") << true << 0.0 << "25.99" << minutes;
    QTest::newRow("12: morning") << false << 0.0 << "7.30"
                                 << "7.5";
    QTest::newRow("12: afternoon") << false << 13.0 << "7.30"
                                   << "19.5";
    QTest::newRow("12: nothing typed") << false << 19.5 << ""
                                       << "19.5";
    QTest::newRow("12: the last") << false << 13.0 << "12.59"
                                  << "12.9833";
    QTest::newRow("12: minutes of 60") << false << 0.0 << "7.60" << minutes;
    QTest::newRow("12: hours of 13") << false << 0.0 << "13.00" << to12;
    QTest::newRow("12: hours alone") << false << 13.0 << "5"
                                     << "17";
    QTest::newRow("12: noon alone") << false << 13.0 << "12"
                                    << "12";
    QTest::newRow("12: midnight alone") << false << 0.0 << "12"
                                        << "0";
    QTest::newRow("12: hours alone, 13") << false << 0.0 << "13" << to12;
    QTest::newRow("12: hours without end") << false << 0.0 << QString(400, QLatin1Char('9')) << to12;
    QTest::newRow("12: both wrong") << false << 0.0 << "13.99" << minutes;
}

void TNumberPadTypesTest::times()
{
    QFETCH(bool, is24HourClock);
    QFETCH(double, value);
    QFETCH(QString, keys);
    QFETCH(QString, outcome);
    TStage stage(NUMBER_PAD_TIME, is24HourClock);
    stage.pad->SetBounds(0, 24);
    stage.Show(value);
    QCOMPARE(Outcome(stage, keys), outcome);
}

void TNumberPadTypesTest::theEntry12_30WithAmYieldsHalfAnHourAndWithPm12AndAHalf()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.Show(1.0);
    QCOMPARE(stage.Enter(QStringLiteral("12.30")), QString());
    QCOMPARE(stage.values, QVector<double>{0.5});
    QCOMPARE(stage.Enter(QStringLiteral("-")), QString());
    QCOMPARE(stage.values, (QVector<double>{0.5, 12.5}));
}

void TNumberPadTypesTest::theEntry12_99GivesTheMinutesMessageBeforeAnythingElse()
{
    for (bool const is24HourClock : {false, true})
    {
        TStage stage(NUMBER_PAD_TIME, is24HourClock);
        stage.pad->SetBounds(20, 21);
        QCOMPARE(stage.Enter(QStringLiteral("12.99")), QStringLiteral("Enter minutes between 0 and 59\n"));
    }
}

void TNumberPadTypesTest::theEntry13_00OnA12HourClockGivesTheHourMessage()
{
    TStage stage(NUMBER_PAD_TIME, false);
    QCOMPARE(stage.Enter(QStringLiteral("13.00")), QStringLiteral("Enter hour value between 0 and 12\n"));
    QVERIFY(stage.values.isEmpty());
}

void TNumberPadTypesTest::on12HourClocks0_30IsAcceptedAsHalfAnHour()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.Show(1.0);
    QCOMPARE(stage.Enter(QStringLiteral("0.30")), QString());
    QCOMPARE(stage.values, QVector<double>{0.5});
}

void TNumberPadTypesTest::aTimeOutOfItsBoundsIsRefused()
{
    TStage stage(NUMBER_PAD_TIME);
    stage.pad->SetBounds(18, 6);
    QCOMPARE(stage.Enter(QStringLiteral("5.59")), QStringLiteral("Enter hour value between 0 and 23\n"));
    QCOMPARE(stage.Enter(QStringLiteral("18.01")), QStringLiteral("Enter hour value between 0 and 23\n"));
    QCOMPARE(stage.Enter(QStringLiteral("6.00")), QString());
    QCOMPARE(stage.values, QVector<double>{6});
    QCOMPARE(stage.Enter(QStringLiteral("<<<<5")), QStringLiteral("Enter hour value between 0 and 23\n"));
    QCOMPARE(stage.Enter(QStringLiteral("18")), QString());
    stage.UseClock(false);
    stage.Show(7.0);
    QCOMPARE(stage.Enter(QStringLiteral("5.59")), QStringLiteral("Enter hour value between 0 and 12\n"));
    QCOMPARE(stage.values, (QVector<double>{6, 18}));
}

void TNumberPadTypesTest::anHourBelowTheMinimumIsRefusedBeforeItIsOneOfTheAfternoon()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.pad->SetBounds(13, 17);
    stage.Show(14.0);
    QCOMPARE(stage.Enter(QStringLiteral("1.30")), QStringLiteral("Enter hour value between 0 and 12\n"));
    QVERIFY(stage.values.isEmpty());
}

void TNumberPadTypesTest::aHalfDayOutOfItsBoundsIsRefused_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("outcome");
    QTest::newRow("too late") << 1.0 << 17.0 << 13.0 << "6.00"
                              << "Enter a value between 1:00 am and 5:00 pm";
    QTest::newRow("the last") << 1.0 << 17.0 << 13.0 << "5.00"
                              << "17";
    QTest::newRow("the first") << 1.0 << 17.0 << 7.0 << "1.00"
                               << "1";
    QTest::newRow("after midnight") << 1.0 << 17.0 << 7.0 << "12.30"
                                    << "Enter a value between 1:00 am and 5:00 pm";
    QTest::newRow("wrong way round") << 17.0 << 1.0 << 13.0 << "6.00"
                                     << "Enter a value between 1:00 am and 5:00 pm";
    QTest::newRow("bounds beyond the day") << 1.0 << 1e300 << 7.0 << "12.30"
                                           << "Enter a value between 1:00 am and 11:59 pm";
}

void TNumberPadTypesTest::aHalfDayOutOfItsBoundsIsRefused()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(double, value);
    QFETCH(QString, keys);
    QFETCH(QString, outcome);
    TStage stage(NUMBER_PAD_TIME, false);
    stage.pad->SetBounds(low, high);
    stage.Show(value);
    QCOMPARE(Outcome(stage, keys), outcome);
}

void TNumberPadTypesTest::boundsOfATimeWithoutRoom()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.pad->SetBounds(0, 0);
    stage.Show(13.0);
    QCOMPARE(stage.Enter(QStringLiteral("5.30")), QString());
    QCOMPARE(stage.values, QVector<double>{17.5});
    stage.UseClock(true);
    stage.Show(13.0);
    QCOMPARE(stage.Enter(QStringLiteral("5.30")), QStringLiteral("Enter hour value between 0 and 23\n"));
}

void TNumberPadTypesTest::theValueOfATimeIsWhatIsTyped()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.pad->SetBounds(0, 10);
    stage.Show(13.5);
    stage.Type(QStringLiteral("7.30"));
    // In bounds or not.
    QCOMPARE(stage.pad->GetValueDbl(), 19.5);
    stage.Type(QStringLiteral("0"));
    // Minutes of three digits are none.
    QCOMPARE(stage.pad->GetValueDbl(), 19.5);
    QVERIFY(stage.TakeMessage().isEmpty());
    stage.Type(QStringLiteral("<<<<<9"));
    QCOMPARE(stage.pad->GetValueDbl(), 21.0);
}

void TNumberPadTypesTest::anEmptyTimeIsTheEmptyValue()
{
    TStage stage(NUMBER_PAD_TIME);
    stage.pad->AllowEmpty(true, -1);
    stage.Show(7.5);
    QCOMPARE(stage.Enter(QStringLiteral("<<<<")), QString());
    QCOMPARE(stage.values, QVector<double>{-1});
}

void TNumberPadTypesTest::afterAMessageTheTimeStartsAnew()
{
    TStage stage(NUMBER_PAD_TIME);
    QVERIFY(!stage.Enter(QStringLiteral("12.99")).isEmpty());
    QCOMPARE(stage.Enter(QStringLiteral("6.30")), QString());
    QCOMPARE(stage.values, QVector<double>{6.5});
}

void TNumberPadTypesTest::aNewClockShowsTheTimeAnew()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.Show(13.5);
    stage.Type(QStringLiteral("8"));
    stage.UseClock(true);
    QCOMPARE(stage.Shown(), QStringLiteral("13:30"));
    QVERIFY(!stage.Key(TStage::Extra)->isVisible());
    stage.UseClock(false);
    QCOMPARE(stage.Shown(), QStringLiteral("1:30 pm"));
    QVERIFY(stage.Key(TStage::Extra)->isVisible());
    stage.pad->HideWindow();
    stage.UseClock(true);
    QCOMPARE(stage.Shown(), QStringLiteral("1:30 pm"));
}

void TNumberPadTypesTest::aTimeShownAnewIsReplacedByTheNextKey()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.Show(13.5);
    stage.Type(QStringLiteral("8"));
    stage.UseClock(true);
    stage.Type(QStringLiteral("5"));
    QCOMPARE(stage.Shown(), QStringLiteral("5"));
}

void TNumberPadTypesTest::aTimeThatIsRefusedLeavesTheValue()
{
    TStage stage(NUMBER_PAD_TIME, false);
    stage.pad->SetBounds(13, 20);
    stage.Show(14);
    QCOMPARE(stage.Shown(), QStringLiteral("2:00 pm"));
    stage.Type(QStringLiteral("2"));
    stage.pad->GetValueDbl();
    stage.UseClock(true);
    QCOMPARE(stage.Shown(), QStringLiteral("14:00"));
}

void TNumberPadTypesTest::boundsWithoutADayAreNone()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(4);
    stage.pad->SetBounds(0, 100);
    stage.Show(DayOf(2024, 4, 9));
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{DayOf(2024, 4, 9)});
}

void TNumberPadTypesTest::datesAreShownInTheFormatOfTheOperator_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "09/04/2024";
    QTest::newRow("1") << 1 << "09/2024/04";
    QTest::newRow("2") << 2 << "04/2024/09";
    QTest::newRow("3") << 3 << "04/09/2024";
    QTest::newRow("4") << 4 << "2024/04/09";
    QTest::newRow("5") << 5 << "2024/09/04";
}

void TNumberPadTypesTest::datesAreShownInTheFormatOfTheOperator()
{
    QFETCH(int, format);
    QFETCH(QString, text);
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(format);
    stage.Show(DayOf(2024, 4, 9));
    QCOMPARE(stage.Shown(), text);
    QCOMPARE(stage.texts.last(), text);
    // And what is shown is what is read.
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{DayOf(2024, 4, 9)});
}

void TNumberPadTypesTest::datesAreReadInTheFormatOfTheOperator_data()
{
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("keys");
    QTest::newRow("0") << 0 << "9.4.2024";
    QTest::newRow("1") << 1 << "9.2024.4";
    QTest::newRow("2") << 2 << "4.2024.9";
    QTest::newRow("3") << 3 << "4.9.2024";
    QTest::newRow("4") << 4 << "2024.4.9";
    QTest::newRow("5") << 5 << "2024.9.4";
}

void TNumberPadTypesTest::datesAreReadInTheFormatOfTheOperator()
{
    QFETCH(int, format);
    QFETCH(QString, keys);
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(format);
    stage.Show(DayOf(2030, 1, 1));
    QCOMPARE(DateOutcome(stage, keys), QStringLiteral("2024-04-09"));
}

void TNumberPadTypesTest::aDateFormatThatDoesNotExistGivesTheDayMessage()
{
    for (int const format : {6, 100, -1})
    {
        TStage stage(NUMBER_PAD_DATE);
        stage.UseDateFormat(format);
        QCOMPARE(stage.Enter(QStringLiteral("9.4.2024")), QStringLiteral("Enter Day between 1 and 31.\n"));
    }
}

void TNumberPadTypesTest::dates_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("outcome");
    QString const day = QStringLiteral("Enter Day between 1 and 31.\n");
    QString const month = QStringLiteral("Enter Month between 1 and 12.\n");
    QString const year = QStringLiteral("Enter Year between 2000 and 2100.\n");
    QTest::newRow("a date") << "9.4.2024"
                            << "2024-04-09";
    QTest::newRow("the first") << "1.1.2000"
                               << "2000-01-01";
    QTest::newRow("the last") << "31.12.2100"
                              << "2100-12-31";
    QTest::newRow("leap day") << "29.2.2024"
                              << "2024-02-29";
    QTest::newRow("day 0") << "0.4.2024" << day;
    QTest::newRow("day 32") << "32.4.2024" << day;
    QTest::newRow("no day") << ".4.2024" << day;
    QTest::newRow("huge day") << "99999999999.4.2024" << day;
    QTest::newRow("month 0") << "9.0.2024" << month;
    QTest::newRow("month 13") << "9.13.2024" << month;
    QTest::newRow("no month") << "9..2024" << month;
    QTest::newRow("year 1999") << "9.4.1999" << year;
    QTest::newRow("year 2101") << "9.4.2101" << year;
    QTest::newRow("no year") << "9.4" << year;
    QTest::newRow("all wrong") << "32.13.1999" << day;
    QTest::newRow("month and year") << "9.13.1999" << month;
    QTest::newRow("Julian day") << "2460410"
                                << "2024-04-09";
    QTest::newRow("Julian day, the first") << "2451545"
                                           << "2000-01-01";
    QTest::newRow("Julian day too early") << "2451544" << year;
    QTest::newRow("Julian day without end") << QString(400, QLatin1Char('9')) << year;
}

void TNumberPadTypesTest::dates()
{
    QFETCH(QString, keys);
    QFETCH(QString, outcome);
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(0);
    stage.Show(DayOf(2030, 1, 1));
    // A slash is no first key: it replaces the date that is shown.
    QCOMPARE(DateOutcome(stage, keys), outcome);
}

void TNumberPadTypesTest::aDayThatTheMonthDoesNotHave_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("days");
    QTest::newRow("31/04/2024") << "31.04.2024" << 30;
    QTest::newRow("31/06/2024") << "31.06.2024" << 30;
    QTest::newRow("29/02/2023") << "29.02.2023" << 28;
    QTest::newRow("31/02/2023") << "31.02.2023" << 28;
    QTest::newRow("30/02/2024") << "30.02.2024" << 29;
    QTest::newRow("29/02/2100") << "29.02.2100" << 28;
}

void TNumberPadTypesTest::aDayThatTheMonthDoesNotHave()
{
    QFETCH(QString, keys);
    QFETCH(int, days);
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(0);
    QCOMPARE(stage.Enter(keys), QStringLiteral("Month has only %1 days.\n").arg(days));
    QVERIFY(stage.values.isEmpty());
}

void TNumberPadTypesTest::theSlashReplacesTheFirstEntryToo()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.Show(DayOf(2030, 1, 1));
    stage.Type(QStringLiteral("."));
    QCOMPARE(stage.Shown(), QStringLiteral("/"));
}

void TNumberPadTypesTest::digitsAndSlashStayAliveOnADate()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.pad->SetNumberOfDecimalPlaces(0);
    stage.Show(DayOf(2030, 1, 1));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("9.4."));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    QVERIFY(stage.AllDigitsAre(true));
    QVERIFY(!stage.Key(TStage::Extra)->isEnabled());
}

void TNumberPadTypesTest::aDateOutOfItsBoundsIsRefused()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(0);
    stage.pad->SetBounds(DayOf(2024, 1, 1), DayOf(2024, 12, 31));
    QString const message = QStringLiteral("Enter a value between 01/01/2024 and 31/12/2024");
    QCOMPARE(DateOutcome(stage, QStringLiteral("31.12.2023")), message);
    QCOMPARE(DateOutcome(stage, QStringLiteral("1.1.2025")), message);
    QCOMPARE(DateOutcome(stage, QStringLiteral("9999999")), message);
    QCOMPARE(DateOutcome(stage, QStringLiteral("31.12.2024")), QStringLiteral("2024-12-31"));
    stage.pad->SetBounds(DayOf(2024, 1, 1), 1e300);
    stage.Show(DayOf(2030, 1, 1));
    QCOMPARE(DateOutcome(stage, QStringLiteral("31.12.2023")),
             QStringLiteral("Enter a value between 01/01/2024 and 31/12/2100"));
    // Bounds without room between them are none.
    stage.pad->SetBounds(0, 0);
    stage.Show(DayOf(2030, 1, 1));
    QCOMPARE(DateOutcome(stage, QStringLiteral("31.12.2023")), QStringLiteral("2023-12-31"));
}

void TNumberPadTypesTest::aDateThatIsNoneLeavesTheValue()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(0);
    stage.Show(DayOf(2030, 1, 1));
    for (char const* const keys : {"31.4.2024", "2.13.2024", "1.1.1999", "5"})
    {
        stage.pad->SetClearOnFirstEntry(true);
        stage.Type(QString::fromLatin1(keys));
        QCOMPARE(stage.pad->GetValueDbl(), DayOf(2030, 1, 1));
    }
    QVERIFY(stage.TakeMessage().isEmpty());
}

void TNumberPadTypesTest::theValueOfADateIsWhatIsTyped()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(0);
    stage.pad->SetBounds(DayOf(2024, 1, 1), DayOf(2024, 12, 31));
    stage.Show(DayOf(2030, 1, 1));
    stage.Type(QStringLiteral("9.4.2024"));
    QCOMPARE(stage.pad->GetValueDbl(), DayOf(2024, 4, 9));
    stage.Type(QStringLiteral("<5"));
    QCOMPARE(stage.pad->GetValueDbl(), DayOf(2025, 4, 9));
}

void TNumberPadTypesTest::afterAMessageTheDateStartsAnew()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(0);
    QVERIFY(!stage.Enter(QStringLiteral("31.4.2024")).isEmpty());
    QCOMPARE(stage.Shown(), QStringLiteral("31/4/2024"));
    QCOMPARE(DateOutcome(stage, QStringLiteral("9.4.2024")), QStringLiteral("2024-04-09"));
}

void TNumberPadTypesTest::aNewDateFormatShowsTheDateAnew()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.UseDateFormat(0);
    stage.Show(DayOf(2024, 4, 9));
    stage.UseDateFormat(4);
    QCOMPARE(stage.Shown(), QStringLiteral("2024/04/09"));
}

void TNumberPadTypesTest::anEmptyDateIsTheEmptyValue()
{
    TStage stage(NUMBER_PAD_DATE);
    stage.pad->AllowEmpty(true, 0);
    stage.Show(DayOf(2030, 1, 1));
    QCOMPARE(stage.Enter(QStringLiteral("<<<<<<<<<<")), QString());
    QCOMPARE(stage.values, QVector<double>{0});
}

void TNumberPadTypesTest::addresses_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("message");
    QString const four = QStringLiteral("Address must be four numbers separated by dots.");
    QString const range = QStringLiteral("Each number has to be between 0 and 255.");
    QTest::newRow("plain") << "192.168.0.1"
                           << "";
    QTest::newRow("lowest") << "0.0.0.0"
                            << "";
    QTest::newRow("highest") << "255.255.255.255"
                             << "";
    QTest::newRow("empty") << "" << four;
    QTest::newRow("three numbers") << "1.2.3" << four;
    QTest::newRow("five numbers") << "1.2.3.4.5" << four;
    QTest::newRow("only dots") << "..." << range;
    QTest::newRow("256") << "1.2.3.256" << range;
    QTest::newRow("negative") << "1.2.3.-1" << range;
    QTest::newRow("letters") << "a.b.c.d" << range;
    QTest::newRow("no number at the end") << "1.2.3." << range;
    QTest::newRow("a number without end")
        << QStringLiteral("1.2.3.") + QString(1000, QLatin1Char('9')) << range;
}

void TNumberPadTypesTest::addresses()
{
    QFETCH(QString, address);
    QFETCH(QString, message);
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.pad->SetIPAddress(address);
    QCOMPARE(stage.Enter(QString()), message);
    QCOMPARE(stage.addresses, message.isEmpty() ? QStringList{address} : QStringList());
    QVERIFY(stage.values.isEmpty());
}

void TNumberPadTypesTest::theEntry1_2_3OnOkAsksForFourNumbers()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    QCOMPARE(stage.Enter(QStringLiteral("1.2.3")),
             QStringLiteral("Address must be four numbers separated by dots."));
}

void TNumberPadTypesTest::theEntry1__2_3SaysEachNumberMustBeBetween0And255()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.pad->SetIPAddress(QStringLiteral("1..2.3"));
    QCOMPARE(stage.Enter(QString()), QStringLiteral("Each number has to be between 0 and 255."));
    // Typed, the second dot is already one too many.
    stage.Type(QStringLiteral("1.."));
    QCOMPARE(stage.TakeMessage(), QStringLiteral("Each number has to be between 0 and 255."));
    QVERIFY(stage.addresses.isEmpty());
}

void TNumberPadTypesTest::theDotChecksTheNumberBeforeIt()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.Type(QStringLiteral("256."));
    QCOMPARE(stage.TakeMessage(), QStringLiteral("Each number has to be between 0 and 255."));
    QCOMPARE(stage.Shown(), QStringLiteral("256"));
    stage.Type(QStringLiteral("255."));
    QCOMPARE(stage.TakeMessage(), QString());
    QCOMPARE(stage.Shown(), QStringLiteral("255."));
    stage.pad->SetIPAddress(QString());
    stage.Type(QStringLiteral("."));
    QCOMPARE(stage.TakeMessage(), QStringLiteral("Each number has to be between 0 and 255."));
}

void TNumberPadTypesTest::theDotRefusesAFifthNumber()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.Type(QStringLiteral("1.2.3.4."));
    QCOMPARE(stage.TakeMessage(), QStringLiteral("Address must be four numbers separated by dots."));
    QCOMPARE(stage.Shown(), QStringLiteral("1.2.3.4"));
}

void TNumberPadTypesTest::theDotRefusesAnAddressOfTooManyNumbers()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.pad->SetIPAddress(QStringLiteral("1.2.3.4.999"));
    stage.Type(QStringLiteral("."));
    QCOMPARE(stage.TakeMessage(), QStringLiteral("Address must be four numbers separated by dots."));
    QCOMPARE(stage.Shown(), QStringLiteral("1.2.3.4.999"));
}

void TNumberPadTypesTest::afterAMessageTheAddressStartsAnew()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    QVERIFY(!stage.Enter(QStringLiteral("1.2.3")).isEmpty());
    QCOMPARE(stage.Shown(), QStringLiteral("1.2.3"));
    QCOMPARE(stage.Enter(QStringLiteral("5.6.7.8")), QString());
    QCOMPARE(stage.addresses, QStringList{QStringLiteral("5.6.7.8")});
}

void TNumberPadTypesTest::anAddressIsNormalised()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.Type(QStringLiteral("010."));
    QCOMPARE(stage.Shown(), QStringLiteral("10."));
    QCOMPARE(stage.texts.last(), QStringLiteral("10."));
    QCOMPARE(stage.Enter(QStringLiteral("000.1.007")), QString());
    QCOMPARE(stage.addresses, QStringList{QStringLiteral("10.0.1.7")});
    QCOMPARE(stage.Shown(), QStringLiteral("10.0.1.7"));
}

void TNumberPadTypesTest::anAddressThatWasSetIsShownWithoutASignal()
{
    TStage stage(NUMBER_PAD_IP_ADDRESS);
    int const before = stage.texts.size();
    stage.pad->SetIPAddress(QStringLiteral("10.0.0.1"));
    QCOMPARE(stage.Shown(), QStringLiteral("10.0.0.1"));
    QCOMPARE(stage.texts.size(), before);
    // A number does not replace it.
    stage.pad->SetValueDbl(5);
    QCOMPARE(stage.Shown(), QStringLiteral("10.0.0.1"));
    stage.Type(QStringLiteral("8"));
    QCOMPARE(stage.Shown(), QStringLiteral("8"));
}

COMMONUI_TEST(TNumberPadTypesTest)
#include "TNumberPadTypesTest.moc"
