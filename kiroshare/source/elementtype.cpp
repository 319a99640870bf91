#include "elementtype.h"

namespace
{

template <class Samples, std::size_t... Index>
Samples makeSamples(std::size_t type, std::index_sequence<Index...>)
{
    Samples result;
    (void)((Index == type && (result.template emplace<Index>(), true)) || ...);
    return result;
}

template <class Samples>
Samples makeSamples(int type)
{
    return makeSamples<Samples>(static_cast<std::size_t>(type),
                                std::make_index_sequence<std::variant_size_v<Samples>>());
}

template <class Samples>
std::size_t countOf(const Samples& samples)
{
    return std::visit([](const auto& vector) { return static_cast<std::size_t>(vector.size()); }, samples);
}

/// Place of a sample size among 1, 2, 4 and 8, or -1.
int sizeStep(std::uint32_t sampleSize)
{
    switch (sampleSize) {
    case 1:
        return 0;
    case 2:
        return 1;
    case 4:
        return 2;
    case 8:
        return 3;
    default:
        return -1;
    }
}

} // namespace

int elementType(KiroValue::Type type, std::uint32_t sampleSize)
{
    const int step = sizeStep(sampleSize);
    if (step >= 0 && type == KiroValue::SignedInt)
        return 2 * step;
    if (step >= 0 && type == KiroValue::UnsignedInt)
        return 2 * step + 1;
    if (step == 2 && type == KiroValue::Float)
        return 8;
    return ElementTypeDouble;
}

SampleVector makeSampleVector(int type)
{
    return makeSamples<SampleVector>(type);
}

SampleArray makeSampleArray(int type)
{
    return makeSamples<SampleArray>(type);
}

std::size_t sampleCount(const SampleVector& samples)
{
    return countOf(samples);
}

std::size_t sampleCount(const SampleArray& samples)
{
    return countOf(samples);
}
