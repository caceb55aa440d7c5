#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TAllocationCount.h"
#include "TestCase.h"
#include "TKeyboardStage.h"
#include "TKeyboardTables.h"
#include "TListPicker.h"

#include <QLineEdit>
#include <QPainter>
#include <QSignalSpy>

namespace
{
constexpr int Turkish = 19;
constexpr int Hexadecimal = 23;
constexpr int LayoutCount = 24;
QString const PlainSymbols = QStringLiteral("1234567890-=[]\\:,./");
QString const ShiftSymbols = QStringLiteral("!@#$%\"&*()_+{}|:<>?");

QStringList StoredRows(int layout)
{
    QStringList rows;
    for (std::size_t row = 0; row <= TKeyboardTables::RowSpacer; ++row)
    {
        char32_t const* const keys = TKeyboardTables::Layouts[std::size_t(layout)][row];
        QString const text = keys ? QString::fromUcs4(keys) : QString();
        if (!text.isEmpty())
            rows.append(text);
    }
    return rows;
}

QString Symbols(QString text)
{
    for (QChar& character : text)
    {
        int const index = PlainSymbols.indexOf(character);
        if (index >= 0)
            character = ShiftSymbols.at(index);
    }
    return text;
}

QString SmallLetters(QString text, int layout)
{
    if (layout == Turkish)
        text.replace(QLatin1Char('I'), QStringLiteral("ı")).replace(QStringLiteral("İ"), QStringLiteral("i"));
    return text.toLower();
}

/// Takes a widget to its end.
class TEnd : public QObject
{
    Q_OBJECT

public:
    explicit TEnd(QWidget* victim)
        : m_Victim(victim)
    {
    }

public Q_SLOTS:
    void Come() { delete m_Victim.data(); }

private:
    QPointer<QWidget> m_Victim;
};

void AddLayouts()
{
    QTest::addColumn<int>("layout");
    for (int layout = 0; layout < LayoutCount; ++layout)
        QTest::newRow(qPrintable(QStringLiteral("layout %1").arg(layout))) << layout;
}
} // namespace

/// Touches the keyboard in all its layouts and states.
class TKeyboardTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLayoutOpensInCapitalsAndDigits_data() { AddLayouts(); }
    void everyLayoutOpensInCapitalsAndDigits();
    void theLockChangesEveryLayoutToSmallLettersAndSymbols_data() { AddLayouts(); }
    void theLockChangesEveryLayoutToSmallLettersAndSymbols();
    void everyKeyOfEveryLayoutTypesWhatStandsOnIt_data() { AddLayouts(); }
    void everyKeyOfEveryLayoutTypesWhatStandsOnIt();
    void theSymbolsHaveTheirOddPlaces();
    void turkishTellsTheLettersWithAndWithoutADotApart();
    void shiftThenALetterGivesOneCapitalAndGoesBack();
    void capsAndShiftGiveASmallLetterAndSymbolsForOneKeyPress();
    void shiftTwiceChangesNothing();
    void theLockEndsAPendingShift();
    void aCharacterComesWhileItsShiftStillStands();
    void aPendingShiftIsSeenOnItsKey();
    void theLockShowsWhereItGoes();
    void theNextClientFindsNoPendingShiftAndTheLockAsItWas();

    void hexadecimalHasNoShiftNoLockAndNoArrows();
    void hexModeForcesCapitalsAndLeavesThemOn();
    void hexModeEndsOnTheLayoutBefore();
    void hexModeOutlivesAnotherShowing();
    void hexModeTwiceIsOnce();
    void anAlternativeLayoutReplacesShiftByTheLayoutKey();
    void theLayoutKeyTakesThePlaceOfShiftAndGivesItBack();
    void theLayoutKeyGoesThereAndBack();
    void theNextShowingBeginsWithTheOwnLayout();
    void aLayoutForAHiddenKeyboardShowsWithIt();
    void theLayoutIsOneForAllKeyboards();
    void unknownLayoutsCountAsEnglishAndNone();
    void englishLastsUntilItIsTakenBack();

    void arrowsAndBackspaceSaySoAndRepeatWhileHeld();
    void theToolTipsExplainTheSpecialKeys();
    void okHidesAndThenSaysDone();
    void cancelHidesAndThenSaysCancel();
    void clientsClickOkAndCancelWithAPressThatIsSeen();
    void aDeadOkCannotBeClicked();
    void keysAreNamedAfterWhatTheyType();
    void theInputAreaIsNoKey();
    void aTouchOfTheInputAreaIsNeitherSeenNorHeardNorTakesTheFocus();
    void aHiddenPressCannotBeSeen();
    void aHiddenKeyboardIsNotCancelled();

    void theKeysAreBuiltOnce();
    void aShiftScalesNothing();
    void facesAreMadeBeforeTheyAreShown();
    void theSecondOpeningBuildsNothing();
    void aShiftShowsWhatANewKeyboardWouldShow();
    void theWheelWalksTheKeysRowByRow();
    void theWheelTypesAndBackCancels();
    void theWheelFindsTheKeysOfAnotherLayout();
    void theWheelFindsTheKeysThatAnotherLayoutAdds();

    void diesInTheSlotOfItsOwnSignals_data();
    void diesInTheSlotOfItsOwnSignals();
    void diesInTheSlotOfItsShowing();
    void diesInTheSlotOfItsShowingByItsParent();
    void aClickThatOutlivesTheKeyboardIsNone();
    void aHeldKeyIsLetGoWhenTheKeyboardHides();
    void fullWidthHasNoInputArea();
    void diesWhileAKeyIsDown();
    void worksWithoutAScreen();
};

