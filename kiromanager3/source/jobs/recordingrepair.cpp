#include "recordingrepair.h"

#include "kirofile.h"
#include "kiroreader.h"

#include <limits>

namespace
{

using Outcome = RepairResult::Outcome;

/// Frames * bytes, held at the largest number.
std::int64_t product(std::uint32_t frames, std::int64_t frameSize)
{
    constexpr std::int64_t Most = std::numeric_limits<std::int64_t>::max();
    return frames > 0 && frameSize > Most / frames ? Most : frames * frameSize;
}

bool refuse(RepairResult& result, Outcome outcome, const QString& logText)
{
    result.outcome = outcome;
    result.logText = QStringLiteral("DataFileCenter::repairFile(QString) - ") + logText;
    return false;
}

/// Size of the file, 0 if it is gone.
std::int64_t sizeOf(const KiroString& path)
{
    KiroFile file;
    return file.open(path, KiroFile::Read) ? file.size() : 0;
}

bool checkSize(std::int64_t size, const QString& name, RepairResult& result)
{
    if (size >= KiroReader::FileSizeLimit) {
        return refuse(result, Outcome::TooLarge,
                      QStringLiteral("file size %1 is too large, sizes below %2 can be repaired (%3)")
                          .arg(size)
                          .arg(KiroReader::FileSizeLimit)
                          .arg(name));
    }
    return size > 0 || refuse(result, Outcome::ZeroSize, QStringLiteral("zero file size for %1").arg(name));
}

/// Fills in what the header and the file's size say, and whether that lets itself be repaired.
bool countFrames(const KiroReader& reader, std::int64_t size, const QString& name, RepairResult& result)
{
    const std::int64_t frameSize = reader.header().frameSize();
    result.headerVersion = reader.header().version();
    result.declaredFrames = reader.header().frameCount();
    result.declaredBytes = product(result.declaredFrames, frameSize);
    result.dataBytes = size - reader.dataStart();
    if (result.dataBytes > 0 && frameSize > 0) {
        result.calculatedFrames = result.dataBytes / frameSize;
        result.tailBytes = result.dataBytes % frameSize;
    }
    if (result.dataBytes < result.declaredBytes) {
        return refuse(result, Outcome::DataTooShort,
                      QStringLiteral("real data size (%1) is smaller than size declared in the header (%2), "
                                     "cannot repair file (%3)")
                          .arg(result.dataBytes)
                          .arg(result.declaredBytes)
                          .arg(name));
    }
    return result.calculatedFrames > 0 ||
           refuse(result, Outcome::NoWholeFrame,
                  QStringLiteral("no calculated frames for the file %1").arg(name));
}

bool saveCount(KiroReader& reader, bool dryRun, const QString& name, RepairResult& result)
{
    if (dryRun && result.calculatedFrames == result.declaredFrames)
        return true;
    if (!reader.isWritable())
        return refuse(result, Outcome::CannotOpen, QStringLiteral("can't open file %1").arg(name));
    if (dryRun)
        return true;
    reader.header().setFrameCount(static_cast<std::uint32_t>(result.calculatedFrames));
    return reader.updateHeader() ||
           refuse(result, Outcome::CannotSave,
                  QStringLiteral("can't save corrected header to file %1").arg(name));
}

} // namespace

RepairResult repairRecording(const KiroString& path, const RepairOptions& options)
{
    RepairResult result;
    const QString name = path.toQString();
    const std::int64_t size = sizeOf(path);
    KiroReader reader;
    if (!reader.setFile(path) && size < KiroReader::FileSizeLimit) {
        refuse(result, Outcome::NoHeader, QStringLiteral("can't load header for file %1").arg(name));
        return result;
    }
    const bool done = checkSize(size, name, result) && countFrames(reader, size, name, result) &&
                      saveCount(reader, options.dryRun, name, result);
    if (done)
        result.outcome = Outcome::Repaired;
    return result;
}
