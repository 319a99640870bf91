#include "bdfheader.h"

#include "kiroheader.h"
#include "kiroreader.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <cmath>
#include <cstdint>

namespace
{

/// What a header of this kind must hold before its fields are read.
constexpr ushort BdfMark = 0xff;
constexpr char EdfMark = '0';
constexpr int IdentificationWidth = 7;
constexpr int LeastHeaderBytes = 256;
/// Two-digit years before it are of the next century.
constexpr int FirstYear = 1980;
/// Gains up to here are taken for uncalibrated.
constexpr double LargestPlainGain = 1.001;

/// The fields of a header in their order, one character a byte.
class FieldReader
{
public:
    explicit FieldReader(QFile& file)
        : m_stream(&file)
    {
        m_stream.setCodec("ISO 8859-1");
        // The mark of a BDF file is half of a byte order mark.
        m_stream.setAutoDetectUnicode(false);
    }

    QChar character()
    {
        const QString text = m_stream.read(1);
        return text.isEmpty() ? QChar() : text[0];
    }
    /// The field without blanks around it, empty behind the end of the file.
    QString field(int width) { return m_stream.read(width).simplified(); }

private:
    QTextStream m_stream;
};

bool checkIdentification(FieldReader& fields, BdfHeader& header, QString& error)
{
    const QChar mark = fields.character();
    header.isBdf = mark == QChar(BdfMark);
    if (!header.isBdf && mark != QLatin1Char(EdfMark)) {
        const QString code = QStringLiteral("%1").arg(mark.unicode(), 2, 16, QLatin1Char('0'));
        error =
            QCoreApplication::translate("BdfImporter", "Identification code not recognized (%1, hex 0x%2)")
                .arg(QString(mark), code);
        return false;
    }
    const QString text = fields.field(IdentificationWidth);
    if (!text.isEmpty() && text != QLatin1String("BIOSEMI")) {
        error =
            QCoreApplication::translate("BdfImporter", "Identification code not recognized (%1)").arg(text);
        return false;
    }
    return true;
}

void readFixedPart(FieldReader& fields, BdfHeader& header)
{
    header.patient = fields.field(80);
    header.recording = fields.field(80);
    header.dateText = fields.field(8);
    header.timeText = fields.field(8);
    header.headerBytesText = fields.field(8);
    header.reserved = fields.field(44);
    header.recordCountText = fields.field(8);
    header.recordDurationText = fields.field(8);
    header.channelCountText = fields.field(4);
}

QDate parseDate(const QString& text)
{
    const QDate date = QDate::fromString(text, QStringLiteral("dd.MM.yy"));
    if (date.isValid() && date.year() >= FirstYear)
        return date;
    // Not the date with 100 years added: 1900 lacks the leap day that 2000 has.
    return QDate::fromString(text.left(6) + QLatin1String("20") + text.mid(6), QStringLiteral("dd.MM.yyyy"));
}

/// In UTC, where no time of day is missing from any date.
QDateTime parseStart(const QString& date, const QString& time)
{
    return QDateTime(parseDate(date), QTime::fromString(time, QStringLiteral("hh.mm.ss")), Qt::UTC);
}

bool parseInt(const QString& text, int least, const char* message, int& value, QString& error)
{
    bool ok = false;
    value = text.toInt(&ok);
    if (ok && value >= least)
        return true;
    error = QCoreApplication::translate("BdfImporter", message).arg(text);
    return false;
}

bool parseNumbers(BdfHeader& header, int& channelCount, QString& error)
{
    if (!parseInt(header.headerBytesText, LeastHeaderBytes,
                  QT_TRANSLATE_NOOP("BdfImporter", "Incorrect value of header record bytes number (%1)"),
                  header.headerBytes, error) ||
        !parseInt(header.recordCountText, 1,
                  QT_TRANSLATE_NOOP("BdfImporter", "Incorrect value of data records number (%1)"),
                  header.recordCount, error))
        return false;
    bool ok = false;
    header.recordDuration = header.recordDurationText.toDouble(&ok);
    if (!ok) {
        error = QCoreApplication::translate("BdfImporter", "Incorrect value of data record duration (%1)")
                    .arg(header.recordDurationText);
        return false;
    }
    return parseInt(header.channelCountText, 1,
                    QT_TRANSLATE_NOOP("BdfImporter", "Incorrect value of channels number (%1)"), channelCount,
                    error);
}

struct ChannelField
{
    QString BdfChannel::*text;
    int width;
};

constexpr ChannelField ChannelFields[] = {
    {&BdfChannel::label, 16},
    {&BdfChannel::transducer, 80},
    {&BdfChannel::physicalDimension, 8},
    {&BdfChannel::physicalMinimumText, 8},
    {&BdfChannel::physicalMaximumText, 8},
    {&BdfChannel::digitalMinimumText, 8},
    {&BdfChannel::digitalMaximumText, 8},
    {&BdfChannel::prefiltering, 80},
    {&BdfChannel::samplesPerRecordText, 8},
    {&BdfChannel::reserved, 32},
};

void readChannels(FieldReader& fields, int count, std::vector<BdfChannel>& channels)
{
    // The count field has four digits, so that no file can ask for much.
    channels.resize(static_cast<std::size_t>(count));
    for (const ChannelField& field : ChannelFields) {
        for (BdfChannel& channel : channels)
            channel.*field.text = fields.field(field.width);
    }
}

/// Parses the numbers of one channel and gives its text in the message of the first that fails.
class ChannelParser
{
public:
    ChannelParser(BdfChannel& channel, int number, QString& error)
        : m_channel(channel)
        , m_number(number)
        , m_error(error)
    {
    }

