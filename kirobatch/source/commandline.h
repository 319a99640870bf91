#pragma once

#include "kirostring.h"
#include "outcome.h"

#include <QCommandLineParser>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <string>

/// The program's arguments as texts of one character a byte (Latin-1), whatever their encoding: paths and
/// signal names are compared and opened as bytes, and a decoded text could lose some.
QStringList argumentTexts(int count, char** arguments);
/// The bytes of such a text.
std::string argumentBytes(const QString& text);

/// Wrong usage of the whole program, or of `command` if it is not empty. Names the help to read.
Outcome wrongUsage(const std::string& text, const std::string& command = {});

/// A number of decimal digits only, at most 2^63 - 1. No value for any other text.
std::optional<std::int64_t> parseNumber(const std::string& text);

/// The arguments of one command: its options, and for most commands one FILE. Knows --help.
class CommandLine
{
public:
    /// In place of the kind of FILE, for a command that takes options only.
    static constexpr const char* NoFile = "";

    /// `summary` is the first line of the help, `details` what stands below it; `fileKind` says what FILE
    /// is, such as "recording (.kiro)".
    CommandLine(const std::string& command, const std::string& summary, const std::string& details,
                const std::string& fileKind = "recording (.kiro)");

    void addFlag(const char* name, const char* description);
    void addOption(const char* name, const char* valueName, const char* description);

    /// Takes the arguments behind the command. An outcome means that the command is over: the help was
    /// printed or the usage is wrong.
    std::optional<Outcome> parse(const QStringList& arguments);

    /// Of the last parse(). Empty if the command takes no FILE.
    KiroString file() const;
    bool isSet(const char* option) const;
    /// Bytes of the option's value, empty if it is not set.
    std::string value(const char* option) const;

    Outcome wrongUsage(const std::string& text) const { return ::wrongUsage(text, m_command); }

private:
    std::optional<std::string> usageError() const;
    std::optional<std::string> fileError() const;
    Outcome printHelp() const;

    std::string m_command;
    std::string m_fileKind;
    QCommandLineParser m_parser;
    QStringList m_valueOptions; // names of the options that take a value
};
