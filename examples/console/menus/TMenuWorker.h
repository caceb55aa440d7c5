#pragma once

#include <QMetaObject>
#include <QObject>
#include <QThread>

class TConsoleMenu;

/// A thread in which a module decides what its menus show. It sleeps until work is posted, and does it in
/// order.
///
/// Whatever the work touches has to outlive the worker: when the destructor comes back, work that had begun
/// has ended, and what had not begun is forgotten. For the GUI thread.
class TMenuWorker
{
public:
    /// \a name is what the thread is called. \a console has to live longer.
    TMenuWorker(TConsoleMenu* console, QString const& name);
    ~TMenuWorker();
    TMenuWorker(TMenuWorker const&) = delete;
    TMenuWorker& operator=(TMenuWorker const&) = delete;

    /// Has \a work called in the thread, soon. It takes copies along of what it needs of the GUI thread, and
    /// must not wait for that: the GUI thread may be waiting for the work.
    template<typename TWork>
    void Post(TWork work)
    {
        m_IsBusy = true;
        QMetaObject::invokeMethod(&m_Place, std::move(work), Qt::QueuedConnection);
    }
    /// Comes back when all that was posted has been done; at once where the thread does not run.
    void Wait();

private:
    TConsoleMenu* m_Console;
    QObject m_Place; // lives in the thread
    QThread m_Thread;
    bool m_IsBusy = false; // since the last Wait()
};
