#include "TTabBar.h"
#include "ButtonTestSupport.h"
#include "GoldenPicture.h"
#include "Metrics.h"

#include <QSignalSpy>

#include <climits>

namespace
{
constexpr int PreviousId = 0x7ffffffe;
constexpr int NextId = 0x7fffffff;

using TIds = QVector<int>;
} // namespace

class TTabBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_Screen = std::make_unique<TTestScreen>();
        m_Window = std::make_unique<TListeningWindow>();
        m_Window->setPalette(QPalette(QColor(38, 41, 46)));
    }
    void cleanup()
    {
        m_Window.reset();
        m_Screen.reset();
    }

    void looksDifferInPlaceSizeAndSkin_data();
    void looksDifferInPlaceSizeAndSkin();
    void horizontalBarIsAtLeastAsWideAsAMiniWindow();
    void numberOfPages_data();
    void numberOfPages();
    void fiveTabsFitOnOnePageWithoutArrows();
    void sixTabsAreTwoPagesOfWhichTheFirstShowsFour();
    void pagesShowTheirTabsAndArrows_data();
    void pagesShowTheirTabsAndArrows();
    void activatingATabTurnsToItsPage_data();
    void activatingATabTurnsToItsPage();
    void clickOnAnArrowChangesNoTabAndEmitsNothing();
    void arrowBeyondTheEndsTurnsNothing();
    void invisibleTabLeavesTheCount();
    void pageThatIsGoneIsLeft();
    void tabIsActiveAndShownWhenItIsNamed();
    void activeTabIsNamedAgain();
    void onlyTheActiveTabIsLit();
    void unknownTabDoesNothing();
    void hidingKeepsActiveTabAndPage();
    void barThatIsShownNamesItsTabAgain_data();
    void barThatIsShownNamesItsTabAgain();
    void removingAllLeavesTheArrows();
    void arrowsAreNoTabs();
    void tabsStandInTheOrderOfTheirIds();
    void orderFromOutsideKeepsTheArrowsAtTheEnds();
    void buttonFromOutsideBecomesATab();
    void tabThatIsTakenOffIsNoLongerHeard();
    void disabledTabKeepsItsSkin();
    void wheelPressesATab();
    void arrowIsExplained();
    void blankFillsTheRestOfTheStrip_data();
    void blankFillsTheRestOfTheStrip();
    void backgroundStandsBehindTheBlank();
    void showingArranges();
    void clickRepaintsTheBar();
    void anyMaximumIsTaken_data();
    void anyMaximumIsTaken();
    void barMayBeDeletedByItsSignal();
    void tabsMayGoWhileTheBarIsShown();
    void barMayBeDeletedWhilePressed();
    void tabsMayBeDeletedFromOutside();
    void barWorksWithoutAScreen();
    void picture_data();
    void picture();

private:
    TTabBar* MakeBar(bool vertical = false, bool reemitOnShow = false)
    {
        auto* const bar = new TTabBar(m_Window.get(), vertical, reemitOnShow);
        if (vertical)
            bar->setGeometry(0, 0, TABBAR_VERTICAL_WIDTH, 310);
        else
            bar->setGeometry(0, 0, 252, 58);
        return bar;
    }
    TTabBar* MakeBarOf(int tabs)
    {
        TTabBar* const bar = MakeBar();
        Assign(bar, tabs);
        m_Window->Expose();
        return bar;
    }
    static void Assign(TTabBar* bar, int tabs)
    {
        for (int id = 0; id < tabs; ++id)
            bar->AssignButton(id, QString(), QString::number(id + 1), QString());
    }
    // The ids of what is seen, along the bar.
    static TIds Shown(TTabBar* bar)
    {
        QMap<int, int> byPlace;
        TIds ids = {PreviousId, NextId};
        for (int id = 0; id < 64; ++id)
            ids.append(id);
        for (int const id : qAsConst(ids))
        {
            TPushButton const* const button = bar->GetButton(id);
            if (button && button->isVisibleTo(bar))
                byPlace.insert(button->x() + button->y(), id);
        }
        TIds shown;
        for (int const id : qAsConst(byPlace))
            shown.append(id);
        return shown;
    }
    // What the operator sees of a button's skin, off its middle.
    static QColor Skin(TPushButton* button) { return button->grab().toImage().pixelColor(9, 9); }
    void AddSkins(char const* const (&names)[4])
    {
        QColor const colours[] = {Qt::red, Qt::green, Qt::yellow, Qt::magenta};
        for (int i = 0; i < 4; ++i)
            m_Screen->AddImage(QLatin1String(names[i]), colours[i]);
    }
    void AddHorizontalSkins()
    {
        AddSkins({"miniWindow-tab-off", "miniWindow-tab-off-selected", "miniWindow-tab-on",
                  "miniWindow-tab-blank"});
    }

    std::unique_ptr<TTestScreen> m_Screen;
    std::unique_ptr<TListeningWindow> m_Window;
};

