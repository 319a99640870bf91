#include "batchprocess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace
{

/// Runs dump on `file` with further arguments, divided at blanks.
BatchRun dump(const QString& file, const char* arguments)
{
    return runBatch(QStringList{QStringLiteral("dump"), file} +
                    QString::fromLatin1(arguments).split(QLatin1Char(' ')));
}

QJsonObject dumpJson(const QString& file, const char* arguments)
{
    const BatchRun run = runBatch(QStringList{QStringLiteral("dump"), file, QStringLiteral("--json")} +
                                  QString::fromLatin1(arguments).split(QLatin1Char(' ')));
    EXPECT_EQ(run.status, 0) << run.errors;
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(run.output), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << run.output;
    return document.object();
}

/// One signal of one sample a packet, and what its samples are printed as.
struct TypeCase
{
    const char* name;
    KiroValue::Type type;
    std::uint32_t size;
    std::string samples; ///< big-endian
    const char* plain;
    const char* json;
};

std::string floats(const std::vector<std::uint32_t>& bits)
{
    ByteBuilder bytes;
    for (const std::uint32_t word : bits)
        bytes.u32(word);
    return bytes.bytes();
}

/// Names the case in lists of tests.
void PrintTo(const TypeCase& test, std::ostream* stream)
{
    *stream << test.name;
}

class KirobatchDumpType : public testing::TestWithParam<TypeCase>
{
protected:
    QString write() const
    {
        const TypeCase& test = GetParam();
        const auto frames = static_cast<std::uint32_t>(test.samples.size() / test.size);
        return writeRecording(m_folder, batchHeader({makeSignal("a", test.type, test.size, 1)}, frames),
                              test.samples);
    }

private:
    TestFolder m_folder;
};

/// Signal 0, "Eye": 2 samples a packet, calibrated, 1 2 3 ... as raw values; signal 1, "Counter": bytes
/// 'A', 'B', ... . Holds `stored` packets and declares `declared`.
QString writeEyeAndCounter(const TestFolder& folder, std::uint32_t declared, std::uint32_t stored)
{
    KiroSignal eye = makeSignal("Eye", KiroValue::SignedInt, 2, 2);
    eye.calibrated = true;
    eye.calibrationFactor = 4;
    eye.calibrationOffset = -2;
    ByteBuilder samples;
    for (std::uint32_t i = 0; i < stored; ++i)
        samples.u16(2 * i + 1).u16(2 * i + 2).u8('A' + i);
    return writeRecording(folder,
                          batchHeader({eye, makeSignal("Counter", KiroValue::UnsignedInt, 1, 1)}, declared),
                          samples.bytes());
}

} // namespace

TEST_P(KirobatchDumpType, PrintsOneExactValueALine)
{
    const BatchRun run = dump(write(), "--signal 0");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, GetParam().plain);
}

