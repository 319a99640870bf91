#include "labelentry.h"

#include "kirolabel.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace
{

const KiroLabel::Type AllTypes[] = {KiroLabel::Point, KiroLabel::SignalLine, KiroLabel::TimeLine,
                                    KiroLabel::SignalPeriod, KiroLabel::TimePeriod};
constexpr double MaxTime = 20.0; // seconds

QLocale english()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}

QLocale polish()
{
    return QLocale(QLocale::Polish, QLocale::Poland);
}

/// A label whose numbers no test enters.
KiroLabel labelOf(KiroLabel::Type type)
{
    KiroLabel label;
    label.type = type;
    label.time = 111;
    label.endTime = 222;
    label.value = 333.0;
    return label;
}

/// "time endTime value" of a label of the type after it was read into, or "refused".
std::string stored(KiroLabel::Type type, const LabelEntry& entry, double maxTime = MaxTime,
                   const QLocale& locale = english())
{
    KiroLabel label = labelOf(type);
    const bool valid = entry.store(label, maxTime, locale);
    const std::string numbers =
        QStringLiteral("%1 %2 %3").arg(label.time).arg(label.endTime).arg(label.value).toStdString();
    if (valid)
        return numbers;
    EXPECT_EQ(numbers, "111 222 333") << "refused, yet changed";
    return "refused";
}

LabelEntry entryOf(const char* start, const char* end, const char* position)
{
    return {QString::fromUtf8(start), QString::fromUtf8(end), QString::fromUtf8(position)};
}

} // namespace

TEST(LabelEntryTest, TimesHaveThreeDecimalsAndThePositionSix)
{
    KiroLabel label = labelOf(KiroLabel::Point);
    label.time = 1234567;
    label.endTime = 70;
    label.value = -1234.5;
    const LabelEntry entry = LabelEntry::of(label, english());
    EXPECT_EQ(entry.start.toStdString(), "1234.567");
    EXPECT_EQ(entry.end.toStdString(), "0.070");
    EXPECT_EQ(entry.position.toStdString(), "-1234.500000");
}

TEST(LabelEntryTest, NumbersAreInTheFormOfTheLocaleWithoutGroups)
{
    KiroLabel label = labelOf(KiroLabel::Point);
    label.time = 1234567;
    label.value = 1234567.25;
    const LabelEntry entry = LabelEntry::of(label, polish());
    EXPECT_EQ(entry.start.toStdString(), "1234,567");
    EXPECT_EQ(entry.position.toStdString(), "1234567,250000");
}

TEST(LabelEntryTest, ASmallNegativeValueIsZeroWithoutASign)
{
    KiroLabel label = labelOf(KiroLabel::Point);
    label.value = -4e-7;
    EXPECT_EQ(LabelEntry::of(label, polish()).position.toStdString(), "0,000000");
    label.value = -6e-7;
    EXPECT_EQ(LabelEntry::of(label, polish()).position.toStdString(), "-0,000001");
}

TEST(LabelEntryTest, WhatIsShownReadsBack)
{
    for (const QLocale& locale : {english(), polish(), QLocale(QLocale::German), QLocale(QLocale::Arabic)}) {
        for (const quint32 time : {0u, 1u, 999u, 86399999u, std::numeric_limits<quint32>::max() - 1}) {
            KiroLabel label = labelOf(KiroLabel::SignalPeriod);
            label.time = time;
            label.endTime = time + 1;
            label.value = -1048576.015625; // has six decimals in binary too
            KiroLabel read = labelOf(KiroLabel::SignalPeriod);
            ASSERT_TRUE(LabelEntry::of(label, locale).store(read, 5e6, locale)) << qPrintable(locale.name());
            EXPECT_EQ(read.time, label.time);
            EXPECT_EQ(read.endTime, label.endTime);
            EXPECT_EQ(read.value, label.value);
        }
    }
}

TEST(LabelEntryTest, EachTypeReadsItsNumbers)
{
    const LabelEntry entry = entryOf("1.5", "2.25", "-7.5");
    for (const KiroLabel::Type type : AllTypes)
        EXPECT_EQ(stored(type, entry), "1500 2250 -7.5") << type;
}

TEST(LabelEntryTest, AnUnreadableStartIsRefusedForEveryType)
{
    for (const char* start : {"", " ", "x", "1.5x", "1,5", "nan", "inf", "-inf", "1e999", "-0.001", "-1"}) {
        for (const KiroLabel::Type type : AllTypes)
            EXPECT_EQ(stored(type, entryOf(start, "2", "3")), "refused") << type << " " << start;
    }
}

TEST(LabelEntryTest, AnUnreadablePositionIsRefusedForAPointAndElseLeavesTheValue)
{
    for (const char* position : {"", "x", "1,5", "nan", "inf", "-inf", "1e999"}) {
        const LabelEntry entry = entryOf("1", "2", position);
        EXPECT_EQ(stored(KiroLabel::Point, entry), "refused") << position;
        for (const KiroLabel::Type type :
             {KiroLabel::SignalLine, KiroLabel::TimeLine, KiroLabel::SignalPeriod, KiroLabel::TimePeriod})
            EXPECT_EQ(stored(type, entry), "1000 2000 333") << type << " " << position;
    }
}

