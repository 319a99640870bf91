#include "selectorlayout.h"

#include "axisscale.h"

#include <algorithm>
#include <cmath>

namespace
{

// Lengths as parts of the height of a line of text.
constexpr double MarginPart = 0.2;
constexpr double HandlePart = 0.45;
constexpr double LeastWindowPart = 0.3;
constexpr double TickPart = 0.25;
constexpr double LeastBarPart = 1.0;
constexpr double GoodBarPart = 2.0;
constexpr double HandleHeightPart = 0.6; // of the bar
constexpr double GripPart = 0.5;         // of the handle

// Widths as counts of an average letter.
constexpr double LeastLetters = 12.0;
constexpr double GoodLetters = 48.0;
constexpr double GapLetters = 1.5;
constexpr double FirstDistanceLetters = 10.0;

constexpr int MostTrials = 16;
constexpr int MostDecimals = 6;
constexpr int DecimalsOfMilliseconds = 3;

double heightFor(const QFontMetricsF& metrics, double barPart)
{
    return metrics.height() * (2.0 * MarginPart + barPart + TickPart + 1.0);
}

/// As few decimals as show the time to within one of `finest` decimals, but not fewer than `least`.
int decimalsOf(double time, int least, int finest)
{
    for (int decimals = least; decimals < finest; ++decimals) {
        const double scaled = time * std::pow(10.0, decimals);
        if (std::abs(scaled - std::round(scaled)) < std::pow(10.0, decimals - finest))
            return decimals;
    }
    return std::max(least, finest);
}

} // namespace

SelectorLayout::SelectorLayout(const QRectF& contents, const QFont& font, double devicePixels,
                               double totalFrom, double totalTo)
    : m_contents(contents)
    , m_metrics(font)
    , m_devicePixels(devicePixels > 0.0 ? devicePixels : 1.0)
    , m_totalFrom(totalFrom)
    , m_totalTo(totalTo)
    , m_lineWidth(std::max(std::floor(m_devicePixels), 1.0) / m_devicePixels)
    , m_handleWidth(snapped(m_metrics.height() * HandlePart))
    , m_gap(m_metrics.averageCharWidth() * GapLetters)
    , m_tickLength(snapped(m_metrics.height() * TickPart))
    , m_hasNumbers(contents.height() >= std::floor(heightFor(m_metrics, LeastBarPart)))
{
    const double margin = snapped(m_metrics.height() * MarginPart);
    const double below = m_hasNumbers ? m_tickLength + std::ceil(m_metrics.height()) : 0.0;
    const double left = snapped(contents.left() + margin + m_handleWidth);
    const double right = snapped(contents.right() - margin - m_handleWidth);
    const double top = snapped(contents.top() + margin);
    const double bottom = snapped(contents.bottom() - margin - below);
    m_bar = QRectF(left, top, std::max(right - left, 0.0), std::max(bottom - top, 0.0));
}

QSizeF SelectorLayout::leastSize(const QFont& font)
{
    const QFontMetricsF metrics(font);
    return QSizeF(metrics.averageCharWidth() * LeastLetters, heightFor(metrics, LeastBarPart));
}

QSizeF SelectorLayout::goodSize(const QFont& font)
{
    const QFontMetricsF metrics(font);
    return QSizeF(metrics.averageCharWidth() * GoodLetters, heightFor(metrics, GoodBarPart));
}

double SelectorLayout::xOf(double time) const
{
    const double range = m_totalTo - m_totalFrom;
    if (!(range > 0.0))
        return m_bar.left();
    return m_bar.left() + std::clamp((time - m_totalFrom) / range, 0.0, 1.0) * m_bar.width();
}

double SelectorLayout::timeOf(double x) const
{
    if (!(m_bar.width() > 0.0))
        return m_totalFrom;
    return m_totalFrom + (x - m_bar.left()) / m_bar.width() * (m_totalTo - m_totalFrom);
}

QRectF SelectorLayout::windowRect(const SelectorWindow& window) const
{
    const double least = std::min(snapped(m_metrics.height() * LeastWindowPart), m_bar.width());
    const double centre = xOf(window.position());
    double left = snapped(std::min(xOf(window.from()), centre - least * 0.5));
    double right = snapped(std::max(xOf(window.to()), centre + least * 0.5));
    // A window at an end that is shown wider than it is grows to the inside only.
    if (left < m_bar.left())
        right = std::max(right, m_bar.left() + least);
    if (right > m_bar.right())
        left = std::min(left, m_bar.right() - least);
    left = std::max(left, m_bar.left());
    right = std::min(right, m_bar.right());
    return QRectF(left, m_bar.top(), right - left, m_bar.height());
}

QRectF SelectorLayout::startHandle(const SelectorWindow& window) const
{
    const double height = snapped(m_bar.height() * HandleHeightPart);
    const double top = snapped(m_bar.center().y() - height * 0.5);
    return QRectF(windowRect(window).left() - m_handleWidth, top, m_handleWidth, height);
}

