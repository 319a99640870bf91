#include "untilinterrupted.h"

#include <csignal>

namespace
{

volatile std::sig_atomic_t interrupted = 0;

} // namespace

UntilInterrupted::UntilInterrupted()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        // A caller such as nohup has good reasons.
        if (std::signal(signal, [](int) { interrupted = 1; }) == SIG_IGN)
            std::signal(signal, SIG_IGN);
    }
}

bool UntilInterrupted::cancelled()
{
    return interrupted != 0;
}
