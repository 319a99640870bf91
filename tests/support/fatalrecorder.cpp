#include "fatalrecorder.h"

#include "kiroutils.h"

namespace
{

struct FatalErrorRaised
{
    std::string message;
};

} // namespace

std::string fatalErrorOf(const std::function<void()>& work)
{
    KiroError::setPresenter([](const char* message) { throw FatalErrorRaised{message}; });
    std::string message = "no fatal error";
    try {
        work();
    } catch (const FatalErrorRaised& raised) {
        message = raised.message;
    }
    KiroError::setPresenter(nullptr);
    return message;
}
