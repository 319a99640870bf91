#pragma once

struct GoldenCase;
class Report;

/// Kind "coreText": calls of KiroString and of helpers on paths, with arguments and results in the expected
/// file alone.
void checkCoreText(const GoldenCase& golden, Report& report);
