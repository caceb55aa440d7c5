#pragma once

#include "CommonUILibExport.h"

#include <QScrollBar>

/// A plain scroll bar all in red. It marks a place that has not got its scroll bar of the look yet, which is
/// a TVerticalScrollBar. GUI thread only.
class COMMONUILIB_EXPORT TScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    using QScrollBar::QScrollBar;
    ~TScrollBar() override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
