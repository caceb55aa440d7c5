#include "Metrics.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TNumberPadStage.h"

#include <QPointer>
#include <QSignalSpy>

#include <cmath>
#include <limits>

namespace
{
using TStage = TNumberPadStage;

constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double LargestFloat = 3.4028234663852886e+38;

QPoint PlaceOf(int row, int column)
{
    return {10 + column * NUMPAD_KEYS_WIDTH, 10 + row * NUMPAD_KEYS_HEIGHT};
}

/// A pad that writes down what it is told of its entry, beside what it says itself.
class TWatchedPad : public TNumberPad
{
public:
    using TNumberPad::AddCharacter;
    using TNumberPad::TNumberPad;

    QStringList* log = nullptr;

protected:
    void ProcessTextChange() override
    {
        if (log)
            *log << QStringLiteral("entry ") + GetEntry();
    }
};

/// A stage with such a pad.
class TWatchedStage : public TStage
{
public:
    explicit TWatchedStage(ENumberPadType type)
        : TStage(false, [type](QWidget* parent) { return new TWatchedPad(parent, type); })
    {
        Pad()->log = &log;
        Pad()->SetNumberOfDecimalPlaces(2);
        Pad()->SetSuffix(QStringLiteral("m"));
    }

    TWatchedPad* Pad() const { return static_cast<TWatchedPad*>(pad.data()); }
    /// What is written down from now on.
    QStringList LogOf(QString const& keys)
    {
        log.clear();
        Type(keys);
        return log;
    }
};

// Where each key stands on a pad, by its id from the upper left corner, row by row; -1 for none.
void ComparePlaces(TStage const& stage, QVector<QVector<int>> const& rows)
{
    for (int row = 0; row < rows.size(); ++row)
    {
        for (int column = 0; column < rows.at(row).size(); ++column)
        {
            int const id = rows.at(row).at(column);
            if (id < 0)
                continue;
            TKey const* const key = stage.Key(id);
            QVERIFY2(key->isVisible(), qPrintable(QString::number(id)));
            QCOMPARE(key->pos(), PlaceOf(row, column));
        }
    }
}
} // namespace

/// What all pads have in common, and the entry of numbers.
class TNumberPadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void backspaceEmptiesWhatIsNoPlainNumber_data();
    void backspaceEmptiesWhatIsNoPlainNumber();
    void theKeysAreThoseOfTheType_data();
    void theKeysAreThoseOfTheType();
    void anUnknownTypeHasTheKeysForNumbers();
    void keysThatAreHeldRepeat();
    void theKeyThatEndsIsGreenAndTheStepsAreBlue();
    void theValueField();
    void theDecimalPointIsThatOfTheOperatorFromTheStart();
    void startsHiddenAndTakesNoFocus();
    void leavesTheFocusWhereItIs();
    void setUpAnewItHides();
    void theCompactForm();
    void theCentredForm();
    void theCentredFormWithPlusAndMinus();
    void aSurfaceWithoutAGridIsLeftAlone();
    void theContentLeavesTheFrame();
    void aLongEntryDoesNotPushTheKeysApart();

    void theFirstKeyReplacesTheValueThatIsShown();
    void eachShowingStartsAnew();
    void withTwoDecimalPlacesAllDigitsAreDisabledAfter1_25AndABackspaceEnablesThem();
    void digitsAreAliveOnAValueThatIsNotEditedYet();
    void anIntegerPadHasNoDecimalPoint();
    void negativeDecimalPlacesAreNone();
    void thePointIsDisabledWhileTheEntryHasOne();
    void aPointAloneGetsAZero();
    void theSignKeyAsFirstKeyKeepsTheShownDigitsAndNegatesThem();
    void aDigitAfterTheSignStartsOverWithTheSignKept();
    void theSignKeyTurnsTheEntryBothWays();
    void aBackspaceOnAFreshValueEditsIt();
    void aBackspaceOnNothingLeavesNothing();
    void idsThatAreNoDigitsTypeNothing();
    void behaviourIsValueAndDecimals();
    void eachKeyShowsTheEntry_data();
    void eachKeyShowsTheEntry();
    void charactersThatAreNoKeys();
    void aHeldBackspaceDeletesMore();

    void theValueComesBeforeItsText();
    void okWithNothingTypedReturnsTheOldValue();
    void theValueIsWhatIsTyped();
    void whoeverHearsOfTheTextMayAskForTheValue();
    void aClampedValueStaysWhatItIsWhileItIsTold();
    void afterTheValueWasTakenTypingGoesOn();
    void settersSayWhatTheyShow();
    void theEntry5OnBoundsTo4_99996PassesOnlyWithinTheTolerance();
    void aValueThatPrintsLikeTheBoundIsClampedToTheBound_data();
    void aValueThatPrintsLikeTheBoundIsClampedToTheBound();
    void swappedBoundsAreSortedBeforeTheComparison();
    void boundsAreAsTheyWereGiven();
    void theMessageNamesTheBounds_data();
    void theMessageNamesTheBounds();
    void aMaximumAbove1000000ShowsAs1000000ThoughTheValueMayBeLarger();
    void theSameMessageComesAgain();
    void afterTheMessageTheNextKeyReplacesTheEntry();
    void anEmptyEntryIsTheEmptyValue();
    void anEmptyEntryIsZeroWhereItIsNotAllowed();
    void theEmptyValueIsShownAsNothing();

    void suffixes_data();
    void suffixes();
    void followsTheDecimalSeparatorOfTheOperator();
    void aNewDecimalSeparatorShowsTheValueAnew();
    void stepsAreSignals();
    void cancelLeavesTheText();

    void oddValuesAreNeverEmitted_data();
    void oddValuesAreNeverEmitted();
    void oddBounds_data();
    void oddBounds();
    void aNegativeZeroIsZero();
    void veryLongEntriesAreRefused();
    void veryManyDecimalPlaces();

    void theWheelTypesAndEnds();
    void enterAndBackPressTheLastKeys();
    void diesInTheSlotsOfItsSignals_data();
    void diesInTheSlotsOfItsSignals();
    void diesWhileItIsPressed();
    void diesWithItsMessageUp();
    void outlivesTheScreenWithItsMessageUp();
};

