#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TestCase.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QRect>
#include <QSet>

#include <cmath>

namespace
{
QString const ImageFolder = QStringLiteral(":/Images/Resources/");
QString const IconFolder = QStringLiteral(":/Icons/Resources/");

constexpr double LeastContrast = 4.5;
// The largest step between two rows of a gradient; a drawn edge is steeper.
constexpr int GradientStep = 4;
// Mean difference of two states in a grey copy, of 255, that is seen at a glance.
constexpr double LeastStateDifference = 10;

struct TImageRow
{
    QString m_File;
    QStringList m_Names;
    QSize m_Size;
    QRect m_Stretch;
    bool m_StretchesWhole = true;
    bool m_ScaleWhole = false;
    bool m_Opaque = false;
    QString m_TextColour;
    int m_TextInset = 0;
};

struct TIconRow
{
    QString m_File;
    QString m_Name;
    int m_Side = 0;
};

struct TCatalogue
{
    QVector<TImageRow> m_Images;
    QVector<TIconRow> m_Icons;
    QStringList m_Waiting;
};

QVector<QStringList> ReadTable(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QVector<QStringList> rows;
    auto const lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString const& line : lines)
    {
        if (!line.startsWith(QLatin1Char('#')))
            rows.append(line.split(QLatin1Char('\t')));
    }
    return rows;
}

TImageRow ReadImageRow(QStringList const& cells)
{
    TImageRow row;
    row.m_File = cells.value(1);
    row.m_Names = cells.value(2).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    row.m_Size = QSize(cells.value(3).toInt(), cells.value(4).toInt());
    row.m_Stretch.setCoords(cells.value(5).toInt(), cells.value(6).toInt(), cells.value(7).toInt(),
                            cells.value(8).toInt());
    row.m_StretchesWhole = row.m_Stretch == QRect(QPoint(0, 0), QPoint(0, 0));
    row.m_ScaleWhole = cells.value(9) == QLatin1String("1");
    row.m_Opaque = cells.value(10) == QLatin1String("1");
    row.m_TextColour = cells.value(11);
    row.m_TextInset = cells.value(12).toInt();
    return row;
}

TCatalogue ReadCatalogue()
{
    TCatalogue catalogue;
    auto const rows = ReadTable(QStringLiteral(ART_CATALOGUE));
    for (QStringList const& cells : rows)
    {
        if (cells.first() == QLatin1String("image"))
            catalogue.m_Images.append(ReadImageRow(cells));
        else if (cells.first() == QLatin1String("icon"))
            catalogue.m_Icons.append({cells.value(1), cells.value(2), cells.value(3).toInt()});
        else if (cells.first() == QLatin1String("waiting"))
            catalogue.m_Waiting.append(cells.value(1));
    }
    return catalogue;
}

QImage Load(QString const& path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32);
}

/// The images that the toolkit loads by their path and not by a logical name.
QStringList FilesLoadedByPath()
{
    return QStringLiteral(
               "GreenLED MiniViewTitlebar NavBarButtonScrollDown NavBarButtonScrollUp NavigationBar RedLED "
               "SetupScreenBackgroundFlat800x600 Sidebar SplashScreen800x480 SplashScreen800x600 "
               "SystemToolbarOneButton SystemToolbarThreeButton SystemToolbarTwoButton TaskWindowNoShadow "
               "TaskWindowNoTitlebarNoShadow TaskWindowUSBNoShadow TitleBar WindowToolbarButtonScrollDown "
               "WindowToolbarButtonScrollUp bkgBlackGeneric800x600 bkgControllers800x600 "
               "bkgDiagnostics800x600 bkgSysInfo800x600 bkgUSBGeneric800x600")
        .split(QLatin1Char(' '));
}

bool Alike(QRgb a, QRgb b, int tolerance)
{
    return qAbs(qRed(a) - qRed(b)) <= tolerance && qAbs(qGreen(a) - qGreen(b)) <= tolerance &&
           qAbs(qBlue(a) - qBlue(b)) <= tolerance && qAbs(qAlpha(a) - qAlpha(b)) <= tolerance;
}

