#include "openfiles.h"

#include <QFileInfo>

std::unique_ptr<FilePathEvent> openEventFor(const QString& path)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return nullptr;
    if (file.suffix() == QLatin1String("kiro"))
        return std::make_unique<OpenKiroFileEvent>(path);
    if (file.suffix() == QLatin1String("sacc"))
        return std::make_unique<OpenSaccFileEvent>(path);
    return nullptr;
}

bool isForImport(const QString& path)
{
    const QFileInfo file(path);
    const QStringList suffixes{QStringLiteral("bdf"), QStringLiteral("edf"), QStringLiteral("rec")};
    return file.isFile() && suffixes.contains(file.suffix().toLower());
}

QStringList fileArguments(const QStringList& arguments)
{
    QStringList files;
    for (int i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == QLatin1String("-config") || arguments[i] == QLatin1String("-log"))
            ++i;
        else
            files.append(arguments[i]);
    }
    return files;
}
