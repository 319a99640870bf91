#include "startup.h"

#include "appconfig.h"
#include "criticalbox.h"
#include "kiroutils.h"
#include "messagelog.h"

#include <QApplication>
#include <QLocale>

#include <clocale>
#include <string_view>

namespace
{

/// A file that the command line can name.
struct PathSwitch
{
    std::string_view name;
    bool (AppConfig::*setPath)(const QString&);
    bool (AppConfig::*useDefault)();
};

constexpr PathSwitch PathSwitches[] = {
    {"-config", &AppConfig::setConfigFile, &AppConfig::useDefaultConfigFile},
    {"-signals", &AppConfig::setSignalsFile, &AppConfig::useDefaultSignalsFile},
    {"-log", &AppConfig::setLogFile, &AppConfig::useDefaultLogFile},
};

/// Whether a path behind the switch was given and taken. A switch in last place has none.
bool takePath(const PathSwitch& path, int argc, const char* const* argv, AppConfig& config)
{
    bool taken = false;
    for (int i = 1; i + 1 < argc; ++i) {
        if (argv[i] == path.name && (config.*path.setPath)(QString::fromLocal8Bit(argv[i + 1])))
            taken = true;
    }
    return taken;
}

void startLog(const AppConfig& config)
{
    const bool oldLogSafe = saveOldLog(config.logFile());
    if (openLog(config.logFile()) && !config.isDeveloperVersion())
        qInstallMessageHandler(logMessage);
    if (!oldLogSafe)
        qWarning("The message log of the last run could not be saved to \"%s.bak\"",
                 qUtf8Printable(config.logFile()));
}

void presentFatalError(const char* message)
{
    const QString title = QString::fromLatin1(KiroError::BoxTitle);
    // The event loop of an open box may run into the same fault again and again: no boxes upon boxes.
    if (!isCriticalBoxOpen())
        showCritical(title, QString::fromLocal8Bit(message));
}

} // namespace

int runKiroManager(int argc, char** argv, const InterfaceFactory& createInterface)
{
    std::setlocale(LC_ALL, "");
    AppConfig& config = appConfig();
    readCommandLine(argc, argv, config);
    startLog(config);

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    const CriticalBoxPeriod boxes;
    KiroError::setPresenter(presentFatalError);
    QLocale::setDefault(QLocale::system());

    const std::unique_ptr<QObject> userInterface = createInterface();
    return QApplication::exec();
}

void readCommandLine(int argc, const char* const* argv, AppConfig& config)
{
    for (int i = 1; i < argc; ++i) {
        if (argv[i] == std::string_view("-developer_version"))
            config.setDeveloperVersion(true);
    }
    for (const PathSwitch& path : PathSwitches) {
        if (!takePath(path, argc, argv, config))
            (config.*path.useDefault)();
    }
}
