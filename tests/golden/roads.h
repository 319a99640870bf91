#pragma once

#include "jsonvalues.h"

#include <functional>
#include <vector>

/// One of several ways to the same answer.
struct Road
{
    const char* name;
    std::function<Verdict()> run;
};

/// Runs all roads. If all differ in the same way, that way once; else the differences of each, named by
/// its road. An exception is a difference of its road.
Verdict checkRoads(const std::vector<Road>& roads);
