// What is not stored when a signals browser leaves a recording, and what is asked then.

#include "reviewframelabelsfixture.h"

#include "kiroreader.h"
#include "openevents.h"

#include <QFileDialog>

namespace
{

/// Keeps the texts that a label shows.
class TextWatch : public QObject
{
public:
    TextWatch(QLabel& label, QStringList& texts)
        : m_label(label)
        , m_texts(texts)
    {
        label.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_label.text().isEmpty())
            m_texts << m_label.text();
        return false;
    }

private:
    QLabel& m_label;
    QStringList& m_texts;
};

class ReviewFrameUnsavedTest : public ReviewFrameLabelsTest
{
protected:
    enum Answer { Save, DoNotSave, Cancel };

    void answerForFile(ModalAnswers& answers, Answer answer)
    {
        answerWith(answers, answer, "There are unsaved changes in this file. Would you like to save them?");
    }
    void answerForLabels(ModalAnswers& answers, Answer answer)
    {
        answerWith(answers, answer,
                   "There are unsaved changes in labels for this file. Would you like to save them?");
    }

private:
    void answerWith(ModalAnswers& answers, Answer answer, const char* question)
    {
        answers.answer([this, answer, question](QWidget* dialog) {
            EXPECT_EQ(dialog->windowTitle(), window().windowTitle());
            EXPECT_EQ(within<QLabel>(dialog, "labelText").text(), QLatin1String(question));
            const char* const texts[] = {"Yes, save", "No, do not save", "Cancel operation"};
            const char* const names[] = {"button0", "button1", "button2"};
            auto& button = within<QPushButton>(dialog, names[answer]);
            EXPECT_EQ(button.text(), QLatin1String(texts[answer]));
            EXPECT_TRUE(within<QPushButton>(dialog, "button2").isDefault());
            button.click();
        });
    }
};

/// What leaves the open file, and whether it was left. Each has to ask for unsaved labels.
class ReviewFrameUnsavedLabelsTest : public ReviewFrameUnsavedTest
{
protected:
    void SetUp() override
    {
        ReviewFrameUnsavedTest::SetUp();
        record("other.kiro", {"A", "B"});
        window().loadFile(path("other.kiro"));
        open();
        makeLine("own");
    }

    bool leaveByClosing() { return window().close(); }
    bool leaveByMenu()
    {
        find<QMenu>("menuRecent").actions()[1]->trigger();
        return hasLeft();
    }
    /// `answers` gets the file dialog that follows the question, where it is reached.
    bool leaveByButton()
    {
        click("buttonLoad");
        return hasLeft();
    }
    bool hasLeft() { return window().recording().currentFile == path("other.kiro"); }

    void expectStays()
    {
        EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
        EXPECT_TRUE(window().isVisible());
        EXPECT_EQ(names(), QStringLiteral("own"));
        EXPECT_TRUE(isUnsaved());
    }
};

TEST_F(ReviewFrameUnsavedLabelsTest, CancelStays)
{
    ModalAnswers answers;
    answerForLabels(answers, Cancel);
    EXPECT_FALSE(leaveByClosing());
    expectStays();
    answerForLabels(answers, Cancel);
    EXPECT_FALSE(leaveByMenu());
    expectStays();
    answerForLabels(answers, Cancel);
    EXPECT_FALSE(leaveByButton());
    expectStays();
    // Leaving the question is no answer.
    answers.reject();
    EXPECT_FALSE(leaveByClosing());
    expectStays();
    EXPECT_EQ(answers.seen().size(), 4);
}

TEST_F(ReviewFrameUnsavedLabelsTest, ASaveThatIsNotDoneStays)
{
    ModalAnswers answers;
    answerForLabels(answers, Save);
    answers.reject(); // the file dialog
    EXPECT_FALSE(leaveByClosing());
    expectStays();
    answerForLabels(answers, Save);
    answers.chooseFile(path("no folder") + QStringLiteral("/bad.lab"));
    answers.press(QMessageBox::Ok);
    EXPECT_FALSE(leaveByMenu());
    expectStays();
}

