#pragma once

#include "kirostring.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

/// A file in memory that the code under test opens by name.
class MemoryFile
{
public:
    MemoryFile(const std::uint8_t* bytes, std::size_t count)
        : m_handle(::memfd_create("fuzz", 0))
    {
        if (m_handle < 0 || ::write(m_handle, bytes, count) != static_cast<ssize_t>(count))
            std::abort();
    }
    ~MemoryFile() { ::close(m_handle); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    KiroString path() const { return KiroString("/proc/self/fd/%1").arg(m_handle); }

private:
    int m_handle;
};

/// Ends the run with a finding, and says in which line, if `condition` does not hold.
inline void require(bool condition, int line = __builtin_LINE())
{
    if (condition)
        return;
    std::fprintf(stderr, "the requirement in line %d does not hold\n", line);
    std::abort();
}
