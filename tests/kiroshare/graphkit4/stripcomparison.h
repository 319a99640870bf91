#pragma once

#include "stripcurve.h"

#include "reference/plainpolyline.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

// Compares the pictures of strips with those of a plain renderer.

using Values = std::vector<double>;

enum class Shape { Walk, Noise, Steps, Zigzag };
inline constexpr std::array<Shape, 4> AllShapes = {Shape::Walk, Shape::Noise, Shape::Steps, Shape::Zigzag};
inline constexpr std::array<const char*, 4> ShapeNames = {"walk", "noise", "steps", "zigzag"};

/// From -1 to 1.
inline Values valuesOf(Shape shape, int count)
{
    std::mt19937_64 generator(7);
    std::normal_distribution<double> normal;
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Values values(std::size_t(count), 0.0);
    double value = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        switch (shape) {
        case Shape::Walk:
            value = 0.9995 * value + 0.008 * normal(generator);
            break;
        case Shape::Noise:
            value = 0.25 * normal(generator);
            break;
        case Shape::Steps:
            value = i % 37 == 0 && uniform(generator) > 0.3 ? 0.9 * uniform(generator) : value;
            break;
        case Shape::Zigzag:
            value = (i % 2 == 0 ? 0.9 : -0.9) * std::cos(6.0 * double(i) / count);
            break;
        }
        values[i] = std::clamp(value, -1.0, 1.0);
    }
    return values;
}

template <class T>
SampleArray arrayOf(const Values& values, double middle, double half)
{
    QVector<T> samples(int(values.size()));
    std::transform(values.begin(), values.end(), samples.begin(),
                   [=](double value) { return T(middle + half * value); });
    return samples;
}

/// Samples of an element type whose raw values for -1 to 1 lie `half` around `middle`.
struct ElementType
{
    SampleArray (*make)(const Values& values, double middle, double half);
    double middle;
    double half;
};

inline constexpr std::array<ElementType, 10> ElementTypes = {{
    {arrayOf<std::int8_t>, 0.0, 120.0},
    {arrayOf<std::uint8_t>, 128.0, 120.0},
    {arrayOf<std::int16_t>, -1000.0, 31000.0},
    {arrayOf<std::uint16_t>, 32768.0, 32000.0},
    {arrayOf<std::int32_t>, 0.0, 2.1e9},
    {arrayOf<std::uint32_t>, 2147483648.0, 2.1e9},
    {arrayOf<std::int64_t>, 0.0, 9.2e18},
    {arrayOf<std::uint64_t>, 9223372036854775808.0, 9.2e18},
    {arrayOf<float>, 3.0f, 1e30},
    {arrayOf<double>, -5.0, 0.125},
}};
inline constexpr const ElementType& Int16 = ElementTypes[2];
inline constexpr const ElementType& Double = ElementTypes[9];

/// What is drawn and how, but for the samples.
struct Setting
{
    double width = 1.0; ///< of the pen; 1 is a device pixel at any ratio
    double pixelRatio = 1.0;
    QSize size = QSize(433, 151);
    bool connected = true;
    double tolerance = 0.0;
    double factor = 1.0; ///< of the calibration
    double shown = 1.0;  ///< part of the scale around its middle that is shown
    QColor color = Qt::black;
};

/// All samples of a type from edge to edge, but none on the border of two columns, which may go either way.
inline StripView viewOf(const ElementType& type, int count, const Setting& setting)
{
    StripView view;
    view.rect = QRectF(9.0, 5.0, setting.size.width() - 20.0, setting.size.height() - 11.0);
    view.first = 0;
    view.count = count;
    view.timePerSample = 0.001;
    view.timeOffset = 0.5;
    view.horzMin = 0.4999123;
    view.horzMax = 0.4999123 + 0.001 * (count - 0.7);
    view.calibFactor = setting.factor;
    view.calibOffset = setting.factor == 1.0 ? 0.0 : type.middle + 0.25 * type.half;
    const auto drawn = [&](double part) {
        return (type.middle + part * type.half - view.calibOffset) / view.calibFactor;
    };
    view.scaleMin = std::min(drawn(-setting.shown), drawn(setting.shown));
    view.scaleMax = std::max(drawn(-setting.shown), drawn(setting.shown));
    view.connected = setting.connected;
    view.tolerance = setting.tolerance;
    return view;
}

