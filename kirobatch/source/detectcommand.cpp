#include "detectcommand.h"

#include "commandline.h"
#include "detectionprofile.h"
#include "detectionrun.h"
#include "diagnostics.h"
#include "eyechoice.h"
#include "eyesignals.h"
#include "kiroreader.h"
#include "kirosaccheader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "outputchoice.h"
#include "saccjson.h"
#include "texttable.h"

#include <QDir>
#include <QFileInfo>

#include <cmath>

namespace
{

constexpr const char* Summary =
    "Finds the saccades and blinks of a recording and writes them as a saccade file.";

constexpr const char* Details =
    "The eye signals are found by their names; a signal that is given takes the place\n"
    "of the one found. SIGNAL is an index, or a full or short name. Without a profile\n"
    "the values of a first run in the program are taken. The file is written whole or\n"
    "not at all.";

constexpr const char* OutputDescription =
    "The saccade file to write (default: beside FILE, its name with the extension .sacc).";

constexpr const char* TypeDescription =
    "one: the horizontal signal of the right eye alone. monocular: both signals of the right eye. binocular: "
    "both of both eyes. auto (default): by the signals that are there.";

constexpr const char* FactorDescription =
    "Calibration factor of signals that are not calibrated: raw units for one degree.";

constexpr const char* AmplitudeDescription = "The greatest amplitude that is accepted, in degrees. It is not "
                                             "read back from profiles of version 8, with "
                                             "which no saccade is accepted without this option.";

constexpr const char* IfPossibleDescription =
    "Detects nothing, and says why on standard error, if a signal cannot be told or is not calibrated. The "
    "exit status is 0 then, and OUT is not touched. For scripts that take any recording.";

constexpr const char* JsonDescription =
    "Prints all that was found as JSON, one record a line. Texts are given byte for byte, each byte as the "
    "character of that Latin-1 code. Numbers that are not finite are strings.";

struct NamedType
{
    const char* name;
    int detectionType; ///< 0 for auto
};

constexpr NamedType Types[] = {{"auto", 0}, {"one", 1}, {"monocular", 2}, {"binocular", 3}};

struct DetectOptions
{
    KiroString recording;
    QString output;
    int detectionType = 0;
    std::optional<double> factor;
    DetectionSettings settings;
};

using Problem = std::optional<std::string>; ///< what is wrong, if anything is

std::string optionText(const CommandLine& line, const char* name)
{
    return std::string("--") + name + " '" + printable(line.value(name)) + "'";
}

/// A number above 0 in the C locale.
Problem readPositive(const CommandLine& line, const char* name, std::optional<double>& number)
{
    if (!line.isSet(name))
        return std::nullopt;
    bool isNumber = false;
    const double value = QByteArray::fromStdString(line.value(name)).toDouble(&isNumber);
    if (!isNumber || !std::isfinite(value) || value <= 0.0)
        return optionText(line, name) + " is no number above 0.";
    number = value;
    return std::nullopt;
}

Problem readType(const CommandLine& line, int& detectionType)
{
    if (!line.isSet("type"))
        return std::nullopt;
    const std::string text = line.value("type");
    for (const NamedType& type : Types) {
        if (text == type.name) {
            detectionType = type.detectionType;
            return std::nullopt;
        }
    }
    return "--type takes auto, one, monocular or binocular, not '" + printable(text) + "'.";
}

Problem readOptions(const CommandLine& line, DetectOptions& options)
{
    options.recording = line.file();
    options.settings.blinksHorizontal = line.isSet("blinks-horizontal");
    if (const Problem problem =
            chooseOutput(line, besideFile(line, ".sacc"), "saccade file (.sacc)", options.output))
        return problem;
    if (const Problem problem = readType(line, options.detectionType))
        return problem;
    return readPositive(line, "factor", options.factor);
}

std::string cannotRead(const CommandLine& line, const char* option, const char* what)
{
    return "cannot read the " + std::string(what) + " " + quoted(KiroString::fromBytes(line.value(option))) +
           ". Check the path, and that the file is whole.";
}

Problem readProfiles(const CommandLine& line, DetectionSettings& settings)
{
    const auto path = [&line](const char* option) {
        return KiroString::fromBytes(line.value(option)).toQString();
    };
    if (line.isSet("params") && !readSaccadeProfile(path("params"), settings.saccades))
        return cannotRead(line, "params", "saccade profile (.sdp)");
    if (line.isSet("blink-params") && !readBlinkProfile(path("blink-params"), settings.blinks))
        return cannotRead(line, "blink-params", "blink profile (.bdp)");
    return std::nullopt;
}

std::string axisName(const KiroReader& reader, const EyeSignal& eye)
{
    return quoted(reader.header().signal(static_cast<unsigned>(eye.signalIndex)).fullName);
}

/// The detection takes all signals at the rate of the first one.
void warnOfOtherRates(const KiroReader& reader, const EyeSignals& eyes, double frequency)
{
    for (const EyeAxis axis : EyeAxes) {
        const EyeSignal& eye = eyes[axis];
        if (usesAxis(eyes.detectionType, axis) && eye.isSet() &&
            reader.header().signalFrequency(eye.signalIndex) != frequency)
            printMessage("signal " + axisName(reader, eye) + " has another rate than " +
                         axisName(reader, eyes[EyeAxis::RightHorizontal]) +
                         ". Its samples are taken as if it had the same.");
    }
}

/// For a recording that lacks what a detection needs.
Outcome notPossible(const CommandLine& line, const std::string& reason)
{
    if (!line.isSet("if-possible"))
        return Outcome::failed(reason);
    printMessage(reason);
    return Outcome::done();
}

/// An outcome means that the samples could not be loaded.
std::optional<Outcome> loadSamples(const CommandLine& line, const KiroReader& reader,
                                   const DetectOptions& options, double frequency, EyeSignals& eyes)
{
    std::string uncalibrated;
    EyeLoadOptions load;
    load.frequency = frequency;
    load.velocities = false;
    load.askFactor = [&](const KiroSignal& signal) {
        uncalibrated = quoted(signal.fullName);
        return options.factor;
    };
    QString error;
    if (loadEyeSignals(reader.fileName(), reader.header(), load, eyes, error))
        return std::nullopt;
    if (!uncalibrated.empty() && !options.factor)
        return notPossible(line, "signal " + uncalibrated + " of " + quoted(reader.fileName()) +
                                     " is not calibrated. Give --factor F, the raw units for one degree.");
    return Outcome::failed("cannot load the eye signals of " + quoted(reader.fileName()) + ": " +
                           printableBytes(error) + " 'kirobatch check' tells what is wrong with the file.");
}

/// As the file that is about to be written names the recording.
void nameRecording(KiroSaccHeader& header, const DetectOptions& options)
{
    const QFileInfo recording(options.recording.toQString());
    const QDir folder = QFileInfo(options.output).absoluteDir();
    header.setDataFiles(KiroString(recording.absoluteFilePath()),
                        KiroString(folder.relativeFilePath(recording.absoluteFilePath())));
}

Outcome printResult(const KiroSaccHeader& header, const KiroString& path, bool json)
{
    Output output;
    if (json) {
        output.write(saccJson(header));
        return output.finish();
    }
    std::string type = KiroSaccHeader::detectionTypeName(header.detectionType).bytes();
    output.write(quoted(path) + ": written, with " +
                 counted(static_cast<std::int64_t>(header.saccades.size()), "saccade") + " and " +
                 counted(static_cast<std::int64_t>(header.blinks.size()), "blink") + " (" + type + ", " +
                 generalText(header.frequency(), 6) + " Hz).\n");
    return output.finish();
}

/// The whole work with options that are well formed.
Outcome detect(const CommandLine& line, DetectOptions& options)
{
    KiroReader reader;
    std::string error;
    if (!openRecording(options.recording, reader, error))
        return Outcome::failed(error);
    if (reader.header().signalCount() == 0 || reader.header().frameCount() == 0)
        return Outcome::failed(quoted(options.recording) + " does not contain any data.");
    EyeSignals eyes;
    const EyeChoice choice = chooseEyes(line, reader, options.detectionType, eyes, error);
    if (choice != EyeChoice::Chosen)
        return choice == EyeChoice::NotTold ? notPossible(line, error) : Outcome::failed(error);
    const double frequency = reader.header().signalFrequency(eyes[EyeAxis::RightHorizontal].signalIndex);
    if (!std::isfinite(frequency) || frequency <= 0.0)
        return Outcome::failed("signal " + axisName(reader, eyes[EyeAxis::RightHorizontal]) + " of " +
                               quoted(options.recording) + " has no sampling rate.");
    if (const auto over = loadSamples(line, reader, options, frequency, eyes))
        return *over;
    warnOfOtherRates(reader, eyes, frequency);

    const DetectedMovements found = runDetection(eyes.detectionType, frequency, options.settings, eyes);
    KiroSaccHeader header;
    describeDetection(header, found, options.settings, eyes, reader.header(), options.recording);
    nameRecording(header, options);
    const KiroString output(options.output);
    if (!header.saveAs(output))
        return Outcome::failed("cannot write the saccades: " + printable(header.error.bytes()));
    if (found.saccades.empty())
        printMessage("no saccades were found in " + quoted(options.recording) + ".");
    return printResult(header, output, line.isSet("json"));
}

} // namespace

