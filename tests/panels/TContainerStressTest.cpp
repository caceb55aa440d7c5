#include "TestCase.h"
#include "TExpandingCollapsingBlock.h"
#include "TFinger.h"
#include "TScrollableWidget.h"
#include "TSignallingGridLayout.h"
#include "TSignallingVBoxLayout.h"
#include "TStackableWidget.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>

#include <malloc.h>

namespace
{
constexpr int Steps = 20000;
constexpr int MostWidgets = 8;
constexpr int StepsBetweenPaints = 250;
/// What Qt may still put into its own tables once it has seen a whole run.
constexpr qint64 TolerableGrowth = 16 * 1024;

void LetEventsCome()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// One container in a shown window, and the widgets that were given to it. Their owner deletes them, takes
/// them elsewhere and calls the container in any order.
class TPlayground
{
public:
    explicit TPlayground(int seed)
        : m_Shelf(&m_Window)
        , m_Finger(&m_Window)
        , m_Random(quint32(seed))
    {
        m_Window.resize(300, 400);
        m_Shelf.setGeometry(200, 300, 100, 100);
        m_Window.show();
    }
    virtual ~TPlayground() = default;
    TPlayground(TPlayground const&) = delete;
    TPlayground& operator=(TPlayground const&) = delete;

    void Play()
    {
        for (int step = 0; step < Steps; ++step)
        {
            m_Widgets.removeAll(nullptr);
            if (!m_Container)
                Begin();
            Act();
            if (step % StepsBetweenPaints == 0)
                LetEventsCome();
        }
    }

    int acts = 0;

protected:
    virtual QWidget* MakeContainer() = 0;
    virtual void Give(QWidget* widget) = 0;
    /// Something that only this container can do.
    virtual void ActOnContainer() = 0;

    int Random(int below) { return m_Random.bounded(below); }
    QWidget* Any() { return m_Widgets.isEmpty() ? nullptr : m_Widgets.at(Random(m_Widgets.size())).data(); }
    QList<QWidget*> Shuffled()
    {
        QList<QWidget*> shuffled;
        for (QPointer<QWidget> const& widget : qAsConst(m_Widgets))
            shuffled.insert(Random(shuffled.size() + 1), widget);
        return shuffled;
    }
    /// For a slot of the container: now and then it deletes a widget, and seldom the container.
    void Meddle()
    {
        if (Random(20) == 0)
            delete Any();
        if (Random(200) == 0)
            delete m_Container;
    }

