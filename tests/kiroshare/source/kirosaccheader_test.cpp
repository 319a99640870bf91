#include "kirosaccheader.h"

#include "filesizelimit.h"
#include "recordingbuilder.h"
#include "saccbuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <memory>

#include <sys/stat.h>

namespace
{

const KiroString Save = "KiroSaccHeader::saveAs(const KiroString&) - ";

KiroSaccadeEye eyeOf(const SaccBlockFields& block)
{
    KiroSaccadeEye eye;
    eye.start = block.integers[0];
    eye.end = block.integers[1];
    eye.duration = block.integers[2];
    eye.fixation = block.integers[3];
    eye.reserved = block.integers[4];
    eye.amplitude = block.reals[0];
    eye.peakVelocity = block.reals[1];
    eye.meanVelocity = block.reals[2];
    eye.peakAcceleration = block.reals[3];
    eye.velocityPerDuration = block.reals[4];
    eye.amplitudeHorz = block.reals[5];
    eye.startHorz = block.reals[6];
    eye.endHorz = block.reals[7];
    eye.amplitudeVert = block.reals[8];
    eye.startVert = block.reals[9];
    eye.endVert = block.reals[10];
    return eye;
}

/// Three blocks that differ in every field.
struct ThreeBlocks
{
    SaccBlockFields main;
    SaccBlockFields left;
    SaccBlockFields right;

    ThreeBlocks()
    {
        for (int i = 0; i < 5; ++i) {
            left.integers[i] = 1000 + i;
            right.integers[i] = -2000 - i;
        }
        for (int i = 0; i < 11; ++i) {
            left.reals[i] = 0.1 + i;
            right.reals[i] = -0.3 - i;
        }
    }
    std::string bytes() const { return main.bytes() + left.bytes() + right.bytes(); }
    KiroSaccade saccade() const
    {
        KiroSaccade result;
        result.main = eyeOf(main);
        result.left = eyeOf(left);
        result.right = eyeOf(right);
        return result;
    }
};

KiroBlink someBlink()
{
    KiroBlink blink;
    blink.start = 400;
    blink.end = 599;
    blink.duration = 200;
    blink.peaksDistance = 90;
    blink.amp1 = 20.5;
    blink.amp2 = 16.5;
    blink.ampRelation = 0.75;
    return blink;
}

/// The object whose file is that of SaccFields with two saccades and a blink.
KiroSaccHeader someHeader()
{
    KiroSaccHeader header;
    header.setDataFiles("/data/rec.kiro", "../rec.kiro");
    header.comment = "a comment";
    header.blinksHorizontal = true;
    header.saccades = {ThreeBlocks().saccade(), KiroSaccade()};
    header.blinks = {someBlink()};
    header.detectionType = KiroSaccHeader::Binocular;
    header.setSignal(KiroSaccHeader::LeftHorizontal, 4, 10.5, -1.25);
    header.setSignal(KiroSaccHeader::LeftVertical, 5, 11.5, -2.25);
    header.setSignal(KiroSaccHeader::RightHorizontal, 6, 12.5, -3.25);
    header.setSignal(KiroSaccHeader::RightVertical, -1, 13.5, -4.25);
    header.params.local = 7;
    header.params.gap = 50;
    header.params.minTime = 20;
    header.params.maxTime = 300;
    header.params.initVel = 35.5;
    header.params.minSpeed = 100.0;
    header.params.minSlope = 15000.5;
    header.params.minAmp = 1.0;
    header.params.maxAmp = 500.0;
    header.ratePeriod = 2000;
    header.samplesPerPeriod = 501;
    header.durationMs = 600123;
    return header;
}

std::string someBytes()
{
    SaccFields fields;
    fields.saccadeCount = 2;
    fields.blinkCount = 1;
    fields.records = ThreeBlocks().bytes() + std::string(324, '\0') + blinkBytes();
    return fields.bytes();
}

/// Fields, one by one, as a text that shows which one differs.
std::string described(const KiroSaccHeader& header)
{
    KiroString text("version %1 file %2 relative %3 data %4 comment %5 horizontal %6 saccades %7 blinks %8 "
                    "type %9 rate %10 samples %11 duration %12 error %13 missing %14 %15 %16 params ");
    text = text.arg(header.version).arg(header.fileName).arg(header.relativeDataFile).arg(header.dataFile);
    text = text.arg(header.comment).arg(int(header.blinksHorizontal)).arg(int(header.saccades.size()));
    text = text.arg(int(header.blinks.size())).arg(header.detectionType).arg(header.ratePeriod);
    text = text.arg(header.samplesPerPeriod).arg(header.durationMs).arg(header.error);
    text = text.arg(header.missingBytes()).arg(header.missingSaccades()).arg(header.missingBlinks());
    const SaccadeDetectionParams& params = header.params;
    for (const double number :
         {double(params.local), double(params.gap), double(params.minTime), double(params.maxTime),
          params.initVel, params.minSpeed, params.minSlope, params.minAmp, params.maxAmp})
        text += KiroString("%1 ").arg(number);
    for (int role = 3; role <= 6; ++role) {
        const KiroSaccSignal& signal = header.signal(role);
        text += KiroString("signal %1: %2 %3 %4 ")
                    .arg(role)
                    .arg(signal.signalIndex)
                    .arg(signal.factor)
                    .arg(signal.offset);
    }
    return text.bytes();
}

const char* const NewHeader =
    "version 19 file  relative  data  comment  horizontal 0 saccades 0 blinks 0 type 1 rate 1 samples 1 "
    "duration 0 error  missing 0 0 0 params 0 0 0 0 0 0 0 0 0 signal 3: -1 1 0 signal 4: -1 1 0 signal 5: "
    "-1 1 0 signal 6: -1 1 0 ";

} // namespace