Outcome runDetect(const QStringList& arguments)
{
    CommandLine line("detect", Summary, Details);
    line.addOption("o", "OUT", OutputDescription);
    line.addFlag("force", "Replaces OUT if it is there already.");
    line.addOption("type", "TYPE", TypeDescription);
    addEyeOptions(line);
    line.addOption("factor", "F", FactorDescription);
    line.addOption("params", "FILE.sdp", "Saccade profile to detect with.");
    line.addOption("max-amplitude", "DEG", AmplitudeDescription);
    line.addOption("blink-params", "FILE.bdp", "Blink profile to detect with.");
    line.addFlag("blinks-horizontal", "Finds blinks in the horizontal signal instead of the vertical one.");
    line.addFlag("if-possible", IfPossibleDescription);
    line.addFlag("json", JsonDescription);
    if (const auto over = line.parse(arguments))
        return *over;
    DetectOptions options;
    std::optional<double> maxAmplitude;
    Problem problem = readOptions(line, options);
    if (!problem)
        problem = readPositive(line, "max-amplitude", maxAmplitude);
    if (problem)
        return line.wrongUsage(*problem);
    if (const Problem unread = readProfiles(line, options.settings))
        return Outcome::failed(*unread);
    if (maxAmplitude)
        options.settings.saccades.maxAmp = *maxAmplitude;
    else if (options.settings.saccades.maxAmp == 0.0)
        printMessage(
            "the greatest amplitude of the profile is read as 0, with which no saccade is accepted. Give "
            "--max-amplitude DEG.");
    if (const Problem existing = keepsExisting(line, options.output))
        return Outcome::failed(*existing);
    return detect(line, options);
}
