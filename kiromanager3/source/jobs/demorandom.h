#pragma once

#include <cstdint>
#include <random>

/// Random numbers that are the same on every machine.
///
/// The generator is fixed by the language's standard, the distributions of the standard library are not; here
/// they are made with arithmetic that gives the same doubles everywhere.
class DemoRandom
{
public:
    /// Streams of one seed are independent of each other.
    DemoRandom(std::uint32_t seed, std::uint32_t stream);

    /// 0 to below 1.
    double uniform();
    /// `low` to below `high`.
    double between(double low, double high);
    /// A whole number from `low` to `high`, both included.
    std::int64_t whole(std::int64_t low, std::int64_t high);
    /// True in the share `probability` (0 to 1) of the calls.
    bool chance(double probability);
    /// Bell-shaped with mean 0 and deviation 1: the sum of four even numbers. It stays within 3.47.
    double bell();

private:
    std::mt19937_64 m_generator;
};
