#include "filtercases.h"

#include "samplefilters.h"

#include <stdexcept>

namespace
{

/// Calls `filter` with an output that shows whether a refusal has touched it.
template <class Filter>
Answer filtered(const CallArgs& args, const char* result, Filter filter)
{
    const std::vector<double> before = {-12345.5, 54321.25};
    const std::vector<double> input = args.numbers("x");
    std::vector<double> output = before;
    if (filter(input, output))
        return Answer::Fields{{QString::fromLatin1(result), output}};
    if (output != before)
        throw std::runtime_error("refused, but the output was changed");
    return Answer::Fields{{QString::fromLatin1(result), nullptr}};
}

Answer smooth(const CallArgs& args)
{
    return filtered(args, "y", smoothSavitzkyGolay11);
}

template <bool (*Velocity)(const std::vector<double>&, std::vector<double>&, bool)>
Answer velocity(const CallArgs& args)
{
    return filtered(args, "d", [&args](const std::vector<double>& input, std::vector<double>& output) {
        return Velocity(input, output, args.flag("absolute"));
    });
}

template <bool (*Windowed)(const std::vector<double>&, std::vector<double>&, std::int32_t)>
Answer windowed(const CallArgs& args)
{
    return filtered(args, "y", [&args](const std::vector<double>& input, std::vector<double>& output) {
        return Windowed(input, output, args.integer("w"));
    });
}

} // namespace

const NumericFamily& filterRoutines()
{
    static const NumericFamily routines = {
        {"smoothSavitzkyGolay11", "x", smooth},
        {"velocitySavitzkyGolay11", "x absolute", velocity<velocitySavitzkyGolay11>},
        {"velocitySavitzkyGolay15", "x absolute", velocity<velocitySavitzkyGolay15>},
        {"movingAverage", "x w", windowed<movingAverage>},
        {"runningMedian", "x w", windowed<runningMedian>},
    };
    return routines;
}
