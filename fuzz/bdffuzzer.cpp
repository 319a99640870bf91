// Any bytes as a BDF or EDF file: refused with a text, or converted into a recording that holds every sample.

#include "memoryfile.h"

#include "bdfimporter.h"
#include "kiroreader.h"

#include <QDir>
#include <QTemporaryDir>

namespace
{

/// Bytes of recordings that are written and compared.
constexpr qint64 LargestRecording = 1 << 20;

/// A folder in memory, where there is one.
QString targetPath()
{
    static const QTemporaryDir folder(
        (QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath()) +
        QStringLiteral("/bdffuzzer-XXXXXX"));
    return folder.filePath(QStringLiteral("out.kiro"));
}

/// The sample that starts at `position`, with zeros behind the end.
std::int64_t sampleAt(const std::string& bytes, std::size_t position, const BdfHeader& header,
                      const BdfChannel& channel)
{
    std::int64_t value = 0;
    for (int i = header.sampleBytes() - 1; i >= 0; --i) {
        const std::size_t at = position + static_cast<std::size_t>(i);
        value = 256 * value + (at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0);
    }
    const std::int64_t half = header.is24Bit ? 0x800000 : 0x8000;
    // A recording's 16-bit samples have a sign even where those of the file have none.
    if (value >= half && !(channel.isStatus && header.is24Bit))
        value -= 2 * half;
    return channel.isMarked && header.is24Bit ? value + 0x800 : value;
}

void compareSamples(const std::string& bytes, const BdfHeader& header, KiroReader& reader)
{
    auto position = static_cast<std::size_t>(header.headerBytes);
    for (int record = 0; record < header.recordCount; ++record) {
        for (int signal = 0; signal < header.channelCount(); ++signal) {
            const BdfChannel& channel = header.channels[static_cast<std::size_t>(signal)];
            for (int i = 0; i < channel.samplesPerRecord; ++i) {
                const int index = record * channel.samplesPerRecord + i;
                require(reader.getSample(signal, index).toInt64() ==
                        sampleAt(bytes, position, header, channel));
                position += static_cast<std::size_t>(header.sampleBytes());
            }
        }
    }
}

void convertAndCompare(const std::string& bytes, BdfImporter& importer)
{
    const BdfHeader& header = importer.header();
    const qint64 frameBytes = qint64(header.recordSamples()) * header.storedSampleBytes();
    if (frameBytes > LargestRecording / header.recordCount)
        return;
    require(importer.convert(targetPath()));
    KiroReader reader;
    require(reader.setFile(KiroString(targetPath())));
    require(reader.checkIntegrity());
    require(reader.header().signalCount() == header.channelCount());
    require(reader.header().frameCount() == static_cast<std::uint32_t>(header.recordCount));
    compareSamples(bytes, header, reader);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    const MemoryFile file(bytes, count);
    const std::string content(reinterpret_cast<const char*>(bytes), count);
    BdfImporter importer;
    for (const int sampleBytes : {0, 2, 3}) {
        importer.setSampleBytes(sampleBytes);
        if (importer.load(file.path().toQString()))
            convertAndCompare(content, importer);
        else
            require(!importer.errorText().isEmpty() && importer.remarks().empty());
    }
    return 0;
}
