#include "TWindow.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TScreenStage.h"

#include <QSignalSpy>

using KVN::MODAL_GLOBAL;
using KVN::MODAL_LOCAL;
using KVN::MODAL_NONE;

namespace
{
QColor const Red(200, 10, 10);
QColor const Behind(0, 0, 100);

// A window that shows what is its own and notes what it is called for.
class TProbe : public TWindow
{
public:
    using TWindow::AddControlButton;
    using TWindow::ClearModalFlag;
    using TWindow::GetCancelButton;
    using TWindow::GetContentRect;
    using TWindow::GetControlButtons;
    using TWindow::GetOkButton;
    using TWindow::IsModal;
    using TWindow::SetContentRect;
    using TWindow::SetLocalModal;

    explicit TProbe(QWidget* parent)
        : TWindow(parent)
    {
        setFixedSize(200, 100);
        SetContentRect(QRect(5, 10, 150, 60));
    }

    // The child that is neither the content nor anything of a test.
    QWidget* Fade() const
    {
        for (QObject* const child : children())
        {
            auto* const widget = qobject_cast<QWidget*>(child);
            if (widget && widget->palette().color(QPalette::Window) == modalFadeoutColor)
                return widget;
        }
        return nullptr;
    }
    bool IsFadeDirectlyBelow(QWidget const* widget) const
    {
        QObjectList const& all = children();
        return !Fade()->isHidden() && all.indexOf(Fade()) + 1 == all.indexOf(const_cast<QWidget*>(widget));
    }

    void Setup() override
    {
        m_Log << QStringLiteral("setup");
        if (m_AsksForItselfInSetup)
            SetupIfRequired();
    }
    void Refresh() override { ++m_Refreshed; }
    bool ShouldAutoReCentre() const override { return m_AutoReCentre; }
    void ReCentre(QWidget* parent) override { m_ReCentred.append(parent); }
    void OnOk() override
    {
        m_Log << QStringLiteral("ok");
        if (m_DeletesItself)
            delete this;
    }
    void OnCancel() override
    {
        m_Log << QStringLiteral("cancel");
        if (m_DeletesItself)
            delete this;
    }

    QStringList m_Log;
    int m_Refreshed = 0;
    bool m_AutoReCentre = false;
    bool m_DeletesItself = false;
    bool m_AsksForItselfInSetup = false;
    QList<QWidget*> m_ReCentred;

protected:
    void showEvent(QShowEvent* event) override
    {
        m_Log << QStringLiteral("show");
        TWindow::showEvent(event);
    }
    void hideEvent(QHideEvent* event) override
    {
        m_Log << QStringLiteral("hide");
        TWindow::hideEvent(event);
    }
};

// A probe with modal children.
struct TFamily
{
    explicit TFamily(TScreenStage& stage)
        : parent(stage.Keep(new TProbe(nullptr)))
    {
        parent->ShowWindow(false);
    }

    TProbe* Child()
    {
        auto* const child = new TProbe(parent);
        child->setFixedSize(40, 20);
        return child;
    }
    TProbe* ShownModalChild()
    {
        TProbe* const child = Child();
        child->ShowWindow(true);
        return child;
    }

    TProbe* parent;
};

class TPlainParent : public QWidget, public KVN::IModalable
{
public:
    using QWidget::QWidget;
    void AddLockingWidget(KVN::ModalData const& data) override
    {
        Q_UNUSED(data)
        ++m_Locks;
    }
    void RemoveLockingWidget(QWidget* widget) override
    {
        Q_UNUSED(widget)
        ++m_Unlocks;
    }

    int m_Locks = 0;
    int m_Unlocks = 0;
};

class TStop : public QWidget, public KVN::MMICapableWidget
{
public:
    using QWidget::QWidget;
    void OnMMIHighlight() override { m_Selected = true; }

    bool m_Selected = false;
};

// A red picture under the name "probe" in the screen's art.
void AddProbePicture(TTestScreen& screen)
{
    QPixmap red(8, 8);
    red.fill(Red);
    QString const path = screen.m_Drive.Path() + QStringLiteral("probe.png");
    QVERIFY(red.save(path));
    screen->GetPixmapManager()->AddPixmap(QStringLiteral("probe"), path, 0, 0, 0, 0, false, 1.0F);
}

// The window on a blue ground.
QImage Picture(QWidget& window)
{
    QImage picture(window.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Behind);
    window.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture;
}

QRect RedPart(QWidget& window)
{
    QImage const picture = Picture(window);
    QRect part;
    for (int y = 0; y < picture.height(); ++y)
    {
        for (int x = 0; x < picture.width(); ++x)
        {
            if (picture.pixelColor(x, y) == Red)
                part |= QRect(x, y, 1, 1);
        }
    }
    return part;
}
} // namespace

class TWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWindowForTheScreenStartsWithoutAParent()
    {
        TTestScreen screen;
        TWindow onScreen(screen.get());
        QVERIFY(!onScreen.parentWidget());
        QVERIFY(onScreen.windowFlags().testFlag(Qt::FramelessWindowHint));
        QWidget other;
        TWindow elsewhere(&other);
        QCOMPARE(elsewhere.parentWidget(), &other);
        TWindow alone(nullptr);
        QVERIFY(!alone.parentWidget());
    }

    void itsPartsAreThereFromTheStart()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        QVERIFY(window.Fade()->isHidden());
        QCOMPARE(window.GetWindowContent()->parentWidget(), &window);
        for (TPushButton* const button : {window.GetOkButton(), window.GetCancelButton()})
        {
            QCOMPARE(button->parentWidget(), window.GetWindowContent());
            QVERIFY(button->isHidden());
            QCOMPARE(button->GetButtonId(), -1);
        }
        TPushButton const like(nullptr, QStringLiteral("icon-tick-larger"), PixmapNames::NewStandardButton,
                               PixmapNames::NewStandardButtonSelected, -1, QString());
        QCOMPARE(window.GetOkButton()->objectName(), like.objectName());
        QVERIFY(window.GetCancelButton()->objectName() != like.objectName());
        QVERIFY(window.GetControlButtons().isEmpty());
        QVERIFY(TWindow(nullptr).size().isValid());
        QCOMPARE(window.ModalType(), int(MODAL_NONE));
        QVERIFY(window.SafeToCloseWindow());
        QVERIFY(!window.ShouldAutoReCentre());
        QVERIFY(!window.WillHideMiniviewsOnShow());
        window.HideMiniviewsOnShow(true);
        QVERIFY(window.WillHideMiniviewsOnShow());
        QVERIFY(window.setProperty("m_windowName", QStringLiteral("Sprayer")));
        QCOMPARE(window.GetWindowName(), QStringLiteral("Sprayer"));
        QCOMPARE(window.property("m_windowName").toString(), QStringLiteral("Sprayer"));
        window.SetTitle(QStringLiteral("Rate"));
        QCOMPARE(window.GetTitle(), QStringLiteral("Rate"));
    }

    void aContentRectangleStartsEmpty()
    {
        class TBare : public TWindow
        {
        public:
            using TWindow::GetContentRect;
            using TWindow::TWindow;
        };
        TBare const bare(nullptr);
        QCOMPARE(bare.GetContentRect(), QRect(QPoint(0, 0), QPoint(-1, -1)));
    }

    void itIsSetUpThenToldThenShown()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.move(70, 80);
        connect(&window, &TWindow::WindowShown, this,
                [&]
                {
                    window.m_Log << QStringLiteral("told");
                    QVERIFY(!window.isVisible());
                    QCOMPARE(window.parentWidget(), static_cast<QWidget*>(screen.get()));
                    QCOMPARE(window.pos(), QPoint(70, 80));
                });
        window.ShowWindow(false);
        QCOMPARE(window.m_Log,
                 (QStringList{QStringLiteral("setup"), QStringLiteral("told"), QStringLiteral("show")}));
        QVERIFY(window.isVisible());
        QVERIFY(window.IsVisible());
        QCOMPARE(window.pos(), QPoint(70, 80));
        window.HideWindow();
        window.m_Log.clear();
        window.ShowWindow(false);
        QCOMPARE(window.m_Log, (QStringList{QStringLiteral("told"), QStringLiteral("show")}));
    }

    void setupMayAskForTheSetUpWindow()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.m_AsksForItselfInSetup = true;
        window.SetupIfRequired();
        window.SetupIfRequired();
        QCOMPARE(window.m_Log, (QStringList{QStringLiteral("setup")}));
        TWindow plain(nullptr);
        plain.Setup();
        QVERIFY(!plain.isVisible());
    }

    void aHiddenWindowIsOffTheScreenWithItsPlaceKept()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.move(70, 80);
        window.ShowWindow(false);
        connect(&window, &TWindow::WindowHidden, this,
                [&]
                {
                    QVERIFY(!window.isVisible());
                    QCOMPARE(window.parentWidget(), static_cast<QWidget*>(screen.get()));
                });
        window.HideWindow();
        QVERIFY(!window.parentWidget());
        QVERIFY(window.isHidden());
        QCOMPARE(window.pos(), QPoint(70, 80));
        window.ShowWindow(false);
        QCOMPARE(window.pos(), QPoint(70, 80));
    }

    void hidingTwiceIsToldOnce()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        QSignalSpy hidden(&window, &TWindow::WindowHidden);
        window.ShowWindow(false);
        window.HideWindow();
        window.HideWindow();
        QCOMPARE(hidden.count(), 1);
        window.ShowWindow(false);
        window.HideWindow();
        QCOMPARE(hidden.count(), 2);
    }

    void hidingANeverShownWindowTakesItOffTheScreen()
    {
        TTestScreen screen;
        TProbe window(nullptr);
        window.setParent(screen.get());
        window.move(7, 8);
        QSignalSpy hidden(&window, &TWindow::WindowHidden);
        window.HideWindow();
        window.HideWindow();
        QCOMPARE(hidden.count(), 1);
        QVERIFY(!window.parentWidget());
        QCOMPARE(window.pos(), QPoint(7, 8));
    }

    void aWindowOfAnotherWidgetStaysThere()
    {
        TTestScreen screen;
        QWidget holder(screen.get());
        holder.show();
        TProbe window(&holder);
        window.ShowWindow(false);
        QVERIFY(window.isVisible());
        window.HideWindow();
        QCOMPARE(window.parentWidget(), &holder);
    }

    void onceModalAlwaysModal()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.ShowWindow(false);
        QVERIFY(!window.IsModal());
        window.ShowWindow(true);
        QVERIFY(window.IsModal());
        window.HideWindow();
        window.ShowWindow(false);
        QVERIFY(window.IsModal());
        window.ClearModalFlag();
        window.ShowWindow(false);
        QVERIFY(!window.IsModal());
    }

    void theModalTypeFollowsBothFlags_data()
    {
        QTest::addColumn<bool>("modal");
        QTest::addColumn<bool>("local");
        QTest::addColumn<int>("type");
        QTest::newRow("not modal") << false << true << int(MODAL_NONE);
        QTest::newRow("not modal, not local") << false << false << int(MODAL_NONE);
        QTest::newRow("local") << true << true << int(MODAL_LOCAL);
        QTest::newRow("global") << true << false << int(MODAL_GLOBAL);
    }

    void theModalTypeFollowsBothFlags()
    {
        QFETCH(bool, modal);
        QFETCH(bool, local);
        QFETCH(int, type);
        TTestScreen screen;
        TProbe window(screen.get());
        window.SetLocalModal(local);
        window.ShowWindow(modal);
        QCOMPARE(window.ModalType(), type);
    }

    void aModalChildFadesItsParent()
    {
        TScreenStage stage;
        TFamily family(stage);
        TProbe* const child = family.Child();
        child->ShowWindow(false);
        QVERIFY(family.parent->Fade()->isHidden());
        child->ShowWindow(true);
        QVERIFY(family.parent->IsFadeDirectlyBelow(child));
        QCOMPARE(family.parent->Fade()->geometry(), QRect(5, 10, 150, 60));
        child->HideWindow();
        QVERIFY(family.parent->Fade()->isHidden());
    }

    void aRepeatedHideTakesTheLockOffAgain()
    {
        TScreenStage stage;
        TFamily family(stage);
        TProbe* const child = family.ShownModalChild();
        child->HideWindow();
        family.parent->AddLockingWidget({child, QString(), MODAL_LOCAL, {}});
        QVERIFY(!family.parent->Fade()->isHidden());
        child->HideWindow();
        QVERIFY(family.parent->Fade()->isHidden());
        child->HideWindow();
        QVERIFY(family.parent->Fade()->isHidden());
    }

    void onlyAWindowIsLockedByItsModalChild()
    {
        TTestScreen screen;
        QSignalSpy notices(screen.get(), &TScreen::NotifyScreenLock);
        TProbe onScreen(screen.get());
        onScreen.ShowWindow(true);
        QVERIFY(notices.isEmpty());
        TPlainParent parent;
        TProbe window(&parent);
        window.ShowWindow(true);
        window.HideWindow();
        QCOMPARE(parent.m_Locks, 0);
        QCOMPARE(parent.m_Unlocks, 0);
    }

    void aModalWindowTakesTheWheel()
    {
        TTestScreen screen;
        TMMICapableWidgetNavigator navigator(screen.get());
        screen->SetMMINavigator(&navigator);
        TProbe window(screen.get());
        TStop stop(window.GetWindowContent());
        window.GetWindowContent()->setFixedSize(100, 50);
        window.ShowWindow(false);
        screen.m_Clock.Advance(100);
        navigator.OnWheelRight();
        QVERIFY(!navigator.OnBack());
        window.ShowWindow(true);
        screen.m_Clock.Advance(100);
        navigator.OnWheelRight();
        navigator.UpdateFocus();
        QVERIFY(stop.m_Selected);
        QVERIFY(navigator.OnBack());
    }

    void setVisibleActsOnADifferenceOnly_data()
    {
        QTest::addColumn<bool>("shown");
        QTest::addColumn<bool>("wasModal");
        QTest::addColumn<bool>("visible");
        QTest::addColumn<bool>("modal");
        QTest::addColumn<QString>("log");
        QTest::newRow("shown again") << true << false << true << false << "";
        QTest::newRow("shown modal again") << true << true << true << true << "";
        QTest::newRow("shown as modal") << true << false << true << true << "told";
        QTest::newRow("shown as not modal") << true << true << true << false << "told";
        QTest::newRow("hidden") << true << false << false << false << "hidden";
        QTest::newRow("hidden again") << false << false << false << false << "";
        QTest::newRow("shown") << false << false << true << false << "told";
    }

    void setVisibleActsOnADifferenceOnly()
    {
        QFETCH(bool, shown);
        QFETCH(bool, wasModal);
        QFETCH(bool, visible);
        QFETCH(bool, modal);
        QFETCH(QString, log);
        TTestScreen screen;
        TProbe window(screen.get());
        window.ShowWindow(wasModal);
        if (!shown)
            window.HideWindow();
        QStringList calls;
        connect(&window, &TWindow::WindowShown, this, [&] { calls << QStringLiteral("told"); });
        connect(&window, &TWindow::WindowHidden, this, [&] { calls << QStringLiteral("hidden"); });
        window.SetVisible(visible, modal);
        QCOMPARE(calls.join(QLatin1Char(' ')), log);
        QCOMPARE(window.isVisible(), visible);
        QCOMPARE(window.IsModal(), modal || wasModal);
    }

    void aWindowMayHideInAnswerToItsShowing()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        connect(&window, &TWindow::WindowShown, &window, &TWindow::HideWindow);
        window.ShowWindow(true);
        QVERIFY(window.isHidden());
        QVERIFY(!window.parentWidget());
    }

    void aWindowMayComeBackInAnswerToItsHiding()
    {
        TScreenStage stage;
        TFamily family(stage);
        connect(family.parent, &TWindow::WindowHidden, family.parent,
                [&family] { family.parent->ShowWindow(false); });
        family.parent->HideWindow();
        QVERIFY(family.parent->isVisible());
        QCOMPARE(family.parent->parentWidget(), static_cast<QWidget*>(stage.screen.get()));
        TProbe* const child = family.ShownModalChild();
        connect(child, &TWindow::WindowHidden, child, [child] { child->ShowWindow(true); });
        child->HideWindow();
        QVERIFY(child->isVisible());
        QVERIFY(family.parent->IsFadeDirectlyBelow(child));
    }

    void theTimerRunsWhileTheWindowIsShown()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        TProbe other(screen.get());
        TProbe never(screen.get());
        window.UseTimer(1);
        other.UseTimer(1);
        never.UseTimer(0);
        for (TProbe* const each : {&window, &other, &never})
            each->ShowWindow(false);
        QTRY_VERIFY(window.m_Refreshed >= 3);
        window.HideWindow();
        int const refreshed = window.m_Refreshed;
        other.m_Refreshed = 0;
        QTRY_VERIFY(other.m_Refreshed >= 3);
        QCOMPARE(window.m_Refreshed, refreshed);
        QCOMPARE(never.m_Refreshed, 0);
        other.UseTimer(-1);
        other.HideWindow();
        other.ShowWindow(false);
        other.m_Refreshed = 0;
        window.ShowWindow(false);
        QTRY_VERIFY(window.m_Refreshed > refreshed + 2);
        QCOMPARE(other.m_Refreshed, 0);
    }

    void itIsCentredAnewWithItsParent()
    {
        TTestScreen screen;
        auto* const holder = new QWidget(screen.get());
        auto* const other = new QWidget(screen.get());
        holder->resize(300, 300);
        holder->show();
        other->show();
        TProbe window(holder);
        window.m_AutoReCentre = true;
        window.ShowWindow(false);
        QCOMPARE(window.m_ReCentred, (QList<QWidget*>{holder}));
        holder->resize(310, 300);
        QCOMPARE(window.m_ReCentred.size(), 2);
        window.HideWindow();
        holder->resize(320, 300);
        QCOMPARE(window.m_ReCentred.size(), 2);
        window.ShowWindow(false);
        window.setParent(other);
        window.m_ReCentred.clear();
        holder->resize(330, 300);
        QVERIFY(window.m_ReCentred.isEmpty());
        window.ShowWindow(false);
        other->resize(50, 50);
        QCOMPARE(window.m_ReCentred, (QList<QWidget*>{other, other}));
        window.m_AutoReCentre = false;
        window.HideWindow();
        window.ShowWindow(false);
        other->resize(60, 60);
        QCOMPARE(window.m_ReCentred.size(), 2);
    }

    void aParentsEventsAreNotConsumed()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.m_AutoReCentre = true;
        window.ShowWindow(false);
        QEvent resize(QEvent::Resize);
        QVERIFY(!window.eventFilter(screen.get(), &resize));
        QVERIFY(!window.eventFilter(this, &resize));
    }

    void theBackgroundFillsItsArea_data()
    {
        QTest::addColumn<QRect>("area");
        QTest::addColumn<QRect>("painted");
        QTest::newRow("the whole window") << QRect(0, 0, 0, 0) << QRect(0, 0, 200, 100);
        QTest::newRow("a part") << QRect(10, 20, 30, 40) << QRect(10, 20, 30, 40);
        QTest::newRow("the window's width") << QRect(0, 20, 0, 40) << QRect(0, 20, 200, 40);
        QTest::newRow("the window's height") << QRect(10, 0, 30, 0) << QRect(10, 0, 30, 100);
    }

    void theBackgroundFillsItsArea()
    {
        QFETCH(QRect, area);
        QFETCH(QRect, painted);
        TTestScreen screen;
        AddProbePicture(screen);
        TProbe window(screen.get());
        window.SetBackground(QStringLiteral("probe"));
        window.SetBackgroundArea(area.x(), area.y(), area.width(), area.height());
        window.ShowWindow(false);
        QCOMPARE(RedPart(window), painted);
        window.setFixedSize(120, 80);
        QCOMPARE(RedPart(window), painted & QRect(0, 0, 120, 80));
    }

    void aWindowWithoutABackgroundPaintsNothing()
    {
        TTestScreen screen;
        AddProbePicture(screen);
        TProbe window(screen.get());
        window.ShowWindow(false);
        QCOMPARE(RedPart(window), QRect());
        window.SetBackground(QStringLiteral("probe"));
        QCOMPARE(RedPart(window), window.rect());
        window.SetBackground(QString());
        QCOMPARE(RedPart(window), QRect());
        window.setFixedSize(120, 80);
        QCOMPARE(RedPart(window), QRect());
    }

    void theSameBackgroundIsNotFetchedAgain()
    {
        TTestScreen screen;
        AddProbePicture(screen);
        TProbe window(screen.get());
        window.ShowWindow(false);
        window.SetBackground(QStringLiteral("probe"));
        QPixmap other(8, 8);
        other.fill(Qt::green);
        QString const path = screen.m_Drive.Path() + QStringLiteral("other.png");
        QVERIFY(other.save(path));
        screen->GetPixmapManager()->AddPixmap(QStringLiteral("probe"), path, 0, 0, 0, 0, false, 1.0F);
        window.SetBackground(QStringLiteral("probe"));
        QCOMPARE(RedPart(window), window.rect());
        window.SetBackground(QString());
        window.SetBackground(QStringLiteral("probe"));
        QCOMPARE(RedPart(window), QRect());
    }

    void theBackgroundShowsThroughByItsOpacity_data()
    {
        QTest::addColumn<float>("opacity");
        QTest::addColumn<int>("red");
        QTest::newRow("opaque") << 1.0F << 200;
        QTest::newRow("half") << 0.5F << 100;
        QTest::newRow("not at all") << 0.0F << 0;
        QTest::newRow("too much") << 3.0F << 200;
        QTest::newRow("negative") << -1.0F << 0;
    }

    void theBackgroundShowsThroughByItsOpacity()
    {
        QFETCH(float, opacity);
        QFETCH(int, red);
        TTestScreen screen;
        AddProbePicture(screen);
        TProbe window(screen.get());
        window.SetBackground(QStringLiteral("probe"));
        window.SetBackgroundOpacity(opacity);
        window.ShowWindow(false);
        QVERIFY(qAbs(Picture(window).pixelColor(50, 50).red() - red) <= 1);
    }

    void theFadeFollowsTheContentRectangle()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        QCOMPARE(window.Fade()->geometry(), QRect(5, 10, 150, 60));
        window.Fade()->setGeometry(0, 0, 1, 1);
        window.ShowWindow(false);
        QCOMPARE(window.Fade()->geometry(), QRect(5, 10, 150, 60));
        window.SetContentRect(QRect(1, 2, 3, 4));
        QCOMPARE(window.Fade()->geometry(), QRect(1, 2, 3, 4));
    }

    void locksOfAWindowStackInTheirOrder()
    {
        TScreenStage stage;
        TFamily family(stage);
        TProbe* const first = family.Child();
        TProbe* const second = family.Child();
        family.parent->AddLockingWidget({nullptr, QString(), MODAL_LOCAL, {}});
        QVERIFY(family.parent->Fade()->isHidden());
        family.parent->AddLockingWidget({first, QString(), MODAL_NONE, {}});
        QVERIFY(family.parent->IsFadeDirectlyBelow(first));
        family.parent->AddLockingWidget({second, QString(), MODAL_LOCAL, {}});
        QVERIFY(family.parent->IsFadeDirectlyBelow(second));
        family.parent->AddLockingWidget({first, QString(), MODAL_LOCAL, {}});
        QVERIFY(family.parent->IsFadeDirectlyBelow(second));
        family.parent->RemoveLockingWidget(family.parent);
        QVERIFY(family.parent->IsFadeDirectlyBelow(second));
        family.parent->RemoveLockingWidget(second);
        QVERIFY(family.parent->IsFadeDirectlyBelow(first));
        family.parent->RemoveLockingWidget(first);
        QVERIFY(family.parent->Fade()->isHidden());
        family.parent->RemoveLockingWidget(first);
        QVERIFY(family.parent->Fade()->isHidden());
    }

    void aLockThatVanishesLeavesTheFadeRight_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("operation");
        for (char const* const way :
             {"delete", "HideWindow", "close", "another parent, HideWindow", "another parent, ShowWindow",
              "no parent, HideWindow", "not modal, HideWindow"})
        {
            for (char const* const operation : {"show the lower one again", "hide the lower one", "another"})
                QTest::addRow("%s, then %s", way, operation) << way << operation;
        }
    }

    void aLockThatVanishesLeavesTheFadeRight()
    {
        QFETCH(QString, way);
        QFETCH(QString, operation);
        TScreenStage stage;
        TFamily family(stage);
        TFamily neighbour(stage);
        TProbe* const lower = family.ShownModalChild();
        TProbe* const upper = stage.Keep(family.ShownModalChild());
        QVERIFY(family.parent->IsFadeDirectlyBelow(upper));
        Vanish(upper, neighbour.parent, way);
        if (operation == QLatin1String("show the lower one again"))
        {
            lower->ShowWindow(true);
            QVERIFY(family.parent->IsFadeDirectlyBelow(lower));
        }
        else if (operation == QLatin1String("hide the lower one"))
        {
            lower->HideWindow();
            QVERIFY(family.parent->Fade()->isHidden());
        }
        else
        {
            TProbe* const third = family.ShownModalChild();
            QVERIFY(family.parent->IsFadeDirectlyBelow(third));
            third->HideWindow();
            QVERIFY(family.parent->IsFadeDirectlyBelow(lower));
        }
        bool const locksNeighbour = way.endsWith(QLatin1String("parent, ShowWindow"));
        QCOMPARE(!neighbour.parent->Fade()->isHidden(), locksNeighbour);
    }

    void theBackKeyCancelsOrLeaves_data()
    {
        QTest::addColumn<bool>("hasCancel");
        QTest::addColumn<bool>("modal");
        QTest::addColumn<bool>("leaves");
        QTest::newRow("with Cancel") << true << false << false;
        QTest::newRow("modal with Cancel") << true << true << false;
        QTest::newRow("without Cancel") << false << false << true;
        QTest::newRow("modal without Cancel") << false << true << false;
    }

    void theBackKeyCancelsOrLeaves()
    {
        QFETCH(bool, hasCancel);
        QFETCH(bool, modal);
        QFETCH(bool, leaves);
        TTestScreen screen;
        TProbe window(screen.get());
        window.GetCancelButton()->setVisible(hasCancel);
        window.ShowWindow(modal);
        QCOMPARE(window.OnMMIBack(), leaves);
        QCOMPARE(window.m_Log.count(QStringLiteral("cancel")), hasCancel ? 1 : 0);
    }

    void okAndCancelAnswerTheirButtons()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.GetWindowContent()->setFixedSize(200, 100);
        window.GetCancelButton()->move(100, 0);
        window.GetOkButton()->show();
        window.GetCancelButton()->show();
        window.ShowWindow(false);
        window.m_Log.clear();
        TFinger finger(screen.get());
        finger.Touch(window.GetOkButton());
        finger.Touch(window.GetCancelButton());
        QCOMPARE(window.m_Log, (QStringList{QStringLiteral("ok"), QStringLiteral("cancel")}));
    }

    void controlButtonsTakeTheirPlaceById()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.AddControlButton(3, QStringLiteral("icon-tick-larger"), QStringLiteral("Three"));
        QCOMPARE(window.GetControlButtons().size(), 4);
        for (int gap = 0; gap < 3; ++gap)
            QVERIFY(!window.GetControlButtons()[gap]);
        TPushButton* const button = window.GetControlButtons()[3];
        QCOMPARE(button->parentWidget(), window.GetWindowContent());
        QCOMPARE(button->GetButtonId(), 3);
        QCOMPARE(button->GetToolTip(), QStringLiteral("Three"));
        window.AddControlButton(1, QString(), QStringLiteral("One"));
        QCOMPARE(window.GetControlButtons().size(), 4);
        QCOMPARE(window.GetControlButtons()[1]->GetButtonId(), 1);
    }

    void aTakenControlButtonGetsTheNewLook()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.ShowWindow(false);
        window.AddControlButton(0, QStringLiteral("icon-tick-larger"), PixmapNames::NewGreenButton,
                                PixmapNames::NewGreenButtonSelected, PixmapNames::NewDisabledButton,
                                QStringLiteral("Before"));
        TPushButton* const button = window.GetControlButtons()[0];
        button->SetTextPlacement(TEXT_WHOLE_BUTTON);
        button->SetText(QStringLiteral("Go"), QString(), true, QString(), false);
        QImage const before = button->grab().toImage();
        window.AddControlButton(0, QStringLiteral("icon-cross-larger"), QStringLiteral("After"));
        QCOMPARE(window.GetControlButtons(), (QVector<TPushButton*>{button}));
        QCOMPARE(button->GetToolTip(), QStringLiteral("After"));
        TPushButton like(window.GetWindowContent(), QStringLiteral("icon-cross-larger"),
                         PixmapNames::NewStandardButton, PixmapNames::NewStandardButtonSelected, 0,
                         QStringLiteral("After"));
        like.SetBackgroundDisabled(PixmapNames::NewDisabledButton);
        like.SetFontProperties(QColor(255, 255, 255), 16, true, true, false,
                               Qt::AlignCenter | Qt::TextWordWrap, false);
        like.SetTextPlacement(TEXT_WHOLE_BUTTON);
        like.SetText(QStringLiteral("Go"), QString(), true, QString(), false);
        like.resize(button->size());
        QVERIFY(before != button->grab().toImage());
        QCOMPARE(button->grab().toImage(), like.grab().toImage());
        for (TPushButton* const each : {button, &like})
            each->setDown(true);
        QCOMPARE(button->grab().toImage(), like.grab().toImage());
        for (TPushButton* const each : {button, &like})
        {
            each->setDown(false);
            each->setEnabled(false);
        }
        QCOMPARE(button->grab().toImage(), like.grab().toImage());
    }

    void aControlButtonNeedsAnIdInRange_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("count");
        QTest::newRow("negative") << -1 << 0;
        QTest::newRow("the first") << 0 << 1;
        QTest::newRow("the last") << TWindow::MaxControlButtonId << 100;
        QTest::newRow("beyond") << TWindow::MaxControlButtonId + 1 << 0;
        QTest::newRow("far beyond") << INT_MAX << 0;
    }

    void aControlButtonNeedsAnIdInRange()
    {
        QFETCH(int, id);
        QFETCH(int, count);
        TTestScreen screen;
        TProbe window(screen.get());
        window.AddControlButton(id, QString(), QString());
        QCOMPARE(window.GetControlButtons().size(), count);
    }

    void theMouseIsToldWithItsEvents()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.ShowWindow(false);
        QList<QPair<int, QPoint>> seen;
        auto const note = [&](QMouseEvent* event) { seen << qMakePair(int(event->type()), event->pos()); };
        connect(&window, &TWindow::WindowMousePress, this, note);
        connect(&window, &TWindow::WindowMouseMove, this, note);
        connect(&window, &TWindow::WindowMouseRelease, this, note);
        TFinger finger(screen.get());
        finger.Press({20, 30});
        finger.Move(QPoint(25, 35));
        finger.Lift();
        QCOMPARE(seen, (QList<QPair<int, QPoint>>{{QEvent::MouseButtonPress, {20, 30}},
                                                  {QEvent::MouseMove, {25, 35}},
                                                  {QEvent::MouseButtonRelease, {25, 35}}}));
    }

    void keysGoOnToTheParent()
    {
        TTestScreen screen;
        TProbe window(screen.get());
        window.ShowWindow(true);
        for (QEvent::Type const type : {QEvent::KeyPress, QEvent::KeyRelease})
        {
            QKeyEvent key(type, Qt::Key_Escape, Qt::NoModifier);
            static_cast<QObject&>(window).event(&key);
            QVERIFY(!key.isAccepted());
        }
        QVERIFY(window.isVisible());
    }

    void aClosedWindowIsAHiddenOne()
    {
        TScreenStage stage;
        TFamily family(stage);
        TProbe* const child = family.ShownModalChild();
        QSignalSpy hidden(child, &TWindow::WindowHidden);
        QVERIFY(child->close());
        QCOMPARE(hidden.count(), 1);
        QVERIFY(child->isHidden());
        QVERIFY(family.parent->Fade()->isHidden());
        QVERIFY(family.parent->close());
        QVERIFY(!family.parent->parentWidget());
        QVERIFY(family.parent->close());
        QCOMPARE(hidden.count(), 1);
    }

    void aWindowMayEndInAnyOfItsSignals_data()
    {
        QTest::addColumn<QString>("signal");
        for (char const* const signal :
             {"WindowShown", "WindowHidden", "press", "move", "release", "ok", "cancel", "back",
              "screen gone when shown", "screen gone when hidden"})
            QTest::newRow(signal) << signal;
    }

    void aWindowMayEndInAnyOfItsSignals()
    {
        QFETCH(QString, signal);
        TScreenStage stage;
        QPointer<TProbe> window = stage.Keep(new TProbe(nullptr));
        window->m_DeletesItself = true;
        window->GetWindowContent()->setGeometry(100, 0, 100, 100);
        window->GetOkButton()->show();
        window->GetCancelButton()->move(0, 60);
        window->GetCancelButton()->show();
        auto const end = [window] { delete window.data(); };
        auto const endScreen = [&stage] { delete stage.screen.get(); };
        if (signal == QLatin1String("screen gone when shown"))
            connect(window, &TWindow::WindowShown, this, endScreen);
        else if (signal == QLatin1String("screen gone when hidden"))
            connect(window, &TWindow::WindowHidden, this, endScreen);
        else if (signal == QLatin1String("WindowShown"))
            connect(window, &TWindow::WindowShown, this, end);
        else if (signal == QLatin1String("WindowHidden"))
            connect(window, &TWindow::WindowHidden, this, end);
        else if (signal == QLatin1String("press"))
            connect(window, &TWindow::WindowMousePress, this, end);
        else if (signal == QLatin1String("move"))
            connect(window, &TWindow::WindowMouseMove, this, end);
        else if (signal == QLatin1String("release"))
            connect(window, &TWindow::WindowMouseRelease, this, end);
        window->ShowWindow(true);
        if (window)
            stage.Lock(window, MODAL_GLOBAL);
        TFinger finger(stage.screen.get());
        if (signal == QLatin1String("ok"))
            finger.Touch(window->GetOkButton());
        else if (signal == QLatin1String("cancel"))
            finger.Touch(window->GetCancelButton());
        else if (signal == QLatin1String("back"))
            QVERIFY(!window->OnMMIBack());
        else if (window && signal.endsWith(QLatin1String("idden")))
            window->HideWindow();
        finger.Press({20, 30});
        finger.Move(QPoint(25, 35));
        finger.Lift();
        QVERIFY(!window);
        QCOMPARE(!stage.screen.get(), signal.startsWith(QLatin1String("screen")));
        if (!stage.screen.get())
            return;
        stage.screen->CheckToolbarsForLocking();
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aWindowMayEndInAnyState_data()
    {
        QTest::addColumn<QString>("state");
        for (char const* const state :
             {"built", "shown", "modal", "pressed", "button pressed", "locked by a child",
              "locking the screen", "timer", "centred", "selected by the wheel", "hidden"})
            QTest::newRow(state) << state;
    }

    void aWindowMayEndInAnyState()
    {
        QFETCH(QString, state);
        TScreenStage stage;
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        auto* const window = new TProbe(nullptr);
        window->GetWindowContent()->setGeometry(100, 0, 100, 100);
        window->GetOkButton()->show();
        window->UseTimer(state == QLatin1String("timer") ? 1 : 0);
        window->m_AutoReCentre = state == QLatin1String("centred");
        if (state != QLatin1String("built"))
            window->ShowWindow(state != QLatin1String("shown"));
        TFinger finger(stage.screen.get());
        if (state == QLatin1String("pressed"))
            finger.Press({20, 30});
        else if (state == QLatin1String("button pressed"))
            finger.Press({130, 30});
        else if (state == QLatin1String("locked by a child"))
            (new TProbe(window))->ShowWindow(true);
        else if (state == QLatin1String("locking the screen"))
            stage.Lock(window, MODAL_GLOBAL);
        else if (state == QLatin1String("hidden"))
            window->HideWindow();
        stage.screen.m_Clock.Advance(100);
        navigator.OnWheelRight();
        navigator.UpdateFocus();
        delete window;
        finger.Move(QPoint(25, 35));
        finger.Lift();
        stage.screen->resize(1000, 700);
        navigator.OnWheelRight();
        navigator.UpdateFocus();
        stage.screen->CheckToolbarsForLocking();
        VERIFY_LAYERS(*stage.screen.get());
        QVERIFY(stage.Locks().isEmpty());
    }

    void aChildThatHidesInItsEndSparesItsDyingParent()
    {
        class THidesAtTheEnd : public TWindow
        {
        public:
            using TWindow::TWindow;
            ~THidesAtTheEnd() override { HideWindow(); }
        };
        TScreenStage stage;
        auto* const parent = new TProbe(nullptr);
        parent->ShowWindow(false);
        QPointer<TWindow> const child = new THidesAtTheEnd(parent);
        child->ShowWindow(true);
        delete parent;
        QVERIFY(!child);
    }

    void withoutAScreenAWindowStillShows()
    {
        QVERIFY(!MainScreen);
        TProbe window(nullptr);
        QSignalSpy shown(&window, &TWindow::WindowShown);
        window.SetBackground(QStringLiteral("probe"));
        window.ShowWindow(true);
        QVERIFY(window.isVisible());
        window.HideWindow();
        QVERIFY(!window.isVisible());
        QCOMPARE(shown.count(), 1);
    }

private:
    static void Vanish(TProbe* window, TWindow* neighbour, QString const& way)
    {
        if (way == QLatin1String("delete"))
        {
            delete window;
            return;
        }
        if (way.startsWith(QLatin1String("another parent")))
            window->setParent(neighbour);
        else if (way.startsWith(QLatin1String("no parent")))
            window->setParent(nullptr);
        else if (way.startsWith(QLatin1String("not modal")))
            window->ClearModalFlag();
        if (way.endsWith(QLatin1String("HideWindow")))
            window->HideWindow();
        else if (way.endsWith(QLatin1String("ShowWindow")))
            window->ShowWindow(false);
        else
            window->close();
    }
};

COMMONUI_TEST(TWindowTest)
#include "TWindowTest.moc"
