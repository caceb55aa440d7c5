#include "TMMICapableWidgetNavigator.h"

#include "TestCase.h"
#include "TMMITestWidget.h"

#include <QRandomGenerator>

#include <climits>
#include <memory>

namespace
{
using TPlaced = QPair<TMMICapableWeakRef, QPoint>;

QStringList Names(QList<TMMICapableWeakRef> const& refs)
{
    QStringList names;
    for (TMMICapableWeakRef const& ref : refs)
        names << (ref.IsAlive() ? ref.Object()->objectName() : QStringLiteral("dead"));
    return names;
}

QStringList Words(char const* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

class TCapableObject : public QObject, public KVN::MMICapableWidget
{
public:
    using QObject::QObject;
};

class TTellsItsEnd : public QWidget
{
public:
    TTellsItsEnd(QWidget* parent, std::function<void()> atEnd)
        : QWidget(parent)
        , m_AtEnd(std::move(atEnd))
    {
    }
    ~TTellsItsEnd() override { m_AtEnd(); }

private:
    std::function<void()> m_AtEnd;
};
} // namespace

/// How the navigator finds the stops of a level and in which order the wheel takes them.
class TMMIStopFinderTest : public QObject
{
    Q_OBJECT

private:
    TMMITestWidget* Add(QWidget* parent, QString const& name, QPoint const& centre = QPoint(),
                        QSize const& size = QSize(20, 20))
    {
        QRect const place(centre - QPoint(size.width() / 2, size.height() / 2), size);
        return new TMMITestWidget(parent, m_Calls, name, place);
    }
    TMMITestWidget* Add(QWidget* parent, char const* name) { return Add(parent, QString::fromLatin1(name)); }

    QStringList SortedNames(TMMITestWidget& level) const
    {
        return Names(m_Navigator->FindMMICapableChildren(TMMICapableWeakRef(&level)));
    }

    QStringList m_Calls;
    std::unique_ptr<TMMITestWidget> m_Level;
    std::unique_ptr<TMMICapableWidgetNavigator> m_Navigator;

private Q_SLOTS:
    void init()
    {
        m_Level = std::make_unique<TMMITestWidget>(nullptr, m_Calls, QStringLiteral("level"),
                                                   QRect(0, 0, 800, 600));
        m_Navigator = std::make_unique<TMMICapableWidgetNavigator>(nullptr);
    }
    void cleanup()
    {
        m_Navigator.reset();
        m_Level.reset();
    }

    void stopsAreTheNearestCapableDescendants()
    {
        auto* const normal = Add(m_Level.get(), "normal");
        Add(normal, "beneath normal");
        auto* const plain = new QWidget(m_Level.get());
        Add(new QWidget(plain), "through two plain widgets");
        auto* const transparent = Add(m_Level.get(), "transparent");
        transparent->SetMMIBehaviour(MMI_TRANSPARENT);
        Add(transparent, "beneath transparent");
        auto* const excluded = Add(m_Level.get(), "excluded");
        excluded->SetMMIBehaviour(MMI_EXCLUDED);
        Add(excluded, "beneath excluded");
        auto* const owner = Add(m_Level.get(), "owner");
        owner->SetMMIBehaviour(MMI_WHEEL_OWNER);
        Add(owner, "beneath owner");

        QStringList const expected{QStringLiteral("normal"), QStringLiteral("through two plain widgets"),
                                   QStringLiteral("beneath transparent"), QStringLiteral("owner")};
        QObject* const object = m_Level.get();
        QCOMPARE(Names(m_Navigator->FindMMICapableChildren(object)), expected);
    }

    void unsortedStopsComeInTheOrderOfTheTree()
    {
        Add(m_Level.get(), QStringLiteral("right"), QPoint(500, 10));
        Add(m_Level.get(), QStringLiteral("left"), QPoint(100, 10));
        QObject* const object = m_Level.get();
        QCOMPARE(Names(m_Navigator->FindMMICapableChildren(object)), Words("right left"));
        QCOMPARE(SortedNames(*m_Level), Words("left right"));
    }

