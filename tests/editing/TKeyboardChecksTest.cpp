#include "Metrics.h"
#include "TestCase.h"
#include "TKeyboardStage.h"
#include "TListPicker.h"

#include <QSignalSpy>

namespace
{
/// A charset whose counts and rows are what a test says.
class TOddCharset : public Keyboard_layouts_api::Charset
{
public:
    int GetLayoutCount() const override { return m_Layouts; }
    QString GetLayoutName(int layout) const override { return QString::number(layout); }
    int GetRowCount(int layout) const override
    {
        Q_UNUSED(layout)
        return m_RowCount;
    }
    QString GetRowText(int layout, int row, bool capitals) const override
    {
        Q_UNUSED(layout)
        Q_UNUSED(capitals)
        return m_Rows.value(row, m_Otherwise);
    }

    int m_Layouts = 1;
    int m_RowCount = 0;
    QStringList m_Rows;
    QString m_Otherwise;
};

/// Layouts with full stops and blanks wherever they can stand.
class TListedCharset : public Keyboard_layouts_api::Charset
{
public:
    explicit TListedCharset(int count)
        : m_Count(count)
    {
    }

    int GetLayoutCount() const override { return m_Count; }
    QString GetLayoutName(int layout) const override { return QString::number(layout); }
    int GetRowCount(int layout) const override
    {
        m_WrongQuestions += layout < m_Count ? 0 : 1;
        return 3;
    }
    QString GetRowText(int layout, int row, bool capitals) const override
    {
        Q_UNUSED(capitals)
        m_WrongQuestions += layout < m_Count ? 0 : 1;
        static QStringList const rows = {QStringLiteral("%1x."), QStringLiteral(".y."),
                                         QStringLiteral(" z ")};
        return row == 0 ? rows.at(0).arg(layout) : rows.at(row);
    }

    int m_Count;
    mutable int m_WrongQuestions = 0;
};

/// So many characters that follow each other.
QString RowOf(int count, ushort first)
{
    QString row;
    for (int i = 0; i < count; ++i)
        row += QChar(ushort(first + i));
    return row;
}
} // namespace

/// What clients and charsets ask of the keys.
class TKeyboardChecksTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKeyNeedsBothAnswersOfTheCheck();
    void checksAreAStack();
    void noCheckOnTopRefusesNothing();
    void aCheckThatDiesRefusesNothing();
    void aCheckHoldsInBothStates();
    void deadEditKeysLeaveTheOthersAlive();
    void fullStopAndSpaceStayDeadThroughAShift();
    void aKeyThatAClientWantsDeadIsSoAtOnce();
    void clientsMayAskBeforeTheKeysAreBuilt();

    void aCharsetShowsItsFirstLayout();
    void aCharsetHasNoDeadKeys();
    void aCharsetReplacesShiftByTheLayoutKey();
    void theLayoutKeyOffersTheChoiceOfACharset();
    void theChoiceGoesWithTheKeyboard();
    void aRowOfTheChoiceIsShown();
    void aCharsetWithoutLayoutsKeepsShift();
    void aCharsetMayLoseLayouts();
    void onlyTheFirstSpaceOfTheLastRowIsAKey();
    void everySpaceAndFullStopIsDisabled();
    void aPendingShiftEndsWithItsKey();
    void rowsThatAreNoneChangeNothing();
    void aRunIsOneWideKeyAndAGapIsEmpty();
    void aCharsetBringsItsCheck();
    void aPushedCheckGoesFirst();
    void anotherLayoutEndsTheCharset();
    void englishBringsTheCharsetBack();
    void englishBringsTheCheckOfTheCharsetBack();
    void hexadecimalIsTheSameInEveryScript();
    void aBadCharsetIsHeldToTheScreen_data();
    void aBadCharsetIsHeldToTheScreen();
    void anEmptyCharsetHasNoEffect();
    void theChoiceEndsWithTheHundredthLayoutOfACharset();
    void aCharsetWithoutABlankHasNoSpaceKey();
    void manyRowsFlattenTheInputAreaAndTheKeys();
    void keysAreNeverNarrowerThanTheLeastWidth();
};

