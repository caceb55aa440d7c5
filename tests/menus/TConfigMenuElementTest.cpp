#include "TConfigMenuElement.h"
#include "Fonts.h"
#include "GoldenPicture.h"
#include "Metrics.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"

namespace
{
constexpr int Id = 7;
QString const Text = QStringLiteral("Nozzles");
QString const Icon = QStringLiteral("icon-setup");

/// A screen with one element on a flat ground, or two, of which the second has an icon.
class TElementStage
{
public:
    explicit TElementStage(QString const& text = Text)
        : finger(screen.get())
        , ground(new QWidget(screen.get()))
    {
        ground->setGeometry(100, 100, 600, 120);
        ground->setAutoFillBackground(true);
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::black);
        ground->setPalette(palette);
        element = new TConfigMenuElement(ground, text, Id);
        ground->show();
        ground->raise();
    }

    QImage Seen() const { return element->grab().toImage(); }
    /// The element as it should be: the body \a name with the text on it.
    QImage Expected(QString const& name, double opacity = 1.0) const
    {
        QPixmap picture(element->size());
        picture.fill(Qt::black);
        QPainter painter(&picture);
        painter.setOpacity(opacity);
        painter.drawPixmap(
            0, 0, *screen->GetPixmapManager()->GetResizedPixmap(name, element->width(), element->height()));
        painter.setFont(CONDENSED_BOLD_FONT);
        KVN::RenderUtils::RenderTextInsideRect(&painter, element->rect().adjusted(9, 9, -9, -9), 132,
                                               element->GetText(), qMax(14, int(element->height() * 0.18)),
                                               MINIMUM_FONT_SIZE, regularButtonTextColor, false, true, true,
                                               true, false);
        painter.end();
        return picture.toImage();
    }
    /// On its ground, with whatever shines through.
    QImage SeenOnGround() const { return ground->grab(element->geometry()).toImage(); }

    TTestScreen screen;
    TFinger finger;
    QPointer<QWidget> ground;
    QPointer<TConfigMenuElement> element;
};

QImage Opaque(QImage const& image)
{
    return image.convertToFormat(QImage::Format_RGB32);
}
} // namespace

class TConfigMenuElementTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anOpaqueSkinDoesNotHideWhatShinesThrough();
    void itIsAFifthWiderThanHigh();
    void itShowsItsTextInTheMiddleOfItsFlatBody();
    void aFingerMakesItLighterWhileItIsDown();
    void theSelectedOneStandsOut();
    void theWheelMakesItLighterInEitherLook();
    void itsPicturesFollowItsSize();
    void aLongTextStaysOnOneLineWithinTheBody();
    void anInactiveOneIsDrawnInItsOpacity();
    void anActiveOneIgnoresItsOpacity();
    void anOpacityIsHeldToItsRange();
    void aDisabledOneIsDimmed();
    void anInactiveOneStillClicks();
    void onlyANamedIconApplies();
    void withAnIconTheTextStandsBelow();
    void itLooksAsDrawn();
    void aChangeAloneRepaints();
    void withoutAScreenItHasNoBody();
    void diesInTheSlotsOfItsSignals();
    void diesWhileItIsPressed();
};

void TConfigMenuElementTest::itIsAFifthWiderThanHigh()
{
    TElementStage const stage;
    QCOMPARE(stage.element->size(), QSize(68, 57)); // 68.4
    QCOMPARE(stage.element->minimumSize(), stage.element->maximumSize());
    QCOMPARE(TConfigMenuElement::WidthForHeight(63), 75); // 75.6
    QCOMPARE(TConfigMenuElement::WidthForHeight(110), 132);
    QCOMPARE(stage.element->GetButtonId(), Id);
}

void TConfigMenuElementTest::itShowsItsTextInTheMiddleOfItsFlatBody()
{
    TElementStage const stage;
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall)));
}

void TConfigMenuElementTest::aFingerMakesItLighterWhileItIsDown()
{
    TElementStage stage;
    stage.finger.Press(QPoint(130, 130));
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSelectedSmall)));
    stage.finger.Lift();
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall)));
}

void TConfigMenuElementTest::theSelectedOneStandsOut()
{
    TElementStage stage;
    QVERIFY(!stage.element->IsSelected());
    stage.element->SetSelected(true);
    QVERIFY(stage.element->IsSelected());
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::LargeMenuButton)));
    stage.finger.Press(QPoint(130, 130));
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::LargeMenuButtonSelected)));
    stage.finger.Lift();
    stage.element->SetSelected(false);
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall)));
}

