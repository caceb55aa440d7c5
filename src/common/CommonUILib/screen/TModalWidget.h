#pragma once

#include "CommonUILibExport.h"
#include "ModalData.h"

#include <QPointer>
#include <QWidget>

class QVBoxLayout;

/// The translucent layer behind something modal. The screen has one, and every canvas. It takes the touches
/// that are meant for what lies beneath.
class COMMONUILIB_EXPORT TModalWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TModalWidget(QWidget* parent);

    /// Whom the layer stands behind from now on; a record with a null widget for nobody.
    void SetModalData(KVN::ModalData const& data);
    KVN::ModalData const& GetModalData() const;

    /// Keeps the edges free of the layer's own contents, in pixels.
    void SetContentsMargins(int left, int top, int right, int bottom);

public Q_SLOTS:
    /// The operator wants to go on here: runs the callback of the present record with this widget.
    void OnClicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool IsShown(KVN::ModalData const& data) const;

    KVN::ModalData m_Data;
    QPointer<QWidget> m_Widget; // the one of m_Data, while it lives
    QVBoxLayout* m_Layout;
    QWidget* m_Body;
};
