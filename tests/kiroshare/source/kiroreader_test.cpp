#include "kiroreader.h"

#include "fatalrecorder.h"
#include "recordingfile.h"

#include <QFile>

#include <gtest/gtest.h>

namespace
{

const char* const GetSampleFailed =
    "KiroReader::getSample(int signal,int sample) - fatal error in readFile(int,int) call (";

/// A recording of one signal of 2-byte samples 0, 1, 2, ..., four in a frame.
class KiroReaderTest : public testing::Test
{
protected:
    static constexpr int Frames = 100;

    KiroString writeRecording(int frames = Frames)
    {
        const KiroHeader header = makeHeader({makeSignal("s", KiroValue::UnsignedInt, 2, 4, 1000)},
                                             static_cast<std::uint32_t>(frames));
        m_path = m_folder.write(QStringLiteral("r.kiro"), recordingBytes(header, countingWords(4 * frames)));
        return m_path;
    }

    /// Overwrites sample data in the file.
    void patchData(int offset, const std::string& bytes)
    {
        std::string content = fileBytes(m_path);
        content.replace(static_cast<std::size_t>(2202 + 261 + offset), bytes.size(), bytes);
        m_folder.write(QStringLiteral("r.kiro"), content);
    }

    void resizeFile(qint64 size)
    {
        QFile file(m_path.toQString());
        ASSERT_TRUE(file.resize(size));
    }

    TestFolder m_folder;
    KiroString m_path;
};

std::string quoted(const char* text, const KiroString& path)
{
    return KiroString(text).arg(path).bytes();
}

} // namespace

TEST_F(KiroReaderTest, SetFileLoadsTheHeader)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    EXPECT_TRUE(reader.isOpen());
    EXPECT_TRUE(reader.isWritable());
    EXPECT_TRUE(reader.swapsBytes());
    EXPECT_EQ(reader.header().frameCount(), 100u);
    EXPECT_EQ(reader.fileName().bytes(), m_path.bytes());
    EXPECT_TRUE(reader.errorText().isEmpty());
    EXPECT_EQ(reader.bufferSize(), 0);
    EXPECT_EQ(reader.readSize(), 0);
}

TEST_F(KiroReaderTest, SuccessClearsTheErrorText)
{
    KiroReader reader;
    EXPECT_FALSE(reader.setFile("/no/such.kiro"));
    EXPECT_FALSE(reader.errorText().isEmpty());
    ASSERT_TRUE(reader.setFile(writeRecording()));
    EXPECT_TRUE(reader.errorText().isEmpty());
}

TEST_F(KiroReaderTest, SecondFileIsRefusedAndTheFirstStays)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    EXPECT_FALSE(reader.setFile(m_path));
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::setFile(const KiroString&) - file already open");
    EXPECT_TRUE(reader.isOpen());
    EXPECT_EQ(reader.header().frameCount(), 100u);
}

TEST_F(KiroReaderTest, MissingFileIsNamed)
{
    KiroReader reader;
    EXPECT_FALSE(reader.setFile("/no/such.kiro"));
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::setFile(const KiroString&) - opening file /no/such.kiro failed");
    EXPECT_FALSE(reader.isOpen());
}

TEST_F(KiroReaderTest, FileThatIsNoRecordingIsNamed)
{
    const KiroString path = m_folder.write(QStringLiteral("t.txt"), "no recording");
    KiroReader reader;
    EXPECT_FALSE(reader.setFile(path));
    EXPECT_EQ(reader.errorText().bytes(),
              quoted("KiroReader::setFile(const KiroString&) - cannot load file header (%1)", path));
    EXPECT_FALSE(reader.isOpen());
}

