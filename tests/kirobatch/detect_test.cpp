#include "batchprocess.h"

#include "detectionprofile.h"
#include "detectionrun.h"
#include "eyesignals.h"
#include "kirosaccheader.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>

#include <cmath>

using testing::HasSubstr;
using testing::StartsWith;

namespace
{

const QString Demo = QStringLiteral(KIRO_TEST_DATA "/../../docs/demo/demo-1min-bino.kiro");
const QString Real = QStringLiteral(KIRO_TEST_DATA "/real/eye_1000hz_S6.edf");

class KirobatchDetect : public testing::Test
{
protected:
    BatchRun detect(const QStringList& arguments) const
    {
        return runBatch(QStringList{QStringLiteral("detect")} + arguments);
    }

    QString path(const char* name) const { return m_folder.path(QString::fromLatin1(name)); }

    /// A writable copy of the demo recording.
    QString demo(const char* name = "demo.kiro") const
    {
        EXPECT_TRUE(QFile::copy(Demo, path(name)));
        return path(name);
    }

    KiroSaccHeader load(const QString& file) const
    {
        KiroSaccHeader header;
        EXPECT_TRUE(header.load(KiroString(file))) << header.error.bytes();
        EXPECT_EQ(header.missingBytes(), 0);
        return header;
    }

    /// A recording of signals with these names that jump by 10 degrees, at 40 raw units for a degree.
    QString jump(const std::vector<const char*>& names, bool calibrated = true) const
    {
        constexpr int FrameCount = 800;
        std::vector<KiroSignal> table;
        for (const char* name : names) {
            KiroSignal signal = makeSignal(name, KiroValue::SignedInt, 2, 1, 1000);
            signal.calibrated = calibrated;
            signal.calibrationFactor = 40.0;
            table.push_back(signal);
        }
        std::string samples;
        for (int i = 0; i < FrameCount; ++i) {
            const double done = std::min(std::max(i - 400, 0), 40) / 40.0;
            for (std::size_t signal = 0; signal < names.size(); ++signal)
                samples += bigEndian(static_cast<std::uint64_t>(std::lround(400.0 * done)), 2);
        }
        return writeRecording(m_folder, batchHeader(table, FrameCount), samples);
    }

    TestFolder m_folder;
};

} // namespace

TEST_F(KirobatchDetect, WritesTheSaccadesBesideTheRecordingAndSaysSo)
{
    const BatchRun run = detect({demo()});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output,
                HasSubstr("demo.sacc': written, with 107 saccades and 14 blinks (Binocular, 1000 Hz)."));
    const KiroSaccHeader header = load(path("demo.sacc"));
    EXPECT_EQ(header.saccades.size(), 107U);
    EXPECT_EQ(header.blinks.size(), 14U);
    EXPECT_EQ(header.detectionType, KiroSaccHeader::Binocular);
    EXPECT_EQ(header.dataFile.toQString(), QFileInfo(path("demo.kiro")).absoluteFilePath());
    EXPECT_EQ(header.relativeDataFile.bytes(), "demo.kiro");
    EXPECT_EQ(header.durationMs, 60000U);
    EXPECT_EQ(header.frequency(), 1000.0);
    EXPECT_EQ(header.params.local, 7);
    EXPECT_EQ(header.params.minSlope, 15000.0);
    EXPECT_EQ(header.rightHorizontal.signalIndex, 0);
    EXPECT_EQ(header.rightHorizontal.factor, 40.0);
    EXPECT_EQ(header.rightHorizontal.offset, 120.0);
    EXPECT_EQ(header.leftVertical.signalIndex, 3);
}

