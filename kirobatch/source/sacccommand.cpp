#include "sacccommand.h"

#include "commandline.h"
#include "diagnostics.h"
#include "headerjson.h"
#include "kirosaccheader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "saccjson.h"
#include "saccsummary.h"
#include "texttable.h"

#include <cerrno>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

using Align = TextTable::Align;

constexpr const char* Summary =
    "Prints the saccades and blinks of a saccade file, and how they were detected.";

constexpr const char* Details =
    "Positions and durations are samples, counted from 0; amplitudes and positions\n"
    "are in the unit of the calibrated signals (degrees), velocities in that unit per\n"
    "second. Of a binocular saccade the left and the right eye follow. Numbers that\n"
    "are missing at the end of the file are 0, with a warning on standard error.";

constexpr const char* JsonDescription =
    "Prints one JSON object (UTF-8) with every field of the file. Texts of the file are given byte for byte, "
    "each byte as the character of that Latin-1 code. Numbers that are not finite are strings.";

constexpr int FrequencyDecimals = 3;
constexpr int Digits = 6;

std::string shown(double number)
{
    return generalText(number, Digits);
}

/// Why the system or the kind of file keeps `path` from being opened; empty if nothing does.
std::string openingProblem(const KiroString& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0 || ::access(path.c_str(), R_OK) != 0)
        return std::string(std::strerror(errno)) + ". Check the path, and that you may read the file.";
    if (!S_ISREG(status.st_mode))
        return "it is no file. Give the path of a saccade file (.sacc).";
    return {};
}

/// The core's error text without the name of the function in front.
std::string contentProblem(const KiroString& error)
{
    constexpr const char* Divider = " - ";
    const std::size_t divider = error.bytes().find(Divider);
    const std::size_t start = divider == std::string::npos ? 0 : divider + std::strlen(Divider);
    return printable(error.bytes().substr(start)) +
           ". Check that it is a saccade file (.sacc), copied whole.";
}

bool openSaccades(const KiroString& path, KiroSaccHeader& header, std::string& error)
{
    if (header.load(path))
        return true;
    std::string problem = openingProblem(path);
    if (problem.empty())
        problem = contentProblem(header.error);
    error = "cannot open " + quoted(path) + ": " + problem;
    return false;
}

void warnOfMissing(const KiroSaccHeader& header)
{
    if (header.missingBytes() == 0)
        return;
    printMessage("warning: " + quoted(header.fileName) + " ends " + std::to_string(header.missingBytes()) +
                 " bytes too early: " + std::to_string(header.missingSaccades()) + " of " +
                 std::to_string(header.saccades.size()) + " saccades and " +
                 std::to_string(header.missingBlinks()) + " of " + std::to_string(header.blinks.size()) +
                 " blinks are not there whole. Missing numbers are shown as 0.");
}

std::string factsText(const KiroSaccHeader& header)
{
    TextTable table{Align::Left, Align::Left};
    table.addRow({"File:", header.fileName.bytes()});
    table.addRow({"Recording:", header.dataFile.bytes()});
    table.addRow({"Relative path:", header.relativeDataFile.bytes()});
    table.addRow({"Comment:", header.comment.bytes()});
    table.addRow({"Detection type:", KiroSaccHeader::detectionTypeName(header.detectionType).bytes()});
    table.addRow({"Blinks found in:", header.blinksHorizontal ? "horizontal signal" : "vertical signal"});
    table.addRow({"Frequency:", fixedText(header.frequency(), FrequencyDecimals) + " Hz"});
    table.addRow({"Duration:", durationText(header.durationMs).bytes()});
    table.addRow({"Saccades:", std::to_string(header.saccades.size())});
    table.addRow({"Blinks:", std::to_string(header.blinks.size())});
    return table.text();
}

std::string signalsText(const KiroSaccHeader& header)
{
    TextTable table{Align::Left, Align::Right, Align::Right, Align::Right};
    table.addRow({"Signal", "Index", "Factor", "Offset"});
    const auto add = [&](const char* name, const KiroSaccSignal& signal) {
        table.addRow({name, std::to_string(signal.signalIndex), shown(signal.factor), shown(signal.offset)});
    };
    add("right horizontal", header.rightHorizontal);
    add("right vertical", header.rightVertical);
    add("left horizontal", header.leftHorizontal);
    add("left vertical", header.leftVertical);
    return "\nSignals:\n" + table.text(2);
}

