#include "signalreadout.h"

#include "plot.h"

#include <QCoreApplication>
#include <QLocale>

#include <cmath>

QString readoutNumber(double value, int decimals)
{
    QLocale plain;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    const QString text = plain.toString(value, 'f', decimals);
    return plain.toDouble(text) == 0.0 ? plain.toString(0.0, 'f', decimals) : text;
}

QString readoutValue(const Plot& plot, double drawnValue)
{
    return readoutNumber(drawnValue, plot.precision + 1);
}

QString readoutAt(const Plot& plot, double seconds)
{
    const int index = plot.sampleAt(seconds);
    if (index < 0)
        return QString();
    const double value = plot.drawnValue(plot.samples().value(index));
    if (!std::isfinite(value))
        return QString();
    const QString unit = plot.drawnUnit();
    return unit.isEmpty() ? readoutValue(plot, value) : readoutValue(plot, value) + QLatin1Char(' ') + unit;
}

QString statusText(const Plot& plot, const QString& name, double seconds, double drawnValue,
                   int timePrecision)
{
    const QString time = readoutNumber(seconds, timePrecision + 1);
    const QString value = readoutValue(plot, drawnValue);
    if (!plot.useCalib) {
        return QCoreApplication::translate("ReviewFrame", "Signal: %1, time: %2 s, value: %3")
            .arg(name, time, value);
    }
    return QCoreApplication::translate("ReviewFrame", "Signal: %1, time: %2 s, value: %3 %4")
        .arg(name, time, value, plot.calibUnit());
}
