#include "dumpcommand.h"

#include "commandline.h"
#include "diagnostics.h"
#include "headerjson.h"
#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kiroreader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "signalchoice.h"

#include <QJsonDocument>

#include <algorithm>

namespace
{

constexpr const char* Summary = "Prints the samples of one signal, one value a line.";

constexpr const char* Details =
    "Values are the shortest decimals that give back exactly the stored number; a\n"
    "4-byte float is widened to 8 bytes first. If the file holds fewer packets than\n"
    "its header declares, the samples of those that are there are printed, with a\n"
    "warning on standard error.";

constexpr const char* SignalDescription =
    "The signal: digits are its index (from 0), even where a signal has digits for a name; any other text "
    "is its exact full name, or else its exact short name, in the encoding of the recording.";

constexpr const char* JsonDescription =
    "Prints one JSON object (UTF-8) with the signal's index and names, the range and the values. Names are "
    "given byte for byte, each byte as the character of that Latin-1 code. Values that are not finite, and "
    "all values of 8-byte integer signals, are strings.";

/// Samples read at once: enough to make the opening of the file count for nothing, few enough to bound
/// the memory for any length of recording.
constexpr std::int64_t BlockSamples = 1000000;
/// Bytes of text handed over at once.
constexpr std::size_t TextBlock = 65536;

struct DumpOptions
{
    std::string signal;
    std::int64_t first = 0;
    std::optional<std::int64_t> count; ///< all that remain if not given
    bool calibrated = false;
    bool json = false;
};

/// What is to be printed, held against what the file has.
struct DumpRange
{
    int signal = 0;
    std::int64_t first = 0;
    std::int64_t count = 0;
    bool calibrated = false;
};

/// A text of what is wrong with the options' values, or none.
std::optional<std::string> readOptions(const CommandLine& line, DumpOptions& options)
{
    options.signal = line.value("signal");
    options.calibrated = line.isSet("calibrated");
    options.json = line.isSet("json");
    if (options.signal.empty())
        return "the signal is missing: give its name or index with --signal.";
    if (line.isSet("first")) {
        const auto first = parseNumber(line.value("first"));
        if (!first)
            return "--first takes a whole number from 0 on, not '" + line.value("first") + "'.";
        options.first = *first;
    }
    if (line.isSet("count")) {
        options.count = parseNumber(line.value("count"));
        if (!options.count || *options.count == 0)
            return "--count takes a whole number from 1 on, not '" + line.value("count") + "'.";
    }
    return std::nullopt;
}

std::string signalText(const KiroReader& reader, int index)
{
    return "signal " + std::to_string(index) + " (" +
           quoted(reader.header().signal(static_cast<unsigned>(index)).fullName) + ") of " +
           quoted(reader.fileName());
}

std::string noSamplesText(const KiroReader& reader, int index, bool framesHaveSamples)
{
    const std::string start = signalText(reader, index) + " has no samples: ";
    if (!framesHaveSamples)
        return start + "no packet holds any of it. Choose another signal. " + signalListHint(reader);
    if (reader.header().frameCount() == 0)
        return start +
               "the header declares no packets. If the recording was cut short, repair the file first.";
    return start + "the header declares " + std::to_string(reader.header().frameCount()) +
           " packets, and the file holds none of them whole. Check that it was copied whole.";
}

/// Fits the options to the samples that the file holds. False with `error` set if there are none.
bool fitRange(const KiroReader& reader, const DumpOptions& options, DumpRange& range, std::string& error)
{
    const auto chosen = chooseSignal(reader, options.signal, error);
    if (!chosen)
        return false;
    const KiroSignal signal = reader.header().signal(static_cast<unsigned>(*chosen));
    const std::int64_t perFrame = signal.sampleSize > 0 ? signal.samplesPerFrame : 0;
    const std::int64_t available = perFrame * KiroBulkReader(reader).readableFrames();
    if (available == 0) {
        error = noSamplesText(reader, *chosen, perFrame > 0);
        return false;
    }
    if (options.first >= available) {
        error = "--first " + std::to_string(options.first) +
                " is behind the last sample: " + signalText(reader, *chosen) + " has " +
                std::to_string(available) + " samples, numbered from 0.";
        return false;
    }
    range.signal = *chosen;
    range.first = options.first;
    range.count = std::min(options.count.value_or(available), available - options.first);
    range.calibrated = options.calibrated && signal.calibrated;
    return true;
}

void printWarnings(const KiroReader& reader, const DumpOptions& options, const DumpRange& range)
{
    const std::int64_t readable = KiroBulkReader(reader).readableFrames();
    if (readable < reader.header().frameCount()) {
        printMessage("warning: the header of " + quoted(reader.fileName()) + " declares " +
                     std::to_string(reader.header().frameCount()) + " packets, and the file holds " +
                     std::to_string(readable) + "; only samples of these are printed.");
    }
    if (options.calibrated && !range.calibrated)
        printMessage("note: " + signalText(reader, range.signal) +
                     " is not calibrated; its raw values are printed.");
}

/// The JSON object up to its values.
std::string jsonHead(const KiroReader& reader, const DumpRange& range)
{
    const KiroSignal signal = reader.header().signal(static_cast<unsigned>(range.signal));
    const QJsonObject object{
        {QStringLiteral("signal"), range.signal},
        {QStringLiteral("fullName"), jsonText(signal.fullName)},
        {QStringLiteral("shortName"), jsonText(signal.shortName)},
        {QStringLiteral("first"), static_cast<qint64>(range.first)},
        {QStringLiteral("count"), static_cast<qint64>(range.count)},
        {QStringLiteral("calibrated"), range.calibrated},
    };
    std::string text = QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
    text.pop_back(); // the closing brace comes behind the values
    return text + ",\"values\":[\n";
}

/// Prints values as they come, in blocks.
class ValueWriter
{
public:
    ValueWriter(Output& output, bool json)
        : m_output(output)
        , m_form(json ? NumberForm::Json : NumberForm::Plain)
    {
    }

