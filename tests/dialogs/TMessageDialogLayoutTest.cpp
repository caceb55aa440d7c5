#include "GoldenPicture.h"
#include "Metrics.h"
#include "OddTexts.h"
#include "TButtonBar.h"
#include "TestCase.h"
#include "TMessageStage.h"

#include <QLabel>
#include <QPainter>

namespace
{
constexpr int LineHeight = 17;
constexpr int BarWidth = 33;

class TProbe : public TMessageDialog
{
public:
    using TMessageDialog::GetBorderSize;
    using TMessageDialog::GetButtonBar;
    using TMessageDialog::SetDesiredWidth;
    using TMessageDialog::TMessageDialog;

    void ReCentre(QWidget* parent) override
    {
        centredOn << parent;
        TMessageDialog::ReCentre(parent);
    }

    QVector<QWidget*> centredOn;
};

QPixmap Picture(QSize const& size)
{
    if (size.isEmpty())
        return {};
    QPixmap picture(size);
    picture.fill(QColor(200, 120, 40));
    return picture;
}

// A disc, so that a picture that is cut or moved shows.
QPixmap Disc(int size)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(220, 150, 30));
    painter.setPen(QPen(QColor(30, 30, 30), 3));
    painter.drawEllipse(picture.rect().adjusted(3, 3, -3, -3));
    return picture;
}

QString Sentence(int repeats)
{
    return QStringLiteral("The left boom is not locked. ").repeated(repeats);
}

// What can be read in the last line of \a label, in white on black.
QImage LastLine(QLabel* label)
{
    QImage image(label->width(), LineHeight, QImage::Format_RGB32);
    image.fill(Qt::black);
    QRect const line(0, label->height() - LineHeight, label->width(), LineHeight);
    label->render(&image, QPoint(), line, QWidget::DrawChildren);
    return image;
}
} // namespace

class TMessageDialogLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contentsAreFitted_data()
    {
        QTest::addColumn<int>("lines");
        QTest::addColumn<QSize>("picture");
        QTest::addColumn<QSize>("reference"); // empty: the screen
        QTest::addColumn<bool>("modal");
        QTest::addColumn<int>("type");
        QTest::addColumn<QRect>("dialogRect");
        QTest::addColumn<QRect>("textRect");
        QTest::addColumn<QRect>("pictureRect");
        QTest::addColumn<bool>("hasBar");

        QSize const none;
        QSize const screen;
        // Over the screen a modal dialog stands at y 288 before it grows, and may take 470 pixels.
        QTest::newRow("one line") << 1 << none << screen << true << 0 << QRect(386, 318, 260, 140)
                                  << QRect(9, 38, 236, 17) << QRect(9, 38, 0, 0) << false;
        QTest::newRow("the last that fits") << 20 << none << screen << true << 0 << QRect(386, 157, 260, 463)
                                            << QRect(9, 38, 236, 340) << QRect(9, 38, 0, 0) << false;
        QTest::newRow("the first that does not fit")
            << 21 << none << screen << true << 0 << QRect(386, 153, 260, 470) << QRect(9, 38, 236, 347)
            << QRect(9, 38, 0, 0) << true;
        QTest::newRow("without buttons") << 3 << none << screen << true << 12 << QRect(386, 336, 260, 104)
                                         << QRect(9, 38, 236, 51) << QRect(9, 38, 0, 0) << false;
        QTest::newRow("four buttons") << 1 << none << screen << true << 7 << QRect(386, 318, 260, 140)
                                      << QRect(9, 38, 236, 17) << QRect(9, 38, 0, 0) << false;
        QTest::newRow("text lower than the picture")
            << 1 << QSize(60, 100) << screen << true << 0 << QRect(386, 277, 260, 223)
            << QRect(72, 79, 173, 100) << QRect(9, 38, 60, 100) << false;
        QTest::newRow("picture lower than the text")
            << 10 << QSize(60, 31) << screen << true << 0 << QRect(386, 242, 260, 293)
            << QRect(72, 38, 173, 170) << QRect(9, 107, 60, 31) << false;
        QTest::newRow("picture beside a text that does not fit")
            << 30 << QSize(60, 100) << screen << true << 0 << QRect(386, 153, 260, 470)
            << QRect(72, 38, 173, 347) << QRect(9, 38, 60, 100) << true;
        QTest::newRow("picture that does not fit")
            << 1 << QSize(60, 800) << screen << true << 0 << QRect(386, 153, 260, 470)
            << QRect(72, 38, 173, 347) << QRect(9, 38, 60, 470) << true;
        QTest::newRow("picture that leaves the text no room")
            << 1 << QSize(400, 20) << screen << true << 0 << QRect(386, 317, 260, 143)
            << QRect(412, 39, 0, 20) << QRect(9, 38, 400, 20) << false;
        // A dialog that is not modal stands at y 60, and may take 698 pixels.
        QTest::newRow("not modal") << 33 << none << screen << false << 0 << QRect(350, 60, 260, 684)
                                   << QRect(9, 38, 236, 561) << QRect(9, 38, 0, 0) << false;
        QTest::newRow("not modal, too long") << 34 << none << screen << false << 0 << QRect(350, 60, 260, 698)
                                             << QRect(9, 38, 236, 575) << QRect(9, 38, 0, 0) << true;
        QTest::newRow("window") << 10 << none << QSize(300, 250) << true << 0 << QRect(20, 5, 260, 240)
                                << QRect(9, 38, 236, 117) << QRect(9, 38, 0, 0) << true;
        QTest::newRow("window that just holds a line")
            << 1 << none << QSize(200, 150) << true << 0 << QRect(10, 5, 180, 140) << QRect(9, 38, 156, 17)
            << QRect(9, 38, 0, 0) << false;
        QTest::newRow("window that cannot hold two")
            << 2 << none << QSize(200, 150) << false << 0 << QRect(10, 5, 180, 140) << QRect(9, 38, 156, 17)
            << QRect(9, 38, 0, 0) << true;
        QTest::newRow("tiny window") << 2 << none << QSize(60, 40) << true << 0 << QRect(10, 5, 40, 30)
                                     << QRect(9, 38, 16, 0) << QRect(9, 38, 0, 0) << true;
        QTest::newRow("window smaller than the margins")
            << 2 << QSize(20, 20) << QSize(8, 8) << true << 0 << QRect(4, 4, 0, 0) << QRect(32, 38, 0, 0)
            << QRect(9, 38, 20, 0) << true;
    }

    void contentsAreFitted()
    {
        QFETCH(int, lines);
        QFETCH(QSize, picture);
        QFETCH(QSize, reference);
        QFETCH(bool, modal);
        QFETCH(int, type);
        TMessageStage stage;
        QWidget* const parent = reference.isEmpty() ? nullptr : stage.Window(reference);
        TProbe dialog(parent, QStringLiteral("Boom"), TMessageStage::Lines(lines), EMessageDialogType(type),
                      false, Picture(picture));
        dialog.ShowWindow(modal);
        QTEST(dialog.geometry(), "dialogRect");
        QTEST(TMessageStage::TextOf(dialog)->geometry(), "textRect");
        QTEST(TMessageStage::PictureOf(dialog)->geometry(), "pictureRect");
        QTEST(TMessageStage::BarOf(dialog)->isVisibleTo(&dialog), "hasBar");
        QCOMPARE(dialog.centredOn.constLast(), parent ? parent : static_cast<QWidget*>(stage.screen.get()));
        QVERIFY(TMessageStage::PictureOf(dialog)->isVisibleTo(&dialog));
        QObjectList const& children = dialog.children();
        QVERIFY(children.indexOf(TMessageStage::PictureOf(dialog)) >
                children.indexOf(TMessageStage::TextOf(dialog)));
        // Contents given later end in the same place as those given at the start.
        TProbe later(parent, QStringLiteral("Boom"), QString(), EMessageDialogType(type));
        later.SetMessage(TMessageStage::Lines(lines));
        later.SetPixmap(Picture(picture));
        later.ShowWindow(modal);
        QTEST(later.geometry(), "dialogRect");
        QTEST(TMessageStage::TextOf(later)->geometry(), "textRect");
        QTEST(TMessageStage::PictureOf(later)->geometry(), "pictureRect");
    }

    void aLongMessageInASmallWindowGetsABarAndStopsAtTheAllowedHeight()
    {
        TMessageStage stage;
        for (int const height : {150, 250, 500})
        {
            TProbe dialog(stage.Window(QSize(300, height)), QStringLiteral("Boom"), TMessageStage::Lines(100),
                          MESSAGE_OK);
            dialog.ShowWindow(true);
            QCoreApplication::processEvents();
            QCOMPARE(dialog.height(), height - 10);
            QScrollBar* const bar = TMessageStage::BarOf(dialog);
            QVERIFY(bar->isVisible());
            QCOMPARE(bar->maximum(), 100 * LineHeight - (height - 10 - 123));
        }
    }

    void aDesiredWidthOnlyWidens_data()
    {
        QTest::addColumn<int>("desired");
        QTest::addColumn<int>("width");
        QTest::newRow("none") << -1 << 260;
        QTest::newRow("narrower") << 100 << 260;
        QTest::newRow("wider") << 500 << 500;
        QTest::newRow("as wide as the screen has room") << 1004 << 1004;
        QTest::newRow("wider than that") << 1005 << 1004;
        QTest::newRow("endless") << INT_MAX << 1004;
    }

    void aDesiredWidthOnlyWidens()
    {
        QFETCH(int, desired);
        QFETCH(int, width);
        TMessageStage const stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), Sentence(3), MESSAGE_OK);
        dialog.SetDesiredWidth(desired);
        dialog.ShowWindow(true);
        QCOMPARE(dialog.width(), width);
        QCOMPARE(TMessageStage::TextOf(dialog)->width(), width - 24);
    }

    // What it may take depends on where it stands, and it stands higher once it has grown.
    void aMessageThatGrowsTwiceMayTakeMore()
    {
        TMessageStage const stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), TMessageStage::Lines(40), MESSAGE_OK);
        dialog.ShowWindow(true);
        QCOMPARE(dialog.geometry(), QRect(386, 153, 260, 470));
        dialog.SetMessage(TMessageStage::Lines(50));
        QCOMPARE(dialog.geometry(), QRect(386, 86, 260, 605));
    }

    void aChangeWhileItIsUpFitsAtOnce()
    {
        TMessageStage const stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), TMessageStage::Lines(1), MESSAGE_OK);
        dialog.ShowWindow(true);
        QCOMPARE(dialog.height(), 140);
        dialog.SetMessage(TMessageStage::Lines(3));
        QCOMPARE(dialog.height(), 140 + 2 * LineHeight);
        QCOMPARE(dialog.y(), (768 - 174 + 9) / 2);
        dialog.SetPixmap(Picture(QSize(40, 90)));
        QCOMPARE(dialog.height(), 123 + 90);
        QCOMPARE(TMessageStage::TextOf(dialog)->x(), 9 + 43);
        QCOMPARE(dialog.grab().toImage().pixelColor(9 + 20, 38 + 45), QColor(200, 120, 40));
        dialog.SetPixmap(QPixmap());
        QCOMPARE(dialog.height(), 140 + 2 * LineHeight);
        QCOMPARE(TMessageStage::PictureOf(dialog)->size(), QSize(0, 0));
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(40);
        dialog.SetTextFormat(Qt::AlignLeft, true, font);
        QVERIFY(dialog.height() > 123 + 3 * 40);
    }

    void aChangeWhileItIsHiddenWaitsForTheNextShowing()
    {
        TMessageStage const stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), TMessageStage::Lines(1), MESSAGE_OK);
        dialog.ShowWindow(true);
        dialog.HideWindow();
        dialog.SetMessage(TMessageStage::Lines(3));
        QCOMPARE(dialog.height(), 140);
        dialog.ShowWindow(true);
        QCOMPARE(dialog.height(), 140 + 2 * LineHeight);
    }

    void withoutAChangeItKeepsItsSize()
    {
        TMessageStage const stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), TMessageStage::Lines(1), MESSAGE_OK);
        dialog.ShowWindow(true);
        dialog.setFixedSize(300, 333);
        dialog.HideWindow();
        dialog.ShowWindow(true);
        dialog.AdjustForShow();
        QCOMPARE(dialog.size(), QSize(300, 333));
    }

    // A lowered text has an area that reaches down behind the buttons, and a high picture lies there too.
    void theWholeOfAButtonIsInReach_data()
    {
        QTest::addColumn<QSize>("picture");
        QTest::newRow("lowered text") << QSize(60, 200);
        QTest::newRow("picture that does not fit") << QSize(200, 800);
    }

    void theWholeOfAButtonIsInReach()
    {
        QFETCH(QSize, picture);
        TMessageStage stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), TMessageStage::Lines(1), MESSAGE_YES_NO, false,
                      Picture(picture));
        int answers = 0;
        connect(&dialog, &TMessageDialog::Yes, this, [&] { ++answers; });
        for (int const y : {5, 35, 65})
        {
            for (int const x : {5, 60, 115})
            {
                dialog.ShowWindow(true);
                TPushButton* const yes = dialog.GetMessageDialogButton(MESSAGE_BUTTON_YES);
                stage.finger.Touch(yes->mapTo(stage.screen.get(), QPoint(x, y)));
            }
        }
        QCOMPARE(answers, 9);
    }

    void itsContentsStayBehindTheFadeOfAnother()
    {
        TMessageStage stage;
        TProbe below(nullptr, QStringLiteral("Boom"), TMessageStage::Lines(1), MESSAGE_OK, false,
                     Picture(QSize(60, 100)));
        below.ShowWindow(true);
        TMessageDialog above(&below, QStringLiteral("Sure?"), QString(), MESSAGE_OK);
        above.ShowWindow(true);
        below.SetMessage(TMessageStage::Lines(12));
        int answers = 0;
        connect(&below, &TMessageDialog::Ok, this, [&] { ++answers; });
        stage.finger.Touch(
            below.GetMessageDialogButton(MESSAGE_BUTTON_OK)->mapTo(stage.screen.get(), QPoint(5, 5)));
        QCOMPARE(answers, 0);
        QObjectList const& children = below.children();
        QCOMPARE(children.constLast(), static_cast<QObject*>(&above));
    }

    // Long and odd messages

    void anyMessageCanBeReadToItsEnd_data() { AddOddTexts(); }

    void anyMessageCanBeReadToItsEnd()
    {
        QFETCH(QString, text);
        QString const message = text + QStringLiteral("\nThe end");
        TMessageStage const stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), message, MESSAGE_OK);
        dialog.ShowWindow(true);
        QCoreApplication::processEvents();
        QCOMPARE(dialog.geometry(), QRect(386, 153, 260, 470));
        QCOMPARE(dialog.GetMessageString(), message);
        QScrollBar* const bar = TMessageStage::BarOf(dialog);
        QVERIFY(bar->isVisible());
        QCOMPARE(bar->width(), BarWidth);
        bar->setValue(bar->maximum());
        auto* const label = TMessageStage::TextOf(dialog)->findChild<QLabel*>();
        QCOMPARE(label->geometry().bottom(), 347 - 1);
        QCOMPARE(label->width(), 236 - BarWidth);
        QVERIFY(!dialog.grab().isNull());
        QImage const end = LastLine(label);
        dialog.SetMessage(QStringLiteral("The end"));
        QCOMPARE(dialog.height(), 140);
        QCOMPARE(bar->value(), 0);
        label->setFixedWidth(236 - BarWidth);
        QCOMPARE(end, LastLine(label));
    }

    void anyTitleStaysInItsBar_data() { AddOddTexts(); }

    void anyTitleStaysInItsBar()
    {
        QFETCH(QString, text);
        TMessageStage const stage;
        TProbe dialog(nullptr, text, QStringLiteral("Stop"), MESSAGE_OK);
        dialog.ShowWindow(true);
        QCOMPARE(dialog.geometry(), QRect(386, 318, 260, 140));
        QImage const giant = dialog.grab().toImage();
        dialog.SetTitle(QStringLiteral("Boom"));
        dialog.update();
        QImage const plain = dialog.grab().toImage();
        // From the left and the upper border on the bar is as wide as the window without its frame.
        QRect const bar(3, 3, 260 - 15, 30);
        for (int y = 0; y < plain.height(); ++y)
        {
            for (int x = 0; x < plain.width(); ++x)
                QVERIFY(bar.contains(x, y) || giant.pixel(x, y) == plain.pixel(x, y));
        }
    }

    void aShortOddMessageIsShownAsItIs_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("lines");
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("markup") << QStringLiteral("<b>Stop</b>") << 1;
        QTest::newRow("mnemonic") << QStringLiteral("Fold & lock") << 1;
        QTest::newRow("line ends") << QStringLiteral("a\n\nb") << 3;
        QTest::newRow("right to left") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd") << 1;
    }

    void aShortOddMessageIsShownAsItIs()
    {
        QFETCH(QString, message);
        QFETCH(int, lines);
        TMessageStage const stage;
        TProbe dialog(nullptr, QStringLiteral("Boom"), message, MESSAGE_OK);
        dialog.ShowWindow(true);
        QCOMPARE(TMessageStage::TextOf(dialog)->findChild<QLabel*>()->text(), message);
        QVERIFY(qAbs(dialog.height() - 123 - lines * LineHeight) <= (lines == 0 ? LineHeight : 0));
    }

    // Pictures

    void aDialogLooksLikeThis_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("sentences");
        QTest::addColumn<int>("picture");
        QTest::newRow("ok") << 0 << 2 << 72;
        QTest::newRow("yes and no, long") << 4 << 60 << 72;
        QTest::newRow("four buttons, no picture") << 7 << 5 << 0;
    }

    void aDialogLooksLikeThis()
    {
        QFETCH(int, type);
        QFETCH(int, sentences);
        QFETCH(int, picture);
        TMessageStage stage;
        stage.canvas->SetBackgroundColor(QColor(30, 60, 90));
        TProbe dialog(nullptr, QStringLiteral("Boom height"), Sentence(sentences), EMessageDialogType(type),
                      false, picture > 0 ? Disc(picture) : QPixmap());
        dialog.SetDesiredWidth(380);
        dialog.ShowWindow(true);
        QCoreApplication::processEvents();
        QImage const seen = stage.screen->grab(dialog.geometry().adjusted(-10, -10, 10, 10)).toImage();
        if (type == MESSAGE_OK)
            COMPARE_PICTURE(seen, "message-ok");
        else if (type == MESSAGE_YES_NO)
            COMPARE_PICTURE(seen, "message-yes-no-long");
        else
            COMPARE_PICTURE(seen, "message-four-buttons");
    }
};

COMMONUI_TEST(TMessageDialogLayoutTest)
#include "TMessageDialogLayoutTest.moc"
