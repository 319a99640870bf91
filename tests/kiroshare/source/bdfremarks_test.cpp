#include "bdfremarks.h"

#include "bdfbuilder.h"
#include "bdfimporter.h"
#include "recordingbuilder.h"

#include <gtest/gtest.h>

namespace
{

std::vector<BdfRemark> remarksOn(const BdfFields& fields, int sampleBytes = 0)
{
    const TestFolder folder;
    BdfImporter importer;
    importer.setSampleBytes(sampleBytes);
    EXPECT_TRUE(importer.load(folder.write(QStringLiteral("f"), fields.bytes()).toQString()))
        << importer.errorText().toStdString();
    return importer.remarks();
}

/// A file of one channel with these ranges.
BdfFields withRanges(const char* physicalMinimum, const char* physicalMaximum, const char* digitalMinimum,
                     const char* digitalMaximum)
{
    BdfFields fields;
    fields.channels.resize(1);
    fields.channels[0].physicalMinimum = physicalMinimum;
    fields.channels[0].physicalMaximum = physicalMaximum;
    fields.channels[0].digitalMinimum = digitalMinimum;
    fields.channels[0].digitalMaximum = digitalMaximum;
    return fields;
}

/// Text of the only remark, of this kind and on this channel.
std::string onlyRemark(const std::vector<BdfRemark>& remarks, BdfRemark::Kind kind,
                       const std::vector<int>& channels)
{
    if (remarks.size() != 1 || remarks[0].kind != kind || remarks[0].channels != channels)
        return "another remark or none";
    return remarks[0].text.toStdString();
}

constexpr const char* Shifted =
    "The import keeps no offset, so that physical zero reads as another value in: ";
constexpr const char* Inverted =
    "The range is inverted, so that samples are stored as they are, without calibration, in: ";

} // namespace

TEST(BdfRemarks, SymmetricFileNeedsNone)
{
    EXPECT_TRUE(remarksOn(withRanges("-100", "100", "-1000", "1000")).empty());
    EXPECT_TRUE(remarksOn(withRanges("-3276.8", "3276.7", "-32768", "32767")).empty());
}

TEST(BdfRemarks, HalfADigitalStepNeedsNone)
{
    EXPECT_TRUE(remarksOn(withRanges("-262144", "262144", "-8388608", "8388607")).empty());
    EXPECT_TRUE(remarksOn(withRanges("-100", "100", "-32768", "32767")).empty());
}

TEST(BdfRemarks, BdfWithoutTheWidthTextIsNamed)
{
    BdfFields fields = withRanges("-100", "100", "-1000", "1000");
    fields.reserved = "BIOSEMI";
    EXPECT_EQ(
        onlyRemark(remarksOn(fields), BdfRemark::NoWidthText, {}),
        "The file is a BDF file, but its reserved field holds \"BIOSEMI\" and not \"24BIT\": its samples "
        "are read as 16-bit numbers.");
    EXPECT_TRUE(remarksOn(fields, 3).empty());
}

TEST(BdfRemarks, EdfNeedsNoWidthText)
{
    BdfFields fields = withRanges("-100", "100", "-1000", "1000");
    fields.mark = "0";
    fields.reserved = "EDF+C";
    EXPECT_TRUE(remarksOn(fields).empty());
}

TEST(BdfRemarks, WidthGivenAgainstTheTextNeedsNone)
{
    EXPECT_TRUE(remarksOn(withRanges("-100", "100", "-1000", "1000"), 2).empty());
}

// 34 to 40 degrees over 4096 steps: 0 would lie at step -2048 - 34 * 682.5, which reads as -37.0007.
TEST(BdfRemarks, ShiftedZeroIsGivenInTheChannelsUnit)
{
    BdfFields fields = withRanges("34", "40", "-2048", "2047");
    fields.channels[0].label = "Temp";
    fields.channels[0].physicalDimension = "DegC";
    EXPECT_EQ(onlyRemark(remarksOn(fields), BdfRemark::ShiftedZero, {0}),
              std::string(Shifted) + "Temp (-37.0007 DegC).");
}

TEST(BdfRemarks, ShiftedZeroOfAnUncalibratedChannelIsGivenInSteps)
{
    EXPECT_EQ(onlyRemark(remarksOn(withRanges("-100", "100", "0", "200")), BdfRemark::ShiftedZero, {0}),
              std::string(Shifted) + "A1 (100).");
}

TEST(BdfRemarks, ShiftOfAMarkedChannelCounts)
{
    BdfFields fields = withRanges("-100", "100", "-1000", "1000");
    fields.channels[0].transducer = "Kiro Multisensor";
    EXPECT_EQ(onlyRemark(remarksOn(fields), BdfRemark::ShiftedZero, {0}),
              std::string(Shifted) + "A1 (204.8 uV).");
    EXPECT_TRUE(remarksOn(fields, 2).empty());
    fields.channels[0].digitalMinimum = "-3048";
    fields.channels[0].digitalMaximum = "-1048";
    EXPECT_TRUE(remarksOn(fields).empty());
}