double Linear(double channel)
{
    double const part = channel / 255;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(double red, double green, double blue)
{
    return 0.2126 * Linear(red) + 0.7152 * Linear(green) + 0.0722 * Linear(blue);
}

double Contrast(double one, double other)
{
    return (qMax(one, other) + 0.05) / (qMin(one, other) + 0.05);
}

double LuminanceOver(QRgb pixel, int ground)
{
    double const alpha = qAlpha(pixel) / 255.0;
    double const rest = ground * (1 - alpha);
    return Luminance(qRed(pixel) * alpha + rest, qGreen(pixel) * alpha + rest, qBlue(pixel) * alpha + rest);
}

double TextLuminance(QString const& colour)
{
    QStringList const parts = colour.split(QLatin1Char(','));
    return Luminance(parts.value(0).toInt(), parts.value(1).toInt(), parts.value(2).toInt());
}

/// The contrast of text with the worst pixel behind it, whatever lies under a translucent one.
double WorstContrast(QImage const& image, QRect const& area, double text)
{
    double worst = 21;
    for (int y = area.top(); y <= area.bottom(); ++y)
    {
        for (int x = area.left(); x <= area.right(); ++x)
        {
            for (int ground : {0, 255})
                worst = qMin(worst, Contrast(text, LuminanceOver(image.pixel(x, y), ground)));
        }
    }
    return worst;
}

double GreyDifference(QImage const& one, QImage const& other)
{
    double sum = 0;
    for (int y = 0; y < one.height(); ++y)
    {
        for (int x = 0; x < one.width(); ++x)
        {
            QRgb const a = one.pixel(x, y);
            QRgb const b = other.pixel(x, y);
            sum += qAbs(qGray(a) * qAlpha(a) - qGray(b) * qAlpha(b)) / 255.0;
        }
    }
    return sum / (one.width() * one.height());
}

QStringList FilesIn(QString const& folder)
{
    return QDir(folder).entryList({QStringLiteral("*.png")}, QDir::Files, QDir::Name);
}
} // namespace

/// Holds the compiled-in art to what the manifest says of it and to the rules of the look.
class TArtTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyNameOfTheToolkitIsDrawnOrWaiting();
    void everyWaitingNameIsOneOfTheToolkit();
    void everyImageHasANameOrALoader();
    void everyImageIsDrawnAtItsSize_data();
    void everyImageIsDrawnAtItsSize();
    void theOpaqueFlagTellsTheTruth_data();
    void theOpaqueFlagTellsTheTruth();
    void stretchedPartsAreFlatOrAVerticalGradient_data();
    void stretchedPartsAreFlatOrAVerticalGradient();
    void textReadsOnItsBackground_data();
    void textReadsOnItsBackground();
    void statesDifferInAGreyCopy_data();
    void statesDifferInAGreyCopy();
    void iconsKeepTheirMargin_data();
    void iconsKeepTheirMargin();
    void theRuntimeManifestNamesWhatIsThere();
    void thePixmapManagerTakesTheManifest();

private:
    void AddImageRows() const;
    TImageRow ImageOf(QString const& name) const;

    TCatalogue m_Catalogue;
};

void TArtTest::initTestCase()
{
    m_Catalogue = ReadCatalogue();
    QVERIFY(!m_Catalogue.m_Images.isEmpty());
    QVERIFY(!m_Catalogue.m_Icons.isEmpty());
}

void TArtTest::AddImageRows() const
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < m_Catalogue.m_Images.size(); ++i)
        QTest::newRow(qPrintable(m_Catalogue.m_Images.at(i).m_File)) << i;
}

TImageRow TArtTest::ImageOf(QString const& name) const
{
    for (TImageRow const& row : m_Catalogue.m_Images)
    {
        if (row.m_Names.contains(name))
            return row;
    }
    return {};
}

void TArtTest::everyNameOfTheToolkitIsDrawnOrWaiting()
{
    QStringList missing;
    auto const names = PixmapNames::All();
    for (QString const& name : names)
    {
        if (ImageOf(name).m_File.isEmpty() && !m_Catalogue.m_Waiting.contains(name))
            missing.append(name);
    }
    QCOMPARE(missing.join(QLatin1Char(' ')), QString());
}

void TArtTest::everyWaitingNameIsOneOfTheToolkit()
{
    QStringList unknown;
    auto const names = PixmapNames::All();
    for (QString const& name : qAsConst(m_Catalogue.m_Waiting))
    {
        if (!names.contains(name))
            unknown.append(name);
    }
    QCOMPARE(unknown.join(QLatin1Char(' ')), QString());
}

void TArtTest::everyImageHasANameOrALoader()
{
    QStringList nameless;
    QSet<QString> known;
    for (TImageRow const& row : qAsConst(m_Catalogue.m_Images))
    {
        known.insert(row.m_File);
        if (row.m_Names.isEmpty())
            nameless.append(row.m_File.chopped(4));
    }
    for (TIconRow const& row : qAsConst(m_Catalogue.m_Icons))
        known.insert(row.m_File);
    QStringList loaded = FilesLoadedByPath();
    loaded.sort();
    nameless.sort();
    QCOMPARE(nameless, loaded);

    auto const compiledIn = FilesIn(ImageFolder) + FilesIn(IconFolder);
    QCOMPARE(QSet<QString>(compiledIn.begin(), compiledIn.end()), known);
}

void TArtTest::everyImageIsDrawnAtItsSize_data()
{
    AddImageRows();
}

