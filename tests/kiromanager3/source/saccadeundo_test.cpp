#include "saccadeundo.h"

#include "saccadestates.h"

#include <QUndoStack>

#include <gtest/gtest.h>

#include <functional>

namespace
{

class SaccadeUndoTest : public testing::Test
{
protected:
    void removeAt(std::vector<int> indices)
    {
        QList<KiroSaccade> edited = state.saccades;
        const int current = removeSaccades(edited, std::move(indices), 3, state.currentSaccade);
        stack.push(new SaccadeEditCommand(state, edited, current, QStringLiteral("remove")));
    }
    void addAt(int index)
    {
        QList<KiroSaccade> edited = state.saccades;
        edited.insert(index, dice.anySaccade());
        if (index + 1 < edited.size())
            edited[index + 1].main.fixation = dice.anyInteger();
        stack.push(new SaccadeEditCommand(state, edited, index, QStringLiteral("add")));
    }
    void redetect()
    {
        const SaccadeState other = dice.anyState(3 + dice.below(5));
        stack.push(new RedetectCommand(
            state, {other.saccades, other.blinks, other.currentSaccade, other.header.params},
            QStringLiteral("detect")));
    }
    std::string bits() const { return StateBits(state).bytes(); }

    /// Runs an action, and undoes and repeats it twice.
    void expectWayBack(const std::function<void()>& action)
    {
        const std::string before = bits();
        action();
        const std::string after = bits();
        EXPECT_NE(after, before);
        for (int i = 0; i < 2; ++i) {
            stack.undo();
            EXPECT_EQ(bits(), before);
            stack.redo();
            EXPECT_EQ(bits(), after);
        }
    }

    StateDice dice{3};
    SaccadeState state = dice.anyState(6);
    QUndoStack stack;
};

} // namespace

TEST_F(SaccadeUndoTest, PushMakesTheEditOnce)
{
    QList<KiroSaccade> edited = state.saccades;
    edited.removeAt(2);
    SaccadeState wanted = state;
    wanted.saccades = edited;
    wanted.currentSaccade = 4;
    stack.push(new SaccadeEditCommand(state, edited, 4, QStringLiteral("remove saccade")));
    EXPECT_EQ(bits(), StateBits(wanted).bytes());
    EXPECT_EQ(stack.undoText(), QStringLiteral("remove saccade"));
}

TEST_F(SaccadeUndoTest, EditIsNotMadeBeforeThePush)
{
    const std::string before = bits();
    const SaccadeEditCommand command(state, {}, -1, QString());
    EXPECT_EQ(bits(), before);
}

TEST_F(SaccadeUndoTest, AdditionGoesBackAndForth)
{
    for (const int index : {0, 3, 8})
        expectWayBack([&] { addAt(index); });
}

TEST_F(SaccadeUndoTest, RemovalGoesBackAndForth)
{
    expectWayBack([&] { removeAt({0}); });
    expectWayBack([&] { removeAt({2}); });
    expectWayBack([&] { removeAt({3}); });
}

TEST_F(SaccadeUndoTest, RemovalOfTheOnlyOneGoesBackAndForth)
{
    state.saccades = state.saccades.mid(0, 1);
    state.currentSaccade = 0;
    expectWayBack([&] { removeAt({0}); });
    EXPECT_TRUE(state.saccades.isEmpty());
    EXPECT_EQ(state.currentSaccade, -1);
}

TEST_F(SaccadeUndoTest, RemovalOfSelectedGoesBackAndForth)
{
    expectWayBack([&] { removeAt({5, 0, 2}); });
    expectWayBack([&] { removeAt({0, 1, 2}); });
    EXPECT_TRUE(state.saccades.isEmpty());
}

TEST_F(SaccadeUndoTest, RedetectionGoesBackAndForth)
{
    fillHeader(state);
    expectWayBack([&] { redetect(); });
}

TEST_F(SaccadeUndoTest, RedetectionReplacesListsArraysAndParameters)
{
    const SaccadeDetection detected = {
        dice.anyState(4).saccades, {dice.anyBlink()}, 2, dice.anySaccadeParams()};
    SaccadeState wanted = state;
    wanted.saccades = detected.saccades;
    wanted.blinks = detected.blinks;
    wanted.currentSaccade = 2;
    wanted.header.params = detected.params;
    fillHeader(wanted);
    stack.push(new RedetectCommand(state, detected, QStringLiteral("detect")));
    EXPECT_EQ(bits(), StateBits(wanted).bytes());
}

TEST_F(SaccadeUndoTest, UndoingARedetectionKeepsThePathsOfASaveInBetween)
{
    const SaccadeState before = state;
    redetect();
    state.saccadeFile = QStringLiteral("/new/place.sacc");
    state.header.fileName = "/new/place.sacc";
    state.header.setDataFiles("/new/recording.kiro", "recording.kiro");
    stack.undo();
    SaccadeState wanted = before;
    wanted.saccadeFile = QStringLiteral("/new/place.sacc");
    wanted.header.fileName = "/new/place.sacc";
    wanted.header.setDataFiles("/new/recording.kiro", "recording.kiro");
    EXPECT_EQ(bits(), StateBits(wanted).bytes());
}

TEST_F(SaccadeUndoTest, UndoAllAndRedoAllPassTheSameStates)
{
    std::vector<std::string> states = {bits()};
    for (int i = 0; i < 200; ++i) {
        const int count = state.saccades.size();
        const int what = dice.below(10);
        if (what == 0)
            redetect();
        else if (what < 6 || count == 0)
            addAt(dice.below(count + 1));
        else if (what < 9)
            removeAt({dice.below(count)});
        else
            removeAt({dice.below(count), dice.below(count)});
        states.push_back(bits());
    }
    ASSERT_EQ(stack.count(), 200);
    for (std::size_t i = 200; i-- > 0;) {
        stack.undo();
        ASSERT_EQ(bits(), states[i]) << i;
    }
    EXPECT_FALSE(stack.canUndo());
    for (std::size_t i = 1; i <= 200; ++i) {
        stack.redo();
        ASSERT_EQ(bits(), states[i]) << i;
    }
    EXPECT_FALSE(stack.canRedo());
}

TEST_F(SaccadeUndoTest, StackIsCleanWhereItWasSaved)
{
    removeAt({0});
    EXPECT_FALSE(stack.isClean());
    stack.setClean();
    removeAt({1});
    EXPECT_FALSE(stack.isClean());
    stack.undo();
    EXPECT_TRUE(stack.isClean());
    stack.undo();
    EXPECT_FALSE(stack.isClean());
    stack.redo();
    EXPECT_TRUE(stack.isClean());
}