void TKeyboardTest::everyLayoutOpensInCapitalsAndDigits()
{
    QFETCH(int, layout);
    TKeyboardStage const stage(layout);
    QCOMPARE(stage.Rows(), StoredRows(layout));
}

void TKeyboardTest::theLockChangesEveryLayoutToSmallLettersAndSymbols()
{
    QFETCH(int, layout);
    if (layout == Hexadecimal)
        return;
    TKeyboardStage stage(layout);
    QStringList expected = StoredRows(layout);
    for (int row = 0; row < expected.size(); ++row)
        expected[row] = row == 0 || row == 4 ? Symbols(expected[row]) : SmallLetters(expected[row], layout);

    stage.finger.Touch(stage.Lock());
    QCOMPARE(stage.Rows(), expected);
    stage.finger.Touch(stage.Lock());
    QCOMPARE(stage.Rows(), StoredRows(layout));
}

void TKeyboardTest::everyKeyOfEveryLayoutTypesWhatStandsOnIt()
{
    QFETCH(int, layout);
    TKeyboardStage stage(layout);
    QString expected = StoredRows(layout).join(QString());
    for (char16_t const deadKey : TKeyboardTables::DeadKeys)
        expected.remove(QChar(deadKey));
    QVERIFY(stage.Type(expected));
    QCOMPARE(stage.typed, expected);
}

void TKeyboardTest::theSymbolsHaveTheirOddPlaces()
{
    QCOMPARE(TKeyboard::ShiftedSymbols().size(), 19);
    QCOMPARE(TKeyboard::ShiftedSymbols().value(QLatin1Char('2')), QChar(QLatin1Char('@')));
    QCOMPARE(TKeyboard::ShiftedSymbols().value(QLatin1Char('6')), QChar(QLatin1Char('"')));
    QCOMPARE(TKeyboard::ShiftedSymbols().value(QLatin1Char(';')), QChar(QLatin1Char(':')));
    QVERIFY(!TKeyboard::ShiftedSymbols().contains(QLatin1Char(':')));
}

void TKeyboardTest::turkishTellsTheLettersWithAndWithoutADotApart()
{
    TKeyboardStage stage(Turkish);
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Type(QStringLiteral("ıi")));
    QCOMPARE(stage.typed, QStringLiteral("ıi"));
    QVERIFY(!stage.Key(QLatin1Char('I')));
    QVERIFY(!stage.Key(QChar(0x0130)));
}

void TKeyboardTest::shiftThenALetterGivesOneCapitalAndGoesBack()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Lock());
    stage.finger.Touch(stage.Shift());
    QVERIFY(stage.Type(QStringLiteral("Kk")));
    QCOMPARE(stage.typed, QStringLiteral("Kk"));
}

void TKeyboardTest::capsAndShiftGiveASmallLetterAndSymbolsForOneKeyPress()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Shift());
    QCOMPARE(stage.Rows().constFirst(), QStringLiteral("!@#$%\"&*()"));
    QVERIFY(stage.Type(QStringLiteral("k")));
    QCOMPARE(stage.typed, QStringLiteral("k"));
    QCOMPARE(stage.Rows().constFirst(), QStringLiteral("1234567890"));

    stage.finger.Touch(stage.Shift());
    QVERIFY(stage.Type(QStringLiteral("\"6")));
    QCOMPARE(stage.typed, QStringLiteral("k\"6"));
}

void TKeyboardTest::shiftTwiceChangesNothing()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Shift());
    stage.finger.Touch(stage.Shift());
    QCOMPARE(stage.Rows(), StoredRows(0));
    QVERIFY(stage.Type(QStringLiteral("KL")));
}

void TKeyboardTest::theLockEndsAPendingShift()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Shift());
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Type(QStringLiteral("kl")));
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Type(QStringLiteral("KL")));
}

void TKeyboardTest::aCharacterComesWhileItsShiftStillStands()
{
    TKeyboardStage stage;
    QString faces;
    connect(stage.keyboard.data(), &TKeyboard::NewChar, this, [&] { faces = stage.AllFaces(); });
    stage.finger.Touch(stage.Shift());
    QString const shifted = stage.AllFaces();
    QVERIFY(stage.Type(QStringLiteral("k")));
    QCOMPARE(faces, shifted);
    QVERIFY(stage.AllFaces() != shifted);
}

