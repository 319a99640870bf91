#include "demofixture.h"
#include "detectionrun.h"
#include "eyesignals.h"
#include "scoring/detectionscore.h"

#include <algorithm>

namespace
{

class DemoDetection : public DemoTest, public testing::WithParamInterface<std::uint32_t>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(make(1.0, GetParam()).ok());
        KiroHeader header;
        ASSERT_TRUE(header.load(KiroString(path())));
        EyeSignals eyes = findEyeSignals(header);
        QString error;
        ASSERT_TRUE(loadEyeSignals(KiroString(path()), header, {}, eyes, error)) << error.toStdString();
        ASSERT_EQ(eyes.detectionType, 3);
        m_found = runDetection(eyes.detectionType, 1000.0, DetectionSettings(), eyes);
    }

    std::vector<Stretch> trueStretches(const char* kind, double leastAmplitude = 0.0) const
    {
        std::vector<Stretch> stretches;
        for (const QJsonValue& event : events(kind)) {
            if (number(event, "amplitude") >= leastAmplitude)
                stretches.push_back({std::int64_t(index(event, "start")), std::int64_t(index(event, "end"))});
        }
        return stretches;
    }
    std::vector<Stretch> foundSaccades() const
    {
        std::vector<Stretch> stretches;
        for (const KiroSaccade& saccade : m_found.saccades)
            stretches.push_back({saccade.main.start, saccade.main.end});
        return stretches;
    }

    static constexpr std::int64_t SampleCount = 60000;
    DetectedMovements m_found;
};

bool meet(const Stretch& a, const Stretch& b)
{
    return a.start <= b.end && b.start <= a.end;
}

bool meetsAny(const Stretch& stretch, const std::vector<Stretch>& others)
{
    return std::any_of(others.begin(), others.end(),
                       [&stretch](const Stretch& other) { return meet(stretch, other); });
}

} // namespace

TEST_P(DemoDetection, FindsNearlyAllSaccades)
{
    const DetectionScore score = scoreDetection(trueStretches("saccades"), foundSaccades(), SampleCount);
    EXPECT_GT(score.f1, 0.93);
    EXPECT_GT(score.kappa, 0.85);
    EXPECT_NEAR(score.onsetErrors.median, 0.0, 6.0);
    EXPECT_NEAR(score.offsetErrors.median, 0.0, 6.0);
}

TEST_P(DemoDetection, FindsSaccadesOfClearSize)
{
    constexpr double ClearSize = 2.0;
    const std::vector<Stretch> all = trueStretches("saccades");
    const std::vector<Stretch> clear = trueStretches("saccades", ClearSize);
    std::vector<Stretch> found;
    // What was found of a smaller one is neither a hit nor a mistake.
    for (const Stretch& stretch : foundSaccades()) {
        if (meetsAny(stretch, clear) || !meetsAny(stretch, all))
            found.push_back(stretch);
    }
    const DetectionScore score = scoreDetection(clear, found, SampleCount);
    RecordProperty("f1", std::to_string(score.f1));
    EXPECT_GT(score.trueCount, 70);
    EXPECT_GT(score.f1, 0.97) << score.hits << " of " << score.trueCount << " in " << score.foundCount;
}

TEST_P(DemoDetection, FindsNothingWhereThereIsNothing)
{
    const std::vector<Stretch> all = trueStretches("saccades");
    for (const Stretch& stretch : foundSaccades())
        EXPECT_TRUE(meetsAny(stretch, all)) << stretch.start;
}

TEST_P(DemoDetection, FindsEveryBlinkAndNoOther)
{
    std::vector<Stretch> found;
    for (const KiroBlink& blink : m_found.blinks)
        found.push_back({blink.start, blink.end});
    const DetectionScore score = scoreDetection(trueStretches("blinks"), found, SampleCount);
    EXPECT_EQ(score.f1, 1.0);
    EXPECT_GT(score.kappa, 0.95);
}

INSTANTIATE_TEST_SUITE_P(Seeds, DemoDetection, testing::Values(1, 2, 3, 5, 4294967295),
                         [](const auto& seed) { return std::to_string(seed.param); });
