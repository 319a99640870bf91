#include "saccsummary.h"

#include "kirosaccheader.h"
#include "numbertext.h"
#include "texttable.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{

/// Where the classes of the absolute amplitude end, in degrees; the last has no end.
constexpr double ClassEnds[] = {1.0, 2.0, 5.0, 10.0, 15.0, 20.0, 30.0};
constexpr std::size_t ClassCount = std::size(ClassEnds) + 1;

/// Sums over the saccades of one class.
struct SizeClass
{
    int count = 0;
    double amplitude = 0.0;
    double peakVelocity = 0.0;
    double samples = 0.0;
};

std::size_t classOf(double amplitude)
{
    const auto end = std::upper_bound(std::begin(ClassEnds), std::end(ClassEnds), amplitude);
    return static_cast<std::size_t>(end - std::begin(ClassEnds));
}

std::string className(std::size_t index)
{
    const std::string begin = index == 0 ? "0" : generalText(ClassEnds[index - 1], 3);
    return index < std::size(ClassEnds) ? begin + " - " + generalText(ClassEnds[index], 3) : begin + " -";
}

std::vector<std::string> rowOf(std::size_t index, const SizeClass& sizes, double frequency)
{
    constexpr double MsPerSecond = 1000.0;
    const double mean = 1.0 / sizes.count;
    return {className(index), std::to_string(sizes.count), fixedText(sizes.amplitude * mean, 2),
            fixedText(sizes.peakVelocity * mean, 0),
            fixedText(sizes.samples * mean * MsPerSecond / frequency, 1)};
}

} // namespace

std::string saccSummary(const KiroSaccHeader& header)
{
    SizeClass classes[ClassCount];
    int withoutSize = 0;
    for (const KiroSaccade& saccade : header.saccades) {
        const double amplitude = std::abs(saccade.main.amplitude);
        if (std::isnan(amplitude)) {
            ++withoutSize;
            continue;
        }
        SizeClass& sizes = classes[classOf(amplitude)];
        ++sizes.count;
        sizes.amplitude += amplitude;
        sizes.peakVelocity += saccade.main.peakVelocity;
        sizes.samples += saccade.main.duration;
    }
    using Align = TextTable::Align;
    TextTable table{Align::Left, Align::Right, Align::Right, Align::Right, Align::Right};
    table.addRow({"Amplitude [deg]", "Saccades", "Mean [deg]", "Peak velocity [deg/s]", "Duration [ms]"});
    for (std::size_t i = 0; i < ClassCount; ++i) {
        if (classes[i].count > 0)
            table.addRow(rowOf(i, classes[i], header.frequency()));
    }
    std::string text = "Saccades: " + std::to_string(header.saccades.size()) +
                       "\nBlinks:   " + std::to_string(header.blinks.size()) + "\n";
    if (!header.saccades.empty())
        text += "\nMain sequence (means):\n" + table.text(2);
    if (withoutSize > 0)
        text += "\nWithout an amplitude: " + std::to_string(withoutSize) + "\n";
    return text;
}