TEST_P(KirobatchDumpType, JsonHoldsTheSameValues)
{
    const QJsonArray values = dumpJson(write(), "--signal 0").value(QStringLiteral("values")).toArray();
    EXPECT_EQ(QJsonDocument(values).toJson(QJsonDocument::Compact).toStdString(), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(
    Types, KirobatchDumpType,
    testing::Values(
        TypeCase{"Signed1", KiroValue::SignedInt, 1, std::string("\x7f\x80\x00", 3), "127\n-128\n0\n",
                 "[127,-128,0]"},
        TypeCase{"Unsigned1", KiroValue::UnsignedInt, 1, "\xff\x41", "255\n65\n", "[255,65]"},
        TypeCase{"Signed2", KiroValue::SignedInt, 2, "\x80\x01\xff\xfe", "-32767\n-2\n", "[-32767,-2]"},
        TypeCase{"Unsigned2", KiroValue::UnsignedInt, 2, "\x80\x01\xff\xfe", "32769\n65534\n",
                 "[32769,65534]"},
        TypeCase{"Signed4", KiroValue::SignedInt, 4, "\xff\xff\xff\xfe", "-2\n", "[-2]"},
        TypeCase{"Unsigned4", KiroValue::UnsignedInt, 4, "\xff\xff\xff\xfe", "4294967294\n", "[4294967294]"},
        TypeCase{"Signed8", KiroValue::SignedInt, 8,
                 bigEndian(0x8000000000000001u, 8) + bigEndian(9007199254740993u, 8),
                 "-9223372036854775807\n9007199254740993\n",
                 R"(["-9223372036854775807","9007199254740993"])"},
        TypeCase{"Unsigned8", KiroValue::UnsignedInt, 8, bigEndian(0xffffffffffffffffu, 8) + bigEndian(5, 8),
                 "18446744073709551615\n5\n", R"(["18446744073709551615","5"])"},
        // 0.1f, -inf, a signalling NaN, the smallest float.
        TypeCase{"Float4", KiroValue::Float, 4, floats({0x3dcccccd, 0xff800000, 0x7f800001, 0x00000001}),
                 "0.10000000149011612\n-inf\nnan\n1.401298464324817e-45\n",
                 R"([0.10000000149011612,"-inf","nan",1.401298464324817e-45])"},
        TypeCase{"Float8", KiroValue::Float, 8,
                 ByteBuilder().f64(0.1).f64(1e300).f64(1.0 / 3).bytes() + bigEndian(0x7ff0000000000000u, 8),
                 "0.1\n1e+300\n0.3333333333333333\ninf\n", R"([0.1,1e+300,0.3333333333333333,"inf"])"},
        TypeCase{"ObjectsAreZero", KiroValue::Object, 4, "abcdefgh", "0\n0\n", "[0,0]"},
        TypeCase{"UnknownIsZero", KiroValue::Unknown, 8, "abcdefgh", "0\n", "[0]"},
        TypeCase{"OddSizesAreZero", KiroValue::SignedInt, 3, "abcdef", "0\n0\n", "[0,0]"}),
    [](const auto& parameter) { return std::string(parameter.param.name); });

TEST(KirobatchDump, TakesOnlyTheChosenSignal)
{
    const TestFolder folder;
    const QString file = writeEyeAndCounter(folder, 3, 3);
    EXPECT_EQ(dump(file, "--signal 0").output, "1\n2\n3\n4\n5\n6\n");
    EXPECT_EQ(dump(file, "--signal 1").output, "65\n66\n67\n");
}

TEST(KirobatchDump, LegacySamplesAreLittleEndian)
{
    const TestFolder folder;
    folder.write(QStringLiteral("legacy.kiro"), littleEndian(0xfffffffe, 4) + littleEndian(1, 4) +
                                                    littleEndian(0xfffffffe, 4) + littleEndian(258, 4) +
                                                    std::string(128, '\0'));
    EXPECT_EQ(dump(folder.path(QStringLiteral("legacy.kiro")), "--signal eyex").output, "-2\n258\n0\n0\n");
}

TEST(KirobatchDump, RangeBeginsAtFirstAndHoldsCount)
{
    const TestFolder folder;
    const QString file = writeEyeAndCounter(folder, 3, 3);
    EXPECT_EQ(dump(file, "--signal 0 --first 3").output, "4\n5\n6\n");
    EXPECT_EQ(dump(file, "--signal 0 --count 2").output, "1\n2\n");
    EXPECT_EQ(dump(file, "--signal 0 --first 1 --count 3").output, "2\n3\n4\n");
}

TEST(KirobatchDump, CountIsCutAtTheEnd)
{
    const TestFolder folder;
    const QString file = writeEyeAndCounter(folder, 3, 3);
    EXPECT_EQ(dump(file, "--signal 0 --first 5 --count 2").output, "6\n");
    EXPECT_EQ(dump(file, "--signal 0 --first 5 --count 9223372036854775807").output, "6\n");
    const QJsonObject object = dumpJson(file, "--signal 0 --first 5 --count 2");
    EXPECT_EQ(object.value(QStringLiteral("count")), QJsonValue(1));
}

TEST(KirobatchDump, FirstBehindTheEndIsAFailure)
{
    const TestFolder folder;
    const QString file = writeEyeAndCounter(folder, 3, 3);
    const BatchRun run = dump(file, "--signal 0 --first 6 --json");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "kirobatch: --first 6 is behind the last sample: signal 0 ('Eye') of '" +
                              file.toStdString() + "' has 6 samples, numbered from 0.\n");
}

TEST(KirobatchDump, CalibratedValuesAreRawLessOffsetByFactor)
{
    const TestFolder folder;
    const QString file = writeEyeAndCounter(folder, 2, 2);
    // (1 + 2) / 4, (2 + 2) / 4, ...
    const BatchRun run = dump(file, "--signal 0 --calibrated");
    EXPECT_EQ(run.output, "0.75\n1\n1.25\n1.5\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(dump(file, "--signal 0 --calibrated --first 1 --count 2").output, "1\n1.25\n");
    const QJsonObject object = dumpJson(file, "--signal 0 --calibrated");
    EXPECT_EQ(object.value(QStringLiteral("calibrated")), QJsonValue(true));
    EXPECT_EQ(object.value(QStringLiteral("values")), QJsonValue(QJsonArray{0.75, 1, 1.25, 1.5}));
}

TEST(KirobatchDump, CalibrationWithFactorZeroGivesNamesOfNumbers)
{
    const TestFolder folder;
    KiroSignal signal = makeSignal("a", KiroValue::SignedInt, 2, 3);
    signal.calibrated = true;
    signal.calibrationFactor = 0;
    signal.calibrationOffset = 2;
    const QString file =
        writeRecording(folder, batchHeader({signal}, 1), ByteBuilder().u16(1).u16(2).u16(3).bytes());
    EXPECT_EQ(dump(file, "--signal 0 --calibrated").output, "-inf\nnan\ninf\n");
}

TEST(KirobatchDump, UncalibratedSignalGivesExactRawValuesAndANote)
{
    const TestFolder folder;
    KiroSignal wide = makeSignal("Wide", KiroValue::UnsignedInt, 8, 1);
    wide.calibrationFactor = 2;
    const QString file =
        writeRecording(folder, batchHeader({wide}, 1), bigEndian(9007199254740993u, 8)); // 2^53 + 1
    const BatchRun run = dump(file, "--signal Wide --calibrated");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "9007199254740993\n");
    EXPECT_EQ(run.errors, "kirobatch: note: signal 0 ('Wide') of '" + file.toStdString() +
                              "' is not calibrated; its raw values are printed.\n");
    EXPECT_EQ(dumpJson(file, "--signal Wide --calibrated").value(QStringLiteral("calibrated")),
              QJsonValue(false));
}

TEST(KirobatchDump, JsonNamesTheSignalAndTheRange)
{
    const TestFolder folder;
    KiroSignal signal = makeSignal("caf\xe9 \"1\"", KiroValue::SignedInt, 2, 2);
    signal.shortName = "back\\slash";
    const QString file =
        writeRecording(folder, batchHeader({makeSignal("a", KiroValue::Float, 4, 0), signal}, 2),
                       ByteBuilder().u16(10).u16(20).u16(30).u16(40).bytes());
    const QJsonObject expected{{QStringLiteral("signal"), 1},
                               {QStringLiteral("fullName"), QString::fromLatin1("caf\xe9 \"1\"")},
                               {QStringLiteral("shortName"), QStringLiteral("back\\slash")},
                               {QStringLiteral("first"), 1},
                               {QStringLiteral("count"), 2},
                               {QStringLiteral("calibrated"), false},
                               {QStringLiteral("values"), QJsonArray{20, 30}}};
    EXPECT_EQ(dumpJson(file, "--signal 1 --first 1 --count 2"), expected);
}

TEST(KirobatchDump, PrintsWhatACutFileHoldsAndWarns)
{
    const TestFolder folder;
    const QString file = writeEyeAndCounter(folder, 5, 3);
    const BatchRun run = dump(file, "--signal 1");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "65\n66\n67\n");
    EXPECT_EQ(run.errors,
              "kirobatch: warning: the header of '" + file.toStdString() +
                  "' declares 5 packets, and the file holds 3; only samples of these are printed.\n");
}

