#include "texttable.h"

#include <QString>

#include <gtest/gtest.h>

using Align = TextTable::Align;

TEST(TextTable, AlignsColumnsTwoBlanksApart)
{
    TextTable table{Align::Left, Align::Right, Align::Left};
    table.addRow({"a", "1", "x"});
    table.addRow({"bbb", "200", "yy"});
    EXPECT_EQ(table.text(), "a      1  x\n"
                            "bbb  200  yy\n");
}

TEST(TextTable, IndentsEachLine)
{
    TextTable table{Align::Left};
    table.addRow({"a"});
    table.addRow({""});
    EXPECT_EQ(table.text(2), "  a\n\n");
}

TEST(TextTable, EndsNoLineInABlank)
{
    TextTable table{Align::Left, Align::Left};
    table.addRow({"a", "long"});
    table.addRow({"b ", ""});
    EXPECT_EQ(table.text(), "a   long\nb\n");
}

TEST(TextTable, MissingCellsAreEmpty)
{
    TextTable table{Align::Left, Align::Right};
    table.addRow({"a"});
    table.addRow({"b", "2"});
    EXPECT_EQ(table.text(), "a\nb  2\n");
}

TEST(TextTable, WithoutRowsIsEmpty)
{
    EXPECT_EQ(TextTable({Align::Left}).text(), "");
}

TEST(TextTable, ControlCharactersAndLineFeedsBecomeQuestionMarks)
{
    TextTable table{Align::Left};
    table.addRow({"a\x1b[0m\tb\nc\x7f"});
    EXPECT_EQ(table.text(), "a?[0m?b?c?\n");
}

TEST(Printable, KeepsLineFeedsAndBytesAbove127)
{
    EXPECT_EQ(printable("a\nb\r\x01\xe9\xff"), "a\nb??\xe9\xff");
}

TEST(Printable, ShowsControlCharactersButLineFeedsAsQuestionMarks)
{
    EXPECT_EQ(printable(std::string("a\x1b[1m\tb\nc\x7f")), "a?[1m?b\nc?");
    EXPECT_EQ(printableBytes(QStringLiteral("a\tb\nc")), "a?b\nc");
}
