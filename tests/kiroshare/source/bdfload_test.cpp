#include "bdfbuilder.h"
#include "bdfimporter.h"

#include "recordingbuilder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <functional>

#include <sys/stat.h>

namespace
{

class BdfLoad : public testing::Test
{
protected:
    /// The error text of loading these bytes, empty if they are taken.
    std::string errorOf(const std::string& bytes)
    {
        const QString path = m_folder.write(QStringLiteral("f.bdf"), bytes).toQString();
        const bool loaded = m_importer.load(path);
        EXPECT_EQ(loaded, m_importer.errorText().isEmpty());
        return m_importer.errorText().toStdString();
    }
    std::string errorOf(const BdfFields& fields) { return errorOf(fields.bytes()); }

    TestFolder m_folder;
    BdfImporter m_importer;
};

BdfFields oneChannel()
{
    BdfFields fields;
    fields.channels = {BdfChannelFields()};
    return fields;
}

} // namespace

TEST_F(BdfLoad, GivesEveryFieldOfTheHeader)
{
    BdfFields fields = oneChannel();
    fields.patient = "  a   patient ";
    fields.records = "12";
    fields.duration = "0.5";
    ASSERT_EQ(errorOf(fields), "");
    const BdfHeader& header = m_importer.header();
    EXPECT_TRUE(header.isBdf);
    EXPECT_EQ(header.patient, QStringLiteral("a patient"));
    EXPECT_EQ(header.recording, QStringLiteral("recording"));
    EXPECT_EQ(header.dateText, QStringLiteral("05.06.14"));
    EXPECT_EQ(header.timeText, QStringLiteral("07.08.09"));
    EXPECT_EQ(header.start, QDateTime(QDate(2014, 6, 5), QTime(7, 8, 9), Qt::UTC));
    EXPECT_EQ(header.headerBytes, 512);
    EXPECT_EQ(header.reserved, QStringLiteral("24BIT"));
    EXPECT_TRUE(header.is24Bit);
    EXPECT_EQ(header.recordCount, 12);
    EXPECT_EQ(header.recordDuration, 0.5);
    EXPECT_EQ(header.channelCount(), 1);
    EXPECT_EQ(header.recordBytes, 6);
    EXPECT_EQ(header.recordSamples(), 2);
}

TEST_F(BdfLoad, GivesEveryFieldOfAChannel)
{
    BdfFields fields = oneChannel();
    ASSERT_EQ(errorOf(fields), "");
    const BdfChannel& channel = m_importer.header().channels.front();
    EXPECT_EQ(channel.label, QStringLiteral("A1"));
    EXPECT_EQ(channel.transducer, QStringLiteral("active electrode"));
    EXPECT_EQ(channel.physicalDimension, QStringLiteral("uV"));
    EXPECT_EQ(channel.prefiltering, QStringLiteral("DC"));
    EXPECT_EQ(channel.physicalMinimum, -100.0);
    EXPECT_EQ(channel.physicalMaximum, 100.0);
    EXPECT_EQ(channel.digitalMinimum, -1000);
    EXPECT_EQ(channel.digitalMaximum, 1000);
    EXPECT_EQ(channel.samplesPerRecord, 2);
    EXPECT_EQ(channel.gain, 10.0);
    EXPECT_FALSE(channel.isStatus);
    EXPECT_FALSE(channel.isMarked);
}

TEST_F(BdfLoad, RecordBytesAreThoseOfAllChannels)
{
    BdfFields fields = oneChannel();
    fields.channels.resize(3);
    fields.channels[1].samplesPerRecord = "100";
    fields.channels[2].samplesPerRecord = "0";
    ASSERT_EQ(errorOf(fields), "");
    EXPECT_EQ(m_importer.header().recordBytes, 306);
    fields.reserved = "BIOSEMI";
    ASSERT_EQ(errorOf(fields), "");
    EXPECT_EQ(m_importer.header().recordBytes, 204);
}

