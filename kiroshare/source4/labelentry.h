#pragma once

#include <QString>

class KiroLabel;
class QLocale;

/// The numbers of a label as a user writes them.
struct LabelEntry
{
    QString start;    ///< seconds from the start of the recording
    QString end;      ///< the same
    QString position; ///< in the unit of the label's value

    /// The numbers of a label: times with 3 decimals, the position with 6, in the form of the locale, whose
    /// QLocale::toDouble() reads them back. They bear no group separators.
    static LabelEntry of(const KiroLabel& label, const QLocale& locale);

    /// Reads the numbers into `time`, `endTime` and `value` of a label if those that count for its type are
    /// valid: numbers, times from 0 to `maxTime` seconds, an end after the start. False, with the label
    /// unchanged, if they aren't, or if the label is of no known type.
    ///
    /// Times are rounded to milliseconds, halves upward, before they are compared, for a label keeps no more.
    /// A position written as that of the label is its exact value, whatever has been rounded away. A number
    /// that doesn't count for the type is read too if it can be; else the label keeps its own.
    [[nodiscard]] bool store(KiroLabel& label, double maxTime, const QLocale& locale) const;
};
