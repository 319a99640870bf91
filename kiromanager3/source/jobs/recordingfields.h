#pragma once

#include "recordinglayout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class KiroFile;

/// One field of a recording's header, as it stands in the file.
struct RecordingField
{
    using Id = RecordingLayout::Field;

    Id id = Id::Mark;
    int signal = -1;         ///< index of the signal that it belongs to, -1 for those of the whole recording
    std::int64_t offset = 0; ///< in the file
    std::int64_t size = 0;   ///< bytes
    std::string bytes;       ///< as stored; of a text below version 6 only the four with its length
    bool bigEndian = true;

    /// The stored number, of fields of up to 8 bytes.
    std::uint64_t number() const;
    /// Of a calibration factor or offset.
    double real() const;
};

/// What stands where in the header of a recording: the bytes of every field, found as the format lays them
/// down and without a judgement on what they say. Work with recordings reads KiroHeader; this is for telling
/// people where something is wrong.
struct RecordingFields
{
    std::uint32_t version = 0;
    std::vector<RecordingField> fields; ///< in the file's order
    /// The field in which the file ends, with the size that it ought to have; none if the header is whole.
    std::optional<RecordingField> cutField;

    /// Walks over the header in an open file below KiroReader::FileSizeLimit that begins with the mark of a
    /// recording.
    static RecordingFields read(KiroFile& file);

    /// The field, or null if the version has none or the file ends before it.
    const RecordingField* find(RecordingField::Id id, int signal = -1) const;
};
