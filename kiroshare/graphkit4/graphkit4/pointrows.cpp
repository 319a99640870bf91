#include "pointrows.h"

#include <QtAlgorithms>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>
#include <variant>

namespace
{

constexpr int Block = SampleStore::BlockSize;
/// Up to so many samples of a column are looked at one by one at once.
constexpr int FewSamples = 4 * Block;
/// Blocks whose extremes are looked up together.
constexpr int ExtremesTogether = 16 * SampleStore::LevelFactor;
/// Between rows that are lit and this much apart a row may be open.
constexpr int WideRows = 4;
/// Blocks whose samples are looked at together.
constexpr std::size_t LooksTogether = 4;
/// Part of a row by which values are moved down, so that those on the border of two, where calibrated ones
/// often are, come to lie in the same row as by rowOf().
constexpr double Nudge = 1.0 / 1024;
/// Halvings of a row by which the ends of the scale are found.
constexpr int EndSteps = 16;
/// Greater whole numbers are not told apart as doubles.
constexpr double GreatestExact = 4503599627370496.0;

/// Of one word.
constexpr int WordRows = 64;
/// The rows of the canvas' edges, too, are out of sight.
constexpr int FirstShown = 2;
/// Part of a row by which the origin of steps may be off: numbers that are rows apart have none between them.
constexpr double RowsOfRounding = 0.25;

/// A bit of each of WordRows chars that are 0 or 1, the first one's the lowest.
std::uint64_t bitsOf(const char* chars)
{
    std::uint64_t bits = 0;
    for (int i = 0; i < WordRows; i += 8) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, chars + i, sizeof(eight));
        // Brings the lowest bit of each byte to the highest byte, in their order.
        bits |= ((eight * 0x0102040810204080) >> 56) << i;
    }
    return bits;
}

void addRow(int row, std::vector<std::uint64_t>& words)
{
    words[std::size_t(row / WordRows)] |= std::uint64_t(1) << (row % WordRows);
}

/// The bits of a word from that of `row` on, and up to it.
std::uint64_t fromRow(int row)
{
    return ~std::uint64_t(0) << (row % WordRows);
}

std::uint64_t toRow(int row)
{
    return ~std::uint64_t(0) >> (WordRows - 1 - row % WordRows);
}

bool areWholeNumbers(const SampleStore& samples)
{
    return std::visit(
        [](const auto& vector) {
            return std::is_integral_v<typename std::decay_t<decltype(vector)>::value_type>;
        },
        samples.samples());
}

} // namespace

PointRows::PointRows(const SampleStore& samples, const StripGeometry& geometry)
    : m_samples(samples)
    , m_geometry(geometry)
    , m_rowCount(geometry.canvas().height() + 2)
    , m_shown(std::size_t((m_rowCount + WordRows - 1) / WordRows))
    , m_openRows(m_shown.size())
    , m_rows(m_shown.size() * WordRows)
{
    for (int row = FirstShown; row <= m_rowCount - 1 - FirstShown; ++row)
        addRow(row, m_shown);
    m_possible = m_shown;
    chooseSteps();
    if (areWholeNumbers(samples))
        findRowsOfNumbers();
}

void PointRows::chooseSteps()
{
    const QRect& canvas = m_geometry.canvas();
    if (!(m_geometry.rowsPerUnit() > 0.0))
        return;
    const double above = m_geometry.rawAt(canvas.top() - 1.0 - Nudge);
    const double below = m_geometry.rawAt(canvas.bottom() + 1.0);
    const double rounding =
        std::max(std::abs(above), std::abs(below)) * std::numeric_limits<double>::epsilon();
    m_hasSteps =
        std::isfinite(above) && above != below && rounding * m_geometry.rowsPerUnit() < RowsOfRounding;
    m_steps.origin = above;
    m_steps.perUnit = below > above ? m_geometry.rowsPerUnit() : -m_geometry.rowsPerUnit();
    findEndsOfScale();
}

/// What lies within the scale is shown also where the scale ends beside the rows that are visible; finds what
/// is moved into them for that.
void PointRows::findEndsOfScale()
{
    const double zero = m_geometry.canvas().top() - 1.0;
    const auto moved = [&](double place) { return m_geometry.y(m_geometry.rawAt(zero + place)) - zero; };
    // Where, between a place that is moved over a border of rows and one that is not, that ends.
    const auto endOf = [&](double isMoved, double isNot, double border) {
        for (int i = 0; i < EndSteps; ++i) {
            const double middle = (isMoved + isNot) * 0.5;
            const bool crosses = (moved(middle) < border) != (middle < border);
            (crosses ? isMoved : isNot) = middle;
        }
        return isMoved;
    };
    for (int row = 1; row < m_rowCount; ++row) {
        const double above = row - Nudge * 0.5;
        const double below = row + Nudge * 0.5;
        if (moved(above) >= row) {
            m_steps.movedDown = endOf(above, row - 1.0, row) + Nudge;
            m_steps.top = row + Nudge;
        }
        if (moved(below) < row) {
            m_steps.bottom = row;
            m_steps.movedUp = endOf(below, row + 1.0, row) + Nudge;
        }
    }
}

