#include "kirostring.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace
{

struct ToIntCase
{
    const char* text;
    int value;
    bool ok;
};

class KiroStringToInt : public testing::TestWithParam<ToIntCase>
{
};

} // namespace

TEST_P(KiroStringToInt, GivesNumberAndSuccess)
{
    bool ok = !GetParam().ok;
    EXPECT_EQ(KiroString(GetParam().text).toInt(&ok), GetParam().value);
    EXPECT_EQ(ok, GetParam().ok);
}

INSTANTIATE_TEST_SUITE_P(Texts, KiroStringToInt,
                         testing::Values(ToIntCase{"0", 0, true}, ToIntCase{"-7", -7, true},
                                         ToIntCase{"-", 0, false}, ToIntCase{"abc", 0, false},
                                         ToIntCase{"  12 ", 12, true}, ToIntCase{"", 0, false},
                                         ToIntCase{" ", 0, false}, ToIntCase{"-0", 0, true},
                                         ToIntCase{"-x", 0, false}, ToIntCase{"0x", 0, true},
                                         ToIntCase{"5x", 5, true}, ToIntCase{"+3", 3, true},
                                         ToIntCase{"+0", 0, false}, ToIntCase{"\t9\r\n", 9, true},
                                         ToIntCase{"2147483647", 2147483647, true}));

TEST(KiroStringTest, ToIntNeedsNoFlag)
{
    EXPECT_EQ(KiroString("41").toInt(), 41);
}

TEST(KiroStringTest, NullPointerGivesEmptyText)
{
    EXPECT_EQ(KiroString(static_cast<const char*>(nullptr)).length(), 0);
}

TEST(KiroStringTest, QStringTakesTheRoadOfTheLocalEncoding)
{
    const QString text = QStringLiteral("za\u017c\u00f3\u0142\u0107");
    EXPECT_EQ(KiroString(text).bytes(), text.toLocal8Bit().toStdString());
    EXPECT_EQ(KiroString(text).toQString(), text);
}

TEST(KiroStringTest, HoldsZeroBytes)
{
    const KiroString text = KiroString::fromBytes(std::string("a\0b", 3));
    EXPECT_EQ(text.length(), 3);
    EXPECT_EQ(text.at(2), 'b');
    EXPECT_EQ(text.toQString().size(), 3);
}

TEST(KiroStringTest, EqualityIsByteForByte)
{
    EXPECT_TRUE(KiroString("abc") == KiroString("abc"));
    EXPECT_TRUE(KiroString("abc") != KiroString("abC"));
    EXPECT_FALSE(KiroString("abc") == KiroString("abcd"));
}

TEST(KiroStringTest, CompareOrdersBytes)
{
    EXPECT_EQ(KiroString("abc").compare("abc"), 0);
    EXPECT_LT(KiroString("Zeta").compare("alpha"), 0);
    EXPECT_GT(KiroString("b").compare("abc"), 0);
}

TEST(KiroStringTest, CompareCanIgnoreCase)
{
    EXPECT_EQ(KiroString("Eye").compare("EYE", false), 0);
    EXPECT_GT(KiroString("Zeta").compare("alpha", false), 0);
    EXPECT_NE(KiroString("Eye").compare("EYE", true), 0);
}

TEST(KiroStringTest, BytesThatAreNoTextStayDifferentWithoutCase)
{
    EXPECT_NE(KiroString("\xe8").compare("\xe9", false), 0);
    EXPECT_FALSE(KiroString("\xe8x").startsWith("\xe9", false));
}

TEST(KiroStringTest, StartsWithNeedsTheWholeNeedle)
{
    EXPECT_TRUE(KiroString("Eye movement").startsWith("Eye"));
    EXPECT_FALSE(KiroString("Eye").startsWith("Eye movement"));
    EXPECT_FALSE(KiroString("Eye").startsWith("eye"));
    EXPECT_TRUE(KiroString("Eye").startsWith("eYE", false));
    EXPECT_TRUE(KiroString("Eye").startsWith(""));
}

TEST(KiroStringTest, IndexOfSearchesBytes)
{
    const KiroString text("gyro x gyro y");
    EXPECT_EQ(text.indexOf("gyro"), 0);
    EXPECT_EQ(text.indexOf("gyro", 1), 7);
    EXPECT_EQ(text.indexOf("gyro", 8), -1);
    EXPECT_EQ(text.indexOf("z"), -1);
    EXPECT_EQ(text.indexOf("", 5), 5);
    EXPECT_EQ(text.indexOf("", 99), 99);
    EXPECT_EQ(text.indexOf("gyro", 99), -1);
}

