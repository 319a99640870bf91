#pragma once

#include "kirovalue.h"

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

/// All samples of one signal in their stored element type. The index of the alternative is the element
/// type number: 0 to 7 are signed and unsigned integers of 8, 16, 32 and 64 bits in turn, 8 is float,
/// 9 is double.
using SampleVector =
    std::variant<std::vector<std::int8_t>, std::vector<std::uint8_t>, std::vector<std::int16_t>,
                 std::vector<std::uint16_t>, std::vector<std::int32_t>, std::vector<std::uint32_t>,
                 std::vector<std::int64_t>, std::vector<std::uint64_t>, std::vector<float>,
                 std::vector<double>>;

/// Element type of samples that have no number of their own (objects, unknown types, odd sizes).
constexpr int ElementTypeDouble = 9;

/// Element type number, 0 to 9, of a value type and sample size in bytes. Pairs that do not convert to
/// a number give ElementTypeDouble.
int elementType(KiroValue::Type type, std::uint32_t sampleSize);

/// An empty vector of element type `type`, 0 to 9.
SampleVector makeSampleVector(int type);

/// Number of samples held.
std::size_t sampleCount(const SampleVector& samples);
