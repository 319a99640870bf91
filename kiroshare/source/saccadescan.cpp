#include "saccadescan.h"

void mergeCloseSaccades(std::vector<KiroSaccade>& saccades, bool limitIsTooSoon, std::int32_t gap)
{
    if (saccades.empty())
        return;
    const auto isTooSoon = [=](const KiroSaccade& previous, const KiroSaccade& current) {
        const std::int64_t limit = std::int64_t(previous.main.end) + gap;
        const bool near = limitIsTooSoon ? current.main.start <= limit : current.main.start < limit;
        return previous.valid && current.valid && near;
    };
    std::size_t kept = 1;
    for (std::size_t i = 1; i < saccades.size(); ++i) {
        if (!isTooSoon(saccades[kept - 1], saccades[i]))
            saccades[kept++] = saccades[i];
    }
    saccades.resize(kept);
}

void setFixations(std::vector<KiroSaccade>& saccades)
{
    std::int32_t previousEnd = 0;
    for (KiroSaccade& saccade : saccades) {
        KiroSaccadeEye& eye = saccade.main;
        eye.fixation = eye.start > previousEnd ? eye.start - previousEnd : 0;
        if (saccade.valid)
            previousEnd = eye.end;
    }
}
