#include "striplayout.h"

#include "axisscale.h"
#include "textlines.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace
{

/// Parts of the height of a line.
constexpr double TickPart = 0.3;
constexpr double PaddingPart = 0.35;
constexpr double RightPart = 0.6;
/// Of the width of a number.
constexpr double MostShift = 0.3;
/// Room that a strip leaves above and below its limits, as a part of its height, at most a third of a line.
constexpr double RoomPart = 0.06;
/// The titles take at most this part of the width.
constexpr double MostOfTitles = 0.2;
/// Curves get at least this part of the width, or titles and axes give way.
constexpr double LeastOfCurves = 0.5;
constexpr int MostTitleLines = 3;
/// A unit that takes more of a title's width is cut with it.
constexpr double MostOfUnit = 0.35;
/// Value axes have about as many numbers at most.
constexpr double MostNumbers = 4.0;
/// A strip so many texts high has two numbers.
constexpr double LeastOfTwo = 2.2;
/// What lies between a number and the edges of its strip, so that those of neighbours stay apart.
constexpr double EdgeGapPart = 0.12;
/// Grid lines come no closer.
constexpr double LeastGridPart = 0.25;
/// What a painter bears.
constexpr double MostPixels = 30000.0;
/// Numbers from here on, or with more decimals, are written with an exponent.
constexpr double LeastWithExponent = 1e7;
constexpr int MostDecimals = 6;

double textHeight(const QFontMetricsF& metrics)
{
    return std::ceil(metrics.capHeight() * 1.15) + 1.0;
}

double edgeGap(const QFontMetricsF& metrics)
{
    return std::ceil(metrics.height() * EdgeGapPart);
}

double leastGrid(const QFontMetricsF& metrics)
{
    return metrics.height() * LeastGridPart;
}

QString unitText(const QString& unit)
{
    return QStringLiteral(" [") + unit.simplified() + QLatin1Char(']');
}

double boundPixel(double pixel)
{
    return std::isnan(pixel) ? -MostPixels : std::clamp(pixel, -MostPixels, MostPixels);
}

int numberCount(const QVector<AxisMark>& marks)
{
    return static_cast<int>(
        std::count_if(marks.begin(), marks.end(), [](const AxisMark& mark) { return !mark.text.isEmpty(); }));
}

double widestText(const QVector<AxisMark>& marks)
{
    double widest = 0.0;
    for (const AxisMark& mark : marks) {
        if (!mark.text.isEmpty())
            widest = std::max(widest, mark.textRect.width());
    }
    return widest;
}

/// The next smaller one of the steps 1, 2 and 5 times a power of ten.
double smallerStep(double step)
{
    return roundStep(step * 0.39);
}

/// Drops the texts that would touch others.
void thinTexts(QVector<AxisMark>& marks, double gap)
{
    QVector<QRectF> places;
    QVector<int> written;
    for (int i = 0; i < marks.size(); ++i) {
        if (!marks[i].text.isEmpty()) {
            places.append(marks[i].textRect);
            written.append(i);
        }
    }
    QVector<int> kept;
    for (const int index : textsThatFit(places, gap))
        kept.append(written[index]);
    for (const int index : written) {
        if (!kept.contains(index))
            marks[index].text.clear();
    }
}

} // namespace

QString valueText(double value, double step)
{
    const int decimals = decimalsOfStep(step);
    if (std::abs(value) < LeastWithExponent && decimals <= MostDecimals)
        return numberText(value, decimals);
    // From the leading digit of the value down to that of the step.
    const auto exponent = [](double number) { return std::floor(std::log10(std::abs(number)) + 1e-9); };
    const double digits = value == 0.0 ? 1.0 : exponent(value) - exponent(step) + 1.0;
    return QLocale().toString(value, 'g', static_cast<int>(std::clamp(digits, 1.0, 15.0)));
}

