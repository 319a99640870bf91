#pragma once

#include "kirostring.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class KiroHeader;
struct KiroSignal;

/// The eye movement signals of a recording: which they are, and their samples.

/// The four positions, in the order in which they are shown and loaded.
enum class EyeAxis { RightHorizontal = 0, RightVertical, LeftHorizontal, LeftVertical };
constexpr int EyeAxisCount = 4;
constexpr std::array<EyeAxis, EyeAxisCount> EyeAxes = {EyeAxis::RightHorizontal, EyeAxis::RightVertical,
                                                       EyeAxis::LeftHorizontal, EyeAxis::LeftVertical};

/// The role under which a saccade file knows the axis.
std::int32_t saccadeFileRole(EyeAxis axis);

/// Whether detections of this type look at the axis.
bool usesAxis(int detectionType, EyeAxis axis);

/// One signal as it is looked at: physical value = (raw - offset) / factor.
struct EyeSignal
{
    int signalIndex = -1; ///< in the recording; -1 for none
    double factor = 1.0;
    double offset = 0.0;
    std::vector<double> position; ///< degrees
    std::vector<double> velocity; ///< absolute, degrees per second; empty unless asked for

    bool isSet() const { return signalIndex >= 0; }
};

/// The signals of one detection.
struct EyeSignals
{
    EyeSignal& operator[](EyeAxis axis) { return axes[static_cast<std::size_t>(axis)]; }
    const EyeSignal& operator[](EyeAxis axis) const { return axes[static_cast<std::size_t>(axis)]; }
    /// Without any signal.
    void clear() { *this = EyeSignals(); }
    /// Without the samples, with the choice of signals.
    void clearSamples();

    std::array<EyeSignal, EyeAxisCount> axes;
    /// 1 for one signal, 2 for both axes of one eye, 3 for both eyes; 0 until samples are loaded.
    int detectionType = 0;
};

/// The signals whose full names say that they are eye movements; those that are not there stay unset.
/// Names are compared with case, with runs of white space as one blank.
EyeSignals findEyeSignals(const KiroHeader& header);

/// findEyeSignals(), or if it finds none the first signals whose names begin like those of eye movements: a
/// proposal for the user, who has to confirm it.
EyeSignals suggestEyeSignals(const KiroHeader& header);

/// findEyeSignals(), or the only signal of a recording as the right horizontal one. No value if there is
/// more than one signal and none is the right horizontal one: the user has to choose.
std::optional<EyeSignals> chooseEyeSignals(const KiroHeader& header);

/// How samples are loaded and made degrees.
struct EyeLoadOptions
{
    /// Of the right horizontal signal, in Hz.
    double frequency = 1000.0;
    /// Whether raw samples are converted by the factor and offset that the signals hold already, as for a
    /// saccade file, and not by the recording's own calibration.
    bool storedCalibration = false;
    bool velocities = true;
    /// Asked for the factor of each signal that is not calibrated; no value ends the loading.
    std::function<std::optional<double>(const KiroSignal&)> askFactor;
};

/// Loads the samples of the chosen signals: the right horizontal one, the right vertical one if it is set,
/// and the left ones if both are set. The detection type follows from that. False with a text for the user in
/// `error`; the signals then hold no samples.
bool loadEyeSignals(const KiroString& path, const KiroHeader& header, const EyeLoadOptions& options,
                    EyeSignals& eyes, QString& error);
