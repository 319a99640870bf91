#include "fatalerrors.h"

#include "kiroutils.h"

#include <string>

void throwFatalErrors()
{
    KiroError::setPresenter(
        [](const char* message) { throw FatalError(std::string("fatal error: ") + message); });
}
