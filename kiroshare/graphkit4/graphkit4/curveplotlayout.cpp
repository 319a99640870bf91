#include "curveplotlayout.h"

#include "axisscale.h"
#include "textlines.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace
{

/// Divisions of a grid that is chosen from limits alone, at most.
constexpr double MostDivisions = 10.0;
constexpr int MostMarks = 10000; // what gridValues() gives
constexpr int MostVertTitleLines = 2;
/// The share of the width that may go to what stands beside the area if a title is among it.
constexpr double MostBesideArea = 0.45;

/// Lengths that follow from the fonts.
struct Lengths
{
    explicit Lengths(const CurvePlotContents& contents)
        : axis(contents.axisFont)
        , title(contents.titleFont)
        , axisTitle(contents.axisTitleFont)
        , digits(std::ceil(axis.capHeight()))
        , gap(std::max(2.0, std::round(axis.height() * 0.3)))
        , tick(std::max(2.0, std::round(axis.height() * 0.2)))
        // The lowest vertical number reaches half its height below the area.
        , belowArea(tick + std::max(gap, std::ceil(digits * 0.5) + 1.0))
        , aboveArea(std::max(gap, std::ceil(digits * 0.5) + 1.0))
        , leastAreaHeight(axis.height() * 2.5)
        , leastAreaWidth(axis.height() * 4.0)
    {
    }

    double horzNumbersHeight() const { return belowArea + digits; }
    double titleHeight() const { return std::ceil(title.height()) + gap; }
    double horzTitleHeight() const { return std::ceil(axisTitle.height()) + gap; }
    double vertTitleWidth(int lines) const { return std::ceil(axisTitle.height() * lines) + gap; }

    QFontMetricsF axis;
    QFontMetricsF title;
    QFontMetricsF axisTitle;
    double digits;
    double gap;
    double tick;
    double belowArea;
    double aboveArea;
    double leastAreaHeight;
    double leastAreaWidth;
};

double rangeOf(const AxisMapping& mapping)
{
    return std::abs(mapping.max() - mapping.min());
}

int decimalsOf(const CurvePlotAxis& axis, double step)
{
    return axis.precision >= 0 ? axis.precision
                               : std::max(decimalsOfStep(step), decimalsOfStep(std::abs(axis.gridStart)));
}

QVector<double> marksOf(const CurvePlotAxis& axis, const AxisMapping& mapping, double step)
{
    return gridValues(std::min(mapping.min(), mapping.max()), std::max(mapping.min(), mapping.max()), step,
                      axis.gridStart);
}

/// Multiples of a step that may be numbered in its place: 1, 2, 4, 5, 10, 20, 40, 50 and so on.
double multipleOf(int index)
{
    constexpr double Factors[] = {1.0, 2.0, 4.0, 5.0};
    return Factors[index % 4] * std::pow(10.0, index / 4);
}

/// Whether a step is 1, 2 or 5 times a power of ten.
bool isRound(double step)
{
    return roundStep(step) - step < step * 1e-6;
}

QRectF centredPlace(const QPointF& centre, const QSizeF& size)
{
    return QRectF(QPointF(centre.x() - size.width() * 0.5, centre.y() - size.height() * 0.5), size);
}

bool standApart(const QVector<CurvePlotLayout::Number>& numbers, double gap)
{
    for (int i = 1; i < numbers.size(); ++i) {
        const QRectF around = numbers[i - 1].place.adjusted(-gap, -gap, gap, gap);
        if (around.intersects(numbers[i].place))
            return false;
    }
    return true;
}

/// Numbers an axis so that they stand apart, at steps that are round multiples of the grid's.
class Numbering
{
public:
    Numbering(const CurvePlotAxis& axis, const AxisMapping& mapping, const Lengths& lengths, bool vertical)
        : m_axis(axis)
        , m_mapping(mapping)
        , m_lengths(lengths)
        , m_vertical(vertical)
    {
    }

    QVector<CurvePlotLayout::Number> numbers() const
    {
        const QVector<CurvePlotLayout::Number> ofGrid = numbersFrom(m_axis.grid);
        if (ofGrid.size() >= 2)
            return ofGrid;
        // A grid that is wider than the range says too little.
        const double line = m_lengths.axis.height();
        QVector<CurvePlotLayout::Number> own = numbersFrom(ownStep(line * (m_vertical ? 2.0 : 5.0)));
        if (own.size() < 2)
            own = numbersFrom(ownStep(line));
        return own.size() > ofGrid.size() ? own : ofGrid;
    }

private:
    double pixels() const { return std::abs(m_mapping.lastPixel() - m_mapping.firstPixel()); }
    double ownStep(double leastPixels) const
    {
        return stepForScale(rangeOf(m_mapping), pixels(), leastPixels);
    }
    QVector<CurvePlotLayout::Number> numbersFrom(double step) const
    {
        if (!(step > 0.0))
            return {};
        // More can't stand apart, whatever their texts.
        const double most = std::min(static_cast<double>(MostMarks), pixels() * 2.0 / m_lengths.digits);
        const double range = rangeOf(m_mapping);
        for (int i = 0;; ++i) {
            const double wider = step * multipleOf(i);
            if (range / wider >= most || (isRound(step) && !isRound(wider)))
                continue;
            const QVector<CurvePlotLayout::Number> found = numbersAt(wider);
            // Side by side numbers need more to be told apart.
            if (found.size() < 2 || standApart(found, m_lengths.gap * (m_vertical ? 1.0 : 2.0)))
                return found;
        }
    }
    QVector<CurvePlotLayout::Number> numbersAt(double step) const
    {
        const int decimals = decimalsOf(m_axis, step);
        QVector<CurvePlotLayout::Number> numbers;
        for (const double value : marksOf(m_axis, m_mapping, step)) {
            const QString text = numberText(value, decimals);
            const double along = m_mapping.position(value);
            const QSizeF size(m_lengths.axis.horizontalAdvance(text), m_lengths.digits);
            numbers.append(
                {value, text, centredPlace(m_vertical ? QPointF(0.0, along) : QPointF(along, 0.0), size)});
        }
        return numbers;
    }

    const CurvePlotAxis& m_axis;
    const AxisMapping& m_mapping;
    const Lengths& m_lengths;
    bool m_vertical;
};

QVector<double> valuesOf(const QVector<CurvePlotLayout::Number>& numbers)
{
    QVector<double> values;
    for (const CurvePlotLayout::Number& number : numbers)
        values.append(number.value);
    return values;
}

QVector<double> gridLinesOf(const CurvePlotAxis& axis, const AxisMapping& mapping,
                            const QVector<CurvePlotLayout::Number>& numbers, const Lengths& lengths)
{
    if (!(axis.grid > 0.0))
        return {};
    const double apart = axis.grid * std::abs(mapping.pixelsPerUnit());
    if (apart < lengths.axis.height() * 0.5)
        return valuesOf(numbers);
    const QVector<double> lines = marksOf(axis, mapping, axis.grid);
    return lines.size() < 2 ? valuesOf(numbers) : lines;
}

double widestOf(const QVector<CurvePlotLayout::Number>& numbers)
{
    double widest = 0.0;
    for (const CurvePlotLayout::Number& number : numbers)
        widest = std::max(widest, number.place.width());
    return widest;
}

double longestOf(const QStringList& lines, const QFontMetricsF& metrics)
{
    double longest = 0.0;
    for (const QString& line : lines)
        longest = std::max(longest, metrics.horizontalAdvance(line));
    return longest;
}

/// The room that a number at the end of the horizontal axis takes beside the area.
double halfOfEndNumber(const CurvePlotAxis& axis, const AxisMapping& mapping, const Lengths& lengths)
{
    const double step = axis.grid > 0.0 ? axis.grid : roundStep(rangeOf(mapping) / MostDivisions);
    const int decimals = decimalsOf(axis, step);
    const double ofMin = lengths.axis.horizontalAdvance(numberText(mapping.min(), decimals));
    const double ofMax = lengths.axis.horizontalAdvance(numberText(mapping.max(), decimals));
    return std::ceil(std::max(ofMin, ofMax) * 0.5);
}

} // namespace

