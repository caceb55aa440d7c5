#pragma once

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QStringList>

#include <memory>

class QSocketNotifier;

/// The USB sticks that the kernel has mounted, read from its mount table and told to be on USB by its device
/// tree. It notices every change of the table by itself. Private to the library.
class TMountTable : public QObject
{
    Q_OBJECT

public:
    /// Reads the mount table in the file \a table, such as /proc/self/mountinfo; the links dev/block below
    /// the folder \a deviceTree, such as /sys, name the devices. Without such a file there is no stick.
    TMountTable(QString const& table, QString const& deviceTree, QObject* parent);
    ~TMountTable() override;

    /// Where sticks are mounted, in the order of the table. Lines that make no sense are passed over.
    QStringList const& Sticks() const { return m_Sticks; }

Q_SIGNALS:
    /// The table changed; the sticks may have.
    void Changed();

private:
    void OnTableChanged();
    void Read();
    QString StickIn(QByteArray const& line) const;
    bool IsOnUsb(QByteArray const& device) const;

    QString const m_DeviceTree;
    QFile m_Table;
    std::unique_ptr<QSocketNotifier> m_Notifier;
    QStringList m_Sticks;
};
