// Labels of a signals browser in files, and what becomes of those that are in none.

#include "reviewframelabelsfixture.h"

#include <QFileDialog>

namespace
{

TEST_F(ReviewFrameLabelsTest, OpeningReplacesAndAddingAppends)
{
    const QString file = labelFile("two.lab", {QStringLiteral("a"), QStringLiteral("b")});
    // Labels of one file alone are in it.
    ModalAnswers answers;
    answers.chooseFile(file);
    labelAction("Add labels").trigger();
    EXPECT_EQ(names(), QStringLiteral("a b"));
    EXPECT_FALSE(isUnsaved());
    makeLine("own", 5.0);
    // What is in no file is not replaced without a question.
    answers.answer([](QWidget* dialog) { within<QPushButton>(dialog, "button2").click(); });
    labelAction("Open labels").trigger();
    EXPECT_EQ(names(), QStringLiteral("a b own"));
    answers.answer([](QWidget* dialog) { within<QPushButton>(dialog, "button1").click(); });
    answers.chooseFile(file);
    labelAction("Open labels").trigger();
    EXPECT_EQ(names(), QStringLiteral("a b"));
    EXPECT_EQ(labels()[1].time, 1100u);
    EXPECT_FALSE(isUnsaved());
    EXPECT_FALSE(find<QAction>("actionUndo").isEnabled());
    answers.chooseFile(labelFile("more.lab", {QStringLiteral("c")}));
    labelAction("Add labels").trigger();
    EXPECT_EQ(names(), QStringLiteral("a b c"));
    EXPECT_TRUE(isUnsaved());
    const QString fileDialog =
        QStringLiteral("Select Kiro labels file|") + QFileInfo(path("eye.kiro")).path();
    EXPECT_EQ(answers.seen().count(fileDialog), 3);
    EXPECT_EQ(answers.seen().size(), 5);
    // The file that was added last is the one to save to.
    save();
    EXPECT_FALSE(isUnsaved());
    EXPECT_EQ(namesIn(path("more.lab")), QStringLiteral("a b c"));
    EXPECT_EQ(namesIn(file), QStringLiteral("a b"));
}

TEST_F(ReviewFrameLabelsTest, AFileWithoutLabelsIsAFailureThatChangesNothing)
{
    makeLine("own");
    ASSERT_TRUE(KiroLabel::save(path("none.lab"), {}));
    m_folder.write(QStringLiteral("broken.lab"), "no labels at all");
    for (const char* file : {"none.lab", "broken.lab"}) {
        for (const char* action : {"Open labels", "Add labels"}) {
            ModalAnswers answers;
            if (QLatin1String(action) == QLatin1String("Open labels"))
                answers.answer([](QWidget* dialog) { within<QPushButton>(dialog, "button1").click(); });
            answers.chooseFile(path(file));
            answers.press(QMessageBox::Ok);
            labelAction(action).trigger();
            EXPECT_EQ(answers.seen().last(),
                      warning(QStringLiteral("Failed to load labels from file %1").arg(path(file))));
            EXPECT_EQ(names(), QStringLiteral("own"));
            EXPECT_TRUE(isUnsaved());
        }
    }
    {
        ModalAnswers answers;
        answers.answer([](QWidget* dialog) { within<QPushButton>(dialog, "button1").click(); });
        answers.reject();
        labelAction("Open labels").trigger();
        EXPECT_EQ(names(), QStringLiteral("own"));
        EXPECT_TRUE(isUnsaved());
    }
    // There is still no file to save to.
    ModalAnswers answers;
    answers.chooseFile(path("own.lab"));
    save();
    EXPECT_EQ(answers.seen().last().section(QLatin1Char('|'), 0, 0),
              QStringLiteral("Select destination file"));
}

TEST_F(ReviewFrameLabelsTest, SavingNeverReplacesARecording)
{
    makeLine("one");
    const std::string bytes = fileBytes(KiroString(path("eye.kiro")));
    ModalAnswers answers;
    answers.chooseFile(path("eye.kiro"));
    answers.press(QMessageBox::Yes);
    answers.press(QMessageBox::Ok);
    save();
    EXPECT_EQ(answers.seen().last(),
              warning(QStringLiteral("Failed to save labels to the file %1").arg(path("eye.kiro"))));
    EXPECT_TRUE(fileBytes(KiroString(path("eye.kiro"))) == bytes);
    EXPECT_TRUE(isUnsaved());
}

TEST_F(ReviewFrameLabelsTest, UndoneAddingLeavesTheAddedFileAlone)
{
    makeLine("own");
    const QString file = labelFile("more.lab", {QStringLiteral("c")});
    ModalAnswers answers;
    answers.chooseFile(file);
    labelAction("Add labels").trigger();
    EXPECT_EQ(names(), QStringLiteral("own c"));
    find<QAction>("actionUndo").trigger();
    EXPECT_EQ(names(), QStringLiteral("own"));
    // It asks, for the file has other labels.
    answers.chooseFile(path("own.lab"));
    save();
    EXPECT_EQ(namesIn(path("own.lab")), QStringLiteral("own"));
    EXPECT_EQ(namesIn(file), QStringLiteral("c"));
}

TEST_F(ReviewFrameLabelsTest, SavingAsksForAFileOnce)
{
    makeLine("one");
    ModalAnswers answers;
    answers.reject();
    save();
    EXPECT_TRUE(isUnsaved());
    answers.answer([this](QWidget* dialog) {
        auto* const files = qobject_cast<QFileDialog*>(dialog);
        ASSERT_TRUE(files);
        EXPECT_EQ(files->windowTitle(), QStringLiteral("Select destination file"));
        EXPECT_EQ(files->nameFilters(), QStringList({QStringLiteral("Kiro labels file (*.lab)"),
                                                     QStringLiteral("All files (*.*)")}));
        EXPECT_EQ(files->selectedNameFilter(), QStringLiteral("Kiro labels file (*.lab)"));
        EXPECT_EQ(files->acceptMode(), QFileDialog::AcceptSave);
        within<QLineEdit>(files, "fileNameEdit").setText(path("mine"));
        QMetaObject::invokeMethod(files, "accept");
    });
    save();
    EXPECT_FALSE(isUnsaved());
    EXPECT_FALSE(QFile::exists(path("mine")));
    EXPECT_EQ(namesIn(path("mine.lab")), QStringLiteral("one"));
    makeLine("two", 5.0);
    save();
    EXPECT_FALSE(isUnsaved());
    EXPECT_EQ(namesIn(path("mine.lab")), QStringLiteral("one two"));
    EXPECT_EQ(answers.seen().size(), 2);
}

TEST_F(ReviewFrameLabelsTest, OfAllFilesNoneGetsASuffix)
{
    makeLine("one");
    ModalAnswers answers;
    answers.answer([this](QWidget* dialog) {
        auto* const files = qobject_cast<QFileDialog*>(dialog);
        files->selectNameFilter(QStringLiteral("All files (*.*)"));
        within<QLineEdit>(files, "fileNameEdit").setText(path("plain"));
        QMetaObject::invokeMethod(files, "accept");
    });
    labelAction("Save labels as...").trigger();
    EXPECT_EQ(namesIn(path("plain")), QStringLiteral("one"));
    EXPECT_FALSE(QFile::exists(path("plain.lab")));
}

TEST_F(ReviewFrameLabelsTest, AnOldFileIsOverwrittenOnlyIfTheUserWants)
{
    const QString file = labelFile("old.lab", {QStringLiteral("a"), QStringLiteral("b")});
    const std::string before = fileBytes(KiroString(file));
    makeLine("one");
    const QString question =
        warning(QStringLiteral("The file old.lab already exists! Would you like to overwrite it?"));
    ModalAnswers answers;
    answers.chooseFile(path("old")); // the suffix is added before the question
    answers.press(QMessageBox::No);
    labelAction("Save labels as...").trigger();
    EXPECT_EQ(answers.seen().last(), question);
    EXPECT_EQ(fileBytes(KiroString(file)), before);
    EXPECT_TRUE(isUnsaved());
    answers.chooseFile(file);
    answers.press(QMessageBox::Yes);
    labelAction("Save labels as...").trigger();
    EXPECT_EQ(answers.seen().last(), question);
    EXPECT_EQ(namesIn(file), QStringLiteral("one"));
    EXPECT_FALSE(isUnsaved());
    // The dialog begins with the last file.
    answers.answer([file](QWidget* dialog) {
        EXPECT_EQ(qobject_cast<QFileDialog*>(dialog)->selectedFiles(), QStringList(file));
        dialog->close();
    });
    labelAction("Save labels as...").trigger();
}

TEST_F(ReviewFrameLabelsTest, AFailureToSaveIsToldAndLeavesTheLastFile)
{
    makeLine("one");
    ModalAnswers answers;
    answers.chooseFile(path("good.lab"));
    save();
    makeLine("two", 5.0);
    const QString bad = path("no folder") + QStringLiteral("/bad.lab");
    answers.chooseFile(bad);
    answers.press(QMessageBox::Ok);
    labelAction("Save labels as...").trigger();
    EXPECT_EQ(answers.seen().last(),
              warning(QStringLiteral("Failed to save labels to the file %1").arg(bad)));
    EXPECT_TRUE(isUnsaved());
    EXPECT_EQ(names(), QStringLiteral("one two"));
    save();
    EXPECT_EQ(namesIn(path("good.lab")), QStringLiteral("one two"));
}

TEST_F(ReviewFrameLabelsTest, ClearingAsksFirstAndForgetsTheFile)
{
    makeLine("one");
    ModalAnswers answers;
    answers.chooseFile(path("a.lab"));
    save();
    makeLine("two", 5.0);
    answers.press(QMessageBox::No);
    labelAction("Clear labels").trigger();
    EXPECT_EQ(answers.seen().last(),
              warning(QStringLiteral(
                  "This operation will remove all current labels! Would you like to continue?")));
    EXPECT_EQ(names(), QStringLiteral("one two"));
    answers.press(QMessageBox::Yes);
    labelAction("Clear labels").trigger();
    EXPECT_EQ(names(), QString());
    EXPECT_FALSE(isUnsaved());
    EXPECT_FALSE(labelAction("Manage labels").isEnabled());
    EXPECT_EQ(namesIn(path("a.lab")), QStringLiteral("one"));
    makeLine("three", 6.0);
    answers.chooseFile(path("b.lab"));
    save();
    EXPECT_EQ(namesIn(path("b.lab")), QStringLiteral("three"));
}

TEST_F(ReviewFrameLabelsTest, WhatNeedsARecordingIsOffWithoutOne)
{
    m_window.reset();
    for (const char* text : {"Open labels", "Add labels", "Save labels", "Save labels as...", "Clear labels"})
        EXPECT_FALSE(labelAction(text).isEnabled()) << text;
    open();
    for (const char* text : {"Open labels", "Add labels", "Save labels as...", "Clear labels"})
        EXPECT_TRUE(labelAction(text).isEnabled()) << text;
    EXPECT_FALSE(isUnsaved());
}

} // namespace
