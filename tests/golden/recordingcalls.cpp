#include "recordingcalls.h"

#include "corpus.h"
#include "files.h"
#include "objects.h"
#include "recording.h"
#include "recordingrepair.h"
#include "report.h"
#include "roads.h"

#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include <algorithm>
#include <stdexcept>

namespace
{

constexpr int ValuesListed = 40; // of a read signal

QByteArray writtenByFile(const KiroHeader& header)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("header"));
    KiroFile file;
    if (!file.open(KiroString(path), KiroFile::Create) || !header.write(file) || !file.close())
        throw std::runtime_error("the header cannot be written");
    return readWhole(path).value_or(QByteArray());
}

QByteArray writtenByStream(const KiroHeader& header)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    if (!header.write(stream) || stream.status() != QDataStream::Ok)
        throw std::runtime_error("the header cannot be written");
    return bytes;
}

/// A refusal to repair in the words of the corpus.
std::string reasonOf(const RepairResult& result)
{
    switch (result.outcome) {
    case RepairResult::Outcome::NoHeader:
        return "the header can not be loaded";
    case RepairResult::Outcome::DataTooShort:
        return "the data is shorter than the header declares";
    case RepairResult::Outcome::NoWholeFrame:
        return "no whole frame of data";
    default:
        return result.logText.toStdString();
    }
}

/// The answers of one whole-signal read.
struct ReadAnswer
{
    bool result = false;
    std::vector<Number> values;
};

template <class Vector>
ReadAnswer readSignal(const Recording& recording, const QJsonObject& call)
{
    Vector values;
    ReadAnswer answer;
    answer.result = KiroReader::readSignal(recording.path(), integerOf(call.value(QLatin1String("signal"))),
                                           values, call.value(QLatin1String("calibrate")).toBool(),
                                           integerOf(call.value(QLatin1String("first"))),
                                           integerOf(call.value(QLatin1String("requested"))));
    answer.values.assign(values.begin(), values.end());
    return answer;
}

/// A fatal end is expected where samples are declared but not stored; the answer there is a refusal.
Verdict compareResult(const QJsonValue& wanted, bool found)
{
    if (wanted.toString() == QLatin1String("fatal"))
        return compareBool(false, found);
    return compareBool(wanted, found);
}

Verdict compareRead(const QJsonObject& call, const ReadAnswer& answer)
{
    Verdict verdict =
        at(QStringLiteral(".result"), compareResult(call.value(QLatin1String("result")), answer.result));
    const QJsonValue count = call.value(QLatin1String("count"));
    if (!count.isUndefined())
        append(verdict, at(QStringLiteral(".count"), compareNumber(count, toNumber(answer.values.size()))));
    const QJsonValue values = call.value(QLatin1String("values"));
    const auto listed = std::min<std::ptrdiff_t>(ValuesListed, std::ptrdiff_t(answer.values.size()));
    const std::vector<Number> found(answer.values.begin(), answer.values.begin() + listed);
    if (!values.isUndefined())
        append(verdict, at(QStringLiteral(".values"), compareNumbers(values, found)));
    return verdict;
}

void applyCalibration(const QJsonObject& changes, KiroHeader& header)
{
    const int index = integerOf(changes.value(QLatin1String("signal")));
    KiroSignal signal;
    if (!header.getSignal(index, signal))
        throw std::runtime_error("the changed signal does not exist");
    signal.calibrated = changes.value(QLatin1String("calibrated")).toBool(signal.calibrated);
    signal.calibrationFactor =
        changes.value(QLatin1String("calibrationFactor")).toDouble(signal.calibrationFactor);
    signal.calibrationOffset =
        changes.value(QLatin1String("calibrationOffset")).toDouble(signal.calibrationOffset);
    if (changes.contains(QLatin1String("calibrationUnit")))
        signal.calibrationUnit =
            KiroString::fromBytes(bytesOf(changes.value(QLatin1String("calibrationUnit"))));
    header.setSignal(index, signal);
}

void applyChanges(const QJsonObject& changes, KiroHeader& header)
{
    if (changes.contains(QLatin1String("notes")))
        header.setNotes(KiroString::fromBytes(bytesOf(changes.value(QLatin1String("notes")))));
    if (changes.contains(QLatin1String("storingProgram")))
        header.setStoringProgram(
            KiroString::fromBytes(bytesOf(changes.value(QLatin1String("storingProgram")))));
    const QJsonArray changedSignals = changes.value(QLatin1String("signals")).toArray();
    for (const QJsonValue& changed : changedSignals)
        applyCalibration(changed.toObject(), header);
}

