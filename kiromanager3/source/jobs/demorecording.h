#pragma once

#include <QString>

#include <cstdint>

class JobProgress;

// A recording for trying the program out, made by a model of what the recorder would see: both eyes, head
// turns, pulse, light and sound. What happens in it, the truth, stands in a JSON file beside it, so that what
// the program finds can be held against it. The same options give the same bytes on every machine.

struct DemoOptions
{
    static constexpr double LeastMinutes = 0.1;
    static constexpr double MostMinutes = 120.0; ///< some 200 MiB

    double minutes = 1.0; ///< LeastMinutes to MostMinutes; rounded to whole frames
    std::uint32_t seed = 1;
};

struct DemoResult
{
    enum class Outcome {
        Written,
        BadMinutes,
        NoMemory,
        CannotWrite, ///< see `path` and `reason`
        Cancelled
    };

    Outcome outcome = Outcome::Written;
    QString path;   ///< of the file that could not be written
    QString reason; ///< the system's

    // What was put in; 0 unless written:
    int signalCount = 0;
    std::int64_t frameCount = 0;
    int saccades = 0;
    int blinks = 0;
    int headRotations = 0;
    int beats = 0;
    double meanHeartRate = 0.0; ///< beats per minute

    bool ok() const { return outcome == Outcome::Written; }
};

/// Where the truth of the recording at `recording` goes: ".json" in place of a ".kiro" at the end, else
/// behind the name.
QString demoTruthPath(const QString& recording);

/// Writes the recording at `path` and its truth, in place of files that are there. Both are written whole:
/// after any other outcome an old recording stands as it was, and there is no new one.
DemoResult makeDemoRecording(const QString& path, const DemoOptions& options, JobProgress& progress);