void TNumberPadTest::theKeysAreThoseOfTheType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("face");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QString>("tip");
    for (int type = 0; type < 4; ++type)
    {
        for (int digit = 0; digit < 10; ++digit)
            QTest::addRow("type %d, %d", type, digit) << type << digit << QString::number(digit) << ""
                                                      << "";
        QTest::addRow("type %d, backspace", type)
            << type << 10 << QStringLiteral("\u21E6") << ""
            << "Backspace\n(Press and hold to delete multiple characters)";
        QTest::addRow("type %d, minus", type) << type << 11 << ""
                                              << "icon-minus"
                                              << "Decrement";
        QTest::addRow("type %d, plus", type) << type << 12 << ""
                                             << "icon-plus"
                                             << "Increment";
        QTest::addRow("type %d, cross", type) << type << 15 << ""
                                              << "icon-cross-larger"
                                              << "";
        QTest::addRow("type %d, tick", type) << type << 16 << ""
                                             << "icon-tick-larger"
                                             << "";
    }
    QTest::newRow("point") << 0 << 13 << "."
                           << ""
                           << "Decimal Point";
    QTest::newRow("sign") << 0 << 14 << ""
                          << "button-plusMinus"
                          << "Toggle between a positive and a negative number";
    QTest::newRow("colon") << 1 << 13 << ":"
                           << ""
                           << "Hour and Minute separator";
    QTest::newRow("am and pm") << 1 << 14 << ""
                               << "am-pm"
                               << "Toggle between am and pm";
    QTest::newRow("slash") << 2 << 13 << "/"
                           << ""
                           << "Date separator";
    QTest::newRow("blank of a date") << 2 << 14 << ""
                                     << ""
                                     << "";
    QTest::newRow("dot") << 3 << 13 << "."
                         << ""
                         << "IP address separator";
    QTest::newRow("blank of an address") << 3 << 14 << ""
                                         << ""
                                         << "";
}

void TNumberPadTest::theKeysAreThoseOfTheType()
{
    QFETCH(int, type);
    QFETCH(int, id);
    QFETCH(QString, face);
    QFETCH(QString, icon);
    QFETCH(QString, tip);
    TTestScreen const screen;
    TNumberPad const pad(nullptr, ENumberPadType(type));
    auto const keys = pad.findChildren<TKey*>();
    QCOMPARE(keys.size(), 17);
    auto const found =
        std::find_if(keys.begin(), keys.end(), [id](TKey const* key) { return key->GetButtonId() == id; });
    QVERIFY(found != keys.end());
    QCOMPARE((*found)->GetText(), face);
    QCOMPARE((*found)->GetIconName(), icon);
    QCOMPARE((*found)->GetToolTip(), tip);
    bool const isBlank = face.isEmpty() && icon.isEmpty();
    QCOMPARE((*found)->isEnabled(), !isBlank && !(type == 0 && id == TStage::Separator));
}

void TNumberPadTest::anUnknownTypeHasTheKeysForNumbers()
{
    for (int const type : {-1, 4, 1000})
    {
        TStage stage{ENumberPadType(type)};
        QCOMPARE(stage.Key(TStage::Separator)->GetToolTip(), QStringLiteral("Decimal Point"));
        stage.pad->SetNumberOfDecimalPlaces(1);
        QCOMPARE(stage.Enter(QStringLiteral("1.5")), QString());
        QCOMPARE(stage.values, QVector<double>{1.5});
    }
}

void TNumberPadTest::keysThatAreHeldRepeat()
{
    TStage const stage;
    QVector<QPair<int, int>> const intervals = {{10, 50}, {11, 100}, {12, 100}};
    for (auto const& [id, interval] : intervals)
    {
        TKey const* const key = stage.Key(id);
        QVERIFY(key->autoRepeat());
        QCOMPARE(key->autoRepeatDelay(), 250);
        QCOMPARE(key->autoRepeatInterval(), interval);
    }
    QVERIFY(!stage.Key(5)->autoRepeat());
    QVERIFY(!stage.Key(TStage::Tick)->autoRepeat());
}

void TNumberPadTest::theKeyThatEndsIsGreenAndTheStepsAreBlue()
{
    TStage const stage;
    stage.pad->SetInlineOptions(true, true);
    auto const colourOf = [&stage](int id)
    { return QColor(stage.Key(id)->grab().toImage().pixel(8, NUMPAD_KEYS_HEIGHT / 2)); };
    for (int const id : {11, 12})
        QVERIFY(colourOf(id).blue() > colourOf(id).green() && colourOf(id).blue() > colourOf(id).red());
    QVERIFY(colourOf(16).green() > colourOf(16).blue() && colourOf(16).green() > colourOf(16).red());
    QVERIFY(qAbs(colourOf(5).green() - colourOf(5).blue()) < 10);
    stage.Key(TStage::Tick)->setEnabled(false);
    QVERIFY(qAbs(colourOf(16).green() - colourOf(16).red()) < 10);
}

void TNumberPadTest::theValueField()
{
    TStage const stage;
    stage.pad->SetInlineOptions(true, true);
    TPushButton* const field = stage.Field();
    QCOMPARE(field->minimumHeight(), int(NUMPAD_KEYS_HEIGHT));
    stage.Arrange();
    // It lies beneath the finger and lets it pass.
    QVERIFY(field->testAttribute(Qt::WA_TransparentForMouseEvents));
    stage.pad->SetSuffix(QStringLiteral("m"));
    QImage const picture = field->grab().toImage();
    int dark = 0;
    for (int x = 0; x < picture.width(); ++x)
    {
        for (int y = 8; y < picture.height() - 8; ++y)
            dark += qGray(picture.pixel(x, y)) < 40 ? 1 : 0;
    }
    QVERIFY(dark > 0);
    QVERIFY(qGray(picture.pixel(17, picture.height() / 2)) > 200);
}

void TNumberPadTest::theDecimalPointIsThatOfTheOperatorFromTheStart()
{
    TTestScreen screen;
    screen.m_Config.Write(CONFIG_LOCALE, QStringLiteral("de_DE"), false);
    TNumberPad const pad(nullptr, NUMBER_PAD_DECIMAL);
    auto const keys = pad.findChildren<TKey*>();
    bool const hasComma = std::any_of(keys.begin(), keys.end(),
                                      [](TKey const* key) { return key->GetText() == QStringLiteral(","); });
    QVERIFY(hasComma);
}

void TNumberPadTest::startsHiddenAndTakesNoFocus()
{
    TTestScreen const screen;
    TNumberPad pad(screen.get(), NUMBER_PAD_DECIMAL);
    QVERIFY(pad.isHidden());
    QVERIFY(!pad.parentWidget());
    QVERIFY(pad.testAttribute(Qt::WA_ShowWithoutActivating));
    pad.ShowWindow(false);
    QVERIFY(pad.isVisible());
    pad.HideWindow();
    QVERIFY(!pad.isVisible());
    auto* const owner = new QWidget(screen.get());
    owner->show();
    TNumberPad child(owner, NUMBER_PAD_TIME);
    QVERIFY(child.isHidden());
    child.show();
    QVERIFY(child.isVisible());
    child.setParent(nullptr);
    delete owner;
}

