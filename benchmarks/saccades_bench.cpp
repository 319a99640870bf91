// The saccades browser's work with both eyes: drawing a minute with many saccades, and opening the saccade
// file of an hour.

#include "goals.h"
#include "repetitions.h"

#include "curveplot.h"
#include "eyecharts.h"
#include "jobprogress.h"
#include "kirobulkreader.h"
#include "kirofile.h"
#include "kiroreader.h"
#include "kirosaccheader.h"
#include "saccadecentersettings.h"
#include "saccadedocument.h"

#include <QGridLayout>
#include <QImage>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

namespace
{

constexpr int Frequency = 1000;
constexpr double Pi = 3.14159265358979;

/// Positions in degrees of an eye that jumps every `interval` samples, with noise in steps of a converter.
std::vector<double> wanderingEye(int sampleCount, int interval, unsigned seed)
{
    constexpr int Moving = 40;
    std::mt19937_64 generator(seed);
    std::uniform_real_distribution<double> degrees(-20.0, 20.0);
    std::normal_distribution<double> noise(0.0, 0.03);
    std::vector<double> positions(std::size_t(sampleCount), 0.0);
    double from = 0.0;
    double to = 0.0;
    for (int i = 0; i < sampleCount; ++i) {
        const int phase = i % interval;
        if (phase == 0) {
            from = to;
            to = degrees(generator);
        }
        const double done = std::min(1.0, double(phase) / Moving);
        const double position = from + (to - from) * (0.5 - 0.5 * std::cos(Pi * done));
        positions[std::size_t(i)] = std::round((position + noise(generator)) * 40.0) / 40.0;
    }
    return positions;
}

/// The charts of a saccades browser in a window of 1600 by 900 that holds nothing else.
class ChartsOfAMinute
{
public:
    static constexpr int SaccadeCount = 500;

    /// The eyes move in any case; without `withSaccades` nobody has found it.
    explicit ChartsOfAMinute(bool withSaccades = true)
    {
        constexpr int SampleCount = 61 * Frequency;
        constexpr int Interval = 60 * Frequency / SaccadeCount;
        m_eyes.detectionType = 3;
        for (std::size_t axis = 0; axis < EyeAxisCount; ++axis) {
            EyeSignal& eye = m_eyes.axes[axis];
            eye.position = wanderingEye(SampleCount, Interval, unsigned(axis));
            eye.velocity.assign(eye.position.size(), 0.0);
            for (std::size_t i = 1; i < eye.position.size(); ++i)
                eye.velocity[i] = std::abs(eye.position[i] - eye.position[i - 1]) * Frequency;
        }
        for (int i = 0; withSaccades && i < SaccadeCount; ++i) {
            KiroSaccade saccade;
            saccade.main.start = i * Interval + 2;
            saccade.main.end = saccade.main.start + 38;
            saccade.main.duration = 39;
            saccade.left = saccade.right = saccade.main;
            m_saccades.append(saccade);
        }
        m_timeWindow.setSamples(SampleCount, 1000.0 / Frequency);
        m_timeWindow.setLength(TimeWindow::GreatestLength);

        auto* const layout = new QGridLayout(&m_window);
        std::array<CurvePlot*, EyeCharts::Count> plots{};
        for (int i = 0; i < EyeCharts::Count; ++i) {
            plots[std::size_t(i)] = new CurvePlot;
            plots[std::size_t(i)]->setVertScaleWidthTemplate(QStringLiteral("-000.0"));
            plots[std::size_t(i)]->setScheme(curvePlotScheme(m_look));
            layout->addWidget(plots[std::size_t(i)], i % 4, i / 4);
        }
        m_charts = std::make_unique<EyeCharts>(plots);
        m_charts->setDetectionType(m_eyes.detectionType);
        m_charts->setDataTitles(QStringLiteral("deg"));
        m_window.resize(m_image.size());
    }

    /// What a new place of the scroll bar costs: setting the curves, scaling, and painting.
    void setCurves(int scroll)
    {
        m_charts->draw({m_eyes, m_saccades, m_blinks, SaccadeCount / 2}, m_timeWindow, scroll,
                       {m_look.eyeSignal, m_look.saccadeLeft, m_look.saccadeRight, m_look.saccadeSelected,
                        m_look.blinks});
        m_charts->resetPositionScales(ScaleMode::Auto, 40.0);
        m_charts->resetVelocityScales(ScaleMode::Auto, 1000.0);
    }

