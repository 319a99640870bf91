#pragma once

struct GoldenCase;
class Report;

/// Kind "sacc", check "exact": every field of the loaded saccade file or its refusal, and the file saved
/// again. Keys that are not known are skipped.
void checkSacc(const GoldenCase& golden, Report& report);

/// Kind "sacc", check "survive": loaded and saved in a process of its own. Passed if that process comes
/// back.
void surviveSacc(const GoldenCase& golden, Report& report);