void TTabBarTest::looksDifferInPlaceSizeAndSkin_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QRect>("first");
    QTest::addColumn<QRect>("second");
    QTest::newRow("vertical") << true << QRect(0, 3, 96, 60) << QRect(0, 63, 96, 60);
    QTest::newRow("horizontal") << false << QRect(1, 0, 50, 58) << QRect(51, 0, 50, 58);
}

void TTabBarTest::looksDifferInPlaceSizeAndSkin()
{
    QFETCH(bool, vertical);
    if (vertical)
        AddSkins({"TabBar-tab-off-vertical", "TabBar-tab-off-selected-vertical", "TabBar-tab-on-vertical",
                  "TabBar-tab-blank-vertical"});
    else
        AddHorizontalSkins();
    TTabBar* const bar = MakeBar(vertical);
    Assign(bar, 2);
    m_Window->Expose();
    QTEST(bar->GetButton(0)->geometry(), "first");
    QTEST(bar->GetButton(1)->geometry(), "second");
    QCOMPARE(Skin(bar->GetButton(0)), QColor(Qt::red));
    bar->GetButton(0)->setDown(true);
    QCOMPARE(Skin(bar->GetButton(0)), QColor(Qt::green));
    bar->SetActiveTab(1);
    QCOMPARE(Skin(bar->GetButton(1)), QColor(Qt::yellow));
    QCOMPARE(bar->grab().toImage().pixelColor(bar->rect().bottomRight()), QColor(Qt::magenta));
}

void TTabBarTest::horizontalBarIsAtLeastAsWideAsAMiniWindow()
{
    QCOMPARE(MakeBar(false)->minimumSize(), QSize(252, 58));
    QCOMPARE(MakeBar(true)->minimumSize(), QSize(0, 0));
}

void TTabBarTest::numberOfPages_data()
{
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("visible");
    QTest::addColumn<int>("pages");
    int const rows[][3] = {
        {5, 0, 1},
        {5, 1, 1},
        {5, 5, 1},
        {5, 6, 2},
        {5, 8, 2},
        {5, 9, 3},
        {5, 11, 3},
        {5, 12, 4},
        {5, 14, 4},
        {5, 15, 5},
        // A page in the middle holds two tabs, and yet three more are needed for another page.
        {4, 4, 1},
        {4, 5, 2},
        {4, 6, 2},
        {4, 7, 3},
        {4, 9, 3},
        {4, 10, 4},
        {3, 3, 1},
        {3, 4, 2},
        {3, 5, 3},
        {3, 7, 3},
        {3, 8, 4},
        // One in the middle holds six.
        {8, 8, 1},
        {8, 9, 2},
        {8, 14, 2},
        {8, 15, 3},
        {8, 17, 3},
        {8, 18, 4},
        {2, 2, 1},
        {2, 3, 3},
        {2, 6, 4},
        {1, 0, 1},
        {1, 1, 3},
        {1, 4, 4},
        {0, 0, 3},
        {0, 2, 4},
        {-1, 0, 4},
    };
    for (auto const& row : rows)
        QTest::addRow("%d tabs of %d", row[1], row[0]) << row[0] << row[1] << row[2];
}

void TTabBarTest::numberOfPages()
{
    QFETCH(int, maximum);
    QFETCH(int, visible);
    TTabBar* const bar = MakeBar();
    bar->SetMaxNumberOfVisibleButtons(maximum);
    Assign(bar, visible);
    QTEST(bar->GetNumberOfPages(), "pages");
}

