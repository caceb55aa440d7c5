#include "TScrollArea.h"

#include "TestCase.h"
#include "TFinger.h"
#include "TPushButton.h"
#include "TShadowedLabel.h"
#include "TVerticalScrollBar.h"

#include <QBackingStore>
#include <QPointer>
#include <QSignalSpy>

namespace
{
constexpr QSize AreaSize(200, 300);
constexpr QSize HighPage(160, 1000);
constexpr QSize WidePage(1000, 250);
constexpr QPoint Middle(80, 150);

/// A stop of the wheel within a page.
class TStop : public QWidget, public KVN::MMICapableWidget
{
public:
    TStop(QWidget* parent, QRect const& place)
        : QWidget(parent)
    {
        setGeometry(place);
    }
};

/// A widget that notes the touches that come to it, and lets them go on.
class TListener : public QWidget
{
public:
    explicit TListener(QWidget* parent)
        : QWidget(parent)
    {
    }

    QVector<QEvent::Type> heard;

protected:
    void mousePressEvent(QMouseEvent* event) override { Note(event); }
    void mouseMoveEvent(QMouseEvent* event) override { Note(event); }
    void mouseReleaseEvent(QMouseEvent* event) override { Note(event); }

private:
    void Note(QMouseEvent* event)
    {
        heard.append(event->type());
        event->ignore();
    }
};

/// What stands in the window's backing store, as it was drawn step by step.
QImage Screen(QWidget& window)
{
    auto* const image = dynamic_cast<QImage*>(window.backingStore()->paintDevice());
    return image ? image->convertToFormat(QImage::Format_RGB32) : QImage();
}

/// A shown window with a scroll area and its page.
class TStage
{
public:
    explicit TStage(bool isVertical = true, bool framed = false)
        : vertical(isVertical)
        , area(new TScrollArea(&window, vertical, framed))
        , page(new TListener(nullptr))
    {
        window.resize(400, 400);
        area->setGeometry(QRect(QPoint(), AreaSize));
        page->resize(vertical ? HighPage : WidePage);
        area->setWidget(page);
        window.show();
        QCoreApplication::processEvents();
    }

    QScrollBar* Bar() const { return vertical ? area->verticalScrollBar() : area->horizontalScrollBar(); }
    /// Pixels by which the page stands off its beginning.
    int Shift() const { return vertical ? -page->y() : -page->x(); }
    /// A place that lies \a distance along the area's axis from its middle.
    QPoint At(int distance) const { return Middle + (vertical ? QPoint(0, distance) : QPoint(distance, 0)); }

    bool const vertical;
    QWidget window;
    QPointer<TScrollArea> area;
    QPointer<TListener> page;
};
} // namespace

class TScrollAreaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void verticalAreaHasTheBarOfTheLook();
    void horizontalAreaHasNoBar();
    void groundIsThatOfTheStyleSheet_data();
    void groundIsThatOfTheStyleSheet();
    void groundIsDrawnAsTheStyleWouldDrawIt_data();
    void groundIsDrawnAsTheStyleWouldDrawIt();
    void shadowedLabelsInItAreWhite();
    void marginOfTheBarIsPassedOn();

    void tapOfFortyPixelsDoesNotScroll_data();
    void tapOfFortyPixelsDoesNotScroll();
    void finishedDragLeavesNothingBehind();
    void moveAcrossTheAxisDoesNotScroll();
    void contentFollowsTheFingerBackBelowTheThreshold();
    void doubleClickIsAPressToo();
    void touchWithinTheThresholdReachesTheChildBelow();
    void dragFromAButtonIsNoClick();
    void dragStaysInTheArea();
    void pressIsRoundedToWholePixels();
    void pressOfAnotherWidgetIsTakenOver();
    void disabledScrollLeavesTheDragToOthers();

    void changeDuringAPressMovesNothingUntilTheThreshold();
    void changeDuringAPressShowsAfterTheLift();
    void limitsAreToldDuringADragOnly();
    void noLimitIsToldBelowTheThreshold();
    void onlyTheMaximumIsToldWhereBothLimitsMeet();
    void limitIsToldBeforeTheContentMoves();
    void scrollIsToldAfterTheContentMoved();

    void innerAreaTakesTheDrag();
    void innerAreaOfTheOtherAxisLeavesTheDrag();
    void innerAreaThatIsDisabledLeavesTheDrag();
    void slantedDragGoesToTheInnerArea();
    void eachBarTurnsItsOwnArea();
    void wheelTurnsTheAreaItOwns();

    void heightForWidthIsThatOfTheContent();

    void wheelTurnsTheHeight();
    void wheelTurnsTheWidthWhereTheHeightFits();
    void wheelTurnsNothingThatFits();
    void contentThatFitsIsNoStop_data();
    void contentThatFitsIsNoStop();
    void everyChildIsNavigatable();
    void selectedChildComesIntoSight();

    void areaHiddenUnderTheFingerScrollsAgain();
    void areaDisabledUnderTheFingerScrollsAgain();
    void pageDeletedUnderTheFinger();
    void liftBesideTheAreaIsMissedInNoNest();
    void liftAfterItsRowWasDeletedEndsTheDrag();
    void slotsMayDeleteTheArea_data();
    void slotsMayDeleteTheArea();
    void slotMayDeleteTheAreaAtTheLift();
    void slotMayDeleteTheAreaWhenItsPageShrinks();
    void shrunkPageIsTurnedAsBefore();
    void slotMayDeleteTheAreaWhenAChildComesIntoSight();
    void deletedWhilePressed();
};

