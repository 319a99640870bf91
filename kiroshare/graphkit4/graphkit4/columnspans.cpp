#include "columnspans.h"

#include <algorithm>
#include <cmath>

void SpanList::add(ColumnSpan span)
{
    if (m_spans.empty() || m_spans.back().column != span.column) {
        m_columnStart = m_spans.size();
        m_spans.push_back(span);
        return;
    }
    if (m_spans.back().bottom < span.top - 1) {
        m_spans.push_back(span);
        return;
    }
    const auto columnStart = m_spans.begin() + std::ptrdiff_t(m_columnStart);
    const auto from = std::lower_bound(columnStart, m_spans.end(), span.top - 1,
                                       [](const ColumnSpan& other, int row) { return other.bottom < row; });
    auto to = from;
    for (; to != m_spans.end() && to->top <= span.bottom + 1; ++to) {
        span.top = std::min(span.top, to->top);
        span.bottom = std::max(span.bottom, to->bottom);
    }
    if (from == to) {
        m_spans.insert(from, span);
        return;
    }
    *from = span;
    m_spans.erase(from + 1, to);
}

bool SpanList::covers(const ColumnSpan& span) const
{
    if (m_spans.empty() || m_spans.back().column != span.column)
        return false;
    const auto columnStart = m_spans.begin() + std::ptrdiff_t(m_columnStart);
    const auto found = std::lower_bound(columnStart, m_spans.end(), span.bottom,
                                        [](const ColumnSpan& other, int row) { return other.bottom < row; });
    return found != m_spans.end() && found->top <= span.top;
}

RoundPen::RoundPen(double width)
    : m_width(int(std::lround(std::clamp(width, 1.0, 2048.0))))
{
}

std::vector<ColumnSpan> RoundPen::widened(const std::vector<ColumnSpan>& spans) const
{
    if (m_width == 1 || spans.empty())
        return spans;
    const double shift = this->shift();
    const double radius = m_width * 0.5;
    const int firstColumn = spans.front().column;
    const int lastColumn = spans.back().column;
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < spans.size(); ++i)
        starts.resize(std::size_t(spans[i].column - firstColumn) + 1, i);
    starts.push_back(spans.size());

    const int before = m_width / 2;
    const int behind = (m_width - 1) / 2;
    std::vector<int> up;
    std::vector<int> down;
    for (int offset = -before; offset <= behind; ++offset) {
        const double halfHeight = std::sqrt(radius * radius - (offset + shift) * (offset + shift));
        up.push_back(int(halfHeight + shift));
        down.push_back(int(halfHeight - shift));
    }
    SpanList wide;
    for (int column = firstColumn - before; column <= lastColumn + behind; ++column) {
        const int from = std::max(firstColumn, column - behind);
        const int to = std::min(lastColumn, column + before);
        for (int source = from; source <= to; ++source) {
            const auto disc = std::size_t(column - source + before);
            const auto place = std::size_t(source - firstColumn);
            for (std::size_t i = starts[place]; i < starts[place + 1]; ++i)
                wide.add({column, spans[i].top - up[disc], spans[i].bottom + down[disc]});
        }
    }
    return wide.spans();
}

namespace
{

/// So fine that half the width is a whole number of fine pixels, at the usual scales of a screen.
int finenessFor(double width)
{
    for (const int fineness : {2, 4}) {
        if (std::fmod(width * 0.5 * fineness, 1.0) == 0.0)
            return fineness;
    }
    return 8;
}

} // namespace

FinePen::FinePen(double width)
    : m_fineness(finenessFor(width))
    , m_radius(int(std::lround(std::clamp(width, 1.0, 2048.0) * 0.5 * m_fineness)))
{
}

