#include "Fonts.h"
#include "GoldenPicture.h"
#include "Metrics.h"
#include "OddTexts.h"
#include "ScreenLayers.h"
#include "TestCase.h"
#include "TInvalidFileNameKeyCheck.h"
#include "TTextEditStage.h"

#include <QAccessible>
#include <QClipboard>
#include <QContextMenuEvent>

#include <limits>

namespace
{
QChar const Stop('.');
QChar const Blank(' ');
// One character of two halves.
QString const Tractor = QString::fromUcs4(U"\U0001F69C");

bool HasText(QWidget const* of, QString const& text)
{
    auto const objects = of->findChildren<QWidget*>();
    return std::any_of(objects.begin(), objects.end(),
                       [&text](QWidget* widget)
                       {
                           QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(widget);
                           for (auto const kind : {QAccessible::Name, QAccessible::Value, QAccessible::Help})
                           {
                               if (face && face->text(kind).contains(text))
                                   return true;
                           }
                           return widget->objectName().contains(text);
                       });
}
} // namespace

/// Edits texts by touch, by the wheel and by keys of other keyboards.
class TTextEditWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensWithTheWholeTextSelected()
    {
        TTextEditStage stage;
        QVERIFY(!stage.editor->isVisible());
        stage.Open(QStringLiteral("North field"));
        QVERIFY(stage.editor->isVisible());
        QCOMPARE(stage.editor->geometry(), stage.screen->rect());
        QCOMPARE(stage.Line()->selectedText(), QStringLiteral("North field"));
        QVERIFY(stage.Line()->hasFocus());
        QCOMPARE(stage.Line()->echoMode(), QLineEdit::Normal);
        QCOMPARE(TScreenLayers(*stage.screen.get()).Fault(), QString());
    }

    void theKeyboardKeepsItsPlace()
    {
        TTextEditStage stage;
        stage.keyboard->ShowWindow(false);
        QRect const before = stage.keyboard->geometry();
        stage.keyboard->HideWindow();
        QPoint place;
        connect(stage.keyboard.data(), &TKeyboard::WindowShown, this, [&] { place = stage.keyboard->pos(); });
        stage.Open(QString());
        QCOMPARE(place, before.topLeft());
        QVERIFY(stage.keyboard->isVisible());
        QCOMPARE(stage.keyboard->parentWidget(), static_cast<QWidget*>(stage.editor));
        QCOMPARE(stage.keyboard->geometry(), before);
        QVERIFY(!stage.keyboard->IsDismissed());
        QCOMPARE(stage.keyboard->ModalType(), int(KVN::MODAL_NONE));
    }

    void locksTheScreenAsTextEditor()
    {
        TTextEditStage stage;
        stage.Open(QString());
        QCOMPARE(stage.screen->GetLockingWidgets().size(), 1);
        TLockingWidget const lock = stage.screen->GetLockingWidgets().constFirst();
        QCOMPARE(lock.widget, static_cast<QWidget*>(stage.editor));
        QCOMPARE(lock.title, QStringLiteral("Text Editor"));
        QCOMPARE(lock.modalType, int(KVN::MODAL_LOCAL));
    }

    void theValueFieldStandsOnePixelAroundItsSource()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("42"));
        QVERIFY(stage.Value()->isVisible());
        QCOMPARE(stage.Value()->geometry(), stage.SourceOnScreen().adjusted(-1, -1, 1, 1));
        QCOMPARE(stage.Value()->GetText(), QStringLiteral("42"));
        QObjectList const children = stage.editor->children();
        QVERIFY(children.indexOf(stage.Value()) < children.indexOf(stage.keyboard));
        QVERIFY(children.indexOf(stage.keyboard) < children.indexOf(stage.Line()));
    }

    void aFunctionTellsThePlaceInsteadOfTheSource()
    {
        TTextEditStage stage;
        QWidget* asked = nullptr;
        auto const place = [&asked](QWidget* parent)
        {
            asked = parent;
            return QRect(10, 20, 30, 40);
        };
        stage.editor->SetPosition(stage.source, place);
        stage.Open(QString());
        QCOMPARE(asked, static_cast<QWidget*>(stage.screen.get()));
        QCOMPARE(stage.Value()->geometry(), QRect(9, 19, 32, 42));
    }

    void withoutASourceThereIsNoValueField()
    {
        TTextEditStage stage;
        stage.editor->SetPosition(nullptr, {});
        stage.Open(QStringLiteral("42"));
        QVERIFY(stage.editor->isVisible());
        QVERIFY(stage.Value()->geometry().isEmpty());
        QVERIFY(stage.Type(QStringLiteral("A")));
        QCOMPARE(stage.Text(), QStringLiteral("A"));
    }

    void aGarbagePlaceDoesNoHarm_data()
    {
        int const low = std::numeric_limits<int>::min();
        int const high = std::numeric_limits<int>::max();
        QTest::addColumn<QRect>("place");
        QTest::newRow("nowhere") << QRect();
        QTest::newRow("inside out") << QRect(50, 50, -20, -20);
        QTest::newRow("huge") << QRect(QPoint(-1000000, -1000000), QPoint(1000000, 1000000));
        QTest::newRow("far right") << QRect(QPoint(high - 5, high - 5), QPoint(high, high));
        QTest::newRow("far left") << QRect(QPoint(low, low), QPoint(low + 5, low + 5));
    }
    void aGarbagePlaceDoesNoHarm()
    {
        QFETCH(QRect, place);
        TTextEditStage stage;
        stage.editor->SetPosition(stage.source, [place](QWidget*) { return place; });
        stage.Open(QStringLiteral("42"));
        stage.screen->grab();
        QVERIFY(stage.editor->isVisible());
        QVERIFY(stage.Value()->width() <= 3 * SCREEN_WIDTH + 2);
    }

    void theLineLiesOverTheInputArea()
    {
        TTextEditStage stage;
        stage.Open(QString());
        QCOMPARE(stage.Line()->geometry(), stage.keyboard->GetInputAreaGeometry());
        QCOMPARE(stage.Line()->font().pixelSize(), STANDARD_FONT_SIZE);
        QVERIFY(!stage.Line()->hasFrame());
        stage.keyboard->SetLayout(EKeyboardLayout(5), KEYBOARD_LAYOUT_NONE);
        QCOMPARE(stage.Line()->geometry(), stage.keyboard->GetInputAreaGeometry());
    }

    void onAFullWidthKeyboardTheValueFieldIsTypedIn()
    {
        TTextEditStage stage;
        stage.editor->SetHideValueField(true);
        stage.keyboard->SetFullWidthMode(true);
        stage.Open(QStringLiteral("A"));
        QCOMPARE(stage.Line()->geometry(), stage.SourceOnScreen().adjusted(-1, -1, 1, 1));
        QVERIFY(!stage.Value()->isVisible());
        stage.keyboard->SetFullWidthMode(false);
        QCOMPARE(stage.Line()->geometry(), stage.keyboard->GetInputAreaGeometry());
        stage.editor->SetHideValueField(false);
        QVERIFY(stage.Value()->isVisible());
    }

    void aHiddenValueFieldLeavesTheSourceAsItIs()
    {
        TTextEditStage stage;
        QVERIFY(!stage.editor->IsValueFieldHidden());
        stage.editor->SetHideValueField(true);
        QVERIFY(stage.editor->IsValueFieldHidden());
        stage.Open(QStringLiteral("42"));
        QVERIFY(!stage.Value()->isVisible());
        QColor const covered = stage.Pixel();
        stage.editor->SetHideValueField(false);
        QVERIFY(stage.Value()->isVisible());
        QVERIFY(stage.Pixel().lightness() > 200);
        QVERIFY(covered.lightness() < 100);
    }

    void followsItsSourceWhenThatHasMoved()
    {
        TTextEditStage stage;
        stage.Open(QString());
        QRect const before = stage.Value()->geometry();
        stage.MoveSource(QRect(5, 6, 100, 50));
        QCOMPARE(stage.Value()->geometry(), before);
        QCoreApplication::processEvents();
        QCOMPARE(stage.Value()->geometry(), stage.SourceOnScreen().adjusted(-1, -1, 1, 1));
    }

    void anotherSourceMovesAnOpenEditor()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        auto* const other = new QWidget(stage.page);
        other->setGeometry(300, 200, 50, 40);
        other->show();
        stage.editor->SetPosition(other, {});
        QCOMPARE(stage.Value()->geometry(), QRect(399, 249, 52, 42));
        QCOMPARE(stage.platform.m_Source, other);
    }

    void fillsAScreenOfAnotherSize()
    {
        TTextEditStage stage;
        stage.Open(QString());
        stage.screen->resize(900, 700);
        stage.MoveSource(QRect(5, 6, 100, 50));
        QCoreApplication::processEvents();
        QCOMPARE(stage.editor->size(), QSize(900, 700));
        QSize const shadow(BORDER_RIGHT_SHADOW_SIZE, BORDER_RIGHT_SHADOW_SIZE);
        QRect const frame(stage.keyboard->pos(), stage.keyboard->size() - shadow);
        QVERIFY((frame.center() - stage.screen->rect().center()).manhattanLength() <= 2);
        QCOMPARE(stage.Line()->geometry(), stage.keyboard->GetInputAreaGeometry());
    }

    void typesAtTheCursor()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("OLD"));
        QVERIFY(stage.Type(QStringLiteral("AC")));
        QCOMPARE(stage.Text(), QStringLiteral("AC"));
        stage.finger.Touch(stage.Left());
        QVERIFY(stage.Type(QStringLiteral("B")));
        QCOMPARE(stage.Text(), QStringLiteral("ABC"));
        stage.finger.Touch(stage.Right());
        QVERIFY(stage.Type(QStringLiteral("D")));
        stage.finger.Touch(stage.Left());
        stage.finger.Touch(stage.BackspaceKey());
        QCOMPARE(stage.Text(), QStringLiteral("ABD"));
        QCOMPARE(stage.Value()->GetText(), QStringLiteral("ABD"));
        QVERIFY(stage.Line()->hasFocus());
    }

    void okEmitsTheTrimmedText()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("  North  field "));
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.texts, QStringList{QStringLiteral("North  field")});
        QCOMPARE(stage.cancelled, 0);
    }

    void cancelEmitsNoText()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.finger.Touch(stage.CancelKey());
        QCOMPARE(stage.texts, QStringList());
        QCOMPARE(stage.cancelled, 1);
    }

    void theWheelAloneTypesAndConfirms()
    {
        TTextEditStage stage;
        stage.Open(QString());
        stage.TurnTo(stage.Key(QLatin1Char('E')));
        stage.navigator.OnEnter();
        QTRY_COMPARE(stage.Text(), QStringLiteral("E"));
        stage.TurnTo(stage.Ok());
        stage.navigator.OnEnter();
        QTRY_COMPARE(stage.texts, QStringList{QStringLiteral("E")});
        QCOMPARE(stage.Remains(), QString());
    }

    void theBackKeyCancels()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.Tick(1000);
        stage.navigator.OnWheelRight();
        stage.Tick();
        QVERIFY(stage.navigator.OnBack());
        QTRY_COMPARE(stage.cancelled, 1);
        QCOMPARE(stage.texts, QStringList());
        QCOMPARE(stage.Remains(), QString());
    }

    void anEmptyTextDisablesOk_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("allowed");
        QTest::addColumn<bool>("confirmable");
        QTest::newRow("empty") << QString() << false << false;
        QTest::newRow("blanks") << QStringLiteral("  ") << false << false;
        QTest::newRow("a letter") << QStringLiteral(" a") << false << true;
        QTest::newRow("empty, allowed") << QString() << true << true;
        QTest::newRow("blanks, allowed") << QStringLiteral("  ") << true << true;
    }
    void anEmptyTextDisablesOk()
    {
        QFETCH(QString, text);
        QFETCH(bool, allowed);
        TTextEditStage stage;
        stage.editor->SetAllowEmptyStrings(allowed);
        stage.Open(text);
        QTEST(stage.Ok()->isEnabled(), "confirmable");
        stage.editor->SetAllowEmptyStrings(true);
        QVERIFY(stage.Ok()->isEnabled());
    }

    void okFollowsWhatIsTyped()
    {
        TTextEditStage stage;
        stage.Open(QString());
        QVERIFY(!stage.Ok()->isEnabled());
        stage.Type(QStringLiteral("A"));
        QVERIFY(stage.Ok()->isEnabled());
        stage.finger.Touch(stage.BackspaceKey());
        QVERIFY(!stage.Ok()->isEnabled());
    }

    void aFileNameWithAFullStopAtEitherEndCannotBeConfirmed_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("confirmable");
        QTest::newRow("before") << QStringLiteral(".abc") << false;
        QTest::newRow("after") << QStringLiteral("abc.") << false;
        QTest::newRow("alone") << QStringLiteral(".") << false;
        QTest::newRow("before, after a blank") << QStringLiteral(" .abc") << false;
        QTest::newRow("after, before a blank") << QStringLiteral("abc. ") << false;
        QTest::newRow("inside") << QStringLiteral("a.bc") << true;
        QTest::newRow("none") << QStringLiteral("abc") << true;
    }
    void aFileNameWithAFullStopAtEitherEndCannotBeConfirmed()
    {
        QFETCH(QString, text);
        TTextEditStage stage;
        stage.Open(text);
        QVERIFY(stage.Ok()->isEnabled());
        stage.editor->SetFilenameMode(true);
        QTEST(stage.Ok()->isEnabled(), "confirmable");
    }

    void fullStopAndBlankAreDeadAtTheStartOfAFileName()
    {
        TTextEditStage stage;
        stage.editor->SetFilenameMode(true);
        stage.Open(QStringLiteral("ab"));
        QVERIFY(!stage.Key(Stop)->isEnabled()); // the selection begins there
        QVERIFY(!stage.Key(Blank)->isEnabled());
        stage.Line()->setCursorPosition(1);
        QVERIFY(stage.Key(Stop)->isEnabled());
        QVERIFY(stage.Key(Blank)->isEnabled());
        stage.finger.Touch(stage.Left());
        QVERIFY(!stage.Key(Stop)->isEnabled());
        QVERIFY(!stage.Key(Blank)->isEnabled());
        stage.editor->SetFilenameMode(false);
        QVERIFY(stage.Key(Stop)->isEnabled());
        QVERIFY(stage.Key(Blank)->isEnabled());
    }

    void aTextAtMaxLengthAcceptsNoLetterButBackspaceWorks()
    {
        TTextEditStage stage;
        stage.editor->SetMaxLength(3);
        stage.Open(QStringLiteral("AB"));
        stage.Line()->end(false);
        QVERIFY(stage.Type(QStringLiteral("CD")));
        QCOMPARE(stage.Text(), QStringLiteral("ABC"));
        QCOMPARE(stage.Enabled(), QString());
        for (TKey const* const key : {stage.BackspaceKey(), stage.Left(), stage.Right(), stage.Ok()})
            QVERIFY(key->isEnabled());
        stage.finger.Touch(stage.BackspaceKey());
        QCOMPARE(stage.Text(), QStringLiteral("AB"));
        QVERIFY(stage.Key(QLatin1Char('C'))->isEnabled());
    }

    void aFullTextOpensWithDeadKeys()
    {
        TTextEditStage stage;
        stage.editor->SetMaxLength(3);
        for (int opening = 0; opening < 2; ++opening)
        {
            stage.Open(QStringLiteral("ABC"));
            QCOMPARE(stage.Enabled(), QString());
            stage.editor->SetMaxLength(4);
            QVERIFY(stage.Key(QLatin1Char('D'))->isEnabled());
            stage.editor->SetMaxLength(3);
            stage.editor->Close();
            QCOMPARE(stage.Remains(), QString());
        }
    }

    void theLengthHasBounds_data()
    {
        QTest::addColumn<int>("asked");
        QTest::addColumn<int>("length");
        QTest::newRow("below") << -7 << 0;
        QTest::newRow("none") << 0 << 0;
        QTest::newRow("five") << 5 << 5;
        QTest::newRow("far above") << std::numeric_limits<int>::max() << 10;
    }
    void theLengthHasBounds()
    {
        QFETCH(int, asked);
        TTextEditStage stage;
        stage.editor->SetMaxLength(asked);
        stage.Open(QStringLiteral("0123456789"));
        QTEST(stage.Text().size(), "length");
        stage.editor->SetValue(QString(40000, QLatin1Char('a')));
        QCOMPARE(stage.Text().size(), qBound(0, asked, 32767));
    }

    void hexModeOffersDigitsAndTakesNothingElse()
    {
        TTextEditStage stage;
        stage.editor->SetHexMode(true);
        stage.Open(QStringLiteral("0x1f"));
        QCOMPARE(stage.Rows(), (QStringList{QStringLiteral("1234567890"), QStringLiteral("ABCDEF")}));
        QCOMPARE(stage.Text(), QStringLiteral("01F"));
        stage.Line()->end(false);
        stage.PressKeys(QStringLiteral("g7a "));
        QCOMPARE(stage.Text(), QStringLiteral("01F7A"));
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.texts, QStringList{QStringLiteral("01F7A")});
        QCOMPARE(stage.Remains(), QString());
    }

    void hexModeComesAndGoesWhileOpen()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("face it"));
        stage.editor->SetHexMode(true);
        QCOMPARE(stage.Rows().size(), 2);
        QCOMPARE(stage.Text(), QStringLiteral("FACE"));
        stage.editor->SetHexMode(false);
        QCOMPARE(stage.Rows().value(1), QStringLiteral("QWERTYUIOP"));
    }

    void rulesOfTheEditBeforeDoNotTouchTheNextText()
    {
        TTextEditStage stage;
        stage.editor->SetHexMode(true);
        stage.Open(QStringLiteral("1F"));
        stage.finger.Touch(stage.Ok());
        stage.editor->SetValue(QStringLiteral("Hello"));
        stage.editor->SetHexMode(false);
        stage.editor->Open();
        QCOMPARE(stage.Text(), QStringLiteral("Hello"));
    }

    void theCheckForFileNamesIsOne()
    {
        Keyboard_layouts_api::KeyCheck const* const check = TTextEditWidget::GetInvalidFileNameKeyCheck();
        QVERIFY(dynamic_cast<TInvalidFileNameKeyCheck const*>(check));
        QCOMPARE(TTextEditWidget::GetInvalidFileNameKeyCheck(), check);
    }

    void fileNamesAreRestricted()
    {
        TTextEditStage stage;
        stage.editor->SetAllowEmptyStrings(true);
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        stage.Open(QString());
        QVERIFY(!stage.Key(QLatin1Char('/'))->isEnabled());
        QVERIFY(!stage.Key(QLatin1Char('\\'))->isEnabled());
        QVERIFY(stage.Key(QLatin1Char('-'))->isEnabled());
        QVERIFY(!stage.Key(Stop)->isEnabled());
        QVERIFY(!stage.Ok()->isEnabled());
        stage.Type(QStringLiteral("A."));
        QVERIFY(!stage.Ok()->isEnabled());
        stage.finger.Touch(stage.CancelKey());
        QCOMPARE(stage.Remains(), QString());
    }

    void otherRestrictionsLetEveryKeyLive_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("none") << 0;
        QTest::newRow("unknown") << 2;
        QTest::newRow("negative") << -1;
    }
    void otherRestrictionsLetEveryKeyLive()
    {
        QFETCH(int, type);
        TTextEditStage stage;
        stage.Open(QStringLiteral("a/b"));
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        QCOMPARE(stage.Text(), QStringLiteral("ab"));
        QVERIFY(!stage.Key(QLatin1Char('/'))->isEnabled());
        stage.editor->SetTextRestriction(ETextRestrictionType(type));
        QVERIFY(stage.Key(QLatin1Char('/'))->isEnabled());
        stage.editor->SetValue(QStringLiteral("ab."));
        QVERIFY(!stage.Ok()->isEnabled()); // the file-name mode is another matter
    }

    void controlCharactersNeverComeIn_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("line");
        QTest::newRow("line end") << QStringLiteral("first\nsecond") << QStringLiteral("first second");
        QTest::newRow("line ends") << QStringLiteral("first\r\n\t\u2028second")
                                   << QStringLiteral("first second");
        QTest::newRow("blanks") << QStringLiteral("first  second") << QStringLiteral("first  second");
        QTest::newRow("controls") << QStringLiteral("a\x01\x07\x1b\u007f\u0090z") << QStringLiteral("az");
        QTest::newRow("zero") << QString(QChar(0)) + QLatin1Char('a') << QStringLiteral("a");
        QTest::newRow("halves") << QString(QChar(0xd83d)) + QLatin1Char('a') + QChar(0xde9c)
                                << QStringLiteral("a");
        QTest::newRow("pair") << Tractor + QLatin1Char('a') << Tractor + QLatin1Char('a');
        QTest::newRow("joined letters")
            << QStringLiteral("\u0646\u200c\u0647") << QStringLiteral("\u0646\u200c\u0647");
    }
    void controlCharactersNeverComeIn()
    {
        QFETCH(QString, text);
        QFETCH(QString, line);
        TTextEditStage stage;
        stage.Open(text);
        QCOMPARE(stage.Text(), line);
        stage.editor->SetValue(QString());
        QGuiApplication::clipboard()->setText(text);
        stage.Line()->paste();
        QCOMPARE(stage.Text(), line);
        stage.editor->SetValue(text);
        QCOMPARE(stage.Text(), line);
    }

    void oddTextsDoNoHarm_data() { AddOddTexts(); }
    void oddTextsDoNoHarm()
    {
        QFETCH(QString, text);
        TTextEditStage stage;
        stage.editor->SetAllowEmptyStrings(true);
        stage.Open(text);
        stage.screen->grab();
        QVERIFY(stage.Text().size() <= 32767);
        QVERIFY(!stage.Text().contains(QChar(0)) && !stage.Text().contains(QLatin1Char('\n')));
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.texts.size(), 1);
        QCOMPARE(stage.Remains(), QString());
    }

    void aPairIsOneCharacter()
    {
        TTextEditStage stage;
        stage.Open(QLatin1Char('a') + Tractor);
        stage.Line()->end(false);
        stage.finger.Touch(stage.BackspaceKey());
        QCOMPARE(stage.Text(), QStringLiteral("a"));
        stage.editor->SetMaxLength(2);
        stage.editor->SetValue(QLatin1Char('a') + Tractor);
        QCOMPARE(stage.Text(), QStringLiteral("a"));
    }

    void pastedGarbageIsHeldToTheRules()
    {
        TTextEditStage stage;
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        stage.editor->SetMaxLength(6);
        stage.Open(QStringLiteral("ab"));
        stage.Line()->setCursorPosition(1);
        QGuiApplication::clipboard()->setText(QStringLiteral("1/2*\n3?"));
        stage.Line()->paste();
        QCOMPARE(stage.Text(), QStringLiteral("a12b")); // six characters came in
        QCOMPARE(stage.Line()->cursorPosition(), 3);
        QVERIFY(stage.Type(QStringLiteral("X")));
        QCOMPARE(stage.Text(), QStringLiteral("a12Xb"));
    }

    void aRefusedKeyTakesNothingAlong()
    {
        TTextEditStage stage;
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        stage.Open(QStringLiteral("abc"));
        stage.PressKeys(QStringLiteral("/"));
        QCOMPARE(stage.Text(), QStringLiteral("abc"));
        QCOMPARE(stage.Line()->selectedText(), QStringLiteral("abc"));
        stage.PressKeys(QStringLiteral("d"));
        QCOMPARE(stage.Text(), QStringLiteral("d"));
    }

    void returnConfirmsWhatOkWouldConfirm()
    {
        TTextEditStage stage;
        stage.editor->SetFilenameMode(true);
        stage.Open(QStringLiteral("abc."));
        stage.PressKey(Qt::Key_Return);
        QCoreApplication::processEvents();
        QVERIFY(stage.editor->isVisible());
        stage.PressKeys(QStringLiteral(" name "));
        stage.PressKey(Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(stage.texts, QStringList{QStringLiteral("name")});
        QCOMPARE(stage.cancelled, 0);
        QCOMPARE(stage.Remains(), QString());
    }

    void theTabKeyLeadsNowhere()
    {
        TTextEditStage stage;
        QLineEdit behind(stage.page);
        behind.show();
        stage.Open(QString());
        stage.PressKey(Qt::Key_Tab);
        QVERIFY(stage.Line()->hasFocus());
        stage.editor->Close();
        QVERIFY(!stage.Line()->hasFocus());
        QVERIFY(!behind.hasFocus());
    }

    void theSelectionOutlivesTheChoiceOfALayout()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("abcdef"));
        stage.Line()->setSelection(1, 3);
        Q_EMIT stage.keyboard->LayoutSelectorUp();
        stage.Line()->deselect();
        stage.Line()->clearFocus();
        Q_EMIT stage.keyboard->LayoutSelectorDown();
        QCOMPARE(stage.Line()->selectedText(), QStringLiteral("bcd"));
        QVERIFY(stage.Line()->hasFocus());

        stage.Line()->setCursorPosition(2);
        Q_EMIT stage.keyboard->LayoutSelectorUp();
        Q_EMIT stage.keyboard->LayoutSelectorDown();
        QVERIFY(!stage.Line()->hasSelectedText());
        QCOMPARE(stage.Line()->cursorPosition(), 2);
    }

    void aHiddenTextIsSeenNowhere()
    {
        TTextEditStage stage;
        QVERIFY(!stage.editor->IsTextHidden());
        stage.editor->SetHideText(true);
        QVERIFY(stage.editor->IsTextHidden());
        stage.Open(QStringLiteral("Secret"));
        QCOMPARE(stage.Line()->echoMode(), QLineEdit::Password);
        QCOMPARE(stage.Value()->GetText().size(), 6);
        QVERIFY(!HasText(stage.editor, QStringLiteral("Secret")));
        QImage const one = stage.screen->grab().toImage();
        stage.editor->SetValue(QStringLiteral("Riddle"));
        stage.Line()->selectAll();
        QCOMPARE(stage.screen->grab().toImage(), one);
        stage.Line()->copy();
        QVERIFY(QGuiApplication::clipboard()->text() != QLatin1String("Riddle"));
        stage.editor->SetHideText(false);
        QCOMPARE(stage.Value()->GetText(), QStringLiteral("Riddle"));
        QVERIFY(HasText(stage.editor, QStringLiteral("Riddle")));
    }

    void aHiddenPressCannotBeSeen()
    {
        TTextEditStage stage;
        stage.editor->SetHideButtonPress(true);
        stage.Open(QString());
        TKey* const key = stage.Key(QLatin1Char('Q'));
        QImage const before = key->grab().toImage();
        stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
        QCOMPARE(key->grab().toImage(), before);
        stage.finger.Lift();
        stage.editor->SetHideButtonPress(false);
        stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
        QVERIFY(key->grab().toImage() != before);
    }

    void nothingOfItOpensAWindow()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                stage.Line()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(stage.Line(), &event);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(!stage.editor->isWindow() && !stage.keyboard->isWindow());
    }

    void anOpenEditor()
    {
        TTextEditStage stage;
        stage.source->SetText(QStringLiteral("East field"), QString(), false, QString(), false);
        stage.Open(QStringLiteral("North field"));
        stage.Line()->setCursorPosition(5);
        stage.Line()->setSelection(6, 5);
        COMPARE_PICTURE(stage.screen->grab().toImage(), "text-edit-open");
    }

    void anOpenEditorOfAPassword()
    {
        TTextEditStage stage;
        stage.editor->SetHideText(true);
        stage.Open(QStringLiteral("Secret"));
        stage.Line()->end(false);
        stage.Line()->clearFocus();
        COMPARE_PICTURE(stage.screen->grab().toImage(), "text-edit-password");
    }
};

COMMONUI_TEST(TTextEditWidgetTest)
#include "TTextEditWidgetTest.moc"