void TScrollAreaTest::verticalAreaHasTheBarOfTheLook()
{
    TStage const stage;
    QCOMPARE(stage.area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(stage.area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(qobject_cast<TVerticalScrollBar*>(stage.area->verticalScrollBar()));
    QCOMPARE(stage.area->verticalScrollBar()->width(), 33);
    QCOMPARE(stage.area->viewport()->width(), AreaSize.width() - 33);
    QVERIFY(stage.area->verticalScrollBar()->isVisible());
    stage.page->resize(100, 300);
    QCoreApplication::processEvents();
    QVERIFY(!stage.area->verticalScrollBar()->isVisible());
}

void TScrollAreaTest::horizontalAreaHasNoBar()
{
    TStage const stage(false);
    QCOMPARE(stage.area->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(stage.area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(!qobject_cast<TVerticalScrollBar*>(stage.area->verticalScrollBar()));
    QCOMPARE(stage.area->viewport()->size(), AreaSize);
}

void TScrollAreaTest::groundIsThatOfTheStyleSheet_data()
{
    QTest::addColumn<bool>("framed");
    QTest::addColumn<QString>("styleSheet");
    QTest::addColumn<QRgb>("corner");
    QTest::addColumn<QRgb>("ground");
    QTest::newRow("framed")
        << true
        << "QScrollArea {  background-color: rgba(0, 0, 0, 50);  border: 2px solid rgba(90, 90, 90);  "
           "border-radius: 2px;}TShadowedLabel { color: white; }"
        << qRgb(90, 90, 90) << qRgb(205, 205, 205);
    QTest::newRow("plain")
        << false << "QScrollArea {  background-color: rgba(0, 0, 0, 0);}TShadowedLabel { color: white; }"
        << qRgb(255, 255, 255) << qRgb(255, 255, 255);
}

void TScrollAreaTest::groundIsThatOfTheStyleSheet()
{
    QFETCH(bool, framed);
    QFETCH(QString, styleSheet);
    QFETCH(QRgb, corner);
    QFETCH(QRgb, ground);
    TStage stage(true, framed);
    QCOMPARE(stage.area->styleSheet(), styleSheet);
    QVERIFY(!stage.area->autoFillBackground());
    QCOMPARE(stage.area->frameWidth(), framed ? 2 : 0);
    QPalette white;
    white.setColor(QPalette::Window, Qt::white);
    stage.window.setPalette(white);
    stage.window.setAutoFillBackground(true);
    // What a page without a ground of its own lets through.
    stage.page->setAutoFillBackground(false);
    QImage const picture = stage.window.grab().toImage();
    QCOMPARE(picture.pixel(0, 100), corner);
    QCOMPARE(picture.pixel(50, 100), ground);
}

namespace
{
/// Qt complains in the log of an alpha that is missing.
QString WellFormed(QString sheet)
{
    return sheet.replace(QLatin1String("rgba(90, 90, 90)"), QLatin1String("rgb(90, 90, 90)"));
}

/// A page with rows of a colour of their own, and else without a ground.
void FillPage(QWidget* page)
{
    for (int y = 0; y < page->height(); y += 60)
    {
        auto* const row = new QWidget(page);
        row->setGeometry(10, y, 90, 30);
        row->setAutoFillBackground(true);
        row->setPalette(QPalette(QColor::fromHsv(y % 360, 255, 200)));
        row->show();
    }
    page->setAutoFillBackground(false);
}
} // namespace

void TScrollAreaTest::groundIsDrawnAsTheStyleWouldDrawIt_data()
{
    QTest::addColumn<bool>("framed");
    QTest::addColumn<QString>("outerSheet");
    QTest::addColumn<QString>("ownSheet");
    for (bool const framed : {true, false})
    {
        char const* const kind = framed ? "framed" : "plain";
        QString const own = TScrollArea(nullptr, true, framed).styleSheet();
        QTest::addRow("%s", kind) << framed << QString() << own;
        QTest::addRow("%s in a plain one", kind)
            << framed << TScrollArea(nullptr, true, false).styleSheet() << own;
        QTest::addRow("%s in a framed one", kind)
            << framed << WellFormed(TScrollArea(nullptr, true, true).styleSheet()) << own;
        QTest::addRow("%s in a window with a sheet", kind)
            << framed << QStringLiteral("QScrollArea { border: 5px solid red; border-image: none; }") << own;
        QTest::addRow("%s with another sheet", kind)
            << framed << QString()
            << QStringLiteral(
                   "QScrollArea { background-color: rgba(0, 255, 0, 80); border: 3px solid blue; }");
        QTest::addRow("%s without a sheet", kind) << framed << QString() << QString();
    }
}

// Whole, and step by step where only a part is drawn.
void TScrollAreaTest::groundIsDrawnAsTheStyleWouldDrawIt()
{
    QFETCH(bool, framed);
    QFETCH(QString, outerSheet);
    QFETCH(QString, ownSheet);
    QWidget window;
    window.setPalette(QPalette(QColor(200, 180, 90)));
    window.setStyleSheet(outerSheet);
    window.resize(300, 300);
    auto* const area = new TScrollArea(&window, true, framed);
    auto* const stock = new QScrollArea(&window);
    stock->setFrameStyle(area->frameStyle());
    stock->setVerticalScrollBar(new TVerticalScrollBar(stock, 0, 0, 0, 33));
    stock->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setStyleSheet(ownSheet);
    stock->setStyleSheet(
        QString(ownSheet).replace(QLatin1String("rgba(90, 90, 90)"), QLatin1String("rgb(90, 90, 90)")));
    for (QScrollArea* const either : {static_cast<QScrollArea*>(area), stock})
    {
        either->setGeometry(20, 20, 200, 250);
        auto* const page = new QWidget;
        page->resize(150, 900);
        FillPage(page);
        either->setWidget(page);
        either->setAutoFillBackground(false);
    }
    window.show();
    QImage pictures[2];
    for (int const step : {0, 10, 10, 300})
    {
        for (int i = 0; i < 2; ++i)
        {
            stock->setVisible(i == 1);
            area->setVisible(i == 0);
            QScrollArea* const shown = i == 1 ? stock : area;
            QCoreApplication::processEvents();
            shown->verticalScrollBar()->setValue(shown->verticalScrollBar()->value() + step);
            QCoreApplication::processEvents();
            pictures[i] = Screen(window);
        }
        QVERIFY(!pictures[0].isNull());
        QCOMPARE(pictures[0], pictures[1]);
    }
}

void TScrollAreaTest::shadowedLabelsInItAreWhite()
{
    TStage const stage;
    TShadowedLabel label(stage.page, FIT_NONE);
    label.show();
    QCOMPARE(label.palette().color(label.foregroundRole()), QColor(Qt::white));
}

void TScrollAreaTest::marginOfTheBarIsPassedOn()
{
    TStage stage;
    auto* const bar = qobject_cast<TVerticalScrollBar*>(stage.Bar());
    stage.Bar()->setValue(stage.Bar()->maximum());
    QCOMPARE(bar->GetBottomOfSlider(), 300);
    stage.area->SetBottomScrollBarMargin(70);
    QCOMPARE(bar->GetBottomOfSlider(), 230);
    TStage const horizontal(false);
    horizontal.area->SetBottomScrollBarMargin(70);
    QCOMPARE(horizontal.area->viewport()->size(), AreaSize);
}

void TScrollAreaTest::tapOfFortyPixelsDoesNotScroll_data()
{
    QTest::addColumn<bool>("vertical");
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("shift");
    for (bool const vertical : {true, false})
    {
        char const* const axis = vertical ? "height" : "width";
        QTest::addRow("%s, 40 back", axis) << vertical << -40 << 0;
        QTest::addRow("%s, 41 back", axis) << vertical << -41 << 41;
        QTest::addRow("%s, 40 on", axis) << vertical << 40 << 0;
        QTest::addRow("%s, 41 on", axis) << vertical << 41 << -41;
    }
}

void TScrollAreaTest::tapOfFortyPixelsDoesNotScroll()
{
    QFETCH(bool, vertical);
    QFETCH(int, distance);
    QFETCH(int, shift);
    TStage stage(vertical);
    stage.Bar()->setValue(200);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(distance / 2));
    finger.Move(stage.At(distance));
    QCOMPARE(stage.Bar()->value(), 200 + shift);
    QCOMPARE(stage.Shift(), 200 + shift);
    finger.Lift();
    QCOMPARE(stage.Shift(), 200 + shift);
}

void TScrollAreaTest::finishedDragLeavesNothingBehind()
{
    TStage stage;
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-100));
    finger.Lift();
    finger.Move(stage.At(60));
    QCOMPARE(stage.Shift(), 100);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-40));
    QCOMPARE(stage.Shift(), 100);
    finger.Lift();
    stage.Bar()->setValue(20);
    QCOMPARE(stage.Shift(), 20);
}

