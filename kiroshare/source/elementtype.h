#pragma once

#include "kirovalue.h"

#include <QVector>

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

/// All samples of one signal in their stored element type, in a vector of the kind `Vector`. The index of
/// the alternative is the element type number: 0 to 7 are signed and unsigned integers of 8, 16, 32 and 64
/// bits in turn, 8 is float, 9 is double.
template <template <class...> class Vector>
using SamplesIn = std::variant<Vector<std::int8_t>, Vector<std::uint8_t>, Vector<std::int16_t>,
                               Vector<std::uint16_t>, Vector<std::int32_t>, Vector<std::uint32_t>,
                               Vector<std::int64_t>, Vector<std::uint64_t>, Vector<float>, Vector<double>>;

/// For work that owns its samples.
using SampleVector = SamplesIn<std::vector>;
/// For samples that are shared without a copy, as by the strips that show them. Each holds less than 2^31
/// bytes.
using SampleArray = SamplesIn<QVector>;

/// Element type of samples that have no number of their own (objects, unknown types, odd sizes).
constexpr int ElementTypeDouble = 9;

/// Element type number, 0 to 9, of a value type and sample size in bytes. Pairs that do not convert to
/// a number give ElementTypeDouble.
int elementType(KiroValue::Type type, std::uint32_t sampleSize);

/// An empty vector of element type `type`, 0 to 9.
SampleVector makeSampleVector(int type);
SampleArray makeSampleArray(int type);

/// Number of samples held.
std::size_t sampleCount(const SampleVector& samples);
std::size_t sampleCount(const SampleArray& samples);
