#include "detectionscore.h"

#include <gtest/gtest.h>

TEST(DetectionScoreTest, TheSameStretchesAgreeWholly)
{
    const std::vector<Stretch> stretches = {{10, 19}, {50, 69}};
    const DetectionScore score = scoreDetection(stretches, stretches, 100);
    EXPECT_EQ(score.hits, 2);
    EXPECT_EQ(score.f1, 1.0);
    EXPECT_EQ(score.kappa, 1.0);
    EXPECT_EQ(score.onsetErrors.median, 0.0);
}

TEST(DetectionScoreTest, OfTwoFoundStretchesTheOneThatSharesMoreIsTheHit)
{
    const DetectionScore score = scoreDetection({{10, 29}}, {{5, 14}, {16, 31}}, 100);
    EXPECT_EQ(score.hits, 1);
    EXPECT_EQ(score.f1, 2.0 / 3.0);
    EXPECT_EQ(score.onsetErrors.median, 6.0);
    EXPECT_EQ(score.offsetErrors.median, 2.0);
}

TEST(DetectionScoreTest, AFoundStretchServesOneTrueOneOnly)
{
    const DetectionScore score = scoreDetection({{10, 19}, {30, 39}}, {{15, 35}}, 100);
    EXPECT_EQ(score.hits, 1);
    EXPECT_EQ(score.f1, 2.0 / 3.0);
    EXPECT_EQ(score.onsetErrors.median, 5.0);
}

TEST(DetectionScoreTest, TouchingStretchesShareNothing)
{
    EXPECT_EQ(scoreDetection({{10, 19}}, {{20, 29}}, 100).hits, 0);
    EXPECT_EQ(scoreDetection({{10, 19}}, {{19, 29}}, 100).hits, 1);
}

TEST(DetectionScoreTest, KappaIsAgreementBeyondChance)
{
    // Of 100 samples 10 are in both, 10 in either, 70 in none: observed 0.8, by chance 0.2 * 0.2 + 0.8 * 0.8.
    const DetectionScore score = scoreDetection({{0, 19}}, {{10, 29}}, 100);
    EXPECT_DOUBLE_EQ(score.kappa, (0.8 - 0.68) / (1.0 - 0.68));
    EXPECT_EQ(scoreDetection({{0, 19}}, {}, 100).kappa, 0.0);
    EXPECT_EQ(scoreDetection({}, {}, 100).kappa, 1.0);
}

TEST(DetectionScoreTest, SpreadTakesTheNearestRank)
{
    std::vector<double> values;
    for (int i = 100; i >= 1; --i)
        values.push_back(i);
    const Spread spread = spreadOf(values);
    EXPECT_EQ(spread.low, 5.0);
    EXPECT_EQ(spread.median, 50.0);
    EXPECT_EQ(spread.high, 95.0);
    EXPECT_EQ(spreadOf({}).median, 0.0);
}
