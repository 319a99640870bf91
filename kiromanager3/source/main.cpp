#include "interfacestart.h"
#include "startup.h"

int main(int argc, char** argv)
{
    return runKiroManager(argc, argv, startInterface);
}