    void paint() { m_window.render(&m_image); }

    /// Ends the program if the current saccade cannot be seen in each chart.
    void check() const
    {
        for (int i = 0; i < EyeCharts::Count; ++i) {
            const CurvePlot& plot = *(*m_charts)[i].plot;
            const QRect area = plot.plotArea().translated(plot.pos());
            if (!hasColour(area, m_look.saccadeSelected.color()) ||
                !hasColour(area, m_look.eyeSignal.color()))
                stop("no saccade was drawn");
        }
    }

private:
    bool hasColour(const QRect& area, const QColor& colour) const
    {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                if (m_image.pixelColor(x, y) == colour)
                    return true;
            }
        }
        return false;
    }

    const SaccadePlotLook m_look = SaccadeCenterSettings().plot;
    EyeSignals m_eyes;
    QList<KiroSaccade> m_saccades;
    QList<KiroBlink> m_blinks;
    TimeWindow m_timeWindow;
    QWidget m_window;
    std::unique_ptr<EyeCharts> m_charts;
    QImage m_image{1600, 900, QImage::Format_RGB32};
};

void RedrawMinuteOfSaccades(benchmark::State& state)
{
    ChartsOfAMinute charts;
    int scroll = 0;
    for (auto _ : state) {
        charts.setCurves(scroll);
        charts.paint();
        scroll = (scroll + 100) % 1000;
    }
    charts.check();
}

void RedrawMinuteWithoutSaccades(benchmark::State& state)
{
    ChartsOfAMinute charts(false);
    int scroll = 0;
    for (auto _ : state) {
        charts.setCurves(scroll);
        charts.paint();
        scroll = (scroll + 100) % 1000;
    }
}

void SetCurvesOfMinuteOfSaccades(benchmark::State& state)
{
    ChartsOfAMinute charts;
    int scroll = 0;
    for (auto _ : state) {
        charts.setCurves(scroll);
        scroll = (scroll + 100) % 1000;
    }
}

/// A recording of an hour of both eyes and its saccade file, made on first use and removed at the end.
struct HourOfEyes
{
    static constexpr int SampleCount = 3600 * Frequency;
    static constexpr int SamplesPerFrame = 4;
    static constexpr int Interval = 500;
    static constexpr double Factor = 40.0;

    HourOfEyes()
        : recording(folder.filePath(QStringLiteral("hour.kiro")))
        , saccadeFile(folder.filePath(QStringLiteral("hour.sacc")))
    {
        writeRecording();
        writeSaccades();
    }

    void writeRecording()
    {
        KiroHeader header;
        header.setFrameCount(SampleCount / SamplesPerFrame);
        header.setSignalCount(EyeAxisCount);
        std::vector<std::vector<double>> eyes;
        for (int i = 0; i < EyeAxisCount; ++i) {
            KiroSignal signal;
            signal.fullName = KiroString("eye %1").arg(i);
            signal.samplesPerPeriod = Frequency;
            signal.valueType = KiroValue::SignedInt;
            signal.sampleSize = 2;
            signal.samplesPerFrame = SamplesPerFrame;
            signal.calibrated = true;
            signal.calibrationFactor = Factor;
            signal.calibrationUnit = "deg";
            header.setSignal(i, signal);
            eyes.push_back(wanderingEye(SampleCount, Interval, unsigned(i)));
        }
        std::string bytes;
        for (std::size_t frame = 0; frame < SampleCount; frame += SamplesPerFrame) {
            for (const std::vector<double>& eye : eyes) {
                for (std::size_t i = frame; i < frame + SamplesPerFrame; ++i) {
                    const auto raw = std::uint16_t(std::lround(eye[i] * Factor));
                    bytes += char(raw >> 8);
                    bytes += char(raw & 255);
                }
            }
        }
        KiroFile file;
        if (!file.open(recording, KiroFile::Create) || !header.write(file) ||
            file.writeRaw(bytes.data(), std::int32_t(bytes.size())) != std::int32_t(bytes.size()) ||
            !file.close())
            stop("cannot write the recording for the benchmarks");
    }