TEST(KiroStringTest, CutsAreHeldWithinTheText)
{
    const KiroString text("abcdef");
    EXPECT_EQ(text.left(2).bytes(), "ab");
    EXPECT_EQ(text.left(9).bytes(), "abcdef");
    EXPECT_EQ(text.left(-1).bytes(), "abcdef");
    EXPECT_EQ(text.right(2).bytes(), "ef");
    EXPECT_EQ(text.right(9).bytes(), "abcdef");
    EXPECT_EQ(text.mid(2).bytes(), "cdef");
    EXPECT_EQ(text.mid(2, 2).bytes(), "cd");
    EXPECT_EQ(text.mid(6).bytes(), "");
    EXPECT_EQ(text.mid(7).bytes(), "");
    EXPECT_EQ(text.mid(-1).bytes(), "");
}

TEST(KiroStringTest, TrimmingTakesBlanksTabsAndLineEnds)
{
    const KiroString text(" \t\r\n a b \n\r\t ");
    EXPECT_EQ(text.trimmed().bytes(), "a b");
    EXPECT_EQ(text.trimmedLeft().bytes(), "a b \n\r\t ");
    EXPECT_EQ(text.trimmedRight().bytes(), " \t\r\n a b");
    EXPECT_EQ(KiroString(" \n").trimmed().bytes(), "");
    EXPECT_EQ(KiroString("\va").trimmed().bytes(), "\va");
}

TEST(KiroStringTest, Concatenates)
{
    KiroString text("a");
    text += "b";
    EXPECT_EQ((text + KiroString("c")).bytes(), "abc");
    text.clear();
    EXPECT_TRUE(text.isEmpty());
}

TEST(KiroStringTest, ScratchIsACopyForWriting)
{
    KiroString text("abc");
    char* const buffer = text.scratch();
    buffer[0] = 'X';
    EXPECT_STREQ(buffer, "Xbc");
    EXPECT_EQ(text.bytes(), "abc");
    const KiroString copy = text;
    EXPECT_EQ(copy.bytes(), "abc");
}

TEST(KiroStringTest, ArgFillsWithZeros)
{
    EXPECT_EQ(KiroString("%1").arg(5, 2, 10, '0').bytes(), "05");
    EXPECT_EQ(KiroString("%1").arg(-5, 4, 10, '0').bytes(), "-005");
}

TEST(KiroStringTest, ArgReplacesTheLowestNumber)
{
    EXPECT_EQ(KiroString("%2/%1").arg(5).bytes(), "%2/5");
    EXPECT_EQ(KiroString("%3-%2").arg("a", 3, '_').bytes(), "%3-__a");
    EXPECT_EQ(KiroString("%12 %2").arg(1).arg(2).bytes(), "2 1");
}

TEST(KiroStringTest, ArgReplacesEachOccurrence)
{
    EXPECT_EQ(KiroString("%1 and %1").arg("x").bytes(), "x and x");
}

TEST(KiroStringTest, ArgWithoutPlaceholderChangesNothing)
{
    EXPECT_EQ(KiroString("none").arg(5).bytes(), "none");
    EXPECT_EQ(KiroString("100 % %").arg(5).bytes(), "100 % %");
}

TEST(KiroStringTest, ArgReplacesOnlyDecimalDigits)
{
    EXPECT_EQ(KiroString("%\xb2 %1").arg(5).bytes(), "%\xb2 5");
}

TEST(KiroStringTest, ArgPadsOnTheRightForNegativeWidth)
{
    EXPECT_EQ(KiroString("<%1>").arg("ab", -4).bytes(), "<ab  >");
    EXPECT_EQ(KiroString("<%1>").arg(7, -3).bytes(), "<7  >");
}

TEST(KiroStringTest, ArgKnowsEveryWidthOfInteger)
{
    EXPECT_EQ(KiroString("%1").arg(std::int8_t(-128)).bytes(), "-128");
    EXPECT_EQ(KiroString("%1").arg(std::uint8_t(255)).bytes(), "255");
    EXPECT_EQ(KiroString("%1").arg(std::int16_t(-32768)).bytes(), "-32768");
    EXPECT_EQ(KiroString("%1").arg(std::uint16_t(65535)).bytes(), "65535");
    EXPECT_EQ(KiroString("%1").arg(std::uint32_t(4294967295u)).bytes(), "4294967295");
    EXPECT_EQ(KiroString("%1").arg(std::numeric_limits<std::int64_t>::min()).bytes(), "-9223372036854775808");
    EXPECT_EQ(KiroString("%1").arg(std::numeric_limits<std::uint64_t>::max()).bytes(),
              "18446744073709551615");
    EXPECT_EQ(KiroString("0x%1").arg(74565, 8, 16).bytes(), "0x   12345");
}

TEST(KiroStringTest, ArgTakesFloatingNumbers)
{
    EXPECT_EQ(KiroString("%1").arg(2.5).bytes(), "2.5");
    EXPECT_EQ(KiroString("%1").arg(3.14159, 8, 'f', 2).bytes(), "    3.14");
}
