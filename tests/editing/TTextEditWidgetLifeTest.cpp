#include "TestCase.h"
#include "TListPicker.h"
#include "TTextEditStage.h"

namespace
{
void DeleteLaterNow()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// An editor that is open over another control than the stage's.
class TSecondEditor
{
public:
    explicit TSecondEditor(TTextEditStage& stage)
        : editor(TTextEditStage::MakeEditor(stage.source))
    {
        editor->SetValue(QStringLiteral("second"));
        QObject::connect(editor, &TTextEditWidget::Cancel, stage.page, [this] { ++cancelled; });
    }
    ~TSecondEditor() { delete editor.data(); }
    TSecondEditor(TSecondEditor const&) = delete;
    TSecondEditor& operator=(TSecondEditor const&) = delete;

    QPointer<TTextEditWidget> editor;
    int cancelled = 0;
};
} // namespace

/// How an edit ends: the keyboard is never lost, and no lock stays.
class TTextEditWidgetLifeTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void allIsDownBeforeTheTextIsTold_data()
    {
        QTest::addColumn<QString>("icon");
        QTest::newRow("OK") << QStringLiteral("icon-tick");
        QTest::newRow("Cancel") << QStringLiteral("icon-cross");
    }
    void allIsDownBeforeTheTextIsTold()
    {
        QFETCH(QString, icon);
        TTextEditStage stage;
        QString remains = QStringLiteral("not told");
        auto const look = [&]
        {
            remains = stage.Remains();
            QVERIFY(stage.Line()->isHidden());
        };
        connect(stage.editor.data(), &TTextEditWidget::NewText, this, look);
        connect(stage.editor.data(), &TTextEditWidget::Cancel, this, look);
        stage.Open(QStringLiteral("A"));
        stage.finger.Touch(stage.Special(icon));
        QCOMPARE(remains, QString());
        QCoreApplication::processEvents();
        QCOMPARE(stage.texts.size() + stage.cancelled, 1);
        QVERIFY(!stage.Line()->hasFocus());
    }

    void closingTellsNothing()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.editor->Close();
        stage.editor->Close();
        QCoreApplication::processEvents();
        QVERIFY(stage.texts.isEmpty());
        QCOMPARE(stage.cancelled, 0);
        QCOMPARE(stage.Remains(), QString());
    }

    void theKeyboardIsHandedBackAsItWasFound()
    {
        TTextEditStage stage;
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        stage.editor->SetHexMode(true);
        stage.editor->SetMaxLength(0);
        stage.editor->SetHideButtonPress(true);
        stage.Open(QStringLiteral("."));
        QVERIFY(!stage.Ok()->isEnabled());
        stage.editor->Close();
        QCOMPARE(stage.KeyboardFault(), QString());
        stage.keyboard->ShowWindow(false);
        TKey* const key = stage.Key(QLatin1Char('Q'));
        QImage const before = key->grab().toImage();
        stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
        QVERIFY(key->grab().toImage() != before);
    }

    void eachOpeningTakesOffOneCheckOfItsOwn()
    {
        TTextEditStage stage;
        TRefusingCheck const mine(QStringLiteral("Q"));
        stage.keyboard->PushKeyChecker(&mine);
        stage.Open(QString());
        QVERIFY(stage.Key(QLatin1Char('Q'))->isEnabled());
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        stage.editor->Close();
        stage.keyboard->ShowWindow(false);
        QVERIFY(!stage.Key(QLatin1Char('Q'))->isEnabled());
        QVERIFY(stage.Key(QLatin1Char('/'))->isEnabled());
    }

    void aHiddenSourceTakesTheEditAlongAndBringsItBack()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.Type(QStringLiteral("BC"));
        stage.HideSource();
        QVERIFY(!stage.editor->isVisible());
        QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
        QCOMPARE(stage.KeyboardFault(), QString());
        stage.ShowSource();
        QCoreApplication::processEvents();
        QVERIFY(stage.editor->isVisible());
        QCOMPARE(stage.Line()->selectedText(), QStringLiteral("BC"));
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.texts, QStringList{QStringLiteral("BC")});
        QCOMPARE(stage.Remains(), QString());
    }

    void aSourceThatDiesTakesTheEditorOff()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.DeleteSource();
        QCoreApplication::processEvents();
        QCOMPARE(stage.Remains(), QString());
        stage.Open(QStringLiteral("B"));
        QVERIFY(stage.editor->isVisible());
        QVERIFY(stage.Value()->geometry().isEmpty());
    }

    void aMovedSourceThatDiesBeforeTheEditorFollows()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.MoveSource(QRect(1, 2, 30, 40));
        delete stage.source;
        QCoreApplication::processEvents();
        QVERIFY(stage.Value()->geometry().isEmpty());
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.Remains(), QString());
    }

    void closedByASlotThatHearsOfTheHexadecimalKeys()
    {
        TTextEditStage stage;
        stage.editor->SetHexMode(true);
        connect(stage.keyboard, &TKeyboard::GeometryChanged, this, [&stage] { stage.editor->Close(); });
        stage.Open(QStringLiteral("A"));
        QCOMPARE(stage.Remains(), QString());
        QVERIFY(stage.editor->isHidden());
    }

    void theFunctionOfADeadSourceIsNotAsked()
    {
        TTextEditStage stage;
        bool isAsked = false;
        stage.editor->SetPosition(stage.source,
                                  [&isAsked](QWidget*)
                                  {
                                      isAsked = true;
                                      return QRect(10, 10, 100, 40);
                                  });
        stage.Open(QStringLiteral("A"));
        QVERIFY(std::exchange(isAsked, false));
        delete stage.source;
        stage.editor->PositionChanged();
        QCoreApplication::processEvents();
        QVERIFY(!isAsked);
    }

    void deletedWhileOpen()
    {
        TTextEditStage stage;
        stage.editor->SetHexMode(true);
        stage.Open(QStringLiteral("A"));
        stage.MoveSource(QRect(1, 2, 30, 40));
        delete stage.editor;
        QCoreApplication::processEvents();
        QCOMPARE(stage.Remains(), QString());
        QCOMPARE(stage.cancelled, 0);
    }

    void deletedWhileAKeyIsDown()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        TKey* const key = stage.Key(QLatin1Char('Q'));
        stage.finger.Press(key->mapTo(stage.screen.get(), key->rect().center()));
        delete stage.editor;
        stage.finger.Lift();
        QCOMPARE(stage.Remains(), QString());
    }

    void deletedInTheSlotOfItsOwnSignals_data()
    {
        QTest::addColumn<QString>("how");
        for (char const* const how : {"touch OK", "touch Cancel", "wheel", "back", "return"})
            QTest::newRow(how) << how;
    }
    void deletedInTheSlotOfItsOwnSignals()
    {
        QFETCH(QString, how);
        TTextEditStage stage;
        auto const end = [&] { delete stage.editor; };
        connect(stage.editor.data(), &TTextEditWidget::NewText, this, end);
        connect(stage.editor.data(), &TTextEditWidget::Cancel, this, end);
        stage.Open(QStringLiteral("A"));
        End(stage, how);
        QTRY_VERIFY(!stage.editor);
        QCOMPARE(stage.Remains(), QString());
        QCOMPARE(stage.texts.size() + stage.cancelled, 1);
    }

    void replacedInTheSlotOfItsOwnSignals_data() { deletedInTheSlotOfItsOwnSignals_data(); }
    void replacedInTheSlotOfItsOwnSignals()
    {
        QFETCH(QString, how);
        TTextEditStage stage;
        TSecondEditor second(stage);
        auto const replace = [&]
        {
            stage.editor->deleteLater();
            second.editor->Open();
        };
        connect(stage.editor.data(), &TTextEditWidget::NewText, this, replace);
        connect(stage.editor.data(), &TTextEditWidget::Cancel, this, replace);
        stage.Open(QStringLiteral("A"));
        End(stage, how);
        QTRY_VERIFY(!stage.editor);
        DeleteLaterNow();
        QVERIFY(second.editor->isVisible());
        QVERIFY(stage.keyboard->isVisible());
        QCOMPARE(stage.screen->GetLockingWidgets().size(), 1);
        QCOMPARE(TTextEditStage::LineOf(second.editor)->selectedText(), QStringLiteral("second"));
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.Remains(), QString());
        QCOMPARE(second.cancelled, 0);
    }

    void openedAgainInTheSlotOfItsOwnSignals()
    {
        TTextEditStage stage;
        connect(stage.editor.data(), &TTextEditWidget::NewText, this,
                [&] { stage.Open(QStringLiteral("again")); });
        stage.Open(QStringLiteral("A"));
        stage.finger.Touch(stage.Ok());
        QCoreApplication::processEvents();
        QVERIFY(stage.editor->isVisible());
        QCOMPARE(stage.cancelled, 0);
        stage.finger.Touch(stage.CancelKey());
        QCOMPARE(stage.Remains(), QString());
    }

    void theSecondEditorSendsTheFirstAway()
    {
        TTextEditStage stage;
        TSecondEditor second(stage);
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        stage.Open(QStringLiteral("A"));
        second.editor->Open();
        QVERIFY(!stage.editor->isVisible());
        QVERIFY(second.editor->isVisible());
        QCOMPARE(stage.keyboard->parentWidget(), static_cast<QWidget*>(second.editor));
        QCOMPARE(stage.screen->GetLockingWidgets().size(), 1);
        QVERIFY(stage.Key(QLatin1Char('/'))->isEnabled());
        QCOMPARE(stage.cancelled, 0); // not in the middle of the other's showing
        QCoreApplication::processEvents();
        QCOMPARE(stage.cancelled, 1);
        stage.Type(QStringLiteral("B"));
        QCOMPARE(stage.Text(), QStringLiteral("A"));
        QCOMPARE(TTextEditStage::LineOf(second.editor)->text(), QStringLiteral("B"));
        delete stage.editor;
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.Remains(), QString());
    }

    void oneThatWasSentAwayMayComeBackAtOnce()
    {
        TTextEditStage stage;
        TSecondEditor second(stage);
        stage.Open(QStringLiteral("A"));
        second.editor->Open();
        stage.editor->Open();
        QCoreApplication::processEvents();
        QCOMPARE(stage.cancelled, 0);
        QCOMPARE(second.cancelled, 1);
        QVERIFY(stage.editor->isVisible());
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.Remains(), QString());
    }

    void oneThatWasSentAwayMayDieOfIt()
    {
        TTextEditStage stage;
        TSecondEditor second(stage);
        connect(stage.editor.data(), &TTextEditWidget::Cancel, this, [&] { delete stage.editor; });
        stage.Open(QStringLiteral("A"));
        second.editor->Open();
        delete second.editor;
        QCoreApplication::processEvents();
        QVERIFY(!stage.editor);
        QCOMPARE(stage.Remains(), QString());
    }

    void aFormerParentGetsTheKeyboardBack()
    {
        TTextEditStage stage;
        QWidget owner;
        stage.keyboard->setParent(&owner);
        stage.keyboard->move(33, 44);
        stage.Open(QStringLiteral("A"));
        stage.editor->Close();
        QCOMPARE(stage.keyboard->parentWidget(), &owner);
        QVERIFY(stage.keyboard->isHidden());
        stage.keyboard->setParent(nullptr);
    }

    void aFormerParentThatDiedGetsNothing()
    {
        TTextEditStage stage;
        auto* const owner = new QWidget;
        stage.keyboard->setParent(owner);
        stage.Open(QStringLiteral("A"));
        delete owner;
        QVERIFY(stage.keyboard);
        stage.finger.Touch(stage.Ok());
        QCOMPARE(stage.Remains(), QString());
    }

    void aFormerParentThatDiesWithTheEditorGetsNothing()
    {
        TTextEditStage stage;
        auto* const owner = new QWidget(stage.screen.get());
        owner->show();
        stage.keyboard->setParent(owner);
        auto* const editor = new TTextEditWidget(owner);
        editor->show(); // without the platform
        QVERIFY(editor->isVisible());
        QCOMPARE(stage.keyboard->parentWidget(), static_cast<QWidget*>(editor));
        delete owner;
        QCOMPARE(stage.Remains(), QString());
    }

    void theKeyboardHiddenBySomebodyElseCancels_data()
    {
        QTest::addColumn<bool>("asAWindow");
        QTest::newRow("as a window") << true;
        QTest::newRow("as a widget") << false;
    }
    void theKeyboardHiddenBySomebodyElseCancels()
    {
        QFETCH(bool, asAWindow);
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        if (asAWindow)
            stage.keyboard->HideWindow();
        else
            stage.keyboard->hide();
        QCoreApplication::processEvents();
        QCOMPARE(stage.cancelled, 1);
        QCOMPARE(stage.Remains(), QString());
    }

    void theKeyboardHiddenAndShownAtOnceStays()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.keyboard->HideWindow();
        stage.keyboard->ShowWindow(false);
        QCoreApplication::processEvents();
        QCOMPARE(stage.cancelled, 0);
        QVERIFY(stage.editor->isVisible());
    }

    void theKeyboardTakenBySomebodyElseStaysThere()
    {
        TTextEditStage stage;
        QWidget thief(stage.screen.get());
        thief.show();
        stage.editor->SetTextRestriction(TEXT_RESTRICTION_FILE_NAMES);
        stage.Open(QStringLiteral("A"));
        stage.keyboard->setParent(&thief);
        stage.keyboard->ShowWindow(false);
        QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
        QVERIFY(stage.Type(QStringLiteral("Q/")));
        QCOMPARE(stage.Text(), QStringLiteral("A"));
        QCoreApplication::processEvents();
        QCOMPARE(stage.cancelled, 1);
        QVERIFY(stage.keyboard->isVisible());
        QCOMPARE(stage.keyboard->parentWidget(), &thief);
        stage.keyboard->setParent(nullptr);
    }

    void theKeyboardDiesWhileItIsBorrowed()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        delete stage.keyboard;
        stage.PressKeys(QStringLiteral("b"));
        QCOMPARE(stage.Text(), QStringLiteral("b"));
        QCoreApplication::processEvents();
        QCOMPARE(stage.cancelled, 1);
        QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
        stage.Open(QStringLiteral("A")); // there is no other
        QCoreApplication::processEvents();
        QCOMPARE(stage.cancelled, 2);
        QVERIFY(stage.editor->isHidden());
    }

    void theScreenTakesAnOpenEditorAlong()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        delete stage.screen.get();
        QVERIFY(!stage.keyboard);
        QVERIFY(!stage.editor);
        QCOMPARE(stage.cancelled, 0);
    }

    void theEditGoesOnAfterALayoutWasChosen()
    {
        TTextEditStage stage;
        TListPicker picker(stage.finger);
        stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
        stage.Open(QStringLiteral("abcdef"));
        stage.Line()->setSelection(1, 3);
        stage.finger.Touch(stage.LayoutKey());
        QVERIFY(picker.Overlay());
        QCOMPARE(stage.screen->GetLockingWidgets().size(), 2);
        picker.TouchRow(2);
        picker.Accept();
        QCoreApplication::processEvents();
        QCOMPARE(stage.screen->GetLockingWidgets().size(), 1);
        QCOMPARE(stage.Line()->selectedText(), QStringLiteral("bcd"));
        QVERIFY(stage.Line()->hasFocus());
        QVERIFY(stage.Type(QStringLiteral("*")));
        QCOMPARE(stage.Text(), QStringLiteral("a*ef"));
        stage.keyboard->CancelExternalLayout();
    }

    void closedWhileALayoutIsChosen()
    {
        TTextEditStage stage;
        TListPicker picker(stage.finger);
        stage.keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), nullptr);
        stage.Open(QStringLiteral("A"));
        stage.finger.Touch(stage.LayoutKey());
        QVERIFY(picker.Overlay());
        stage.editor->Close();
        DeleteLaterNow();
        QVERIFY(!picker.Overlay());
        stage.keyboard->CancelExternalLayout();
        QCOMPARE(stage.Remains(), QString());
    }

    void closedByWhoeverHearsOfItsShowing_data()
    {
        QTest::addColumn<bool>("byLock");
        QTest::newRow("the lock") << true;
        QTest::newRow("the keyboard") << false;
    }
    void closedByWhoeverHearsOfItsShowing()
    {
        QFETCH(bool, byLock);
        TTextEditStage stage;
        TRefusingCheck const mine(QStringLiteral("Q"));
        stage.keyboard->PushKeyChecker(&mine);
        auto const close = [&] { stage.editor->Close(); };
        if (byLock)
            connect(stage.screen.get(), &TScreen::NotifyScreenLock, this, close);
        else
            connect(stage.keyboard.data(), &TKeyboard::WindowShown, this, close);
        stage.Open(QStringLiteral("A"));
        QCoreApplication::processEvents();
        QVERIFY(!stage.editor->isVisible());
        QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
        QVERIFY(stage.keyboard->isHidden() && !stage.keyboard->parentWidget());
        stage.keyboard->disconnect(this);
        stage.keyboard->ShowWindow(false);
        QVERIFY(!stage.Key(QLatin1Char('Q'))->isEnabled()); // only its own check went
    }

    void withoutAKeyboardItCloses()
    {
        QWidget window;
        window.show();
        TTextEditWidget editor(&window);
        int cancelled = 0;
        connect(&editor, &TTextEditWidget::Cancel, this, [&] { ++cancelled; });
        editor.SetValue(QStringLiteral("A"));
        editor.show();
        QVERIFY(!editor.isVisible());
        QCoreApplication::processEvents();
        QVERIFY(editor.isHidden());
        QCOMPARE(cancelled, 1);
    }

    void withoutAPlatformNothingOpens()
    {
        TTextEditWidget editor(nullptr);
        editor.SetPosition(nullptr, {});
        editor.Open();
        QVERIFY(editor.isHidden());
        QCOMPARE(editor.Position(nullptr), QPoint());
        editor.Close();
        editor.PositionChanged();
        QCoreApplication::processEvents();
    }

    void closesWithoutThePlatformTooWhenItWasShownSo()
    {
        TTestScreen screen;
        TTextEditWidget editor(nullptr);
        editor.setParent(screen.get());
        editor.show();
        QVERIFY(editor.isVisible());
        screen->GetKeyboard()->ClickCancel();
        QTRY_VERIFY(editor.isHidden());
        QVERIFY(screen->GetLockingWidgets().isEmpty());
    }

    void theEditOutlastsAScreenThatIsPutAside()
    {
        TTextEditStage stage;
        stage.Open(QStringLiteral("A"));
        stage.Line()->end(false);
        QHideEvent aside;
        QShowEvent again;
        QSpontaneKeyEvent::setSpontaneous(&aside);
        QSpontaneKeyEvent::setSpontaneous(&again);
        qApp->notify(stage.editor, &aside);
        qApp->notify(stage.editor, &again);
        QVERIFY(stage.editor->isVisible());
        QVERIFY(!stage.Line()->hasSelectedText());
        QVERIFY(stage.Type(QStringLiteral("B")));
        QCOMPARE(stage.Text(), QStringLiteral("AB"));
    }

private:
    static void End(TTextEditStage& stage, QString const& how)
    {
        if (how == QLatin1String("touch OK"))
            stage.finger.Touch(stage.Ok());
        else if (how == QLatin1String("touch Cancel"))
            stage.finger.Touch(stage.CancelKey());
        else if (how == QLatin1String("return"))
            stage.PressKey(Qt::Key_Return);
        else
            stage.TurnTo(stage.Ok());
        if (how == QLatin1String("wheel"))
            stage.navigator.OnEnter();
        else if (how == QLatin1String("back"))
            stage.navigator.OnBack();
    }
};

COMMONUI_TEST(TTextEditWidgetLifeTest)
#include "TTextEditWidgetLifeTest.moc"
