#include "TSignallingGridLayout.h"
#include "TestCase.h"

#include <QPointer>
#include <QSignalSpy>
#include <QWidget>

namespace
{
// A shown window with two items of a fixed height side by side.
struct TLaidOut
{
    TLaidOut()
        : layout(new TSignallingGridLayout(&window))
    {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->setSizeConstraint(QLayout::SetNoConstraint);
        for (QWidget* const item : {first, second})
            item->setFixedHeight(40);
        layout->addWidget(first, 0, 0);
        layout->addWidget(second, 0, 1);
        window.resize(200, 80);
        window.show();
    }

    QWidget window;
    QPointer<TSignallingGridLayout> layout;
    QWidget* const first = new QWidget(&window);
    QWidget* const second = new QWidget(&window);
};
} // namespace

class TSignallingGridLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyItemHasItsPlaceWhenTheSignalComes()
    {
        TLaidOut page;
        QRect placed;
        connect(page.layout, &TSignallingGridLayout::GeometryChanged, this,
                [&] { placed = page.second->geometry(); });
        page.window.resize(300, 80);
        QCOMPARE(placed, QRect(150, 20, 150, 40));
        QCOMPARE(page.layout->geometry(), QRect(0, 0, 300, 80));
    }

    void theSignalComesOnceForEachGeometry()
    {
        TLaidOut page;
        QSignalSpy changed(page.layout, &TSignallingGridLayout::GeometryChanged);
        page.window.resize(300, 80);
        QCOMPARE(changed.count(), 1);
        page.window.resize(300, 90);
        QCOMPARE(changed.count(), 2);
    }

    void theSameGeometryIsToldToo()
    {
        TLaidOut page;
        QSignalSpy changed(page.layout, &TSignallingGridLayout::GeometryChanged);
        page.layout->setGeometry(page.layout->geometry());
        QCOMPARE(changed.count(), 1);
    }

    void anItemThatGrowsMovesTheOther()
    {
        TLaidOut page;
        int movedTo = 0;
        connect(page.layout, &TSignallingGridLayout::GeometryChanged, this,
                [&] { movedTo = page.second->x(); });
        page.first->setFixedWidth(120);
        page.layout->activate();
        QCOMPARE(movedTo, 120);
    }

    void aLayoutOfNoWidgetTellsItToo()
    {
        TSignallingGridLayout layout;
        QSignalSpy changed(&layout, &TSignallingGridLayout::GeometryChanged);
        layout.setGeometry(QRect(1, 2, 3, 4));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(layout.geometry(), QRect(1, 2, 3, 4));
    }

    void aSlotMayHaveAnItemDeletedLater()
    {
        TLaidOut page;
        QPointer<QWidget> const item(page.second);
        connect(page.layout, &TSignallingGridLayout::GeometryChanged, item, &QObject::deleteLater);
        page.window.resize(300, 80);
        QCoreApplication::sendPostedEvents(item, QEvent::DeferredDelete);
        QVERIFY(!item);
        QCOMPARE(page.layout->count(), 1);
    }

    void aSlotMayHaveTheLayoutDeletedLater()
    {
        TLaidOut page;
        connect(page.layout, &TSignallingGridLayout::GeometryChanged, page.layout, &QObject::deleteLater);
        page.window.resize(300, 80);
        QCoreApplication::sendPostedEvents(page.layout, QEvent::DeferredDelete);
        QVERIFY(!page.layout);
        page.window.resize(100, 80);
        QCOMPARE(page.first->width(), 150);
    }
};

COMMONUI_TEST(TSignallingGridLayoutTest)
#include "TSignallingGridLayoutTest.moc"