void TKeyboardChecksTest::aKeyNeedsBothAnswersOfTheCheck()
{
    TKeyboardStage stage;
    TRefusingCheck const check(QStringLiteral("Q7"), QStringLiteral("W"));
    stage.keyboard->PushKeyChecker(&check);
    for (char const dead : {'Q', '7', 'W'})
        QVERIFY(!stage.Key(QLatin1Char(dead))->isEnabled());
    QVERIFY(stage.Key(QLatin1Char('E'))->isEnabled());
    for (TKey const* const key : {stage.Shift(), stage.Lock(), stage.Ok(), stage.BackspaceKey()})
        QVERIFY(key->isEnabled());
    QVERIFY(stage.Type(QStringLiteral("QWE")));
    QCOMPARE(stage.typed, QStringLiteral("E"));
}

void TKeyboardChecksTest::checksAreAStack()
{
    TKeyboardStage stage;
    TRefusingCheck const first(QStringLiteral("Q"));
    TRefusingCheck const second(QStringLiteral("W"));
    stage.keyboard->PopKeyChecker();
    stage.keyboard->PushKeyChecker(&first);
    stage.keyboard->PushKeyChecker(&second);
    QVERIFY(stage.Key(QLatin1Char('Q'))->isEnabled());
    QVERIFY(!stage.Key(QLatin1Char('W'))->isEnabled());
    stage.keyboard->PopKeyChecker();
    QVERIFY(!stage.Key(QLatin1Char('Q'))->isEnabled());
    QVERIFY(stage.Key(QLatin1Char('W'))->isEnabled());
    stage.keyboard->PopKeyChecker();
    QVERIFY(stage.Key(QLatin1Char('Q'))->isEnabled());
}

void TKeyboardChecksTest::noCheckOnTopRefusesNothing()
{
    TKeyboardStage stage;
    TRefusingCheck const check(QStringLiteral("Q"));
    stage.keyboard->PushKeyChecker(&check);
    stage.keyboard->PushKeyChecker(nullptr);
    QVERIFY(stage.Key(QLatin1Char('Q'))->isEnabled());
    stage.keyboard->PopKeyChecker();
    QVERIFY(!stage.Key(QLatin1Char('Q'))->isEnabled());
}

void TKeyboardChecksTest::aCheckThatDiesRefusesNothing()
{
    TKeyboardStage stage;
    auto check = std::make_unique<TRefusingCheck>(QStringLiteral("Qq"));
    stage.keyboard->PushKeyChecker(check.get());
    check.reset();
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Key(QLatin1Char('q'))->isEnabled());
    stage.keyboard->PopKeyChecker();
    QVERIFY(stage.Key(QLatin1Char('q'))->isEnabled());
}

void TKeyboardChecksTest::aCheckHoldsInBothStates()
{
    TKeyboardStage stage;
    TRefusingCheck const check(QStringLiteral("Qw@"));
    stage.keyboard->PushKeyChecker(&check);
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Key(QLatin1Char('q'))->isEnabled());
    QVERIFY(!stage.Key(QLatin1Char('w'))->isEnabled());
    QVERIFY(!stage.Key(QLatin1Char('@'))->isEnabled());
    stage.finger.Touch(stage.Lock());
    QVERIFY(!stage.Key(QLatin1Char('Q'))->isEnabled());
    QVERIFY(stage.Key(QLatin1Char('W'))->isEnabled());
    QVERIFY(stage.Key(QLatin1Char('2'))->isEnabled());
}

void TKeyboardChecksTest::deadEditKeysLeaveTheOthersAlive()
{
    TKeyboardStage stage;
    stage.keyboard->SetEditKeysEnabled(false);
    QVERIFY(stage.Enabled().isEmpty());
    for (TKey const* const key : {stage.Left(), stage.Right(), stage.BackspaceKey(), stage.Ok(),
                                  stage.CancelKey(), stage.Lock(), stage.Shift()})
        QVERIFY(key->isEnabled());
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Enabled().isEmpty());
    stage.keyboard->SetEditKeysEnabled(true);
    QVERIFY(stage.Type(QStringLiteral("a")));
}

