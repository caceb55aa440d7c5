#include "TMMICapableWidgetNavigator.h"

#include "TestCase.h"
#include "TNavigatorStage.h"

#include <QRegularExpression>

#include <memory>

namespace
{
QStringList Words(char const* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

// Is told how a path ended.
class TTraveller : public QObject
{
    Q_OBJECT

public:
    QVector<bool> arrivals;
    std::function<void()> then;

public Q_SLOTS:
    void OnArrived(bool arrived)
    {
        arrivals << arrived;
        if (then)
            then();
    }
};
} // namespace

/// How the navigator walks a macro path down by itself.
class TMMIMacroPathTest : public QObject
{
    Q_OBJECT

private:
    // root: setup -> (page -> (field1, field2), other), work
    void Build(TNavigatorStage& stage)
    {
        m_Setup = stage.Add(stage.root, "setup", QRect(10, 10, 300, 200));
        m_Page = stage.Add(m_Setup, "page", QRect(0, 0, 100, 50));
        stage.Add(m_Page, "field1", QRect(0, 0, 20, 20));
        stage.Add(m_Page, "field2", QRect(30, 0, 20, 20));
        stage.Add(m_Setup, "other", QRect(0, 100, 100, 50));
        stage.AddPanel("work")->move(10, 500);
        stage.Start(0);
    }
    void Follow(TNavigatorStage& stage, char const* path)
    {
        stage.navigator->FollowPath(stage.root, Words(path), m_Traveller.get(), QStringLiteral("OnArrived"));
    }

    TMMITestWidget* m_Setup = nullptr;
    TMMITestWidget* m_Page = nullptr;
    std::unique_ptr<TTraveller> m_Traveller;

private Q_SLOTS:
    void init() { m_Traveller = std::make_unique<TTraveller>(); }

