#pragma once

#include <string>

class KiroSaccHeader;

/// Saccades and blinks with all that their file holds beside them, as one JSON object (UTF-8) that ends in a
/// line feed; each record stands in a line of its own. Keys are the names of the fields. Texts are given byte
/// for byte, each byte as the character of that Latin-1 code. Numbers that are not finite are strings.
std::string saccJson(const KiroSaccHeader& header);
