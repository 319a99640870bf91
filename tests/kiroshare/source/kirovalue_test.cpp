#include "kirovalue.h"

#include "kirofile.h"
#include "recordingbuilder.h"

#include <QTextStream>

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace
{

template <class Number>
KiroValue valueOf(KiroValue::Type type, Number number)
{
    KiroValue value(type, sizeof(number));
    value.setBytes(&number, false);
    return value;
}

std::string streamed(const KiroValue& value)
{
    QString text;
    QTextStream stream(&text);
    stream << value;
    stream.flush();
    return text.toLatin1().toStdString();
}

std::string written(const KiroValue& value, KiroFile::ByteOrder order)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("v"), "");
    KiroFile file;
    EXPECT_TRUE(file.open(path, KiroFile::Create));
    file.setByteOrder(order);
    EXPECT_TRUE(value.write(file));
    EXPECT_TRUE(file.close());
    return fileBytes(path);
}

constexpr auto Big = KiroFile::ByteOrder::BigEndian;
constexpr auto Little = KiroFile::ByteOrder::LittleEndian;

} // namespace

TEST(KiroValueTest, BuiltEmptyAndUnknown)
{
    const KiroValue value;
    EXPECT_EQ(value.type(), 4);
    EXPECT_EQ(value.size(), 0u);
    EXPECT_EQ(value.toDouble(), 0.0);
}

TEST(KiroValueTest, CodesAboveThreeAreUnknownAndStoredAs255)
{
    EXPECT_EQ(KiroValue::typeFromCode(3), KiroValue::Float);
    EXPECT_EQ(KiroValue::typeFromCode(4), KiroValue::Unknown);
    EXPECT_EQ(KiroValue::typeFromCode(0xdeadbeef), KiroValue::Unknown);
    EXPECT_EQ(KiroValue::codeFromType(KiroValue::Unknown), 255u);
    EXPECT_EQ(KiroValue::codeFromType(KiroValue::UnsignedInt), 2u);
}

TEST(KiroValueTest, TypesHaveNames)
{
    EXPECT_STREQ(KiroValue::typeName(KiroValue::Object), "object");
    EXPECT_STREQ(KiroValue::typeName(KiroValue::SignedInt), "signed int");
    EXPECT_STREQ(KiroValue::typeName(KiroValue::UnsignedInt), "unsigned int");
    EXPECT_STREQ(KiroValue::typeName(KiroValue::Float), "float");
    EXPECT_STREQ(KiroValue::typeName(KiroValue::Unknown), "unknown");
}

TEST(KiroValueTest, SignedIntegersWidenBySignExtension)
{
    EXPECT_EQ(valueOf(KiroValue::SignedInt, std::int8_t(-2)).toInt64(), -2);
    EXPECT_EQ(valueOf(KiroValue::SignedInt, std::int16_t(-300)).toInt32(), -300);
    EXPECT_EQ(valueOf(KiroValue::SignedInt, std::int32_t(-70000)).toDouble(), -70000.0);
    EXPECT_EQ(valueOf(KiroValue::SignedInt, std::int64_t(-5)).toInt64(), -5);
}

TEST(KiroValueTest, UnsignedIntegersWidenWithZeros)
{
    EXPECT_EQ(valueOf(KiroValue::UnsignedInt, std::uint8_t(255)).toInt64(), 255);
    EXPECT_EQ(valueOf(KiroValue::UnsignedInt, std::uint16_t(65535)).toInt32(), 65535);
    EXPECT_EQ(valueOf(KiroValue::UnsignedInt, std::uint32_t(4294967295u)).toDouble(), 4294967295.0);
    EXPECT_EQ(valueOf(KiroValue::UnsignedInt, std::numeric_limits<std::uint64_t>::max()).toUInt64(),
              std::numeric_limits<std::uint64_t>::max());
}