void TKeyboardChecksTest::fullStopAndSpaceStayDeadThroughAShift()
{
    TKeyboardStage stage;
    stage.keyboard->EnableFullStopKey(false);
    stage.keyboard->EnableSpaceKey(false);
    QVERIFY(!stage.Key(QLatin1Char('.'))->isEnabled());
    QVERIFY(!stage.Key(QLatin1Char(' '))->isEnabled());
    stage.finger.Touch(stage.Shift());
    QVERIFY(stage.Key(QLatin1Char('>'))->isEnabled());
    QVERIFY(!stage.Key(QLatin1Char(' '))->isEnabled());
    QVERIFY(stage.Type(QStringLiteral("k")));
    QVERIFY(!stage.Key(QLatin1Char('.'))->isEnabled());
    stage.keyboard->EnableFullStopKey(true);
    stage.keyboard->EnableSpaceKey(true);
    QVERIFY(stage.Type(QStringLiteral(". ")));
    QCOMPARE(stage.typed, QStringLiteral("k. "));
}

void TKeyboardChecksTest::aKeyThatAClientWantsDeadIsSoAtOnce()
{
    TKeyboardStage stage;
    TKey const* const fullStop = stage.Key(QLatin1Char('.'));
    TKey const* const space = stage.Key(QLatin1Char(' '));
    for (bool const enable : {false, true})
    {
        stage.keyboard->EnableFullStopKey(enable);
        QCOMPARE(fullStop->isEnabled(), enable);
        QCOMPARE(space->isEnabled(), true);
    }
    for (bool const enable : {false, true})
    {
        stage.keyboard->EnableSpaceKey(enable);
        QCOMPARE(space->isEnabled(), enable);
        QCOMPARE(fullStop->isEnabled(), true);
    }
}

void TKeyboardChecksTest::clientsMayAskBeforeTheKeysAreBuilt()
{
    TKeyboardStage stage;
    delete stage.keyboard.data();
    stage.keyboard = new TKeyboard(nullptr);
    TRefusingCheck const check(QStringLiteral("Q"));
    stage.keyboard->PushKeyChecker(&check);
    stage.keyboard->EnableOKButton(false);
    stage.keyboard->EnableSpaceKey(false);
    stage.keyboard->EnableFullStopKey(false);
    stage.keyboard->DisableButtonPress(true);
    stage.keyboard->ShowWindow(false);
    QVERIFY(!stage.Ok()->isEnabled());
    for (char const dead : {'Q', '.', ' '})
        QVERIFY(!stage.Key(QLatin1Char(dead))->isEnabled());
    QVERIFY(stage.Key(QLatin1Char('W'))->UseDefaultMMIHighlight());
}

void TKeyboardChecksTest::aCharsetShowsItsFirstLayout()
{
    TKeyboardStage stage;
    TGeorgianCharset const georgian;
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    QStringList expected;
    for (int row = 0; row < 4; ++row)
        expected += georgian.GetRowText(0, row, true);
    QCOMPARE(stage.Rows(), expected);
    QVERIFY(stage.Special(QStringLiteral("CapsLock")));
    stage.finger.Touch(stage.Special(QStringLiteral("CapsLock")));
    QCOMPARE(stage.Rows().constFirst(), georgian.GetRowText(0, 0, false));
    QVERIFY(stage.Type(QStringLiteral("ქწ ")));
    QCOMPARE(stage.typed, QStringLiteral("ქწ "));
}

void TKeyboardChecksTest::aCharsetHasNoDeadKeys()
{
    TKeyboardStage stage;
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    stage.keyboard->OnLayoutSelected(2);
    QVERIFY(stage.Type(QStringLiteral("^´")));
    QCOMPARE(stage.typed, QStringLiteral("^´"));
}

void TKeyboardChecksTest::aCharsetReplacesShiftByTheLayoutKey()
{
    TKeyboardStage stage;
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    QVERIFY(!stage.Shift());
    QVERIFY(stage.LayoutKey());
    stage.keyboard->CancelExternalLayout();
    QVERIFY(stage.Shift());
    QVERIFY(!stage.LayoutKey());
    QCOMPARE(stage.Rows().at(1), QStringLiteral("QWERTYUIOP"));
}

