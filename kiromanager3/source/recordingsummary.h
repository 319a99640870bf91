#pragma once

#include <QLocale>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

class KiroHeader;

/// What the file browser shows of a recording, as texts in the words and numbers of a locale.
struct RecordingSummary
{
    /// Columns of a row of the signal table.
    enum SignalColumn {
        FullName,
        ShortName,
        Frequency,       ///< Hz, 3 decimals
        SamplesPerFrame, ///< samples in a packet
        SampleSize,      ///< bytes
        SampleType,
        CalibrationUnit,
        CalibrationFactor, ///< 6 significant digits, as the next
        CalibrationOffset,
        SignalColumnCount
    };

    QString program;
    QString fileVersion;
    QString frameCount;
    QString totalTime; ///< hh:mm:ss.zzz, starting again after 24 hours; empty where there is none
    QString date;      ///< weekday, day, month and year in words; empty if there is no such day
    QString time;
    QString notes;
    QVector<QPair<QString, QString>> technicalParameters; ///< name and value
    QVector<QStringList> signalRows;

    static RecordingSummary of(const KiroHeader& header, const QLocale& locale = QLocale());
};