TEST_F(ReviewFrameUnsavedLabelsTest, SavingClosesWithTheLabelsInTheFile)
{
    ModalAnswers answers;
    answerForLabels(answers, Save);
    answers.chooseFile(path("a.lab"));
    EXPECT_TRUE(leaveByClosing());
    EXPECT_EQ(namesIn(path("a.lab")), QStringLiteral("own"));
}

TEST_F(ReviewFrameUnsavedLabelsTest, SavingOpensTheNextFileWithoutTheLabels)
{
    ModalAnswers answers;
    answerForLabels(answers, Save);
    answers.chooseFile(path("a.lab"));
    EXPECT_TRUE(leaveByMenu());
    EXPECT_EQ(namesIn(path("a.lab")), QStringLiteral("own"));
    EXPECT_EQ(names(), QString());
    EXPECT_FALSE(isUnsaved());
    // The file of the labels belongs to the recording before.
    makeLine("next");
    answers.chooseFile(path("b.lab"));
    save();
    EXPECT_EQ(namesIn(path("b.lab")), QStringLiteral("next"));
    EXPECT_EQ(namesIn(path("a.lab")), QStringLiteral("own"));
}

TEST_F(ReviewFrameUnsavedLabelsTest, NotSavingGoesOnWithoutThem)
{
    ModalAnswers answers;
    answerForLabels(answers, DoNotSave);
    answers.chooseFile(path("other.kiro"));
    EXPECT_TRUE(leaveByButton());
    EXPECT_EQ(names(), QString());
    EXPECT_FALSE(isUnsaved());
    makeLine("next");
    answerForLabels(answers, DoNotSave);
    EXPECT_TRUE(leaveByClosing());
    EXPECT_EQ(QDir(QFileInfo(path("eye.kiro")).path()).entryList({QStringLiteral("*.lab")}), QStringList());
}

TEST_F(ReviewFrameUnsavedLabelsTest, AFailureToLoadKeepsTheLabels)
{
    ASSERT_TRUE(QFile::resize(path("other.kiro"), 100));
    ModalAnswers answers;
    answerForLabels(answers, DoNotSave);
    answers.press(QMessageBox::Ok);
    EXPECT_FALSE(leaveByMenu());
    expectStays();
}

TEST_F(ReviewFrameUnsavedLabelsTest, LabelsThatAreStoredAreNotAskedFor)
{
    ModalAnswers answers;
    answers.chooseFile(path("a.lab"));
    save();
    EXPECT_TRUE(leaveByMenu());
    EXPECT_TRUE(leaveByClosing());
    EXPECT_EQ(answers.seen().size(), 1);
}

/// A calibration that differs from the file's, which enables the button that writes it, and what leaves the
/// file then.
class ReviewFrameUnsavedFileTest : public ReviewFrameUnsavedTest
{
protected:
    void SetUp() override
    {
        ReviewFrameUnsavedTest::SetUp();
        find<QToolButton>("buttonSave").setEnabled(true);
    }
    bool isFileUnsaved() { return find<QToolButton>("buttonSave").isEnabled(); }
};

TEST_F(ReviewFrameUnsavedFileTest, CancelStays)
{
    ModalAnswers answers;
    answerForFile(answers, Cancel);
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(window().isVisible());
    answerForFile(answers, Cancel);
    click("buttonLoad");
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    EXPECT_TRUE(isFileUnsaved());
    EXPECT_EQ(answers.seen().size(), 2);
}

TEST_F(ReviewFrameUnsavedFileTest, NotSavingLeavesTheFileAsItIs)
{
    const std::string before = fileBytes(KiroString(path("eye.kiro")));
    const QString other = record("other.kiro", {"A", "B"});
    ModalAnswers answers;
    answerForFile(answers, DoNotSave);
    answers.chooseFile(other);
    click("buttonLoad");
    EXPECT_EQ(window().recording().currentFile, other);
    EXPECT_FALSE(isFileUnsaved());
    EXPECT_EQ(fileBytes(KiroString(path("eye.kiro"))), before);
    EXPECT_TRUE(window().close());
}

