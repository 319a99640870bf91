#pragma once

#include <string>
#include <vector>

/// The fields of one channel as they stand in a BDF or EDF file; at first one that is sound and symmetric.
struct BdfChannelFields
{
    std::string label = "A1";
    std::string transducer = "active electrode";
    std::string physicalDimension = "uV";
    std::string physicalMinimum = "-100";
    std::string physicalMaximum = "100";
    std::string digitalMinimum = "-1000";
    std::string digitalMaximum = "1000";
    std::string prefiltering = "DC";
    std::string samplesPerRecord = "2";
};

/// Builds the bytes of a BDF or EDF file by hand; at first a sound BDF file of one record without channels.
struct BdfFields
{
    std::string mark = "\xff";
    std::string identification = "BIOSEMI";
    std::string patient = "patient";
    std::string recording = "recording";
    std::string date = "05.06.14";
    std::string time = "07.08.09";
    std::string headerBytes; ///< what the channels take if empty
    std::string reserved = "24BIT";
    std::string records = "1";
    std::string duration = "1";
    std::string channelCount; ///< of `channels` if empty
    std::vector<BdfChannelFields> channels;
    std::string data;

    /// An EDF file else like this.
    static BdfFields edf();
    std::string bytes() const;
};
