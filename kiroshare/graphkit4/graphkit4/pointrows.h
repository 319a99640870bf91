#pragma once

#include "columnspans.h"
#include "stripgeometry.h"

/// Finds the rows of a column that samples stand on, at a bounded cost.
///
/// Of many samples some are looked at; then blocks of them from the greatest down, as long as they may hold a
/// row that is not yet lit or next to one that is.
class PointRows
{
public:
    PointRows(const SampleStore& samples, const StripGeometry& geometry);

    /// Adds the rows of the samples from `first` to before `end`, which stand in `column`.
    void add(int column, int first, int end, SpanList& lit);

private:
    enum State : char {
        Open,
        Lit,
        Beside, ///< next to one that is lit: need not be looked for
        Never   ///< no sample can stand there: whole numbers can be more than a row apart
    };
    struct Stretch
    {
        int first;
        int end;
    };

    void findRowsOfNumbers();
    int rowOf(double raw) const;
    void light(int row);
    void settle(int row);
    void lightEach(int first, int end);
    bool lightExtremes(int first, int end);
    void lookAhead(int first, int end);
    void search(int first, int end);
    bool isOpenBetween(int one, int other) const;

    const SampleStore& m_samples;
    const StripGeometry& m_geometry;
    std::vector<char> m_blank;
    std::vector<char> m_rows;
    std::vector<Stretch> m_queue;
    int m_least = 0; ///< rows that were lit lie between these
    int m_greatest = 0;
};