double CurvePlotAxis::roundGrid() const
{
    return roundStep(rangeOf(AxisMapping(min, max, 0, 1)) / MostDivisions);
}

CurvePlotLayout::CurvePlotLayout()
    : m_area(0, 0, 2, 2)
    , m_horz(0.0, 1.0, 0, 1)
    , m_vert(0.0, 1.0, 1, 0)
{
}

CurvePlotLayout::CurvePlotLayout(const CurvePlotContents& contents)
    : CurvePlotLayout()
{
    placeRows(contents);
    placeColumns(contents);
    placeTitles(contents);
}

// Top and bottom of the area, from what needs room above and below it.
void CurvePlotLayout::placeRows(const CurvePlotContents& contents)
{
    const Lengths lengths(contents);
    double title = contents.title.isEmpty() ? 0.0 : lengths.titleHeight();
    double horzTitle = contents.horz.title.isEmpty() ? 0.0 : lengths.horzTitleHeight();
    double numbers = lengths.horzNumbersHeight();
    const double height = contents.rect.height() - lengths.aboveArea - lengths.gap - lengths.leastAreaHeight;
    for (double* row : {&horzTitle, &title, &numbers}) {
        if (title + horzTitle + numbers > height)
            *row = 0.0;
    }
    m_tickLength = lengths.tick;
    if (title > 0.0)
        m_title.place =
            QRectF(contents.rect.left(), contents.rect.top() + lengths.gap, 0.0, title - lengths.gap);
    const double top = contents.rect.top() + std::max(lengths.aboveArea, title + lengths.gap);
    const double bottom = contents.rect.top() + contents.rect.height() - lengths.gap - horzTitle - numbers;
    if (horzTitle > 0.0)
        m_horzTitle.place =
            QRectF(contents.rect.left(), bottom + numbers + lengths.gap, 0.0, horzTitle - lengths.gap);
    m_area.setTop(static_cast<int>(std::ceil(top)));
    m_area.setBottom(std::max(static_cast<int>(std::floor(bottom)) - 1, m_area.top() + 1));
    m_vert = AxisMapping(contents.vert.min, contents.vert.max, m_area.bottom(), m_area.top());
    m_vertNumbers = Numbering(contents.vert, m_vert, lengths, true).numbers();
    m_vertGridLines = gridLinesOf(contents.vert, m_vert, m_vertNumbers, lengths);
    m_hasHorzNumbers = numbers > 0.0;
}

