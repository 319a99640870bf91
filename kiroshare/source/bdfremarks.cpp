#include "bdfremarks.h"

#include "bdfheader.h"
#include "bdfsamples.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace
{

constexpr std::size_t MostNamed = 8; // channels in one remark
/// Shifts below one digital step come of symmetric physical ranges over -32768 to 32767 and the like.
constexpr double SmallestShift = 1.0;

QString numberText(double number)
{
    return QString::number(number, 'g', 6);
}

QString withUnit(const QString& number, const BdfChannel& channel)
{
    return channel.physicalDimension.isEmpty() ? number
                                               : number + QLatin1Char(' ') + channel.physicalDimension;
}

/// The sample that physical zero is stored as, in digital steps; 0 where the ranges do not tell.
double storedZero(const BdfChannel& channel, bool is24Bit)
{
    const double zero = channel.digitalMinimum - channel.physicalMinimum * channel.gain;
    const bool hasRange = channel.physicalMinimum != channel.physicalMaximum && std::isfinite(zero);
    return hasRange ? zero + bdfSampleShift(channel, is24Bit) : 0.0;
}

/// What is made of each channel: whether it is meant, and how it is named in the text.
class ChannelRemark
{
public:
    void add(const BdfHeader& header, int index, const QString& detail)
    {
        const QString& label = header.channels[static_cast<std::size_t>(index)].label;
        const QString name =
            label.isEmpty() ? QCoreApplication::translate("BdfImporter", "no %1").arg(index + 1) : label;
        m_channels.push_back(index);
        if (m_channels.size() <= MostNamed)
            m_names << QStringLiteral("%1 (%2)").arg(name, detail);
    }

    /// Appends the remark if a channel was added; `text` has a place for the names.
    void finish(BdfRemark::Kind kind, const QString& text, std::vector<BdfRemark>& remarks) const
    {
        if (m_channels.empty())
            return;
        QString names = m_names.join(QLatin1String(", "));
        if (m_channels.size() > MostNamed)
            names +=
                QCoreApplication::translate("BdfImporter", " and %1 more").arg(m_channels.size() - MostNamed);
        remarks.push_back({kind, m_channels, text.arg(names)});
    }

private:
    std::vector<int> m_channels;
    QStringList m_names;
};

void addNoWidthText(const BdfHeader& header, std::vector<BdfRemark>& remarks)
{
    if (!header.isBdf || header.is24Bit || header.reserved == bdfWidthText())
        return;
    const QString text = QCoreApplication::translate(
        "BdfImporter", "The file is a BDF file, but its reserved field holds \"%1\" and "
                       "not \"%2\": its samples are read as 16-bit numbers.");
    remarks.push_back({BdfRemark::NoWidthText, {}, text.arg(header.reserved, bdfWidthText())});
}

void addShiftedZeros(const BdfHeader& header, std::vector<BdfRemark>& remarks)
{
    ChannelRemark remark;
    for (int i = 0; i < header.channelCount(); ++i) {
        const BdfChannel& channel = header.channels[static_cast<std::size_t>(i)];
        const double zero = storedZero(channel, header.is24Bit);
        if (channel.isStatus || std::abs(zero) < SmallestShift)
            continue;
        remark.add(header, i,
                   channel.isCalibrated() ? withUnit(numberText(zero / channel.gain), channel)
                                          : numberText(zero));
    }
    remark.finish(BdfRemark::ShiftedZero,
                  QCoreApplication::translate("BdfImporter",
                                              "The import keeps no offset, so that physical zero reads as "
                                              "another value in: %1."),
                  remarks);
}

void addInvertedRanges(const BdfHeader& header, std::vector<BdfRemark>& remarks)
{
    ChannelRemark remark;
    for (int i = 0; i < header.channelCount(); ++i) {
        const BdfChannel& channel = header.channels[static_cast<std::size_t>(i)];
        if (channel.isStatus || channel.gain >= 0.0)
            continue;
        const QString range = QCoreApplication::translate("BdfImporter", "%1 to %2")
                                  .arg(channel.physicalMinimumText, channel.physicalMaximumText);
        remark.add(header, i, withUnit(range, channel));
    }
    remark.finish(BdfRemark::InvertedRange,
                  QCoreApplication::translate("BdfImporter",
                                              "The range is inverted, so that samples are stored as they "
                                              "are, without calibration, in: %1."),
                  remarks);
}

void addLostScales(const BdfHeader& header, std::vector<BdfRemark>& remarks)
{
    ChannelRemark remark;
    for (int i = 0; i < header.channelCount(); ++i) {
        const BdfChannel& channel = header.channels[static_cast<std::size_t>(i)];
        const bool isLost =
            !channel.isStatus && !channel.isCalibrated() && channel.gain > 0.0 && channel.gain != 1.0;
        if (isLost)
            remark.add(header, i, withUnit(numberText(1.0 / channel.gain), channel));
    }
    remark.finish(BdfRemark::LostScale,
                  QCoreApplication::translate(
                      "BdfImporter", "The gain is too small for the import to keep it, so that samples are "
                                     "stored as they are, without calibration, in (value of one step): %1."),
                  remarks);
}

} // namespace

std::vector<BdfRemark> bdfRemarks(const BdfHeader& header)
{
    std::vector<BdfRemark> remarks;
    addNoWidthText(header, remarks);
    addShiftedZeros(header, remarks);
    addInvertedRanges(header, remarks);
    addLostScales(header, remarks);
    return remarks;
}
