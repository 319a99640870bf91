#include "kiroreader.h"

#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kirofile.h"
#include "kiroutils.h"
#include "safefile.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <utility>

namespace
{

constexpr int CopyBlockSize = 0x100000;
/// Taken by getSample() where the caller has set no buffer.
constexpr int DefaultReadSize = 0x100000;
constexpr std::int64_t MaxInt = std::numeric_limits<int>::max();

using Bytes = std::unique_ptr<unsigned char[]>;

Bytes allocate(int size)
{
    return size > 0 ? Bytes(new (std::nothrow) unsigned char[static_cast<std::size_t>(size)]) : Bytes();
}

/// First and last place + 1 where `now` differs from `before`; places that `before` lacks differ.
std::pair<std::size_t, std::size_t> differingRange(const std::string& before, const std::string& now)
{
    const std::size_t common = std::min(before.size(), now.size());
    std::size_t first = 0;
    while (first < common && before[first] == now[first])
        ++first;
    std::size_t end = now.size();
    while (end > first && end <= common && before[end - 1] == now[end - 1])
        --end;
    return {first, end};
}

/// The first bytes of the file, up to `count`.
std::string headOf(KiroFile& file, std::size_t count)
{
    std::string head(std::min(count, static_cast<std::size_t>(file.size())), '\0');
    if (!file.seek(0) || file.readRaw(head.data(), static_cast<std::int32_t>(head.size())) < 0)
        head.clear();
    return head;
}

/// Appends `count` bytes of `source` from `position` on to `target`, block by block.
bool copyBytes(KiroFile& source, std::int64_t position, std::int64_t count, SafeFile& target,
               unsigned char* block)
{
    if (!source.seek(static_cast<std::int32_t>(position)))
        return false;
    while (count > 0) {
        const auto piece = static_cast<std::int32_t>(std::min<std::int64_t>(count, CopyBlockSize));
        if (source.readRaw(block, piece) != piece || !target.write(block, piece))
            return false;
        count -= piece;
    }
    return true;
}

} // namespace

KiroReader::~KiroReader() = default;

bool KiroReader::fail(const KiroString& text)
{
    m_errorText = text;
    return false;
}

void KiroReader::reset()
{
    m_header.clear();
    m_bufferStart = 0;
    m_bufferFill = 0;
    m_runs.clear();
    m_frameSize = 0;
    m_dataStart = 0;
    m_fileName.clear();
    m_swap = false;
    m_writable = false;
}

bool KiroReader::setFile(const KiroString& path)
{
    if (isOpen())
        return fail("KiroReader::setFile(const KiroString&) - file already open");
    reset();

    KiroFile file;
    const bool writable = file.open(path, KiroFile::Update);
    if (!writable && !file.open(path, KiroFile::Read))
        return fail(KiroString("KiroReader::setFile(const KiroString&) - opening file %1 failed").arg(path));
    if (file.size() >= FileSizeLimit) {
        return fail(KiroString("KiroReader::setFile(const KiroString&) - file size %1 is too large, sizes "
                               "below %2 can be read (%3)")
                        .arg(file.size())
                        .arg(FileSizeLimit)
                        .arg(path)); // last: a name may hold a placeholder itself
    }
    if (!m_header.read(file)) {
        reset();
        return fail(
            KiroString("KiroReader::setFile(const KiroString&) - cannot load file header (%1)").arg(path));
    }
    if (!setUpRuns()) {
        reset();
        return false;
    }
    m_fileName = path;
    m_writable = writable;
    m_swap = !file.isMachineOrder();
    m_dataStart = m_header.headerSize();
    m_errorText.clear();
    return true;
}

