#include "TAnnotationLayer.h"

#include "IAnnotationHandler.h"
#include "Metrics.h"
#include "TCameraXVOverlayManager.h"
#include "TCanvas.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TPushButton.h"
#include "TWindow.h"

#include <QRandomGenerator>

#include <limits>
#include <utility>

namespace
{
const QSize NoteSize(120, 40);

/// Keeps its note directly to the right of a source.
class TBesideSource : public KVN::IAnnotationHandler
{
public:
    explicit TBesideSource(QWidget* source)
        : m_Source(source)
    {
    }

    QPoint Position(QWidget* reference) override
    {
        ++m_Asked;
        m_Reference = reference;
        return m_Answer.isNull() ? m_Place : m_Answer;
    }
    void PositionChanged() override
    {
        ++m_Told;
        if (m_Source)
            m_Place = m_Source->mapTo(m_Source->window(), QPoint(m_Source->width(), 0));
        if (auto const act = std::exchange(m_OnTold, {}))
            act();
    }

    QPointer<QWidget> m_Source;
    QWidget* m_Reference = nullptr;
    QPoint m_Place = QPoint(1, 1);
    QPoint m_Answer;
    std::function<void()> m_OnTold;
    int m_Asked = 0;
    int m_Told = 0;
};

/// The same as an object.
class THandlerObject : public QObject, public TBesideSource
{
public:
    using TBesideSource::TBesideSource;
};

/// A widget that places itself, as the lists and pads do.
class TSelfPlacer : public QWidget, public KVN::IAnnotationHandler
{
public:
    using QWidget::QWidget;
    QPoint Position(QWidget* reference) override { return mapTo(reference, QPoint(0, 0)); }
    void PositionChanged() override { ++m_Told; }

    int m_Told = 0;
};

/// A note with a source in a window on the screen.
struct TStage
{
    TStage()
        : layer(new TAnnotationLayer(screen.get()))
        , canvas(new TCanvas(screen.get()))
        , page(new QWidget(canvas))
        , source(new TPushButton(page, QString(), QSize(80, 60), QPoint(20, 30), 5, QString()))
        , handler(source)
        , owner(new QWidget(page))
        , note(new QWidget(owner))
        , shown(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::AnnotationVisible)
    {
        screen->SetCurrentCanvas(canvas, true);
        canvas->setGeometry(screen->rect());
        page->setGeometry(200, 100, 400, 300);
        page->show();
        source->show();
        source->resize(80, 60);
        note->resize(NoteSize);
        handler.PositionChanged();
        handler.m_Told = 0;
    }
    ~TStage() { delete layer.data(); }
    TStage(TStage const&) = delete;
    TStage& operator=(TStage const&) = delete;

    void Show() { layer->ShowAnnotation(note, &handler, source); }

    /// Whether the note stands at the right of its source.
    bool IsBeside() const
    {
        return note->isVisible() && note->pos() == source->mapTo(screen.get(), QPoint(source->width(), 0));
    }
    /// Nothing of the note is left on the screen, and it is back where it was.
    bool IsDown() const { return note->isHidden() && note->parentWidget() == owner; }
    QList<bool> Notices()
    {
        QList<bool> notices;
        while (!shown.isEmpty())
            notices.append(shown.takeFirst().constFirst().toBool());
        return notices;
    }

    TTestScreen screen;
    QPointer<TAnnotationLayer> layer;
    TCanvas* canvas;
    QPointer<QWidget> page;
    QPointer<TPushButton> source;
    TBesideSource handler;
    QPointer<QWidget> owner;
    QPointer<QWidget> note;
    QSignalSpy shown;
};

/// Runs a function once while it is hidden.
class TActsOnHide : public QWidget
{
public:
    using QWidget::QWidget;
    std::function<void()> m_Act;

protected:
    void hideEvent(QHideEvent* event) override
    {
        QWidget::hideEvent(event);
        if (auto const act = std::exchange(m_Act, {}))
            act();
    }
};
} // namespace

class TAnnotationLayerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNoteComesUpAboveAllAtItsPlace()
    {
        TStage stage;
        stage.Show();
        QVERIFY(stage.IsBeside());
        QCOMPARE(stage.note->parentWidget(), static_cast<QWidget*>(stage.screen.get()));
        QCOMPARE(stage.screen->children().constLast(), static_cast<QObject*>(stage.note));
        QCOMPARE(stage.handler.m_Reference, static_cast<QWidget*>(stage.screen.get()));
        QCOMPARE(stage.handler.m_Told, 0); // nothing has moved yet
        QCOMPARE(stage.Notices(), QList<bool>{true});
    }

    void aNoteTakenDownGoesBackToItsParent()
    {
        TStage stage;
        stage.Show();
        stage.layer->HideAnnotation(stage.note);
        QVERIFY(stage.IsDown());
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
        stage.layer->HideAnnotation(stage.note);
        stage.layer->HideAnnotation(nullptr);
        stage.layer->HideAnnotation(stage.source);
        QVERIFY(stage.source->isVisible());
        QVERIFY(stage.Notices().isEmpty());
    }

    void aWidgetWithoutAParentGoesBackToNone()
    {
        TStage stage;
        QWidget loose(nullptr, Qt::SubWindow | Qt::FramelessWindowHint);
        Qt::WindowFlags const flags = loose.windowFlags();
        stage.layer->ShowAnnotation(&loose, nullptr, stage.source);
        QVERIFY(loose.isVisible());
        QVERIFY(!loose.isWindow());
        stage.layer->HideAnnotation(&loose);
        QVERIFY(!loose.parentWidget());
        QCOMPARE(loose.windowFlags(), flags);
        QVERIFY(loose.isHidden());
    }

    void aChildOfTheScreenStaysOne()
    {
        TStage stage;
        auto* const child = new QWidget(stage.screen.get());
        stage.layer->ShowAnnotation(child, nullptr, stage.source);
        QVERIFY(child->isVisible());
        stage.layer->HideAnnotation(child);
        QVERIFY(child->isHidden());
        QCOMPARE(child->parentWidget(), static_cast<QWidget*>(stage.screen.get()));
    }

    void whoeverMovesTheNoteFollows_data()
    {
        QTest::addColumn<int>("what");
        QTest::addColumn<bool>("resize");
        char const* const names[] = {"source", "page", "canvas"};
        for (int what = 0; what < 3; ++what)
        {
            QTest::addRow("the %s moves", names[what]) << what << false;
            QTest::addRow("the %s changes size", names[what]) << what << true;
        }
    }

    void whoeverMovesTheNoteFollows()
    {
        QFETCH(int, what);
        QFETCH(bool, resize);
        TStage stage;
        stage.Show();
        QWidget* const moved = what == 0 ? stage.source.data() : what == 1 ? stage.page.data() : stage.canvas;
        if (resize)
            moved->resize(moved->size() + QSize(7, 3));
        else
            moved->move(moved->pos() + QPoint(13, -9));
        QVERIFY(stage.IsBeside());
        QCOMPARE(stage.handler.m_Told, 1);
    }

    void aWidgetThatPlacesItselfIsOnlyTold()
    {
        TStage stage;
        TSelfPlacer pad(stage.page);
        pad.move(11, 12);
        stage.layer->ShowAnnotation(&pad, &pad, stage.source);
        QCOMPARE(pad.pos(), QPoint(11, 12));
        pad.move(70, 80);
        stage.source->move(0, 0);
        QCOMPARE(pad.m_Told, 1);
        QCOMPARE(pad.pos(), QPoint(70, 80));
        stage.layer->HideAnnotation(&pad);
        QCOMPARE(pad.parentWidget(), stage.page.data());
    }

    void aNoteHidesWithItsSourceAndComesBackWithIt_data()
    {
        QTest::addColumn<int>("what");
        QTest::newRow("source") << 0;
        QTest::newRow("page") << 1;
        QTest::newRow("canvas") << 2;
        QTest::newRow("screen") << 3;
    }

    void aNoteHidesWithItsSourceAndComesBackWithIt()
    {
        QFETCH(int, what);
        TStage stage;
        stage.Show();
        QWidget* const hidden = what == 0   ? stage.source.data()
                                : what == 1 ? stage.page.data()
                                : what == 2 ? static_cast<QWidget*>(stage.canvas)
                                            : stage.screen.get();
        hidden->hide();
        QVERIFY(stage.note->isHidden());
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
        stage.page->move(stage.page->pos() + QPoint(40, 40));
        QCOMPARE(stage.handler.m_Told, 0);
        auto* const above = new QWidget(stage.screen.get());
        above->show();
        hidden->show();
        QVERIFY(stage.IsBeside());
        QCOMPARE(stage.screen->children().constLast(), static_cast<QObject*>(stage.note));
        QCOMPARE(stage.Notices(), QList<bool>{true});
    }

    void aNoteOfAHiddenSourceWaitsForIt()
    {
        TStage stage;
        stage.source->hide();
        stage.Show();
        QVERIFY(stage.note->isHidden());
        QVERIFY(stage.Notices().isEmpty());
        stage.source->show();
        QVERIFY(stage.IsBeside());
        QCOMPARE(stage.Notices(), QList<bool>{true});
    }

    void aNoteThatWaitsIsNotShownWithTheScreen()
    {
        TStage stage;
        stage.source->hide();
        stage.screen->hide();
        stage.Show();
        stage.screen->show();
        QVERIFY(stage.note->isHidden());
    }

    void aNoteTakenDownWhileItWaitsStaysDown()
    {
        TStage stage;
        stage.Show();
        stage.page->hide();
        stage.layer->HideAnnotation(stage.note);
        QVERIFY(stage.IsDown());
        stage.page->show();
        QVERIFY(stage.IsDown());
        stage.source->move(0, 0);
        QCOMPARE(stage.handler.m_Told, 0);
    }

    void aNoteThatItsOwnerHidDoesNotComeBackUnasked()
    {
        TStage stage;
        stage.Show();
        stage.note->hide();
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
        stage.page->hide();
        stage.page->show();
        QVERIFY(stage.note->isHidden());
        stage.note->show();
        QCOMPARE(stage.Notices(), QList<bool>{true});
    }

    void aSourceUnderAnotherParentIsFollowedThere()
    {
        TStage stage;
        stage.Show();
        TWindow window(nullptr);
        window.ShowWindow(false);
        window.move(300, 200);
        stage.source->setParent(window.GetWindowContent());
        QVERIFY(stage.note->isHidden());
        stage.source->move(5, 6);
        stage.source->show();
        QVERIFY(stage.IsBeside());
        window.move(350, 250);
        QVERIFY(stage.IsBeside());
        int const told = stage.handler.m_Told;
        stage.page->move(0, 0); // the parent that was
        QCOMPARE(stage.handler.m_Told, told);
    }

    void aPageUnderAnotherParentIsFollowedThere()
    {
        TStage stage;
        stage.Show();
        TWindow window(nullptr);
        window.ShowWindow(false);
        stage.page->setParent(window.GetWindowContent());
        stage.page->move(0, 0);
        QVERIFY(stage.note->isHidden());
        stage.page->show();
        QVERIFY(stage.IsBeside());
        window.move(70, 80);
        QVERIFY(stage.IsBeside());
        window.HideWindow();
        QVERIFY(stage.note->isHidden());
        window.ShowWindow(false);
        QVERIFY(stage.IsBeside());
    }

    void aSourceOutsideTheScreenShowsNothing()
    {
        TStage stage;
        stage.Show();
        QWidget elsewhere;
        elsewhere.setAttribute(Qt::WA_DontShowOnScreen);
        elsewhere.show();
        stage.source->setParent(&elsewhere);
        stage.source->show();
        QVERIFY(stage.source->isVisible());
        QVERIFY(stage.note->isHidden());
        stage.source->setParent(stage.page);
        stage.source->show();
        QVERIFY(stage.IsBeside());
    }

    void theDeathOfOneEndsTheShowing_data()
    {
        QTest::addColumn<int>("who");
        QTest::newRow("source") << 0;
        QTest::newRow("page above the source") << 1;
        QTest::newRow("handler") << 2;
        QTest::newRow("layer") << 3;
    }

    void theDeathOfOneEndsTheShowing()
    {
        QFETCH(int, who);
        TStage stage;
        stage.owner->setParent(stage.canvas);
        auto handler = std::make_unique<THandlerObject>(stage.source);
        stage.layer->ShowAnnotation(stage.note, handler.get(), stage.source);
        QVERIFY(stage.note->isVisible());
        if (who == 0)
            delete stage.source;
        else if (who == 1)
            delete stage.page;
        else if (who == 2)
            handler.reset();
        else
            delete stage.layer;
        QVERIFY(stage.IsDown());
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
        if (stage.source)
            stage.source->move(0, 0);
    }

    void aNoteThatDiesIsForgotten()
    {
        TStage stage;
        stage.Show();
        delete stage.note;
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
        stage.source->move(0, 0);
        stage.source->hide();
        stage.source->show();
        QCOMPARE(stage.handler.m_Told, 0);
    }

    void aNoteDiesWithTheParentThatItWasLentBy()
    {
        TStage stage;
        stage.Show();
        delete stage.owner;
        QVERIFY(!stage.note);
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
    }

    void aNoteInsideTheDyingPageDiesWithIt()
    {
        TStage stage;
        stage.Show();
        delete stage.page; // source and former parent at once
        QVERIFY(!stage.note);
    }

    void theScreenGoesAndLeavesTheNotesAlone()
    {
        QWidget owner;
        QWidget note(&owner);
        QWidget loose;
        {
            TStage stage;
            stage.layer->ShowAnnotation(&note, &stage.handler, stage.source);
            stage.layer->ShowAnnotation(&loose, &stage.handler, nullptr);
            delete stage.screen.get();
            QVERIFY(note.isHidden());
            QCOMPARE(note.parentWidget(), &owner);
            QVERIFY(!loose.parentWidget());
            stage.layer->ShowAnnotation(&note, nullptr, nullptr);
            QCOMPARE(note.parentWidget(), &owner);
        }
    }

    void somebodyElseTakesTheNote()
    {
        TStage stage;
        stage.Show();
        QWidget taker(stage.canvas);
        stage.note->setParent(&taker);
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
        stage.source->move(0, 0);
        stage.page->hide();
        stage.page->show();
        stage.layer->HideAnnotation(stage.note);
        QCOMPARE(stage.note->parentWidget(), &taker);
        QCOMPARE(stage.handler.m_Told, 0);
        stage.note->setParent(stage.owner);
    }

    void twoNotesOfOneSource()
    {
        TStage stage;
        QWidget second(stage.page);
        TBesideSource other(stage.source);
        stage.Show();
        stage.layer->ShowAnnotation(&second, &other, stage.source);
        QCOMPARE(stage.screen->children().constLast(), static_cast<QObject*>(&second));
        stage.page->move(5, 5);
        QCOMPARE(stage.handler.m_Told, 1);
        QCOMPARE(other.m_Told, 1);
        stage.layer->HideAnnotation(&second);
        QCOMPARE(stage.Notices(), QList<bool>{true}); // one is left
        stage.page->move(15, 15);
        QVERIFY(stage.IsBeside());
        QCOMPARE(other.m_Told, 1);
        stage.page->hide();
        stage.page->show();
        QVERIFY(stage.IsBeside());
        QVERIFY(second.isHidden());
    }

    void aNoteOnANoteFollowsIt()
    {
        TStage stage;
        auto* const upper = new QWidget(stage.owner);
        TBesideSource handler(stage.note);
        stage.Show();
        stage.layer->ShowAnnotation(upper, &handler, stage.note);
        stage.source->move(stage.source->pos() + QPoint(3, 4));
        QCOMPARE(upper->pos(), stage.note->geometry().topRight() + QPoint(1, 0));
        stage.page->hide();
        QVERIFY(upper->isHidden());
        stage.page->show();
        QVERIFY(upper->isVisible());
        stage.layer->HideAnnotation(stage.note);
        QVERIFY(upper->isHidden());
    }

    void aSecondRequestReplacesHandlerAndSource()
    {
        TStage stage;
        stage.Show();
        TPushButton other(stage.page, QString(), QSize(40, 40), QPoint(200, 200), 1, QString());
        TBesideSource handler(&other);
        handler.PositionChanged();
        stage.layer->ShowAnnotation(stage.note, &handler, &other);
        QCOMPARE(stage.note->pos(), other.mapTo(stage.screen.get(), QPoint(other.width(), 0)));
        stage.source->hide();
        stage.source->move(0, 0);
        QVERIFY(stage.note->isVisible());
        QCOMPARE(stage.handler.m_Told, 0);
        other.hide();
        QVERIFY(stage.note->isHidden());
        stage.layer->HideAnnotation(stage.note);
        QVERIFY(stage.IsDown()); // with the parent of the first request
    }

    void withoutASourceTheNoteStays()
    {
        TStage stage;
        stage.layer->ShowAnnotation(stage.note, &stage.handler, nullptr);
        QVERIFY(stage.IsBeside());
        stage.page->hide();
        QVERIFY(stage.note->isVisible());
        stage.layer->HideAnnotation(stage.note);
        QVERIFY(stage.IsDown());
    }

    void withoutAHandlerTheNoteStaysWhereItIs()
    {
        TStage stage;
        stage.note->move(33, 44);
        stage.layer->ShowAnnotation(stage.note, nullptr, stage.source);
        stage.source->move(0, 0);
        QCOMPARE(stage.note->pos(), QPoint(33, 44));
        stage.source->hide();
        QVERIFY(stage.note->isHidden());
    }

    void aSourceInsideTheNoteIsNoSource()
    {
        TStage stage;
        auto* const inside = new QWidget(stage.note);
        for (QWidget* const source : {static_cast<QWidget*>(stage.note), inside})
        {
            stage.layer->ShowAnnotation(stage.note, &stage.handler, source);
            QVERIFY(stage.note->isVisible());
            stage.layer->HideAnnotation(stage.note);
            QVERIFY(stage.IsDown());
        }
    }

    void theScreenItselfAndNullAreIgnored()
    {
        TStage stage;
        stage.layer->ShowAnnotation(nullptr, &stage.handler, stage.source);
        stage.layer->ShowAnnotation(stage.screen.get(), &stage.handler, stage.source);
        stage.layer->HideAnnotation(stage.screen.get());
        QVERIFY(stage.screen->isVisible());
        QVERIFY(stage.Notices().isEmpty());
    }

    void aGarbagePlaceLeavesTheNoteAtTheEdge_data()
    {
        int const low = std::numeric_limits<int>::min();
        int const high = std::numeric_limits<int>::max();
        QTest::addColumn<QPoint>("answer");
        QTest::addColumn<QPoint>("place");
        QTest::newRow("far left and up") << QPoint(low, low) << QPoint(-120, -40);
        QTest::newRow("far right and down") << QPoint(high, high) << QPoint(SCREEN_WIDTH, SCREEN_HEIGHT);
        QTest::newRow("far right and up") << QPoint(high, low) << QPoint(SCREEN_WIDTH, -40);
        QTest::newRow("partly outside") << QPoint(-7, 760) << QPoint(-7, 760);
    }

    void aGarbagePlaceLeavesTheNoteAtTheEdge()
    {
        QFETCH(QPoint, answer);
        QFETCH(QPoint, place);
        TStage stage;
        stage.handler.m_Answer = answer;
        stage.Show();
        QCOMPARE(stage.note->pos(), place);
        stage.source->move(1, 1);
        QCOMPARE(stage.note->pos(), place);
        QCOMPARE(stage.note->size(), NoteSize);
    }

    void aNoteStaysBelowTheAlarm()
    {
        TStage stage;
        TWindow alarm(nullptr);
        alarm.setFixedSize(300, 80);
        stage.screen->SetAlarmWidget(&alarm);
        alarm.ShowWindow(false);
        stage.Show();
        QObjectList const children = stage.screen->children();
        QVERIFY(children.indexOf(stage.note) < children.indexOf(&alarm));
        stage.screen->SetAlarmWidget(nullptr);
    }

    void aHandlerMayDoAnything_data()
    {
        QTest::addColumn<QString>("what");
        for (char const* const what : {"hide", "show again", "delete note", "delete source", "delete layer",
                                       "delete screen", "move source", "hide source"})
            QTest::newRow(what) << what;
    }

    void aHandlerMayDoAnything()
    {
        QFETCH(QString, what);
        TStage stage;
        stage.owner->setParent(nullptr);
        QScopedPointer<QWidget> const owner(stage.owner);
        stage.Show();
        stage.handler.m_OnTold = [&stage, what]
        {
            if (what == QLatin1String("hide"))
                stage.layer->HideAnnotation(stage.note);
            else if (what == QLatin1String("show again"))
                stage.Show();
            else if (what == QLatin1String("delete note"))
                delete stage.note;
            else if (what == QLatin1String("delete source"))
                stage.source->deleteLater();
            else if (what == QLatin1String("delete layer"))
                delete stage.layer;
            else if (what == QLatin1String("delete screen"))
                stage.screen->deleteLater();
            else if (what == QLatin1String("move source"))
                stage.source->move(50, 60);
            else
                stage.source->hide();
        };
        stage.source->move(1, 2);
        QCOMPARE(stage.handler.m_Told, 1); // not of what it did itself
        bool const stays = what == QLatin1String("show again") || what == QLatin1String("move source");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(stage.note && stage.note->isVisible(), stays);
        if (stays)
            stage.source->move(20, 30);
        QVERIFY(!stays || stage.IsBeside());
    }

    void aSourceDeletedByItsOwnClick()
    {
        TStage stage;
        stage.Show();
        connect(stage.source, &TPushButton::Clicked, this, [&stage](int) { delete stage.source; });
        TFinger(stage.screen.get()).Touch(stage.source);
        QVERIFY(!stage.source);
        QVERIFY(stage.IsDown());
    }

    void aNoteTakenDownByItsOwnButton()
    {
        TStage stage;
        auto* const close = new TPushButton(stage.note, QString(), NoteSize, QPoint(0, 0), 1, QString());
        stage.Show();
        connect(close, &TPushButton::Clicked, this, [&stage](int) { delete stage.owner; });
        TFinger(stage.screen.get()).Touch(close);
        QVERIFY(!stage.note);
        QCOMPARE(stage.Notices(), (QList<bool>{true, false}));
    }

    void aNoteThatGoesAndComesWhileItHides()
    {
        TStage stage;
        TActsOnHide note(stage.owner);
        note.m_Act = [&] { stage.layer->ShowAnnotation(&note, &stage.handler, stage.source); };
        stage.layer->ShowAnnotation(&note, &stage.handler, stage.source);
        stage.layer->HideAnnotation(&note);
        stage.source->move(9, 9);
        stage.layer->HideAnnotation(&note);
        QVERIFY(note.isHidden());
    }

    void anythingInAnyOrder();
};

