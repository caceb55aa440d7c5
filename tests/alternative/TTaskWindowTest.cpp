#include "TTaskWindow.h"
#include "TestCase.h"
#include "TestScreen.h"

/// Task windows that take the whole screen.
class TTaskWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTaskWindowIsModalForItsModule()
    {
        TTestScreen screen;
        TTaskWindow window(nullptr);
        QCOMPARE(window.ModalType(), int(KVN::MODAL_LOCAL));
        window.ShowWindow(false);
        QCOMPARE(window.ModalType(), int(KVN::MODAL_LOCAL));
    }

    void aTaskWindowFillsItsRoom()
    {
        TTestScreen screen;
        TTaskWindow window(nullptr);
        window.SetDesiredContentSize(200, 100);
        window.SetMaxContentSize(300, 200);
        QCOMPARE(window.PlaceIn(QRect(10, 20, 700, 600)), QRect(10, 20, 700, 600));
        window.ShowWindow(false);
        QCOMPARE(window.geometry(), screen->rect());
    }

    void aTaskWindowHidesWhatIsBelowItToItsCorners()
    {
        TTestScreen screen;
        TTaskWindow window(nullptr);
        window.ShowWindow(false);
        QVERIFY(window.testAttribute(Qt::WA_OpaquePaintEvent));
        QImage picture(window.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::green);
        window.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
        for (QPoint const& corner : {picture.rect().topLeft(), picture.rect().topRight(),
                                     picture.rect().bottomLeft(), picture.rect().bottomRight()})
            QVERIFY(picture.pixelColor(corner) != QColor(Qt::green));
    }
};

COMMONUI_TEST(TTaskWindowTest)
#include "TTaskWindowTest.moc"
