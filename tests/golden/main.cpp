#include "corpus.h"
#include "fatalerrors.h"
#include "report.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdlib>
#include <iostream>

namespace
{

constexpr int ExitFailed = 1;
constexpr int ExitWrongUsage = 2;

const QString Description = QStringLiteral(
    "Runs every case of the corpora that the tree can serve and prints a line for each difference.\n"
    "Each FOLDER holds an INDEX.json that lists its cases; nothing in it is written.\n\n"
    "The last line is \"N passed, M failed, K skipped\". What is counted is a field of an expected file\n"
    "(a whole array or object counts as one; of signals each field of each) or a call. A case of a kind\n"
    "that is not served counts as one skipped, and so does a field of an advisory case that differs.\n\n"
    "Exit status: 0 if nothing failed, 1 if something failed, 2 for wrong usage.");

int wrongUsage(const QString& message)
{
    std::cerr << "golden_runner: " << message.toStdString() << "\n"
              << "Usage: golden_runner [--list-skipped] FOLDER...\n";
    return ExitWrongUsage;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(Description);
    const QCommandLineOption listSkipped(QStringLiteral("list-skipped"),
                                         QStringLiteral("Print a line for each skipped field or call too."));
    parser.addOption(listSkipped);
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Print this help."));
    parser.addOption(help);
    parser.addPositionalArgument(QStringLiteral("FOLDER"), QStringLiteral("Folder with an INDEX.json."),
                                 QStringLiteral("FOLDER..."));
    if (!parser.parse(QCoreApplication::arguments()))
        return wrongUsage(parser.errorText());
    if (parser.isSet(help)) {
        std::cout << parser.helpText().toStdString();
        return EXIT_SUCCESS;
    }
    if (parser.positionalArguments().isEmpty())
        return wrongUsage(QStringLiteral("no folder given"));

    throwFatalErrors();
    Report report(std::cout, parser.isSet(listSkipped));
    const QStringList folders = parser.positionalArguments();
    for (const QString& folder : folders)
        runFolder(folder, report);
    std::cout << report.summary().toStdString() << std::endl;
    return report.hasFailures() ? ExitFailed : EXIT_SUCCESS;
}
