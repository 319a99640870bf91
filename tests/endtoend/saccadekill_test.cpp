// What is left when the program is killed while saccades are edited.

#include "appconfig.h"
#include "detectionrun.h"
#include "editjournal.h"
#include "eyesignals.h"
#include "kiroreader.h"
#include "saccadestate.h"
#include "support/eyerecording.h"
#include "support/recordingbuilder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <gmock/gmock.h>

#include <random>

namespace
{

using testing::AnyOf;

constexpr int PatienceMs = 60000;
constexpr int Kills = 50;
/// The last line that a kill waits for, and how many actions are ready behind it.
constexpr int LastLine = 60;
constexpr int ActionsBehind = 60;

std::string hashOf(const std::string& bytes)
{
    return QCryptographicHash::hash(QByteArray::fromStdString(bytes), QCryptographicHash::Sha256)
        .toHex()
        .toStdString();
}

/// After one action of the script.
struct Step
{
    std::string state; ///< hash of what a save would write
    std::string file;  ///< hash of the saved file
};

class SaccadeKillTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(appConfig().setConfigFile(path("settings.ini")));
        ASSERT_NO_FATAL_FAILURE(writeFiles());
        readSteps();
        ASSERT_EQ(m_steps.size(), std::size_t(LastLine + ActionsBehind + 1));
    }

    QString path(const char* name) const { return m_folder.path(QLatin1String(name)); }

    /// A recording of both eyes over two minutes, and its saccade file.
    void writeFiles()
    {
        constexpr int SampleCount = 120000;
        constexpr int Interval = 500;
        std::vector<int> starts;
        for (int start = Interval; start < SampleCount - Interval; start += Interval)
            starts.push_back(start);
        std::vector<double> degrees = jumpingEye(SampleCount, starts, 10.0);
        std::vector<EyeRecordingSignal> signalTable;
        for (const char* name : {"right eye - horizontal", "right eye - vertical", "left eye - horizontal",
                                 "left eye - vertical"}) {
            signalTable.push_back({name, degrees});
            for (double& value : degrees)
                value *= 0.75;
        }
        const KiroString recording = m_folder.write(QStringLiteral("eye.kiro"), eyeRecording(signalTable));

        KiroReader reader;
        ASSERT_TRUE(reader.setFile(recording));
        EyeSignals eyes = findEyeSignals(reader.header());
        QString error;
        ASSERT_TRUE(loadEyeSignals(recording, reader.header(), EyeLoadOptions(), eyes, error))
            << error.toStdString();
        const DetectionSettings settings;
        const DetectedMovements found = runDetection(eyes.detectionType, 1000.0, settings, eyes);
        ASSERT_EQ(found.saccades.size(), starts.size());
        KiroSaccHeader header;
        describeDetection(header, found, settings, eyes, reader.header(), recording);
        header.setDataFiles(recording, "eye.kiro");
        ASSERT_TRUE(header.saveAs(path("eye.sacc").toLocal8Bit().constData())) << header.error.bytes();
        m_opened = fileBytes(path("eye.sacc").toLocal8Bit().constData());
    }

    /// As on the first day: the opened file, and nothing left behind.
    void startEditor(QProcess& editor, int actions, const QStringList& more = {})
    {
        m_folder.write(QStringLiteral("eye.sacc"), m_opened);
        QDir(EditJournal::journalFolder()).removeRecursively();
        editor.start(QStringLiteral(SACCADEEDITOR),
                     QStringList{path("settings.ini"), path("eye.sacc"), QString::number(actions)} + more);
        ASSERT_TRUE(editor.waitForStarted(PatienceMs));
    }

    /// What the script does when nobody disturbs it.
    void readSteps()
    {
        QProcess editor;
        ASSERT_NO_FATAL_FAILURE(startEditor(editor, LastLine + ActionsBehind, {QStringLiteral("hash")}));
        ASSERT_TRUE(editor.waitForFinished(PatienceMs));
        EXPECT_EQ(editor.exitCode(), 0) << editor.readAllStandardError().toStdString();
        while (editor.canReadLine()) {
            const QList<QByteArray> words = editor.readLine().trimmed().split(' ');
            ASSERT_EQ(words.size(), 3);
            ASSERT_EQ(words[0].toInt(), int(m_steps.size()));
            m_steps.push_back({words[1].toStdString(), words[2].toStdString()});
        }
    }

    /// Kills the editor some time after it has printed the number of an action. The number of the last action
    /// that was complete then.
    int killAfter(int line, int microseconds)
    {
        QProcess editor;
        startEditor(editor, line + ActionsBehind);
        int complete = -1;
        QElapsedTimer clock;
        clock.start();
        while (complete < line && clock.elapsed() < PatienceMs) {
            editor.waitForReadyRead(PatienceMs);
            readNumbers(editor, complete);
        }
        QThread::usleep(unsigned(microseconds));
        editor.kill();
        EXPECT_TRUE(editor.waitForFinished(PatienceMs));
        EXPECT_EQ(editor.exitStatus(), QProcess::CrashExit)
            << "it has ended by itself: " << editor.readAllStandardError().toStdString();
        readNumbers(editor, complete);
        EXPECT_GE(complete, line);
        return complete;
    }

    static void readNumbers(QProcess& editor, int& last)
    {
        while (editor.canReadLine())
            last = editor.readLine().trimmed().toInt();
    }

    const Step& step(int number) const { return m_steps.at(std::size_t(number)); }

    TestFolder m_folder;
    std::string m_opened; ///< bytes of the saccade file
    std::vector<Step> m_steps;
};

} // namespace

TEST_F(SaccadeKillTest, EditingLeavesTheFileWholeAndLosesOneActionAtMost)
{
    std::mt19937 random(1);
    std::uniform_int_distribution<int> anyLine(0, LastLine);
    std::uniform_int_distribution<int> anyDelay(0, 12000);
    int withEdits = 0;
    for (int kill = 0; kill < Kills; ++kill) {
        const int line = anyLine(random);
        const int delay = anyDelay(random);
        SCOPED_TRACE("killed " + std::to_string(delay) + " microseconds after action " +
                     std::to_string(line));
        const int complete = killAfter(line, delay);
        if (HasFailure())
            return;
        // The next action may be in any state but a broken one.
        const Step& last = step(complete);
        const Step& next = step(std::min(complete + 1, line + ActionsBehind));

        KiroSaccHeader saved;
        ASSERT_TRUE(saved.load(path("eye.sacc").toLocal8Bit().constData())) << saved.error.bytes();
        EXPECT_EQ(saved.missingBytes(), 0);
        EXPECT_THAT(hashOf(fileBytes(path("eye.sacc").toLocal8Bit().constData())),
                    AnyOf(last.file, next.file));

        std::vector<LeftEdits> left = EditJournal::leftBehind(EditJournal::journalFolder());
        ASSERT_LE(left.size(), 1u);
        if (left.empty()) {
            EXPECT_THAT(hashOf(saved.toBytes()), AnyOf(last.state, next.state)) << "edits are lost";
            continue;
        }
        ++withEdits;
        EXPECT_EQ(left.front().saccadeFile(), path("eye.sacc"));
        SaccadeState state;
        ASSERT_TRUE(left.front().read(state));
        EXPECT_THAT(hashOf(state.header.toBytes()), AnyOf(last.state, next.state)) << "edits are lost";
    }
    EXPECT_GT(withEdits, Kills / 4) << "too few kills had something to lose";
    EXPECT_LT(withEdits, Kills) << "no kill came when all was saved";
}
