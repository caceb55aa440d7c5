#include "TModalWidget.h"

#include "Palette.h"
#include "PixmapNames.h"
#include "TMessageDialog.h"
#include "TPushButton.h"

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
    RemoveMessage();
    // A hidden layer has no room yet that a message could be fitted to; it comes with the layer.
    if (isVisible())
        UpdateMessage();
}

void TModalWidget::RemoveMessage()
{
    if (!m_Message)
        return;
    // Its own button may be what took the record away.
    m_Message->hide();
    m_Message->deleteLater();
    m_Message.clear();
}

// Of the many windows that lock only those of another window need a message, so the others build none.
void TModalWidget::UpdateMessage()
{
    bool const isElsewhere = m_Widget && m_Widget->window() != window();
    if (isElsewhere)
        CreateMessage();
    if (m_Message)
        m_Message->SetVisible(isElsewhere, true);
}

void TModalWidget::CreateMessage()
{
    if (m_Message)
        return;
    bool const canContinue = bool(m_Data.callback);
    m_Message = new TMessageDialog(m_Body, tr("Task In Progress"),
                                   tr("An ZONTO task is currently running on another device."),
                                   canContinue ? MESSAGE_OK : MESSAGE_NO_BUTTON);
    if (!canContinue)
        return;
    m_Message->SetupIfRequired();
    TPushButton* const button = m_Message->GetMessageDialogButton(MESSAGE_BUTTON_OK);
    QString const text = tr("Continue on this device");
    button->SetIcon(QString(), QSize(), true);
    button->SetText(text, text, true, QString(), false);
    button->SetBackground(PixmapNames::NewStandardButton);
    button->SetBackgroundSelected(PixmapNames::NewStandardButtonSelected);
    connect(m_Message, &TMessageDialog::Ok, this, &TModalWidget::OnClicked);
}

void TModalWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    UpdateMessage();
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