    void hiddenAndDisabledStopsAreFound()
    {
        Add(m_Level.get(), QStringLiteral("hidden"), QPoint(100, 10))->hide();
        Add(m_Level.get(), QStringLiteral("disabled"), QPoint(200, 10))->setEnabled(false);
        QCOMPARE(SortedNames(*m_Level), Words("hidden disabled"));
    }

    void aCapableObjectThatIsNoWidgetIsAStop()
    {
        auto* const object = new TCapableObject(m_Level.get());
        object->setObjectName(QStringLiteral("object"));
        Add(m_Level.get(), QStringLiteral("widget"), QPoint(100, 100));
        QCOMPARE(SortedNames(*m_Level), Words("object widget"));
    }

    void nothingIsBeneathNullOrADeadWidget()
    {
        QObject* const null = nullptr;
        QVERIFY(m_Navigator->FindMMICapableChildren(null).isEmpty());
        Add(m_Level.get(), "stop");
        TMMICapableWeakRef const dead(m_Level.get());
        m_Level.reset();
        QVERIFY(m_Navigator->FindMMICapableChildren(dead).isEmpty());
    }

    void aLevelThatIsDeletingItsStopsCanBeSearched()
    {
        Add(m_Level.get(), "first");
        int found = -1;
        QObject* const object = m_Level.get();
        new TTellsItsEnd(m_Level.get(), [&] { found = m_Navigator->FindMMICapableChildren(object).size(); });
        Add(m_Level.get(), "last");
        m_Level.reset();
        QCOMPARE(found, 1);
    }

    void theOrderIsByRowsOrColumns_data()
    {
        QTest::addColumn<QVector<QPoint>>("centres");
        QTest::addColumn<QStringList>("byRows");
        QTest::addColumn<QStringList>("byColumns");
        QTest::newRow("two by two") << QVector<QPoint>{{200, 200}, {100, 200}, {200, 100}, {100, 100}}
                                    << Words("3 2 1 0") << Words("3 1 2 0");
        QTest::newRow("slightly slanting row")
            << QVector<QPoint>{{30, 100}, {10, 101}, {20, 103}} << Words("1 0 2") << Words("1 2 0");
        QTest::newRow("two pixels are one line")
            << QVector<QPoint>{{102, 100}, {100, 102}} << Words("1 0") << Words("0 1");
        QTest::newRow("three pixels are two lines")
            << QVector<QPoint>{{103, 100}, {100, 103}} << Words("0 1") << Words("1 0");
        QTest::newRow("equal places stay in the order of the tree")
            << QVector<QPoint>{{50, 50}, {50, 50}, {50, 50}} << Words("0 1 2") << Words("0 1 2");
        QTest::newRow("one") << QVector<QPoint>{{50, 50}} << Words("0") << Words("0");
        QTest::newRow("none") << QVector<QPoint>{} << QStringList() << QStringList();
        QTest::newRow("outside the screen")
            << QVector<QPoint>{{50, 50}, {-5000, -5000}, {30000, 50}} << Words("1 0 2") << Words("1 0 2");
    }
    void theOrderIsByRowsOrColumns()
    {
        QFETCH(QVector<QPoint>, centres);
        QFETCH(QStringList, byRows);
        QFETCH(QStringList, byColumns);
        for (int i = 0; i < centres.size(); ++i)
            Add(m_Level.get(), QString::number(i), centres.at(i));
        QCOMPARE(SortedNames(*m_Level), byRows);
        m_Level->columnFirst = true;
        QCOMPARE(SortedNames(*m_Level), byColumns);
    }

    void anyNumberOfStopsInOnePlaceStaysInTheOrderOfTheTree()
    {
        QStringList expected;
        for (int i = 0; i < 100; ++i)
        {
            expected << QString::number(i);
            Add(m_Level.get(), expected.last(), QPoint(50, 50));
        }
        QCOMPARE(SortedNames(*m_Level), expected);
    }