void TNumberPadTest::leavesTheFocusWhereItIs()
{
    TStage const stage;
    auto* const other = new QWidget(stage.screen.get());
    other->setFocusPolicy(Qt::StrongFocus);
    other->show();
    QApplication::setActiveWindow(stage.screen.get());
    other->setFocus();
    QCOMPARE(QApplication::focusWidget(), other);
    stage.pad->HideWindow();
    stage.pad->ShowWindow(false);
    QVERIFY(stage.pad->isVisible());
    QCOMPARE(QApplication::focusWidget(), other);
}

void TNumberPadTest::setUpAnewItHides()
{
    TStage const stage;
    stage.pad->Setup();
    QVERIFY(!stage.pad->isVisible());
    stage.pad->ShowWindow(false);
    QVERIFY(stage.pad->isVisible());
}

void TNumberPadTest::theCompactForm()
{
    TStage const stage;
    ComparePlaces(stage, {{7, 8, 9, 10}, {4, 5, 6, 14}, {1, 2, 3, 15}, {0, -1, 13, 16}});
    QCOMPARE(stage.Key(0)->size(), QSize(2 * NUMPAD_KEYS_WIDTH, NUMPAD_KEYS_HEIGHT));
    QCOMPARE(stage.Key(5)->size(), QSize(NUMPAD_KEYS_WIDTH, NUMPAD_KEYS_HEIGHT));
    for (int const id : {11, 12})
        QVERIFY(!stage.Key(id)->isVisible());
    QVERIFY(!stage.Field()->isVisible());
    QCOMPARE(stage.pad->size(), QSize(4 * NUMPAD_KEYS_WIDTH + 29, 4 * NUMPAD_KEYS_HEIGHT + 29));
}

void TNumberPadTest::theCentredForm()
{
    TStage const stage;
    stage.pad->SetInlineOptions(true, false);
    QCOMPARE(stage.pad->size(), QSize(5 * NUMPAD_KEYS_WIDTH + 29, 4 * NUMPAD_KEYS_HEIGHT + 29));
    stage.pad->layout()->activate();
    stage.Arrange();
    ComparePlaces(stage, {{-1, -1, -1, -1, 10}, {13, 7, 8, 9, 14}, {0, 4, 5, 6, 15}, {-1, 1, 2, 3, 16}});
    QCOMPARE(stage.Key(0)->size(), QSize(NUMPAD_KEYS_WIDTH, 2 * NUMPAD_KEYS_HEIGHT));
    for (int const id : {11, 12})
        QVERIFY(!stage.Key(id)->isVisible());
    QCOMPARE(stage.Field()->geometry(),
             QRect(PlaceOf(0, 0), QSize(4 * NUMPAD_KEYS_WIDTH, NUMPAD_KEYS_HEIGHT)));
    stage.pad->SetInlineOptions(false, true);
    stage.Arrange();
    QCOMPARE(stage.pad->size(), QSize(4 * NUMPAD_KEYS_WIDTH + 29, 4 * NUMPAD_KEYS_HEIGHT + 29));
    ComparePlaces(stage, {{7, 8, 9, 10}, {4, 5, 6, 14}, {1, 2, 3, 15}, {0, -1, 13, 16}});
    QVERIFY(!stage.Key(12)->isVisible());
}

void TNumberPadTest::theCentredFormWithPlusAndMinus()
{
    TStage const stage;
    stage.pad->SetInlineOptions(true, true);
    stage.Arrange();
    ComparePlaces(stage, {{-1, -1, 10, 11, 12}, {13, 7, 8, 9, 14}, {0, 4, 5, 6, 15}, {-1, 1, 2, 3, 16}});
    QCOMPARE(stage.Field()->geometry(),
             QRect(PlaceOf(0, 0), QSize(2 * NUMPAD_KEYS_WIDTH, NUMPAD_KEYS_HEIGHT)));
}

void TNumberPadTest::aSurfaceWithoutAGridIsLeftAlone()
{
    TStage const stage;
    QSize const size = stage.pad->size();
    delete stage.Field()->parentWidget()->layout();
    stage.pad->SetInlineOptions(true, true);
    QCOMPARE(stage.pad->size(), size);
    QVERIFY(!stage.Key(12)->isVisible());
}

void TNumberPadTest::theContentLeavesTheFrame()
{
    TStage const stage;
    QCOMPARE(stage.pad->GetWindowContent()->geometry(),
             QRect(4, 4, stage.pad->width() - 8 - INPUT_WINDOW_SHADOW_SIZE,
                   stage.pad->height() - 8 - INPUT_WINDOW_SHADOW_SIZE));
}

void TNumberPadTest::aLongEntryDoesNotPushTheKeysApart()
{
    TStage stage;
    stage.pad->SetInlineOptions(true, true);
    QSize const size = stage.pad->size();
    stage.Type(QStringLiteral("1234567890").repeated(10));
    stage.Arrange();
    QCOMPARE(stage.pad->size(), size);
    QCOMPARE(stage.Field()->width(), 2 * NUMPAD_KEYS_WIDTH);
}

void TNumberPadTest::theFirstKeyReplacesTheValueThatIsShown()
{
    TStage stage;
    stage.Show(42);
    QCOMPARE(stage.Shown(), QStringLiteral("42"));
    stage.Type(QStringLiteral("7"));
    QCOMPARE(stage.Shown(), QStringLiteral("7"));
    stage.Type(QStringLiteral("8"));
    QCOMPARE(stage.Shown(), QStringLiteral("78"));
}

void TNumberPadTest::eachShowingStartsAnew()
{
    TStage stage;
    stage.Show(42);
    stage.Type(QStringLiteral("7"));
    stage.Show();
    stage.Type(QStringLiteral("8"));
    QCOMPARE(stage.Shown(), QStringLiteral("8"));
    stage.pad->SetClearOnFirstEntry(true);
    stage.Type(QStringLiteral("9"));
    QCOMPARE(stage.Shown(), QStringLiteral("9"));
    stage.pad->SetClearOnFirstEntry(false);
    stage.Type(QStringLiteral("1"));
    QCOMPARE(stage.Shown(), QStringLiteral("91"));
}

void TNumberPadTest::withTwoDecimalPlacesAllDigitsAreDisabledAfter1_25AndABackspaceEnablesThem()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.Type(QStringLiteral("1.2"));
    QVERIFY(stage.AllDigitsAre(true));
    stage.Type(QStringLiteral("5"));
    QVERIFY(stage.AllDigitsAre(false));
    stage.Type(QStringLiteral("6"));
    QCOMPARE(stage.Shown(), QStringLiteral("1.25"));
    stage.Type(QStringLiteral("<"));
    QVERIFY(stage.AllDigitsAre(true));
    QCOMPARE(stage.Shown(), QStringLiteral("1.2"));
}

