#include "sacccases.h"

#include "corpus.h"
#include "files.h"
#include "isolation.h"
#include "objects.h"
#include "report.h"

#include "kirosaccheader.h"

#include <QFileInfo>
#include <QJsonArray>

#include <stdexcept>
#include <vector>

namespace
{

/// Of longer lists the first ones stand in an expected file.
constexpr int ListedRecords = 12;

/// A number of a record; one of the members is null.
template <class Record>
struct NumberField
{
    const char* key;
    std::int32_t Record::*integer;
    double Record::*real;
};

constexpr NumberField<KiroSaccadeEye> EyeFields[] = {
    {"start", &KiroSaccadeEye::start, nullptr},
    {"end", &KiroSaccadeEye::end, nullptr},
    {"duration", &KiroSaccadeEye::duration, nullptr},
    {"fixation", &KiroSaccadeEye::fixation, nullptr},
    {"reserved", &KiroSaccadeEye::reserved, nullptr},
    {"amplitude", nullptr, &KiroSaccadeEye::amplitude},
    {"peakVelocity", nullptr, &KiroSaccadeEye::peakVelocity},
    {"meanVelocity", nullptr, &KiroSaccadeEye::meanVelocity},
    {"peakAcceleration", nullptr, &KiroSaccadeEye::peakAcceleration},
    {"velocityPerDuration", nullptr, &KiroSaccadeEye::velocityPerDuration},
    {"amplitudeHorz", nullptr, &KiroSaccadeEye::amplitudeHorz},
    {"startHorz", nullptr, &KiroSaccadeEye::startHorz},
    {"endHorz", nullptr, &KiroSaccadeEye::endHorz},
    {"amplitudeVert", nullptr, &KiroSaccadeEye::amplitudeVert},
    {"startVert", nullptr, &KiroSaccadeEye::startVert},
    {"endVert", nullptr, &KiroSaccadeEye::endVert},
};

constexpr NumberField<KiroBlink> BlinkFields[] = {
    {"start", &KiroBlink::start, nullptr},
    {"end", &KiroBlink::end, nullptr},
    {"duration", &KiroBlink::duration, nullptr},
    {"peaksDistance", &KiroBlink::peaksDistance, nullptr},
    {"amp1", nullptr, &KiroBlink::amp1},
    {"amp2", nullptr, &KiroBlink::amp2},
    {"ampRelation", nullptr, &KiroBlink::ampRelation},
};

constexpr NumberField<SaccadeDetectionParams> ParamFields[] = {
    {"local", &SaccadeDetectionParams::local, nullptr},
    {"gap", &SaccadeDetectionParams::gap, nullptr},
    {"minTime", &SaccadeDetectionParams::minTime, nullptr},
    {"maxTime", &SaccadeDetectionParams::maxTime, nullptr},
    {"initVel", nullptr, &SaccadeDetectionParams::initVel},
    {"minSpeed", nullptr, &SaccadeDetectionParams::minSpeed},
    {"minSlope", nullptr, &SaccadeDetectionParams::minSlope},
    {"minAmp", nullptr, &SaccadeDetectionParams::minAmp},
    {"maxAmp", nullptr, &SaccadeDetectionParams::maxAmp},
};

constexpr NumberField<KiroSaccSignal> SignalFields[] = {
    {"signalIndex", &KiroSaccSignal::signalIndex, nullptr},
    {"factor", nullptr, &KiroSaccSignal::factor},
    {"offset", nullptr, &KiroSaccSignal::offset},
};

/// Compares all fields; a key too few or too many is a difference.
template <class Record, std::size_t Count>
Verdict compareRecord(const QJsonValue& wanted, const Record& found,
                      const NumberField<Record> (&fields)[Count])
{
    const QJsonObject object = wanted.toObject();
    Verdict verdict;
    if (object.size() != static_cast<int>(Count))
        verdict.push_back({QString(), QStringLiteral("%1 fields").arg(object.size()),
                           QStringLiteral("%1 fields").arg(Count)});
    for (const NumberField<Record>& field : fields) {
        const Number number = field.integer ? toNumber(found.*field.integer) : toNumber(found.*field.real);
        append(verdict, at(QLatin1Char('.') + QLatin1String(field.key),
                           compareNumber(object.value(QLatin1String(field.key)), number)));
    }
    return verdict;
}

Verdict compare(const QJsonValue& wanted, const KiroBlink& found)
{
    return compareRecord(wanted, found, BlinkFields);
}

Verdict compare(const QJsonValue& wanted, const KiroSaccade& found)
{
    const QJsonObject object = wanted.toObject();
    if (!hasOnlyKeys(object, "main left right valid"))
        return {{QString(), shown(wanted), QStringLiteral("main, left, right and valid")}};
    const auto block = [&object](const char* key, const KiroSaccadeEye& eye) {
        return at(QLatin1Char('.') + QLatin1String(key),
                  compareRecord(object.value(QLatin1String(key)), eye, EyeFields));
    };
    Verdict verdict = block("main", found.main);
    append(verdict, block("left", found.left));
    append(verdict, block("right", found.right));
    append(verdict,
           at(QStringLiteral(".valid"), compareBool(object.value(QLatin1String("valid")), found.valid)));
    return verdict;
}

/// The whole list, or of a longer one its start.
template <class Record>
Verdict compareList(const QJsonValue& wanted, const std::vector<Record>& found)
{
    const QJsonArray array = wanted.toArray();
    const auto count = static_cast<int>(found.size());
    if (!wanted.isArray() || array.size() != std::min(count, ListedRecords))
        return {{QStringLiteral(" count"), shown(QJsonValue(array.size())), shown(QJsonValue(count))}};
    Verdict verdict;
    for (int i = 0; i < array.size(); ++i)
        append(verdict,
               at(QStringLiteral("[%1]").arg(i), compare(array[i], found[static_cast<std::size_t>(i)])));
    return verdict;
}

using Check = Verdict (*)(const KiroSaccHeader& header, const QJsonValue& wanted);

template <auto Member>
Verdict text(const KiroSaccHeader& header, const QJsonValue& wanted)
{
    return compareText(wanted, (header.*Member).bytes());
}

template <auto Member>
Verdict number(const KiroSaccHeader& header, const QJsonValue& wanted)
{
    return compareNumber(wanted, toNumber(header.*Member));
}

template <auto Member>
Verdict list(const KiroSaccHeader& header, const QJsonValue& wanted)
{
    return compareList(wanted, header.*Member);
}

template <auto Member>
Verdict count(const KiroSaccHeader& header, const QJsonValue& wanted)
{
    return compareNumber(wanted, toNumber((header.*Member).size()));
}

/// A slot, by its member and by its role.
template <auto Member, std::int32_t Role>
Verdict signal(const KiroSaccHeader& header, const QJsonValue& wanted)
{
    Verdict verdict = compareRecord(wanted, header.*Member, SignalFields);
    append(verdict, at(QStringLiteral(" by role"), compareRecord(wanted, header.signal(Role), SignalFields)));
    return verdict;
}

Verdict checkLastSaccade(const KiroSaccHeader& header, const QJsonValue& wanted)
{
    if (header.saccades.empty())
        return {{QString(), shown(wanted), QStringLiteral("no saccade")}};
    return compare(wanted, header.saccades.back());
}

struct HeaderField
{
    const char* key;
    Check check;
};

constexpr HeaderField HeaderFields[] = {
    {"version", number<&KiroSaccHeader::version>},
    {"blinksHorizontal",
     [](const KiroSaccHeader& header, const QJsonValue& wanted) {
         return compareBool(wanted, header.blinksHorizontal);
     }},
    {"detectionType", number<&KiroSaccHeader::detectionType>},
    {"ratePeriod", number<&KiroSaccHeader::ratePeriod>},
    {"samplesPerPeriod", number<&KiroSaccHeader::samplesPerPeriod>},
    {"durationMs", number<&KiroSaccHeader::durationMs>},
    {"relativeDataFile", text<&KiroSaccHeader::relativeDataFile>},
    {"dataFile", text<&KiroSaccHeader::dataFile>},
    {"comment", text<&KiroSaccHeader::comment>},
    {"leftHorizontal", signal<&KiroSaccHeader::leftHorizontal, 3>},
    {"leftVertical", signal<&KiroSaccHeader::leftVertical, 4>},
    {"rightHorizontal", signal<&KiroSaccHeader::rightHorizontal, 5>},
    {"rightVertical", signal<&KiroSaccHeader::rightVertical, 6>},
    {"params", [](const KiroSaccHeader& header,
                  const QJsonValue& wanted) { return compareRecord(wanted, header.params, ParamFields); }},
    {"frequency",
     [](const KiroSaccHeader& header, const QJsonValue& wanted) {
         return compareNumber(wanted, toNumber(header.frequency()));
     }},
    {"detectionTypeName",
     [](const KiroSaccHeader& header, const QJsonValue& wanted) {
         return compareText(wanted, KiroSaccHeader::detectionTypeName(header.detectionType).bytes());
     }},
    {"saccadeCount", count<&KiroSaccHeader::saccades>},
    {"blinkCount", count<&KiroSaccHeader::blinks>},
    {"saccades", list<&KiroSaccHeader::saccades>},
    {"lastSaccade", checkLastSaccade},
    {"blinks", list<&KiroSaccHeader::blinks>},
};

/// The file that saveAs() writes. Throws std::runtime_error if it does not.
QByteArray savedBytes(KiroSaccHeader header)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("saved.sacc"));
    if (!header.saveAs(KiroString(path)))
        throw std::runtime_error(header.error.bytes());
    return readWhole(path).value_or(QByteArray());
}