    void centresAreComparedOnTheScreen()
    {
        auto* const lower = new QWidget(m_Level.get());
        lower->move(0, 300);
        Add(lower, QStringLiteral("lower"), QPoint(10, 10));
        Add(m_Level.get(), QStringLiteral("upper"), QPoint(10, 200));
        QCOMPARE(SortedNames(*m_Level), Words("upper lower"));
    }

    void centresCountAndNotCorners()
    {
        Add(m_Level.get(), QStringLiteral("tall"), QPoint(100, 110), QSize(20, 200));
        Add(m_Level.get(), QStringLiteral("flat"), QPoint(200, 100), QSize(20, 20));
        QCOMPARE(SortedNames(*m_Level), Words("flat tall"));
    }

    void precedenceGoesBeforePlace()
    {
        Add(m_Level.get(), QStringLiteral("late"), QPoint(10, 10))->precedence = 1;
        Add(m_Level.get(), QStringLiteral("latest"), QPoint(10, 20))->precedence = 0x80000000U;
        Add(m_Level.get(), QStringLiteral("early"), QPoint(10, 500));
        QCOMPARE(SortedNames(*m_Level), Words("early late latest"));
    }

    void comparisonOfTwo_data()
    {
        QTest::addColumn<unsigned>("precedenceOfA");
        QTest::addColumn<QPoint>("a");
        QTest::addColumn<unsigned>("precedenceOfB");
        QTest::addColumn<QPoint>("b");
        QTest::addColumn<bool>("aIsFirst");
        QTest::newRow("lower precedence") << 0U << QPoint(9, 9) << 1U << QPoint(0, 0) << true;
        QTest::newRow("higher precedence") << 1U << QPoint(0, 0) << 0U << QPoint(9, 9) << false;
        QTest::newRow("precedence has no sign") << 0xffffffffU << QPoint(0, 0) << 1U << QPoint(9, 9) << false;
        QTest::newRow("3 above") << 0U << QPoint(9, 0) << 0U << QPoint(0, 3) << true;
        QTest::newRow("3 below") << 0U << QPoint(0, 3) << 0U << QPoint(9, 0) << false;
        QTest::newRow("2 above, right") << 0U << QPoint(9, 0) << 0U << QPoint(0, 2) << false;
        QTest::newRow("2 below, left") << 0U << QPoint(0, 2) << 0U << QPoint(9, 0) << true;
        QTest::newRow("same place") << 0U << QPoint(5, 5) << 0U << QPoint(5, 5) << false;
        QTest::newRow("ends of the number range")
            << 0U << QPoint(0, INT_MIN) << 0U << QPoint(0, INT_MAX) << true;
    }
    void comparisonOfTwo()
    {
        QFETCH(unsigned, precedenceOfA);
        QFETCH(QPoint, a);
        QFETCH(unsigned, precedenceOfB);
        QFETCH(QPoint, b);
        QFETCH(bool, aIsFirst);
        auto* const widgetA = Add(m_Level.get(), "a");
        auto* const widgetB = Add(m_Level.get(), "b");
        widgetA->precedence = precedenceOfA;
        widgetB->precedence = precedenceOfB;
        QCOMPARE(mmiRowFirstCompare({widgetA, a}, {widgetB, b}), aIsFirst);
        QCOMPARE(mmiColumnFirstCompare({widgetA, a.transposed()}, {widgetB, b.transposed()}), aIsFirst);
    }

    void aDeadWidgetComesBeforeNoneAndAfterNone()
    {
        auto* const widget = Add(m_Level.get(), "widget");
        TPlaced const alive(widget, QPoint(10, 10));
        TPlaced const dead(TMMICapableWeakRef(), QPoint(0, 0));
        TPlaced const deadBelow(TMMICapableWeakRef(), QPoint(50, 50));
        QVERIFY(!mmiRowFirstCompare(dead, alive));
        QVERIFY(!mmiRowFirstCompare(alive, deadBelow));
        QVERIFY(!mmiColumnFirstCompare(dead, alive));
        QVERIFY(!mmiColumnFirstCompare(alive, deadBelow));
    }

