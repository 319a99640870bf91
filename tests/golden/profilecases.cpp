#include "profilecases.h"

#include "corpus.h"
#include "files.h"
#include "isolation.h"
#include "objects.h"
#include "report.h"

#include "detectionline.h"
#include "detectionprofile.h"

#include <QTemporaryDir>

#include <stdexcept>
#include <variant>
#include <vector>

namespace
{

/// A field of a record under the name that the corpus gives it.
template <class Record>
struct Member
{
    const char* name;
    std::variant<std::int32_t Record::*, double Record::*> pointer;
};

/// What the tree offers for one kind of record.
template <class Record>
struct Form
{
    std::vector<Member<Record>> members;
    const char* memberNames;
    bool (*readProfile)(const QString& path, Record& record);
    bool (*writeProfile)(const QString& path, const Record& record);
    QString (*line)(const Record& record);
    bool (*readLine)(const QString& line, Record& record);
};

const Form<SaccadeDetectionParams> Saccades = {
    {{"local", &SaccadeDetectionParams::local},
     {"gap", &SaccadeDetectionParams::gap},
     {"minTime", &SaccadeDetectionParams::minTime},
     {"maxTime", &SaccadeDetectionParams::maxTime},
     {"initVel", &SaccadeDetectionParams::initVel},
     {"minSpeed", &SaccadeDetectionParams::minSpeed},
     {"minSlope", &SaccadeDetectionParams::minSlope},
     {"minAmp", &SaccadeDetectionParams::minAmp},
     {"maxAmp", &SaccadeDetectionParams::maxAmp}},
    "local gap minTime maxTime initVel minSpeed minSlope minAmp maxAmp",
    readSaccadeProfile,
    writeSaccadeProfile,
    saccadeLine,
    readSaccadeLine};

const Form<BlinkDetectionParams> Blinks = {
    {{"peakVel1", &BlinkDetectionParams::peakVel1},
     {"peakVel2", &BlinkDetectionParams::peakVel2},
     {"minVel", &BlinkDetectionParams::minVel},
     {"maxPeaksDistance", &BlinkDetectionParams::maxPeaksDistance},
     {"minAmplitude", &BlinkDetectionParams::minAmplitude},
     {"minAmplitudeRelation", &BlinkDetectionParams::minAmplitudeRelation},
     {"maxAmplitudeRelation", &BlinkDetectionParams::maxAmplitudeRelation},
     {"minDuration", &BlinkDetectionParams::minDuration},
     {"maxDuration", &BlinkDetectionParams::maxDuration}},
    "peakVel1 peakVel2 minVel maxPeaksDistance minAmplitude minAmplitudeRelation maxAmplitudeRelation "
    "minDuration maxDuration",
    readBlinkProfile,
    writeBlinkProfile,
    blinkLine,
    readBlinkLine};

template <class Record>
Verdict compareRecord(const Form<Record>& form, const QJsonValue& wanted, const Record& found)
{
    Verdict verdict;
    for (const Member<Record>& member : form.members) {
        const QString name = QString::fromLatin1(member.name);
        const Number number =
            std::visit([&](auto pointer) { return toNumber(found.*pointer); }, member.pointer);
        append(verdict, at(QLatin1Char('.') + name, compareNumber(wanted.toObject().value(name), number)));
    }
    return verdict;
}

void take(std::int32_t& value, const QJsonValue& number)
{
    value = integerOf(number);
}

void take(double& value, const QJsonValue& number)
{
    if (!number.isDouble())
        throw std::runtime_error("not a number: " + shown(number).toStdString());
    value = number.toDouble();
}

template <class Record>
Record recordOf(const Form<Record>& form, const QJsonValue& json)
{
    Record record;
    for (const Member<Record>& member : form.members) {
        const QJsonValue number = json.toObject().value(QLatin1String(member.name));
        std::visit([&](auto pointer) { take(record.*pointer, number); }, member.pointer);
    }
    return record;
}

template <class Record>
std::string writtenProfile(const Form<Record>& form, const Record& record)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("written"));
    if (!form.writeProfile(path, record))
        throw std::runtime_error("the profile cannot be written");
    return readWhole(path).value_or(QByteArray()).toStdString();
}

/// A record, or null where the profile does not load; then the record must be what it was before.
template <class Record>
Verdict checkRecord(const Form<Record>& form, const QJsonValue& wanted, bool loaded, const Record& record)
{
    if (!wanted.isNull())
        return compareRecord(form, wanted, record);
    const bool untouched = !loaded && form.line(record) == form.line(Record::atStart());
    return untouched ? Verdict() : Verdict{{QString(), shown(wanted), form.line(record)}};
}