inline QImage blankImage(const Setting& setting)
{
    QImage image(setting.size * setting.pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(setting.pixelRatio);
    image.fill(Qt::transparent);
    return image;
}

inline double pixelWidth(const Setting& setting)
{
    return setting.width == 1.0 ? 1.0 : setting.width * setting.pixelRatio;
}

inline QPen penOf(const Setting& setting)
{
    return QPen(setting.color, setting.width == 1.0 ? 0.0 : setting.width);
}

inline QImage shippedPicture(const SampleStore& samples, const StripView& view, const Setting& setting)
{
    QImage image = blankImage(setting);
    QPainter painter(&image);
    drawStripCurve(painter, samples, view, penOf(setting));
    return image;
}

inline plain::Pixels plainPicture(const SampleStore& samples, const StripView& view, const Setting& setting)
{
    return plain::stripCurve(setting.size * setting.pixelRatio, setting.pixelRatio, samples, view,
                             pixelWidth(setting));
}

/// Which pixels of a picture are lit: covered by two fifths at least, since where a smooth line turns between
/// two rows it may cover each by less than half. Comparisons come out the same from a quarter on.
inline plain::Pixels litPixels(const QImage& image)
{
    constexpr int Lit = 102;
    plain::Pixels pixels(image.size());
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) >= Lit)
                pixels.light(x, y);
        }
    }
    return pixels;
}

/// Whether a pixel is lit that is no more than `reach` columns and rows away.
inline bool isLitNear(const plain::Pixels& pixels, int x, int y, int reach)
{
    for (int j = std::max(y - reach, 0); j <= std::min(y + reach, pixels.height() - 1); ++j) {
        for (int i = std::max(x - reach, 0); i <= std::min(x + reach, pixels.width() - 1); ++i) {
            if (pixels.isLit(i, j))
                return true;
        }
    }
    return false;
}

/// First and last lit row of a column; the last is above the first if there is none.
inline std::pair<int, int> spanOf(const plain::Pixels& pixels, int column)
{
    int first = 0;
    while (first < pixels.height() && !pixels.isLit(column, first))
        ++first;
    int last = pixels.height() - 1;
    while (last >= first && !pixels.isLit(column, last))
        --last;
    return {first, first < pixels.height() ? last : -1};
}

/// Lit pixels of one picture that are farther than `reach` from those of the other.
inline long farPixels(const plain::Pixels& one, const plain::Pixels& other, int reach)
{
    long count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.isLit(x, y) && !other.isLit(x, y) && !isLitNear(other, x, y, reach))
                ++count;
        }
    }
    return count;
}

/// Rows by which the lit spans of a column differ beyond one; beside none, a span of one row differs by one.
inline long spanDifference(const std::pair<int, int>& one, const std::pair<int, int>& other)
{
    const bool isOne = one.first <= one.second;
    const bool isOther = other.first <= other.second;
    if (isOne && isOther)
        return std::max(std::abs(one.first - other.first) - 1, 0) +
               std::max(std::abs(one.second - other.second) - 1, 0);
    const auto& only = isOne ? one : other;
    return std::max(only.second - only.first, 0);
}

struct Difference
{
    long lit = 0;     ///< pixels of the plain picture
    long outside = 0; ///< pixels that break the rule
};

/// How far a picture is from showing the same curve as another: the lit spans of each column are the same to
/// within a pixel, and no lit pixel is more than one from the other picture's.
inline Difference differenceOf(const plain::Pixels& one, const plain::Pixels& other)
{
    Difference difference{other.litCount(), farPixels(one, other, 1) + farPixels(other, one, 1)};
    for (int column = 0; column < one.width(); ++column)
        difference.outside += spanDifference(spanOf(one, column), spanOf(other, column));
    return difference;
}

/// One pixel in a thousand may be outside.
inline bool isSameCurve(const Difference& difference)
{
    return difference.outside * 1000 <= difference.lit;
}

inline void expectSameCurve(const SampleStore& samples, const StripView& view, const Setting& setting,
                            const std::string& what)
{
    const plain::Pixels shipped = litPixels(shippedPicture(samples, view, setting));
    const plain::Pixels reference = plainPicture(samples, view, setting);
    const Difference difference = differenceOf(shipped, reference);
    EXPECT_TRUE(isSameCurve(difference))
        << what << ": " << difference.outside << " of " << difference.lit << " pixels are outside";
}

inline void expectSameCurve(const ElementType& type, const Values& values, const Setting& setting,
                            const std::string& what)
{
    const SampleStore samples(type.make(values, type.middle, type.half));
    expectSameCurve(samples, viewOf(type, samples.count(), setting), setting, what);
}

/// All shapes at these numbers of samples.
inline void expectSameCurves(const ElementType& type, const std::vector<int>& counts, const Setting& setting)
{
    for (std::size_t i = 0; i < AllShapes.size(); ++i) {
        for (const int count : counts) {
            const std::string what = std::string(ShapeNames[i]) + "-" + std::to_string(count) + "-w" +
                                     std::to_string(setting.width) + "-r" +
                                     std::to_string(setting.pixelRatio) + "-t" +
                                     std::to_string(type.make(Values{0.0}, 0.0, 0.0).index()) + "-c" +
                                     std::to_string(setting.connected);
            expectSameCurve(type, valuesOf(AllShapes[i], count), setting, what);
        }
    }
}

/// From a few pixels a sample to a hundred samples a pixel, of which some fall between the columns evenly.
inline const std::vector<int> SomeCounts = {3, 50, 130, 200, 350, 413, 600, 826, 3000, 40001};
