#include "recordingsummary.h"

#include "recordingfile.h"

#include <gtest/gtest.h>

namespace
{

KiroHeader sampleHeader()
{
    KiroSignal signal = makeSignal("Eye", KiroValue::Unknown, 2, 4, 1000);
    signal.shortName = "e";
    signal.calibrationUnit = "deg";
    signal.calibrationFactor = 1234567.891;
    signal.calibrationOffset = -0.5;
    KiroHeader header = makeHeader({signal}, 22500000); // 25 hours of 4 ms
    header.setDay(1);
    header.setMonth(2);
    header.setYear(2021);
    return header;
}

} // namespace

TEST(RecordingSummaryTest, RowsFollowTheLocale)
{
    const KiroHeader header = sampleHeader();
    EXPECT_EQ(RecordingSummary::of(header, QLocale::c()).signalRows[0].join(QLatin1Char('|')),
              QStringLiteral("Eye|e|%1|4|2|unknown|deg|1.23457e+06|-0.5")
                  .arg(QLocale::c().toString(1000.0, 'f', 3)));
    const QLocale polish(QLocale::Polish, QLocale::Poland);
    const QString text = RecordingSummary::of(header, polish).signalRows[0].join(QLatin1Char('|'));
    EXPECT_EQ(text, QStringLiteral("Eye|e|1\u00a0000,000|4|2|unknown|deg|%1|-0,5")
                        .arg(polish.toString(1234567.891, 'g', 6)));
}

TEST(RecordingSummaryTest, DateIsInTheWordsOfTheLocale)
{
    const KiroHeader header = sampleHeader();
    EXPECT_EQ(RecordingSummary::of(header, QLocale::c()).date, QStringLiteral("Monday, 1 February 2021"));
    EXPECT_EQ(RecordingSummary::of(header, QLocale(QLocale::Polish, QLocale::Poland)).date,
              QStringLiteral("poniedzia\u0142ek, 1 lutego 2021"));
}

TEST(RecordingSummaryTest, ADateThatDoesNotExistIsEmpty)
{
    KiroHeader header = sampleHeader();
    header.setMonth(13);
    EXPECT_EQ(RecordingSummary::of(header, QLocale::c()).date, QString());
}

TEST(RecordingSummaryTest, TotalTimeStartsAgainAfterADay)
{
    EXPECT_EQ(RecordingSummary::of(sampleHeader(), QLocale::c()).totalTime, QStringLiteral("01:00:00.000"));
}

TEST(RecordingSummaryTest, WithoutSignalsThereIsNoTotalTime)
{
    EXPECT_EQ(RecordingSummary::of(makeHeader({}, 5), QLocale::c()).totalTime, QString());
}

TEST(RecordingSummaryTest, TextsAreReadInTheLocalEncoding)
{
    KiroHeader header = sampleHeader();
    const QString text = QStringLiteral("za\u017c\u00f3\u0142\u0107");
    header.setNotes(text);
    header.setTechnicalParameters(KiroString(text + QStringLiteral("\tx\ty")));
    const RecordingSummary summary = RecordingSummary::of(header, QLocale::c());
    EXPECT_EQ(summary.notes, text);
    EXPECT_EQ(summary.technicalParameters, (QVector<QPair<QString, QString>>{{text, QStringLiteral("x")}}));
}