void TConfigMenuElementTest::theWheelMakesItLighterInEitherLook()
{
    TElementStage stage;
    stage.element->OnMMIHighlight();
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSelectedSmall)));
    stage.element->SetSelected(true);
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::LargeMenuButtonSelected)));
    stage.element->OnMMIUnHighlight();
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::LargeMenuButton)));
    QVERIFY(!stage.element->UseDefaultMMIHighlight());
}

void TConfigMenuElementTest::itsPicturesFollowItsSize()
{
    TElementStage stage;
    stage.element->setFixedSize(132, 110);
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall)));
    stage.element->SetSelected(true);
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::LargeMenuButton)));
}

void TConfigMenuElementTest::aLongTextStaysOnOneLineWithinTheBody()
{
    TElementStage const stage(QStringLiteral("Section switch boxes and their connections"));
    QImage const seen = Opaque(stage.SeenOnGround());
    QCOMPARE(seen, Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall)));
    TElementStage const bare{QString()};
    QImage const body = Opaque(bare.SeenOnGround());
    QRect ink;
    for (int y = 0; y < seen.height(); ++y)
    {
        for (int x = 0; x < seen.width(); ++x)
        {
            if (seen.pixel(x, y) != body.pixel(x, y))
                ink |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(seen.rect().adjusted(9, 9, -9, -9).contains(ink));
    QVERIFY(ink.height() < 2 * MINIMUM_FONT_SIZE);
    QVERIFY(qAbs(ink.center().y() - seen.rect().center().y()) <= 3);
}

void TConfigMenuElementTest::anInactiveOneIsDrawnInItsOpacity()
{
    TElementStage stage;
    QVERIFY(stage.element->IsActive());
    stage.element->SetOpacity(0.4F);
    stage.element->SetActive(false);
    QVERIFY(!stage.element->IsActive());
    QCOMPARE(Opaque(stage.SeenOnGround()),
             Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall, double(0.4F))));
}

void TConfigMenuElementTest::anActiveOneIgnoresItsOpacity()
{
    TElementStage stage;
    stage.element->SetOpacity(0.4F);
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall)));
    TElementStage full;
    full.element->SetActive(false);
    QCOMPARE(Opaque(full.SeenOnGround()), Opaque(full.Expected(PixmapNames::MenuButtonFlatSmall)));
}

void TConfigMenuElementTest::anOpacityIsHeldToItsRange()
{
    TElementStage stage;
    QCOMPARE(stage.element->GetOpacity(), 1.0F);
    stage.element->SetOpacity(-3.0F);
    QCOMPARE(stage.element->GetOpacity(), 0.0F);
    stage.element->SetOpacity(7.0F);
    QCOMPARE(stage.element->GetOpacity(), 1.0F);
}

void TConfigMenuElementTest::aDisabledOneIsDimmed()
{
    TElementStage stage;
    stage.element->setEnabled(false);
    QCOMPARE(Opaque(stage.SeenOnGround()), Opaque(stage.Expected(PixmapNames::MenuButtonFlatSmall, 0.5)));
}

void TConfigMenuElementTest::anInactiveOneStillClicks()
{
    TElementStage stage;
    QSignalSpy const clicks(stage.element, &TPushButton::Clicked);
    stage.element->SetActive(false);
    stage.finger.Touch(stage.element);
    QCOMPARE(clicks, (QList<QVariantList>{{Id}}));
}

void TConfigMenuElementTest::onlyANamedIconApplies()
{
    TElementStage stage;
    QImage const bare = stage.Seen();
    QPixmap green(20, 20);
    green.fill(Qt::green);
    auto const icon = QSharedPointer<QPixmap>::create(green);
    stage.element->SetIcon(icon, icon);
    QCOMPARE(stage.Seen(), bare);
    stage.element->SetIcon(green.toImage(), QSize(20, 20), true);
    QCOMPARE(stage.Seen(), bare);
    QCOMPARE(stage.element->GetIconSize(), QSize());
    stage.element->SetIcon(Icon, QSize(-1, -1), true);
    QVERIFY(stage.Seen() != bare);
    // It takes neither the place of one with a name.
    QImage const named = stage.Seen();
    stage.element->SetIcon(icon, icon);
    QCOMPARE(stage.Seen(), named);
    stage.element->SetIcon(QString(), QSize(), true);
    QCOMPARE(stage.Seen(), bare);
}

