#include "Fonts.h"
#include "TestCase.h"

#include <QFontInfo>
#include <QWidget>

class FontsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aPointSizeIsTakenAsPixels()
    {
        QFont font;
        font.setPointSize(17);
        SetPixelSize(font);
        QCOMPARE(font.pixelSize(), 17);
        QCOMPARE(font.pointSize(), -1);
    }

    void aFontInPixelsIsLeftAsItIs()
    {
        QFont font;
        font.setPixelSize(23);
        QCOMPARE(font.pointSize(), -1);
        SetPixelSize(font);
        QCOMPARE(font.pixelSize(), 23);
    }

    void boldAnywhereInTheStyleGivesBoldWeight_data()
    {
        QTest::addColumn<QString>("style");
        QTest::addColumn<int>("weight");
        QTest::newRow("bold alone") << QStringLiteral("Bold") << 75;
        QTest::newRow("bold behind another word") << QStringLiteral("Condensed Bold") << 75;
        QTest::newRow("bold within a word") << QStringLiteral("SemiBoldish") << 75;
        QTest::newRow("lower case does not count") << QStringLiteral("Condensed bold") << int(QFont::Normal);
        QTest::newRow("no bold") << QStringLiteral("Book") << int(QFont::Normal);
        QTest::newRow("no style") << QString() << int(QFont::Normal);
    }

    void boldAnywhereInTheStyleGivesBoldWeight()
    {
        QFETCH(QString, style);
        QFETCH(int, weight);
        QFont const font = BuildFont(QStringLiteral("DejaVu Sans"), style);
        QCOMPARE(font.weight(), weight);
        QCOMPARE(font.styleName(), style);
        QWidget widget;
        SetupFont(&widget, style);
        QCOMPARE(widget.font().weight(), weight);
    }

    void anEmptyStyleLeavesTheStyleNameUnset()
    {
        QVERIFY(BuildFont(QStringLiteral("DejaVu Sans"), QString()).styleName().isEmpty());
        QWidget widget;
        QFont font = widget.font();
        font.setStyleName(QStringLiteral("Book"));
        widget.setFont(font);
        SetupFont(&widget, QString());
        QCOMPARE(widget.font().styleName(), QStringLiteral("Book"));
    }

    void builtFontsKeepTheDefaultSizeWhileSetUpFontsAreInPixels()
    {
        QCOMPARE(BuildFont(QStringLiteral("DejaVu Sans"), QStringLiteral("Bold")).pointSize(),
                 QFont().pointSize());
        QWidget widget;
        QFont font = widget.font();
        font.setPointSize(19);
        widget.setFont(font);
        SetupFont(&widget, QStringLiteral("Book"));
        QCOMPARE(widget.font().pixelSize(), 19);
    }

    void theFourFontsAreFacesOfTheConsolesFamily_data()
    {
        QTest::addColumn<QFont>("font");
        QTest::addColumn<QString>("style");
        QTest::addColumn<int>("weight");
        QTest::newRow("standard") << STANDARD_FONT << QStringLiteral("Book") << int(QFont::Normal);
        QTest::newRow("standard bold") << STANDARD_BOLD_FONT << QStringLiteral("Bold") << 75;
        QTest::newRow("condensed") << CONDENSED_FONT << QStringLiteral("Condensed") << int(QFont::Normal);
        QTest::newRow("condensed bold") << CONDENSED_BOLD_FONT << QStringLiteral("Condensed Bold") << 75;
    }

    void theFourFontsAreFacesOfTheConsolesFamily()
    {
        QFETCH(QFont, font);
        QFETCH(QString, style);
        QFETCH(int, weight);
        QCOMPARE(font.family(), QStringLiteral("DejaVu Sans"));
        QCOMPARE(font.styleName(), style);
        QCOMPARE(font.weight(), weight);
        QCOMPARE(QFontInfo(font).styleName(), style);
    }
};

COMMONUI_TEST(FontsTest)
#include "FontsTest.moc"
