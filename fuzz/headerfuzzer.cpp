// Any bytes as a header: it is read or refused, and what was read is written and read again the same.

#include "memoryfile.h"

#include "kiroheader.h"

namespace
{

KiroHeader loaded(const std::string& bytes, bool& ok)
{
    const MemoryFile file(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    KiroHeader header;
    ok = header.load(file.path());
    return header;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    bool ok = false;
    const KiroHeader header = loaded(std::string(reinterpret_cast<const char*>(bytes), count), ok);
    if (!ok)
        return 0;
    const std::string written = header.toBytes();
    require(written.size() == header.headerSize());
    const KiroHeader again = loaded(written, ok);
    require(ok);
    require(again.version() == header.version() && again.signalCount() == header.signalCount());
    require(again.frameSize() == header.frameSize() && again.frameCount() == header.frameCount());
    // Below version 8 a factor may be turned once more.
    const std::string writtenAgain = again.toBytes();
    require(writtenAgain.size() == written.size());
    require(header.version() < 8 || writtenAgain == written);
    (void)header.dateString();
    (void)header.timeString();
    (void)header.findSignal({"eye", "x"});
    if (header.signalCount() > 0)
        (void)header.frameMSecs();
    return 0;
}
