#pragma once

#include <optional>
#include <string>

class CommandLine;
class KiroReader;
struct EyeSignals;

/// Adds the options that name the eye signals: --right-h, --right-v, --left-h and --left-v.
void addEyeOptions(CommandLine& line);

/// The eye signals that a detection is to use: found by their names, with those given on the command line in
/// their places, and only as many as `detectionType` takes (0 for as many as there are). A text of what is
/// missing or wrong, or none.
std::optional<std::string> chooseEyes(const CommandLine& line, const KiroReader& reader, int detectionType,
                                      EyeSignals& eyes);
