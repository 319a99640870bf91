#pragma once

/// A stretch of a signal's samples.
struct SampleStretch
{
    int first = 0;
    int count = 0;
};

/// The samples of a signal that the window of `rangeSeconds` around `positionSeconds` shows: from the one at
/// or before its start to the one behind its end, held within the `sampleCount` samples of `secondsPerSample`
/// each. Of a window beside the signal, and where the numbers give none, no samples.
SampleStretch samplesInWindow(double positionSeconds, double rangeSeconds, double secondsPerSample,
                              int sampleCount);
