#include "TKey.h"
#include "Metrics.h"
#include "PixmapNames.h"
#include "TestCase.h"
#include "TestScreen.h"
#include "TFinger.h"

#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>

namespace
{
constexpr int Unit = 60;

TKey* MakeKey(QWidget* parent, QChar character)
{
    auto* const key = new TKey(parent, character, QString(), false, true, 6, 10, 7);
    key->SetCustomSize(1, Unit, KEY_HEIGHT, 0);
    key->show();
    return key;
}

QPixmap Ground(QColor const& colour)
{
    QPixmap ground(Unit, KEY_HEIGHT);
    ground.fill(colour);
    return ground;
}
} // namespace

class TKeyTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsItsCharacterAndIsNamedAfterIt();
    void theCharacterIsTheFirstOfTheText();
    void showsItsIconInPlaceOfTheCharacter();
    void aSecondLineIsShownAndTakenAway();
    void standsInTheGrid();
    void takesSeveralColumns();
    void clicksWithItsId();
    void leavesTheFocusWithTheText();
    void aPreparedFaceIsTheOneThatIsPainted_data();
    void aPreparedFaceIsTheOneThatIsPainted();
    void aPreparedFaceIsForgottenWithItsSizeAndLook();
    void aPreparedFaceIsForgottenWithItsGround();
    void aGroundOfAnotherSizeMakesNoFace();
    void aPressShowsOnAGround();
    void theGroundShowsBehindADisabledKey();
    void losesItsGroundAgain();
    void theToolTipShowsTheIconInItsStandardSize();
    void typeComesInTwoSizes();
    void takesAnyTextAndAnyPlace();
    void staysOpaqueOnAGroundWhateverItsStyle();
    void diesInTheSlotOfItsClick();
    void diesWhileItIsDownOrHighlighted();
};

void TKeyTest::showsItsCharacterAndIsNamedAfterIt()
{
    TKey const key(nullptr, QLatin1Char('Q'), QString(), false, true, 6, 10, 3);
    QCOMPARE(key.GetCharacter(), QChar(QLatin1Char('Q')));
    QCOMPARE(key.GetText(), QStringLiteral("Q"));
    QCOMPARE(key.objectName(), QStringLiteral("Key Q"));
    QCOMPARE(key.GetButtonId(), 3);
    QCOMPARE(key.GetRows(), 6);
    QCOMPARE(key.GetColumns(), 10);
    QVERIFY(!key.GetIsEditKey());
    TKey blank(nullptr, QLatin1Char(' '), QString(), false, true, 6, 10, 3);
    QCOMPARE(blank.objectName(), QStringLiteral("Key Space"));
    blank.SetToolTip(QStringLiteral("Space"));
    QCOMPARE(blank.objectName(), QStringLiteral("Key Space"));
    blank.SetText(QStringLiteral("q"), QString(), true, QString(), false);
    QCOMPARE(blank.objectName(), QStringLiteral("Key q"));
}

void TKeyTest::theCharacterIsTheFirstOfTheText()
{
    TKey key(nullptr, QLatin1Char('Q'), QString(), false, true, 6, 10, 3);
    key.SetText(QStringLiteral("am"), QString(), true, QString(), false);
    QCOMPARE(key.GetCharacter(), QChar(QLatin1Char('a')));
    QCOMPARE(key.GetText(), QStringLiteral("am"));
    key.SetText(QString(), QString(), true, QString(), false);
    QVERIFY(key.GetCharacter().isNull());
    QVERIFY(key.GetText().isEmpty());
}

void TKeyTest::showsItsIconInPlaceOfTheCharacter()
{
    TTestScreen const screen;
    TKey const key(screen.get(), QLatin1Char('x'), QStringLiteral("icon-tick"), true, true, 6, 10, 3);
    QCOMPARE(key.GetIconName(), QStringLiteral("icon-tick"));
    QCOMPARE(key.GetCharacter(), QChar(QLatin1Char('x')));
    QVERIFY(key.GetText().isEmpty());
    QCOMPARE(key.objectName(), QStringLiteral("Key x"));
    QVERIFY(!key.GetIconSize().isEmpty());
    TKey const still(screen.get(), QChar(), QStringLiteral("icon-tick"), true, true, 6, 10, 3);
    QVERIFY(still.GetCharacter().isNull());
    QCOMPARE(still.objectName(), QStringLiteral("icon-tick"));
}

void TKeyTest::aSecondLineIsShownAndTakenAway()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('a'));
    QImage const plain = key->grab().toImage();
    key->SetText(QStringLiteral("a"), QString(), false, QString(), true);
    key->SetText(QStringLiteral("b"), QString(), false, QString(), false);
    QCOMPARE(key->GetText(), QStringLiteral("b"));
    QVERIFY(key->grab().toImage() != plain);
    key->SetText(QStringLiteral("a"), QString(), false, QString(), false);
    QCOMPARE(key->grab().toImage(), plain);
    delete key;
}

