#include "commandline.h"

#include "output.h"

#include <algorithm>
#include <charconv>

QStringList argumentTexts(int count, char** arguments)
{
    QStringList result;
    for (int i = 0; i < count; ++i)
        result << QString::fromLatin1(arguments[i]);
    return result;
}

std::string argumentBytes(const QString& text)
{
    return text.toLatin1().toStdString();
}

Outcome wrongUsage(const std::string& text, const std::string& command)
{
    return Outcome::wrongUsage(text + "\nTry 'kirobatch " + (command.empty() ? "" : command + ' ') +
                               "--help'.");
}

std::optional<std::int64_t> parseNumber(const std::string& text)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    std::int64_t number = 0;
    const char* const end = text.data() + text.size();
    const bool digitsOnly = !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
    if (!digitsOnly || std::from_chars(text.data(), end, number).ec != std::errc())
        return std::nullopt;
    return number;
}

CommandLine::CommandLine(const std::string& command, const std::string& summary, const std::string& details,
                         const std::string& fileKind)
    : m_command(command)
    , m_fileKind(fileKind)
{
    m_parser.setApplicationDescription(QString::fromStdString(summary + "\n\n" + details));
    if (!fileKind.empty())
        m_parser.addPositionalArgument(QStringLiteral("FILE"),
                                       QString::fromStdString("The " + fileKind + "."));
    m_parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Prints this help.")});
}

void CommandLine::addFlag(const char* name, const char* description)
{
    m_parser.addOption({QString::fromLatin1(name), QString::fromLatin1(description)});
}

void CommandLine::addOption(const char* name, const char* valueName, const char* description)
{
    m_valueOptions << QString::fromLatin1(name);
    m_parser.addOption(
        {m_valueOptions.last(), QString::fromLatin1(description), QString::fromLatin1(valueName)});
}

std::optional<Outcome> CommandLine::parse(const QStringList& arguments)
{
    const bool understood = m_parser.parse(QStringList{QStringLiteral("kirobatch")} + arguments);
    if (understood && isSet("help"))
        return printHelp();
    if (!understood)
        return wrongUsage(argumentBytes(m_parser.errorText()));
    if (const auto error = usageError())
        return wrongUsage(*error);
    return std::nullopt;
}

std::optional<std::string> CommandLine::fileError() const
{
    const QStringList files = m_parser.positionalArguments();
    if (m_fileKind.empty()) {
        if (files.isEmpty())
            return std::nullopt;
        return '\'' + argumentBytes(files.first()) + "' is one argument too many: " + m_command +
               " reads no FILE, and takes options only.";
    }
    if (files.isEmpty() || files.first().isEmpty())
        return "the FILE is missing: give the path of a " + m_fileKind + ".";
    if (files.size() > 1)
        return "one FILE is read at a time, and '" + argumentBytes(files[1]) + "' is one argument too many.";
    return std::nullopt;
}

std::optional<std::string> CommandLine::usageError() const
{
    if (const auto error = fileError())
        return error;
    for (const QString& option : m_valueOptions) {
        if (m_parser.values(option).size() > 1)
            return (option.size() > 1 ? "option --" : "option -") + option.toStdString() +
                   " is given more than once.";
    }
    return std::nullopt;
}

Outcome CommandLine::printHelp() const
{
    QString text = m_parser.helpText();
    // The parser knows only the program's name.
    text.replace(text.indexOf(QLatin1String(" [options]")), 0,
                 QLatin1Char(' ') + QString::fromStdString(m_command));
    Output output;
    output.write(text.toStdString());
    return output.finish();
}

KiroString CommandLine::file() const
{
    return KiroString::fromBytes(argumentBytes(m_parser.positionalArguments().value(0)));
}

bool CommandLine::isSet(const char* option) const
{
    return m_parser.isSet(QString::fromLatin1(option));
}

std::string CommandLine::value(const char* option) const
{
    return argumentBytes(m_parser.value(QString::fromLatin1(option)));
}
