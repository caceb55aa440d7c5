#pragma once

#include <QHash>
#include <QMetaObject>
#include <QMutex>
#include <QMutexLocker>
#include <QObject>
#include <QPair>

#include <initializer_list>
#include <memory>
#include <utility>

/// What the menus of a manager have to tell, on its way into the manager's thread. Of what asks for a look at
/// the elements one waits for each menu: the look that waits sees their last state. What is told one by one
/// waits as often, up to a bound, behind which one more would tell nothing new: so menus that change faster
/// than they can be looked at fill no event queue.
///
/// Called from any thread. Who calls it shares it, so that it may outlive the manager.
class TMenuNotices : public std::enable_shared_from_this<TMenuNotices>
{
public:
    enum EKind
    {
        ELEMENT_LIST = 0,
        ELEMENT_STATE = 1,
        ENABLED_STATE = 2
    };

    /// Most that wait of a kind that is told one by one, for each menu.
    static constexpr int MostWaiting = 16;

    explicit TMenuNotices(QObject* receiver)
        : m_Receiver(receiver)
    {
    }

    /// Nothing is delivered any more; for the receiver's destructor.
    void Close()
    {
        QMutexLocker const locker(&m_Mutex);
        m_Receiver = nullptr;
    }

    /// Calls \a look from the receiver's event loop, unless enough of the same wait there already.
    template<typename TLook>
    void Post(EKind kind, int menuID, TLook look)
    {
        QPair<int, int> const notice(kind, menuID);
        QMutexLocker const locker(&m_Mutex);
        int const most = kind == ELEMENT_STATE ? 1 : MostWaiting;
        if (!m_Receiver || m_Waiting.value(notice) >= most)
            return;
        ++m_Waiting[notice];
        QMetaObject::invokeMethod(
            m_Receiver,
            [self = shared_from_this(), notice, look]
            {
                self->Take(notice);
                look();
            },
            Qt::QueuedConnection);
    }

    /// Calls \a command from the receiver's event loop. It may open or close what the elements of \a menuIDs
    /// lead to or show: what is posted of them later is looked at after it, even if the same waits before it.
    template<typename TCommand>
    void Send(std::initializer_list<int> menuIDs, TCommand command)
    {
        QMutexLocker const locker(&m_Mutex);
        for (int const menuID : menuIDs)
            m_Waiting.remove({ELEMENT_STATE, menuID});
        if (m_Receiver)
            QMetaObject::invokeMethod(m_Receiver, std::move(command), Qt::QueuedConnection);
    }

private:
    // What changes from here on needs another look.
    void Take(QPair<int, int> const& notice)
    {
        QMutexLocker const locker(&m_Mutex);
        auto const waiting = m_Waiting.find(notice);
        if (waiting != m_Waiting.end() && --*waiting <= 0)
            m_Waiting.erase(waiting);
    }

    QMutex m_Mutex;
    QObject* m_Receiver;
    QHash<QPair<int, int>, int> m_Waiting; // how many, by kind and menu
};
