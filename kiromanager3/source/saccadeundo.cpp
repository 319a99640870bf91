#include "saccadeundo.h"

#include <utility>

namespace
{

void put(const SaccadeDetection& detection, SaccadeState& state)
{
    state.saccades = detection.saccades;
    state.blinks = detection.blinks;
    state.currentSaccade = detection.currentSaccade;
    state.header.params = detection.params;
}

} // namespace

SaccadeEditCommand::SaccadeEditCommand(SaccadeState& state, const QList<KiroSaccade>& edited,
                                       int currentSaccade, const QString& text)
    : QUndoCommand(text)
    , m_state(state)
    , m_splice(SaccadeSplice::between(state.saccades, edited))
    , m_currentBefore(state.currentSaccade)
    , m_currentAfter(currentSaccade)
{
}

void SaccadeEditCommand::redo()
{
    m_splice.apply(m_state.saccades);
    m_state.currentSaccade = m_currentAfter;
}

void SaccadeEditCommand::undo()
{
    m_splice.revert(m_state.saccades);
    m_state.currentSaccade = m_currentBefore;
}

RedetectCommand::RedetectCommand(SaccadeState& state, SaccadeDetection detected, const QString& text)
    : QUndoCommand(text)
    , m_state(state)
    , m_before{state.saccades, state.blinks, state.currentSaccade, state.header.params}
    , m_after(std::move(detected))
    , m_arraySaccades(state.header.saccades)
    , m_arrayBlinks(state.header.blinks)
{
}

void RedetectCommand::redo()
{
    put(m_after, m_state);
    m_state.header.saccades.assign(m_after.saccades.begin(), m_after.saccades.end());
    m_state.header.blinks.assign(m_after.blinks.begin(), m_after.blinks.end());
}

void RedetectCommand::undo()
{
    put(m_before, m_state);
    m_state.header.saccades = m_arraySaccades;
    m_state.header.blinks = m_arrayBlinks;
}
