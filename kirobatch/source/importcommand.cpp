#include "importcommand.h"

#include "bdfimporter.h"
#include "commandline.h"
#include "diagnostics.h"
#include "kiroheader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "outputchoice.h"
#include "texttable.h"
#include "untilinterrupted.h"

#include <limits>

namespace
{

constexpr const char* Summary = "Writes a BDF or EDF file as a recording.";

constexpr const char* Details =
    "Each data record becomes a packet. The recording is written whole or not at all.\n"
    "What it cannot say as the file does is told on standard error.";

constexpr const char* OutputDescription =
    "The recording to write (default: beside FILE, its name with the extension .kiro).";

constexpr const char* LastDescription =
    "Ends with data record N; a record before the first or behind the end means the last one (default).";

constexpr const char* WidthDescription =
    "Reads samples of 2 or 3 bytes (default: 3 if the file's reserved field is 24BIT, else 2).";

struct ImportOptions
{
    QString source;
    QString destination;
    int first = 0;
    int last = -1;
    int sampleBytes = 0; ///< by the file
};

/// A text of what is wrong with a record number, or none.
std::optional<std::string> readRecord(const CommandLine& line, const char* option, int& record)
{
    constexpr int Most = std::numeric_limits<int>::max();
    if (!line.isSet(option))
        return std::nullopt;
    const auto number = parseNumber(line.value(option));
    if (!number || *number > Most)
        return std::string("--") + option + " takes a whole number from 0 to " + std::to_string(Most) +
               ", not '" + line.value(option) + "'.";
    record = static_cast<int>(*number);
    return std::nullopt;
}

std::optional<std::string> readSampleBytes(const CommandLine& line, int& sampleBytes)
{
    if (!line.isSet("sample-bytes"))
        return std::nullopt;
    const std::string text = line.value("sample-bytes");
    if (text != "2" && text != "3")
        return "--sample-bytes takes 2 or 3, not '" + text + "'.";
    sampleBytes = text[0] - '0';
    return std::nullopt;
}

/// A text of what is wrong with the options' values, or none.
std::optional<std::string> readOptions(const CommandLine& line, ImportOptions& options)
{
    options.source = line.file().toQString();
    if (const auto problem = readRecord(line, "first", options.first))
        return problem;
    if (const auto problem = readRecord(line, "last", options.last))
        return problem;
    if (const auto problem = readSampleBytes(line, options.sampleBytes))
        return problem;
    return chooseOutput(line, besideFile(line, ".kiro"), "recording (.kiro)", options.destination);
}

std::string cannotImport(const BdfImporter& importer, const ImportOptions& options)
{
    const std::string start = "cannot import " + quoted(KiroString(options.source)) + ": ";
    return start +
           (importer.wasCancelled() ? "interrupted, nothing was written"
                                    : printableBytes(importer.errorText())) +
           '.';
}

void printRemarks(const BdfImporter& importer)
{
    for (const BdfRemark& remark : importer.remarks()) {
        const bool byWidth = remark.kind == BdfRemark::NoWidthText;
        printMessage(printableBytes(remark.text) +
                     (byWidth ? " Give --sample-bytes 3 if they are 24-bit numbers." : ""));
    }
}

Outcome printResult(const KiroString& recording)
{
    KiroHeader header;
    if (!header.load(recording))
        return Outcome::failed(quoted(recording) + " was written, but cannot be read back.");
    Output output;
    output.write(quoted(recording) + ": written, with " + counted(header.signalCount(), "signal") + " and " +
                 counted(header.frameCount(), "packet") + ".\n");
    return output.finish();
}

} // namespace

Outcome runImport(const QStringList& arguments)
{
    CommandLine line("import", Summary, Details, "BDF or EDF file");
    line.addOption("o", "OUT", OutputDescription);
    line.addFlag("force", "Replaces OUT if it is there already.");
    line.addOption("first", "N", "Begins with data record N (from 0; default 0).");
    line.addOption("last", "N", LastDescription);
    line.addOption("sample-bytes", "2|3", WidthDescription);
    if (const auto over = line.parse(arguments))
        return *over;
    ImportOptions options;
    if (const auto problem = readOptions(line, options))
        return line.wrongUsage(*problem);

    BdfImporter importer;
    importer.setSampleBytes(options.sampleBytes);
    if (!importer.load(options.source))
        return Outcome::failed(cannotImport(importer, options));
    if (const auto problem = keepsExisting(line, options.destination))
        return Outcome::failed(*problem);
    UntilInterrupted progress;
    if (!importer.convert(options.destination, options.first, options.last, progress))
        return Outcome::failed(cannotImport(importer, options));
    printRemarks(importer);
    return printResult(KiroString(options.destination));
}
