#include "TModalWidget.h"
#include "GoldenPicture.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TFullWindow.h"
#include "TMessageDialog.h"
#include "TPushButton.h"
#include "TScreenStage.h"

#include <QVBoxLayout>

namespace
{
class TTouched : public QWidget
{
public:
    using QWidget::QWidget;

    int m_Touches = 0;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        ++m_Touches;
        event->accept();
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        ++m_Touches;
        event->accept();
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        ++m_Touches;
        event->accept();
    }
};
} // namespace

class TModalWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itFadesWhatLiesBehind()
    {
        QWidget screen;
        screen.resize(20, 20);
        QPalette white = screen.palette();
        white.setColor(QPalette::Window, Qt::white);
        screen.setPalette(white);
        TModalWidget fade(&screen);
        fade.resize(10, 20);
        screen.show();
        QImage const picture = screen.grab().toImage();
        QCOMPARE(picture.pixelColor(15, 5), QColor(255, 255, 255));
        QCOMPARE(picture.pixelColor(5, 5), QColor(127, 127, 127));
    }

    void itsBodyKeepsTheMarginsFree()
    {
        QWidget screen;
        TModalWidget fade(&screen);
        fade.resize(300, 200);
        auto const* const layout = qobject_cast<QVBoxLayout*>(fade.layout());
        QVERIFY(layout);
        QCOMPARE(layout->count(), 1);
        QWidget const* const body = layout->itemAt(0)->widget();
        QCOMPARE(layout->contentsMargins(), QMargins());
        screen.show();
        QCOMPARE(body->geometry(), QRect(0, 0, 300, 200));
        fade.SetContentsMargins(67, 1, 2, 3);
        QCOMPARE(layout->contentsMargins(), QMargins(67, 1, 2, 3));
        fade.layout()->activate();
        QCOMPARE(body->geometry(), QRect(67, 1, 231, 196));
    }

    void noTouchGoesThroughIt()
    {
        TTouched screen;
        screen.resize(200, 200);
        TModalWidget fade(&screen);
        fade.resize(100, 200);
        screen.show();
        TFinger finger(&screen);
        finger.Press({50, 50});
        finger.Move(QPoint(60, 60));
        finger.Lift();
        QCOMPARE(screen.m_Touches, 0);
        finger.Touch({150, 50});
        QCOMPARE(screen.m_Touches, 2);
    }

    void theCallbackGetsTheFade()
    {
        TModalWidget fade(nullptr);
        QWidget window;
        QWidget* given = nullptr;
        fade.OnClicked();
        fade.SetModalData({&window, QString(), KVN::MODAL_LOCAL, [&](QWidget* widget) { given = widget; }});
        QCOMPARE(fade.GetModalData().widget, &window);
        fade.OnClicked();
        QCOMPARE(given, &fade);
        given = nullptr;
        fade.SetModalData({});
        QVERIFY(!fade.GetModalData().widget);
        fade.OnClicked();
        QVERIFY(!given);
    }

    void onlyAChangedRecordIsTaken_data()
    {
        QTest::addColumn<bool>("otherWidget");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("modalType");
        QTest::addColumn<bool>("hasCallback");
        QTest::addColumn<bool>("taken");
        QTest::newRow("the same but for the callback's code") << false << "Rate" << 1 << true << false;
        QTest::newRow("another widget") << true << "Rate" << 1 << true << true;
        QTest::newRow("another title") << false << "Speed" << 1 << true << true;
        QTest::newRow("another type") << false << "Rate" << 2 << true << true;
        QTest::newRow("no callback") << false << "Rate" << 1 << false << true;
    }

    void onlyAChangedRecordIsTaken()
    {
        QFETCH(bool, otherWidget);
        QFETCH(QString, title);
        QFETCH(int, modalType);
        QFETCH(bool, hasCallback);
        QFETCH(bool, taken);
        TModalWidget fade(nullptr);
        QWidget window;
        QWidget other;
        QStringList called;
        fade.SetModalData({&window, QStringLiteral("Rate"), KVN::MODAL_LOCAL,
                           [&](QWidget*) { called << QStringLiteral("first"); }});
        KVN::ModalData data{otherWidget ? &other : &window, title, modalType, {}};
        if (hasCallback)
            data.callback = [&](QWidget*) { called << QStringLiteral("second"); };
        fade.SetModalData(data);
        QCOMPARE(fade.GetModalData().title, title);
        QCOMPARE(fade.GetModalData().modalType, modalType);
        fade.OnClicked();
        QStringList expected;
        if (hasCallback)
            expected << (taken ? QStringLiteral("second") : QStringLiteral("first"));
        QCOMPARE(called, expected);
    }

    void aWidgetAtTheAddressOfADeadOneIsAnother()
    {
        TModalWidget fade(nullptr);
        std::aligned_storage_t<sizeof(QWidget), alignof(QWidget)> place;
        QStringList called;
        auto* const dead = new (&place) QWidget;
        fade.SetModalData(
            {dead, QString(), KVN::MODAL_LOCAL, [&](QWidget*) { called << QStringLiteral("dead"); }});
        dead->~QWidget();
        auto* const living = new (&place) QWidget;
        fade.SetModalData(
            {living, QString(), KVN::MODAL_LOCAL, [&](QWidget*) { called << QStringLiteral("living"); }});
        fade.OnClicked();
        living->~QWidget();
        QCOMPARE(called, (QStringList{QStringLiteral("living")}));
    }

    void aCallbackMayReplaceItsOwnRecord()
    {
        TModalWidget fade(nullptr);
        QWidget window;
        QString const text = QStringLiteral("a string that lives in the callback");
        QString seen;
        fade.SetModalData({&window, QString(), KVN::MODAL_LOCAL,
                           [&fade, &seen, text](QWidget*)
                           {
                               fade.SetModalData({});
                               seen = text;
                           }});
        fade.OnClicked();
        QCOMPARE(seen, text);
    }

    void aCallbackMayDeleteTheFade()
    {
        QPointer<TModalWidget> fade = new TModalWidget(nullptr);
        QWidget window;
        fade->SetModalData({&window, QString(), KVN::MODAL_LOCAL, [](QWidget* widget) { delete widget; }});
        fade->OnClicked();
        QVERIFY(!fade);
    }

    void aWidgetOfThisWindowNeedsNoMessage()
    {
        TScreenStage stage;
        stage.Lock(stage.Window(), KVN::MODAL_LOCAL);
        QVERIFY(stage.Fade()->isVisible());
        QVERIFY(!stage.Fade()->findChild<TMessageDialog*>());
    }

    void aTaskInAnotherWindowIsTold_data()
    {
        QTest::addColumn<bool>("canContinue");
        QTest::newRow("that ends there") << false;
        QTest::newRow("that may go on here") << true;
    }

    void aTaskInAnotherWindowIsTold()
    {
        QFETCH(bool, canContinue);
        TScreenStage stage;
        QWidget elsewhere;
        QWidget* given = nullptr;
        KVN::ModalData data{&elsewhere, QString(), KVN::MODAL_GLOBAL, {}};
        if (canContinue)
            data.callback = [&](QWidget* widget) { given = widget; };
        stage.screen->AddLockingWidget(data);
        auto* const message = stage.Fade()->findChild<TMessageDialog*>();
        QVERIFY(message);
        QVERIFY(message->isVisible());
        QCOMPARE(message->ModalType(), int(KVN::MODAL_GLOBAL));
        QCOMPARE(message->GetTitle(), QStringLiteral("Task In Progress"));
        QCOMPARE(message->GetMessageString(),
                 QStringLiteral("An ZONTO task is currently running on another device."));
        QRect const there(message->mapTo(stage.screen.get(), QPoint()), message->size());
        QCOMPARE(there.center(), QRect(0, 0, 1024, 768).center());
        TPushButton* const button = message->GetMessageDialogButton(MESSAGE_BUTTON_OK);
        QCOMPARE(button != nullptr, canContinue);
        if (!button)
        {
            QCOMPARE(message->GetMMIBehaviour(), MMI_EXCLUDED);
            return;
        }
        QCOMPARE(button->GetText(), QStringLiteral("Continue on this device"));
        QVERIFY(button->GetIconSize().isEmpty());
        TFinger(stage.screen.get()).Touch(button);
        QCOMPARE(given, stage.Fade());
        QVERIFY(!message->isVisible());
    }

    void aMessageEndsWithItsRecord()
    {
        TScreenStage stage;
        QWidget elsewhere;
        stage.screen->AddLockingWidget({&elsewhere, QString(), KVN::MODAL_GLOBAL, {}});
        QPointer<TMessageDialog> const first = stage.Fade()->findChild<TMessageDialog*>();
        QVERIFY(first);
        // Another record, another message.
        stage.Fade()->SetModalData({&elsewhere, QStringLiteral("Rate"), KVN::MODAL_GLOBAL, {}});
        QVERIFY(!first->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!first);
        QPointer<TMessageDialog> const second = stage.Fade()->findChild<TMessageDialog*>();
        QVERIFY(second);
        // The same record keeps it.
        stage.Fade()->SetModalData({&elsewhere, QStringLiteral("Rate"), KVN::MODAL_GLOBAL, {}});
        QCOMPARE(stage.Fade()->findChild<TMessageDialog*>(), second.data());
        stage.Fade()->SetModalData({});
        QVERIFY(!second->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!stage.Fade()->findChild<TMessageDialog*>());
    }

    void theMessageComesWhenTheFadeDoes()
    {
        TScreenStage stage;
        QWidget elsewhere;
        TWindow* const here = stage.Window();
        TModalWidget fade(stage.canvas);
        fade.resize(400, 300);
        fade.hide();
        fade.SetModalData({&elsewhere, QString(), KVN::MODAL_LOCAL, {}});
        QVERIFY(!fade.findChild<TMessageDialog*>());
        fade.show();
        auto* const message = fade.findChild<TMessageDialog*>();
        QVERIFY(message && message->isVisible());
        QCOMPARE(message->width(), 260);
        fade.hide();
        // What comes into this window meanwhile needs no message any more.
        elsewhere.setParent(here);
        fade.show();
        QVERIFY(!message->isVisible());
        elsewhere.setParent(nullptr);
    }

    void theMessageKeepsTheMarginsFree()
    {
        TScreenStage stage;
        QWidget elsewhere;
        TModalWidget fade(stage.canvas);
        fade.SetContentsMargins(100, 0, 0, 0);
        fade.resize(600, 400);
        fade.SetModalData({&elsewhere, QString(), KVN::MODAL_LOCAL, {}});
        fade.show();
        auto* const message = fade.findChild<TMessageDialog*>();
        QVERIFY(message);
        QCOMPARE(message->mapTo(&fade, QPoint()).x(), 100 + (500 - 260) / 2);
        fade.resize(700, 400);
        QCoreApplication::processEvents();
        QCOMPARE(message->mapTo(&fade, QPoint()).x(), 100 + (600 - 260) / 2);
    }

    void aTouchMayDeleteTheFadeOrItsRecord_data()
    {
        QTest::addColumn<bool>("wholeFade");
        QTest::newRow("the record") << false;
        QTest::newRow("the fade") << true;
    }

    void aTouchMayDeleteTheFadeOrItsRecord()
    {
        QFETCH(bool, wholeFade);
        TScreenStage stage;
        QWidget elsewhere;
        QPointer<TModalWidget> const fade = new TModalWidget(stage.screen.get());
        fade->resize(400, 300);
        fade->SetModalData({&elsewhere, QString(), KVN::MODAL_LOCAL,
                            [=](QWidget*)
                            {
                                if (wholeFade)
                                    delete fade;
                                else
                                    fade->SetModalData({});
                            }});
        fade->show();
        fade->raise();
        auto* const message = fade->findChild<TMessageDialog*>();
        QVERIFY(message);
        TFinger(stage.screen.get()).Touch(message->GetMessageDialogButton(MESSAGE_BUTTON_OK));
        QCOMPARE(fade.isNull(), wholeFade);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (fade)
            QVERIFY(!fade->findChild<TMessageDialog*>());
    }

    void aDeadWidgetIsNowhere()
    {
        TScreenStage stage;
        TModalWidget fade(stage.canvas);
        auto* const elsewhere = new QWidget;
        fade.SetModalData({elsewhere, QString(), KVN::MODAL_LOCAL, {}});
        delete elsewhere;
        fade.show();
        QVERIFY(!fade.findChild<TMessageDialog*>());
    }

    void theFadeLiesBehindAModalWindow()
    {
        TScreenStage stage;
        stage.canvas->SetBackgroundColor(QColor(40, 90, 40));
        auto* const full = new TFullWindow(stage.canvas);
        full->SetTitle(QStringLiteral("Boom height"));
        stage.canvas->SetFullWindow(full, false);
        full->ShowWindow(false);
        TWindow* const window = stage.Window();
        window->SetBackground(QStringLiteral("TaskWindowNoShadow"));
        window->setFixedSize(260, 200);
        window->move(350, 60);
        window->AddControlButton(0, QStringLiteral("icon-tick-larger"), QString());
        window->GetWindowContent()->setGeometry(20, 60, 200, 100);
        stage.Lock(window, KVN::MODAL_GLOBAL);
        COMPARE_PICTURE(stage.screen->grab().toImage(), "fade-behind-modal-window");
    }
};

COMMONUI_TEST(TModalWidgetTest)
#include "TModalWidgetTest.moc"
