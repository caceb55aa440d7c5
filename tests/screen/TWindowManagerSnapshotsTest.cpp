#include "ModuleIds.h"
#include "TestCase.h"
#include "TPushButton.h"
#include "TViewStage.h"
#include "TWindowManager.h"

#include <QRandomGenerator>

namespace
{
constexpr int FullOnly = VIEW_CANVAS | VIEW_FULL;

QString SetupName()
{
    return KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER]).ToString();
}

QString Layout(QString const& state, QString const& miniViews = QString(),
               QString const& fullViews = QString())
{
    return QStringLiteral(
               "<!DOCTYPE State>\n<Windows><MiniViewState>%1</MiniViewState><FullViewState>%2</FullViewState>"
               "<WindowManagerState>%3</WindowManagerState></Windows>")
        .arg(miniViews, fullViews, state);
}

QString ActiveMini(QString const& slot, QString const& name)
{
    return QStringLiteral("<ActiveMiniview SlotNumber=\"%1\" TargetName=\"%2\"/>").arg(slot, name);
}

QString ActiveMini(int slot, QString const& name)
{
    return ActiveMini(QString::number(slot), name);
}

QString ActiveFull(QString const& name)
{
    return QStringLiteral("<ActiveFullview TargetName=\"%1\"/>").arg(name);
}

QString Repeated(QString const& text, int count)
{
    return text.repeated(count);
}

// Elements of the text in one line each, tags with their attributes by name: the parser keeps no order of
// these.
QStringList Lines(QString const& text)
{
    QDomDocument document;
    document.setContent(text);
    QStringList lines(QStringLiteral("type ") + document.doctype().name());
    std::function<void(QDomElement const&, int)> const walk = [&](QDomElement const& element, int depth)
    {
        QString line = QString(depth, QLatin1Char(' ')) + element.tagName();
        QDomNamedNodeMap const attributes = element.attributes();
        QMap<QString, QString> sorted;
        for (int i = 0; i < attributes.size(); ++i)
            sorted.insert(attributes.item(i).nodeName(), attributes.item(i).nodeValue());
        for (auto each = sorted.constBegin(); each != sorted.constEnd(); ++each)
            line += QLatin1Char(' ') + each.key() + QLatin1Char('=') + each.value();
        if (element.firstChild().isText())
            line += QLatin1Char(' ') + element.firstChild().nodeValue();
        lines.append(line);
        for (QDomElement child = element.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement())
            walk(child, depth + 1);
    };
    walk(document.documentElement(), 0);
    return lines;
}

// What every mini window answered its last restoring with: the attribute "v" of its element, "-" for a null
// one.
QString Restored(QList<QDomElement> const& elements)
{
    QStringList texts;
    for (QDomElement const& element : elements)
        texts.append(element.isNull() ? QStringLiteral("-") : element.attribute(QStringLiteral("v")));
    return texts.join(QLatin1Char(' '));
}

// Three views with all parts, the first two standing in slots, the third full.
class TRestoredStage : public TViewStage
{
public:
    TRestoredStage()
        : a(AddStanding(QStringLiteral("a"), VIEW_ALL))
        , b(AddStanding(QStringLiteral("b"), VIEW_ALL))
        , c(Add(QStringLiteral("c"), VIEW_ALL))
    {
        manager->DisplayFullView(c.id, false);
        calls.clear();
    }

    QString Picture()
    {
        QString text = QStringLiteral("%1, %2").arg(manager->GetFullViewId()).arg(Slots());
        for (TTestView const& view : {a, b, c})
        {
            text += QStringLiteral(", %1%2%3%4 %5,%6")
                        .arg(State(view))
                        .arg(view.mini->isVisible() ? QLatin1String("m") : QLatin1String(""))
                        .arg(view.full->isVisible() ? QLatin1String("f") : QLatin1String(""))
                        .arg(view.canvas->isVisible() ? QLatin1String("c") : QLatin1String(""))
                        .arg(view.mini->x())
                        .arg(view.mini->y());
        }
        return text;
    }

    TTestView a;
    TTestView b;
    TTestView c;
};

// Notes what is written, and whether it has to be on the disk.
class TNotingConfig : public TTestConfig
{
public:
    void Write(int id, QVariant const& value, bool durable) override
    {
        m_Notes.append(QStringLiteral("%1 %2").arg(id).arg(durable));
        TTestConfig::Write(id, value, durable);
    }
    QStringList m_Notes;
};
} // namespace

class TWindowManagerSnapshotsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Writing

    void anEmptyScreenWritesItsThreeSections()
    {
        TViewStage stage;
        QCOMPARE(stage.manager->GetStateSnapshotXML(), QStringLiteral("<!DOCTYPE State>\n"
                                                                      "<Windows>\n"
                                                                      " <MiniViewState/>\n"
                                                                      " <FullViewState/>\n"
                                                                      " <WindowManagerState/>\n"
                                                                      "</Windows>\n"));
    }

    void aFullViewAloneIsOneElement()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), FullOnly);
        stage.manager->DisplayFullView(a.id, false);
        QCOMPARE(stage.manager->GetStateSnapshotXML(), QStringLiteral("<!DOCTYPE State>\n"
                                                                      "<Windows>\n"
                                                                      " <MiniViewState/>\n"
                                                                      " <FullViewState/>\n"
                                                                      " <WindowManagerState>\n"
                                                                      "  <ActiveFullview TargetName=\"a\"/>\n"
                                                                      " </WindowManagerState>\n"
                                                                      "</Windows>\n"));
    }

    void aFullScreenIsWrittenInOrder()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.Add(QStringLiteral("b"), VIEW_ALL);
        TTestView const c = stage.Add(QStringLiteral("c"), VIEW_ALL);
        TTestView const d = stage.Add(QStringLiteral("d"), VIEW_ALL);
        stage.manager->DisplayMiniView(2, a.id);
        stage.manager->DisplayMiniView(0, c.id);
        stage.manager->DisplayMiniView(0, b.id); // covers c
        stage.manager->DisplayFullView(d.id, false);
        a.mini->m_Save = [](QDomElement element) { element.setAttribute(QStringLiteral("v"), 1); };
        c.mini->m_Save = [](QDomElement element)
        { element.appendChild(element.ownerDocument().createElement(QStringLiteral("Child"))); };
        d.full->m_Save = [](QDomElement element) { element.setAttribute(QStringLiteral("v"), 2); };
        a.full->m_Save = [](QDomElement element)
        { element.appendChild(element.ownerDocument().createTextNode(QStringLiteral("text"))); };
        QCOMPARE(
            Lines(stage.manager->GetStateSnapshotXML()),
            (QStringList{"type State", "Windows", " MiniViewState", "  MiniView TargetName=a v=1",
                         "  MiniView TargetName=c", "   Child", " FullViewState",
                         "  FullView TargetName=a text", "  FullView TargetName=d v=2", " WindowManagerState",
                         "  ActiveMiniview SlotNumber=0 TargetName=b",
                         "  ActiveMiniview SlotNumber=2 TargetName=a", "  ActiveFullview TargetName=d"}));
    }

    void aFullViewThatIsGoneIsNotWritten()
    {
        TViewStage stage;
        stage.manager->SetFullViewId(77);
        QVERIFY(!stage.manager->GetStateSnapshotXML().contains(QStringLiteral("ActiveFullview")));
    }

    void hiddenWindowsBehindSetupAreWritten()
    {
        TViewStage stage;
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        stage.AddStanding(QStringLiteral("a"));
        stage.manager->OnShowSetup(setup.id);
        QStringList const lines = Lines(stage.manager->GetStateSnapshotXML());
        QVERIFY(lines.contains(QStringLiteral("  ActiveMiniview SlotNumber=0 TargetName=a")));
        QCOMPARE(lines.last(), QStringLiteral("  ActiveFullview TargetName=") + SetupName());
    }

    // An element of the caller's, in a document of his.
    void theSnapshotMayBePartOfALargerDocument()
    {
        TViewStage stage;
        stage.AddStanding(QStringLiteral("a"));
        QDomDocument document;
        QDomElement root = document.createElement(QStringLiteral("Mine"));
        document.appendChild(root);
        root.appendChild(document.createElement(QStringLiteral("First")));
        QVERIFY(stage.manager->SaveStateSnapshot(root));
        QStringList tags;
        for (QDomElement child = root.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement())
            tags.append(child.tagName());
        QCOMPARE(tags, (QStringList{"First", "MiniViewState", "FullViewState", "WindowManagerState"}));
        stage.manager->HideAllMiniViews(true);
        QVERIFY(stage.manager->RestoreStateFromSnapShot(root, true));
        QCOMPARE(stage.Slots(), QStringLiteral("1||"));
    }

    // Deliberate: layouts in the field were written this way.
    void textIsWrittenByteForByte_data()
    {
        QTest::addColumn<QString>("content");
        QTest::addColumn<QString>("written");
        QTest::newRow("plain letters") << "abc"
                                       << "v=\"abc\"";
        QTest::newRow("an umlaut becomes two")
            << QString::fromUtf8("\xc3\xbc") << QString::fromLatin1("v=\"\xc3\xbc\"");
        QTest::newRow("three bytes") << QString::fromUtf8("\xe2\x82\xac")
                                     << QString::fromLatin1("v=\"\xe2\x82\xac\"");
    }

    void textIsWrittenByteForByte()
    {
        QFETCH(QString, content);
        QFETCH(QString, written);
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"));
        a.mini->m_Save = [content](QDomElement element)
        { element.setAttribute(QStringLiteral("v"), content); };
        QVERIFY(stage.manager->GetStateSnapshotXML().contains(written));
    }

    void theTextEndsAtAZeroByte()
    {
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"));
        a.mini->m_Save = [](QDomElement element)
        { element.setAttribute(QStringLiteral("v"), QStringLiteral("x") + QChar(0) + QStringLiteral("y")); };
        QString const layout = stage.manager->GetStateSnapshotXML();
        QVERIFY(layout.endsWith(QStringLiteral("v=\"x")));
        QVERIFY(!stage.manager->RestoreStateFromSnapShot(layout, true));
    }

    void aWindowMayDeleteItselfWhileItIsSaved()
    {
        TViewStage stage;
        TTestView const a = stage.AddStanding(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.AddStanding(QStringLiteral("b"));
        a.full->m_Save = [&](QDomElement) { delete a.mini; };
        QCOMPARE(Lines(stage.manager->GetStateSnapshotXML()).constLast(),
                 QStringLiteral("  ActiveMiniview SlotNumber=1 TargetName=") + b.name);
    }

    void theShutdownIsStoredDurably()
    {
        TViewStage stage;
        stage.AddStanding(QStringLiteral("a"));
        TNotingConfig config;
        stage.manager->SaveShutdownState();
        QCOMPARE(config.m_Notes, (QStringList{"22797 1"}));
        QCOMPARE(config.Read(22797).type(), QVariant::String);
        QCOMPARE(Lines(config.Read(22797).toString()), Lines(stage.manager->GetStateSnapshotXML()));
    }

    // Reading

    void aRoundTripBringsTheScreenBack()
    {
        QString layout;
        QString before;
        {
            TRestoredStage stage;
            before = stage.Picture();
            layout = stage.manager->GetStateSnapshotXML();
        }
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"), VIEW_ALL);
        TTestView const b = stage.Add(QStringLiteral("b"), VIEW_ALL);
        TTestView const c = stage.Add(QStringLiteral("c"), VIEW_ALL);
        QVERIFY(stage.manager->RestoreStateFromSnapShot(layout, false));
        // They slide in as after a press.
        QCOMPARE(stage.State(a), MINI_VIEW_OPENING);
        QCOMPARE(a.mini->pos(), QPoint(67 - 256, 0));
        stage.screen.FinishSlides();
        QCOMPARE(stage.Slots(), QStringLiteral("1|2|"));
        QCOMPARE(stage.manager->GetFullViewId(), c.id);
        QVERIFY(b.mini->isVisible() && c.full->isVisible());
        QCOMPARE(Lines(stage.manager->GetStateSnapshotXML()), Lines(layout));
    }

    void aLayoutMayBeRestoredTwice()
    {
        TRestoredStage stage;
        QString const before = stage.Picture();
        QString const layout = stage.manager->GetStateSnapshotXML();
        for (int i = 0; i < 2; ++i)
        {
            QVERIFY(stage.manager->RestoreStateFromSnapShot(layout, true));
            stage.screen.FinishSlides();
            QCOMPARE(stage.Picture(), before);
        }
    }

    void restoringSweepsWhatStands()
    {
        TRestoredStage stage;
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(ActiveMini(2, QStringLiteral("b"))), true));
        QCOMPARE(stage.Slots(), QStringLiteral("||2"));
        QVERIFY(!stage.a.mini->isVisible());
        QCOMPARE(stage.State(stage.a), MINI_VIEW_HIDDEN);
        QCOMPARE(stage.manager->GetFullViewId(), stage.c.id);
        stage.screen.FinishSlides();
        QCOMPARE(stage.b.mini->pos(), QPoint(67, 512));
    }

    void restoringSweepsWhatSlides_data()
    {
        QTest::addColumn<bool>("hiding");
        QTest::addColumn<int>("ms");
        for (int const ms : {0, 80, 160})
        {
            QTest::addRow("in, %d ms", ms) << false << ms;
            QTest::addRow("out, %d ms", ms) << true << ms;
        }
    }

    void restoringSweepsWhatSlides()
    {
        QFETCH(bool, hiding);
        QFETCH(int, ms);
        TViewStage stage;
        TTestView const a = stage.Add(QStringLiteral("a"));
        stage.manager->OnShowMiniView(a.id);
        if (hiding)
            stage.screen.FinishSlides(), stage.manager->OnHideMiniView(a.id, false);
        stage.screen.Frame(ms);
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(ActiveMini(1, a.name)), true));
        QCOMPARE(stage.Slots(), QStringLiteral("|1|"));
        stage.screen.FinishSlides();
        QCOMPARE(stage.State(a), MINI_VIEW_SHOWN);
        QCOMPARE(a.mini->pos(), QPoint(67, 256));
        QVERIFY(!a.mini->testAttribute(Qt::WA_TransparentForMouseEvents));
    }

    void windowsGetTheirElements()
    {
        TRestoredStage stage;
        QString const state = ActiveMini(0, QStringLiteral("a")) + ActiveMini(1, QStringLiteral("b")) +
                              ActiveFull(QStringLiteral("c"));
        QString const minis = QStringLiteral("<MiniView TargetName='a' v='1'/><Other TargetName='b' v='2'/>"
                                             "<MiniView TargetName='c' v='3'/>");
        // Tags are looked at only among the mini views.
        QString const fulls = QStringLiteral("<FullView TargetName='a' v='4'/><Other TargetName='c' v='5'/>");
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(state, minis, fulls), true));
        QCOMPARE(Restored(stage.a.mini->m_Restored), QStringLiteral("1"));
        QCOMPARE(Restored(stage.b.mini->m_Restored), QStringLiteral("-"));
        QCOMPARE(Restored(stage.c.mini->m_Restored), QString());
        QCOMPARE(Restored(stage.a.full->m_Restored), QString());
        QCOMPARE(Restored(stage.c.full->m_Restored), QStringLiteral("5"));
        QCOMPARE(stage.calls, (QStringList{"a restore", "b restore", "c hide", "c show", "c restore"}));
    }

    void ofSeveralElementsTheLastForTheFirstPlaceStands()
    {
        TRestoredStage stage;
        QString const state = ActiveMini(0, QStringLiteral("a")) + ActiveMini(1, QStringLiteral("a"));
        QString const minis = QStringLiteral(
            "<MiniView TargetName='a' v='1'/><MiniView TargetName='a' v='2'/><MiniView v='3'/>");
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(state, minis), true));
        QCOMPARE(Restored(stage.a.mini->m_Restored), QStringLiteral("2 -"));
        QCOMPARE(stage.Slots(), QStringLiteral("1||"));
    }

    void twoPlacesInOneSlotLieOverEachOther()
    {
        TRestoredStage stage;
        QString const state = ActiveMini(1, QStringLiteral("b")) + ActiveMini(1, QStringLiteral("a"));
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(state), true));
        QCOMPARE(stage.Slots(), QStringLiteral("|2 1|"));
    }

    void aWindowThatIsNotAvailableStaysHidden()
    {
        TRestoredStage stage;
        stage.a.mini->m_Available = false;
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(ActiveMini(0, QStringLiteral("a"))), true));
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        QVERIFY(!stage.a.mini->isVisible());
        QCOMPARE(Restored(stage.a.mini->m_Restored), QStringLiteral("-"));
    }

    // Views that come later

    void aLateViewTakesItsPlaceByItself()
    {
        TViewStage stage;
        stage.screen.m_Config.Write(
            22797,
            Layout(ActiveMini(1, QStringLiteral("late")) + ActiveFull(QStringLiteral("full")),
                   QStringLiteral("<MiniView TargetName='late' v='1'/>")),
            true);
        stage.screen->DisplayStartupFullView();
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
        TTestView const late = stage.Add(QStringLiteral("late"));
        QCOMPARE(stage.Slots(), QStringLiteral("|1|"));
        QCOMPARE(Restored(late.mini->m_Restored), QStringLiteral("1"));
        TTestView const full = stage.Add(QStringLiteral("full"), FullOnly);
        QCOMPARE(stage.manager->GetFullViewId(), full.id);
        QCOMPARE(Restored(full.full->m_Restored), QStringLiteral("-"));
        // Served once.
        stage.manager->RemoveView(late.id);
        stage.Add(QStringLiteral("late"));
        QCOMPARE(stage.Slots(), QStringLiteral("||"));
    }

    void whatWaitsOutlastsTheNextLayout()
    {
        TViewStage stage;
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(ActiveMini(1, QStringLiteral("x"))), true));
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(ActiveMini(0, QStringLiteral("y"))), true));
        stage.Add(QStringLiteral("x"));
        stage.Add(QStringLiteral("y"));
        QCOMPARE(stage.Slots(), QStringLiteral("2|1|"));
    }

    void aMissingMiniViewIsNoObstacle()
    {
        TRestoredStage stage;
        QString const state = ActiveMini(0, QStringLiteral("missing")) + ActiveMini(1, QStringLiteral("a")) +
                              ActiveFull(QStringLiteral("b"));
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(state), false));
        QCOMPARE(stage.Slots(), QStringLiteral("|1|"));
        QCOMPARE(stage.manager->GetFullViewId(), stage.b.id);
    }

    void aMissingFullViewChangesNothing_data()
    {
        QTest::addColumn<QString>("state");
        QTest::newRow("first") << ActiveFull(QStringLiteral("missing")) + ActiveMini(2, QStringLiteral("a"));
        QTest::newRow("last") << ActiveMini(2, QStringLiteral("a")) + ActiveFull(QStringLiteral("missing"));
        QTest::newRow("no name") << QStringLiteral("<ActiveFullview/>");
        // Deliberate: only a view with a mini window counts as present.
        QTest::newRow("without a mini window") << ActiveFull(QStringLiteral("plain"));
    }

    void aMissingFullViewChangesNothing()
    {
        QFETCH(QString, state);
        TRestoredStage stage;
        stage.Add(QStringLiteral("plain"), FullOnly);
        QString const before = stage.Picture();
        QVERIFY(
            stage.manager->RestoreStateFromSnapShot(Layout(ActiveMini(0, QStringLiteral("waiting"))), true));
        stage.manager->DisplayMiniView(0, stage.a.id);
        stage.manager->DisplayMiniView(1, stage.b.id);
        stage.screen.FinishSlides();
        QCOMPARE(stage.Picture(), before);
        QVERIFY(!stage.manager->RestoreStateFromSnapShot(Layout(state), false));
        QCOMPARE(stage.Picture(), before);
        stage.screen.FinishSlides();
        QCOMPARE(stage.Picture(), before);
        // All that waited is dropped with it.
        stage.Add(QStringLiteral("waiting"));
        stage.Add(QStringLiteral("missing"), FullOnly);
        QCOMPARE(stage.Picture(), before);
    }

    void withKeepMissingTheFullViewWaits()
    {
        TRestoredStage stage;
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(ActiveFull(QStringLiteral("later"))), true));
        QCOMPARE(stage.manager->GetFullViewId(), stage.c.id);
        TTestView const later = stage.Add(QStringLiteral("later"), FullOnly);
        QCOMPARE(stage.manager->GetFullViewId(), later.id);
    }

    // Behind the setup

    void setupComesBackFirstOrLast_data()
    {
        QTest::addColumn<bool>("setupFirst");
        QTest::addColumn<QString>("slots");
        QTest::newRow("setup last") << false << "2||";
        QTest::newRow("setup first") << true << "||";
    }

    void setupComesBackFirstOrLast()
    {
        QFETCH(bool, setupFirst);
        QFETCH(QString, slots);
        TViewStage stage;
        TTestView const setup = stage.Add(SetupName(), FullOnly);
        TTestView const a = stage.Add(QStringLiteral("a"));
        QString const mini = ActiveMini(0, a.name);
        QString const full = ActiveFull(SetupName());
        QVERIFY(stage.manager->RestoreStateFromSnapShot(
            Layout(setupFirst ? full + mini : mini + full,
                   QStringLiteral("<MiniView TargetName='a' v='1'/>")),
            true));
        QCOMPARE(stage.manager->GetFullViewId(), setup.id);
        QVERIFY(!stage.screen->GetNavigationBar()->isVisible());
        QCOMPARE(stage.Slots(), slots);
        QVERIFY(!a.mini->isVisible());
        QCOMPARE(Restored(a.mini->m_Restored), QStringLiteral("1"));
        QCOMPARE(Restored(setup.full->m_Restored), QStringLiteral("-"));
    }

    // At the start

    void theStartNeedsNoLayout_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::newRow("nothing") << QVariant();
        QTest::newRow("empty") << QVariant(QString());
        QTest::newRow("malformed") << QVariant(QStringLiteral("<Windows><"));
        QTest::newRow("no full view in it") << QVariant(Layout(QString()));
        QTest::newRow("full view missing") << QVariant(Layout(ActiveFull(QStringLiteral("missing"))));
        QTest::newRow("a number") << QVariant(42);
        QTest::newRow("a list") << QVariant(QVariantList{1, 2});
    }

    void theStartNeedsNoLayout()
    {
        QFETCH(QVariant, stored);
        {
            TViewStage stage;
            stage.screen.m_Config.Write(22797, stored, true);
            stage.screen->DisplayStartupFullView();
            QCOMPARE(stage.manager->GetFullViewId(), -1);
            // The start waits for the default view.
            TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
            stage.manager->SetDefaultView(base.name);
            QCOMPARE(stage.manager->GetFullViewId(), base.id);
        }
        {
            TViewStage stage;
            stage.screen.m_Config.Write(22797, stored, true);
            TTestView const setup = stage.Add(SetupName(), FullOnly);
            stage.screen->DisplayStartupFullView();
            QCOMPARE(stage.manager->GetFullViewId(), setup.id);
            QVERIFY(!stage.screen->GetNavigationBar()->isVisible());
        }
        {
            TViewStage stage;
            stage.screen.m_Config.Write(22797, stored, true);
            stage.Add(SetupName(), FullOnly);
            stage.manager->SetDefaultView(QStringLiteral("base"));
            TTestView const base = stage.Add(QStringLiteral("base"), FullOnly);
            stage.screen->DisplayStartupFullView();
            QCOMPARE(stage.manager->GetFullViewId(), base.id);
        }
    }

    void theStartReplaysTheShutdown()
    {
        QString layout;
        {
            TRestoredStage stage;
            stage.manager->SaveShutdownState();
            layout = stage.screen.m_Config.Read(22797).toString();
        }
        TViewStage stage;
        stage.screen.m_Config.Write(22797, layout, true);
        stage.manager->SetDefaultView(QStringLiteral("a"));
        for (char const* const name : {"a", "b", "c"})
            stage.Add(QLatin1String(name), VIEW_ALL);
        stage.screen->DisplayStartupFullView();
        QCOMPARE(stage.Slots(), QStringLiteral("1|2|"));
        QCOMPARE(stage.manager->GetFullViewId(), 3);
    }

    // What windows do while they are restored

    void aWindowMayRestoreALayoutItself()
    {
        TRestoredStage stage;
        bool nested = false;
        stage.a.mini->m_Restore = [&]
        {
            if (nested)
                return;
            nested = true;
            stage.manager->RestoreStateFromSnapShot(
                Layout(ActiveMini(2, QStringLiteral("a")) + ActiveFull(QStringLiteral("a"))), true);
        };
        QString const state = ActiveMini(0, QStringLiteral("a")) + ActiveMini(1, QStringLiteral("b")) +
                              ActiveFull(QStringLiteral("b"));
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(state), true));
        // What the first one had left stands before what the second one brings.
        QCOMPARE(stage.Slots(), QStringLiteral("|2|1"));
        QCOMPARE(stage.manager->GetFullViewId(), stage.a.id);
        stage.screen.FinishSlides();
        QCOMPARE(stage.a.mini->pos(), QPoint(67, 512));
    }

    void aWindowMayDropAllThatWaits()
    {
        TRestoredStage stage;
        stage.a.mini->m_Restore = [&] {
            QVERIFY(!stage.manager->RestoreStateFromSnapShot(Layout(ActiveFull(QStringLiteral("missing"))),
                                                             false));
        };
        QString const state = ActiveMini(0, QStringLiteral("x")) + ActiveMini(1, QStringLiteral("a")) +
                              ActiveMini(2, QStringLiteral("b"));
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(state), true));
        QCOMPARE(stage.Slots(), QStringLiteral("|1|"));
    }

    void aWindowMayGoWhileItIsRestored_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<bool>("byFull");
        for (bool const byFull : {false, true})
        {
            char const* const who = byFull ? "full" : "mini";
            QTest::addRow("%s: removes its view", who) << "remove" << byFull;
            QTest::addRow("%s: deletes its windows", who) << "delete" << byFull;
            QTest::addRow("%s: registers another view", who) << "register" << byFull;
            QTest::addRow("%s: hides all", who) << "hide" << byFull;
        }
    }

    void aWindowMayGoWhileItIsRestored()
    {
        QFETCH(QString, what);
        QFETCH(bool, byFull);
        TRestoredStage stage;
        auto const act = [&]
        {
            if (what == QLatin1String("remove"))
                stage.manager->RemoveView(stage.a.id);
            else if (what == QLatin1String("register"))
                stage.Add(QStringLiteral("waiting"));
            else if (what == QLatin1String("hide"))
                stage.manager->HideAllMiniViews(true);
            else if (byFull)
                delete stage.a.mini;
            else
                delete stage.a.full;
        };
        if (byFull)
            stage.a.full->m_Restore = act;
        else
            stage.a.mini->m_Restore = act;
        QString const state = ActiveMini(2, QStringLiteral("waiting")) + ActiveMini(0, QStringLiteral("a")) +
                              ActiveFull(QStringLiteral("a")) + ActiveMini(1, QStringLiteral("b"));
        QVERIFY(stage.manager->RestoreStateFromSnapShot(Layout(state), true));
        stage.screen.FinishSlides();
        stage.manager->OnUpdateScreen();
        QCOMPARE(stage.State(stage.b), MINI_VIEW_SHOWN);
        QCOMPARE(stage.manager->GetSlot(1), (QList<int>{stage.b.id}));
        QCOMPARE(stage.manager->GetSlot(2).isEmpty(), what != QLatin1String("register"));
    }

    // Damage

    void hostileLayouts_data();
    void hostileLayouts();
    void mutatedLayouts();
};