void TTabBarTest::fiveTabsFitOnOnePageWithoutArrows()
{
    TTabBar* const bar = MakeBarOf(5);
    QCOMPARE(bar->GetNumberOfPages(), 1);
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, 4}));
    QCOMPARE(bar->GetNumberOfButtons(), 5);
    QCOMPARE(bar->GetNumberOfVisibleButtons(), 5);
}

void TTabBarTest::sixTabsAreTwoPagesOfWhichTheFirstShowsFour()
{
    TTabBar* const bar = MakeBarOf(6);
    QCOMPARE(bar->GetNumberOfPages(), 2);
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
    QCOMPARE(bar->GetNumberOfButtons(), 6);
    QCOMPARE(bar->GetNumberOfVisibleButtons(), 6);
    TFinger(*m_Window).Tap(*bar->GetButton(NextId));
    QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
}

void TTabBarTest::pagesShowTheirTabsAndArrows_data()
{
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("tabs");
    QTest::addColumn<QVector<TIds>>("pages");
    QTest::newRow("two arrows and three tabs in the middle") << 5 << 12
                                                             << QVector<TIds>{{0, 1, 2, 3, NextId},
                                                                              {PreviousId, 4, 5, 6, NextId},
                                                                              {PreviousId, 7, 8, 9, NextId},
                                                                              {PreviousId, 10, 11}};
    QTest::newRow("last page full") << 5 << 11
                                    << QVector<TIds>{{0, 1, 2, 3, NextId},
                                                     {PreviousId, 4, 5, 6, NextId},
                                                     {PreviousId, 7, 8, 9, 10}};
    // The pages are too few: the ninth tab has no place.
    QTest::newRow("four at most") << 4 << 9
                                  << QVector<TIds>{{0, 1, 2, NextId},
                                                   {PreviousId, 3, 4, NextId},
                                                   {PreviousId, 5, 6, 7}};
    QTest::newRow("one arrow fills a bar for one")
        << 1 << 1 << QVector<TIds>{{NextId}, {PreviousId, NextId}, {PreviousId}};
}

void TTabBarTest::pagesShowTheirTabsAndArrows()
{
    QFETCH(int, maximum);
    QFETCH(int, tabs);
    QFETCH(QVector<TIds>, pages);
    TTabBar* const bar = MakeBarOf(tabs);
    bar->SetMaxNumberOfVisibleButtons(maximum);
    QCOMPARE(bar->GetNumberOfPages(), pages.size());
    for (TIds const& page : qAsConst(pages))
    {
        QCOMPARE(Shown(bar), page);
        bar->OnTabClicked(NextId);
    }
    for (int i = pages.size() - 1; i >= 0; --i)
    {
        QCOMPARE(Shown(bar), pages[i]);
        bar->OnTabClicked(PreviousId);
    }
}

void TTabBarTest::activatingATabTurnsToItsPage_data()
{
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("tabs");
    QTest::addColumn<int>("tab");
    QTest::addColumn<TIds>("page");
    QTest::newRow("first page") << 5 << 12 << 3 << TIds{0, 1, 2, 3, NextId};
    QTest::newRow("first of the second") << 5 << 12 << 4 << TIds{PreviousId, 4, 5, 6, NextId};
    QTest::newRow("last of the second") << 5 << 12 << 6 << TIds{PreviousId, 4, 5, 6, NextId};
    QTest::newRow("first of the third") << 5 << 12 << 7 << TIds{PreviousId, 7, 8, 9, NextId};
    QTest::newRow("last page") << 5 << 12 << 11 << TIds{PreviousId, 10, 11};
    QTest::newRow("last tab of a full page") << 5 << 11 << 10 << TIds{PreviousId, 7, 8, 9, 10};
    QTest::newRow("two pages") << 5 << 6 << 5 << TIds{PreviousId, 4, 5};
    QTest::newRow("one page") << 5 << 5 << 4 << TIds{0, 1, 2, 3, 4};
    QTest::newRow("four at most") << 4 << 7 << 4 << TIds{PreviousId, 3, 4, NextId};
    QTest::newRow("beyond the last page") << 4 << 9 << 8 << TIds{PreviousId, 5, 6, 7};
    QTest::newRow("two at most") << 2 << 4 << 3 << TIds{PreviousId, 1};
}

