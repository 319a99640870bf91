#include "saccadesplice.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace
{

constexpr std::size_t IntegerBytes = offsetof(KiroSaccadeEye, reserved) + sizeof(std::int32_t);
constexpr std::size_t RealsAt = offsetof(KiroSaccadeEye, amplitude);
constexpr std::size_t RealBytes = sizeof(KiroSaccadeEye) - RealsAt;
// No padding lies within either.
static_assert(IntegerBytes == 5 * sizeof(std::int32_t) && RealBytes == 11 * sizeof(double));

bool sameBlock(const KiroSaccadeEye& a, const KiroSaccadeEye& b)
{
    const auto* const bytesA = reinterpret_cast<const char*>(&a);
    const auto* const bytesB = reinterpret_cast<const char*>(&b);
    return std::memcmp(bytesA, bytesB, IntegerBytes) == 0 &&
           std::memcmp(bytesA + RealsAt, bytesB + RealsAt, RealBytes) == 0;
}

/// Puts `now` in the place of the `count` saccades from `from` on.
void replace(QList<KiroSaccade>& list, int from, int count, const QList<KiroSaccade>& now)
{
    Q_ASSERT(from >= 0 && from + count <= list.size());
    const int inBoth = std::min(count, now.size());
    std::copy_n(now.begin(), inBoth, list.begin() + from);
    for (int i = inBoth; i < now.size(); ++i)
        list.insert(from + i, now[i]);
    list.erase(list.begin() + from + now.size(), list.begin() + from + std::max(count, now.size()));
}

} // namespace

bool sameBits(const KiroSaccade& a, const KiroSaccade& b)
{
    return a.valid == b.valid && sameBlock(a.main, b.main) && sameBlock(a.left, b.left) &&
           sameBlock(a.right, b.right);
}

SaccadeSplice SaccadeSplice::between(const QList<KiroSaccade>& old, const QList<KiroSaccade>& edited)
{
    const int shorter = std::min(old.size(), edited.size());
    int ahead = 0;
    while (ahead < shorter && sameBits(old[ahead], edited[ahead]))
        ++ahead;
    int behind = 0;
    while (behind < shorter - ahead &&
           sameBits(old[old.size() - 1 - behind], edited[edited.size() - 1 - behind]))
        ++behind;
    SaccadeSplice splice;
    splice.from = ahead;
    splice.before = old.mid(ahead, old.size() - ahead - behind);
    splice.after = edited.mid(ahead, edited.size() - ahead - behind);
    return splice;
}

void SaccadeSplice::apply(QList<KiroSaccade>& list) const
{
    replace(list, from, before.size(), after);
}

void SaccadeSplice::revert(QList<KiroSaccade>& list) const
{
    replace(list, from, after.size(), before);
}
