#pragma once

#include <map>
#include <ostream>
#include <string>

/// A bound on the ratio of two times that were measured in one run.
struct Goal
{
    enum class Kind {
        AtMost,
        AtLeast,
        Shown ///< only printed
    };

    std::string name;
    std::string numerator;   ///< benchmark whose time is divided ...
    std::string denominator; ///< ... by the time of this one
    Kind kind;
    double limit;
};

/// Adds a goal to those that the program reports; for static objects beside the benchmarks.
bool registerGoal(Goal goal);

/// Prints a line for each goal: "goal NAME measured RATIO limit LIMIT ok", or "short" at its end where the
/// limit is missed or a time is missing; for ratios without a limit "ratio NAME measured RATIO". `times` are
/// those of the benchmarks by name. True if all hold.
bool reportGoals(const std::map<std::string, double>& times, std::ostream& out);