void TNumberPadTest::digitsAreAliveOnAValueThatIsNotEditedYet()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.Show(1.25);
    QCOMPARE(stage.Shown(), QStringLiteral("1.25"));
    QVERIFY(stage.AllDigitsAre(true));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
}

void TNumberPadTest::anIntegerPadHasNoDecimalPoint()
{
    TStage stage;
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
    QCOMPARE(stage.Enter(QStringLiteral("1.5")), QString());
    QCOMPARE(stage.values, QVector<double>{15});
    stage.pad->SetNumberOfDecimalPlaces(1);
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
}

void TNumberPadTest::negativeDecimalPlacesAreNone()
{
    TStage const stage;
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.pad->SetNumberOfDecimalPlaces(-1);
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 0);
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
}

void TNumberPadTest::thePointIsDisabledWhileTheEntryHasOne()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.Type(QStringLiteral("3"));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("."));
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("1"));
    QVERIFY(!stage.Key(TStage::Separator)->isEnabled());
    stage.Type(QStringLiteral("<<"));
    QVERIFY(stage.Key(TStage::Separator)->isEnabled());
}

void TNumberPadTest::aPointAloneGetsAZero()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.Show(42);
    stage.Type(QStringLiteral(".5"));
    QCOMPARE(stage.Shown(), QStringLiteral("0.5"));
}

void TNumberPadTest::theSignKeyAsFirstKeyKeepsTheShownDigitsAndNegatesThem()
{
    TStage stage;
    stage.pad->SetBounds(-100, 100);
    stage.Show(42);
    QCOMPARE(stage.Enter(QStringLiteral("-")), QString());
    QCOMPARE(stage.Shown(), QStringLiteral("-42"));
    QCOMPARE(stage.values, QVector<double>{-42});
}

void TNumberPadTest::aDigitAfterTheSignStartsOverWithTheSignKept()
{
    TStage stage;
    stage.pad->SetBounds(-100, 100);
    stage.Show(42);
    QCOMPARE(stage.Enter(QStringLiteral("-7")), QString());
    QCOMPARE(stage.values, QVector<double>{-7});
    // A shown sign that was not typed goes with its number.
    stage.Show(-42);
    QCOMPARE(stage.Enter(QStringLiteral("7")), QString());
    QCOMPARE(stage.values.last(), 7.0);
}

void TNumberPadTest::theSignKeyTurnsTheEntryBothWays()
{
    TStage stage;
    stage.Type(QStringLiteral("12-"));
    QCOMPARE(stage.Shown(), QStringLiteral("-12"));
    stage.Type(QStringLiteral("-"));
    QCOMPARE(stage.Shown(), QStringLiteral("12"));
    stage.Type(QStringLiteral("3"));
    QCOMPARE(stage.Shown(), QStringLiteral("123"));
}

void TNumberPadTest::aBackspaceOnAFreshValueEditsIt()
{
    TStage stage;
    stage.Show(42);
    stage.Type(QStringLiteral("<5"));
    QCOMPARE(stage.Shown(), QStringLiteral("45"));
}

void TNumberPadTest::aBackspaceOnNothingLeavesNothing()
{
    TStage stage;
    stage.Show(4);
    stage.Type(QStringLiteral("<<<"));
    QCOMPARE(stage.Shown(), QString());
    stage.Type(QStringLiteral("6"));
    QCOMPARE(stage.Shown(), QStringLiteral("6"));
}

void TNumberPadTest::idsThatAreNoDigitsTypeNothing()
{
    TStage const stage;
    int const before = stage.texts.size();
    for (int const id : {-1, 10, 13, 17, 1000000})
        stage.pad->OnDigit(id);
    QCOMPARE(stage.texts.size(), before);
}

void TNumberPadTest::behaviourIsValueAndDecimals()
{
    TStage const stage;
    stage.pad->SetBehavior(1.25, 1);
    QCOMPARE(stage.pad->GetNumberOfDecimalPlaces(), 1);
    QCOMPARE(stage.Shown(), QStringLiteral("1.3"));
    QCOMPARE(stage.pad->GetValueDbl(), 1.25);
}

void TNumberPadTest::eachKeyShowsTheEntry_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QStringList>("log");
    auto const row = [](char const* name, int type, char const* before, char const* key, QStringList log)
    {
        log.replaceInStrings(QStringLiteral(" m"), QStringLiteral("\u00A0m"));
        QTest::newRow(name) << type << QString::fromLatin1(before) << QString::fromLatin1(key) << log;
    };
    row("digit", 0, "", "5", {"entry 5", "text 5 m"});
    row("another digit", 0, "5", "6", {"entry 56", "text 56 m"});
    // Once for the turned sign and once for the key.
    row("sign", 0, "5", "-", {"entry -5", "text -5 m", "entry -5", "text -5 m"});
    row("digit after the sign", 0, "-", "5", {"entry -", "text - m", "entry -5", "text -5 m"});
    row("point", 0, "5", ".", {"entry 5.", "text 5. m"});
    row("backspace", 0, "56", "<", {"entry 5", "text 5 m"});
    row("backspace on nothing", 0, "5<", "<", {"text  m"});
    row("hour", 1, "", "5", {"entry 5", "text 5 m am"});
    row("colon", 1, "5", ".", {"entry 5:", "text 5: m am"});
    row("am and pm", 1, "5", "-", {"text 5 m pm"});
    row("day", 2, "", "5", {"entry 5", "text 5 m"});
    row("slash", 2, "5", ".", {"entry 5/", "text 5/ m"});
    row("number of an address", 3, "", "5", {"entry 5", "text 5 m"});
    // Once for the number that was checked and once for the dot.
    row("dot", 3, "05", ".", {"entry 5", "entry 5.", "text 5. m"});
}

void TNumberPadTest::eachKeyShowsTheEntry()
{
    QFETCH(int, type);
    QFETCH(QString, before);
    QFETCH(QString, key);
    QFETCH(QStringList, log);
    TWatchedStage stage{ENumberPadType(type)};
    stage.Type(before);
    QCOMPARE(stage.LogOf(key), log);
}

void TNumberPadTest::charactersThatAreNoKeys()
{
    TWatchedStage stage(NUMBER_PAD_DECIMAL);
    stage.Show(42);
    stage.log.clear();
    stage.Pad()->AddCharacter(QChar(), false);
    QCOMPARE(stage.log, QStringList());
    stage.Pad()->AddCharacter(QLatin1Char('1'), false);
    QCOMPARE(stage.Shown(), QStringLiteral("42.001\u00A0m"));
    stage.Pad()->AddCharacter(QChar(7), false);
    QCOMPARE(stage.Shown(), QStringLiteral("\u00A0m"));
    // Nothing is typed, but what was shown is gone.
    stage.Show(42);
    stage.Pad()->AddCharacter(QChar(), true);
    stage.Pad()->AddCharacter(QLatin1Char('1'), true);
    QCOMPARE(stage.Shown(), QStringLiteral("1\u00A0m"));
}