void TKeyboardChecksTest::theLayoutKeyOffersTheChoiceOfACharset()
{
    TKeyboardStage stage(5, 1);
    TListPicker picker(stage.finger);
    QStringList told;
    connect(stage.keyboard.data(), &TKeyboard::LayoutSelectorUp, this,
            [&] { told << (picker.Overlay() ? QStringLiteral("up over the list") : QStringLiteral("up")); });
    connect(stage.keyboard.data(), &TKeyboard::LayoutSelectorDown, this,
            [&] { told << QStringLiteral("down ") + stage.Rows().at(1); });
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    QStringList const rows = {QStringLiteral("Standard"), QStringLiteral("Alternative"),
                              QStringLiteral("Georgian"), QStringLiteral("Signs")};
    stage.finger.Touch(stage.LayoutKey());
    QCOMPARE(picker.Rows(), rows);
    QCOMPARE(picker.Selected(), rows.at(2));
    picker.TouchRow(0);
    QCOMPARE(told, QStringList{QStringLiteral("up over the list")});
    picker.Accept();
    QVERIFY(!picker.Overlay());
    QCOMPARE(told.constLast(), QStringLiteral("down ЙЦУКЕНГШЩЗХЪ"));
    stage.finger.Touch(stage.LayoutKey());
    QCOMPARE(picker.Selected(), rows.at(0));
    picker.TouchRow(1);
    picker.Accept();
    QCOMPARE(told.constLast(), QStringLiteral("down QWERTZUIOPÜ"));
    stage.finger.Touch(stage.LayoutKey());
    QCOMPARE(picker.Selected(), rows.at(1));
    picker.TouchRow(3);
    picker.GiveUp();
    QVERIFY(!picker.Overlay());
    QCOMPARE(told.constLast(), QStringLiteral("down QWERTZUIOPÜ"));
    QCOMPARE(told.size(), 6);
}

void TKeyboardChecksTest::theChoiceGoesWithTheKeyboard()
{
    TKeyboardStage stage(5, 1);
    TListPicker const picker(stage.finger);
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    stage.finger.Touch(stage.LayoutKey());
    QPointer<TEditWidget> const list(picker.Overlay());
    QVERIFY(list);
    stage.keyboard->HideWindow();
    QVERIFY(!picker.Overlay());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!list);
    stage.keyboard->ShowWindow(false);
    stage.finger.Touch(stage.LayoutKey());
    QVERIFY(picker.Overlay());
    delete stage.keyboard.data();
    QVERIFY(!picker.Overlay());
    QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
}

void TKeyboardChecksTest::aCharsetWithoutLayoutsKeepsShift()
{
    TKeyboardStage stage;
    stage.keyboard->SetExternalLayout(QSharedPointer<TListedCharset>::create(0), nullptr);
    QVERIFY(stage.Shift());
    QVERIFY(!stage.LayoutKey());
}

void TKeyboardChecksTest::aCharsetMayLoseLayouts()
{
    TKeyboardStage stage;
    auto const charset = QSharedPointer<TListedCharset>::create(2);
    stage.keyboard->SetExternalLayout(charset, nullptr);
    stage.keyboard->OnLayoutSelected(2);
    QCOMPARE(stage.Rows().constFirst(), QStringLiteral("1x."));
    charset->m_Count = 1;
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    QCOMPARE(stage.Rows().at(1), QStringLiteral("QWERTYUIOP"));
    QCOMPARE(charset->m_WrongQuestions, 0);
}

void TKeyboardChecksTest::onlyTheFirstSpaceOfTheLastRowIsAKey()
{
    TKeyboardStage stage;
    stage.keyboard->SetExternalLayout(QSharedPointer<TListedCharset>::create(1), nullptr);
    QCOMPARE(stage.Rows().constLast().count(QLatin1Char(' ')), 1);
}

void TKeyboardChecksTest::everySpaceAndFullStopIsDisabled()
{
    TKeyboardStage stage;
    stage.keyboard->SetExternalLayout(QSharedPointer<TListedCharset>::create(1), nullptr);
    stage.keyboard->EnableFullStopKey(false);
    stage.keyboard->EnableSpaceKey(false);
    QVERIFY(!stage.Enabled().contains(QLatin1Char('.')));
    QVERIFY(!stage.Enabled().contains(QLatin1Char(' ')));
    QVERIFY(stage.Enabled().contains(QLatin1Char('x')));
}

