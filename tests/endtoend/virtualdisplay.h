#pragma once

#include <QPoint>
#include <QProcess>
#include <QSize>
#include <QTemporaryDir>

#include <string>

/// A display in memory with the program on it. There is no window manager: every window is seen as the
/// program itself places it. Needs Xvfb and xdotool.
class VirtualDisplay
{
public:
    VirtualDisplay();
    ~VirtualDisplay();

    bool isRunning() const { return m_server.state() == QProcess::Running; }

    /// Starts the program with an empty home folder.
    void start(const QString& program, const QStringList& arguments);
    bool isProgramRunning() const { return m_program.state() == QProcess::Running; }
    /// Of the program, once it has ended by itself; -1 if it does not.
    int exitCode();

    /// Titles of all shown windows, sorted, with "; " between, as soon as there are `count`; what there is
    /// after some patience if that does not come.
    std::string waitForTitles(int count) const;
    /// Whether this number of windows is shown for some time on.
    bool staysWith(int count) const;
    /// Whether a window of this title is shown, or is no longer shown, within some patience.
    bool waitForTitle(const std::string& title) const;
    bool waitForTitleToGo(const std::string& title) const;
    /// Gives the focus to the window of this title and presses keys there, such as "ctrl+w".
    void press(const std::string& title, const char* keys, int times = 1) const;
    /// Gives the focus to the window of this title and types a text there.
    void type(const std::string& title, const QString& text) const;
    /// Moves the mouse with its left button and a modifier key, such as "shift", held. Pixels of the window.
    void drag(const std::string& title, const QPoint& from, const QPoint& to, const char* modifier) const;
    /// Double-clicks with the left button. Pixels of the window.
    void doubleClick(const std::string& title, const QPoint& place) const;
    /// Pixels of the window of this title.
    QSize sizeOf(const std::string& title) const;

private:
    Q_DISABLE_COPY(VirtualDisplay)
    QString ask(const QStringList& arguments) const;
    QStringList windows() const;
    QStringList titles() const;
    QString find(const std::string& title) const;
    bool waitUntil(const std::string& title, bool shown) const;

    QTemporaryDir m_home;
    QProcess m_server;
    QProcess m_program;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};