bool KiroReader::setUpRuns()
{
    try {
        m_runs.reserve(m_header.signalTable().size());
    } catch (const std::bad_alloc&) {
        return fail("KiroReader::setFile(const KiroString&) - structures initialization failed");
    }
    std::int64_t offset = 0;
    for (const KiroSignal& signal : m_header.signalTable()) {
        if (signal.sampleSize > KiroValue::MaxSize) {
            return fail(KiroString("KiroReader::setFile(const KiroString&) - invalid sample size "
                                   "(signal index is %1, sample size is %2, at most %3 can be read)")
                            .arg(static_cast<std::uint64_t>(m_runs.size()))
                            .arg(signal.sampleSize)
                            .arg(KiroValue::MaxSize));
        }
        Run run;
        run.samplesPerFrame = signal.sampleSize > 0 ? signal.samplesPerFrame : 0;
        run.sampleSize = signal.sampleSize;
        run.offset = offset;
        run.prototype = KiroValue(signal.valueType, signal.sampleSize);
        m_runs.push_back(run);
        offset += static_cast<std::int64_t>(signal.runSize());
    }
    m_frameSize = offset;
    return true;
}

void KiroReader::close()
{
    if (isOpen())
        reset();
}

bool KiroReader::setBufferSize(int size)
{
    if (size == 0)
        return fail("KiroReader::setBufferSize(int) - cannot set size 0");
    Bytes buffer = allocate(size);
    if (!buffer)
        return fail(
            KiroString("KiroReader::setBufferSize(int) - memory allocation error (size %1)").arg(size));
    m_bufferFill = std::min(m_bufferFill, size);
    if (m_bufferFill > 0)
        std::memcpy(buffer.get(), m_buffer.get(), static_cast<std::size_t>(m_bufferFill));
    m_buffer = std::move(buffer);
    m_bufferSize = size;
    if (m_readSize == 0 || m_readSize > size) {
        m_readBack = 0;
        m_readSize = size;
    }
    return true;
}

bool KiroReader::setReadSize(int back, int ahead)
{
    const std::int64_t sum = std::int64_t(back) + ahead;
    if (back < 0 || ahead < 0 || sum == 0)
        return fail("KiroReader::setReadSize(int,int) - cannot set size 0");
    if (sum > MaxInt)
        return fail(
            KiroString("KiroReader::setBufferSize(int) - memory allocation error (size %1)").arg(sum));
    const int size = static_cast<int>(sum);
    if (size > m_bufferSize && !setBufferSize(size))
        return false;
    m_readSize = size;
    m_readBack = back;
    return true;
}

bool KiroReader::bufferHolds(std::int64_t offset, std::uint32_t size) const
{
    return offset >= m_bufferStart && offset - m_bufferStart + size <= m_bufferFill;
}

KiroValue KiroReader::getSample(int signal, int sample)
{
    if (!isOpen())
        KiroError::fatalError("KiroReader::getSample(int signal,int sample) - file not open!");
    if (signal < 0 || static_cast<std::size_t>(signal) >= m_runs.size()) {
        const KiroString message =
            KiroString("KiroReader::getSample(int signal,int sample) - invalid signal index (%1)")
                .arg(signal);
        KiroError::fatalError(message.c_str());
    }
    const Run& run = m_runs[static_cast<std::size_t>(signal)];
    // Nothing exists of a frame that no file can hold, of a signal without samples or without bytes and
    // before the first sample; the place behind the last byte stands for all of these.
    std::int64_t offset = MaxInt;
    if (run.samplesPerFrame > 0 && m_frameSize <= MaxInt && sample >= 0) {
        const auto index = static_cast<std::uint32_t>(sample);
        const std::uint32_t frame = index / run.samplesPerFrame;
        const std::uint32_t inFrame = index % run.samplesPerFrame;
        offset = frame * m_frameSize + run.offset + std::int64_t(inFrame) * run.sampleSize;
    }
    if (!bufferHolds(offset, run.sampleSize))
        refill(offset, run.sampleSize);
    KiroValue value = run.prototype;
    value.setBytes(m_buffer.get() + (offset - m_bufferStart), m_swap);
    return value;
}

