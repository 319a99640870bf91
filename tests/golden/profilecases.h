#pragma once

struct GoldenCase;
class Report;

/// Kinds "sdp" and "bdp": whether a profile loads (load), the record, the profile written from it
/// (writtenAgain) and its line for the settings (settingsLine).
void checkSaccadeProfile(const GoldenCase& golden, Report& report);
void checkBlinkProfile(const GoldenCase& golden, Report& report);
void surviveSaccadeProfile(const GoldenCase& golden, Report& report);
void surviveBlinkProfile(const GoldenCase& golden, Report& report);

/// Kind "settingsLines": lines read over a record (saccadeRead, blinkRead) and written (saccadeWrite,
/// blinkWrite). All stands in the expected file.
void checkSettingsLines(const GoldenCase& golden, Report& report);
