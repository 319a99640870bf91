#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

/// Lets files that this process writes grow to `bytes` only while it lives: writes then come back short, as
/// on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : m_handlerBefore(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        struct rlimit small = m_before;
        small.rlim_cur = bytes;
        m_set = ::setrlimit(RLIMIT_FSIZE, &small) == 0;
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handlerBefore);
    }
    /// Whether the limit is in force.
    bool isSet() const { return m_set; }

private:
    Q_DISABLE_COPY(FileSizeLimit)
    void (*m_handlerBefore)(int);
    struct rlimit m_before = {};
    bool m_set = false;
};
