#include "detectionscore.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace
{

std::int64_t sharedSamples(const Stretch& a, const Stretch& b)
{
    return std::max<std::int64_t>(std::min(a.end, b.end) - std::max(a.start, b.start) + 1, 0);
}

/// Value of the nearest rank of a sorted list that is not empty.
double percentile(const std::vector<double>& sorted, double percent)
{
    const double rank = std::ceil(percent / 100.0 * static_cast<double>(sorted.size()));
    return sorted[static_cast<std::size_t>(std::max(rank, 1.0)) - 1];
}

std::vector<bool> labels(const std::vector<Stretch>& stretches, std::int64_t sampleCount)
{
    std::vector<bool> list(static_cast<std::size_t>(sampleCount), false);
    for (const Stretch& stretch : stretches) {
        const std::int64_t end = std::min(stretch.end, sampleCount - 1);
        for (std::int64_t i = std::max<std::int64_t>(stretch.start, 0); i <= end; ++i)
            list[static_cast<std::size_t>(i)] = true;
    }
    return list;
}

double kappaOf(const std::vector<bool>& a, const std::vector<bool>& b)
{
    const auto count = static_cast<double>(a.size());
    double agreed = 0.0;
    double inA = 0.0;
    double inB = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        agreed += a[i] == b[i] ? 1.0 : 0.0;
        inA += a[i] ? 1.0 : 0.0;
        inB += b[i] ? 1.0 : 0.0;
    }
    const double observed = agreed / count;
    const double byChance = (inA * inB + (count - inA) * (count - inB)) / (count * count);
    return byChance < 1.0 ? (observed - byChance) / (1.0 - byChance) : 1.0;
}

} // namespace

Spread spreadOf(std::vector<double> values)
{
    if (values.empty())
        return {};
    std::sort(values.begin(), values.end());
    return {percentile(values, 50.0), percentile(values, 5.0), percentile(values, 95.0)};
}

DetectionScore scoreDetection(const std::vector<Stretch>& truth, const std::vector<Stretch>& found,
                              std::int64_t sampleCount)
{
    DetectionScore score;
    score.trueCount = static_cast<int>(truth.size());
    score.foundCount = static_cast<int>(found.size());
    std::vector<bool> taken(found.size(), false);
    std::vector<double> onsets;
    std::vector<double> offsets;
    for (const Stretch& event : truth) {
        std::size_t best = found.size();
        std::int64_t mostShared = 0;
        for (std::size_t i = 0; i < found.size(); ++i) {
            const std::int64_t shared = taken[i] ? 0 : sharedSamples(event, found[i]);
            if (shared > mostShared) {
                mostShared = shared;
                best = i;
            }
        }
        if (best == found.size())
            continue;
        taken[best] = true;
        onsets.push_back(static_cast<double>(found[best].start - event.start));
        offsets.push_back(static_cast<double>(found[best].end - event.end));
    }
    score.hits = static_cast<int>(onsets.size());
    const int listed = score.trueCount + score.foundCount;
    score.f1 = listed > 0 ? 2.0 * score.hits / listed : 1.0;
    if (sampleCount > 0)
        score.kappa = kappaOf(labels(truth, sampleCount), labels(found, sampleCount));
    score.onsetErrors = spreadOf(onsets);
    score.offsetErrors = spreadOf(offsets);
    return score;
}
