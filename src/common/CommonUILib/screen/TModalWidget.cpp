#include "TModalWidget.h"

#include "Palette.h"

#include <QMouseEvent>
#include <QVBoxLayout>

namespace
{
bool IsSame(KVN::ModalData const& left, KVN::ModalData const& right)
{
    return left.widget == right.widget && left.title == right.title && left.modalType == right.modalType &&
           bool(left.callback) == bool(right.callback);
}
} // namespace

TModalWidget::TModalWidget(QWidget* parent)
    : QWidget(parent)
    , m_Layout(new QVBoxLayout(this))
    , m_Body(new QWidget(this))
{
    QPalette fade = palette();
    fade.setColor(QPalette::Window, modalFadeoutColor);
    setPalette(fade);
    setAutoFillBackground(true);
    m_Layout->setContentsMargins(0, 0, 0, 0);
    m_Layout->addWidget(m_Body);
}

void TModalWidget::SetModalData(KVN::ModalData const& data)
{
    if (!IsSame(m_Data, data))
        m_Data = data;
}

KVN::ModalData const& TModalWidget::GetModalData() const
{
    return m_Data;
}

void TModalWidget::SetContentsMargins(int left, int top, int right, int bottom)
{
    m_Layout->setContentsMargins(left, top, right, bottom);
}

void TModalWidget::OnClicked()
{
    // A copy: the callback may well replace the record.
    std::function<void(QWidget*)> const callback = m_Data.callback;
    if (callback)
        callback(this);
}

// What lies beneath is locked: nothing may fall through to a parent that would act on it.
void TModalWidget::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void TModalWidget::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
}

void TModalWidget::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
}
