// Opening of the recording of an hour in a signals browser, up to the first drawing.

#include "goals.h"
#include "hourrecording.h"
#include "repetitions.h"

#include "jobprogress.h"
#include "loadedrecording.h"

#include <benchmark/benchmark.h>

namespace
{

/// Header, integrity, tables, samples in fresh memory, pyramids, strips.
void LoadRecordingToReview(benchmark::State& state)
{
    const QString path = hourRecording().toQString();
    for (auto _ : state) {
        NoProgress progress;
        LoadedRecording recording;
        if (!recording.load(path, progress) ||
            recording.plots.back().dataSize() != HourRecording::SamplesOfSignal)
            stop("cannot load the recording");
        benchmark::DoNotOptimize(recording.plots.data());
    }
}

BENCHMARK(LoadRecordingToReview)->Apply(repeated<7>);

const bool Goals[] = {
    // Reading puts the bytes into memory of their own too; touching that memory is most of its cost.
    registerGoal({"review-load-to-read", "LoadRecordingToReview", "ReadBytesIntoFreshMemory",
                  Goal::Kind::AtMost, 2.5}),
    registerGoal(
        {"review-load-to-read-into-one-block", "LoadRecordingToReview", "ReadBytes", Goal::Kind::Shown, 0.0}),
    registerGoal({"review-load-to-bulk-load", "LoadRecordingToReview", "LoadAllSignalsIntoFreshMemory",
                  Goal::Kind::Shown, 0.0}),
};

} // namespace
