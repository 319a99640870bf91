#include "curveplotscheme.h"

#include <gtest/gtest.h>

TEST(CurvePlotSchemeTest, KeepsWhatIsSet)
{
    CurvePlotScheme scheme;
    QFont fonts[3];
    for (int i = 0; i < 3; ++i)
        fonts[i].setPixelSize(20 + i);
    scheme.setTitle(fonts[0]);
    scheme.setAxis(fonts[1]);
    scheme.setAxisTitle(fonts[2]);
    scheme.setGrid(QPen(Qt::yellow, 2.0, Qt::DotLine));
    scheme.setBkg(Qt::darkBlue);
    scheme.setBorder(QPen(Qt::cyan, 3.0));
    const CurvePlotScheme copy = scheme;
    EXPECT_EQ(copy.title(), fonts[0]);
    EXPECT_EQ(copy.axis(), fonts[1]);
    EXPECT_EQ(copy.axisTitle(), fonts[2]);
    EXPECT_EQ(copy.grid(), QPen(Qt::yellow, 2.0, Qt::DotLine));
    EXPECT_EQ(copy.bkg(), QColor(Qt::darkBlue));
    EXPECT_EQ(copy.border(), QPen(Qt::cyan, 3.0));
}

TEST(CurvePlotSchemeTest, TitleIsBoldAndTwoPointsLarger)
{
    QFont font;
    font.setPointSizeF(9.5);
    EXPECT_TRUE(CurvePlotScheme::titleFontOf(font).bold());
    EXPECT_EQ(CurvePlotScheme::titleFontOf(font).pointSizeF(), 11.5);
    font.setPixelSize(20);
    EXPECT_EQ(CurvePlotScheme::titleFontOf(font).pixelSize(), 22);
}
