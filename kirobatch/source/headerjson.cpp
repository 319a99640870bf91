#include "headerjson.h"

#include "kiroheader.h"
#include "numbertext.h"

#include <cmath>

namespace
{

constexpr std::uint64_t FirstUnsafeInteger = std::uint64_t(1) << 53;
constexpr double MsPerDay = 24.0 * 3600 * 1000;

QJsonValue jsonNumber(double number)
{
    if (std::isfinite(number))
        return number;
    std::string text;
    appendNumber(text, number);
    return QString::fromStdString(text);
}

QJsonValue jsonInteger(std::uint64_t number)
{
    if (number < FirstUnsafeInteger)
        return static_cast<qint64>(number);
    return QString::number(number);
}

QJsonValue jsonValueType(KiroValue::Type type)
{
    if (type == KiroValue::Unknown)
        return QString::fromLatin1(KiroValue::typeName(type));
    return static_cast<int>(type);
}

QJsonArray technicalRowsToJson(const KiroHeader& header)
{
    QJsonArray rows;
    for (const auto& [name, value] : header.technicalRows())
        rows.append(QJsonArray{jsonText(name), jsonText(value)});
    return rows;
}

/// As the interface shows it: the clock starts again after 24 hours.
QJsonValue shownDuration(const KiroHeader& header)
{
    const auto ms = header.durationMSecs();
    return ms ? QJsonValue(jsonText(durationText(std::fmod(*ms, MsPerDay)))) : QJsonValue();
}

QJsonObject signalToJson(const KiroHeader& header, int index)
{
    const KiroSignal signal = header.signal(static_cast<unsigned>(index));
    return {
        {QStringLiteral("fullName"), jsonText(signal.fullName)},
        {QStringLiteral("shortName"), jsonText(signal.shortName)},
        {QStringLiteral("ratePeriod"), jsonInteger(signal.ratePeriod)},
        {QStringLiteral("samplesPerPeriod"), jsonInteger(signal.samplesPerPeriod)},
        {QStringLiteral("valueType"), jsonValueType(signal.valueType)},
        {QStringLiteral("valueTypeName"), QString::fromLatin1(KiroValue::typeName(signal.valueType))},
        {QStringLiteral("samplesPerFrame"), jsonInteger(signal.samplesPerFrame)},
        {QStringLiteral("sampleSize"), jsonInteger(signal.sampleSize)},
        {QStringLiteral("calibrated"), signal.calibrated},
        {QStringLiteral("calibrationFactor"), jsonNumber(signal.calibrationFactor)},
        {QStringLiteral("calibrationOffset"), jsonNumber(signal.calibrationOffset)},
        {QStringLiteral("calibrationUnit"), jsonText(signal.calibrationUnit)},
        {QStringLiteral("frequency"), jsonNumber(signal.frequency())},
        {QStringLiteral("mSecs"), jsonNumber(header.signalMSecs(index))},
        {QStringLiteral("sampleCount"), jsonInteger(header.signalSampleCount(index))},
    };
}

} // namespace

QString jsonText(const KiroString& text)
{
    return QString::fromLatin1(text.bytes().data(), text.length());
}

QJsonObject headerToJson(const KiroHeader& header)
{
    QJsonObject object{
        {QStringLiteral("version"), jsonInteger(header.version())},
        {QStringLiteral("storingProgram"), jsonText(header.storingProgram())},
        {QStringLiteral("notes"), jsonText(header.notes())},
        {QStringLiteral("technicalParameters"), jsonText(header.technicalParameters())},
        {QStringLiteral("technicalRows"), technicalRowsToJson(header)},
        {QStringLiteral("day"), header.day()},
        {QStringLiteral("month"), header.month()},
        {QStringLiteral("year"), header.year()},
        {QStringLiteral("hour"), header.hour()},
        {QStringLiteral("minute"), header.minute()},
        {QStringLiteral("second"), header.second()},
        {QStringLiteral("millisecond"), header.millisecond()},
        {QStringLiteral("dateString"), jsonText(header.dateString())},
        {QStringLiteral("timeString"), jsonText(header.timeString())},
        {QStringLiteral("frameCount"), jsonInteger(header.frameCount())},
        {QStringLiteral("headerSize"), jsonInteger(header.headerSize())},
        {QStringLiteral("frameSize"), jsonInteger(static_cast<std::uint64_t>(header.frameSize()))},
        {QStringLiteral("shownDuration"), shownDuration(header)},
        {QStringLiteral("signals"), signalsToJson(header)},
    };
    if (header.signalCount() > 0) {
        object.insert(QStringLiteral("frameFrequency"), jsonNumber(header.frameFrequency()));
        object.insert(QStringLiteral("frameMSecs"), jsonNumber(header.frameMSecs()));
    }
    return object;
}

QJsonArray signalsToJson(const KiroHeader& header)
{
    QJsonArray array;
    for (int i = 0; i < header.signalCount(); ++i)
        array.append(signalToJson(header, i));
    return array;
}

KiroString durationText(double ms)
{
    const auto whole = static_cast<std::int64_t>(ms);
    return KiroString("%1:%2:%3.%4")
        .arg(whole / 3600000, 2, 10, '0')
        .arg(whole / 60000 % 60, 2, 10, '0')
        .arg(whole / 1000 % 60, 2, 10, '0')
        .arg(whole % 1000, 3, 10, '0');
}
