#pragma once

#include "kirolabel.h"

#include <QList>
#include <QObject>
#include <QUndoStack>

/// The changes of the labels of one recording, to be undone and redone, and whether they are all in a file.
///
/// It keeps whole lists, since the labels of the strips get new identifiers each time they are added; lists
/// share what they have in common. What it does not know of, such as the labels being replaced by those of a
/// file, begins a new history.
class LabelHistory : public QObject
{
    Q_OBJECT

public:
    /// Steps that can be undone.
    static constexpr int Most = 500;

    explicit LabelHistory(QObject* parent = nullptr);

    /// Notes a change that was made; `text` names it in the menu. Lists that are equal are no change.
    void note(const QString& text, const QList<KiroLabel>& before, const QList<KiroLabel>& after);
    /// Forgets all steps. `stored` tells whether a file holds the labels as they are now, or there are none.
    void restart(bool stored);
    /// The labels as they are now have been stored.
    void setStored();
    /// Whether some file lacks what was changed.
    bool hasChanges() const;

    /// For its actions.
    QUndoStack& undoStack() { return m_stack; }

signals:
    /// A step was undone or done again: the labels are these now.
    void labelsRestored(const QList<KiroLabel>& labels);
    /// hasChanges() may have changed.
    void stateChanged();

private:
    QUndoStack m_stack;
};
