#pragma once

#include "columnspans.h"
#include "stripgeometry.h"

#include <vector>

/// Finds the rows of a column that samples stand on, at a bounded cost.
///
/// Of few samples all are looked at. Of more the extremes of blocks are lit, and then those blocks are looked
/// at that may hold a row which is neither lit nor next to one that is, some at a time and spread over the
/// column, until they are all known or no more rows come to light.
class PointRows
{
public:
    PointRows(const SampleStore& samples, const StripGeometry& geometry);

    /// Adds the rows of the samples from `first` to before `end`, which stand in `column`.
    void add(int column, int first, int end, SpanList& lit);

private:
    /// Of a row; those of the rows just above and below the canvas, the first and the last one, mean nothing.
    enum State : char {
        Open,
        Lit,
        Never ///< no sample can stand there: whole numbers can be more than a row apart
    };
    /// A block whose extremes are so far apart that there may be an open row between them.
    struct WideBlock
    {
        int number;
        int top;
        int bottom;
    };

    void chooseSteps();
    void findEndsOfScale();
    void findRowsOfNumbers();
    int rowOf(double raw) const;
    bool lightEach(int first, int end);
    void findExtremes(int firstBlock, int count, int* tops, int* bottoms) const;
    void lightExtremes(int firstBlock, int count);
    void lightBlocks(int firstBlock, int endBlock);
    int findOpenRows();
    bool mayHoldOpenRow(const WideBlock& block) const;
    bool look();
    void search(int blocks);
    void give(int column, SpanList& lit) const;

    const SampleStore& m_samples;
    const StripGeometry& m_geometry;
    std::vector<char> m_blank;
    std::vector<char> m_rows;
    bool m_hasSteps = false;    ///< whether m_steps can be used, else rowOf() has to
    SampleStore::Steps m_steps; ///< rows
    int m_top = 0;              ///< rows of the column's extremes
    int m_bottom = 0;
    std::vector<int> m_openAbove;  ///< number of open rows above each row, from m_top to m_bottom
    std::vector<WideBlock> m_wide; ///< the first m_wideCount ones, of the column
    std::size_t m_wideCount = 0;
    std::vector<int> m_chosen; ///< blocks to be looked at
};
