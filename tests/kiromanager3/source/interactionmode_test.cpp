#include "interactionmode.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

struct ModeCase
{
    const char* name;
    InteractionMode mode;
    int number;
    UserMode userMode;
    int labelType; ///< 0 for none
    bool editsLabels;
    bool showsPlayMarker;
};

std::string nameOf(const testing::TestParamInfo<ModeCase>& info)
{
    return info.param.name;
}

class InteractionModeTest : public testing::TestWithParam<ModeCase>
{
};

} // namespace

TEST_P(InteractionModeTest, IsAsInTheTable)
{
    const ModeCase& expected = GetParam();
    EXPECT_EQ(int(expected.mode), expected.number);
    EXPECT_EQ(userModeOf(expected.mode), expected.userMode);
    EXPECT_EQ(int(labelTypeOf(expected.mode).value_or(KiroLabel::Type(0))), expected.labelType);
    EXPECT_EQ(editsLabels(expected.mode), expected.editsLabels);
    EXPECT_EQ(showsPlayMarker(expected.mode), expected.showsPlayMarker);
}

INSTANTIATE_TEST_SUITE_P(
    AllModes, InteractionModeTest,
    testing::Values(
        ModeCase{"Arrow", InteractionMode::Arrow, 1, UserModeArrow, 0, true, false},
        ModeCase{"Measure", InteractionMode::Measure, 2, UserModeMeasure, 0, false, false},
        ModeCase{"Calibrate", InteractionMode::Calibrate, 3, UserModePoint, 0, false, false},
        ModeCase{"Point", InteractionMode::Point, 4, UserModePoint, 1, true, false},
        ModeCase{"SignalLine", InteractionMode::SignalLine, 5, UserModeLine, 2, true, false},
        ModeCase{"TimeLine", InteractionMode::TimeLine, 6, UserModeLine, 3, true, false},
        ModeCase{"SignalPeriod", InteractionMode::SignalPeriod, 7, UserModeSignalSelection, 4, true, false},
        ModeCase{"TimePeriod", InteractionMode::TimePeriod, 8, UserModeTimeSelection, 5, true, false},
        ModeCase{"NoiseStat", InteractionMode::NoiseStat, 9, UserModeSignalSelection, 0, false, false},
        ModeCase{"AudioPlayer", InteractionMode::AudioPlayer, 10, UserModeLine, 0, false, true},
        ModeCase{"Zoom", InteractionMode::Zoom, 11, UserModeTimeSelection, 0, false, false},
        ModeCase{"VideoPlayer", InteractionMode::VideoPlayer, 12, UserModeLine, 0, false, true}),
    nameOf);
