#include "TScreenTitle.h"

#include <QFont>
#include <QPainter>
#include <QPixmap>

namespace
{
constexpr QSize FirstSize(400, 300);
constexpr QPoint TextPosition(10, 2);
constexpr int FontSize = 16;
constexpr int FontWeight = 75;
} // namespace

QColor const TScreenTitle::BarColor(76, 76, 76);
QColor const TScreenTitle::BarTextColor(255, 255, 255);
int TScreenTitle::s_Instances = 0;
QPixmap* TScreenTitle::s_Bar = nullptr;
QFont* TScreenTitle::s_Font = nullptr;

TScreenTitle::TScreenTitle(QWidget* parent, QString const& text)
    : QWidget(parent)
    , m_Text(text)
{
    ++s_Instances;
    resize(FirstSize);
}

TScreenTitle::~TScreenTitle()
{
    if (--s_Instances > 0)
        return;
    delete s_Bar;
    s_Bar = nullptr;
    delete s_Font;
    s_Font = nullptr;
}

void TScreenTitle::SetText(QString const& text)
{
    if (text == m_Text)
        return;
    m_Text = text;
    update();
}

QString TScreenTitle::GetText() const
{
    return m_Text;
}

void TScreenTitle::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    if (!s_Bar)
        s_Bar = new QPixmap(QStringLiteral(":/Images/Resources/TitleBar.png"));
    if (!s_Font)
    {
        s_Font = new QFont(QStringLiteral("Arial WGL"));
        s_Font->setPixelSize(FontSize);
        s_Font->setWeight(FontWeight);
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, *s_Bar);
    painter.setFont(*s_Font);
    painter.setPen(Qt::black);
    painter.drawText(TextPosition.x(), TextPosition.y() + painter.fontMetrics().ascent(), m_Text);
}
