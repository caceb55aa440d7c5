#pragma once

#include <QString>
#include <QVector>
#include <QWidget>

/// One line of the setup: its name, and beside it what sets it. The fields share the room equally.
class TSetupRow : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Height = 84;
    static constexpr int TextSize = 20; ///< pixels

    TSetupRow(QWidget* parent, QString const& caption);

protected:
    /// Beside the name.
    QRect FieldRoom() const;
    /// A child of the row, which gets its place behind the fields before it.
    void AddField(QWidget* field);
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString m_Caption;
    QVector<QWidget*> m_Fields;
};
