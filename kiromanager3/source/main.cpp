#include "mainwindowimpl.h"
#include "startup.h"

int main(int argc, char** argv)
{
    return runKiroManager(argc, argv, [] {
        auto window = std::make_unique<MainWindow>();
        window->show();
        return window;
    });
}
