#include "labelhistory.h"

#include <QUndoCommand>

#include <algorithm>
#include <tuple>
#include <utility>

namespace
{

bool areEqual(const KiroLabel& one, const KiroLabel& other)
{
    const auto fields = [](const KiroLabel& label) {
        return std::tie(label.type, label.time, label.value, label.signal, label.endTime, label.name(),
                        label.description());
    };
    return fields(one) == fields(other) && one.color == other.color;
}

class LabelsCommand final : public QUndoCommand
{
public:
    LabelsCommand(const QString& text, QList<KiroLabel> before, QList<KiroLabel> after, LabelHistory& history)
        : QUndoCommand(text)
        , m_before(std::move(before))
        , m_after(std::move(after))
        , m_history(history)
    {
    }

    void undo() override { emit m_history.labelsRestored(m_before); }
    void redo() override
    {
        // The first time the change has just been made.
        if (std::exchange(m_made, true))
            emit m_history.labelsRestored(m_after);
    }

private:
    QList<KiroLabel> m_before;
    QList<KiroLabel> m_after;
    LabelHistory& m_history;
    bool m_made = false;
};

} // namespace

LabelHistory::LabelHistory(QObject* parent)
    : QObject(parent)
{
    m_stack.setUndoLimit(Most);
    connect(&m_stack, &QUndoStack::cleanChanged, this, &LabelHistory::stateChanged);
    connect(&m_stack, &QUndoStack::indexChanged, this, &LabelHistory::stateChanged);
}

void LabelHistory::note(const QString& text, const QList<KiroLabel>& before, const QList<KiroLabel>& after)
{
    if (std::equal(before.begin(), before.end(), after.begin(), after.end(), areEqual))
        return;
    m_stack.push(new LabelsCommand(text, before, after, *this));
}

void LabelHistory::restart(bool stored)
{
    m_stack.clear();
    if (stored)
        m_stack.setClean();
    else
        m_stack.resetClean();
    emit stateChanged();
}

void LabelHistory::setStored()
{
    m_stack.setClean();
    emit stateChanged();
}

bool LabelHistory::hasChanges() const
{
    return !m_stack.isClean();
}