namespace
{
// What a console of the field stored: the layout that is damaged.
QString SoundLayout()
{
    return Layout(ActiveMini(0, QStringLiteral("b")) + ActiveMini(2, QStringLiteral("a")) +
                      ActiveFull(QStringLiteral("a")),
                  QStringLiteral("<MiniView TargetName='a' v='1'><Child>text</Child></MiniView>"
                                 "<MiniView TargetName='b' v='2'/>"),
                  QStringLiteral("<FullView TargetName='a' v='3'/>"));
}

QString Nested(int depth)
{
    return Repeated(QStringLiteral("<a>"), depth) + Repeated(QStringLiteral("</a>"), depth);
}

QString ManyAttributes(int count)
{
    QString text = QStringLiteral("<Windows ");
    for (int i = 0; i < count; ++i)
        text += QStringLiteral("a%1='' ").arg(i);
    return text + QStringLiteral("/>");
}

QString const BillionLaughs = QStringLiteral(
    "<!ENTITY a 'ha'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'><!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>"
    "<!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;'><!ENTITY e '&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;'>"
    "<!ENTITY f '&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;'><!ENTITY g '&f;&f;&f;&f;&f;&f;&f;&f;&f;&f;'>"
    "<!ENTITY h '&g;&g;&g;&g;&g;&g;&g;&g;&g;&g;'><!ENTITY i '&h;&h;&h;&h;&h;&h;&h;&h;&h;&h;'>");

constexpr int TenMillion = 10 * 1000 * 1000;

void AddRow(char const* name, QString const& text, bool accepted)
{
    QTest::newRow(name) << text << accepted;
}

void AddRowsOfText()
{
    QString const sound = SoundLayout();
    QString const windows = sound.mid(sound.indexOf(QLatin1Char('\n')) + 1);
    AddRow("sound", sound, true);
    AddRow("without a document type", windows, true);
    AddRow("empty", QString(), false);
    AddRow("blanks", QStringLiteral(" \n\t "), false);
    AddRow("blanks before", QStringLiteral("  ") + windows, true);
    AddRow("byte order mark", QChar(0xfeff) + windows, false);
    AddRow("swapped byte order mark", QChar(0xfffe) + windows, false);
    AddRow("a word", QStringLiteral("Windows"), false);
    AddRow("JSON", QStringLiteral("{\"Windows\": []}"), false);
    AddRow("HTML", QStringLiteral("<!DOCTYPE html><html><br></html>"), false);
    AddRow("NUL alone", QString(1, QChar(0)), false);
    AddRow("NUL in front", QChar(0) + sound, false);
    AddRow("NUL within a tag",
           QString(sound).insert(sound.indexOf(QStringLiteral("MiniView ")) + 3, QChar(0)), false);
    AddRow("all NUL", QString(1000, QChar(0)), false);
    AddRow("control character in a tag",
           QString(sound).insert(sound.indexOf(QStringLiteral("ActiveMini")) + 3, QChar(1)), false);
    AddRow("half a surrogate in a tag",
           QString(sound).insert(sound.indexOf(QStringLiteral("ActiveMini")) + 3, QChar(0xd800)), false);
    AddRow("no end tag", windows.left(windows.size() - 10), false);
    AddRow("crossed tags", QStringLiteral("<Windows><a><b></a></b></Windows>"), false);
    AddRow("unquoted value", QStringLiteral("<Windows a=1/>"), false);
    AddRow("repeated attribute", QStringLiteral("<Windows a='1' a='2'/>"), true);
    AddRow("two roots", windows + windows, false);
    AddRow("text behind", windows + QStringLiteral("text"), false);
    AddRow("end tags first", Repeated(QStringLiteral("</a>"), 1000) + Nested(100000), false);
    AddRow("end tags of strangers",
           QStringLiteral("<Windows>") + Repeated(QStringLiteral("</a>"), 1000) + Nested(100000), false);
    AddRow("unknown entity", QStringLiteral("<Windows>&nothing;</Windows>"), true);
    AddRow("character out of range", QStringLiteral("<Windows>&#x110000;</Windows>"), true);
    AddRow("other root", QStringLiteral("<Window/>"), false);
    AddRow("other letters", QStringLiteral("<windows/>"), false);
    AddRow("name with a prefix", QStringLiteral("<x:Windows xmlns:x='u'/>"), false);
    AddRow("deeper root", QStringLiteral("<State><Sub><Windows/></Sub></State>"), true);
    AddRow("empty root", QStringLiteral("<Windows/>"), true);
    AddRow("comment for a root", QStringLiteral("<!-- <Windows/> -->"), false);
    AddRow("processing instruction alone", QStringLiteral("<?xml version='1.0'?>"), false);
    AddRow("other encoding", QStringLiteral("<?xml version='1.0' encoding='UTF-32'?>") + windows, true);
    AddRow("unknown version", QStringLiteral("<?xml version='9.9'?>") + windows, true);
}

void AddRowsOfCuts()
{
    QString const sound = SoundLayout();
    int const cuts = 40;
    for (int i = 1; i < cuts; ++i)
        QTest::addRow("cut at %d of %d", i, cuts)
            << sound.left(int(qint64(sound.size()) * i / cuts)) << false;
}

void AddRowsOfSize()
{
    AddRow("nested", QStringLiteral("<Windows>") + Nested(100000) + QStringLiteral("</Windows>"), false);
    AddRow("nested without end", QStringLiteral("<Windows>") + Repeated(QStringLiteral("<a>"), 100000),
           false);
    AddRow("nested with attributes",
           QStringLiteral("<Windows>") + Repeated(QStringLiteral("<a b='>/>'>"), 100000), false);
    AddRow("nested at the limit", QStringLiteral("<Windows>") + Nested(199) + QStringLiteral("</Windows>"),
           true);
    AddRow("nested beyond the limit",
           QStringLiteral("<Windows>") + Nested(200) + QStringLiteral("</Windows>"), false);
    AddRow("nested behind a literal that looks like a comment",
           QStringLiteral("<!DOCTYPE a SYSTEM '<!--'><Windows>") + Nested(100000) +
               QStringLiteral("</Windows>"),
           false);
    AddRow("nested behind a comment in the document type",
           QStringLiteral("<!DOCTYPE a [<!-- '<!--' -->]><Windows>") + Nested(100000) +
               QStringLiteral("</Windows>"),
           false);
    AddRow("nested behind a quoted processing instruction",
           QStringLiteral("<?a '<!--' ?><Windows>") + Nested(100000) + QStringLiteral("</Windows>"), false);
    AddRow("nested behind a short comment", QStringLiteral("<!--><Windows>") + Nested(100000), false);
    AddRow("many siblings",
           QStringLiteral("<Windows>") + Repeated(QStringLiteral("<a/>"), 100000) +
               QStringLiteral("</Windows>"),
           true);
    QString const places = Repeated(QStringLiteral("<ActiveMiniview SlotNumber='0' TargetName='x'/>"), 10000);
    AddRow("many places", Layout(places), true);
    AddRow("many places and windows of other names",
           Layout(places, Repeated(QStringLiteral("<MiniView TargetName='y'/>"), 15000)), true);
    AddRow("many places and windows of one name",
           Layout(places, Repeated(QStringLiteral("<MiniView TargetName='x'/>"), 15000)), true);
    AddRow("many attributes", ManyAttributes(40000), true);
    int const longest = 1024 * 1024;
    AddRow("as long as may be", QStringLiteral("<Windows/>") + QString(longest - 10, QLatin1Char(' ')), true);
    AddRow("one letter longer", QStringLiteral("<Windows/>") + QString(longest - 9, QLatin1Char(' ')), false);
    AddRow("ten million letters", QString(TenMillion, QLatin1Char('a')), false);
    AddRow("ten million of text",
           QStringLiteral("<Windows>") + QString(TenMillion, QLatin1Char('a')) + QStringLiteral("</Windows>"),
           false);
    AddRow("ten million of blanks", QString(TenMillion, QLatin1Char(' ')) + QStringLiteral("<Windows/>"),
           false);
    AddRow("ten million of brackets", QString(TenMillion, QLatin1Char('<')), false);
    AddRow("a million of brackets", QString(1000000, QLatin1Char('<')), false);
    AddRow("an endless comment", QStringLiteral("<!--") + QString(1000000, QLatin1Char('-')), false);
    AddRow("an endless value", QStringLiteral("<Windows a='") + QString(1000000, QLatin1Char('b')), false);
    AddRow("an endless name", QLatin1Char('<') + QString(1000000, QLatin1Char('b')), false);
    AddRow("a long value",
           QStringLiteral("<Windows a='") + QString(1000000, QLatin1Char('b')) + QStringLiteral("'/>"), true);
    AddRow("a long text",
           QStringLiteral("<Windows>") + QString(1000000, QLatin1Char('b')) + QStringLiteral("</Windows>"),
           true);
    AddRow("many references",
           QStringLiteral("<Windows>") + Repeated(QStringLiteral("&amp;"), 100000) +
               QStringLiteral("</Windows>"),
           true);
    AddRow("many section ends",
           QStringLiteral("<Windows><![CDATA[") + Repeated(QStringLiteral("]]"), 100000) +
               QStringLiteral("]]></Windows>"),
           true);
}

void AddRowsOfEntities()
{
    AddRow("entity bomb",
           QStringLiteral("<!DOCTYPE State [") + BillionLaughs + QStringLiteral("]><Windows>&i;</Windows>"),
           false);
    AddRow("entity bomb in a value",
           QStringLiteral("<!DOCTYPE State [") + BillionLaughs + QStringLiteral("]><Windows a='&i;'/>"),
           false);
    AddRow("entity bomb behind a literal",
           QStringLiteral("<!DOCTYPE State SYSTEM '<!--' [") + BillionLaughs +
               QStringLiteral("]><Windows>&i;</Windows>"),
           false);
    AddRow("entity bomb behind a quoted comment",
           QStringLiteral("<!DOCTYPE State [<?x '<!--'?>") + BillionLaughs +
               QStringLiteral("]><Windows>&i;</Windows>"),
           false);
    AddRow("parameter entity",
           QStringLiteral("<!DOCTYPE State [<!ENTITY % a '<!ENTITY b \"c\">'>%a;]><Windows>&b;</Windows>"),
           false);
    AddRow("file as an entity",
           QStringLiteral("<!DOCTYPE State [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><Windows>&a;</Windows>"),
           false);
    AddRow("document type elsewhere",
           QStringLiteral("<!DOCTYPE State SYSTEM 'file:///etc/passwd'><Windows/>"), false);
    AddRow("declarations", QStringLiteral("<!DOCTYPE State [<!ELEMENT a (b)>]><Windows/>"), false);
    AddRow("endless document type", QStringLiteral("<!DOCTYPE State [") + QString(100000, QLatin1Char('[')),
           false);
    AddRow("document type within", QStringLiteral("<Windows><!DOCTYPE State></Windows>"), false);
    AddRow("two document types", QStringLiteral("<!DOCTYPE State><!DOCTYPE State><Windows/>"), true);
    AddRow("other document type", QStringLiteral("<!DOCTYPE Layout><Windows/>"), true);
}

void AddRowsOfContent()
{
    for (char const* const slot :
         {"", " ", "one", "1.5", "0x1", "1e0", "99999999999999999999", "-99999999999999999999", "2147483648",
          "-1", "3", "2147483647", "-2147483648", "+1", " 1 ", "1;", "NaN"})
        QTest::addRow("slot '%s'", slot)
            << Layout(ActiveMini(QLatin1String(slot), QStringLiteral("a"))) << true;
    AddRow("slot in other digits", Layout(ActiveMini(QString(QChar(0xff11)), QStringLiteral("a"))), true);
    AddRow("no slot", Layout(QStringLiteral("<ActiveMiniview TargetName='a'/>")), true);
    AddRow("no name", Layout(QStringLiteral("<ActiveMiniview SlotNumber='1'/><ActiveFullview/>")), true);
    AddRow("a long name", Layout(ActiveMini(0, QString(1000000, QLatin1Char('a')))), true);
    AddRow("an odd name", Layout(ActiveMini(0, QStringLiteral("&lt;&#x1f600;&quot;"))), true);
    AddRow("half a surrogate for a name", Layout(ActiveMini(0, QString(QChar(0xdc00)))), true);
    AddRow("unknown elements",
           Layout(QStringLiteral("<What/><ActiveMiniView SlotNumber='0' TargetName='a'/>")), true);
    AddRow("text for elements",
           Layout(QStringLiteral("text"), QStringLiteral("text"), QStringLiteral("text")), true);
    AddRow("remarks for elements", Layout(QStringLiteral("<!-- x --><?x y?><![CDATA[<ActiveFullview/>]]>")),
           true);
    AddRow(
        "elements within elements",
        Layout(QStringLiteral("<ActiveMiniview SlotNumber='0' TargetName='a'><ActiveFullview TargetName='a'/>"
                              "</ActiveMiniview>")),
        true);
    AddRow("sections in the wrong place",
           QStringLiteral("<Windows><FullViewState><WindowManagerState/></FullViewState></Windows>"), true);
    AddRow("a section twice",
           QStringLiteral("<Windows><WindowManagerState/><WindowManagerState>") +
               ActiveMini(2, QStringLiteral("a")) + QStringLiteral("</WindowManagerState></Windows>"),
           true);
    AddRow("windows within windows",
           QStringLiteral("<Windows><Windows><WindowManagerState>") + ActiveMini(2, QStringLiteral("a")) +
               QStringLiteral("</WindowManagerState></Windows></Windows>"),
           true);
    AddRow("the same place again and again", Layout(Repeated(ActiveMini(1, QStringLiteral("a")), 1000)),
           true);
    AddRow("the same full view again and again", Layout(Repeated(ActiveFull(QStringLiteral("a")), 1000)),
           true);
    AddRow("a full view for each window",
           Layout(ActiveFull(QStringLiteral("a")) + ActiveFull(QStringLiteral("b")) +
                  ActiveFull(QStringLiteral("c"))),
           true);
    AddRow("one window in every slot",
           Layout(ActiveMini(0, QStringLiteral("a")) + ActiveMini(1, QStringLiteral("a")) +
                  ActiveMini(2, QStringLiteral("a"))),
           true);
}
} // namespace