TEST_F(KiroReaderTest, SamplesOfMoreThanEightBytesAreRefused)
{
    const KiroHeader header = makeHeader(
        {makeSignal("a", KiroValue::SignedInt, 8, 1), makeSignal("b", KiroValue::Object, 9, 1)}, 1);
    KiroReader reader;
    EXPECT_FALSE(reader.setFile(m_folder.write(QStringLiteral("x"), recordingBytes(header, noise(17)))));
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::setFile(const KiroString&) - invalid sample size (signal "
              "index is 1, sample size is 9, at most 8 can be read)");
    EXPECT_FALSE(reader.isOpen());
    EXPECT_EQ(reader.header().signalCount(), 0);
}

TEST_F(KiroReaderTest, FilesOfTwoGibibytesAreRefused)
{
    writeRecording();
    resizeFile(qint64(1) << 31); // sparse
    KiroReader reader;
    EXPECT_FALSE(reader.setFile(m_path));
    EXPECT_EQ(
        reader.errorText().bytes(),
        quoted("KiroReader::setFile(const KiroString&) - file size 2147483648 is too large, sizes below "
               "2147483648 can be read (%1)",
               m_path));
    resizeFile((qint64(1) << 31) - 1);
    EXPECT_TRUE(reader.setFile(m_path));
}

TEST_F(KiroReaderTest, CloseKeepsBufferAndReadSizeForTheNextFile)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setReadSize(8, 64));
    reader.getSample(0, 0);
    reader.close();
    EXPECT_FALSE(reader.isOpen());
    EXPECT_FALSE(reader.isWritable());
    EXPECT_EQ(reader.header().signalCount(), 0);
    EXPECT_EQ(reader.bufferFill(), 0);
    EXPECT_EQ(reader.bufferSize(), 72);
    EXPECT_EQ(reader.readSize(), 72);
    EXPECT_EQ(reader.readBack(), 8);
    ASSERT_TRUE(reader.setFile(m_path));
    EXPECT_EQ(reader.getSample(0, 399).toInt32(), 399);
}

TEST_F(KiroReaderTest, ErrorTextSurvivesClose)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    reader.setBufferSize(0);
    reader.close();
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::setBufferSize(int) - cannot set size 0");
}

TEST_F(KiroReaderTest, BufferOfZeroBytesIsRefused)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setBufferSize(500));
    EXPECT_EQ(reader.readSize(), 500);
    EXPECT_FALSE(reader.setBufferSize(0));
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::setBufferSize(int) - cannot set size 0");
    EXPECT_EQ(reader.bufferSize(), 500);
    EXPECT_FALSE(reader.setBufferSize(-5));
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::setBufferSize(int) - memory allocation error (size -5)");
    EXPECT_EQ(reader.bufferSize(), 500);
}

TEST_F(KiroReaderTest, ReadSizeGrowsTheBuffer)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setBufferSize(500));
    ASSERT_TRUE(reader.setReadSize(100, 900));
    EXPECT_EQ(reader.bufferSize(), 1000);
    EXPECT_EQ(reader.readSize(), 1000);
    EXPECT_EQ(reader.readBack(), 100);
}

TEST_F(KiroReaderTest, ReadSizeOfZeroIsRefused)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setReadSize(10, 20));
    EXPECT_FALSE(reader.setReadSize(0, 0));
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::setReadSize(int,int) - cannot set size 0");
    EXPECT_FALSE(reader.setReadSize(-1, 1));
    EXPECT_FALSE(reader.setReadSize(2147483647, 2147483647));
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::setBufferSize(int) - memory allocation error (size 4294967294)");
    EXPECT_EQ(reader.readSize(), 30);
    EXPECT_EQ(reader.readBack(), 10);
}

TEST_F(KiroReaderTest, ABufferOfJustTheReadSizeKeepsTheReadBack)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setReadSize(10, 90));
    ASSERT_TRUE(reader.setBufferSize(100));
    EXPECT_EQ(reader.readSize(), 100);
    EXPECT_EQ(reader.readBack(), 10);
}