void TScrollAreaTest::moveAcrossTheAxisDoesNotScroll()
{
    for (bool const vertical : {true, false})
    {
        TStage stage(vertical);
        QPoint const across = vertical ? QPoint(-70, 10) : QPoint(10, -100);
        TFinger finger(&stage.window);
        finger.Press(Middle);
        finger.Move(Middle + across);
        QCOMPARE(stage.Shift(), 0);
    }
}

void TScrollAreaTest::contentFollowsTheFingerBackBelowTheThreshold()
{
    TStage stage;
    stage.Bar()->setValue(300);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-41));
    finger.Move(stage.At(-5));
    QCOMPARE(stage.Shift(), 305);
    finger.Move(stage.At(100));
    QCOMPARE(stage.Shift(), 200);
}

void TScrollAreaTest::doubleClickIsAPressToo()
{
    TStage stage;
    TFinger finger(&stage.window);
    finger.Touch(stage.At(0));
    QMouseEvent doubleClick(QEvent::MouseButtonDblClick, stage.At(0), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(stage.area->viewport(), &doubleClick);
    QMouseEvent move(QEvent::MouseMove, stage.At(-60), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(stage.area->viewport(), &move);
    QCOMPARE(stage.Shift(), 60);
}

void TScrollAreaTest::touchWithinTheThresholdReachesTheChildBelow()
{
    TStage stage;
    auto* const button = new TPushButton(stage.page, 7, QString());
    button->setGeometry(20, 100, 120, 100);
    button->show();
    QSignalSpy const clicks(button, &TPushButton::Clicked);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-40));
    finger.Lift();
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(stage.page->heard, QVector<QEvent::Type>({QEvent::MouseButtonPress, QEvent::MouseMove,
                                                       QEvent::MouseButtonRelease}));
}

