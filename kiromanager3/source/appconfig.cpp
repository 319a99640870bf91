#include "appconfig.h"

#include "kiroutils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace
{

const QLatin1String ConfigName("kiromanager3.ini");
const QLatin1String SignalsName("kiromanager3.sig");
const QLatin1String LogName("kiromanager3.txt");

/// The file that opening `path` would make: behind symbolic links that lead nowhere yet.
QString behindLinks(QString path)
{
    constexpr int MostLinks = 40; // as the system counts before it gives up
    for (int i = 0; i < MostLinks && QFileInfo(path).isSymLink(); ++i)
        path = QFileInfo(path).symLinkTarget();
    return path;
}

bool canBeMade(const QString& path)
{
    QFile file(behindLinks(path));
    // NewOnly: a file that another process makes in this moment is not ours to remove.
    if (!file.open(QIODevice::ReadWrite | QIODevice::NewOnly))
        return false;
    file.close();
    file.remove();
    return true;
}

bool opensReadWrite(const QString& path)
{
    return QFile(path).open(QIODevice::ReadWrite | QIODevice::ExistingOnly);
}

bool setChecked(QString& target, const QString& path)
{
    if (path.isEmpty() || !(opensReadWrite(path) || canBeMade(path)))
        return false;
    target = path;
    return true;
}

QString defaultPath(QLatin1String name)
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return configFolder(base, QDir::homePath()) + QLatin1Char('/') + name;
}

} // namespace

AppConfig::AppConfig()
{
    setConfigFile(ConfigName);
    setSignalsFile(SignalsName);
    setLogFile(LogName);
}

bool AppConfig::setConfigFile(const QString& path)
{
    return setChecked(m_configFile, path);
}

bool AppConfig::setSignalsFile(const QString& path)
{
    return setChecked(m_signalsFile, path);
}

bool AppConfig::setLogFile(const QString& path)
{
    return setChecked(m_logFile, path);
}

bool AppConfig::useDefaultConfigFile()
{
    return setConfigFile(defaultPath(ConfigName));
}

bool AppConfig::useDefaultSignalsFile()
{
    return setSignalsFile(defaultPath(SignalsName));
}

bool AppConfig::useDefaultLogFile()
{
    return setLogFile(defaultPath(LogName));
}

QString AppConfig::version() const
{
    return QString::fromLatin1(kiroVersionText());
}

AppConfig& appConfig()
{
    static AppConfig* const config = new AppConfig;
    return *config;
}

QString configFolder(QString base, const QString& home)
{
    const QString local = QStringLiteral("Local");
    if (base.endsWith(local))
        base.replace(local, QStringLiteral("Roaming"));
    const QString folder = base + QStringLiteral("/kiroconfig");
    // Without a base the folder would land in the root of the disk.
    const bool usable = !base.isEmpty() && (QFileInfo(folder).isDir() || QDir().mkpath(folder));
    return usable ? folder : home;
}
