#pragma once

#include "kirolabel.h"
#include "usermode.h"

#include <optional>

/// What the mouse means on the strips of a signals browser; the numbers are those of its field `mode`.
enum class InteractionMode {
    Arrow = 1,
    Measure = 2,
    Calibrate = 3,
    Point = 4,
    SignalLine = 5,
    TimeLine = 6,
    SignalPeriod = 7,
    TimePeriod = 8,
    NoiseStat = 9,
    AudioPlayer = 10,
    Zoom = 11,
    VideoPlayer = 12
};

/// What the strips do with the mouse in this mode.
UserMode userModeOf(InteractionMode mode);

/// The kind of label that a double click makes in this mode, or for a period a drag; none in other modes.
std::optional<KiroLabel::Type> labelTypeOf(InteractionMode mode);

/// Whether labels can be edited and deleted in this mode.
bool editsLabels(InteractionMode mode);

/// Whether the strips show the marker of what is played.
bool showsPlayMarker(InteractionMode mode);
