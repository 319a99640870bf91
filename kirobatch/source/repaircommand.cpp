#include "repaircommand.h"

#include "commandline.h"
#include "kiroreader.h"
#include "numbertext.h"
#include "openrecording.h"
#include "output.h"
#include "recordingrepair.h"

namespace
{

constexpr const char* Details =
    "A recording that was cut short declares too few packets. The count is raised to\n"
    "the number of whole packets in the file. Nothing but the header changes; the\n"
    "bytes of an incomplete packet stay at the end.";

/// Why less data than declared is beyond repair.
std::string lostData(const RepairResult& result)
{
    if (result.dataBytes < 0)
        return "it ends inside its header. Look for another copy of the file.";
    return "its header declares " + counted(result.declaredFrames, "packet") + " and the file holds only " +
           std::to_string(result.calculatedFrames) +
           ", so that samples are lost. Look for another copy of the file.";
}

/// Why the recording cannot be repaired, and what to do.
std::string reason(const KiroString& path, const RepairResult& result)
{
    const std::string cannotRepair = "cannot repair " + quoted(path) + ": ";
    KiroReader reader;
    std::string cannotOpen;
    switch (result.outcome) {
    case RepairResult::Outcome::DataTooShort:
        return cannotRepair + lostData(result);
    case RepairResult::Outcome::NoWholeFrame:
        return cannotRepair + "it holds no whole packet.";
    case RepairResult::Outcome::CannotOpen:
        return cannotRepair + "it does not let itself be written. Check that you may write the file.";
    case RepairResult::Outcome::CannotSave:
        return cannotRepair + "the header could not be written. Check that the disk is sound and has room.";
    default:
        if (!openRecording(path, reader, cannotOpen))
            return cannotOpen;
        return quoted(path) + " has changed meanwhile. Try again.";
    }
}

std::string tailReport(std::int64_t bytes, bool dryRun)
{
    if (bytes == 0)
        return {};
    return "Behind the last packet " + counted(bytes, "byte") + " of an incomplete one " +
           (dryRun ? "would stay.\n" : "stay.\n");
}

std::string report(const KiroString& path, const RepairResult& result, bool dryRun)
{
    if (result.countIsRight())
        return quoted(path) + ": nothing to repair, the header declares " +
               counted(result.declaredFrames, "packet") + " and the file holds " +
               (result.declaredFrames == 1 ? "it.\n" : "them.\n");
    return quoted(path) + ": the header declared " + counted(result.declaredFrames, "packet") +
           (dryRun ? " and would be" : " and is now") + " set to " + std::to_string(result.calculatedFrames) +
           ".\n" + tailReport(result.tailBytes, dryRun);
}

} // namespace

Outcome runRepair(const QStringList& arguments)
{
    CommandLine line("repair", "Puts the packet count of a recording right.", Details);
    line.addFlag("dry-run", "Tells what would be done and leaves the file as it is.");
    if (const auto over = line.parse(arguments))
        return *over;

    const bool dryRun = line.isSet("dry-run");
    RepairResult result = repairRecording(line.file(), {true});
    if (result.ok() && !result.countIsRight() && !dryRun)
        result = repairRecording(line.file(), {false});
    if (!result.ok())
        return Outcome::failed(reason(line.file(), result));
    Output output;
    output.write(report(line.file(), result, dryRun));
    return output.finish();
}
