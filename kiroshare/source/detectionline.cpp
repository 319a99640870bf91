#include "detectionline.h"

#include "detectionfields.h"

#include <QStringList>

namespace
{

constexpr QLatin1Char Separator(';');
const QLatin1String VersionWord("Version");
constexpr int SaccadeVersion = 2;
constexpr int BlinkVersion = 1;
constexpr DoubleForm TenDecimals = {'f', 10};

template <class Record, std::size_t Count>
QString lineOf(int version, const std::array<DetectionField<Record>, Count>& fields, const Record& record)
{
    QStringList parts = {VersionWord, QString::number(version)};
    for (const DetectionField<Record>& field : fields)
        parts << fieldText(record, field, TenDecimals);
    return parts.join(Separator);
}

/// Whether the line begins with the version word and a number, which becomes `version`.
bool beginsWithVersion(const QStringList& parts, std::int32_t& version)
{
    return parts.size() >= 2 && parts[0] == VersionWord && parseDetectionValue(parts[1], version);
}

/// Takes the version, if it stands in front, out of `parts`. False if it is no saccade line.
bool takeSaccadeVersion(QStringList& parts, std::int32_t& version)
{
    version = 0;
    if (parts[0] != VersionWord)
        return parts.size() == 8 || parts.size() == 9;
    if (!beginsWithVersion(parts, version))
        return false;
    parts = parts.mid(2);
    return true;
}

} // namespace

QString saccadeLine(const SaccadeDetectionParams& params)
{
    return lineOf(SaccadeVersion, SaccadeFields, params);
}

bool readSaccadeLine(const QString& line, SaccadeDetectionParams& params)
{
    QStringList parts = line.split(Separator);
    std::int32_t version = 0;
    if (!takeSaccadeVersion(parts, version))
        return false;
    // Behind the window of a peak stood a field that version 2 dropped.
    if (version < 2 && parts.size() > 1)
        parts.removeAt(1);
    const std::size_t count = version < 1 ? SaccadeFields.size() - 2 : SaccadeFields.size();
    if (std::size_t(parts.size()) < count)
        return false;
    SaccadeDetectionParams record;
    record.maxAmp = NoMaxAmp;
    for (std::size_t i = 0; i < count; ++i)
        readField(record, SaccadeFields[i], parts[int(i)]);
    params = record;
    return true;
}

QString blinkLine(const BlinkDetectionParams& params)
{
    return lineOf(BlinkVersion, BlinkFields, params);
}

bool readBlinkLine(const QString& line, BlinkDetectionParams& params)
{
    const QStringList parts = line.split(Separator);
    std::int32_t version = 0;
    if (!beginsWithVersion(parts, version) || version != BlinkVersion ||
        std::size_t(parts.size()) < BlinkFields.size() + 2)
        return false;
    BlinkDetectionParams record;
    for (std::size_t i = 0; i < BlinkFields.size(); ++i)
        readField(record, BlinkFields[i], parts[int(i) + 2]);
    params = record;
    return true;
}
