// Any bytes as a saccade file: it is loaded or refused, and what was loaded is written and loaded the same.
//
// The three texts of the header, 12 to 16 KiB of it, are put in by the target: numbers are worth more tries.

#include "memoryfile.h"

#include "kirosaccheader.h"

#include <algorithm>

namespace
{

constexpr std::size_t StartSize = 12;
constexpr std::size_t TextBytes = 16;

bool load(KiroSaccHeader& header, const std::string& bytes)
{
    const MemoryFile file(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return header.load(file.path());
}

/// The input with its TextBytes bytes behind the start spread over the header's texts.
std::string withTexts(const std::string& input)
{
    if (input.size() < StartSize + TextBytes)
        return input;
    const bool twoPaths = input[7] >= 11;
    std::string texts((twoPaths ? 2 * 4096 : 4096) + 8192, '\0');
    // Up to the end of a field, and from the start of the next.
    texts.replace(4096 - TextBytes / 2, TextBytes, input, StartSize, TextBytes);
    return input.substr(0, StartSize) + texts + input.substr(StartSize + TextBytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    const std::string file = withTexts(std::string(reinterpret_cast<const char*>(bytes), count));
    KiroSaccHeader header;
    if (!load(header, file)) {
        require(!header.error.isEmpty());
        require(header.saccades.empty() && header.fileName.isEmpty());
        return 0;
    }
    require(header.error.isEmpty() && header.version == KiroSaccHeader::CurrentVersion);
    require(header.missingSaccades() <= std::int64_t(header.saccades.size()));
    require(header.missingBlinks() <= std::int64_t(header.blinks.size()));
    require(header.missingBytes() <= std::max<std::int64_t>(std::int64_t(file.size()), 4 << 20));
    const std::string written = header.toBytes();
    KiroSaccHeader again;
    require(load(again, written));
    require(again.missingBytes() == 0);
    require(again.saccades.size() == header.saccades.size() && again.blinks.size() == header.blinks.size());
    require(again.toBytes() == written);
    (void)header.frequency();
    (void)KiroSaccHeader::detectionTypeName(header.detectionType);
    return 0;
}
