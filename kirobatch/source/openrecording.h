#pragma once

#include "kirostring.h"

#include <cstdint>
#include <string>

class KiroReader;

/// Binds `reader` to the recording at `path`. False with a text for the user in `error`: what is wrong
/// with which file, and what to do.
bool openRecording(const KiroString& path, KiroReader& reader, std::string& error);

/// Bytes behind the header of an open recording; negative if the file ends inside its header.
std::int64_t storedBytes(const KiroReader& reader);

/// `text` in single quotes, as messages name files and signals.
std::string quoted(const KiroString& text);
