#include "saccadeedit.h"

#include "eyesignals.h"
#include "rounding.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <utility>

namespace
{

constexpr int ShortestMs = 5;

/// The number held within 32 bits: the ends in a damaged file can be any numbers.
std::int32_t held(std::int64_t number)
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

std::int32_t distance(std::int32_t from, std::int32_t to)
{
    return held(std::int64_t(to) - from);
}

bool hasBothEyes(int detectionType)
{
    return usesAxis(detectionType, EyeAxis::LeftHorizontal);
}

/// The two signals of an eye; the vertical one is null if it is not used.
struct Eye
{
    const EyeSignal* horizontal = nullptr;
    const EyeSignal* vertical = nullptr;

    /// Samples that there are of all that is measured.
    std::size_t sampleCount() const
    {
        const std::size_t count = std::min(horizontal->position.size(), horizontal->velocity.size());
        return vertical ? std::min(count, vertical->position.size()) : count;
    }
};

Eye rightEye(const EditSource& source)
{
    const bool vertical = usesAxis(source.detectionType, EyeAxis::RightVertical);
    return {&source.eyes[EyeAxis::RightHorizontal],
            vertical ? &source.eyes[EyeAxis::RightVertical] : nullptr};
}

Eye leftEye(const EditSource& source)
{
    return {&source.eyes[EyeAxis::LeftHorizontal], &source.eyes[EyeAxis::LeftVertical]};
}

/// The last sample that can be edited; -1 if there is none.
std::int32_t lastSample(const EditSource& source)
{
    std::size_t count = rightEye(source).sampleCount();
    if (hasBothEyes(source.detectionType))
        count = std::min(count, leftEye(source).sampleCount());
    return held(static_cast<std::int64_t>(count) - 1);
}

/// Positions, amplitudes and velocities from `start` to `end`.
void measure(const Eye& eye, double frequency, KiroSaccadeEye& block)
{
    const auto start = static_cast<std::size_t>(block.start);
    const auto end = static_cast<std::size_t>(block.end);
    block.startHorz = eye.horizontal->position[start];
    block.endHorz = eye.horizontal->position[end];
    block.amplitudeHorz = block.endHorz - block.startHorz;
    if (eye.vertical) {
        block.startVert = eye.vertical->position[start];
        block.endVert = eye.vertical->position[end];
        block.amplitudeVert = block.endVert - block.startVert;
    }
    block.amplitude =
        std::sqrt(block.amplitudeHorz * block.amplitudeHorz + block.amplitudeVert * block.amplitudeVert);
    block.meanVelocity = std::fabs(block.amplitude) * frequency / block.duration;

    const auto& velocity = eye.horizontal->velocity;
    std::size_t peak = start;
    for (std::size_t i = start + 1; i <= end; ++i) {
        if (velocity[i] > velocity[peak])
            peak = i;
    }
    const double highest = velocity[peak];
    block.peakVelocity = highest;
    block.peakAcceleration = peak > start ? highest * frequency / static_cast<double>(peak - start) : 0.0;
    block.velocityPerDuration = highest / block.duration;
}

KiroSaccade makeSaccade(const EditSource& source, std::int32_t start, std::int32_t end,
                        const KiroSaccade* previous)
{
    KiroSaccade saccade;
    saccade.main.start = start;
    saccade.main.end = end;
    saccade.main.duration = end - start + 1;
    saccade.main.fixation = previous ? distance(previous->main.end, start) : start;
    measure(rightEye(source), source.frequency, saccade.main);
    if (hasBothEyes(source.detectionType)) {
        saccade.left = saccade.right = saccade.main;
        saccade.left.fixation = previous ? distance(previous->left.end, start) : start;
        measure(leftEye(source), source.frequency, saccade.left);
    }
    return saccade;
}

/// Whether the stretch touches the saccade at `index` or the one before it.
bool overlaps(const QList<KiroSaccade>& saccades, int index, std::int32_t start, std::int32_t end)
{
    if (index > 0 && start <= saccades[index - 1].main.end)
        return true;
    return index < saccades.size() && end >= saccades[index].main.start;
}

/// The first saccade that starts at `start` or later.
int placeOf(const QList<KiroSaccade>& saccades, std::int32_t start)
{
    const auto place = std::find_if(saccades.begin(), saccades.end(), [start](const KiroSaccade& saccade) {
        return saccade.main.start >= start;
    });
    return static_cast<int>(place - saccades.begin());
}

} // namespace

SaccadeAddition addSaccade(QList<KiroSaccade>& saccades, const EditSource& source, double t0, double t1)
{
    using Outcome = SaccadeAddition::Outcome;
    SaccadeAddition addition;
    addition.shortest = std::max(ShortestMs, source.minTime);
    const double msPerSample = 1000.0 / source.frequency;
    const std::int32_t last = lastSample(source);
    const bool measurable = std::isfinite(msPerSample) && msPerSample > 0.0 && last >= 0;
    if (!measurable || std::isnan(t0) || std::isnan(t1))
        return addition;
    if (t1 < t0)
        std::swap(t0, t1);
    const std::int32_t start = std::clamp(roundHalfUp(t0 * 1000 / msPerSample), 0, last);
    const std::int32_t end = std::clamp(roundHalfUp(t1 * 1000 / msPerSample), 0, last);
    if (roundHalfUp((end - start) * msPerSample) < addition.shortest)
        return addition;
    const int index = placeOf(saccades, start);
    if (overlaps(saccades, index, start, end)) {
        addition.outcome = Outcome::Overlaps;
        return addition;
    }
    const KiroSaccade* const previous = index > 0 ? &saccades.at(index - 1) : nullptr;
    const KiroSaccade saccade = makeSaccade(source, start, end, previous);
    if (index < saccades.size()) {
        KiroSaccade& next = saccades[index];
        next.main.fixation = distance(end, next.main.start);
        if (hasBothEyes(source.detectionType)) {
            next.right.fixation = distance(end, next.right.start);
            next.left.fixation = distance(end, next.left.start);
        }
    }
    saccades.insert(index, saccade);
    addition.outcome = Outcome::Added;
    addition.index = index;
    return addition;
}

int removeSaccade(QList<KiroSaccade>& saccades, int index, int detectionType)
{
    if (index < 0 || index >= saccades.size())
        return std::clamp(index, -1, saccades.size() - 1);
    saccades.removeAt(index);
    if (index == saccades.size())
        return index - 1;
    const KiroSaccade previous = index > 0 ? saccades.at(index - 1) : KiroSaccade();
    const auto fixation = [&previous](KiroSaccadeEye KiroSaccade::*block, const KiroSaccade& saccade) {
        return held(std::int64_t((saccade.*block).start) - (previous.*block).end + 1);
    };
    KiroSaccade& next = saccades[index];
    next.main.fixation = fixation(&KiroSaccade::main, next);
    if (hasBothEyes(detectionType)) {
        next.right.fixation = next.main.fixation;
        next.left.fixation = fixation(&KiroSaccade::left, next);
    }
    return index;
}

int removeSaccades(QList<KiroSaccade>& saccades, std::vector<int> indices, int detectionType, int current)
{
    std::sort(indices.begin(), indices.end(), std::greater<>());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    for (const int index : indices) {
        if (index < 0 || index >= saccades.size())
            continue;
        const int replacement = removeSaccade(saccades, index, detectionType);
        if (index == current)
            current = replacement;
        else if (index < current)
            --current;
    }
    return current;
}
