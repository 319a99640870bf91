#include "calibrationstore.h"

#include "kiroreader.h"
#include "support/recordingfile.h"

#include <gtest/gtest.h>

#include <QFile>

#include <cstring>
#include <limits>

namespace
{

using Outcome = CalibrationStoreResult::Outcome;

KiroSignal calibrated(KiroSignal signal, double factor, double offset, const char* unit)
{
    signal.calibrated = true;
    signal.calibrationFactor = factor;
    signal.calibrationOffset = offset;
    signal.calibrationUnit = KiroString(unit);
    return signal;
}

/// A recording of version 3 or 4 with the signals "a" and "b", neither of which is calibrated, and two
/// frames.
std::string oldRecording(std::uint32_t version)
{
    constexpr std::uint32_t Magic = 0xf9d72c0a;
    ByteBuilder b;
    b.u32(Magic).u32(version).u32(0).wide("program").wide("notes");
    b.u8(31).u8(12).u16(2021).u8(23).u8(59);
    if (version >= 4)
        b.u8(58);
    b.u8(2);
    for (const char* name : {"a", "b"}) {
        b.wide(name).wide(name).u32(250).u8(1).u8(10).u8(2);
        if (version >= 4)
            b.f64(1.0).wide("");
    }
    b.u32(2);
    std::string header = b.bytes();
    header.replace(8, 4, bigEndian(header.size(), 4));
    return header + noise(80);
}

/// A recording of two signals, the second of which is calibrated, and its descriptors as loaded.
class CalibrationStore : public testing::Test
{
protected:
    void SetUp() override
    {
        header = makeHeader({makeSignal("a", KiroValue::SignedInt, 2, 10),
                             calibrated(makeSignal("b", KiroValue::Float, 4, 5), 2.5, -7.0, "deg")},
                            3);
        bind(recordingBytes(header, noise(120)));
    }
    void bind(const std::string& content)
    {
        bytes = content;
        path = folder.write(QStringLiteral("r.kiro"), bytes);
        reader.close();
        ASSERT_TRUE(reader.setFile(path));
        const std::vector<KiroSignal>& table = reader.header().signalTable();
        descriptors = QVector<KiroSignal>(table.begin(), table.end());
    }

    TestFolder folder;
    KiroHeader header;
    std::string bytes; ///< as written
    KiroString path;
    KiroReader reader;
    QVector<KiroSignal> descriptors;
};

TEST_F(CalibrationStore, OnlyTheCalibrationChanges)
{
    descriptors[0] = calibrated(descriptors[0], 0.1, 1e-300, "m/s");
    descriptors[1].calibrated = false;
    const CalibrationStoreResult result = storeCalibration(reader, descriptors);
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.errorText, QString());
    header.setSignal(0, descriptors[0]);
    header.setSignal(1, descriptors[1]);
    EXPECT_EQ(fileBytes(path), recordingBytes(header, noise(120)));
    EXPECT_NE(fileBytes(path), bytes);
    KiroReader again;
    ASSERT_TRUE(again.setFile(path));
    EXPECT_TRUE(again.checkIntegrity());
    const KiroSignal first = again.header().signal(0);
    EXPECT_TRUE(first.calibrated);
    EXPECT_EQ(first.calibrationFactor, 0.1);
    EXPECT_EQ(first.calibrationOffset, 1e-300);
    EXPECT_EQ(first.calibrationUnit, KiroString("m/s"));
    // The numbers of a calibration that was taken away stay.
    const KiroSignal second = again.header().signal(1);
    EXPECT_FALSE(second.calibrated);
    EXPECT_EQ(second.calibrationFactor, 2.5);
    EXPECT_EQ(second.calibrationOffset, -7.0);
}

TEST_F(CalibrationStore, WithoutAChangeTheFileStaysAsItIs)
{
    EXPECT_TRUE(storeCalibration(reader, descriptors).ok());
    EXPECT_EQ(fileBytes(path), bytes);
}