void TKeyboardChecksTest::aPendingShiftEndsWithItsKey()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Shift());
    QCOMPARE(stage.Rows().at(1), QStringLiteral("qwertyuiop"));
    stage.keyboard->SetLayout(KEYBOARD_LAYOUT_ENGLISH, EKeyboardLayout(1));
    QCOMPARE(stage.Rows().at(1), QStringLiteral("QWERTYUIOP"));
}

void TKeyboardChecksTest::aRowOfTheChoiceIsShown()
{
    TKeyboardStage stage(5);
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    QSignalSpy const down(stage.keyboard.data(), &TKeyboard::LayoutSelectorDown);
    stage.keyboard->OnLayoutSelected(0);
    QCOMPARE(stage.Rows().at(1), QStringLiteral("ЙЦУКЕНГШЩЗХЪ"));
    stage.keyboard->OnLayoutSelected(2);
    QCOMPARE(stage.Rows().constFirst(), QStringLiteral("+-*/"));
    stage.keyboard->OnLayoutSelected(1);
    QCOMPARE(stage.Rows().at(1), QStringLiteral("აშდფგჰჟკლ"));
    QCOMPARE(down.count(), 3);
}

void TKeyboardChecksTest::rowsThatAreNoneChangeNothing()
{
    TKeyboardStage stage(5);
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    QSignalSpy const down(stage.keyboard.data(), &TKeyboard::LayoutSelectorDown);
    QString const faces = stage.AllFaces();
    for (double const row : {-1.0, 3.0, 1e300, -1e300, qQNaN(), qInf()})
        stage.keyboard->OnLayoutSelected(row);
    QCOMPARE(stage.AllFaces(), faces);
    QCOMPARE(down.count(), 6);
}

void TKeyboardChecksTest::aRunIsOneWideKeyAndAGapIsEmpty()
{
    TKeyboardStage stage;
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    stage.keyboard->OnLayoutSelected(2);
    int const unit = stage.Key(QLatin1Char('*'))->width();
    QCOMPARE(stage.Key(QLatin1Char('+'))->width(), 2 * unit);
    QCOMPARE(stage.Key(QLatin1Char('-'))->x(), stage.Key(QLatin1Char('+'))->x() + 2 * unit);
    QCOMPARE(stage.Key(QLatin1Char(')'))->x(), stage.Key(QLatin1Char('('))->x() + 3 * unit);
    QVERIFY(!stage.Key(QChar(0xFFFD)));
}

void TKeyboardChecksTest::aCharsetBringsItsCheck()
{
    TKeyboardStage stage;
    auto check = std::make_unique<TRefusingCheck>(QStringLiteral("ქQ"));
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), check.get());
    QVERIFY(!stage.Key(QChar(0x10E5))->isEnabled());
    stage.keyboard->OnLayoutSelected(0);
    QVERIFY(stage.Key(QLatin1Char('Q'))->isEnabled());
    stage.keyboard->OnLayoutSelected(1);
    QVERIFY(!stage.Key(QChar(0x10E5))->isEnabled());
    check.reset();
    stage.keyboard->SetEditKeysEnabled(true);
    QVERIFY(stage.Key(QChar(0x10E5))->isEnabled());
}

void TKeyboardChecksTest::aPushedCheckGoesFirst()
{
    TKeyboardStage stage;
    TRefusingCheck const external(QStringLiteral("ქ"));
    TRefusingCheck const pushed(QStringLiteral("ჭ"));
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), &external);
    stage.keyboard->PushKeyChecker(&pushed);
    QVERIFY(stage.Key(QChar(0x10E5))->isEnabled());
    QVERIFY(!stage.Key(QChar(0x10ED))->isEnabled());
    stage.keyboard->PopKeyChecker();
    QVERIFY(!stage.Key(QChar(0x10E5))->isEnabled());
    QVERIFY(stage.Key(QChar(0x10ED))->isEnabled());
}

