#pragma once

#include "numericcases.h"

/// Statistics of ranges, and rounding.
const NumericFamily& statisticsRoutines();
