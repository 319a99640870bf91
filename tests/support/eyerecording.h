#pragma once

#include <QString>

#include <string>
#include <vector>

class TestFolder;

/// Recordings of eye movements at 1000 Hz, made for tests: stand still, and jump where they are told to.

/// Positions in degrees of an eye that stands at 0 and jumps by `amplitude` degrees to and fro, in 40
/// samples, from each of the `starts` on.
std::vector<double> jumpingEye(int sampleCount, const std::vector<int>& starts, double amplitude);

struct EyeRecordingSignal
{
    std::string name;
    std::vector<double> degrees; ///< all signals of a recording have as many samples
    bool calibrated = true;
    double factor = 100.0; ///< raw units a degree
    double offset = 20.0;  ///< raw value of 0 degrees; 0 suits a signal that is not calibrated
};

/// The bytes of a recording with these signals in 16 bits each, four samples a frame.
std::string eyeRecording(const std::vector<EyeRecordingSignal>& signalTable);

/// Writes a recording of one jump in one signal, and returns its path.
QString writeRecording(const TestFolder& folder, const QString& fileName);

/// Writes a saccade file of one saccade, and beside it the recording that it came from: NAME.sacc and
/// NAME.kiro. Returns the path of the saccade file.
QString writeSaccadeFile(const TestFolder& folder, const QString& name);
