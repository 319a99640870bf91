#pragma once

#include <optional>
#include <string>

class KiroReader;

/// The index of the signal that `choice` means: an index if it has only digits, else the exact full name
/// of one signal, or, if none bears it, the exact short name of one. No value, with a text for the user
/// in `error`, if there is no such signal or if there are several.
std::optional<int> chooseSignal(const KiroReader& reader, const std::string& choice, std::string& error);

/// How to see which signals there are, as the end of a message.
std::string signalListHint(const KiroReader& reader);
