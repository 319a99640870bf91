#pragma once

#include <algorithm>
#include <string>

/// The plain form of a header update that moves the samples: two buffers of 1 MiB, reading one chunk ahead
/// of writing, in place and without truncation. `file` is the whole old file, `header` the new header. The
/// header must not grow by more than 1 MiB.
inline std::string moveSamplesInPlace(std::string file, std::size_t oldHeaderSize, const std::string& header)
{
    constexpr std::size_t Chunk = 0x100000;
    const auto store = [&file](std::size_t position, const std::string& bytes) {
        if (position + bytes.size() > file.size())
            file.resize(position + bytes.size());
        file.replace(position, bytes.size(), bytes);
    };
    std::size_t left = file.size() > oldHeaderSize ? file.size() - oldHeaderSize : 0;
    std::size_t readPosition = oldHeaderSize;
    std::size_t writePosition = header.size();
    std::string current = file.substr(std::min(readPosition, file.size()), std::min(left, Chunk));
    readPosition += current.size();
    left -= current.size();
    store(0, header);
    while (left > 0) {
        const std::string next = file.substr(readPosition, std::min(left, Chunk));
        store(writePosition, current);
        readPosition += next.size();
        writePosition += current.size();
        left -= next.size();
        current = next;
    }
    store(writePosition, current);
    return file;
}
