#pragma once

#include "numericcases.h"

/// Filters on whole sample arrays. An answer of null stands for a refusal that left the output untouched.
const NumericFamily& filterRoutines();
