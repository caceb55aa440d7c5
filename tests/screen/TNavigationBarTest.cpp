#include "TNavigationBar.h"
#include "ConfigManager.h"
#include "TestCase.h"
#include "TMMICapableWidgetNavigator.h"
#include "TViewStage.h"

#include <QLabel>
#include <QSignalSpy>

namespace
{
constexpr int Width = 67;
constexpr int ButtonHeight = 63;

QImage File(char const* name)
{
    return QImage(QStringLiteral(":/Images/Resources/") + QLatin1String(name))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage ImageOf(QPixmap const& pixmap)
{
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// The label whose picture is in the file.
QLabel* Indicator(QWidget* bar, char const* file)
{
    QList<QLabel*> const labels = bar->findChildren<QLabel*>();
    for (QLabel* const label : labels)
    {
        if (label->pixmap(Qt::ReturnByValue).toImage() ==
            QPixmap(QStringLiteral(":/Images/Resources/") + QLatin1String(file)).toImage())
            return label;
    }
    return nullptr;
}

void Fill(TNavigationBar* bar, int count)
{
    for (int id = 0; id < count; ++id)
        bar->AssignButton(id, QString(), QString(), QString());
}
} // namespace

class TNavigationBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withABackgroundItCoversWhatIsBehind()
    {
        TTestScreen screen;
        TNavigationBar const bar(screen.get(), false, true);
        QVERIFY(bar.testAttribute(Qt::WA_OpaquePaintEvent));
        QCOMPARE(ImageOf(*bar.GetBackground()), File("NavigationBar.png"));
    }

    void withoutABackgroundTheViewShowsThrough()
    {
        TTestScreen screen;
        TNavigationBar bar(screen.get(), false, false);
        QVERIFY(!bar.testAttribute(Qt::WA_OpaquePaintEvent));
        bar.resize(Width, 100);
        QImage image(bar.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::green);
        QImage const before = image;
        bar.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        QCOMPARE(image, before);
    }

    void theBackgroundIsPaintedFromTheTop()
    {
        TTestScreen screen;
        TNavigationBar* const bar = screen->GetNavigationBar();
        QImage image(bar->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::green);
        bar->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        QCOMPARE(image, File("NavigationBar.png").copy(0, 0, Width, SCREEN_HEIGHT));
    }

    void buttonsStandOneBelowTheOther()
    {
        TViewStage stage;
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        Fill(bar, 3);
        for (int id = 0; id < 3; ++id)
        {
            auto* const button = qobject_cast<TNavigationButton*>(bar->GetButton(id));
            QVERIFY(button);
            QCOMPARE(button->geometry(), QRect(0, id * ButtonHeight, Width, ButtonHeight));
            QCOMPARE(button->GetButtonId(), id);
            QVERIFY(button->isVisible());
        }
    }

    void theSpecialBarStandsFromTheBottom()
    {
        TViewStage stage;
        TNavigationBar bar(stage.screen.get(), true, true);
        bar.resize(Width, 300);
        bar.show();
        Fill(&bar, 2);
        QCOMPARE(bar.GetButton(1)->y(), 0);
        QCOMPARE(bar.GetButton(0)->y(), ButtonHeight);
    }

    void aNewButtonHasItsSizeAtOnce()
    {
        struct TOpenBar : TNavigationBar
        {
            using TNavigationBar::GenerateButton;
            using TNavigationBar::TNavigationBar;
        };
        TTestScreen screen;
        TOpenBar bar(screen.get(), false, true);
        TPushButton const* const button = bar.GenerateButton(12);
        QVERIFY(qobject_cast<TNavigationButton const*>(button));
        QCOMPARE(button->size(), QSize(Width, ButtonHeight));
        QCOMPARE(button->GetButtonId(), 12);
        QCOMPARE(button->parentWidget(), &bar);
    }

    void assigningAgainKeepsTheButton()
    {
        TViewStage stage;
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        bar->AssignButton(4, QString(), QString(), QStringLiteral("Map"));
        TPushButton* const button = bar->GetButton(4);
        QCOMPARE(button->GetToolTip(), QStringLiteral("Map"));
        bar->AssignButton(4, QString(), QString(), QStringLiteral("Field"));
        QCOMPARE(bar->GetButton(4), button);
        QCOMPARE(button->GetToolTip(), QStringLiteral("Field"));
        QCOMPARE(bar->GetNumberOfButtons(), 1);
        QVERIFY(!bar->GetButton(3));
        QVERIFY(!bar->GetButton(-1));
    }

    void theOperatorsSizeCounts_data()
    {
        QTest::addColumn<int>("setting");
        QTest::addColumn<int>("height");
        QTest::newRow("normal") << 0 << 63;
        QTest::newRow("quarter larger") << 1 << 78;
        QTest::newRow("half larger") << 2 << 94;
    }

    void theOperatorsSizeCounts()
    {
        QFETCH(int, setting);
        QFETCH(int, height);
        TViewStage stage;
        stage.screen.m_Config.Write(CONFIG_BUTTON_SIZE, setting, false);
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        Fill(bar, 2);
        QCOMPARE(bar->GetButton(1)->geometry(), QRect(0, height, Width, height));
    }

    void theMarksTellOfMoreButtons()
    {
        TViewStage stage;
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        QLabel* const up = Indicator(bar, "NavBarButtonScrollUp.png");
        QLabel* const down = Indicator(bar, "NavBarButtonScrollDown.png");
        QVERIFY(up && down && up != down);
        Fill(bar, 12); // 756 of 768 pixels
        QVERIFY(!up->isVisible());
        QVERIFY(!down->isVisible());
        Fill(bar, 20);
        QVERIFY(!up->isVisible());
        QVERIFY(down->isVisible());
        QCOMPARE(down->geometry().bottom(), SCREEN_HEIGHT - 1);

        int clicks = 0;
        QObject const listener;
        for (int id = 0; id < 20; ++id)
            connect(bar->GetButton(id), &TPushButton::Clicked, &listener, [&clicks] { ++clicks; });
        stage.finger.Press({30, 400});
        stage.finger.Move({{30, 350}, {30, 300}, {30, 250}});
        stage.finger.Lift();
        QVERIFY(bar->GetButton(0)->y() < 0);
        QVERIFY(up->isVisible());
        QCOMPARE(up->geometry().top(), 0);
        QCOMPARE(clicks, 0);
    }

    void theWheelBringsItsButtonIntoTheBar()
    {
        TViewStage stage;
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        Fill(bar, 20);
        TMMICapableWidgetNavigator navigator(stage.screen.get());
        navigator.PushWidget(bar);
        auto const tick = [&]
        {
            stage.screen.m_Clock.Advance(100);
            navigator.UpdateFocus();
        };
        auto const isWithin = [bar](int id) { return bar->rect().contains(bar->GetButton(id)->geometry()); };
        tick();
        QVERIFY(isWithin(0));
        QVERIFY(!isWithin(19));
        navigator.OnWheelLeft(); // round the end
        tick();
        QVERIFY(isWithin(19));
        QVERIFY(!isWithin(0));
        tick();
        QVERIFY(isWithin(19));
        navigator.OnWheelRight();
        tick();
        QVERIFY(isWithin(0));
    }
};

COMMONUI_TEST(TNavigationBarTest)
#include "TNavigationBarTest.moc"
