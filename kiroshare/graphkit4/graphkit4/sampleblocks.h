#pragma once

#include "samplestore.h"

#include <algorithm>
#include <cstdint>

/// Calls `function(first, end)` for the parts of a stretch of more than one block's samples: whole blocks of
/// the greatest level that does not hold all of it, and what is left at both ends.
template <class Function>
void forEachBlock(int first, int end, Function function)
{
    std::int64_t size = SampleStore::BlockSize;
    while (std::int64_t(end) - first > size * SampleStore::LevelFactor)
        size *= SampleStore::LevelFactor;
    for (int from = first; from < end;) {
        const int to = int(std::min<std::int64_t>((from / size + 1) * size, end));
        function(from, to);
        from = to;
    }
}