void TKeyboardChecksTest::anotherLayoutEndsTheCharset()
{
    TKeyboardStage stage;
    QWeakPointer<TGeorgianCharset> life;
    {
        auto const charset = QSharedPointer<TGeorgianCharset>::create();
        life = charset;
        stage.keyboard->SetExternalLayout(charset, nullptr);
    }
    QVERIFY(life);
    stage.keyboard->SetLayout(EKeyboardLayout(5), KEYBOARD_LAYOUT_NONE);
    QVERIFY(!life);
    QCOMPARE(stage.Rows().at(1), QStringLiteral("ЙЦУКЕНГШЩЗХЪ"));
    QVERIFY(stage.Shift());
}

void TKeyboardChecksTest::englishBringsTheCharsetBack()
{
    TKeyboardStage stage(5);
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    QString const faces = stage.AllFaces();
    stage.keyboard->SetEnglishLayout(true);
    QCOMPARE(stage.Rows().at(1), QStringLiteral("QWERTYUIOP"));
    QVERIFY(!stage.LayoutKey());
    stage.keyboard->SetEnglishLayout(false);
    QCOMPARE(stage.AllFaces(), faces);
}

void TKeyboardChecksTest::englishBringsTheCheckOfTheCharsetBack()
{
    TKeyboardStage stage;
    TRefusingCheck const check(QStringLiteral("ქQ"));
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), &check);
    stage.keyboard->SetEnglishLayout(true);
    QVERIFY(stage.Key(QLatin1Char('Q'))->isEnabled());
    stage.keyboard->SetEnglishLayout(false);
    QVERIFY(!stage.Key(QChar(0x10E5))->isEnabled());
}

void TKeyboardChecksTest::hexadecimalIsTheSameInEveryScript()
{
    TKeyboardStage stage;
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
    QString const faces = stage.AllFaces();
    stage.keyboard->SetHexMode(true);
    QCOMPARE(stage.Rows().at(1), QStringLiteral("ABCDEF"));
    stage.keyboard->SetHexMode(false);
    QCOMPARE(stage.AllFaces(), faces);
}

void TKeyboardChecksTest::aBadCharsetIsHeldToTheScreen_data()
{
    QTest::addColumn<int>("rowCount");
    QTest::addColumn<QString>("row");
    QTest::newRow("no rows") << 0 << QString();
    QTest::newRow("fewer than none") << -5 << QStringLiteral("abc");
    QTest::newRow("many rows") << 1000000 << QStringLiteral("abc");
    QTest::newRow("empty rows") << 8 << QString();
    QTest::newRow("long rows") << 5 << QStringLiteral("abcdefghijklmnopqrstuvwxyz").repeated(4000);
    QTest::newRow("one long key") << 5 << QString(100000, QLatin1Char('W'));
    QTest::newRow("line ends and controls") << 5 << QStringLiteral("a\r\n\t\x01\x7f") + QChar(0);
    QTest::newRow("surrogates") << 5 << QStringLiteral("a\U0001F600b") + QChar(0xDC00);
    QTest::newRow("blanks in every row") << 7 << QStringLiteral("a b c  d");
    QTest::newRow("gaps alone") << 5 << QString(20, QChar(0xFFFD));
    QTest::newRow("right to left") << 4 << QStringLiteral("\u05D0\u05D1\u05D2");
}

void TKeyboardChecksTest::aBadCharsetIsHeldToTheScreen()
{
    QFETCH(int, rowCount);
    QFETCH(QString, row);
    TKeyboardStage stage;
    auto const charset = QSharedPointer<TOddCharset>::create();
    charset->m_RowCount = rowCount;
    charset->m_Otherwise = row;
    for (bool const fullWidth : {false, true})
    {
        stage.keyboard->SetFullWidthMode(fullWidth);
        stage.keyboard->SetExternalLayout(charset, nullptr);
        QVERIFY(stage.screen->rect().contains(stage.keyboard->geometry()));
        auto const keys = stage.Keys();
        for (TKey* const key : keys)
        {
            QVERIFY(key->parentWidget()->rect().contains(key->geometry()));
            QVERIFY(key->GetCharacter().isNull() || key->GetCharacter().isPrint());
            QVERIFY(std::none_of(keys.begin(), keys.end(),
                                 [key](TKey const* other)
                                 { return other != key && other->geometry().intersects(key->geometry()); }));
        }
        // Some of them change the layout, so that what was a key before is none any more.
        for (TKey* const key : keys)
        {
            if (key != stage.Ok() && key != stage.CancelKey())
                stage.finger.Touch(key);
        }
        QVERIFY(stage.Ok());
        QVERIFY(!stage.Picture().isNull());
    }
}