TEST_F(KiroReaderTest, ASmallerBufferTakesTheReadSizeAlongAndKeepsWhatFits)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setReadSize(10, 90));
    ASSERT_TRUE(reader.readFile(200, 100));
    ASSERT_TRUE(reader.setBufferSize(40));
    EXPECT_EQ(reader.readSize(), 40);
    EXPECT_EQ(reader.readBack(), 0);
    EXPECT_EQ(reader.bufferStart(), 200);
    EXPECT_EQ(reader.bufferFill(), 40);
    ASSERT_TRUE(QFile::remove(m_path.toQString()));
    EXPECT_EQ(reader.getSample(0, 119).toInt32(), 119);
}

TEST_F(KiroReaderTest, EverySampleIsReadByIndex)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setReadSize(2)); // one sample at a time
    for (const int index : {0, 1, 4, 399, 7, 200, 3})
        EXPECT_EQ(reader.getSample(0, index).toInt32(), index);
}

TEST_F(KiroReaderTest, RunsOfSignalsLieOneBehindTheOther)
{
    const KiroHeader header = makeHeader({makeSignal("a", KiroValue::UnsignedInt, 1, 3),
                                          makeSignal("none", KiroValue::SignedInt, 2, 0),
                                          makeSignal("b", KiroValue::SignedInt, 2, 2)},
                                         2);
    const std::string data("\x01\x02\x03\xff\xff\x00\x05\x04\x05\x06\x7f\xff\x80\x00", 14);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_folder.write(QStringLiteral("x"), recordingBytes(header, data))));
    ASSERT_TRUE(reader.setReadSize(100));
    EXPECT_EQ(reader.getSample(0, 5).toInt32(), 6);
    EXPECT_EQ(reader.getSample(2, 0).toInt32(), -1);
    EXPECT_EQ(reader.getSample(2, 1).toInt32(), 5);
    EXPECT_EQ(reader.getSample(2, 2).toInt32(), 32767);
    EXPECT_EQ(reader.getSample(2, 3).toInt32(), -32768);
}

TEST_F(KiroReaderTest, BigEndianSamplesAreSwapped)
{
    const KiroHeader header = makeHeader({makeSignal("a", KiroValue::SignedInt, 4, 1)}, 1);
    KiroReader reader;
    ASSERT_TRUE(
        reader.setFile(m_folder.write(QStringLiteral("x"), recordingBytes(header, "\xff\xff\xff\xfe"))));
    EXPECT_EQ(reader.getSample(0, 0).toInt32(), -2);
}

TEST_F(KiroReaderTest, LegacySamplesBeginAtByteEightAndAreNotSwapped)
{
    std::string data;
    for (int i = 0; i < 34; ++i)
        data += littleEndian(static_cast<std::uint32_t>(-i), 4);
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(
        m_folder.write(QStringLiteral("x"), std::string("\xfe\xff\xff\xff\x01\0\0\0", 8) + data)));
    EXPECT_FALSE(reader.swapsBytes());
    EXPECT_EQ(reader.dataStart(), 8);
    EXPECT_EQ(reader.getSample(0, 3).toInt32(), -3);
    EXPECT_EQ(reader.getSample(9, 3).toInt32(), -33);
}

TEST_F(KiroReaderTest, GetSampleTakesABufferOfItsOwn)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    EXPECT_EQ(reader.getSample(0, 17).toInt32(), 17);
    EXPECT_GT(reader.bufferSize(), 0);
}

TEST_F(KiroReaderTest, ReadBackAloneStillReadsTheSample)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setReadSize(10, 0));
    EXPECT_EQ(reader.getSample(0, 50).toInt32(), 50);
    ASSERT_TRUE(reader.setBufferSize(1));
    EXPECT_EQ(reader.getSample(0, 250).toInt32(), 250);
}

TEST_F(KiroReaderTest, GetSampleWithoutFileOrSignalIsFatal)
{
    KiroReader reader;
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(0, 0); }),
              "KiroReader::getSample(int signal,int sample) - file not open!");
    ASSERT_TRUE(reader.setFile(writeRecording()));
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(1, 0); }),
              "KiroReader::getSample(int signal,int sample) - invalid signal index (1)");
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(-1, 0); }),
              "KiroReader::getSample(int signal,int sample) - invalid signal index (-1)");
}

