#include "KeySteps.h"
#include "TestCase.h"
#include "TKeyboardStage.h"

#include <QRandomGenerator>

namespace
{
constexpr int StepsBetweenPaints = 500;

/// Whoever works the keyboard: the operator, its client, and the console around them.
class TPlayer
{
public:
    explicit TPlayer(quint32 seed)
        : m_Random(seed)
        , m_Check(QStringLiteral("aAqQ7&Éé"))
    {
        stage.screen->PushMMIWidget(stage.keyboard);
    }

    void Play(int steps)
    {
        for (int step = 0; step < steps; ++step)
        {
            Act();
            if (step % StepsBetweenPaints == 0)
                QCoreApplication::processEvents();
        }
    }

    /// The first thing that is not as it must be.
    QString Fault() const
    {
        if (!stage.screen->rect().contains(stage.keyboard->geometry()) && stage.keyboard->isVisible())
            return QStringLiteral("the keyboard left the screen");
        auto const keys = stage.Keys();
        for (TKey const* const key : keys)
        {
            if (!key->parentWidget()->rect().contains(key->geometry()))
                return QStringLiteral("a key left the keyboard");
        }
        for (QChar const character : stage.typed)
        {
            if (!character.isPrint())
                return QStringLiteral("U+%1 was typed").arg(character.unicode(), 4, 16);
        }
        return {};
    }

    TKeyboardStage stage;

private:
    void Act()
    {
        int const action = Random(100);
        if (action < 80)
            TouchAKey();
        else if (action < 90)
            TurnTheWheel();
        else
            ActAsTheClient(action - 90);
        if (stage.typed.size() > 1000)
            stage.typed.remove(0, 500);
    }

    // Presses a key, slides, and lifts somewhere.
    void TouchAKey()
    {
        QRect const area = stage.keyboard->geometry();
        QPoint const at = area.topLeft() + QPoint(Random(area.width()), Random(area.height()));
        stage.finger.Press(at);
        if (Random(8) == 0)
            stage.finger.Move(at + QPoint(Random(200) - 100, Random(200) - 100));
        stage.finger.Lift();
    }

    void TurnTheWheel()
    {
        switch (Random(4))
        {
        case 0:
            stage.navigator.OnWheelLeft();
            break;
        case 1:
            stage.navigator.OnEnter();
            break;
        case 2:
            stage.Tick();
            break;
        default:
            stage.navigator.OnWheelRight();
            break;
        }
    }

    void ActAsTheClient(int action)
    {
        TKeyboard* const keyboard = stage.keyboard;
        switch (action)
        {
        case 0:
            keyboard->SetLayout(EKeyboardLayout(Random(26) - 1), EKeyboardLayout(Random(26) - 1));
            break;
        case 1:
            keyboard->SetHexMode(Random(2) == 0);
            break;
        case 2:
            Random(2) == 0 ? keyboard->PushKeyChecker(Random(2) == 0 ? &m_Check : nullptr)
                           : keyboard->PopKeyChecker();
            break;
        case 3:
            keyboard->SetFullWidthMode(Random(2) == 0);
            break;
        case 4:
            keyboard->SetEditKeysEnabled(Random(4) != 0);
            break;
        case 5:
            keyboard->SetExternalLayout(QSharedPointer<TGeorgianCharset>::create(), &m_Check);
            break;
        case 6:
            keyboard->SetEnglishLayout(Random(2) == 0);
            break;
        case 7:
            keyboard->EnableOKButton(Random(2) == 0);
            keyboard->EnableSpaceKey(Random(2) == 0);
            keyboard->EnableFullStopKey(Random(2) == 0);
            break;
        case 8:
            keyboard->OnLayoutSelected(Random(6) - 1);
            break;
        default:
            keyboard->HideWindow();
            break;
        }
        keyboard->ShowWindow(false);
    }

    int Random(int below) { return int(m_Random.bounded(quint32(qMax(1, below)))); }

    QRandomGenerator m_Random;
    TRefusingCheck m_Check;
};
} // namespace

/// Anything in any order.
class TKeyboardStressTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomKeysLeaveTheKeyboardInOrder();
    void aStreamOfOneKeyTypesEachOfThem();
    void noStateIsStuckAfterwards();
};

void TKeyboardStressTest::randomKeysLeaveTheKeyboardInOrder()
{
    TPlayer player(7);
    int const steps = KeySteps::Wanted();
    constexpr int Rounds = 20;
    for (int round = 0; round < Rounds; ++round)
    {
        player.Play(qMax(1, steps / Rounds));
        QString const fault = player.Fault();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
        QVERIFY(player.stage.screen->GetLockingWidgets().isEmpty());
    }
}

void TKeyboardStressTest::aStreamOfOneKeyTypesEachOfThem()
{
    TKeyboardStage stage;
    TKey* const key = stage.Key(QLatin1Char('K'));
    for (int i = 0; i < 1000; ++i)
        stage.finger.Touch(key);
    QCOMPARE(stage.typed, QString(1000, QLatin1Char('K')));
}

void TKeyboardStressTest::noStateIsStuckAfterwards()
{
    TPlayer player(11);
    player.Play(KeySteps::Wanted() / 10);
    TKeyboardStage& stage = player.stage;
    for (int i = 0; i < KeySteps::Wanted(); ++i)
        stage.keyboard->PopKeyChecker();
    stage.keyboard->SetHexMode(false);
    stage.keyboard->SetEnglishLayout(false);
    stage.keyboard->SetEditKeysEnabled(true);
    stage.keyboard->EnableOKButton(true);
    stage.keyboard->EnableSpaceKey(true);
    stage.keyboard->EnableFullStopKey(true);
    stage.keyboard->SetLayout(KEYBOARD_LAYOUT_ENGLISH, KEYBOARD_LAYOUT_NONE);
    stage.keyboard->HideWindow();
    stage.keyboard->ShowWindow(false);
    if (!stage.Key(QLatin1Char('A')))
        stage.finger.Touch(stage.Lock());
    stage.typed.clear();
    QVERIFY(stage.Type(QStringLiteral("THE FIELD. 12")));
    QCOMPARE(stage.typed, QStringLiteral("THE FIELD. 12"));
    auto const keys = stage.Keys();
    QVERIFY(std::all_of(keys.begin(), keys.end(), [](TKey const* key) { return key->isEnabled(); }));
}

COMMONUI_TEST(TKeyboardStressTest)

#include "TKeyboardStressTest.moc"
