#include "detectionprofile.h"

#include "detectionfields.h"
#include "safefile.h"

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTextStream>

#include <cmath>
#include <optional>
#include <utility>

namespace
{

const char* const SaccadeHead = "!!! Saccade detection parameters file - DO NOT EDIT MANUALLY !!!";
const char* const OldSaccadeHead = "!!! Saccade detection parameters file - do not change !!!";
const char* const BlinkHead = "!!! Blinks detection parameters file - DO NOT EDIT MANUALLY !!!";

constexpr int WrittenSaccadeVersion = 8;
constexpr int BlinkVersion = 1;

constexpr qint64 MostBytes = 65536;
constexpr int MostLines = 12; // head, version and ten values

constexpr DoubleForm SixDigits = {'g', 6};

/// The lines from the beginning that a profile can have; none if there is no such file or it is too large.
QStringList linesOf(const QString& path)
{
    QFile file(path);
    // A pipe or a device could block.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(MostBytes + 1);
    if (bytes.size() > MostBytes)
        return {};
    QTextStream stream(bytes);
    QStringList lines;
    for (QString line; lines.size() < MostLines && stream.readLineInto(&line);)
        lines << line;
    return lines;
}

/// What stands behind the first ":" of a line, or nothing without one.
std::optional<QString> valueIn(const QString& line)
{
    const int colon = line.indexOf(QLatin1Char(':'));
    if (colon < 0)
        return std::nullopt;
    return line.mid(colon + 1);
}

/// The number in a version line; 0 if it is none.
std::int32_t versionIn(const QString& line)
{
    std::int32_t version = 0;
    parseDetectionValue(valueIn(line).value_or(QString()), version);
    return version;
}

/// The values of `count` lines from `first` on, or nothing if the lines end before or one has no value.
std::optional<QStringList> valuesIn(const QStringList& lines, int first, int count)
{
    if (lines.size() < first + count)
        return std::nullopt;
    QStringList values;
    for (int i = first; i < first + count; ++i) {
        const std::optional<QString> value = valueIn(lines[i]);
        if (!value)
            return std::nullopt;
        values << *value;
    }
    return values;
}

/// Positions in SaccadeFields.
enum SaccadeField : int {
    Ignored = -1,
    Local,
    Gap,
    MinTime,
    MaxTime,
    InitVel,
    MinSpeed,
    MinSlope,
    MinAmp,
    MaxAmp
};

/// What the value lines of the versions up to `lastVersion` hold.
struct SaccadeLayout
{
    int lastVersion;
    int lineCount;
    std::array<SaccadeField, 10> lines;
};

constexpr SaccadeLayout SaccadeLayouts[] = {
    {2, 7, {Ignored, Local, Gap, MinTime, MaxTime, MinSpeed, MinSlope}},
    {4, 8, {Ignored, Local, Gap, MinTime, MaxTime, MinSpeed, MinSlope, Ignored}},
    {5, 9, {Ignored, Local, Gap, MinTime, MaxTime, InitVel, MinSpeed, MinSlope, Ignored}},
    {6, 8, {Ignored, Local, Gap, MinTime, MaxTime, InitVel, MinSpeed, MinSlope}},
    {7, 10, {Ignored, Local, Gap, MinTime, MaxTime, InitVel, MinSpeed, MinSlope, MinAmp, MaxAmp}},
    // The ninth line that version 8 has, the greatest amplitude, was never read.
    {1000, 8, {Local, Gap, MinTime, MaxTime, InitVel, MinSpeed, MinSlope, MinAmp}},
};

/// Versions 2 and 3 hold the peak velocity multiplied by twice the base, which is their first value. A base
/// that is no number, or 0, leaves it as it stands.
void divideByBase(const QString& baseText, double& minSpeed)
{
    double base = 0.0;
    if (!parseDetectionValue(baseText, base))
        return;
    const double divided = minSpeed / (base * 2.0);
    if (std::isfinite(divided))
        parseDetectionValue(SixDigits.text(divided), minSpeed);
}

SaccadeDetectionParams saccadeRecord(int version, const SaccadeLayout& layout, const QStringList& values)
{
    SaccadeDetectionParams record;
    if (version < 7)
        record.maxAmp = NoMaxAmp;
    for (int i = 0; i < values.size(); ++i) {
        const SaccadeField field = layout.lines[std::size_t(i)];
        if (field != Ignored)
            readField(record, SaccadeFields[std::size_t(field)], values[i]);
    }
    if (version < 4)
        divideByBase(values.first(), record.minSpeed);
    return record;
}

/// The version of a saccade profile and how many lines stand before its values; version 0 if it is none.
std::pair<int, int> saccadeVersion(const QStringList& lines)
{
    if (lines.isEmpty())
        return {0, 0};
    if (lines.first() == QLatin1String(OldSaccadeHead))
        return {2, 1};
    if (lines.size() < 2 || lines.first() != QLatin1String(SaccadeHead))
        return {0, 0};
    const int version = versionIn(lines[1]);
    return {version >= 3 && version <= 1000 ? version : 0, 2};
}

template <class Record, std::size_t Count>
bool writeProfile(const QString& path, const char* head, int version,
                  const std::array<DetectionField<Record>, Count>& fields, const Record& record)
{
    QByteArray text = QByteArray(head) + "\nVersion: " + QByteArray::number(version) + '\n';
    for (const DetectionField<Record>& field : fields)
        text += QByteArray(field.key) + ' ' + fieldText(record, field, SixDigits).toLatin1() + '\n';
    SafeFile file(path);
    return file.open() && file.write(text.constData(), text.size()) && file.commit();
}

} // namespace

bool readSaccadeProfile(const QString& path, SaccadeDetectionParams& params)
{
    const QStringList lines = linesOf(path);
    const auto [version, headLines] = saccadeVersion(lines);
    if (version == 0)
        return false;
    const SaccadeLayout* layout = SaccadeLayouts;
    while (layout->lastVersion < version)
        ++layout;
    const std::optional<QStringList> values = valuesIn(lines, headLines, layout->lineCount);
    if (!values)
        return false;
    params = saccadeRecord(version, *layout, *values);
    return true;
}

bool writeSaccadeProfile(const QString& path, const SaccadeDetectionParams& params)
{
    return writeProfile(path, SaccadeHead, WrittenSaccadeVersion, SaccadeFields, params);
}

bool readBlinkProfile(const QString& path, BlinkDetectionParams& params)
{
    const QStringList lines = linesOf(path);
    if (lines.size() < 2 || lines[0] != QLatin1String(BlinkHead) || versionIn(lines[1]) != BlinkVersion)
        return false;
    const std::optional<QStringList> values = valuesIn(lines, 2, int(BlinkFields.size()));
    if (!values)
        return false;
    BlinkDetectionParams record;
    for (int i = 0; i < values->size(); ++i)
        readField(record, BlinkFields[std::size_t(i)], values->at(i));
    params = record;
    return true;
}

bool writeBlinkProfile(const QString& path, const BlinkDetectionParams& params)
{
    return writeProfile(path, BlinkHead, BlinkVersion, BlinkFields, params);
}