/// From version 4 on there are a factor and a unit.
TEST_F(CalibrationStore, VersionFourStoresFactorAndUnit)
{
    bind(oldRecording(4));
    descriptors[0] = calibrated(descriptors[0], 4.0, 0.0, "mV");
    EXPECT_TRUE(storeCalibration(reader, descriptors).ok());
    KiroReader again;
    ASSERT_TRUE(again.setFile(path));
    EXPECT_EQ(again.header().version(), 4u);
    EXPECT_TRUE(again.header().signal(0).calibrated);
    EXPECT_EQ(again.header().signal(0).calibrationFactor, 4.0);
    EXPECT_EQ(again.header().signal(0).calibrationUnit, KiroString("mV"));
    EXPECT_FALSE(again.header().signal(1).calibrated);
    EXPECT_TRUE(again.checkIntegrity());
    // The unit has made the header longer; the samples follow it.
    EXPECT_EQ(fileBytes(path).substr(fileBytes(path).size() - 80), noise(80));
}

TEST_F(CalibrationStore, AnOldHeaderWithACalibratedSignalIsRefusedWhicheverWasChanged)
{
    for (const int changed : {0, 1}) {
        bind(oldRecording(3));
        KiroSignal inFile = reader.header().signal(1);
        inFile.calibrated = true;
        reader.header().setSignal(1, inFile);
        descriptors[changed].calibrated = !descriptors[changed].calibrated;
        EXPECT_EQ(checkCalibrationStore(reader, descriptors).outcome, Outcome::TooOld);
        const CalibrationStoreResult result = storeCalibration(reader, descriptors);
        EXPECT_EQ(result.outcome, Outcome::TooOld);
        EXPECT_EQ(result.errorText,
                  QStringLiteral("There are calibrated signals in the current data file,\n"
                                 "but the header version is too old and does not support calibration.\n"
                                 "If you want to store calibration please convert this data file\n"
                                 "using the \"Save as binary\" option in DataFile Center"));
        EXPECT_EQ(fileBytes(path), bytes);
    }
}

TEST_F(CalibrationStore, AnOldHeaderWithoutCalibratedSignalIsWrittenWithoutAWord)
{
    bind(oldRecording(3));
    descriptors[0] = calibrated(descriptors[0], 0.5, 0.0, "mV");
    const CalibrationStoreResult result = storeCalibration(reader, descriptors);
    EXPECT_TRUE(result.ok());
    EXPECT_EQ(result.errorText, QString());
    EXPECT_EQ(fileBytes(path), bytes);
}

TEST_F(CalibrationStore, AnotherRecordingAtThePathIsLeftAlone)
{
    const QVector<KiroSignal> loaded = descriptors;
    const auto expectRefused = [&](const char* what) {
        const CalibrationStoreResult result = storeCalibration(reader, loaded);
        EXPECT_EQ(result.outcome, Outcome::CannotSave) << what;
        EXPECT_EQ(result.errorText,
                  QStringLiteral("An error has occured during updating file header.\n"
                                 "The file is no longer the one that was opened: it has other signals."))
            << what;
        EXPECT_EQ(fileBytes(path), bytes) << what;
    };
    const std::vector<KiroSignal> table = header.signalTable();
    header = makeHeader({table[0]}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("a signal less");
    header = makeHeader({table[0], table[1], table[1]}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("a signal more");
    header = makeHeader({table[1], table[0]}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("another order");
    header = makeHeader({table[0], makeSignal("c", KiroValue::Float, 4, 5)}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("another name");
    header = makeHeader({table[0], makeSignal("b", KiroValue::Float, 4, 5, 500)}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("another rate");
    header = makeHeader({table[0], makeSignal("b", KiroValue::SignedInt, 4, 5)}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("another type");
    header = makeHeader({table[0], makeSignal("b", KiroValue::Float, 8, 5)}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("samples of another size");
    header = makeHeader({table[0], makeSignal("b", KiroValue::Float, 4, 4)}, 3);
    bind(recordingBytes(header, noise(120)));
    expectRefused("another number of samples");
}

TEST_F(CalibrationStore, AFileThatIsGoneIsTold)
{
    QFile::remove(path.toQString());
    const CalibrationStoreResult result = storeCalibration(reader, descriptors);
    EXPECT_EQ(result.outcome, Outcome::CannotSave);
    EXPECT_EQ(result.errorText,
              QStringLiteral("An error has occured during updating file header.\n"
                             "KiroReader::updateHeader() - opening file for writing failed"));
    EXPECT_FALSE(QFile::exists(path.toQString()));
}

} // namespace