void TScrollAreaTest::dragFromAButtonIsNoClick()
{
    TStage stage;
    auto* const button = new TPushButton(stage.page, 7, QString());
    button->setGeometry(20, 100, 120, 100);
    button->show();
    QSignalSpy const clicks(button, &TPushButton::Clicked);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-41));
    finger.Lift();
    QCOMPARE(stage.Shift(), 41);
    QCOMPARE(clicks.count(), 0);
    QVERIFY(!button->isDown());
}

void TScrollAreaTest::dragStaysInTheArea()
{
    TStage stage;
    TListener behind(&stage.window);
    behind.setGeometry(0, 0, 400, 400);
    behind.show();
    stage.area->setParent(&behind);
    stage.area->show();
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-30));
    QCOMPARE(behind.heard, QVector<QEvent::Type>({QEvent::MouseButtonPress, QEvent::MouseMove}));
    finger.Move(stage.At(-60));
    finger.Move(stage.At(-70));
    QCOMPARE(behind.heard.size(), 2);
    finger.Lift();
    QCOMPARE(behind.heard.constLast(), QEvent::MouseButtonRelease);
}

void TScrollAreaTest::pressIsRoundedToWholePixels()
{
    TStage stage;
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(50, 100.5), Qt::LeftButton, Qt::LeftButton, {});
    stage.area->HandlePress(&press);
    QMouseEvent move(QEvent::MouseMove, QPointF(50, 49.4), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(stage.area->viewport(), &move);
    QCOMPARE(stage.Shift(), 101 - 49);
    stage.area->HandlePress(nullptr);
    QCOMPARE(stage.Shift(), 101 - 49);
}

void TScrollAreaTest::pressOfAnotherWidgetIsTakenOver()
{
    TStage stage;
    stage.Bar()->setValue(100);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(50, 100), Qt::LeftButton, Qt::LeftButton, {});
    stage.area->HandlePress(&press);
    stage.Bar()->setValue(130);
    QCOMPARE(stage.Shift(), 100);
    QMouseEvent move(QEvent::MouseMove, QPointF(50, 50), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(stage.area->viewport(), &move);
    QCOMPARE(stage.Shift(), 150);
}

void TScrollAreaTest::disabledScrollLeavesTheDragToOthers()
{
    TStage stage;
    stage.area->DisableScroll(true);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-100));
    QCOMPARE(stage.Shift(), 0);
    finger.Lift();
    stage.Bar()->setValue(30);
    QCOMPARE(stage.Shift(), 30);
    stage.area->DisableScroll(false);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-100));
    QCOMPARE(stage.Shift(), 130);
}

void TScrollAreaTest::changeDuringAPressMovesNothingUntilTheThreshold()
{
    TStage stage;
    QSignalSpy const scrolls(stage.area.data(), &TScrollArea::Scroll);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-10));
    stage.Bar()->setValue(250);
    QCOMPARE(stage.Bar()->value(), 250);
    QCOMPARE(stage.Shift(), 0);
    QCOMPARE(scrolls.count(), 0);
    finger.Move(stage.At(-41));
    QCOMPARE(stage.Shift(), 41);
    QCOMPARE(scrolls.count(), 1);
}

void TScrollAreaTest::changeDuringAPressShowsAfterTheLift()
{
    TStage stage;
    QSignalSpy const scrolls(stage.area.data(), &TScrollArea::Scroll);
    TFinger finger(&stage.window);
    finger.Touch(stage.At(0));
    QCOMPARE(scrolls.count(), 0);
    finger.Press(stage.At(0));
    stage.Bar()->setValue(250);
    finger.Lift();
    QCOMPARE(stage.Shift(), 250);
    QCOMPARE(scrolls.count(), 1);
}