/// Brings the sample at data offset `offset` into the buffer, or ends in a fatal error.
void KiroReader::refill(std::int64_t offset, std::uint32_t sampleSize)
{
    bool filled = m_bufferSize > 0 || setReadSize(DefaultReadSize);
    if (filled) {
        const std::int64_t total = m_frameSize <= MaxInt ? m_header.frameCount() * m_frameSize : 0;
        const std::int64_t start = std::max<std::int64_t>(offset - m_readBack, 0);
        // However small the read size is, the sample asked for is read.
        std::int64_t length = std::max<std::int64_t>(m_readSize, offset - start + sampleSize);
        if (start + length >= total)
            length = total - start;
        length = std::clamp(length, -MaxInt, MaxInt);
        filled = (length <= m_bufferSize || setBufferSize(static_cast<int>(length))) &&
                 readFile(static_cast<int>(std::min(start, MaxInt)), static_cast<int>(length));
    }
    if (filled && !bufferHolds(offset, sampleSize))
        filled = fail("sample behind the last frame");
    if (!filled) {
        const KiroString message = KiroString("KiroReader::getSample(int signal,int sample) - fatal error in "
                                              "readFile(int,int) call (%1)")
                                       .arg(m_errorText);
        KiroError::fatalError(message.c_str());
    }
}

bool KiroReader::readFile(int start, int length)
{
    if (length > m_bufferSize) {
        return fail(KiroString("KiroReader::readFile(int,int) - buffer too small "
                               "(to read: %1, buffer size: %2)")
                        .arg(length)
                        .arg(m_bufferSize));
    }
    // What moves within the buffer, and what comes from the file; at first the plain read of all.
    int moveFrom = 0;
    int moveTo = 0;
    int moveCount = 0;
    int readOffset = start;
    int readCount = length;
    int readTo = 0;

    const int bufferEnd = m_bufferStart + m_bufferFill - 1;
    const std::int64_t requestEnd = std::int64_t(start) + length - 1;
    if (m_bufferFill > 0 && length > 0) {
        if (start < m_bufferStart && requestEnd > m_bufferStart && requestEnd < bufferEnd) {
            moveTo = m_bufferStart - start;
            moveCount = length - moveTo;
            readCount = moveTo;
        } else if (requestEnd > bufferEnd && start > m_bufferStart && start < bufferEnd) {
            moveFrom = start - m_bufferStart;
            moveCount = bufferEnd - start + 1;
            readOffset = m_bufferStart + m_bufferFill;
            readTo = moveCount;
            readCount = length - moveCount;
        } else if (start > m_bufferStart && requestEnd < bufferEnd) {
            moveFrom = start - m_bufferStart;
            moveCount = length;
            readCount = 0;
        }
    }

    KiroFile file;
    if (moveCount < length && !openAtData(file, readOffset, readCount))
        return false;
    if (length <= 0)
        return failRead(length, -1);
    unsigned char* const buffer = m_buffer.get();
    std::memmove(buffer + moveTo, buffer + moveFrom, static_cast<std::size_t>(moveCount));
    if (readCount > 0) {
        const std::int32_t read = file.readRaw(buffer + readTo, readCount);
        if (read != readCount)
            return failRead(readCount, read);
    }
    m_bufferStart = start;
    m_bufferFill = length;
    return true;
}

bool KiroReader::failRead(int toRead, int read)
{
    return fail(KiroString("KiroReader::read(int,int) - invalid number of bytes read "
                           "(to read: %1, read returned: %2")
                    .arg(toRead)
                    .arg(read));
}

/// Opens the recording and moves to data offset `offset`. That `count` bytes stand there is checked
/// before the caller touches its buffer.
bool KiroReader::openAtData(KiroFile& file, int offset, int count)
{
    if (!file.open(m_fileName, KiroFile::Read))
        return fail("KiroReader::readFile(int,int) - opening file for reading failed");
    const std::int64_t position = m_dataStart + offset;
    if (offset < 0 || position > MaxInt || !file.seek(static_cast<std::int32_t>(position)))
        return fail(
            KiroString("KiroReader::readFile(int,int) - setting file position to %1 failed").arg(position));
    return position + count <= file.size() || failRead(count, -1);
}

bool KiroReader::checkIntegrity()
{
    m_errorText.clear();
    if (!isOpen())
        m_errorText = "KiroReader::checkIntegrity() - file not open!";
    KiroFile file;
    if (!file.open(m_fileName, KiroFile::Read))
        return fail("KiroReader::checkIntegrity() - opening file for reading failed");
    const std::int64_t size = file.size();
    if (size == 0)
        return fail("KiroReader::checkIntegrity(QString) - zero file size");
    if (m_frameSize == 0)
        return fail("KiroReader::checkIntegrity() - the signals have no samples, frame size is 0");
    const std::int64_t data = size - m_dataStart;
    return data >= 0 && m_header.frameCount() == data / m_frameSize;
}

