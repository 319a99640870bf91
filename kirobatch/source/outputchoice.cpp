#include "outputchoice.h"

#include "commandline.h"
#include "openrecording.h"

#include <QFileInfo>

QString besideFile(const CommandLine& line, const char* extension)
{
    const QFileInfo info(line.file().toQString());
    return info.path() + QLatin1Char('/') + info.completeBaseName() + QLatin1String(extension);
}

std::optional<std::string> chooseOutput(const CommandLine& line, const QString& standard, const char* kind,
                                        QString& output)
{
    output = line.isSet("o") ? KiroString::fromBytes(line.value("o")).toQString() : standard;
    if (output.isEmpty())
        return std::string("the output is empty: give the path of a ") + kind + " with -o.";
    const QString place = QFileInfo(output).canonicalFilePath();
    if (!place.isEmpty() && place == QFileInfo(line.file().toQString()).canonicalFilePath())
        return "the output would replace FILE itself: give another path with -o.";
    return std::nullopt;
}

std::optional<std::string> keepsExisting(const CommandLine& line, const QString& path)
{
    if (line.isSet("force") || !QFileInfo::exists(path))
        return std::nullopt;
    return quoted(KiroString(path)) +
           " is there already. Give --force to replace it, or another path with -o.";
}