void TKeyTest::standsInTheGrid()
{
    QWidget parent;
    TKey* const key = MakeKey(&parent, QLatin1Char('a'));
    key->SetCustomSize(1, 70, 66, 85);
    QCOMPARE(key->size(), QSize(70, 66));
    key->SetPosition(2, 3, false);
    QCOMPARE(key->pos(), QPoint(210, 217));
    key->SetPosition(0, 0, true);
    QCOMPARE(key->pos(), QPoint(35, 85));
    key->SetRowsAndColumns(5, 4);
    key->SetPosition(11);
    QCOMPARE(key->pos(), QPoint(210, 217));
}

void TKeyTest::takesSeveralColumns()
{
    QWidget parent;
    TKey* const key = MakeKey(&parent, QLatin1Char(' '));
    key->SetCustomSize(4, 60, 57, 0);
    QCOMPARE(key->size(), QSize(240, 57));
    QCOMPARE(key->minimumSize(), QSize(240, 57));
    QCOMPARE(key->maximumSize(), QSize(240, 57));
}

void TKeyTest::clicksWithItsId()
{
    TTestScreen const screen;
    TFinger finger(screen.get());
    TKey* const key = MakeKey(screen.get(), QLatin1Char('a'));
    QSignalSpy const clicks(key, &TPushButton::Clicked);
    finger.Touch(key);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.first().first().toInt(), 7);
    delete key;
}

void TKeyTest::leavesTheFocusWithTheText()
{
    TTestScreen const screen;
    TFinger finger(screen.get());
    auto* const text = new QLineEdit(screen.get());
    text->show();
    text->setFocus();
    TKey* const key = MakeKey(screen.get(), QLatin1Char('a'));
    key->move(300, 300);
    finger.Touch(key);
    QCOMPARE(screen->focusWidget(), text);
}

void TKeyTest::aPreparedFaceIsTheOneThatIsPainted_data()
{
    QTest::addColumn<QString>("face");
    QTest::newRow("capital") << QStringLiteral("G");
    QTest::newRow("small") << QStringLiteral("g");
    QTest::newRow("another") << QStringLiteral("@");
}

void TKeyTest::aPreparedFaceIsTheOneThatIsPainted()
{
    QFETCH(QString, face);
    TTestScreen const screen;
    TKey* const plain = MakeKey(screen.get(), face.at(0));
    plain->SetGround(Ground(Qt::darkGray));
    QImage const expected = plain->grab().toImage();
    delete plain;

    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetGround(Ground(Qt::darkGray));
    key->PrepareFaces(QStringLiteral("G"), QStringLiteral("g"));
    key->grab();
    key->SetText(face, QString(), false, QString(), false);
    QCOMPARE(key->grab().toImage(), expected);
    QVERIFY(key->testAttribute(Qt::WA_OpaquePaintEvent));
    delete key;
}

void TKeyTest::aPreparedFaceIsForgottenWithItsSizeAndLook()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetGround(Ground(Qt::darkGray));
    key->PrepareFaces(QStringLiteral("G"), QStringLiteral("g"));
    QImage const before = key->grab().toImage();
    key->SetLook(PixmapNames::ButtonBlueUp, PixmapNames::BlueButtonSelected);
    QImage const blue = key->grab().toImage();
    QVERIFY(blue != before);
    QVERIFY(key->testAttribute(Qt::WA_OpaquePaintEvent));
    key->SetLook(PixmapNames::ButtonBlank, PixmapNames::StandardButtonSelected);
    QCOMPARE(key->grab().toImage(), before);
    key->SetGround(Ground(Qt::white));
    QVERIFY(key->grab().toImage() != before);
    key->SetCustomSize(2, Unit, KEY_HEIGHT, 0);
    QCOMPARE(key->grab().toImage().size(), QSize(2 * Unit, KEY_HEIGHT));
    delete key;
}

void TKeyTest::aPreparedFaceIsForgottenWithItsGround()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetGround(Ground(Qt::darkGray));
    key->PrepareFaces(QStringLiteral("G"), QStringLiteral("g"));
    QImage const before = key->grab().toImage();
    key->SetGround(Ground(Qt::red));
    QVERIFY(key->grab().toImage() != before);
    delete key;
}

void TKeyTest::aGroundOfAnotherSizeMakesNoFace()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetCustomSize(2, Unit, KEY_HEIGHT, 0);
    key->SetGround(Ground(Qt::darkGray));
    // Where neither paints, the picture stays as it was before.
    auto const picture = [key]
    {
        QImage image(key->size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        key->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
        return image;
    };
    QImage const before = picture();
    key->PrepareFaces(QStringLiteral("G"), QStringLiteral("g"));
    QCOMPARE(picture(), before);
    delete key;
}

void TKeyTest::aPressShowsOnAGround()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetGround(Ground(Qt::darkGray));
    key->PrepareFaces(QStringLiteral("G"), QStringLiteral("g"));
    QImage const up = key->grab().toImage();
    key->setDown(true);
    QImage const down = key->grab().toImage();
    QVERIFY(down != up);
    key->setDown(false);
    QCOMPARE(key->grab().toImage(), up);
    key->OnMMIHighlight();
    QCOMPARE(key->grab().toImage(), down);
    key->OnMMIUnHighlight();
    QCOMPARE(key->grab().toImage(), up);
    delete key;
}