TEST_F(KirobatchDetect, PrintsWhatItsFileHolds)
{
    const BatchRun run = detect({demo(), QStringLiteral("--json")});
    ASSERT_EQ(run.status, 0) << run.errors;
    const BatchRun shown = runBatch({QStringLiteral("sacc"), QStringLiteral("--json"), path("demo.sacc")});
    const auto withoutGreatestAmplitude = [](std::string text, const std::string& limit) {
        const std::size_t place = text.find(limit);
        EXPECT_NE(place, std::string::npos);
        return text.erase(place, limit.size());
    };
    // The file does not store the limits of the amplitude.
    EXPECT_EQ(withoutGreatestAmplitude(run.output, "\"minAmp\":0,\"maxAmp\":500"),
              withoutGreatestAmplitude(shown.output, "\"minAmp\":0,\"maxAmp\":0"));
    EXPECT_THAT(run.output, HasSubstr("\"saccadeCount\":107,\"blinkCount\":14"));
}

TEST_F(KirobatchDetect, FindsTheSameAsTheCore)
{
    const QString recording = demo();
    ASSERT_EQ(detect({recording}).status, 0);
    const KiroSaccHeader stored = load(path("demo.sacc"));
    KiroHeader header;
    ASSERT_TRUE(header.load(KiroString(recording)));
    EyeSignals eyes = findEyeSignals(header);
    QString error;
    ASSERT_TRUE(loadEyeSignals(KiroString(recording), header, EyeLoadOptions(), eyes, error));
    const DetectedMovements found = runDetection(3, 1000.0, DetectionSettings(), eyes);
    ASSERT_EQ(stored.saccades.size(), found.saccades.size());
    for (std::size_t i = 0; i < found.saccades.size(); ++i) {
        EXPECT_EQ(stored.saccades[i].main.start, found.saccades[i].main.start);
        EXPECT_EQ(stored.saccades[i].left.peakAcceleration, found.saccades[i].left.peakAcceleration);
        EXPECT_EQ(stored.saccades[i].right.velocityPerDuration, found.saccades[i].right.velocityPerDuration);
    }
}

TEST_F(KirobatchDetect, AnImportedRecordingNeedsItsSignalsNamed)
{
    ASSERT_EQ(runBatch({QStringLiteral("import"), Real, QStringLiteral("-o"), path("s6.kiro")}).status, 0);
    const BatchRun unnamed = detect({path("s6.kiro")});
    EXPECT_EQ(unnamed.status, 1);
    EXPECT_THAT(unnamed.errors,
                HasSubstr("the horizontal signal of the right eye cannot be told by the names"));
    EXPECT_THAT(unnamed.errors, HasSubstr("Give --right-h SIGNAL. To list the signals: kirobatch signals"));
    EXPECT_FALSE(QFile::exists(path("s6.sacc")));

    const BatchRun named =
        detect({path("s6.kiro"), QStringLiteral("--right-h"), QStringLiteral("eye position"),
                QStringLiteral("--right-v"), QStringLiteral("1")});
    ASSERT_EQ(named.status, 0) << named.errors;
    const KiroSaccHeader header = load(path("s6.sacc"));
    EXPECT_EQ(header.detectionType, KiroSaccHeader::Monocular);
    EXPECT_EQ(header.saccades.size(), 108U);
    EXPECT_EQ(header.rightVertical.factor, 500.0);
}

TEST_F(KirobatchDetect, TheOnlySignalIsTaken)
{
    const BatchRun run = detect({jump({"EOG"})});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_THAT(run.output, HasSubstr("with 1 saccade and 0 blinks (One signal, 1000 Hz)"));
}

