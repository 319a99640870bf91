#include "pointrows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <type_traits>
#include <variant>

namespace
{

constexpr int Block = SampleStore::BlockSize;
/// Up to so many samples of a column are looked at one by one at once.
constexpr int FewSamples = 4 * Block;
/// Of more blocks in a column so many are looked at, spread over it.
constexpr int MostBlocks = 16 * SampleStore::LevelFactor;
/// Between rows that are lit and this much apart a row may be open.
constexpr int WideRows = 4;
/// Blocks whose samples are looked at together, and of a column altogether.
constexpr std::size_t LooksTogether = 4;
constexpr int MostLooks = 32;
/// So many looks in vain are the last of a column; the more blocks, the smaller the part that one is of it.
constexpr int FewestLooksInVain = 4;
constexpr int LooksInVainTimesBlocks = 1024;
/// Part of a row by which values are moved down, so that those on the border of two, where calibrated ones
/// often are, come to lie in the same row as by rowOf().
constexpr double Nudge = 1.0 / 1024;
/// Halvings of a row by which the ends of the scale are found.
constexpr int EndSteps = 16;
/// Greater whole numbers are not told apart as doubles.
constexpr double GreatestExact = 4503599627370496.0;

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
    , m_blank(std::size_t(geometry.canvas().height()) + 2, Open)
    , m_openAbove(m_blank.size())
    , m_wide(MostBlocks)
{
    chooseSteps();
    if (areWholeNumbers(samples))
        findRowsOfNumbers();
    m_rows = m_blank;
}

void PointRows::chooseSteps()
{
    const QRect& canvas = m_geometry.canvas();
    if (!(m_geometry.rowsPerUnit() > 0.0))
        return;
    const double above = m_geometry.rawAt(canvas.top() - 1.0 - Nudge);
    const double below = m_geometry.rawAt(canvas.bottom() + 1.0);
    m_hasSteps = std::isfinite(above) && above != below;
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
    for (int row = 1; row < int(m_blank.size()); ++row) {
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
    std::fill(m_blank.begin(), m_blank.end(), Never);
    for (double raw = least; raw <= greatest; raw += 1.0)
        m_blank[std::size_t(rowOf(raw))] = Open;
}

int PointRows::rowOf(double raw) const
{
    const QRect& canvas = m_geometry.canvas();
    return int(std::floor(std::clamp(m_geometry.y(raw), canvas.top() - 1.0, canvas.bottom() + 1.0))) -
           canvas.top() + 1;
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
        isNew |= row != Lit;
        row = Lit;
    }
    return isNew;
}

/// Of up to MostBlocks blocks.
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

/// Of up to MostBlocks blocks; adds the wide ones to those that are known.
void PointRows::lightExtremes(int firstBlock, int count)
{
    const std::size_t known = m_wideCount;
    std::array<int, MostBlocks> tops;
    std::array<int, MostBlocks> bottoms;
    findExtremes(firstBlock, count, tops.data(), bottoms.data());
    std::array<int, MostBlocks + 1> wide;
    std::size_t wideCount = 0;
    char* rows = m_rows.data();
    for (int i = 0; i < count; ++i) {
        const int top = tops[std::size_t(i)];
        const int bottom = bottoms[std::size_t(i)];
        rows[top] = Lit;
        rows[bottom] = Lit;
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
    constexpr int Group = SampleStore::LevelFactor;
    constexpr int Groups = MostBlocks / Group;
    m_wideCount = 0;
    const int count = endBlock - firstBlock;
    if (count <= MostBlocks) {
        lightExtremes(firstBlock, count);
        return;
    }
    for (int i = 0; i < Groups; ++i) {
        const int from = firstBlock + int(std::int64_t(count - Group) * i / (Groups - 1));
        lightExtremes(std::max(from - from % Group, firstBlock), Group);
    }
}

/// Sets m_openAbove and returns the number of all open rows.
int PointRows::findOpenRows()
{
    int open = 0;
    const char* rows = m_rows.data();
    m_openAbove[std::size_t(m_top)] = 0;
    for (int row = m_top + 1; row <= m_bottom; ++row) {
        m_openAbove[std::size_t(row)] = open;
        open += (rows[row] == Open) & (rows[row - 1] != Lit) & (rows[row + 1] != Lit);
    }
    return open;
}

bool PointRows::mayHoldOpenRow(const WideBlock& block) const
{
    return m_openAbove[std::size_t(block.bottom)] != m_openAbove[std::size_t(block.top)];
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

void PointRows::search(int blocks)
{
    if (m_wideCount == 0 || findOpenRows() == 0)
        return;
    const int mostInVain = std::max(LooksInVainTimesBlocks / blocks, FewestLooksInVain);
    int looks = 0;
    int inVain = 0;
    const std::size_t step = (m_wideCount + LooksTogether - 1) / LooksTogether;
    for (std::size_t first = 0; first < step; ++first) {
        m_chosen.clear();
        for (std::size_t i = first; i < m_wideCount; i += step) {
            if (mayHoldOpenRow(m_wide[i]))
                m_chosen.push_back(m_wide[i].number);
        }
        looks += int(m_chosen.size());
        inVain += int(m_chosen.size());
        if (look()) {
            inVain = 0;
            if (findOpenRows() == 0)
                return;
        }
        if (looks >= MostLooks || inVain >= mostInVain)
            return;
    }
}

void PointRows::give(int column, SpanList& lit) const
{
    const int top = m_geometry.canvas().top() - 1;
    const int last = std::min(m_bottom, int(m_rows.size()) - 2);
    for (int row = std::max(m_top, 1); row <= last; ++row) {
        if (m_rows[std::size_t(row)] != Lit)
            continue;
        const int from = row;
        while (row < last && m_rows[std::size_t(row) + 1] == Lit)
            ++row;
        lit.add({column, top + from, top + row});
    }
}

void PointRows::add(int column, int first, int end, SpanList& lit)
{
    Extremes extremes;
    if (!m_samples.extremes(first, end - first, extremes))
        return;
    const int one = rowOf(extremes.least);
    const int other = rowOf(extremes.greatest);
    m_top = m_steps.least = m_steps.none = std::min(one, other);
    m_bottom = m_steps.greatest = std::max(one, other);
    // Else no sample of the column lies beyond the rows of its extremes.
    m_steps.areMoved = m_top < int(m_steps.top) || m_bottom >= int(m_steps.bottom);
    m_rows[std::size_t(m_top)] = m_rows[std::size_t(m_bottom)] = Lit;
    if (m_bottom - m_top > 1) {
        if (end - first <= FewSamples) {
            lightEach(first, end);
        } else {
            const int firstBlock = (first + Block - 1) / Block;
            const int endBlock = end / Block;
            lightEach(first, firstBlock * Block);
            lightEach(endBlock * Block, end);
            lightBlocks(firstBlock, endBlock);
            search(endBlock - firstBlock);
        }
    }
    give(column, lit);
    std::copy(m_blank.begin() + m_top, m_blank.begin() + m_bottom + 1, m_rows.begin() + m_top);
}
