#pragma once

#include "CommonUILibExport.h"
#include "ModalData.h"

#include <QPointer>
#include <QWidget>

class QVBoxLayout;
class TMessageDialog;

/// The translucent layer behind something modal. The screen has one, and every canvas. It takes the touches
/// that are meant for what lies beneath. Where it stands behind a widget of another window, which the
/// operator of this one cannot see, it tells him so, and offers him to go on here if the record has a
/// callback. GUI thread only.
class COMMONUILIB_EXPORT TModalWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TModalWidget(QWidget* parent);

    /// Whom the layer stands behind from now on; a record with a null widget for nobody.
    void SetModalData(KVN::ModalData const& data);
    KVN::ModalData const& GetModalData() const;

    /// Builds the message of the present record, hidden, unless there is one.
    void CreateMessage();

    /// Keeps the edges free of the message, in pixels.
    void SetContentsMargins(int left, int top, int right, int bottom);

public Q_SLOTS:
    /// The operator wants to go on here: runs the callback of the present record with this widget.
    void OnClicked();

protected:
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool IsShown(KVN::ModalData const& data) const;
    void RemoveMessage();
    void UpdateMessage();

    KVN::ModalData m_Data;
    QPointer<QWidget> m_Widget; // the one of m_Data, while it lives
    QVBoxLayout* m_Layout;
    QWidget* m_Body;
    QPointer<TMessageDialog> m_Message;
};
