// Redraws of a screen of strips over ten seconds, an hour and eight hours at 1000 Hz, and what is prepared
// for them when samples are set.

#include "goals.h"
#include "repetitions.h"

#include "multiplot.h"
#include "stripcurve.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

namespace
{

constexpr int Width = 1600;
constexpr int Height = 900;
constexpr int StripCount = 16;
constexpr int Frequency = 1000;
constexpr int TenSeconds = 10 * Frequency;
constexpr int Hour = 3600 * Frequency;
constexpr int EightHours = 8 * Hour;

/// Wandering values of a converter, with noise and with jumps as of an eye.
QVector<std::int16_t> signal(unsigned seed)
{
    std::mt19937_64 generator(seed);
    QVector<std::int16_t> samples(EightHours);
    double wander = 0.0;
    double jump = 0.0;
    for (std::int16_t& sample : samples) {
        const std::uint64_t bits = generator();
        // Sums of four bytes, which are all but normal; faster than the library's distribution.
        const auto step = double((bits & 255) + (bits >> 8 & 255) + (bits >> 16 & 255) + (bits >> 24 & 255));
        wander = wander * 0.99999 + (step - 510.0) * 0.01;
        if ((bits >> 32) % 400 == 0)
            jump = double(bits >> 44) / 100.0 - 5000.0;
        sample = std::int16_t(wander + jump + double(bits >> 56) - 128.0);
    }
    return samples;
}

const std::vector<SampleStore>& strips()
{
    static const std::vector<SampleStore> stores = [] {
        std::vector<SampleStore> made;
        for (unsigned i = 0; i < StripCount; ++i)
            made.emplace_back(SampleArray(signal(i)));
        return made;
    }();
    return stores;
}

/// The first samples of a strip from the picture's left to its right, the range of values as of the
/// automatic scale.
StripView viewOf(int strip, int count)
{
    StripView view;
    const double height = double(Height) / StripCount;
    view.rect = QRectF(0.0, strip * height, Width, height);
    view.count = count;
    view.timePerSample = 1.0 / Frequency;
    view.horzMax = double(count) / Frequency;
    Extremes extremes;
    if (!strips()[std::size_t(strip)].extremes(0, count, extremes))
        stop("a signal has no samples");
    view.scaleMin = extremes.least;
    view.scaleMax = extremes.greatest;
    return view;
}

/// A widget with the strips. Never destroyed: static objects outlive the application.
MultiPlot& stripsWidget()
{
    static MultiPlot* const plot = [] {
        auto* made = new MultiPlot;
        made->resize(Width, Height);
        made->setPlotCount(StripCount);
        for (int i = 0; i < StripCount; ++i) {
            const SampleArray& samples = strips()[std::size_t(i)].samples();
            made->plot(i)->setData(std::get<QVector<std::int16_t>>(samples), 0, -1);
            made->plot(i)->setTimePerSample(1.0 / Frequency);
            made->plot(i)->setTitle(QStringLiteral("Signal %1").arg(i + 1));
        }
        made->adjustHorzGrid();
        return made;
    }();
    return *plot;
}

/// As a movement of the selector does it: new ranges of samples and of time, then the whole picture.
void redrawStrips(benchmark::State& state, int count, double penWidth, bool connected = true)
{
    MultiPlot& plot = stripsWidget();
    MultiPlotScheme scheme = plot.scheme();
    scheme.setData(QPen(Qt::magenta, penWidth));
    scheme.setDrawStyle(connected ? MultiPlotScheme::Lines : MultiPlotScheme::Points);
    plot.setScheme(scheme);
    QImage image(Width, Height, QImage::Format_RGB32);
    image.fill(Qt::black);
    for (auto _ : state) {
        for (int i = 0; i < StripCount; ++i)
            plot.plot(i)->setDataRange(0, count);
        plot.setHorzScale(0.0, double(count) / Frequency);
        plot.redraw(true);
        plot.render(&image);
    }
    int drawn = 0;
    for (int y = 0; y < Height; ++y)
        drawn += image.pixel(Width / 2, y) == QColor(Qt::magenta).rgb() ? 1 : 0;
    if (drawn < StripCount)
        stop("no curves were drawn");
}

void RedrawTenSeconds(benchmark::State& state)
{
    redrawStrips(state, TenSeconds, 1.0);
}

void RedrawHour(benchmark::State& state)
{
    redrawStrips(state, Hour, 1.0);
}

void RedrawEightHours(benchmark::State& state)
{
    redrawStrips(state, EightHours, 1.0);
}

void RedrawWideTenSeconds(benchmark::State& state)
{
    redrawStrips(state, TenSeconds, 3.0);
}

void RedrawWideEightHours(benchmark::State& state)
{
    redrawStrips(state, EightHours, 3.0);
}

void RedrawPointsTenSeconds(benchmark::State& state)
{
    redrawStrips(state, TenSeconds, 1.0, false);
}

void RedrawPointsEightHours(benchmark::State& state)
{
    redrawStrips(state, EightHours, 1.0, false);
}

void RedrawWideSecond(benchmark::State& state)
{
    redrawStrips(state, Frequency, 3.0);
}

void RedrawSecond(benchmark::State& state)
{
    redrawStrips(state, Frequency, 1.0);
}

/// Draws lines from each sample to the next.
void drawAllSamples(QPainter& painter, const SampleStore& samples, const StripView& view)
{
    const double across = view.rect.width() * view.timePerSample / (view.horzMax - view.horzMin);
    const double up = view.rect.height() / (view.scaleMax - view.scaleMin);
    QPolygonF line(view.count);
    for (int i = 0; i < view.count; ++i)
        line[i] = QPointF(view.rect.left() + i * across,
                          view.rect.bottom() - (samples.value(i) - view.scaleMin) * up);
    painter.setPen(QPen(Qt::black, 1.0));
    painter.drawPolyline(line);
}

void HourAsPolylines(benchmark::State& state)
{
    QImage image(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        for (int strip = 0; strip < StripCount; ++strip)
            drawAllSamples(painter, strips()[std::size_t(strip)], viewOf(strip, Hour));
    }
}

/// Takes as long as a picture on a screen of 60 a second may, for goals of an absolute time.
void SixteenMilliseconds(benchmark::State& state)
{
    for (auto _ : state)
        state.SetIterationTime(0.016);
}

const QVector<std::int16_t>& eightHours()
{
    return std::get<QVector<std::int16_t>>(strips().front().samples());
}

void CopySamples(benchmark::State& state)
{
    const QVector<std::int16_t>& samples = eightHours();
    std::vector<std::int16_t> copy(std::size_t(samples.size()));
    for (auto _ : state) {
        std::memcpy(copy.data(), samples.constData(), copy.size() * sizeof(std::int16_t));
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
}

void BuildPyramid(benchmark::State& state)
{
    const SampleArray samples(eightHours());
    for (auto _ : state) {
        const SampleStore store(samples);
        benchmark::DoNotOptimize(store.count());
    }
}

template <class T>
const QVector<T>& hourOf()
{
    static const QVector<T> samples = [] {
        QVector<T> made(Hour);
        std::copy_n(eightHours().begin(), Hour, made.begin());
        return made;
    }();
    return samples;
}

void CopyDoubles(benchmark::State& state)
{
    const QVector<double>& samples = hourOf<double>();
    std::vector<double> copy(std::size_t(samples.size()));
    for (auto _ : state) {
        std::memcpy(copy.data(), samples.constData(), copy.size() * sizeof(double));
        benchmark::DoNotOptimize(copy.data());
        benchmark::ClobberMemory();
    }
}

void BuildPyramidOfDoubles(benchmark::State& state)
{
    const SampleArray samples(hourOf<double>());
    for (auto _ : state) {
        const SampleStore store(samples);
        benchmark::DoNotOptimize(store.count());
    }
}

BENCHMARK(SixteenMilliseconds)->Apply(repeatedOnce<2>)->UseManualTime();
BENCHMARK(RedrawSecond)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawTenSeconds)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawHour)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawEightHours)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawWideSecond)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawWideTenSeconds)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawWideEightHours)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawPointsTenSeconds)->Apply(repeatedOnce<30>);
BENCHMARK(RedrawPointsEightHours)->Apply(repeatedOnce<30>);
BENCHMARK(HourAsPolylines)->Apply(repeatedOnce<2>);
BENCHMARK(CopySamples)->Apply(repeatedOnce<15>);
BENCHMARK(BuildPyramid)->Apply(repeatedOnce<15>);
BENCHMARK(CopyDoubles)->Apply(repeatedOnce<15>);
BENCHMARK(BuildPyramidOfDoubles)->Apply(repeatedOnce<15>);