bool knowsChanges(const QJsonObject& changes)
{
    const QJsonArray changedSignals = changes.value(QLatin1String("signals")).toArray();
    const auto isKnown = [](const QJsonValue& changed) {
        return hasOnlyKeys(changed.toObject(),
                           "signal calibrated calibrationFactor calibrationUnit calibrationOffset");
    };
    return hasOnlyKeys(changes, "notes storingProgram signals") &&
           std::all_of(changedSignals.begin(), changedSignals.end(), isKnown);
}

bool isServed(const QJsonObject& operation)
{
    return operation.value(QLatin1String("op")).toString() == QLatin1String("updateHeader") &&
           hasOnlyKeys(operation, "op set size sha256 out") &&
           knowsChanges(operation.value(QLatin1String("set")).toObject());
}

Verdict checkUpdateHeader(const GoldenCase& golden, const QJsonObject& operation)
{
    const TemporaryCopy copy(golden.inputPath);
    KiroReader reader;
    if (!reader.setFile(copy.corePath()))
        throw std::runtime_error(reader.errorText().bytes());
    applyChanges(operation.value(QLatin1String("set")).toObject(), reader.header());
    if (!reader.updateHeader())
        throw std::runtime_error(reader.errorText().bytes());
    reader.close();
    const QString out = operation.value(QLatin1String("out")).toString();
    const QString fullResult = out.isEmpty() ? QString() : QFileInfo(golden.inputPath).dir().filePath(out);
    return compareContent(operation, copy.bytes(), fullResult);
}

} // namespace

Verdict checkWrittenHeader(const Recording& recording, const QJsonObject& wanted)
{
    return checkRoads({
        {"KiroFile", [&] { return compareContent(wanted, writtenByFile(recording.header())); }},
        {"QDataStream", [&] { return compareContent(wanted, writtenByStream(recording.header())); }},
    });
}

Verdict checkRepair(const GoldenCase& golden, const QJsonObject& wanted)
{
    const TemporaryCopy copy(golden.inputPath);
    const RepairResult result = repairRecording(copy.corePath());
    Verdict verdict =
        at(QStringLiteral(".result"), compareBool(wanted.value(QLatin1String("result")), result.ok()));
    const QJsonValue reason = wanted.value(QLatin1String("reason"));
    if (!reason.isUndefined())
        append(verdict, at(QStringLiteral(".reason"), compareText(reason, reasonOf(result))));
    const QJsonValue frames = wanted.value(QLatin1String("frameCount"));
    if (!frames.isUndefined())
        append(verdict,
               at(QStringLiteral(".frameCount"), compareNumber(frames, toNumber(result.calculatedFrames))));
    append(verdict, compareContent(wanted, copy.bytes()));
    return verdict;
}

Verdict checkFindSignal(const Recording& recording, const QJsonObject& call)
{
    std::vector<KiroString> names;
    const QJsonArray wantedNames = call.value(QLatin1String("names")).toArray();
    for (const QJsonValue& name : wantedNames)
        names.push_back(KiroString::fromBytes(bytesOf(name)));
    return at(QStringLiteral(".index"), compareNumber(call.value(QLatin1String("index")),
                                                      toNumber(recording.header().findSignal(names))));
}

Verdict checkReadSignal(const Recording& recording, const QJsonObject& call)
{
    return checkRoads({
        {"std::vector", [&] { return compareRead(call, readSignal<std::vector<double>>(recording, call)); }},
        {"QVector", [&] { return compareRead(call, readSignal<QVector<double>>(recording, call)); }},
    });
}

void runOperations(const GoldenCase& golden, const QJsonValue& operations, Report& report)
{
    if (!operations.isArray())
        report.fail(QStringLiteral("ops"), QStringLiteral("an array of operations"), shown(operations));
    const QJsonArray array = operations.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QJsonObject operation = array[i].toObject();
        const QString name = operation.value(QLatin1String("op")).toString();
        const QString unit = QStringLiteral("ops[%1] %2").arg(i).arg(name);
        if (isServed(operation))
            report.check(unit, [&] { return checkUpdateHeader(golden, operation); });
        else
            report.skip(unit);
    }
}
