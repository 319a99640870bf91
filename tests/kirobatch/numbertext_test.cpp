#include "numbertext.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

template <class Number>
std::string plain(Number number)
{
    std::string text;
    appendSample(text, number, NumberForm::Plain);
    return text;
}

template <class Number>
std::string json(Number number)
{
    std::string text;
    appendSample(text, number, NumberForm::Json);
    return text;
}

constexpr double Infinity = std::numeric_limits<double>::infinity();
const double NotANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(NumberText, BytesAreNumbersAndNotCharacters)
{
    EXPECT_EQ(plain(std::int8_t(-128)), "-128");
    EXPECT_EQ(plain(std::uint8_t(65)), "65");
}

TEST(NumberText, WideIntegersKeepAllDigits)
{
    EXPECT_EQ(plain(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(plain(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}

TEST(NumberText, DoublesAreTheShortestTextThatGivesThemBack)
{
    EXPECT_EQ(plain(0.1), "0.1");
    EXPECT_EQ(plain(1.0), "1");
    EXPECT_EQ(plain(-0.0), "-0");
    EXPECT_EQ(plain(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(plain(5e-324), "5e-324");
    EXPECT_EQ(plain(1.7976931348623157e308), "1.7976931348623157e+308");
}

TEST(NumberText, FloatsAreWidenedToDouble)
{
    EXPECT_EQ(plain(0.1f), "0.10000000149011612");
}

TEST(NumberText, NotFiniteNumbersHaveNames)
{
    EXPECT_EQ(plain(Infinity), "inf");
    EXPECT_EQ(plain(-Infinity), "-inf");
    EXPECT_EQ(plain(NotANumber), "nan");
    EXPECT_EQ(plain(-NotANumber), "nan");
}

TEST(NumberText, JsonQuotesWhatJsonReadersLose)
{
    EXPECT_EQ(json(std::int64_t(1)), "\"1\"");
    EXPECT_EQ(json(std::uint64_t(1)), "\"1\"");
    EXPECT_EQ(json(Infinity), "\"inf\"");
    EXPECT_EQ(json(-std::numeric_limits<float>::infinity()), "\"-inf\"");
    EXPECT_EQ(json(NotANumber), "\"nan\"");
    EXPECT_EQ(json(std::uint32_t(4294967295)), "4294967295");
    EXPECT_EQ(json(1e300), "1e+300");
}

TEST(NumberText, JsonKeepsTheSignOfZero)
{
    EXPECT_EQ(json(-0.0), "-0.0");
    EXPECT_EQ(json(-0.0f), "-0.0");
    EXPECT_EQ(json(0.0), "0");
}

TEST(NumberText, FixedTextHasItsDecimals)
{
    EXPECT_EQ(fixedText(1000, 3), "1000.000");
    EXPECT_EQ(fixedText(2.0 / 3, 3), "0.667");
    EXPECT_EQ(fixedText(std::numeric_limits<double>::max(), 3).size(), 309u + 4u);
    EXPECT_EQ(fixedText(Infinity, 3), "inf");
}

TEST(NumberText, GeneralTextHasAtMostItsDigits)
{
    EXPECT_EQ(generalText(85.66341, 6), "85.6634");
    EXPECT_EQ(generalText(1234567, 6), "1.23457e+06");
    EXPECT_EQ(generalText(1e-7, 6), "1e-07");
    EXPECT_EQ(generalText(1, 6), "1");
    EXPECT_EQ(generalText(NotANumber, 6), "nan");
}

TEST(CountedText, HasThePluralButForOne)
{
    EXPECT_EQ(counted(0, "packet"), "0 packets");
    EXPECT_EQ(counted(1, "packet"), "1 packet");
    EXPECT_EQ(counted(2, "packet"), "2 packets");
}
