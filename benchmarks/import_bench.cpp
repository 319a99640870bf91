// Import of a BDF file of 100 MB: 16 channels of 24 bits at 1024 Hz in records of a second.

#include "goals.h"
#include "repetitions.h"

#include "bdfimporter.h"

#include <QFile>
#include <QSaveFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace
{

constexpr int Channels = 16;
constexpr int SamplesInRecord = 1024;
constexpr int RecordBytes = Channels * SamplesInRecord * 3;
constexpr int Records = 100000000 / RecordBytes + 1;

QByteArray field(const QString& text, int width)
{
    return text.toLatin1().leftJustified(width, ' ', true);
}

/// The same text for each channel.
QByteArray fields(const QString& text, int width)
{
    return field(text, width).repeated(Channels);
}

QByteArray header()
{
    QByteArray bytes = "\xff" + field(QStringLiteral("BIOSEMI"), 7);
    bytes += field(QStringLiteral("patient"), 80) + field(QStringLiteral("recording"), 80);
    bytes += field(QStringLiteral("02.01.12"), 8) + field(QStringLiteral("10.20.30"), 8);
    bytes += field(QString::number(256 * (Channels + 1)), 8) + field(QStringLiteral("24BIT"), 44);
    bytes += field(QString::number(Records), 8) + field(QStringLiteral("1"), 8);
    bytes += field(QString::number(Channels), 4);
    bytes += fields(QStringLiteral("A1"), 16) + fields(QStringLiteral("electrode"), 80) +
             fields(QStringLiteral("uV"), 8);
    bytes += fields(QStringLiteral("-262144"), 8) + fields(QStringLiteral("262143"), 8);
    bytes += fields(QStringLiteral("-8388608"), 8) + fields(QStringLiteral("8388607"), 8);
    bytes += fields(QString(), 80) + fields(QString::number(SamplesInRecord), 8) + fields(QString(), 32);
    return bytes;
}

/// A folder with the BDF file, made on first use and removed at the end.
const QTemporaryDir& folder()
{
    static const QTemporaryDir made;
    static const bool written = [] {
        QFile file(made.filePath(QStringLiteral("source.bdf")));
        if (!file.open(QIODevice::WriteOnly) || file.write(header()) < 0)
            stop("cannot write the file for the benchmark");
        std::mt19937_64 generator(1);
        QByteArray record(RecordBytes, '\0');
        for (int i = 0; i < Records; ++i) {
            std::generate(record.begin(), record.end(), [&] { return char(generator()); });
            if (file.write(record) != RecordBytes)
                stop("cannot write the file for the benchmark");
        }
        return true;
    }();
    (void)written;
    return made;
}

QString path(const char* name)
{
    return folder().filePath(QString::fromLatin1(name));
}

/// Reads and writes the bytes block by block and brings them to the disk, as the import does.
void CopyBdf(benchmark::State& state)
{
    QByteArray block(1 << 20, '\0');
    for (auto _ : state) {
        QFile source(path("source.bdf"));
        QSaveFile copy(path("copy.bdf"));
        if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly))
            stop("cannot copy the file for the benchmark");
        for (qint64 count = 0; (count = source.read(block.data(), block.size())) > 0;) {
            if (copy.write(block.constData(), count) != count)
                stop("cannot copy the file for the benchmark");
        }
        if (!copy.commit())
            stop("cannot copy the file for the benchmark");
    }
}

void ImportBdf(benchmark::State& state)
{
    for (auto _ : state) {
        BdfImporter importer;
        if (!importer.load(path("source.bdf")) || !importer.convert(path("imported.kiro")))
            stop("cannot import the file for the benchmark");
    }
}

BENCHMARK(CopyBdf)->Apply(repeatedOnce<5>);
BENCHMARK(ImportBdf)->Apply(repeatedOnce<5>);

const bool Goals[] = {
    registerGoal({"import-to-copy", "ImportBdf", "CopyBdf", Goal::Kind::AtMost, 4.0}),
};

} // namespace
