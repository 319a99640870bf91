#pragma once

#include "columnspans.h"
#include "stripgeometry.h"

#include <cstdint>
#include <vector>

/// Finds the rows of a column that samples stand on, to within one: no sample is more than a row from a lit
/// one, and no lit row more than one from a sample.
///
/// Of few samples all are looked at. Of more the extremes of blocks are lit, and then those blocks are looked
/// at that may hold a row which is neither lit nor next to one that is, some at a time and spread over the
/// column. Most columns are full after a few blocks; else the cost is at most that of a look at every sample.
class PointRows
{
public:
    PointRows(const SampleStore& samples, const StripGeometry& geometry);

    /// Adds the rows of the samples from `first` to before `end`, which stand in `column`.
    void add(int column, int first, int end, SpanList& lit);

private:
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
    int spreadOut(int row) const;
    bool lightEach(int first, int end);
    void findExtremes(int firstBlock, int count, int* tops, int* bottoms) const;
    void lightExtremes(int firstBlock, int count);
    void lightBlocks(int firstBlock, int endBlock);
    std::uint64_t litRows(int word) const;
    bool findOpenRows();
    bool mayHoldOpenRow(const WideBlock& block) const;
    bool look();
    void search();
    void give(int column, SpanList& lit) const;

    const SampleStore& m_samples;
    const StripGeometry& m_geometry;
    /// With those just above and below the canvas, the first and the last one.
    int m_rowCount;
    std::vector<std::uint64_t> m_shown; ///< bits of the rows whose points can be seen
    /// Bits of the rows that samples can stand on: whole numbers can be more than a row apart.
    std::vector<std::uint64_t> m_possible;
    /// Bits of the rows that samples may stand on and that are lit neither themselves nor beside them.
    std::vector<std::uint64_t> m_openRows;
    std::vector<char> m_rows;   ///< 1 if lit
    bool m_hasSteps = false;    ///< whether m_steps can be used, else rowOf() has to
    SampleStore::Steps m_steps; ///< rows
    int m_top = 0;              ///< rows of the column's extremes
    int m_bottom = 0;
    std::vector<WideBlock> m_wide; ///< the first m_wideCount ones, of the column
    std::size_t m_wideCount = 0;
    std::vector<int> m_chosen; ///< blocks to be looked at
};
