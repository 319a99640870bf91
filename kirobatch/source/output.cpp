#include "output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

void Output::noteError()
{
    if (m_errorNumber == 0)
        m_errorNumber = errno != 0 ? errno : EIO;
}

void Output::write(std::string_view text)
{
    if (!hasFailed() && std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
        noteError();
}

Outcome Output::finish()
{
    // Flushes what is left; some file systems report lost bytes only on closing.
    if (std::fclose(stdout) != 0)
        noteError();
    if (!hasFailed())
        return Outcome::done();
    return Outcome::failed(std::string("cannot write to standard output: ") + std::strerror(m_errorNumber) +
                           ". The output is incomplete; run the command again with room for all of it.");
}
