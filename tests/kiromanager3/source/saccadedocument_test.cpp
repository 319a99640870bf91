#include "saccadedocument.h"

#include "eyerecording.h"
#include "kiroreader.h"
#include "recordingbuilder.h"
#include "saccadelists.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

const std::vector<int> Starts = {1000, 2000, 3000, 4000, 5000};

class SaccadeDocumentTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const std::vector<double> degrees = jumpingEye(8000, Starts, 10.0);
        m_folder.write(QStringLiteral("eye.kiro"), eyeRecording({{"eye position", degrees}}));
    }

    QString recording() const { return m_folder.path(QStringLiteral("eye.kiro")); }
    QString saccadeFile() const { return m_folder.path(QStringLiteral("eye.sacc")); }
    QString journalFolder() const { return m_folder.path(QStringLiteral("journals")); }

    /// Detects in the recording, as the window does.
    void detect(SaccadeDocument& document)
    {
        KiroReader reader;
        ASSERT_TRUE(reader.setFile(KiroString(recording())));
        EyeSignals eyes;
        eyes[EyeAxis::RightHorizontal].signalIndex = 0;
        QString error;
        ASSERT_TRUE(loadEyeSignals(KiroString(recording()), reader.header(), EyeLoadOptions(), eyes, error));
        DetectionSettings settings;
        settings.saccades = document.state().saccadeParams;
        const DetectedMovements found = runDetection(1, 1000.0, settings, eyes);
        document.takeDetection(found, settings, std::move(eyes), reader.header(), recording());
    }

    /// Opens the saccade file, as the window does.
    void open(SaccadeDocument& document)
    {
        KiroSaccHeader header;
        ASSERT_TRUE(header.load(KiroString(saccadeFile())));
        KiroReader reader;
        ASSERT_TRUE(reader.setFile(KiroString(findRecording(header, saccadeFile()))));
        EyeSignals eyes = signalsOf(header);
        EyeLoadOptions options;
        options.storedCalibration = true;
        QString error;
        ASSERT_TRUE(loadEyeSignals(KiroString(recording()), reader.header(), options, eyes, error));
        document.takeFile(header, saccadeFile(), std::move(eyes), recording());
    }

    /// Saves a detection, and cannot save a change of it.
    void failToSave(SaccadeDocument& document)
    {
        detect(document);
        ASSERT_TRUE(document.saveAs(saccadeFile()));
        document.removeCurrent();
        ASSERT_TRUE(QFile::remove(saccadeFile()));
        ASSERT_TRUE(QDir(m_folder.path(QString())).mkdir(saccadeFile()));
        EXPECT_FALSE(document.save());
    }

    int journalCount() const { return int(EditJournal::leftBehind(journalFolder()).size()); }

    TestFolder m_folder;
};

TEST_F(SaccadeDocumentTest, IsEmptyAtFirst)
{
    SaccadeDocument document(journalFolder());
    EXPECT_FALSE(document.hasRecording());
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(document.sampleCount(), 0);
    EXPECT_EQ(document.largestAmplitude(), 10.0);
    EXPECT_EQ(document.largestVelocity(), 100.0);
}

TEST_F(SaccadeDocumentTest, TakesADetectionAsUnsaved)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    EXPECT_EQ(document.saccades().size(), 5);
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ(document.currentSaccade(), 0);
    EXPECT_EQ(document.sampleCount(), 8000);
    EXPECT_EQ(document.state().dataFile, recording());
    EXPECT_TRUE(document.state().saccadeFile.isEmpty());
    const KiroSaccHeader& header = document.state().header;
    EXPECT_EQ(header.dataFileName(true).toQString(), recording());
    EXPECT_TRUE(header.dataFileName(false).isEmpty());
    EXPECT_EQ(header.signalFactor(KiroSaccHeader::RightHorizontal), 100.0);
    EXPECT_EQ(header.durationMs, 8000u);
    double largest = 0.0;
    for (const KiroSaccade& saccade : document.saccades())
        largest = std::max(largest, std::abs(saccade.main.amplitude));
    EXPECT_EQ(document.largestAmplitude(), largest);
    EXPECT_NEAR(largest, 10.0, 0.5);
}

TEST_F(SaccadeDocumentTest, HasTheStatedScalesWithoutSaccades)
{
    SaccadeDocument document(journalFolder());
    SaccadeDetectionParams none = SaccadeDetectionParams::atStart();
    none.minSpeed = 1e6;
    document.setParams(none, BlinkDetectionParams::atStart());
    detect(document);
    EXPECT_TRUE(document.saccades().isEmpty());
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ(document.largestAmplitude(), 10.0);
    EXPECT_EQ(document.largestVelocity(), 500.0);
}

