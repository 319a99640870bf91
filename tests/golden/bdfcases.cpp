#include "bdfcases.h"

#include "corpus.h"
#include "files.h"
#include "isolation.h"
#include "objects.h"
#include "recordingcases.h"
#include "report.h"

#include "bdfimporter.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <stdexcept>

namespace
{

/// A folder for one converted recording.
class Conversion
{
public:
    QString path() const { return m_folder.filePath(QStringLiteral("converted.kiro")); }

    /// Converts as `operation` says. Throws std::runtime_error with the error text if that fails.
    void run(BdfImporter& importer, const QJsonObject& operation) const
    {
        if (!importer.convert(path(), integerOf(operation.value(QLatin1String("first"))),
                              integerOf(operation.value(QLatin1String("last")))))
            throw std::runtime_error(importer.errorText().toStdString());
    }

private:
    QTemporaryDir m_folder;
};

/// A text of the interface, which is not one of bytes; the second value, where there is one, also counts.
Verdict compareError(const QJsonValue& wanted, const QJsonValue& alsoAccepted, const QString& found)
{
    if (wanted.isString() &&
        (found == wanted.toString() || (alsoAccepted.isString() && found == alsoAccepted.toString())))
        return {};
    return {{QString(), shown(wanted), shown(QJsonValue(found))}};
}

Verdict checkConvert(const GoldenCase& golden, BdfImporter& importer, const QJsonObject& operation)
{
    const Conversion conversion;
    conversion.run(importer, operation);
    const QString out = operation.value(QLatin1String("out")).toString();
    const QString fullResult = out.isEmpty() ? QString() : QFileInfo(golden.inputPath).dir().filePath(out);
    return compareContent(operation, readWhole(conversion.path()).value_or(QByteArray()), fullResult);
}

bool isServed(const QJsonObject& operation)
{
    return operation.value(QLatin1String("op")).toString() == QLatin1String("convert") &&
           hasOnlyKeys(operation, "op first last size sha256 out");
}

void runConversions(const GoldenCase& golden, BdfImporter& importer, Report& report)
{
    const QJsonValue operations = golden.expected.value(QLatin1String("ops"));
    if (!operations.isArray())
        report.fail(QStringLiteral("ops"), QStringLiteral("an array of operations"), shown(operations));
    const QJsonArray array = operations.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QJsonObject operation = array[i].toObject();
        const QString unit =
            QStringLiteral("ops[%1] %2").arg(i).arg(operation.value(QLatin1String("op")).toString());
        if (isServed(operation))
            report.check(unit, [&] { return checkConvert(golden, importer, operation); });
        else
            report.skip(unit);
    }
}

/// The header and samples of the first conversion, as of any recording.
void runReadBack(const GoldenCase& golden, BdfImporter& importer, Report& report)
{
    const QJsonObject operation = golden.expected.value(QLatin1String("ops")).toArray().at(0).toObject();
    const QString unit = QStringLiteral("header");
    if (!isServed(operation)) {
        report.skip(unit);
        return;
    }
    const Conversion conversion;
    try {
        conversion.run(importer, operation);
    } catch (const std::exception& error) {
        report.fail(unit, QStringLiteral("a converted recording"), QString::fromLocal8Bit(error.what()));
        return;
    }
    const bool advisory =
        golden.expected.value(QLatin1String("check")).toString() == QLatin1String("advisory");
    const GoldenCase readBack{golden.name + QStringLiteral(" read back"), conversion.path(),
                              golden.expected.value(unit).toObject()};
    report.beginCase(readBack.name, advisory);
    checkRecording(readBack, report);
    report.beginCase(golden.name, advisory);
}

struct HeaderNumber
{
    const char* key;
    int (*get)(const BdfHeader& header);
};

constexpr HeaderNumber HeaderNumbers[] = {
    {"records", [](const BdfHeader& header) { return header.recordCount; }},
    {"channels", [](const BdfHeader& header) { return header.channelCount(); }},
    {"headerBytes", [](const BdfHeader& header) { return header.headerBytes; }},
    {"recordBytes", [](const BdfHeader& header) { return header.recordBytes; }},
};

/// False if `key` is no number of the header.
bool runHeaderNumber(const QString& key, const QJsonValue& wanted, const BdfHeader& header, Report& report)
{
    for (const HeaderNumber& number : HeaderNumbers) {
        if (key == QLatin1String(number.key)) {
            report.check(key, [&] { return compareNumber(wanted, toNumber(number.get(header))); });
            return true;
        }
    }
    return false;
}

/// Any key but "load", "error" and "alsoAccepted".
void runKey(const GoldenCase& golden, BdfImporter& importer, const QString& key, Report& report)
{
    const QJsonValue wanted = golden.expected.value(key);
    if (runHeaderNumber(key, wanted, importer.header(), report))
        return;
    if (key == QLatin1String("is24Bit"))
        report.check(key, [&] { return compareBool(wanted, importer.header().is24Bit); });
    else if (key == QLatin1String("ops"))
        runConversions(golden, importer, report);
    else if (key == QLatin1String("header") && wanted.isObject())
        runReadBack(golden, importer, report);
    else
        report.skip(key);
}

} // namespace

void checkBdf(const GoldenCase& golden, Report& report)
{
    BdfImporter importer;
    const bool loaded = importer.load(golden.inputPath);
    const QJsonValue load = golden.expected.value(QLatin1String("load"));
    report.check(QStringLiteral("load"), [&] { return compareBool(load, loaded); });
    report.check(QStringLiteral("error"), [&] {
        return compareError(golden.expected.value(QLatin1String("error")),
                            golden.expected.value(QLatin1String("alsoAccepted")), importer.errorText());
    });
    // Without a header there is nothing to hold against the rest: the failed load says it all.
    if (!loaded && load.toBool())
        return;
    for (const QString& key : golden.expected.keys()) {
        if (!isBookkeeping(key) && key != QLatin1String("load") && key != QLatin1String("error") &&
            key != QLatin1String("alsoAccepted"))
            runKey(golden, importer, key, report);
    }
}

void surviveBdf(const GoldenCase& golden, Report& report)
{
    report.check(QStringLiteral("survive"), [&]() -> Verdict {
        const Conversion conversion;
        const IsolationLimits limits;
        const auto work = [&] {
            BdfImporter importer;
            if (importer.load(golden.inputPath))
                importer.convert(conversion.path());
        };
        const QString end = runIsolated(work, limits);
        if (end.isEmpty())
            return {};
        const QString wanted =
            QStringLiteral("an answer within %1 s and %2 MiB").arg(limits.seconds).arg(limits.mebibytes);
        return {{QString(), wanted, end}};
    });
}
