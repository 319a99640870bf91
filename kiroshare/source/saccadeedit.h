#pragma once

#include "kirosaccade.h"

#include <QList>

#include <vector>

struct EyeSignals;

/// Saccades added to and removed from a list by hand. A list is ordered by `main.start`.
///
/// A saccade made by hand gets its measures from the samples by simpler rules than a detected one. Its
/// amplitude is positive even if there is one signal only.

/// What a saccade made by hand is measured on.
struct EditSource
{
    const EyeSignals& eyes; ///< with positions, and with the velocities of the horizontal signals
    int detectionType = 1;  ///< 1 for one signal, 2 for both axes of one eye, 3 for both eyes
    double frequency = 0.0; ///< samples per second; with 0 or less, or not finite, nothing can be added
    int minTime = 0;        ///< least duration in milliseconds; 5 holds if it is less
};

/// What became of an attempt to add a saccade.
struct SaccadeAddition
{
    enum class Outcome { Added, TooShort, Overlaps };

    Outcome outcome = Outcome::TooShort;
    int index = -1;   ///< of the new saccade if it was added
    int shortest = 0; ///< least duration that is taken, in milliseconds
};

/// Adds a saccade from `t0` to `t1`, seconds from the first sample in either order.
///
/// Both are rounded to the nearest sample, halves up, and held within the samples that all signals of the
/// detection type have; what is left of the stretch then counts. It must last as long as the source says,
/// begin behind the end of the saccade before it and end ahead of the start of the one behind. A refusal
/// changes nothing; a time that is NaN is refused as too short. The saccade behind gets its distance to the
/// new end as its fixation.
SaccadeAddition addSaccade(QList<KiroSaccade>& saccades, const EditSource& source, double t0, double t1);

/// Removes one saccade and returns which one is current now: the one that stands in its place, the last one
/// if it was the last, -1 in an empty list. The one behind gets its distance to the end before it plus 1 as
/// its fixation; the 1 is on purpose and in contrast to addSaccade(). An index outside the list removes
/// nothing.
int removeSaccade(QList<KiroSaccade>& saccades, int index, int detectionType);

/// Removes several, from the last to the first, each as removeSaccade() does. Indices come in any order;
/// repeated ones and those outside the list are passed over. Returns where `current` stands afterwards, or
/// which one takes its place if it was removed.
int removeSaccades(QList<KiroSaccade>& saccades, std::vector<int> indices, int detectionType, int current);
