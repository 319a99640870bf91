#include "programrun.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

namespace
{

constexpr int PatienceMs = 30'000;
const std::string PlatformNote = "This plugin does not support propagateSizeHints()\n";

std::string without(std::string text, const std::string& part)
{
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at))
        text.erase(at, part.size());
    return text;
}

} // namespace

ProgramRun::ProgramRun()
{
    QDir(m_home.path()).mkpath(QStringLiteral("work"));
    setEnvironment("HOME", m_home.path());
    setEnvironment("XDG_DATA_HOME", path(QStringLiteral("data")));
    setEnvironment("XDG_RUNTIME_DIR", m_home.path());
    setEnvironment("LC_ALL", QStringLiteral("C.UTF-8"));
    setEnvironment("QT_QPA_PLATFORM", QStringLiteral("offscreen"));
    // A build with sanitizers must not mix its list of suppressed leaks into standard error.
    const QString leaks = QStringLiteral("LSAN_OPTIONS");
    m_environment.insert(leaks, m_environment.value(leaks) + QStringLiteral(":print_suppressions=0"));
}

void ProgramRun::setEnvironment(const char* name, const QString& value)
{
    m_environment.insert(QString::fromLatin1(name), value);
}

void ProgramRun::unsetEnvironment(const char* name)
{
    m_environment.remove(QString::fromLatin1(name));
}

ProgramRun::Result ProgramRun::probe(const char* scenario, const QStringList& arguments)
{
    setEnvironment("KIRO_PROBE", QString::fromLatin1(scenario));
    return run(QStringLiteral(STARTUPPROBE), arguments);
}

ProgramRun::Result ProgramRun::program(const QStringList& arguments)
{
    return run(QStringLiteral(KIROMANAGER), arguments);
}

bool ProgramRun::programUntil(const QString& name, const QStringList& arguments)
{
    QProcess process;
    prepare(process, QStringLiteral(KIROMANAGER), arguments);
    QElapsedTimer clock;
    clock.start();
    while (!exists(name) && clock.elapsed() < PatienceMs && process.state() == QProcess::Running)
        QThread::msleep(10);
    constexpr int SettlingMs = 300; // long enough for a window, and for a program that fails to end
    const bool runsOn = exists(name) && !process.waitForFinished(SettlingMs);
    process.terminate();
    return process.waitForFinished(PatienceMs) && runsOn;
}

bool ProgramRun::exists(const QString& name) const
{
    return QFileInfo::exists(path(name));
}

std::string ProgramRun::bytes(const QString& name) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::ReadOnly))
        ADD_FAILURE() << "cannot read " << qPrintable(name);
    return file.readAll().toStdString();
}

std::string ProgramRun::log() const
{
    return without(bytes(defaultLog()), "Warning: " + PlatformNote + "File:  , Line: 0 , Function: \n\n");
}

void ProgramRun::write(const QString& name, const std::string& content) const
{
    QDir(m_home.path()).mkpath(QFileInfo(name).path());
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(content.data(), qint64(content.size())) != qint64(content.size()))
        ADD_FAILURE() << "cannot write " << qPrintable(name);
}

ProgramRun::Result ProgramRun::run(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    prepare(process, program, arguments);
    Result result;
    if (!process.waitForFinished(PatienceMs)) {
        process.kill();
        process.waitForFinished(PatienceMs);
    } else {
        result.finished = process.exitStatus() == QProcess::NormalExit;
        result.exitCode = process.exitCode();
    }
    result.output = process.readAllStandardOutput().toStdString();
    result.errors = without(process.readAllStandardError().toStdString(), PlatformNote);
    return result;
}

void ProgramRun::prepare(QProcess& process, const QString& program, const QStringList& arguments) const
{
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(path(QStringLiteral("work")));
    process.start(program, arguments);
    if (!process.waitForStarted(PatienceMs))
        ADD_FAILURE() << "cannot start " << qPrintable(program);
}
