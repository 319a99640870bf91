#include "checkcommand.h"
#include "commandline.h"
#include "democommand.h"
#include "detectcommand.h"
#include "diagnostics.h"
#include "dumpcommand.h"
#include "importcommand.h"
#include "infocommand.h"
#include "kiroutils.h"
#include "output.h"
#include "repaircommand.h"
#include "sacccommand.h"
#include "signalscommand.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <new>

namespace
{

struct Command
{
    const char* name;
    Outcome (*run)(const QStringList& arguments);
};

constexpr Command Commands[] = {
    {"info", runInfo},     {"signals", runSignals}, {"dump", runDump},
    {"import", runImport}, {"check", runCheck},     {"repair", runRepair},
    {"detect", runDetect}, {"sacc", runSacc},       {"demo", runDemo},
};

constexpr const char* Description =
    "Looks into recordings (.kiro) from the command line, and mends them.\n"
    "\n"
    "Commands:\n"
    "  info FILE     Header, technical parameters, duration and integrity.\n"
    "  signals FILE  The table of the signals.\n"
    "  dump FILE     The samples of one signal, one value a line.\n"
    "  import FILE   A BDF or EDF file, written as a recording.\n"
    "  check FILE    What is wrong or odd about the file, one finding a line.\n"
    "  repair FILE   Puts the packet count right.\n"
    "  detect FILE   Finds saccades and blinks and writes a saccade file (.sacc).\n"
    "  sacc FILE     The saccades and blinks of a saccade file (.sacc).\n"
    "  demo          Writes a recording for trying the program out.\n"
    "\n"
    "'kirobatch COMMAND --help' tells the options of a command.\n"
    "\n"
    "The exit status is 0 after success, 1 if the job failed and 2 after wrong usage;\n"
    "standard error then says why.";

/// "info, signals or dump", of all commands.
QString commandNames()
{
    QStringList names;
    for (const Command& command : Commands)
        names << QString::fromLatin1(command.name);
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
}

Outcome print(const QString& text)
{
    Output output;
    output.write(text.toStdString());
    return output.finish();
}

Outcome runCommand(const QStringList& commandAndArguments)
{
    if (commandAndArguments.isEmpty())
        return wrongUsage("the command is missing: give " + commandNames().toStdString() + ".");
    const std::string name = argumentBytes(commandAndArguments.first());
    for (const Command& command : Commands) {
        if (name == command.name)
            return command.run(commandAndArguments.mid(1));
    }
    return wrongUsage("there is no command '" + name + "'.");
}

Outcome run(const QStringList& arguments)
{
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Prints this help."));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Prints the version."));
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(Description));
    parser.addOptions({help, version});
    parser.addPositionalArgument(QStringLiteral("COMMAND"), commandNames() + QLatin1Char('.'),
                                 QStringLiteral("COMMAND ..."));
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(arguments))
        return wrongUsage(argumentBytes(parser.errorText()));
    if (parser.isSet(help) || parser.positionalArguments() == QStringList{QStringLiteral("help")})
        return print(parser.helpText());
    if (parser.isSet(version))
        return print(QStringLiteral("kirobatch %1\n").arg(QLatin1String(kiroVersionText())));
    return runCommand(parser.positionalArguments());
}

} // namespace

int main(int argc, char** argv)
{
    installDiagnostics();
    guardStandardStreams();
    // Qt would decode the arguments; it gets only the name that it shows in help texts.
    char name[] = "kirobatch";
    char* names[] = {name, nullptr};
    int nameCount = 1;
    QCoreApplication application(nameCount, names);

    Outcome outcome;
    try {
        outcome = run(argumentTexts(argc, argv));
    } catch (const std::bad_alloc&) {
        outcome =
            Outcome::failed("there is not enough memory for this file. Close other programs and try again.");
    }
    if (!outcome.message.empty())
        printMessage(outcome.message);
    return outcome.status;
}