void TKeyboardTest::aPendingShiftIsSeenOnItsKey()
{
    TKeyboardStage stage;
    QImage const idle = stage.Shift()->grab().toImage();
    stage.finger.Touch(stage.Shift());
    QImage const pending = stage.Shift()->grab().toImage();
    QVERIFY(pending != idle);
    stage.Shift()->OnMMIHighlight();
    QVERIFY(stage.Shift()->grab().toImage() != pending);
    stage.Shift()->OnMMIUnHighlight();
    stage.finger.Touch(stage.Shift());
    QCOMPARE(stage.Shift()->grab().toImage(), idle);
}

void TKeyboardTest::theLockShowsWhereItGoes()
{
    TKeyboardStage stage;
    QCOMPARE(stage.Lock()->GetIconName(), QStringLiteral("CapsLockToLower"));
    stage.finger.Touch(stage.Lock());
    QCOMPARE(stage.Lock()->GetIconName(), QStringLiteral("CapsLockToUpper"));
}

void TKeyboardTest::theNextClientFindsNoPendingShiftAndTheLockAsItWas()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Lock());
    stage.finger.Touch(stage.Shift());
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    QVERIFY(stage.Type(QStringLiteral("kl")));
    QCOMPARE(stage.typed, QStringLiteral("kl"));
}

void TKeyboardTest::hexadecimalHasNoShiftNoLockAndNoArrows()
{
    TKeyboardStage const stage(Hexadecimal, 3);
    QCOMPARE(stage.Rows(), QStringList({QStringLiteral("1234567890"), QStringLiteral("ABCDEF")}));
    for (TKey const* const key :
         {stage.Shift(), stage.Lock(), stage.Left(), stage.Right(), stage.LayoutKey()})
        QVERIFY(!key);
    for (TKey const* const key : {stage.Ok(), stage.CancelKey(), stage.BackspaceKey()})
        QVERIFY(key);
}

void TKeyboardTest::hexModeForcesCapitalsAndLeavesThemOn()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Lock());
    stage.finger.Touch(stage.Shift());
    stage.keyboard->SetHexMode(true);
    QVERIFY(stage.Type(QStringLiteral("0AFAF")));
    QCOMPARE(stage.typed, QStringLiteral("0AFAF"));
    stage.keyboard->SetHexMode(false);
    QCOMPARE(stage.Rows(), StoredRows(0));
}

void TKeyboardTest::hexModeEndsOnTheLayoutBefore()
{
    TKeyboardStage stage(1, 5);
    stage.finger.Touch(stage.LayoutKey());
    stage.keyboard->SetHexMode(true);
    stage.keyboard->SetHexMode(false);
    QCOMPARE(stage.Rows(), StoredRows(5));
}

void TKeyboardTest::hexModeOutlivesAnotherShowing()
{
    TKeyboardStage stage(1);
    stage.keyboard->SetHexMode(true);
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    QCOMPARE(stage.Rows(), StoredRows(Hexadecimal));
    stage.keyboard->SetLayout(EKeyboardLayout(2), EKeyboardLayout(5));
    QCOMPARE(stage.Rows(), StoredRows(Hexadecimal));
    stage.keyboard->OnLayoutSelected(1);
    QCOMPARE(stage.Rows(), StoredRows(Hexadecimal));
    stage.keyboard->SetHexMode(false);
    QCOMPARE(stage.Rows(), StoredRows(2));
}

void TKeyboardTest::hexModeTwiceIsOnce()
{
    TKeyboardStage stage(1);
    stage.keyboard->SetHexMode(false);
    QCOMPARE(stage.Rows(), StoredRows(1));
    stage.keyboard->SetHexMode(true);
    stage.keyboard->SetHexMode(true);
    stage.keyboard->SetHexMode(false);
    QCOMPARE(stage.Rows(), StoredRows(1));
}

void TKeyboardTest::anAlternativeLayoutReplacesShiftByTheLayoutKey()
{
    TKeyboardStage const plain(5);
    QVERIFY(plain.Shift());
    QVERIFY(!plain.LayoutKey());
    QRect const place = plain.Shift()->geometry();
    TKeyboardStage const stage(5, 0);
    QVERIFY(!stage.Shift());
    QVERIFY(stage.LayoutKey());
    QCOMPARE(stage.LayoutKey()->geometry(), place);
}

void TKeyboardTest::theLayoutKeyTakesThePlaceOfShiftAndGivesItBack()
{
    TKeyboardStage stage(5);
    QRect const place = stage.Shift()->geometry();
    QImage const withShift = stage.Picture();
    stage.keyboard->SetLayout(EKeyboardLayout(5), EKeyboardLayout(0));
    QCOMPARE(stage.LayoutKey()->geometry(), place);
    QVERIFY(stage.LayoutKey()->testAttribute(Qt::WA_OpaquePaintEvent));
    stage.keyboard->SetLayout(EKeyboardLayout(5), KEYBOARD_LAYOUT_NONE);
    QCOMPARE(stage.Picture(), withShift);
}