void TNumberPadTest::aHeldBackspaceDeletesMore()
{
    TStage stage;
    stage.Type(QStringLiteral("123456"));
    TKey const* const key = stage.Key(TStage::Backspace);
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    QTRY_COMPARE(stage.Shown(), QString());
    stage.finger.Lift();
    QCOMPARE(stage.Shown(), QString());
}

void TNumberPadTest::theValueComesBeforeItsText()
{
    TStage stage;
    stage.pad->SetSuffix(QStringLiteral("m"));
    stage.pad->SetNumberOfDecimalPlaces(3);
    stage.log.clear();
    QString fieldAtValue;
    connect(stage.pad, &TNumberPad::NewValueDbl, this, [&] { fieldAtValue = stage.Shown(); });
    QCOMPARE(stage.Enter(QStringLiteral("1.234")), QString());
    QCOMPARE(stage.log.mid(stage.log.size() - 3),
             (QStringList{QStringLiteral("text 1.234\u00A0m"), QStringLiteral("value 1.234"),
                          QStringLiteral("text 1.234")}));
    QCOMPARE(fieldAtValue, QStringLiteral("1.23"));
    QCOMPARE(stage.Shown(), QStringLiteral("1.234"));
    QVERIFY(stage.pad->isVisible());
}

void TNumberPadTest::okWithNothingTypedReturnsTheOldValue()
{
    TStage stage;
    // More digits than are shown.
    stage.Show(12.3456789);
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{12.3456789});
}

void TNumberPadTest::theValueIsWhatIsTyped()
{
    TStage stage;
    stage.Show(3);
    QCOMPARE(stage.pad->GetValueDbl(), 3.0);
    stage.Type(QStringLiteral("25"));
    QCOMPARE(stage.pad->GetValueDbl(), 25.0);
}

// A value with more digits than are printed, asked for each time that something is shown.
void TNumberPadTest::whoeverHearsOfTheTextMayAskForTheValue()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(1);
    stage.Type(QStringLiteral("7"));
    QVector<double> asked;
    connect(stage.pad, &TNumberPad::NewText, this, [&] { asked << stage.pad->GetValueDbl(); });
    stage.pad->SetValueDbl(1.2345);
    stage.pad->SetSuffix(QStringLiteral("m"));
    QCOMPARE(asked, (QVector<double>{1.2345, 1.2345}));
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{1.2345});
}

void TNumberPadTest::aClampedValueStaysWhatItIsWhileItIsTold()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.pad->SetBounds(0, 4.99996);
    stage.Type(QStringLiteral("5"));
    QVector<double> asked;
    auto const ask = [&] { asked << stage.pad->GetValueDbl(); };
    connect(stage.pad, &TNumberPad::NewValueDbl, this, ask);
    connect(stage.pad, &TNumberPad::NewText, this, ask);
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(asked, (QVector<double>{4.99996, 4.99996}));
}

void TNumberPadTest::afterTheValueWasTakenTypingGoesOn()
{
    TStage stage;
    QCOMPARE(stage.Enter(QStringLiteral("5")), QString());
    QCOMPARE(stage.Enter(QStringLiteral("6")), QString());
    QCOMPARE(stage.values, (QVector<double>{5, 56}));
    // A slot that sets another value ends that.
    auto const set = connect(stage.pad, &TNumberPad::NewValueDbl, this, [&] { stage.pad->SetValueDbl(9); });
    QCOMPARE(stage.Enter(QStringLiteral("7")), QString());
    disconnect(set);
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values.last(), 9.0);
    QCOMPARE(stage.Enter(QStringLiteral("8")), QString());
    QCOMPARE(stage.values.last(), 8.0);
}

void TNumberPadTest::settersSayWhatTheyShow()
{
    TStage const stage;
    stage.pad->SetNewText(QStringLiteral("any text"));
    QCOMPARE(stage.Shown(), QStringLiteral("any text"));
    QCOMPARE(stage.texts.last(), QStringLiteral("any text"));
    stage.pad->SetNewValueDbl(1.235);
    QCOMPARE(stage.Shown(), QStringLiteral("1.24"));
    QCOMPARE(stage.values, QVector<double>{1.235});
    stage.pad->SetNewIPAddressValue(QStringLiteral("10.0.0.1"));
    QCOMPARE(stage.Shown(), QStringLiteral("10.0.0.1"));
    QCOMPARE(stage.addresses, QStringList{QStringLiteral("10.0.0.1")});
}

void TNumberPadTest::theEntry5OnBoundsTo4_99996PassesOnlyWithinTheTolerance()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(5);
    stage.pad->SetBounds(0, 4.99996);
    QCOMPARE(stage.Enter(QStringLiteral("5")), QStringLiteral("Enter a value between 0.00000 and 4.99996"));
    stage.pad->SetBounds(0, 4.999995);
    QCOMPARE(stage.Enter(QStringLiteral("5")), QString());
    QCOMPARE(stage.values, QVector<double>{5});
    stage.pad->SetBounds(5.00002, 9);
    QVERIFY(!stage.Enter(QStringLiteral("<5")).isEmpty());
    stage.pad->SetBounds(5.000005, 9);
    QCOMPARE(stage.Enter(QStringLiteral("5")), QString());
    QCOMPARE(stage.values, (QVector<double>{5, 5}));
}

void TNumberPadTest::aValueThatPrintsLikeTheBoundIsClampedToTheBound_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<double>("value");
    QTest::newRow("high") << 0.0 << 4.99996 << 2 << "5" << 4.99996;
    QTest::newRow("high, integer") << 0.0 << 12.6 << 0 << "13" << 12.6;
    QTest::newRow("low") << 1.04 << 9.0 << 1 << "1" << 1.04;
    QTest::newRow("wrong way round") << 4.99996 << 0.0 << 2 << "5" << 4.99996;
    QTest::newRow("negative") << -4.99996 << 0.0 << 2 << "5-" << -4.99996;
}

void TNumberPadTest::aValueThatPrintsLikeTheBoundIsClampedToTheBound()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(int, decimals);
    QFETCH(QString, keys);
    QFETCH(double, value);
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(decimals);
    stage.pad->SetBounds(low, high);
    QCOMPARE(stage.Enter(keys), QString());
    QCOMPARE(stage.values, QVector<double>{value});
    // The entry goes on where it was.
    QString const before = stage.Shown();
    stage.Type(QStringLiteral("<"));
    QCOMPARE(stage.Shown(), before.left(before.size() - 1));
}