void TTabBarTest::activatingATabTurnsToItsPage()
{
    QFETCH(int, maximum);
    QFETCH(int, tabs);
    QFETCH(int, tab);
    TTabBar* const bar = MakeBarOf(tabs);
    bar->SetMaxNumberOfVisibleButtons(maximum);
    bar->SetActiveTab(tab);
    QTEST(Shown(bar), "page");
    bar->SetActiveTab(0);
    QCOMPARE(Shown(bar).at(0), 0);
}

void TTabBarTest::clickOnAnArrowChangesNoTabAndEmitsNothing()
{
    AddHorizontalSkins();
    TTabBar* const bar = MakeBarOf(6);
    bar->SetActiveTab(1);
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    TFinger const finger(*m_Window);
    finger.Tap(*bar->GetButton(NextId));
    QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
    QCOMPARE(Skin(bar->GetButton(1)), QColor(Qt::yellow));
    finger.Tap(*bar->GetButton(PreviousId));
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
    QCOMPARE(Skin(bar->GetButton(1)), QColor(Qt::yellow));
    QCOMPARE(clicked.count(), 0);
}

void TTabBarTest::arrowBeyondTheEndsTurnsNothing()
{
    TTabBar* const bar = MakeBarOf(6);
    bar->OnTabClicked(PreviousId);
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
    bar->OnTabClicked(NextId);
    bar->OnTabClicked(NextId);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
    bar->OnTabClicked(PreviousId);
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
}

void TTabBarTest::invisibleTabLeavesTheCount()
{
    TTabBar* const bar = MakeBarOf(6);
    bar->SetButtonVisibility(2, false);
    QVERIFY(!bar->IsButtonVisible(2));
    QCOMPARE(bar->GetNumberOfVisibleButtons(), 5);
    QCOMPARE(bar->GetNumberOfButtons(), 6);
    QCOMPARE(bar->GetNumberOfPages(), 1);
    QCOMPARE(Shown(bar), (TIds{0, 1, 3, 4, 5}));
    bar->SetButtonVisibility(2, true);
    QVERIFY(bar->IsButtonVisible(2));
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
    // A tab of another page is wanted all the same.
    QVERIFY(bar->IsButtonVisible(5));
}

void TTabBarTest::pageThatIsGoneIsLeft()
{
    TTabBar* const bar = MakeBarOf(12);
    bar->SetActiveTab(11);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 10, 11}));
    bar->RemoveButton(11, true);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 7, 8, 9, 10}));
    for (int id = 5; id < 11; ++id)
        bar->SetButtonVisibility(id, false);
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, 4}));
}

void TTabBarTest::tabIsActiveAndShownWhenItIsNamed()
{
    AddHorizontalSkins();
    TTabBar* const bar = MakeBarOf(6);
    bar->SetActiveTab(0);
    int heard = -1;
    connect(bar, &TTabBar::TabClicked, this,
            [&](int id)
            {
                heard = id;
                QCOMPARE(Skin(bar->GetButton(5)), QColor(Qt::yellow));
                QCOMPARE(Skin(bar->GetButton(0)), QColor(Qt::red));
                QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
            });
    bar->OnTabClicked(5);
    QCOMPARE(heard, 5);
}

void TTabBarTest::activeTabIsNamedAgain()
{
    TTabBar* const bar = MakeBarOf(3);
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    TFinger const finger(*m_Window);
    finger.Tap(*bar->GetButton(2));
    finger.Tap(*bar->GetButton(2));
    bar->SetActiveTab(2);
    QCOMPARE(clicked, (QList<QVariantList>{{2}, {2}, {2}}));
}

