#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

/// Keeps a window as it is while a job runs in it and lets events be handled.
///
/// While a guard lives, its window takes no keys, clicks or drops and does not close: closing is noted, and
/// done once the guard is gone. Files that it is to open wait until then too. Dialogs over the window work as
/// always.
class JobGuard : public QObject
{
    Q_OBJECT

public:
    /// `window` may be null; the guard then does nothing.
    explicit JobGuard(QWidget* window);
    ~JobGuard() override;

    /// Whether the user wants the window closed, so that the job had better end.
    bool isClosing() const { return m_closing; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isInWindow(const QObject* object) const;

    QPointer<QWidget> m_window;
    QStringList m_waitingFiles;
    bool m_closing = false;
};
