// Any bytes as a profile of either kind and as a settings line: what is read is finite, and comes back from
// its line, and from its profile as far as that holds it.

#include "memoryfile.h"

#include "detectionline.h"
#include "detectionprofile.h"

#include <QTemporaryDir>

#include <cmath>

namespace
{

bool isFinite(const SaccadeDetectionParams& params)
{
    return std::isfinite(params.initVel) && std::isfinite(params.minSpeed) &&
           std::isfinite(params.minSlope) && std::isfinite(params.minAmp) && std::isfinite(params.maxAmp);
}

bool isFinite(const BlinkDetectionParams& params)
{
    return std::isfinite(params.peakVel1) && std::isfinite(params.peakVel2) && std::isfinite(params.minVel) &&
           std::isfinite(params.minAmplitude) && std::isfinite(params.minAmplitudeRelation) &&
           std::isfinite(params.maxAmplitudeRelation);
}

QString lineOf(const SaccadeDetectionParams& params)
{
    return saccadeLine(params);
}

QString lineOf(const BlinkDetectionParams& params)
{
    return blinkLine(params);
}

/// What the reader `read` makes of `source`; a failure must leave the record alone.
template <class Record>
bool readInto(Record& record, const QString& source, bool (*read)(const QString&, Record&))
{
    const QString before = lineOf(record);
    const bool loaded = read(source, record);
    require(isFinite(record) && (loaded || lineOf(record) == before));
    return loaded;
}

/// A line is written, and read and written again the same.
template <class Record>
void checkLine(const Record& record, bool (*readLine)(const QString&, Record&))
{
    Record again;
    require(readInto(again, lineOf(record), readLine) && lineOf(again) == lineOf(record));
}

/// A profile that is written can be read.
template <class Record>
void checkProfile(const Record& record, bool (*read)(const QString&, Record&),
                  bool (*write)(const QString&, const Record&))
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("profile"));
    Record again;
    require(write(path, record) && readInto(again, path, read));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    const MemoryFile file(bytes, count);
    const QString path = file.path().toQString();
    const QString line = QString::fromLatin1(reinterpret_cast<const char*>(bytes), int(count));
    SaccadeDetectionParams saccades = SaccadeDetectionParams::atStart();
    if (readInto(saccades, path, readSaccadeProfile))
        checkProfile(saccades, readSaccadeProfile, writeSaccadeProfile);
    readInto(saccades, line, readSaccadeLine);
    checkLine(saccades, readSaccadeLine);
    BlinkDetectionParams blinks = BlinkDetectionParams::atStart();
    if (readInto(blinks, path, readBlinkProfile))
        checkProfile(blinks, readBlinkProfile, writeBlinkProfile);
    readInto(blinks, line, readBlinkLine);
    checkLine(blinks, readBlinkLine);
    return 0;
}
