#include "GoldenPicture.h"
#include "TestCase.h"
#include "TNumberPadStage.h"

#include <QDate>

/// What the pads look like, in both forms.
class TNumberPadLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numbersCompact();
    void numbersCentred();
    void numbersCentredWithPlusAndMinus();
    void timeCompact();
    void timeCentred();
    void dateCompact();
    void dateCentred();
    void addressCompact();
    void addressCentred();
    void aKeyIsPressed();
    void aLongEntryIsMadeSmallToFit();
};

void TNumberPadLookTest::numbersCompact()
{
    TNumberPadStage stage;
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.Show(12.5);
    COMPARE_PICTURE(stage.Picture(), "pad-number-compact");
}

void TNumberPadLookTest::numbersCentred()
{
    TNumberPadStage stage;
    stage.pad->SetInlineOptions(true, false);
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.pad->SetSuffix(QStringLiteral("km/h"));
    stage.Show(0);
    // All digits typed that may be typed.
    stage.Type(QStringLiteral("12.75"));
    COMPARE_PICTURE(stage.Picture(), "pad-number-centred");
}

void TNumberPadLookTest::numbersCentredWithPlusAndMinus()
{
    TNumberPadStage stage;
    stage.pad->SetInlineOptions(true, true);
    stage.pad->SetIncDecEnabled(true, false);
    stage.Show(42);
    COMPARE_PICTURE(stage.Picture(), "pad-number-steps");
}

void TNumberPadLookTest::timeCompact()
{
    TNumberPadStage stage(NUMBER_PAD_TIME, false);
    stage.Show(7.5);
    COMPARE_PICTURE(stage.Picture(), "pad-time-compact");
}

void TNumberPadLookTest::timeCentred()
{
    TNumberPadStage stage(NUMBER_PAD_TIME, true);
    stage.pad->SetInlineOptions(true, true);
    stage.Show(19.5);
    COMPARE_PICTURE(stage.Picture(), "pad-time-centred");
}

void TNumberPadLookTest::dateCompact()
{
    TNumberPadStage stage(NUMBER_PAD_DATE);
    stage.Show(double(QDate(2024, 4, 9).toJulianDay()));
    COMPARE_PICTURE(stage.Picture(), "pad-date-compact");
}

void TNumberPadLookTest::dateCentred()
{
    TNumberPadStage stage(NUMBER_PAD_DATE);
    stage.pad->SetInlineOptions(true, false);
    stage.Show(double(QDate(2024, 4, 9).toJulianDay()));
    COMPARE_PICTURE(stage.Picture(), "pad-date-centred");
}

void TNumberPadLookTest::addressCompact()
{
    TNumberPadStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.pad->SetIPAddress(QStringLiteral("192.168.0.17"));
    COMPARE_PICTURE(stage.Picture(), "pad-address-compact");
}

void TNumberPadLookTest::addressCentred()
{
    TNumberPadStage stage(NUMBER_PAD_IP_ADDRESS);
    stage.pad->SetInlineOptions(true, false);
    stage.pad->SetIPAddress(QStringLiteral("192.168.0.17"));
    COMPARE_PICTURE(stage.Picture(), "pad-address-centred");
}

void TNumberPadLookTest::aKeyIsPressed()
{
    TNumberPadStage stage;
    TKey* const key = stage.Key(5);
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    COMPARE_PICTURE(stage.Picture(), "pad-pressed");
}

void TNumberPadLookTest::aLongEntryIsMadeSmallToFit()
{
    TNumberPadStage stage;
    stage.pad->SetInlineOptions(true, true);
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.pad->SetSuffix(QStringLiteral("L/ha"));
    stage.Show(0);
    stage.Type(QStringLiteral("1234567890.25"));
    COMPARE_PICTURE(stage.Picture(), "pad-long-entry");
}

COMMONUI_TEST(TNumberPadLookTest)
#include "TNumberPadLookTest.moc"