void TNumberPadTest::swappedBoundsAreSortedBeforeTheComparison()
{
    TStage stage;
    stage.pad->SetBounds(10, 2);
    QCOMPARE(stage.Enter(QStringLiteral("5")), QString());
    QCOMPARE(stage.values, QVector<double>{5});
    QCOMPARE(stage.Enter(QStringLiteral("<11")), QStringLiteral("Enter a value between 2 and 10"));
    QCOMPARE(stage.Enter(QStringLiteral("1")), QStringLiteral("Enter a value between 2 and 10"));
}

void TNumberPadTest::boundsAreAsTheyWereGiven()
{
    TStage const stage;
    QCOMPARE(stage.pad->GetMinimum(), 0.0);
    QCOMPARE(stage.pad->GetMaximum(), LargestFloat);
    stage.pad->SetBounds(10, 2);
    QCOMPARE(stage.pad->GetMinimum(), 10.0);
    QCOMPARE(stage.pad->GetMaximum(), 2.0);
}

void TNumberPadTest::theMessageNamesTheBounds_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("message");
    QTest::newRow("plain") << 1.0 << 5.0 << 0 << ""
                           << "Enter a value between 1 and 5";
    QTest::newRow("decimals") << 1.0 << 5.25 << 2 << ""
                              << "Enter a value between 1.00 and 5.25";
    QTest::newRow("unit") << 1.0 << 5.0 << 0 << "km/h"
                          << QStringLiteral("Enter a value between 1\u00A0km/h and 5\u00A0km/h");
    QTest::newRow("tight unit") << 1.0 << 5.0 << 0 << "%"
                                << "Enter a value between 1% and 5%";
    QTest::newRow("a place marker") << 1.0 << 5.0 << 0 << "%1"
                                    << QStringLiteral("Enter a value between 1\u00A0%1 and 5\u00A0%1");
    QTest::newRow("very low") << -2e6 << 5.0 << 0 << ""
                              << "Enter a value between -1000000 and 5";
    QTest::newRow("nothing set") << 0.0 << -LargestFloat << 0 << ""
                                 << "Enter a value between -1000000 and 0";
}

void TNumberPadTest::theMessageNamesTheBounds()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(int, decimals);
    QFETCH(QString, suffix);
    QFETCH(QString, message);
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(decimals);
    stage.pad->SetBounds(low, high);
    stage.pad->SetSuffix(suffix);
    stage.Type(QStringLiteral("99"));
    stage.finger.Touch(stage.Key(TStage::Tick));
    QVERIFY(stage.Message());
    QCOMPARE(stage.Message()->GetTitle(), QStringLiteral("Value Out Of Range"));
    QCOMPARE(stage.Message()->ModalType(), int(KVN::MODAL_GLOBAL));
    QCOMPARE(stage.TakeMessage(), message);
    QVERIFY(stage.values.isEmpty());
    QVERIFY(stage.pad->isVisible());
}

void TNumberPadTest::aMaximumAbove1000000ShowsAs1000000ThoughTheValueMayBeLarger()
{
    TStage stage;
    stage.pad->SetBounds(0, 5e6);
    QCOMPARE(stage.Enter(QStringLiteral("5000001")), QStringLiteral("Enter a value between 0 and 1000000"));
    QCOMPARE(stage.Enter(QStringLiteral("4000000")), QString());
    QCOMPARE(stage.values, QVector<double>{4e6});
}

void TNumberPadTest::theSameMessageComesAgain()
{
    TStage stage;
    stage.pad->SetBounds(0, 10);
    stage.Type(QStringLiteral("11"));
    stage.finger.Touch(stage.Key(TStage::Tick));
    TMessageDialog const* const message = stage.Message();
    QVERIFY(message);
    QCOMPARE(stage.TakeMessage(), QStringLiteral("Enter a value between 0 and 10"));
    stage.pad->SetBounds(0, 20);
    stage.Type(QStringLiteral("21"));
    stage.finger.Touch(stage.Key(TStage::Tick));
    QCOMPARE(stage.Message(), message);
    QCOMPARE(stage.TakeMessage(), QStringLiteral("Enter a value between 0 and 20"));
}

void TNumberPadTest::afterTheMessageTheNextKeyReplacesTheEntry()
{
    TStage stage;
    stage.pad->SetBounds(0, 10);
    QVERIFY(!stage.Enter(QStringLiteral("11")).isEmpty());
    QCOMPARE(stage.Shown(), QStringLiteral("11"));
    stage.Type(QStringLiteral("3"));
    QCOMPARE(stage.Shown(), QStringLiteral("3"));
}

void TNumberPadTest::anEmptyEntryIsTheEmptyValue()
{
    TStage stage;
    stage.pad->SetBounds(-1, 10);
    stage.pad->AllowEmpty(true, -1);
    stage.Show(5);
    QCOMPARE(stage.Enter(QStringLiteral("<")), QString());
    QCOMPARE(stage.values, QVector<double>{-1});
}

void TNumberPadTest::anEmptyEntryIsZeroWhereItIsNotAllowed()
{
    TStage stage;
    stage.pad->SetBounds(-1, 10);
    stage.pad->AllowEmpty(false, -1);
    stage.Show(5);
    QCOMPARE(stage.Enter(QStringLiteral("<")), QString());
    QCOMPARE(stage.values, QVector<double>{0});
    stage.pad->SetBounds(1, 10);
    stage.Show(5);
    QCOMPARE(stage.Enter(QStringLiteral("<")), QStringLiteral("Enter a value between 1 and 10"));
}

void TNumberPadTest::theEmptyValueIsShownAsNothing()
{
    TStage stage;
    stage.pad->AllowEmpty(true, 7);
    stage.Show(7);
    QCOMPARE(stage.Shown(), QString());
    stage.Show(8);
    QCOMPARE(stage.Shown(), QStringLiteral("8"));
    stage.pad->AllowEmpty(false, 7);
    stage.Show(7);
    QCOMPARE(stage.Shown(), QStringLiteral("7"));
}

void TNumberPadTest::suffixes_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("shown");
    QTest::newRow("none") << ""
                          << "5";
    QTest::newRow("blanks") << "  "
                            << "5";
    QTest::newRow("unit that requires spacing") << "km/h" << QStringLiteral("5\u00A0km/h");
    QTest::newRow("trimmed") << "  km/h " << QStringLiteral("5\u00A0km/h");
    QTest::newRow("unit that requires none") << "%"
                                             << "5%";
    QTest::newRow("left as it is") << " % "
                                   << "5 % ";
    QTest::newRow("no unit") << "rows" << QStringLiteral("5\u00A0rows");
}

void TNumberPadTest::suffixes()
{
    QFETCH(QString, suffix);
    QFETCH(QString, shown);
    TStage const stage;
    stage.pad->SetValueDbl(5);
    stage.pad->SetSuffix(suffix);
    QCOMPARE(stage.Shown(), shown);
    QCOMPARE(stage.texts.last(), shown);
}