template <class Record>
void checkProfile(const Form<Record>& form, const GoldenCase& golden, Report& report)
{
    Record record = Record::atStart();
    const bool loaded = form.readProfile(golden.inputPath, record);
    const QString load = QStringLiteral("load");
    const QJsonValue wantedLoad = golden.expected.value(load);
    report.check(load, [&] { return compareBool(wantedLoad, loaded); });
    // Without a record there is nothing to hold against the other fields: the failed load says it all.
    if (!loaded && wantedLoad.toBool())
        return;
    for (auto field = golden.expected.begin(); field != golden.expected.end(); ++field) {
        const QString key = field.key();
        const QJsonValue wanted = field.value();
        if (isBookkeeping(key) || key == load)
            continue;
        if (key == QLatin1String("record") && hasOnlyKeys(wanted.toObject(), form.memberNames))
            report.check(key, [&] { return checkRecord(form, wanted, loaded, record); });
        else if (key == QLatin1String("writtenAgain"))
            report.check(key, [&] { return compareText(wanted, writtenProfile(form, record)); });
        else if (key == QLatin1String("settingsLine"))
            report.check(key, [&] { return compareText(wanted, form.line(record).toStdString()); });
        else
            report.skip(key);
    }
}

template <class Record>
void surviveProfile(const Form<Record>& form, const GoldenCase& golden, Report& report)
{
    report.check(QStringLiteral("survive"), [&]() -> Verdict {
        const IsolationLimits limits;
        const auto work = [&] {
            Record record;
            form.readProfile(golden.inputPath, record);
            writtenProfile(form, record);
            form.readLine(form.line(record), record);
        };
        const QString end = runIsolated(work, limits);
        if (end.isEmpty())
            return {};
        const QString wanted =
            QStringLiteral("an answer within %1 s and %2 MiB").arg(limits.seconds).arg(limits.mebibytes);
        return {{QString(), wanted, end}};
    });
}

template <class Record>
Verdict checkReadLine(const Form<Record>& form, const QJsonObject& call)
{
    Record record = recordOf(form, call.value(QLatin1String("current")));
    form.readLine(call.value(QLatin1String("line")).toString(), record);
    return compareRecord(form, call.value(QLatin1String("record")), record);
}

template <class Record>
Verdict checkWriteLine(const Form<Record>& form, const QJsonObject& call)
{
    const Record record = recordOf(form, call.value(QLatin1String("record")));
    return compareText(call.value(QLatin1String("line")), form.line(record).toStdString());
}

template <class Record>
void runReadLines(const Form<Record>& form, const QString& key, const QJsonValue& calls, Report& report)
{
    const auto check = [&form](const QJsonObject& call) { return checkReadLine(form, call); };
    runCalls(key, calls, "line current record why check", check, report);
}

template <class Record>
void runWriteLines(const Form<Record>& form, const QString& key, const QJsonValue& calls, Report& report)
{
    const auto check = [&form](const QJsonObject& call) { return checkWriteLine(form, call); };
    runCalls(key, calls, "record line", check, report);
}

} // namespace

void checkSaccadeProfile(const GoldenCase& golden, Report& report)
{
    checkProfile(Saccades, golden, report);
}

void checkBlinkProfile(const GoldenCase& golden, Report& report)
{
    checkProfile(Blinks, golden, report);
}

void surviveSaccadeProfile(const GoldenCase& golden, Report& report)
{
    surviveProfile(Saccades, golden, report);
}

void surviveBlinkProfile(const GoldenCase& golden, Report& report)
{
    surviveProfile(Blinks, golden, report);
}

void checkSettingsLines(const GoldenCase& golden, Report& report)
{
    for (auto field = golden.expected.begin(); field != golden.expected.end(); ++field) {
        const QString key = field.key();
        if (isBookkeeping(key))
            continue;
        if (key == QLatin1String("saccadeRead"))
            runReadLines(Saccades, key, field.value(), report);
        else if (key == QLatin1String("saccadeWrite"))
            runWriteLines(Saccades, key, field.value(), report);
        else if (key == QLatin1String("blinkRead"))
            runReadLines(Blinks, key, field.value(), report);
        else if (key == QLatin1String("blinkWrite"))
            runWriteLines(Blinks, key, field.value(), report);
        else
            report.skip(key);
    }
}
