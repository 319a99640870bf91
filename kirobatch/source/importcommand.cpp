#include "importcommand.h"

#include "bdfimporter.h"
#include "commandline.h"
#include "diagnostics.h"
#include "jobprogress.h"
#include "kiroheader.h"
#include "openrecording.h"
#include "output.h"
#include "texttable.h"

#include <QFileInfo>

#include <csignal>
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
    bool force = false;
};

/// Stops the work when the user does, so that no half file stays behind.
class UntilInterrupted final : public JobProgress
{
public:
    UntilInterrupted()
    {
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            // A caller such as nohup has good reasons.
            if (std::signal(signal, [](int) { interrupted = 1; }) == SIG_IGN)
                std::signal(signal, SIG_IGN);
        }
    }
    void setRange(int, int) override {}
    void setValue(int) override {}
    void setText(const QString&) override {}
    bool cancelled() override { return interrupted != 0; }

private:
    static inline volatile std::sig_atomic_t interrupted = 0;
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

/// Beside the source.
QString defaultDestination(const QString& source)
{
    const QFileInfo info(source);
    return info.path() + QLatin1Char('/') + info.completeBaseName() + QLatin1String(".kiro");
}

std::optional<std::string> readPaths(const CommandLine& line, ImportOptions& options)
{
    options.source = line.file().toQString();
    options.destination = defaultDestination(options.source);
    if (line.isSet("o"))
        options.destination = KiroString::fromBytes(line.value("o")).toQString();
    if (options.destination.isEmpty())
        return "the output is empty: give the path of a recording (.kiro) with -o.";
    const QString place = QFileInfo(options.destination).canonicalFilePath();
    if (!place.isEmpty() && place == QFileInfo(options.source).canonicalFilePath())
        return "the output would replace FILE itself: give another path with -o.";
    return std::nullopt;
}

/// A text of what is wrong with the options' values, or none.
std::optional<std::string> readOptions(const CommandLine& line, ImportOptions& options)
{
    options.force = line.isSet("force");
    if (const auto problem = readRecord(line, "first", options.first))
        return problem;
    if (const auto problem = readRecord(line, "last", options.last))
        return problem;
    if (const auto problem = readSampleBytes(line, options.sampleBytes))
        return problem;
    return readPaths(line, options);
}

std::string bytesOf(const QString& text)
{
    return printable(text.toLocal8Bit().toStdString());
}

std::string cannotImport(const BdfImporter& importer, const ImportOptions& options)
{
    const std::string start = "cannot import " + quoted(KiroString(options.source)) + ": ";
    return start +
           (importer.wasCancelled() ? "interrupted, nothing was written" : bytesOf(importer.errorText())) +
           '.';
}

void printRemarks(const BdfImporter& importer)
{
    for (const BdfRemark& remark : importer.remarks()) {
        const bool byWidth = remark.kind == BdfRemark::NoWidthText;
        printMessage(bytesOf(remark.text) +
                     (byWidth ? " Give --sample-bytes 3 if they are 24-bit numbers." : ""));
    }
}

std::string counted(std::int64_t count, const char* what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
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
    const KiroString recording(options.destination);
    if (!options.force && QFileInfo::exists(options.destination))
        return Outcome::failed(quoted(recording) +
                               " is there already. Give --force to replace it, or another path with -o.");
    UntilInterrupted progress;
    if (!importer.convert(options.destination, options.first, options.last, progress))
        return Outcome::failed(cannotImport(importer, options));
    printRemarks(importer);
    return printResult(recording);
}