void TArtTest::everyImageIsDrawnAtItsSize()
{
    QFETCH(int, index);
    TImageRow const& row = m_Catalogue.m_Images.at(index);
    QCOMPARE(QImage(ImageFolder + row.m_File).size(), row.m_Size);
}

void TArtTest::theOpaqueFlagTellsTheTruth_data()
{
    AddImageRows();
}

void TArtTest::theOpaqueFlagTellsTheTruth()
{
    QFETCH(int, index);
    TImageRow const& row = m_Catalogue.m_Images.at(index);
    QImage const image = Load(ImageFolder + row.m_File);
    int least = 255;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
            least = qMin(least, qAlpha(image.pixel(x, y)));
    }
    QCOMPARE(row.m_Opaque, least == 255);
}

void TArtTest::stretchedPartsAreFlatOrAVerticalGradient_data()
{
    AddImageRows();
}

void TArtTest::stretchedPartsAreFlatOrAVerticalGradient()
{
    QFETCH(int, index);
    TImageRow const& row = m_Catalogue.m_Images.at(index);
    QRect const stretch = row.m_Stretch;
    if (row.m_StretchesWhole || row.m_ScaleWhole)
        return;
    QImage const image = Load(ImageFolder + row.m_File);
    QVERIFY(image.rect().contains(stretch));
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = stretch.left(); x <= stretch.right(); ++x)
            QVERIFY2(Alike(image.pixel(x, y), image.pixel(stretch.left(), y), 1),
                     qPrintable(QStringLiteral("row %1").arg(y)));
    }
    for (int x = 0; x < image.width(); ++x)
    {
        for (int y = stretch.top(); y < stretch.bottom(); ++y)
            QVERIFY2(Alike(image.pixel(x, y), image.pixel(x, y + 1), GradientStep),
                     qPrintable(QStringLiteral("column %1").arg(x)));
    }
}

void TArtTest::textReadsOnItsBackground_data()
{
    AddImageRows();
}

void TArtTest::textReadsOnItsBackground()
{
    QFETCH(int, index);
    TImageRow const& row = m_Catalogue.m_Images.at(index);
    if (row.m_TextColour.isEmpty())
        return;
    QImage const image = Load(ImageFolder + row.m_File);
    int const inset = row.m_TextInset;
    double const contrast = WorstContrast(image, image.rect().adjusted(inset, inset, -inset, -inset),
                                          TextLuminance(row.m_TextColour));
    QVERIFY2(contrast >= LeastContrast, qPrintable(QString::number(contrast)));
}

void TArtTest::statesDifferInAGreyCopy_data()
{
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("selected");
    QMultiMap<QString, QString> const pairs = {
        {QStringLiteral("button-blank"), QStringLiteral("StandardButtonSelected")},
        {QStringLiteral("button-green-up"), QStringLiteral("GreenButtonSelected")},
        {QStringLiteral("button-red-up"), QStringLiteral("RedButtonSelected")},
        {QStringLiteral("button-blue-up"), QStringLiteral("BlueButtonSelected")},
        {QStringLiteral("NewStandardButton"), QStringLiteral("NewDisabledButton")},
        {QStringLiteral("CompactButton"), QStringLiteral("CompactButtonDisabled")},
        {QStringLiteral("SetupTaskButton"), QStringLiteral("SetupTaskButtonDisabled")},
        {QStringLiteral("button-blank"), QStringLiteral("button-disabled")},
        {QStringLiteral("MenuButtonFlatSmall"), QStringLiteral("MenuButtonFlatSelectedSmall")},
        {QStringLiteral("MenuButtonFlatSmall"), QStringLiteral("LargeMenuButton")},
        {QStringLiteral("MenuButtonFlatSmall"), QStringLiteral("LargeMenuButtonSelected")},
        {QStringLiteral("MenuButtonFlatSelectedSmall"), QStringLiteral("LargeMenuButton")},
        {QStringLiteral("WindowToolbarButton"), QStringLiteral("WindowToolbarButtonHighlight")},
        {QStringLiteral("TabBar-tab-off-vertical"), QStringLiteral("TabBar-tab-on-vertical")},
        {QStringLiteral("TabBar-tab-off-vertical"), QStringLiteral("TabBar-tab-off-selected-vertical")},
        {QStringLiteral("TabBar-tab-on-vertical"), QStringLiteral("TabBar-tab-off-selected-vertical")},
        {QStringLiteral("miniWindow-tab-off"), QStringLiteral("miniWindow-tab-on")},
        {QStringLiteral("miniWindow-tab-off"), QStringLiteral("miniWindow-tab-off-selected")},
        {QStringLiteral("miniWindow-tab-on"), QStringLiteral("miniWindow-tab-off-selected")},
        {QStringLiteral("WindowToolbarButtonSelected"),
         QStringLiteral("WindowToolbarButtonHighlightSelected")},
        {QStringLiteral("ListItem"), QStringLiteral("list-interactive-entry-selected")},
    };
    for (TImageRow const& row : qAsConst(m_Catalogue.m_Images))
    {
        QString const selected = row.m_Names.value(0) + QStringLiteral("Selected");
        if (!ImageOf(selected).m_File.isEmpty())
            QTest::newRow(qPrintable(selected)) << row.m_Names.value(0) << selected;
    }
    for (auto pair = pairs.cbegin(); pair != pairs.cend(); ++pair)
        QTest::newRow(qPrintable(pair.value())) << pair.key() << pair.value();
}

