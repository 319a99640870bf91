#pragma once

#include "detectionparams.h"

class QString;

/// Profiles are small text files that hold one named set of detection parameters: a head line, a version
/// line and one "key: value" line a field. Only the order of the lines counts for the reader, not the keys.
///
/// Numbers are in the C locale. Reading accepts regular files of up to 64 KiB. A value that is no finite
/// number reads as 0. A false result of reading leaves the record as it was, one of writing the file.

/// Reads an .sdp file of the versions 2 to 1000; those above 8 are read like 8. A version that lacks a field
/// gives 0 for it, and 500 degrees for the greatest amplitude.
///
/// Version 8 itself is written with nine values and read with eight: `maxAmp` is 0 after loading it.
bool readSaccadeProfile(const QString& path, SaccadeDetectionParams& params);
/// Writes version 8. Doubles have six significant digits.
bool writeSaccadeProfile(const QString& path, const SaccadeDetectionParams& params);

/// Reads a .bdp file, of which there is version 1 only.
bool readBlinkProfile(const QString& path, BlinkDetectionParams& params);
/// Doubles have six significant digits.
bool writeBlinkProfile(const QString& path, const BlinkDetectionParams& params);
