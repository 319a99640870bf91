#pragma once

#include <QString>

#include <vector>

struct BdfHeader;

/// Something that the user should know of a BDF or EDF file that was imported: where the recording does
/// not say what the file means.
struct BdfRemark
{
    enum Kind {
        NoWidthText,   ///< identified as BDF, but read as 16-bit samples for lack of the text "24BIT"
        ShiftedZero,   ///< physical zero is not stored as 0
        InvertedRange, ///< a range from large to small, which leaves the channel uncalibrated
        LostScale,     ///< a gain that leaves the channel uncalibrated
    };

    Kind kind;
    std::vector<int> channels; ///< indices from 0 of all channels meant; empty if it is the whole file
    QString text;              ///< one line for the user, naming the first of them
};

/// The remarks on a file, at most one of each kind and in the order of the kinds.
std::vector<BdfRemark> bdfRemarks(const BdfHeader& header);
