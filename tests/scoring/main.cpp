#include "detectionscore.h"

#include "bdfimporter.h"
#include "detectionrun.h"
#include "eyesignals.h"
#include "kiroreader.h"
#include "kirosaccheader.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <string>

namespace
{

constexpr const char* Usage =
    "Usage: kiro_score FILE...\n"
    "Detects in each FILE and prints rows of Markdown tables. FILE is RECORDING.kiro=TRUTH.json, a "
    "synthetic\n"
    "recording with its truth, or an .edf file with the position of one eye in degrees, of which the first\n"
    "signal is horizontal and the second, if there is one, vertical.\n";

struct ParameterSet
{
    const char* name;
    DetectionSettings settings;
};

std::vector<ParameterSet> parameterSets()
{
    DetectionSettings defaults;
    defaults.saccades = SaccadeDetectionParams::defaults();
    defaults.blinks = BlinkDetectionParams::defaults();
    return {{"at start", DetectionSettings()}, {"defaults", defaults}};
}

/// Eye signals of one recording, ready for detection.
struct Loaded
{
    Loaded(const QString& path, const EyeSignals& choice)
        : eyes(choice)
    {
        if (!reader.setFile(KiroString(path)))
            throw std::runtime_error("cannot open " + path.toStdString());
        if (eyes.axes.front().isSet() == false)
            eyes = findEyeSignals(reader.header());
        EyeLoadOptions options;
        options.velocities = false;
        QString error;
        if (!loadEyeSignals(reader.fileName(), reader.header(), options, eyes, error))
            throw std::runtime_error(path.toStdString() + ": " + error.toStdString());
        frequency = reader.header().signalFrequency(eyes[EyeAxis::RightHorizontal].signalIndex);
    }

    DetectedMovements detect(const DetectionSettings& settings) const
    {
        return runDetection(eyes.detectionType, frequency, settings, eyes);
    }
    std::int64_t sampleCount() const
    {
        return static_cast<std::int64_t>(eyes[EyeAxis::RightHorizontal].position.size());
    }

    KiroReader reader;
    EyeSignals eyes;
    double frequency = 0.0;
};

std::vector<Stretch> trueStretches(const QJsonValue& events)
{
    std::vector<Stretch> stretches;
    for (const QJsonValue& event : events.toArray())
        stretches.push_back({event[QStringLiteral("start")].toInt(), event[QStringLiteral("end")].toInt()});
    return stretches;
}

template <class Events, class Range>
std::vector<Stretch> foundStretches(const Events& events, Range range)
{
    std::vector<Stretch> stretches;
    for (const auto& event : events)
        stretches.push_back(range(event));
    return stretches;
}

void printScore(const std::string& name, const char* set, const char* kind, const DetectionScore& score)
{
    std::printf("| %s | %s | %s | %d | %d | %d | %.3f | %.3f | %.0f (%.0f to %.0f) | %.0f (%.0f to %.0f) |\n",
                name.c_str(), set, kind, score.trueCount, score.foundCount, score.hits, score.f1, score.kappa,
                score.onsetErrors.median, score.onsetErrors.low, score.onsetErrors.high,
                score.offsetErrors.median, score.offsetErrors.low, score.offsetErrors.high);
}

void scoreSynthetic(const QString& recording, const QString& truthFile)
{
    QFile file(truthFile);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot open " + truthFile.toStdString());
    const QJsonObject truth = QJsonDocument::fromJson(file.readAll()).object();
    if (!truth.value(QLatin1String("saccades")).isArray())
        throw std::runtime_error(truthFile.toStdString() + " is no truth of a recording");
    const Loaded loaded(recording, EyeSignals());
    const std::string name = truth.value(QLatin1String("file")).toString().toStdString();
    for (const ParameterSet& set : parameterSets()) {
        const DetectedMovements found = loaded.detect(set.settings);
        const auto saccades = foundStretches(found.saccades, [](const KiroSaccade& saccade) {
            return Stretch{saccade.main.start, saccade.main.end};
        });
        const auto blinks = foundStretches(found.blinks, [](const KiroBlink& blink) {
            return Stretch{blink.start, blink.end};
        });
        printScore(name, set.name, "saccades",
                   scoreDetection(trueStretches(truth.value(QLatin1String("saccades"))), saccades,
                                  loaded.sampleCount()));
        printScore(name, set.name, "blinks",
                   scoreDetection(trueStretches(truth.value(QLatin1String("blinks"))), blinks,
                                  loaded.sampleCount()));
    }
}

void describeReal(const QString& edf)
{
    const QTemporaryDir folder;
    const QString recording = folder.filePath(QStringLiteral("real.kiro"));
    BdfImporter importer;
    if (!importer.load(edf) || !importer.convert(recording))
        throw std::runtime_error(edf.toStdString() + ": " + importer.errorText().toStdString());
    EyeSignals choice;
    choice[EyeAxis::RightHorizontal].signalIndex = 0;
    if (importer.header().channelCount() > 1)
        choice[EyeAxis::RightVertical].signalIndex = 1;
    const Loaded loaded(recording, choice);
    const double minutes = static_cast<double>(loaded.sampleCount()) / loaded.frequency / 60.0;
    for (const ParameterSet& set : parameterSets()) {
        const DetectedMovements found = loaded.detect(set.settings);
        std::vector<double> amplitudes;
        std::vector<double> velocities;
        std::vector<double> durations;
        for (const KiroSaccade& saccade : found.saccades) {
            amplitudes.push_back(std::abs(saccade.main.amplitude));
            velocities.push_back(saccade.main.peakVelocity);
            durations.push_back(saccade.main.duration * 1000.0 / loaded.frequency);
        }
        const std::string name = edf.section(QLatin1Char('/'), -1).toStdString();
        std::printf("| %s | %s | %s | %zu | %.1f | %.2f | %.0f | %.0f | %zu |\n", name.c_str(), set.name,
                    KiroSaccHeader::detectionTypeName(loaded.eyes.detectionType).c_str(),
                    found.saccades.size(), static_cast<double>(found.saccades.size()) / minutes,
                    spreadOf(amplitudes).median, spreadOf(velocities).median, spreadOf(durations).median,
                    found.blinks.size());
    }
}

void score(const QString& argument)
{
    const int equals = argument.indexOf(QLatin1Char('='));
    if (equals >= 0)
        scoreSynthetic(argument.left(equals), argument.mid(equals + 1));
    else
        describeReal(argument);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.isEmpty()) {
        std::fputs(Usage, stderr);
        return 2;
    }
    try {
        for (const QString& argument : arguments)
            score(argument);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kiro_score: %s\n", error.what());
        return 1;
    }
    return 0;
}
