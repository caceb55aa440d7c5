#include "TSelectWidget.h"

#include "GoldenPicture.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TLabel.h"
#include "TListPicker.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPushButton.h"
#include "TWindow.h"

#include <QPointer>
#include <QSignalSpy>

#include <climits>

namespace
{
enum EButton
{
    PREVIOUS = 0,
    SELECTION = 1,
    NEXT = 2
};

TPushButton* ButtonOf(QWidget const* selector, int id)
{
    auto const buttons = selector->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
    for (TPushButton* const button : buttons)
    {
        if (button->GetButtonId() == id)
            return button;
    }
    return nullptr;
}

/// A selector of three entries in a shown window, with a finger.
class TSelectStage
{
public:
    TSelectStage()
        : selector(new TSelectWidget(&window))
        , finger(&window)
    {
        window.setPalette(QPalette(QColor(38, 41, 46)));
        window.resize(400, 200);
        selector->setGeometry(20, 20, 300, 80);
        selector->AppendEntry(QStringLiteral("row"), QStringLiteral("Row crop"), 30);
        selector->AppendEntry(QStringLiteral("seed"), QStringLiteral("Seed"), 10);
        selector->AppendEntry(QStringLiteral("grass"), QStringLiteral("Grass"), 20);
        selector->SetupSelect(QString(), 0);
        window.show();
        QCoreApplication::processEvents();
    }

    void Click(int id) { finger.Touch(ButtonOf(selector, id)); }
    QString Shown() const { return ButtonOf(selector, SELECTION)->GetText(); }
    TLabel* Title() const { return selector->findChild<TLabel*>(); }
    QImage Picture()
    {
        QCoreApplication::processEvents();
        return window.grab(QRect(0, 0, 340, 120)).toImage().convertToFormat(QImage::Format_RGB32);
    }

    TTestScreen screen;
    QWidget window;
    QPointer<TSelectWidget> selector;
    TFinger finger;
};
/// A selector of three entries on the main screen, whose list can open.
class TSelectListStage
{
public:
    TSelectListStage()
        : selector(new TSelectWidget(screen.get()))
        , finger(screen.get())
        , picker(finger)
    {
        selector->setGeometry(100, 100, 300, 80);
        selector->AppendEntry(QStringLiteral("row"), QStringLiteral("Row crop"), 30);
        selector->AppendEntry(QStringLiteral("seed"), QStringLiteral("Seed"), 10);
        selector->AppendEntry(QStringLiteral("grass"), QStringLiteral("Grass"), 20);
        selector->SetupSelect(QString(), 2);
        selector->show();
        QCoreApplication::processEvents();
        QObject::connect(selector.data(), &TSelectWidget::SelectionChanged, selector.data(),
                         [this](int index)
                         {
                             // A row that becomes current and selected is told for both.
                             if (told.isEmpty() || told.constLast() != index)
                                 told << index;
                         });
    }

    void Open() { finger.Touch(ButtonOf(selector, SELECTION)); }
    QString Shown() const { return ButtonOf(selector, SELECTION)->GetText(); }

    TTestScreen screen;
    QPointer<TSelectWidget> selector;
    TFinger finger;
    TListPicker picker;
    QVector<int> told;
};
} // namespace

class TSelectWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_Stage = std::make_unique<TSelectStage>(); }
    void cleanup() { m_Stage.reset(); }

    void buttonsAreExplained();
    void buttonsHaveTheirLeastSize();
    void titleIsShownUnlessItIsEmpty();
    void entriesAreAnsweredByIndex();
    void pastTheEndThereIsNothing_data();
    void pastTheEndThereIsNothing();
    void stepsStayAtTheEnds();
    void stepsTellWhatIsShownAlready();
    void setupBeginsWithTheFirstEntry();
    void wrongSelectionIsIgnored();
    void textIsShownAsItStands();
    void withoutEntriesNothingIsTold();
    void cancelledListRestoresTheSelection();
    void theListShowsAllEntriesOverTheButton();
    void aTouchedRowIsSelectedAtOnce();
    void aCancelledListRestoresTheSelectionAfterSeveralSteps();
    void theListMayBeReplacedFromItsOwnSignal();
    void theListGoesWithTheSelector();
    void wheelWorksTheButtons();
    void pictures();

    void slotsMayDeleteIt_data();
    void slotsMayDeleteIt();
    void deletedWhilePressed();

private:
    TSelectWidget& Selector() const { return *m_Stage->selector; }

    std::unique_ptr<TSelectStage> m_Stage;
};

