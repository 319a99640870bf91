#pragma once

#include "multiplotscheme.h"

#include <QFontMetricsF>
#include <QString>

/// What the common horizontal axis of strips shows, and how its numbers are written.
struct TimeAxis
{
    double min = 0.0; ///< seconds
    double max = 1.0;
    double grid = 0.0; ///< step in seconds; 0: chosen for the width
    MultiPlotScheme::UnitType unitType = MultiPlotScheme::Time;
    MultiPlotScheme::TimeStyle timeStyle = MultiPlotScheme::Seconds;
    /// Of the strip whose samples are counted when the axis shows samples.
    double timePerSample = 1.0;
    double timeOffset = 0.0;
    QString title;
    QString units; ///< of seconds

    /// Whether the limits are finite and lie apart, with a finite distance.
    bool isUsable() const;
    bool showsSamples() const;
    /// Seconds from which the grid is counted.
    double gridOrigin() const { return showsSamples() ? timeOffset : 0.0; }
    /// A round step, in seconds, whose numbers stand side by side on `pixels`; 0 if there is none.
    double suitableStep(double pixels, const QFontMetricsF& metrics) const;
    /// The number at `seconds` on an axis with marks at multiples of `step` seconds.
    QString markText(double seconds, double step) const;
    /// The title with the unit in which the numbers are written.
    QString fullTitle() const;
};
