#pragma once

#include <QString>
#include <QWidget>

/// One live value with its name above and its unit behind. It repaints only when the text changes.
class TValueField : public QWidget
{
    Q_OBJECT

public:
    TValueField(QWidget* parent, QString const& caption, QString const& unit);

    void SetValue(QString const& value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_Caption;
    QString m_Unit;
    QString m_Value;
};