TEST_F(KiroReaderTest, SampleBehindTheEndIsFatal)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setReadSize(64));
    const std::string start = GetSampleFailed;
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(0, 400); }),
              start +
                  "KiroReader::read(int,int) - invalid number of bytes read (to read: 0, read returned: -1)");
    EXPECT_EQ(
        fatalErrorOf([&] { reader.getSample(0, 410); }),
        start + "KiroReader::read(int,int) - invalid number of bytes read (to read: -20, read returned: -1)");
    ASSERT_TRUE(reader.setReadSize(32, 32)); // a refill from before the end reaches the end only
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(0, 401); }).substr(0, start.size()), start);
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(0, 2147483647); }).substr(0, start.size()), start);
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(0, -1); }).substr(0, start.size()), start);
}

TEST_F(KiroReaderTest, SignalsWithoutSamplesOrBytesHaveNone)
{
    const KiroHeader header = makeHeader({makeSignal("none", KiroValue::SignedInt, 2, 0),
                                          makeSignal("void", KiroValue::SignedInt, 0, 4),
                                          makeSignal("a", KiroValue::SignedInt, 2, 1)},
                                         3);
    KiroReader reader;
    const KiroString path = m_folder.write(QStringLiteral("x"), recordingBytes(header, countingWords(3)));
    ASSERT_TRUE(reader.setFile(path));
    const std::string start = GetSampleFailed;
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(0, 0); }).substr(0, start.size()), start);
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(1, 0); }).substr(0, start.size()), start);
    EXPECT_EQ(reader.getSample(2, 2).toInt32(), 2);
    std::vector<double> samples{42.0};
    EXPECT_FALSE(KiroReader::readSignal(path, 0, samples));
    EXPECT_FALSE(KiroReader::readSignal(path, 1, samples));
    EXPECT_EQ(samples, std::vector<double>{42.0});
}

TEST_F(KiroReaderTest, AFileThatShrinksWhileOpenIsAFatalErrorAndNoCrash)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setReadSize(64));
    EXPECT_EQ(reader.getSample(0, 0).toInt32(), 0);
    resizeFile(2202 + 261 + 100);
    EXPECT_EQ(
        fatalErrorOf([&] { reader.getSample(0, 200); }),
        std::string(GetSampleFailed) +
            "KiroReader::read(int,int) - invalid number of bytes read (to read: 64, read returned: -1)");
    ASSERT_TRUE(QFile::remove(m_path.toQString()));
    EXPECT_EQ(fatalErrorOf([&] { reader.getSample(0, 200); }),
              std::string(GetSampleFailed) +
                  "KiroReader::readFile(int,int) - opening file for reading failed)");
    EXPECT_EQ(reader.getSample(0, 1).toInt32(), 1); // still in the buffer
}

TEST_F(KiroReaderTest, WalkingBackwardsRefillsAtTheLowerEdgeAndReusesTheOverlap)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setReadSize(72, 8)); // ten frames less one back, one ahead
    std::vector<int> starts;
    for (int sample = 399; sample >= 0; --sample) {
        if (sample == 362) // 652 to 731 comes next; 726 to 731 is in the buffer already
            patchData(726, std::string(6, '\x55'));
        ASSERT_EQ(reader.getSample(0, sample).toInt32(), sample);
        if (starts.empty() || starts.back() != reader.bufferStart())
            starts.push_back(reader.bufferStart());
    }
    EXPECT_EQ(starts, (std::vector<int>{726, 652, 578, 504, 430, 356, 282, 208, 134, 60, 0}));
    EXPECT_EQ(reader.getSample(0, 0).toInt32(), 0);
}