QStringList titleLines(const QString& text, const QString& unit, double width, int mostLines,
                       const QFontMetricsF& metrics)
{
    // Titles come from files; line ends in them must not break the layout.
    const QString name = text.simplified();
    if (mostLines < 1 || !(width > 0.0) || (name.isEmpty() && unit.isEmpty()))
        return {};
    const QString shownUnit = unit.isEmpty() ? QString() : unitText(unit);
    const double unitWidth = metrics.horizontalAdvance(shownUnit);
    if (metrics.horizontalAdvance(name) + unitWidth <= width)
        return {(name + shownUnit).trimmed()};
    if (shownUnit.isEmpty() || unitWidth > width * MostOfUnit)
        return textLines(name + shownUnit, width, mostLines, metrics);
    QStringList lines = textLines(name, width, mostLines, metrics);
    if (lines.isEmpty())
        return {};
    if (metrics.horizontalAdvance(lines.last()) + unitWidth <= width)
        lines.last() += shownUnit;
    else if (lines.size() < mostLines)
        lines.append(shownUnit.trimmed());
    else
        lines.last() = metrics.elidedText(lines.last(), Qt::ElideRight, width - unitWidth) + shownUnit;
    return lines;
}

StripLayout::StripLayout(const QRectF& contents, const QFontMetricsF& metrics,
                         const QVector<StripContent>& strips, const TimeAxis& axis)
    : m_contents(contents)
    , m_metrics(metrics)
    , m_axis(axis)
{
    if (strips.isEmpty() || contents.width() < 1.0 || contents.height() < 1.0)
        return;
    placeRows(strips);
    placeColumns(strips);
    if (m_hasTimeAxis)
        placeTimeMarks();
}

double StripLayout::tickLength() const
{
    return std::max(2.0, std::round(m_metrics.height() * TickPart));
}

void StripLayout::placeRows(const QVector<StripContent>& strips)
{
    const double line = std::ceil(m_metrics.height());
    const double axisHeight = tickLength() + line;
    m_hasTimeAxis = m_contents.height() >= axisHeight + 2.0 * line;
    const double height = m_contents.height() - (m_hasTimeAxis ? axisHeight : 0.0);
    const int count = strips.size();
    m_plotArea = QRectF(m_contents.left(), m_contents.top(), m_contents.width(), height);
    m_strips.reserve(count);
    for (int i = 0; i < count; ++i) {
        // The lowest row of pixels of a strip is the line that parts it from the next.
        const double top = m_contents.top() + std::floor(height * i / count);
        const double bottom = m_contents.top() + std::floor(height * (i + 1) / count) - 1.0;
        StripBox box;
        box.plot = strips[i].plot;
        box.rect = QRectF(m_contents.left(), top, m_contents.width(), std::max(bottom - top, 0.0));
        const double room = std::min(std::max(1.0, box.rect.height() * RoomPart), line / 3.0);
        const double inner = std::max(box.rect.height() - 2.0 * room, 1.0);
        const Extremes& limits = strips[i].limits;
        const double extra = (limits.greatest - limits.least) / inner * room;
        box.edge = {limits.least - extra, limits.greatest + extra};
        m_strips.append(box);
    }
}

void StripLayout::placeColumns(const QVector<StripContent>& strips)
{
    const double padding = std::round(m_metrics.height() * PaddingPart);
    const double mostOfTitle = m_contents.width() * MostOfTitles;
    const double leastTitle = m_metrics.horizontalAdvance(QStringLiteral("0000"));
    const double ticks = padding + tickLength();
    m_timeTitle = m_hasTimeAxis ? m_axis.fullTitle() : QString();
    // The title of the time axis stands below those of the strips.
    const double timeTitle = padding + m_metrics.horizontalAdvance(m_timeTitle) + tickLength();
    double axisWidth = 0.0;
    double widestTitle = 0.0;
    double left = timeTitle;
    for (int i = 0; i < strips.size(); ++i) {
        m_strips[i].marks = suitableValueMarks(m_strips[i], strips[i]);
        const double numbers = widestText(m_strips[i].marks) + ticks;
        axisWidth = std::max(axisWidth, numbers);
        const QString whole =
            strips[i].title + (strips[i].unit.isEmpty() ? QString() : unitText(strips[i].unit));
        const double title = m_metrics.horizontalAdvance(whole.simplified());
        widestTitle = std::max(widestTitle, title);
        left = std::max(left, numbers + 2.0 * padding + std::min(title, mostOfTitle));
    }
    const double mostLeft = m_contents.width() * (1.0 - LeastOfCurves);
    left = std::min(left, mostLeft);
    const bool hasTitles = left - axisWidth - 2.0 * padding >= std::min(widestTitle, leastTitle);
    if (!hasTitles)
        left = std::max(axisWidth, std::min(timeTitle, mostLeft));
    if (left > mostLeft) {
        left = 0.0;
        dropNumbers();
    }
    m_plotArea.setLeft(m_contents.left() + std::ceil(left));
    m_plotArea.setRight(
        std::max(m_contents.right() - std::round(m_metrics.height() * RightPart), m_plotArea.left()));
    for (int i = 0; i < strips.size(); ++i) {
        StripBox& box = m_strips[i];
        box.rect.setLeft(m_plotArea.left());
        box.rect.setRight(m_plotArea.right());
        for (AxisMark& mark : box.marks)
            mark.textRect.moveRight(m_plotArea.left() - ticks + padding * 0.5);
        if (hasTitles)
            placeTitle(box, strips[i], left - widestText(box.marks) - ticks - 2.0 * padding);
    }
    if (hasTitles && !hasRoomForTexts(m_strips.first()))
        thinTitles();
    placeTimeTitle();
}

