#include "kirostring.h"

#include <gtest/gtest.h>

TEST(KiroStringTest, ArgFillsWithZeros)
{
    EXPECT_EQ(KiroString("%1").arg(5, 2, 10, '0').bytes(), "05");
}
