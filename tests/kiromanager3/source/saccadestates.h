#pragma once

#include "saccadeedit.h"
#include "saccadestate.h"

#include <cstring>
#include <random>
#include <string>
#include <type_traits>

/// States of a saccades browser for tests, and their exact comparison.

/// All fields as bytes, so that NaN is equal to itself and padding does not count.
class StateBits
{
public:
    explicit StateBits(const SaccadeState& state)
    {
        add(state.header);
        for (const KiroSaccade& saccade : state.saccades)
            add(saccade);
        add("blinks");
        for (const KiroBlink& blink : state.blinks)
            add(blink);
        add(state.currentSaccade);
        add(state.saccadeParams);
        add(state.blinkParams);
        add(state.saccadeFile);
        add(state.dataFile);
    }

    const std::string& bytes() const { return m_bytes; }

private:
    template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
    void add(Number number)
    {
        char bytes[sizeof(number)];
        std::memcpy(bytes, &number, sizeof(number));
        m_bytes.append(bytes, sizeof(bytes));
    }
    void add(const char* text) { m_bytes += text; }
    void add(const QString& text)
    {
        add(text.size());
        for (const QChar c : text)
            add(c.unicode());
    }
    void add(const KiroString& text)
    {
        add(text.length());
        m_bytes += text.bytes();
    }
    void add(const KiroSaccSignal& signal)
    {
        add(signal.signalIndex);
        add(signal.factor);
        add(signal.offset);
    }
    void add(const SaccadeDetectionParams& params)
    {
        for (const std::int32_t number : {params.local, params.gap, params.minTime, params.maxTime})
            add(number);
        for (const double number :
             {params.initVel, params.minSpeed, params.minSlope, params.minAmp, params.maxAmp})
            add(number);
    }
    void add(const BlinkDetectionParams& params)
    {
        for (const std::int32_t number : {params.maxPeaksDistance, params.minDuration, params.maxDuration})
            add(number);
        for (const double number : {params.peakVel1, params.peakVel2, params.minVel, params.minAmplitude,
                                    params.minAmplitudeRelation, params.maxAmplitudeRelation})
            add(number);
    }
    void add(const KiroSaccadeEye& eye)
    {
        for (const std::int32_t number : {eye.start, eye.end, eye.duration, eye.fixation, eye.reserved})
            add(number);
        for (const double number : {eye.amplitude, eye.peakVelocity, eye.meanVelocity, eye.peakAcceleration,
                                    eye.velocityPerDuration, eye.amplitudeHorz, eye.startHorz, eye.endHorz,
                                    eye.amplitudeVert, eye.startVert, eye.endVert})
            add(number);
    }
    void add(const KiroSaccade& saccade)
    {
        add(saccade.main);
        add(saccade.left);
        add(saccade.right);
        add(saccade.valid);
    }
    void add(const KiroBlink& blink)
    {
        for (const std::int32_t number : {blink.start, blink.end, blink.duration, blink.peaksDistance})
            add(number);
        for (const double number : {blink.amp1, blink.amp2, blink.ampRelation})
            add(number);
    }
    void add(const KiroSaccHeader& header)
    {
        add(header.version);
        for (const KiroString& text :
             {header.fileName, header.relativeDataFile, header.dataFile, header.comment, header.error})
            add(text);
        add(header.blinksHorizontal);
        for (const KiroSaccade& saccade : header.saccades)
            add(saccade);
        add("header's blinks");
        for (const KiroBlink& blink : header.blinks)
            add(blink);
        add(header.detectionType);
        for (const KiroSaccSignal& signal :
             {header.rightHorizontal, header.rightVertical, header.leftHorizontal, header.leftVertical})
            add(signal);
        add(header.params);
        add(header.ratePeriod);
        add(header.samplesPerPeriod);
        add(header.durationMs);
    }

    std::string m_bytes;
};

/// Sets the header's arrays from the lists, as a save does.
inline void fillHeader(SaccadeState& state)
{
    state.header.saccades.assign(state.saccades.begin(), state.saccades.end());
    state.header.blinks.assign(state.blinks.begin(), state.blinks.end());
}

/// All fields, with the header's arrays as its lists, which need not have been saved.
inline std::string bitsOf(SaccadeState state)
{
    fillHeader(state);
    return StateBits(state).bytes();
}

