#include "GoldenPicture.h"
#include "Metrics.h"
#include "PixmapNames.h"
#include "TCanvas.h"
#include "TestCase.h"
#include "TKeyboardStage.h"
#include "TSystemToolBar.h"

#include <QSignalSpy>

namespace
{
constexpr int Margin = 20;
constexpr int InputHeight = 85;
constexpr int Shadow = 10;

int ColumnOf(TKeyboardStage const& stage, TKey const* key)
{
    return key->x() / stage.Key(QLatin1Char('1'))->width();
}
} // namespace

/// Where the keyboard and its keys stand, and what they look like.
class TKeyboardLookTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysHaveTheirLargestSizeWhereThereIsRoom();
    void theWindowStandsInTheMiddleOfTheScreen();
    void theInputAreaStandsAboveTheKeys();
    void theSpecialKeysTakeTheirColumns_data();
    void theSpecialKeysTakeTheirColumns();
    void noTwoKeysOverlap_data() { theSpecialKeysTakeTheirColumns_data(); }
    void noTwoKeysOverlap();
    void shortRowsStandInTheMiddle();
    void fullWidthLiesAlongTheLowerEdge();
    void fullWidthHidesTheInputArea();
    void fullWidthKeysShareTheWholeWidth();
    void theSystemToolBarKeepsItsRoom();
    void followsItsParent();
    void tellsOfEveryNewGeometry();
    void tellsNothingWhereNothingMoved();
    void smallKeysHaveTheSmallTypeAndShift();
    void fullWidthLeavesRoomForSixRowsInASmallWindow();
    void aKeyCoversWhatIsBelowIt();
    void onlyTheKeyThatIsPressedIsPaintedAnew();

    void englishCapitals();
    void frenchSmallLettersWithADeadKey();
    void russianWithAPressedKey();
    void hexadecimal();
    void georgianWithDisabledKeys();
    void fullWidth();
};

void TKeyboardLookTest::keysHaveTheirLargestSizeWhereThereIsRoom()
{
    TKeyboardStage const stage(5);
    QCOMPARE(stage.keyboard->GetKeyboardWidth(), 12);
    QCOMPARE(stage.Key(QLatin1Char('1'))->size(), QSize(KEY_WIDTH_MAX, KEY_HEIGHT));
    QCOMPARE(stage.keyboard->size(), QSize(12 * KEY_WIDTH_MAX + 2 * Margin + Shadow,
                                           InputHeight + KEY_PAD_NUM_ROWS * KEY_HEIGHT + Margin + Shadow));
}

void TKeyboardLookTest::theWindowStandsInTheMiddleOfTheScreen()
{
    TKeyboardStage const stage;
    QRect const frame = stage.keyboard->geometry().adjusted(0, 0, -Shadow, -Shadow);
    QPoint const off = frame.center() - QRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT).center();
    QVERIFY(qAbs(off.x()) <= 1);
    QVERIFY(qAbs(off.y()) <= 1);
}

void TKeyboardLookTest::theInputAreaStandsAboveTheKeys()
{
    TKeyboardStage const stage;
    QRect const window = stage.keyboard->geometry();
    int const keysWidth = window.width() - 2 * Margin - Shadow;
    QCOMPARE(stage.keyboard->GetInputAreaGeometry(),
             QRect(window.left() + Margin + 18, window.top() + 10, keysWidth - 36, InputHeight - 20));
}

void TKeyboardLookTest::theSpecialKeysTakeTheirColumns_data()
{
    QTest::addColumn<int>("layout");
    for (int layout = 0; layout < KEYBOARD_LAYOUT_COUNT; ++layout)
        QTest::newRow(qPrintable(QStringLiteral("layout %1").arg(layout))) << layout;
}

void TKeyboardLookTest::theSpecialKeysTakeTheirColumns()
{
    QFETCH(int, layout);
    TKeyboardStage const stage(layout);
    int const columns = stage.keyboard->GetKeyboardWidth();
    QCOMPARE(ColumnOf(stage, stage.CancelKey()), columns - 1);
    QCOMPARE(ColumnOf(stage, stage.Ok()), columns - 2);
    QCOMPARE(ColumnOf(stage, stage.BackspaceKey()), columns - 1);
    QCOMPARE(stage.BackspaceKey()->geometry().bottom() + 1, stage.Ok()->y());
    if (layout == KEYBOARD_LAYOUT_HEXADECIMAL)
        return;
    QCOMPARE(ColumnOf(stage, stage.Lock()), 0);
    QCOMPARE(ColumnOf(stage, stage.Left()), columns - 4);
    QCOMPARE(ColumnOf(stage, stage.Right()), columns - 3);
    TKey const* const space = stage.Key(QLatin1Char(' '));
    QCOMPARE(space->width() / stage.Left()->width(), columns - 8);
    QCOMPARE(space->y(), stage.Lock()->y());
}

