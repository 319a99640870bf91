#pragma once

#include "kirostring.h"

#include <cstdint>
#include <string>
#include <vector>

/// Something about a recording that a person should know, and where it stands.
struct CheckFinding
{
    enum class Grade {
        Note,    ///< does no harm
        Warning, ///< the file opens, but something in it can't be right or used
        Error    ///< the file does not open, or samples are missing
    };

    Grade grade = Grade::Note;
    std::string key;          ///< of the field, such as "sampleSize"
    std::string field;        ///< its name for people, such as "sample size"
    int signal = -1;          ///< index of the signal that it belongs to, or -1
    std::int64_t offset = -1; ///< in the file, or -1
    std::string found;
    std::string expected;
    std::string meaning; ///< what follows from it

    /// "signal 3, sample size, at byte 2374: found 3, expected 1, 2, 4 or 8; its values read as 0"
    std::string text() const;
};

struct CheckResult
{
    bool opened = false; ///< whether the file let itself be read at all; else there are no findings
    std::vector<CheckFinding> findings; ///< in the order of the file

    /// Number of findings of this grade.
    int count(CheckFinding::Grade grade) const;
};

/// Looks for everything that is wrong or odd about the recording at `path`: its header field by field, and
/// its length. Samples are not looked at. All texts are English and ASCII.
CheckResult checkRecording(const KiroString& path);
