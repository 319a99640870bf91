#include "virtualdisplay.h"

#include <QElapsedTimer>
#include <QThread>

#include <gtest/gtest.h>

namespace
{

constexpr int PatienceMs = 30'000;

void end(QProcess& process)
{
    if (process.state() == QProcess::NotRunning)
        return;
    process.terminate();
    if (!process.waitForFinished(PatienceMs))
        process.kill();
    process.waitForFinished(PatienceMs);
}

} // namespace

VirtualDisplay::VirtualDisplay()
{
    // The server chooses a free number and writes it to its standard output when it is ready.
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                    QStringLiteral("tcp")});
    if (!m_server.waitForReadyRead(PatienceMs))
        ADD_FAILURE() << "no display: " << m_server.readAllStandardError().toStdString();
    const QString number = QString::fromLatin1(m_server.readLine()).trimmed();
    m_environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":") + number);
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    m_environment.insert(QStringLiteral("HOME"), m_home.path());
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), m_home.path());
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_home.path());
}

VirtualDisplay::~VirtualDisplay()
{
    end(m_program);
    end(m_server);
}

void VirtualDisplay::start(const QString& program, const QStringList& arguments)
{
    m_program.setProcessEnvironment(m_environment);
    m_program.setWorkingDirectory(m_home.path());
    m_program.start(program, arguments);
    if (!m_program.waitForStarted(PatienceMs))
        ADD_FAILURE() << "cannot start " << program.toStdString();
}

int VirtualDisplay::exitCode()
{
    if (m_program.state() != QProcess::NotRunning && !m_program.waitForFinished(PatienceMs))
        return -1;
    return m_program.exitStatus() == QProcess::NormalExit ? m_program.exitCode() : -1;
}

std::string VirtualDisplay::waitForTitles(int count) const
{
    QElapsedTimer clock;
    clock.start();
    QStringList present = titles();
    QStringList before;
    // A title that changes after the window is shown has come to rest when it is read twice.
    while ((present.size() != count || present != before) && clock.elapsed() < PatienceMs) {
        QThread::msleep(100);
        before = present;
        present = titles();
    }
    return present.join(QStringLiteral("; ")).toStdString();
}

bool VirtualDisplay::staysWith(int count) const
{
    constexpr int SettlingMs = 500;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < SettlingMs) {
        if (titles().size() != count)
            return false;
    }
    return true;
}

void VirtualDisplay::press(const std::string& title, const char* keys) const
{
    for (const QString& window : windows()) {
        if (ask({QStringLiteral("getwindowname"), window}).toStdString() != title)
            continue;
        ask({QStringLiteral("windowfocus"), QStringLiteral("--sync"), window, QStringLiteral("key"),
             QString::fromLatin1(keys)});
        return;
    }
    ADD_FAILURE() << "no window " << title;
}

QString VirtualDisplay::ask(const QStringList& arguments) const
{
    QProcess tool;
    tool.setProcessEnvironment(m_environment);
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(PatienceMs))
        ADD_FAILURE() << "xdotool gives no answer";
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

QStringList VirtualDisplay::windows() const
{
    const QString ids = ask({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                             QStringLiteral("--name"), QStringLiteral(".")});
    return ids.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QStringList VirtualDisplay::titles() const
{
    QStringList all;
    for (const QString& window : windows())
        all.append(ask({QStringLiteral("getwindowname"), window}));
    all.sort();
    return all;
}
