#include "TShadowedLabel.h"

#include "Metrics.h"
#include "RenderUtils.h"
#include "TestCase.h"

#include <QImage>

namespace
{
constexpr int FontSize = 16;
QString const Text = QStringLiteral("Section control is switched off");

class TShownLabel : public TShadowedLabel
{
public:
    explicit TShownLabel(QString const& text, EFitOptions fit = FIT_NONE)
        : TShadowedLabel(text, nullptr, fit)
    {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(FontSize);
        setFont(font);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        SetTextColor(Qt::white);
        resize(400, 30);
    }

    QImage Picture(QColor const& ground = Qt::blue)
    {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(ground);
        render(&image, QPoint(), QRegion(), DrawChildren);
        return image;
    }
};
} // namespace

class TShadowedLabelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { KVN::RenderUtils::ClearTextCache(); }

    void boundaryIsThatOfTheFont()
    {
        TShownLabel label(Text);
        QRect const area(3, 4, 100, 200);
        QFontMetrics const metrics(label.font());
        QCOMPARE(label.GetTextBoundary(area), metrics.boundingRect(area, Qt::AlignLeft | Qt::AlignTop, Text));
        label.setWordWrap(true);
        label.setAlignment(Qt::AlignCenter);
        QCOMPARE(label.GetTextBoundary(area),
                 metrics.boundingRect(area, Qt::AlignCenter | Qt::TextWordWrap, Text));
    }
};

COMMONUI_TEST(TShadowedLabelTest)

#include "TShadowedLabelTest.moc"
