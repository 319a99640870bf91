#pragma once

#include <QProcess>
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
    /// Gives the focus to the window of this title and presses keys there, such as "ctrl+w".
    void press(const std::string& title, const char* keys) const;

private:
    Q_DISABLE_COPY(VirtualDisplay)
    QString ask(const QStringList& arguments) const;
    QStringList windows() const;
    QStringList titles() const;

    QTemporaryDir m_home;
    QProcess m_server;
    QProcess m_program;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};
