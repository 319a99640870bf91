#include "recordingsummary.h"

#include "kiroheader.h"

#include <QDate>
#include <QTime>

#include <cmath>

namespace
{

QString totalTimeText(const KiroHeader& header)
{
    constexpr double DayMs = 24.0 * 60 * 60 * 1000;
    const auto duration = header.durationMSecs();
    if (!duration)
        return QString();
    const auto ms = static_cast<int>(std::fmod(*duration, DayMs));
    return QTime(0, 0, 0, 0).addMSecs(ms).toString(QStringLiteral("hh:mm:ss.zzz"));
}

QStringList signalRow(const KiroSignal& signal, const QLocale& locale)
{
    QStringList row;
    row << signal.fullName.toQString();
    row << signal.shortName.toQString();
    row << locale.toString(signal.frequency(), 'f', 3);
    row << QString::number(signal.samplesPerFrame);
    row << QString::number(signal.sampleSize);
    row << QString::fromLatin1(KiroValue::typeName(signal.valueType));
    row << signal.calibrationUnit.toQString();
    row << locale.toString(signal.calibrationFactor, 'g', 6);
    row << locale.toString(signal.calibrationOffset, 'g', 6);
    return row;
}

} // namespace

RecordingSummary RecordingSummary::of(const KiroHeader& header, const QLocale& locale)
{
    RecordingSummary summary;
    summary.program = header.storingProgram().toQString();
    summary.fileVersion = QString::number(header.version());
    summary.frameCount = QString::number(header.frameCount());
    summary.totalTime = totalTimeText(header);
    const QDate date(header.year(), header.month(), header.day());
    summary.date = locale.toString(date, QStringLiteral("dddd, d MMMM yyyy"));
    summary.time = header.timeString().toQString();
    summary.notes = header.notes().toQString();
    for (const auto& [name, value] : header.technicalRows())
        summary.technicalParameters.append({name.toQString(), value.toQString()});
    for (const KiroSignal& signal : header.signalTable())
        summary.signalRows.append(signalRow(signal, locale));
    return summary;
}