std::vector<ColumnSpan> FinePen::widened(const std::vector<ColumnSpan>& fineSpans) const
{
    SpanList wide;
    if (fineSpans.empty())
        return wide.spans();
    // Of the fine columns on one side of a pixel's centre, from there outwards.
    std::vector<double> halfHeights;
    for (int i = 0; i < m_radius; ++i)
        halfHeights.push_back(std::sqrt(double(m_radius) * m_radius - (i + 0.5) * (i + 0.5)));
    const double fineness = m_fineness;
    const int firstColumn = int(std::floor((fineSpans.front().column - m_radius) / fineness));
    const int lastColumn = int(std::floor((fineSpans.back().column + m_radius) / fineness));
    std::size_t first = 0;
    for (int column = firstColumn; column <= lastColumn; ++column) {
        const int middle = column * m_fineness + m_fineness / 2;
        while (first < fineSpans.size() && fineSpans[first].column < middle - m_radius)
            ++first;
        for (std::size_t i = first; i < fineSpans.size() && fineSpans[i].column < middle + m_radius; ++i) {
            const ColumnSpan& fine = fineSpans[i];
            const int aside = fine.column < middle ? middle - 1 - fine.column : fine.column - middle;
            const double halfHeight = halfHeights[std::size_t(aside)];
            // Heights in pixels, from the centre of the uppermost row.
            const double top = (fine.top + 0.5 - halfHeight) / fineness - 0.5;
            const double bottom = (fine.bottom + 0.5 + halfHeight) / fineness - 0.5;
            const ColumnSpan span{column, int(std::ceil(top)), int(std::floor(bottom))};
            if (span.top <= span.bottom)
                wide.add(span);
        }
    }
    return wide.spans();
}

std::vector<ColumnSpan> united(const std::vector<ColumnSpan>& one, const std::vector<ColumnSpan>& other)
{
    SpanList list;
    std::size_t i = 0;
    for (const ColumnSpan& span : one) {
        for (; i < other.size() && other[i].column < span.column; ++i)
            list.add(other[i]);
        list.add(span);
    }
    for (; i < other.size(); ++i)
        list.add(other[i]);
    return list.spans();
}

namespace
{

/// Columns whose common rows are looked for; more of them have fewer in common.
constexpr std::size_t MostTogether = 16;

QRect rectOf(const ColumnSpan* first, std::size_t count, int top, int bottom)
{
    return {first->column, top, int(count), bottom - top + 1};
}

/// Adds what spans of neighbouring columns light of the rows from `top` to `bottom`: first the rows that all
/// have in common, then by quarters what is left above and below.
void addRects(const ColumnSpan* first, std::size_t count, int top, int bottom, std::vector<QRect>& rects)
{
    bool anyLit = false;
    int commonTop = top;
    int commonBottom = bottom;
    for (std::size_t i = 0; i < count; ++i) {
        anyLit = anyLit || (first[i].top <= bottom && first[i].bottom >= top);
        commonTop = std::max(commonTop, first[i].top);
        commonBottom = std::min(commonBottom, first[i].bottom);
    }
    if (!anyLit)
        return;
    if (commonTop <= commonBottom)
        rects.push_back(rectOf(first, count, commonTop, commonBottom));
    if (count == 1)
        return;
    const auto quarters = [&](int from, int to) {
        const std::size_t part = (count + 3) / 4;
        for (std::size_t i = 0; from <= to && i < count; i += part)
            addRects(first + i, std::min(part, count - i), from, to, rects);
    };
    if (commonTop > commonBottom) {
        quarters(top, bottom);
        return;
    }
    quarters(top, commonTop - 1);
    quarters(commonBottom + 1, bottom);
}

/// Whether a span is the only one of its column.
bool isAlone(const std::vector<ColumnSpan>& spans, std::size_t i)
{
    const bool another = (i > 0 && spans[i - 1].column == spans[i].column) ||
                         (i + 1 < spans.size() && spans[i + 1].column == spans[i].column);
    return !another;
}

} // namespace

std::vector<QRect> rectsOf(const std::vector<ColumnSpan>& spans)
{
    std::vector<QRect> rects;
    rects.reserve(spans.size());
    for (std::size_t i = 0; i < spans.size();) {
        const ColumnSpan* first = &spans[i];
        std::size_t count = 1;
        int top = first->top;
        int bottom = first->bottom;
        if (isAlone(spans, i)) {
            while (count < MostTogether && i + count < spans.size() && isAlone(spans, i + count) &&
                   first[count].column == first->column + int(count)) {
                top = std::min(top, first[count].top);
                bottom = std::max(bottom, first[count].bottom);
                ++count;
            }
        }
        addRects(first, count, top, bottom, rects);
        i += count;
    }
    return rects;
}
