#pragma once

#include <QMessageBox>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>

/// Answers the modal boxes and dialogs that the code under test opens, in the order of the given answers, and
/// keeps what they said. A box without an answer is closed by its escape key and counts as unexpected. While
/// another one lives that was made later, that one answers.
class ModalAnswers
{
public:
    ModalAnswers();
    /// Fails the test if answers are left over or a box was unexpected.
    ~ModalAnswers();

    /// The next message box: press this button.
    void press(QMessageBox::StandardButton button);
    /// The next file dialog: choose this file.
    void chooseFile(const QString& path);
    /// The next dialog: leave it.
    void reject();
    /// The next modal window of any kind: do this with it, which must close it.
    void answer(std::function<void(QWidget*)> action);

    /// "title|text" of each message box, or "title|first directory" of each file dialog, in order.
    const QStringList& seen() const { return m_seen; }

private:
    Q_DISABLE_COPY(ModalAnswers)
    void answerNext();
    void record(QWidget* window);

    QTimer m_timer;
    ModalAnswers* m_outer; ///< that answers again when this is gone
    std::deque<std::function<void(QWidget*)>> m_answers;
    QStringList m_seen;
    int m_unexpected = 0;
};