TEST_F(KiroReaderTest, OverlapFromBelowKeepsTheHeadOfTheBuffer)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setBufferSize(200));
    ASSERT_TRUE(reader.readFile(100, 100));
    patchData(100, std::string(100, '\x55'));
    ASSERT_TRUE(reader.readFile(60, 100));
    EXPECT_EQ(reader.bufferStart(), 60);
    EXPECT_EQ(reader.bufferFill(), 100);
    for (int sample = 30; sample < 80; ++sample)
        EXPECT_EQ(reader.getSample(0, sample).toInt32(), sample);
}

TEST_F(KiroReaderTest, OverlapWithTheTailKeepsTheTailOfTheBuffer)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setBufferSize(200));
    ASSERT_TRUE(reader.readFile(100, 100));
    patchData(100, std::string(100, '\x55'));
    ASSERT_TRUE(reader.readFile(160, 100));
    EXPECT_EQ(reader.bufferStart(), 160);
    EXPECT_EQ(reader.bufferFill(), 100);
    for (int sample = 80; sample < 130; ++sample)
        EXPECT_EQ(reader.getSample(0, sample).toInt32(), sample);
}

TEST_F(KiroReaderTest, ARequestStrictlyInsideNeedsNoFile)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setBufferSize(200));
    ASSERT_TRUE(reader.readFile(100, 100));
    ASSERT_TRUE(QFile::remove(m_path.toQString()));
    ASSERT_TRUE(reader.readFile(120, 40));
    EXPECT_EQ(reader.bufferStart(), 120);
    EXPECT_EQ(reader.bufferFill(), 40);
    for (int sample = 60; sample < 80; ++sample)
        EXPECT_EQ(reader.getSample(0, sample).toInt32(), sample);
    EXPECT_FALSE(reader.readFile(120, 40)); // the same range again is no strict inside
}

TEST_F(KiroReaderTest, RangesThatDoNotOverlapAreReadWhole)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setBufferSize(200));
    ASSERT_TRUE(reader.readFile(100, 100));
    patchData(100, std::string(100, '\x55'));
    ASSERT_TRUE(reader.readFile(100, 100)); // the same range: read again
    EXPECT_EQ(reader.getSample(0, 50).toInt32(), 0x5555);
    ASSERT_TRUE(reader.readFile(400, 100));
    EXPECT_EQ(reader.getSample(0, 249).toInt32(), 249);
}

// The buffer holds 100 to 199. Requests that only touch its edges are no overlap.
TEST_F(KiroReaderTest, RequestsThatEndOrBeginAtTheBuffersEdgesAreReadWhole)
{
    const std::pair<int, int> requests[] = {{60, 41},   // ends at the buffer's first byte
                                            {60, 140},  // ends at its last byte
                                            {100, 140}, // begins at its first byte
                                            {199, 60},  // begins at its last byte
                                            {100, 50},  // begins with it, ends inside
                                            {150, 50}}; // begins inside, ends with it
    for (const auto& [start, length] : requests) {
        KiroReader reader;
        ASSERT_TRUE(reader.setFile(writeRecording()));
        ASSERT_TRUE(reader.setBufferSize(200));
        ASSERT_TRUE(reader.readFile(100, 100));
        patchData(0, std::string(800, '\x55'));
        ASSERT_TRUE(reader.readFile(start, length));
        const int first = (start + 1) / 2;
        const int last = (start + length) / 2 - 1;
        EXPECT_EQ(reader.getSample(0, first).toInt32(), 0x5555) << start << " " << length;
        EXPECT_EQ(reader.getSample(0, last).toInt32(), 0x5555) << start << " " << length;
    }
}