void TTabBarTest::onlyTheActiveTabIsLit()
{
    AddHorizontalSkins();
    TTabBar* const bar = MakeBarOf(3);
    QCOMPARE(Skin(bar->GetButton(0)), QColor(Qt::red));
    for (int const active : {0, 2, 2, 1})
    {
        bar->SetActiveTab(active);
        for (int id = 0; id < 3; ++id)
            QCOMPARE(Skin(bar->GetButton(id)), QColor(id == active ? Qt::yellow : Qt::red));
    }
}

void TTabBarTest::unknownTabDoesNothing()
{
    AddHorizontalSkins();
    TTabBar* const bar = MakeBarOf(6);
    bar->SetActiveTab(5);
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    for (int const id : {-1, 6, INT_MIN, PreviousId, NextId})
    {
        bar->SetActiveTab(id);
        bar->SetButtonVisibility(id, false);
        bar->RemoveButton(id, true);
    }
    bar->OnTabClicked(77);
    QVERIFY(!bar->IsButtonVisible(77));
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
    QCOMPARE(Skin(bar->GetButton(5)), QColor(Qt::yellow));
}

void TTabBarTest::hidingKeepsActiveTabAndPage()
{
    AddHorizontalSkins();
    TTabBar* const bar = MakeBarOf(6);
    bar->SetActiveTab(5);
    bar->hide();
    bar->show();
    QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
    QCOMPARE(Skin(bar->GetButton(5)), QColor(Qt::yellow));
    bar->OnTabClicked(PreviousId);
    bar->hide();
    bar->show();
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
}

void TTabBarTest::barThatIsShownNamesItsTabAgain_data()
{
    QTest::addColumn<bool>("reemit");
    QTest::addColumn<QList<QVariantList>>("named");
    QTest::addColumn<TIds>("page");
    QTest::newRow("asked for") << true << QList<QVariantList>{{0}, {4}} << TIds{PreviousId, 4, 5};
    QTest::newRow("not asked for") << false << QList<QVariantList>{} << TIds{0, 1, 2, 3, NextId};
}

void TTabBarTest::barThatIsShownNamesItsTabAgain()
{
    QFETCH(bool, reemit);
    TTabBar* const bar = MakeBar(false, reemit);
    Assign(bar, 6);
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    m_Window->Expose();
    {
        QSignalBlocker const quiet(bar);
        bar->SetActiveTab(4);
    }
    bar->OnTabClicked(PreviousId);
    bar->hide();
    bar->show();
    QTEST(static_cast<QList<QVariantList> const&>(clicked), "named");
    QTEST(Shown(bar), "page");
}

void TTabBarTest::removingAllLeavesTheArrows()
{
    AddHorizontalSkins();
    TTabBar* const bar = MakeBar(false, true);
    Assign(bar, 8);
    m_Window->Expose();
    bar->SetActiveTab(6);
    TPushButton const* const previous = bar->GetButton(PreviousId);
    bar->RemoveAllButtons();
    QCOMPARE(bar->GetNumberOfButtons(), 0);
    QCOMPARE(bar->GetNumberOfVisibleButtons(), 0);
    QCOMPARE(bar->GetButton(PreviousId), previous);
    QVERIFY(bar->GetButton(NextId));
    QCOMPARE(Shown(bar), TIds{});
    // 0 is the active tab, and 0 the page.
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    Assign(bar, 8);
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
    bar->hide();
    bar->show();
    QCOMPARE(clicked, (QList<QVariantList>{{0}}));
    QCOMPARE(Skin(bar->GetButton(0)), QColor(Qt::yellow));
}

void TTabBarTest::arrowsAreNoTabs()
{
    TTabBar* const bar = MakeBarOf(6);
    TPushButton* const next = bar->GetButton(NextId);
    bar->AssignButton(NextId, QStringLiteral("icon-home"), QStringLiteral("Mine"), QString());
    QVERIFY(next->GetText().isEmpty());
    bar->AssignButton(3, next);
    QVERIFY(bar->GetButton(3) != next);
    bar->AssignButton(NextId, new TPushButton(m_Window.get(), NextId, QString()));
    QCOMPARE(bar->GetButton(NextId), next);
    bar->RemoveButton(NextId, true);
    bar->RemoveButton(PreviousId, false);
    bar->SetButtonVisibility(NextId, false);
    QCOMPARE(bar->GetButton(NextId), next);
    QVERIFY(bar->IsButtonVisible(NextId));
    QVERIFY(!bar->IsButtonVisible(PreviousId));
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
    bar->AssignButton(9, nullptr);
    QCOMPARE(bar->GetNumberOfButtons(), 6);
}

