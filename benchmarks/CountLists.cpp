// Fills a list a number of times and paints it for the first time, or paints a filled one again, for an
// instruction counter. Usage: count-lists (own | few | stock) (fill-ROWS | paint-ROWS) COUNT
//
// "few" is a list of the toolkit with a hundredth of the rows: a page of it looks the same.
// The stock list has rows of the same height with the same font, colours, icon column and skins, and measures
// no text either. The texts are made beforehand.

#include "BenchScreen.h"
#include "CountArguments.h"
#include "Fonts.h"
#include "Metrics.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TListWidget.h"

#include <QApplication>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QStyleFactory>

#include <memory>

namespace
{
constexpr QRect Place(50, 50, 400, 500);
constexpr int FewerRows = 100;
QRgb const Ground = qRgb(38, 41, 46);

QStringList RowTexts(int count)
{
    QStringList texts;
    for (int row = 0; row < count; ++row)
        texts.append(QStringLiteral("Section %1: %2 l/ha").arg(row).arg(100 + row % 50));
    return texts;
}

class TSkinDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override
    {
        if (!m_Skin)
            m_Skin = MainScreen->GetPixmapManager()->GetResizedPixmap(
                PixmapNames::ListItem, option.rect.width(), option.rect.height());
        painter->drawPixmap(option.rect.topLeft(), *m_Skin);
        QStyledItemDelegate::paint(painter, option, index);
    }

private:
    mutable QSharedPointer<QPixmap> m_Skin;
};

std::unique_ptr<QListWidget> MakeOwn(QWidget* window, QStringList const& texts)
{
    auto list = std::make_unique<TListWidget>(window);
    for (QString const& text : texts)
        list->AddString(text, LIST_ROW_HEIGHT);
    return list;
}

std::unique_ptr<QListWidget> MakeStock(QWidget* window, QStringList const& texts)
{
    auto list = std::make_unique<QListWidget>(window);
    list->setItemDelegate(new TSkinDelegate(list.get()));
    list->setFrameShape(QFrame::NoFrame);
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(STANDARD_FONT_SIZE);
    QPixmap clear(1, 1);
    clear.fill(Qt::transparent);
    QIcon const icon(clear);
    for (QString const& text : texts)
    {
        auto* const row = new QListWidgetItem(icon, text);
        row->setFont(font);
        row->setForeground(Qt::white);
        row->setSizeHint(QSize(0, LIST_ROW_HEIGHT));
        list->addItem(row);
    }
    return list;
}

using TMake = std::unique_ptr<QListWidget> (*)(QWidget*, QStringList const&);

std::unique_ptr<QListWidget> Show(TMake make, QWidget* window, QStringList const& texts)
{
    std::unique_ptr<QListWidget> list = make(window, texts);
    list->setGeometry(Place);
    list->show();
    QCoreApplication::processEvents();
    return list;
}

void Fill(TMake make, QWidget* window, QStringList const& texts, int count)
{
    for (int i = 0; i < count; ++i)
        Show(make, window, texts);
}

void Paint(TMake make, QWidget* window, QStringList const& texts, int count)
{
    std::unique_ptr<QListWidget> const list = Show(make, window, texts);
    for (int i = 0; i < count; ++i)
    {
        list->viewport()->update();
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
    QStringList const what = arguments.What().split(QLatin1Char('-'));
    bool const isFew = arguments.Kind() == QLatin1String("few");
    int const rows = what.value(1).toInt() / (isFew ? FewerRows : 1);
    bool const isFill = what.first() == QLatin1String("fill");
    bool const isWork = isFill || what.first() == QLatin1String("paint");
    if (!arguments.AreComplete() || rows < 1 || !isWork)
        return TCountArguments::Refuse("count-lists (own | few | stock) (fill-ROWS | paint-ROWS) COUNT");
    TBenchScreen const screen(0);
    QWidget window;
    window.resize(800, 600);
    window.setPalette(QPalette(QColor(Ground)));
    window.show();
    QCoreApplication::processEvents();
    TMake const make = arguments.Kind() == QLatin1String("stock") ? MakeStock : MakeOwn;
    (isFill ? Fill : Paint)(make, &window, RowTexts(rows), arguments.Count());
    return 0;
}
