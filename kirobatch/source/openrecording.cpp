#include "openrecording.h"

#include "kirofile.h"
#include "kiroreader.h"
#include "texttable.h"

#include <cerrno>
#include <cstring>

#include <sys/stat.h>

namespace
{

/// Why the system or the kind of file keeps `path` from being opened; empty if nothing does.
std::string openingProblem(const KiroString& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return std::string(std::strerror(errno)) + ". Check the path.";
    if (S_ISDIR(status.st_mode))
        return "it is a folder. Give the path of a recording (.kiro) in it.";
    if (!S_ISREG(status.st_mode))
        return "it is a pipe or device. Save the recording as a file first.";
    KiroFile file;
    errno = 0;
    if (!file.open(path, KiroFile::Read))
        return std::string(std::strerror(errno)) + ". Check that you may read the file.";
    if (file.size() == 0)
        return "it is empty. Check that the recording was copied whole.";
    return {};
}

/// Why the content of a file that opens was refused.
std::string contentProblem(const KiroString& path)
{
    KiroFile file;
    KiroHeader header;
    const bool open = file.open(path, KiroFile::Read);
    if (file.size() >= KiroReader::FileSizeLimit)
        return "it has " + std::to_string(file.size()) + " bytes, and only files below " +
               std::to_string(KiroReader::FileSizeLimit) + " can be read. Record or save it in parts.";
    if (!open || !header.read(file))
        return "it is no recording, or its header is damaged. Check that it is a .kiro file; import files of "
               "other formats first.";
    for (int i = 0; i < header.signalCount(); ++i) {
        const std::uint32_t size = header.signal(static_cast<unsigned>(i)).sampleSize;
        if (size > KiroValue::MaxSize)
            return "its header is damaged: samples of signal " + std::to_string(i) + " have " +
                   std::to_string(size) + " bytes, and at most " + std::to_string(KiroValue::MaxSize) +
                   " are possible. Look for another copy of the file.";
    }
    return "it has changed meanwhile. Try again.";
}

} // namespace

bool openRecording(const KiroString& path, KiroReader& reader, std::string& error)
{
    if (reader.setFile(path))
        return true;
    std::string problem = openingProblem(path);
    if (problem.empty())
        problem = contentProblem(path);
    error = "cannot open " + quoted(path) + ": " + problem;
    return false;
}

std::int64_t storedBytes(const KiroReader& reader)
{
    KiroFile file;
    return file.open(reader.fileName(), KiroFile::Read) ? file.size() - reader.dataStart() : 0;
}

std::string quoted(const KiroString& text)
{
    return '\'' + printable(text.bytes()) + '\'';
}