/// Random numbers that are the same in each run.
class StateDice
{
public:
    explicit StateDice(unsigned seed)
        : m_engine(seed)
    {
    }
    /// From 0 to `count` - 1.
    int below(int count) { return int(m_engine() % unsigned(count)); }
    /// Any bits, also those of numbers that are none.
    double anyReal()
    {
        const std::uint64_t bits = std::uint64_t(m_engine()) << 32 | m_engine();
        double real;
        std::memcpy(&real, &bits, sizeof(real));
        return real;
    }
    std::int32_t anyInteger() { return static_cast<std::int32_t>(m_engine()); }

    KiroSaccadeEye anyEye()
    {
        KiroSaccadeEye eye;
        for (const auto member : {&KiroSaccadeEye::start, &KiroSaccadeEye::end, &KiroSaccadeEye::duration,
                                  &KiroSaccadeEye::fixation, &KiroSaccadeEye::reserved})
            eye.*member = anyInteger();
        for (const auto member :
             {&KiroSaccadeEye::amplitude, &KiroSaccadeEye::peakVelocity, &KiroSaccadeEye::meanVelocity,
              &KiroSaccadeEye::peakAcceleration, &KiroSaccadeEye::velocityPerDuration,
              &KiroSaccadeEye::amplitudeHorz, &KiroSaccadeEye::startHorz, &KiroSaccadeEye::endHorz,
              &KiroSaccadeEye::amplitudeVert, &KiroSaccadeEye::startVert, &KiroSaccadeEye::endVert})
            eye.*member = anyReal();
        return eye;
    }
    KiroSaccade anySaccade() { return {anyEye(), anyEye(), anyEye(), below(3) != 0}; }
    KiroBlink anyBlink()
    {
        return {anyInteger(), anyInteger(), anyInteger(), anyInteger(), anyReal(), anyReal(), anyReal()};
    }
    SaccadeDetectionParams anySaccadeParams()
    {
        return {anyInteger(), anyInteger(), anyInteger(), anyInteger(), anyReal(),
                anyReal(),    anyReal(),    anyReal(),    anyReal()};
    }
    BlinkDetectionParams anyBlinkParams()
    {
        return {anyReal(), anyReal(), anyReal(),    anyInteger(), anyReal(),
                anyReal(), anyReal(), anyInteger(), anyInteger()};
    }
    /// `count` saccades and some blinks, and every other field set too.
    SaccadeState anyState(int count)
    {
        SaccadeState state;
        for (int i = 0; i < count; ++i)
            state.saccades.append(anySaccade());
        for (int i = below(4); i > 0; --i)
            state.blinks.append(anyBlink());
        state.currentSaccade = count > 0 ? below(count) : 0;
        state.saccadeParams = anySaccadeParams();
        state.blinkParams = anyBlinkParams();
        state.saccadeFile = QStringLiteral("/home/user/some saccades.sacc");
        state.dataFile = QStringLiteral("/home/user/recording.kiro");
        KiroSaccHeader& header = state.header;
        header.fileName = "/home/user/some saccades.sacc";
        header.setDataFiles("/home/user/recording.kiro", "recording.kiro");
        header.comment = "a comment";
        header.error = "the last failure";
        header.blinksHorizontal = true;
        header.detectionType = 1 + below(3);
        for (const int role : {3, 4, 5, 6})
            header.setSignal(role, anyInteger(), anyReal(), anyReal());
        header.params = anySaccadeParams();
        header.ratePeriod = unsigned(anyInteger());
        header.samplesPerPeriod = unsigned(anyInteger());
        header.durationMs = unsigned(anyInteger());
        return state;
    }
    /// What a user may do next: mostly add, remove or choose a saccade, now and then detect or set
    /// parameters.
    void act(SaccadeState& state)
    {
        const int count = state.saccades.size();
        const int what = below(20);
        if (what < 8 || count == 0) {
            state.currentSaccade = below(count + 1);
            state.saccades.insert(state.currentSaccade, anySaccade());
            if (state.currentSaccade < count)
                state.saccades[state.currentSaccade + 1].main.fixation = anyInteger();
        } else if (what < 14) {
            state.currentSaccade = removeSaccade(state.saccades, below(count), state.header.detectionType);
        } else if (what < 16) {
            state.currentSaccade = removeSaccades(state.saccades, {below(count), below(count), below(count)},
                                                  state.header.detectionType, state.currentSaccade);
        } else if (what < 18) {
            state.currentSaccade = below(count);
        } else if (what < 19) {
            state.saccadeParams = anySaccadeParams();
        } else {
            state = anyState(below(12));
        }
    }

private:
    std::mt19937 m_engine;
};