TEST(KiroValueTest, NarrowerTargetsKeepTheLowBytes)
{
    const KiroValue value = valueOf(KiroValue::UnsignedInt, std::uint32_t(0x1234abcd));
    EXPECT_EQ(value.toUInt8(), 0xcd);
    EXPECT_EQ(value.toInt8(), std::int8_t(-51));
    EXPECT_EQ(value.toUInt16(), 0xabcd);
    EXPECT_EQ(value.toInt16(), std::int16_t(-21555));
}

TEST(KiroValueTest, FloatsTruncateTowardsZero)
{
    EXPECT_EQ(valueOf(KiroValue::Float, 2.9).toInt32(), 2);
    EXPECT_EQ(valueOf(KiroValue::Float, -2.9f).toInt32(), -2);
    EXPECT_EQ(valueOf(KiroValue::Float, -0.9).toUInt8(), 0);
    EXPECT_EQ(valueOf(KiroValue::Float, 0.1f).toDouble(), double(0.1f));
    EXPECT_EQ(valueOf(KiroValue::Float, 0.1).toFloat(), 0.1f);
}

TEST(KiroValueTest, FloatsOutsideAnIntegersRangeAreHeldAtItsLimits)
{
    const KiroValue huge = valueOf(KiroValue::Float, 1e300);
    EXPECT_EQ(huge.toInt8(), 127);
    EXPECT_EQ(huge.toUInt16(), 65535);
    EXPECT_EQ(huge.toInt64(), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(huge.toUInt64(), std::numeric_limits<std::uint64_t>::max());
    const KiroValue low = valueOf(KiroValue::Float, -std::numeric_limits<double>::infinity());
    EXPECT_EQ(low.toInt32(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(low.toUInt32(), 0u);
    EXPECT_EQ(valueOf(KiroValue::Float, std::nan("")).toInt32(), 0);
    EXPECT_EQ(valueOf(KiroValue::Float, 2147483647.5).toInt32(), 2147483647);
    EXPECT_EQ(valueOf(KiroValue::Float, -2147483648.5).toInt32(), std::numeric_limits<std::int32_t>::min());
}

TEST(KiroValueTest, PairsThatDoNotConvertGiveZero)
{
    const std::uint64_t bytes = ~std::uint64_t(0);
    for (const auto type : {KiroValue::Object, KiroValue::Unknown}) {
        for (const std::uint32_t size : {1u, 2u, 3u, 4u, 8u}) {
            KiroValue value(type, size);
            value.setBytes(&bytes, false);
            EXPECT_EQ(value.toDouble(), 0.0);
            EXPECT_EQ(value.toInt64(), 0);
        }
    }
    for (const auto type : {KiroValue::SignedInt, KiroValue::UnsignedInt, KiroValue::Float}) {
        for (const std::uint32_t size : {0u, 3u, 5u, 6u, 7u}) {
            KiroValue value(type, size);
            value.setBytes(&bytes, false);
            EXPECT_EQ(value.toDouble(), 0.0) << type << " " << size;
            EXPECT_EQ(value.toUInt64(), 0u);
        }
    }
    KiroValue halfFloat(KiroValue::Float, 2);
    halfFloat.setBytes(&bytes, false);
    EXPECT_EQ(halfFloat.toDouble(), 0.0);
}

TEST(KiroValueTest, BytesCanBeTakenReversed)
{
    const unsigned char bigEndianBytes[] = {0xff, 0xff, 0xff, 0xfe};
    KiroValue value(KiroValue::SignedInt, 4);
    value.setBytes(bigEndianBytes, true);
    EXPECT_EQ(value.toInt32(), -2);
}

TEST(KiroValueTest, TextIsADecimalNumber)
{
    EXPECT_EQ(streamed(valueOf(KiroValue::SignedInt, std::int16_t(-667))), "-667");
    EXPECT_EQ(streamed(valueOf(KiroValue::SignedInt, std::int32_t(-892136064))), "-892136064");
    EXPECT_EQ(streamed(valueOf(KiroValue::SignedInt, std::int64_t(-4826027459761234713))),
              "-4826027459761234713");
    EXPECT_EQ(streamed(valueOf(KiroValue::UnsignedInt, std::uint8_t(91))), "91");
    EXPECT_EQ(streamed(valueOf(KiroValue::UnsignedInt, std::uint16_t(65535))), "65535");
    EXPECT_EQ(streamed(valueOf(KiroValue::UnsignedInt, std::uint32_t(4294967295u))), "4294967295");
    EXPECT_EQ(streamed(valueOf(KiroValue::UnsignedInt, std::numeric_limits<std::uint64_t>::max())),
              "18446744073709551615");
    EXPECT_EQ(streamed(valueOf(KiroValue::Float, 230.515f)), "230.515");
    EXPECT_EQ(streamed(valueOf(KiroValue::Float, -1801.0123)), "-1801.01");
}

TEST(KiroValueTest, TextOfASignedByteIsItsLatin1Character)
{
    EXPECT_EQ(streamed(valueOf(KiroValue::SignedInt, std::int8_t('A'))), "A");
    EXPECT_EQ(streamed(valueOf(KiroValue::SignedInt, std::int8_t(-23))), "\xe9");
}

TEST(KiroValueTest, TextOfOtherTypesNamesThem)
{
    EXPECT_EQ(streamed(valueOf(KiroValue::Object, std::int32_t(5))), "unknown value type");
    EXPECT_EQ(streamed(KiroValue()), "unknown value type");
}

TEST(KiroValueTest, ASignedByteIsWrittenAsFourBytes)
{
    EXPECT_EQ(written(valueOf(KiroValue::SignedInt, std::int8_t(-2)), Big), "\xff\xff\xff\xfe");
    EXPECT_EQ(written(valueOf(KiroValue::SignedInt, std::int8_t(-2)), Little), "\xfe\xff\xff\xff");
}

TEST(KiroValueTest, OtherValuesAreWrittenByTheirSize)
{
    EXPECT_EQ(written(valueOf(KiroValue::UnsignedInt, std::uint8_t(7)), Big), "\x07");
    EXPECT_EQ(written(valueOf(KiroValue::SignedInt, std::int16_t(-2)), Big), "\xff\xfe");
    EXPECT_EQ(written(valueOf(KiroValue::UnsignedInt, std::uint32_t(0x01020304)), Big), "\x01\x02\x03\x04");
    EXPECT_EQ(written(valueOf(KiroValue::UnsignedInt, std::uint32_t(0x01020304)), Little),
              "\x04\x03\x02\x01");
    EXPECT_EQ(written(valueOf(KiroValue::SignedInt, std::int64_t(-2)), Big),
              "\xff\xff\xff\xff\xff\xff\xff\xfe");
    EXPECT_EQ(written(valueOf(KiroValue::Float, 1.0f), Big), std::string("\x3f\x80\0\0", 4));
    EXPECT_EQ(written(valueOf(KiroValue::Float, 1.0), Big), std::string("\x3f\xf0\0\0\0\0\0\0", 8));
    EXPECT_EQ(written(valueOf(KiroValue::Object, std::uint16_t(0x0102)), Big), "\x01\x02");
}

// A frame of one signed byte per sample takes 4 bytes a sample in a copy made value by value, so the copy
// no longer has the layout that its header states.
TEST(KiroValueTest, ACopyOfASignedByteSignalHasFourTimesTheBytes)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("copy"), "");
    KiroFile file;
    ASSERT_TRUE(file.open(path, KiroFile::Create));
    for (const std::int8_t sample : {1, -1, 127, -128})
        ASSERT_TRUE(valueOf(KiroValue::SignedInt, sample).write(file));
    ASSERT_TRUE(file.close());
    EXPECT_EQ(fileBytes(path), std::string("\0\0\0\x01\xff\xff\xff\xff\0\0\0\x7f\xff\xff\xff\x80", 16));
}
