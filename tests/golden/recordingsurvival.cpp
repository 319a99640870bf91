#include "recordingcases.h"

#include "corpus.h"
#include "files.h"
#include "isolation.h"
#include "report.h"

#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kiroreader.h"

#include <QDataStream>

#include <algorithm>
#include <exception>

namespace
{

constexpr std::uint64_t MostSamples = 100000; // of one signal, one by one

/// Goes on whatever `step` ends in: a fatal error is an answer, too.
void tryStep(const std::function<void()>& step)
{
    try {
        step();
    } catch (const std::exception&) {
        return;
    }
}

void readOneByOne(KiroReader& reader, int signal)
{
    const std::uint64_t declared = reader.header().signalSampleCount(signal);
    const int count = static_cast<int>(std::min(declared, MostSamples));
    for (int sample = 0; sample < count; ++sample)
        reader.getSample(signal, sample);
}

void askHeader(const KiroHeader& header)
{
    tryStep([&] { header.frameMSecs(); });
    for (int i = 0; i < header.signalCount(); ++i)
        tryStep([&] { header.signalMSecs(i); });
    header.findSignal({KiroString("Eye")});
}

void readAllSamples(KiroReader& reader)
{
    const int signalCount = reader.header().signalCount();
    for (int signal = 0; signal < signalCount; ++signal) {
        tryStep([&] { readOneByOne(reader, signal); });
        tryStep([&] {
            std::vector<double> values;
            KiroReader::readSignal(reader.fileName(), signal, values);
        });
    }
    tryStep([&] {
        KiroBulkReader bulk(reader);
        NoProgress progress;
        std::vector<SampleVector> samples;
        bulk.readAll(samples, progress);
    });
}

void writeHeaderBack(KiroReader& reader)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    reader.header().write(stream);
    tryStep([&] { reader.updateHeader(); });
    reader.header().setNotes(KiroString("Other notes than before, and longer than most"));
    tryStep([&] { reader.updateHeader(); });
}

void useRecording(const TemporaryCopy& copy)
{
    KiroHeader header;
    header.load(copy.corePath());
    KiroReader reader;
    if (!reader.setFile(copy.corePath()))
        return;
    tryStep([&] { reader.checkIntegrity(); });
    askHeader(reader.header());
    readAllSamples(reader);
    writeHeaderBack(reader);
}

} // namespace

void surviveRecording(const GoldenCase& golden, Report& report)
{
    report.check(QStringLiteral("survive"), [&]() -> Verdict {
        const TemporaryCopy copy(golden.inputPath);
        const IsolationLimits limits;
        const QString end = runIsolated([&copy] { useRecording(copy); }, limits);
        if (end.isEmpty())
            return {};
        const QString wanted =
            QStringLiteral("an answer within %1 s and %2 MiB").arg(limits.seconds).arg(limits.mebibytes);
        return {{QString(), wanted, end}};
    });
}
