#include "TStopSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace
{
constexpr std::array<int, 2> StopSignals = {SIGTERM, SIGINT};
constexpr int Unopened = -1;

// What a signal handler may touch: the writing end of a pipe.
int s_Pipe[2] = {Unopened, Unopened};

extern "C" void NoteStopSignal(int)
{
    int const errnoBefore = errno;
    char const byte = 1;
    // A full pipe holds a request already.
    ssize_t const written = write(s_Pipe[1], &byte, 1);
    static_cast<void>(written);
    errno = errnoBefore;
}

void SetHandlers(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (int const signal : StopSignals)
        sigaction(signal, &action, nullptr);
}
} // namespace

TStopSignals::TStopSignals(QObject* parent)
    : QObject(parent)
{
    if (s_Pipe[0] != Unopened || pipe(s_Pipe) != 0)
        return;
    m_Notifier = std::make_unique<QSocketNotifier>(s_Pipe[0], QSocketNotifier::Read);
    connect(m_Notifier.get(), &QSocketNotifier::activated, this, &TStopSignals::OnReadable);
    SetHandlers(NoteStopSignal);
}

TStopSignals::~TStopSignals()
{
    if (!m_Notifier)
        return;
    RestoreHandlers();
    m_Notifier.reset();
    for (int& end : s_Pipe)
    {
        close(end);
        end = Unopened;
    }
}

void TStopSignals::OnReadable()
{
    char byte = 0;
    if (read(s_Pipe[0], &byte, 1) != 1)
        return;
    RestoreHandlers();
    Q_EMIT StopRequested();
}

void TStopSignals::RestoreHandlers()
{
    SetHandlers(SIG_DFL);
}