void TTabBarTest::tabsStandInTheOrderOfTheirIds()
{
    TTabBar* const bar = MakeBar();
    for (int const id : {3, 0, 5, 1, 4, 2})
        bar->AssignButton(id, QString(), QString(), QString());
    m_Window->Expose();
    QCOMPARE(Shown(bar), (TIds{0, 1, 2, 3, NextId}));
    bar->OnTabClicked(NextId);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
}

void TTabBarTest::orderFromOutsideKeepsTheArrowsAtTheEnds()
{
    TTabBar* const bar = MakeBarOf(7);
    bar->AssignButtonOrder({6, 5, NextId, 4, 3, 2, 1});
    QCOMPARE(Shown(bar), (TIds{6, 5, 4, 3, NextId}));
    // What is not named is not there.
    QCOMPARE(bar->GetNumberOfVisibleButtons(), 6);
    bar->SetActiveTab(1);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 2, 1}));
    bar->AssignButtonOrder({});
    QCOMPARE(Shown(bar), TIds{});
}

void TTabBarTest::buttonFromOutsideBecomesATab()
{
    AddHorizontalSkins();
    TTabBar* const bar = MakeBarOf(1);
    auto* const button = new TPushButton(m_Window.get(), 1, QString());
    bar->AssignButton(1, button);
    bar->AssignButton(1, button);
    QCOMPARE(bar->GetButton(1), button);
    QCOMPARE(button->geometry(), QRect(51, 0, 50, 58));
    QCOMPARE(Skin(button), QColor(Qt::red));
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    TFinger(*m_Window).Tap(*button);
    QCOMPARE(clicked, (QList<QVariantList>{{1}}));
    QCOMPARE(Skin(button), QColor(Qt::yellow));
    button->setEnabled(false);
    QCOMPARE(Skin(button), QColor(Qt::red));
    button->setEnabled(true);
    button->setDown(true);
    QCOMPARE(Skin(button), QColor(Qt::green));
}

void TTabBarTest::tabThatIsTakenOffIsNoLongerHeard()
{
    TTabBar* const bar = MakeBarOf(3);
    TPushButton* const button = bar->GetButton(1);
    bar->RemoveButton(1, false);
    QVERIFY(!bar->IsButtonVisible(1));
    QVERIFY(button->isHidden());
    bar->AssignButton(1, QString(), QString(), QString());
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    Q_EMIT button->Clicked(1);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(bar->IsButtonVisible(1));
}

void TTabBarTest::disabledTabKeepsItsSkin()
{
    AddSkins(
        {"miniWindow-tab-off-selected", "miniWindow-tab-off", "miniWindow-tab-on", "miniWindow-tab-blank"});
    // Translucent, so that an opacity below 1 would show.
    m_Screen->AddImage(QStringLiteral("miniWindow-tab-off"), QColor(255, 0, 0, 254), QSize(50, 58));
    TTabBar* const bar = MakeBarOf(1);
    bar->SetButtonEnabled(0, false);
    QVERIFY(bar->GetButton(0)->grab().toImage().pixelColor(9, 9).red() > 250);
}

void TTabBarTest::wheelPressesATab()
{
    TTabBar* const bar = MakeBarOf(6);
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    bar->GetButton(3)->OnMMIEnter();
    QTRY_COMPARE(clicked, (QList<QVariantList>{{3}}));
    bar->GetButton(NextId)->OnMMIEnter();
    QTRY_COMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
    QCOMPARE(clicked.count(), 1);
}

void TTabBarTest::arrowIsExplained()
{
    TTabBar* const bar = MakeBarOf(6);
    QCOMPARE(bar->GetButton(PreviousId)->GetToolTip(), QStringLiteral("Previous Page"));
    QCOMPARE(bar->GetButton(NextId)->GetToolTip(), QStringLiteral("Next Page"));
}

