// Opens a message to its first paint and closes it a number of times, for an instruction counter. Usage:
// count-message (own | stock) (short | long) COUNT
//
// The toolkit's dialog, or a bare QDialog with the same text in a label and one button.

#include "BenchScreen.h"
#include "TMessageDialog.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyleFactory>
#include <QVBoxLayout>

#include <cstdio>

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
    QStringList const arguments = QCoreApplication::arguments();
    int const count = arguments.value(3).toInt();
    if (arguments.size() != 4 || count < 1)
    {
        std::fputs("Usage: count-message (own | stock) (short | long) COUNT\n", stderr);
        return 2;
    }
    bool const isLong = arguments.at(2) == QLatin1String("long");
    QString const message = Message(isLong);
    TBenchScreen const screen(1);
    screen.Manager()->DisplayFullView(screen.Id(0), false);
    QCoreApplication::processEvents();
    for (int i = 0; i < count; ++i)
    {
        if (arguments.at(1) == QLatin1String("own"))
            OpenOwn(message);
        else
            OpenStock(screen.Screen(), message, isLong);
        QCoreApplication::processEvents();
    }
    return 0;
}
