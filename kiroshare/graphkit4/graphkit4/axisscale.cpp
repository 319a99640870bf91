#include "axisscale.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

constexpr int MostMarks = 10000;
constexpr int MostDecimals = 15;
constexpr int MostDecimalsOfSeconds = 9;
/// Room for the rounding of quotients.
constexpr double Almost = 1e-9;
/// Doubles from here on have no digits behind the decimal mark that are worth writing.
constexpr double LeastHuge = 1e15;
constexpr int SecondsOfMinute = 60;
constexpr int MinutesOfHour = 60;
constexpr double SecondsOfHour = 3600.0;

bool touch(const QVector<QRectF>& places, int every, double gap)
{
    for (int i = every; i < places.size(); i += every) {
        const QRectF before = places[i - every].adjusted(-gap, -gap, gap, gap);
        if (before.intersects(places[i]))
            return true;
    }
    return false;
}

/// `factor` times 10 to the `exponent`, as near as a double comes: negative powers of ten are not exact, so
/// they are divided by, as far as their inverse is a double.
double timesPowerOfTen(double factor, double exponent)
{
    const bool divides = exponent < 0.0 && exponent >= -std::numeric_limits<double>::max_exponent10;
    return divides ? factor / std::pow(10.0, -exponent) : factor * std::pow(10.0, exponent);
}

/// `count` steps, as near as a double comes where the step is one part of a whole number of parts: 3 steps of
/// 0.1 are 0.3, which 3 * 0.1 is not.
double timesStep(double count, double step)
{
    const double parts = std::round(1.0 / step);
    const bool isPart = step < 1.0 && std::isfinite(parts) && std::abs(parts * step - 1.0) < Almost;
    return isPart ? count / parts : count * step;
}

/// Whether a text of a number says more than zero.
bool hasDigitAboveZero(const QString& text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.digitValue() > 0; });
}

QString twoDigits(qint64 value)
{
    return QStringLiteral("%1").arg(value, 2, 10, QLatin1Char('0'));
}

} // namespace

double roundStep(double least)
{
    if (!(least > 0.0) || !std::isfinite(least))
        return 0.0;
    const double exponent = std::floor(std::log10(least));
    for (const double extra : {0.0, 1.0}) {
        for (const double factor : {1.0, 2.0, 5.0}) {
            const double step = timesPowerOfTen(factor, exponent + extra);
            if (step >= least * (1.0 - Almost))
                return std::isfinite(step) ? step : 0.0;
        }
    }
    return 0.0;
}

double stepForScale(double range, double pixels, double leastPixels)
{
    if (!(pixels > 0.0) || !(leastPixels > 0.0))
        return 0.0;
    return roundStep(std::abs(range) / pixels * leastPixels);
}

double timeStepForScale(double seconds, double pixels, double leastPixels, MultiPlotScheme::TimeStyle style)
{
    const double plain = stepForScale(seconds, pixels, leastPixels);
    if (style == MultiPlotScheme::Milliseconds || style == MultiPlotScheme::Seconds || plain <= 1.0)
        return plain;
    const double least = std::abs(seconds) / pixels * leastPixels * (1.0 - Almost);
    for (const double unit : {1.0, static_cast<double>(SecondsOfMinute)}) {
        for (const double factor : {1.0, 2.0, 5.0, 10.0, 20.0}) {
            if (factor * unit >= least)
                return factor * unit;
        }
    }
    const double step = roundStep(std::max(least / SecondsOfHour, 1.0)) * SecondsOfHour;
    return std::isfinite(step) ? step : 0.0;
}

int decimalsOfStep(double step)
{
    if (!(step > 0.0) || !std::isfinite(step))
        return 0;
    double scaled = step;
    for (int decimals = 0; decimals < MostDecimals; ++decimals, scaled *= 10.0) {
        if (std::abs(scaled - std::round(scaled)) <= Almost * scaled && std::round(scaled) >= 1.0)
            return decimals;
    }
    return MostDecimals;
}

QVector<double> gridValues(double min, double max, double step, double origin)
{
    QVector<double> values;
    const double first = std::ceil((min - origin) / step - Almost);
    const double last = std::floor((max - origin) / step + Almost);
    // Written so that what is not a number ends here.
    const bool usable = step > 0.0 && std::isfinite(step) && std::isfinite(first) && last >= first &&
                        last - first < MostMarks;
    if (!usable)
        return values;
    const int count = static_cast<int>(last - first) + 1;
    values.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double exact = origin + timesStep(first + i, step);
        const double value = std::abs(exact) < step * 1e-6 ? 0.0 : exact;
        // Far from zero a step may be finer than doubles are.
        if (std::isfinite(value) && (values.isEmpty() || value > values.last()))
            values.append(value);
    }
    return values;
}

QVector<int> textsThatFit(const QVector<QRectF>& places, double gap)
{
    int every = 1;
    while (every < places.size() && touch(places, every, gap))
        ++every;
    QVector<int> kept;
    for (int i = 0; i < places.size(); i += every)
        kept.append(i);
    return kept;
}

QString numberText(double value, int decimals)
{
    if (!(std::abs(value) < LeastHuge))
        return QLocale().toString(value, 'g', QLocale::FloatingPointShortest);
    const int digits = std::clamp(decimals, 0, MostDecimals);
    const QString text = QLocale().toString(value, 'f', digits);
    return hasDigitAboveZero(text) ? text : QLocale().toString(0.0, 'f', digits);
}

QString timeText(double seconds, MultiPlotScheme::TimeStyle style, int decimals)
{
    const int digits = std::clamp(decimals, 0, MostDecimalsOfSeconds);
    if (style == MultiPlotScheme::Milliseconds)
        return numberText(seconds * 1000.0, std::max(digits - 3, 0));
    if (style == MultiPlotScheme::Seconds || !(std::abs(seconds) < LeastHuge))
        return numberText(seconds, digits);

    // Split as text, so that the number is rounded once and exactly as in the style of seconds.
    const QString number = QString::number(std::abs(seconds), 'f', digits);
    const QString sign = seconds < 0.0 && hasDigitAboveZero(number) ? QStringLiteral("-") : QString();
    const int mark = number.indexOf(QLatin1Char('.'));
    const QString fraction = mark < 0 ? QString() : number.mid(mark);
    const qint64 whole = number.leftRef(mark).toLongLong();
    const QString rest = twoDigits(whole % SecondsOfMinute) + fraction;
    const qint64 minutes = whole / SecondsOfMinute;
    if (style == MultiPlotScheme::Minutes)
        return sign + QString::number(minutes) + QLatin1Char(':') + rest;
    return sign + QString::number(minutes / MinutesOfHour) + QLatin1Char(':') +
           twoDigits(minutes % MinutesOfHour) + QLatin1Char(':') + rest;
}
