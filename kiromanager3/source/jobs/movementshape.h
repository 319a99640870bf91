#pragma once

// Shapes of movements and waves over a running variable. They use only arithmetic that is exact to the last
// bit on every machine, which the functions of the mathematical library are not.

/// Share of a movement that is done at the share `t` of its time: 0 up to t = 0, 1 from t = 1 on. The
/// smoothest movement from rest to rest, after Flash and Hogan, J. Neurosci. 5, 1688 (1985).
double minimumJerk(double t);
/// Its slope; 0 outside of 0 to 1, 15/8 at the middle.
double minimumJerkSpeed(double t);

/// minimumJerk() with the speed's peak before the middle by `skew` (0 to below 1), as in large saccades: van
/// Opstal and van Gisbergen, Vision Res. 27, 731 (1987).
double skewedMovement(double t, double skew);
/// The greatest slope of skewedMovement().
double skewedPeakSpeed(double skew);

/// sin(2 pi `turns`), to within 1e-9.
double sineOfTurns(double turns);

/// A hump of height 1 at 0 that falls smoothly to 0 at -1 and 1, and stays there.
double hump(double x);
