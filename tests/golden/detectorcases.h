#pragma once

#include "numericcases.h"

/// Detection of saccades and blinks, with parameters and results per sample, and the steps that join eyes and
/// blinks.
const NumericFamily& detectorRoutines();
