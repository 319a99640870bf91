#pragma once

#include <stdexcept>

/// A fatal error of the core, which would have ended the process.
class FatalError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// From now on fatal errors of the core are thrown as FatalError.
void throwFatalErrors();
