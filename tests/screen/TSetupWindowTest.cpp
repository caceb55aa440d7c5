#include "TSetupWindow.h"
#include "GoldenPicture.h"
#include "Palette.h"
#include "TestCase.h"
#include "TFinger.h"
#include "TPushButton.h"
#include "TScreenStage.h"

#include <QSignalSpy>

namespace
{
class TProbe : public TSetupWindow
{
public:
    using TSetupWindow::TSetupWindow;
    using TWindow::GetCancelButton;
    using TWindow::GetContentRect;
    using TWindow::GetControlButtons;
    using TWindow::GetOkButton;

    /// Where a button stands in the window.
    QPoint Place(TPushButton const* button) const { return button->mapTo(this, QPoint(0, 0)); }
};
} // namespace

class TSetupWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSetupWindowHasAFixedPlaceAndSize()
    {
        TScreenStage stage;
        TProbe const window(stage.canvas);
        QCOMPARE(window.geometry(), QRect(82, 26, 860, 400));
        QCOMPARE(window.minimumSize(), window.maximumSize());
    }

    void theContentStandsBelowTheTitle()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.ShowWindow(false);
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(0, 46, 860, 354));
        QCOMPARE(window.GetContentRect(), QRect(0, 46, 860, 354));
        window.setFixedSize(500, 300);
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(0, 46, 500, 254));
        window.setFixedSize(500, 30);
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(0, 46, 500, 0));
    }

    void theFrameMayHaveASizeOfItsOwn_data()
    {
        QTest::addColumn<QSize>("wanted");
        QTest::addColumn<QSize>("size");
        QTest::newRow("smaller") << QSize(700, 200) << QSize(700, 200);
        QTest::newRow("larger") << QSize(900, 500) << QSize(900, 500);
        QTest::newRow("negative") << QSize(-4, -1) << QSize(0, 0);
    }

    void theFrameMayHaveASizeOfItsOwn()
    {
        QFETCH(QSize, wanted);
        QFETCH(QSize, size);
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.ShowWindow(false);
        window.SetFrameSize(wanted.width(), wanted.height());
        QCOMPARE(window.GetWindowContent()->geometry(), QRect(QPoint(0, 46), size));
        QCOMPARE(window.GetContentRect(), QRect(QPoint(0, 46), size));
    }

    void theFadeOfAModalChildTakesTheContent()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.ShowWindow(false);
        TWindow child(&window);
        child.setFixedSize(100, 60);
        child.ShowWindow(true);
        QObjectList const& all = window.children();
        auto* const fade = qobject_cast<QWidget*>(all.value(all.indexOf(&child) - 1));
        QVERIFY(fade);
        QCOMPARE(fade->palette().color(QPalette::Window), modalFadeoutColor);
        QCOMPARE(fade->geometry(), QRect(0, 46, 860, 354));
    }

    void controlButtonsOverlapDownTheRightSide()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        for (int const id : {0, 1, 3})
            window.AddControlButton(id, QString(), QStringLiteral("Tip %1").arg(id));
        window.ShowWindow(false);
        QVector<TPushButton*> const& buttons = window.GetControlButtons();
        for (int const id : {0, 1, 3})
            QCOMPARE(buttons[id]->size(), QSize(63, 94));
        QCOMPARE(buttons[0]->pos(), QPoint(797, 23));
        QCOMPARE(buttons[1]->pos(), QPoint(797, 97));
        // Each has the place of its id, which stays free without a button or with a hidden one.
        QCOMPARE(buttons[3]->pos(), QPoint(797, 245));
        QCOMPARE(buttons[3]->GetToolTip(), QStringLiteral("Tip 3"));
        // The lower one lies above: a touch where they meet is its own.
        QSignalSpy upper(buttons[0], &TPushButton::Clicked);
        QSignalSpy lower(buttons[1], &TPushButton::Clicked);
        TFinger finger(stage.screen.get());
        finger.Touch(buttons[1]->mapTo(stage.screen.get(), QPoint(30, 10)));
        QCOMPARE(upper.count(), 0);
        QCOMPARE(lower.count(), 1);
        buttons[1]->hide();
        window.RepositionButtons();
        QCOMPARE(buttons[3]->y(), 245);
        buttons[1]->setFixedHeight(60);
        window.RepositionButtons();
        QCOMPARE(buttons[1]->y(), 63);
    }

    void aButtonThatComesLaterTakesItsPlaceAtOnce()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.AddControlButton(5, QString(), QString());
        window.ShowWindow(false);
        window.AddControlButton(2, QString(), QString());
        window.AddControlButton(-1, QString(), QString());
        window.AddControlButton(100000, QString(), QString());
        QCOMPARE(window.GetControlButtons()[2]->geometry(), QRect(797, 171, 63, 94));
        QCOMPARE(window.GetControlButtons()[5]->y(), 393);
        QCOMPARE(window.GetControlButtons().size(), 6);
    }

    void buttonsOfAnotherLookGetTheSameSize()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.AddControlButton(0, QString(), QStringLiteral("NewGreenButton"),
                                QStringLiteral("NewGreenButtonSelected"), QStringLiteral("NewDisabledButton"),
                                QString());
        window.ShowWindow(false);
        QCOMPARE(window.GetControlButtons()[0]->size(), QSize(63, 94));
    }

    void okAndCancelStandInTheLowerRightCorner()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.ShowWindow(false);
        window.GetOkButton()->setFixedSize(80, 60);
        window.GetCancelButton()->setFixedSize(70, 50);
        window.GetOkButton()->show();
        window.GetCancelButton()->show();
        window.RepositionButtons();
        QCOMPARE(window.Place(window.GetOkButton()), QPoint(780, 400 - 60 - 15));
        QCOMPARE(window.Place(window.GetCancelButton()), QPoint(710, 400 - 50 - 15));
        window.GetOkButton()->hide();
        window.HideWindow();
        window.ShowWindow(false);
        QCOMPARE(window.Place(window.GetCancelButton()), QPoint(790, 335));
        window.setFixedSize(500, 300);
        QCOMPARE(window.Place(window.GetCancelButton()), QPoint(430, 235));
    }

    void theCancelButtonHasTheSmallCross()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.GetCancelButton()->setFixedSize(60, 57);
        window.GetCancelButton()->show();
        window.ShowWindow(false);
        TPushButton like(nullptr, QStringLiteral("icon-cross"), QStringLiteral("NewStandardButton"),
                         QStringLiteral("NewStandardButtonSelected"), -1, QString());
        like.setFixedSize(60, 57);
        auto const picture = [](TPushButton& button)
        {
            QImage image(button.size(), QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            button.render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
            return image;
        };
        like.SetBackgroundDisabled(QStringLiteral("NewDisabledButton"));
        QVERIFY(picture(*window.GetCancelButton()) == picture(like));
        TProbe other(stage.canvas);
        other.GetCancelButton()->setFixedSize(60, 57);
        QVERIFY(picture(*other.GetCancelButton()) != picture(like));
    }

    void theTitleStandsInItsLine()
    {
        TScreenStage stage;
        TProbe window(stage.canvas);
        window.ShowWindow(false);
        auto const picture = [&] { return window.grab().toImage(); };
        QImage const bare = picture();
        window.SetTitle(QString(3000, QLatin1Char('W')));
        QImage const titled = picture();
        QVERIFY(titled.copy(38, 0, 822, 46) != bare.copy(38, 0, 822, 46));
        QVERIFY(titled.copy(0, 0, 38, 46) == bare.copy(0, 0, 38, 46));
        QVERIFY(titled.copy(0, 46, 860, 354) == bare.copy(0, 46, 860, 354));
    }

    void aSetupWindowMayEndInItsOwnSignals()
    {
        TScreenStage stage;
        QPointer<TProbe> const shown = new TProbe(stage.canvas);
        connect(shown, &TWindow::WindowShown, this, [shown] { delete shown; });
        shown->ShowWindow(true);
        QVERIFY(!shown);
        QPointer<TProbe> const pressed = new TProbe(stage.canvas);
        pressed->AddControlButton(0, QString(), QString());
        pressed->ShowWindow(true);
        stage.Lock(pressed, KVN::MODAL_LOCAL);
        connect(pressed->GetControlButtons()[0], &TPushButton::Clicked, this, [pressed] { delete pressed; });
        QPoint const place = pressed->GetControlButtons()[0]->mapTo(stage.screen.get(), QPoint(30, 40));
        stage.screen->RemoveLockingWidget(pressed);
        TFinger(stage.screen.get()).Touch(place);
        QVERIFY(!pressed);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aSetupWindowLooksLikeThis()
    {
        TScreenStage stage;
        stage.canvas->SetBackgroundColor(QColor(30, 60, 90));
        TProbe window(stage.canvas);
        window.SetTitle(QStringLiteral("Boom"));
        window.AddControlButton(0, QStringLiteral("icon-up"), QString());
        window.AddControlButton(1, QStringLiteral("icon-down"), QString());
        window.GetCancelButton()->setFixedSize(63, 57);
        window.GetCancelButton()->show();
        window.ShowWindow(false);
        COMPARE_PICTURE(stage.screen->grab(window.geometry()).toImage(), "setup-window");
    }
};

COMMONUI_TEST(TSetupWindowTest)
#include "TSetupWindowTest.moc"
