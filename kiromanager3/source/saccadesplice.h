#pragma once

#include "kirosaccade.h"

#include <QList>

/// Whether all fields are the same, bit by bit: NaN is equal to itself, and 0 is not to -0.
bool sameBits(const KiroSaccade& a, const KiroSaccade& b);

/// The stretch in which two lists of saccades differ: `before` stands in the one where `after` stands in the
/// other, both from index `from` on. Ahead of it and behind it the lists are the same.
struct SaccadeSplice
{
    /// The shortest stretch that makes `edited` of `old`.
    static SaccadeSplice between(const QList<KiroSaccade>& old, const QList<KiroSaccade>& edited);

    bool isEmpty() const { return before.isEmpty() && after.isEmpty(); }
    /// Makes the second list of the first. `list` must reach to the end of `before`.
    void apply(QList<KiroSaccade>& list) const;
    /// Makes the first list of the second. `list` must reach to the end of `after`.
    void revert(QList<KiroSaccade>& list) const;

    int from = 0;
    QList<KiroSaccade> before;
    QList<KiroSaccade> after;
};
