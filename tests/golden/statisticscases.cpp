#include "statisticscases.h"

#include "rounding.h"
#include "samplestatistics.h"

namespace
{

Answer result(Answer value)
{
    return Answer::Fields{{QStringLiteral("result"), std::move(value)}};
}

Answer mean(const CallArgs& args)
{
    const std::vector<double> x = args.numbers("x");
    return result(rangeMean(x.begin(), x.end(), args.flag("dropExtremes")));
}

Answer variance(const CallArgs& args)
{
    const std::vector<double> x = args.numbers("x");
    return result(rangeVariance(x.begin(), x.end(), args.flag("dropExtremes")));
}

Answer minimum(const CallArgs& args)
{
    const std::vector<double> x = args.numbers("x");
    return result(rangeMin(x.begin(), x.end()));
}

Answer maximum(const CallArgs& args)
{
    const std::vector<double> x = args.numbers("x");
    return result(rangeMax(x.begin(), x.end()));
}

Answer rounded(const CallArgs& args)
{
    return result(roundHalfUp(args.number("v")));
}

} // namespace

const NumericFamily& statisticsRoutines()
{
    static const NumericFamily routines = {
        {"rangeMean", "x dropExtremes", mean},
        {"rangeVariance", "x dropExtremes", variance},
        {"rangeMin", "x", minimum},
        {"rangeMax", "x", maximum},
        {"roundHalfUp", "v", rounded},
    };
    return routines;
}
