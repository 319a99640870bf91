#pragma once

#include "plainfilters.h"

#include "detectionparams.h"
#include "kirosaccade.h"

#include <cmath>
#include <cstddef>
#include <iterator>
#include <list>
#include <vector>

/// The detectors in their plain form: every search and every walk from its beginning, step by step. Takes
/// `local` from 1 on; times are in the worst case quadratic. What the program ships must give the same bits.
namespace plain
{

using Array = std::vector<double>;
using Saccades = std::list<KiroSaccade>;

struct Derived
{
    Array speed11;
    Array accel11; ///< one signal
    Array accelH11;
    Array accelV11;
    Array vel15;
    Array speed15;
};

inline Array derived11(const Array& x, bool absolute)
{
    Array y(x.size(), 0.0);
    velocitySavitzkyGolay11(x, y, absolute);
    return y;
}

inline Array derived15(const Array& x, bool absolute)
{
    Array y(x.size(), 0.0);
    velocitySavitzkyGolay15(x, y, absolute);
    return y;
}

inline Array lengthsOf(const Array& a, const Array& b)
{
    Array y(a.size(), 0.0);
    for (std::size_t i = 0; i < a.size(); ++i)
        y[i] = std::sqrt(a[i] * a[i] + b[i] * b[i]);
    return y;
}

/// `v` null for one signal.
inline Derived derive(const Array& h, const Array* v)
{
    Derived d;
    if (!v) {
        d.speed11 = derived11(h, true);
        d.accel11 = derived11(d.speed11, false);
        d.vel15 = derived15(h, false);
        d.speed15 = derived15(h, true);
        return d;
    }
    const Array speedH11 = derived11(h, true);
    const Array speedV11 = derived11(*v, true);
    d.speed11 = lengthsOf(speedH11, speedV11);
    d.accelH11 = derived11(speedH11, false);
    d.accelV11 = derived11(speedV11, false);
    d.vel15 = lengthsOf(derived15(h, false), derived15(*v, false));
    d.speed15 = lengthsOf(derived15(h, true), derived15(*v, true));
    return d;
}

inline bool isPeak(const Derived& d, long i, long local, double minSpeed)
{
    const Array& s = d.speed11;
    if (!(s[std::size_t(i)] >= minSpeed))
        return false;
    for (long j = i - local; j < i; ++j) {
        if (s[std::size_t(j)] > s[std::size_t(i)])
            return false;
    }
    for (long j = i + 1; j < i + local; ++j) {
        if (s[std::size_t(j)] >= s[std::size_t(i)])
            return false;
    }
    return true;
}

inline int signOf(double value)
{
    return value > 0.0 ? 1 : -1;
}

inline long onset(const Derived& d, long i, double initVel)
{
    const int s = signOf(d.vel15[std::size_t(i)]);
    long j = i - 1;
    if (j == 0)
        return 0;
    while (true) {
        const auto k = std::size_t(j);
        if (signOf(d.vel15[k]) != s)
            return j + 1;
        if (d.speed15[k] >= d.speed15[k + 1] && initVel > d.speed11[k + 1])
            return j + 1;
        --j;
        if (j == 0)
            return 0;
    }
}

inline long offset(const Derived& d, long i, double initVel)
{
    const long last = long(d.vel15.size()) - 1;
    const int s = signOf(d.vel15[std::size_t(i)]);
    long j = i + 1;
    if (j >= last)
        return j;
    while (true) {
        const auto k = std::size_t(j);
        if (signOf(d.vel15[k]) != s)
            return j - 1;
        if (d.speed15[k] >= d.speed15[k - 1] && initVel > d.speed11[k - 1])
            return j - 1;
        ++j;
        if (j == last)
            return last;
    }
}

inline KiroSaccadeEye measures(const Array& h, const Array* v, const Derived& d, long a, long b)
{
    const auto first = std::size_t(a);
    const auto last = std::size_t(b);
    const auto duration = double(b - a + 1);
    KiroSaccadeEye eye;
    eye.start = std::int32_t(a);
    eye.end = std::int32_t(b);
    eye.duration = std::int32_t(b - a + 1);
    eye.amplitudeHorz = h[last] - h[first];
    eye.startHorz = h[first];
    eye.endHorz = h[last];
    eye.amplitude = eye.amplitudeHorz;
    if (v) {
        eye.amplitudeVert = (*v)[last] - (*v)[first];
        eye.startVert = (*v)[first];
        eye.endVert = (*v)[last];
        eye.amplitude =
            std::sqrt(eye.amplitudeHorz * eye.amplitudeHorz + eye.amplitudeVert * eye.amplitudeVert);
    }
    eye.meanVelocity = std::abs(eye.amplitude) / duration;
    eye.peakVelocity = d.speed11[first];
    const auto acceleration = [&](std::size_t j) {
        return v ? d.accelH11[j] * d.accelH11[j] + d.accelV11[j] * d.accelV11[j] : d.accel11[j];
    };
    eye.peakAcceleration = acceleration(first);
    for (std::size_t j = first + 1; j <= last; ++j) {
        if (d.speed11[j] > eye.peakVelocity)
            eye.peakVelocity = d.speed11[j];
        if (acceleration(j) > eye.peakAcceleration)
            eye.peakAcceleration = acceleration(j);
    }
    if (v)
        eye.peakAcceleration = std::sqrt(eye.peakAcceleration);
    eye.velocityPerDuration = eye.peakVelocity / duration;
    return eye;
}

inline bool accepts(const SaccadeDetectionParams& params, const KiroSaccadeEye& eye, long peak)
{
    const double amplitude = std::abs(eye.amplitude);
    return amplitude >= params.minAmp && params.maxAmp >= amplitude &&
           eye.peakAcceleration >= params.minSlope && peak < eye.end && eye.duration >= params.minTime &&
           eye.duration <= params.maxTime;
}

inline Saccades scan(const SaccadeDetectionParams& params, const Array& h, const Array* v, bool keepRejected)
{
    const Derived d = derive(h, v);
    const long n = long(h.size());
    Saccades saccades;
    if (n < 11)
        return saccades;
    long i = params.local;
    while (i < n - params.local) {
        if (!isPeak(d, i, params.local, params.minSpeed)) {
            ++i;
            continue;
        }
        const long a = onset(d, i, params.initVel);
        const long b = offset(d, i, params.initVel);
        KiroSaccade saccade;
        saccade.main = measures(h, v, d, a, b);
        saccade.valid = accepts(params, saccade.main, i);
        if (saccade.valid || keepRejected) {
            saccades.push_back(saccade);
            i = b + 1;
        } else {
            ++i;
        }
    }
    return saccades;
}

inline void merge(Saccades& saccades, bool oneSignal, long gap)
{
    if (saccades.empty())
        return;
    auto previous = saccades.begin();
    auto current = std::next(previous);
    while (current != saccades.end()) {
        const long limit = previous->main.end + gap;
        const bool near = oneSignal ? current->main.start <= limit : current->main.start < limit;
        if (previous->valid && current->valid && near) {
            current = saccades.erase(current);
        } else {
            previous = current;
            ++current;
        }
    }
}

inline Saccades detectEye(const SaccadeDetectionParams& params, const Array& h, const Array* v,
                          bool keepRejected)
{
    Saccades saccades = scan(params, h, v, keepRejected);
    merge(saccades, !v, params.gap);
    std::int32_t p = 0;
    for (KiroSaccade& saccade : saccades) {
        saccade.main.fixation = saccade.main.start > p ? saccade.main.start - p : 0;
        if (saccade.valid)
            p = saccade.main.end;
    }
    return saccades;
}

inline std::vector<KiroBlink> detectBlinks(const BlinkDetectionParams& params, const Array& x)
{
    const Array vel15 = derived15(x, false);
    const Array vel11 = derived11(x, false);
    const long n = long(vel15.size());
    std::vector<KiroBlink> blinks;
    long i = 0;
    while (i < n) {
        if (!(-params.peakVel1 > vel11[std::size_t(i)])) {
            ++i;
            continue;
        }
        long e = i;
        while (e < n && params.peakVel2 > vel11[std::size_t(e)])
            ++e;
        const long distance = e - i + 1;
        if (!(e < n && distance <= params.maxPeaksDistance)) {
            while (i < n && -params.peakVel1 > vel11[std::size_t(i)])
                ++i;
            continue;
        }
        while (i > 0 && -params.minVel > vel15[std::size_t(i)])
            --i;
        while (e < n - 1 && vel15[std::size_t(e)] > params.minVel)
            ++e;
        const long duration = e - i + 1;
        if (duration < params.minDuration || duration > params.maxDuration) {
            i = e + 1;
            continue;
        }
        double lowest = x[std::size_t(i)];
        for (long j = i + 1; j <= e; ++j) {
            if (x[std::size_t(j)] < lowest)
                lowest = x[std::size_t(j)];
        }
        KiroBlink blink;
        blink.start = std::int32_t(i);
        blink.end = std::int32_t(e);
        blink.duration = std::int32_t(duration);
        blink.peaksDistance = std::int32_t(distance);
        blink.amp1 = std::abs(x[std::size_t(i)] - lowest);
        blink.amp2 = std::abs(x[std::size_t(e)] - lowest);
        blink.ampRelation = blink.amp2 / blink.amp1;
        if (blink.amp1 >= params.minAmplitude && blink.ampRelation >= params.minAmplitudeRelation &&
            params.maxAmplitudeRelation >= blink.ampRelation)
            blinks.push_back(blink);
        i = e + 1;
    }
    return blinks;
}

inline Saccades detectOneSignal(const SaccadeDetectionParams& params, const Array& x, bool keepRejected)
{
    Saccades saccades = detectEye(params, x, nullptr, keepRejected);
    if (!saccades.empty() && saccades.front().main.fixation < params.gap)
        saccades.pop_front();
    return saccades;
}

inline Saccades detectMonocular(const SaccadeDetectionParams& params, const Array& h, const Array& v,
                                const std::vector<KiroBlink>& blinks, bool keepRejected)
{
    Saccades kept;
    for (const KiroSaccade& saccade : detectEye(params, h, &v, keepRejected)) {
        bool touches = false;
        for (const KiroBlink& blink : blinks) {
            if (blink.end > saccade.main.start) {
                touches = blink.start < saccade.main.end;
                break;
            }
        }
        if (!touches)
            kept.push_back(saccade);
    }
    std::int32_t p = 0;
    for (KiroSaccade& saccade : kept) {
        saccade.main.fixation = saccade.main.start - p;
        p = saccade.main.end;
    }
    return kept;
}

inline Saccades pairEyes(const Saccades& lefts, const Saccades& rights)
{
    Saccades pairs;
    for (const KiroSaccade& right : rights) {
        const KiroSaccadeEye& r = right.main;
        for (const KiroSaccade& left : lefts) {
            const KiroSaccadeEye& l = left.main;
            if (l.end <= r.start)
                continue;
            if (l.start >= r.end)
                break;
            const std::int32_t lo = l.start > r.start ? l.start : r.start;
            const std::int32_t hi = l.end < r.end ? l.end : r.end;
            if (!(hi > lo))
                continue;
            const std::int32_t o = hi - lo + 1;
            if (o >= r.duration / 4 && o >= l.duration / 4) {
                KiroSaccade pair;
                pair.main = r;
                pair.left = l;
                pair.right = r;
                pairs.push_back(pair);
                break;
            }
        }
    }
    return pairs;
}

inline Saccades dropPairsTouchingBlinks(const Saccades& pairs, const std::vector<KiroBlink>& blinks)
{
    Saccades kept;
    for (const KiroSaccade& pair : pairs) {
        bool touches = false;
        for (const KiroBlink& blink : blinks) {
            if (blink.end > pair.left.start || blink.end > pair.right.start) {
                touches = blink.start < pair.left.end || blink.start < pair.right.end;
                break;
            }
        }
        if (!touches)
            kept.push_back(pair);
    }
    return kept;
}

inline Saccades detectBinocular(const SaccadeDetectionParams& params, const Array& leftH, const Array& leftV,
                                const Array& rightH, const Array& rightV,
                                const std::vector<KiroBlink>& blinks, bool keepRejected)
{
    Saccades kept = dropPairsTouchingBlinks(pairEyes(detectEye(params, leftH, &leftV, keepRejected),
                                                     detectEye(params, rightH, &rightV, keepRejected)),
                                            blinks);
    for (const auto block : {&KiroSaccade::main, &KiroSaccade::left, &KiroSaccade::right}) {
        std::int32_t p = 0;
        for (KiroSaccade& saccade : kept) {
            KiroSaccadeEye& eye = saccade.*block;
            eye.fixation = eye.start - p;
            p = eye.end;
        }
    }
    return kept;
}

} // namespace plain
