#include "TModalWidget.h"

#include "Palette.h"

#include <QMouseEvent>
#include <QVBoxLayout>

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
    if (IsShown(data))
        return;
    m_Data = data;
    m_Widget = data.widget;
}

// A widget that took the place of a dead one in memory is another one.
bool TModalWidget::IsShown(KVN::ModalData const& data) const
{
    return m_Data.widget == data.widget && m_Widget == data.widget && m_Data.title == data.title &&
           m_Data.modalType == data.modalType && bool(m_Data.callback) == bool(data.callback);
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
