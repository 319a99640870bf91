#include "elementtype.h"

#include <gtest/gtest.h>

TEST(ElementTypeTest, FollowsTypeAndSize)
{
    EXPECT_EQ(elementType(KiroValue::SignedInt, 1), 0);
    EXPECT_EQ(elementType(KiroValue::UnsignedInt, 1), 1);
    EXPECT_EQ(elementType(KiroValue::SignedInt, 2), 2);
    EXPECT_EQ(elementType(KiroValue::UnsignedInt, 2), 3);
    EXPECT_EQ(elementType(KiroValue::SignedInt, 4), 4);
    EXPECT_EQ(elementType(KiroValue::UnsignedInt, 4), 5);
    EXPECT_EQ(elementType(KiroValue::SignedInt, 8), 6);
    EXPECT_EQ(elementType(KiroValue::UnsignedInt, 8), 7);
    EXPECT_EQ(elementType(KiroValue::Float, 4), 8);
    EXPECT_EQ(elementType(KiroValue::Float, 8), 9);
}

TEST(ElementTypeTest, AllOtherPairsAreDouble)
{
    EXPECT_EQ(elementType(KiroValue::SignedInt, 3), 9);
    EXPECT_EQ(elementType(KiroValue::UnsignedInt, 0), 9);
    EXPECT_EQ(elementType(KiroValue::Float, 2), 9);
    EXPECT_EQ(elementType(KiroValue::Object, 4), 9);
    EXPECT_EQ(elementType(KiroValue::Unknown, 2), 9);
}

TEST(ElementTypeTest, VectorsBearTheirNumberAsIndex)
{
    for (int type = 0; type < 10; ++type) {
        EXPECT_EQ(makeSampleVector(type).index(), std::size_t(type));
        EXPECT_EQ(makeSampleArray(type).index(), std::size_t(type));
    }
    EXPECT_TRUE(std::holds_alternative<std::vector<std::uint32_t>>(makeSampleVector(5)));
    EXPECT_TRUE(std::holds_alternative<std::vector<float>>(makeSampleVector(8)));
    EXPECT_TRUE(std::holds_alternative<QVector<std::uint32_t>>(makeSampleArray(5)));
    EXPECT_TRUE(std::holds_alternative<QVector<double>>(makeSampleArray(9)));
}

TEST(ElementTypeTest, CountIsOfAnyType)
{
    EXPECT_EQ(sampleCount(SampleVector(std::vector<std::int16_t>{1, 2, 3})), 3u);
    EXPECT_EQ(sampleCount(makeSampleVector(9)), 0u);
    EXPECT_EQ(sampleCount(SampleArray(QVector<float>{1.0f, 2.0f})), 2u);
    EXPECT_EQ(sampleCount(makeSampleArray(0)), 0u);
}
