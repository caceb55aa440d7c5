#include "TToolBar.h"

#include "TPushButton.h"

#include <QHBoxLayout>

#include <climits>

namespace
{
constexpr int FirstHalfBegin = '1';
constexpr int FirstHalfEnd = '5';
constexpr int SecondHalfBegin = '6';
constexpr int SecondHalfEnd = '9';
// Stands behind the 9 on the number row.
constexpr int LastKey = '0';

// Longer than any finger stays on a key.
constexpr int HeldMs = INT_MAX;
constexpr int AtOnce = 0;

int IndexInFirstHalf(int key)
{
    return key >= FirstHalfBegin && key <= FirstHalfEnd ? key - FirstHalfBegin : -1;
}

int IndexInSecondHalf(int key)
{
    if (key == LastKey)
        return SecondHalfEnd - SecondHalfBegin + 1;
    return key >= SecondHalfBegin && key <= SecondHalfEnd ? key - SecondHalfBegin : -1;
}
} // namespace

TToolBar::TToolBar(QWidget* parent)
    : QWidget(parent)
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (int i = 0; i < ButtonCount; ++i)
    {
        auto* const button = new TPushButton(this, QString(), QSize(), QPoint(), i, QString());
        button->setFocusPolicy(Qt::NoFocus);
        button->setEnabled(false);
        row->addWidget(button);
        m_Buttons[std::size_t(i)] = button;
    }
}

TPushButton* TToolBar::GetButton(int key)
{
    if (m_Mode == MODE_UNSET && IndexInFirstHalf(key) >= 0)
        m_Mode = MODE_FIRST_HALF;
    else if (m_Mode == MODE_UNSET && IndexInSecondHalf(key) >= 0)
        m_Mode = MODE_SECOND_HALF;
    if (m_Mode == MODE_UNSET)
        return nullptr;
    int const index = m_Mode == MODE_FIRST_HALF ? IndexInFirstHalf(key) : IndexInSecondHalf(key);
    return index >= 0 ? m_Buttons[std::size_t(index)] : nullptr;
}

void TToolBar::SetIcon(int key, QString const& name, EIconType)
{
    TPushButton* const button = GetButton(key);
    if (!button)
        return;
    button->setEnabled(true);
    button->SetIcon(name, QSize(-1, -1), true);
}

void TToolBar::RemoveIcon(int key)
{
    TPushButton* const button = GetButton(key);
    if (!button)
        return;
    button->SetIcon(QString(), QSize(-1, -1), false);
    button->setEnabled(false);
}

void TToolBar::SetText(int key, QString const& text)
{
    if (TPushButton* const button = GetButton(key))
        button->SetText(text, QString(), false, QString(), false);
}

void TToolBar::ButtonPress(int key)
{
    TPushButton* const button = GetButton(key);
    if (button && button->isEnabled())
        button->animateClick(HeldMs);
}

void TToolBar::ButtonRelease(int key)
{
    if (TPushButton* const button = GetButton(key))
        button->animateClick(AtOnce);
}

void TToolBar::paintEvent(QPaintEvent*) {}
