#pragma once

#include "CommonUILibExport.h"

#include <QWidget>

class QLabel;

/// A plain frame with one line for the value that is being typed, where a window wants to show it beside the
/// keyboard. The keyboard's own field is its input area.
class COMMONUILIB_EXPORT TKeyboardWidget : public QWidget
{
    Q_OBJECT

public:
    explicit TKeyboardWidget(QWidget* parent);
    ~TKeyboardWidget() override;

    /// Plain text; markup is shown as it is written.
    void SetValue(QString const& value);

private:
    QLabel* m_Value;
};