bool KiroReader::updateHeader()
{
    m_errorText.clear();
    if (!isOpen())
        return fail("KiroReader::updateHeader() - file not open");
    if (!m_writable)
        return fail("KiroReader::updateHeader() - file has no write permission");
    KiroFile file;
    if (!file.open(m_fileName, KiroFile::Update))
        return fail("KiroReader::updateHeader() - opening file for writing failed");

    KiroHeader oldHeader;
    const bool oldHeaderKnown = oldHeader.read(file);
    const std::int64_t newSize = m_header.headerSize();
    const bool sameSize = oldHeaderKnown && oldHeader.headerSize() == newSize;
    // A header with fixed texts that changes its size all the same would run over samples.
    if (!oldHeaderKnown || (m_header.hasField(KiroHeader::FixedLayoutField) && !sameSize))
        return fail("KiroReader::updateHeader() - saving new header failed");
    const bool updated =
        sameSize ? writeHeaderInPlace(file) : writeFileWithNewHeader(file, oldHeader.headerSize());
    if (updated)
        m_dataStart = newSize;
    return updated;
}

bool KiroReader::writeHeaderInPlace(KiroFile& file)
{
    const std::string header = m_header.toBytes();
    const auto [first, end] = differingRange(headOf(file, header.size()), header);
    const auto count = static_cast<std::int32_t>(end - first);
    const bool written = file.seek(static_cast<std::int32_t>(first)) &&
                         file.writeRaw(header.data() + first, count) == count && file.close();
    return written || fail("KiroReader::updateHeader() - saving new header failed");
}

bool KiroReader::writeFileWithNewHeader(KiroFile& file, std::int64_t oldHeaderSize)
{
    // A name that Qt cannot spell would make the new file under another name.
    const QString path = m_fileName.toQString();
    SafeFile target(path);
    if (KiroString(path) != m_fileName || !target.open())
        return fail("KiroReader::updateHeader() - opening file for writing failed");
    const Bytes block = allocate(CopyBlockSize);
    if (!block)
        return fail("KiroReader::updateHeader() - memory allocation error");

    const std::string header = m_header.toBytes();
    const std::int64_t size = file.size();
    const std::int64_t dataSize = std::max<std::int64_t>(size - oldHeaderSize, 0);
    const std::int64_t dataEnd = static_cast<std::int64_t>(header.size()) + dataSize;
    const bool fits = std::max(dataEnd, size) < FileSizeLimit;
    // Behind the data of a shrunk header the file keeps what stood there.
    const bool written = fits && target.write(header.data(), static_cast<qint64>(header.size())) &&
                         copyBytes(file, oldHeaderSize, dataSize, target, block.get()) &&
                         copyBytes(file, dataEnd, size - dataEnd, target, block.get()) && target.commit();
    return written || fail("KiroReader::updateHeader() - saving new header failed");
}

bool KiroReader::readSignal(const KiroString& path, int signal, std::vector<double>& out, bool calibrate,
                            int first, int count)
{
    KiroReader reader;
    if (!reader.setFile(path) || signal < 0 || signal >= reader.header().signalCount())
        return false;
    // More samples than an index can count are in no file; reading them fails.
    constexpr std::uint64_t Most = std::uint64_t(MaxInt) + 1;
    const auto samples = static_cast<std::int64_t>(std::min(reader.header().signalSampleCount(signal), Most));
    if (first < 0 || first >= samples || count < 0)
        return false;
    const bool toEnd = count == 0 || std::int64_t(first) + count >= samples;
    NoProgress progress;
    return KiroBulkReader(reader).readSignal(signal, first, toEnd ? samples - first : count, calibrate, out,
                                             progress);
}

bool KiroReader::readSignal(const KiroString& path, int signal, QVector<double>& out, bool calibrate,
                            int first, int count)
{
    std::vector<double> samples;
    if (!readSignal(path, signal, samples, calibrate, first, count))
        return false;
    try {
        out = QVector<double>(samples.begin(), samples.end());
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}
