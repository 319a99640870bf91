#include "bdfimporter.h"

#include "kiroreader.h"
#include "recordingbuilder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace
{

const QString Folder = QStringLiteral(KIRO_TEST_DATA "/real/");

/// A file that others recorded, imported, and what an independent parser reads in it.
class RealBdf : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        const QString name = QString::fromLatin1(GetParam());
        QFile file(Folder + QStringLiteral("READ_BACK.json"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        m_facts = QJsonDocument::fromJson(file.readAll()).object().value(name).toObject();
        ASSERT_FALSE(m_facts.isEmpty());
        const QString recording = m_folder.path(QStringLiteral("real.kiro"));
        ASSERT_TRUE(m_importer.load(Folder + name)) << m_importer.errorText().toStdString();
        ASSERT_TRUE(m_importer.convert(recording)) << m_importer.errorText().toStdString();
        ASSERT_TRUE(m_reader.setFile(KiroString(recording)));
    }

    QJsonValue fact(const char* key) const { return m_facts.value(QLatin1String(key)); }
    int channelCount() const { return fact("channels").toArray().size(); }
    QJsonObject channelFacts(int channel) const { return fact("channels").toArray()[channel].toObject(); }
    QJsonObject importFacts(int channel) const
    {
        return channelFacts(channel).value(QLatin1String("import")).toObject();
    }

    TestFolder m_folder;
    BdfImporter m_importer;
    KiroReader m_reader;
    QJsonObject m_facts;
};

std::string textOf(const QJsonObject& facts, const char* key)
{
    EXPECT_TRUE(facts.value(QLatin1String(key)).isString()) << key;
    return facts.value(QLatin1String(key)).toString().toStdString();
}

double numberOf(const QJsonObject& facts, const char* key)
{
    EXPECT_TRUE(facts.value(QLatin1String(key)).isDouble()) << key;
    return facts.value(QLatin1String(key)).toDouble();
}

} // namespace

TEST_P(RealBdf, HeaderIsReadAsOthersReadIt)
{
    const BdfHeader& header = m_importer.header();
    EXPECT_EQ(header.patient, fact("patient").toString());
    EXPECT_EQ(header.recording, fact("recording").toString());
    EXPECT_EQ(header.dateText, fact("date").toString());
    EXPECT_EQ(header.timeText, fact("time").toString());
    EXPECT_EQ(header.reserved, fact("reserved").toString());
    EXPECT_EQ(header.recordCount, fact("records").toInt(-1));
    EXPECT_EQ(header.recordDuration, fact("duration").toDouble(-1.0));
    EXPECT_EQ(header.channelCount(), fact("signals").toInt(-1));
    EXPECT_EQ(header.recordBytes, fact("record_bytes").toInt(-1));
    EXPECT_EQ(header.is24Bit, fact("import_24bit").toBool());
    EXPECT_EQ(header.isBdf, fact("first_byte").toInt() == 255);
}

TEST_P(RealBdf, SignalsAreDescribedAsStated)
{
    ASSERT_EQ(m_reader.header().signalCount(), channelCount());
    for (int i = 0; i < channelCount(); ++i) {
        SCOPED_TRACE(i);
        const QJsonObject wanted = importFacts(i);
        const KiroSignal signal = m_reader.header().signal(static_cast<unsigned>(i));
        const BdfChannel& channel = m_importer.header().channels[static_cast<std::size_t>(i)];
        EXPECT_EQ(signal.fullName.bytes(), textOf(wanted, "full_name"));
        EXPECT_EQ(signal.shortName.bytes(), textOf(channelFacts(i), "label"));
        EXPECT_EQ(channel.isStatus, wanted.value(QLatin1String("status")).toBool());
        EXPECT_EQ(channel.gain, numberOf(wanted, "gain"));
        EXPECT_EQ(signal.calibrated, wanted.value(QLatin1String("calibrated")).toBool());
        EXPECT_EQ(signal.calibrationFactor, numberOf(wanted, "factor"));
        EXPECT_EQ(signal.calibrationUnit.bytes(), textOf(wanted, "unit"));
        EXPECT_EQ(signal.ratePeriod, fact("import_rate_period_ms").toInt());
        EXPECT_EQ(signal.samplesPerFrame, numberOf(channelFacts(i), "samples_per_record"));
        EXPECT_EQ(m_reader.header().signalFrequency(i), numberOf(channelFacts(i), "rate_hz"));
    }
}

TEST_P(RealBdf, FirstSamplesAreStoredAsStated)
{
    for (int i = 0; i < channelCount(); ++i) {
        const QJsonArray wanted = importFacts(i).value(QLatin1String("first5_stored")).toArray();
        ASSERT_EQ(wanted.size(), 5);
        for (int sample = 0; sample < 5; ++sample)
            EXPECT_EQ(m_reader.getSample(i, sample).toInt32(), wanted[sample].toInt()) << i << " " << sample;
    }
}

TEST_P(RealBdf, CalibratedSamplesArePhysicalButForTheOffset)
{
    for (int i = 0; i < channelCount(); ++i) {
        const KiroSignal signal = m_reader.header().signal(static_cast<unsigned>(i));
        if (!signal.calibrated)
            continue;
        const QJsonArray physical = channelFacts(i).value(QLatin1String("first5_physical")).toArray();
        const double offset = numberOf(importFacts(i), "offset_dropped");
        ASSERT_EQ(physical.size(), 5);
        for (int sample = 0; sample < 5; ++sample)
            EXPECT_NEAR(signal.calibratedValue(m_reader.getSample(i, sample).toDouble()),
                        physical[sample].toDouble() - offset, 2e-6)
                << i << " " << sample;
    }
}

TEST_P(RealBdf, RecordingIsWhole)
{
    EXPECT_EQ(m_reader.header().frameCount(), static_cast<std::uint32_t>(fact("records").toInt()));
    EXPECT_TRUE(m_reader.checkIntegrity());
}

INSTANTIATE_TEST_SUITE_P(Files, RealBdf,
                         testing::Values("biosemi_17ch_256hz.bdf", "eeg_1ch_annotations.edf",
                                         "eye_1000hz_S3.edf", "eye_1000hz_S6.edf",
                                         "eye_1000hz_S6_horizontal_only.edf", "multichannel_140ch_512hz.edf",
                                         "sleep_7ch_mixed_rates.edf"));

namespace
{

std::string remarksOn(const char* name)
{
    BdfImporter importer;
    EXPECT_TRUE(importer.load(Folder + QString::fromLatin1(name)));
    std::string texts;
    for (const BdfRemark& remark : importer.remarks())
        texts += remark.text.toStdString() + '\n';
    return texts;
}

} // namespace

TEST(RealBdfRemarks, NameTheSignalsThatLoseAnOffset)
{
    EXPECT_EQ(remarksOn("sleep_7ch_mixed_rates.edf"),
              "The import keeps no offset, so that physical zero reads as another value in: EEG Pz-Oz "
              "(0.452015 uV), Temp rectal (-37.0634 DegC).\n");
}

TEST(RealBdfRemarks, NameTheInvertedElectrode)
{
    EXPECT_EQ(remarksOn("eeg_1ch_annotations.edf"),
              "The range is inverted, so that samples are stored as they are, without calibration, in: Fp1 "
              "(8711 to -8711 uV).\n");
}

TEST(RealBdfRemarks, AreNoneForAPlainFile)
{
    EXPECT_EQ(remarksOn("biosemi_17ch_256hz.bdf"), "");
}
