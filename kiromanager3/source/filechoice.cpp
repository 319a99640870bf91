#include "filechoice.h"

#include "messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

QString startFolder(const QString& folder)
{
    return !folder.isEmpty() && QDir(folder).exists() ? folder : QDir::homePath();
}

QString draggedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

QString withSuffix(const QString& path, const QString& suffix)
{
    return QFileInfo(path).suffix().isEmpty() ? path + QLatin1Char('.') + suffix : path;
}

bool mayReplace(QWidget* window, const QString& path)
{
    return askWarning(window, QCoreApplication::translate(
                                  "FileChoice", "The file %1 already exists.\nDo you want to replace it?")
                                  .arg(path));
}
