#include "democommand.h"

#include "commandline.h"
#include "demorecording.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "outputchoice.h"
#include "texttable.h"
#include "untilinterrupted.h"

#include <limits>
#include <optional>

namespace
{

using Problem = std::optional<std::string>; ///< what is wrong, if anything is

constexpr const char* Summary =
    "Writes a recording for trying the program out, with what happens in it as JSON.";

constexpr const char* Details =
    "Nothing in it was recorded: eyes, head, pulse, light and sound are computed.\n"
    "The JSON file bears the recording's name with .json in place of .kiro, and lists\n"
    "every movement, to be held against what is found. The same options give the same\n"
    "bytes on every machine. Both files are written whole or not at all.";

constexpr const char* DefaultName = "demo.kiro";

struct DemoArguments
{
    QString path;
    DemoOptions options;
};

Problem readMinutes(const CommandLine& line, double& minutes)
{
    if (!line.isSet("minutes"))
        return std::nullopt;
    const std::string text = line.value("minutes");
    bool isNumber = false;
    minutes = QByteArray::fromStdString(text).toDouble(&isNumber);
    if (isNumber && minutes >= DemoOptions::LeastMinutes && minutes <= DemoOptions::MostMinutes)
        return std::nullopt;
    return "--minutes takes a number from " + generalText(DemoOptions::LeastMinutes, 3) + " to " +
           generalText(DemoOptions::MostMinutes, 3) + ", not '" + printable(text) + "'.";
}

Problem readSeed(const CommandLine& line, std::uint32_t& seed)
{
    constexpr std::uint32_t Most = std::numeric_limits<std::uint32_t>::max();
    if (!line.isSet("seed"))
        return std::nullopt;
    const std::string text = line.value("seed");
    const auto number = parseNumber(text);
    if (!number || *number > Most)
        return "--seed takes a whole number from 0 to " + std::to_string(Most) + ", not '" + printable(text) +
               "'.";
    seed = static_cast<std::uint32_t>(*number);
    return std::nullopt;
}

Problem readArguments(const CommandLine& line, DemoArguments& demo)
{
    if (const Problem problem =
            chooseOutput(line, QString::fromLatin1(DefaultName), "recording (.kiro)", demo.path))
        return problem;
    if (const Problem problem = readMinutes(line, demo.options.minutes))
        return problem;
    return readSeed(line, demo.options.seed);
}

std::string reason(const DemoResult& result)
{
    const std::string start = "cannot make the recording: ";
    switch (result.outcome) {
    case DemoResult::Outcome::Cancelled:
        return start + "interrupted, nothing was written.";
    case DemoResult::Outcome::NoMemory:
        return start + "there is not enough memory. Close other programs, or give fewer --minutes.";
    case DemoResult::Outcome::CannotWrite:
        return "cannot write " + quoted(KiroString(result.path)) + ": " + printableBytes(result.reason) +
               ". Check that the folder is there, may be written and has room.";
    default:
        return start + "its length is out of range.";
    }
}

std::string report(const DemoArguments& demo, const DemoResult& result)
{
    return quoted(KiroString(demo.path)) + ": written, with " + std::to_string(result.signalCount) +
           " signals and " + std::to_string(result.frameCount) + " packets.\n" +
           quoted(KiroString(demoTruthPath(demo.path))) + ": written, with " +
           std::to_string(result.saccades) + " saccades, " + std::to_string(result.blinks) + " blinks, " +
           std::to_string(result.headRotations) + " head turns and " + std::to_string(result.beats) +
           " heart beats (" + fixedText(result.meanHeartRate, 1) + " a minute).\n";
}

} // namespace

Outcome runDemo(const QStringList& arguments)
{
    CommandLine line("demo", Summary, Details, CommandLine::NoFile);
    line.addOption("o", "FILE", "The recording to write (default: demo.kiro).");
    line.addOption("minutes", "N", "Its length, 0.1 to 120 (default 1).");
    line.addOption("seed", "N", "Another number gives another recording (default 1).");
    line.addFlag("force", "Replaces the files if they are there already.");
    if (const auto over = line.parse(arguments))
        return *over;
    DemoArguments demo;
    if (const Problem problem = readArguments(line, demo))
        return line.wrongUsage(*problem);

    for (const QString& path : {demo.path, demoTruthPath(demo.path)}) {
        if (const Problem problem = keepsExisting(line, path))
            return Outcome::failed(*problem);
    }
    UntilInterrupted progress;
    const DemoResult result = makeDemoRecording(demo.path, demo.options, progress);
    if (!result.ok())
        return Outcome::failed(reason(result));
    Output output;
    output.write(report(demo, result));
    return output.finish();
}
