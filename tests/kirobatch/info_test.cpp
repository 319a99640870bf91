#include "batchprocess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace
{

BatchRun info(const QString& file)
{
    return runBatch({QStringLiteral("info"), file});
}

QJsonObject infoJson(const QString& file)
{
    const BatchRun run = runBatch({QStringLiteral("info"), QStringLiteral("--json"), file});
    EXPECT_EQ(run.status, 0) << run.errors;
    return QJsonDocument::fromJson(QByteArray::fromStdString(run.output)).object();
}

QJsonValue infoField(const QString& file, const char* name)
{
    return infoJson(file).value(QLatin1String(name));
}

/// One signal of 5 samples of 2 bytes in each packet of 5 ms.
KiroHeader oneSignal(std::uint32_t frameCount)
{
    return batchHeader({makeSignal("a", KiroValue::SignedInt, 2, 5, 1000)}, frameCount);
}

constexpr std::size_t FrameSize = 10;

} // namespace

TEST(KirobatchInfo, PrintsAlignedFactsNotesAndTechnicalParameters)
{
    const TestFolder folder;
    KiroHeader header = oneSignal(3);
    header.setNotes("First line\nsecond line\n");
    header.setTechnicalParameters("Range\t32 deg\n\nGain\t8\nNoTab\nA\tb\tc\n");
    const QString file = writeRecording(folder, header, std::string(3 * FrameSize, 'x'));
    const BatchRun run = info(file);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, "File:              " + file.toStdString() +
                              "\n"
                              "Format version:    12\n"
                              "Byte order:        big-endian\n"
                              "Storing program:   Test recorder 1.0\n"
                              "Date:              02/01/2012\n"
                              "Time:              10:20:30.400\n"
                              "Duration:          00:00:00.015\n"
                              "Packets:           3\n"
                              "Header size:       2463 bytes\n"
                              "Packet size:       10 bytes\n"
                              "Packet frequency:  200.000 Hz\n"
                              "Signals:           1\n"
                              "Integrity:         ok\n"
                              "\n"
                              "Notes:\n"
                              "  First line\n"
                              "  second line\n"
                              "\n"
                              "Technical parameters:\n"
                              "  Range  32 deg\n"
                              "  Gain   8\n"
                              "  NoTab\n"
                              "  A      b\n");
}

TEST(KirobatchInfo, LeavesOutNotesAndParametersThatAreEmpty)
{
    const TestFolder folder;
    const BatchRun run = info(writeRecording(folder, oneSignal(1), std::string(FrameSize, 'x')));
    EXPECT_THAT(run.output, Not(HasSubstr("Notes:")));
    EXPECT_THAT(run.output, Not(HasSubstr("Technical parameters:")));
    EXPECT_THAT(run.output, testing::EndsWith("Integrity:         ok\n"));
}

TEST(KirobatchInfo, NoLineEndsInABlank)
{
    const TestFolder folder;
    KiroHeader header = oneSignal(0);
    header.setStoringProgram("");
    header.setNotes("blanks   \n\nend");
    const std::string output = info(writeRecording(folder, header, "")).output;
    EXPECT_THAT(output, HasSubstr("Storing program:\n"));
    EXPECT_THAT(output, HasSubstr("\n  blanks\n\n  end\n"));
    EXPECT_THAT(output, Not(HasSubstr(" \n")));
}

TEST(KirobatchInfo, TellsDeclaredAndStoredPacketsOfACutFile)
{
    const TestFolder folder;
    const QString file = writeRecording(folder, oneSignal(4), std::string(3 * FrameSize + 9, 'x'));
    const BatchRun run = info(file);
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(
        run.output,
        HasSubstr("\nIntegrity:         damaged, the header declares 4 packets and the file holds 3\n"));
    EXPECT_EQ(infoField(file, "checkIntegrity"), QJsonValue(false));
    EXPECT_EQ(infoField(file, "readableFrames"), QJsonValue(3));
}