TEST_F(KirobatchDetect, TheTypeLimitsTheSignals)
{
    const QString recording = demo();
    const auto type = [&](const char* name) {
        const BatchRun run = detect(
            {recording, QStringLiteral("--force"), QStringLiteral("--type"), QString::fromLatin1(name)});
        EXPECT_EQ(run.status, 0) << run.errors;
        return load(path("demo.sacc"));
    };
    EXPECT_EQ(type("one").detectionType, KiroSaccHeader::OneSignal);
    EXPECT_EQ(type("one").rightVertical.signalIndex, -1);
    EXPECT_TRUE(type("one").blinks.empty());
    EXPECT_EQ(type("monocular").detectionType, KiroSaccHeader::Monocular);
    EXPECT_EQ(type("monocular").leftHorizontal.signalIndex, -1);
    EXPECT_EQ(type("binocular").detectionType, KiroSaccHeader::Binocular);
    EXPECT_EQ(type("auto").detectionType, KiroSaccHeader::Binocular);

    const BatchRun missing =
        detect({jump({"eye position"}), QStringLiteral("--type"), QStringLiteral("binocular")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_THAT(missing.errors, HasSubstr("the vertical signal of the right eye"));
}

TEST_F(KirobatchDetect, ASignalOfTheLeftEyeAsksForBothEyes)
{
    const BatchRun run = detect({jump({"eye movement - horizontal", "eye movement - vertical", "c"}),
                                 QStringLiteral("--left-h"), QStringLiteral("2")});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("the vertical signal of the left eye cannot be told by the names"));
    EXPECT_THAT(run.errors, HasSubstr("Give --left-v SIGNAL."));
}

TEST_F(KirobatchDetect, BlinksMayBeFoundInTheHorizontalSignal)
{
    const BatchRun run = detect({demo(), QStringLiteral("--blinks-horizontal")});
    ASSERT_EQ(run.status, 0) << run.errors;
    const KiroSaccHeader header = load(path("demo.sacc"));
    EXPECT_TRUE(header.blinksHorizontal);
    EXPECT_TRUE(header.blinks.empty());
}

TEST_F(KirobatchDetect, SignalsThatAreNotCalibratedNeedAFactor)
{
    const QString recording = jump({"eye position"}, false);
    const BatchRun without = detect({recording});
    EXPECT_EQ(without.status, 1);
    EXPECT_THAT(without.errors, HasSubstr("signal 'eye position' of "));
    EXPECT_THAT(without.errors,
                HasSubstr("is not calibrated. Give --factor F, the raw units for one degree."));
    EXPECT_FALSE(QFile::exists(path("recording.sacc")));

    const BatchRun with = detect({recording, QStringLiteral("--factor"), QStringLiteral("40")});
    EXPECT_EQ(with.status, 0) << with.errors;
    const KiroSaccHeader header = load(path("recording.sacc"));
    ASSERT_EQ(header.saccades.size(), 1U);
    EXPECT_EQ(header.saccades[0].main.amplitude, 10.0);
    EXPECT_EQ(header.rightHorizontal.factor, 40.0);
    EXPECT_EQ(header.rightHorizontal.offset, 0.0);
}

TEST_F(KirobatchDetect, IfPossibleLeavesARecordingWithoutEyeSignalsAlone)
{
    const BatchRun untold =
        detect({jump({"light", "sound"}), QStringLiteral("--if-possible"), QStringLiteral("--json")});
    EXPECT_EQ(untold.status, 0);
    EXPECT_EQ(untold.output, "");
    EXPECT_THAT(untold.errors,
                HasSubstr("the horizontal signal of the right eye cannot be told by the names"));
    EXPECT_FALSE(QFile::exists(path("recording.sacc")));

    m_folder.write(QStringLiteral("recording.sacc"), "mine");
    const BatchRun uncalibrated =
        detect({jump({"eye position"}, false), QStringLiteral("--if-possible"), QStringLiteral("--force")});
    EXPECT_EQ(uncalibrated.status, 0);
    EXPECT_EQ(uncalibrated.output, "");
    EXPECT_THAT(uncalibrated.errors, HasSubstr("signal 'eye position' of "));
    EXPECT_THAT(uncalibrated.errors, HasSubstr("is not calibrated."));
    EXPECT_EQ(fileBytes(KiroString(path("recording.sacc"))), "mine");
}

TEST_F(KirobatchDetect, IfPossibleDetectsAsEverWhereItIs)
{
    const BatchRun run = detect({demo(), QStringLiteral("--if-possible")});
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(load(path("demo.sacc")).saccades.size(), 107U);
}

TEST_F(KirobatchDetect, IfPossibleHidesNoFailure)
{
    const BatchRun unknown = detect({jump({"light", "sound"}), QStringLiteral("--if-possible"),
                                     QStringLiteral("--right-h"), QStringLiteral("eye")});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_THAT(unknown.errors, HasSubstr("'eye'"));
    m_folder.write(QStringLiteral("text.kiro"), "no recording");
    const BatchRun unreadable = detect({path("text.kiro"), QStringLiteral("--if-possible")});
    EXPECT_EQ(unreadable.status, 1);
    EXPECT_THAT(unreadable.errors, HasSubstr("it is no recording"));
    QFile file(demo());
    ASSERT_TRUE(file.resize(file.size() / 2));
    const BatchRun damaged = detect({path("demo.kiro"), QStringLiteral("--if-possible")});
    EXPECT_EQ(damaged.status, 1);
    EXPECT_THAT(damaged.errors, HasSubstr("Error while loading horizontal eye position samples!"));
}

TEST_F(KirobatchDetect, ProfilesSetTheParameters)
{
    SaccadeDetectionParams params = SaccadeDetectionParams::atStart();
    params.minSpeed = 300.0;
    ASSERT_TRUE(writeSaccadeProfile(path("p.sdp"), params));
    BlinkDetectionParams blinkParams = BlinkDetectionParams::atStart();
    blinkParams.minAmplitude = 400.0;
    ASSERT_TRUE(writeBlinkProfile(path("p.bdp"), blinkParams));
    const QStringList arguments = {demo(),        QStringLiteral("--params"),
                                   path("p.sdp"), QStringLiteral("--blink-params"),
                                   path("p.bdp"), QStringLiteral("--force")};

    const BatchRun without = detect(arguments);
    EXPECT_EQ(without.status, 0);
    EXPECT_THAT(without.errors, HasSubstr("the greatest amplitude of the profile is read as 0"));
    EXPECT_THAT(without.errors, HasSubstr("Give --max-amplitude DEG."));
    EXPECT_THAT(without.errors, HasSubstr("no saccades were found in "));
    EXPECT_TRUE(load(path("demo.sacc")).saccades.empty());

    const BatchRun with =
        detect(arguments + QStringList{QStringLiteral("--max-amplitude"), QStringLiteral("500")});
    EXPECT_EQ(with.status, 0);
    EXPECT_EQ(with.errors, "");
    const KiroSaccHeader header = load(path("demo.sacc"));
    EXPECT_EQ(header.params.minSpeed, 300.0);
    EXPECT_GT(header.saccades.size(), 10U);
    EXPECT_TRUE(header.blinks.empty());
    for (const KiroSaccade& saccade : header.saccades)
        EXPECT_GE(saccade.main.peakVelocity, 300.0);
}

TEST_F(KirobatchDetect, AProfileThatCannotBeReadIsNamed)
{
    const BatchRun run = detect({demo(), QStringLiteral("--params"), path("none.sdp")});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("cannot read the saccade profile (.sdp) "));
    EXPECT_THAT(run.errors, HasSubstr("none.sdp"));
    EXPECT_FALSE(QFile::exists(path("demo.sacc")));
}

