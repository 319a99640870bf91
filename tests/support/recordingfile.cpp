#include "recordingfile.h"

#include <random>

KiroHeader makeHeader(const std::vector<KiroSignal>& signalTable, std::uint32_t frameCount)
{
    KiroHeader header;
    header.setFrameCount(frameCount);
    header.setSignalCount(static_cast<int>(signalTable.size()));
    for (int i = 0; i < header.signalCount(); ++i)
        header.setSignal(i, signalTable[static_cast<std::size_t>(i)]);
    return header;
}

std::string recordingBytes(const KiroHeader& header, const std::string& data)
{
    return header.toBytes() + data;
}

std::string countingWords(int count)
{
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += bigEndian(static_cast<std::uint64_t>(i), 2);
    return bytes;
}

std::string noise(std::size_t count, unsigned seed)
{
    std::mt19937 generator(seed);
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(generator() & 0xff);
    return bytes;
}