QRectF SelectorLayout::endHandle(const SelectorWindow& window) const
{
    return startHandle(window).translated(windowRect(window).width() + m_handleWidth, 0.0);
}

QRectF SelectorLayout::grip(const QRectF& handle) const
{
    const double height = snapped(handle.height() * GripPart);
    return QRectF(snapped(handle.center().x() - m_lineWidth * 0.5),
                  snapped(handle.center().y() - height * 0.5), m_lineWidth, height);
}

QRectF SelectorLayout::centreLine(const SelectorWindow& window) const
{
    const QRectF rect = windowRect(window);
    const double least = rect.left() + m_lineWidth;
    const double most = std::max(rect.right() - 2.0 * m_lineWidth, least);
    const double left = std::clamp(snapped(xOf(window.position()) - m_lineWidth * 0.5), least, most);
    return QRectF(left, rect.top(), m_lineWidth, rect.height());
}

SelectorWindow::Part SelectorLayout::partAt(double x, const SelectorWindow& window) const
{
    const QRectF rect = windowRect(window);
    if (!(window.totalRange() > 0.0) || x < rect.left() - m_handleWidth || x > rect.right() + m_handleWidth)
        return SelectorWindow::Part::None;
    // A wide window is grasped a little to the inside of its edges, too.
    const double inside = std::min(m_handleWidth * 0.5, rect.width() * 0.25);
    if (x < rect.left() + inside)
        return SelectorWindow::Part::Start;
    return x > rect.right() - inside ? SelectorWindow::Part::End : SelectorWindow::Part::Body;
}

QVector<SelectorMark> SelectorLayout::marks(MultiPlotScheme::TimeStyle style) const
{
    QVector<SelectorMark> marks;
    if (!m_hasNumbers || !(m_totalTo > m_totalFrom) || m_bar.isEmpty())
        return marks;
    const double step = stepOfMarks(style);
    const int least = decimalsOfStep(step);
    const int finest = decimalsOfStep(stepForScale(m_totalTo - m_totalFrom, m_bar.width(), 1.0));
    const int most = std::max(least, std::clamp(finest, DecimalsOfMilliseconds, MostDecimals));
    const SelectorMark first = markAt(m_totalFrom, style, decimalsOf(m_totalFrom, least, most));
    const SelectorMark last = markAt(m_totalTo, style, decimalsOf(m_totalTo, least, most));
    if (!m_contents.contains(first.place))
        return marks;
    marks.append(first);
    QRectF before = first.place;
    for (const double time : gridValues(m_totalFrom, m_totalTo, step)) {
        SelectorMark mark = markAt(time, style, least);
        if (textsThatFit({before, mark.place, last.place}, m_gap).size() == 3)
            before = mark.place;
        else
            mark.text.clear();
        if (mark.x > first.x && mark.x < last.x)
            marks.append(mark);
    }
    marks.append(last);
    if (textsThatFit({first.place, last.place}, m_gap).size() != 2)
        marks.last().text.clear();
    return marks;
}

/// The smallest round step that leaves the texts at it apart; 0 if there is none.
double SelectorLayout::stepOfMarks(MultiPlotScheme::TimeStyle style) const
{
    const double range = m_totalTo - m_totalFrom;
    double distance = m_metrics.averageCharWidth() * FirstDistanceLetters;
    for (int trial = 0; trial < MostTrials; ++trial) {
        const double step = timeStepForScale(range, m_bar.width(), distance, style);
        double widest = 0.0;
        for (const double time : gridValues(m_totalFrom, m_totalTo, step))
            widest = std::max(widest, markAt(time, style, decimalsOfStep(step)).place.width());
        const double between = step / range * m_bar.width();
        if (widest + m_gap <= between)
            return step;
        distance = std::max(distance, between) * 1.01;
    }
    return 0.0;
}

SelectorMark SelectorLayout::markAt(double time, MultiPlotScheme::TimeStyle style, int decimals) const
{
    SelectorMark mark;
    mark.text = timeText(time, style, decimals);
    const double x = snapped(xOf(time) - m_lineWidth * 0.5);
    mark.x = std::clamp(x, m_bar.left(), std::max(m_bar.right() - m_lineWidth, m_bar.left()));
    // Whole units, so that letters stand as the font means them.
    const double width = std::ceil(m_metrics.horizontalAdvance(mark.text));
    const double left = std::round(mark.x + m_lineWidth * 0.5 - width * 0.5);
    const double least = std::ceil(m_contents.left() + m_metrics.height() * MarginPart);
    const double most = std::floor(m_contents.right() - m_metrics.height() * MarginPart - width);
    mark.place = QRectF(std::max(std::min(left, most), least), m_bar.bottom() + m_tickLength, width,
                        std::ceil(m_metrics.height()));
    return mark;
}

double SelectorLayout::snapped(double length) const
{
    return std::round(length * m_devicePixels) / m_devicePixels;
}