void TConfigMenuElementTest::withAnIconTheTextStandsBelow()
{
    TElementStage stage;
    stage.element->setFixedSize(108, 90);
    stage.element->SetIcon(Icon, QSize(-1, -1), true);
    QImage const with = stage.Seen();
    stage.element->SetText(QString(), QString(), true, QString(), false);
    QImage const without = stage.Seen();
    QRect ink;
    for (int y = 0; y < with.height(); ++y)
    {
        for (int x = 0; x < with.width(); ++x)
        {
            if (with.pixel(x, y) != without.pixel(x, y))
                ink |= QRect(x, y, 1, 1);
        }
    }
    QVERIFY(ink.isValid());
    QVERIFY(ink.top() >= 9 + 43); // three fifths of the height within the insets
}

void TConfigMenuElementTest::itLooksAsDrawn()
{
    TElementStage stage;
    stage.element->setFixedSize(108, 90);
    stage.element->move(5, 15);
    QVector<TConfigMenuElement*> others;
    for (int i = 1; i < 5; ++i)
    {
        others.append(new TConfigMenuElement(stage.ground, i == 4 ? QStringLiteral("Setup") : Text, i));
        others.last()->setFixedSize(108, 90);
        others.last()->move(5 + i * 118, 15);
    }
    others[0]->SetSelected(true);
    others[1]->OnMMIHighlight();
    others[2]->SetSelected(true);
    others[2]->OnMMIHighlight();
    others[3]->SetIcon(Icon, QSize(-1, -1), true);
    COMPARE_PICTURE(stage.ground->grab().toImage(), "config-menu-element");
}

/// Counts paints of a widget.
class TPaintCount : public QObject
{
public:
    explicit TPaintCount(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        Q_UNUSED(watched)
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int Take()
    {
        QCoreApplication::processEvents();
        return std::exchange(count, 0);
    }

    int count = 0;
};

void TConfigMenuElementTest::aChangeAloneRepaints()
{
    TElementStage stage;
    TPaintCount paints(stage.element);
    QVERIFY(paints.Take() > 0);
    stage.element->SetSelected(false);
    stage.element->SetActive(true);
    stage.element->SetOpacity(1.0F);
    stage.element->SetOpacity(0.5F); // not seen while it is active
    QCOMPARE(paints.Take(), 0);
    stage.element->SetSelected(true);
    QCOMPARE(paints.Take(), 1);
    stage.element->SetActive(false);
    QCOMPARE(paints.Take(), 1);
    stage.element->SetOpacity(0.6F);
    QCOMPARE(paints.Take(), 1);
    stage.finger.Press(QPoint(130, 130));
    QVERIFY(paints.Take() > 0);
    stage.finger.Lift();
    QVERIFY(paints.Take() > 0);
}

void TConfigMenuElementTest::withoutAScreenItHasNoBody()
{
    TConfigMenuElement element(nullptr, Text, Id);
    element.SetIcon(Icon, QSize(-1, -1), true);
    element.SetSelected(true);
    QVERIFY(!element.grab().isNull());
    QCOMPARE(element.GetText(), Text);
}

void TConfigMenuElementTest::diesInTheSlotsOfItsSignals()
{
    for (int signal = 0; signal < 3; ++signal)
    {
        TElementStage stage;
        auto const die = [&stage] { delete stage.element.data(); };
        if (signal == 0)
            connect(stage.element, &TPushButton::Pressed, this, die);
        else if (signal == 1)
            connect(stage.element, &TPushButton::Released, this, die);
        else
            connect(stage.element, &TPushButton::Clicked, this, die);
        stage.finger.Touch(QPoint(130, 130));
        QVERIFY(!stage.element);
    }
}

void TConfigMenuElementTest::diesWhileItIsPressed()
{
    TElementStage stage;
    stage.finger.Press(QPoint(130, 130));
    delete stage.element.data();
    stage.finger.Lift();
    TElementStage wheel;
    wheel.element->OnMMIEnter();
    delete wheel.element.data();
    QCoreApplication::processEvents();
}

void TConfigMenuElementTest::anOpaqueSkinDoesNotHideWhatShinesThrough()
{
    TElementStage stage;
    QSharedPointer<QPixmap> const opaque(new QPixmap(40, 40));
    opaque->fill(Qt::blue);
    stage.element->SetBackground(opaque);
    QVERIFY(stage.element->testAttribute(Qt::WA_OpaquePaintEvent));
    stage.SeenOnGround();
    QVERIFY(!stage.element->testAttribute(Qt::WA_OpaquePaintEvent));
    stage.element->SetBackgroundOpacity(1.0F);
    stage.element->OnMMIHighlight();
    QVERIFY(!stage.element->testAttribute(Qt::WA_OpaquePaintEvent));
    stage.element->OnMMIUnHighlight();
    QVERIFY(!stage.element->testAttribute(Qt::WA_OpaquePaintEvent));
}

COMMONUI_TEST(TConfigMenuElementTest)
#include "TConfigMenuElementTest.moc"