void TKeyboardTest::theLayoutKeyGoesThereAndBack()
{
    TKeyboardStage stage(5, 0);
    stage.finger.Touch(stage.Lock());
    stage.finger.Touch(stage.Lock());
    stage.finger.Touch(stage.LayoutKey());
    QCOMPARE(stage.Rows(), StoredRows(0));
    stage.finger.Touch(stage.LayoutKey());
    QCOMPARE(stage.Rows(), StoredRows(5));
}

void TKeyboardTest::theNextShowingBeginsWithTheOwnLayout()
{
    TKeyboardStage stage(5, 0);
    stage.finger.Touch(stage.LayoutKey());
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    QCOMPARE(stage.Rows(), StoredRows(5));
}

void TKeyboardTest::aLayoutForAHiddenKeyboardShowsWithIt()
{
    TKeyboardStage stage;
    stage.keyboard->HideWindow();
    stage.keyboard->SetLayout(EKeyboardLayout(17), KEYBOARD_LAYOUT_NONE);
    QCOMPARE(stage.Rows(), StoredRows(0));
    stage.keyboard->ShowWindow(false);
    QCOMPARE(stage.Rows(), StoredRows(17));
}

void TKeyboardTest::theLayoutIsOneForAllKeyboards()
{
    TKeyboardStage const stage(9);
    TKeyboard other(nullptr);
    other.ShowWindow(false);
    QVERIFY(stage.AllFaces().contains(QStringLiteral("Æ")));
    auto const keys = other.findChildren<TKey*>();
    QVERIFY(std::any_of(keys.begin(), keys.end(),
                        [](TKey const* key) { return key->GetCharacter() == QChar(0x00C6); }));
    other.HideWindow();
}

void TKeyboardTest::unknownLayoutsCountAsEnglishAndNone()
{
    for (int const wrong : {-1, 24, 1000, -1000})
    {
        TKeyboardStage const stage(wrong, wrong);
        QCOMPARE(stage.Rows(), StoredRows(0));
        QVERIFY(stage.Shift());
    }
}

void TKeyboardTest::englishLastsUntilItIsTakenBack()
{
    TKeyboardStage stage(5, 3);
    stage.keyboard->SetEnglishLayout(false);
    QCOMPARE(stage.Rows(), StoredRows(5));
    stage.keyboard->SetEnglishLayout(true);
    stage.keyboard->SetEnglishLayout(true);
    QCOMPARE(stage.Rows(), StoredRows(0));
    QVERIFY(stage.Shift());
    stage.keyboard->SetEnglishLayout(false);
    QCOMPARE(stage.Rows(), StoredRows(5));
    stage.finger.Touch(stage.LayoutKey());
    QCOMPARE(stage.Rows(), StoredRows(3));
}

void TKeyboardTest::arrowsAndBackspaceSaySoAndRepeatWhileHeld()
{
    TKeyboardStage stage;
    QSignalSpy const left(stage.keyboard.data(), &TKeyboard::LeftArrow);
    QSignalSpy const right(stage.keyboard.data(), &TKeyboard::RightArrow);
    QSignalSpy const back(stage.keyboard.data(), &TKeyboard::Backspace);
    stage.finger.Touch(stage.Left());
    QCOMPARE(left.count(), 1);
    stage.finger.Touch(stage.Right());
    QCOMPARE(right.count(), 1);
    for (TKey const* const key : {stage.Left(), stage.Right(), stage.BackspaceKey()})
    {
        QVERIFY(key->autoRepeat());
        QCOMPARE(key->autoRepeatDelay(), 250);
        QCOMPARE(key->autoRepeatInterval(), 100);
    }
    QVERIFY(!stage.Key(QLatin1Char('A'))->autoRepeat());
    TKey* const key = stage.BackspaceKey();
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    QTRY_VERIFY(back.count() >= 2);
    stage.finger.Lift();
    QVERIFY(stage.typed.isEmpty());
}

void TKeyboardTest::theToolTipsExplainTheSpecialKeys()
{
    TKeyboardStage const stage;
    QCOMPARE(stage.Lock()->GetToolTip(),
             QStringLiteral("CAPS Lock Key: Toggle uppercase and lowercase keys"));
    QCOMPARE(stage.Shift()->GetToolTip(),
             QStringLiteral("Shift Key: Single character switch between uppercase and lowercase"));
    QCOMPARE(stage.Left()->GetToolTip(),
             QStringLiteral("Move Cursor Left\n(Press and hold to move cursor quickly)"));
    QCOMPARE(stage.Right()->GetToolTip(),
             QStringLiteral("Move Cursor Right\n(Press and hold to move cursor quickly)"));
    QCOMPARE(stage.BackspaceKey()->GetToolTip(),
             QStringLiteral("Backspace\n(Press and hold to delete multiple characters)"));
    QVERIFY(stage.Ok()->GetToolTip().isEmpty());
    QVERIFY(stage.CancelKey()->GetToolTip().isEmpty());
}