    void write(const SampleVector& samples)
    {
        std::visit(
            [this](const auto& numbers) {
                for (const auto number : numbers)
                    append(number);
            },
            samples);
    }

    void finish(std::string_view tail)
    {
        m_text += '\n';
        m_text += tail;
        m_output.write(m_text);
    }

private:
    template <class Number>
    void append(Number number)
    {
        if (m_any)
            m_text += m_form == NumberForm::Json ? ",\n" : "\n";
        m_any = true;
        appendSample(m_text, number, m_form);
        if (m_text.size() >= TextBlock) {
            m_output.write(m_text);
            m_text.clear();
        }
    }

    Output& m_output;
    NumberForm m_form;
    std::string m_text;
    bool m_any = false;
};

bool readBlock(KiroBulkReader& bulk, const DumpRange& range, std::int64_t first, std::int64_t count,
               SampleVector& samples)
{
    NoProgress progress;
    if (!range.calibrated)
        return bulk.readSignal(range.signal, first, count, samples, progress);
    return bulk.readSignal(range.signal, first, count, true, samples.emplace<ElementTypeDouble>(), progress);
}

Outcome printSamples(const KiroReader& reader, const DumpRange& range, bool json)
{
    KiroBulkReader bulk(reader);
    Output output;
    ValueWriter writer(output, json);
    SampleVector samples;
    for (std::int64_t done = 0; done < range.count && !output.hasFailed(); done += BlockSamples) {
        const std::int64_t count = std::min(BlockSamples, range.count - done);
        if (!readBlock(bulk, range, range.first + done, count, samples))
            return Outcome::failed("cannot read " + quoted(reader.fileName()) + ": " +
                                   bulk.errorText().bytes() +
                                   ". Check that the file is still there and whole.");
        // The first block is in hand: a file that cannot be read leaves no half output.
        if (json && done == 0)
            output.write(jsonHead(reader, range));
        writer.write(samples);
    }
    writer.finish(json ? "]}\n" : "");
    return output.finish();
}

} // namespace

Outcome runDump(const QStringList& arguments)
{
    CommandLine line("dump", Summary, Details);
    line.addOption("signal", "NAME|INDEX", SignalDescription);
    line.addOption("first", "N", "Begins with sample N (from 0; default 0).");
    line.addOption("count", "N", "Prints at most N samples (default: all that follow).");
    line.addFlag("calibrated", "Prints (raw - offset) / factor if the signal is calibrated, else raw values "
                               "and a note on standard error.");
    line.addFlag("json", JsonDescription);
    if (const auto over = line.parse(arguments))
        return *over;
    DumpOptions options;
    if (const auto problem = readOptions(line, options))
        return line.wrongUsage(*problem);

    KiroReader reader;
    DumpRange range;
    std::string error;
    if (!openRecording(line.file(), reader, error) || !fitRange(reader, options, range, error))
        return Outcome::failed(error);
    printWarnings(reader, options, range);
    return printSamples(reader, range, options.json);
}
