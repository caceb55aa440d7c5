#pragma once

#include <QStringList>
#include <QWidget>

/// The last lines of the operator's log, the newest at the bottom.
class TLogTail : public QWidget
{
    Q_OBJECT

public:
    TLogTail(QWidget* parent, QString const& path);

    /// Reads the log again, if it has grown.
    void Sync();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_Path;
    qint64 m_Size = -1;
    QStringList m_Lines;
};
