#pragma once

#include "kirosaccade.h"

#include <cstdint>
#include <vector>

/// Pairs each right saccade with the first left one that overlaps it by a quarter of both durations or more
/// (integer division). Of the `main` blocks of the arguments come `main` and `right` (the right eye's) and
/// `left` of the result. A right saccade without a partner is left out; a left one may serve two right ones.
/// Linear in the lists' lengths if they are in the order of time.
std::vector<KiroSaccade> pairEyes(const std::vector<KiroSaccade>& left,
                                  const std::vector<KiroSaccade>& right);

/// Answers which stretches touch a blink.
class BlinkSearch
{
public:
    /// `blinks` stay the caller's and must outlive the search.
    explicit BlinkSearch(const std::vector<KiroBlink>& blinks);

    /// Whether the first blink that ends behind `start` begins before `end`. Ends that only meet do not
    /// touch.
    bool touches(std::int32_t start, std::int32_t end) const;

private:
    const std::vector<KiroBlink>& m_blinks;
    bool m_ordered; ///< by their ends
};

/// Leaves out the saccades of one view that touch a blink and sets the fixations of the others anew.
void dropSaccadesTouchingBlinks(std::vector<KiroSaccade>& saccades, const std::vector<KiroBlink>& blinks);

/// Leaves out the pairs of which either eye's saccade touches a blink: looked at is the first blink that ends
/// behind the start of either.
void dropPairsTouchingBlinks(std::vector<KiroSaccade>& pairs, const std::vector<KiroBlink>& blinks);

/// Sets the fixations of the blocks `main`, `left` and `right`, each by itself.
void setPairFixations(std::vector<KiroSaccade>& pairs);