void TSelectWidgetTest::buttonsAreExplained()
{
    QCOMPARE(ButtonOf(&Selector(), PREVIOUS)->GetToolTip(), QStringLiteral("Decrement Selection"));
    QCOMPARE(ButtonOf(&Selector(), SELECTION)->GetToolTip(), QStringLiteral("Select From List"));
    QCOMPARE(ButtonOf(&Selector(), NEXT)->GetToolTip(), QStringLiteral("Increment Selection"));
    QCOMPARE(ButtonOf(&Selector(), SELECTION)->objectName(), QStringLiteral("List Select"));
    QVERIFY(ButtonOf(&Selector(), PREVIOUS)->geometry().right() <
            ButtonOf(&Selector(), SELECTION)->geometry().left());
    QVERIFY(ButtonOf(&Selector(), SELECTION)->geometry().right() <
            ButtonOf(&Selector(), NEXT)->geometry().left());
}

void TSelectWidgetTest::buttonsHaveTheirLeastSize()
{
    auto const compare = [this](QSize const& size)
    {
        for (int const id : {PREVIOUS, SELECTION, NEXT})
            QCOMPARE(ButtonOf(&Selector(), id)->minimumSize(), size);
    };
    compare(QSize(40, 50));
    Selector().SetSelectorSize(TSelectWidget::SELECTOR_LARGE);
    compare(QSize(55, 55));
    Selector().SetSelectorSize(static_cast<TSelectWidget::ESelectorSize>(7));
    compare(QSize(55, 55));
    Selector().SetSelectorSize(TSelectWidget::SELECTOR_SMALL);
    compare(QSize(40, 50));
}

void TSelectWidgetTest::titleIsShownUnlessItIsEmpty()
{
    QVERIFY(m_Stage->Title()->isHidden());
    Selector().SetupSelect(QStringLiteral("Crop"), 0);
    QVERIFY(m_Stage->Title()->isVisible());
    QCOMPARE(m_Stage->Title()->text(), QStringLiteral("Crop"));
    QCoreApplication::processEvents();
    QVERIFY(m_Stage->Title()->geometry().bottom() < ButtonOf(&Selector(), SELECTION)->y());
    Selector().SetupSelect(QString(), 0);
    QVERIFY(m_Stage->Title()->isHidden());
}

void TSelectWidgetTest::entriesAreAnsweredByIndex()
{
    QCOMPARE(Selector().CountEntries(), 3);
    QCOMPARE(Selector().GetEntry(1), QStringLiteral("seed"));
    QCOMPARE(Selector().GetStringEntry(1), QStringLiteral("Seed"));
    QCOMPARE(Selector().GetID(1), 10);
    QCOMPARE(Selector().GetID(2), 20);
    Selector().Clear();
    QCOMPARE(Selector().CountEntries(), 0);
    QCOMPARE(m_Stage->Shown(), QString());
    Selector().AppendEntry(QString(), QStringLiteral("Anew"), -1);
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Anew"));
    QCOMPARE(Selector().GetID(0), -1);
}

void TSelectWidgetTest::pastTheEndThereIsNothing_data()
{
    QTest::addColumn<int>("index");
    for (int const index : {INT_MIN, -1, 3, INT_MAX})
        QTest::newRow(qPrintable(QString::number(index))) << index;
}

void TSelectWidgetTest::pastTheEndThereIsNothing()
{
    QFETCH(int, index);
    QCOMPARE(Selector().GetID(index), 0);
    QCOMPARE(Selector().GetEntry(index), QString());
    QCOMPARE(Selector().GetStringEntry(index), QString());
}

void TSelectWidgetTest::stepsStayAtTheEnds()
{
    QVector<int> told;
    TSelectWidget& selector = Selector();
    connect(&selector, &TSelectWidget::SelectionChanged, this, [&told](int index) { told.append(index); });
    m_Stage->Click(PREVIOUS);
    QCOMPARE(told, QVector<int>());
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Row crop"));
    for (int i = 0; i < 4; ++i)
        m_Stage->Click(NEXT);
    QCOMPARE(told, QVector<int>({1, 2}));
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Grass"));
    m_Stage->Click(PREVIOUS);
    QCOMPARE(told, QVector<int>({1, 2, 1}));
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Seed"));
    selector.OnButtonClicked(-1);
    selector.OnButtonClicked(3);
    QCOMPARE(told.size(), 3);
}

void TSelectWidgetTest::stepsTellWhatIsShownAlready()
{
    QStringList seen;
    TSelectWidget& selector = Selector();
    connect(&selector, &TSelectWidget::SelectionChanged, this, [this, &seen] { seen += m_Stage->Shown(); });
    m_Stage->Click(NEXT);
    QCOMPARE(seen, QStringList{QStringLiteral("Seed")});
    selector.UpdateSelection(2);
    selector.UpdateSelectionButton();
    QCOMPARE(seen, QStringList({QStringLiteral("Seed"), QStringLiteral("Grass"), QStringLiteral("Grass")}));
}