TEST_F(KirobatchDetect, AnExistingFileIsReplacedOnlyByForce)
{
    const QString recording = demo();
    m_folder.write(QStringLiteral("demo.sacc"), "mine");
    const BatchRun refused = detect({recording});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("is there already. Give --force to replace it"));
    QFile file(path("demo.sacc"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "mine");
    EXPECT_EQ(detect({recording, QStringLiteral("--force")}).status, 0);
    EXPECT_EQ(load(path("demo.sacc")).saccades.size(), 107U);
}

TEST_F(KirobatchDetect, TheRecordingIsNeverReplaced)
{
    const QString recording = demo();
    const BatchRun run = detect({recording, QStringLiteral("-o"), recording, QStringLiteral("--force")});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, HasSubstr("the output would replace FILE itself"));
    EXPECT_EQ(QFileInfo(recording).size(), QFileInfo(Demo).size());
}

TEST_F(KirobatchDetect, ThePathOfTheRecordingIsStoredAsSeenFromTheOutput)
{
    const QString recording = demo();
    ASSERT_TRUE(QDir(path(".")).mkpath(QStringLiteral("out/deep")));
    ASSERT_EQ(detect({recording, QStringLiteral("-o"), path("out/deep/x.sacc")}).status, 0);
    EXPECT_EQ(load(path("out/deep/x.sacc")).relativeDataFile.bytes(), "../../demo.kiro");
}