namespace
{
/// Sources, notes and pages that come, go, move and change hands at random.
class TRandomOwner
{
public:
    TRandomOwner()
        : layer(screen.get())
        , canvas(new TCanvas(screen.get()))
    {
        screen->SetCurrentCanvas(canvas, true);
        connection = QObject::connect(
            screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::AnnotationVisible,
            screen->GetCameraOverlayManager(), [this](bool visible) { isNotified = visible; });
        pages.resize(3);
        sources.resize(4);
        notes.resize(4);
    }
    ~TRandomOwner()
    {
        QObject::disconnect(connection);
        for (QPointer<QWidget> const& note : qAsConst(notes))
            delete note.data();
    }

    void Step()
    {
        QWidget*& none = m_None;
        none = nullptr;
        int const i = Random(4);
        QPointer<QWidget>& page = pages[Random(3)];
        QPointer<QWidget>& source = sources[i];
        QPointer<QWidget>& note = notes[Random(4)];
        if (!page)
            page = new QWidget(canvas);
        if (!source)
            source = new QWidget(page);
        if (!note)
            note = new QWidget(Random(2) == 0 ? none : page.data());
        Act(page, source, note);
    }

    /// The first thing that is wrong.
    QString Fault() const
    {
        bool isAnyUp = false;
        for (QPointer<QWidget> const& note : notes)
        {
            bool const isUp = note && note->parentWidget() == screen.get();
            isAnyUp = isAnyUp || (isUp && !note->isHidden());
            if (note && !isUp && note->isWindow() && note->isVisible())
                return QStringLiteral("a note is a window");
            QWidget const* const source = note ? shownFor.value(note) : nullptr;
            if (isUp && sources.contains(const_cast<QWidget*>(source)) && source &&
                source->isVisible() == note->isHidden())
                return QStringLiteral("a note is not seen as its source is");
        }
        return isAnyUp == isNotified ? QString() : QStringLiteral("the camera does not know");
    }