void StripLayout::dropNumbers()
{
    for (StripBox& box : m_strips) {
        for (AxisMark& mark : box.marks)
            mark.text.clear();
    }
}

void StripLayout::placeTimeTitle()
{
    const double left = m_contents.left() + std::round(m_metrics.height() * PaddingPart);
    const double room = m_plotArea.left() - tickLength() - left;
    const double whole = m_metrics.horizontalAdvance(m_timeTitle);
    const bool hasRoom = room >= std::min(whole, m_metrics.horizontalAdvance(QStringLiteral("0000")));
    m_timeTitle = hasRoom ? m_metrics.elidedText(m_timeTitle, Qt::ElideRight, std::ceil(room)) : QString();
    if (m_timeTitle.isEmpty())
        return;
    m_timeTitleRect =
        QRectF(left, m_plotArea.bottom() + tickLength(), std::ceil(m_metrics.horizontalAdvance(m_timeTitle)),
               std::ceil(m_metrics.height()));
}

void StripLayout::placeTitle(StripBox& box, const StripContent& content, double width) const
{
    const double line = m_metrics.height();
    const int most = std::clamp(static_cast<int>(box.rect.height() / line), 1, MostTitleLines);
    box.titleLines = titleLines(content.title, content.unit, width, most, m_metrics);
    const double height = line * box.titleLines.size();
    const double left = m_contents.left() + std::round(m_metrics.height() * PaddingPart);
    box.titleRect = QRectF(left, box.rect.center().y() - height / 2.0, width, height);
}

bool StripLayout::hasRoomForTexts(const StripBox& box) const
{
    return box.rect.height() >= textHeight(m_metrics) + edgeGap(m_metrics);
}

/// Where strips are lower than a line, every n-th title is shown beside the middle of its strip.
void StripLayout::thinTitles()
{
    QVector<QRectF> places;
    for (const StripBox& box : m_strips)
        places.append(box.titleRect);
    const QVector<int> kept = textsThatFit(places, 0.0);
    for (int i = 0; i < m_strips.size(); ++i) {
        const QRectF& rect = m_strips[i].titleRect;
        const bool isInside = rect.top() >= m_plotArea.top() && rect.bottom() <= m_plotArea.bottom();
        if (!std::binary_search(kept.begin(), kept.end(), i) || !isInside)
            m_strips[i].titleLines.clear();
    }
}

QVector<AxisMark> StripLayout::valueMarks(const StripBox& box, double step) const
{
    const double height = textHeight(m_metrics);
    const double lowest = box.rect.bottom() - edgeGap(m_metrics) - height;
    const double highest = std::min(box.rect.top() + edgeGap(m_metrics), lowest);
    QVector<AxisMark> marks;
    const QVector<double> values = gridValues(box.edge.least, box.edge.greatest, step);
    for (auto value = values.rbegin(); value != values.rend(); ++value) {
        AxisMark mark;
        mark.value = *value;
        mark.position = std::round(yAt(box, *value));
        mark.text = valueText(*value, step);
        const double top = std::clamp(mark.position - height / 2.0, highest, lowest);
        mark.textRect = QRectF(0.0, top, std::ceil(m_metrics.horizontalAdvance(mark.text)), height);
        marks.append(mark);
    }
    thinTexts(marks, height * 0.25);
    return marks;
}

