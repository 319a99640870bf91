// An empty Qt window that ends as soon as it is on the screen: what every window program costs at least.

#include "quitwhenpainted.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QuitWhenPainted quit;
    QWidget window;
    window.show();
    return QApplication::exec();
}
