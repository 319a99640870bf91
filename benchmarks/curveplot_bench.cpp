// Redraws of charts with very many curves, and with a very long one, at 1600 by 900.

#include "goals.h"
#include "repetitions.h"

#include "curvepainter.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include <cmath>
#include <random>

namespace
{

constexpr int Width = 1600;
constexpr int Height = 900;
constexpr double Pi = 3.14159265358979;

/// Rises of different heights and durations with noise on them, as profiles of saccades are.
QList<Curve> profiles(int count, int points, double penWidth)
{
    std::mt19937_64 generator(1);
    std::uniform_real_distribution<double> height(2.0, 28.0);
    std::uniform_real_distribution<double> duration(25.0, 95.0);
    std::uniform_real_distribution<double> noise(0.0, 0.1);
    QList<Curve> curves;
    for (int i = 0; i < count; ++i) {
        const double amplitude = height(generator);
        const double length = duration(generator);
        QVector<QPointF> line(points);
        for (int k = 0; k < points; ++k) {
            const double done = double(k) / (points - 1);
            line[k] =
                QPointF(length * done, amplitude * (0.5 - 0.5 * std::cos(Pi * done)) + noise(generator));
        }
        curves.append(Curve());
        curves.last().setData(line);
        curves.last().setPen(QPen(Qt::darkGreen, penWidth));
    }
    return curves;
}

/// An hour at 1000 Hz of a wandering value.
QList<Curve> longCurve(double penWidth)
{
    std::mt19937_64 generator(2);
    std::normal_distribution<double> step;
    QVector<QPointF> line(3600000);
    double value = 0.0;
    for (int i = 0; i < line.size(); ++i) {
        value = value * 0.999 + step(generator) * 0.1;
        line[i] = QPointF(i * (100.0 / line.size()), 15.0 + value);
    }
    QList<Curve> curves{Curve()};
    curves.first().setData(line);
    curves.first().setPen(QPen(Qt::black, penWidth));
    return curves;
}

void redraw(benchmark::State& state, const QList<Curve>& curves)
{
    QVector<int> order(curves.size());
    for (int i = 0; i < order.size(); ++i)
        order[i] = i;
    CurvesView view;
    view.area = QRect(0, 0, Width, Height);
    view.horz = AxisMapping(-10.0, 100.0, 0, Width - 1);
    view.vert = AxisMapping(-2.0, 30.0, Height - 1, 0);
    QImage image(Width, Height, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        drawCurves(painter, curves, order, view);
    }
    // The first profile or the middle of the long curve.
    int drawn = 0;
    for (int y = 0; y < Height; ++y)
        drawn += image.pixel(Width / 2, y) == qRgb(255, 255, 255) ? 0 : 1;
    if (drawn == 0)
        stop("no curve was drawn");
}

void DrawManyCurves(benchmark::State& state)
{
    static const QList<Curve> curves = profiles(10000, 50, 1.0);
    redraw(state, curves);
}

void DrawManyWideCurves(benchmark::State& state)
{
    static const QList<Curve> curves = profiles(10000, 50, 2.0);
    redraw(state, curves);
}

void DrawFewLongerCurves(benchmark::State& state)
{
    static const QList<Curve> curves = profiles(100, 5000, 1.0);
    redraw(state, curves);
}

void DrawLongCurve(benchmark::State& state)
{
    static const QList<Curve> curves = longCurve(1.0);
    redraw(state, curves);
}

void DrawLongWideCurve(benchmark::State& state)
{
    static const QList<Curve> curves = longCurve(4.0);
    redraw(state, curves);
}

BENCHMARK(DrawManyCurves)->Apply(repeated<5>);
BENCHMARK(DrawManyWideCurves)->Apply(repeated<5>);
BENCHMARK(DrawFewLongerCurves)->Apply(repeated<5>);
BENCHMARK(DrawLongCurve)->Apply(repeated<5>);
BENCHMARK(DrawLongWideCurve)->Apply(repeated<5>);

const bool Goals[] = {
    registerGoal(
        {"many-curves-to-few-longer", "DrawManyCurves", "DrawFewLongerCurves", Goal::Kind::Shown, 0.0}),
    registerGoal({"wide-curves-to-thin", "DrawManyWideCurves", "DrawManyCurves", Goal::Kind::Shown, 0.0}),
    registerGoal({"long-wide-curve-to-thin", "DrawLongWideCurve", "DrawLongCurve", Goal::Kind::Shown, 0.0}),
};

} // namespace