TEST(KirobatchInfo, TellsDeclaredAndStoredPacketsOfACountTooLow)
{
    const TestFolder folder;
    const QString file = writeRecording(folder, oneSignal(1), std::string(3 * FrameSize, 'x'));
    EXPECT_THAT(
        info(file).output,
        HasSubstr("\nIntegrity:         damaged, the header declares 1 packets and the file holds 3\n"));
    EXPECT_EQ(infoField(file, "readableFrames"), QJsonValue(1));
}

TEST(KirobatchInfo, TellsThatAFileEndsInsideItsHeader)
{
    const TestFolder folder;
    const std::string bytes = oneSignal(0).toBytes();
    folder.write(QStringLiteral("cut.kiro"), bytes.substr(0, bytes.size() - 2));
    const BatchRun run = info(folder.path(QStringLiteral("cut.kiro")));
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, HasSubstr("\nIntegrity:         damaged, the file ends inside its header\n"));
}

TEST(KirobatchInfo, ShowsWhatIsKnownWithoutSignals)
{
    const TestFolder folder;
    const BatchRun run = info(writeRecording(folder, batchHeader({}, 7), ""));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, HasSubstr("\nDuration:          unknown\n"
                                      "Packets:           7\n"
                                      "Header size:       2202 bytes\n"
                                      "Packet size:       0 bytes\n"
                                      "Packet frequency:  unknown\n"
                                      "Signals:           0\n"
                                      "Integrity:         not checked, the packets hold no samples\n"));
}

TEST(KirobatchInfo, JsonOfNoSignalsLeavesTheRatesOut)
{
    const TestFolder folder;
    const QJsonObject object = infoJson(writeRecording(folder, batchHeader({}, 7), ""));
    EXPECT_EQ(object.value(QStringLiteral("frameCount")), QJsonValue(7));
    EXPECT_EQ(object.value(QStringLiteral("signals")), QJsonValue(QJsonArray()));
    EXPECT_TRUE(object.contains(QStringLiteral("shownDuration")));
    EXPECT_TRUE(object.value(QStringLiteral("shownDuration")).isNull());
    EXPECT_TRUE(object.contains(QStringLiteral("checkIntegrity")));
    EXPECT_TRUE(object.value(QStringLiteral("checkIntegrity")).isNull());
    EXPECT_FALSE(object.contains(QStringLiteral("frameFrequency")));
    EXPECT_FALSE(object.contains(QStringLiteral("frameMSecs")));
}

TEST(KirobatchInfo, JsonLeavesIntegrityOpenWhenNoSignalHasSamples)
{
    const TestFolder folder;
    const auto header = batchHeader({makeSignal("none", KiroValue::SignedInt, 2, 0)}, 3);
    const QString file = writeRecording(folder, header, "");
    EXPECT_TRUE(infoField(file, "checkIntegrity").isNull());
    EXPECT_EQ(infoField(file, "readableFrames"), QJsonValue(0));
    // 250 Hz over 0 samples a packet.
    EXPECT_EQ(infoField(file, "frameFrequency"), QJsonValue(QStringLiteral("inf")));
    EXPECT_EQ(infoField(file, "frameMSecs"), QJsonValue(0));
}

TEST(KirobatchInfo, JsonWritesLargeIntegersAsStrings)
{
    const TestFolder folder;
    // (2^32 - 1) squared, and 2^32 - 1 samples of 8 bytes.
    const auto header = batchHeader({makeSignal("a", KiroValue::Float, 8, 0xffffffffu)}, 0xffffffffu);
    const QJsonObject object = infoJson(writeRecording(folder, header, ""));
    EXPECT_EQ(object.value(QStringLiteral("signals"))
                  .toArray()
                  .at(0)
                  .toObject()
                  .value(QStringLiteral("sampleCount")),
              QJsonValue(QStringLiteral("18446744065119617025")));
    EXPECT_EQ(object.value(QStringLiteral("frameSize")), QJsonValue(qint64(34359738360)));
}

