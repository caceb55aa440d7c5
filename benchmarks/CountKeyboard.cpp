// Turns shift on the keyboard or opens it for another time, to the last pixel, or builds or opens the same
// keys as stock buttons, for an instruction counter. Usage: count-keyboard (own | stock | plain) (shift |
// open) COUNT
//
// The stock keys stand in a grid, with the same texts, font and skin, by a style sheet; the plain ones
// without the skin, in the style Fusion. For "shift" they are built and painted for the first time: that is
// what a keyboard does that makes its keys anew.

#include "BenchScreen.h"
#include "CountArguments.h"
#include "Fonts.h"
#include "Metrics.h"
#include "TKey.h"
#include "TKeyboard.h"

#include <QApplication>
#include <QGridLayout>
#include <QPushButton>
#include <QStyleFactory>

#include <memory>

namespace
{
constexpr char const* StockRows[] = {"1234567890", "QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM,.", "-/\\[]=;'"};
constexpr int StockSpecialKeys = 9;
constexpr QRect StockPlace(140, 200, 740, 420);
constexpr char StockSkin[] = "QPushButton { border-width: 12px; color: white; border-image: "
                             "url(:/Images/Resources/button-blank.png) 12 12 12 12 stretch stretch }";

/// The keys of the keyboard as stock buttons.
class TStockKeys : public QWidget
{
public:
    TStockKeys(QWidget* parent, bool hasSkin)
        : QWidget(parent)
        , m_Grid(new QGridLayout(this))
    {
        QFont font(STANDARD_BOLD_FONT);
        font.setPixelSize(STANDARD_FONT_SIZE);
        setFont(font);
        if (hasSkin)
            setStyleSheet(QLatin1String(StockSkin));
        int row = 0;
        for (char const* const keys : StockRows)
        {
            int column = 0;
            for (char const* key = keys; *key != 0; ++key)
                Add(QString(QLatin1Char(*key)), row, column++);
            ++row;
        }
        for (int column = 0; column < StockSpecialKeys; ++column)
            Add(QStringLiteral("\u21E7"), row, column);
        setGeometry(StockPlace);
    }

private:
    void Add(QString const& text, int row, int column)
    {
        auto* const key = new QPushButton(text, this);
        key->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        m_Grid->addWidget(key, row, column);
    }

    QGridLayout* m_Grid;
};

void BuildStock(TScreen* screen, bool hasSkin, int count)
{
    for (int i = 0; i < count; ++i)
    {
        TStockKeys keys(screen, hasSkin);
        keys.show();
        QCoreApplication::processEvents();
    }
}

void OpenStock(TScreen* screen, bool hasSkin, int count)
{
    TStockKeys keys(screen, hasSkin);
    for (int i = 0; i < count; ++i)
    {
        keys.show();
        QCoreApplication::processEvents();
        keys.hide();
        QCoreApplication::processEvents();
    }
}

TKey* ShiftKey(TKeyboard* keyboard)
{
    auto const keys = keyboard->findChildren<TKey*>();
    for (TKey* const key : keys)
    {
        if (key->GetIconName() == QLatin1String("Shift"))
            return key;
    }
    return nullptr;
}

void TurnShift(TScreen* screen, int count)
{
    TKeyboard* const keyboard = screen->GetKeyboard();
    keyboard->ShowWindow(false);
    QCoreApplication::processEvents();
    TKey* const shift = ShiftKey(keyboard);
    for (int i = 0; i < count; ++i)
    {
        shift->click();
        QCoreApplication::processEvents();
    }
}

void OpenKeyboard(TScreen* screen, int count)
{
    TKeyboard* const keyboard = screen->GetKeyboard();
    for (int i = 0; i < count; ++i)
    {
        keyboard->ShowWindow(false);
        QCoreApplication::processEvents();
        keyboard->HideWindow();
        QCoreApplication::processEvents();
    }
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    TCountArguments const arguments;
    bool const isShift = arguments.What() == QLatin1String("shift");
    if (!arguments.AreComplete() || (!isShift && arguments.What() != QLatin1String("open")))
        return TCountArguments::Refuse("count-keyboard (own | stock | plain) (shift | open) COUNT");
    TBenchScreen const screen(0);
    QCoreApplication::processEvents();
    bool const hasSkin = arguments.Kind() == QLatin1String("stock");
    if (arguments.Kind() == QLatin1String("own"))
        (isShift ? TurnShift : OpenKeyboard)(MainScreen, arguments.Count());
    else
        (isShift ? BuildStock : OpenStock)(MainScreen, hasSkin, arguments.Count());
    return 0;
}
