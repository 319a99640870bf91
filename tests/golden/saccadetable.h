#pragma once

#include "kirosaccade.h"
#include "numericvalues.h"

#include <vector>

/// Saccades as the corpus lists them. With `bothEyes` off the blocks of the eyes are not listed; throws
/// std::runtime_error if one is filled all the same.
Answer saccadeTable(const std::vector<KiroSaccade>& saccades, bool bothEyes);
