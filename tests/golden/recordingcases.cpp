#include "recordingcases.h"

#include "corpus.h"
#include "objects.h"
#include "recording.h"
#include "recordingcalls.h"
#include "recordingfields.h"
#include "report.h"

#include <QJsonArray>

#include <algorithm>

namespace
{

Verdict checkLoad(const Recording& recording, const QJsonValue& wanted)
{
    Verdict verdict = compareBool(wanted, recording.isOpen());
    if (recording.isOpen() && !recording.headerLoads())
        verdict.push_back(
            {QString(), QStringLiteral("a header that KiroHeader loads too"), QStringLiteral("a refusal")});
    return verdict;
}

void runSignal(Recording& recording, int signal, const QJsonObject& fields, Report& report)
{
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        const QString unit = QStringLiteral("signals[%1].%2").arg(signal).arg(field.key());
        if (const SignalFieldCheck check = signalFieldCheck(field.key()))
            report.check(unit, [&] { return check(recording, signal, field.value()); });
        else
            report.skip(unit);
    }
}

/// The number of signals is a unit, and so is each field of each.
void runSignals(Recording& recording, const QJsonValue& wanted, Report& report)
{
    const QJsonArray signalArray = wanted.toArray();
    const int count = recording.header().signalCount();
    report.check(QStringLiteral("signals"), [&] {
        const QJsonValue wantedCount = wanted.isArray() ? QJsonValue(signalArray.size()) : wanted;
        return at(QStringLiteral(" count"), compareNumber(wantedCount, toNumber(count)));
    });
    for (int i = 0; i < std::min(count, signalArray.size()); ++i)
        runSignal(recording, i, signalArray[i].toObject(), report);
}

/// An array of calls; false if `key` names none.
bool runCallsOf(const Recording& recording, const QString& key, const QJsonValue& calls, Report& report)
{
    if (key == QLatin1String("findSignal")) {
        const auto check = [&](const QJsonObject& call) { return checkFindSignal(recording, call); };
        runCalls(key, calls, "names index", check, report);
        return true;
    }
    if (key == QLatin1String("readSignal")) {
        const auto check = [&](const QJsonObject& call) { return checkReadSignal(recording, call); };
        runCalls(key, calls, "signal calibrate first requested result count values", check, report);
        return true;
    }
    return false;
}

/// Any key of an open recording but "load".
void runKey(const GoldenCase& golden, Recording& recording, const QString& key, Report& report)
{
    const QJsonValue wanted = golden.expected.value(key);
    const QJsonObject object = wanted.toObject();
    const HeaderFieldCheck check = headerFieldCheck(key);
    const bool leftOpen = key == QLatin1String("checkIntegrity") && wanted.isNull();
    if (check && !leftOpen)
        report.check(key, [&] { return check(recording, wanted); });
    else if (key == QLatin1String("signals"))
        runSignals(recording, wanted, report);
    else if (key == QLatin1String("writtenHeader") && hasOnlyKeys(object, "size sha256"))
        report.check(key, [&] { return checkWrittenHeader(recording, object); });
    else if (key == QLatin1String("repair") && hasOnlyKeys(object, "result reason frameCount sha256"))
        report.check(key, [&] { return checkRepair(golden, object); });
    else if (key == QLatin1String("ops"))
        runOperations(golden, wanted, report);
    else if (!runCallsOf(recording, key, wanted, report))
        report.skip(key);
}

} // namespace

void checkRecording(const GoldenCase& golden, Report& report)
{
    Recording recording(golden.inputPath);
    const QString load = QStringLiteral("load");
    const QJsonValue wantedLoad = golden.expected.value(load);
    report.check(load, [&] { return checkLoad(recording, wantedLoad); });
    // Without a header there is nothing to hold against the other fields: the failed load says it all.
    if (!recording.isOpen() && wantedLoad.toBool())
        return;
    for (auto field = golden.expected.begin(); field != golden.expected.end(); ++field) {
        if (!isBookkeeping(field.key()) && field.key() != load)
            runKey(golden, recording, field.key(), report);
    }
}