void TScrollAreaTest::limitsAreToldDuringADragOnly()
{
    for (bool const vertical : {true, false})
    {
        TStage stage(vertical);
        QSignalSpy const least(stage.area.data(), &TScrollArea::ScrollAreaMinLimit);
        QSignalSpy const most(stage.area.data(), &TScrollArea::ScrollAreaMaxLimit);
        int const end = stage.Bar()->maximum();
        stage.Bar()->setValue(end);
        stage.Bar()->setValue(0);
        stage.Bar()->setValue(end - 60);
        QCOMPARE(least.count() + most.count(), 0);
        TFinger finger(&stage.window);
        finger.Press(stage.At(0));
        finger.Move(stage.At(-59));
        QCOMPARE(most.count(), 0);
        finger.Move(stage.At(-60));
        QCOMPARE(most.count(), 1);
        // The bar stands still at its end.
        finger.Move(stage.At(-70));
        QCOMPARE(most.count(), 1);
        finger.Move(stage.At(-59));
        finger.Move(stage.At(-61));
        QCOMPARE(most.count(), 2);
        QCOMPARE(least.count(), 0);
        finger.Lift();
        stage.Bar()->setValue(50);
        finger.Press(stage.At(0));
        finger.Move(stage.At(49));
        QCOMPARE(least.count(), 0);
        finger.Move(stage.At(55));
        QCOMPARE(least.count(), 1);
        QCOMPARE(most.count(), 2);
        finger.Lift();
    }
}

void TScrollAreaTest::noLimitIsToldBelowTheThreshold()
{
    TStage stage;
    QSignalSpy const least(stage.area.data(), &TScrollArea::ScrollAreaMinLimit);
    QSignalSpy const most(stage.area.data(), &TScrollArea::ScrollAreaMaxLimit);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-40));
    stage.Bar()->setValue(stage.Bar()->maximum());
    stage.Bar()->setValue(0);
    finger.Lift();
    QCOMPARE(least.count() + most.count(), 0);
}

void TScrollAreaTest::onlyTheMaximumIsToldWhereBothLimitsMeet()
{
    TStage stage;
    QSignalSpy const least(stage.area.data(), &TScrollArea::ScrollAreaMinLimit);
    QSignalSpy const most(stage.area.data(), &TScrollArea::ScrollAreaMaxLimit);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-50));
    stage.page->resize(160, 200);
    QCoreApplication::sendPostedEvents(stage.area, QEvent::MetaCall);
    QCOMPARE(most.count(), 1);
    QCOMPARE(least.count(), 0);
}

void TScrollAreaTest::limitIsToldBeforeTheContentMoves()
{
    TStage stage;
    stage.Bar()->setValue(50);
    int shift = -1;
    connect(stage.area, &TScrollArea::ScrollAreaMinLimit, this, [&] { shift = stage.Shift(); });
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(60));
    QCOMPARE(shift, 50);
    QCOMPARE(stage.Shift(), 0);
}

void TScrollAreaTest::scrollIsToldAfterTheContentMoved()
{
    TStage stage;
    QVector<int> shifts;
    connect(stage.area, &TScrollArea::Scroll, this, [&] { shifts.append(stage.Shift()); });
    stage.Bar()->setValue(70);
    stage.Bar()->setValue(70);
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-50));
    QCOMPARE(shifts, QVector<int>({70, 120}));
}

namespace
{
/// An area in the page of another one.
class TNest : public TStage
{
public:
    explicit TNest(bool innerVertical)
        : inner(new TScrollArea(page, innerVertical, false))
        , innerPage(new QWidget)
    {
        innerPage->resize(innerVertical ? HighPage : WidePage);
        inner->setGeometry(0, 100, 150, 150);
        inner->setWidget(innerPage);
        inner->show();
        QCoreApplication::processEvents();
    }

    TScrollArea* inner;
    QWidget* innerPage;
};
} // namespace

void TScrollAreaTest::innerAreaTakesTheDrag()
{
    TNest nest(true);
    TFinger finger(&nest.window);
    finger.Press(nest.At(0));
    finger.Move({nest.At(-41), nest.At(-90)});
    QCOMPARE(nest.innerPage->y(), -90);
    QCOMPARE(nest.Shift(), 0);
    // Beyond its end too.
    finger.Move(nest.At(-2000));
    QCOMPARE(nest.innerPage->y(), nest.inner->viewport()->height() - HighPage.height());
    QCOMPARE(nest.Shift(), 0);
    finger.Lift();
    // Outside of it, the outer one is dragged.
    finger.Press(QPoint(80, 50));
    finger.Move(QPoint(80, 0));
    QCOMPARE(nest.Shift(), 50);
    finger.Lift();
    nest.Bar()->setValue(10);
    QCOMPARE(nest.Shift(), 10);
}

void TScrollAreaTest::innerAreaOfTheOtherAxisLeavesTheDrag()
{
    TNest nest(false);
    TFinger finger(&nest.window);
    finger.Press(nest.At(0));
    finger.Move({nest.At(-41), nest.At(-90)});
    QCOMPARE(nest.Shift(), 90);
    QCOMPARE(nest.innerPage->pos(), QPoint(0, 0));
    finger.Lift();
    nest.Bar()->setValue(0);
    finger.Press(nest.At(0));
    finger.Move(Middle - QPoint(60, 0));
    QCOMPARE(nest.innerPage->pos(), QPoint(-60, 0));
    QCOMPARE(nest.Shift(), 0);
}