TEST_F(KiroReaderTest, AFailedReadLeavesTheBuffer)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.setBufferSize(200));
    ASSERT_TRUE(reader.readFile(700, 90));
    EXPECT_FALSE(reader.readFile(750, 100)); // beyond the end of the file
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::read(int,int) - invalid number of bytes read (to read: 60, read returned: -1");
    EXPECT_EQ(reader.bufferStart(), 700);
    EXPECT_EQ(reader.bufferFill(), 90);
    for (int sample = 350; sample < 395; ++sample)
        EXPECT_EQ(reader.getSample(0, sample).toInt32(), sample);
    EXPECT_FALSE(reader.readFile(-4, 4));
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::readFile(int,int) - setting file position to 2459 failed");
    EXPECT_FALSE(reader.readFile(0, 201));
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::readFile(int,int) - buffer too small (to read: 201, buffer size: 200)");
    EXPECT_EQ(reader.getSample(0, 350).toInt32(), 350);
}

namespace
{

struct IntegrityCase
{
    const char* name;
    std::uint32_t declared;
    int storedBytes; ///< frames have 10 bytes
    bool passes;
};

class Integrity : public testing::TestWithParam<IntegrityCase>
{
};

} // namespace

TEST_P(Integrity, ComparesDeclaredAndWholeStoredFrames)
{
    const TestFolder folder;
    const KiroHeader header =
        makeHeader({makeSignal("a", KiroValue::UnsignedInt, 2, 5)}, GetParam().declared);
    const std::string data = noise(static_cast<std::size_t>(GetParam().storedBytes));
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(folder.write(QStringLiteral("x"), recordingBytes(header, data))));
    EXPECT_EQ(reader.checkIntegrity(), GetParam().passes);
    EXPECT_TRUE(reader.errorText().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Frames, Integrity,
                         testing::Values(IntegrityCase{"half_frame_more", 100, 1005, true},
                                         IntegrityCase{"exact", 100, 1000, true},
                                         IntegrityCase{"nearly_a_frame_more", 100, 1009, true},
                                         IntegrityCase{"one_frame_more", 100, 1010, false},
                                         IntegrityCase{"a_tenth_less", 100, 999, false},
                                         IntegrityCase{"none_of_none", 0, 0, true},
                                         IntegrityCase{"part_of_none", 0, 9, true},
                                         IntegrityCase{"hostile_count", 4294967295u, 1000, false}),
                         [](const auto& row) { return row.param.name; });

TEST_F(KiroReaderTest, IntegrityWithoutFileFailsOnOpening)
{
    KiroReader reader;
    EXPECT_FALSE(reader.checkIntegrity());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::checkIntegrity() - opening file for reading failed");
}

TEST_F(KiroReaderTest, IntegrityOfAVanishedOrEmptiedFileFails)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(writeRecording()));
    ASSERT_TRUE(reader.checkIntegrity());
    resizeFile(0);
    EXPECT_FALSE(reader.checkIntegrity());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::checkIntegrity(QString) - zero file size");
    resizeFile(100); // less than the header, and no frames
    reader.header().setFrameCount(0);
    EXPECT_FALSE(reader.checkIntegrity());
    EXPECT_TRUE(reader.errorText().isEmpty());
    ASSERT_TRUE(QFile::remove(m_path.toQString()));
    EXPECT_FALSE(reader.checkIntegrity());
    EXPECT_EQ(reader.errorText().bytes(), "KiroReader::checkIntegrity() - opening file for reading failed");
}

TEST_F(KiroReaderTest, IntegrityOfFramesWithoutBytesFailsWithAText)
{
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_folder.write(QStringLiteral("x"), recordingBytes(makeHeader({}, 5), ""))));
    EXPECT_FALSE(reader.checkIntegrity());
    EXPECT_EQ(reader.errorText().bytes(),
              "KiroReader::checkIntegrity() - the signals have no samples, frame size is 0");
}

