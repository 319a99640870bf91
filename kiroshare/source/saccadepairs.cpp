#include "saccadepairs.h"

#include <algorithm>
#include <cstddef>

namespace
{

/// Whether the two overlap by a quarter of the duration of each.
bool areOneMovement(const KiroSaccadeEye& left, const KiroSaccadeEye& right)
{
    const std::int32_t first = std::max(left.start, right.start);
    const std::int32_t last = std::min(left.end, right.end);
    if (last <= first)
        return false;
    const std::int32_t overlap = last - first + 1;
    return overlap >= right.duration / 4 && overlap >= left.duration / 4;
}

/// The partner of `right` among the saccades from `candidate` on, or null.
const KiroSaccade* findPartner(const std::vector<KiroSaccade>& left, std::size_t candidate,
                               const KiroSaccadeEye& right)
{
    for (; candidate < left.size(); ++candidate) {
        const KiroSaccadeEye& eye = left[candidate].main;
        if (eye.end <= right.start)
            continue;
        if (eye.start >= right.end)
            return nullptr;
        if (areOneMovement(eye, right))
            return &left[candidate];
    }
    return nullptr;
}

bool endsEarlier(const KiroSaccade& a, const KiroSaccade& b)
{
    return a.main.end < b.main.end;
}

bool startsEarlier(const KiroSaccade& a, const KiroSaccade& b)
{
    return a.main.start < b.main.start;
}

/// Sets the fixations of one block of every saccade.
void setBlockFixations(std::vector<KiroSaccade>& saccades, KiroSaccadeEye KiroSaccade::*block)
{
    std::int32_t previousEnd = 0;
    for (KiroSaccade& saccade : saccades) {
        KiroSaccadeEye& eye = saccade.*block;
        eye.fixation = eye.start - previousEnd;
        previousEnd = eye.end;
    }
}

template <class Touches>
void removeTouching(std::vector<KiroSaccade>& saccades, Touches touches)
{
    saccades.erase(std::remove_if(saccades.begin(), saccades.end(), touches), saccades.end());
}

} // namespace

std::vector<KiroSaccade> pairEyes(const std::vector<KiroSaccade>& left, const std::vector<KiroSaccade>& right)
{
    // In ordered lists a left saccade that ends before one right saccade ends before all later ones too.
    const bool ordered = std::is_sorted(left.begin(), left.end(), endsEarlier) &&
                         std::is_sorted(right.begin(), right.end(), startsEarlier);
    std::vector<KiroSaccade> pairs;
    std::size_t candidate = 0;
    for (const KiroSaccade& saccade : right) {
        while (ordered && candidate < left.size() && left[candidate].main.end <= saccade.main.start)
            ++candidate;
        const KiroSaccade* partner = findPartner(left, candidate, saccade.main);
        if (!partner)
            continue;
        KiroSaccade pair;
        pair.main = saccade.main;
        pair.left = partner->main;
        pair.right = saccade.main;
        pairs.push_back(pair);
    }
    return pairs;
}

BlinkSearch::BlinkSearch(const std::vector<KiroBlink>& blinks)
    : m_blinks(blinks)
    , m_ordered(std::is_sorted(blinks.begin(), blinks.end(),
                               [](const KiroBlink& a, const KiroBlink& b) { return a.end < b.end; }))
{
}

bool BlinkSearch::touches(std::int32_t start, std::int32_t end) const
{
    const auto endsBefore = [start](const KiroBlink& blink) { return blink.end <= start; };
    const auto blink = m_ordered ? std::partition_point(m_blinks.begin(), m_blinks.end(), endsBefore)
                                 : std::find_if_not(m_blinks.begin(), m_blinks.end(), endsBefore);
    return blink != m_blinks.end() && blink->start < end;
}

void dropSaccadesTouchingBlinks(std::vector<KiroSaccade>& saccades, const std::vector<KiroBlink>& blinks)
{
    const BlinkSearch search(blinks);
    removeTouching(saccades, [&search](const KiroSaccade& saccade) {
        return search.touches(saccade.main.start, saccade.main.end);
    });
    setBlockFixations(saccades, &KiroSaccade::main);
}

void dropPairsTouchingBlinks(std::vector<KiroSaccade>& pairs, const std::vector<KiroBlink>& blinks)
{
    const BlinkSearch search(blinks);
    removeTouching(pairs, [&search](const KiroSaccade& pair) {
        return search.touches(std::min(pair.left.start, pair.right.start),
                              std::max(pair.left.end, pair.right.end));
    });
}

void setPairFixations(std::vector<KiroSaccade>& pairs)
{
    for (const auto block : {&KiroSaccade::main, &KiroSaccade::left, &KiroSaccade::right})
        setBlockFixations(pairs, block);
}