void TNumberPadTest::followsTheDecimalSeparatorOfTheOperator()
{
    TStage stage;
    stage.UseLocale(QStringLiteral("de_DE"));
    QCOMPARE(stage.Key(TStage::Separator)->GetText(), QStringLiteral(","));
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.pad->SetBounds(0.5, 5);
    stage.Show(1.25);
    QCOMPARE(stage.Shown(), QStringLiteral("1,25"));
    QCOMPARE(stage.Enter(QStringLiteral("4.5")), QString());
    QCOMPARE(stage.Shown(), QStringLiteral("4,5"));
    QCOMPARE(stage.values, QVector<double>{4.5});
    stage.Show(1);
    stage.Type(QStringLiteral("3.25"));
    QVERIFY(stage.AllDigitsAre(false));
    QCOMPARE(stage.Enter(QStringLiteral("<<<<.1")), QStringLiteral("Enter a value between 0,50 and 5,00"));
}

void TNumberPadTest::aNewDecimalSeparatorShowsTheValueAnew()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(1);
    stage.Show(2.5);
    stage.Type(QStringLiteral("1.5"));
    stage.UseLocale(QStringLiteral("de_DE"));
    QCOMPARE(stage.Shown(), QStringLiteral("2,5"));
    QCOMPARE(stage.Enter(QString()), QString());
    QCOMPARE(stage.values, QVector<double>{2.5});
    // A hidden pad has nothing to show.
    stage.pad->HideWindow();
    int const texts = stage.texts.size();
    stage.UseLocale(QStringLiteral("en_US"));
    QCOMPARE(stage.texts.size(), texts);
}

void TNumberPadTest::stepsAreSignals()
{
    TStage stage;
    stage.pad->SetInlineOptions(true, true);
    stage.Arrange();
    QSignalSpy const up(stage.pad.data(), &TNumberPad::IncrementPressed);
    QSignalSpy const down(stage.pad.data(), &TNumberPad::DecrementPressed);
    stage.finger.Touch(stage.Key(TStage::Plus));
    QCOMPARE(up.size(), 1);
    QCOMPARE(down.size(), 0);
    stage.finger.Touch(stage.Key(TStage::Minus));
    QCOMPARE(up.size(), 1);
    QCOMPARE(down.size(), 1);
    stage.pad->SetIncDecEnabled(false, true);
    QVERIFY(!stage.Key(TStage::Plus)->isEnabled());
    QVERIFY(stage.Key(TStage::Minus)->isEnabled());
    stage.pad->SetIncDecEnabled(true, false);
    QVERIFY(stage.Key(TStage::Plus)->isEnabled());
    QVERIFY(!stage.Key(TStage::Minus)->isEnabled());
}

void TNumberPadTest::cancelLeavesTheText()
{
    TStage stage;
    stage.Show(42);
    stage.Type(QStringLiteral("7"));
    stage.finger.Touch(stage.Key(TStage::Cross));
    QCOMPARE(stage.cancels, 1);
    QCOMPARE(stage.Shown(), QStringLiteral("7"));
    QVERIFY(stage.values.isEmpty());
    QVERIFY(stage.pad->isVisible());
}

void TNumberPadTest::oddValuesAreNeverEmitted_data()
{
    QTest::addColumn<double>("value");
    QTest::newRow("not a number") << NotANumber;
    QTest::newRow("infinity") << Infinity;
    QTest::newRow("negative infinity") << -Infinity;
    QTest::newRow("1e300") << 1e300;
    QTest::newRow("-1e300") << -1e300;
}

void TNumberPadTest::oddValuesAreNeverEmitted()
{
    QFETCH(double, value);
    for (int type = 0; type < 4; ++type)
    {
        TStage stage{ENumberPadType(type)};
        stage.pad->SetBounds(0, 10);
        stage.Show(value);
        stage.Enter(QString());
        for (double const emitted : qAsConst(stage.values))
            QVERIFY(emitted >= 0 && emitted <= 10);
        stage.pad->SetIncDecEnabled(true, true);
        stage.Enter(QStringLiteral("-"));
        stage.Enter(QStringLiteral("<"));
        stage.Enter(QStringLiteral("5"));
        for (double const emitted : qAsConst(stage.values))
            QVERIFY(emitted >= 0 && emitted <= 10);
        if (type == NUMBER_PAD_DECIMAL)
            QVERIFY(!stage.values.isEmpty());
    }
}

void TNumberPadTest::oddBounds_data()
{
    QTest::addColumn<double>("low");
    QTest::addColumn<double>("high");
    QTest::addColumn<bool>("takes5");
    QTest::newRow("not a number below") << NotANumber << 10.0 << true;
    QTest::newRow("not a number above") << 0.0 << NotANumber << true;
    QTest::newRow("no numbers") << NotANumber << NotANumber << true;
    QTest::newRow("infinite") << -Infinity << Infinity << true;
    QTest::newRow("infinite, wrong way round") << Infinity << -Infinity << true;
    QTest::newRow("both infinite") << Infinity << Infinity << false;
    QTest::newRow("1e300") << -1e300 << 1e300 << true;
    QTest::newRow("one value") << 5.0 << 5.0 << true;
    QTest::newRow("another value") << 4.0 << 4.0 << false;
}

void TNumberPadTest::oddBounds()
{
    QFETCH(double, low);
    QFETCH(double, high);
    QFETCH(bool, takes5);
    TStage stage;
    stage.pad->SetBounds(low, high);
    QCOMPARE(stage.Enter(QStringLiteral("5")).isEmpty(), takes5);
    QCOMPARE(stage.values.size(), takes5 ? 1 : 0);
    stage.Show(NotANumber);
    QVERIFY(!stage.Enter(QString()).isEmpty());
    stage.Show(Infinity);
    QVERIFY(!stage.Enter(QString()).isEmpty());
    QCOMPARE(stage.values.size(), takes5 ? 1 : 0);
}

void TNumberPadTest::aNegativeZeroIsZero()
{
    TStage stage;
    stage.Show(-0.0);
    QCOMPARE(stage.Shown(), QStringLiteral("0"));
    QCOMPARE(stage.Enter(QStringLiteral("0-")), QString());
    QCOMPARE(stage.values.size(), 1);
    QVERIFY(!std::signbit(stage.values.first()));
    // Nor does one come back that was set, or that is left of a bound.
    stage.Show(-0.0);
    QCOMPARE(stage.Enter(QString()), QString());
    QVERIFY(!std::signbit(stage.values.last()));
    stage.pad->SetBounds(-1e-17, 9);
    QCOMPARE(stage.Enter(QStringLiteral("10")), QStringLiteral("Enter a value between 0 and 9"));
}