TEST(LabelEntryTest, AnUnreadableEndIsRefusedForPeriodsAndElseLeavesTheEnd)
{
    for (const char* end : {"", "x", "2,5", "nan", "inf", "-1", "4294967.296"}) {
        const LabelEntry entry = entryOf("1", end, "3");
        for (const KiroLabel::Type type : {KiroLabel::SignalPeriod, KiroLabel::TimePeriod})
            EXPECT_EQ(stored(type, entry, 5e6), "refused") << type << " " << end;
        for (const KiroLabel::Type type : {KiroLabel::Point, KiroLabel::SignalLine, KiroLabel::TimeLine})
            EXPECT_EQ(stored(type, entry, 5e6), "1000 222 3") << type << " " << end;
    }
}

TEST(LabelEntryTest, TheDurationIsAValidTimeAndAMillisecondMoreIsNot)
{
    for (const KiroLabel::Type type : {KiroLabel::Point, KiroLabel::SignalLine, KiroLabel::TimeLine}) {
        EXPECT_EQ(stored(type, entryOf("20", "0", "0")), "20000 0 0") << type;
        EXPECT_EQ(stored(type, entryOf("20.001", "0", "0")), "refused") << type;
    }
    for (const KiroLabel::Type type : {KiroLabel::SignalPeriod, KiroLabel::TimePeriod}) {
        EXPECT_EQ(stored(type, entryOf("0", "20", "0")), "0 20000 0") << type;
        EXPECT_EQ(stored(type, entryOf("0", "20.001", "0")), "refused") << type;
        EXPECT_EQ(stored(type, entryOf("20.001", "20.002", "0")), "refused") << type;
    }
}

// A label at the very end has whole milliseconds, which may lie half of one behind the last sample.
TEST(LabelEntryTest, TheDurationCountsAsRoundedToMilliseconds)
{
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("10.001", "0", "0"), 10.0005), "10001 0 0");
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("10.001", "0", "0"), 10.0004), "refused");
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("10.0004", "0", "0"), 10.0004), "10000 0 0");
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("0", "0", "0"), 0.0), "0 0 0");
}

TEST(LabelEntryTest, ADurationThatIsNoNumberHasNoValidTime)
{
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("0", "0", "0"), std::nan("")), "refused");
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("0", "0", "0"), -1.0), "refused");
}

TEST(LabelEntryTest, TheEndMustComeAfterTheStart)
{
    for (const KiroLabel::Type type : {KiroLabel::SignalPeriod, KiroLabel::TimePeriod}) {
        EXPECT_EQ(stored(type, entryOf("5", "5", "0")), "refused") << type;
        EXPECT_EQ(stored(type, entryOf("5", "4.999", "0")), "refused") << type;
        EXPECT_EQ(stored(type, entryOf("5", "5.001", "0")), "5000 5001 0") << type;
        EXPECT_EQ(stored(type, entryOf("5.0001", "5.0004", "0")), "refused") << type;
    }
    for (const KiroLabel::Type type : {KiroLabel::Point, KiroLabel::SignalLine, KiroLabel::TimeLine})
        EXPECT_EQ(stored(type, entryOf("5", "4", "0")), "5000 4000 0") << type;
}

TEST(LabelEntryTest, TimesRoundToMillisecondsHalvesUpward)
{
    EXPECT_EQ(stored(KiroLabel::SignalPeriod, entryOf("0.0005", "2.0625", "0")), "1 2063 0");
    EXPECT_EQ(stored(KiroLabel::SignalPeriod, entryOf("0.00049", "2.0624", "0")), "0 2062 0");
}

TEST(LabelEntryTest, TheLatestTimeThatALabelCanHaveIsTheLastAccepted)
{
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("4294967.295", "0", "0"), 1e9), "4294967295 0 0");
    EXPECT_EQ(stored(KiroLabel::TimeLine, entryOf("4294967.296", "0", "0"), 1e9), "refused");
}

TEST(LabelEntryTest, NumbersAreReadInTheLocale)
{
    EXPECT_EQ(stored(KiroLabel::Point, entryOf("1,5", "0", "-2,25"), MaxTime, polish()), "1500 0 -2.25");
    EXPECT_EQ(stored(KiroLabel::Point, entryOf("1.5", "0", "0"), MaxTime, polish()), "refused");
}

TEST(LabelEntryTest, ALabelOfNoKnownTypeIsRefused)
{
    EXPECT_EQ(stored(KiroLabel::Type(0), entryOf("1", "2", "3")), "refused");
    EXPECT_EQ(stored(KiroLabel::Type(6), entryOf("1", "2", "3")), "refused");
}