void TKeyboardTest::okHidesAndThenSaysDone()
{
    TKeyboardStage stage;
    bool hidden = false;
    QSignalSpy const done(stage.keyboard.data(), &TKeyboard::Done);
    connect(stage.keyboard.data(), &TKeyboard::Done, this, [&] { hidden = !stage.keyboard->isVisible(); });
    stage.finger.Touch(stage.Ok());
    QCOMPARE(done.count(), 1);
    QVERIFY(hidden);
}

void TKeyboardTest::cancelHidesAndThenSaysCancel()
{
    TKeyboardStage stage;
    bool hidden = false;
    QSignalSpy const cancelled(stage.keyboard.data(), &TKeyboard::Cancel);
    connect(stage.keyboard.data(), &TKeyboard::Cancel, this, [&] { hidden = !stage.keyboard->isVisible(); });
    stage.finger.Touch(stage.CancelKey());
    QCOMPARE(cancelled.count(), 1);
    QVERIFY(hidden);
}

void TKeyboardTest::clientsClickOkAndCancelWithAPressThatIsSeen()
{
    TKeyboardStage stage;
    QSignalSpy const done(stage.keyboard.data(), &TKeyboard::Done);
    QSignalSpy const cancelled(stage.keyboard.data(), &TKeyboard::Cancel);
    stage.keyboard->ClickOk();
    QVERIFY(stage.Ok()->isDown());
    QTRY_COMPARE(done.count(), 1);
    stage.keyboard->ShowWindow(false);
    stage.keyboard->ClickCancel();
    QVERIFY(stage.CancelKey()->isDown());
    QTRY_COMPARE(cancelled.count(), 1);
    QVERIFY(!stage.keyboard->isVisible());
}

void TKeyboardTest::aDeadOkCannotBeClicked()
{
    TKeyboardStage stage;
    QSignalSpy const done(stage.keyboard.data(), &TKeyboard::Done);
    stage.keyboard->EnableOKButton(false);
    stage.finger.Touch(stage.Shift());
    QVERIFY(!stage.Ok()->isEnabled());
    stage.keyboard->ClickOk();
    stage.finger.Touch(stage.Ok());
    QVERIFY(!stage.Ok()->isDown());
    QCOMPARE(done.count(), 0);
    stage.keyboard->EnableOKButton(true);
    stage.finger.Touch(stage.Ok());
    QCOMPARE(done.count(), 1);
}

void TKeyboardTest::keysAreNamedAfterWhatTheyType()
{
    TKeyboardStage stage;
    QCOMPARE(stage.Key(QLatin1Char('K'))->objectName(), QStringLiteral("Key K"));
    QCOMPARE(stage.Key(QLatin1Char(' '))->objectName(), QStringLiteral("Key Space"));
    stage.finger.Touch(stage.Shift());
    QCOMPARE(stage.Key(QLatin1Char('k'))->objectName(), QStringLiteral("Key k"));
    QCOMPARE(stage.Key(QLatin1Char('@'))->objectName(), QStringLiteral("Key @"));
}

void TKeyboardTest::theInputAreaIsNoKey()
{
    TKeyboardStage stage;
    QRect const area = stage.keyboard->GetInputAreaGeometry();
    stage.finger.Touch(area.center());
    QVERIFY(stage.typed.isEmpty());
    QVERIFY(stage.keyboard->GetValue().isEmpty());
    auto const stops = stage.navigator.FindMMICapableChildren(stage.keyboard);
    QVERIFY(!stops.isEmpty());
    for (TMMICapableWeakRef const& stop : stops)
        QVERIFY(stop.Widget()->parentWidget() != stage.keyboard);
}

void TKeyboardTest::aTouchOfTheInputAreaIsNeitherSeenNorHeardNorTakesTheFocus()
{
    TKeyboardStage stage;
    auto* const text = new QLineEdit(stage.screen.get());
    text->show();
    text->setFocus();
    stage.finger.Touch(stage.Shift());
    auto const& sounds = stage.screen->m_Recorder.m_Sounds;
    int const heard = sounds.size();
    QVERIFY(heard > 0);
    QImage const before = stage.Picture();
    stage.finger.Press(stage.keyboard->GetInputAreaGeometry().center());
    QCOMPARE(stage.Picture(), before);
    stage.finger.Lift();
    QCOMPARE(sounds.size(), heard);
    QCOMPARE(stage.screen->focusWidget(), text);
}

void TKeyboardTest::aHiddenPressCannotBeSeen()
{
    TKeyboardStage stage;
    TKey* const key = stage.Key(QLatin1Char('K'));
    QImage const idle = key->grab().toImage();
    stage.keyboard->DisableButtonPress(true);
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    QVERIFY(key->isDown());
    QCOMPARE(key->grab().toImage(), idle);
    stage.finger.Lift();
    QCOMPARE(stage.typed, QStringLiteral("K"));
    QVERIFY(key->UseDefaultMMIHighlight());

    stage.keyboard->DisableButtonPress(false);
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    QVERIFY(key->grab().toImage() != idle);
    stage.finger.Lift();
    QVERIFY(!key->UseDefaultMMIHighlight());
}