void TWindowManagerSnapshotsTest::hostileLayouts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    AddRowsOfText();
    AddRowsOfCuts();
    AddRowsOfSize();
    AddRowsOfEntities();
    AddRowsOfContent();
}

void TWindowManagerSnapshotsTest::hostileLayouts()
{
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    TRestoredStage stage;
    QString const before = stage.Picture();
    QString const sound = stage.manager->GetStateSnapshotXML();
    bool const answer = stage.manager->RestoreStateFromSnapShot(text, true);
    QCOMPARE(answer, accepted);
    if (!answer)
        QCOMPARE(stage.Picture(), before);
    if (!stage.manager->RestoreStateFromSnapShot(text, false) && !answer)
        QCOMPARE(stage.Picture(), before);
    stage.screen.FinishSlides();
    QStringList const ids =
        stage.Slots().split(QRegularExpression(QStringLiteral("[| ]")), Qt::SkipEmptyParts);
    QCOMPARE(QSet<QString>(ids.begin(), ids.end()).size(), ids.size());
    // It leaves the manager sound.
    QVERIFY(stage.manager->RestoreStateFromSnapShot(sound, true));
    stage.screen.FinishSlides();
    QCOMPARE(stage.Picture(), before);
}

void TWindowManagerSnapshotsTest::mutatedLayouts()
{
    QRandomGenerator random(20240517);
    TRestoredStage stage;
    QString const before = stage.Picture();
    QString const sound = stage.manager->GetStateSnapshotXML();
    QString const damaged = SoundLayout();
    for (int i = 0; i < 2000; ++i)
    {
        QString text = damaged;
        for (int n = 1 + int(random.bounded(4)); n > 0; --n)
        {
            int const at = int(random.bounded(text.size()));
            switch (random.bounded(4))
            {
            case 0:
                text[at] = QChar(ushort(random.bounded(0x10000)));
                break;
            case 1:
                text.remove(at, 1 + int(random.bounded(20)));
                break;
            case 2:
                text.insert(at, text.mid(int(random.bounded(text.size())), 20));
                break;
            default:
                text[at] = QLatin1Char("<>/'\"&=! "[random.bounded(9)]);
                break;
            }
        }
        bool const keepMissing = random.bounded(2) == 1;
        if (!stage.manager->RestoreStateFromSnapShot(text, keepMissing))
            QVERIFY2(stage.Picture() == before, qPrintable(text));
        QVERIFY(stage.manager->RestoreStateFromSnapShot(sound, true));
        stage.screen.FinishSlides();
        QCOMPARE(stage.Picture(), before);
    }
}

COMMONUI_TEST(TWindowManagerSnapshotsTest)
#include "TWindowManagerSnapshotsTest.moc"
