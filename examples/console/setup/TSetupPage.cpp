#include "TSetupPage.h"

#include "TSetupRow.h"

#include <QResizeEvent>

namespace
{
constexpr int Gap = 8;
} // namespace

TSetupPage::TSetupPage(QWidget* parent)
    : TScrollArea(parent, true, false)
    , m_Content(new QWidget(this))
{
    setWidget(m_Content);
    // The setup's own background lies behind the lines.
    m_Content->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

void TSetupPage::AddLine(QWidget* line)
{
    m_Lines.append(line);
}

void TSetupPage::Sync() {}

// The settings may have changed while the page was away.
void TSetupPage::showEvent(QShowEvent* event)
{
    TScrollArea::showEvent(event);
    Sync();
}

void TSetupPage::resizeEvent(QResizeEvent* event)
{
    TScrollArea::resizeEvent(event);
    int const width = viewport()->width();
    m_Content->setFixedSize(width, m_Lines.size() * (TSetupRow::Height + Gap) - Gap);
    for (int i = 0; i < m_Lines.size(); ++i)
        m_Lines[i]->setGeometry(0, i * (TSetupRow::Height + Gap), width - Gap, TSetupRow::Height);
}
