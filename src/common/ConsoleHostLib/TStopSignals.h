#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

/// Turns SIGTERM and SIGINT into a Qt signal, for as long as the object lives; there is one at most. After
/// the first signal the system's own handling is back, so that a second one ends a program that hangs.
/// Private to the library.
class TStopSignals : public QObject
{
    Q_OBJECT

public:
    explicit TStopSignals(QObject* parent);
    ~TStopSignals() override;

Q_SIGNALS:
    void StopRequested();

private:
    void OnReadable();
    static void RestoreHandlers();

    std::unique_ptr<QSocketNotifier> m_Notifier;
};
