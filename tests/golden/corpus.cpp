#include "corpus.h"

#include "bdfcases.h"
#include "coretextcases.h"
#include "files.h"
#include "inicases.h"
#include "numericcases.h"
#include "profilecases.h"
#include "recordingcases.h"
#include "report.h"
#include "sacccases.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <optional>

namespace
{

const QString IndexName = QStringLiteral("INDEX.json");
const QString CaseName = QStringLiteral("case.json");

/// Every kind that the tree serves so far.
constexpr CaseKind Kinds[] = {
    {"recording", checkRecording, surviveRecording},
    {"coreText", checkCoreText, nullptr},
    {"ini", checkIni, nullptr},
    {"iniSteps", checkIniSteps, nullptr},
    {"bdf", checkBdf, surviveBdf},
    {"sacc", checkSacc, surviveSacc},
    {"sdp", checkSaccadeProfile, surviveSaccadeProfile},
    {"bdp", checkBlinkProfile, surviveBlinkProfile},
    {"settingsLines", checkSettingsLines, nullptr},
};

const CaseKind* findKind(const QString& name)
{
    for (const CaseKind& kind : Kinds) {
        if (name == QLatin1String(kind.name))
            return &kind;
    }
    return nullptr;
}

/// The function for cases of this kind and check, or null.
CaseCheck findCheck(const QString& kindName, const QString& check)
{
    const CaseKind* kind = findKind(kindName);
    if (!kind)
        return nullptr;
    if (check == QLatin1String("survive"))
        return kind->survive;
    const bool compares = check == QLatin1String("exact") || check == QLatin1String("advisory");
    return compares ? kind->exact : nullptr;
}

/// The object in a JSON file; without one a failure of `unit` is reported.
std::optional<QJsonObject> readObject(const QString& path, const QString& unit, Report& report)
{
    const QString wanted = QStringLiteral("a JSON object");
    const std::optional<QByteArray> bytes = readWhole(path);
    if (!bytes) {
        report.fail(unit, wanted, QStringLiteral("no readable file"));
        return std::nullopt;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(*bytes, &error);
    if (document.isObject())
        return document.object();
    const QString what = document.isNull() ? error.errorString() : QStringLiteral("no object");
    report.fail(unit, wanted, QStringLiteral("%1 at byte %2").arg(what).arg(error.offset));
    return std::nullopt;
}

/// Whether the input is there; that it is the file that the expected one speaks of is checked with it.
bool checkInput(const GoldenCase& golden, Report& report)
{
    const std::optional<QByteArray> bytes = readWhole(golden.inputPath);
    if (!bytes) {
        report.fail(QStringLiteral("input file"), QStringLiteral("a file"),
                    QStringLiteral("no readable file"));
        return false;
    }
    const QJsonValue size = golden.expected.value(QLatin1String("fileSize"));
    if (!size.isUndefined())
        report.check(QStringLiteral("fileSize"),
                     [&] { return compareNumber(size, toNumber(bytes->size())); });
    const QJsonValue hash = golden.expected.value(QLatin1String("sha256"));
    if (!hash.isUndefined())
        report.check(QStringLiteral("sha256"), [&] { return compareText(hash, sha256(*bytes)); });
    return true;
}

void runFileCase(const QString& folder, const QJsonObject& entry, Report& report)
{
    const QString name = entry.value(QLatin1String("file")).toString();
    const QString kind = entry.value(QLatin1String("kind")).toString();
    const QString check = entry.value(QLatin1String("check")).toString();
    report.beginCase(name, check == QLatin1String("advisory"));
    const CaseCheck run = findCheck(kind, check);
    if (!run) {
        report.skip(QStringLiteral("kind %1, check %2").arg(kind, check));
        return;
    }
    GoldenCase golden{name, QDir(folder).filePath(name), {}};
    const auto expected = readObject(golden.inputPath + QStringLiteral(".expected.json"),
                                     QStringLiteral("expected file"), report);
    if (!expected)
        return;
    golden.expected = *expected;
    if (checkInput(golden, report))
        run(golden, report);
}

void runCaseFolder(const QString& folder, const QString& name, Report& report)
{
    report.beginCase(name);
    const QString caseFolder = QDir(folder).filePath(name);
    const auto content = readObject(QDir(caseFolder).filePath(CaseName), CaseName, report);
    if (content)
        runNumericCase(caseFolder, *content, report);
}

/// Two forms of entries exist: a file with its kind, and the folder of a numeric case with its routines.
void runEntry(const QString& folder, const QJsonValue& value, int position, Report& report)
{
    const QJsonObject entry = value.toObject();
    if (entry.value(QLatin1String("file")).isString() && entry.value(QLatin1String("kind")).isString()) {
        runFileCase(folder, entry, report);
        return;
    }
    if (entry.value(QLatin1String("case")).isString() && entry.value(QLatin1String("routines")).isArray()) {
        runCaseFolder(folder, entry.value(QLatin1String("case")).toString(), report);
        return;
    }
    report.fail(QStringLiteral("cases[%1]").arg(position), QStringLiteral("a file with its kind, or a case"),
                shown(value));
}

} // namespace

void runFolder(const QString& folder, Report& report)
{
    report.beginCase(folder);
    const auto index = readObject(QDir(folder).filePath(IndexName), IndexName, report);
    if (!index)
        return;
    const QJsonValue cases = index->value(QLatin1String("cases"));
    if (!cases.isArray()) {
        report.fail(IndexName, QStringLiteral("an array \"cases\""), shown(cases));
        return;
    }
    const QJsonArray entries = cases.toArray();
    for (int i = 0; i < entries.size(); ++i) {
        report.beginCase(folder);
        runEntry(folder, entries[i], i, report);
    }
}
