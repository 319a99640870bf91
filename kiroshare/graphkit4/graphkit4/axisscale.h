#pragma once

#include "multiplotscheme.h"

#include <QRectF>
#include <QString>
#include <QVector>

/// Steps, places and numbers of axes; nothing here draws.

/// The smallest of 1, 2 and 5 times a power of ten that is not below `least` (by more than a billionth of
/// it); 0 if `least` is not above 0 or not finite, or if the step would not be finite.
double roundStep(double least);

/// The step that divides a scale of `range` units on `pixels` so that marks are at least `leastPixels` apart;
/// 0 if there is none.
double stepForScale(double range, double pixels, double leastPixels);

/// The same for a scale of `seconds` that is marked with timeText(): in minutes and hours the steps from one
/// second up are 1, 2, 5, 10 and 20 seconds, 1, 2, 5, 10 and 20 minutes, and 1, 2 and 5 times a power of ten
/// hours, so that the marks stay round numbers.
double timeStepForScale(double seconds, double pixels, double leastPixels, MultiPlotScheme::TimeStyle style);

/// Decimals that a step needs to be written to within a billionth of it, 0 to 15.
int decimalsOfStep(double step);

/// The multiples of `step`, counted from `origin`, within [min, max] widened by a billionth of a step, each
/// above the one before. None if the step is not above 0, one of the numbers is not finite, or there would be
/// more than 10000. A value of less than a millionth of a step is 0.
QVector<double> gridValues(double min, double max, double step, double origin = 0.0);

/// Which of the texts, given by where they would stand from left to right or top to bottom, can be drawn so
/// that none comes closer than `gap` to another: the indices of every n-th one, for the smallest n that does
/// it. The first is always among them.
QVector<int> textsThatFit(const QVector<QRectF>& places, double gap);

/// A number with `decimals` digits behind the decimal mark, 0 to 15, in the default locale; never "-0". From
/// 1e15 on, where a double has no such digits, the shortest text that stands for the number.
QString numberText(double value, int decimals);

/// A time of an axis in the given style. Milliseconds and seconds are numberText(), in the default locale;
/// minutes are written as "3:25.500" and hours as "1:03:25.500" everywhere, with as many minutes or hours as
/// there are. `decimals` are those of the seconds, 0 to 9; milliseconds have three fewer, and at least none.
/// What is cut off is rounded before the seconds carry over. Times that are not finite, or of 1e15 seconds
/// and more, are written as seconds.
QString timeText(double seconds, MultiPlotScheme::TimeStyle style, int decimals);
