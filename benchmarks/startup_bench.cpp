// The start of the window program against an empty one, each as a process of its own on the same screen.

#include "goals.h"
#include "repetitions.h"

#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace
{

void runToScreen(benchmark::State& state, const char* program)
{
    const QTemporaryDir home; // the user's files are left alone
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), home.path());
    if (!environment.contains(QStringLiteral("DISPLAY")))
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    for (auto _ : state) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(home.path());
        process.start(QString::fromLocal8Bit(program), QStringList());
        if (!process.waitForFinished() || process.exitCode() != 0) {
            std::fprintf(stderr, "%s did not come to the screen\n", program);
            std::exit(1);
        }
    }
}

void EmptyWindowOnScreen(benchmark::State& state)
{
    runToScreen(state, EMPTY_WINDOW);
}

void LauncherOnScreen(benchmark::State& state)
{
    runToScreen(state, LAUNCHER_WINDOW);
}

BENCHMARK(EmptyWindowOnScreen)->Apply(repeatedOnce<15>)->UseRealTime();
BENCHMARK(LauncherOnScreen)->Apply(repeatedOnce<15>)->UseRealTime();

const bool Goals[] = {
    registerGoal(
        {"launcher-to-empty-window", "LauncherOnScreen", "EmptyWindowOnScreen", Goal::Kind::AtMost, 1.5}),
};

} // namespace