TEST_F(BdfLoad, GivenSampleBytesOverrideTheReservedField)
{
    m_importer.setSampleBytes(2);
    ASSERT_EQ(errorOf(oneChannel()), "");
    EXPECT_FALSE(m_importer.header().is24Bit);
    EXPECT_EQ(m_importer.header().recordBytes, 4);
    BdfFields edf = BdfFields::edf();
    edf.channels = {BdfChannelFields()};
    m_importer.setSampleBytes(3);
    ASSERT_EQ(errorOf(edf), "");
    EXPECT_TRUE(m_importer.header().is24Bit);
    EXPECT_EQ(m_importer.header().recordBytes, 6);
    m_importer.setSampleBytes(0);
    ASSERT_EQ(errorOf(edf), "");
    EXPECT_FALSE(m_importer.header().is24Bit);
}

TEST_F(BdfLoad, MissingFileIsNamed)
{
    const QString path = m_folder.path(QStringLiteral("no such.bdf"));
    EXPECT_FALSE(m_importer.load(path));
    EXPECT_EQ(m_importer.errorText(), QStringLiteral("Failed to open file ") + path);
}

TEST_F(BdfLoad, FolderAndPipeAreNotOpened)
{
    const QString folder = m_folder.path(QStringLiteral("folder"));
    ASSERT_TRUE(QDir().mkdir(folder));
    EXPECT_FALSE(m_importer.load(folder));
    EXPECT_EQ(m_importer.errorText(), QStringLiteral("Failed to open file ") + folder);
    const QString pipe = m_folder.path(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(m_importer.load(pipe));
    EXPECT_EQ(m_importer.errorText(), QStringLiteral("Failed to open file ") + pipe);
}

TEST_F(BdfLoad, FileOf511BytesIsRefusedWhateverItHolds)
{
    const std::string tooShort = "The file contains no data or header is invalid (size < 512 bytes)";
    EXPECT_EQ(errorOf(oneChannel().bytes().substr(0, 511)), tooShort);
    EXPECT_EQ(errorOf(std::string(511, 'x')), tooShort);
    EXPECT_EQ(errorOf(std::string()), tooShort);
    EXPECT_EQ(errorOf(std::string(512, 'x')), "Identification code not recognized (x, hex 0x78)");
}

TEST_F(BdfLoad, EdfIdentificationIsADigitAndSevenBlanks)
{
    BdfFields fields = BdfFields::edf();
    fields.channels = {BdfChannelFields()};
    EXPECT_EQ(errorOf(fields), "");
    EXPECT_FALSE(m_importer.header().isBdf);
    fields.identification = "a  b";
    EXPECT_EQ(errorOf(fields), "Identification code not recognized (a b)");
}

// Taken for a byte order mark, the first two bytes would turn the rest into other characters.
TEST_F(BdfLoad, EveryByteIsACharacterBehindTheBytesFfFe)
{
    BdfFields fields = oneChannel();
    fields.identification = "\xfeIOSEMI";
    EXPECT_EQ(errorOf(fields), "Identification code not recognized (\u00feIOSEMI)");
}

// As lines of a text that is open in text mode.
TEST_F(BdfLoad, CarriageReturnsDoNotCount)
{
    BdfFields fields = oneChannel();
    std::string bytes = fields.bytes();
    bytes.insert(20, "\r");
    EXPECT_EQ(errorOf(bytes), "");
    EXPECT_EQ(m_importer.header().patient, QStringLiteral("patient"));
    EXPECT_EQ(m_importer.header().dateText, QStringLiteral("05.06.14"));
    EXPECT_EQ(m_importer.header().headerBytes, 512);
    EXPECT_EQ(m_importer.header().channels.front().label, QStringLiteral("A1"));
}

TEST_F(BdfLoad, FailureForgetsTheFileBefore)
{
    ASSERT_EQ(errorOf(oneChannel()), "");
    EXPECT_FALSE(m_importer.fileName().isEmpty());
    EXPECT_NE(errorOf(std::string(600, 'x')), "");
    EXPECT_TRUE(m_importer.fileName().isEmpty());
    EXPECT_EQ(m_importer.header().channelCount(), 0);
    EXPECT_FALSE(m_importer.convert(m_folder.path(QStringLiteral("out.kiro"))));
    EXPECT_EQ(m_importer.errorText(), QStringLiteral("Data file header not loaded!"));
}

TEST_F(BdfLoad, SuccessClearsTheErrorText)
{
    EXPECT_NE(errorOf(std::string()), "");
    EXPECT_EQ(errorOf(oneChannel()), "");
}

/// One thing wrong with a sound file of two channels, and the refusal.
struct WrongField
{
    const char* name;
    std::function<void(BdfFields&)> spoil;
    const char* error;
};

void PrintTo(const WrongField& field, std::ostream* out)
{
    *out << field.name;
}

class BdfRefusal : public BdfLoad, public testing::WithParamInterface<WrongField>
{
};

TEST_P(BdfRefusal, NamesTheFieldAndItsText)
{
    BdfFields fields = oneChannel();
    fields.channels.resize(2);
    fields.channels[1].label = "A2";
    ASSERT_EQ(errorOf(fields), "");
    GetParam().spoil(fields);
    EXPECT_EQ(errorOf(fields), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    FixedPart, BdfRefusal,
    testing::Values(WrongField{"Mark", [](BdfFields& f) { f.mark = "\x1f"; },
                               "Identification code not recognized (\x1f, hex 0x1f)"},
                    WrongField{"LatinMark", [](BdfFields& f) { f.mark = "\xe9"; },
                               "Identification code not recognized (\u00e9, hex 0xe9)"},
                    WrongField{"Identification", [](BdfFields& f) { f.identification = "biosemi"; },
                               "Identification code not recognized (biosemi)"},
                    WrongField{"HeaderBytesTooFew", [](BdfFields& f) { f.headerBytes = "255"; },
                               "Incorrect value of header record bytes number (255)"},
                    WrongField{"HeaderBytesNoNumber", [](BdfFields& f) { f.headerBytes = "7 68"; },
                               "Incorrect value of header record bytes number (7 68)"},
                    WrongField{"NoRecords", [](BdfFields& f) { f.records = "0"; },
                               "Incorrect value of data records number (0)"},
                    WrongField{"UnknownRecords", [](BdfFields& f) { f.records = "-1"; },
                               "Incorrect value of data records number (-1)"},
                    WrongField{"Duration", [](BdfFields& f) { f.duration = "1,5"; },
                               "Incorrect value of data record duration (1,5)"},
                    WrongField{"NoChannels", [](BdfFields& f) { f.channelCount = "0"; },
                               "Incorrect value of channels number (0)"},
                    WrongField{"ChannelsNoInteger", [](BdfFields& f) { f.channelCount = "2.0"; },
                               "Incorrect value of channels number (2.0)"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Channels, BdfRefusal,
    testing::Values(WrongField{"PhysicalMinimum", [](BdfFields& f) { f.channels[1].physicalMinimum = "-1x"; },
                               "Incorrect value of physical minimum (-1x) for channel A2 (no 2)"},
                    WrongField{"PhysicalMaximum", [](BdfFields& f) { f.channels[1].physicalMaximum = ""; },
                               "Incorrect value of physical maximum () for channel A2 (no 2)"},
                    WrongField{"DigitalMinimum", [](BdfFields& f) { f.channels[0].digitalMinimum = "1.5"; },
                               "Incorrect value of digital minimum (1.5) for channel A1 (no 1)"},
                    WrongField{"DigitalMaximum", [](BdfFields& f) { f.channels[1].digitalMaximum = "1e3"; },
                               "Incorrect value of digital maximum (1e3) for channel A2 (no 2)"},
                    WrongField{"Samples", [](BdfFields& f) { f.channels[1].samplesPerRecord = "two"; },
                               "Incorrect value of data record samples count (two) for channel A2 (no 2)"},
                    WrongField{"NegativeSamples", [](BdfFields& f) { f.channels[0].samplesPerRecord = "-2"; },
                               "Incorrect value of data record samples count (-2) for channel A1 (no 1)"},
                    WrongField{"TextLikeAPlaceholder",
                               [](BdfFields& f) {
                                   f.channels[1].physicalMinimum = "%2";
                                   f.channels[1].label = "%3";
                               },
                               "Incorrect value of physical minimum (%2) for channel %3 (no 2)"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    FirstOfSeveral, BdfRefusal,
    testing::Values(
        WrongField{"HeaderBytesFirst",
                   [](BdfFields& f) { f.headerBytes = f.records = f.duration = f.channelCount = "x"; },
                   "Incorrect value of header record bytes number (x)"},
        WrongField{"ThenRecords", [](BdfFields& f) { f.records = f.duration = f.channelCount = "x"; },
                   "Incorrect value of data records number (x)"},
        WrongField{"ThenDuration", [](BdfFields& f) { f.duration = f.channelCount = "x"; },
                   "Incorrect value of data record duration (x)"},
        WrongField{"ChannelByChannel",
                   [](BdfFields& f) {
                       f.channels[1].physicalMinimum = "x";
                       f.channels[0].samplesPerRecord = "y";
                   },
                   "Incorrect value of data record samples count (y) for channel A1 (no 1)"},
        WrongField{"FieldByField",
                   [](BdfFields& f) {
                       f.channels[0].digitalMaximum = "x";
                       f.channels[0].physicalMaximum = "y";
                   },
                   "Incorrect value of physical maximum (y) for channel A1 (no 1)"}),
    [](const auto& row) { return std::string(row.param.name); });

INSTANTIATE_TEST_SUITE_P(
    BeyondARecording, BdfRefusal,
    testing::Values(WrongField{"RecordWithoutSamples",
                               [](BdfFields& f) {
                                   for (BdfChannelFields& channel : f.channels)
                                       channel.samplesPerRecord = "0";
                               },
                               "Incorrect value of data record bytes number (0)"},
                    WrongField{"RecordOfMoreThanAFile",
                               [](BdfFields& f) {
                                   for (BdfChannelFields& channel : f.channels)
                                       channel.samplesPerRecord = "99999999";
                                   f.channels.resize(12, f.channels[0]);
                               },
                               "Incorrect value of data record bytes number (3599999964)"},
                    WrongField{"256Channels", [](BdfFields& f) { f.channels.resize(256); },
                               "The file has 256 channels, and a recording can hold at most 255"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(BdfLoad, TakesAsManyChannelsAsARecordingHolds)
{
    BdfFields fields;
    fields.channels.resize(255);
    EXPECT_EQ(errorOf(fields), "");
    EXPECT_EQ(m_importer.header().channelCount(), 255);
}

TEST_F(BdfLoad, ChannelsThatTheFileLacksAreRefused)
{
    BdfFields fields = oneChannel();
    fields.channelCount = "9999";
    EXPECT_EQ(errorOf(fields), "Incorrect value of physical minimum () for channel A1 (no 1)");
}

/// A date field and the day that it means.
struct HeaderDate
{
    const char* text;
    QDate date;
};

void PrintTo(const HeaderDate& date, std::ostream* out)
{
    *out << date.text;
}

class BdfDate : public BdfLoad, public testing::WithParamInterface<HeaderDate>
{
};

TEST_P(BdfDate, LiesBetween1980And2079)
{
    BdfFields fields = oneChannel();
    fields.date = GetParam().text;
    ASSERT_EQ(errorOf(fields), "");
    EXPECT_EQ(m_importer.header().start.date(), GetParam().date);
    EXPECT_EQ(m_importer.header().start.time(), QTime(7, 8, 9));
}

INSTANTIATE_TEST_SUITE_P(
    Dates, BdfDate,
    testing::Values(HeaderDate{"31.12.85", QDate(1985, 12, 31)}, HeaderDate{"01.01.80", QDate(1980, 1, 1)},
                    HeaderDate{"31.12.79", QDate(2079, 12, 31)}, HeaderDate{"05.06.14", QDate(2014, 6, 5)},
                    HeaderDate{"29.02.00", QDate(2000, 2, 29)}, HeaderDate{"29.02.04", QDate(2004, 2, 29)}));

TEST_F(BdfLoad, DateOrTimeThatIsNoneIsUnknown)
{
    BdfFields fields = oneChannel();
    for (const char* date : {"31.02.14", "00.00.00", "5 June", "14/06/05", ""}) {
        fields.date = date;
        ASSERT_EQ(errorOf(fields), "") << date;
        EXPECT_FALSE(m_importer.header().start.date().isValid()) << date;
    }
    fields.date = "05.06.14";
    for (const char* time : {"24.00.00", "07:08:09", "noon", ""}) {
        fields.time = time;
        ASSERT_EQ(errorOf(fields), "") << time;
        EXPECT_EQ(m_importer.header().start.date(), QDate(2014, 6, 5)) << time;
        EXPECT_TRUE(m_importer.header().start.time() == QTime(0, 0) ||
                    !m_importer.header().start.time().isValid())
            << time;
    }
}

TEST_F(BdfLoad, OnlyTheVeryTextMeans24Bits)
{
    for (const char* text : {"24bit", "24BITS", "BIOSEMI 24BIT", "24 BIT", ""}) {
        BdfFields fields = oneChannel();
        fields.reserved = text;
        ASSERT_EQ(errorOf(fields), "") << text;
        EXPECT_FALSE(m_importer.header().is24Bit) << text;
    }
    BdfFields fields = oneChannel();
    fields.reserved = "   24BIT";
    ASSERT_EQ(errorOf(fields), "");
    EXPECT_TRUE(m_importer.header().is24Bit);
}

TEST_F(BdfLoad, StatusChannelIsToldByLabelAndDimension)
{
    BdfFields fields;
    fields.channels.resize(4);
    const char* const labels[] = {"Status", "Status", "status", "Status 2"};
    const char* const dimensions[] = {"Boolean", "uV", "Boolean", "Boolean"};
    for (std::size_t i = 0; i < 4; ++i) {
        fields.channels[i].label = labels[i];
        fields.channels[i].physicalDimension = dimensions[i];
    }
    ASSERT_EQ(errorOf(fields), "");
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(m_importer.header().channels[i].isStatus, i == 0) << labels[i];
}

TEST_F(BdfLoad, MarkedChannelIsToldByItsTransducer)
{
    BdfFields fields;
    fields.channels.resize(4);
    const char* const transducers[] = {"Kiro Multisensor", "a Kiro Multisensor 3", "kiro multisensor",
                                       "KiroMultisensor"};
    for (std::size_t i = 0; i < 4; ++i)
        fields.channels[i].transducer = transducers[i];
    ASSERT_EQ(errorOf(fields), "");
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(m_importer.header().channels[i].isMarked, i < 2) << transducers[i];
}

TEST_F(BdfLoad, GainIsOneWithoutAPhysicalRange)
{
    BdfFields fields = oneChannel();
    for (const char* limit : {"0", "5", "inf", "nan"}) {
        fields.channels[0].physicalMinimum = fields.channels[0].physicalMaximum = limit;
        ASSERT_EQ(errorOf(fields), "") << limit;
        EXPECT_EQ(m_importer.header().channels[0].gain, 1.0) << limit;
    }
}
