#pragma once

#include "CommonUILibExport.h"

#include <QFont>
#include <QPixmap>
#include <QSharedPointer>
#include <QString>
#include <QWidget>

/// The bubble that explains a button in tool-tip mode: a text, with a small picture at its left where there
/// is one. A tap closes it. There is one at a time, which the platform fills, sizes and places; nobody else
/// builds one. GUI thread only.
class COMMONUILIB_EXPORT TToolTip : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString m_tip READ GetText WRITE SetText)

public:
    explicit TToolTip(QWidget* parent);
    ~TToolTip() override;

    /// Plain text. A single letter is shown large. The size stays until RefreshGeometry().
    void SetText(QString const& text);
    QString GetText() const;
    /// The top left corner in the parent.
    void SetPosition(QPoint const& position);
    /// Null for none; a picture of more than 100 pixels in height is not shown. The size stays until
    /// RefreshGeometry().
    void SetToolIcon(QSharedPointer<QPixmap> icon);
    /// Takes the size that text and picture need, within the parent.
    void RefreshGeometry();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool ShowsIcon() const;
    int TextLeft() const;
    void PaintIcon(QPainter& painter) const;
    QSize MeasuredText(QSize const& room) const;

    QString m_Text;
    QSharedPointer<QPixmap> m_Icon;
    QFont m_Font;
    QSharedPointer<QPixmap> m_Background;
};
