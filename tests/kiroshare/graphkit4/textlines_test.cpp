#include "textlines.h"

#include <gtest/gtest.h>

#include <QFont>

namespace
{

const QFontMetricsF& metrics()
{
    static const QFontMetricsF metrics{QFont()};
    return metrics;
}

double widthOf(const char* text)
{
    return metrics().horizontalAdvance(QString::fromUtf8(text)) + 0.5;
}

/// The lines, with a bar between them.
std::string lines(const char* text, double width, int most)
{
    return textLines(QString::fromUtf8(text), width, most, metrics()).join(QLatin1Char('|')).toStdString();
}

} // namespace

TEST(TextLinesTest, BreaksBetweenWordsWhereTheWidthEnds)
{
    EXPECT_EQ(lines("one two three", widthOf("one two three"), 3), "one two three");
    EXPECT_EQ(lines("one two three", widthOf("one two"), 3), "one two|three");
}

TEST(TextLinesTest, BreaksBehindUnderscoresToo)
{
    EXPECT_EQ(lines("EYE_RIGHT_HORIZONTAL [deg]", widthOf("HORIZONTAL"), 3), "EYE_RIGHT_|HORIZONTAL|[deg]");
    EXPECT_EQ(lines("EYE_RIGHT", widthOf("EYE_RIGHT"), 3), "EYE_RIGHT");
    EXPECT_EQ(lines("_", 1000.0, 3), "_");
}

TEST(TextLinesTest, WhiteSpaceCountsAsOneBlank)
{
    EXPECT_EQ(lines("  one\n\ttwo ", 1000.0, 3), "one two");
}

TEST(TextLinesTest, TheLastLineIsCutAtItsEnd)
{
    const double width = widthOf("mmm mmm");
    const QStringList got = textLines(QStringLiteral("mmm mmm mmm mmm"), width, 1, metrics());
    ASSERT_EQ(got.size(), 1);
    EXPECT_TRUE(got[0].startsWith(QStringLiteral("mmm m")));
    EXPECT_TRUE(got[0].endsWith(QChar(0x2026)));
    EXPECT_LE(metrics().horizontalAdvance(got[0]), width);
}

TEST(TextLinesTest, AWordThatIsTooLongIsCutInItsMiddleAndTheRestFollows)
{
    const double width = widthOf("ammmb");
    const QStringList got = textLines(QStringLiteral("ammmmmmmmmb mmm nmm"), width, 3, metrics());
    ASSERT_EQ(got.size(), 3);
    EXPECT_TRUE(got[0].startsWith(QStringLiteral("am")));
    EXPECT_TRUE(got[0].contains(QChar(0x2026)));
    EXPECT_TRUE(got[0].endsWith(QStringLiteral("b")));
    EXPECT_LE(metrics().horizontalAdvance(got[0]), width);
    EXPECT_EQ(got.mid(1), QStringList({QStringLiteral("mmm"), QStringLiteral("nmm")}));
}

TEST(TextLinesTest, ALineOfAnEllipsisAloneIsLeftOut)
{
    EXPECT_EQ(lines("mmmmmmmm", widthOf("\u2026"), 2), "");
    EXPECT_EQ(lines("", 1000.0, 2), "");
    EXPECT_EQ(lines("one", 1000.0, 0), "");
}