TEST(KiroSaccHeader, NewObjectHasTheDefaults)
{
    EXPECT_EQ(described(KiroSaccHeader()), NewHeader);
}

TEST(KiroSaccHeader, NewSaccadeIsValidAndZero)
{
    const KiroSaccade saccade;
    EXPECT_TRUE(saccade.valid);
    KiroSaccHeader header;
    header.saccades = {saccade};
    EXPECT_EQ(header.toBytes().substr(16541), std::string(324, '\0'));
}

TEST(KiroSaccHeader, ClearResetsAllButTheError)
{
    KiroSaccHeader header = someHeader();
    header.version = 7;
    header.fileName = "x.sacc";
    header.error = "old";
    header.clear();
    EXPECT_EQ(header.error, "old");
    header.error.clear();
    EXPECT_EQ(described(header), NewHeader);
}

TEST(KiroSaccHeader, RolesNameTheirSlots)
{
    const KiroSaccHeader header = someHeader();
    EXPECT_EQ(&header.signal(2), &header.rightVertical);
    EXPECT_EQ(&header.signal(6), &header.rightVertical);
    EXPECT_EQ(&header.signal(3), &header.leftHorizontal);
    EXPECT_EQ(&header.signal(4), &header.leftVertical);
    for (const int role : {5, 1, 0, 7, -1, 1000})
        EXPECT_EQ(&header.signal(role), &header.rightHorizontal) << role;
}

TEST(KiroSaccHeader, SettersChangeOneFieldOfTheirSlot)
{
    KiroSaccHeader header;
    header.setSignalIndex(3, 9);
    header.setSignalFactor(4, 2.5);
    header.setSignalOffset(2, -7.5);
    EXPECT_EQ(header.signalIndex(3), 9);
    EXPECT_EQ(header.signalFactor(3), 1.0);
    EXPECT_EQ(header.signalOffset(3), 0.0);
    EXPECT_EQ(header.leftVertical.signalIndex, -1);
    EXPECT_EQ(header.leftVertical.factor, 2.5);
    EXPECT_EQ(header.signalOffset(6), -7.5);
    EXPECT_EQ(header.rightVertical.factor, 1.0);
    EXPECT_EQ(header.rightHorizontal.signalIndex, -1);
}

TEST(KiroSaccHeader, DetectionTypesHaveNames)
{
    EXPECT_EQ(KiroSaccHeader::detectionTypeName(1), "One signal");
    EXPECT_EQ(KiroSaccHeader::detectionTypeName(2), "Monocular");
    EXPECT_EQ(KiroSaccHeader::detectionTypeName(3), "Binocular");
    for (const int type : {0, 4, -1})
        EXPECT_EQ(KiroSaccHeader::detectionTypeName(type), "unknown!");
}

TEST(KiroSaccHeader, DataFileNameIsAbsoluteOrRelative)
{
    KiroSaccHeader header;
    header.setDataFiles("/a/b.kiro", "b.kiro");
    EXPECT_EQ(header.dataFileName(true), "/a/b.kiro");
    EXPECT_EQ(header.dataFileName(false), "b.kiro");
}

TEST(KiroSaccHeader, FrequencyIsSamplesByPeriod)
{
    KiroSaccHeader header;
    header.ratePeriod = 3000;
    header.samplesPerPeriod = 1000;
    EXPECT_EQ(header.frequency(), 1000 * 1000.0 / 3000);
}

