#pragma once

#include "detectionparams.h"

class QString;

/// Detection records as one line of text, fields separated by ";", which is how the settings keep them.
///
/// Numbers are in the C locale, doubles with 10 decimals. A field that is no finite number reads as 0. A line
/// that ends before its last field, or whose version is no number, is not read.

/// "Version;2;..." with the fields in the order of the record.
QString saccadeLine(const SaccadeDetectionParams& params);
/// Reads a line of any version, and those of 8 or 9 fields from before there were versions, which are without
/// limits of the amplitude: they become 0 and 500 degrees. False leaves the record as it was.
bool readSaccadeLine(const QString& line, SaccadeDetectionParams& params);

/// "Version;1;..." with the fields in the order of a blink profile.
QString blinkLine(const BlinkDetectionParams& params);
/// Reads a line of version 1. False leaves the record as it was.
bool readBlinkLine(const QString& line, BlinkDetectionParams& params);