Verdict checkSaved(const GoldenCase& golden, const KiroSaccHeader& header, const QJsonObject& wanted)
{
    const QString out = wanted.value(QLatin1String("out")).toString();
    const QString fullResult = out.isEmpty() ? QString() : QFileInfo(golden.inputPath).dir().filePath(out);
    return compareContent(wanted, savedBytes(header), fullResult);
}

/// Any key but "load" and "error".
void runKey(const GoldenCase& golden, const KiroSaccHeader& header, const QString& key, Report& report)
{
    const QJsonValue wanted = golden.expected.value(key);
    for (const HeaderField& field : HeaderFields) {
        if (key == QLatin1String(field.key)) {
            report.check(key, [&] { return field.check(header, wanted); });
            return;
        }
    }
    if (key == QLatin1String("saved") && hasOnlyKeys(wanted.toObject(), "size sha256 out"))
        report.check(key, [&] { return checkSaved(golden, header, wanted.toObject()); });
    else
        report.skip(key);
}

} // namespace

void checkSacc(const GoldenCase& golden, Report& report)
{
    KiroSaccHeader header;
    const bool loaded = header.load(KiroString(golden.inputPath));
    const QJsonValue load = golden.expected.value(QLatin1String("load"));
    report.check(QStringLiteral("load"), [&] { return compareBool(load, loaded); });
    report.check(QStringLiteral("error"), [&] {
        return compareText(golden.expected.value(QLatin1String("error")), header.error.bytes());
    });
    // Without a header there is nothing to hold against the rest: the failed load says it all.
    if (!loaded && load.toBool())
        return;
    for (const QString& key : golden.expected.keys()) {
        if (!isBookkeeping(key) && key != QLatin1String("load") && key != QLatin1String("error"))
            runKey(golden, header, key, report);
    }
}

void surviveSacc(const GoldenCase& golden, Report& report)
{
    report.check(QStringLiteral("survive"), [&]() -> Verdict {
        const IsolationLimits limits;
        const auto work = [&] {
            KiroSaccHeader header;
            if (header.load(KiroString(golden.inputPath)))
                savedBytes(header);
        };
        const QString end = runIsolated(work, limits);
        if (end.isEmpty())
            return {};
        const QString wanted =
            QStringLiteral("an answer within %1 s and %2 MiB").arg(limits.seconds).arg(limits.mebibytes);
        return {{QString(), wanted, end}};
    });
}
