#pragma once

#include <string>

class KiroSaccHeader;

/// The counts of saccades and blinks and the main sequence: by size of the saccades, how fast they are and
/// how long they last, in the view that the file shows first. A table for a terminal.
std::string saccSummary(const KiroSaccHeader& header);