TEST(KirobatchDump, LeavesOutPacketsThatAreNotDeclared)
{
    const TestFolder folder;
    const BatchRun run = dump(writeEyeAndCounter(folder, 2, 3), "--signal 1");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "65\n66\n");
    EXPECT_EQ(run.errors, "");
}

TEST(KirobatchDump, FailsWhenNoDeclaredPacketIsStored)
{
    const TestFolder folder;
    const BatchRun run = dump(writeEyeAndCounter(folder, 5, 0), "--signal 1");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors,
                HasSubstr(" has no samples: the header declares 5 packets, and the file holds none "
                          "of them whole."));
}

TEST(KirobatchDump, FailsWhenNoPacketIsDeclared)
{
    const TestFolder folder;
    const BatchRun run = dump(writeEyeAndCounter(folder, 0, 3), "--signal 1");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, HasSubstr(" has no samples: the header declares no packets."));
}

TEST(KirobatchDump, FailsForASignalWithoutSamples)
{
    const TestFolder folder;
    const auto header = batchHeader({makeSignal("a", KiroValue::UnsignedInt, 1, 1),
                                     makeSignal("none", KiroValue::SignedInt, 2, 0),
                                     makeSignal("nothing", KiroValue::SignedInt, 0, 4)},
                                    2);
    const QString file = writeRecording(folder, header, "AB");
    EXPECT_EQ(dump(file, "--signal 0").output, "65\n66\n");
    for (const char* signal : {"--signal none", "--signal nothing"}) {
        const BatchRun run = dump(file, signal);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.output, "");
        EXPECT_THAT(run.errors, HasSubstr(" has no samples: no packet holds any of it."));
    }
}

TEST(KirobatchDump, JoinsTheBlocksOfALongSignal)
{
    const TestFolder folder;
    // Packets of 7 samples do not fit the blocks in which samples are read.
    constexpr std::uint32_t Frames = 350001;
    std::string samples;
    std::string expected;
    for (std::uint32_t i = 0; i < 7 * Frames; ++i) {
        samples += static_cast<char>(i % 251);
        expected += std::to_string(i % 251) + '\n';
    }
    const auto header = batchHeader({makeSignal("a", KiroValue::UnsignedInt, 1, 7)}, Frames);
    const QString file = writeRecording(folder, header, samples);
    // A failure must not print megabytes.
    EXPECT_TRUE(dump(file, "--signal 0").output == expected);
    EXPECT_EQ(dump(file, "--signal 0 --first 2000001 --count 3").output,
              std::to_string(2000001 % 251) + '\n' + std::to_string(2000002 % 251) + '\n' +
                  std::to_string(2000003 % 251) + '\n');
    EXPECT_EQ(dumpJson(file, "--signal 0").value(QStringLiteral("values")).toArray().size(), 7 * int(Frames));
}
