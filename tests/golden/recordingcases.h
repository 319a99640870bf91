#pragma once

struct GoldenCase;
class Report;

/// Kind "recording", check "exact": every field and call that the tree can serve. What it cannot, and
/// every key that is not known, is skipped.
void checkRecording(const GoldenCase& golden, Report& report);

/// Kind "recording", check "survive": opened, all samples read, header written back and updated on a copy,
/// in a process of its own. Passed if that process comes back.
void surviveRecording(const GoldenCase& golden, Report& report);
