#include "TKeyboardWidget.h"
#include "TestCase.h"

#include <QLabel>

class TKeyboardWidgetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheValueAsItIsWritten();
    void keepsItsWidthForAnyValue();
};

void TKeyboardWidgetTest::showsTheValueAsItIsWritten()
{
    TKeyboardWidget widget(nullptr);
    auto const* const label = widget.findChild<QLabel*>();
    QVERIFY(label);
    widget.SetValue(QStringLiteral("<b>Field & 3</b>"));
    QCOMPARE(label->text(), QStringLiteral("<b>Field & 3</b>"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    widget.SetValue(QString());
    QVERIFY(label->text().isEmpty());
}

void TKeyboardWidgetTest::keepsItsWidthForAnyValue()
{
    QWidget parent;
    TKeyboardWidget widget(&parent);
    widget.resize(200, 60);
    QImage const empty = widget.grab().toImage();
    widget.SetValue(QString(100000, QLatin1Char('W')));
    QCOMPARE(widget.grab().toImage().size(), empty.size());
    QVERIFY(widget.grab().toImage() != empty);
    QVERIFY(widget.minimumSizeHint().width() < 200);
}

COMMONUI_TEST(TKeyboardWidgetTest)

#include "TKeyboardWidgetTest.moc"
