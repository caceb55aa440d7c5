#include "TKeyboardWidget.h"

#include "Fonts.h"
#include "Metrics.h"
#include "Palette.h"

#include <QLabel>
#include <QVBoxLayout>

TKeyboardWidget::TKeyboardWidget(QWidget* parent)
    : QWidget(parent)
    , m_Value(new QLabel(this))
{
    m_Value->setTextFormat(Qt::PlainText);
    // However long the value, the frame keeps its width.
    m_Value->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    QFont font = CONDENSED_BOLD_FONT;
    font.setPixelSize(STANDARD_FONT_SIZE);
    m_Value->setFont(font);
    QPalette colours = m_Value->palette();
    colours.setColor(QPalette::WindowText, regularTextColor);
    m_Value->setPalette(colours);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_Value);
}

TKeyboardWidget::~TKeyboardWidget() = default;

void TKeyboardWidget::SetValue(QString const& value)
{
    m_Value->setText(value);
}
