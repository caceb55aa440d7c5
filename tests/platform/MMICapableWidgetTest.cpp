#include "MMICapableWidget.h"

#include "TestCase.h"

#include <QWidget>

#include <memory>

using KVN::MMICapableWidget;

namespace
{
class TStop : public QWidget, public MMICapableWidget
{
public:
    explicit TStop(QWidget* parent = nullptr)
        : QWidget(parent)
    {
    }
};

class TPlainStop : public MMICapableWidget
{
};

/// A window with a clipping page within it and one stop on the page.
struct TScene
{
    TScene()
    {
        window.setGeometry(0, 0, 200, 100);
        page->setGeometry(50, 20, 100, 60);
        stop->setGeometry(10, 10, 30, 20);
    }

    TStop window;
    TStop* page = new TStop(&window);
    TStop* stop = new TStop(page);
};
} // namespace

class MMICapableWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void baseAnswersTheContract()
    {
        TStop stop;
        MMICapableWidget& mmi = stop;
        mmi.OnMMIWheelLeft();
        mmi.OnMMIWheelRight();
        mmi.OnMMIHighlight();
        mmi.OnMMIUnHighlight();
        mmi.OnMMIHighlightChild(nullptr);
        QVERIFY(mmi.OnMMIBack());
        QVERIFY(mmi.UseDefaultMMIHighlight());
        QCOMPARE(mmi.GetMMIEntryWidget(), &mmi);
        QCOMPARE(mmi.OnMMIEnter(), &mmi);
        QCOMPARE(mmi.GetMMIBehaviour(), MMI_NORMAL);
        QCOMPARE(mmi.GetMMISortPrecedence(), 0U);
        QVERIFY(!mmi.GetMMIColumnFirst());
        QVERIFY(!mmi.GetMMICarryOverSelection());
        QVERIFY(mmi.GetMMITimeoutEnabled());
        QCOMPARE(mmi.GetMMISelectionDelay(), 0U);
    }

    void enterGivesTheEntryWidgetOfTheSubclass()
    {
        class TDoor : public TStop
        {
        public:
            MMICapableWidget* GetMMIEntryWidget() override { return &room; }
            TStop room;
        };
        TDoor door;
        QCOMPARE(door.OnMMIEnter(), static_cast<MMICapableWidget*>(&door.room));
    }

    void settersAreAnswered()
    {
        TStop stop;
        for (EMMIWidgetBehaviour behaviour : {MMI_WHEEL_OWNER, MMI_EXCLUDED, MMI_TRANSPARENT, MMI_NORMAL})
        {
            stop.SetMMIBehaviour(behaviour);
            QCOMPARE(stop.GetMMIBehaviour(), behaviour);
        }
        stop.SetUseDefaultMMIHighlight(false);
        QVERIFY(!stop.UseDefaultMMIHighlight());
    }

    void widgetIsTheObjectItself()
    {
        TStop stop;
        MMICapableWidget const& constStop = stop;
        QCOMPARE(stop.Widget(), static_cast<QWidget*>(&stop));
        QCOMPARE(constStop.Widget(), static_cast<QWidget const*>(&stop));
    }

    void withoutAWidgetNothingIsActiveOrNavigatable()
    {
        TPlainStop plain;
        TStop stop;
        stop.show();
        QVERIFY(plain.Widget() == nullptr);
        QVERIFY(!plain.IsMMIWidgetActive());
        QVERIFY(!plain.IsMMIWidgetActiveTo(&stop));
        QVERIFY(!stop.IsMMIWidgetActiveTo(&plain));
        QVERIFY(!stop.IsMMIWidgetActiveTo(nullptr));
        QVERIFY(!stop.IsMMIChildNavigatable(&plain));
        QVERIFY(!stop.IsMMIChildNavigatable(nullptr));
        QVERIFY(plain.GetMMIHighlightRect(&stop).isEmpty());
        QVERIFY(stop.GetMMIHighlightRect(nullptr).isEmpty());
    }

    void activeMeansVisibleAndEnabled()
    {
        TScene scene;
        QVERIFY(!scene.stop->IsMMIWidgetActive());
        scene.window.show();
        QVERIFY(scene.stop->IsMMIWidgetActive());
        scene.page->setEnabled(false);
        QVERIFY(!scene.stop->IsMMIWidgetActive());
        scene.page->setEnabled(true);
        scene.page->hide();
        QVERIFY(!scene.stop->IsMMIWidgetActive());
    }

    void activeToAnotherLooksNoFurtherThanThat()
    {
        TScene scene;
        scene.page->hide();
        QVERIFY(scene.stop->IsMMIWidgetActiveTo(scene.page));
        QVERIFY(!scene.stop->IsMMIWidgetActiveTo(&scene.window));
        scene.page->show();
        QVERIFY(scene.stop->IsMMIWidgetActiveTo(&scene.window));
        scene.stop->hide();
        QVERIFY(!scene.stop->IsMMIWidgetActiveTo(scene.page));
        scene.stop->show();
        scene.stop->setEnabled(false);
        QVERIFY(!scene.stop->IsMMIWidgetActiveTo(scene.page));
    }

    void childIsNavigatableWhereSomePartOfItShows_data()
    {
        QTest::addColumn<QRect>("stop");
        QTest::addColumn<QRect>("page");
        QTest::addColumn<bool>("navigatable");
        QRect const page(50, 20, 100, 60);
        QTest::newRow("inside") << QRect(10, 10, 30, 20) << page << true;
        QTest::newRow("last column still in") << QRect(99, 10, 30, 20) << page << true;
        QTest::newRow("right of the page") << QRect(100, 10, 30, 20) << page << false;
        QTest::newRow("first column still in") << QRect(-29, 10, 30, 20) << page << true;
        QTest::newRow("left of the page") << QRect(-30, 10, 30, 20) << page << false;
        QTest::newRow("last row still in") << QRect(10, 59, 30, 20) << page << true;
        QTest::newRow("below the page") << QRect(10, 60, 30, 20) << page << false;
        QTest::newRow("above the page") << QRect(10, -20, 30, 20) << page << false;
        QTest::newRow("page partly beyond the window, stop in the part that shows")
            << QRect(0, 0, 30, 20) << QRect(180, 20, 100, 60) << true;
        QTest::newRow("page partly beyond the window, stop in the part that does not")
            << QRect(20, 0, 30, 20) << QRect(180, 20, 100, 60) << false;
        QTest::newRow("page beyond the window") << QRect(10, 10, 30, 20) << QRect(200, 0, 100, 60) << false;
        QTest::newRow("no size") << QRect(10, 10, 0, 20) << page << false;
        QTest::newRow("page without size") << QRect(0, 0, 30, 20) << QRect(50, 20, 0, 0) << false;
    }

    void childIsNavigatableWhereSomePartOfItShows()
    {
        QFETCH(QRect, stop);
        QFETCH(QRect, page);
        QFETCH(bool, navigatable);
        TScene scene;
        scene.page->setGeometry(page);
        scene.stop->setGeometry(stop);
        QCOMPARE(scene.page->IsMMIChildNavigatable(scene.stop), navigatable);
        QCOMPARE(scene.window.IsMMIChildNavigatable(scene.stop), navigatable);
    }

    void windowItselfIsNotClippedByItsParent()
    {
        TScene scene;
        scene.stop->setWindowFlags(Qt::Dialog);
        scene.stop->setGeometry(1000, 1000, 30, 20);
        QVERIFY(scene.page->IsMMIChildNavigatable(scene.stop));
    }

    void highlightRectIsInTheCoordinatesOfTheReference()
    {
        TScene scene;
        QWidget sibling(&scene.window);
        sibling.setGeometry(5, 7, 10, 10);
        QCOMPARE(scene.stop->GetMMIHighlightRect(scene.page), QRect(10, 10, 30, 20));
        QCOMPARE(scene.stop->GetMMIHighlightRect(&scene.window), QRect(60, 30, 30, 20));
        QCOMPARE(scene.stop->GetMMIHighlightRect(&sibling), QRect(55, 23, 30, 20));
        QCOMPARE(scene.stop->GetMMIHighlightRect(scene.stop), QRect(0, 0, 30, 20));
    }

    void deletedThroughTheMixinDeletesTheWidget()
    {
        QWidget parent;
        MMICapableWidget* const mmi = new TStop(&parent);
        QPointer<QWidget> const widget = mmi->Widget();
        delete mmi;
        QVERIFY(widget.isNull());
    }
};

COMMONUI_TEST(MMICapableWidgetTest)
#include "MMICapableWidgetTest.moc"
