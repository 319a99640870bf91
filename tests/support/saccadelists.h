#pragma once

#include "saccadesplice.h"

#include <QList>

#include <algorithm>

/// Whether two lists hold the same saccades, bit for bit.
inline bool sameList(const QList<KiroSaccade>& a, const QList<KiroSaccade>& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), sameBits);
}
