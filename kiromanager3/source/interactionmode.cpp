#include "interactionmode.h"

UserMode userModeOf(InteractionMode mode)
{
    switch (mode) {
    case InteractionMode::Arrow:
        break;
    case InteractionMode::Measure:
        return UserModeMeasure;
    case InteractionMode::Calibrate:
    case InteractionMode::Point:
        return UserModePoint;
    case InteractionMode::SignalLine:
    case InteractionMode::TimeLine:
    case InteractionMode::AudioPlayer:
    case InteractionMode::VideoPlayer:
        return UserModeLine;
    case InteractionMode::SignalPeriod:
    case InteractionMode::NoiseStat:
        return UserModeSignalSelection;
    case InteractionMode::TimePeriod:
    case InteractionMode::Zoom:
        return UserModeTimeSelection;
    }
    return UserModeArrow;
}

std::optional<KiroLabel::Type> labelTypeOf(InteractionMode mode)
{
    switch (mode) {
    case InteractionMode::Point:
        return KiroLabel::Point;
    case InteractionMode::SignalLine:
        return KiroLabel::SignalLine;
    case InteractionMode::TimeLine:
        return KiroLabel::TimeLine;
    case InteractionMode::SignalPeriod:
        return KiroLabel::SignalPeriod;
    case InteractionMode::TimePeriod:
        return KiroLabel::TimePeriod;
    default:
        return std::nullopt;
    }
}

bool editsLabels(InteractionMode mode)
{
    return mode == InteractionMode::Arrow || labelTypeOf(mode).has_value();
}

bool showsPlayMarker(InteractionMode mode)
{
    return mode == InteractionMode::AudioPlayer || mode == InteractionMode::VideoPlayer;
}