TEST(BdfRemarks, StatusChannelNeedsNone)
{
    BdfFields fields = withRanges("100", "0", "0", "255");
    fields.channels[0].label = "Status";
    fields.channels[0].physicalDimension = "Boolean";
    EXPECT_TRUE(remarksOn(fields).empty());
}

TEST(BdfRemarks, ChannelWithoutARangeNeedsNone)
{
    EXPECT_TRUE(remarksOn(withRanges("5", "5", "0", "255")).empty());
    EXPECT_TRUE(remarksOn(withRanges("nan", "5", "0", "255")).empty());
    EXPECT_TRUE(remarksOn(withRanges("-inf", "inf", "0", "255")).empty());
}

TEST(BdfRemarks, InvertedRangeIsNamed)
{
    EXPECT_EQ(onlyRemark(remarksOn(withRanges("8711.5", "-8711.5", "-32768", "32767")),
                         BdfRemark::InvertedRange, {0}),
              std::string(Inverted) + "A1 (8711.5 to -8711.5 uV).");
    EXPECT_EQ(
        onlyRemark(remarksOn(withRanges("-100", "100", "1000", "-1000")), BdfRemark::InvertedRange, {0}),
        std::string(Inverted) + "A1 (-100 to 100 uV).");
}

TEST(BdfRemarks, GainThatIsNotKeptIsNamedWithTheValueOfAStep)
{
    const std::string text =
        "The gain is too small for the import to keep it, so that samples are stored as they are, without "
        "calibration, in (value of one step): A1 (2.5 uV).";
    EXPECT_EQ(onlyRemark(remarksOn(withRanges("-2500", "2500", "-1000", "1000")), BdfRemark::LostScale, {0}),
              text);
    EXPECT_TRUE(remarksOn(withRanges("-1000", "1000", "-1000", "1000")).empty()) << "one step is one unit";
}

TEST(BdfRemarks, RangeInvertedTwiceNeedsNone)
{
    EXPECT_TRUE(remarksOn(withRanges("100", "-100", "1000", "-1000")).empty());
}

TEST(BdfRemarks, ChannelWithoutALabelIsNamedByItsNumber)
{
    BdfFields fields = withRanges("-100", "100", "0", "200");
    fields.channels.insert(fields.channels.begin(), BdfChannelFields());
    fields.channels[1].label = "";
    EXPECT_EQ(onlyRemark(remarksOn(fields), BdfRemark::ShiftedZero, {1}),
              std::string(Shifted) + "no 2 (100).");
}

TEST(BdfRemarks, NamesTheFirstEightChannelsAndCountsTheOthers)
{
    BdfFields fields = withRanges("-100", "100", "0", "200");
    fields.channels.resize(10, fields.channels[0]);
    for (std::size_t i = 0; i < 10; ++i)
        fields.channels[i].label = "C" + std::to_string(i);
    EXPECT_EQ(onlyRemark(remarksOn(fields), BdfRemark::ShiftedZero, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}),
              std::string(Shifted) + "C0 (100), C1 (100), C2 (100), C3 (100), C4 (100), C5 (100), C6 (100), "
                                     "C7 (100) and 2 more.");
}

TEST(BdfRemarks, StandInTheOrderOfTheirKinds)
{
    BdfFields fields = withRanges("100", "-100", "0", "200");
    fields.reserved = "";
    const std::vector<BdfRemark> remarks = remarksOn(fields);
    ASSERT_EQ(remarks.size(), 3u);
    EXPECT_EQ(remarks[0].kind, BdfRemark::NoWidthText);
    EXPECT_EQ(remarks[1].kind, BdfRemark::ShiftedZero);
    EXPECT_EQ(remarks[2].kind, BdfRemark::InvertedRange);
}

TEST(BdfRemarks, AreKeptAfterTheConversionAndForgottenByAFailedLoad)
{
    const TestFolder folder;
    BdfImporter importer;
    const BdfFields fields = withRanges("-100", "100", "0", "200");
    ASSERT_TRUE(importer.load(folder.write(QStringLiteral("f"), fields.bytes()).toQString()));
    ASSERT_TRUE(importer.convert(folder.path(QStringLiteral("f.kiro"))));
    EXPECT_EQ(importer.remarks().size(), 1u);
    EXPECT_FALSE(importer.load(folder.path(QStringLiteral("absent"))));
    EXPECT_TRUE(importer.remarks().empty());
}
