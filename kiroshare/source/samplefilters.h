#pragma once

#include <cstdint>
#include <vector>

/// Numeric routines on whole sample arrays.
///
/// A sample array holds one signal in whatever unit the caller loaded. Windows count samples; no routine
/// knows the sampling frequency. Each output is sized to the input, which stays unchanged; input and output
/// may not be the same array. A routine that refuses its input leaves the output untouched. Sums are taken
/// in the order of the formulas, from left to right, so that results are the same on every machine.

/// Smoothing by a quadratic fit over 11 samples (A. Savitzky, M. J. E. Golay, Anal. Chem. 36, 1627, 1964).
/// The first and last five outputs are copies of the nearest computed one. False below 11 samples.
bool smoothSavitzkyGolay11(const std::vector<double>& input, std::vector<double>& output);

/// First derivative, in input units per sample, with weights over 11 samples; its absolute value if
/// `absolute` is set. The first and last five outputs are copies of the nearest computed one. False below
/// 11 samples.
bool velocitySavitzkyGolay11(const std::vector<double>& input, std::vector<double>& output, bool absolute);

/// First derivative of a quadratic fit over 15 samples, in input units per sample; its absolute value if
/// `absolute` is set. The first and last seven outputs are copies of the nearest computed one. False below
/// 21 samples.
bool velocitySavitzkyGolay15(const std::vector<double>& input, std::vector<double>& output, bool absolute);

/// Centred moving average in running form: each step adds the change to the average before, and rounding
/// adds up. With h = w / 2 the first and last h outputs are copies of the input. An even `w` sums w + 1
/// samples and still divides by w; an input of just that `w` is copied. A NaN stays in all later averages.
/// False if the input holds fewer than `w` samples or `w` is below 1.
bool movingAverage(const std::vector<double>& input, std::vector<double>& output, std::int32_t w);

/// Centred running median; an even `w` acts as w + 1, and with h = w / 2 the first and last h outputs are
/// copies of the input. So an input of just an even `w` is copied. Equal values keep their order of arrival:
/// of -0.0 and 0.0 the one is taken that a stable sort puts in the middle. What a NaN does is told with
/// slideMedian(). Time hardly depends on `w` as long as there is none. False if the input holds fewer than
/// `w` samples or `w` is below 1.
bool runningMedian(const std::vector<double>& input, std::vector<double>& output, std::int32_t w);
