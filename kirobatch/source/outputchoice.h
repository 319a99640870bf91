#pragma once

#include <QString>

#include <optional>
#include <string>

class CommandLine;

/// Where FILE stands, its name with another extension, such as ".sacc".
QString besideFile(const CommandLine& line, const char* extension);

/// The path to write: that of -o, else `standard`. `kind` says what is written, such as "recording (.kiro)".
/// A text of what is wrong with it, or none; it is wrong if it is empty or FILE itself.
std::optional<std::string> chooseOutput(const CommandLine& line, const QString& standard, const char* kind,
                                        QString& output);

/// A text that something stands at `path` which only --force replaces, or none.
std::optional<std::string> keepsExisting(const CommandLine& line, const QString& path);
