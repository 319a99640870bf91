#include "partprogress.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace
{

class WholeProgress final : public JobProgress
{
public:
    void setRange(int, int) override { ++ranges; }
    void setValue(int value) override { values.push_back(value); }
    void setText(const QString&) override { ++texts; }
    bool cancelled() override
    {
        ++questions;
        return wantsNoMore;
    }

    std::vector<int> values;
    int ranges = 0;
    int texts = 0;
    int questions = 0;
    bool wantsNoMore = false;
};

} // namespace

TEST(PartProgressTest, ItsRangeIsAStretchOfTheWhole)
{
    WholeProgress whole;
    PartProgress part(whole, 7, 3);
    part.setRange(10, 30);
    for (const int value : {10, 16, 17, 23, 24, 29, 30})
        part.setValue(value);
    EXPECT_EQ(whole.values, std::vector<int>({7, 7, 8, 8, 9, 9, 10}));
    EXPECT_EQ(whole.ranges, 0);
}

TEST(PartProgressTest, WithoutARangeItIsAHundred)
{
    WholeProgress whole;
    PartProgress part(whole, 0, 10);
    part.setValue(0);
    part.setValue(55);
    part.setValue(100);
    EXPECT_EQ(whole.values, std::vector<int>({0, 5, 10}));
}

TEST(PartProgressTest, AnEmptyRangeIsDone)
{
    WholeProgress whole;
    PartProgress part(whole, 7, 3);
    part.setRange(5, 5);
    part.setValue(5);
    EXPECT_EQ(whole.values, std::vector<int>({10}));
}

TEST(PartProgressTest, TheWidestRangeFits)
{
    using Limits = std::numeric_limits<int>;
    WholeProgress whole;
    PartProgress part(whole, 1, 100);
    part.setRange(Limits::min(), Limits::max());
    part.setValue(Limits::min());
    part.setValue(0);
    part.setValue(Limits::max());
    EXPECT_EQ(whole.values, std::vector<int>({1, 51, 101}));
}

TEST(PartProgressTest, NoWorkMovesNothing)
{
    WholeProgress whole;
    PartProgress part(whole, 4, 0);
    part.setValue(0);
    part.setValue(100);
    EXPECT_EQ(whole.values, std::vector<int>({4, 4}));
}

TEST(PartProgressTest, TextsStayThoseOfTheWhole)
{
    WholeProgress whole;
    PartProgress part(whole, 0, 1);
    part.setText(QStringLiteral("part"));
    EXPECT_EQ(whole.texts, 0);
}

TEST(PartProgressTest, TheWholeIsAskedWhetherToGoOn)
{
    WholeProgress whole;
    PartProgress part(whole, 0, 1);
    EXPECT_FALSE(part.cancelled());
    whole.wantsNoMore = true;
    EXPECT_TRUE(part.cancelled());
    EXPECT_EQ(whole.questions, 2);
}