void TKeyboardTest::aHiddenKeyboardIsNotCancelled()
{
    TKeyboardStage stage;
    TKey const* const cancel = stage.CancelKey();
    stage.keyboard->HideWindow();
    stage.keyboard->OnMMIBack();
    QVERIFY(!cancel->isDown());
}

void TKeyboardTest::theKeysAreBuiltOnce()
{
    TKeyboardStage stage;
    auto const before = stage.keyboard->findChildren<TKey*>();
    stage.finger.Touch(stage.Shift());
    QVERIFY(stage.Type(QStringLiteral("k")));
    stage.finger.Touch(stage.Lock());
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    stage.keyboard->SetHexMode(true);
    stage.keyboard->SetHexMode(false);
    QCOMPARE(stage.keyboard->findChildren<TKey*>(), before);
}

// Art that was exchanged behind its back would show if a shift fetched or scaled any. The key of the shift
// itself changes between two that are at hand.
void TKeyboardTest::aShiftScalesNothing()
{
    TKeyboardStage stage;
    auto const pictureOfTheOthers = [&stage]
    {
        QImage picture = stage.Picture();
        QPainter painter(&picture);
        painter.fillRect(QRect(stage.Shift()->mapTo(stage.keyboard, QPoint()), stage.Shift()->size()),
                         Qt::black);
        return picture;
    };
    QImage const capitals = pictureOfTheOthers();
    stage.finger.Touch(stage.Shift());
    QImage const small = pictureOfTheOthers();
    stage.finger.Touch(stage.Shift());
    QVERIFY(small != capitals);
    qint64 const cached = stage.screen->GetPixmapManager()->CachedBytes();
    stage.finger.Touch(stage.Shift());
    stage.finger.Touch(stage.Shift());
    QCOMPARE(stage.screen->GetPixmapManager()->CachedBytes(), cached);

    QString const red = QStringLiteral(":/Images/Resources/button-red-up.png");
    stage.screen->GetPixmapManager()->AddPixmap(PixmapNames::ButtonBlank, red, 12, 12, 47, 44, false, 1.0F);
    stage.finger.Touch(stage.Shift());
    QCOMPARE(pictureOfTheOthers(), small);
    stage.finger.Touch(stage.Shift());
    QCOMPARE(pictureOfTheOthers(), capitals);
}

// A key whose faces were forgotten lays out its text and puts its background together again.
void TKeyboardTest::facesAreMadeBeforeTheyAreShown()
{
    TKeyboardStage stage;
    auto const priceOfAPicture = [&stage]
    {
        TAllocationCount const allocations;
        stage.Picture();
        return allocations.Value();
    };
    for (bool const fullWidth : {false, true})
    {
        stage.Picture();
        stage.keyboard->SetFullWidthMode(fullWidth);
        if (!fullWidth)
            stage.finger.Touch(stage.Shift());
        qint64 const made = priceOfAPicture();
        auto const keys = stage.Keys();
        for (TKey* const key : keys)
        {
            key->SetLargeFont(false);
            key->SetLargeFont(true);
        }
        stage.Picture();
        qint64 const anew = priceOfAPicture();
        QVERIFY2(made < anew / 2, qPrintable(QStringLiteral("%1 of %2").arg(made).arg(anew)));
    }
}

void TKeyboardTest::theSecondOpeningBuildsNothing()
{
    TKeyboardStage stage;
    auto const reopen = [&stage]
    {
        stage.keyboard->HideWindow();
        TAllocationCount const allocations;
        stage.keyboard->ShowWindow(false);
        return allocations.Value();
    };
    auto const before = stage.keyboard->findChildren<QWidget*>();
    qint64 const cached = stage.screen->GetPixmapManager()->CachedBytes();
    reopen();
    QCOMPARE(stage.keyboard->findChildren<QWidget*>(), before);
    QCOMPARE(stage.screen->GetPixmapManager()->CachedBytes(), cached);
    stage.keyboard->HideWindow();

    TAllocationCount const allocations;
    TKeyboard fresh(nullptr);
    fresh.ShowWindow(false);
    qint64 const first = allocations.Value();
    fresh.HideWindow();
    qint64 const again = reopen();
    QVERIFY2(again < first / 10, qPrintable(QStringLiteral("%1 of %2").arg(again).arg(first)));
}

