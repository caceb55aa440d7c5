#include "TSystemToolBar.h"
#include "Metrics.h"
#include "ScreenLayers.h"
#include "TestCase.h"
#include "TMMICapableWidgetNavigator.h"
#include "TSystemToolBarButton.h"
#include "TViewStage.h"

#include <QPainter>
#include <QSignalSpy>

namespace
{
QImage File(QString const& name)
{
    return QImage(QStringLiteral(":/Images/Resources/") + name + QStringLiteral(".png"))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// What the bar paints itself, without its buttons.
QImage Painted(QWidget* bar)
{
    QImage image(bar->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    bar->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

// A bar that gives the limit a meaning, as a module's may.
class TLimitedBar : public TSystemToolBar
{
public:
    using TSystemToolBar::TSystemToolBar;

    void SetMaxButtonsVisible(int count) override
    {
        m_MaximumVisible = count;
        ArrangeButtons();
    }
};

/// A shown screen with the bar in its corner.
template<typename TBar>
struct TBarStageOf : TViewStage
{
    TBarStageOf()
        : bar(new TBar(screen.get()))
    {
        screen->SetSystemToolBar(bar);
        manager->ShowSystemToolbar(true);
    }

    TSystemToolBarButton* AddButton()
    {
        auto* const button = new TSystemToolBarButton(nullptr);
        Own(button);
        [&] { QVERIFY(bar->AddButton(button)); }();
        return button;
    }
    QVector<TSystemToolBarButton*> AddButtons(int count)
    {
        QVector<TSystemToolBarButton*> buttons;
        for (int i = 0; i < count; ++i)
            buttons.append(AddButton());
        return buttons;
    }
    bool IsInTheCorner() const { return bar->geometry().bottomRight() == screen->rect().bottomRight(); }

    QPointer<TBar> bar;
};

using TBarStage = TBarStageOf<TSystemToolBar>;

QList<int> StartsOf(QVector<TSystemToolBarButton*> const& buttons, bool horizontal)
{
    QList<int> starts;
    for (TSystemToolBarButton const* const button : buttons)
        starts.append(horizontal ? button->x() : button->y());
    return starts;
}
} // namespace

class TSystemToolBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Size and place

    void theBarIsAsLargeAsItsButtons_data()
    {
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<int>("count");
        QTest::addColumn<QSize>("size");
        QTest::newRow("upright, none") << false << 0 << QSize(0, 0);
        QTest::newRow("upright, one") << false << 1 << QSize(72, 84);
        QTest::newRow("upright, two") << false << 2 << QSize(72, 178);
        QTest::newRow("upright, three") << false << 3 << QSize(72, 272);
        QTest::newRow("upright, four") << false << 4 << QSize(72, 366);
        QTest::newRow("upright, five") << false << 5 << QSize(72, 460);
        QTest::newRow("lying, none") << true << 0 << QSize(0, 86);
        QTest::newRow("lying, one") << true << 1 << QSize(12 + 72, 86);
        QTest::newRow("lying, two") << true << 2 << QSize(12 + 72 + 10 + 72, 86);
        QTest::newRow("lying, four") << true << 4 << QSize(12 + 4 * 72 + 3 * 10, 86);
    }

    void theBarIsAsLargeAsItsButtons()
    {
        QFETCH(bool, horizontal);
        QFETCH(int, count);
        QFETCH(QSize, size);
        TBarStage stage;
        stage.bar->SetHorizontal(horizontal);
        QCOMPARE(stage.bar->IsHorizontal(), horizontal);
        stage.AddButtons(count);
        QCOMPARE(stage.bar->size(), size);
        QVERIFY(stage.IsInTheCorner() || size.isEmpty());
    }

    void aHiddenBarHasItsSizeToo()
    {
        TBarStage stage;
        stage.manager->ShowSystemToolbar(false);
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(2);
        QCOMPARE(stage.bar->size(), QSize(72, 178));
        stage.manager->ShowSystemToolbar(true);
        QVERIFY(stage.IsInTheCorner());
        QCOMPARE(buttons[0]->geometry(), QRect(0, 94, 72, 84));
    }

    void theFirstButtonIsInTheCorner_data()
    {
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<QList<int>>("starts");
        QTest::newRow("upright") << false << QList<int>{188, 94, 0};
        QTest::newRow("lying") << true << QList<int>{12 + 164, 12 + 82, 12};
    }

    void theFirstButtonIsInTheCorner()
    {
        QFETCH(bool, horizontal);
        QFETCH(QList<int>, starts);
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(3);
        stage.bar->SetHorizontal(horizontal);
        QCOMPARE(StartsOf(buttons, horizontal), starts);
        for (TSystemToolBarButton const* const button : buttons)
        {
            QVERIFY(button->isVisible());
            QCOMPARE(button->size(), horizontal ? QSize(72, 86) : QSize(72, 84));
            QCOMPARE(horizontal ? button->y() : button->x(), 0);
        }
    }

    void layingItDownAndSettingItUpAgainLeavesNoTrace()
    {
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(2);
        QRect const upright = stage.bar->geometry();
        QList<int> const starts = StartsOf(buttons, false);
        stage.bar->SetHorizontal(true);
        QVERIFY(stage.IsInTheCorner());
        stage.bar->SetHorizontal(false);
        QCOMPARE(stage.bar->geometry(), upright);
        QCOMPARE(StartsOf(buttons, false), starts);
    }

    void aHiddenButtonTakesNoRoom()
    {
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(3);
        stage.bar->SetButtonVisible(buttons[1], false);
        QVERIFY(!buttons[1]->isVisible());
        QCOMPARE(stage.bar->height(), 178);
        QCOMPARE(buttons[2]->y(), 0);
        QVERIFY(stage.IsInTheCorner());
        stage.bar->SetButtonVisible(buttons[1], true);
        QVERIFY(buttons[1]->isVisible());
        QCOMPARE(stage.bar->height(), 272);
    }

    void everyNewPlaceAndSizeIsTold()
    {
        TBarStage stage;
        stage.AddButtons(1);
        stage.manager->ShowSystemToolbar(false);
        stage.bar->show();
        QSignalSpy const told(stage.bar, &TSystemToolBar::GeometryChanged);
        stage.bar->move(10, 10);
        QCOMPARE(told.count(), 1);
        stage.bar->move(10, 10);
        QCOMPARE(told.count(), 1);
        stage.AddButtons(1);
        QCOMPARE(told.count(), 3); // its size, and with it its place
    }

    // Background

    void theBackgroundIsMadeForTheNumberOfButtons_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("file");
        QTest::newRow("one") << 1 << QStringLiteral("SystemToolbarOneButton");
        QTest::newRow("two") << 2 << QStringLiteral("SystemToolbarTwoButton");
        QTest::newRow("three") << 3 << QStringLiteral("SystemToolbarThreeButton");
    }

    void theBackgroundIsMadeForTheNumberOfButtons()
    {
        QFETCH(int, count);
        QFETCH(QString, file);
        TBarStage stage;
        stage.AddButtons(count);
        QCOMPARE(Painted(stage.bar), File(file));
    }

    void aLongerBarHasTheSameEdges_data()
    {
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<int>("count");
        QTest::newRow("upright, four") << false << 4;
        QTest::newRow("upright, five") << false << 5;
        QTest::newRow("lying, one") << true << 1;
        QTest::newRow("lying, three") << true << 3;
    }

    void aLongerBarHasTheSameEdges()
    {
        QFETCH(bool, horizontal);
        QFETCH(int, count);
        TBarStage stage;
        stage.bar->SetHorizontal(horizontal);
        stage.AddButtons(count);
        QImage const image = Painted(stage.bar);
        QImage const one = File(QStringLiteral("SystemToolbarOneButton"));
        QCOMPARE(image.size(), stage.bar->size());
        QCOMPARE(image.copy(0, 0, 12, 12), one.copy(0, 0, 12, 12));
        QCOMPARE(image.pixel(image.width() - 1, image.height() - 1), one.pixel(71, 83));
        QCOMPARE(image.pixel(image.width() / 2, 0), one.pixel(36, 0));
    }

    void anEmptyBarPaintsNothing()
    {
        TBarStage stage;
        stage.bar->SetHorizontal(true);
        QVERIFY(!stage.bar->GetBackground());
        stage.bar->SetHorizontal(false);
        QVERIFY(!stage.bar->GetBackground());
    }

    // Buttons

    void addingAButtonTwiceAnswersFalse()
    {
        TBarStage stage;
        TSystemToolBarButton* const button = stage.AddButton();
        QVERIFY(!stage.bar->AddButton(button));
        QCOMPARE(stage.bar->GetNumberOfButtons(), 1);
        QVERIFY(!stage.bar->AddButton(nullptr));
        QCOMPARE(stage.bar->GetNumberOfButtons(), 1);
    }

    void addedButtonsAreCountedFromAThousand()
    {
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(2);
        QCOMPARE(stage.bar->GetButton(1000), buttons[0]);
        QCOMPARE(stage.bar->GetButton(1001), buttons[1]);
        stage.bar->AssignButton(2000, QString(), QString(), QString());
        QCOMPARE(stage.bar->GetButton(2001), stage.AddButton());
        stage.bar->TBaseToolBar::RemoveButton(2000, true);
        stage.bar->TBaseToolBar::RemoveButton(2001, false);
        QCOMPARE(stage.bar->GetButton(1002), stage.AddButton());
        stage.bar->TBaseToolBar::RemoveButton(1002, false);
        stage.bar->RemoveButton(buttons[1]);
        stage.bar->RemoveButton(buttons[0]);
        QCOMPARE(stage.bar->GetButton(1000), stage.AddButton());
    }

    void aHigherIdThanThatIsCountedOnFrom()
    {
        TBarStage stage;
        stage.bar->AssignButton(7, QString(), QString(), QString());
        QCOMPARE(stage.bar->GetButton(8), stage.AddButton());
    }

    void theHighestIdOfAllLeavesNoRoom()
    {
        TBarStage stage;
        stage.bar->AssignButton(INT_MAX, QString(), QString(), QString());
        TSystemToolBarButton button(nullptr);
        QVERIFY(!stage.bar->AddButton(&button));
        QVERIFY(!button.parentWidget());
    }

    void anAddedButtonKeepsItsOwnId()
    {
        TBarStage stage;
        TSystemToolBarButton* const button = stage.AddButton();
        QCOMPARE(button->parentWidget(), stage.bar.data());
        QCOMPARE(button->GetButtonId(), -1);
        button->SetButtonID(5);
        QSignalSpy clicks(button, &TPushButton::Clicked);
        stage.finger.Touch(button);
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(clicks.constFirst().constFirst().toInt(), 5);
    }

    void anAssignedButtonSaysItsId()
    {
        TBarStage stage;
        stage.bar->AssignButton(3, QStringLiteral("icon-home"), QString(), QStringLiteral("Home"));
        TPushButton* const button = stage.bar->GetButton(3);
        QVERIFY(qobject_cast<TSystemToolBarButton*>(button));
        QCOMPARE(button->GetToolTip(), QStringLiteral("Home"));
        QSignalSpy clicks(button, &TPushButton::Clicked);
        stage.finger.Touch(button);
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(clicks.constFirst().constFirst().toInt(), 3);
    }

    void everyIconIsOfOneSize_data()
    {
        QTest::addColumn<QSize>("wanted");
        QTest::newRow("its own") << QSize(-1, -1);
        QTest::newRow("small") << QSize(20, 20);
        QTest::newRow("none") << QSize(0, 0);
    }

    void everyIconIsOfOneSize()
    {
        QFETCH(QSize, wanted);
        TBarStage stage;
        TSystemToolBarButton* const button = stage.AddButton();
        button->SetIcon(QStringLiteral("icon-usb"), wanted, true);
        QCOMPARE(button->GetIconSize(), QSize(STANDARD_ICON_SIZE, STANDARD_ICON_SIZE));
        stage.bar->SetHorizontal(true);
        QCOMPARE(button->GetIconSize(), QSize(STANDARD_ICON_SIZE, STANDARD_ICON_SIZE));
    }

    void aRemovedButtonIsItsOwners()
    {
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(2);
        QPointer<TSystemToolBarButton> const removed(buttons[0]);
        stage.bar->RemoveButton(removed);
        QVERIFY(removed);
        QVERIFY(!removed->parentWidget() && removed->isHidden());
        QCOMPARE(stage.bar->GetNumberOfButtons(), 1);
        QCOMPARE(stage.bar->height(), 84);
        QCOMPARE(buttons[1]->y(), 0);
        QWidget home;
        removed->setParent(&home);
        home.show();
        QVERIFY(removed->isHidden());
        QVERIFY(stage.bar->AddButton(removed));
        QVERIFY(removed->isVisible());
    }

    void removingTheLastButtonLeavesWidthNoneAndMoreRoom()
    {
        TBarStage stage;
        TSystemToolBarButton* const button = stage.AddButton();
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 1024 - 72, 768));
        stage.bar->RemoveButton(button);
        QCOMPARE(stage.bar->width(), 0);
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 1024, 768));
        QVERIFY(stage.bar->AddButton(button));
        QVERIFY(button->isVisible() && stage.IsInTheCorner());
        QCOMPARE(stage.screen->GetUsableRect(), QRect(0, 0, 1024 - 72, 768));
    }

    void unknownButtonsAreIgnored()
    {
        TBarStage stage;
        stage.AddButtons(2);
        QWidget parent;
        TSystemToolBarButton stranger(&parent);
        stranger.show();
        QRect const before = stage.bar->geometry();
        for (TPushButton* const button :
             {static_cast<TPushButton*>(nullptr), static_cast<TPushButton*>(&stranger)})
        {
            stage.bar->RemoveButton(button);
            stage.bar->SetButtonVisible(button, false);
        }
        QVERIFY(stranger.parentWidget() && !stranger.isHidden());
        QCOMPARE(stage.bar->geometry(), before);
    }

    void aButtonThatDiesLeavesTheBar()
    {
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(3);
        delete buttons[1];
        QCOMPARE(stage.bar->GetNumberOfButtons(), 2);
        QCOMPARE(stage.bar->height(), 178);
        QCOMPARE(buttons[0]->y(), 94);
        QCOMPARE(buttons[2]->y(), 0);
        QVERIFY(stage.IsInTheCorner());
    }

    void aButtonThatIsTakenAwayLeavesTheBar()
    {
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(2);
        TSystemToolBar other(stage.screen.get());
        QVERIFY(other.AddButton(buttons[0]));
        QCOMPARE(stage.bar->GetNumberOfButtons(), 1);
        QCOMPARE(stage.bar->height(), 84);
        QCOMPARE(other.height(), 84);
        QVERIFY(stage.bar->AddButton(buttons[0]));
        QCOMPARE(other.GetNumberOfButtons(), 0);
        buttons[1]->setParent(nullptr);
        QVERIFY(!buttons[1]->testAttribute(Qt::WA_WState_ExplicitShowHide));
        QCOMPARE(stage.bar->height(), 84);
    }

    // Limit

    void aPlainBarTakesNoNoticeOfTheLimit()
    {
        TBarStage stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(3);
        for (int const limit : {2, 0, -1})
        {
            stage.screen->LimitVisibleSystemToolBarButtons(limit);
            QCOMPARE(stage.bar->height(), 272);
            QVERIFY(buttons[2]->isVisible());
        }
    }

    void aBarThatKnowsTheLimitShrinksToIt()
    {
        TBarStageOf<TLimitedBar> stage;
        QVector<TSystemToolBarButton*> const buttons = stage.AddButtons(3);
        stage.screen->LimitVisibleSystemToolBarButtons(2);
        QCOMPARE(stage.bar->size(), QSize(72, 178));
        QVERIFY(buttons[0]->isVisible() && buttons[1]->isVisible() && !buttons[2]->isVisible());
        QVERIFY(stage.IsInTheCorner());
        stage.screen->LimitVisibleSystemToolBarButtons(0);
        QCOMPARE(stage.bar->width(), 0);
        stage.screen->LimitVisibleSystemToolBarButtons(-1);
        QCOMPARE(stage.bar->size(), QSize(72, 272));
        QVERIFY(buttons[2]->isVisible());
    }

    // Touch and wheel

    void aPressOnTheBarNeverFallsThrough()
    {
        struct TListener : QWidget
        {
            using QWidget::QWidget;
            void mousePressEvent(QMouseEvent*) override { ++heard; }
            void mouseMoveEvent(QMouseEvent*) override { ++heard; }
            void mouseReleaseEvent(QMouseEvent*) override { ++heard; }
            int heard = 0;
        };
        TBarStage stage;
        TListener behind(stage.screen.get());
        behind.setGeometry(500, 400, 524, 368);
        behind.show();
        stage.bar->setParent(&behind);
        stage.AddButtons(2);
        stage.bar->move(450, 100);
        stage.bar->show();
        // On a button, and on the gap between the two.
        for (int const y : {40, 89})
        {
            QPoint const place = stage.bar->mapTo(stage.screen.get(), QPoint(36, y));
            stage.finger.Press(place);
            stage.finger.Move(place + QPoint(2, 2));
            stage.finger.Lift();
            QCOMPARE(behind.heard, 0);
        }
        stage.finger.Touch(behind.mapTo(stage.screen.get(), QPoint(5, 5)));
        QCOMPARE(behind.heard, 2);
    }

    void theWheelReachesTheButtons()
    {
        TBarStage stage;
        TSystemToolBarButton* const button = stage.AddButton();
        button->SetButtonID(1);
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        stage.screen->SetMMINavigator(&navigator);
        QSignalSpy const clicks(button, &TPushButton::Clicked);
        navigator.PushWidget(stage.bar);
        navigator.OnWheelRight();
        stage.screen.m_Clock.Advance(600);
        navigator.UpdateFocus();
        navigator.OnEnter();
        QTRY_COMPARE(clicks.count(), 1);
    }

    // Ends

    void theBarMayGoAtAnyTime_data()
    {
        QTest::addColumn<QString>("when");
        for (char const* const when :
             {"shown", "hidden", "pressed", "locked", "from a click", "told of its place"})
            QTest::newRow(when) << QString::fromLatin1(when);
    }

    void theBarMayGoAtAnyTime()
    {
        QFETCH(QString, when);
        TBarStage stage;
        TPushButton* const button = stage.AddButtons(2).at(0);
        button->SetButtonID(1);
        QPointer<TPushButton> const guard(button);
        TWindow lock(stage.screen.get());
        if (when == QLatin1String("from a click"))
        {
            connect(button, &TPushButton::Clicked, this, [&] { delete stage.bar; });
            stage.finger.Touch(button);
        }
        else if (when == QLatin1String("told of its place"))
        {
            connect(stage.bar, &TSystemToolBar::GeometryChanged, stage.bar, &QObject::deleteLater);
            stage.AddButton();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        else
        {
            if (when == QLatin1String("hidden"))
                stage.manager->ShowSystemToolbar(false);
            if (when == QLatin1String("pressed"))
                stage.finger.Press(button->mapTo(stage.screen.get(), button->rect().center()));
            if (when == QLatin1String("locked"))
            {
                lock.ShowWindow(false);
                stage.screen->AddLockingWidget({&lock, QString(), KVN::MODAL_GLOBAL, {}});
            }
            delete stage.bar;
        }
        QVERIFY(!stage.bar && !guard);
        QCOMPARE(stage.screen->GetSystemToolBarWidthWithoutVisibilityCheck(), 0);
        stage.screen->CheckToolbarsForLocking();
        stage.manager->ShowSystemToolbar(true);
        VERIFY_LAYERS(*stage.screen.get());
        stage.screen->RemoveLockingWidget(&lock);
    }

    void aSlotMayTakeTheHeldButtonThatIsRemoved_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<bool>("isHidden");
        for (char const* const what : {"to another bar", "for good", "with its bar"})
        {
            QTest::newRow(what) << QString::fromLatin1(what) << false;
            QTest::addRow("%s, hidden", what) << QString::fromLatin1(what) << true;
        }
    }

    void aSlotMayTakeTheHeldButtonThatIsRemoved()
    {
        QFETCH(QString, what);
        QFETCH(bool, isHidden);
        TBarStage stage;
        TSystemToolBar other(stage.screen.get());
        QPointer<TSystemToolBarButton> const button(stage.AddButton());
        QApplication::setActiveWindow(stage.screen.get());
        button->setFocus();
        connect(button, &QAbstractButton::released, this,
                [&]
                {
                    if (what == QLatin1String("for good"))
                        delete button;
                    else if (what == QLatin1String("with its bar"))
                        delete stage.bar;
                    else
                        other.AddButton(button);
                });
        stage.finger.Press(button->mapTo(stage.screen.get(), button->rect().center()));
        if (isHidden)
            stage.bar->SetButtonVisible(button, false);
        else
            stage.bar->RemoveButton(button);
        QCOMPARE(other.GetNumberOfButtons(), what == QLatin1String("to another bar") ? 1 : 0);
        QCOMPARE(stage.bar.isNull(), what == QLatin1String("with its bar"));
        if (stage.bar)
            QCOMPARE(stage.bar->GetNumberOfButtons(), 0);
    }
};

COMMONUI_TEST(TSystemToolBarTest)
#include "TSystemToolBarTest.moc"
