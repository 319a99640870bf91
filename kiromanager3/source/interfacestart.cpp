#include "interfacestart.h"

#include "appconfig.h"
#include "inistore.h"
#include "language.h"
#include "mainwindowimpl.h"
#include "openfiles.h"
#include "windowgeometry.h"

#include <QApplication>
#include <QIcon>

namespace
{

/// The launcher must go before the translators.
class Interface : public QObject
{
public:
    Interface()
        : m_translators(settleLanguage(appConfig().configFile()))
    {
    }

    MainWindow& launcher() { return m_launcher; }

private:
    Translators m_translators;
    MainWindow m_launcher;
};

void showLauncher(MainWindow& launcher)
{
    IniStore store;
    store.load(appConfig().configFile());
    launcher.adjustSize();
    launcher.move(WindowGeometry::read(store, MainWindow::section(), launcher).position);
    launcher.show();
}

} // namespace

std::unique_ptr<QObject> startInterface()
{
    Q_INIT_RESOURCE(images);
    // Its colours are its own: it stands among the icons of other programs, not in this one's palette.
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/images/kiromanager.svg")));
    auto userInterface = std::make_unique<Interface>();
    showLauncher(userInterface->launcher());
    QObject::connect(qApp, &QGuiApplication::lastWindowClosed, qApp, &QCoreApplication::quit);
    for (const QString& path : fileArguments(QCoreApplication::arguments())) {
        if (std::unique_ptr<FilePathEvent> open = openEventFor(path))
            QCoreApplication::postEvent(&userInterface->launcher(), open.release());
    }
    return userInterface;
}
