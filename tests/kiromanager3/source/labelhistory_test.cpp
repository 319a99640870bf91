#include "labelhistory.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

KiroLabel lineOf(char name)
{
    KiroLabel line;
    line.setupSignalLine(2, uint(name), QString(QLatin1Char(name)), QStringLiteral("text"), Qt::red);
    return line;
}

/// A label for each letter.
QList<KiroLabel> labelsOf(const char* names)
{
    QList<KiroLabel> labels;
    for (; *names; ++names)
        labels << lineOf(*names);
    return labels;
}

/// A window's side of the history: the labels that are shown, as letters.
class LabelHistoryTest : public testing::Test
{
protected:
    LabelHistoryTest()
    {
        QObject::connect(&history, &LabelHistory::labelsRestored, &history,
                         [this](const QList<KiroLabel>& labels) {
                             ++restored;
                             shown.clear();
                             for (const KiroLabel& label : labels)
                                 shown += label.name().toStdString();
                         });
        QObject::connect(&history, &LabelHistory::stateChanged, &history, [this] { ++told; });
    }
    void change(const char* after, const char* text = "Change")
    {
        const std::string before = shown;
        shown = after;
        history.note(QLatin1String(text), labelsOf(before.c_str()), labelsOf(after));
    }
    void undo() { history.undoStack().undo(); }
    void redo() { history.undoStack().redo(); }

    LabelHistory history;
    std::string shown;
    int restored = 0;
    int told = 0;
};

} // namespace

TEST_F(LabelHistoryTest, BeginsWithNothingToUndo)
{
    EXPECT_FALSE(history.hasChanges());
    EXPECT_FALSE(history.undoStack().canUndo());
    EXPECT_FALSE(history.undoStack().canRedo());
    undo();
    EXPECT_EQ(restored, 0);
}

TEST_F(LabelHistoryTest, NotingAChangeRestoresNothing)
{
    change("a", "Add label");
    EXPECT_EQ(restored, 0);
    EXPECT_EQ(shown, "a");
    EXPECT_TRUE(history.hasChanges());
    EXPECT_EQ(history.undoStack().undoText(), QStringLiteral("Add label"));
    EXPECT_GT(told, 0);
}

TEST_F(LabelHistoryTest, UndoneAndRedoneInOrder)
{
    change("a");
    change("ab");
    change("b");
    undo();
    EXPECT_EQ(shown, "ab");
    undo();
    EXPECT_EQ(shown, "a");
    undo();
    EXPECT_EQ(shown, "");
    EXPECT_FALSE(history.undoStack().canUndo());
    redo();
    redo();
    EXPECT_EQ(shown, "ab");
    change("abc");
    EXPECT_FALSE(history.undoStack().canRedo());
    undo();
    EXPECT_EQ(shown, "ab");
    EXPECT_EQ(restored, 6);
}

TEST_F(LabelHistoryTest, GivesAllFieldsBack)
{
    KiroLabel point;
    point.setupPoint(1, 20, 3.5, QStringLiteral("n"), QStringLiteral("d"), QColor(1, 2, 3));
    QList<KiroLabel> given;
    QObject::connect(&history, &LabelHistory::labelsRestored, &history,
                     [&given](const QList<KiroLabel>& labels) { given = labels; });
    history.note(QStringLiteral("x"), {point}, {});
    undo();
    ASSERT_EQ(given.size(), 1);
    EXPECT_EQ(given[0].type, KiroLabel::Point);
    EXPECT_EQ(given[0].signal, 1u);
    EXPECT_EQ(given[0].time, 20u);
    EXPECT_EQ(given[0].value, 3.5);
    EXPECT_EQ(given[0].name(), QStringLiteral("n"));
    EXPECT_EQ(given[0].description(), QStringLiteral("d"));
    EXPECT_EQ(given[0].color, QColor(1, 2, 3));
}

TEST_F(LabelHistoryTest, EqualListsAreNoChange)
{
    change("a");
    change("a");
    EXPECT_EQ(history.undoStack().count(), 1);
    history.note(QStringLiteral("x"), {}, {});
    EXPECT_EQ(history.undoStack().count(), 1);
}

TEST_F(LabelHistoryTest, EachFieldCountsAsAChange)
{
    int count = 0;
    const auto noteWith = [&](const auto& edit) {
        KiroLabel edited = lineOf('a');
        edit(edited);
        history.note(QStringLiteral("x"), {lineOf('a')}, {edited});
        EXPECT_EQ(history.undoStack().count(), ++count);
    };
    noteWith([](KiroLabel& label) { label.type = KiroLabel::Point; });
    noteWith([](KiroLabel& label) { ++label.time; });
    noteWith([](KiroLabel& label) { label.color = Qt::blue; });
    noteWith([](KiroLabel& label) { label.value = 1.0; });
    noteWith([](KiroLabel& label) { ++label.signal; });
    noteWith([](KiroLabel& label) { ++label.endTime; });
    noteWith([](KiroLabel& label) { label.setName(QStringLiteral("other")); });
    noteWith([](KiroLabel& label) { label.setDescription(QStringLiteral("other")); });
    history.note(QStringLiteral("x"), labelsOf("ab"), labelsOf("ba"));
    EXPECT_EQ(history.undoStack().count(), count + 1);
}

TEST_F(LabelHistoryTest, KnowsWhatTheFileHolds)
{
    change("a");
    change("ab");
    history.setStored();
    EXPECT_FALSE(history.hasChanges());
    EXPECT_TRUE(history.undoStack().canUndo());
    undo();
    EXPECT_TRUE(history.hasChanges());
    redo();
    EXPECT_FALSE(history.hasChanges());
    redo();
    EXPECT_FALSE(history.hasChanges());
    // What the file holds cannot be reached any more.
    undo();
    change("ac");
    undo();
    EXPECT_TRUE(history.hasChanges());
    undo();
    EXPECT_TRUE(history.hasChanges());
}

TEST_F(LabelHistoryTest, ANewBeginningForgetsAllSteps)
{
    for (const bool stored : {true, false}) {
        change("a");
        change("ab");
        undo();
        told = 0;
        restored = 0;
        history.restart(stored);
        EXPECT_EQ(history.hasChanges(), !stored);
        EXPECT_FALSE(history.undoStack().canUndo());
        EXPECT_FALSE(history.undoStack().canRedo());
        EXPECT_EQ(restored, 0);
        EXPECT_GT(told, 0);
        // Also where it has changes that are undone.
        change("abc");
        undo();
        EXPECT_EQ(history.hasChanges(), !stored);
    }
    history.setStored();
    EXPECT_FALSE(history.hasChanges());
}

TEST_F(LabelHistoryTest, OldStepsAreDroppedAndWithThemTheStoredState)
{
    static_assert(LabelHistory::Most == 500, "the steps below");
    for (int i = 0; i < 501; ++i)
        change(i % 2 == 0 ? "a" : "b");
    EXPECT_EQ(history.undoStack().count(), 500);
    for (int i = 0; i < 500; ++i)
        undo();
    EXPECT_FALSE(history.undoStack().canUndo());
    EXPECT_EQ(shown, "a"); // after the first step, which is gone
    EXPECT_TRUE(history.hasChanges());
}