void TTabBarTest::blankFillsTheRestOfTheStrip_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("tabs");
    QTest::newRow("horizontal, no tab") << false << QSize(252, 58) << 0;
    QTest::newRow("horizontal, two tabs") << false << QSize(400, 58) << 2;
    QTest::newRow("horizontal, higher") << false << QSize(300, 80) << 2;
    QTest::newRow("vertical, two tabs") << true << QSize(96, 290) << 2;
    QTest::newRow("vertical, wider") << true << QSize(120, 290) << 1;
    QTest::newRow("vertical, full") << true << QSize(96, 120) << 4;
}

void TTabBarTest::blankFillsTheRestOfTheStrip()
{
    QFETCH(bool, vertical);
    QFETCH(QSize, size);
    QFETCH(int, tabs);
    AddHorizontalSkins();
    AddSkins({"TabBar-tab-off-vertical", "TabBar-tab-off-selected-vertical", "TabBar-tab-on-vertical",
              "TabBar-tab-blank-vertical"});
    TTabBar* const bar = MakeBar(vertical);
    bar->resize(size);
    Assign(bar, tabs);
    for (int id = 0; id < tabs; ++id)
        bar->GetButton(id)->setText(QString());
    m_Window->Expose();
    QImage const seen = bar->grab().toImage();
    int const offset = vertical ? 3 : 1;
    int const end = offset + tabs * (vertical ? 60 : 50);
    for (int y = 0; y < seen.height(); ++y)
    {
        for (int x = 0; x < seen.width(); ++x)
        {
            int const along = vertical ? y : x;
            bool const blank = along < offset || along >= end;
            QCOMPARE(seen.pixelColor(x, y), QColor(blank ? Qt::magenta : Qt::red));
        }
    }
}

void TTabBarTest::backgroundStandsBehindTheBlank()
{
    AddHorizontalSkins();
    m_Screen->AddImage(QStringLiteral("miniWindow-tab-blank"), Qt::transparent);
    TTabBar* const bar = MakeBarOf(2);
    auto const background = QSharedPointer<QPixmap>::create(QSize(252, 58));
    background->fill(Qt::cyan);
    bar->SetBackground(background);
    QImage const seen = bar->grab().toImage();
    QCOMPARE(seen.pixelColor(200, 30), QColor(Qt::cyan));
    QCOMPARE(seen.pixelColor(10, 9), QColor(Qt::red));
}

void TTabBarTest::showingArranges()
{
    TTabBar* const bar = MakeBarOf(2);
    bar->hide();
    bar->SetButtonOffset(30);
    bar->show();
    QCOMPARE(bar->GetButton(0)->x(), 30);
}

void TTabBarTest::clickRepaintsTheBar()
{
    struct TPaintCounter : public QObject
    {
        bool eventFilter(QObject*, QEvent* event) override
        {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int paints = 0;
    };
    TTabBar* const bar = MakeBarOf(6);
    bar->SetActiveTab(0);
    QCoreApplication::processEvents();
    TPaintCounter counter;
    bar->installEventFilter(&counter);
    for (int const id : {0, PreviousId, NextId})
    {
        counter.paints = 0;
        bar->OnTabClicked(id);
        QTRY_COMPARE(counter.paints, 1);
    }
}

void TTabBarTest::anyMaximumIsTaken_data()
{
    QTest::addColumn<int>("maximum");
    for (int const maximum : {INT_MIN, INT_MIN + 1, -7, -1, 0, 1, 2, 3, 1000, INT_MAX - 1, INT_MAX})
        QTest::addRow("%d", maximum) << maximum;
}

void TTabBarTest::anyMaximumIsTaken()
{
    QFETCH(int, maximum);
    TTabBar* const bar = MakeBarOf(9);
    QSignalSpy clicked(bar, &TTabBar::TabClicked);
    bar->SetMaxNumberOfVisibleButtons(maximum);
    QVERIFY(bar->GetNumberOfPages() >= 1);
    for (int id = 0; id < 9; ++id)
        bar->SetActiveTab(id);
    QCOMPARE(clicked.count(), 9);
    for (int const arrow : {NextId, PreviousId})
    {
        for (int i = 0; i < 20; ++i)
            bar->OnTabClicked(arrow);
    }
    bar->SetMaxNumberOfVisibleButtons(5);
    bar->SetActiveTab(8);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 7, 8}));
}

