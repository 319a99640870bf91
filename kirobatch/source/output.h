#pragma once

#include "outcome.h"

#include <QtGlobal>

#include <string>
#include <string_view>

/// Standard output of one command, where no lost byte stays unnoticed.
///
/// Nothing is written after the first failure. Bytes go out as they are.
class Output
{
public:
    Output() = default;

    void write(std::string_view text);
    bool hasFailed() const { return m_errorNumber != 0; }
    /// Hands over what is still buffered and closes standard output. The outcome is a failure if any
    /// byte was not taken. To be called last, once.
    Outcome finish();

private:
    Q_DISABLE_COPY(Output)
    void noteError();

    int m_errorNumber = 0; // of the first failure
};