std::string paramsText(const SaccadeDetectionParams& params)
{
    TextTable table{Align::Left, Align::Right};
    table.addRow({"Half width of the peak window [samples]", std::to_string(params.local)});
    table.addRow({"Minimum fixation [samples]", std::to_string(params.gap)});
    table.addRow({"Minimum duration [samples]", std::to_string(params.minTime)});
    table.addRow({"Maximum duration [samples]", std::to_string(params.maxTime)});
    table.addRow({"Initial velocity [deg/s]", shown(params.initVel)});
    table.addRow({"Minimum peak velocity [deg/s]", shown(params.minSpeed)});
    table.addRow({"Minimum acceleration [deg/s2]", shown(params.minSlope)});
    return "\nDetection parameters:\n" + table.text(2);
}

std::vector<std::string> eyeRow(const std::string& index, const char* eyeName, const KiroSaccadeEye& eye)
{
    std::vector<std::string> row{index, eyeName};
    for (const std::int32_t number : {eye.start, eye.end, eye.duration, eye.fixation})
        row.push_back(std::to_string(number));
    for (const double number :
         {eye.amplitude, eye.peakVelocity, eye.meanVelocity, eye.peakAcceleration, eye.velocityPerDuration,
          eye.amplitudeHorz, eye.startHorz, eye.endHorz, eye.amplitudeVert, eye.startVert, eye.endVert})
        row.push_back(shown(number));
    return row;
}

/// A section with a line for each saccade; nothing if there are none.
std::string saccadesText(const KiroSaccHeader& header)
{
    if (header.saccades.empty())
        return {};
    TextTable table{Align::Right, Align::Left,  Align::Right, Align::Right, Align::Right, Align::Right,
                    Align::Right, Align::Right, Align::Right, Align::Right, Align::Right, Align::Right,
                    Align::Right, Align::Right, Align::Right, Align::Right, Align::Right};
    table.addRow({"Index", "Eye", "Start", "End", "Duration", "Fixation", "Amplitude", "Peak vel.",
                  "Mean vel.", "Peak acc.", "Vel./duration", "Ampl. horz", "Start horz", "End horz",
                  "Ampl. vert", "Start vert", "End vert"});
    int index = 0;
    for (const KiroSaccade& saccade : header.saccades) {
        table.addRow(eyeRow(std::to_string(index++), "main", saccade.main));
        if (header.detectionType == KiroSaccHeader::Binocular) {
            table.addRow(eyeRow({}, "left", saccade.left));
            table.addRow(eyeRow({}, "right", saccade.right));
        }
    }
    return "\nSaccades:\n" + table.text(2);
}

/// The same for blinks.
std::string blinksText(const KiroSaccHeader& header)
{
    if (header.blinks.empty())
        return {};
    TextTable table{Align::Right, Align::Right, Align::Right, Align::Right,
                    Align::Right, Align::Right, Align::Right, Align::Right};
    table.addRow(
        {"Index", "Start", "End", "Duration", "Peaks distance", "Amplitude 1", "Amplitude 2", "Relation"});
    int index = 0;
    for (const KiroBlink& blink : header.blinks) {
        table.addRow({std::to_string(index++), std::to_string(blink.start), std::to_string(blink.end),
                      std::to_string(blink.duration), std::to_string(blink.peaksDistance), shown(blink.amp1),
                      shown(blink.amp2), shown(blink.ampRelation)});
    }
    return "\nBlinks:\n" + table.text(2);
}

} // namespace

Outcome runSacc(const QStringList& arguments)
{
    CommandLine line("sacc", Summary, Details, "saccade file (.sacc)");
    line.addFlag("json", JsonDescription);
    line.addFlag("summary", "Prints the counts and the main sequence: speed and duration by amplitude.");
    if (const auto over = line.parse(arguments))
        return *over;
    if (line.isSet("json") && line.isSet("summary"))
        return line.wrongUsage("--json and --summary exclude each other: give one of them.");

    KiroSaccHeader header;
    std::string error;
    if (!openSaccades(line.file(), header, error))
        return Outcome::failed(error);
    warnOfMissing(header);

    Output output;
    if (line.isSet("json"))
        output.write(saccJson(header));
    else if (line.isSet("summary"))
        output.write(saccSummary(header));
    else
        output.write(factsText(header) + signalsText(header) + paramsText(header.params) +
                     saccadesText(header) + blinksText(header));
    return output.finish();
}
