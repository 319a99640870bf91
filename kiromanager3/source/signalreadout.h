#pragma once

#include <QString>

class Plot;

/// What a signals browser says of a strip at a time.

/// A number with so many decimals, as the default locale writes it without separators of groups. A zero has
/// no sign.
QString readoutNumber(double value, int decimals);

/// A value in the units that the strip draws, with one decimal more than the strip prints.
QString readoutValue(const Plot& plot, double drawnValue);

/// The value of the sample nearest to `seconds`, with its unit; empty where the shown range has no sample or
/// that is a gap.
QString readoutAt(const Plot& plot, double seconds);

/// "Signal: eyex, time: 12.3456 s, value: 1.234 deg", times with one decimal more than `timePrecision`.
QString statusText(const Plot& plot, const QString& name, double seconds, double drawnValue,
                   int timePrecision);