TEST_F(KirobatchDetect, WhatCannotBeWrittenIsSaid)
{
    const BatchRun run = detect({demo(), QStringLiteral("-o"), path("no/such/folder/x.sacc")});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("cannot write the saccades: "));
}

TEST_F(KirobatchDetect, ADamagedRecordingGivesTheReasonAndWritesNothing)
{
    QFile file(demo());
    ASSERT_TRUE(file.resize(file.size() / 2));
    const BatchRun run = detect({path("demo.kiro")});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors, HasSubstr("Error while loading horizontal eye position samples!"));
    EXPECT_THAT(run.errors, HasSubstr("'kirobatch check' tells what is wrong"));
    EXPECT_FALSE(QFile::exists(path("demo.sacc")));
    m_folder.write(QStringLiteral("text.kiro"), "no recording");
    EXPECT_THAT(detect({path("text.kiro")}).errors, HasSubstr("it is no recording"));
    const QString empty = writeRecording(m_folder, batchHeader({}, 0), "");
    EXPECT_THAT(detect({empty}).errors, HasSubstr("does not contain any data"));
}

TEST_F(KirobatchDetect, SignalsOfAnotherRateAreWarnedOf)
{
    std::vector<KiroSignal> table = {
        makeSignal("eye movement - horizontal", KiroValue::SignedInt, 2, 2, 1000),
        makeSignal("eye movement - vertical", KiroValue::SignedInt, 2, 1, 500)};
    const QString recording = writeRecording(m_folder, batchHeader(table, 100), std::string(600, '\0'));
    const BatchRun run = detect({recording, QStringLiteral("--factor"), QStringLiteral("1")});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.errors, HasSubstr("signal 'eye movement - vertical' has another rate than"));
}

namespace
{

struct WrongDetect
{
    const char* name;
    std::vector<const char*> arguments;
    const char* message;
};

void PrintTo(const WrongDetect& wrong, std::ostream* stream)
{
    *stream << wrong.name;
}

class KirobatchDetectUsage : public testing::TestWithParam<WrongDetect>
{
};

} // namespace

TEST_P(KirobatchDetectUsage, EndsWithStatus2AndPointsToTheHelp)
{
    QStringList arguments = {QStringLiteral("detect"), QStringLiteral("x.kiro")};
    for (const char* argument : GetParam().arguments)
        arguments << QString::fromLatin1(argument);
    const BatchRun run = runBatch(arguments);
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.errors, StartsWith(std::string("kirobatch: ") + GetParam().message));
    EXPECT_THAT(run.errors, HasSubstr("Try 'kirobatch detect --help'."));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, KirobatchDetectUsage,
    testing::Values(
        WrongDetect{
            "Type", {"--type", "both"}, "--type takes auto, one, monocular or binocular, not 'both'."},
        WrongDetect{"Factor", {"--factor", "0"}, "--factor '0' is no number above 0."},
        WrongDetect{"FactorText", {"--factor", "4,5"}, "--factor '4,5' is no number above 0."},
        WrongDetect{"Infinite", {"--factor", "inf"}, "--factor 'inf' is no number above 0."},
        WrongDetect{"Amplitude", {"--max-amplitude", "-1"}, "--max-amplitude '-1' is no number above 0."},
        WrongDetect{"Output", {"-o", ""}, "the output is empty"}),
    [](const auto& parameter) { return parameter.param.name; });