    TTestScreen screen;
    TAnnotationLayer layer;
    TCanvas* canvas;
    QVector<QPointer<QWidget>> pages;
    QVector<QPointer<QWidget>> sources;
    QVector<QPointer<QWidget>> notes;
    QHash<QWidget*, QWidget*> shownFor;
    QMetaObject::Connection connection;
    bool isNotified = false;

private:
    int Random(int bound) { return m_Random.bounded(bound); }

    void Act(QWidget* page, QWidget* source, QWidget* note)
    {
        switch (Random(11))
        {
        case 0:
        case 1:
            shownFor.insert(note, source);
            layer.ShowAnnotation(note, &m_Handler, source);
            break;
        case 2:
            layer.HideAnnotation(note);
            break;
        case 3:
            source->setParent(page);
            break;
        case 4:
            source->setVisible(Random(3) != 0);
            break;
        case 5:
            page->setVisible(Random(3) != 0);
            break;
        case 6:
            page->move(Random(1000), Random(700));
            break;
        case 7:
            source->setGeometry(Random(300), Random(300), Random(100), Random(100));
            break;
        default:
            Delete(page, source, note);
        }
    }
    void Delete(QWidget* page, QWidget* source, QWidget* note)
    {
        switch (Random(12))
        {
        case 0:
            delete page;
            break;
        case 1:
            delete source;
            break;
        case 2:
            delete note;
            break;
        default:
            canvas->setVisible(Random(4) != 0);
        }
    }

    QRandomGenerator m_Random{4711};
    TBesideSource m_Handler{nullptr};
    QWidget* m_None = nullptr;
};
} // namespace

void TAnnotationLayerTest::anythingInAnyOrder()
{
    TRandomOwner owner;
    for (int step = 0; step < 20000; ++step)
    {
        owner.Step();
        QString const fault = owner.Fault();
        QVERIFY2(fault.isEmpty(), qPrintable(QStringLiteral("step %1: %2").arg(step).arg(fault)));
    }
}

COMMONUI_TEST(TAnnotationLayerTest)
#include "TAnnotationLayerTest.moc"
