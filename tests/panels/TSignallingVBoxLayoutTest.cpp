#include "TSignallingVBoxLayout.h"
#include "TestCase.h"

#include <QPointer>
#include <QSignalSpy>
#include <QWidget>

namespace
{
// A shown window with two items of a fixed height, one above the other.
struct TLaidOut
{
    TLaidOut()
        : layout(new TSignallingVBoxLayout(&window))
    {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->setSizeConstraint(QLayout::SetNoConstraint);
        for (QWidget* const item : {first, second})
            item->setFixedHeight(40);
        layout->addWidget(first);
        layout->addWidget(second);
        window.resize(200, 80);
        window.show();
    }

    QWidget window;
    QPointer<TSignallingVBoxLayout> layout;
    QWidget* const first = new QWidget(&window);
    QWidget* const second = new QWidget(&window);
};
} // namespace

class TSignallingVBoxLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyItemHasItsPlaceWhenTheSignalComes()
    {
        TLaidOut page;
        QRect placed;
        connect(page.layout, &TSignallingVBoxLayout::GeometryChanged, this,
                [&] { placed = page.second->geometry(); });
        page.window.resize(300, 80);
        QCOMPARE(placed, QRect(0, 40, 300, 40));
        QCOMPARE(page.layout->geometry(), QRect(0, 0, 300, 80));
    }

    void theSignalComesOnceForEachGeometry()
    {
        TLaidOut page;
        QSignalSpy changed(page.layout, &TSignallingVBoxLayout::GeometryChanged);
        page.window.resize(300, 80);
        QCOMPARE(changed.count(), 1);
        page.window.resize(300, 90);
        QCOMPARE(changed.count(), 2);
    }

    void theSameGeometryIsToldToo()
    {
        TLaidOut page;
        QSignalSpy changed(page.layout, &TSignallingVBoxLayout::GeometryChanged);
        page.layout->setGeometry(page.layout->geometry());
        QCOMPARE(changed.count(), 1);
    }

    void anItemThatGrowsMovesTheOther()
    {
        TLaidOut page;
        int movedTo = 0;
        connect(page.layout, &TSignallingVBoxLayout::GeometryChanged, this,
                [&] { movedTo = page.second->y(); });
        page.window.resize(200, 100);
        page.first->setFixedHeight(60);
        page.layout->activate();
        QCOMPARE(movedTo, 60);
    }

    void aLayoutOfNoWidgetTellsItToo()
    {
        TSignallingVBoxLayout layout;
        QSignalSpy changed(&layout, &TSignallingVBoxLayout::GeometryChanged);
        layout.setGeometry(QRect(1, 2, 3, 4));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(layout.geometry(), QRect(1, 2, 3, 4));
    }

    void aSlotMayHaveAnItemDeletedLater()
    {
        TLaidOut page;
        QPointer<QWidget> const item(page.second);
        connect(page.layout, &TSignallingVBoxLayout::GeometryChanged, item, &QObject::deleteLater);
        page.window.resize(300, 80);
        QCoreApplication::sendPostedEvents(item, QEvent::DeferredDelete);
        QVERIFY(!item);
        QCOMPARE(page.layout->count(), 1);
    }

    void aSlotMayHaveTheLayoutDeletedLater()
    {
        TLaidOut page;
        connect(page.layout, &TSignallingVBoxLayout::GeometryChanged, page.layout, &QObject::deleteLater);
        page.window.resize(300, 80);
        QCoreApplication::sendPostedEvents(page.layout, QEvent::DeferredDelete);
        QVERIFY(!page.layout);
        page.window.resize(100, 80);
        QCOMPARE(page.first->width(), 300);
    }
};

COMMONUI_TEST(TSignallingVBoxLayoutTest)
#include "TSignallingVBoxLayoutTest.moc"