    void eachTickEntersOneLevel()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "setup,page");
        QCOMPARE(stage.TakeCalls(), QStringList());
        stage.Tick();
        QVERIFY(stage.TakeCalls().contains(QStringLiteral("enter setup")));
        QCOMPARE(m_Traveller->arrivals, QVector<bool>());
        stage.Tick();
        QVERIFY(stage.TakeCalls().contains(QStringLiteral("enter page")));
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{true});
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("field1"));
        stage.Tick(5000);
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{true});
    }

    void followingWakesTheSelection()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.Tick(30000);
        QCOMPARE(stage.Glowing(), QString());
        Follow(stage, "work");
        stage.Tick();
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("work1"));
        stage.Tick(29799);
        QCOMPARE(stage.Glowing(), QStringLiteral("work1"));
        stage.Tick(1);
        QCOMPARE(stage.Glowing(), QString());
    }

    void pathThatWakesTheSelectionBeginsAtTheLastStop()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.Tick(30000);
        Follow(stage, "nowhere");
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("work"));
    }

    void levelThatIsOnlyPassedThroughShowsNoSelection()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "setup,nowhere");
        stage.Tick();
        QVERIFY(stage.TakeCalls().contains(QStringLiteral("enter setup")));
        stage.Tick();
        QCOMPARE(stage.TakeCalls(), Words("-setup"));
        QCOMPARE(stage.Glowing(), QString());
        stage.navigator->OnEnter();
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(stage.TakeCalls(), QStringList());
    }

    void levelThatWasPassedThroughIsLeftAgain_data()
    {
        QTest::addColumn<bool>("backAnswer");
        QTest::newRow("willingly") << true;
        QTest::newRow("against its answer") << false;
    }
    void levelThatWasPassedThroughIsLeftAgain()
    {
        QFETCH(bool, backAnswer);
        TNavigatorStage stage;
        Build(stage);
        m_Setup->backAnswer = backAnswer;
        Follow(stage, "setup,nowhere");
        stage.Tick();
        stage.Tick(500);
        QVERIFY(!stage.TakeCalls().contains(QStringLiteral("back setup")));
        stage.Tick(1);
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("back")), Words("back setup"));
        QCOMPARE(stage.Glowing(), QStringLiteral("setup"));
    }

    void levelsBelowTheTargetStayWhileItIsOpen()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "setup,page");
        for (int i = 0; i < 20; ++i)
            stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("field1"));
        stage.TakeCalls();
        QVERIFY(stage.navigator->OnBack());
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("back")), Words("back page,back setup"));
        QCOMPARE(stage.Glowing(), QStringLiteral("setup"));
        QVERIFY(!stage.navigator->OnBack());
    }

    void levelThatAPathEndsAtIsNotPassedThrough()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "setup");
        stage.Tick();
        stage.Tick(1000);
        QCOMPARE(stage.Glowing(), QStringLiteral("page"));
        QVERIFY(stage.navigator->OnBack());
    }

    void everyPassedLevelThatIsLeftIsToldToGoBack()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "setup,page,nowhere");
        stage.Tick();
        stage.Tick();
        stage.TakeCalls();
        stage.Tick(501);
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("back")), Words("back page,back setup"));
        QCOMPARE(stage.Glowing(), QStringLiteral("setup"));
    }

    void unknownNameFailsAfterASecond()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "nowhere");
        stage.Tick(1000);
        QCOMPARE(m_Traveller->arrivals, QVector<bool>());
        stage.Tick(1);
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{false});
        stage.Tick(1000);
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{false});
    }

    void namesThatTurnUpAfterTheFailureAreEnteredInSilence()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "late");
        stage.Tick(1001);
        stage.AddPanel("late")->move(500, 100);
        stage.navigator->RefreshChildren();
        stage.TakeCalls();
        stage.Tick();
        QCOMPARE(stage.TakeCalls(), Words("enter late"));
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("late1"));
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{false});
    }

    void inactiveStopIsWaitedFor_data()
    {
        QTest::addColumn<bool>("hide");
        QTest::newRow("hidden") << true;
        QTest::newRow("disabled") << false;
    }
    void inactiveStopIsWaitedFor()
    {
        QFETCH(bool, hide);
        TNavigatorStage stage;
        Build(stage);
        m_Setup->setVisible(!hide);
        m_Setup->setEnabled(hide);
        Follow(stage, "setup");
        stage.Tick();
        QVERIFY(!stage.TakeCalls().contains(QStringLiteral("enter setup")));
        m_Setup->show();
        m_Setup->setEnabled(true);
        stage.Tick();
        QVERIFY(stage.TakeCalls().contains(QStringLiteral("enter setup")));
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{true});
    }

    void nextNameIsSoughtAmongTheSameStops()
    {
        TNavigatorStage stage;
        Build(stage);
        m_Setup->enterAnswer = [] { return nullptr; };
        Follow(stage, "setup,work");
        stage.Tick();
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("enter")), Words("enter setup,enter work"));
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{true});
    }

    void deeperLevelsAreKeptAsFarAsThePathSharesThem()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "setup,page");
        stage.Tick();
        stage.Tick();
        stage.Tick();
        m_Traveller->arrivals.clear();
        stage.TakeCalls();
        Follow(stage, "setup,other");
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("back")), QStringList());
        stage.Tick();
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("enter")), Words("enter other"));
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{true});
    }

    void levelIsKnownByTheStopThatItWasEnteredThrough_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("by the enter key") << "key";
        QTest::newRow("by the enter key on an entered owner of the wheel") << "owner";
        QTest::newRow("by the program") << "program";
    }
    void levelIsKnownByTheStopThatItWasEnteredThrough()
    {
        QFETCH(QString, how);
        TNavigatorStage stage;
        TMMITestWidget* const door = stage.AddStop("door");
        TMMITestWidget* const room = stage.AddPanel("room");
        door->entryWidget = room;
        stage.Start(0);
        QString path = QStringLiteral("door");
        if (how == QLatin1String("owner"))
        {
            door->SetMMIBehaviour(MMI_WHEEL_OWNER);
            stage.Enter();
            path += QStringLiteral(",door");
        }
        if (how == QLatin1String("program"))
            stage.navigator->PushWidget(door);
        else
            stage.navigator->OnEnter();
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("room1"));
        stage.TakeCalls();
        Follow(stage, path.toLatin1().constData());
        stage.Tick();
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("enter")), QStringList());
        QCOMPARE(stage.Glowing(), QStringLiteral("room1"));
        Follow(stage, "nowhere");
        stage.Tick();
        QVERIFY(!stage.navigator->OnBack());
    }

    void pathThatIsEnteredAlreadyReportsNothing()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "setup,page");
        stage.Tick();
        stage.Tick();
        stage.Tick();
        m_Traveller->arrivals.clear();
        stage.TakeCalls();
        Follow(stage, "setup,page");
        for (int i = 0; i < 20; ++i)
            stage.Tick();
        QCOMPARE(m_Traveller->arrivals, QVector<bool>());
        QCOMPARE(stage.TakeCalls().filter(QStringLiteral("enter")), QStringList());
        QCOMPARE(stage.Glowing(), QStringLiteral("field1"));
    }

    void emptyPathReturnsToTheRoot()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.navigator->PushWidget(m_Setup);
        Follow(stage, "");
        stage.Tick();
        QVERIFY(!stage.navigator->OnBack());
        QCOMPARE(m_Traveller->arrivals, QVector<bool>());
    }

    void pathFromALevelInTheMiddle()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.navigator->PushWidget(m_Setup);
        stage.navigator->PushWidget(m_Page);
        stage.navigator->FollowPath(m_Setup, Words("page"), nullptr, QString());
        stage.Tick();
        QVERIFY(stage.navigator->OnBack());
        QVERIFY(stage.navigator->OnBack());
        QVERIFY(!stage.navigator->OnBack());
    }

    void pathBeginsAtTheLowestLevelOfItsRoot()
    {
        TNavigatorStage stage;
        Build(stage);
        for (char const* name : {"setup", "work", "setup"})
            stage.navigator->PushWidget(stage.root->findChild<QWidget*>(QString::fromLatin1(name)));
        stage.navigator->FollowPath(m_Setup, Words("page"), nullptr, QString());
        stage.Tick();
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("field1"));
        QVERIFY(stage.navigator->OnBack());
        QVERIFY(stage.navigator->OnBack());
        QVERIFY(!stage.navigator->OnBack());
    }

    void rootThatIsNowhereEnteredIsEntered()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.navigator->FollowPath(m_Setup, Words("page"), m_Traveller.get(), QStringLiteral("OnArrived"));
        stage.Tick();
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{true});
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("field1"));
        QVERIFY(stage.navigator->OnBack());
        QVERIFY(stage.navigator->OnBack());
        QVERIFY(!stage.navigator->OnBack());
    }

    void nullRootFailsAfterASecond()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.navigator->FollowPath(nullptr, Words("nowhere"), m_Traveller.get(),
                                    QStringLiteral("OnArrived"));
        stage.Tick(1001);
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{false});
    }

    void followingAgeIsThatOfThePath()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.root->selectionDelay = 500;
        stage.Tick(10000);
        Follow(stage, "");
        stage.Tick(500);
        QCOMPARE(stage.Glowing(), QString());
        stage.Tick(1);
        QCOMPARE(stage.Glowing(), QStringLiteral("setup"));
    }

    void selectionIsKeptByAPathFromTheTop()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.Wake();
        stage.StepRight();
        QCOMPARE(stage.Glowing(), QStringLiteral("work"));
        Follow(stage, "nowhere");
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("work"));
    }

    void deadCallbackIsNotTold_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("at the end") << "setup";
        QTest::newRow("after a failure") << "nowhere";
    }
    void deadCallbackIsNotTold()
    {
        QFETCH(QString, path);
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, path.toLatin1().constData());
        m_Traveller.reset();
        stage.Tick();
        stage.Tick(1001);
        QVERIFY(stage.navigator);
    }

    void methodThatDoesNotExistGivesOneLogLine()
    {
        TNavigatorStage stage;
        Build(stage);
        stage.navigator->FollowPath(stage.root, Words("setup"), m_Traveller.get(), QStringLiteral("OnLost"));
        QTest::ignoreMessage(QtWarningMsg,
                             QRegularExpression(QStringLiteral("No such method .*OnLost\\(bool\\)")));
        stage.Tick();
        stage.Tick(5000);
        QCOMPARE(m_Traveller->arrivals, QVector<bool>());
    }

    void failedTravellerMayTryAgainAtOnce()
    {
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, "nowhere");
        m_Traveller->then = [&]
        {
            m_Traveller->then = nullptr;
            Follow(stage, "setup");
        };
        stage.Tick(1001);
        QCOMPARE(m_Traveller->arrivals, (QVector<bool>{false, true}));
    }

    void stopMaySendTheOperatorOnAnotherPath()
    {
        TNavigatorStage stage;
        Build(stage);
        m_Setup->enter = [&] { Follow(stage, "work"); };
        Follow(stage, "setup,page");
        stage.Tick();
        QCOMPARE(m_Traveller->arrivals, QVector<bool>());
        stage.Tick();
        QCOMPARE(m_Traveller->arrivals, QVector<bool>{true});
        stage.Tick();
        QCOMPARE(stage.Glowing(), QStringLiteral("work1"));
    }

    void travellerMayDeleteTheNavigator_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("at the end") << "setup";
        QTest::newRow("after a failure") << "nowhere";
    }
    void travellerMayDeleteTheNavigator()
    {
        QFETCH(QString, path);
        TNavigatorStage stage;
        Build(stage);
        Follow(stage, path.toLatin1().constData());
        m_Traveller->then = [&stage] { delete stage.navigator; };
        stage.Tick(1001);
        QCOMPARE(m_Traveller->arrivals.size(), 1);
        QVERIFY(!stage.navigator);
    }
};

COMMONUI_TEST(TMMIMacroPathTest)
#include "TMMIMacroPathTest.moc"
