#include "PixmapManager.h"

#include "TestCase.h"
#include "UserLog.h"

#include <QPainter>
#include <QTemporaryDir>

#include <algorithm>

using KVN::PixmapManager;

namespace
{
/// Keeps what is logged while the object lives.
class TLogKeeper
{
public:
    TLogKeeper()
        : m_Log(std::make_shared<TLines>())
        , m_Before(SetUserLog(m_Log))
    {
    }
    ~TLogKeeper() { SetUserLog(m_Before); }
    TLogKeeper(TLogKeeper const&) = delete;
    TLogKeeper& operator=(TLogKeeper const&) = delete;

    QStringList const& Lines() const { return m_Log->lines; }
    int CountWith(QString const& part) const { return Lines().filter(part).size(); }

private:
    struct TLines : IUserLogAccessor
    {
        void AddEntry(QString const& text) override { lines.append(text); }
        QStringList lines;
    };

    std::shared_ptr<TLines> m_Log;
    UserLogAccessorPtr m_Before;
};

QImage Shown(QSharedPointer<QPixmap> const& pixmap)
{
    return pixmap->toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QImage FileImage(QString const& path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QString ImagePath(QString const& file)
{
    return QStringLiteral(":/Images/Resources/") + file;
}

bool IsFilledWith(QImage const& image, QRgb pixel)
{
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 0; x < image.width(); ++x)
        {
            if (image.pixel(x, y) != pixel)
                return false;
        }
    }
    return true;
}

/// A vertical ramp, the same in every column.
QImage Ramp(QSize const& size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
    {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(4 * y, 100 + y, 255 - 3 * y));
    }
    return image;
}

bool ColumnsAreAlike(QImage const& image)
{
    for (int y = 0; y < image.height(); ++y)
    {
        for (int x = 1; x < image.width(); ++x)
        {
            if (image.pixel(x, y) != image.pixel(0, y))
                return false;
        }
    }
    return true;
}
} // namespace

class PixmapManagerTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_Log = std::make_unique<TLogKeeper>(); }
    void cleanup() { m_Log.reset(); }

    void initializeRegistersTheManifest()
    {
        PixmapManager manager;
        QVERIFY(!manager.HasPixmap(QStringLiteral("Frame")));
        manager.Initialize();
        for (char const* name : {"Frame", "Solid", "Double", "Broken", "UndefinedPixmap"})
            QVERIFY2(manager.HasPixmap(QString::fromLatin1(name)), name);
        QCOMPARE(Shown(manager.GetPixmap(QStringLiteral("Frame"))), FileImage(ImagePath("Frame.png")));
    }

    void damagedLinesAreLeftOutWithOneLogLineEach()
    {
        PixmapManager manager;
        manager.Initialize();
        for (char const* name : {"TooFewFields", "NoNumber", "Negative", "NoSwitch", "NoScale", "NoFile",
                                 "NoKind", "", "descending"})
            QVERIFY2(!manager.HasPixmap(QString::fromLatin1(name)), name);
        QCOMPARE(m_Log->Lines().size(), 11);
        for (int line : {8, 9, 10, 11, 12, 13, 14, 15, 20, 21, 22})
            QCOMPARE(m_Log->CountWith(QStringLiteral("Line %1 ").arg(line)), 1);
    }

    void initializeTwiceKeepsTheForms()
    {
        PixmapManager manager;
        manager.Initialize();
        auto const before = manager.GetResizedPixmap(QStringLiteral("Frame"), 40, 30);
        manager.Initialize();
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("Frame"), 40, 30), before);
    }

    void emptyNameIsANullPixmapInSilence()
    {
        PixmapManager manager;
        QVERIFY(manager.GetPixmap(QString())->isNull());
        QVERIFY(manager.GetResizedPixmap(QString(), 10, 10)->isNull());
        QVERIFY(manager.GetIcon(QString(), KVN::ICON_NORMAL)->isNull());
        QVERIFY(manager.GetResizedIcon(QString(), 10, KVN::ICON_DISABLED)->isNull());
        QVERIFY(!manager.IsPixmapOpaque(QString()));
        QVERIFY(!manager.HasPixmap(QString()));
        manager.AddPixmap(QString(), ImagePath("Solid.png"), 0, 0, 0, 0, false, 1.0F);
        QVERIFY(!manager.HasPixmap(QString()));
        QVERIFY(m_Log->Lines().isEmpty());
    }

    void unknownNameShowsTheUndefinedImageAndLogsOnce()
    {
        PixmapManager manager;
        manager.Initialize();
        int const before = m_Log->Lines().size();
        QImage const undefined = FileImage(ImagePath("Undefined.png"));
        QCOMPARE(Shown(manager.GetPixmap(QStringLiteral("nobody"))), undefined);
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("nobody"), 30, 20)->size(), QSize(30, 20));
        QCOMPARE(manager.GetResizedIcon(QStringLiteral("nobody"), 70, KVN::ICON_NORMAL)->size(),
                 QSize(70, 70));
        QCOMPARE(manager.GetIcon(QStringLiteral("nobody"), KVN::ICON_NORMAL)->size(), QSize(46, 46));
        QVERIFY(!manager.IsPixmapOpaque(QStringLiteral("nobody")));
        QCOMPARE(m_Log->Lines().size(), before + 1);
        QVERIFY(m_Log->Lines().last().contains(QStringLiteral("nobody")));
        QCOMPARE(Shown(manager.GetPixmap(QStringLiteral("somebody"))), undefined);
        QCOMPARE(m_Log->Lines().size(), before + 2);
    }

    void unreadableFileShowsTheUndefinedImageAndLogsOnce()
    {
        PixmapManager manager;
        manager.Initialize();
        int const before = m_Log->Lines().size();
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("Broken"), 30, 20)->size(), QSize(30, 20));
        QCOMPARE(Shown(manager.GetPixmap(QStringLiteral("Broken"))), FileImage(ImagePath("Undefined.png")));
        QVERIFY(!manager.IsPixmapOpaque(QStringLiteral("Broken")));
        QCOMPARE(m_Log->Lines().size(), before + 1);
        QVERIFY(m_Log->Lines().last().contains(QStringLiteral("Broken.png")));
    }

    void withoutAnyUndefinedImageACheckeredOneStands()
    {
        PixmapManager manager;
        QImage const image = Shown(manager.GetPixmap(QStringLiteral("nobody")));
        QVERIFY(!image.isNull());
        QVERIFY(image.pixel(0, 0) != image.pixel(image.width() - 1, 0));
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("nobody"), 3, 50)->size(), QSize(3, 50));
        manager.AddPixmap(QStringLiteral("UndefinedPixmap"), QStringLiteral("/no/such/file.png"), 0, 0, 0, 0,
                          false, 1.0F);
        QCOMPARE(Shown(manager.GetPixmap(QStringLiteral("UndefinedPixmap"))), image);
    }

    void registrationWithoutAPathIsUnreadable()
    {
        PixmapManager manager;
        auto const checkered = manager.GetPixmap(QStringLiteral("nobody"));
        int const before = m_Log->Lines().size();
        manager.AddPixmap(QStringLiteral("pathless"), QString(), 0, 0, 0, 0, false, 1.0F);
        QCOMPARE(manager.GetPixmap(QStringLiteral("pathless")), checkered);
        QCOMPARE(m_Log->Lines().size(), before + 1);
    }

    void registeringAnewReplacesImageAndForms()
    {
        PixmapManager manager;
        QString const name = QStringLiteral("changing");
        manager.AddPixmap(name, ImagePath("Solid.png"), 0, 0, 0, 0, false, 1.0F);
        auto const solid = manager.GetResizedPixmap(name, 24, 20);
        QVERIFY(manager.IsPixmapOpaque(name));
        manager.AddPixmap(name, ImagePath("Frame.png"), 3, 3, 8, 6, false, 1.0F);
        QVERIFY(!manager.IsPixmapOpaque(name));
        QVERIFY(Shown(manager.GetResizedPixmap(name, 24, 20)) != Shown(solid));
        QCOMPARE(Shown(manager.GetPixmap(name)), FileImage(ImagePath("Frame.png")));
    }

    void registeringAnewMakesABrokenNameGood()
    {
        PixmapManager manager;
        QString const name = QStringLiteral("mended");
        manager.AddPixmap(name, ImagePath("Broken.png"), 0, 0, 0, 0, false, 1.0F);
        manager.GetPixmap(name);
        manager.AddPixmap(name, ImagePath("Solid.png"), 0, 0, 0, 0, false, 1.0F);
        QCOMPARE(Shown(manager.GetPixmap(name)), FileImage(ImagePath("Solid.png")));
    }

    void sizeBelowOneIsANullPixmap()
    {
        PixmapManager manager;
        manager.Initialize();
        QVERIFY(manager.GetResizedPixmap(QStringLiteral("Frame"), 0, 10)->isNull());
        QVERIFY(manager.GetResizedPixmap(QStringLiteral("Frame"), 10, -1)->isNull());
        QVERIFY(manager.GetResizedIcon(QStringLiteral("probe"), 0, KVN::ICON_NORMAL)->isNull());
        QVERIFY(manager.GetResizedIcon(QStringLiteral("probe"), -46, KVN::ICON_NORMAL)->isNull());
    }

    void sizeBeyondAllMemoryIsANullPixmap()
    {
        PixmapManager manager;
        manager.Initialize();
        QVERIFY(manager.GetResizedPixmap(QStringLiteral("Frame"), 1000000, 1000000)->isNull());
        QVERIFY(manager.GetResizedPixmap(QStringLiteral("Frame"), INT_MAX, INT_MAX)->isNull());
        QVERIFY(manager.GetResizedIcon(QStringLiteral("nobody"), INT_MAX, KVN::ICON_NORMAL)->isNull());
    }

    void opacityComesFromManifestOrImage()
    {
        PixmapManager manager;
        manager.Initialize();
        QVERIFY(manager.IsPixmapOpaque(QStringLiteral("Solid")));
        QVERIFY(!manager.IsPixmapOpaque(QStringLiteral("Frame")));
        manager.AddPixmap(QStringLiteral("full"), ImagePath("OpaqueWithAlphaChannel.png"), 0, 0, 0, 0, false,
                          1.0F);
        QVERIFY(manager.IsPixmapOpaque(QStringLiteral("full")));
        manager.AddPixmap(QStringLiteral("part"), ImagePath("Frame.png"), 0, 0, 0, 0, false, 1.0F);
        QVERIFY(!manager.IsPixmapOpaque(QStringLiteral("part")));
    }

    void formatsAreQuickToDraw()
    {
        PixmapManager manager;
        manager.Initialize();
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("Solid"), 50, 40)->toImage().format(),
                 QImage::Format_RGB32);
        QCOMPARE(manager.GetPixmap(QStringLiteral("Solid"))->toImage().format(), QImage::Format_RGB32);
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("Frame"), 50, 40)->toImage().format(),
                 QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(manager.GetIcon(QStringLiteral("probe"), KVN::ICON_DISABLED)->toImage().format(),
                 QImage::Format_ARGB32_Premultiplied);
    }

    void scaleMultipliesTheNaturalSize()
    {
        PixmapManager manager;
        manager.Initialize();
        QCOMPARE(manager.GetPixmap(QStringLiteral("Double"))->size(), QSize(16, 12));
        manager.AddPixmap(QStringLiteral("half"), ImagePath("Frame.png"), 0, 0, 0, 0, false, 0.5F);
        QCOMPARE(manager.GetPixmap(QStringLiteral("half"))->size(), QSize(6, 5));
        manager.AddPixmap(QStringLiteral("tiny"), ImagePath("Frame.png"), 0, 0, 0, 0, false, 0.001F);
        QCOMPARE(manager.GetPixmap(QStringLiteral("tiny"))->size(), QSize(1, 1));
    }

    void scaleThatIsNoneCountsAsOne_data()
    {
        QTest::addColumn<float>("scale");
        QTest::newRow("zero") << 0.0F;
        QTest::newRow("negative") << -2.0F;
        QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN();
        QTest::newRow("infinite") << std::numeric_limits<float>::infinity();
    }

    void scaleThatIsNoneCountsAsOne()
    {
        QFETCH(float, scale);
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("odd"), ImagePath("Frame.png"), 3, 3, 8, 6, false, scale);
        QCOMPARE(manager.GetPixmap(QStringLiteral("odd"))->size(), QSize(12, 10));
    }

    void scaleThatTakesAllMemoryIsUnreadable()
    {
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("giant"), ImagePath("Frame.png"), 0, 0, 0, 0, false, 1e30F);
        QVERIFY(manager.GetPixmap(QStringLiteral("giant"))->width() < 100);
        QCOMPARE(m_Log->Lines().size(), 1);
    }

    void stretchRectScalesWithTheImage()
    {
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("doubled"), ImagePath("Frame.png"), 3, 3, 8, 6, false, 2.0F);
        QImage const natural = Shown(manager.GetPixmap(QStringLiteral("doubled")));
        QImage const form = Shown(manager.GetResizedPixmap(QStringLiteral("doubled"), 60, 50));
        QCOMPARE(form.copy(0, 0, 6, 6), natural.copy(0, 0, 6, 6));
        QCOMPARE(form.copy(54, 44, 6, 6), natural.copy(18, 14, 6, 6));
    }

    void cornersKeepEveryPixel_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("larger") << QSize(61, 47);
        QTest::newRow("wider") << QSize(200, 10);
        QTest::newRow("higher") << QSize(12, 90);
        QTest::newRow("wider and lower") << QSize(33, 7);
        QTest::newRow("smaller") << QSize(9, 8);
        QTest::newRow("corners alone") << QSize(6, 6);
    }

    void cornersKeepEveryPixel()
    {
        QFETCH(QSize, size);
        PixmapManager manager;
        manager.Initialize();
        QImage const source = FileImage(ImagePath("Frame.png"));
        QImage const form =
            Shown(manager.GetResizedPixmap(QStringLiteral("Frame"), size.width(), size.height()));
        QCOMPARE(form.size(), size);
        int const right = size.width() - 3;
        int const bottom = size.height() - 3;
        QCOMPARE(form.copy(0, 0, 3, 3), source.copy(0, 0, 3, 3));
        QCOMPARE(form.copy(right, 0, 3, 3), source.copy(9, 0, 3, 3));
        QCOMPARE(form.copy(0, bottom, 3, 3), source.copy(0, 7, 3, 3));
        QCOMPARE(form.copy(right, bottom, 3, 3), source.copy(9, 7, 3, 3));
    }

    void bordersAndMiddleKeepTheirColour()
    {
        PixmapManager manager;
        manager.Initialize();
        QImage const source = FileImage(ImagePath("Frame.png"));
        for (int width = 7; width < 70; ++width)
        {
            int const height = 7 + (width * 5) % 61;
            QImage const form = Shown(manager.GetResizedPixmap(QStringLiteral("Frame"), width, height));
            QRgb const border = source.pixel(5, 0);
            QVERIFY(IsFilledWith(form.copy(3, 0, width - 6, 3), border));
            QVERIFY(IsFilledWith(form.copy(3, height - 3, width - 6, 3), border));
            QVERIFY(IsFilledWith(form.copy(0, 3, 3, height - 6), border));
            QVERIFY(IsFilledWith(form.copy(width - 3, 3, 3, height - 6), border));
            QVERIFY(IsFilledWith(form.copy(3, 3, width - 6, height - 6), source.pixel(5, 5)));
        }
    }

    void flatImageHasNoSeamsAtAnySize_data()
    {
        QTest::addColumn<QColor>("colour");
        QTest::newRow("white") << QColor(255, 255, 255);
        QTest::newRow("odd colour") << QColor(201, 99, 17);
        QTest::newRow("translucent") << QColor(250, 3, 128, 77);
    }

    void flatImageHasNoSeamsAtAnySize()
    {
        QFETCH(QColor, colour);
        QString const path = SaveImage(
            [&colour]
            {
                QImage image(20, 20, QImage::Format_ARGB32);
                image.fill(colour);
                return image;
            }());
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("flat"), path, 6, 7, 12, 11, false, 1.0F);
        QRgb const pixel = manager.GetPixmap(QStringLiteral("flat"))->toImage().pixel(0, 0);
        for (int side = 1; side < 90; ++side)
        {
            QImage const wide = manager.GetResizedPixmap(QStringLiteral("flat"), 90 - side, side)->toImage();
            QVERIFY2(IsFilledWith(wide, pixel), qPrintable(QString::number(side)));
        }
    }

    void gradientStretchesEvenlyAndWithoutSteps()
    {
        QString const path = SaveImage(Ramp({20, 40}));
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("ramp"), path, 5, 10, 14, 29, false, 1.0F);
        for (int height : {15, 40, 41, 77, 160})
        {
            QImage const form = manager.GetResizedPixmap(QStringLiteral("ramp"), 93, height)->toImage();
            QVERIFY(ColumnsAreAlike(form));
            for (int y = 1; y < height; ++y)
            {
                QVERIFY(qRed(form.pixel(0, y)) >= qRed(form.pixel(0, y - 1)));
                if (height >= 40)
                    QVERIFY(qRed(form.pixel(0, y)) - qRed(form.pixel(0, y - 1)) <= 5);
            }
        }
    }

    void targetBelowTheMarginsSqueezesThemInProportion()
    {
        QImage image(30, 10, QImage::Format_RGB32);
        image.fill(Qt::green);
        QPainter painter(&image);
        painter.fillRect(0, 0, 20, 10, Qt::red);
        painter.fillRect(25, 0, 5, 10, Qt::blue);
        painter.end();
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("squeezed"), SaveImage(image), 20, 0, 24, 9, false, 1.0F);
        QImage const form = manager.GetResizedPixmap(QStringLiteral("squeezed"), 10, 10)->toImage();
        QVERIFY(IsFilledWith(form.copy(0, 0, 8, 10), qRgb(255, 0, 0)));
        QVERIFY(IsFilledWith(form.copy(8, 0, 2, 10), qRgb(0, 0, 255)));
    }

    void stretchRectIsHeldToTheImage_data()
    {
        QTest::addColumn<QVector<int>>("rect");
        QTest::newRow("beyond") << QVector<int>{3, 3, 500, 500};
        QTest::newRow("huge") << QVector<int>{3, 3, INT_MAX, INT_MAX};
        QTest::newRow("negative") << QVector<int>{-5, INT_MIN, 8, 6};
        QTest::newRow("reversed") << QVector<int>{8, 6, 3, 3};
        QTest::newRow("wholly outside") << QVector<int>{INT_MAX, 100, INT_MAX, 100};
    }

    void stretchRectIsHeldToTheImage()
    {
        QFETCH(QVector<int>, rect);
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("odd"), ImagePath("Frame.png"), rect[0], rect[1], rect[2], rect[3],
                          false, 1.0F);
        for (QSize const size : {QSize(1, 1), QSize(5, 90), QSize(60, 50)})
            QCOMPARE(manager.GetResizedPixmap(QStringLiteral("odd"), size.width(), size.height())->size(),
                     size);
    }

    void scaleWholeCoversAnEnlargedSizeAndKeepsTheAspect()
    {
        QImage image(20, 10, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter(&image).fillRect(5, 0, 10, 10, Qt::white);
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("splash"), SaveImage(image), 2, 2, 5, 5, true, 1.0F);
        QImage const form = manager.GetResizedPixmap(QStringLiteral("splash"), 100, 100)->toImage();
        // As wide as the white part when the height is covered: the black sides are cut off.
        QCOMPARE(form.pixel(10, 50), qRgb(255, 255, 255));
        QCOMPARE(form.pixel(90, 50), qRgb(255, 255, 255));
        QImage const wide = manager.GetResizedPixmap(QStringLiteral("splash"), 200, 100)->toImage();
        QCOMPARE(wide.pixel(20, 50), qRgb(0, 0, 0));
        QCOMPARE(wide.pixel(100, 50), qRgb(255, 255, 255));
    }

    void scaleWholeKeepsTheFrameOfASmallerSize()
    {
        PixmapManager manager;
        manager.Initialize();
        manager.AddPixmap(QStringLiteral("whole"), ImagePath("Frame.png"), 3, 3, 8, 6, true, 1.0F);
        QCOMPARE(Shown(manager.GetResizedPixmap(QStringLiteral("whole"), 9, 8)),
                 Shown(manager.GetResizedPixmap(QStringLiteral("Frame"), 9, 8)));
    }

    void naturalSizeIsTheImageItself()
    {
        PixmapManager manager;
        manager.Initialize();
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("Frame"), 12, 10),
                 manager.GetPixmap(QStringLiteral("Frame")));
    }

    void namesOfOneFileShareItsImage()
    {
        PixmapManager manager;
        manager.AddPixmap(QStringLiteral("one"), ImagePath("Solid.png"), 0, 0, 0, 0, false, 1.0F);
        manager.AddPixmap(QStringLiteral("two"), ImagePath("Solid.png"), 1, 1, 2, 2, false, 1.0F);
        QCOMPARE(manager.GetPixmap(QStringLiteral("one")), manager.GetPixmap(QStringLiteral("two")));
    }

    void sameFormIsSharedEvenAfterTheCacheLetItGo()
    {
        PixmapManager manager(0);
        manager.Initialize();
        auto const first = manager.GetResizedPixmap(QStringLiteral("Frame"), 40, 30);
        QCOMPARE(manager.CachedBytes(), qint64(0));
        for (int i = 0; i < 1000; ++i)
            manager.GetResizedPixmap(QStringLiteral("Frame"), 41 + i % 50, 30 + i / 50);
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("Frame"), 40, 30), first);
    }

    void cacheStaysWithinItsBoundAndDropsTheLeastRecentlyUsed()
    {
        qint64 const bound = 3 * 40 * 30 * 4;
        PixmapManager manager(bound);
        manager.Initialize();
        QString const name = QStringLiteral("Frame");
        QWeakPointer<QPixmap> const first = manager.GetResizedPixmap(name, 40, 30);
        QWeakPointer<QPixmap> const second = manager.GetResizedPixmap(name, 30, 40);
        QCOMPARE(manager.CachedBytes(), 2 * bound / 3);
        manager.GetResizedPixmap(name, 20, 60);
        QCOMPARE(manager.CachedBytes(), bound);
        manager.GetResizedPixmap(name, 40, 30);
        manager.GetResizedPixmap(name, 60, 20);
        QCOMPARE(manager.CachedBytes(), bound);
        QVERIFY(!first.isNull());
        QVERIFY(second.isNull());
    }

    void formBeyondTheBoundIsMadeButNotKept()
    {
        PixmapManager manager(1000);
        manager.Initialize();
        QCOMPARE(manager.GetResizedPixmap(QStringLiteral("Frame"), 100, 100)->size(), QSize(100, 100));
        QCOMPARE(manager.CachedBytes(), qint64(0));
    }

    void pixmapInUseOutlivesItsManager()
    {
        auto manager = std::make_unique<PixmapManager>();
        manager->Initialize();
        auto const form = manager->GetResizedPixmap(QStringLiteral("Frame"), 40, 30);
        manager.reset();
        QCOMPARE(form->size(), QSize(40, 30));
    }

    void standardIconIs46OrTheLargest()
    {
        PixmapManager manager;
        manager.Initialize();
        QCOMPARE(manager.GetIcon(QStringLiteral("probe"), KVN::ICON_NORMAL)->size(), QSize(46, 46));
        QCOMPARE(manager.GetIcon(QStringLiteral("large"), KVN::ICON_NORMAL)->size(), QSize(64, 64));
    }

    void resizedIconComesFromTheNextLargerDrawing_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("drawn");
        QTest::addColumn<int>("given");
        QTest::newRow("smaller than any") << 10 << 24 << 10;
        QTest::newRow("drawn exactly") << 24 << 24 << 24;
        QTest::newRow("between") << 25 << 46 << 25;
        QTest::newRow("standard") << 46 << 46 << 46;
        QTest::newRow("largest") << 92 << 92 << 92;
        QTest::newRow("above the largest") << 93 << 92 << 92;
        QTest::newRow("far above the largest") << 5000 << 92 << 92;
    }

    // The red of each drawing of the icon is its size.
    void resizedIconComesFromTheNextLargerDrawing()
    {
        QFETCH(int, size);
        QFETCH(int, drawn);
        QFETCH(int, given);
        PixmapManager manager;
        manager.Initialize();
        auto const icon = manager.GetResizedIcon(QStringLiteral("probe"), size, KVN::ICON_NORMAL);
        QCOMPARE(icon->size(), QSize(given, given));
        QCOMPARE(qRed(icon->toImage().pixel(given / 2, given / 2)), drawn);
        if (drawn == given)
            QCOMPARE(Shown(icon), FileImage(QStringLiteral(":/Icons/Resources/probe@%1.png").arg(drawn)));
    }

    void sizesAboveTheLargestShareOneIcon()
    {
        PixmapManager manager;
        manager.Initialize();
        QCOMPARE(manager.GetResizedIcon(QStringLiteral("probe"), 100, KVN::ICON_NORMAL),
                 manager.GetResizedIcon(QStringLiteral("probe"), 92, KVN::ICON_NORMAL));
    }

    void disabledIconIsGreyByItsRule()
    {
        PixmapManager manager;
        manager.Initialize();
        QImage const normal = manager.GetIcon(QStringLiteral("probe"), KVN::ICON_NORMAL)->toImage();
        QImage const grey = manager.GetIcon(QStringLiteral("probe"), KVN::ICON_DISABLED)->toImage();
        int const value = (16 * 200 + 11 * 46 + 5 * 100) >> 5;
        QCOMPARE(grey.pixel(23, 23), qRgba(value, value, value, 255));
        for (int x = 0; x < 46; ++x)
            QCOMPARE(qAlpha(grey.pixel(x, 20)), qAlpha(normal.pixel(x, 20)));
    }

    void missingDrawingIsLoggedAndTheNextStandsIn()
    {
        PixmapManager manager;
        manager.Initialize();
        int const before = m_Log->Lines().size();
        auto const icon = manager.GetIcon(QStringLiteral("holed"), KVN::ICON_NORMAL);
        QCOMPARE(icon->size(), QSize(46, 46));
        QCOMPARE(qRed(icon->toImage().pixel(23, 23)), 60);
        manager.GetResizedIcon(QStringLiteral("holed"), 40, KVN::ICON_DISABLED);
        QCOMPARE(m_Log->Lines().size(), before + 1);
        QVERIFY(m_Log->Lines().last().contains(QStringLiteral("holed@46.png")));
    }

    void iconWithoutAnyDrawingIsUndefined()
    {
        PixmapManager manager;
        manager.Initialize();
        QImage const icon = Shown(manager.GetIcon(QStringLiteral("gone"), KVN::ICON_NORMAL));
        QCOMPARE(icon, Shown(manager.GetIcon(QStringLiteral("nobody"), KVN::ICON_NORMAL)));
        QCOMPARE(icon.size(), QSize(46, 46));
        QCOMPARE(manager.GetIcon(QStringLiteral("gone"), KVN::ICON_NORMAL)->size(), QSize(46, 46));
    }

    void pixmapAskedForAsAnIconIsNeverEnlarged()
    {
        PixmapManager manager;
        manager.Initialize();
        int const before = m_Log->Lines().size();
        QCOMPARE(manager.GetResizedIcon(QStringLiteral("Frame"), 40, KVN::ICON_NORMAL)->size(),
                 QSize(12, 10));
        QCOMPARE(manager.GetResizedIcon(QStringLiteral("Frame"), 6, KVN::ICON_NORMAL)->size(), QSize(6, 5));
        QImage const grey =
            manager.GetResizedIcon(QStringLiteral("Frame"), 40, KVN::ICON_DISABLED)->toImage();
        QCOMPARE(qRed(grey.pixel(5, 0)), qBlue(grey.pixel(5, 0)));
        QCOMPARE(m_Log->Lines().size(), before);
    }

private:
    QString SaveImage(QImage const& image)
    {
        QString const path = m_Folder.filePath(QStringLiteral("image%1.png").arg(++m_Saved));
        return image.save(path) ? path : QString();
    }

    std::unique_ptr<TLogKeeper> m_Log;
    QTemporaryDir m_Folder;
    int m_Saved = 0;
};

COMMONUI_TEST(PixmapManagerTest)
#include "PixmapManagerTest.moc"