TEST(KirobatchInfo, DurationBeyondADayIsWholeForPeopleAndWrapsInJson)
{
    const TestFolder folder;
    // One packet an hour.
    KiroSignal slow = makeSignal("a", KiroValue::SignedInt, 2, 1, 1);
    slow.ratePeriod = 3600000;
    const QString file = writeRecording(folder, batchHeader({slow}, 25), std::string(50, 'x'));
    EXPECT_THAT(info(file).output, HasSubstr("\nDuration:          25:00:00.000\n"));
    EXPECT_EQ(infoField(file, "shownDuration"), QJsonValue(QStringLiteral("01:00:00.000")));
}

TEST(KirobatchInfo, DurationWithoutARateIsUnknown)
{
    const TestFolder folder;
    // 0 samples in a period: a packet would last for ever.
    const auto header = batchHeader({makeSignal("a", KiroValue::SignedInt, 2, 1, 0)}, 2);
    const QString file = writeRecording(folder, header, "abcd");
    EXPECT_THAT(info(file).output, HasSubstr("\nDuration:          unknown\n"));
    EXPECT_TRUE(infoField(file, "shownDuration").isNull());
    EXPECT_EQ(infoField(file, "frameMSecs"), QJsonValue(QStringLiteral("inf")));
}

TEST(KirobatchInfo, TextsGoOutAsTheBytesTheyAre)
{
    const TestFolder folder;
    KiroHeader header = oneSignal(0);
    header.setStoringProgram("caf\xe9");
    header.setNotes("za\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87");
    const std::string output = info(writeRecording(folder, header, "")).output;
    EXPECT_THAT(output, HasSubstr("\nStoring program:   caf\xe9\n"));
    EXPECT_THAT(output, HasSubstr("\n  za\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87\n"));
}

TEST(KirobatchInfo, JsonReadsTextsAsLatin1)
{
    const TestFolder folder;
    KiroHeader header = oneSignal(0);
    header.setStoringProgram("caf\xe9 \xc5\xbc");
    const QString file = writeRecording(folder, header, "");
    EXPECT_EQ(infoField(file, "storingProgram"), QJsonValue(QString::fromLatin1("caf\xe9 \xc5\xbc")));
    const BatchRun run = runBatch({QStringLiteral("info"), QStringLiteral("--json"), file});
    // U+00E9, U+00C5 and U+00BC in UTF-8.
    EXPECT_THAT(run.output, HasSubstr("\"caf\xc3\xa9 \xc3\x85\xc2\xbc\""));
}

TEST(KirobatchInfo, ControlCharactersDoNotReachTheTerminal)
{
    const TestFolder folder;
    KiroHeader header = oneSignal(0);
    header.setStoringProgram("red\x1b[31m\nline");
    header.setNotes("bell\x07\r\nnext\x7f");
    const std::string output = info(writeRecording(folder, header, "")).output;
    EXPECT_THAT(output, HasSubstr("\nStoring program:   red?[31m?line\n"));
    EXPECT_THAT(output, HasSubstr("\nNotes:\n  bell?\n  next?\n"));
}

TEST(KirobatchInfo, LegacyFileIsLittleEndian)
{
    const TestFolder folder;
    folder.write(QStringLiteral("legacy.kiro"),
                 littleEndian(0xfffffffe, 4) + littleEndian(1, 4) + std::string(136, '\0'));
    const QString file = folder.path(QStringLiteral("legacy.kiro"));
    EXPECT_THAT(info(file).output, HasSubstr("\nByte order:        little-endian\n"));
    EXPECT_EQ(infoField(file, "byteOrder"), QJsonValue(QStringLiteral("little")));
    EXPECT_EQ(infoField(file, "version"), QJsonValue(2));
}
