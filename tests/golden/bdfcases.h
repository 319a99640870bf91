#pragma once

struct GoldenCase;
class Report;

/// Kind "bdf", check "exact": what the importer says of the header or its refusal, every conversion, and
/// the first converted recording as it is read back. Keys that are not known are skipped.
void checkBdf(const GoldenCase& golden, Report& report);

/// Kind "bdf", check "survive": loaded and converted in a process of its own. Passed if that process
/// comes back.
void surviveBdf(const GoldenCase& golden, Report& report);