void TScrollAreaTest::innerAreaThatIsDisabledLeavesTheDrag()
{
    TNest nest(true);
    nest.inner->DisableScroll(true);
    TFinger finger(&nest.window);
    finger.Press(nest.At(0));
    finger.Move(nest.At(-90));
    QCOMPARE(nest.Shift(), 90);
    QCOMPARE(nest.innerPage->y(), 0);
}

void TScrollAreaTest::slantedDragGoesToTheInnerArea()
{
    TNest nest(false);
    TFinger finger(&nest.window);
    finger.Press(Middle);
    finger.Move(Middle - QPoint(40, 40));
    QCOMPARE(nest.innerPage->pos(), QPoint(0, 0));
    QCOMPARE(nest.Shift(), 0);
    finger.Move(Middle - QPoint(41, 41));
    finger.Move(Middle - QPoint(60, 120));
    QCOMPARE(nest.innerPage->pos(), QPoint(-60, 0));
    QCOMPARE(nest.Shift(), 0);
}

void TScrollAreaTest::eachBarTurnsItsOwnArea()
{
    TNest nest(true);
    TFinger finger(&nest.window);
    // The inner handle is 50 high on a track of 150, for 850 pixels of content.
    finger.Press(QPoint(130, 110));
    finger.Move({QPoint(130, 155), QPoint(130, 160)});
    QCOMPARE(nest.innerPage->y(), -425);
    // Beyond its end too.
    finger.Move(QPoint(130, 390));
    QCOMPARE(nest.innerPage->y(), -850);
    QCOMPARE(nest.Shift(), 0);
    finger.Lift();
    nest.inner->verticalScrollBar()->setValue(20);
    // The outer one is 90 high on a track of 300, for 700.
    finger.Press(QPoint(180, 20));
    finger.Move({QPoint(180, 80), QPoint(180, 125)});
    QCOMPARE(nest.Shift(), 350);
    QCOMPARE(nest.innerPage->y(), -20);
    finger.Lift();
    QCOMPARE(nest.Shift(), 350);
}

void TScrollAreaTest::wheelTurnsTheAreaItOwns()
{
    TNest nest(true);
    nest.inner->OnMMIWheelRight();
    QCOMPARE(nest.innerPage->y(), -30);
    nest.area->OnMMIWheelRight();
    QCOMPARE(nest.innerPage->y(), -30);
    QCOMPARE(nest.Shift(), 30);
    nest.inner->verticalScrollBar()->setValue(850);
    nest.inner->OnMMIWheelRight();
    QCOMPARE(nest.innerPage->y(), -850);
    QCOMPARE(nest.Shift(), 30);
    nest.inner->OnMMIWheelLeft();
    QCOMPARE(nest.innerPage->y(), -820);
    QCOMPARE(nest.Shift(), 30);
}

void TScrollAreaTest::heightForWidthIsThatOfTheContent()
{
    class TSquare : public QWidget
    {
    public:
        int heightForWidth(int width) const override { return 2 * width; }
    };
    TScrollArea framed(nullptr, true, true);
    framed.ensurePolished();
    QCOMPARE(framed.heightForWidth(100), framed.QScrollArea::heightForWidth(100));
    framed.setWidget(new TSquare);
    QCOMPARE(framed.heightForWidth(100), 2 * (100 - 4) + 4);
    TScrollArea plain(nullptr, true, false);
    plain.setWidget(new TSquare);
    QCOMPARE(plain.heightForWidth(100), 200);
}

void TScrollAreaTest::wheelTurnsTheHeight()
{
    TStage stage;
    stage.area->OnMMIWheelRight();
    QCOMPARE(stage.Shift(), 30);
    stage.area->OnMMIWheelRight();
    QCOMPARE(stage.Shift(), 60);
    stage.area->OnMMIWheelLeft();
    QCOMPARE(stage.Shift(), 30);
    stage.area->OnMMIWheelLeft();
    stage.area->OnMMIWheelLeft();
    QCOMPARE(stage.Shift(), 0);
    stage.Bar()->setValue(stage.Bar()->maximum() - 10);
    stage.area->OnMMIWheelRight();
    QCOMPARE(stage.Shift(), HighPage.height() - AreaSize.height());
    stage.area->OnMMIWheelRight();
    QCOMPARE(stage.Shift(), HighPage.height() - AreaSize.height());
    stage.area->OnMMIWheelLeft();
    QCOMPARE(stage.Shift(), HighPage.height() - AreaSize.height() - 30);
}

void TScrollAreaTest::wheelTurnsTheWidthWhereTheHeightFits()
{
    for (bool const vertical : {true, false})
    {
        TStage stage(vertical);
        // Without the axis, a page that is too high is turned by its width all the same.
        stage.page->resize(1000, vertical ? 200 : 500);
        QCoreApplication::processEvents();
        QScrollBar* const bar = stage.area->horizontalScrollBar();
        stage.area->OnMMIWheelLeft();
        QCOMPARE(stage.page->x(), 0);
        stage.area->OnMMIWheelRight();
        QCOMPARE(stage.page->x(), -30);
        stage.area->OnMMIWheelLeft();
        QCOMPARE(stage.page->x(), 0);
        bar->setValue(bar->maximum());
        stage.area->OnMMIWheelRight();
        QCOMPARE(stage.page->x(), stage.area->viewport()->width() - 1000);
        QCOMPARE(stage.page->y(), 0);
    }
}

