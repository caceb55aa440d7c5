#pragma once

#include "CommonUILibExport.h"

#include <QPointer>
#include <QRect>
#include <QSharedPointer>
#include <QWidget>

/// The title of a full window: text at the left, and at the right a widget that the module may include.
/// Touches go through it.
class COMMONUILIB_EXPORT TFullWindowTitlebar : public QWidget
{
    Q_OBJECT

public:
    explicit TFullWindowTitlebar(QWidget* parent);

    /// \a flags are Qt alignment flags of the text. An empty title paints nothing at all.
    void SetTitle(QString const& title, int flags);
    QString GetTitle() const;

    /// Whether the included widget stands in the bar now; it is hidden otherwise.
    void IncludeWidgetInTitle(bool include);
    /// The widget for the right end, which becomes a child of the bar; null for none. The former one is
    /// hidden and stays the caller's.
    void IncludeWidget(QWidget* widget);

    /// Works out where text and widget stand.
    void RepositionContents();
    /// The rectangle of the text.
    QRect GetTextRect() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString m_Title;
    QSharedPointer<QPixmap> m_Background;
    QPointer<QWidget> m_IncludedWidget;
    bool m_IncludeWidget = false;
    QRect m_TextRect;
    int m_TextFlags = Qt::AlignLeft | Qt::AlignVCenter;
};
