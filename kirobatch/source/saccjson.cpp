#include "saccjson.h"

#include "headerjson.h"
#include "kirosaccheader.h"
#include "numbertext.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace
{

/// A number of a record; one of the members is null.
template <class Record>
struct NumberKey
{
    const char* key;
    std::int32_t Record::*integer;
    double Record::*real;
};

constexpr NumberKey<KiroSaccadeEye> EyeKeys[] = {
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

constexpr NumberKey<KiroBlink> BlinkKeys[] = {
    {"start", &KiroBlink::start, nullptr},
    {"end", &KiroBlink::end, nullptr},
    {"duration", &KiroBlink::duration, nullptr},
    {"peaksDistance", &KiroBlink::peaksDistance, nullptr},
    {"amp1", nullptr, &KiroBlink::amp1},
    {"amp2", nullptr, &KiroBlink::amp2},
    {"ampRelation", nullptr, &KiroBlink::ampRelation},
};

constexpr NumberKey<SaccadeDetectionParams> ParamKeys[] = {
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

constexpr NumberKey<KiroSaccSignal> SignalKeys[] = {
    {"signalIndex", &KiroSaccSignal::signalIndex, nullptr},
    {"factor", nullptr, &KiroSaccSignal::factor},
    {"offset", nullptr, &KiroSaccSignal::offset},
};

/// Begins a member of the object or element of the array that `text` ends in.
void beginNext(std::string& text, const char* separator = "")
{
    if (text.back() != '{' && text.back() != '[')
        text += ',';
    text += separator;
}

void beginMember(std::string& text, const char* key)
{
    beginNext(text);
    text += '"';
    text += key;
    text += "\":";
}

template <class Number>
void appendMember(std::string& text, const char* key, Number number)
{
    beginMember(text, key);
    appendSample(text, number, NumberForm::Json);
}

void appendMember(std::string& text, const char* key, bool flag)
{
    beginMember(text, key);
    text += flag ? "true" : "false";
}

void appendMember(std::string& text, const char* key, const KiroString& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{jsonText(value)}).toJson(QJsonDocument::Compact);
    beginMember(text, key);
    text.append(array.data() + 1, static_cast<std::size_t>(array.size() - 2)); // without the brackets
}

template <class Record, std::size_t Count>
void appendNumbers(std::string& text, const Record& record, const NumberKey<Record> (&keys)[Count])
{
    text += '{';
    for (const NumberKey<Record>& key : keys) {
        if (key.integer)
            appendMember(text, key.key, record.*key.integer);
        else
            appendMember(text, key.key, record.*key.real);
    }
    text += '}';
}

template <class Record, std::size_t Count>
void appendObject(std::string& text, const char* key, const Record& record,
                  const NumberKey<Record> (&keys)[Count])
{
    beginMember(text, key);
    appendNumbers(text, record, keys);
}

void appendRecord(std::string& text, const KiroSaccade& saccade)
{
    text += '{';
    appendObject(text, "main", saccade.main, EyeKeys);
    appendObject(text, "left", saccade.left, EyeKeys);
    appendObject(text, "right", saccade.right, EyeKeys);
    appendMember(text, "valid", saccade.valid);
    text += '}';
}

void appendRecord(std::string& text, const KiroBlink& blink)
{
    appendNumbers(text, blink, BlinkKeys);
}

template <class Record>
void appendRecords(std::string& text, const char* key, const std::vector<Record>& records)
{
    beginMember(text, key);
    text += '[';
    for (const Record& record : records) {
        beginNext(text, "\n");
        appendRecord(text, record);
    }
    text += ']';
}

void appendRun(std::string& text, const KiroSaccHeader& header)
{
    appendMember(text, "version", header.version);
    appendMember(text, "blinksHorizontal", header.blinksHorizontal);
    appendMember(text, "detectionType", header.detectionType);
    appendMember(text, "detectionTypeName", KiroSaccHeader::detectionTypeName(header.detectionType));
    appendMember(text, "ratePeriod", header.ratePeriod);
    appendMember(text, "samplesPerPeriod", header.samplesPerPeriod);
    appendMember(text, "frequency", header.frequency());
    appendMember(text, "durationMs", header.durationMs);
    appendMember(text, "relativeDataFile", header.relativeDataFile);
    appendMember(text, "dataFile", header.dataFile);
    appendMember(text, "comment", header.comment);
    appendObject(text, "leftHorizontal", header.leftHorizontal, SignalKeys);
    appendObject(text, "leftVertical", header.leftVertical, SignalKeys);
    appendObject(text, "rightHorizontal", header.rightHorizontal, SignalKeys);
    appendObject(text, "rightVertical", header.rightVertical, SignalKeys);
    appendObject(text, "params", header.params, ParamKeys);
}

} // namespace

std::string saccJson(const KiroSaccHeader& header)
{
    std::string text = "{";
    appendRun(text, header);
    appendMember(text, "saccadeCount", static_cast<std::uint32_t>(header.saccades.size()));
    appendMember(text, "blinkCount", static_cast<std::uint32_t>(header.blinks.size()));
    appendRecords(text, "saccades", header.saccades);
    appendRecords(text, "blinks", header.blinks);
    text += "}\n";
    return text;
}
