#pragma once

#include "jsonvalues.h"

#include <QString>

#include <functional>
#include <iosfwd>

/// Counts what a run has checked and prints a line for each difference.
///
/// A unit of counting is one field of an expected file (a whole array or object counts as one field) or
/// one call. A case that no kind serves is one skipped unit. Units of an advisory case that differ count
/// as skipped: they are shown, but not held against the tree.
class Report
{
public:
    /// Prints to `out`; lists skipped units too if `listSkipped` is set.
    explicit Report(std::ostream& out, bool listSkipped = false);

    /// Names the case that the following units belong to.
    void beginCase(const QString& name, bool advisory = false);

    /// Runs a check and counts its unit as passed or failed. An exception, so also a fatal error of the
    /// core, is a difference.
    void check(const QString& unit, const std::function<Verdict()>& run);
    /// Counts a unit as failed: `found` where `wanted` should have been.
    void fail(const QString& unit, const QString& wanted, const QString& found);
    void skip(const QString& unit);

    /// The closing line, "N passed, M failed, K skipped".
    QString summary() const;
    bool hasFailures() const { return m_failed > 0; }

private:
    void count(const QString& unit, const Verdict& verdict);
    void print(const QString& line);

    std::ostream& m_out;
    bool m_listSkipped;
    QString m_case;
    bool m_advisory = false;
    long m_passed = 0;
    long m_failed = 0;
    long m_skipped = 0;
};