void TSelectWidgetTest::setupBeginsWithTheFirstEntry()
{
    QSignalSpy const changed(&Selector(), &TSelectWidget::SelectionChanged);
    Selector().UpdateSelection(2);
    for (int const initial : {0, 2, -1, INT_MAX})
    {
        Selector().SetupSelect(QString(), initial);
        QCOMPARE(m_Stage->Shown(), QStringLiteral("Row crop"));
        QCOMPARE(changed.count(), 1);
    }
    // Nothing of an earlier list is left.
    Selector().UpdateSelection(1);
    Selector().OnButtonClicked(SELECTION);
    Selector().SetupSelect(QString(), 0);
    Selector().OnSelectionCancelled();
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Row crop"));
}

void TSelectWidgetTest::wrongSelectionIsIgnored()
{
    Selector().UpdateSelection(1);
    QSignalSpy const changed(&Selector(), &TSelectWidget::SelectionChanged);
    for (int const index : {INT_MIN, -1, 3, INT_MAX})
    {
        Selector().UpdateSelection(index);
        Selector().OnSelectionChanged(index);
    }
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Seed"));
}

void TSelectWidgetTest::textIsShownAsItStands()
{
    for (QString const& text :
         {QStringLiteral("%1 and %2"), QStringLiteral("a\nb"), QString(100000, QLatin1Char('m')), QString()})
    {
        Selector().Clear();
        Selector().AppendEntry(QString(), text, 1);
        QCOMPARE(m_Stage->Shown(), text);
        m_Stage->Picture();
        QCOMPARE(ButtonOf(&Selector(), PREVIOUS)->width(), ButtonOf(&Selector(), NEXT)->width());
    }
}

void TSelectWidgetTest::withoutEntriesNothingIsTold()
{
    Selector().UpdateSelection(2);
    QSignalSpy const changed(&Selector(), &TSelectWidget::SelectionChanged);
    Selector().Clear();
    for (int const id : {PREVIOUS, SELECTION, NEXT})
        m_Stage->Click(id);
    Selector().UpdateSelection(0);
    Selector().UpdateSelectionButton();
    Selector().OnSelectionCancelled();
    Selector().SetupSelect(QStringLiteral("Crop"), 0);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_Stage->Shown(), QString());
}

void TSelectWidgetTest::cancelledListRestoresTheSelection()
{
    Selector().UpdateSelection(1);
    m_Stage->Click(SELECTION);
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Seed"));
    for (int const index : {2, 0, 2})
        Selector().OnSelectionChanged(index);
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Grass"));
    QSignalSpy const changed(&Selector(), &TSelectWidget::SelectionChanged);
    Selector().OnSelectionCancelled();
    QCOMPARE(m_Stage->Shown(), QStringLiteral("Seed"));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toInt(), 1);
}

void TSelectWidgetTest::theListShowsAllEntriesOverTheButton()
{
    TSelectListStage stage;
    stage.selector->UpdateSelection(1);
    stage.told.clear();
    QVERIFY(!stage.picker.Overlay());
    stage.Open();
    QVERIFY(stage.picker.Overlay());
    QCOMPARE(stage.picker.Rows(),
             QStringList({QStringLiteral("Row crop"), QStringLiteral("Seed"), QStringLiteral("Grass")}));
    QCOMPARE(stage.picker.Selected(), QStringLiteral("Seed"));
    auto const overlays = stage.picker.Overlay()->findChildren<TPushButton*>();
    TPushButton const* const source = ButtonOf(stage.selector, SELECTION);
    QRect const rect(source->mapTo(stage.screen.get(), QPoint()), source->size());
    QVERIFY(std::any_of(overlays.begin(), overlays.end(),
                        [&rect](TPushButton const* button) { return button->geometry() == rect; }));
    QVERIFY(stage.told.isEmpty());
}

void TSelectWidgetTest::aTouchedRowIsSelectedAtOnce()
{
    TSelectListStage stage;
    stage.Open();
    stage.picker.TouchRow(2);
    QCOMPARE(stage.told, QVector<int>{2});
    QCOMPARE(stage.Shown(), QStringLiteral("Grass"));
    stage.picker.Accept();
    QVERIFY(!stage.picker.Overlay());
    QCOMPARE(stage.Shown(), QStringLiteral("Grass"));
}

