#include "plotshots.h"

#include "curveplot.h"
#include "multiplot.h"
#include "positionselector.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>
#include <random>

namespace
{

constexpr double Seconds = 10.0;
constexpr double Rate = 1000.0;
constexpr int SampleCount = int(Seconds * Rate);
constexpr double ScreenDpi = 96.0;

/// Eye positions: jumps with noise, 100 raw units for a degree.
QVector<std::int16_t> jumps(unsigned seed)
{
    std::mt19937 random(seed);
    std::normal_distribution<double> noise(0.0, 12.0);
    std::uniform_real_distribution<double> target(-2000.0, 2000.0);
    QVector<std::int16_t> samples(SampleCount);
    double position = 0.0;
    double goal = 0.0;
    for (int i = 0; i < SampleCount; ++i) {
        if (i % 640 == 0)
            goal = target(random);
        position += (goal - position) * 0.07;
        samples[i] = static_cast<std::int16_t>(position + noise(random));
    }
    return samples;
}

QVector<double> waves(double size, double periods, double gapEvery = 0.0)
{
    QVector<double> samples(SampleCount);
    for (int i = 0; i < SampleCount; ++i) {
        const double time = i / Rate;
        const bool gap = gapEvery > 0.0 && std::fmod(time, gapEvery) > gapEvery * 0.8;
        samples[i] = gap ? std::nan("") : size * std::sin(2.0 * 3.14159265358979 * periods * time / Seconds);
    }
    return samples;
}

void addStrip(MultiPlot& strips, int index, const char* title, const QVector<std::int16_t>& samples)
{
    Plot* const strip = strips.plot(index);
    strip->setTitle(QString::fromLatin1(title));
    strip->setData(samples, 0, -1);
    strip->hasCalib = strip->useCalib = true;
    strip->calibFactor = 100.0;
    strip->setCalibUnit(QStringLiteral("deg"));
    strip->setTimePerSample(1.0 / Rate);
    strip->adjustPrecision();
}

void addStrip(MultiPlot& strips, int index, const char* title, const QVector<double>& samples)
{
    Plot* const strip = strips.plot(index);
    strip->setTitle(QString::fromLatin1(title));
    strip->setData(samples, 0, -1);
    strip->setTimePerSample(1.0 / Rate);
    strip->adjustPrecision();
}

void fill(MultiPlot& strips)
{
    strips.setPlotCount(6);
    addStrip(strips, 0, "right eye - horizontal", jumps(1));
    addStrip(strips, 1, "right eye - vertical", jumps(2));
    addStrip(strips, 2, "head velocity - X", waves(140.0, 7.0));
    addStrip(strips, 3, "pulsoxymeter infrared", waves(30000.0, 12.0));
    addStrip(strips, 4, "ambient light", waves(1e9, 2.0, 2.5));
    addStrip(strips, 5, "microphone", waves(0.004, 800.0));
    strips.setHorzTitle(QStringLiteral("Time"));
    strips.setHorzUnits(QStringLiteral("s"));
    strips.setHorzScale(0.0, Seconds);
    strips.adjustHorzGrid();
    strips.resize(1000, 560);
    strips.show();
    strips.redraw(true);
}

MultiPlotScheme darkScheme()
{
    MultiPlotScheme scheme;
    scheme.setBkg(QColor(0x1e, 0x1f, 0x22));
    scheme.setFrg(QPen(QColor(0xd8, 0xd8, 0xd8), 0));
    scheme.setData(QPen(QColor(0x7c, 0xc4, 0xff), 0));
    scheme.setGrid(QPen(QColor(0x3a, 0x3c, 0x40), 0));
    scheme.setPointer(QPen(QColor(0xe2, 0x9b, 0xff), 0));
    return scheme;
}

void addLabels(MultiPlot& strips)
{
    KiroLabel label;
    label.setupPoint(0, 1300, 900.0, QStringLiteral("Peak"), QString(), Qt::red);
    strips.addLabel(label);
    label.setupSignalLine(1, 2500, QStringLiteral("Cue"), QString(), Qt::darkGreen);
    strips.addLabel(label);
    label.setupTimeLine(4000, QStringLiteral("Task begins"), QString(), Qt::blue);
    strips.addLabel(label);
    label.setupSignalPeriod(2, 5000, 7000, QStringLiteral("Turn"), QString(), Qt::magenta);
    strips.addLabel(label);
    label.setupTimePeriod(7500, 9000, QStringLiteral("Trial 12"), QString(), QColor(0xc8, 0x96, 0));
    strips.addLabel(label);
    for (int i = 0; i < 12; ++i) {
        label.setupSignalLine(3, 2000U + unsigned(i) * 90U, QStringLiteral("Beat %1").arg(i), QString(),
                              Qt::darkCyan);
        strips.addLabel(label);
    }
}

void send(QWidget& widget, QEvent::Type type, const QPoint& place, Qt::MouseButton button,
          Qt::MouseButtons buttons)
{
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

void showModes(MultiPlot& strips, const KeepWidget& keep)
{
    struct Mode
    {
        UserMode mode;
        const char* name;
        bool drags;
    };
    constexpr Mode Modes[] = {{UserModeLine, "line", false},
                              {UserModePoint, "point", false},
                              {UserModeMeasure, "measure", true},
                              {UserModeSignalSelection, "signal-selection", true},
                              {UserModeTimeSelection, "time-selection", true}};
    const QPoint from(480, 150);
    const QPoint to(700, 190);
    for (const Mode& mode : Modes) {
        strips.setUserMode(mode.mode);
        if (mode.drags)
            send(strips, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        send(strips, QEvent::MouseMove, to, Qt::NoButton, mode.drags ? Qt::LeftButton : Qt::NoButton);
        keep(strips, QStringLiteral("strips-mode-") + QLatin1String(mode.name));
        if (mode.drags)
            send(strips, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    }
    strips.setUserMode(UserModeArrow);
}

void showTimeStyles(MultiPlot& strips, const KeepWidget& keep)
{
    strips.resize(1000, 220);
    for (int style = MultiPlotScheme::Milliseconds; style <= MultiPlotScheme::Hours; ++style) {
        MultiPlotScheme scheme;
        scheme.setHorzTimeStyle(MultiPlotScheme::TimeStyle(style));
        strips.setScheme(scheme);
        strips.redraw(true);
        keep(strips, QStringLiteral("strips-time-") +
                         MultiPlotScheme::horzTimeStyleString(MultiPlotScheme::TimeStyle(style)));
    }
    MultiPlotScheme scheme;
    scheme.setHorzUnitType(MultiPlotScheme::Samples);
    scheme.setDrawStyle(MultiPlotScheme::Points);
    strips.setScheme(scheme);
    strips.redraw(true);
    keep(strips, QStringLiteral("strips-points-by-samples"));
}

/// More strips than lines of text, and names that nothing has room for.
void showManyStrips(const KeepWidget& keep)
{
    constexpr int Count = 140;
    MultiPlot strips;
    strips.setPlotCount(Count);
    const QVector<std::int16_t> eye = jumps(5);
    for (int i = 0; i < Count; ++i) {
        addStrip(strips, i, "", eye);
        strips.plot(i)->setTitle(i == 1 ? QStringLiteral("LONG_") + QString(280, QLatin1Char('X'))
                                        : QStringLiteral("CHANNEL_%1").arg(i + 1, 3, 10, QLatin1Char('0')));
    }
    strips.setHorzTitle(QStringLiteral("Time"));
    strips.setHorzUnits(QStringLiteral("s"));
    strips.setHorzScale(0.0, Seconds);
    strips.resize(1000, 560);
    strips.show();
    strips.redraw(true);
    keep(strips, QStringLiteral("strips-140"));
    for (int i = 4; i < Count; ++i)
        strips.plot(i)->setShowPlot(false);
    strips.resize(320, 240);
    strips.redraw(true);
    keep(strips, QStringLiteral("strips-small"));
    strips.setPlotCount(0);
    strips.redraw(true);
    keep(strips, QStringLiteral("strips-none"));
}

void showStrips(const KeepWidget& keep, const KeepPage& keepPage)
{
    MultiPlot strips;
    fill(strips);
    keep(strips, QStringLiteral("strips"));
    addLabels(strips);
    strips.showPlayMarker = true;
    strips.playMarkerTime = 6.3;
    strips.redraw(true);
    keep(strips, QStringLiteral("strips-labels"));
    strips.setScheme(darkScheme());
    strips.redraw(true);
    keep(strips, QStringLiteral("strips-labels-dark"));
    strips.setScheme(MultiPlotScheme());
    strips.showPlayMarker = false;
    strips.redraw(true);
    keepPage(QStringLiteral("strips-print"),
             [&strips](QPainter& painter, const QRect& rect) { strips.print(painter, rect); });
    strips.clearAllLabels();
    strips.redraw(true);
    showModes(strips, keep);
    showTimeStyles(strips, keep);
    showManyStrips(keep);
}

void showPositionSelector(const KeepWidget& keep)
{
    PositionSelector selector;
    selector.setTotalRange(0.0, 8.0 * 3600.0);
    selector.setSelectorRange(1800.0);
    selector.setSelectorPosition(3.0 * 3600.0);
    selector.setTimeStyle(MultiPlotScheme::Hours);
    selector.setOverview(SampleStore(waves(1.0, 9.0)), 8.0 * 3600.0 / SampleCount, 0.0);
    selector.resize(1000, selector.sizeHint().height());
    selector.show();
    keep(selector, QStringLiteral("position-selector"));
    selector.clearOverview();
    keep(selector, QStringLiteral("position-selector-plain"));
}

void showCurves(const KeepWidget& keep, const KeepPage& keepPage)
{
    CurvePlot plot;
    plot.setVertTitle(QStringLiteral("Right eye horizontal [deg]"));
    plot.setVertScaleWidthTemplate(QStringLiteral("99 999.99"));
    plot.setHorzMinMax(0.0, 3.0);
    plot.setVertMinMax(-22.0, 22.0);
    plot.adjustGrid();
    const QVector<std::int16_t> eye = jumps(3);
    const auto stretch = [&eye](int first, int last) {
        QVector<QPointF> points;
        for (int i = first; i <= last; ++i)
            points << QPointF(i / Rate, eye[i] / 100.0);
        return points;
    };
    const int all = plot.addCurve(QStringLiteral("signal"));
    plot.curve(all)->setData(stretch(0, 2999));
    for (int start = 640; start < 2900; start += 640) {
        const int saccade = plot.addCurve(QString::number(start));
        plot.curve(saccade)->setPen(QPen(QColor(0xc0, 0x30, 0x20), 2));
        plot.curve(saccade)->setData(stretch(start, start + 50));
    }
    plot.resize(1000, 240);
    plot.show();
    keep(plot, QStringLiteral("curves"));
    if (keepPage)
        keepPage(QStringLiteral("curves-print"), [&plot](QPainter& painter, const QRect& rect) {
            plot.print(painter, rect, painter.device()->logicalDpiX() / ScreenDpi);
        });
    plot.resize(220, 130);
    keep(plot, QStringLiteral("curves-small"));
}

} // namespace

void showPlots(const KeepWidget& keep, const KeepPage& keepPage)
{
    showStrips(keep, keepPage);
    showPositionSelector(keep);
    showCurves(keep, keepPage);
}

void showPlotsOfDesktop(const KeepWidget& keep)
{
    showPositionSelector(keep);
    showCurves(keep, KeepPage());
}
