#include "recordingfields.h"

#include "kirofile.h"
#include "recordingfile.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

using Id = RecordingField::Id;

class RecordingFieldsTest : public testing::Test
{
protected:
    RecordingFields fieldsOf(const std::string& bytes) const
    {
        KiroFile file;
        EXPECT_TRUE(file.open(m_folder.write(QStringLiteral("r.kiro"), bytes), KiroFile::Read));
        return RecordingFields::read(file);
    }

    TestFolder m_folder;
};

KiroHeader twoSignals()
{
    KiroSignal first = makeSignal("first", KiroValue::SignedInt, 2, 4);
    KiroSignal second = makeSignal("second", KiroValue::Float, 8, 1);
    second.calibrationUnit = "mV";
    second.calibrated = true;
    return makeHeader({first, second}, 7);
}

/// A header of any version, read from bytes whose texts are empty or all zero.
KiroHeader emptyHeader(std::uint32_t version, const TestFolder& folder)
{
    KiroHeader header;
    KiroFile file;
    const std::string bytes = bigEndian(0xf9d72c0a, 4) + bigEndian(version, 4) + std::string(3000, '\0');
    EXPECT_TRUE(file.open(folder.write(QStringLiteral("empty.kiro"), bytes), KiroFile::Read));
    EXPECT_TRUE(header.read(file));
    return header;
}

} // namespace

TEST_F(RecordingFieldsTest, Version12HasItsFieldsAtTheirFixedPlaces)
{
    const RecordingFields fields = fieldsOf(twoSignals().toBytes());
    EXPECT_EQ(fields.version, 12u);
    EXPECT_FALSE(fields.cutField);
    const std::pair<Id, std::int64_t> header[] = {{Id::Mark, 0},           {Id::Version, 4},
                                                  {Id::HeaderSize, 8},     {Id::StoringProgram, 12},
                                                  {Id::Notes, 140},        {Id::TechnicalParameters, 1164},
                                                  {Id::Day, 2188},         {Id::Month, 2189},
                                                  {Id::Year, 2190},        {Id::Hour, 2192},
                                                  {Id::Minute, 2193},      {Id::Second, 2194},
                                                  {Id::Millisecond, 2195}, {Id::SignalCount, 2197},
                                                  {Id::FrameCount, 2720}};
    for (const auto& [id, offset] : header)
        EXPECT_EQ(fields.find(id)->offset, offset);
    const std::pair<Id, std::int64_t> signal[] = {
        {Id::FullName, 0},           {Id::ShortName, 128},         {Id::RatePeriod, 160},
        {Id::SamplesPerPeriod, 164}, {Id::ValueType, 168},         {Id::SamplesPerFrame, 172},
        {Id::SampleSize, 176},       {Id::CalibrationFactor, 180}, {Id::CalibrationUnit, 188},
        {Id::Calibrated, 252},       {Id::CalibrationOffset, 253}};
    for (const auto& [id, offset] : signal)
        EXPECT_EQ(fields.find(id, 1)->offset, 2198 + 261 + offset);
    EXPECT_EQ(fields.fields.size(), std::size(header) + 2 * std::size(signal));
}

TEST_F(RecordingFieldsTest, NumbersAreThoseOfTheFile)
{
    const RecordingFields fields = fieldsOf(twoSignals().toBytes());
    EXPECT_EQ(fields.find(Id::Mark)->number(), 0xf9d72c0au);
    EXPECT_EQ(fields.find(Id::FrameCount)->number(), 7u);
    EXPECT_EQ(fields.find(Id::SampleSize, 1)->number(), 8u);
    EXPECT_EQ(fields.find(Id::CalibrationFactor, 1)->real(), 1.0);
    EXPECT_EQ(fields.find(Id::CalibrationUnit, 1)->bytes, "mV" + std::string(62, '\0'));
    EXPECT_EQ(fields.find(Id::CalibrationUnit, 2), nullptr);
}