void TKeyboardLookTest::noTwoKeysOverlap()
{
    QFETCH(int, layout);
    TKeyboardStage const stage(layout);
    auto const keys = stage.Keys();
    for (TKey const* const key : keys)
    {
        QVERIFY(key->parentWidget()->rect().contains(key->geometry()));
        for (TKey const* const other : keys)
            QVERIFY(key == other || !key->geometry().intersects(other->geometry()));
    }
}

void TKeyboardLookTest::shortRowsStandInTheMiddle()
{
    TKeyboardStage const stage;
    QCOMPARE(stage.Key(QLatin1Char('Q'))->x(), 0);
    QCOMPARE(stage.Key(QLatin1Char('A'))->x(), KEY_WIDTH_MAX / 2);
    QCOMPARE(stage.Key(QLatin1Char('Z'))->x(), KEY_WIDTH_MAX * 3 / 2);
    QCOMPARE(stage.Key(QLatin1Char('-'))->x(), 0);
}

void TKeyboardLookTest::fullWidthLiesAlongTheLowerEdge()
{
    TKeyboardStage stage;
    stage.keyboard->SetFullWidthMode(true);
    QRect const window = stage.keyboard->geometry();
    QCOMPARE(window.left(), 0);
    QCOMPARE(window.right(), SCREEN_WIDTH - 1);
    QCOMPARE(window.bottom(), SCREEN_HEIGHT - 1);
    QCOMPARE(window.height(), KEY_PAD_NUM_ROWS * KEY_HEIGHT + 2 * KEY_PAD_GAP_MAX);
    stage.keyboard->SetFullWidthMode(false);
    QVERIFY(stage.keyboard->geometry().bottom() < SCREEN_HEIGHT - 1);
}

void TKeyboardLookTest::fullWidthHidesTheInputArea()
{
    TKeyboardStage stage;
    auto const inputArea = [&stage]
    {
        auto const buttons =
            stage.keyboard->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
        return std::count_if(buttons.begin(), buttons.end(), [](QWidget const* b) { return b->isVisible(); });
    };
    QCOMPARE(inputArea(), 1);
    stage.keyboard->SetFullWidthMode(true);
    QCOMPARE(inputArea(), 0);
    stage.keyboard->SetFullWidthMode(false);
    QCOMPARE(inputArea(), 1);
}

void TKeyboardLookTest::fullWidthKeysShareTheWholeWidth()
{
    TKeyboardStage stage(5);
    stage.keyboard->SetFullWidthMode(true);
    QCOMPARE(stage.Key(QLatin1Char('1'))->size(),
             QSize((SCREEN_WIDTH - 2 * KEY_PAD_GAP_MAX) / 12, KEY_HEIGHT));
    QVERIFY(stage.Type(QStringLiteral("7")));
    QCOMPARE(stage.typed, QStringLiteral("7"));
}

void TKeyboardLookTest::theSystemToolBarKeepsItsRoom()
{
    TKeyboardStage stage;
    auto* const bar = new TSystemToolBar(stage.screen.get());
    bar->AssignButton(1, QStringLiteral("icon-usb"), QString(), QString());
    stage.screen->SetSystemToolBar(bar);
    int const width = stage.screen->GetUsableRect().width();
    QVERIFY(width < SCREEN_WIDTH);
    QPoint const inTheMiddle = stage.keyboard->pos();
    stage.keyboard->Reposition();
    QCOMPARE(stage.keyboard->pos(), inTheMiddle);
    stage.keyboard->SetFullWidthMode(true);
    QCOMPARE(stage.keyboard->width(), width);
}

void TKeyboardLookTest::followsItsParent()
{
    TKeyboardStage stage;
    QRect const place(stage.keyboard->mapTo(stage.screen.get(), QPoint()), stage.keyboard->size());
    QWidget overlay(stage.screen.get());
    overlay.setGeometry(100, 50, 500, 500);
    overlay.show();
    stage.keyboard->setParent(&overlay);
    stage.keyboard->ShowWindow(false);
    QCOMPARE(QRect(stage.keyboard->mapTo(stage.screen.get(), QPoint()), stage.keyboard->size()), place);
    overlay.move(120, 60);
    stage.keyboard->Reposition();
    QCOMPARE(QRect(stage.keyboard->mapTo(stage.screen.get(), QPoint()), stage.keyboard->size()), place);
    stage.keyboard->HideWindow();
    stage.keyboard->setParent(nullptr);
}

void TKeyboardLookTest::tellsOfEveryNewGeometry()
{
    TKeyboardStage stage;
    QSignalSpy const changes(stage.keyboard.data(), &TKeyboard::GeometryChanged);
    stage.keyboard->SetFullWidthMode(true);
    QCOMPARE(changes.count(), 1);
    stage.keyboard->SetFullWidthMode(true);
    QCOMPARE(changes.count(), 1);
    stage.keyboard->Reposition();
    QCOMPARE(changes.count(), 2);
    stage.keyboard->SetLayout(EKeyboardLayout(5), KEYBOARD_LAYOUT_NONE);
    QCOMPARE(changes.count(), 3);
    stage.finger.Touch(stage.Shift());
    QCOMPARE(changes.count(), 4);
}

