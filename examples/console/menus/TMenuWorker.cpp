#include "TMenuWorker.h"

#include "TConsoleMenu.h"

TMenuWorker::TMenuWorker(TConsoleMenu* console, QString const& name)
    : m_Console(console)
{
    m_Console->AddWorker(this);
    m_Thread.setObjectName(name);
    m_Place.moveToThread(&m_Thread);
    m_Thread.start();
}

TMenuWorker::~TMenuWorker()
{
    m_Thread.quit();
    m_Thread.wait();
    m_Console->RemoveWorker(this);
}

void TMenuWorker::Wait()
{
    if (!m_IsBusy || !m_Thread.isRunning())
        return;
    m_IsBusy = false;
    QMetaObject::invokeMethod(
        &m_Place, [] {}, Qt::BlockingQueuedConnection);
}