TEST_F(SaccadeDocumentTest, SavesAsANewFileThatOpensAgain)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    ASSERT_TRUE(document.saveAs(saccadeFile()));
    EXPECT_FALSE(document.isModified());
    EXPECT_EQ(document.state().saccadeFile, saccadeFile());
    EXPECT_EQ(document.state().header.dataFileName(false).toQString(), QStringLiteral("eye.kiro"));

    SaccadeDocument other(journalFolder());
    open(other);
    EXPECT_TRUE(sameList(other.saccades(), document.saccades()));
    EXPECT_FALSE(other.isModified());
    const std::string bytes = fileBytes(KiroString(saccadeFile()));
    ASSERT_TRUE(other.save());
    EXPECT_EQ(fileBytes(KiroString(saccadeFile())), bytes);
}

TEST_F(SaccadeDocumentTest, SavesToTheFileThatItWasSavedAs)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    ASSERT_TRUE(document.saveAs(saccadeFile()));
    document.removeCurrent();
    EXPECT_TRUE(document.isModified());
    ASSERT_TRUE(document.save());
    EXPECT_FALSE(document.isModified());
    KiroSaccHeader saved;
    ASSERT_TRUE(saved.load(KiroString(saccadeFile())));
    EXPECT_EQ(saved.saccades.size(), 4u);
}

TEST_F(SaccadeDocumentTest, KeepsThePathsAfterAFailedSaveAs)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    ASSERT_TRUE(document.saveAs(saccadeFile()));
    document.removeCurrent();
    EXPECT_FALSE(document.saveAs(m_folder.path(QStringLiteral("missing/x.sacc"))));
    EXPECT_FALSE(document.error().isEmpty());
    EXPECT_TRUE(document.isModified());
    EXPECT_EQ(document.state().saccadeFile, saccadeFile());
    EXPECT_EQ(document.state().header.dataFileName(true).toQString(), recording());
    EXPECT_EQ(document.state().header.dataFileName(false).toQString(), QStringLiteral("eye.kiro"));
}

TEST_F(SaccadeDocumentTest, CountsAsSavedAfterAFailedSaveYetKeepsTheEdits)
{
    {
        SaccadeDocument document(journalFolder());
        ASSERT_NO_FATAL_FAILURE(failToSave(document));
        EXPECT_FALSE(document.isModified());
        EXPECT_TRUE(document.hasFailedToSave());
        document.forget();
    }
    const auto left = EditJournal::leftBehind(journalFolder());
    ASSERT_EQ(left.size(), 1u);
    SaccadeState state;
    ASSERT_TRUE(left[0].read(state));
    EXPECT_EQ(state.saccades.size(), 4);
}

TEST_F(SaccadeDocumentTest, KeepsWhatCouldNotBeSavedWhenSomethingElseIsShown)
{
    SaccadeDocument document(journalFolder());
    ASSERT_NO_FATAL_FAILURE(failToSave(document));
    detect(document);
    const auto left = EditJournal::leftBehind(journalFolder());
    ASSERT_EQ(left.size(), 1u);
    EXPECT_EQ(left[0].saccadeFile(), saccadeFile());
}

TEST_F(SaccadeDocumentTest, KeepsTheLastStateAfterAFailedSaveAlsoThroughUndoAndRedo)
{
    {
        SaccadeDocument document(journalFolder());
        ASSERT_NO_FATAL_FAILURE(failToSave(document));
        document.undoStack().undo();
        EXPECT_TRUE(document.isModified());
        document.undoStack().redo();
        EXPECT_FALSE(document.isModified());
        EXPECT_EQ(document.saccades().size(), 4);
        document.forget();
    }
    const auto left = EditJournal::leftBehind(journalFolder());
    ASSERT_EQ(left.size(), 1u);
    SaccadeState state;
    ASSERT_TRUE(left[0].read(state));
    EXPECT_EQ(state.saccades.size(), 4) << "as it was when the window closed";
}

TEST_F(SaccadeDocumentTest, NeverSavesOverTheRecording)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    const std::string bytes = fileBytes(KiroString(recording()));
    ASSERT_TRUE(QFile::link(recording(), m_folder.path(QStringLiteral("link.sacc"))));
    for (const QString& path : {recording(), m_folder.path(QStringLiteral("link.sacc"))}) {
        EXPECT_FALSE(document.saveAs(path));
        EXPECT_EQ(document.error(), QStringLiteral("this is the recording itself"));
    }
    EXPECT_TRUE(fileBytes(KiroString(recording())) == bytes);
    EXPECT_TRUE(document.isModified());
    EXPECT_TRUE(document.state().saccadeFile.isEmpty());
}

