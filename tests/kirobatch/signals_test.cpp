#include "batchprocess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

#include <limits>

namespace
{

/// A calibrated signal, one with names outside ASCII, and one without texts.
KiroHeader threeSignals()
{
    KiroSignal eye = makeSignal("Eye movement - horizontal", KiroValue::SignedInt, 2, 4, 1000);
    eye.shortName = "eyex";
    eye.calibrated = true;
    eye.calibrationFactor = 85.66341;
    eye.calibrationOffset = -1234567;
    eye.calibrationUnit = "deg";
    KiroSignal light = makeSignal("\xc5\x9awiat\xc5\x82o", KiroValue::UnsignedInt, 1, 1, 100);
    light.ratePeriod = 3;
    light.calibrationFactor = std::numeric_limits<double>::infinity();
    return batchHeader({eye, light, makeSignal("", KiroValue::Unknown, 8, 0, 1)}, 0);
}

} // namespace

TEST(KirobatchSignals, PrintsAnAlignedTableByCharacters)
{
    const TestFolder folder;
    const BatchRun run = runBatch({QStringLiteral("signals"), writeRecording(folder, threeSignals(), "")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output,
              "Index  Full name                  Short name  Freq. [Hz]  Samples/Packet  Sample size [B]"
              "  Sample type   Calib. unit  Calib. factor  Calib. offset\n"
              "    0  Eye movement - horizontal  eyex          1000.000               4                2"
              "  signed int    deg                85.6634   -1.23457e+06\n"
              "    1  \xc5\x9awiat\xc5\x82o                    \xc5\x9awiat\xc5\x82o"
              "      33333.333               1                1"
              "  unsigned int                         inf              0\n"
              "    2                                              1.000               0                8"
              "  unknown                                1              0\n");
}

TEST(KirobatchSignals, OfNoSignalsAreTheHeadingsAlone)
{
    const TestFolder folder;
    const BatchRun run =
        runBatch({QStringLiteral("signals"), writeRecording(folder, batchHeader({}, 0), "")});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "Index  Full name  Short name  Freq. [Hz]  Samples/Packet  Sample size [B]"
                          "  Sample type  Calib. unit  Calib. factor  Calib. offset\n");
}

TEST(KirobatchSignals, JsonIsAnArrayOfAllFields)
{
    const TestFolder folder;
    const BatchRun run = runBatch(
        {QStringLiteral("signals"), QStringLiteral("--json"), writeRecording(folder, threeSignals(), "")});
    EXPECT_EQ(run.status, 0);
    const QJsonArray found = QJsonDocument::fromJson(QByteArray::fromStdString(run.output)).array();
    ASSERT_EQ(found.size(), 3);
    const QJsonObject expected = QJsonDocument::fromJson(R"({
        "fullName": "Eye movement - horizontal", "shortName": "eyex", "ratePeriod": 1000,
        "samplesPerPeriod": 1000, "valueType": 1, "valueTypeName": "signed int", "samplesPerFrame": 4,
        "sampleSize": 2, "calibrated": true, "calibrationFactor": 85.66341,
        "calibrationOffset": -1234567, "calibrationUnit": "deg", "frequency": 1000, "mSecs": 1,
        "sampleCount": 0})")
                                     .object();
    EXPECT_EQ(found.at(0).toObject(), expected);
    const QJsonObject light = found.at(1).toObject();
    EXPECT_EQ(light.value(QStringLiteral("calibrationFactor")), QJsonValue(QStringLiteral("inf")));
    EXPECT_EQ(light.value(QStringLiteral("fullName")),
              QJsonValue(QString::fromLatin1("\xc5\x9awiat\xc5\x82o")));
    EXPECT_EQ(found.at(2).toObject().value(QStringLiteral("valueType")),
              QJsonValue(QStringLiteral("unknown")));
}
