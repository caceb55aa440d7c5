#pragma once

#include "CommonUILibExport.h"

#include <QColor>
#include <QWidget>

/// The glow around the widget that the wheel has selected: four outlines of one colour, the narrower the
/// denser, over a faint white veil. TMMICapableWidgetNavigator lays it above the widget, as its sibling, and
/// colours it. It never takes a touch.
class COMMONUILIB_EXPORT TMMIHighlightWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TMMIHighlightWidget(QWidget* parent = nullptr);

    /// White at first.
    QColor GetColour() const;

    /// Repaints. The alpha of \a colour is not used: each outline has its own.
    void SetColour(QColor const& colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_Colour = Qt::white;
};
