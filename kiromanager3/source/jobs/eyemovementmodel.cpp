#include "eyemovementmodel.h"

#include "demorandom.h"
#include "demostreams.h"
#include "movementshape.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double HorizontalLimit = 20.0; ///< of gaze, either side of straight ahead
constexpr double VerticalLimit = 12.0;
constexpr double GreatestAmplitude = 20.0;
constexpr double PursuitLimit = 10.0;

std::int64_t samplesUp(double milliseconds)
{
    return static_cast<std::int64_t>(std::ceil(milliseconds));
}

double length(double horizontal, double vertical)
{
    return std::sqrt(horizontal * horizontal + vertical * vertical);
}

/// Draws the movements one after the other.
class EyePlanner
{
public:
    EyePlanner(std::uint32_t seed, std::int64_t sampleCount)
        : m_random(seed, DemoStream::EyePlan)
        , m_sampleCount(sampleCount)
    {
        m_nextBlink = m_random.whole(1200, 3000);
        m_nextPursuit = m_random.whole(7000, 12000);
    }

    EyeMovementPlan make();

private:
    struct Target
    {
        double horizontal = 0.0;
        double vertical = 0.0;
    };

    bool fits(std::int64_t samples) const { return m_now + samples < m_sampleCount; }
    void fixate(std::int64_t shortest, std::int64_t longest) { m_now += m_random.whole(shortest, longest); }
    void addBlink();
    void addPursuit();
    void addSaccades();
    void addSaccade(const Target& target, bool corrective);
    DemoEyeSaccade move(EyePosition& eye, const Target& target, std::int64_t start, double scatter);
    Target chooseTarget();

    static constexpr std::int64_t RoomForAnything = 2500; ///< samples that the longest movement may take

    DemoRandom m_random;
    std::int64_t m_sampleCount;
    std::int64_t m_now = 0;
    std::int64_t m_nextBlink = 0;
    std::int64_t m_nextPursuit = 0;
    Target m_gaze; ///< what both eyes are meant to look at
    EyePosition m_right;
    EyePosition m_left;
    EyeMovementPlan m_plan;
};

EyeMovementPlan EyePlanner::make()
{
    m_gaze = {m_random.between(-5.0, 5.0), m_random.between(-4.0, 4.0)};
    m_right = m_left = {m_gaze.horizontal, m_gaze.vertical};
    m_plan.startHorizontal = m_gaze.horizontal;
    m_plan.startVertical = m_gaze.vertical;
    fixate(300, 800);
    while (fits(RoomForAnything)) {
        if (m_now >= m_nextBlink)
            addBlink();
        else if (m_now >= m_nextPursuit && std::abs(m_gaze.horizontal) < PursuitLimit)
            addPursuit();
        else
            addSaccades();
        fixate(180, 650);
    }
    return std::move(m_plan);
}

void EyePlanner::addBlink()
{
    DemoBlink blink;
    blink.closingMs = m_random.between(70.0, 90.0);
    blink.closedMs = m_random.between(5.0, 20.0);
    blink.openingMs = m_random.between(130.0, 180.0);
    blink.rightDepth = m_random.between(25.0, 32.0);
    blink.leftDepth = blink.rightDepth * m_random.between(0.94, 1.0);
    blink.start = m_now;
    blink.lowest = m_now + samplesUp(blink.closingMs);
    blink.end = m_now + samplesUp(blink.closingMs + blink.closedMs + blink.openingMs);
    m_plan.blinks.push_back(blink);
    m_now = blink.end;
    m_nextBlink = m_now + m_random.whole(2500, 5500);
}

void EyePlanner::addPursuit()
{
    DemoPursuit pursuit;
    pursuit.velocity = m_random.between(6.0, 12.0) * (m_gaze.horizontal > 0.0 ? -1.0 : 1.0);
    pursuit.start = m_now;
    pursuit.end = m_now + m_random.whole(800, 1500);
    pursuit.angle = pursuit.velocity * static_cast<double>(pursuit.end - pursuit.start) / EyeRateHz;
    m_plan.pursuits.push_back(pursuit);
    m_now = pursuit.end;
    for (double* horizontal : {&m_gaze.horizontal, &m_right.horizontal, &m_left.horizontal})
        *horizontal += pursuit.angle;
    m_nextPursuit = m_now + m_random.whole(12000, 20000);
}

/// A saccade to a new target, at times as one that falls short and a second one that corrects it.
void EyePlanner::addSaccades()
{
    const Target target = chooseTarget();
    const double horizontal = target.horizontal - m_gaze.horizontal;
    const double vertical = target.vertical - m_gaze.vertical;
    const bool falls = length(horizontal, vertical) > 8.0 && m_random.chance(0.3);
    const double reach = falls ? m_random.between(0.86, 0.92) : 1.0;
    addSaccade({m_gaze.horizontal + reach * horizontal, m_gaze.vertical + reach * vertical}, false);
    if (!falls)
        return;
    fixate(130, 200);
    addSaccade(target, true);
}

EyePlanner::Target EyePlanner::chooseTarget()
{
    const double share = m_random.uniform();
    double amplitude = 2.0 + (GreatestAmplitude - 2.0) * share * share;
    const double straight = m_random.chance(0.5) ? 0.0 : 0.5; // turns
    const double direction = m_random.chance(0.6) ? straight + 0.03 * m_random.bell() : m_random.uniform();
    const double right = sineOfTurns(direction + 0.25);
    const double up = sineOfTurns(direction);
    if (amplitude * std::abs(up) > VerticalLimit)
        amplitude = VerticalLimit / std::abs(up);
    double horizontal = amplitude * right;
    double vertical = amplitude * up;
    // No amplitude is longer than half the field, so that the other side has room for it.
    if (std::abs(m_gaze.horizontal + horizontal) > HorizontalLimit)
        horizontal = -horizontal;
    if (std::abs(m_gaze.vertical + vertical) > VerticalLimit)
        vertical = -vertical;
    return {m_gaze.horizontal + horizontal, m_gaze.vertical + vertical};
}