TEST_F(SaccadeDocumentTest, NeverSavesOverAnotherRecording)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    const QString copy = m_folder.path(QStringLiteral("copy.kiro"));
    ASSERT_TRUE(QFile::copy(recording(), copy));
    EXPECT_FALSE(document.saveAs(copy));
    EXPECT_EQ(document.error(), QStringLiteral("there is a recording of this name, which is not replaced"));
    EXPECT_TRUE(fileBytes(KiroString(copy)) == fileBytes(KiroString(recording())));
    EXPECT_TRUE(document.isModified());
    EXPECT_TRUE(document.state().saccadeFile.isEmpty());
}

TEST_F(SaccadeDocumentTest, UndoesAndRedoesEdits)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    ASSERT_TRUE(document.saveAs(saccadeFile()));
    const QList<KiroSaccade> before = document.saccades();
    ASSERT_EQ(document.addSaccade(1.5, 1.55).outcome, SaccadeAddition::Outcome::Added);
    EXPECT_EQ(document.currentSaccade(), 1);
    document.removeSelected({0, 3, 5});
    const QList<KiroSaccade> after = document.saccades();
    EXPECT_EQ(after.size(), 3);

    document.undoStack().undo();
    EXPECT_EQ(document.saccades().size(), 6);
    document.undoStack().undo();
    EXPECT_TRUE(sameList(document.saccades(), before));
    EXPECT_FALSE(document.isModified());
    document.undoStack().redo();
    EXPECT_TRUE(document.isModified());
    document.undoStack().redo();
    EXPECT_TRUE(sameList(document.saccades(), after));
}

TEST_F(SaccadeDocumentTest, FindsTheLargestMeasuresAnewAfterEdits)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    document.removeSelected({0, 1, 2, 3, 4});
    EXPECT_EQ(document.largestAmplitude(), 10.0);
    EXPECT_EQ(document.largestVelocity(), 500.0);
    ASSERT_EQ(document.addSaccade(1.005, 1.035).outcome, SaccadeAddition::Outcome::Added);
    EXPECT_EQ(document.largestAmplitude(), document.saccades()[0].main.amplitude);
    EXPECT_EQ(document.largestVelocity(), document.saccades()[0].main.peakVelocity);
}

TEST_F(SaccadeDocumentTest, RefusesASaccadeShorterThanTheParametersSay)
{
    SaccadeDocument document(journalFolder());
    SaccadeDetectionParams params = SaccadeDetectionParams::atStart();
    detect(document);
    params.minTime = 30;
    document.setParams(params, BlinkDetectionParams::atStart());
    const SaccadeAddition addition = document.addSaccade(1.5, 1.529);
    EXPECT_EQ(addition.outcome, SaccadeAddition::Outcome::TooShort);
    EXPECT_EQ(addition.shortest, 30);
    EXPECT_EQ(document.addSaccade(1.5, 1.53).outcome, SaccadeAddition::Outcome::Added);
}

TEST_F(SaccadeDocumentTest, DetectsAgainAndCanUndoIt)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    document.removeSelected({1, 2});
    ASSERT_TRUE(document.saveAs(saccadeFile()));
    const QList<KiroSaccade> edited = document.saccades();
    document.setCurrentSaccade(1);
    SaccadeDetectionParams params = SaccadeDetectionParams::atStart();
    params.gap = 33;
    document.setParams(params, BlinkDetectionParams::atStart());
    EXPECT_TRUE(document.redetect());
    EXPECT_EQ(document.saccades().size(), 5);
    EXPECT_EQ(document.currentSaccade(), 3) << "the one that was current, which begins at the same place";
    EXPECT_EQ(document.state().header.params.gap, 33);
    EXPECT_EQ(document.state().header.saccades.size(), 5u);
    EXPECT_TRUE(document.isModified());
    document.undoStack().undo();
    EXPECT_TRUE(sameList(document.saccades(), edited));
    EXPECT_EQ(document.state().header.params.gap, SaccadeDetectionParams::atStart().gap);
    EXPECT_FALSE(document.isModified());
}

TEST_F(SaccadeDocumentTest, TellsIfDetectingAgainFindsNothing)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    SaccadeDetectionParams none = SaccadeDetectionParams::atStart();
    none.minSpeed = 1e6;
    document.setParams(none, BlinkDetectionParams::atStart());
    EXPECT_FALSE(document.redetect());
    EXPECT_TRUE(document.saccades().isEmpty());
    EXPECT_EQ(document.currentSaccade(), 0);
}

