#include "TScreenTitle.h"
#include "TestCase.h"

#include <memory>
#include <QApplication>
#include <QPainter>

namespace
{
// The strip as it must be: the picture, and the text in black from (10, 2).
QImage Expected(QString const& text)
{
    QPixmap expected(400, 300);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    painter.drawPixmap(0, 0, QPixmap(QStringLiteral(":/Images/Resources/TitleBar.png")));
    QFont font(QStringLiteral("Arial WGL"));
    font.setPixelSize(16);
    font.setWeight(75);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(QRect(10, 2, 390, 298), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, text);
    painter.end();
    return expected.toImage().convertToFormat(QImage::Format_RGB32);
}

QImage Painted(QWidget& widget)
{
    QImage picture(widget.size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    widget.render(&picture, QPoint(), QRegion(), QWidget::RenderFlags());
    return picture;
}
} // namespace

class TScreenTitleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itStartsAtItsSize()
    {
        TScreenTitle const title(nullptr, QString());
        QCOMPARE(title.size(), QSize(400, 300));
    }

    void itPaintsThePictureAndItsText()
    {
        TScreenTitle title(nullptr, QStringLiteral("Boundary"));
        QCOMPARE(title.GetText(), QStringLiteral("Boundary"));
        QVERIFY(!QPixmap(QStringLiteral(":/Images/Resources/TitleBar.png")).isNull());
        QCOMPARE(Painted(title), Expected(QStringLiteral("Boundary")));
        title.SetText(QStringLiteral("Field"));
        QCOMPARE(Painted(title), Expected(QStringLiteral("Field")));
        QVERIFY(Expected(QStringLiteral("Field")) != Expected(QString()));
    }

    void theLastOneFreesWhatTheyShare()
    {
        auto first = std::make_unique<TScreenTitle>(nullptr, QStringLiteral("A"));
        auto second = std::make_unique<TScreenTitle>(nullptr, QStringLiteral("A"));
        auto const unpainted = std::make_unique<TScreenTitle>(nullptr, QStringLiteral("A"));
        QImage const picture = Painted(*first);
        first.reset();
        QCOMPARE(Painted(*second), picture);
        second.reset();
        second = std::make_unique<TScreenTitle>(nullptr, QStringLiteral("A"));
        QCOMPARE(Painted(*second), picture);
    }

    void stripsComeBackAfterTheLast()
    {
        QImage before;
        for (int i = 0; i < 3; ++i)
        {
            TScreenTitle title(nullptr, QStringLiteral("A"));
            QImage const picture = Painted(title);
            QVERIFY(before.isNull() || picture == before);
            before = picture;
        }
    }

    void itsColoursAreForModules()
    {
        QVERIFY(TScreenTitle::BarColor.isValid());
        QVERIFY(TScreenTitle::BarTextColor.isValid());
    }
};

COMMONUI_TEST(TScreenTitleTest)
#include "TScreenTitleTest.moc"
