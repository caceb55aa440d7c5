#include "TMMICapableWeakRef.h"

#include "TestCase.h"
#include "TMMITestWidget.h"

#include <memory>
#include <new>

namespace
{
class TCapableWithoutObject : public KVN::MMICapableWidget
{
};

class TCapableObject : public QObject, public KVN::MMICapableWidget
{
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

class TLooksAtItselfAtItsEnd : public QWidget, public KVN::MMICapableWidget
{
public:
    explicit TLooksAtItselfAtItsEnd(bool& alive)
        : m_Alive(alive)
        , m_Self(this)
    {
    }
    ~TLooksAtItselfAtItsEnd() override { m_Alive = m_Self.IsAlive(); }

private:
    bool& m_Alive;
    TMMICapableWeakRef m_Self;
};
} // namespace

class TMMICapableWeakRefTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isDeadByDefaultAndForNull()
    {
        QVERIFY(!TMMICapableWeakRef().IsAlive());
        TMMICapableWeakRef const ref(nullptr);
        QVERIFY(!ref.IsAlive());
        QVERIFY(!ref.Get());
        QVERIFY(!ref.Object());
        QVERIFY(!ref.Widget());
    }

    void isDeadForACapableThatIsNoObject()
    {
        TCapableWithoutObject capable;
        QVERIFY(!TMMICapableWeakRef(&capable).IsAlive());
    }

    void knowsAllFacesOfALivingWidget()
    {
        QStringList calls;
        TMMITestWidget widget(nullptr, calls, QStringLiteral("w"));
        TMMICapableWeakRef const ref(&widget);
        QVERIFY(ref.IsAlive());
        QCOMPARE(ref.Get(), static_cast<KVN::MMICapableWidget*>(&widget));
        QCOMPARE(ref.Object(), static_cast<QObject*>(&widget));
        QCOMPARE(ref.Widget(), static_cast<QWidget*>(&widget));
    }

    void isAliveForAnObjectThatIsNoWidget()
    {
        TCapableObject object;
        TMMICapableWeakRef const ref(&object);
        QVERIFY(ref.IsAlive());
        QVERIFY(!ref.Widget());
    }

    void diesWithTheWidget()
    {
        QStringList calls;
        auto widget = std::make_unique<TMMITestWidget>(nullptr, calls, QStringLiteral("w"));
        TMMICapableWeakRef const ref(widget.get());
        TMMICapableWeakRef const copy = ref;
        widget.reset();
        QVERIFY(!ref.IsAlive());
        QVERIFY(!ref.Get());
        QVERIFY(!copy.IsAlive());
    }

    void isStillAliveInTheDestructorOfTheWidgetsOwnClass()
    {
        bool alive = false;
        {
            TLooksAtItselfAtItsEnd const widget(alive);
        }
        QVERIFY(alive);
    }

    void isDeadWhileTheWidgetDeletesItsChildren()
    {
        QStringList calls;
        auto widget = std::make_unique<TMMITestWidget>(nullptr, calls, QStringLiteral("w"));
        TMMICapableWeakRef const ref(widget.get());
        bool asked = false;
        bool alive = true;
        new TTellsItsEnd(widget.get(),
                         [&]
                         {
                             asked = true;
                             alive = ref.IsAlive();
                         });
        widget.reset();
        QVERIFY(asked);
        QVERIFY(!alive);
    }

    void staysDeadWhenAnotherWidgetTakesTheAddress()
    {
        QStringList calls;
        alignas(TMMITestWidget) unsigned char room[sizeof(TMMITestWidget)];
        auto* const first = new (room) TMMITestWidget(nullptr, calls, QStringLiteral("first"));
        TMMICapableWeakRef const ref(first);
        first->~TMMITestWidget();
        auto* const second = new (room) TMMITestWidget(nullptr, calls, QStringLiteral("second"));
        TMMICapableWeakRef const refOfSecond(second);
        QVERIFY(!ref.IsAlive());
        QVERIFY(refOfSecond.IsAlive());
        QVERIFY(ref != refOfSecond);
        second->~TMMITestWidget();
    }

    void isEqualForOneWidgetAndForTwoDeadOnes()
    {
        QStringList calls;
        TMMITestWidget one(nullptr, calls, QStringLiteral("one"));
        TMMITestWidget two(nullptr, calls, QStringLiteral("two"));
        auto gone = std::make_unique<TMMITestWidget>(nullptr, calls, QStringLiteral("gone"));
        TMMICapableWeakRef const dead(gone.get());
        gone.reset();
        QVERIFY(TMMICapableWeakRef(&one) == TMMICapableWeakRef(&one));
        QVERIFY(TMMICapableWeakRef(&one) != TMMICapableWeakRef(&two));
        QVERIFY(TMMICapableWeakRef(&one) != dead);
        QVERIFY(dead != TMMICapableWeakRef(&one));
        QVERIFY(dead == TMMICapableWeakRef());
    }
};

COMMONUI_TEST(TMMICapableWeakRefTest)
#include "TMMICapableWeakRefTest.moc"