TEST_F(SaccadeDocumentTest, HoldsTheCurrentSaccadeWithinTheList)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    document.setCurrentSaccade(-3);
    EXPECT_EQ(document.currentSaccade(), 0);
    document.setCurrentSaccade(99);
    EXPECT_EQ(document.currentSaccade(), 4);
}

TEST_F(SaccadeDocumentTest, KeepsEditsForAfterACrash)
{
    QList<KiroSaccade> edited;
    {
        SaccadeDocument document(journalFolder());
        detect(document);
        EXPECT_EQ(journalCount(), 0) << "its owner is alive";
        ASSERT_EQ(document.addSaccade(1.5, 1.55).outcome, SaccadeAddition::Outcome::Added);
        document.removeSelected({4});
        edited = document.saccades();
        // Gone without save() or forget(), as in a crash.
    }
    auto left = EditJournal::leftBehind(journalFolder());
    ASSERT_EQ(left.size(), 1u);
    SaccadeState state;
    ASSERT_TRUE(left[0].read(state));
    EXPECT_TRUE(sameList(state.saccades, edited));

    SaccadeDocument document(journalFolder());
    EyeSignals eyes = signalsOf(state.header);
    EXPECT_EQ(eyes[EyeAxis::RightHorizontal].factor, 100.0);
    document.takeLeftEdits(state, std::move(eyes));
    EXPECT_TRUE(document.isModified());
    EXPECT_TRUE(sameList(document.saccades(), edited));
}

TEST_F(SaccadeDocumentTest, KeepsNothingThatIsSavedUndoneOrNotWanted)
{
    {
        SaccadeDocument document(journalFolder());
        detect(document);
        ASSERT_TRUE(document.saveAs(saccadeFile()));
    }
    EXPECT_EQ(journalCount(), 0) << "saved";
    {
        SaccadeDocument document(journalFolder());
        open(document);
        document.removeCurrent();
        document.undoStack().undo();
    }
    EXPECT_EQ(journalCount(), 0) << "undone";
    {
        SaccadeDocument document(journalFolder());
        open(document);
        document.removeCurrent();
        document.forget();
    }
    EXPECT_EQ(journalCount(), 0) << "not wanted";
}

TEST_F(SaccadeDocumentTest, ShowsNothingAfterSignalsCouldNotBeLoaded)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    QSignalSpy changes(&document, &SaccadeDocument::changed);
    document.dropSignals();
    EXPECT_EQ(document.sampleCount(), 0);
    EXPECT_EQ(document.saccades().size(), 5);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(document.addSaccade(1.5, 1.6).outcome, SaccadeAddition::Outcome::TooShort);
}

TEST_F(SaccadeDocumentTest, TellsOfChanges)
{
    SaccadeDocument document(journalFolder());
    detect(document);
    QSignalSpy changes(&document, &SaccadeDocument::changed);
    document.removeCurrent();
    document.undoStack().undo();
    document.undoStack().redo();
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(SaccadeDocumentTest, FindsTheRecordingByTheAbsolutePathFirst)
{
    KiroSaccHeader header;
    header.setDataFiles(KiroString(recording()), KiroString("other.kiro"));
    EXPECT_EQ(findRecording(header, saccadeFile()), recording());
}

TEST_F(SaccadeDocumentTest, FindsTheRecordingThatMovedTogetherWithTheFile)
{
    KiroSaccHeader header;
    header.setDataFiles(KiroString("/nowhere/data/eye.kiro"), KiroString("eye.kiro"));
    EXPECT_EQ(QFileInfo(findRecording(header, saccadeFile())).canonicalFilePath(),
              QFileInfo(recording()).canonicalFilePath());
    header.setDataFiles(KiroString("/nowhere/data/eye.kiro"), KiroString("../gone/eye.kiro"));
    EXPECT_TRUE(findRecording(header, saccadeFile()).isEmpty());
    header.setDataFiles(KiroString("/nowhere/data/eye.kiro"), KiroString());
    EXPECT_TRUE(findRecording(header, saccadeFile()).isEmpty());
}

TEST_F(SaccadeDocumentTest, TakesARateThatMakesNoSenseForAThousandHertz)
{
    KiroSaccHeader header;
    header.ratePeriod = 0;
    EXPECT_EQ(frequencyOf(header), 1000.0);
    header.ratePeriod = 1000;
    header.samplesPerPeriod = 0;
    EXPECT_EQ(frequencyOf(header), 1000.0);
    header.samplesPerPeriod = 500;
    EXPECT_EQ(frequencyOf(header), 500.0);
}

} // namespace
