#include "bdfbuilder.h"

namespace
{

/// Cut or filled with blanks to the width of its field.
std::string padded(std::string text, std::size_t width)
{
    text.resize(width, ' ');
    return text;
}

std::string columns(const std::vector<BdfChannelFields>& channels, std::string BdfChannelFields::*field,
                    std::size_t width)
{
    std::string bytes;
    for (const BdfChannelFields& channel : channels)
        bytes += padded(channel.*field, width);
    return bytes;
}

} // namespace

BdfFields BdfFields::edf()
{
    BdfFields fields;
    fields.mark = "0";
    fields.identification.clear();
    fields.reserved.clear();
    return fields;
}

std::string BdfFields::bytes() const
{
    const std::string length = std::to_string(256 + 256 * channels.size());
    const std::string count = std::to_string(channels.size());
    return mark + padded(identification, 7) + padded(patient, 80) + padded(recording, 80) + padded(date, 8) +
           padded(time, 8) + padded(headerBytes.empty() ? length : headerBytes, 8) + padded(reserved, 44) +
           padded(records, 8) + padded(duration, 8) + padded(channelCount.empty() ? count : channelCount, 4) +
           columns(channels, &BdfChannelFields::label, 16) +
           columns(channels, &BdfChannelFields::transducer, 80) +
           columns(channels, &BdfChannelFields::physicalDimension, 8) +
           columns(channels, &BdfChannelFields::physicalMinimum, 8) +
           columns(channels, &BdfChannelFields::physicalMaximum, 8) +
           columns(channels, &BdfChannelFields::digitalMinimum, 8) +
           columns(channels, &BdfChannelFields::digitalMaximum, 8) +
           columns(channels, &BdfChannelFields::prefiltering, 80) +
           columns(channels, &BdfChannelFields::samplesPerRecord, 8) +
           std::string(32 * channels.size(), ' ') + data;
}