void TTabBarTest::barMayBeDeletedByItsSignal()
{
    QPointer<TTabBar> const bar = MakeBarOf(6);
    connect(bar.data(), &TTabBar::TabClicked, this, [bar] { delete bar.data(); });
    TFinger(*m_Window).Tap(*bar->GetButton(2));
    QVERIFY(!bar);
}

void TTabBarTest::tabsMayGoWhileTheBarIsShown()
{
    TTabBar* const bar = MakeBar(false, true);
    Assign(bar, 6);
    m_Window->Expose();
    connect(bar, &TTabBar::TabClicked, this,
            [bar]
            {
                bar->RemoveAllButtons();
                bar->hide();
            });
    bar->hide();
    bar->show();
    QVERIFY(bar->isHidden());
    QCOMPARE(Shown(bar), TIds{});
}

void TTabBarTest::barMayBeDeletedWhilePressed()
{
    QPointer<TTabBar> const bar = MakeBarOf(6);
    TFinger const finger(*m_Window);
    finger.Press(QPoint(20, 20));
    QVERIFY(bar->GetButton(0)->isDown());
    delete bar.data();
    finger.Release(QPoint(20, 20));
    QVERIFY(!bar);
}

void TTabBarTest::tabsMayBeDeletedFromOutside()
{
    TTabBar* const bar = MakeBarOf(6);
    bar->SetActiveTab(1);
    delete bar->GetButton(1);
    delete bar->GetButton(NextId);
    bar->SetActiveTab(0);
    bar->SetActiveTab(1);
    bar->SetMaxNumberOfVisibleButtons(4);
    QCOMPARE(bar->GetNumberOfVisibleButtons(), 5);
    QCOMPARE(Shown(bar), (TIds{0, 2, 3}));
    bar->RemoveAllButtons();
    QCOMPARE(bar->GetNumberOfButtons(), 0);
}

void TTabBarTest::barWorksWithoutAScreen()
{
    m_Screen.reset();
    TTabBar* const bar = MakeBarOf(6);
    bar->SetActiveTab(5);
    QCOMPARE(Shown(bar), (TIds{PreviousId, 4, 5}));
    QVERIFY(!bar->grab().isNull());
}

void TTabBarTest::picture_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("tabs");
    QTest::addColumn<int>("active");
    struct TPage
    {
        char const* name;
        int tabs;
        int active;
    };
    for (bool const vertical : {true, false})
    {
        for (TPage const& page :
             {TPage{"one page", 3, 1}, {"first page", 9, 2}, {"middle page", 9, 5}, {"last page", 9, 8}})
            QTest::addRow("%s, %s", vertical ? "vertical" : "horizontal", page.name)
                << vertical << page.tabs << page.active;
    }
}

void TTabBarTest::picture()
{
    QFETCH(bool, vertical);
    QFETCH(int, tabs);
    QFETCH(int, active);
    TTabBar* const bar = MakeBar(vertical);
    m_Window->resize(vertical ? QSize(96, 330) : QSize(252, 58));
    bar->resize(m_Window->size());
    Assign(bar, tabs);
    for (int id = 0; id < tabs; ++id)
        bar->GetButton(id)->SetFontSize(vertical ? 30 : 20, false);
    m_Window->Expose();
    bar->SetActiveTab(active);
    bar->SetButtonEnabled(0, false);
    bar->GetButton(active == tabs - 1 ? active - 1 : active + 1)->setDown(true);
    QString const name = QString::fromLatin1(QTest::currentDataTag()).remove(QLatin1Char(','));
    QString const file =
        QStringLiteral("tab-bar-") + QString(name).replace(QLatin1Char(' '), QLatin1Char('-'));
    QString const fault = GoldenPictureFault(
        m_Window->grab().toImage(), QStringLiteral(TEST_SOURCE_DIR "/golden/%1.png").arg(file), file);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

COMMONUI_TEST(TTabBarTest)
#include "TTabBarTest.moc"
