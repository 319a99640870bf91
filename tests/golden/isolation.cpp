#include "isolation.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>

namespace
{

[[noreturn]] void runInChild(const std::function<void()>& work, unsigned seconds)
{
    alarm(seconds);
    try {
        work();
    } catch (const std::exception&) {
        // A refusal is an answer like any other.
    }
    _exit(EXIT_SUCCESS);
}

/// What this process has taken at the most: a child begins with a copy of it. Sanitizers hold a lot.
long ownMebibytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

QString describe(int status, const rusage& usage, long mostMebibytes)
{
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return QStringLiteral("no answer");
    if (WIFSIGNALED(status))
        return QStringLiteral("a crash (%1)").arg(QString::fromLocal8Bit(strsignal(WTERMSIG(status))));
    if (!WIFEXITED(status) || WEXITSTATUS(status) != EXIT_SUCCESS)
        return QStringLiteral("the end of the process");
    const long mebibytes = usage.ru_maxrss / 1024 - ownMebibytes();
    if (mebibytes > mostMebibytes)
        return QStringLiteral("%1 MiB of memory taken").arg(mebibytes);
    return QString();
}

} // namespace

QString runIsolated(const std::function<void()>& work, const IsolationLimits& limits)
{
    std::cout.flush();
    const pid_t child = fork();
    if (child < 0)
        return QStringLiteral("no process of its own");
    if (child == 0)
        runInChild(work, limits.seconds);
    int status = 0;
    rusage usage = {};
    while (wait4(child, &status, 0, &usage) < 0) {
        if (errno != EINTR)
            return QStringLiteral("no word from its process");
    }
    return describe(status, usage, limits.mebibytes);
}
