#pragma once

#include "kirostring.h"

#include <QString>

#include <cstdint>

// Putting a recording's frame count right.
//
// The recorder writes the frame count last, so that a recording cut short declares too few frames or none.
// Repair therefore only raises the count, to the number of whole frames that the file holds. Only the header
// changes, in its own version; the bytes of an incomplete frame stay behind the last whole one.

struct RepairOptions
{
    bool dryRun = false; ///< finds out what would be done and leaves the file alone
};

struct RepairResult
{
    enum class Outcome {
        Repaired,     ///< or, in a dry run, can be repaired; also where the count was right already
        NoHeader,     ///< the file cannot be opened or is no recording
        TooLarge,     ///< KiroReader::FileSizeLimit bytes or more
        ZeroSize,     ///< nothing is left of the file
        DataTooShort, ///< less data than declared: the header is right and the data is lost
        NoWholeFrame, ///< no frame to declare
        CannotOpen,   ///< the file does not let itself be written
        CannotSave    ///< the header could not be written
    };

    Outcome outcome = Outcome::NoHeader;
    QString logText; ///< the reason, for the message log; empty if repaired

    // As far as the outcome leaves them to be known, else 0:
    std::uint32_t headerVersion = 0;
    std::uint32_t declaredFrames = 0;
    std::int64_t calculatedFrames = 0; ///< whole frames stored, and what the header then says
    std::int64_t dataBytes = 0;        ///< behind the header; negative if the file ends inside it
    std::int64_t declaredBytes = 0;    ///< of the declared frames; held at 2^63 - 1
    std::int64_t tailBytes = 0;        ///< of an incomplete frame at the end

    bool ok() const { return outcome == Outcome::Repaired; }
    /// Whether the header declares as many frames as are stored, so that there is nothing to repair.
    bool countIsRight() const { return ok() && calculatedFrames == declaredFrames; }
};

/// Repairs the recording at `path`, or in a dry run tells what that would do.
RepairResult repairRecording(const KiroString& path, const RepairOptions& options = {});
