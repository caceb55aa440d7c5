#pragma once

#include "TPushButton.h"

/// A button that offers a type, with a small picture in its upper right corner that says more of it.
class COMMONUILIB_EXPORT TTypeSelectButton : public TPushButton
{
    Q_OBJECT

public:
    /// In the standard skin; see TPushButton for \a minimumSize and \a position.
    TTypeSelectButton(QWidget* parent, QSize const& minimumSize, QPoint const& position, int id);

    /// Logical name of the picture in the corner; empty: none.
    void SetCornerElement(QString const& name);
    /// Fits the picture in the corner to the present size: a sixth of its width.
    void UpdatePixmap();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString m_CornerElement;
    QSharedPointer<QPixmap> m_CornerPixmap;
    QPoint m_CornerPosition;
};
