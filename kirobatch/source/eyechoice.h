#pragma once

#include <string>

class CommandLine;
class KiroReader;
struct EyeSignals;

/// Adds the options that name the eye signals: --right-h, --right-v, --left-h and --left-v.
void addEyeOptions(CommandLine& line);

enum class EyeChoice {
    Chosen,
    NotTold, ///< the names of the signals do not tell one that is needed
    Wrong    ///< a signal that was given is not there
};

/// The eye signals that a detection is to use: found by their names, with those given on the command line in
/// their places, and only as many as `detectionType` takes (0 for as many as there are). Unless they are
/// chosen, `error` says what is missing or wrong.
EyeChoice chooseEyes(const CommandLine& line, const KiroReader& reader, int detectionType, EyeSignals& eyes,
                     std::string& error);
