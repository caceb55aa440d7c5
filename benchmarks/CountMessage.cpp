// Opens a message to its first paint and closes it a number of times, for an instruction counter. Usage:
// count-message (own | stock) (short | long) COUNT
//
// The toolkit's dialog, or a bare QDialog with the same text in a label and one button.

#include "BenchScreen.h"
#include "CountArguments.h"
#include "TMessageDialog.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleFactory>
#include <QVBoxLayout>

namespace
{
constexpr int LongRepeats = 30;
constexpr QSize StockSize(260, 470);

QString Message(bool isLong)
{
    return QStringLiteral(
               "The left boom is not locked, and the pump is still running. Lock the boom and stop "
               "the pump before you drive on the road. ")
        .repeated(isLong ? LongRepeats : 1);
}

void OpenOwn(QString const& message)
{
    TMessageDialog dialog(nullptr, QStringLiteral("Boom"), message, MESSAGE_OK);
    dialog.ShowWindow(true);
    QCoreApplication::processEvents();
    dialog.HideWindow();
}

QWidget* MakeText(QString const& message, bool isLong, QWidget* parent)
{
    auto* const text = new QLabel(message, parent);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    if (!isLong)
        return text;
    auto* const area = new QScrollArea(parent);
    area->setWidgetResizable(true);
    area->setWidget(text);
    return area;
}

// In the same window, as there is but one on a console.
void OpenStock(QWidget* screen, QString const& message, bool isLong)
{
    QDialog dialog(screen, Qt::Widget);
    dialog.setAutoFillBackground(true);
    auto* const rows = new QVBoxLayout(&dialog);
    rows->addWidget(MakeText(message, isLong, &dialog));
    rows->addWidget(new QPushButton(QStringLiteral("OK"), &dialog));
    if (isLong)
        dialog.setFixedSize(StockSize);
    else
        dialog.setFixedWidth(StockSize.width());
    dialog.show();
    QCoreApplication::processEvents();
    dialog.hide();
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    TCountArguments const arguments;
    if (!arguments.AreComplete())
        return TCountArguments::Refuse("count-message (own | stock) (short | long) COUNT");
    bool const isOwn = arguments.Kind() == QLatin1String("own");
    bool const isLong = arguments.What() == QLatin1String("long");
    QString const message = Message(isLong);
    TBenchScreen const screen(1);
    screen.Manager()->DisplayFullView(screen.Id(0), false);
    QCoreApplication::processEvents();
    int const count = arguments.Count();
    for (int i = 0; i < count; ++i)
    {
        if (isOwn)
            OpenOwn(message);
        else
            OpenStock(screen.Screen(), message, isLong);
        QCoreApplication::processEvents();
    }
    return 0;
}