TEST(KiroSaccHeader, WritesTheLayoutOfVersion19)
{
    const std::string bytes = someHeader().toBytes();
    ASSERT_EQ(bytes.size(), 16541u + 2 * 324 + 40);
    EXPECT_EQ(bytes, someBytes());
}

TEST(KiroSaccHeader, FieldsStandAtTheirOffsets)
{
    const std::string bytes = someHeader().toBytes();
    const auto u32At = [&bytes](std::size_t offset, std::uint32_t value) {
        EXPECT_EQ(bytes.substr(offset, 4), bigEndian(value, 4)) << offset;
    };
    const auto f64At = [&bytes](std::size_t offset, double value) {
        EXPECT_EQ(bytes.substr(offset, 8), ByteBuilder().f64(value).bytes()) << offset;
    };
    const auto textAt = [&bytes](std::size_t offset, const std::string& text) {
        EXPECT_EQ(bytes.substr(offset, text.size() + 1), text + '\0') << offset;
    };
    u32At(0, 0xa0c27d9f);
    u32At(4, 19);
    u32At(8, 12445);
    textAt(12, "/data/rec.kiro");
    textAt(4108, "../rec.kiro");
    textAt(8204, "a comment");
    EXPECT_EQ(bytes[16396], 1);
    u32At(16397, 2);
    u32At(16401, 1);
    u32At(16405, 2000);
    u32At(16409, 501);
    u32At(16413, 3);
    u32At(16417, 4);
    u32At(16429, 0xffffffff);
    f64At(16433, 10.5);
    f64At(16465, -1.25);
    u32At(16497, 7);
    u32At(16509, 300);
    f64At(16513, 35.5);
    f64At(16521, 100.0);
    f64At(16529, 15000.5);
    u32At(16537, 600123);
    u32At(16541, 100);
    f64At(16541 + 20, 4.5);
    u32At(16541 + 108, 1000);
    u32At(16541 + 216, static_cast<std::uint32_t>(-2000));
    u32At(16541 + 648, 400);
    f64At(16541 + 648 + 32, 0.75);
}

TEST(KiroSaccHeader, WritesVersion19WhateverTheFieldSays)
{
    KiroSaccHeader header = someHeader();
    header.version = 5;
    EXPECT_EQ(header.toBytes(), someBytes());
}

TEST(KiroSaccHeader, SaveAsWritesTheFileAndKeepsItsName)
{
    const TestFolder folder;
    KiroSaccHeader header = someHeader();
    header.fileName = "kept";
    header.error = "old";
    const KiroString path(folder.path(QStringLiteral("a.sacc")));
    ASSERT_TRUE(header.saveAs(path));
    EXPECT_EQ(header.error, "");
    EXPECT_EQ(header.fileName, "kept");
    EXPECT_EQ(fileBytes(path), someBytes());
}

TEST(KiroSaccHeader, WhatWasSavedIsLoadedTheSame)
{
    const TestFolder folder;
    const KiroString path(folder.path(QStringLiteral("a.sacc")));
    KiroSaccHeader header = someHeader();
    ASSERT_TRUE(header.saveAs(path));
    KiroSaccHeader loaded;
    ASSERT_TRUE(loaded.load(path));
    EXPECT_EQ(loaded.params.minAmp, 0.0);
    EXPECT_EQ(loaded.params.maxAmp, 0.0);
    header.params.minAmp = header.params.maxAmp = 0.0;
    header.fileName = path;
    EXPECT_EQ(described(loaded), described(header));
    EXPECT_EQ(loaded.toBytes(), header.toBytes());
    EXPECT_TRUE(loaded.saccades[1].valid);
}

TEST(KiroSaccHeader, BytesAreReadAsTheFileOfThemIs)
{
    const TestFolder folder;
    const std::string cut = someBytes().substr(0, 16541 + 324 + 50);
    SaccFields old;
    old.version = 6;
    old.saccadeCount = 1;
    old.records = OldSaccadeFields().bytes(6);
    for (const std::string& bytes : {someBytes(), cut, SaccFields().bytes(), old.bytes()}) {
        KiroSaccHeader loaded;
        ASSERT_TRUE(loaded.load(folder.write(QStringLiteral("a.sacc"), bytes)));
        KiroSaccHeader header;
        header.fileName = "old";
        header.error = "old";
        ASSERT_TRUE(header.fromBytes(bytes));
        EXPECT_EQ(header.fileName, "");
        loaded.fileName.clear();
        EXPECT_EQ(described(header), described(loaded));
        EXPECT_EQ(header.toBytes(), loaded.toBytes());
    }
}

