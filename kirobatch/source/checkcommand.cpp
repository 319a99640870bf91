#include "checkcommand.h"

#include "commandline.h"
#include "kiroreader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "recordingcheck.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

constexpr const char* Details =
    "Each line names what was found at which byte and what was expected. An error\n"
    "keeps the file from being opened or means missing samples; a warning is\n"
    "something that can't be right; a note does no harm. The exit status is 1 if\n"
    "there is an error or a warning.";

constexpr const char* JsonDescription =
    "Prints one JSON array (UTF-8) with an object for each finding: grade, field, signal (its index, or "
    "null), "
    "offset (in bytes, or null), found, expected, meaning, and text, which is the whole line.";

const char* gradeName(CheckFinding::Grade grade)
{
    switch (grade) {
    case CheckFinding::Grade::Error:
        return "error";
    case CheckFinding::Grade::Warning:
        return "warning";
    case CheckFinding::Grade::Note:
        break;
    }
    return "note";
}

std::string asLines(const CheckResult& result)
{
    if (result.findings.empty())
        return "Nothing wrong was found.\n";
    std::string lines;
    for (const CheckFinding& finding : result.findings)
        lines += std::string(gradeName(finding.grade)) + ": " + finding.text() + '\n';
    return lines;
}

QJsonObject asJson(const CheckFinding& finding)
{
    const auto numberOrNull = [](std::int64_t number) {
        return number >= 0 ? QJsonValue(static_cast<qint64>(number)) : QJsonValue();
    };
    return {{QStringLiteral("grade"), QLatin1String(gradeName(finding.grade))},
            {QStringLiteral("field"), QString::fromStdString(finding.key)},
            {QStringLiteral("signal"), numberOrNull(finding.signal)},
            {QStringLiteral("offset"), numberOrNull(finding.offset)},
            {QStringLiteral("found"), QString::fromStdString(finding.found)},
            {QStringLiteral("expected"), QString::fromStdString(finding.expected)},
            {QStringLiteral("meaning"), QString::fromStdString(finding.meaning)},
            {QStringLiteral("text"), QString::fromStdString(finding.text())}};
}

std::string asJson(const CheckResult& result)
{
    QJsonArray array;
    for (const CheckFinding& finding : result.findings)
        array.append(asJson(finding));
    return QJsonDocument(array).toJson().toStdString();
}

Outcome verdict(const KiroString& path, const CheckResult& result)
{
    const int errors = result.count(CheckFinding::Grade::Error);
    const int warnings = result.count(CheckFinding::Grade::Warning);
    if (errors + warnings == 0)
        return Outcome::done();
    return Outcome::failed(quoted(path) + " has " + counted(errors, "error") + " and " +
                           counted(warnings, "warning") + ".");
}

/// Why the file did not let itself be read.
Outcome cannotOpen(const KiroString& path)
{
    KiroReader reader;
    std::string error;
    if (openRecording(path, reader, error))
        error = quoted(path) + " has changed meanwhile. Try again.";
    return Outcome::failed(error);
}

} // namespace

Outcome runCheck(const QStringList& arguments)
{
    CommandLine line("check", "Tells what is wrong or odd about a recording.", Details);
    line.addFlag("json", JsonDescription);
    if (const auto over = line.parse(arguments))
        return *over;

    const CheckResult result = checkRecording(line.file());
    if (!result.opened)
        return cannotOpen(line.file());
    Output output;
    output.write(line.isSet("json") ? asJson(result) : asLines(result));
    const Outcome written = output.finish();
    return written.status == Outcome::Done ? verdict(line.file(), result) : written;
}