TEST_F(RecordingFieldsTest, FieldsOfEveryVersionFillTheHeader)
{
    for (std::uint32_t version = 3; version <= 13; ++version) {
        KiroHeader header = emptyHeader(version, m_folder);
        ASSERT_EQ(header.version(), version);
        header.setStoringProgram("Recorder");
        header.setNotes("abc");
        header.setSignalCount(2);
        header.setSignal(0, makeSignal("one", KiroValue::SignedInt, 2, 4));
        header.setSignal(1, makeSignal("two", KiroValue::Float, 4, 1));
        header.setFrameCount(1234567);
        const RecordingFields fields = fieldsOf(header.toBytes());
        EXPECT_EQ(fields.version, version);
        EXPECT_FALSE(fields.cutField) << version;
        std::int64_t end = 0;
        for (const RecordingField& field : fields.fields) {
            EXPECT_EQ(field.offset, end) << version;
            end += field.size;
        }
        EXPECT_EQ(end, header.headerSize()) << version;
        EXPECT_EQ(fields.fields.back().id, Id::FrameCount);
        EXPECT_EQ(fields.fields.back().number(), 1234567u) << version;
        EXPECT_EQ(fields.find(Id::SampleSize, 1)->number(), 4u) << version;
    }
}

TEST_F(RecordingFieldsTest, LegacyFileHasTwoLittleEndianFields)
{
    const RecordingFields fields = fieldsOf(littleEndian(0xfffffffe, 4) + littleEndian(9, 4) + "data");
    EXPECT_EQ(fields.version, 2u);
    EXPECT_FALSE(fields.cutField);
    ASSERT_EQ(fields.fields.size(), 2u);
    EXPECT_EQ(fields.find(Id::FrameCount)->offset, 4);
    EXPECT_EQ(fields.find(Id::FrameCount)->number(), 9u);
}

TEST_F(RecordingFieldsTest, CutAtEveryByteNamesTheFieldThere)
{
    const std::string bytes = twoSignals().toBytes();
    const RecordingFields whole = fieldsOf(bytes);
    for (const RecordingField& field : whole.fields) {
        if (field.id == Id::Mark)
            continue;
        for (const std::int64_t length : {field.offset, field.offset + field.size - 1}) {
            const RecordingFields cut = fieldsOf(bytes.substr(0, std::size_t(length)));
            ASSERT_TRUE(cut.cutField) << length;
            EXPECT_EQ(cut.cutField->id, field.id) << length;
            EXPECT_EQ(cut.cutField->signal, field.signal) << length;
            EXPECT_EQ(cut.cutField->offset, field.offset) << length;
            EXPECT_EQ(cut.cutField->size, field.size) << length;
        }
    }
}

TEST_F(RecordingFieldsTest, TextLongerThanTheFileIsACut)
{
    const RecordingFields fields = fieldsOf(bigEndian(0xf9d72c0a, 4) + bigEndian(3, 4) + bigEndian(0, 4) +
                                            bigEndian(0xfffffffe, 4) + "abc");
    ASSERT_TRUE(fields.cutField);
    EXPECT_EQ(fields.cutField->id, Id::StoringProgram);
    EXPECT_EQ(fields.cutField->size, 4 + std::int64_t(0xfffffffe));
}

TEST_F(RecordingFieldsTest, TextOfNoLengthHasNoBody)
{
    ByteBuilder bytes;
    bytes.u32(0xf9d72c0a).u32(3).u32(0).u32(0xffffffff).wide("note");
    bytes.u8(1).u8(2).u16(2008).u8(10).u8(20).u8(0).u32(0);
    const RecordingFields fields = fieldsOf(bytes.bytes());
    EXPECT_FALSE(fields.cutField);
    EXPECT_EQ(fields.find(Id::StoringProgram)->size, 4);
    EXPECT_EQ(fields.find(Id::Notes)->offset, 16);
    EXPECT_EQ(fields.find(Id::Notes)->size, 12);
}
