#include "runningmedian.h"

#include "rankset.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace
{

/// Short windows share pieces of at least this length, which spares the work of starting each.
constexpr std::size_t ShortestPiece = 256;

/// Medians of samples without a NaN.
///
/// The samples are cut in pieces not shorter than the window. A window that begins in one piece ends in the
/// same or in the next, so the ranks of the samples among these two pieces order all such windows. The
/// ranks of a window's samples are kept in a set; with one sample in and one out, the median moves by one
/// member at most.
class PiecewiseMedian
{
public:
    PiecewiseMedian(const double* input, std::size_t count, std::size_t window)
        : m_input(input)
        , m_count(count)
        , m_window(window)
        , m_length(std::min(std::max(window, ShortestPiece), count))
        , m_ranks(2 * m_length)
        , m_values(2 * m_length)
        , m_inWindow(2 * m_length)
    {
        m_piece.reserve(m_length);
        m_next.reserve(m_length);
    }

    void run(double* medians)
    {
        const std::size_t windows = m_count - m_window + 1;
        sortPiece(0, m_piece);
        for (std::size_t begin = 0; begin < windows; begin += m_length) {
            sortPiece(begin + m_length, m_next);
            rankPieces();
            slide(std::min(m_length, windows - begin), medians + begin);
            std::swap(m_piece, m_next);
        }
    }

private:
    struct Sample
    {
        double value;
        std::uint32_t position; ///< in its piece
    };

    void sortPiece(std::size_t begin, std::vector<Sample>& piece) const
    {
        piece.clear();
        for (std::size_t i = begin; i < std::min(m_count, begin + m_length); ++i)
            piece.push_back({m_input[i], static_cast<std::uint32_t>(i - begin)});
        std::sort(piece.begin(), piece.end(), [](const Sample& left, const Sample& right) {
            return left.value < right.value || (left.value == right.value && left.position < right.position);
        });
    }

    /// Merges the two pieces: the rank of each sample, and the value at each rank.
    void rankPieces()
    {
        auto sample = m_piece.begin();
        auto later = m_next.begin();
        const std::size_t count = m_piece.size() + m_next.size();
        for (std::size_t rank = 0; rank < count; ++rank) {
            const bool takeLater =
                sample == m_piece.end() || (later != m_next.end() && later->value < sample->value);
            const Sample taken = takeLater ? *later++ : *sample++;
            m_values[rank] = taken.value;
            m_ranks[taken.position + (takeLater ? m_length : 0)] = static_cast<std::uint32_t>(rank);
        }
    }

    /// The medians of the first `windows` windows that begin in the first piece.
    void slide(std::size_t windows, double* medians)
    {
        m_inWindow.clear();
        for (std::size_t i = 0; i < m_window; ++i)
            m_inWindow.insert(m_ranks[i]);
        std::uint32_t median = m_inWindow.at(m_window / 2);
        medians[0] = m_values[median];
        for (std::size_t i = 1; i < windows; ++i) {
            const std::uint32_t leaving = m_ranks[i - 1];
            const std::uint32_t entering = m_ranks[i + m_window - 1];
            m_inWindow.insert(entering);
            m_inWindow.erase(leaving);
            if (entering > median && leaving <= median)
                median = m_inWindow.after(median);
            else if (entering < median && leaving >= median)
                median = m_inWindow.before(median);
            medians[i] = m_values[median];
        }
    }

    const double* m_input;
    std::size_t m_count;
    std::size_t m_window;
    std::size_t m_length; ///< of a piece; the last may be shorter
    std::vector<Sample> m_piece;
    std::vector<Sample> m_next;
    std::vector<std::uint32_t> m_ranks; ///< by position, those of the next piece behind m_length
    std::vector<double> m_values;       ///< by rank
    RankSet m_inWindow;
};

/// Medians by the rule of insertion itself, which a NaN calls for: it has no place in an order by value.
void slideByInsertion(const double* input, std::size_t count, std::size_t window, double* medians)
{
    struct Sample
    {
        double value;
        std::size_t position;
    };
    std::vector<Sample> sorted;
    sorted.reserve(std::min(count, window + 1));
    for (std::size_t i = 0; i < count; ++i) {
        const double value = input[i];
        const auto isGreater = [value](const Sample& sample) { return sample.value > value; };
        sorted.insert(std::find_if(sorted.begin(), sorted.end(), isGreater), {value, i});
        // Only now the oldest goes: where the new one stands among NaNs may depend on it.
        if (i >= window) {
            const auto isOldest = [=](const Sample& sample) { return sample.position == i - window; };
            sorted.erase(std::find_if(sorted.begin(), sorted.end(), isOldest));
        }
        if (i + 1 >= window)
            medians[i + 1 - window] = sorted[window / 2].value;
    }
}

/// Position of the first NaN from `begin` on, or `count`.
std::size_t findNan(const double* input, std::size_t begin, std::size_t count)
{
    const auto isNan = [](double value) { return std::isnan(value); };
    return static_cast<std::size_t>(std::find_if(input + begin, input + count, isNan) - input);
}

/// The last of a row of NaNs that begins at `nan` and in which some window holds each two neighbours.
std::size_t lastNanInReach(const double* input, std::size_t nan, std::size_t count, std::size_t window)
{
    std::size_t last = nan;
    for (std::size_t i = nan + 1; i < count && i - last < window; ++i) {
        if (std::isnan(input[i]))
            last = i;
    }
    return last;
}

} // namespace

void slideMedian(const double* input, std::size_t count, std::size_t window, double* medians)
{
    std::size_t begin = 0;
    while (begin < count) {
        const std::size_t nan = findNan(input, begin, count);
        if (nan - begin >= window)
            PiecewiseMedian(input + begin, nan - begin, window).run(medians + begin);
        if (nan == count)
            return;
        // Without a NaN the samples of a window are in order of value and arrival, whatever was before: so
        // the windows that hold one can be taken on their own.
        const std::size_t last = lastNanInReach(input, nan, count, window);
        const std::size_t from = nan - std::min(nan, window - 1);
        const std::size_t to = std::min(count, last + window);
        slideByInsertion(input + from, to - from, window, medians + from);
        begin = last + 1;
    }
}
