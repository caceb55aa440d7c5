#pragma once

#include "TScrollArea.h"

#include <QVector>

/// A page of the setup: line by line, and where more of them are there than fit it scrolls under the finger
/// and with the wheel.
class TSetupPage : public TScrollArea
{
    Q_OBJECT

public:
    explicit TSetupPage(QWidget* parent);

    /// Takes what the page shows up from the settings and the machine; done whenever the page comes into
    /// sight. The base does nothing.
    virtual void Sync();

protected:
    /// The parent of the lines.
    QWidget* Content() const { return m_Content; }
    /// A child of the content, which gets the place below those that are there.
    void AddLine(QWidget* line);
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* m_Content;
    QVector<QWidget*> m_Lines;
};
