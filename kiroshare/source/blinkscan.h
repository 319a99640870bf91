#pragma once

#include "detectionparams.h"
#include "kirosaccade.h"

#include <vector>

/// Blinks in an array of eye positions (degrees): a fast stroke downward and, soon after, a fast stroke back
/// up. Velocities of `params` are per sample. The list is in the order of time. Whatever the parameters
/// are, nothing outside the array is read.
std::vector<KiroBlink> scanBlinks(const std::vector<double>& position, const BlinkDetectionParams& params);
