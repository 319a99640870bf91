#pragma once

#include <QRect>

#include <vector>

/// Rows of one column that are lit, both ends included.
struct ColumnSpan
{
    int column = 0;
    int top = 0;
    int bottom = 0;
};

/// Spans by column, within a column from top to bottom; those that overlap or touch are one.
class SpanList
{
public:
    /// The column is that of the last one added or lies behind it.
    void add(ColumnSpan span);
    const std::vector<ColumnSpan>& spans() const { return m_spans; }
    /// Whether all these rows of the column that was added to last are lit by one span.
    bool covers(const ColumnSpan& span) const;

private:
    std::vector<ColumnSpan> m_spans;
    std::size_t m_columnStart = 0; ///< first span of the last column
};

/// What lights the pixels of a pen: lines of a pixel's width become as wide as the pen, with round joins and
/// caps, and points become discs, all of the same look.
///
/// Its cost is that of the width times the spans, and does not grow with the number of turns as stroking
/// does.
class RoundPen
{
public:
    /// `width` in pixels; taken as a whole number of them, from 1 to 2048.
    explicit RoundPen(double width);

    /// What a place is moved by, right and down, to the pixel that stands for it: none if the middle of the
    /// pen is that of a pixel, else, where it is a corner, half a pixel, to that below and right of the
    /// corner.
    double shift() const { return m_width % 2 == 0 ? 0.5 : 0.0; }

    /// So many columns and rows around a pixel it may light.
    int reach() const { return m_width / 2; }
    std::vector<ColumnSpan> widened(const std::vector<ColumnSpan>& spans) const;

private:
    int m_width;
};

/// As RoundPen, for lines on a grid of finer pixels: where lines are steep a part of a pixel across is many
/// rows. Lights the pixels whose centres are within half the width from the line.
class FinePen
{
public:
    /// `width` in pixels, from 1 to 2048; taken as a whole number of quarters.
    explicit FinePen(double width);

    /// Fine pixels in one, across and down.
    int fineness() const { return m_fineness; }
    /// So many fine columns and rows around a fine pixel it may light.
    int reach() const { return m_radius + m_fineness; }
    /// The pixels that fine pixels light.
    std::vector<ColumnSpan> widened(const std::vector<ColumnSpan>& fineSpans) const;

private:
    int m_fineness;
    int m_radius; ///< fine pixels
};

/// What either of two lists lights.
std::vector<ColumnSpan> united(const std::vector<ColumnSpan>& one, const std::vector<ColumnSpan>& other);

/// The spans as rectangles that do not overlap, few and wide ones where neighbouring columns have rows in
/// common: the painter fills a wide rectangle much faster than as many narrow ones.
std::vector<QRect> rectsOf(const std::vector<ColumnSpan>& spans);