void TScrollAreaTest::wheelTurnsNothingThatFits()
{
    TStage stage;
    stage.page->resize(100, 300);
    stage.area->OnMMIWheelRight();
    stage.area->OnMMIWheelLeft();
    QCOMPARE(stage.page->pos(), QPoint(0, 0));
    delete stage.page;
    stage.area->OnMMIWheelRight();
    stage.area->OnMMIWheelLeft();
    QCOMPARE(stage.Bar()->value(), 0);
}

void TScrollAreaTest::contentThatFitsIsNoStop_data()
{
    QTest::addColumn<QSize>("page");
    QTest::addColumn<int>("behaviour");
    QTest::newRow("none") << QSize() << int(MMI_TRANSPARENT);
    QTest::newRow("just fits") << AreaSize << int(MMI_TRANSPARENT);
    QTest::newRow("too high") << QSize(50, 301) << int(MMI_WHEEL_OWNER);
    QTest::newRow("too wide") << QSize(201, 50) << int(MMI_WHEEL_OWNER);
}

void TScrollAreaTest::contentThatFitsIsNoStop()
{
    QFETCH(QSize, page);
    QFETCH(int, behaviour);
    TStage stage;
    stage.area->SetMMIBehaviour(MMI_WHEEL_OWNER);
    if (page.isValid())
        stage.page->resize(page);
    else
        delete stage.page;
    QCoreApplication::processEvents();
    QCOMPARE(int(stage.area->GetMMIBehaviour()), behaviour);
}

void TScrollAreaTest::everyChildIsNavigatable()
{
    TStage const stage;
    auto* const far = new TStop(stage.page, QRect(0, 900, 50, 50));
    QVERIFY(stage.area->IsMMIChildNavigatable(far));
}

void TScrollAreaTest::selectedChildComesIntoSight()
{
    TStage stage;
    auto* const far = new TStop(stage.page, QRect(0, 700, 50, 60));
    auto* const near = new TStop(stage.page, QRect(0, 100, 50, 60));
    stage.area->OnMMIHighlightChild(far);
    QCOMPARE(stage.Shift(), 760 + 50 - AreaSize.height());
    stage.area->OnMMIHighlightChild(near);
    QCOMPARE(stage.Shift(), 50);
    stage.area->OnMMIHighlightChild(near);
    stage.area->OnMMIHighlightChild(nullptr);
    TStop stranger(&stage.window, QRect(0, 0, 50, 50));
    stage.area->OnMMIHighlightChild(&stranger);
    QCOMPARE(stage.Shift(), 50);
    delete stage.page;
    stage.area->OnMMIHighlightChild(&stranger);
    QCOMPARE(stage.Bar()->value(), 50);
}

void TScrollAreaTest::areaHiddenUnderTheFingerScrollsAgain()
{
    TStage stage;
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    stage.area->hide();
    stage.area->show();
    stage.Bar()->setValue(80);
    QCOMPARE(stage.Shift(), 80);
}

void TScrollAreaTest::areaDisabledUnderTheFingerScrollsAgain()
{
    TStage stage;
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    stage.area->setEnabled(false);
    stage.Bar()->setValue(80);
    QCOMPARE(stage.Shift(), 80);
}

void TScrollAreaTest::pageDeletedUnderTheFinger()
{
    TStage stage;
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-50));
    delete stage.page;
    finger.Move(stage.At(-90));
    finger.Lift();
    QCOMPARE(stage.area->GetMMIBehaviour(), MMI_TRANSPARENT);
}

// Nobody tells either area of the lift, as the widget that the finger went down on is no more.
void TScrollAreaTest::liftBesideTheAreaIsMissedInNoNest()
{
    for (int const distance : {-10, -60})
    {
        TNest nest(true);
        auto* const row = new QWidget(nest.innerPage);
        row->setGeometry(0, 0, 150, 200);
        row->show();
        QSignalSpy const limits(nest.inner, &TScrollArea::ScrollAreaMaxLimit);
        TFinger finger(&nest.window);
        finger.Press(nest.At(0));
        finger.Move(nest.At(distance));
        delete row;
        finger.Move(QPoint(350, 350));
        finger.Lift();
        int const before = -nest.innerPage->y();
        nest.inner->OnMMIWheelRight();
        QCOMPARE(nest.innerPage->y(), -before - 30);
        nest.inner->verticalScrollBar()->setValue(nest.inner->verticalScrollBar()->maximum());
        QCOMPARE(limits.count(), 0);
        nest.area->OnMMIWheelRight();
        QCOMPARE(nest.Shift(), 30);
    }
}

void TScrollAreaTest::liftAfterItsRowWasDeletedEndsTheDrag()
{
    TStage stage;
    auto* const row = new QWidget(stage.page);
    row->setGeometry(0, 100, 150, 200);
    row->show();
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-30));
    delete row;
    stage.Bar()->setValue(95);
    QCOMPARE(stage.Shift(), 0);
    finger.Lift();
    stage.Bar()->setValue(96);
    QCOMPARE(stage.Shift(), 96);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-50));
    QCOMPARE(stage.Shift(), 146);
}