// Left and right of the area, from the vertical numbers and title.
void CurvePlotLayout::placeColumns(const CurvePlotContents& contents)
{
    const Lengths lengths(contents);
    const QRect& rect = contents.rect;
    const bool isToLineUp = !contents.vertScaleWidthTemplate.isEmpty();
    const double reserved = lengths.axis.horizontalAdvance(contents.vertScaleWidthTemplate);
    double numbers = std::ceil(std::max(widestOf(m_vertNumbers), reserved)) + lengths.gap + lengths.tick;
    breakVertTitle(contents);
    // Charts with a template line up whatever the lengths of their titles.
    const int titleLines = isToLineUp ? MostVertTitleLines : m_vertTitle.lines.size();
    double title = m_vertTitle.lines.isEmpty() ? 0.0 : lengths.vertTitleWidth(titleLines);
    const AxisMapping whole(contents.horz.min, contents.horz.max, 0, 1);
    double right = m_hasHorzNumbers ? halfOfEndNumber(contents.horz, whole, lengths) : 0.0;
    if (title + right + numbers > rect.width() * MostBesideArea)
        title = 0.0;
    const double width = rect.width() - lengths.gap * 2.0 - lengths.leastAreaWidth;
    for (double* column : {&title, &right, &numbers}) {
        if (title + right + numbers > width)
            *column = 0.0;
    }

    const double beside = std::max(lengths.gap, right > 0.0 ? right + lengths.gap * 0.5 : 0.0);
    m_area.setLeft(static_cast<int>(std::ceil(rect.left() + lengths.gap + title + numbers)));
    const int end = static_cast<int>(std::floor(rect.left() + rect.width() - beside));
    m_area.setRight(std::max(end - 1, m_area.left() + 1));
    m_horz = AxisMapping(contents.horz.min, contents.horz.max, m_area.left(), m_area.right());
    placeVertTitle(contents, title);
    if (numbers <= 0.0)
        m_vertNumbers.clear();
    for (Number& number : m_vertNumbers)
        number.place.moveRight(m_area.left() - lengths.tick - lengths.gap * 0.5);
    placeHorzNumbers(contents);
}