void PointRows::findRowsOfNumbers()
{
    if (!(m_geometry.rowsPerUnit() > 1.0))
        return;
    const QRect& canvas = m_geometry.canvas();
    const double one = m_geometry.rawAt(canvas.top());
    const double other = m_geometry.rawAt(canvas.bottom() + 1);
    const double least = std::floor(std::min(one, other));
    const double greatest = std::ceil(std::max(one, other));
    if (!(least > -GreatestExact) || !(greatest < GreatestExact))
        return;
    std::fill(m_possible.begin(), m_possible.end(), 0);
    for (double raw = least; raw <= greatest; raw += 1.0)
        addRow(rowOf(raw), m_possible);
    for (std::size_t word = 0; word < m_possible.size(); ++word)
        m_possible[word] &= m_shown[word];
}

int PointRows::rowOf(double raw) const
{
    const QRect& canvas = m_geometry.canvas();
    return int(std::floor(std::clamp(m_geometry.y(raw), canvas.top() - 1.0, canvas.bottom() + 1.0))) -
           canvas.top() + 1;
}

/// Rows out of sight are taken as the outermost ones, which are so far from those in sight that blocks which
/// reach beyond these are wide enough to be looked at.
int PointRows::spreadOut(int row) const
{
    if (row < FirstShown)
        return 0;
    return row < m_rowCount - FirstShown ? row : m_rowCount - 1;
}

/// Of up to FewSamples samples. Returns whether any of the rows was not lit.
bool PointRows::lightEach(int first, int end)
{
    std::array<int, FewSamples> found;
    if (m_hasSteps) {
        m_samples.findSteps(first, end - first, m_steps, found.data());
    } else {
        for (int i = first; i < end; ++i) {
            const double raw = m_samples.value(i);
            found[std::size_t(i - first)] = std::isfinite(raw) ? rowOf(raw) : m_top;
        }
    }
    char* rows = m_rows.data();
    bool isNew = false;
    for (std::size_t i = 0; i < std::size_t(end - first); ++i) {
        char& row = rows[found[i]];
        isNew |= row == 0;
        row = 1;
    }
    return isNew;
}

/// Of up to ExtremesTogether blocks.
void PointRows::findExtremes(int firstBlock, int count, int* tops, int* bottoms) const
{
    if (m_hasSteps) {
        const bool isRising = m_steps.perUnit > 0.0;
        m_samples.findBlockSteps(firstBlock, count, m_steps, isRising ? tops : bottoms,
                                 isRising ? bottoms : tops);
        return;
    }
    for (int i = 0; i < count; ++i) {
        tops[i] = bottoms[i] = m_top;
        Extremes extremes;
        if (m_samples.extremes((firstBlock + i) * Block, Block, extremes)) {
            const int one = rowOf(extremes.least);
            const int other = rowOf(extremes.greatest);
            tops[i] = std::min(one, other);
            bottoms[i] = std::max(one, other);
        }
    }
}

/// Of up to ExtremesTogether blocks; adds the wide ones to those that are known.
void PointRows::lightExtremes(int firstBlock, int count)
{
    const std::size_t known = m_wideCount;
    std::array<int, ExtremesTogether> tops;
    std::array<int, ExtremesTogether> bottoms;
    findExtremes(firstBlock, count, tops.data(), bottoms.data());
    std::array<int, ExtremesTogether + 1> wide;
    std::size_t wideCount = 0;
    char* rows = m_rows.data();
    for (int i = 0; i < count; ++i) {
        const int top = tops[std::size_t(i)] = spreadOut(tops[std::size_t(i)]);
        const int bottom = bottoms[std::size_t(i)] = spreadOut(bottoms[std::size_t(i)]);
        rows[top] = 1;
        rows[bottom] = 1;
        wide[wideCount] = i;
        wideCount += bottom - top >= WideRows ? 1 : 0;
    }
    for (std::size_t k = 0; k < wideCount; ++k) {
        const int i = wide[k];
        m_wide[known + k] = {firstBlock + i, tops[std::size_t(i)], bottoms[std::size_t(i)]};
    }
    m_wideCount = known + wideCount;
}

