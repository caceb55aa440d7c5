#include "TScreen.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TCameraXVOverlayManager.h"
#include "TestCase.h"
#include "TExternalDrive.h"
#include "TFileHash.h"
#include "TFullWindow.h"
#include "TKeyboard.h"
#include "TMMICapableWidgetNavigator.h"
#include "TObstructionManager.h"
#include "TScreenStage.h"

#include <QMetaMethod>
#include <QSettings>
#include <QSignalSpy>
#include <QThread>

namespace
{
KVN::MorvaneID ModuleId()
{
    return KVN::MorvaneID(QUuid(QStringLiteral("{0d5f24ce-3b1c-4ef4-8c4f-6f1b8d7f3a10}")));
}

bool SamePicture(KVN::PixmapManager* pixmaps, QString const& name, QString const& file)
{
    return pixmaps->GetPixmap(name)->toImage() ==
           QPixmap(QStringLiteral(":/Images/Resources/") + file).toImage();
}

// What a dying child finds of the screen.
class TLastWitness : public QWidget
{
public:
    TLastWitness(TScreen* screen, QStringList* log)
        : QWidget(screen)
        , m_Log(log)
    {
    }
    ~TLastWitness() override
    {
        *m_Log << (MainScreen ? QStringLiteral("screen found") : QStringLiteral("no screen"));
        *m_Log << (tscreenPixmapManager() ? QStringLiteral("art found") : QStringLiteral("no art"));
    }

private:
    QStringList* m_Log;
};

class TMuteScreen : public TScreen
{
public:
    TSoundServer* GetSoundServerPtr() const override { return nullptr; }
};

class TEntered : public QWidget, public KVN::MMICapableWidget
{
public:
    explicit TEntered(QWidget* parent)
        : QWidget(parent)
    {
        show();
    }
    bool OnMMIBack() override
    {
        ++m_Asked;
        return true;
    }

    int m_Asked = 0;
};

// The branding of a console with the picture "owner.png" and the lines of its settings.
struct TBranding
{
    explicit TBranding(TTestInternalDrive const& drive)
        : file(drive.Path() + QLatin1String(TSystemSettings::BrandingFolder) + QStringLiteral("/owner.png"))
        , settings(drive.Path() + QStringLiteral("Console.ini"))
    {
        QDir().mkpath(QFileInfo(file).path());
        QPixmap picture(90, 50);
        picture.fill(Qt::green);
        picture.save(file);
        key = QString::fromLatin1(TFileHash::CalculateFileSaltedSHA1(file).toHex());
    }

    void Write(QString const& name, QString const& keyInFile) const
    {
        QSettings console(settings, QSettings::IniFormat);
        console.setValue(QStringLiteral("Branding/SplashScreen"), name);
        console.setValue(QStringLiteral("Branding/SplashScreenKey"), keyInFile);
    }

    QString file;
    QString settings;
    QString key;
};
} // namespace

class TScreenTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isOneFramelessWindowOfTheScreensSize()
    {
        TTestScreen screen(false);
        QVERIFY(screen->isWindow());
        QCOMPARE(screen->windowType(), Qt::Window);
        QVERIFY(screen->windowFlags().testFlag(Qt::FramelessWindowHint));
        QCOMPARE(screen->size(), QSize(1024, 768));
        QVERIFY(!screen->IsExternal());
        QCOMPARE(screen->GetTopLevelWidgetFor(nullptr), static_cast<QWidget*>(screen.get()));
        QCOMPARE(screen->GetUsableRect(), QRect(0, 0, 1024, 768));
        QCOMPARE(screen->GetSystemToolBarWidth(), 0);
        QCOMPARE(screen->GetSystemToolBarHeight(), 0);
        QCOMPARE(screen->GetSystemToolBarWidthWithoutVisibilityCheck(), 0);
        QCOMPARE(screen->GetSystemToolBarHeightWithoutVisibilityCheck(), 0);
    }

    void theHostAloneMakesAScreenTheMainScreen()
    {
        QVERIFY(!MainScreen);
        QCOMPARE(GetMainScreen(), &MainScreen);
        TScreen screen;
        QVERIFY(!MainScreen);
        QVERIFY(!tscreenPixmapManager());
        MainScreen = &screen;
        QCOMPARE(tscreenPixmapManager(), screen.GetPixmapManager());
        MainScreen = nullptr;
    }

    void theSignalsStandInTheirOrder()
    {
        QByteArrayList names;
        QMetaObject const& screen = TScreen::staticMetaObject;
        for (int i = screen.methodOffset(); i < screen.methodCount(); ++i)
        {
            if (screen.method(i).methodType() == QMetaMethod::Signal)
                names << screen.method(i).methodSignature();
        }
        QCOMPARE(names, (QByteArrayList{"WorkerThreadTimer200msTimeout()", "NotifyScreenLock(bool)",
                                        "RequestShutdown(int)", "GuideStateChanged()",
                                        "SystemToolbarGeometryChanged()", "OffscreenButtonsShown()",
                                        "OffscreenButtonsHidden()", "LayersChecked()"}));
    }

    void itsChildrenAreBuiltInTheirOrder()
    {
        TScreen screen;
        QObjectList const children = screen.children();
        QVERIFY(children.size() >= 4);
        QCOMPARE(children[0], screen.GetNavigationBar());
        QCOMPARE(children[1], screen.GetSpecialNavigationBar());
        QCOMPARE(children[2], screen.GetWindowManager());
        QCOMPARE(children[3], screen.GetModalWidget());
    }

    void theBarsWaitAtTheLeftEdge()
    {
        TTestScreen screen;
        TNavigationBar* const bar = screen->GetNavigationBar();
        QCOMPARE(bar->pos(), QPoint(0, 0));
        QCOMPARE(bar->minimumWidth(), 67);
        QCOMPARE(bar->maximumWidth(), 67);
        QVERIFY(bar->isHidden());
        QVERIFY(!screen->IsNavigationBarVisible());
        TNavigationBar* const special = screen->GetSpecialNavigationBar();
        QCOMPARE(special->minimumWidth(), 67);
        QCOMPARE(special->maximumWidth(), 67);
        QVERIFY(special->isHidden());
        QCOMPARE(special->GetButtonOffset(), 7);
        QVERIFY(!screen->GetNavigationWindow());
    }

    void theKeyboardWaitsHiddenFromSetupOn()
    {
        {
            TSilentScreen unfinished;
            QVERIFY(!unfinished.GetKeyboard());
        }
        TTestScreen screen;
        TKeyboard* const keyboard = screen->GetKeyboard();
        QVERIFY(keyboard);
        QVERIFY(keyboard->isHidden());
        QVERIFY(!keyboard->parentWidget());
        keyboard->ShowWindow(false);
        QVERIFY(keyboard->isVisible());
        QCOMPARE(keyboard->window(), screen.get());
        QVERIFY(screen->GetLockingWidgets().isEmpty());
    }

    void theKeyboardGoesWithTheScreen()
    {
        for (bool const shown : {false, true})
        {
            QPointer<QWidget> keyboard;
            {
                TTestScreen screen;
                keyboard = screen->GetKeyboard();
                if (shown)
                    screen->GetKeyboard()->ShowWindow(false);
            }
            QVERIFY(!keyboard);
        }
    }

    void aBorrowerMayTakeTheKeyboardAlong()
    {
        TTestScreen screen;
        {
            QWidget borrower(screen.get());
            screen->GetKeyboard()->setParent(&borrower);
        }
        QVERIFY(!screen->GetKeyboard());
    }

    void onlyTheMainBarTakesRoom()
    {
        TTestScreen screen;
        TObstructionManager const* const obstructions = screen->GetObstructionManager();
        QCOMPARE(obstructions->GetObstructionCount(), 1);
        QVERIFY(obstructions->GetObstructionData().isEmpty());
        screen->GetSpecialNavigationBar()->show();
        screen->GetNavigationBar()->show();
        QVERIFY(screen->IsNavigationBarVisible());
        QList<TObstructionData> const data = obstructions->GetObstructionData();
        QCOMPARE(data.size(), 1);
        QCOMPARE(data[0].side, OBSTRUCTION_LEFT);
        QCOMPARE(data[0].left, 0);
        QCOMPARE(data[0].right, 66);
    }

    void theFadeIsAsLargeAsTheScreenAndHidden()
    {
        TTestScreen screen;
        QCOMPARE(screen->GetModalWidget()->geometry(), QRect(0, 0, 1024, 768));
        QCOMPARE(screen->GetModalWidget()->minimumSize(), QSize(1024, 768));
        QVERIFY(screen->GetModalWidget()->isHidden());
    }

    void theSoundServerRunsOnAThreadOfItsOwn()
    {
        TTestInternalDrive drive;
        auto* const screen = new TScreen;
        QPointer<TSoundServer> const server = screen->GetSoundServerPtr();
        QVERIFY(server);
        QVERIFY(!server->parent());
        QVERIFY(server->thread() != QThread::currentThread());
        QVERIFY(server->thread()->isRunning());
        QPointer<QThread> const thread = server->thread();
        delete screen;
        QVERIFY(!server);
        QVERIFY(!thread || thread->isFinished());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!thread);
    }

    void aDyingChildFindsNoScreen()
    {
        QStringList log;
        TTestInternalDrive drive;
        auto* const screen = new TScreen;
        MainScreen = screen;
        new TLastWitness(screen, &log);
        delete screen;
        QCOMPARE(log, (QStringList{QStringLiteral("no screen"), QStringLiteral("no art")}));
        QVERIFY(!MainScreen);
    }

    void theMainScreenOfAnotherHostStays()
    {
        TTestScreen screen;
        delete new TScreen;
        QCOMPARE(MainScreen, static_cast<TScreen*>(screen.get()));
    }

    void screensComeAndGoInOneProcess()
    {
        for (int i = 0; i < 5; ++i)
        {
            TScreenStage stage;
            TWindow* const window = stage.Window();
            stage.Lock(window, KVN::MODAL_GLOBAL);
            stage.Alarm();
            VERIFY_LAYERS(*stage.screen.get());
            QVERIFY(!stage.screen->grab().isNull());
        }
        QVERIFY(!MainScreen);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void theArtThatDependsOnTheBuildIsRegistered_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QRect>("stretch");
        QTest::addColumn<bool>("scaleWhole");
        QRect const whole;
        QRect const menu(QPoint(28, 17), QPoint(102, 66));
        QRect const frame(QPoint(8, 38), QPoint(306, 306));
        QRect const splash(QPoint(336, 1), QPoint(1022, 766));
        auto const row = [](char const* name, char const* file, QRect const& stretch, bool scaleWhole = false)
        { QTest::newRow(name) << name << file << stretch << scaleWhole; };
        row("MenuButtonFlatSmall", "MenuButtonFlatSmall.png", menu);
        row("MenuButtonFlatSelectedSmall", "MenuButtonFlatSelectedSmall.png", menu);
        row("SplashScreen", "SplashScreen1024x768.png", splash, true);
        row("bkgControllers800x600", "bkgControllers1024x768.png", whole);
        row("bkgSysInfo480x272", "bkgSysInfo1024x768.png", whole);
        row("bkgUSBGeneric480x272", "bkgUSBGeneric1024x768.png", whole);
        row("bkgBlackGeneric480x272", "bkgBlackGeneric1024x768.png", whole);
        row("bkgDiagnostics800x600", "bkgDiagnostics1024x768.png", whole);
        row("TaskWindowNoShadow", "TaskWindow.png", frame);
        row("TaskWindowNoTitlebarNoShadow", "TaskWindowNoTitlebar.png", frame);
        row("TaskWindowUSBNoShadow", "TaskWindowUSB.png", frame);
        row("SetupScreenBackgroundTop480x272", "SetupScreenBackgroundFlat1024x768.png", whole);
        row("SetupScreenBackgroundBottom480x272", "SetupScreenBackgroundFlat1024x768.png", whole);
        row("SetupScreenBackgroundDark800x600", "SetupScreenBackgroundFlat1024x768.png", whole);
    }

    void theArtThatDependsOnTheBuildIsRegistered()
    {
        QFETCH(QString, name);
        QFETCH(QString, file);
        QFETCH(QRect, stretch);
        QFETCH(bool, scaleWhole);
        TTestScreen screen(false);
        KVN::PixmapManager* const pixmaps = screen->GetPixmapManager();
        QVERIFY(SamePicture(pixmaps, name, file));
        KVN::PixmapManager reference;
        bool const isWhole = stretch.isNull();
        reference.AddPixmap(name, QStringLiteral(":/Images/Resources/") + file, isWhole ? 0 : stretch.left(),
                            isWhole ? 0 : stretch.top(), isWhole ? 0 : stretch.right(),
                            isWhole ? 0 : stretch.bottom(), scaleWhole, 1.0F);
        QSize const natural = reference.GetPixmap(name)->size();
        for (QSize const& size : {natural * 5 / 4, natural * 3 / 4})
        {
            QCOMPARE(pixmaps->GetResizedPixmap(name, size.width(), size.height())->toImage(),
                     reference.GetResizedPixmap(name, size.width(), size.height())->toImage());
        }
    }

    void aBrandedSplashNeedsItsKey_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("shown");
        QTest::newRow("the right key") << "owner.png"
                                       << "KEY" << true;
        QTest::newRow("the right key in capitals") << "owner.png"
                                                   << "CAPITALS" << true;
        QTest::newRow("no name") << ""
                                 << "KEY" << false;
        QTest::newRow("no such file") << "other.png"
                                      << "KEY" << false;
        QTest::newRow("no key") << "owner.png"
                                << "" << false;
        QTest::newRow("the key of another file") << "owner.png" << QString(40, QLatin1Char('a')) << false;
        QTest::newRow("a key with a space") << "owner.png"
                                            << "KEY " << false;
        QTest::newRow("the folder itself") << "."
                                           << "" << false;
    }

    void aBrandedSplashNeedsItsKey()
    {
        QFETCH(QString, file);
        QFETCH(QString, key);
        QFETCH(bool, shown);
        TTestScreen screen(false);
        TBranding const branding(screen.m_Drive);
        key.replace(QLatin1String("KEY"), branding.key);
        key.replace(QLatin1String("CAPITALS"), branding.key.toUpper());
        branding.Write(file, key);
        screen->PopulatePixmapManager();
        QCOMPARE(screen->GetPixmapManager()->GetPixmap(PixmapNames::SplashScreen)->size(),
                 shown ? QSize(90, 50) : QSize(1024, 768));
    }

    void aTamperedSplashIsNotShown()
    {
        TTestScreen screen(false);
        TBranding const branding(screen.m_Drive);
        branding.Write(QStringLiteral("owner.png"), branding.key);
        QFile file(branding.file);
        QVERIFY(file.open(QIODevice::Append));
        file.write("x");
        file.close();
        screen->PopulatePixmapManager();
        QVERIFY(SamePicture(screen->GetPixmapManager(), PixmapNames::SplashScreen,
                            QStringLiteral("SplashScreen1024x768.png")));
    }

    void aCanvasGoesToTheBottomAndTheBarsAboveIt()
    {
        TTestScreen screen;
        auto* const other = new QWidget(screen.get());
        other->show();
        auto* const canvas = new TCanvas(screen.get());
        screen->SetCurrentCanvas(canvas, true);
        QCOMPARE(screen->GetCurrentCanvas(), canvas);
        QVERIFY(canvas->isVisible());
        TScreenLayers const layers(*screen.get());
        QCOMPARE(layers.Layer(canvas), 0);
        QVERIFY(layers.IsAbove(screen->GetNavigationBar(), other));
        QVERIFY(layers.IsDirectlyAbove(screen->GetSpecialNavigationBar(), screen->GetNavigationBar()));
        VERIFY_LAYERS(*screen.get());
    }

    void aCanvasOfItsOwnKindTakesTheWholeScreen()
    {
        TScreenStage stage;
        TWindow* const alarm = stage.Alarm();
        TWindow* const later = stage.RaisedWindow();
        auto* const setup = new TCanvas(stage.screen.get());
        stage.screen->SetCurrentCanvas(setup, false);
        QVERIFY(setup->isVisible());
        QVERIFY(stage.canvas->isHidden());
        QVERIFY(!stage.screen->IsNavigationBarVisible());
        QVERIFY(stage.screen->GetSpecialNavigationBar()->isHidden());
        QCOMPARE(stage.Layers().Layer(setup), 0);
        QVERIFY(stage.Layers().IsAbove(later, alarm));
        stage.screen->SetCurrentCanvas(stage.canvas, true);
        QVERIFY(stage.screen->IsNavigationBarVisible());
        QVERIFY(setup->isHidden());
        QVERIFY(stage.Layers().IsAbove(alarm, later));
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aNullCanvasChangesNothing()
    {
        TScreenStage stage;
        TWindow* const alarm = stage.Alarm();
        TWindow* const later = stage.RaisedWindow();
        for (bool const showBars : {true, false})
        {
            stage.screen->SetCurrentCanvas(nullptr, showBars);
            QCOMPARE(stage.screen->GetCurrentCanvas(), stage.canvas);
            QVERIFY(stage.canvas->isVisible());
            QVERIFY(stage.screen->IsNavigationBarVisible());
            QVERIFY(stage.Layers().IsAbove(later, alarm));
        }
    }

    void aCanvasFromElsewhereBecomesTheScreens()
    {
        TScreenStage stage;
        auto* const canvas = new TCanvas(nullptr);
        canvas->move(50, 60);
        stage.screen->SetCurrentCanvas(canvas, true);
        QCOMPARE(canvas->parentWidget(), static_cast<QWidget*>(stage.screen.get()));
        QCOMPARE(canvas->geometry(), stage.screen->rect());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theSameCanvasAgainStaysShown()
    {
        TScreenStage stage;
        QSignalSpy hidden(stage.canvas, &TCanvas::OnHide);
        stage.screen->SetCurrentCanvas(stage.canvas, true);
        QCOMPARE(hidden.count(), 1);
        QVERIFY(stage.canvas->isVisible());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aDeletedCanvasIsForgotten()
    {
        TScreenStage stage;
        delete stage.canvas;
        QVERIFY(!stage.screen->GetCurrentCanvas());
        auto* const next = new TCanvas(stage.screen.get());
        stage.screen->SetCurrentCanvas(next, true);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aCanvasThatGoesMayTakeTheNextOneWithIt()
    {
        TScreenStage stage;
        auto* const next = new TCanvas(stage.screen.get());
        connect(stage.canvas, &TCanvas::OnHide, next, [next] { delete next; });
        stage.screen->SetCurrentCanvas(next, true);
        QVERIFY(stage.canvas->isHidden());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aCanvasThatGoesMayDeleteItself()
    {
        TScreenStage stage;
        TCanvas* const old = stage.canvas;
        auto* const next = new TCanvas(stage.screen.get());
        connect(old, &TCanvas::OnHide, this, [old] { old->deleteLater(); });
        stage.screen->SetCurrentCanvas(next, true);
        QCoreApplication::sendPostedEvents(old, QEvent::DeferredDelete);
        QCOMPARE(stage.screen->GetCurrentCanvas(), next);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theAlarmWaitsInTheMiddleOfTheUpperEdge_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("x");
        QTest::newRow("even") << 616 << 204;
        QTest::newRow("odd, halved downwards") << 617 << 204;
        QTest::newRow("wider than the screen") << 1101 << -38;
    }

    void theAlarmWaitsInTheMiddleOfTheUpperEdge()
    {
        QFETCH(int, width);
        QFETCH(int, x);
        TTestScreen screen;
        TWindow alarm(nullptr);
        alarm.setFixedSize(width, 80);
        QSignalSpy hidden(&alarm, &TWindow::WindowHidden);
        screen->SetAlarmWidget(&alarm);
        QCOMPARE(screen->GetAlarmWidget(), &alarm);
        QCOMPARE(hidden.count(), 1);
        QVERIFY(alarm.isHidden());
        QVERIFY(!alarm.parentWidget());
        QCOMPARE(alarm.pos(), QPoint(x, -6));
        alarm.ShowWindow(false);
        QCOMPARE(alarm.parentWidget(), static_cast<QWidget*>(screen.get()));
        QCOMPARE(alarm.pos(), QPoint(x, -6));
        screen->SetAlarmWidget(nullptr);
        QVERIFY(!screen->GetAlarmWidget());
        QVERIFY(alarm.isVisible());
    }

    void aShownAlarmGoesDownWhenItIsHandedOver()
    {
        TTestScreen screen;
        TWindow alarm(nullptr);
        alarm.ShowWindow(false);
        screen->SetAlarmWidget(&alarm);
        QVERIFY(alarm.isHidden());
        QVERIFY(!alarm.parentWidget());
    }

    void anAlarmMayDieAtAnyTime()
    {
        TScreenStage stage;
        delete stage.Alarm();
        QVERIFY(!stage.screen->GetAlarmWidget());
        stage.screen->CheckToolbarsForLocking();
        auto* const hasty = new TWindow(nullptr);
        connect(hasty, &TWindow::WindowHidden, this, [hasty] { delete hasty; });
        stage.screen->SetAlarmWidget(hasty);
        QVERIFY(!stage.screen->GetAlarmWidget());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void whatIsRaisedStaysBelowTheFirstToolTip()
    {
        TScreenStage stage;
        QWidget* const low = stage.Window();
        QWidget* const high = stage.Window();
        stage.screen->RaiseToBelowTooltips(low);
        QVERIFY(stage.Layers().IsDirectlyAbove(low, high));
        TToolTip* const toolTip = stage.ToolTip();
        stage.screen->RaiseToBelowTooltips(high);
        QVERIFY(stage.Layers().IsDirectlyAbove(toolTip, high));
        QVERIFY(stage.Layers().IsDirectlyAbove(high, low));
        TToolTip* const second = stage.ToolTip();
        stage.screen->RaiseToBelowTooltips(low);
        QVERIFY(stage.Layers().IsDirectlyAbove(toolTip, low));
        QVERIFY(stage.Layers().IsAbove(toolTip, second));
    }

    void theBarsComeBackBelowAToolTip()
    {
        TScreenStage stage;
        stage.ToolTip();
        stage.screen->SetCurrentCanvas(stage.canvas, true);
        VERIFY_LAYERS(*stage.screen.get());
    }

    void aWindowComesOntoTheScreenBelowAlarmAndToolTip()
    {
        TScreenStage stage;
        TWindow* const first = stage.Window();
        TWindow* const second = stage.Window();
        QVERIFY(stage.Layers().IsDirectlyAbove(second, first));
        TToolTip* const toolTip = stage.ToolTip();
        TWindow* const third = stage.Window();
        QVERIFY(stage.Layers().IsDirectlyAbove(toolTip, third));
        TWindow* const alarm = stage.Alarm();
        QVERIFY(stage.Layers().IsDirectlyAbove(toolTip, alarm));
        TWindow* const fourth = stage.Window();
        QVERIFY(stage.Layers().IsDirectlyAbove(alarm, fourth));
        VERIFY_LAYERS(*stage.screen.get());
        first->ShowWindow(false);
        QVERIFY(stage.Layers().IsDirectlyAbove(second, first));
    }

    void withoutABarWhatIsRaisedKeepsItsPlace()
    {
        TScreenStage stage;
        QWidget* const low = stage.Window();
        QWidget* const high = stage.Window();
        stage.screen->RaiseToBelowSystemToolbar(low);
        stage.screen->UnLockSystemToolbar();
        QVERIFY(stage.Layers().IsAbove(high, low));
    }

    void whatIsRaisedBelowTheNavigationBarIsDirectlyBelowIt()
    {
        TScreenStage stage;
        QWidget* const window = stage.Window();
        TNavigationBar* const bar = stage.screen->GetNavigationBar();
        QVERIFY(stage.Layers().IsAbove(window, bar));
        stage.screen->RaiseToBelowNavigationBar(window);
        QVERIFY(stage.Layers().IsDirectlyAbove(bar, window));
        stage.canvas->stackUnder(window);
        stage.screen->RaiseToBelowNavigationBar(stage.canvas);
        QVERIFY(stage.Layers().IsDirectlyAbove(bar, stage.canvas));
    }

    void nothingIsRaisedForNull()
    {
        TScreenStage stage;
        QObjectList const before = stage.screen->children();
        stage.screen->RaiseToBelowTooltips(nullptr);
        stage.screen->RaiseToBelowAlarm(nullptr);
        stage.screen->RaiseToBelowSystemToolbar(nullptr);
        stage.screen->RaiseToBelowNavigationBar(nullptr);
        QCOMPARE(stage.screen->children(), before);
    }

    void everyFlyoutIsToldAndTheLastOnesEnd()
    {
        TTestScreen screen;
        QStringList notices;
        connect(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::FlyoutWindowVisible, this,
                [&](bool visible)
                { notices << (visible ? QStringLiteral("open") : QStringLiteral("closed")); });
        screen->OnFlyoutWindowOpened();
        screen->OnFlyoutWindowOpened();
        screen->OnFlyoutWindowClosed();
        QCOMPARE(notices, (QStringList{QStringLiteral("open")}));
        screen->OnFlyoutWindowClosed();
        QCOMPARE(notices, (QStringList{QStringLiteral("open"), QStringLiteral("closed")}));
    }

    void closingAFlyoutThatNeverOpenedStaysAtZero()
    {
        TTestScreen screen;
        QSignalSpy visible(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::FlyoutWindowVisible);
        // As if the manager knew of one that the screen does not count: the last closing always tells.
        screen->GetCameraOverlayManager()->ShowingFlyoutWindow();
        screen->OnFlyoutWindowClosed();
        QCOMPARE(visible.count(), 2);
        screen->OnFlyoutWindowClosed();
        screen->OnFlyoutWindowOpened();
        screen->OnFlyoutWindowClosed();
        QCOMPARE(visible.count(), 4);
        QCOMPARE(visible.constLast().at(0).toBool(), false);
    }

    void aSoundNeedsTheSettingTheScreenAndTheServer()
    {
        {
            TTestScreen screen;
            screen.m_Config.Write(CONFIG_SOUND_VOLUME, 35, false);
            screen.m_Config.Write(CONFIG_SOUND_ENABLED, false, false);
            tscreenPlaySound(SOUND_VIEW_CHANGE);
            QVERIFY(screen->m_Recorder.m_Sounds.isEmpty());
            screen.m_Config.Write(CONFIG_SOUND_ENABLED, true, false);
            tscreenPlaySound(SOUND_VIEW_CHANGE);
            QCOMPARE(screen->m_Recorder.m_Sounds, (QVector<int>{8}));
            QCOMPARE(screen->m_Recorder.m_Volumes, (QVector<int>{35}));
            QCOMPARE(screen->m_Recorder.m_Types, (QVector<int>{8}));
        }
        TTestConfig config;
        config.Write(CONFIG_SOUND_ENABLED, true, false);
        tscreenPlaySound(SOUND_VIEW_CHANGE);
        TTestInternalDrive drive;
        TMuteScreen mute;
        MainScreen = &mute;
        tscreenPlaySound(SOUND_VIEW_CHANGE);
    }

    void aScreenshotIsSavedOnTheStick()
    {
        TTestScreen screen;
        screen.m_Drives.Insert();
        screen.m_Config.Write(CONFIG_SOUND_ENABLED, false, false);
        screen.m_Config.Write(CONFIG_SOUND_VOLUME, 80, false);
        TLocalTime::SetCurrentDateTime(QDateTime(QDate(2024, 3, 9), QTime(14, 5, 7)));
        QStringList order;
        connect(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::NotifyScreenShot, this,
                [&](bool starting)
                {
                    order << (starting ? QStringLiteral("start") : QStringLiteral("finish"));
                    order << QString::number(screen->m_Recorder.m_Sounds.size());
                });
        screen->TakeScreenShot();
        TLocalTime::SetCurrentDateTime(QDateTime());
        QCOMPARE(order, (QStringList{QStringLiteral("start"), QStringLiteral("0"), QStringLiteral("finish"),
                                     QStringLiteral("1")}));
        QCOMPARE(screen->m_Recorder.m_Sounds, (QVector<int>{4}));
        QCOMPARE(screen->m_Recorder.m_Volumes, (QVector<int>{80}));
        QCOMPARE(screen->m_Recorder.m_Types, (QVector<int>{4}));
        QDir const folder(screen.m_Drives.StickPath() + QStringLiteral("/Screenshots"));
        QStringList const files = folder.entryList(QDir::Files);
        QCOMPARE(files.size(), 1);
        QVERIFY(files[0].startsWith(QLatin1String("2024-03-09-14-05-0")));
        QVERIFY(files[0].endsWith(QLatin1String(".png")));
        QImage const saved(folder.filePath(files[0]), "PNG");
        QCOMPARE(saved.convertToFormat(QImage::Format_RGB32),
                 screen->grab().toImage().convertToFormat(QImage::Format_RGB32));
    }

    void theFlashIsSeenAboveAllAndNotSaved()
    {
        TScreenStage stage;
        stage.Alarm();
        stage.screen.m_Drives.Insert();
        QWidget* flash = nullptr;
        QColor color;
        // The one chance to look: while the screen is drawn with its flash.
        QTimer::singleShot(0, this,
                           [&]
                           {
                               flash = qobject_cast<QWidget*>(stage.screen->children().constLast());
                               QVERIFY(flash->isVisible());
                               color = flash->palette().color(QPalette::Window);
                           });
        stage.screen->TakeScreenShot();
        QVERIFY(flash);
        QCOMPARE(flash->geometry(), stage.screen->rect());
        QCOMPARE(color, QColor(255, 255, 255, 96));
        QVERIFY(flash->isHidden());
        stage.RaisedWindow();
        stage.screen->TakeScreenShot();
        QCOMPARE(stage.screen->children().count(flash), 1);
        QCOMPARE(stage.screen->children().constLast(), flash);
    }

    void withoutAStickThereIsNoScreenshot()
    {
        TTestScreen screen;
        QSignalSpy shots(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::NotifyScreenShot);
        screen->TakeScreenShot();
        QVERIFY(shots.isEmpty());
        QVERIFY(screen->m_Recorder.m_Sounds.isEmpty());
    }

    void aScreenshotThatCannotBeSavedIsReported()
    {
        TTestUserLog log;
        TTestScreen screen;
        screen.m_Drives.Insert();
        QVERIFY(QDir(screen.m_Drives.StickPath()).removeRecursively());
        QSignalSpy shots(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::NotifyScreenShot);
        QSignalSpy failed(screen->GetExternalDrive(), &TExternalDrive::SaveFailed);
        screen->TakeScreenShot();
        QCOMPARE(shots.count(), 2);
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed[0][0].value<EDriveResult>(), DRIVE_GONE);
        QCOMPARE(log.Entries().size(), 1);
        TMuteScreen mute;
        mute.TakeScreenShot();
        QCOMPARE(log.Entries().size(), 2);
    }

    void aStickThatIsPulledDuringTheFlashTakesNoScreenshot()
    {
        TTestUserLog log;
        TTestScreen screen;
        screen.m_Drives.Insert();
        QSignalSpy failed(screen->GetExternalDrive(), &TExternalDrive::SaveFailed);
        QTimer::singleShot(0, this, [&] { screen.m_Drives.Pull(); });
        screen->TakeScreenShot();
        QCOMPARE(failed.count(), 1);
        QCOMPARE(failed[0][0].value<EDriveResult>(), DRIVE_GONE);
        // Its folder is there still, as that of a mount is on the internal drive.
        QVERIFY(QDir(screen.m_Drives.StickPath()).isEmpty());
    }

    void theScreenMayGoWhenItsScreenshotFails()
    {
        TTestUserLog log;
        TTestScreen screen;
        screen.m_Drives.Insert();
        QVERIFY(QDir(screen.m_Drives.StickPath()).removeRecursively());
        connect(screen->GetExternalDrive(), &TExternalDrive::SaveFailed, this, [&] { delete screen.get(); });
        screen->TakeScreenShot();
        QVERIFY(!screen.get());
    }

    void theScreenMayGoWhileItsFlashIsDrawn()
    {
        TTestScreen screen;
        screen.m_Drives.Insert();
        QTimer::singleShot(0, this, [&] { delete screen.get(); });
        screen->TakeScreenShot();
        QVERIFY(!screen.get());
    }

    void theScreenMayGoInTheNoticesOfAScreenshot_data()
    {
        QTest::addColumn<bool>("notice");
        QTest::newRow("start") << true;
        QTest::newRow("finish") << false;
    }

    void theScreenMayGoInTheNoticesOfAScreenshot()
    {
        QFETCH(bool, notice);
        TTestScreen screen;
        screen.m_Drives.Insert();
        connect(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::NotifyScreenShot, this,
                [&](bool starting)
                {
                    if (starting == notice)
                        delete screen.get();
                });
        screen->TakeScreenShot();
        QVERIFY(!screen.get());
    }

    void thereIsOneScreenshotAtATime()
    {
        TTestScreen screen;
        screen.m_Drives.Insert();
        QList<bool> notices;
        connect(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::NotifyScreenShot, this,
                [&](bool starting) { notices.append(starting); });
        // A second press, while the flash of the first is drawn.
        QTimer::singleShot(0, screen.get(), &TScreen::TakeScreenShot);
        screen->TakeScreenShot();
        QCOMPARE(notices, (QList<bool>{true, false}));
        QCOMPARE(screen->m_Recorder.m_Sounds.size(), 1);
        screen->TakeScreenShot();
        QCOMPARE(notices.size(), 4);
    }

    void aDelayedScreenshotIsTakenLater()
    {
        TTestScreen screen;
        screen.m_Drives.Insert();
        QSignalSpy shots(screen->GetCameraOverlayManager(), &TCameraXVOverlayManager::NotifyScreenShot);
        QElapsedTimer elapsed;
        elapsed.start();
        screen->DelayedScreenShot();
        QVERIFY(shots.isEmpty());
        QTRY_COMPARE(shots.count(), 2);
        // Coarse timers may come a twentieth early.
        QVERIFY(elapsed.elapsed() >= 95);
    }

    void anAutomationToolAsksForTheEnd()
    {
        TTestScreen screen;
        QSignalSpy requests(screen.get(), &TScreen::RequestShutdown);
        QVERIFY(QMetaObject::invokeMethod(screen.get(), "SquishRestart", Q_ARG(int, 17)));
        QCOMPARE(requests.count(), 1);
        QCOMPARE(requests[0][0].toInt(), 17);
    }

    void withBarsThereIsNoNavigationWindowToShow()
    {
        TTestScreen screen;
        QObjectList const before = screen->children();
        screen->OnNavigationWindow();
        QCOMPARE(screen->children(), before);
    }

    void theShortcutSwitchesToItsView()
    {
        TScreenStage stage;
        auto* const canvas = new TCanvas(stage.screen.get());
        auto* const window = stage.Keep(new TFullWindow(nullptr));
        int const id = stage.screen->AssignNavActionButton(ModuleId(), QString(), canvas, window, QString());
        stage.screen->OnNavShortcut();
        QCOMPARE(stage.screen->GetCurrentCanvas(), stage.canvas);
        stage.screen->SetNavShortcut(id);
        stage.screen->OnNavShortcut();
        QCOMPARE(stage.screen->GetCurrentCanvas(), canvas);
        QVERIFY(window->isVisible());
        VERIFY_LAYERS(*stage.screen.get());
    }

    void theConsoleStartsWithItsDefaultView()
    {
        TTestScreen screen;
        auto* const canvas = new TCanvas(screen.get());
        auto* const window = new TFullWindow(canvas);
        screen->SetDefaultView(ModuleId());
        screen->AssignNavActionButton(ModuleId(), QString(), canvas, window, QString());
        QVERIFY(!screen->GetCurrentCanvas());
        screen->DisplayStartupFullView();
        QCOMPARE(screen->GetCurrentCanvas(), canvas);
        QVERIFY(window->isVisible());
        VERIFY_LAYERS(*screen.get());
    }

    void theWheelFollowsTheHostsNavigator()
    {
        TTestScreen screen;
        screen->PushMMIWidget(nullptr);
        QVERIFY(!screen->GetMMINavigator());
        TEntered entered(screen.get());
        auto* const stop = new TEntered(&entered);
        auto navigator = std::make_unique<TMMICapableWidgetNavigator>(screen.get());
        screen->SetMMINavigator(navigator.get());
        QCOMPARE(screen->GetMMINavigator(), navigator.get());
        screen->PushMMIWidget(&entered);
        screen.m_Clock.Advance(100);
        navigator->OnWheelRight();
        navigator->UpdateFocus();
        QVERIFY(stop->isVisible());
        QVERIFY(navigator->OnBack());
        QCOMPARE(entered.m_Asked, 1);
        navigator.reset();
        QVERIFY(!screen->GetMMINavigator());
        screen->PushMMIWidget(&entered);
    }
};

COMMONUI_TEST(TScreenTest)
#include "TScreenTest.moc"
