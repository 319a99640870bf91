#include "bdfimporter.h"

#include "jobprogress.h"
#include "kiroheader.h"
#include "kiroreader.h"
#include "safefile.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cmath>
#include <limits>
#include <new>

#include <sys/stat.h>

namespace
{

constexpr const char* StoringProgram = "BDF/EDF->KIRO converter";

QString noMemoryText()
{
    return QCoreApplication::translate("BdfImporter", "Not enough memory");
}

QString openFailedText(const QString& path)
{
    return QCoreApplication::translate("BdfImporter", "Failed to open file %1").arg(path);
}

bool isSameFile(const QFile& source, const QString& destination)
{
    struct stat one = {};
    struct stat other = {};
    return ::fstat(source.handle(), &one) == 0 &&
           ::stat(QFile::encodeName(destination).constData(), &other) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

/// Milliseconds of `seconds`; lengths that no rate period can have become the nearest that it can.
std::uint32_t ratePeriodMs(double seconds)
{
    const double milliseconds = std::round(seconds * 1000.0);
    if (!(milliseconds > 0.0))
        return 0;
    constexpr std::uint32_t Longest = std::numeric_limits<std::uint32_t>::max();
    return milliseconds < Longest ? static_cast<std::uint32_t>(milliseconds) : Longest;
}

/// Parts that are not known become zeros.
void setStart(const QDateTime& start, KiroHeader& recording)
{
    const QDate date = start.date();
    recording.setDay(static_cast<std::uint8_t>(date.day()));
    recording.setMonth(static_cast<std::uint8_t>(date.month()));
    recording.setYear(static_cast<std::uint16_t>(date.year()));
    const QTime time = start.time().isValid() ? start.time() : QTime(0, 0);
    recording.setHour(static_cast<std::uint8_t>(time.hour()));
    recording.setMinute(static_cast<std::uint8_t>(time.minute()));
    recording.setSecond(static_cast<std::uint8_t>(time.second()));
    recording.setMillisecond(static_cast<std::uint16_t>(time.msec()));
}

KiroSignal makeSignal(const BdfHeader& header, const BdfChannel& channel)
{
    KiroSignal signal;
    signal.fullName = KiroString(channel.label + QLatin1String(" (") + channel.transducer + QLatin1Char(')'));
    signal.shortName = KiroString(channel.label);
    signal.ratePeriod = ratePeriodMs(header.recordDuration);
    signal.samplesPerPeriod = static_cast<std::uint32_t>(channel.samplesPerRecord);
    signal.samplesPerFrame = signal.samplesPerPeriod;
    signal.valueType = KiroValue::SignedInt;
    signal.sampleSize = static_cast<std::uint32_t>(header.storedSampleBytes());
    signal.calibrated = channel.isCalibrated();
    if (signal.calibrated) {
        signal.calibrationUnit = KiroString(channel.physicalDimension);
        signal.calibrationFactor = channel.gain;
    }
    return signal;
}

/// Label and prefiltering of every channel.
KiroString makeNotes(const BdfHeader& header)
{
    QStringList notes;
    for (const BdfChannel& channel : header.channels)
        notes << channel.label + QLatin1String(" : ") + channel.prefiltering;
    return KiroString(notes.join(QLatin1String("<|>")));
}

} // namespace

bool BdfImporter::load(const QString& path)
{
    m_errorText.clear();
    m_cancelled = false;
    m_fileName.clear();
    m_header = BdfHeader();
    m_remarks.clear();
    try {
        QString error;
        if (!readBdfHeader(path, m_sampleBytes, m_header, error))
            return fail(error);
        m_remarks = bdfRemarks(m_header);
    } catch (const std::bad_alloc&) {
        return fail(noMemoryText());
    }
    m_fileName = path;
    return true;
}

bool BdfImporter::convert(const QString& destination, int first, int last)
{
    NoProgress progress;
    return convert(destination, first, last, progress);
}

bool BdfImporter::convert(const QString& destination, int first, int last, JobProgress& progress)
{
    m_errorText.clear();
    m_cancelled = false;
    if (m_fileName.isEmpty())
        return fail(QCoreApplication::translate("BdfImporter", "Data file header not loaded!"));
    const int end = m_header.recordCount;
    if (first < 0 || first >= end)
        return fail(
            QCoreApplication::translate("BdfImporter", "Incorrect value of first data record (%1 of %2)")
                .arg(first)
                .arg(end));
    try {
        return convertLoaded(destination, first, last < first || last >= end ? end - 1 : last, progress);
    } catch (const std::bad_alloc&) {
        return fail(noMemoryText());
    }
}

bool BdfImporter::convertLoaded(const QString& destination, int first, int last, JobProgress& progress)
{
    QFile source(m_fileName);
    if (!QFileInfo(m_fileName).isFile() || !source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fail(openFailedText(m_fileName));
    if (isSameFile(source, destination))
        return fail(QCoreApplication::translate("BdfImporter", "The destination is the imported file itself "
                                                               "(%1)")
                        .arg(destination));
    SafeFile target(destination);
    if (!target.open())
        return fail(openFailedText(destination));
    const KiroHeader recording = makeRecording(destination, last - first + 1);
    if (!checkSize(recording))
        return false;
    const std::string bytes = recording.toBytes();
    target.write(bytes.data(), qint64(bytes.size()));
    const auto result = BdfSampleCopy(m_header, source, target).copy(first, last - first + 1, progress);
    return finish(result, target, destination);
}

/// Refuses recordings that no reader opens.
bool BdfImporter::checkSize(const KiroHeader& recording)
{
    const std::int64_t frames = recording.frameCount();
    if (frames > (KiroReader::FileSizeLimit - recording.headerSize() - 1) / recording.frameSize())
        return fail(QCoreApplication::translate("BdfImporter", "The recording would have %1 packets of %2 "
                                                               "bytes, and only files below %3 bytes can be "
                                                               "read. Import a part of the data records.")
                        .arg(frames)
                        .arg(recording.frameSize())
                        .arg(KiroReader::FileSizeLimit));
    return true;
}

KiroHeader BdfImporter::makeRecording(const QString& destination, int frames) const
{
    KiroHeader recording;
    recording.setStoringProgram(StoringProgram);
    recording.setRemark(KiroString(destination));
    setStart(m_header.start, recording);
    recording.setNotes(makeNotes(m_header));
    recording.setFrameCount(static_cast<std::uint32_t>(frames));
    recording.setSignalCount(m_header.channelCount());
    for (int i = 0; i < m_header.channelCount(); ++i)
        recording.setSignal(i, makeSignal(m_header, m_header.channels[static_cast<std::size_t>(i)]));
    return recording;
}

bool BdfImporter::finish(BdfSampleCopy::Result result, SafeFile& file, const QString& destination)
{
    using Result = BdfSampleCopy::Result;
    if (result == Result::Done && file.commit())
        return true;
    const QString reason = file.errorText();
    file.cancel();
    m_cancelled = result == Result::Cancelled;
    if (m_cancelled)
        return false;
    if (result == Result::ReadFailed)
        return fail(QCoreApplication::translate("BdfImporter", "Failed to read file %1").arg(m_fileName));
    return fail(
        QCoreApplication::translate("BdfImporter", "Failed to write file %1 (%2)").arg(destination, reason));
}

bool BdfImporter::fail(const QString& text)
{
    m_errorText = text;
    return false;
}
