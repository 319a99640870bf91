// Recordings in a signals browser: opening one of an hour, up to the first drawing, and moving over eight.

#include "goals.h"
#include "hourrecording.h"
#include "repetitions.h"

#include "appconfig.h"
#include "jobprogress.h"
#include "loadedrecording.h"
#include "multiplot.h"
#include "positionselector.h"
#include "reviewframeimpl.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

#include <malloc.h>

namespace
{

/// Gives what a round freed back to the system, so that the next takes fresh memory as the first does. Not
/// timed.
void giveMemoryBack(benchmark::State& state)
{
    state.PauseTiming();
    malloc_trim(0);
    state.ResumeTiming();
}

/// Header, integrity, tables, samples in fresh memory, pyramids, strips.
void LoadRecordingToReview(benchmark::State& state)
{
    const QString path = hourRecording().toQString();
    for (auto _ : state) {
        {
            NoProgress progress;
            LoadedRecording recording;
            if (!recording.load(path, progress) ||
                recording.plots.back().dataSize() != HourRecording::SamplesOfSignal)
                stop("cannot load the recording");
            benchmark::DoNotOptimize(recording.plots.data());
        }
        giveMemoryBack(state);
    }
}

/// A signals browser of 1600 by 900 with settings of its own.
std::unique_ptr<ReviewFrame> shownBrowser()
{
    static const QTemporaryDir folder;
    appConfig().setConfigFile(folder.filePath(QStringLiteral("settings.ini")));
    appConfig().setSignalsFile(folder.filePath(QStringLiteral("signals.ini")));
    auto window = std::make_unique<ReviewFrame>();
    window->resize(1600, 900);
    window->show();
    QApplication::processEvents();
    return window;
}

/// What the user waits for in an open window, up to the first drawing.
void OpenRecordingInBrowser(benchmark::State& state)
{
    const QString path = hourRecording().toQString();
    for (auto _ : state) {
        state.PauseTiming();
        std::unique_ptr<ReviewFrame> window = shownBrowser();
        state.ResumeTiming();
        window->loadFile(path);
        QApplication::processEvents();
        state.PauseTiming();
        if (window->recording().plots.size() != HourRecording::Signals ||
            window->findChild<MultiPlot*>()->plotCount != HourRecording::Signals)
            stop("cannot show the recording");
        window.reset();
        state.ResumeTiming();
        giveMemoryBack(state);
    }
}

/// A signals browser with eight hours of signals.
ReviewFrame& browserOfEightHours()
{
    // It cannot be destroyed after the application.
    static ReviewFrame* const window = [] {
        std::unique_ptr<ReviewFrame> made = shownBrowser();
        made->loadFile(eightHourRecording().toQString());
        return made.release();
    }();
    return *window;
}

/// A step of the selector to and fro, as the wheel does it, while `seconds` are shown.
void stepOver(benchmark::State& state, double seconds)
{
    auto& selector = *browserOfEightHours().findChild<PositionSelector*>();
    selector.setSelectorRange(seconds);
    const double middle = selector.totalTo() * 0.5;
    for (auto _ : state) {
        const double before = selector.selectorPosition();
        before >= middle ? selector.stepLeft(0.5) : selector.stepRight(0.5);
        QApplication::processEvents();
        if (selector.selectorPosition() == before)
            stop("the selector does not move");
    }
}

void StepOverEightHours(benchmark::State& state)
{
    // Nearly all of the recording, so that there is room for steps.
    stepOver(state, 0.9 * 8.0 * 3600.0);
}

void StepOverTenSeconds(benchmark::State& state)
{
    stepOver(state, 10.0);
}

void SixteenMillisecondsOfReview(benchmark::State& state)
{
    for (auto _ : state)
        state.SetIterationTime(0.016);
}

BENCHMARK(OpenRecordingInBrowser)->Apply(repeatedOnce<7>);
BENCHMARK(StepOverEightHours)->Apply(repeatedOnce<15>);
BENCHMARK(StepOverTenSeconds)->Apply(repeatedOnce<15>);
BENCHMARK(SixteenMillisecondsOfReview)->Apply(repeatedOnce<2>)->UseManualTime();
BENCHMARK(LoadRecordingToReview)->Apply(repeated<7>);

const bool Goals[] = {
    // Reading puts the bytes into memory of their own too; touching that memory is most of its cost.
    registerGoal({"review-load-to-read", "LoadRecordingToReview", "ReadBytesIntoFreshMemory",
                  Goal::Kind::AtMost, 2.5}),
    registerGoal(
        {"review-load-to-read-into-one-block", "LoadRecordingToReview", "ReadBytes", Goal::Kind::Shown, 0.0}),
    registerGoal({"review-open-to-read", "OpenRecordingInBrowser", "ReadBytesIntoFreshMemory",
                  Goal::Kind::AtMost, 4.0}),
    registerGoal({"review-open-to-read-into-one-block", "OpenRecordingInBrowser", "ReadBytes",
                  Goal::Kind::Shown, 0.0}),
    registerGoal({"review-step-over-8-hours-to-16-ms", "StepOverEightHours", "SixteenMillisecondsOfReview",
                  Goal::Kind::AtMost, 1.0}),
    registerGoal({"review-step-over-8-hours-to-10-seconds", "StepOverEightHours", "StepOverTenSeconds",
                  Goal::Kind::Shown, 0.0}),
    registerGoal({"review-load-to-bulk-load", "LoadRecordingToReview", "LoadAllSignalsIntoFreshMemory",
                  Goal::Kind::Shown, 0.0}),
};

} // namespace