void TKeyTest::theGroundShowsBehindADisabledKey()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetGround(Ground(Qt::red));
    key->PrepareFaces(QStringLiteral("G"), QStringLiteral("g"));
    QImage const enabled = key->grab().toImage();
    key->setEnabled(false);
    QImage const disabled = key->grab().toImage();
    QCOMPARE(disabled.pixelColor(0, 0), QColor(Qt::red));
    QVERIFY(disabled != enabled);
    delete key;
}

void TKeyTest::losesItsGroundAgain()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetGround(QPixmap());
    QVERIFY(!key->testAttribute(Qt::WA_OpaquePaintEvent));
    key->SetGround(Ground(Qt::red));
    key->SetGround(QPixmap());
    QVERIFY(!key->testAttribute(Qt::WA_OpaquePaintEvent));
    QVERIFY(key->grab().toImage().pixelColor(0, 0) != QColor(Qt::red));
    delete key;
}

void TKeyTest::theToolTipShowsTheIconInItsStandardSize()
{
    TTestScreen const screen;
    TKey key(screen.get(), QChar(), QStringLiteral("icon-tick"), true, true, 6, 10, 3);
    key.SetCustomSize(1, 25, 25, 0);
    key.show();
    key.ShowToolTip();
    QCOMPARE(key.GetToolTipIcon()->size(), QSize(46, 46));
    QVERIFY(key.GetIconSize().width() <= 25);
}

void TKeyTest::typeComesInTwoSizes()
{
    TKey key(nullptr, QLatin1Char('G'), QString(), false, true, 6, 10, 3);
    QCOMPARE(key.font().pixelSize(), 30);
    key.SetLargeFont(false);
    QCOMPARE(key.font().pixelSize(), 24);
    QVERIFY(key.font().bold());
    TKey const small(nullptr, QLatin1Char('G'), QString(), false, false, 6, 10, 3);
    QCOMPARE(small.font().pixelSize(), 24);
}

void TKeyTest::takesAnyTextAndAnyPlace()
{
    TTestScreen const screen;
    TKey* const key = MakeKey(screen.get(), QLatin1Char('G'));
    key->SetGround(Ground(Qt::darkGray));
    for (QString const& text : {QStringLiteral("\r\n\t"), QString(QChar(0)), QString(QChar(0xD800)),
                                QString(100000, QLatin1Char('W'))})
    {
        key->SetText(text, QString(), true, QString(), false);
        key->PrepareFaces(text, text);
        QCOMPARE(key->GetCharacter(), text.at(0));
        QVERIFY(!key->grab().isNull());
    }
    key->SetCustomSize(-5, -5, 0, -1);
    QCOMPARE(key->size(), QSize(1, 1));
    key->SetRowsAndColumns(-1, 0);
    QCOMPARE(key->GetRows(), 1);
    QCOMPARE(key->GetColumns(), 1);
    key->SetPosition(-3);
    QCOMPARE(key->pos(), QPoint(0, -4));
    key->SetCustomSize(INT_MAX, 10, 10, 0);
    QCOMPARE(key->size(), QSize(32760, 10));
    key->SetCustomSize(1, INT_MAX, INT_MAX, 0);
    QCOMPARE(key->size(), QSize(32767, 32767));
    key->SetPosition(INT_MAX, INT_MAX, true);
    QCOMPARE(key->pos(), QPoint(32767, 32767));
    delete key;
}

void TKeyTest::staysOpaqueOnAGroundWhateverItsStyle()
{
    TTestScreen const screen;
    auto* const key = new TKey(screen.get(), QLatin1Char('a'), QString(), false, true, 6, 10, 7);
    key->SetCustomSize(1, Unit, KEY_HEIGHT, 0);
    key->SetGround(Ground(Qt::darkGray));
    key->show();
    key->ensurePolished();
    QVERIFY(key->testAttribute(Qt::WA_OpaquePaintEvent));
    delete key;
}

void TKeyTest::diesInTheSlotOfItsClick()
{
    TTestScreen const screen;
    TFinger finger(screen.get());
    QPointer<TKey> const key = MakeKey(screen.get(), QLatin1Char('G'));
    connect(key.data(), &TPushButton::Clicked, this, [&key] { delete key.data(); });
    finger.Touch(key);
    QVERIFY(!key);
}

void TKeyTest::diesWhileItIsDownOrHighlighted()
{
    TTestScreen const screen;
    TFinger finger(screen.get());
    TKey* key = MakeKey(screen.get(), QLatin1Char('G'));
    finger.Press(key->mapTo(screen.get(), key->rect().center()));
    QVERIFY(key->isDown());
    delete key;
    finger.Lift();
    key = MakeKey(screen.get(), QLatin1Char('G'));
    key->OnMMIHighlight();
    key->OnMMIEnter();
    delete key;
    QTest::qWait(0);
}

COMMONUI_TEST(TKeyTest)

#include "TKeyTest.moc"