void TKeyboardTest::aShiftShowsWhatANewKeyboardWouldShow()
{
    TKeyboardStage used(4);
    for (int i = 0; i < 2; ++i)
    {
        used.finger.Touch(used.Lock());
        used.Picture();
    }
    used.finger.Touch(used.Lock());
    used.keyboard->SetLayout(EKeyboardLayout(1), KEYBOARD_LAYOUT_NONE);
    QImage const shown = used.Picture();

    used.keyboard->HideWindow();
    TKeyboard fresh(nullptr);
    fresh.ShowWindow(false);
    auto const keys = fresh.findChildren<TKey*>();
    auto const lock =
        std::find_if(keys.begin(), keys.end(),
                     [](TKey const* key) { return key->GetIconName() == QLatin1String("CapsLockToLower"); });
    QVERIFY(lock != keys.end());
    used.finger.Touch(*lock);
    QCOMPARE(used.screen->grab(fresh.geometry()).toImage(), shown);
    fresh.HideWindow();
}

void TKeyboardTest::theWheelWalksTheKeysRowByRow()
{
    TKeyboardStage stage;
    stage.screen->PushMMIWidget(stage.keyboard);
    QStringList names;
    auto const stops = stage.navigator.FindMMICapableChildren(TMMICapableWeakRef(stage.keyboard.data()));
    for (TMMICapableWeakRef const& stop : stops)
    {
        auto const* const key = dynamic_cast<TKey*>(stop.Object());
        if (key && !key->isHidden())
            names += key->GetText();
    }
    QCOMPARE(names.join(QString()).left(14), QStringLiteral("1234567890QWER"));
    QCOMPARE(names.size(), stage.Keys().size());
}

void TKeyboardTest::theWheelTypesAndBackCancels()
{
    TKeyboardStage stage;
    QSignalSpy const cancelled(stage.keyboard.data(), &TKeyboard::Cancel);
    stage.screen->PushMMIWidget(stage.keyboard);
    stage.Tick(1000);
    stage.navigator.OnWheelRight();
    stage.Tick();
    stage.navigator.OnWheelRight();
    stage.Tick();
    stage.navigator.OnEnter();
    QTRY_COMPARE(stage.typed.size(), 1);
    QVERIFY(stage.typed.at(0).isDigit());
    QVERIFY(stage.navigator.OnBack());
    QTRY_COMPARE(cancelled.count(), 1);
}

void TKeyboardTest::theWheelFindsTheKeysOfAnotherLayout()
{
    TKeyboardStage stage;
    stage.screen->PushMMIWidget(stage.keyboard);
    stage.Tick(1000);
    stage.navigator.OnWheelRight();
    stage.Tick();
    stage.keyboard->SetHexMode(true);
    for (int step = 0; step < 15; ++step)
    {
        int const before = stage.typed.size();
        stage.navigator.OnEnter();
        QTRY_COMPARE_WITH_TIMEOUT(stage.typed.size(), before + 1, 1000);
        stage.navigator.OnWheelRight();
        stage.Tick();
    }
    QCOMPARE(stage.typed, QStringLiteral("234567890ABCDEF"));
}

void TKeyboardTest::theWheelFindsTheKeysThatAnotherLayoutAdds()
{
    TKeyboardStage stage(Hexadecimal);
    stage.screen->PushMMIWidget(stage.keyboard);
    stage.keyboard->SetLayout(KEYBOARD_LAYOUT_ENGLISH, KEYBOARD_LAYOUT_NONE);
    stage.Tick(1000);
    // No event loop runs, so that each stays down.
    auto const keys = stage.Keys();
    // The first turn only wakes the wheel.
    for (int turn = 0; turn <= keys.size(); ++turn)
    {
        stage.navigator.OnWheelRight();
        stage.Tick();
        stage.navigator.OnEnter();
    }
    for (TKey const* const key : keys)
        QVERIFY2(key->isDown(), qPrintable(key->objectName()));
}

void TKeyboardTest::diesInTheSlotOfItsOwnSignals_data()
{
    QTest::addColumn<QByteArray>("signal");
    QTest::addColumn<QString>("key");
    QTest::newRow("a character") << QByteArray(SIGNAL(NewChar(QChar))) << QStringLiteral("A");
    QTest::newRow("backspace") << QByteArray(SIGNAL(Backspace())) << QStringLiteral("icon-backspace");
    QTest::newRow("left") << QByteArray(SIGNAL(LeftArrow())) << QStringLiteral("icon-left");
    QTest::newRow("right") << QByteArray(SIGNAL(RightArrow())) << QStringLiteral("icon-right");
    QTest::newRow("cancel") << QByteArray(SIGNAL(Cancel())) << QStringLiteral("icon-cross");
    QTest::newRow("done") << QByteArray(SIGNAL(Done())) << QStringLiteral("icon-tick");
    QTest::newRow("new faces") << QByteArray(SIGNAL(GeometryChanged())) << QStringLiteral("Shift");
    QTest::newRow("hidden") << QByteArray(SIGNAL(WindowHidden())) << QStringLiteral("icon-tick");
    QTest::newRow("a choice begins") << QByteArray(SIGNAL(LayoutSelectorUp()))
                                     << QStringLiteral("icon-keyboard");
    QTest::newRow("a choice ends") << QByteArray(SIGNAL(LayoutSelectorDown()))
                                   << QStringLiteral("icon-keyboard");
    QTest::newRow("another layout") << QByteArray(SIGNAL(GeometryChanged()))
                                    << QStringLiteral("icon-keyboard");
}