void TNumberPadTest::veryLongEntriesAreRefused()
{
    TStage stage;
    QVERIFY(!stage.Enter(QString(400, QLatin1Char('9'))).isEmpty());
    QVERIFY(stage.values.isEmpty());
    stage.pad->SetBounds(-Infinity, Infinity);
    QVERIFY(!stage.Enter(QString(400, QLatin1Char('9'))).isEmpty());
    QVERIFY(stage.values.isEmpty());
}

void TNumberPadTest::veryManyDecimalPlaces()
{
    TStage stage;
    stage.pad->SetNumberOfDecimalPlaces(std::numeric_limits<int>::max());
    stage.pad->SetBounds(0, 1);
    stage.Show(0.5);
    QVERIFY(!stage.Enter(QStringLiteral("2.5")).isEmpty());
    QCOMPARE(stage.Enter(QStringLiteral(".123456789012")), QString());
    QCOMPARE(stage.values, QVector<double>{0.123456789012});
}

void TNumberPadTest::theWheelTypesAndEnds()
{
    TStage stage;
    stage.pad->HideWindow();
    stage.pad->ShowWindow(true);
    auto const tick = [&stage](int ms)
    {
        stage.screen.m_Clock.Advance(ms);
        stage.navigator.UpdateFocus();
    };
    tick(1000);
    tick(100);
    // The first stop is the key at the upper left; the wheel has to be turned to wake it.
    stage.navigator.OnWheelRight();
    stage.navigator.OnWheelLeft();
    tick(100);
    stage.navigator.OnEnter();
    QTRY_COMPARE(stage.Shown(), QStringLiteral("7"));
    stage.navigator.OnWheelRight();
    tick(100);
    stage.navigator.OnEnter();
    QTRY_COMPARE(stage.Shown(), QStringLiteral("78"));
    stage.navigator.OnBack();
    QTRY_COMPARE(stage.cancels, 1);
}

void TNumberPadTest::enterAndBackPressTheLastKeys()
{
    TStage stage;
    stage.Type(QStringLiteral("5"));
    QCOMPARE(stage.pad->OnMMIEnter(), nullptr);
    QVERIFY(stage.Key(TStage::Tick)->isDown());
    QTRY_COMPARE(stage.values, QVector<double>{5});
    QCOMPARE(stage.pad->OnMMIBack(), false);
    QVERIFY(stage.Key(TStage::Cross)->isDown());
    QTRY_COMPARE(stage.cancels, 1);
    stage.Key(TStage::Tick)->hide();
    stage.Key(TStage::Cross)->hide();
    stage.pad->OnMMIEnter();
    stage.pad->OnMMIBack();
    QVERIFY(!stage.Key(TStage::Tick)->isDown());
    QVERIFY(!stage.Key(TStage::Cross)->isDown());
}

void TNumberPadTest::diesInTheSlotsOfItsSignals_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("last");
    QTest::newRow("digit") << 0 << "" << 5;
    QTest::newRow("digit after the sign") << 0 << "-" << 5;
    QTest::newRow("sign") << 0 << "5" << 14;
    QTest::newRow("point") << 0 << "5" << 13;
    QTest::newRow("backspace") << 0 << "5" << 10;
    QTest::newRow("tick") << 0 << "5" << 16;
    QTest::newRow("cross") << 0 << "5" << 15;
    QTest::newRow("plus") << 0 << "5" << 12;
    QTest::newRow("minus") << 0 << "5" << 11;
    QTest::newRow("colon") << 1 << "5" << 13;
    QTest::newRow("am and pm") << 1 << "5" << 14;
    QTest::newRow("tick of a time") << 1 << "5" << 16;
    QTest::newRow("slash") << 2 << "5" << 13;
    QTest::newRow("tick of a date") << 2 << "2460000" << 16;
    QTest::newRow("dot") << 3 << "5" << 13;
    QTest::newRow("tick of an address") << 3 << "1.2.3.4" << 16;
}

void TNumberPadTest::diesInTheSlotsOfItsSignals()
{
    QFETCH(int, type);
    QFETCH(QString, keys);
    QFETCH(int, last);
    TStage stage(ENumberPadType(type), false);
    stage.pad->SetNumberOfDecimalPlaces(2);
    stage.pad->SetInlineOptions(true, true);
    stage.Arrange();
    stage.Type(keys);
    auto const die = [&stage] { delete stage.pad.data(); };
    connect(stage.pad, &TNumberPad::NewText, this, die);
    connect(stage.pad, &TNumberPad::NewValueDbl, this, die);
    connect(stage.pad, &TNumberPad::NewIPAddressValue, this, die);
    connect(stage.pad, &TNumberPad::Cancel, this, die);
    connect(stage.pad, &TNumberPad::IncrementPressed, this, die);
    connect(stage.pad, &TNumberPad::DecrementPressed, this, die);
    stage.finger.Touch(stage.Key(last));
    QVERIFY(!stage.pad);
}

void TNumberPadTest::diesWhileItIsPressed()
{
    TStage stage;
    TKey* const key = stage.Key(5);
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    QVERIFY(key->isDown());
    delete stage.pad.data();
    stage.finger.Lift();
    QVERIFY(!stage.pad);
}

void TNumberPadTest::diesWithItsMessageUp()
{
    TStage stage;
    stage.pad->SetBounds(0, 1);
    stage.Type(QStringLiteral("5"));
    stage.finger.Touch(stage.Key(TStage::Tick));
    QVERIFY(stage.Message());
    delete stage.pad.data();
    QVERIFY(!stage.Message());
}

void TNumberPadTest::outlivesTheScreenWithItsMessageUp()
{
    std::unique_ptr<TNumberPad> pad;
    {
        TTestScreen const screen;
        pad = std::make_unique<TNumberPad>(nullptr, NUMBER_PAD_DECIMAL);
        pad->SetBounds(0, 1);
        pad->OnDigit(5);
        pad->OnOK();
    }
    pad->OnDigit(6);
    QCOMPARE(pad->GetValueDbl(), 6.0);
}

void TNumberPadTest::backspaceEmptiesWhatIsNoPlainNumber_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("not a number") << qQNaN() << QString();
    QTest::newRow("an exponent") << 1e15 << QString();
    QTest::newRow("a number") << -12.0 << QStringLiteral("-1");
}

void TNumberPadTest::backspaceEmptiesWhatIsNoPlainNumber()
{
    QFETCH(double, value);
    QFETCH(QString, shown);
    TNumberPadStage stage;
    stage.pad->SetBounds(-1e20, 1e20);
    stage.Show(value);
    stage.Type(QStringLiteral("<"));
    QCOMPARE(stage.Shown(), shown);
}

COMMONUI_TEST(TNumberPadTest)
#include "TNumberPadTest.moc"