QVector<AxisMark> StripLayout::suitableValueMarks(const StripBox& box, const StripContent& content) const
{
    const double pixels = box.rect.height();
    const double range = box.edge.greatest - box.edge.least;
    if (!hasRoomForTexts(box) || !(range > 0.0))
        return {};
    if (content.vertGrid > 0.0 && content.vertGrid / range * pixels >= leastGrid(m_metrics))
        return valueMarks(box, content.vertGrid);
    const double line = m_metrics.height();
    double step = stepForScale(range, pixels, std::max(line * 1.6, pixels / MostNumbers));
    // Low strips: two numbers say more than one, even if a step of more than one mark lies between them.
    const int wanted = pixels >= LeastOfTwo * textHeight(m_metrics) ? 2 : 1;
    QVector<AxisMark> marks = valueMarks(box, step);
    for (int i = 0; i < 3 && numberCount(marks) < wanted; ++i) {
        step = smallerStep(step);
        const QVector<AxisMark> more = valueMarks(box, step);
        if (numberCount(more) > numberCount(marks))
            marks = more;
    }
    // Marks without number would only be ink.
    marks.erase(
        std::remove_if(marks.begin(), marks.end(), [](const AxisMark& mark) { return mark.text.isEmpty(); }),
        marks.end());
    return marks;
}

void StripLayout::placeTimeMarks()
{
    if (!m_axis.isUsable() || m_plotArea.width() < 1.0)
        return;
    const double width = m_plotArea.width();
    m_timeStep = m_axis.grid;
    if (!(m_timeStep / (m_axis.max - m_axis.min) * width >= leastGrid(m_metrics)) ||
        !std::isfinite(m_timeStep))
        m_timeStep = m_axis.suitableStep(width, m_metrics);
    const double gap = m_metrics.horizontalAdvance(QLatin1Char('0'));
    const double leftEnd = m_timeTitle.isEmpty() ? m_contents.left() : m_timeTitleRect.right() + gap;
    const double top = m_plotArea.bottom() + tickLength();
    for (const double value : gridValues(m_axis.min, m_axis.max, m_timeStep, m_axis.gridOrigin())) {
        AxisMark mark;
        mark.value = value;
        mark.position = std::round(xAt(value));
        const QString text = m_axis.markText(value, m_timeStep);
        const double textWidth = std::ceil(m_metrics.horizontalAdvance(text));
        mark.textRect =
            QRectF(mark.position - textWidth / 2.0, top, textWidth, std::ceil(m_metrics.height()));
        // The last number may stand a little left of its mark rather than be missing.
        const double over = mark.textRect.right() - m_contents.right();
        if (over > 0.0 && over <= textWidth * MostShift)
            mark.textRect.translate(-over, 0.0);
        if (mark.textRect.left() >= leftEnd && mark.textRect.right() <= m_contents.right())
            mark.text = text;
        m_timeMarks.append(mark);
    }
    thinTexts(m_timeMarks, gap);
}

const StripBox* StripLayout::boxOf(int plot) const
{
    const auto found = std::find_if(m_strips.begin(), m_strips.end(),
                                    [plot](const StripBox& box) { return box.plot == plot; });
    return found == m_strips.end() ? nullptr : &*found;
}

const StripBox* StripLayout::boxAt(const QPointF& pixel) const
{
    const auto found = std::find_if(m_strips.begin(), m_strips.end(), [&pixel](const StripBox& box) {
        return box.rect.width() > 0.0 && box.rect.contains(pixel);
    });
    return found == m_strips.end() ? nullptr : &*found;
}

double StripLayout::xAt(double seconds) const
{
    if (!m_axis.isUsable())
        return m_plotArea.left();
    return boundPixel(m_plotArea.left() +
                      (seconds - m_axis.min) / (m_axis.max - m_axis.min) * m_plotArea.width());
}

double StripLayout::yAt(const StripBox& box, double value) const
{
    return boundPixel(box.rect.bottom() -
                      (value - box.edge.least) / (box.edge.greatest - box.edge.least) * box.rect.height());
}

double StripLayout::secondsAt(double x) const
{
    if (!m_axis.isUsable() || m_plotArea.width() < 1.0)
        return m_axis.min;
    const double part = (x - m_plotArea.left()) / m_plotArea.width();
    return std::clamp(m_axis.min + part * (m_axis.max - m_axis.min), m_axis.min, m_axis.max);
}

double StripLayout::valueAt(const StripBox& box, double y) const
{
    if (box.rect.height() < 1.0)
        return box.edge.least;
    return box.edge.least +
           (box.rect.bottom() - y) / box.rect.height() * (box.edge.greatest - box.edge.least);
}