TEST_F(KiroReaderTest, ReadSignalGivesRawOrCalibratedValues)
{
    KiroSignal signal = makeSignal("a", KiroValue::SignedInt, 2, 2);
    signal.calibrated = true;
    signal.calibrationFactor = 4.0;
    signal.calibrationOffset = 1.0;
    const KiroString path =
        m_folder.write(QStringLiteral("x"),
                       recordingBytes(makeHeader({signal}, 2), std::string("\0\x01\0\x02\xff\xff\0\x05", 8)));
    std::vector<double> samples;
    ASSERT_TRUE(KiroReader::readSignal(path, 0, samples, false));
    EXPECT_EQ(samples, (std::vector<double>{1, 2, -1, 5}));
    ASSERT_TRUE(KiroReader::readSignal(path, 0, samples, true));
    EXPECT_EQ(samples, (std::vector<double>{0, 0.25, -0.5, 1}));
    QVector<double> qtSamples;
    ASSERT_TRUE(KiroReader::readSignal(path, 0, qtSamples, true, 1, 2));
    EXPECT_EQ(qtSamples, (QVector<double>{0.25, -0.5}));
}

TEST_F(KiroReaderTest, ReadSignalDoesNotCalibrateUncalibratedSignals)
{
    KiroSignal signal = makeSignal("a", KiroValue::SignedInt, 2, 1);
    signal.calibrationFactor = 4.0;
    const KiroString path =
        m_folder.write(QStringLiteral("x"), recordingBytes(makeHeader({signal}, 3), countingWords(3)));
    std::vector<double> samples;
    ASSERT_TRUE(KiroReader::readSignal(path, 0, samples, true));
    EXPECT_EQ(samples, (std::vector<double>{0, 1, 2}));
}

TEST_F(KiroReaderTest, ReadSignalCutsItsRangeAtTheEnd)
{
    writeRecording(5);
    std::vector<double> samples;
    ASSERT_TRUE(KiroReader::readSignal(m_path, 0, samples, true, 17, 0));
    EXPECT_EQ(samples, (std::vector<double>{17, 18, 19}));
    ASSERT_TRUE(KiroReader::readSignal(m_path, 0, samples, true, 18, 2147483647));
    EXPECT_EQ(samples, (std::vector<double>{18, 19}));
    ASSERT_TRUE(KiroReader::readSignal(m_path, 0, samples, true, 3, 2));
    EXPECT_EQ(samples, (std::vector<double>{3, 4}));
}

TEST_F(KiroReaderTest, ReadSignalRefusesWhatIsNotThere)
{
    writeRecording(5);
    std::vector<double> samples{1.0};
    QVector<double> qtSamples{1.0};
    EXPECT_FALSE(KiroReader::readSignal(m_path, 0, samples, true, 20, 1));
    EXPECT_FALSE(KiroReader::readSignal(m_path, 0, samples, true, -1, 1));
    EXPECT_FALSE(KiroReader::readSignal(m_path, 0, samples, true, 0, -1));
    EXPECT_FALSE(KiroReader::readSignal(m_path, 1, samples));
    EXPECT_FALSE(KiroReader::readSignal(m_path, -1, samples));
    EXPECT_FALSE(KiroReader::readSignal("/no/such.kiro", 0, samples));
    EXPECT_FALSE(KiroReader::readSignal(m_path, 0, qtSamples, true, 20));
    resizeFile(2202 + 261 + 39); // the last sample lacks a byte
    EXPECT_FALSE(KiroReader::readSignal(m_path, 0, samples));
    EXPECT_EQ(samples, std::vector<double>{1.0});
    EXPECT_EQ(qtSamples, QVector<double>{1.0});
}

TEST_F(KiroReaderTest, SamplesAreFoundWhileTheHeaderIsBeingChanged)
{
    ByteBuilder b;
    b.u32(0xf9d72c0a).u32(3).u32(0).wide("p").wide("n").u8(1).u8(1).u16(2000).u8(0).u8(0).u8(1);
    b.wide("s").wide("s").u32(250).u8(2).u8(1).u8(2).u32(4).raw(countingWords(4));
    KiroReader reader;
    ASSERT_TRUE(reader.setFile(m_folder.write(QStringLiteral("x"), b.bytes())));
    reader.header().setNotes("much longer notes that are not in the file yet");
    EXPECT_EQ(reader.getSample(0, 3).toInt32(), 3);
    EXPECT_TRUE(reader.checkIntegrity());
}