void TArtTest::statesDifferInAGreyCopy()
{
    QFETCH(QString, normal);
    QFETCH(QString, selected);
    QImage const one = Load(ImageFolder + ImageOf(normal).m_File);
    QImage const other = Load(ImageFolder + ImageOf(selected).m_File);
    QCOMPARE(one.size(), other.size());
    double const difference = GreyDifference(one, other);
    QVERIFY2(difference >= LeastStateDifference, qPrintable(QString::number(difference)));
}

void TArtTest::iconsKeepTheirMargin_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < m_Catalogue.m_Icons.size(); ++i)
        QTest::newRow(qPrintable(m_Catalogue.m_Icons.at(i).m_File)) << i;
}

void TArtTest::iconsKeepTheirMargin()
{
    QFETCH(int, index);
    TIconRow const& row = m_Catalogue.m_Icons.at(index);
    QImage const image = Load(IconFolder + row.m_File);
    QCOMPARE(image.size(), QSize(row.m_Side, row.m_Side));
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            if (qAlpha(image.pixel(x, y)) > 0)
                ink |= QRect(x, y, 1, 1);
        }
    }
    int const margin = 3 * row.m_Side / 46;
    QScopedArrayPointer<char> const where(QTest::toString(ink));
    QVERIFY2(image.rect().adjusted(margin, margin, -margin, -margin).contains(ink), where.data());
    QVERIFY(qMax(ink.width(), ink.height()) >= row.m_Side / 2);
}

void TArtTest::theRuntimeManifestNamesWhatIsThere()
{
    QMap<QString, QStringList> sizes;
    for (TIconRow const& row : qAsConst(m_Catalogue.m_Icons))
        sizes[row.m_Name].append(QString::number(row.m_Side));
    QSet<QString> names;
    auto const rows = ReadTable(ImageFolder + QStringLiteral("Manifest.tsv"));
    for (QStringList const& cells : rows)
    {
        QVERIFY2(!names.contains(cells.value(1)), qPrintable(cells.value(1)));
        names.insert(cells.value(1));
        if (cells.first() == QLatin1String("icon"))
        {
            QCOMPARE(cells.size(), 3);
            QCOMPARE(cells.value(2), sizes.take(cells.value(1)).join(QLatin1Char(',')));
            continue;
        }
        QCOMPARE(cells.size(), 10);
        QCOMPARE(cells.first(), QStringLiteral("pixmap"));
        QVERIFY2(QFile::exists(ImageFolder + cells.value(2)), qPrintable(cells.value(2)));
        QCOMPARE(ImageOf(cells.value(1)).m_File, cells.value(2));
        QCOMPARE(ImageOf(cells.value(1)).m_Opaque, cells.value(9) == QLatin1String("1"));
    }
    QVERIFY(sizes.isEmpty());
    for (TImageRow const& row : qAsConst(m_Catalogue.m_Images))
        QVERIFY2(names.contains(QSet<QString>(row.m_Names.begin(), row.m_Names.end())),
                 qPrintable(row.m_File));
}

void TArtTest::thePixmapManagerTakesTheManifest()
{
    KVN::PixmapManager pixmaps;
    pixmaps.Initialize();
    for (TImageRow const& row : qAsConst(m_Catalogue.m_Images))
    {
        for (QString const& name : row.m_Names)
        {
            QVERIFY2(pixmaps.HasPixmap(name), qPrintable(name));
            QCOMPARE(pixmaps.GetPixmap(name)->size(), row.m_Size);
            QCOMPARE(pixmaps.IsPixmapOpaque(name), row.m_Opaque);
        }
    }
    for (TIconRow const& row : qAsConst(m_Catalogue.m_Icons))
    {
        QImage const icon = pixmaps.GetResizedIcon(row.m_Name, row.m_Side, KVN::ICON_NORMAL)->toImage();
        QImage const drawn = QPixmap(IconFolder + row.m_File).toImage();
        QVERIFY2(icon == drawn, qPrintable(row.m_File));
    }
}

COMMONUI_TEST(TArtTest)

#include "TArtTest.moc"