void TKeyboardTest::diesInTheSlotOfItsOwnSignals()
{
    QFETCH(QByteArray, signal);
    QFETCH(QString, key);
    TKeyboardStage stage;
    if (key == QLatin1String("icon-keyboard"))
        stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    TKey* const touched = key.size() == 1 ? stage.Key(key.at(0)) : stage.Special(key);
    QVERIFY(touched);
    TListPicker picker(stage.finger);
    TEnd end(stage.keyboard);
    QVERIFY(connect(stage.keyboard, signal.constData(), &end, SLOT(Come())));
    stage.finger.Touch(touched);
    if (picker.Overlay())
    {
        picker.TouchRow(0);
        picker.Accept();
    }
    QVERIFY(!stage.keyboard);
}

void TKeyboardTest::diesInTheSlotOfItsShowingByItsParent()
{
    TKeyboardStage stage;
    QWidget parent(stage.screen.get());
    stage.keyboard->setParent(&parent);
    stage.keyboard->show();
    TEnd end(stage.keyboard);
    connect(stage.keyboard.data(), SIGNAL(GeometryChanged()), &end, SLOT(Come()));
    parent.show();
    QVERIFY(stage.keyboard);
    QCoreApplication::processEvents();
    QVERIFY(!stage.keyboard);
}

void TKeyboardTest::aClickThatOutlivesTheKeyboardIsNone()
{
    TKeyboardStage stage;
    QSignalSpy const done(stage.keyboard.data(), &TKeyboard::Done);
    QSignalSpy const cancelled(stage.keyboard.data(), &TKeyboard::Cancel);
    stage.keyboard->ClickOk();
    stage.finger.Touch(stage.CancelKey());
    QCOMPARE(cancelled.count(), 1);
    QTest::qWait(150);
    QCOMPARE(done.count(), 0);
}

void TKeyboardTest::aHeldKeyIsLetGoWhenTheKeyboardHides()
{
    TKeyboardStage stage;
    stage.finger.Press(stage.Left()->mapTo(stage.screen.get(), stage.Left()->rect().center()));
    QVERIFY(stage.Left()->isDown());
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    QVERIFY(!stage.Left()->isDown());
}

void TKeyboardTest::fullWidthHasNoInputArea()
{
    TKeyboardStage stage;
    QVERIFY(!stage.keyboard->GetInputAreaGeometry().isEmpty());
    stage.keyboard->SetFullWidthMode(true);
    QCOMPARE(stage.keyboard->GetInputAreaGeometry(), QRect());
}

void TKeyboardTest::diesInTheSlotOfItsShowing()
{
    TKeyboardStage stage;
    stage.keyboard->HideWindow();
    bool wasVisible = false;
    connect(stage.keyboard.data(), &TKeyboard::GeometryChanged, this,
            [&]
            {
                wasVisible = stage.keyboard->isVisible();
                delete stage.keyboard.data();
            });
    stage.keyboard->ShowWindow(false);
    QVERIFY(wasVisible);
    QVERIFY(!stage.keyboard);
}

void TKeyboardTest::diesWhileAKeyIsDown()
{
    TKeyboardStage stage;
    TKey* const key = stage.Key(QLatin1Char('A'));
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    delete stage.keyboard.data();
    stage.finger.Lift();
    QVERIFY(stage.typed.isEmpty());

    TKeyboardStage held;
    TKey* const backspace = held.BackspaceKey();
    held.finger.Press(backspace->mapTo(held.screen.get(), backspace->rect().center()));
    held.keyboard->ClickOk();
    delete held.keyboard.data();
    QCoreApplication::processEvents();
}

void TKeyboardTest::worksWithoutAScreen()
{
    TKeyboard keyboard(nullptr);
    keyboard.SetLayout(KEYBOARD_LAYOUT_ENGLISH, KEYBOARD_LAYOUT_NONE);
    keyboard.SetFullWidthMode(true);
    keyboard.Reposition();
    keyboard.EnableSpaceKey(false);
    keyboard.ClickOk();
    keyboard.ClickCancel();
    keyboard.OnMMIBack();
    QString typed;
    connect(&keyboard, &TKeyboard::NewChar, this, [&typed](QChar c) { typed += c; });
    keyboard.ShowWindow(false);
    keyboard.SetFullWidthMode(false);
    auto const keys = keyboard.findChildren<TKey*>();
    for (TKey* const key : keys)
        key->click();
    QVERIFY(typed.startsWith(QStringLiteral("1234567890QWERTY")));
    QVERIFY(!keyboard.grab().isNull());
}

COMMONUI_TEST(TKeyboardTest)

#include "TKeyboardTest.moc"