void TScrollAreaTest::slotsMayDeleteTheArea_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("maximum") << 0;
    QTest::newRow("minimum") << 1;
    QTest::newRow("scroll") << 2;
}

void TScrollAreaTest::slotsMayDeleteTheArea()
{
    QFETCH(int, signal);
    for (bool const byWheel : {true, false})
    {
        // Only a drag comes to a limit.
        if (byWheel && signal != 2)
            continue;
        TStage stage;
        stage.Bar()->setValue(100);
        auto const kill = [&stage] { delete stage.area; };
        if (signal == 0)
            connect(stage.area, &TScrollArea::ScrollAreaMaxLimit, this, kill);
        else if (signal == 1)
            connect(stage.area, &TScrollArea::ScrollAreaMinLimit, this, kill);
        else
            connect(stage.area, &TScrollArea::Scroll, this, kill);
        TFinger finger(&stage.window);
        if (byWheel)
            stage.area->OnMMIWheelRight();
        else
        {
            finger.Press(stage.At(0));
            finger.Move(Middle + QPoint(0, signal == 0 ? -1000 : 1000));
        }
        QVERIFY(!stage.area);
    }
}

void TScrollAreaTest::slotMayDeleteTheAreaAtTheLift()
{
    TStage stage;
    connect(stage.area, &TScrollArea::Scroll, this, [&stage] { delete stage.area; });
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    stage.Bar()->setValue(250);
    QMouseEvent lift(QEvent::MouseButtonRelease, stage.At(0), Qt::LeftButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(stage.area->viewport(), &lift);
    QVERIFY(!stage.area);
    // Else Qt would offer it to whatever the area stood in.
    QVERIFY(lift.isAccepted());
}

// The page that loses its rows is still at work, and so is the bar: the word comes from the event loop.
void TScrollAreaTest::slotMayDeleteTheAreaWhenItsPageShrinks()
{
    for (bool const inADrag : {false, true})
    {
        TStage stage;
        stage.Bar()->setValue(500);
        TFinger finger(&stage.window);
        auto const kill = [&stage] { delete stage.area; };
        if (inADrag)
        {
            finger.Press(stage.At(0));
            finger.Move(stage.At(-50));
            connect(stage.area, &TScrollArea::ScrollAreaMaxLimit, this, kill);
        }
        else
            connect(stage.area, &TScrollArea::Scroll, this, kill);
        stage.page->resize(160, 400);
        QCOMPARE(stage.Shift(), 100);
        QVERIFY(stage.area);
        QCoreApplication::sendPostedEvents(stage.area, QEvent::MetaCall);
        QVERIFY(!stage.area);
    }
}

void TScrollAreaTest::shrunkPageIsTurnedAsBefore()
{
    TStage stage;
    stage.Bar()->setValue(500);
    QSignalSpy const scrolls(stage.area.data(), &TScrollArea::Scroll);
    stage.page->resize(160, 700);
    QCOMPARE(scrolls.count(), 0);
    QCoreApplication::sendPostedEvents(stage.area, QEvent::MetaCall);
    QCOMPARE(scrolls.count(), 1);
    stage.area->OnMMIWheelLeft();
    QCOMPARE(scrolls.count(), 2);
    // As far as it was needed, none is told.
    stage.page->resize(160, 690);
    QCoreApplication::sendPostedEvents(stage.area, QEvent::MetaCall);
    QCOMPARE(scrolls.count(), 2);
    stage.area->OnMMIWheelLeft();
    QCOMPARE(scrolls.count(), 3);
}

void TScrollAreaTest::slotMayDeleteTheAreaWhenAChildComesIntoSight()
{
    TStage stage;
    stage.page->resize(1000, 1000);
    auto* const far = new TStop(stage.page, QRect(700, 700, 50, 60));
    QSignalSpy const scrolls(stage.area.data(), &TScrollArea::Scroll);
    stage.area->OnMMIHighlightChild(far);
    QCOMPARE(scrolls.count(), 2);
    stage.area->ensureVisible(0, 0);
    QPoint shift;
    connect(stage.area, &TScrollArea::Scroll, this,
            [&]
            {
                shift = -stage.page->pos();
                delete stage.area;
            });
    stage.area->OnMMIHighlightChild(far);
    // Both ways at once.
    QCOMPARE(shift, QPoint(750 + 50 - (AreaSize.width() - 33), 760 + 50 - AreaSize.height()));
    QVERIFY(!stage.area);
}

void TScrollAreaTest::deletedWhilePressed()
{
    TStage stage;
    TFinger finger(&stage.window);
    finger.Press(stage.At(0));
    finger.Move(stage.At(-50));
    delete stage.area;
    finger.Move(stage.At(-60));
    finger.Lift();
    QVERIFY(!stage.page);
}

COMMONUI_TEST(TScrollAreaTest)

#include "TScrollAreaTest.moc"