void TKeyboardChecksTest::anEmptyCharsetHasNoEffect()
{
    TKeyboardStage stage;
    auto const charset = QSharedPointer<TOddCharset>::create();
    charset->m_Layouts = 0;
    QString const faces = stage.AllFaces();
    stage.keyboard->SetExternalLayout(charset, nullptr);
    QCOMPARE(stage.AllFaces(), faces);
    charset->m_Layouts = -7;
    stage.keyboard->OnLayoutSelected(1);
    QCOMPARE(stage.AllFaces(), faces);
    stage.keyboard->SetExternalLayout(nullptr, nullptr);
    QVERIFY(stage.Shift());
}

void TKeyboardChecksTest::theChoiceEndsWithTheHundredthLayoutOfACharset()
{
    TKeyboardStage stage;
    auto const charset = QSharedPointer<TOddCharset>::create();
    charset->m_Layouts = 1000;
    charset->m_RowCount = 3;
    charset->m_Otherwise = QStringLiteral("abc");
    stage.keyboard->SetExternalLayout(charset, nullptr);
    QString const external = stage.AllFaces();
    stage.keyboard->OnLayoutSelected(0);
    QString const standard = stage.AllFaces();
    QVERIFY(standard != external);
    stage.keyboard->OnLayoutSelected(101);
    QCOMPARE(stage.AllFaces(), standard);
    stage.keyboard->OnLayoutSelected(100);
    QCOMPARE(stage.AllFaces(), external);
}

void TKeyboardChecksTest::aCharsetWithoutABlankHasNoSpaceKey()
{
    TKeyboardStage stage;
    stage.keyboard->EnableSpaceKey(false);
    auto const charset = QSharedPointer<TOddCharset>::create();
    charset->m_RowCount = 5;
    for (int row = 0; row < charset->m_RowCount; ++row)
        charset->m_Rows += RowOf(12, ushort(0x4E00 + 12 * row));
    stage.keyboard->SetExternalLayout(charset, nullptr);
    QCOMPARE(stage.Rows().size(), 5);
    QCOMPARE(stage.Enabled(), stage.Rows().join(QString()));
}

void TKeyboardChecksTest::manyRowsFlattenTheInputAreaAndTheKeys()
{
    TKeyboardStage stage;
    auto const charset = QSharedPointer<TOddCharset>::create();
    charset->m_RowCount = 12;
    charset->m_Otherwise = QStringLiteral("abc");
    for (int row = 0; row < charset->m_RowCount - 1; ++row)
        charset->m_Rows += charset->m_Otherwise;
    charset->m_Rows += QStringLiteral(" ");
    stage.keyboard->SetExternalLayout(charset, nullptr);
    QCOMPARE(stage.Rows().size(), 12);
    QCOMPARE(stage.keyboard->GetInputAreaGeometry().height(), 66 - 20);
    QVERIFY(stage.Key(QLatin1Char('a'))->height() < KEY_HEIGHT);
    QVERIFY(stage.screen->rect().contains(stage.keyboard->geometry()));
}

void TKeyboardChecksTest::keysAreNeverNarrowerThanTheLeastWidth()
{
    QWidget window;
    window.resize(640, 480);
    window.show();
    auto const charset = QSharedPointer<TOddCharset>::create();
    charset->m_RowCount = 3;
    charset->m_Rows += RowOf(29, 0x4E00);
    TKeyboard keyboard(&window);
    keyboard.SetExternalLayout(charset, nullptr);
    keyboard.show();
    auto const keys = keyboard.findChildren<TKey*>();
    QVERIFY(keys.size() >= 29);
    QCOMPARE(keys.constFirst()->width(), KEY_WIDTH_MIN);
    QCOMPARE(keys.constFirst()->font().pixelSize(), 24);
}

COMMONUI_TEST(TKeyboardChecksTest)

#include "TKeyboardChecksTest.moc"
