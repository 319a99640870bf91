#pragma once

#include "kiroheader.h"
#include "recordingbuilder.h"

#include <string>

/// A header of the current version with these signals.
KiroHeader makeHeader(const std::vector<KiroSignal>& signalTable, std::uint32_t frameCount);

/// The bytes of a recording: the header as it writes itself, then `data`.
std::string recordingBytes(const KiroHeader& header, const std::string& data);

/// Big-endian 16-bit numbers 0, 1, 2, ...
std::string countingWords(int count);

/// `count` bytes that look random and are the same in each run.
std::string noise(std::size_t count, unsigned seed = 1);
