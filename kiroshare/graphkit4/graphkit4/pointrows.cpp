#include "pointrows.h"

#include "sampleblocks.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>
#include <variant>

namespace
{

/// Up to so many samples of a column are looked at one by one at once.
constexpr int FewSamples = 4 * SampleStore::BlockSize;
/// Of more, so many blocks first.
constexpr int BlocksAhead = 16;
/// What may be spent on a column then; the extremes of a block cost 1, its samples so much:
constexpr int Budget = 128;
constexpr int CostOfSamples = 4;
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
    , m_blank(std::size_t(geometry.canvas().height()), Open)
{
    if (areWholeNumbers(samples))
        findRowsOfNumbers();
    m_rows = m_blank;
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
    for (double raw = least; raw <= greatest; raw += 1.0) {
        const int row = rowOf(raw);
        if (row >= 0 && row < int(m_blank.size()))
            m_blank[std::size_t(row)] = Open;
    }
}

int PointRows::rowOf(double raw) const
{
    const QRect& canvas = m_geometry.canvas();
    return int(std::floor(std::clamp(m_geometry.y(raw), canvas.top() - 1.0, canvas.bottom() + 1.0))) -
           canvas.top();
}

void PointRows::light(int row)
{
    if (row < 0 || row >= int(m_rows.size()) || m_rows[std::size_t(row)] == Lit)
        return;
    m_rows[std::size_t(row)] = Lit;
    settle(row - 1);
    settle(row + 1);
    m_least = std::min(m_least, row);
    m_greatest = std::max(m_greatest, row);
}

void PointRows::settle(int row)
{
    if (row >= 0 && row < int(m_rows.size()) && m_rows[std::size_t(row)] == Open)
        m_rows[std::size_t(row)] = Beside;
}

void PointRows::lightEach(int first, int end)
{
    std::visit(
        [&](const auto& vector) {
            for (int i = first; i < end; ++i) {
                const auto raw = double(vector.constData()[i]);
                if (std::isfinite(raw))
                    light(rowOf(raw));
            }
        },
        m_samples.samples());
}

bool PointRows::isOpenBetween(int one, int other) const
{
    const int from = std::max(std::min(one, other) + 1, 0);
    const int to = std::min(std::max(one, other), int(m_rows.size()));
    return from < to && std::memchr(m_rows.data() + from, Open, std::size_t(to - from)) != nullptr;
}

bool PointRows::lightExtremes(int first, int end)
{
    Extremes extremes;
    if (!m_samples.extremes(first, end - first, extremes))
        return false;
    const int one = rowOf(extremes.least);
    const int other = rowOf(extremes.greatest);
    light(one);
    light(other);
    return isOpenBetween(one, other);
}

/// Lights the extremes of blocks here and there, which mostly are near all others.
void PointRows::lookAhead(int first, int end)
{
    constexpr int Block = SampleStore::BlockSize;
    const int step = std::max((end - first) / BlocksAhead, Block);
    for (int from = first; from + Block <= end; from += step) {
        const int aligned = from - from % Block;
        if (aligned >= first)
            lightExtremes(aligned, aligned + Block);
    }
}

void PointRows::search(int first, int end)
{
    lookAhead(first, end);
    int budget = Budget;
    m_queue.assign(1, {first, end});
    for (std::size_t next = 0; next < m_queue.size() && budget > 0; ++next, --budget) {
        const Stretch stretch = m_queue[next];
        if (!lightExtremes(stretch.first, stretch.end))
            continue;
        if (stretch.end - stretch.first > SampleStore::BlockSize) {
            forEachBlock(stretch.first, stretch.end, [this](int from, int to) {
                m_queue.push_back({from, to});
            });
        } else {
            lightEach(stretch.first, stretch.end);
            budget -= CostOfSamples;
        }
    }
}

void PointRows::add(int column, int first, int end, SpanList& lit)
{
    m_least = int(m_rows.size());
    m_greatest = -1;
    if (end - first <= FewSamples)
        lightEach(first, end);
    else
        search(first, end);
    if (m_greatest < m_least)
        return;
    const int top = m_geometry.canvas().top();
    for (int row = m_least; row <= m_greatest; ++row) {
        if (m_rows[std::size_t(row)] != Lit)
            continue;
        const int from = row;
        while (row < m_greatest && m_rows[std::size_t(row) + 1] == Lit)
            ++row;
        lit.add({column, top + from, top + row});
    }
    const auto from = std::max(m_least - 1, 0);
    const auto to = std::min(m_greatest + 2, int(m_rows.size()));
    std::copy(m_blank.begin() + from, m_blank.begin() + to, m_rows.begin() + from);
}
