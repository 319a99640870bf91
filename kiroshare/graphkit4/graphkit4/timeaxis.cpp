#include "timeaxis.h"

#include "axisscale.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace
{

/// Steps grow at least by half from try to try, and no text needs more room than this many tries give.
constexpr int MostTries = 40;
/// Marks in samples that stand at parts of a sample are written with at most so many decimals.
constexpr int MostDecimalsOfSamples = 3;

} // namespace

bool TimeAxis::isUsable() const
{
    return max > min && std::isfinite(max - min) && std::isfinite(min);
}

bool TimeAxis::showsSamples() const
{
    return unitType == MultiPlotScheme::Samples && timePerSample > 0.0 && std::isfinite(timePerSample) &&
           std::isfinite(timeOffset);
}

double TimeAxis::suitableStep(double pixels, const QFontMetricsF& metrics) const
{
    if (!isUsable() || !(pixels > 0.0))
        return 0.0;
    const double range = max - min;
    const double gap = metrics.horizontalAdvance(QStringLiteral("00"));
    double leastPixels = 2.0 * gap;
    double step = 0.0;
    for (int i = 0; i < MostTries; ++i) {
        if (showsSamples()) {
            const double leastSamples = std::max(1.0, range / pixels * leastPixels / timePerSample);
            step = roundStep(leastSamples) * timePerSample;
        } else {
            step = timeStepForScale(range, pixels, leastPixels, timeStyle);
        }
        const double width = std::max(metrics.horizontalAdvance(markText(min, step)),
                                      metrics.horizontalAdvance(markText(max, step)));
        if (!(step > 0.0) || width + gap <= step / range * pixels)
            break;
        leastPixels = std::max(leastPixels * 1.5, step / range * pixels * 1.01);
    }
    return std::isfinite(step) ? step : 0.0;
}

QString TimeAxis::markText(double seconds, double step) const
{
    if (!showsSamples())
        return timeText(seconds, timeStyle, decimalsOfStep(step));
    const int decimals = std::min(decimalsOfStep(step / timePerSample), MostDecimalsOfSamples);
    return numberText((seconds - timeOffset) / timePerSample, decimals);
}

QString TimeAxis::fullTitle() const
{
    const bool inSeconds = !showsSamples() && timeStyle == MultiPlotScheme::Seconds;
    QString name = title;
    QString unit = units;
    if (!inSeconds) {
        // A title may bring the unit of seconds with it.
        const int bracket = title.lastIndexOf(QLatin1Char('['));
        if (bracket > 0 && title.endsWith(QLatin1Char(']')))
            name = title.left(bracket).trimmed();
        if (showsSamples())
            unit = QCoreApplication::translate("TimeAxis", "samples");
        else if (timeStyle == MultiPlotScheme::Milliseconds)
            unit = QCoreApplication::translate("TimeAxis", "ms");
        else if (timeStyle == MultiPlotScheme::Minutes)
            unit = QCoreApplication::translate("TimeAxis", "min:s");
        else
            unit = QCoreApplication::translate("TimeAxis", "h:min:s");
    }
    if (name.isEmpty() || unit.isEmpty())
        return name.isEmpty() ? unit : name;
    return name + QStringLiteral(" [") + unit + QLatin1Char(']');
}