void TKeyboardLookTest::tellsNothingWhereNothingMoved()
{
    TKeyboardStage stage;
    QSignalSpy const changes(stage.keyboard.data(), &TKeyboard::GeometryChanged);
    QVERIFY(stage.Type(QStringLiteral("K")));
    QCOMPARE(changes.count(), 0);
    stage.keyboard->ShowWindow(false);
    QCOMPARE(changes.count(), 0);
}

void TKeyboardLookTest::smallKeysHaveTheSmallTypeAndShift()
{
    TKeyboardStage stage;
    auto const typeOfK = [&stage] { return stage.Key(QLatin1Char('K'))->font().pixelSize(); };
    QCOMPARE(typeOfK(), 30);
    QVERIFY(stage.Shift());
    QWidget window;
    window.resize(400, 480);
    window.show();
    stage.keyboard->setParent(&window);
    stage.keyboard->ShowWindow(false);
    QVERIFY(stage.Key(QLatin1Char('K'))->width() < 40);
    QCOMPARE(typeOfK(), 24);
    QVERIFY(stage.Special(PixmapNames::ShiftSmall));
    stage.keyboard->HideWindow();
    stage.keyboard->setParent(nullptr);
}

void TKeyboardLookTest::fullWidthLeavesRoomForSixRowsInASmallWindow()
{
    TKeyboardStage stage(23);
    QWidget window;
    window.resize(640, 240);
    window.show();
    stage.keyboard->setParent(&window);
    stage.keyboard->SetFullWidthMode(true);
    stage.keyboard->ShowWindow(false);
    QCOMPARE(stage.Key(QLatin1Char('A'))->height(), (240 - 2 * KEY_PAD_GAP_MAX) / 6);
    stage.keyboard->HideWindow();
    stage.keyboard->setParent(nullptr);
}

void TKeyboardLookTest::aKeyCoversWhatIsBelowIt()
{
    TKeyboardStage const stage;
    auto const keys = stage.Keys();
    for (TKey const* const key : keys)
        QVERIFY(key->testAttribute(Qt::WA_OpaquePaintEvent));
}

void TKeyboardLookTest::onlyTheKeyThatIsPressedIsPaintedAnew()
{
    TKeyboardStage stage;
    QCoreApplication::processEvents();
    struct TPaintCount : QObject
    {
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            if (event->type() == QEvent::Paint)
                painted += watched;
            return false;
        }
        QVector<QObject*> painted;
    } paints;
    auto const keys = stage.Keys();
    for (TKey* const key : keys)
        key->installEventFilter(&paints);
    stage.keyboard->installEventFilter(&paints);
    TKey* const pressed = stage.Key(QLatin1Char('K'));
    stage.finger.Press(pressed->mapTo(stage.screen.get(), pressed->rect().center()));
    QCoreApplication::processEvents();
    QCOMPARE(paints.painted, QVector<QObject*>{pressed});
    stage.finger.Lift();
}

void TKeyboardLookTest::englishCapitals()
{
    TKeyboardStage const stage;
    COMPARE_PICTURE(stage.Picture(), "keyboard-english");
}

void TKeyboardLookTest::frenchSmallLettersWithADeadKey()
{
    TKeyboardStage stage(3);
    stage.finger.Touch(stage.Lock());
    QVERIFY(stage.Type(QStringLiteral("^")));
    COMPARE_PICTURE(stage.Picture(), "keyboard-french-circumflex");
}

void TKeyboardLookTest::russianWithAPressedKey()
{
    TKeyboardStage stage(5, 0);
    TKey* const key = stage.Key(QChar(0x0424));
    stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
    COMPARE_PICTURE(stage.Picture(), "keyboard-russian-pressed");
    stage.finger.Lift();
}

void TKeyboardLookTest::hexadecimal()
{
    TKeyboardStage stage;
    stage.keyboard->SetHexMode(true);
    COMPARE_PICTURE(stage.Picture(), "keyboard-hexadecimal");
    stage.keyboard->SetHexMode(false);
}

void TKeyboardLookTest::georgianWithDisabledKeys()
{
    TKeyboardStage stage;
    TRefusingCheck const check(QStringLiteral("ჭშჩძ"));
    stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), &check);
    stage.keyboard->EnableOKButton(false);
    COMPARE_PICTURE(stage.Picture(), "keyboard-georgian-disabled");
}

void TKeyboardLookTest::fullWidth()
{
    TKeyboardStage stage;
    stage.finger.Touch(stage.Shift());
    stage.keyboard->SetFullWidthMode(true);
    COMPARE_PICTURE(stage.Picture(), "keyboard-full-width-shifted");
}

COMMONUI_TEST(TKeyboardLookTest)

#include "TKeyboardLookTest.moc"
