#pragma once

#include <QByteArray>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// What a child process writes before the signal that ends it, 0 for none.
struct TEnd
{
    QByteArray message;
    int signal;
};

/// Calls \a action in a copy of this process, which it may bring down.
template<typename T>
TEnd RunInChild(T action)
{
    int ends[2] = {-1, -1};
    if (pipe(ends) != 0)
        return {"no pipe", 0};
    pid_t const child = fork();
    if (child == 0)
    {
        rlimit const noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGABRT, SIG_DFL);
        qInstallMessageHandler(nullptr);
        dup2(ends[1], STDERR_FILENO);
        action();
        _exit(0);
    }
    close(ends[1]);
    TEnd end{{}, 0};
    char bytes[512];
    for (ssize_t count = read(ends[0], bytes, sizeof bytes); count > 0;
         count = read(ends[0], bytes, sizeof bytes))
        end.message.append(bytes, static_cast<int>(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return end;
}
