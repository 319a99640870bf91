#pragma once

#include "recordingbuilder.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// The bytes of a file of translated texts (".qm") that turns each first text, in any place of the program,
/// into the second.
inline std::string translationBytes(const std::vector<std::pair<std::string, QString>>& texts)
{
    // The hash of the ELF file format, over the source text; 0 stands for 1.
    const auto hash = [](const std::string& text) {
        std::uint32_t h = 0;
        for (const char c : text) {
            h = (h << 4) + std::uint8_t(c);
            const std::uint32_t high = h & 0xf0000000U;
            h = (h ^ (high >> 24)) & ~high;
        }
        return h ? h : 1;
    };
    std::string messages;
    std::vector<std::pair<std::uint32_t, std::size_t>> offsets;
    for (const auto& [source, translation] : texts) {
        offsets.emplace_back(hash(source), messages.size());
        std::string units;
        for (const QChar c : translation)
            units += bigEndian(c.unicode(), 2);
        messages += '\3' + bigEndian(units.size(), 4) + units;
        messages += '\6' + bigEndian(source.size(), 4) + source + '\1';
    }
    std::sort(offsets.begin(), offsets.end());
    std::string index;
    for (const auto& [key, offset] : offsets)
        index += bigEndian(key, 4) + bigEndian(offset, 4);
    const std::string magic = "\x3c\xb8\x64\x18\xca\xef\x9c\x95\xcd\x21\x1c\xbf\x60\xa1\xbd\xdd";
    return magic + '\x42' + bigEndian(index.size(), 4) + index + '\x69' + bigEndian(messages.size(), 4) +
           messages;
}
