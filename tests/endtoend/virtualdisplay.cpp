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

bool VirtualDisplay::waitUntil(const std::string& title, bool shown) const
{
    QElapsedTimer clock;
    clock.start();
    while (find(title).isEmpty() == shown) {
        if (clock.elapsed() > PatienceMs)
            return false;
        QThread::msleep(50);
    }
    return true;
}

bool VirtualDisplay::waitForTitle(const std::string& title) const
{
    return waitUntil(title, true);
}

bool VirtualDisplay::waitForTitleToGo(const std::string& title) const
{
    return waitUntil(title, false);
}

void VirtualDisplay::press(const std::string& title, const char* keys, int times) const
{
    const QString window = find(title);
    if (window.isEmpty())
        ADD_FAILURE() << "no window " << title;
    else
        ask({QStringLiteral("windowfocus"), QStringLiteral("--sync"), window, QStringLiteral("key"),
             QStringLiteral("--repeat"), QString::number(times), QString::fromLatin1(keys)});
}

void VirtualDisplay::type(const std::string& title, const QString& text) const
{
    const QString window = find(title);
    if (window.isEmpty())
        ADD_FAILURE() << "no window " << title;
    else
        ask({QStringLiteral("windowfocus"), QStringLiteral("--sync"), window, QStringLiteral("type"), text});
}

void VirtualDisplay::drag(const std::string& title, const QPoint& from, const QPoint& to,
                          const char* modifier) const
{
    const QString window = find(title);
    if (window.isEmpty()) {
        ADD_FAILURE() << "no window " << title;
        return;
    }
    const auto moveTo = [&window](const QPoint& place) {
        return QStringList{QStringLiteral("mousemove"), QStringLiteral("--window"), window,
                           QString::number(place.x()), QString::number(place.y())};
    };
    const QString key = QString::fromLatin1(modifier);
    const QString button = QStringLiteral("1");
    ask(QStringList{QStringLiteral("windowfocus"), QStringLiteral("--sync"), window} + moveTo(from) +
        QStringList{QStringLiteral("keydown"), key, QStringLiteral("mousedown"), button} +
        moveTo((from + to) / 2) + moveTo(to) +
        QStringList{QStringLiteral("mouseup"), button, QStringLiteral("keyup"), key});
}

void VirtualDisplay::doubleClick(const std::string& title, const QPoint& place) const
{
    const QString window = find(title);
    if (window.isEmpty()) {
        ADD_FAILURE() << "no window " << title;
        return;
    }
    ask({QStringLiteral("windowfocus"), QStringLiteral("--sync"), window, QStringLiteral("mousemove"),
         QStringLiteral("--window"), window, QString::number(place.x()), QString::number(place.y()),
         QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"), QStringLiteral("--delay"),
         QStringLiteral("40"), QStringLiteral("1")});
}

QSize VirtualDisplay::sizeOf(const std::string& title) const
{
    const QString answer = ask({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), find(title)});
    const auto number = [&answer](const char* name) {
        return answer.section(QLatin1String(name) + QLatin1Char('='), 1)
            .section(QLatin1Char('\n'), 0, 0)
            .toInt();
    };
    return {number("WIDTH"), number("HEIGHT")};
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

QString VirtualDisplay::find(const std::string& title) const
{
    for (const QString& window : windows()) {
        if (ask({QStringLiteral("getwindowname"), window}).toStdString() == title)
            return window;
    }
    return {};
}