TEST(KiroSaccHeader, BytesThatAreRefusedChangeNothing)
{
    SaccFields tooMany;
    tooMany.saccadeCount = 4000000;
    for (const std::string& bytes : {std::string(), std::string("no saccades"), tooMany.bytes()}) {
        KiroSaccHeader header = someHeader();
        EXPECT_FALSE(header.fromBytes(bytes));
        EXPECT_TRUE(header.error.startsWith("KiroSaccHeader::load(const KiroString&) - "))
            << header.error.bytes();
        header.error.clear();
        EXPECT_EQ(described(header), described(someHeader()));
        EXPECT_EQ(header.toBytes(), someBytes());
    }
}

TEST(KiroSaccHeader, SaveReplacesTheLoadedFile)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("a.sacc"), someBytes());
    KiroSaccHeader header;
    ASSERT_TRUE(header.load(path));
    header.saccades.clear();
    header.blinks.clear();
    header.comment.clear();
    ASSERT_TRUE(header.save());
    SaccFields fields;
    fields.comment.clear();
    EXPECT_EQ(fileBytes(path), fields.bytes());
}

TEST(KiroSaccHeader, SaveWithoutAFileNameFails)
{
    KiroSaccHeader header;
    EXPECT_FALSE(header.save());
    EXPECT_EQ(header.error, "KiroSaccHeader::save() - file name is empty!");
}

TEST(KiroSaccHeader, TextsAreCutOneByteBelowTheirFields)
{
    KiroSaccHeader header;
    header.setDataFiles(KiroString::fromBytes(std::string(5000, 'd')),
                        KiroString::fromBytes(std::string(4096, 'r')));
    header.comment = KiroString::fromBytes(std::string(8192, 'c'));
    const std::string bytes = header.toBytes();
    ASSERT_EQ(bytes.size(), 16541u);
    EXPECT_EQ(bytes.substr(12, 4096), std::string(4095, 'd') + '\0');
    EXPECT_EQ(bytes.substr(4108, 4096), std::string(4095, 'r') + '\0');
    EXPECT_EQ(bytes.substr(8204, 8192), std::string(8191, 'c') + '\0');
    header.comment = KiroString::fromBytes(std::string(8191, 'c'));
    EXPECT_EQ(header.toBytes(), bytes);
}

TEST(KiroSaccHeader, SaveAsReportsWhatItCannotOpen)
{
    const TestFolder folder;
    const QString pipe = folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0600), 0);
    for (const QString& path :
         {folder.path(QString()), folder.path(QStringLiteral("no/such/a.sacc")), pipe, QString()}) {
        KiroSaccHeader header = someHeader();
        EXPECT_FALSE(header.saveAs(KiroString(path))) << path.toStdString();
        EXPECT_EQ(header.error, Save + KiroString("can't open file (%1)").arg(KiroString(path)));
    }
    EXPECT_FALSE(QFileInfo(pipe).isFile()); // it was not replaced
}

// Which names can be written depends on the local encoding, but a file of another name must not come of it.
TEST(KiroSaccHeader, SaveAsWritesThatVeryNameOrNone)
{
    const TestFolder folder;
    const KiroString path = KiroString(folder.path(QString())) + KiroString("/\xff.sacc");
    KiroSaccHeader header;
    if (header.saveAs(path)) {
        EXPECT_EQ(fileBytes(path).size(), 16541u);
    } else {
        EXPECT_EQ(header.error, Save + KiroString("can't open file (%1)").arg(path));
        EXPECT_TRUE(QDir(folder.path(QString())).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot));
    }
}

// A limit on the size of files stops a write as a full disk does.
TEST(KiroSaccHeader, AFullDiskLeavesTheOldFile)
{
    const TestFolder folder;
    const KiroString path = folder.write(QStringLiteral("a.sacc"), "the good old file");
    KiroSaccHeader header = someHeader();
    auto disk = std::make_unique<FileSizeLimit>(10000);
    ASSERT_TRUE(disk->isSet());
    const bool saved = header.saveAs(path);
    disk.reset();
    EXPECT_FALSE(saved);
    EXPECT_TRUE(header.error.startsWith(Save + KiroString("can't write file (%1): ").arg(path)))
        << header.error.bytes();
    EXPECT_EQ(header.toBytes(), someBytes());
    EXPECT_EQ(fileBytes(path), "the good old file");
    EXPECT_EQ(QDir(folder.path(QString())).entryList(QDir::Files | QDir::Hidden).size(), 1);
}
