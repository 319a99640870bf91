// The whole start of the program up to the launcher, which ends as soon as it is on the screen.

#include "interfacestart.h"
#include "quitwhenpainted.h"
#include "startup.h"

int main(int argc, char** argv)
{
    return runKiroManager(argc, argv, [] {
        // Goes with the application object, which lives longer than the interface.
        (new QuitWhenPainted)->setParent(QCoreApplication::instance());
        return startInterface();
    });
}