void TSelectWidgetTest::aCancelledListRestoresTheSelectionAfterSeveralSteps()
{
    TSelectListStage stage;
    stage.selector->UpdateSelection(1);
    stage.Open();
    stage.picker.TouchRow(2);
    stage.picker.TouchRow(0);
    QCOMPARE(stage.Shown(), QStringLiteral("Row crop"));
    stage.picker.GiveUp();
    QVERIFY(!stage.picker.Overlay());
    QCOMPARE(stage.Shown(), QStringLiteral("Seed"));
    QCOMPARE(stage.told, QVector<int>({1, 2, 0, 1}));
}

void TSelectWidgetTest::theListMayBeReplacedFromItsOwnSignal()
{
    TSelectListStage stage;
    QObject::connect(stage.selector.data(), &TSelectWidget::SelectionChanged, stage.selector.data(),
                     [&stage] { stage.selector->SetupSelect(QStringLiteral("Crop"), 0); });
    stage.Open();
    stage.picker.TouchRow(2);
    QVERIFY(!stage.picker.Overlay());
    QCOMPARE(stage.Shown(), QStringLiteral("Row crop"));
    stage.Open();
    QCOMPARE(stage.picker.Selected(), QStringLiteral("Row crop"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(stage.picker.Overlay());
}

void TSelectWidgetTest::theListGoesWithTheSelector()
{
    TSelectListStage stage;
    stage.Open();
    QVERIFY(!stage.screen->GetLockingWidgets().isEmpty());
    delete stage.selector.data();
    QVERIFY(!stage.picker.Overlay());
    QVERIFY(stage.screen->GetLockingWidgets().isEmpty());
}

void TSelectWidgetTest::wheelWorksTheButtons()
{
    TTestScreen& screen = m_Stage->screen;
    TMMICapableWidgetNavigator navigator(screen.get());
    screen->SetMMINavigator(&navigator);
    TWindow window(screen.get());
    auto* const selector = new TSelectWidget(&window);
    selector->resize(300, 60);
    selector->AppendEntry(QString(), QStringLiteral("one"), 1);
    selector->AppendEntry(QString(), QStringLiteral("two"), 2);
    QSignalSpy const changed(selector, &TSelectWidget::SelectionChanged);
    window.ShowWindow(true);
    screen.m_Clock.Advance(1000);
    auto const turn = [&]
    {
        navigator.OnWheelRight();
        screen.m_Clock.Advance(100);
        navigator.UpdateFocus();
    };
    // From the button on the left to the one on the right.
    turn();
    turn();
    navigator.OnEnter();
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toInt(), 1);
}

void TSelectWidgetTest::pictures()
{
    COMPARE_PICTURE(m_Stage->Picture(), "select-small");
    Selector().SetSelectorSize(TSelectWidget::SELECTOR_LARGE);
    Selector().SetupSelect(QStringLiteral("Crop"), 0);
    COMPARE_PICTURE(m_Stage->Picture(), "select-large-with-title");
}

void TSelectWidgetTest::slotsMayDeleteIt_data()
{
    QTest::addColumn<QString>("deed");
    for (char const* const deed : {"previous", "next", "update", "button", "cancelled", "changed"})
        QTest::newRow(deed) << QString::fromLatin1(deed);
}

void TSelectWidgetTest::slotsMayDeleteIt()
{
    QFETCH(QString, deed);
    QPointer<TSelectWidget> const selector = m_Stage->selector;
    selector->UpdateSelection(1);
    selector->OnButtonClicked(SELECTION);
    connect(selector, &TSelectWidget::SelectionChanged, this, [selector] { delete selector; });
    if (deed == QLatin1String("previous"))
        m_Stage->Click(PREVIOUS);
    else if (deed == QLatin1String("next"))
        m_Stage->Click(NEXT);
    else if (deed == QLatin1String("update"))
        selector->UpdateSelection(2);
    else if (deed == QLatin1String("button"))
        selector->UpdateSelectionButton();
    else if (deed == QLatin1String("cancelled"))
        selector->OnSelectionCancelled();
    else
        selector->OnSelectionChanged(0);
    QVERIFY(!selector);
}

void TSelectWidgetTest::deletedWhilePressed()
{
    QPointer<TSelectWidget> const selector = m_Stage->selector;
    QPoint const place = ButtonOf(selector, NEXT)->mapTo(&m_Stage->window, QPoint(10, 10));
    m_Stage->finger.Press(place);
    delete selector;
    m_Stage->finger.Lift();
    QVERIFY(!selector);
}

COMMONUI_TEST(TSelectWidgetTest)

#include "TSelectWidgetTest.moc"