    void writeSaccades() const
    {
        KiroSaccHeader header;
        header.detectionType = KiroSaccHeader::Binocular;
        header.samplesPerPeriod = Frequency;
        header.ratePeriod = 1000;
        header.dataFile = recording;
        for (int i = 0; i < EyeAxisCount; ++i)
            header.setSignal(saccadeFileRole(EyeAxes[std::size_t(i)]), i, Factor, 0.0);
        for (int start = 0; start < SampleCount - Interval; start += Interval) {
            KiroSaccade saccade;
            saccade.main.start = start;
            saccade.main.end = start + 39;
            saccade.main.duration = 40;
            saccade.left = saccade.right = saccade.main;
            header.saccades.push_back(saccade);
        }
        if (!header.saveAs(saccadeFile))
            stop("cannot write the saccade file for the benchmarks");
    }

    QTemporaryDir folder;
    KiroString recording;
    KiroString saccadeFile;
};

const HourOfEyes& hour()
{
    static const HourOfEyes made;
    return made;
}

/// As the saccades browser opens it.
void OpenHourOfSaccades(benchmark::State& state)
{
    hour();
    for (auto _ : state) {
        KiroSaccHeader header;
        KiroReader reader;
        if (!header.load(hour().saccadeFile) || !reader.setFile(header.dataFileName(true)))
            stop("cannot open the saccade file");
        EyeSignals eyes = signalsOf(header);
        EyeLoadOptions options;
        options.frequency = frequencyOf(header);
        options.storedCalibration = true;
        QString error;
        if (!loadEyeSignals(header.dataFileName(true), reader.header(), options, eyes, error) ||
            eyes.detectionType != 3 ||
            eyes[EyeAxis::LeftVertical].velocity.size() != std::size_t(HourOfEyes::SampleCount))
            stop("cannot load the signals of the saccade file");
        benchmark::DoNotOptimize(eyes);
    }
}

/// The four signals alone, calibrated, one after the other.
void LoadFourSignals(benchmark::State& state)
{
    hour();
    for (auto _ : state) {
        std::array<std::vector<double>, EyeAxisCount> samples;
        for (int i = 0; i < EyeAxisCount; ++i) {
            if (!KiroReader::readSignal(hour().recording, i, samples[std::size_t(i)], true))
                stop("cannot read the recording for the benchmarks");
        }
        benchmark::DoNotOptimize(samples);
    }
}

/// The four signals alone, all at once as they are stored.
void LoadFourStoredSignals(benchmark::State& state)
{
    KiroReader reader;
    if (!reader.setFile(hour().recording))
        stop("cannot read the recording for the benchmarks");
    for (auto _ : state) {
        std::vector<SampleVector> samples;
        NoProgress progress;
        if (!KiroBulkReader(reader).readAll(samples, progress))
            stop("cannot read the recording for the benchmarks");
        benchmark::DoNotOptimize(samples);
    }
}

BENCHMARK(RedrawMinuteOfSaccades)->Apply(repeated<7>);
BENCHMARK(RedrawMinuteWithoutSaccades)->Apply(repeated<7>);
BENCHMARK(SetCurvesOfMinuteOfSaccades)->Apply(repeated<7>);
BENCHMARK(OpenHourOfSaccades)->Apply(repeated<7>);
BENCHMARK(LoadFourSignals)->Apply(repeated<7>);
BENCHMARK(LoadFourStoredSignals)->Apply(repeated<7>);

const bool Goals[] = {
    registerGoal({"redraw-of-500-saccades-to-16-ms", "RedrawMinuteOfSaccades", "SixteenMilliseconds",
                  Goal::Kind::AtMost, 1.0}),
    registerGoal({"redraw-of-500-saccades-to-none", "RedrawMinuteOfSaccades", "RedrawMinuteWithoutSaccades",
                  Goal::Kind::Shown, 0.0}),
    registerGoal(
        {"saccades-open-to-bulk-load", "OpenHourOfSaccades", "LoadFourSignals", Goal::Kind::AtMost, 3.0}),
    registerGoal({"saccades-open-to-bulk-load-as-stored", "OpenHourOfSaccades", "LoadFourStoredSignals",
                  Goal::Kind::Shown, 0.0}),
};

} // namespace
