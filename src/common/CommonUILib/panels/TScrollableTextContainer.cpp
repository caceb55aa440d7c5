#include "TScrollableTextContainer.h"

#include "TLabel.h"

#include <QResizeEvent>
#include <QScrollBar>

TScrollableTextContainer::TScrollableTextContainer(QWidget* parent, bool framed)
    : TScrollArea(parent, true, framed)
    , m_Label(new TLabel(this))
{
    m_Label->setObjectName(QStringLiteral("ScrollableText"));
    // A scroll area makes its content fill its ground, which this one must not.
    QPalette colors = m_Label->palette();
    colors.setBrush(QPalette::Window, Qt::transparent);
    m_Label->setPalette(colors);
    setWidget(m_Label);
    SetMMIBehaviour(MMI_WHEEL_OWNER);
}

TScrollableTextContainer::~TScrollableTextContainer() = default;

void TScrollableTextContainer::SetText(QString const& text)
{
    QPointer<TScrollableTextContainer> const self(this);
    verticalScrollBar()->setValue(0);
    if (!self || !m_Label || text == m_Label->text())
        return;
    m_Label->setMinimumSize(0, 0);
    m_Label->setText(text);
    FitText();
}

QString TScrollableTextContainer::GetText() const
{
    return m_Label ? m_Label->text() : QString();
}

void TScrollableTextContainer::SetTextFormat(Qt::Alignment alignment, bool wordWrap, QFont const& font)
{
    if (!m_Label)
        return;
    m_Label->setAlignment(alignment);
    m_Label->setWordWrap(wordWrap);
    m_Label->setFont(font);
    FitText();
}

int TScrollableTextContainer::GetTextHeightForWidth(int width) const
{
    return m_Label ? m_Label->heightForWidth(width) : 0;
}

void TScrollableTextContainer::FitText()
{
    // The handler is that of the viewport: an event through the event loop would not come to it.
    QResizeEvent event(viewport()->size(), QSize());
    resizeEvent(&event);
}

void TScrollableTextContainer::resizeEvent(QResizeEvent* event)
{
    TScrollArea::resizeEvent(event);
    if (!m_Label)
        return;
    int const width = viewport()->width();
    m_Label->setFixedWidth(width);
    m_Label->setFixedHeight(m_Label->heightForWidth(width));
}
