// Scrolls a page of 200 rows a number of times by ten pixels, for an instruction counter. Usage: count-scroll
// (plain | framed | stock | styled) (opaque | clear) COUNT
//
// The toolkit's area without and with its frame, or Qt's own with its own bar, bare or in the style sheet of
// the frame. A clear page lets the ground of the window through, an opaque one has a ground of its own.

#include "BenchScreen.h"
#include "CountArguments.h"
#include "TLabel.h"
#include "TScrollArea.h"

#include <QApplication>
#include <QScrollBar>
#include <QStyleFactory>
#include <QVBoxLayout>

namespace
{
constexpr int Rows = 200;
constexpr int RowHeight = 50;
constexpr int PageWidth = 400;
constexpr QRect Place(50, 50, 450, 500);
constexpr int Step = 10;
QRgb const Ground = qRgb(38, 41, 46);

QScrollArea* MakeArea(QString const& kind, QWidget* window)
{
    bool const isFramed = kind == QLatin1String("framed");
    if (isFramed || kind == QLatin1String("plain"))
        return new TScrollArea(window, true, isFramed);
    auto* const area = new QScrollArea(window);
    if (kind == QLatin1String("styled"))
        area->setStyleSheet(TScrollArea(nullptr, true, true).styleSheet());
    return area;
}

QWidget* MakePage(bool isClear)
{
    auto* const page = new QWidget;
    page->setFixedWidth(PageWidth);
    page->setPalette(QPalette(isClear ? QColor(Qt::transparent) : QColor(Ground)));
    auto* const rows = new QVBoxLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    for (int i = 0; i < Rows; ++i)
    {
        auto* const row = new TLabel(QStringLiteral("Section %1: %2 l/ha").arg(i).arg(100 + i % 50), page);
        row->setFixedHeight(RowHeight);
        rows->addWidget(row);
    }
    return page;
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    TCountArguments const arguments;
    if (!arguments.AreComplete())
        return TCountArguments::Refuse(
            "count-scroll (plain | framed | stock | styled) (opaque | clear) COUNT");
    TBenchScreen const screen(0);
    QWidget window;
    window.resize(800, 600);
    window.setPalette(QPalette(QColor(Ground)));
    QScrollArea* const area = MakeArea(arguments.Kind(), &window);
    area->setGeometry(Place);
    area->setWidget(MakePage(arguments.What() == QLatin1String("clear")));
    window.show();
    QCoreApplication::processEvents();
    int const count = arguments.Count();
    for (int i = 1; i <= count; ++i)
    {
        area->verticalScrollBar()->setValue(i * Step);
        QCoreApplication::processEvents();
    }
    // A page that reached its end would be repainted no more.
    return area->verticalScrollBar()->value() == count * Step ? 0 : 1;
}
