#include "TMessageDialog.h"
#include "TestCase.h"
#include "TMessageStage.h"

namespace
{
QPixmap Picture(int width)
{
    if (width == 0)
        return {};
    QPixmap picture(width, 20);
    picture.fill(Qt::red);
    return picture;
}
} // namespace

/// Messages on a screen of less than 1024 pixels in width.
class TMessageDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTextHas300PixelsBesideThePicture_data()
    {
        QTest::addColumn<int>("picture");
        QTest::addColumn<QRect>("place");
        // Centred on a screen of 800 pixels, whose shadow of 9 pixels does not count.
        QTest::newRow("no picture") << 0 << QRect(254, 0, 300, 0);
        QTest::newRow("picture") << 60 << QRect(223, 0, 363, 0);
        QTest::newRow("the last that fits") << 477 << QRect(14, 0, 780, 0);
        QTest::newRow("picture that is too wide") << 478 << QRect(14, 0, 780, 0);
    }

    void aTextHas300PixelsBesideThePicture()
    {
        QFETCH(int, picture);
        QFETCH(QRect, place);
        TMessageStage const stage;
        TMessageDialog dialog(nullptr, QString(), QStringLiteral("Stop"), MESSAGE_OK, false,
                              Picture(picture));
        dialog.ShowWindow(true);
        QCOMPARE(dialog.x(), place.x());
        QCOMPARE(dialog.width(), place.width());
    }

    void aMessageOverAWindowKeepsItsWidth()
    {
        TMessageStage stage;
        for (int const picture : {0, 60})
        {
            TMessageDialog dialog(stage.Window(QSize(500, 400)), QString(), QStringLiteral("Stop"),
                                  MESSAGE_OK, false, Picture(picture));
            dialog.ShowWindow(true);
            QCOMPARE(dialog.width(), 260);
        }
    }

    void aMessageMayTakeTheHeightOfWhatItLiesOn_data()
    {
        QTest::addColumn<QSize>("room"); // empty: the screen
        QTest::addColumn<int>("height");
        QTest::newRow("screen") << QSize() << 600;
        QTest::newRow("window") << QSize(300, 250) << 250;
    }

    void aMessageMayTakeTheHeightOfWhatItLiesOn()
    {
        QFETCH(QSize, room);
        QFETCH(int, height);
        TMessageStage stage;
        for (bool const modal : {true, false})
        {
            TMessageDialog dialog(room.isEmpty() ? nullptr : stage.Window(room), QString(),
                                  TMessageStage::Lines(100), MESSAGE_OK);
            dialog.ShowWindow(modal);
            QCoreApplication::processEvents();
            QCOMPARE(dialog.height(), height);
            QVERIFY(TMessageStage::BarOf(dialog)->isVisible());
        }
    }
};

COMMONUI_TEST(TMessageDialogTest)
#include "TMessageDialogTest.moc"
