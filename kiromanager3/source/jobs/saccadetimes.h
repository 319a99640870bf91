#pragma once

#include <QString>

/// Times of saccades as lists, labels and exports write them.

/// The unit of times that the user chose, by its number in the settings.
enum class TimeUnit { Samples = 0, Seconds = 1, Minutes = 2, Hours = 3 };

/// A place or, if `isDuration` is set, a length in samples, in the number format of the system without group
/// separators. In samples as it is. Else rounded half up to milliseconds: a length as their number, a place
/// as seconds with three decimals, "m:ss.zzz" or "hh:mm:ss.zzz". `frequency` in Hz.
QString timeString(int sample, double frequency, TimeUnit unit, bool isDuration);

/// "smp", "s", "m" or "h".
QString unitName(TimeUnit unit);
/// Of lengths: "smp" or "ms".
QString durationUnitName(TimeUnit unit);