    bool parse(const QString& text, double& value, const char* message)
    {
        bool ok = false;
        value = text.toDouble(&ok);
        return ok || fail(text, message);
    }
    bool parse(const QString& text, int& value, const char* message)
    {
        bool ok = false;
        value = text.toInt(&ok);
        return ok || fail(text, message);
    }
    bool fail(const QString& text, const char* message)
    {
        m_error = QCoreApplication::translate("BdfImporter", message)
                      .arg(text, m_channel.label, QString::number(m_number));
        return false;
    }

private:
    BdfChannel& m_channel;
    int m_number;
    QString& m_error;
};

bool parseChannel(BdfChannel& channel, int number, QString& error)
{
    constexpr const char* SamplesMessage = QT_TRANSLATE_NOOP(
        "BdfImporter", "Incorrect value of data record samples count (%1) for channel %2 (no %3)");
    ChannelParser parser(channel, number, error);
    return parser.parse(channel.physicalMinimumText, channel.physicalMinimum,
                        QT_TRANSLATE_NOOP("BdfImporter", "Incorrect value of physical minimum (%1) for "
                                                         "channel %2 (no %3)")) &&
           parser.parse(channel.physicalMaximumText, channel.physicalMaximum,
                        QT_TRANSLATE_NOOP("BdfImporter", "Incorrect value of physical maximum (%1) for "
                                                         "channel %2 (no %3)")) &&
           parser.parse(channel.digitalMinimumText, channel.digitalMinimum,
                        QT_TRANSLATE_NOOP("BdfImporter", "Incorrect value of digital minimum (%1) for "
                                                         "channel %2 (no %3)")) &&
           parser.parse(channel.digitalMaximumText, channel.digitalMaximum,
                        QT_TRANSLATE_NOOP("BdfImporter", "Incorrect value of digital maximum (%1) for "
                                                         "channel %2 (no %3)")) &&
           parser.parse(channel.samplesPerRecordText, channel.samplesPerRecord, SamplesMessage) &&
           (channel.samplesPerRecord >= 0 || parser.fail(channel.samplesPerRecordText, SamplesMessage));
}

void interpret(BdfChannel& channel)
{
    const double digitalRange = double(channel.digitalMaximum) - double(channel.digitalMinimum);
    const double physicalRange = channel.physicalMaximum - channel.physicalMinimum;
    const double gain = physicalRange != 0.0 ? digitalRange / physicalRange : 1.0;
    channel.gain = std::isfinite(gain) ? gain : 1.0;
    channel.isStatus =
        channel.label == QLatin1String("Status") && channel.physicalDimension == QLatin1String("Boolean");
    channel.isMarked = channel.transducer.contains(QLatin1String("Kiro Multisensor"));
}

/// Sums up the record, and refuses what no recording can hold.
bool measureRecord(BdfHeader& header, QString& error)
{
    if (header.channelCount() > static_cast<int>(KiroHeader::MaxSignals)) {
        error = QCoreApplication::translate("BdfImporter", "The file has %1 channels, and a recording can "
                                                           "hold at most %2")
                    .arg(header.channelCount())
                    .arg(KiroHeader::MaxSignals);
        return false;
    }
    std::int64_t samples = 0;
    for (const BdfChannel& channel : header.channels)
        samples += channel.samplesPerRecord;
    if (samples == 0 || samples * header.storedSampleBytes() >= KiroReader::FileSizeLimit) {
        error = QCoreApplication::translate("BdfImporter", "Incorrect value of data record bytes number "
                                                           "(%1)")
                    .arg(samples * header.sampleBytes());
        return false;
    }
    header.recordBytes = static_cast<int>(samples * header.sampleBytes());
    return true;
}

bool parseHeader(FieldReader& fields, int sampleBytes, BdfHeader& header, QString& error)
{
    if (!checkIdentification(fields, header, error))
        return false;
    readFixedPart(fields, header);
    header.start = parseStart(header.dateText, header.timeText);
    int channelCount = 0;
    if (!parseNumbers(header, channelCount, error))
        return false;
    header.is24Bit = sampleBytes == 0 ? header.reserved == bdfWidthText() : sampleBytes == 3;
    readChannels(fields, channelCount, header.channels);
    for (int i = 0; i < channelCount; ++i) {
        BdfChannel& channel = header.channels[static_cast<std::size_t>(i)];
        if (!parseChannel(channel, i + 1, error))
            return false;
        interpret(channel);
    }
    return measureRecord(header, error);
}

} // namespace

bool BdfChannel::isCalibrated() const
{
    return !isStatus && gain > LargestPlainGain;
}

QString bdfWidthText()
{
    return QStringLiteral("24BIT");
}

bool readBdfHeader(const QString& path, int sampleBytes, BdfHeader& header, QString& error)
{
    QFile file(path);
    // A pipe would block.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        error = QCoreApplication::translate("BdfImporter", "Failed to open file %1").arg(path);
        return false;
    }
    if (file.size() < BdfHeader::SmallestFile) {
        error = QCoreApplication::translate("BdfImporter", "The file contains no data or header is invalid "
                                                           "(size < 512 bytes)");
        return false;
    }
    FieldReader fields(file);
    BdfHeader fresh;
    if (!parseHeader(fields, sampleBytes, fresh, error))
        return false;
    header = std::move(fresh);
    return true;
}
