#pragma once

#include <QObject>
#include <QStringList>

class QDBusPendingCallWatcher;
class QDBusServiceWatcher;

/// The USB sticks that the UDisks2 service on the system bus has mounted. A system may lack the bus or the
/// service, lose either, or answer nonsense: there is no answer then, until a good one comes. Nothing here
/// waits. Private to the library.
class TUDisks : public QObject
{
    Q_OBJECT

public:
    /// \a busAddress is the D-Bus address of the bus; empty: the system's.
    TUDisks(QString const& busAddress, QObject* parent);
    ~TUDisks() override;

    /// Whether the service has answered, and is still there.
    bool IsAnswering() const { return m_IsAnswering; }
    /// Where sticks are mounted; none while there is no answer.
    QStringList const& Sticks() const { return m_Sticks; }

Q_SIGNALS:
    /// An answer came, or there is none any more; the sticks may have changed.
    void Changed();

private Q_SLOTS:
    void OnObjectsChanged();
    void OnDisconnected();

private:
    void OpenBus(QString const& address);
    void OnBusOpened(bool isOpen);
    void OnAnswer(QDBusPendingCallWatcher* call);
    void Ask();
    void SetAnswer(bool isAnswering, QStringList const& sticks);

    QString const m_ConnectionName;
    QDBusServiceWatcher* m_Service = nullptr;
    QDBusPendingCallWatcher* m_Question = nullptr; ///< none while nothing is asked
    bool m_AskAgain = false;
    bool m_IsAnswering = false;
    QStringList m_Sticks;
};
