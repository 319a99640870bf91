#include "jsonvalues.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <limits>

namespace
{

/// The only element of a JSON array.
QJsonValue parsed(const char* element)
{
    return QJsonDocument::fromJson(QByteArray("[") + element + "]").array().at(0);
}

bool agrees(const Verdict& verdict)
{
    return verdict.empty();
}

template <class Value>
bool sameNumber(const char* element, Value found)
{
    return agrees(compareNumber(parsed(element), toNumber(found)));
}

} // namespace

TEST(JsonValues, ExtremeDoublesAreReadExactly)
{
    EXPECT_TRUE(sameNumber("5e-324", std::numeric_limits<double>::denorm_min()));
    EXPECT_TRUE(sameNumber("1.7976931348623157e+308", std::numeric_limits<double>::max()));
    EXPECT_TRUE(sameNumber("2.2250738585072014e-308", std::numeric_limits<double>::min()));
    EXPECT_TRUE(sameNumber("2.225073858507201e-308", 0x0.fffffffffffffp-1022));
}

TEST(JsonValues, ShortestDecimalsAreReadAsTheirDouble)
{
    EXPECT_TRUE(sameNumber("0.1", 0x1.999999999999ap-4));
    EXPECT_TRUE(sameNumber("9007199254740993.0", 0x1p53));
    EXPECT_TRUE(sameNumber("1.0000000000000002", 0x1.0000000000001p0));
    EXPECT_TRUE(sameNumber("-85.66339439573404", -0x1.56a750dc481c1p6));
}

TEST(JsonValues, NeighbouringDoublesDiffer)
{
    EXPECT_FALSE(sameNumber("1.0", 0x1.0000000000001p0));
    EXPECT_FALSE(sameNumber("5e-324", 0.0));
    EXPECT_FALSE(sameNumber("1.7976931348623155e+308", std::numeric_limits<double>::max()));
}

TEST(JsonValues, ZerosOfBothSignsAreEqual)
{
    EXPECT_TRUE(sameNumber("0.0", -0.0));
    EXPECT_TRUE(sameNumber("-0.0", 0.0));
}

TEST(JsonValues, SpecialDoublesAreTexts)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(sameNumber("\"nan\"", nan));
    EXPECT_TRUE(sameNumber("\"inf\"", infinity));
    EXPECT_TRUE(sameNumber("\"-inf\"", -infinity));
    EXPECT_FALSE(sameNumber("\"inf\"", -infinity));
    EXPECT_FALSE(sameNumber("\"-inf\"", nan));
    EXPECT_FALSE(sameNumber("\"nan\"", 0.0));
    EXPECT_FALSE(sameNumber("0.0", nan));
}

TEST(JsonValues, LargeIntegersAreComparedByTheirDigits)
{
    EXPECT_TRUE(sameNumber("\"18446744073709551615\"", std::numeric_limits<std::uint64_t>::max()));
    EXPECT_TRUE(sameNumber("\"-9223372036854775808\"", std::numeric_limits<std::int64_t>::min()));
    EXPECT_FALSE(sameNumber("\"9007199254740993\"", std::int64_t(9007199254740992)));
}

TEST(JsonValues, LargeIntegersThatLostDigitsInJsonNeverAgree)
{
    EXPECT_TRUE(sameNumber("9007199254740991", std::int64_t(9007199254740991)));
    EXPECT_FALSE(sameNumber("9007199254740993", std::int64_t(9007199254740992)));
    EXPECT_FALSE(sameNumber("9007199254740992", std::int64_t(9007199254740993)));
}

TEST(JsonValues, OtherJsonTypesAreNoNumbers)
{
    EXPECT_FALSE(sameNumber("null", 0));
    EXPECT_FALSE(sameNumber("false", 0));
    EXPECT_FALSE(sameNumber("\"\"", 0));
    EXPECT_FALSE(sameNumber("[0]", 0.0));
}

TEST(JsonValues, TextsAreTheBytesOfLatin1)
{
    EXPECT_TRUE(agrees(compareText(parsed("\"\\u00e9\\u0080\\t\""), "\xe9\x80\t")));
    EXPECT_TRUE(agrees(compareText(parsed("\"\xc3\xa9\""), "\xe9")));
    EXPECT_FALSE(agrees(compareText(parsed("\"\\u00e9\""), "\xc3\xa9")));
    EXPECT_FALSE(agrees(compareText(parsed("\"a\""), std::string("a\0", 2))));
}

TEST(JsonValues, CharactersAboveAByteAreRefused)
{
    EXPECT_THROW(bytesOf(parsed("\"\\u0105\"")), std::runtime_error);
    EXPECT_THROW(bytesOf(parsed("7")), std::runtime_error);
}

TEST(JsonValues, DifferenceInALongTextIsAmongTheBytesShown)
{
    const std::string found = std::string(500, 'a') + "X" + std::string(500, 'b');
    const std::string wanted = std::string(500, 'a') + "Y" + std::string(500, 'b');
    const Verdict verdict = compareText(QString::fromStdString(wanted), found);
    ASSERT_EQ(verdict.size(), 1u);
    EXPECT_EQ(verdict[0].found.toStdString(),
              "...\"" + std::string(20, 'a') + "X" + std::string(43, 'b') + "\"...");
    EXPECT_EQ(verdict[0].wanted.toStdString(),
              "...\"" + std::string(20, 'a') + "Y" + std::string(43, 'b') + "\"...");
}

TEST(JsonValues, ArraysNameEachElementThatDiffers)
{
    const QJsonValue wanted = QJsonArray{1, 2, 3};
    const Verdict verdict = compareNumbers(wanted, {toNumber(1), toNumber(5), toNumber(6)});
    ASSERT_EQ(verdict.size(), 2u);
    EXPECT_EQ(verdict[0].place, QStringLiteral("[1]"));
    EXPECT_EQ(verdict[1].place, QStringLiteral("[2]"));
    EXPECT_EQ(verdict[1].found, QStringLiteral("6"));
}

TEST(JsonValues, ArraysOfAnotherLengthDiffer)
{
    EXPECT_FALSE(agrees(compareNumbers(QJsonArray{1, 2}, {toNumber(1)})));
    EXPECT_FALSE(agrees(compareNumbers(QJsonArray{1}, {toNumber(1), toNumber(2)})));
    EXPECT_TRUE(agrees(compareNumbers(QJsonArray{}, {})));
    EXPECT_FALSE(agrees(compareNumbers(QJsonValue(), {})));
}