void PointRows::lightBlocks(int firstBlock, int endBlock)
{
    m_wideCount = 0;
    m_wide.resize(std::max(m_wide.size(), std::size_t(endBlock - firstBlock)));
    for (int block = firstBlock; block < endBlock; block += ExtremesTogether)
        lightExtremes(block, std::min(ExtremesTogether, endBlock - block));
}

/// As bits.
std::uint64_t PointRows::litRows(int word) const
{
    return bitsOf(m_rows.data() + word * WordRows) & m_shown[std::size_t(word)];
}

/// Sets m_openRows; returns whether there are any.
bool PointRows::findOpenRows()
{
    const int first = m_top / WordRows;
    const int last = m_bottom / WordRows;
    std::uint64_t any = 0;
    std::uint64_t above = 0;
    std::uint64_t here = litRows(first);
    for (int word = first; word <= last; ++word) {
        const std::uint64_t below = word < last ? litRows(word + 1) : 0;
        const std::uint64_t near =
            here | here << 1 | above >> (WordRows - 1) | here >> 1 | below << (WordRows - 1);
        m_openRows[std::size_t(word)] = m_possible[std::size_t(word)] & ~near;
        above = here;
        here = below;
    }
    m_openRows[std::size_t(first)] &= fromRow(m_top);
    m_openRows[std::size_t(last)] &= toRow(m_bottom);
    for (int word = first; word <= last; ++word)
        any |= m_openRows[std::size_t(word)];
    return any != 0;
}

bool PointRows::mayHoldOpenRow(const WideBlock& block) const
{
    const int first = block.top / WordRows;
    const int last = block.bottom / WordRows;
    const std::uint64_t* words = m_openRows.data();
    if (first == last)
        return (words[first] & fromRow(block.top) & toRow(block.bottom)) != 0;
    std::uint64_t found = (words[first] & fromRow(block.top)) | (words[last] & toRow(block.bottom));
    for (int word = first + 1; word < last; ++word)
        found |= words[word];
    return found != 0;
}

/// Looks at the chosen blocks; returns whether any of their rows was not lit.
bool PointRows::look()
{
    for (const int block : m_chosen)
        m_samples.prefetchBlock(block);
    bool isNew = false;
    for (const int block : m_chosen)
        isNew |= lightEach(block * Block, (block + 1) * Block);
    return isNew;
}

void PointRows::search()
{
    if (m_wideCount == 0 || !findOpenRows())
        return;
    const std::size_t step = (m_wideCount + LooksTogether - 1) / LooksTogether;
    for (std::size_t first = 0; first < step; ++first) {
        m_chosen.clear();
        for (std::size_t i = first; i < m_wideCount; i += step) {
            if (mayHoldOpenRow(m_wide[i]))
                m_chosen.push_back(m_wide[i].number);
        }
        if (look() && !findOpenRows())
            return;
    }
}

void PointRows::give(int column, SpanList& lit) const
{
    constexpr int None = -1;
    const int top = m_geometry.canvas().top() - 1;
    int first = None; // of the run of lit rows that is not yet ended
    for (int word = m_top / WordRows; word <= m_bottom / WordRows; ++word) {
        const std::uint64_t bits = litRows(word);
        int place = 0;
        while (place < WordRows) {
            const std::uint64_t rest = (first == None ? bits : ~bits) >> place;
            if (rest == 0)
                break;
            place += int(qCountTrailingZeroBits(quint64(rest)));
            const int row = word * WordRows + place;
            if (first != None)
                lit.add({column, top + first, top + row - 1});
            first = first == None ? row : None;
        }
    }
    if (first != None)
        lit.add({column, top + first, top + m_bottom});
}

void PointRows::add(int column, int first, int end, SpanList& lit)
{
    Extremes extremes;
    if (!m_samples.extremes(first, end - first, extremes))
        return;
    const int one = spreadOut(rowOf(extremes.least));
    const int other = spreadOut(rowOf(extremes.greatest));
    m_top = m_steps.least = m_steps.none = std::min(one, other);
    m_bottom = m_steps.greatest = std::max(one, other);
    // Else no sample of the column lies beyond the rows of its extremes.
    m_steps.areMoved = m_top < int(m_steps.top) || m_bottom >= int(m_steps.bottom);
    m_rows[std::size_t(m_top)] = m_rows[std::size_t(m_bottom)] = 1;
    if (m_bottom - m_top > 1) {
        if (end - first <= FewSamples) {
            lightEach(first, end);
        } else {
            const int firstBlock = (first + Block - 1) / Block;
            const int endBlock = end / Block;
            lightEach(first, firstBlock * Block);
            lightEach(endBlock * Block, end);
            lightBlocks(firstBlock, endBlock);
            search();
        }
    }
    give(column, lit);
    std::fill(m_rows.begin() + m_top, m_rows.begin() + m_bottom + 1, 0);
}