    void threeStopsCanEachComeBeforeTheNext()
    {
        QPoint const places[] = {{20, 100}, {10, 102}, {0, 104}};
        QVector<TPlaced> ring;
        for (QPoint const& place : places)
            ring << TPlaced(Add(m_Level.get(), QString::number(ring.size()), place), place);
        QVERIFY(mmiRowFirstCompare(ring[1], ring[0]));
        QVERIFY(mmiRowFirstCompare(ring[2], ring[1]));
        QVERIFY(mmiRowFirstCompare(ring[0], ring[2]));
        QStringList names = SortedNames(*m_Level);
        names.sort();
        QCOMPARE(names, Words("0 1 2"));
    }

    void anyNumberOfStopsIsKeptWhateverTheirPlaces_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("spread");
        QTest::addColumn<bool>("columnFirst");
        for (int count : {2, 11, 12, 13, 24, 25, 100, 499, 700})
        {
            for (int spread : {1, 3, 8, 60, 5000})
            {
                QByteArray const tag = QByteArray::number(count) + " within " + QByteArray::number(spread);
                QTest::newRow((tag + " by rows").constData()) << count << spread << false;
                QTest::newRow((tag + " by columns").constData()) << count << spread << true;
            }
        }
    }
    void anyNumberOfStopsIsKeptWhateverTheirPlaces()
    {
        QFETCH(int, count);
        QFETCH(int, spread);
        QFETCH(bool, columnFirst);
        m_Level->columnFirst = columnFirst;
        QRandomGenerator random(quint32(count * spread));
        QStringList all;
        for (int i = 0; i < count; ++i)
        {
            all << QString::number(i);
            Add(m_Level.get(), all.last(), QPoint(random.bounded(spread), random.bounded(spread)));
        }
        QStringList const sorted = SortedNames(*m_Level);
        QCOMPARE(SortedNames(*m_Level), sorted);
        QStringList once = sorted;
        once.sort();
        all.sort();
        QCOMPARE(once, all);
    }

    void aLongSlantingRowKeepsEveryStop_data()
    {
        QTest::addColumn<QPoint>("slant");
        QTest::newRow("falling by 1") << QPoint(-7, 1);
        QTest::newRow("falling by 2") << QPoint(-7, 2);
        QTest::newRow("rising by 1") << QPoint(7, -1);
        QTest::newRow("steep") << QPoint(1, 7);
    }
    void aLongSlantingRowKeepsEveryStop()
    {
        QFETCH(QPoint, slant);
        QStringList all;
        for (int i = 0; i < 600; ++i)
        {
            all << QString::number(i);
            Add(m_Level.get(), all.last(), QPoint(4000, 4000) + slant * ((i * 211) % 600));
        }
        all.sort();
        for (bool columnFirst : {false, true})
        {
            m_Level->columnFirst = columnFirst;
            QStringList sorted = SortedNames(*m_Level);
            sorted.sort();
            QCOMPARE(sorted, all);
        }
    }

    void linesFarApartAreFullySorted()
    {
        constexpr int COLUMNS = 20;
        constexpr int ROWS = 30;
        QStringList expected;
        for (int i = 0; i < ROWS * COLUMNS; ++i)
            expected << QString::number(i);
        for (int i = 0; i < ROWS * COLUMNS; ++i)
        {
            int const n = (i * 331) % (ROWS * COLUMNS);
            int const jitter = n % 3; // within the tolerance of a row
            Add(m_Level.get(), QString::number(n), QPoint(n % COLUMNS * 30, n / COLUMNS * 20 + jitter));
        }
        QCOMPARE(SortedNames(*m_Level), expected);
    }
};

COMMONUI_TEST(TMMIStopFinderTest)
#include "TMMIStopFinderTest.moc"