TEST_F(ReviewFrameUnsavedFileTest, SavingWritesTheCalibrationAndCloses)
{
    const std::string shown = fileBytes(KiroString(path("eye.kiro")));
    // Another program took the calibration away meanwhile.
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(KiroString(path("eye.kiro"))));
    KiroSignal first = reader.header().signal(0);
    ASSERT_TRUE(first.calibrated);
    first.calibrated = false;
    reader.header().setSignal(0, first);
    ASSERT_TRUE(reader.updateHeader());
    ASSERT_NE(fileBytes(KiroString(path("eye.kiro"))), shown);
    QStringList texts;
    TextWatch watch(find<QLabel>("labelStatus"), texts);
    ModalAnswers answers;
    answerForFile(answers, Save);
    EXPECT_TRUE(window().close());
    EXPECT_FALSE(isFileUnsaved());
    EXPECT_EQ(fileBytes(KiroString(path("eye.kiro"))), shown);
    EXPECT_EQ(texts.join(QLatin1Char('|')), QStringLiteral("Storing new calibration values..."));
}

/// A file that is to be opened waits until the calibration is stored.
TEST_F(ReviewFrameUnsavedFileTest, AnotherFileDoesNotComeIntoTheSaving)
{
    const std::string before = fileBytes(KiroString(path("eye.kiro")));
    const QString other = record("other.kiro", {"first", "second", "third"});
    const std::string otherBefore = fileBytes(KiroString(other));
    QApplication::postEvent(&window(), new OpenFileEvent(other));
    click("buttonSave");
    EXPECT_EQ(window().recording().currentFile, path("eye.kiro"));
    EXPECT_FALSE(isFileUnsaved());
    EXPECT_TRUE(QTest::qWaitFor([&] { return window().recording().currentFile == other; }));
    EXPECT_EQ(fileBytes(KiroString(path("eye.kiro"))), before);
    EXPECT_EQ(fileBytes(KiroString(other)), otherBefore);
}

TEST_F(ReviewFrameUnsavedFileTest, LabelsAreAskedForAfterTheFile)
{
    makeLine("own");
    ModalAnswers answers;
    answerForFile(answers, Save);
    answerForLabels(answers, Cancel);
    EXPECT_FALSE(window().close());
    EXPECT_FALSE(isFileUnsaved());
    answerForLabels(answers, DoNotSave);
    EXPECT_TRUE(window().close());
    EXPECT_EQ(answers.seen().size(), 3);
}

/// A failed save is told and keeps the window and what is unsaved, however it was asked for.
TEST_F(ReviewFrameUnsavedFileTest, AFailedSaveStays)
{
    const QString caption = window().windowTitle() + QLatin1Char('|');
    const QString status = label("labelStatus");
    record("eye.kiro", {"first", "second", "another"});
    const std::string other = fileBytes(KiroString(path("eye.kiro")));
    ModalAnswers answers;
    answerForFile(answers, Save);
    answers.press(QMessageBox::Ok);
    EXPECT_FALSE(window().close());
    EXPECT_EQ(answers.seen().last(),
              caption +
                  QStringLiteral("An error has occured during updating file header.\n"
                                 "The file is no longer the one that was opened: it has other signals."));
    EXPECT_EQ(fileBytes(KiroString(path("eye.kiro"))), other);
    EXPECT_TRUE(isFileUnsaved());
    QFile::remove(path("eye.kiro"));
    answers.press(QMessageBox::Ok);
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    QTest::keyClick(&window(), Qt::Key_S, Qt::ControlModifier);
    // A button that a key presses stays down for a moment.
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers.seen().size() == 3; }));
    EXPECT_EQ(answers.seen().last(),
              caption + QStringLiteral("Failed to open file %1").arg(path("eye.kiro")));
    EXPECT_TRUE(isFileUnsaved());
    EXPECT_EQ(label("labelStatus"), status);
    answerForFile(answers, DoNotSave);
    EXPECT_TRUE(window().close());
}

} // namespace
