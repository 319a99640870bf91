#pragma once

#include "saccadesplice.h"
#include "saccadestate.h"

#include <QUndoCommand>

/// Steps of a saccades browser's undo stack. Each works on a SaccadeState that must outlive the stack, and
/// makes the change itself in its first redo(), that is when it is pushed. While there is a stack, the list
/// of saccades must not change in any other way.

/// Saccades added or removed by hand.
class SaccadeEditCommand : public QUndoCommand
{
public:
    /// Makes `edited` the list of `state`, and `currentSaccade` the index in it. `text` is what the user
    /// reads behind "Undo".
    SaccadeEditCommand(SaccadeState& state, const QList<KiroSaccade>& edited, int currentSaccade,
                       const QString& text);

    void redo() override;
    void undo() override;

private:
    SaccadeState& m_state;
    SaccadeSplice m_splice;
    int m_currentBefore;
    int m_currentAfter;
};

/// What a detection replaces.
struct SaccadeDetection
{
    QList<KiroSaccade> saccades;
    QList<KiroBlink> blinks;
    int currentSaccade = 0;
    SaccadeDetectionParams params; ///< of the header
};

/// A redetection: the lists, the current saccade, and the header's arrays and parameters. Paths and whatever
/// else the state has stay as they are, also if the state was saved in between.
class RedetectCommand : public QUndoCommand
{
public:
    /// Makes `detected` that of `state`, and its lists the arrays of the header.
    RedetectCommand(SaccadeState& state, SaccadeDetection detected, const QString& text);

    void redo() override;
    void undo() override;

private:
    SaccadeState& m_state;
    SaccadeDetection m_before;
    SaccadeDetection m_after;
    std::vector<KiroSaccade> m_arraySaccades; ///< the header's arrays before
    std::vector<KiroBlink> m_arrayBlinks;
};