const bool Goals[] = {
    registerGoal(
        {"redraw-of-8-hours-to-10-seconds", "RedrawEightHours", "RedrawTenSeconds", Goal::Kind::AtMost, 1.5}),
    registerGoal(
        {"redraw-of-8-hours-to-16-ms", "RedrawEightHours", "SixteenMilliseconds", Goal::Kind::AtMost, 1.0}),
    registerGoal({"wide-redraw-of-8-hours-to-16-ms", "RedrawWideEightHours", "SixteenMilliseconds",
                  Goal::Kind::Shown, 0.0}),
    registerGoal(
        {"polylines-to-redraw-of-an-hour", "HourAsPolylines", "RedrawHour", Goal::Kind::AtLeast, 50.0}),
    registerGoal({"pyramid-to-copy", "BuildPyramid", "CopySamples", Goal::Kind::AtMost, 4.0}),
    registerGoal(
        {"pyramid-of-doubles-to-copy", "BuildPyramidOfDoubles", "CopyDoubles", Goal::Kind::AtMost, 4.0}),
    registerGoal(
        {"wide-redraw-to-thin", "RedrawWideEightHours", "RedrawEightHours", Goal::Kind::AtMost, 3.0}),
    registerGoal(
        {"wide-redraw-of-a-second-to-thin", "RedrawWideSecond", "RedrawSecond", Goal::Kind::Shown, 0.0}),
    registerGoal({"redraw-of-an-hour-to-16-ms", "RedrawHour", "SixteenMilliseconds", Goal::Kind::Shown, 0.0}),
    registerGoal({"points-redraw-of-8-hours-to-10-seconds", "RedrawPointsEightHours",
                  "RedrawPointsTenSeconds", Goal::Kind::AtMost, 12.0}),
};

} // namespace
