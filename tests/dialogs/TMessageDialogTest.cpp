#include "TMessageDialog.h"
#include "Fonts.h"
#include "GoldenPicture.h"
#include "TestCase.h"
#include "TMessageStage.h"

#include <QLabel>
#include <QSignalSpy>

Q_DECLARE_METATYPE(EMessageDialogType)
Q_DECLARE_METATYPE(EMessageDialogButton)

namespace
{
constexpr int TypeCount = 13;
constexpr int ButtonCount = 10;

struct TAnswer
{
    char const* name;
    bool accepts;
};

// By EMessageDialogButton.
constexpr TAnswer Answers[ButtonCount] = {
    {"Ok", true},     {"Cancel", false}, {"Yes", true},      {"No", false},   {"All", true},
    {"YesAll", true}, {"NoAll", false},  {"Continue", true}, {"Retry", true}, {"Restart", true},
};

// What the operator sees in each type, from left to right.
QStringList TextsOf(int type)
{
    static QStringList const texts[TypeCount] = {
        {"icon-tick-larger"},
        {"icon-cross-larger"},
        {"icon-tick-larger", "icon-cross-larger"},
        {"YES"},
        {"Yes", "No"},
        {"Yes", "No", "Cancel"},
        {"Yes", "No", "All"},
        {"Yes", "No", "Yes All", "No All"},
        {"Continue", "Cancel"},
        {"Continue", "Cancel", "Retry"},
        {"Continue", "Cancel", "Restart"},
        {"Cancel", "Restart"},
        {},
    };
    return texts[type];
}

// The buttons of each type, from left to right.
QVector<int> ButtonsOf(int type)
{
    static QVector<int> const buttons[TypeCount] = {
        {0},          {1},    {0, 1},    {2},       {2, 3}, {2, 3, 1}, {2, 3, 4},
        {2, 3, 5, 6}, {7, 1}, {7, 1, 8}, {7, 1, 9}, {1, 9}, {},
    };
    return buttons[type];
}

/// Notes what happens to it, in its order.
class TNotingDialog : public TMessageDialog
{
public:
    TNotingDialog(EMessageDialogType type, bool deleteOnClose = false)
        : TMessageDialog(nullptr, QStringLiteral("Boom"), QStringLiteral("Fold it?"), type, deleteOnClose)
    {
        connect(this, &TMessageDialog::Ok, this, [this] { Note("Ok"); });
        connect(this, &TMessageDialog::Cancel, this, [this] { Note("Cancel"); });
        connect(this, &TMessageDialog::Yes, this, [this] { Note("Yes"); });
        connect(this, &TMessageDialog::No, this, [this] { Note("No"); });
        connect(this, &TMessageDialog::All, this, [this] { Note("All"); });
        connect(this, &TMessageDialog::YesAll, this, [this] { Note("YesAll"); });
        connect(this, &TMessageDialog::NoAll, this, [this] { Note("NoAll"); });
        connect(this, &TMessageDialog::Continue, this, [this] { Note("Continue"); });
        connect(this, &TMessageDialog::Retry, this, [this] { Note("Retry"); });
        connect(this, &TMessageDialog::Restart, this, [this] { Note("Restart"); });
        connect(this, &TWindow::WindowHidden, this, [this] { Note("hidden"); });
    }

    void Accept() override
    {
        Note("accept");
        TMessageDialog::Accept();
    }
    void Decline() override
    {
        Note("decline");
        TMessageDialog::Decline();
    }

    QStringList notes;

private:
    void Note(char const* what)
    {
        notes << QLatin1String(what) + QLatin1String(isVisible() ? " while up" : " while down");
    }
};

EMessageDialogType Type(int type)
{
    return EMessageDialogType(type);
}

EMessageDialogButton Button(int button)
{
    return EMessageDialogButton(button);
}

// A signal of a dialog by its name; null for a button without one.
using TSignal = void (TMessageDialog::*)();
constexpr TSignal Signals[ButtonCount] = {
    &TMessageDialog::Ok,    &TMessageDialog::Cancel,  &TMessageDialog::Yes,   &TMessageDialog::No,
    &TMessageDialog::All,   &TMessageDialog::YesAll,  &TMessageDialog::NoAll, &TMessageDialog::Continue,
    &TMessageDialog::Retry, &TMessageDialog::Restart,
};

// One type for each button, in which it is seen.
EMessageDialogType TypeWith(int button)
{
    int type = 0;
    while (!ButtonsOf(type).contains(button))
        ++type;
    return Type(type);
}
} // namespace

class TMessageDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Buttons

    void eachTypeHasItsButtons_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("button");
        for (int type = 0; type < TypeCount; ++type)
        {
            for (int button = 0; button < ButtonCount; ++button)
                QTest::addRow("type %d, %s", type, Answers[button].name) << type << button;
        }
    }

    void eachTypeHasItsButtons()
    {
        QFETCH(int, type);
        QFETCH(int, button);
        TMessageStage stage;
        TNotingDialog dialog(Type(type));
        QVERIFY(!dialog.GetMessageDialogButton(Button(button)));
        dialog.ShowWindow(false);
        TPushButton* const found = dialog.GetMessageDialogButton(Button(button));
        int const position = ButtonsOf(type).indexOf(button);
        dialog.EnableButton(Button(button), false);
        if (position < 0)
        {
            QVERIFY(!found);
            auto const others = dialog.findChildren<TPushButton*>();
            for (TPushButton const* const other : others)
                QVERIFY(other->isEnabled());
            return;
        }
        QVERIFY(found);
        QVERIFY(!found->isEnabled());
        dialog.EnableButton(Button(button), true);
        QVERIFY(found->isEnabled());
        // They share the row, the first one at the left.
        int const width = (dialog.width() - 15) / ButtonsOf(type).size();
        QCOMPARE(QRect(found->mapTo(&dialog, QPoint()), found->size()),
                 QRect(3 + position * width, dialog.height() - 81, width, 70));
        QVERIFY(found->isVisible());
        QString const look = TextsOf(type).at(position);
        bool const isIcon = look.startsWith(QLatin1String("icon-"));
        QCOMPARE(found->GetText(), isIcon ? QString() : look);
        QCOMPARE(found->GetIconSize().isEmpty(), !isIcon);
        QCOMPARE(found->objectName(), look);

        stage.finger.Touch(found);
        QCOMPARE(dialog.notes,
                 (QStringList{QLatin1String(Answers[button].name) + QStringLiteral(" while up"),
                              QLatin1String(Answers[button].accepts ? "accept while up" : "decline while up"),
                              QStringLiteral("hidden while down")}));
        QVERIFY(!dialog.isVisible());
    }

    void noTypeHasMoreThanItsButtons()
    {
        TMessageStage const stage;
        for (int type = 0; type < TypeCount; ++type)
        {
            TNotingDialog dialog(Type(type));
            dialog.ShowWindow(false);
            int seen = 0;
            auto const buttons = dialog.findChildren<TPushButton*>();
            for (TPushButton const* const button : buttons)
                seen += button->isVisible() ? 1 : 0;
            QCOMPARE(seen, ButtonsOf(type).size());
        }
    }

    void anUnknownTypeCanBeLeft()
    {
        TMessageStage const stage;
        for (int const type : {-1, 13, 10000})
        {
            TNotingDialog dialog(Type(type));
            dialog.ShowWindow(true);
            QVERIFY(dialog.GetMessageDialogButton(MESSAGE_BUTTON_OK));
        }
    }

    void anUnknownButtonIsNone()
    {
        TMessageStage const stage;
        TNotingDialog dialog(MESSAGE_YES_NO_CANCEL);
        dialog.ShowWindow(false);
        for (int const button : {-1, 10, 10000})
        {
            QVERIFY(!dialog.GetMessageDialogButton(Button(button)));
            dialog.EnableButton(Button(button), false);
        }
    }

    void retryOnAYesNoDialogDoesNothing()
    {
        TMessageStage const stage;
        TNotingDialog dialog(MESSAGE_YES_NO);
        dialog.ShowWindow(false);
        dialog.EnableButton(MESSAGE_BUTTON_RETRY, false);
        QVERIFY(dialog.GetMessageDialogButton(MESSAGE_BUTTON_YES)->isEnabled());
        QVERIFY(dialog.GetMessageDialogButton(MESSAGE_BUTTON_NO)->isEnabled());
    }

    void aDisabledButtonDoesNotAnswer()
    {
        TMessageStage stage;
        TNotingDialog dialog(MESSAGE_YES_NO);
        dialog.ShowWindow(false);
        dialog.EnableButton(MESSAGE_BUTTON_YES, false);
        stage.finger.Touch(dialog.GetMessageDialogButton(MESSAGE_BUTTON_YES));
        QCOMPARE(dialog.notes, QStringList());
    }

    void onlyTheLoudYesShowsThatItIsDisabled()
    {
        TMessageStage const stage;
        QImage pictures[2];
        for (EMessageDialogType const type : {MESSAGE_YES, MESSAGE_YES_NO_CANCEL})
        {
            TNotingDialog dialog(type);
            dialog.ShowWindow(false);
            TPushButton* const yes = dialog.GetMessageDialogButton(MESSAGE_BUTTON_YES);
            dialog.EnableButton(MESSAGE_BUTTON_YES, false);
            yes->SetText(QString(), QString(), false, QString(), false);
            yes->setFixedSize(100, 70);
            pictures[type == MESSAGE_YES] = yes->grab().toImage();
        }
        QVERIFY(pictures[0] != pictures[1]);
    }

    // Answers

    void anyHandlerMayDeleteTheDialog_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<bool>("modal");
        for (int button = 0; button < ButtonCount; ++button)
        {
            QTest::addRow("%s", Answers[button].name) << button << false;
            QTest::addRow("%s, modal", Answers[button].name) << button << true;
        }
    }

    void anyHandlerMayDeleteTheDialog()
    {
        QFETCH(int, button);
        QFETCH(bool, modal);
        TMessageStage stage;
        QPointer<TMessageDialog> const dialog = new TNotingDialog(TypeWith(button));
        dialog->ShowWindow(modal);
        connect(dialog.data(), Signals[button], this, [dialog] { delete dialog; });
        stage.finger.Touch(dialog->GetMessageDialogButton(Button(button)));
        QVERIFY(!dialog);
    }

    void aHandlerMayDeleteItWhenItComesOrGoes()
    {
        TMessageStage stage;
        for (bool const deleteOnClose : {false, true})
        {
            QPointer<TMessageDialog> dialog = new TNotingDialog(MESSAGE_OK, deleteOnClose);
            connect(dialog.data(), &TWindow::WindowShown, this, [dialog] { delete dialog; });
            dialog->ShowWindow(true);
            QVERIFY(!dialog);
            dialog = new TNotingDialog(MESSAGE_OK, deleteOnClose);
            dialog->ShowWindow(true);
            connect(dialog.data(), &TWindow::WindowHidden, this, [dialog] { delete dialog; });
            stage.finger.Touch(dialog->GetMessageDialogButton(MESSAGE_BUTTON_OK));
            QVERIFY(!dialog);
        }
    }

    void itMayEndWhileAButtonIsPressed()
    {
        TMessageStage stage;
        QPointer<TMessageDialog> const dialog = new TNotingDialog(MESSAGE_YES_NO);
        dialog->ShowWindow(true);
        TPushButton* const yes = dialog->GetMessageDialogButton(MESSAGE_BUTTON_YES);
        stage.finger.Press(yes->mapTo(stage.screen.get(), yes->rect().center()));
        delete dialog;
        stage.finger.Lift();
        QVERIFY(!dialog);
    }

    void itMayEndWhileItIsLockedOrLocks()
    {
        TMessageStage stage;
        auto* const below = new TNotingDialog(MESSAGE_OK);
        below->ShowWindow(true);
        stage.screen->AddLockingWidget({below, QString(), KVN::MODAL_GLOBAL, {}});
        QPointer<TMessageDialog> const above = new TMessageDialog(below, QString(), QString(), MESSAGE_OK);
        above->ShowWindow(true);
        delete below;
        QVERIFY(!above);
        stage.screen->CheckToolbarsForLocking();
        QVERIFY(!stage.screen->AreAllToolbarsLocked());
    }

    void itMayEndWhileItsTextIsDragged()
    {
        TMessageStage stage;
        QPointer<TMessageDialog> const dialog =
            new TMessageDialog(nullptr, QString(), TMessageStage::Lines(200), MESSAGE_OK);
        dialog->ShowWindow(true);
        QCoreApplication::processEvents();
        stage.finger.Press(dialog->mapTo(stage.screen.get(), QPoint(60, 200)));
        stage.finger.Move(dialog->mapTo(stage.screen.get(), QPoint(60, 100)));
        QVERIFY(TMessageStage::BarOf(*dialog)->value() > 0);
        connect(TMessageStage::TextOf(*dialog), &TScrollArea::Scroll, this, [dialog] { delete dialog; });
        stage.finger.Move(dialog->mapTo(stage.screen.get(), QPoint(60, 80)));
        QVERIFY(!dialog);
        stage.finger.Lift();
    }

    void theTextMayDeleteTheDialogThatSetsIt()
    {
        TMessageStage const stage;
        QPointer<TMessageDialog> const dialog =
            new TMessageDialog(nullptr, QString(), TMessageStage::Lines(200), MESSAGE_OK);
        dialog->ShowWindow(true);
        QCoreApplication::processEvents();
        TMessageStage::BarOf(*dialog)->setValue(100);
        connect(TMessageStage::TextOf(*dialog), &TScrollArea::Scroll, this, [dialog] { delete dialog; });
        dialog->SetMessage(QStringLiteral("short"));
        QVERIFY(!dialog);
    }

    void aHandlerMayHideItItself()
    {
        TMessageStage stage;
        TNotingDialog dialog(MESSAGE_YES_NO);
        dialog.ShowWindow(false);
        connect(&dialog, &TMessageDialog::No, this, [&] { dialog.HideWindow(); });
        stage.finger.Touch(dialog.GetMessageDialogButton(MESSAGE_BUTTON_NO));
        QCOMPARE(dialog.notes.filter(QStringLiteral("hidden")).size(), 1);
    }

    // Life

    void aHiddenDialogCanBeShownAgain()
    {
        TMessageStage stage;
        TNotingDialog dialog(MESSAGE_YES_NO);
        for (int i = 0; i < 3; ++i)
        {
            dialog.ShowWindow(true);
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(stage.screen.get()));
            stage.finger.Touch(dialog.GetMessageDialogButton(MESSAGE_BUTTON_YES));
            QVERIFY(!dialog.isVisible());
            QVERIFY(!dialog.parentWidget());
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        QCOMPARE(dialog.notes.filter(QStringLiteral("accept")).size(), 3);
        QCOMPARE(dialog.findChildren<TScrollableTextContainer*>().size(), 1);
    }

    void aDialogThatDeletesItselfDoesSoOnceItWasHidden()
    {
        TMessageStage stage;
        QPointer<TMessageDialog> const dialog = new TNotingDialog(MESSAGE_YES_NO, true);
        dialog->ShowWindow(true);
        bool wasUp = false;
        connect(dialog.data(), &TMessageDialog::Yes, this, [&] { wasUp = dialog->isVisible(); });
        stage.finger.Touch(dialog->GetMessageDialogButton(MESSAGE_BUTTON_YES));
        QVERIFY(wasUp);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!dialog);
    }

    void aDialogThatDeletesItselfEndsNoProgram()
    {
        TMessageStage stage;
        stage.screen->hide();
        QSignalSpy const closed(qApp, &QGuiApplication::lastWindowClosed);
        QPointer<TMessageDialog> const dialog = new TNotingDialog(MESSAGE_OK, true);
        dialog->ShowWindow(true);
        dialog->OnOk();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!dialog);
        QCOMPARE(closed.count(), 0);
    }

    void aDialogThatWasNeverShownEndsQuietly()
    {
        TMessageStage const stage;
        TNotingDialog dialog(MESSAGE_OK);
        dialog.SetMessage(QStringLiteral("Stop"));
        dialog.SetPixmap(QPixmap(10, 10));
        dialog.SetTextFormat(Qt::AlignRight, false, QFont());
        dialog.AdjustForShow();
        QVERIFY(dialog.findChildren<TScrollableTextContainer*>().isEmpty());
        dialog.OnOk();
        QCOMPARE(dialog.GetMessageString(), QStringLiteral("Stop"));
    }

    void withoutAScreenItIsAWindowOfItsOwn()
    {
        TMessageDialog dialog(nullptr, QStringLiteral("Boom"), TMessageStage::Lines(5), MESSAGE_OK);
        dialog.ShowWindow(true);
        QVERIFY(dialog.isVisible());
        dialog.GetMessageDialogButton(MESSAGE_BUTTON_OK)->click();
        QVERIFY(!dialog.isVisible());
    }

    // Contents

    void messageIsAProperty()
    {
        TMessageStage const stage;
        TNotingDialog dialog(MESSAGE_OK);
        QCOMPARE(dialog.property("Message").toString(), QStringLiteral("Fold it?"));
        QVERIFY(dialog.setProperty("Message", QStringLiteral("Unfold it?")));
        QCOMPARE(dialog.GetMessageString(), QStringLiteral("Unfold it?"));
        dialog.ShowWindow(false);
        QCOMPARE(TMessageStage::TextOf(dialog)->GetText(), QStringLiteral("Unfold it?"));
        dialog.SetMessage(QStringLiteral("Raise it?"));
        QCOMPARE(TMessageStage::TextOf(dialog)->GetText(), QStringLiteral("Raise it?"));
    }

    void textIsWhiteInRoleFive()
    {
        TMessageStage const stage;
        TNotingDialog dialog(MESSAGE_OK);
        QCOMPARE(dialog.palette().color(QPalette::ColorRole(5)), QColor(Qt::white));
        QCOMPARE(dialog.GetTitle(), QStringLiteral("Boom"));
    }

    void textFormatIsThatOfTheContainer()
    {
        TMessageStage const stage;
        TNotingDialog dialog(MESSAGE_OK);
        dialog.ShowWindow(false);
        auto* const label = TMessageStage::TextOf(dialog)->findChild<QLabel*>();
        QCOMPARE(int(label->alignment()), 132);
        QVERIFY(label->wordWrap());
        QFont condensed = CONDENSED_BOLD_FONT;
        condensed.setPixelSize(14);
        QCOMPARE(label->font().toString(), condensed.toString());
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(20);
        dialog.SetTextFormat(Qt::AlignRight, false, font);
        QCOMPARE(label->alignment(), Qt::AlignRight);
        QVERIFY(!label->wordWrap());
        QCOMPARE(label->font().toString(), font.toString());
    }

    // Wheel

    void theWheelAloneAnswers_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("position");
        for (int type = 0; type < TypeCount; ++type)
        {
            for (int position = 0; position < ButtonsOf(type).size(); ++position)
                QTest::addRow("type %d, position %d", type, position) << type << position;
        }
    }

    void theWheelAloneAnswers()
    {
        QFETCH(int, type);
        QFETCH(int, position);
        TMessageStage stage;
        TNotingDialog dialog(Type(type));
        dialog.ShowWindow(true);
        stage.LetTheWheelSettle();
        stage.WakeTheWheel();
        stage.WheelRight(position);
        stage.navigator.OnEnter();
        char const* const name = Answers[ButtonsOf(type).at(position)].name;
        QTRY_COMPARE(dialog.notes.value(0), QLatin1String(name) + QStringLiteral(" while up"));
    }

    void theWheelReadsALongTextBeforeItAnswers()
    {
        TMessageStage stage;
        TNotingDialog dialog(MESSAGE_YES_NO);
        dialog.SetMessage(TMessageStage::Lines(30));
        dialog.ShowWindow(true);
        QCoreApplication::processEvents();
        stage.LetTheWheelSettle();
        stage.WakeTheWheel();
        stage.navigator.OnEnter();
        stage.Tick();
        QScrollBar const* const bar = TMessageStage::BarOf(dialog);
        stage.WheelRight();
        QCOMPARE(bar->value(), 30);
        stage.WheelRight(100);
        QCOMPARE(bar->value(), bar->maximum());
        stage.navigator.OnWheelLeft();
        QCOMPARE(bar->value(), bar->maximum() - 30);
        stage.navigator.OnBack();
        stage.Tick();
        stage.WheelRight();
        stage.navigator.OnEnter();
        QTRY_COMPARE(dialog.notes.value(0), QStringLiteral("Yes while up"));
    }

    void theWheelStopsAtATextThatGrewLong()
    {
        TMessageStage stage;
        TNotingDialog dialog(MESSAGE_OK);
        dialog.ShowWindow(true);
        stage.LetTheWheelSettle();
        dialog.SetMessage(TMessageStage::Lines(50));
        QCoreApplication::processEvents();
        stage.WakeTheWheel();
        stage.WheelRight();
        stage.navigator.OnEnter();
        stage.WheelRight();
        QCOMPARE(TMessageStage::BarOf(dialog)->value(), 30);
    }

    void theWheelPassesByWhatHasNoButton()
    {
        TMessageStage const stage;
        TNotingDialog dialog(MESSAGE_NO_BUTTON);
        QCOMPARE(dialog.GetMMIBehaviour(), MMI_EXCLUDED);
        TNotingDialog other(MESSAGE_OK);
        QCOMPARE(other.GetMMIBehaviour(), MMI_NORMAL);
    }
};

COMMONUI_TEST(TMessageDialogTest)
#include "TMessageDialogTest.moc"
