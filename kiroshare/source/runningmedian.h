#pragma once

#include <cstddef>

/// Medians of all windows of `window` samples: medians[i] is that of input[i] to input[i + window - 1].
///
/// `window` is odd and at most `count` and 2^31 - 1; `medians` has room for `count` - `window` + 1 numbers
/// and is apart from the input. Equal values stand in their order of arrival. In general a sample goes before
/// the first one in the window that is greater, or else to the end, and then the oldest leaves; this says
/// what becomes of a NaN, which is neither greater nor smaller than others.
///
/// Time is about that of sorting pieces as long as the window, besides a few steps a sample; only a window
/// that holds a NaN takes steps in proportion to its length. Memory is some 60 bytes per sample of the
/// window.
void slideMedian(const double* input, std::size_t count, std::size_t window, double* medians);