void EyePlanner::addSaccade(const Target& target, bool corrective)
{
    const double scatter = 1.0 + 0.04 * m_random.bell();
    const std::int64_t leftDelay = m_random.whole(0, 1);
    DemoSaccade saccade;
    saccade.corrective = corrective;
    saccade.right = move(m_right, target, m_now, scatter);
    saccade.left = move(m_left, target, m_now + leftDelay, scatter);
    m_gaze = target;
    m_now = std::max(saccade.right.end, saccade.left.end);
    m_plan.saccades.push_back(saccade);
}

/// Takes one eye to where it lands, a little beside the target. The next saccade starts there, so that the
/// eyes do not drift apart.
DemoEyeSaccade EyePlanner::move(EyePosition& eye, const Target& target, std::int64_t start, double scatter)
{
    constexpr double LandingError = 0.015; // of the amplitude
    const double error =
        LandingError * length(target.horizontal - eye.horizontal, target.vertical - eye.vertical);
    const EyePosition landing{target.horizontal + error * m_random.bell(),
                              target.vertical + error * m_random.bell()};
    DemoEyeSaccade saccade;
    saccade.horizontal = landing.horizontal - eye.horizontal;
    saccade.vertical = landing.vertical - eye.vertical;
    saccade.amplitude = length(saccade.horizontal, saccade.vertical);
    saccade.durationMs = (2.2 * saccade.amplitude + 21.0) * scatter;
    saccade.skew = 0.15 + 0.01 * saccade.amplitude;
    saccade.peakVelocity = skewedPeakSpeed(saccade.skew) * saccade.amplitude / saccade.durationMs * EyeRateHz;
    saccade.start = start;
    saccade.end = start + samplesUp(saccade.durationMs);
    eye = landing;
    return saccade;
}

/// Share of the stroke at `time` ms from the blink's start.
double blinkDepth(const DemoBlink& blink, double time)
{
    const double closed = blink.closingMs + blink.closedMs;
    return minimumJerk(time / blink.closingMs) - minimumJerk((time - closed) / blink.openingMs);
}

} // namespace

EyeMovementPlan EyeMovementPlan::make(std::uint32_t seed, std::int64_t sampleCount)
{
    return EyePlanner(seed, sampleCount).make();
}

EyeMovementTrace::EyeMovementTrace(const EyeMovementPlan& plan, Eye eye)
    : m_plan(plan)
    , m_eye(eye)
    , m_rest{plan.startHorizontal, plan.startVertical}
{
}

const DemoEyeSaccade& EyeMovementTrace::part(const DemoSaccade& saccade) const
{
    return m_eye == Eye::Right ? saccade.right : saccade.left;
}

EyePosition EyeMovementTrace::next()
{
    EyePosition position = drift();
    addSaccade(position);
    addPursuit(position);
    addBlink(position);
    position.horizontal += m_rest.horizontal;
    position.vertical += m_rest.vertical;
    ++m_sample;
    return position;
}

void EyeMovementTrace::addSaccade(EyePosition& position)
{
    if (m_saccade == m_plan.saccades.size())
        return;
    const DemoEyeSaccade& saccade = part(m_plan.saccades[m_saccade]);
    if (m_sample < saccade.end) {
        const double time = static_cast<double>(m_sample - saccade.start) / saccade.durationMs;
        const double done = skewedMovement(time, saccade.skew);
        position.horizontal += done * saccade.horizontal;
        position.vertical += done * saccade.vertical;
        return;
    }
    m_rest.horizontal += saccade.horizontal;
    m_rest.vertical += saccade.vertical;
    ++m_saccade;
}

void EyeMovementTrace::addPursuit(EyePosition& position)
{
    if (m_pursuit == m_plan.pursuits.size())
        return;
    const DemoPursuit& pursuit = m_plan.pursuits[m_pursuit];
    if (m_sample < pursuit.start)
        return;
    if (m_sample < pursuit.end) {
        position.horizontal += pursuit.velocity * static_cast<double>(m_sample - pursuit.start) / EyeRateHz;
        return;
    }
    m_rest.horizontal += pursuit.angle;
    ++m_pursuit;
}

void EyeMovementTrace::addBlink(EyePosition& position)
{
    constexpr double TowardsNose = 0.06; // of the depth
    if (m_blink == m_plan.blinks.size())
        return;
    const DemoBlink& blink = m_plan.blinks[m_blink];
    if (m_sample >= blink.end) {
        ++m_blink;
        return;
    }
    const bool right = m_eye == Eye::Right;
    const double depth = (right ? blink.rightDepth : blink.leftDepth) *
                         blinkDepth(blink, static_cast<double>(m_sample - blink.start));
    position.vertical -= depth;
    position.horizontal += TowardsNose * (right ? -depth : depth);
}

/// The wander of a fixating eye and of the sensor, at most 0.5 degrees and 0.6 degrees per second.
EyePosition EyeMovementTrace::drift() const
{
    const double seconds = static_cast<double>(m_sample) / EyeRateHz;
    const double shift = m_eye == Eye::Right ? 0.0 : 0.1; // turns
    return {0.10 * sineOfTurns(seconds / 1.7 + shift) + 0.4 * sineOfTurns(seconds / 47.0 + shift),
            0.08 * sineOfTurns(seconds / 2.3 - shift) + 0.4 * sineOfTurns(seconds / 61.0 - shift)};
}