// The vertical title may reach beyond the area, but not into the other titles.
void CurvePlotLayout::breakVertTitle(const CurvePlotContents& contents)
{
    const Lengths lengths(contents);
    const QRectF rect(contents.rect);
    const double top = m_title.place.height() > 0.0 ? m_area.top() : rect.top() + lengths.gap;
    const double end = m_horzTitle.place.height() > 0.0 ? m_horzTitle.place.top() : rect.bottom();
    m_vertTitle.place = QRectF(rect.left() + lengths.gap, top, 0.0, end - lengths.gap - top);
    m_vertTitle.lines =
        textLines(contents.vert.title, m_vertTitle.place.height(), MostVertTitleLines, lengths.axisTitle);
}

void CurvePlotLayout::placeVertTitle(const CurvePlotContents& contents, double width)
{
    const Lengths lengths(contents);
    if (width <= 0.0) {
        m_vertTitle = Title();
        return;
    }
    m_vertTitle.place.setWidth(width - lengths.gap);
    if (longestOf(m_vertTitle.lines, lengths.axisTitle) <= m_area.height()) {
        m_vertTitle.place.setTop(m_area.top());
        m_vertTitle.place.setHeight(m_area.height());
    }
}

void CurvePlotLayout::placeHorzNumbers(const CurvePlotContents& contents)
{
    const Lengths lengths(contents);
    const QRectF rect(contents.rect);
    const QVector<Number> found = Numbering(contents.horz, m_horz, lengths, false).numbers();
    m_horzGridLines = gridLinesOf(contents.horz, m_horz, found, lengths);
    if (!m_hasHorzNumbers)
        return;
    const bool titleIsBeside = m_vertTitle.place.bottom() > m_area.bottom() + 1;
    const double left = titleIsBeside ? m_vertTitle.place.right() + lengths.gap * 0.5 : rect.left();
    for (Number number : found) {
        number.place.moveTop(m_area.bottom() + 1 + lengths.belowArea);
        if (number.place.left() >= left && number.place.right() <= rect.right())
            m_horzNumbers.append(number);
    }
}

// The titles above and below, centred on the area or, where they are too long for that, on everything.
void CurvePlotLayout::placeTitles(const CurvePlotContents& contents)
{
    const Lengths lengths(contents);
    const auto fill = [&](Title& title, const QString& text, const QFontMetricsF& metrics) {
        const QRectF whole = QRectF(contents.rect).adjusted(lengths.gap, 0.0, -lengths.gap, 0.0);
        if (title.place.isNull() || title.place.height() <= 0.0)
            return;
        const bool fits = metrics.horizontalAdvance(text.simplified()) <= m_area.width();
        const QRectF across = fits ? QRectF(m_area) : whole;
        title.place.setLeft(across.left());
        title.place.setWidth(across.width());
        title.lines = textLines(text, across.width(), 1, metrics);
    };
    fill(m_title, contents.title, lengths.title);
    fill(m_horzTitle, contents.horz.title, lengths.axisTitle);
}

QSize CurvePlotLayout::leastSize(const CurvePlotContents& contents)
{
    const Lengths lengths(contents);
    const QString text = contents.vertScaleWidthTemplate.isEmpty() ? QStringLiteral("-000.0")
                                                                   : contents.vertScaleWidthTemplate;
    const double numbers = lengths.axis.horizontalAdvance(text) + lengths.gap + lengths.tick;
    const double titles = contents.vert.title.isEmpty() ? 0.0 : lengths.vertTitleWidth(MostVertTitleLines);
    const double rows = (contents.title.isEmpty() ? 0.0 : lengths.titleHeight()) +
                        (contents.horz.title.isEmpty() ? 0.0 : lengths.horzTitleHeight());
    const double beside = numbers * 1.5 + titles;
    const double width = std::max(beside + lengths.leastAreaWidth + lengths.gap * 2.0,
                                  titles > 0.0 ? beside / MostBesideArea : 0.0);
    const double height =
        rows + lengths.horzNumbersHeight() + lengths.aboveArea + lengths.gap + lengths.leastAreaHeight;
    return QSize(static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height)));
}

QSize CurvePlotLayout::goodSize(const CurvePlotContents& contents)
{
    const double line = QFontMetricsF(contents.axisFont).height();
    return QSize(static_cast<int>(line * 28.0), static_cast<int>(line * 16.0))
        .expandedTo(leastSize(contents));
}
