#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <string>

/// Runs the window program, or the start-up probe, as a user with an empty home folder. Its "work" is the
/// working folder, its "data" the place for shared data. Names are relative to the home folder.
class ProgramRun
{
public:
    ProgramRun();

    /// What a finished process leaves.
    struct Result
    {
        bool finished = false; ///< in time, by itself and not by a signal
        int exitCode = -1;
        std::string output;
        std::string errors; ///< without what the platform without a display says about every window
    };

    void setEnvironment(const char* name, const QString& value);
    void unsetEnvironment(const char* name);

    /// The start-up probe, playing `scenario` to its end.
    Result probe(const char* scenario, const QStringList& arguments = QStringList());
    /// The real program until it ends by itself.
    Result program(const QStringList& arguments = QStringList());
    /// The real program until the file `name` exists, then ended from outside. False if the file does not
    /// come or the program does not go on running.
    bool programUntil(const QString& name, const QStringList& arguments = QStringList());

    QString path(const QString& name) const { return m_home.filePath(name); }
    bool exists(const QString& name) const;
    /// Content of a file; fails the test if it cannot be read.
    std::string bytes(const QString& name) const;
    void write(const QString& name, const std::string& content) const;

    /// Name of the log in its usual place.
    static QString defaultLog() { return QStringLiteral("data/kiroconfig/kiromanager3.txt"); }
    /// Its content, without what the platform without a display says there about every window.
    std::string log() const;

private:
    Result run(const QString& program, const QStringList& arguments) const;
    void prepare(QProcess& process, const QString& program, const QStringList& arguments) const;

    QTemporaryDir m_home;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};