    QWidget m_Window;

private:
    void Begin()
    {
        m_Container = MakeContainer();
        m_Container->setGeometry(10, 10, 200, 300);
        m_Container->show();
    }
    void Act()
    {
        ++acts;
        switch (Random(12))
        {
        case 0:
        case 1:
            AddWidget();
            break;
        case 2:
            delete Any();
            break;
        case 3:
            if (QWidget* const widget = Any())
                widget->setParent(&m_Shelf);
            break;
        case 4:
            if (QWidget* const widget = Any())
                widget->setVisible(Random(2) == 0);
            break;
        case 5:
            if (QWidget* const widget = Any())
                widget->setEnabled(Random(3) != 0);
            break;
        case 6:
            m_Container->setVisible(Random(3) != 0);
            break;
        case 7:
            m_Container->resize(Random(300), Random(400));
            break;
        case 8:
            Touch();
            break;
        case 9:
            Tick();
            break;
        default:
            ActOnContainer();
        }
    }
    void AddWidget()
    {
        if (m_Widgets.size() >= MostWidgets)
        {
            Give(Any());
            return;
        }
        auto* const widget = new QWidget(Random(2) == 0 ? nullptr : &m_Shelf);
        m_Widgets.append(widget);
        Give(widget);
    }
    void Touch()
    {
        QPoint const place(Random(300), Random(400));
        switch (Random(4))
        {
        case 0:
            m_Finger.Press(place);
            break;
        case 1:
            m_Finger.Lift();
            break;
        default:
            m_Finger.Move({place, place - QPoint(0, Random(100)), place + QPoint(0, Random(100))});
        }
    }
    void Tick() const
    {
        auto* const timer = m_Container->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        if (!timer || !timer->isActive())
            return;
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }

protected:
    QWidget m_Shelf; // where widgets are put that are not in use
    QPointer<QWidget> m_Container;
    QList<QPointer<QWidget>> m_Widgets;

private:
    TFinger m_Finger;
    QRandomGenerator m_Random;
};

class TStackPlayground : public TPlayground
{
public:
    using TPlayground::TPlayground;

protected:
    QWidget* MakeContainer() override
    {
        auto* const stack = new TStackableWidget(&m_Window, 20 + Random(20), 60 + Random(60), Random(4) != 0);
        for (auto const signal : {&TStackableWidget::LayerMaximised, &TStackableWidget::LayerMinimised})
            QObject::connect(stack, signal, &m_Shelf, [this] { Meddle(); });
        m_Stack = stack;
        return stack;
    }
    void Give(QWidget* widget) override { m_Stack->AddWidget(widget, Random(2) == 0); }
    void ActOnContainer() override
    {
        switch (Random(6))
        {
        case 0:
            m_Stack->SetMaximised(Random(10) - 1, Random(2) == 0);
            break;
        case 1:
            m_Stack->MoveMaximised(Random(10) - 1, Random(10) - 1);
            break;
        case 2:
            m_Stack->RemoveWidget();
            break;
        case 3:
            if (Random(10) == 0)
                m_Stack->RemoveAll();
            break;
        case 4:
            m_Stack->SetOverlapAmount(float(Random(40)) - 10.0F);
            break;
        default:
            m_Stack->SetMinChildHeight(Random(60));
            m_Stack->SetMaxChildHeight(Random(120));
        }
    }

private:
    QPointer<TStackableWidget> m_Stack;
};

class TPagerPlayground : public TPlayground
{
public:
    using TPlayground::TPlayground;

protected:
    QWidget* MakeContainer() override
    {
        m_Pager = new TScrollableWidget(&m_Window, Random(4) != 0);
        QObject::connect(m_Pager, &TScrollableWidget::ActiveLayerChanged, &m_Shelf, [this] { Meddle(); });
        QObject::connect(m_Pager, &TScrollableWidget::ActiveWidgetChanged, &m_Shelf, [this] { Meddle(); });
        return m_Pager;
    }
    void Give(QWidget* widget) override { m_Pager->AddWidget(widget, EScrollBehaviour(Random(4))); }
    void ActOnContainer() override
    {
        switch (Random(6))
        {
        case 0:
            m_Pager->SetWidgetOrder(Shuffled());
            break;
        case 1:
            m_Pager->RemoveWidget(Any());
            break;
        case 2:
            m_Pager->MoveToWidget(Any());
            break;
        case 3:
            m_Pager->MoveUp();
            break;
        case 4:
            m_Pager->MoveDown();
            break;
        default:
            m_Pager->Drag(QPointF(0, Random(300)), QPointF(0, Random(300)));
        }
    }

private:
    QPointer<TScrollableWidget> m_Pager;
};

class TBlockPlayground : public TPlayground
{
public:
    using TPlayground::TPlayground;

protected:
    QWidget* MakeContainer() override
    {
        m_Block = new TExpandingCollapsingBlock(&m_Window, Random(2) == 0
                                                               ? TExpandingCollapsingBlock::STATE_EXPANDED
                                                               : TExpandingCollapsingBlock::STATE_COLLAPSED);
        QObject::connect(m_Block, &TExpandingCollapsingBlock::AboutToExpand, &m_Shelf, [this] { Meddle(); });
        QObject::connect(m_Block, &TExpandingCollapsingBlock::AboutToCollapse, &m_Shelf,
                         [this] { Meddle(); });
        return m_Block;
    }
    void Give(QWidget* widget) override { m_Block->AddWidget(widget); }
    void ActOnContainer() override
    {
        switch (Random(3))
        {
        case 0:
            m_Block->OnShowContainingBlock(0);
            break;
        case 1:
            m_Block->InsertWidget(Random(10) - 1, Any());
            break;
        default:
            m_Block->ToggleUpdates(Random(3) != 0);
        }
    }

private:
    QPointer<TExpandingCollapsingBlock> m_Block;
};

/// A widget that one of the signalling layouts fills.
template<typename TLayout>
class TLayoutPlayground : public TPlayground
{
public:
    using TPlayground::TPlayground;

protected:
    QWidget* MakeContainer() override
    {
        auto* const container = new QWidget(&m_Window);
        m_Layout = new TLayout(container);
        QObject::connect(m_Layout.data(), &TLayout::GeometryChanged, &m_Shelf,
                         [this]
                         {
                             QWidget* const widget = Random(20) == 0 ? Any() : nullptr;
                             if (widget)
                                 widget->deleteLater();
                         });
        return container;
    }
    void Give(QWidget* widget) override { m_Layout->addWidget(widget); }
    void ActOnContainer() override
    {
        if (Random(50) == 0)
            delete m_Container;
        else if (QWidget* const widget = Any())
            m_Layout->removeWidget(widget);
    }

private:
    QPointer<TLayout> m_Layout;
};

template<typename T>
void PlayOnce()
{
    T playground(8);
    playground.Play();
    QCOMPARE(playground.acts, Steps);
}

qint64 HeapInUse()
{
    LetEventsCome();
    return qint64(mallinfo2().uordblks);
}
} // namespace

Q_DECLARE_METATYPE(std::function<void()>)

/// Twenty thousand random steps of an owner, an operator and the timers on each container.
class TContainerStressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsLostOrLeftBehind_data()
    {
        QTest::addColumn<std::function<void()>>("play");
        QTest::newRow("stack") << std::function<void()>(&PlayOnce<TStackPlayground>);
        QTest::newRow("pager") << std::function<void()>(&PlayOnce<TPagerPlayground>);
        QTest::newRow("block") << std::function<void()>(&PlayOnce<TBlockPlayground>);
        QTest::newRow("column") << std::function<void()>(&PlayOnce<TLayoutPlayground<TSignallingVBoxLayout>>);
        QTest::newRow("grid") << std::function<void()>(&PlayOnce<TLayoutPlayground<TSignallingGridLayout>>);
    }

    void nothingIsLostOrLeftBehind()
    {
        QFETCH(std::function<void()>, play);
        int const widgets = QApplication::allWidgets().size();
        play();
        QCOMPARE(QApplication::allWidgets().size(), widgets);
        qint64 const before = HeapInUse();
        play();
        qint64 const growth = HeapInUse() - before;
        QVERIFY2(growth <= TolerableGrowth, qPrintable(QStringLiteral("%1 bytes more").arg(growth)));
    }
};

COMMONUI_TEST(TContainerStressTest)
#include "TContainerStressTest.moc"
