// Loads a recording and prints one line: "loaded" or "failed", bytes of its samples, and the most memory in
// bytes that this process has had. A second argument bounds the address space, in bytes.

#include "jobprogress.h"
#include "loadedrecording.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>

#include <sys/resource.h>

namespace
{

long long mostMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return -1;
}

long long bytesOf(const Plot& plot)
{
    return std::visit(
        [](const auto& samples) {
            return samples.size() * static_cast<long long>(sizeof(*samples.constData()));
        },
        plot.samples().samples());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
        return 2;
    if (argc > 2) {
        struct rlimit limit = {};
        limit.rlim_cur = std::strtoull(argv[2], nullptr, 10);
        limit.rlim_max = limit.rlim_cur;
        if (::setrlimit(RLIMIT_AS, &limit) != 0)
            return 2;
    }
    NoProgress progress;
    LoadedRecording recording;
    const bool loaded = recording.load(QFile::decodeName(argv[1]), progress);
    long long samples = 0;
    for (const Plot& plot : recording.plots)
        samples += bytesOf(plot);
    std::printf("%s %lld %lld\n%s", loaded ? "loaded" : "failed", samples, mostMemory(),
                qPrintable(recording.errorText()));
    return 0;
}
