#include "batchprocess.h"

#include "kirosaccheader.h"

#include <gmock/gmock.h>

#include <limits>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

class KirobatchSaccSummary : public testing::Test
{
protected:
    void add(double amplitude, double peakVelocity, int duration)
    {
        KiroSaccade saccade;
        saccade.main.amplitude = amplitude;
        saccade.main.peakVelocity = peakVelocity;
        saccade.main.duration = duration;
        m_header.saccades.push_back(saccade);
    }
    BatchRun summary(const QStringList& options = {QStringLiteral("--summary")})
    {
        const QString file = m_folder.path(QStringLiteral("x.sacc"));
        EXPECT_TRUE(m_header.saveAs(KiroString(file)));
        return runBatch(QStringList{QStringLiteral("sacc"), file} + options);
    }

    TestFolder m_folder;
    KiroSaccHeader m_header;
};

} // namespace

TEST_F(KirobatchSaccSummary, GivesTheMeansOfEachSize)
{
    m_header.ratePeriod = 1000;
    m_header.samplesPerPeriod = 500; // 2 ms a sample
    m_header.blinks.resize(3);
    add(6.0, 250.0, 20);
    add(-8.5, 350.0, 25); // one signal: amplitudes are signed
    add(0.5, 40.0, 10);
    add(30.0, 650.0, 50);
    add(9.5, 330.0, 24);
    const BatchRun run = summary();
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, "Saccades: 5\n"
                          "Blinks:   3\n"
                          "\n"
                          "Main sequence (means):\n"
                          "  Amplitude [deg]  Saccades  Mean [deg]  Peak velocity [deg/s]  Duration [ms]\n"
                          "  0 - 1                   1        0.50                     40           20.0\n"
                          "  5 - 10                  3        8.00                    310           46.0\n"
                          "  30 -                    1       30.00                    650          100.0\n");
}

TEST_F(KirobatchSaccSummary, ASizeBelongsToTheClassThatBeginsThere)
{
    for (const double amplitude : {1.0, 2.0, 5.0, 10.0, 15.0, 20.0})
        add(amplitude, 100.0, 30);
    const std::string output = summary().output;
    for (const char* row :
         {"\n  1 - 2                   1        1.00", "\n  2 - 5                   1        2.00",
          "\n  5 - 10                  1        5.00", "\n  10 - 15                 1       10.00",
          "\n  15 - 20                 1       15.00", "\n  20 - 30                 1       20.00"})
        EXPECT_THAT(output, HasSubstr(row));
}

TEST_F(KirobatchSaccSummary, WithoutSaccadesThereAreOnlyTheCounts)
{
    EXPECT_EQ(summary().output, "Saccades: 0\nBlinks:   0\n");
}

TEST_F(KirobatchSaccSummary, NumbersThatAreNoneAreCountedApart)
{
    add(std::numeric_limits<double>::quiet_NaN(), 100.0, 30);
    add(-std::numeric_limits<double>::infinity(), 100.0, 30);
    add(3.0, 200.0, 30);
    const BatchRun run = summary();
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, StartsWith("Saccades: 3\n"));
    EXPECT_THAT(run.output, HasSubstr("\n  2 - 5                   1        3.00"));
    EXPECT_THAT(run.output, HasSubstr("\n  30 -                    1         inf"));
    EXPECT_THAT(run.output, HasSubstr("\nWithout an amplitude: 1\n"));
}

TEST_F(KirobatchSaccSummary, ExcludesJson)
{
    const BatchRun run = summary({QStringLiteral("--summary"), QStringLiteral("--json")});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: --json and --summary exclude each other: give one of them.\n"
                          "Try 'kirobatch sacc --help'.\n");
}

TEST_F(KirobatchSaccSummary, IsInTheHelp)
{
    EXPECT_THAT(runBatch({QStringLiteral("sacc"), QStringLiteral("--help")}).output, HasSubstr("--summary"));
}
