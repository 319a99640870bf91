#include "saccadetimes.h"

#include "rounding.h"

#include <QLocale>

namespace
{

constexpr int MsPerSecond = 1000;
constexpr int MsPerMinute = 60 * MsPerSecond;
constexpr int MsPerHour = 60 * MsPerMinute;

QString padded(int number, int digits)
{
    return QStringLiteral("%1").arg(number, digits, 10, QLatin1Char('0'));
}

} // namespace

QString timeString(int sample, double frequency, TimeUnit unit, bool isDuration)
{
    QLocale locale = QLocale::system();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    if (unit == TimeUnit::Samples)
        return locale.toString(sample);
    const int ms = roundHalfUp(sample * 1000.0 / frequency);
    if (isDuration)
        return locale.toString(ms);
    if (unit == TimeUnit::Seconds)
        return locale.toString(ms / 1000.0, 'f', 3);
    const QString rest = padded(ms / MsPerSecond % 60, 2) + QLatin1Char('.') + padded(ms % MsPerSecond, 3);
    if (unit == TimeUnit::Minutes)
        return QString::number(ms / MsPerMinute) + QLatin1Char(':') + rest;
    return padded(ms / MsPerHour, 2) + QLatin1Char(':') + padded(ms / MsPerMinute % 60, 2) +
           QLatin1Char(':') + rest;
}

QString unitName(TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Samples:
        return QStringLiteral("smp");
    case TimeUnit::Seconds:
        return QStringLiteral("s");
    case TimeUnit::Minutes:
        return QStringLiteral("m");
    case TimeUnit::Hours:
        break;
    }
    return QStringLiteral("h");
}

QString durationUnitName(TimeUnit unit)
{
    return unit == TimeUnit::Samples ? unitName(unit) : QStringLiteral("ms");
}
