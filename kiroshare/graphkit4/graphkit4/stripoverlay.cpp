#include "stripoverlay.h"

#include "axisscale.h"
#include "striprule.h"

#include <QLocale>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int PeriodAlpha = 45;
constexpr int PlateAlpha = 235;
constexpr double QuietLine = 0.35;
constexpr double PlateBorder = 0.5;
constexpr int DigitsOfRate = 4;

/// The first place for a plate of `size` beside `anchor` that lies in `area` and leaves `busy` free; without
/// one, the last within the area.
QRectF platePlace(const QSizeF& size, const QPointF& anchor, const QRectF& busy, const QRectF& area,
                  double gap)
{
    QRectF place(QPointF(), size);
    for (const bool below : {false, true}) {
        for (const bool toLeft : {false, true}) {
            place.moveLeft(toLeft ? anchor.x() - gap - size.width() : anchor.x() + gap);
            place.moveTop(below ? anchor.y() + gap : anchor.y() - gap - size.height());
            if (area.contains(place) && !place.intersects(busy))
                return place;
        }
    }
    // Above or below what is measured, as near as the area allows.
    place.moveLeft(
        std::clamp(anchor.x() + gap, area.left(), std::max(area.right() - size.width(), area.left())));
    const bool fitsAbove = busy.top() - gap - size.height() >= area.top();
    place.moveTop(fitsAbove ? busy.top() - gap - size.height() : busy.bottom() + gap);
    if (place.bottom() > area.bottom())
        place.moveTop(std::max(area.bottom() - size.height(), area.top()));
    return place;
}

} // namespace

QStringList distanceTexts(const Plot& plot, const StripPoint& start, const StripPoint& end, int precision)
{
    const double seconds = end.seconds - start.seconds;
    QStringList lines{QStringLiteral("\u0394t = ") + numberText(seconds, precision) + QStringLiteral(" s")};
    QString value = QStringLiteral("\u0394y = ") + numberText(end.value - start.value, plot.precision + 1);
    if (!plot.drawnUnit().isEmpty())
        value += QLatin1Char(' ') + plot.drawnUnit();
    lines.append(value);
    const double rate = std::abs(1.0 / seconds);
    if (std::isfinite(rate))
        lines.append(QStringLiteral("1/\u0394t = ") + QLocale().toString(rate, 'g', DigitsOfRate) +
                     QStringLiteral(" Hz"));
    return lines;
}

StripOverlay::StripOverlay(const StripLayout& layout, const StripLook& look, int precision)
    : m_layout(layout)
    , m_look(look)
    , m_precision(precision)
{
}

QPen StripOverlay::pointerPen() const
{
    return m_look.pen(m_look.scheme().pointer());
}

void StripOverlay::drawPlayMarker(QPainter& painter, double seconds) const
{
    const TimeAxis& axis = m_layout.timeAxis();
    const bool isInSight = seconds >= 0.0 && seconds >= axis.min && seconds <= axis.max;
    if (!isInSight || m_layout.strips().isEmpty())
        return;
    const QRectF area = m_layout.plotArea();
    const double x = std::round(m_layout.xAt(seconds));
    QPen pen = pointerPen();
    pen.setStyle(Qt::SolidLine);
    pen.setWidthF(std::max(pen.widthF(), m_look.pixels(1.0)));
    painter.setPen(pen);
    drawRule(painter, QLineF(x, area.top(), x, area.bottom()));
    const double size = m_layout.tickLength() * 1.2;
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(pen.color());
    const double middle = x + pen.widthF() / 2.0;
    painter.drawPolygon(QPolygonF({QPointF(middle - size, area.top()), QPointF(middle + size, area.top()),
                                   QPointF(middle, area.top() + size * 1.2)}));
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void StripOverlay::drawPeriod(QPainter& painter, const MarkedPeriod& period) const
{
    const StripBox* const box = m_layout.boxOf(period.plot);
    if (period.plot >= 0 && box == nullptr)
        return;
    const QRectF area = box != nullptr ? box->rect : m_layout.plotArea();
    const double left = m_layout.xAt(period.from);
    const double right = m_layout.xAt(period.to);
    const QRectF band(QPointF(left, area.top()), QPointF(right, area.bottom()));
    const QPen pen = pointerPen();
    QColor color = pen.color();
    color.setAlpha(PeriodAlpha);
    painter.save();
    painter.setClipRect(m_layout.plotArea().adjusted(0.0, 0.0, 1.0, 0.0), Qt::IntersectClip);
    painter.fillRect(band, color);
    painter.setPen(pen);
    painter.drawLine(band.topLeft(), band.bottomLeft());
    painter.drawLine(band.topRight(), band.bottomRight());
    painter.restore();
    const QStringList text{numberText(period.to - period.from, m_precision) + QStringLiteral(" s")};
    const QSizeF size = plateSize(text);
    const QRectF whole = m_layout.plotArea();
    if (size.width() > whole.width() || size.height() > whole.height())
        return;
    const double gap = m_layout.tickLength() * 0.5;
    QRectF plate(QPointF(), size);
    plate.moveCenter(band.center());
    // At the lower end: names of labels stand at the upper one.
    plate.moveBottom(std::max(area.bottom() - gap, whole.top() + size.height()));
    if (size.width() + 2.0 * gap > band.width())
        plate.moveLeft(band.right() + gap + size.width() <= whole.right() ? band.right() + gap
                                                                          : band.left() - gap - size.width());
    plate.moveLeft(std::clamp(plate.left(), whole.left(), whole.right() - size.width()));
    drawPlate(painter, plate, text);
}

void StripOverlay::drawDistance(QPainter& painter, const Plot& plot, const StripPoint& start,
                                const StripPoint& end) const
{
    const StripBox* const box = m_layout.boxOf(start.plot);
    if (box == nullptr)
        return;
    const QPointF from(m_layout.xAt(start.seconds), m_layout.yAt(*box, start.value));
    const QPointF to(m_layout.xAt(end.seconds), m_layout.yAt(*box, end.value));
    QPen pen = pointerPen();
    painter.save();
    painter.setClipRect(box->rect, Qt::IntersectClip);
    pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
    painter.drawLine(from, QPointF(to.x(), from.y()));
    painter.drawLine(QPointF(to.x(), from.y()), to);
    pen.setStyle(Qt::SolidLine);
    painter.setPen(pen);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.drawLine(from, to);
    const double radius = m_layout.tickLength() * 0.5;
    painter.setBrush(pen.color());
    painter.drawEllipse(from, radius, radius);
    painter.drawEllipse(to, radius, radius);
    painter.restore();
    const QStringList lines = distanceTexts(plot, start, end, m_precision);
    const double gap = m_layout.tickLength() * 1.5;
    const QRectF busy = QRectF(from, to).normalized().adjusted(-radius, -radius, radius, radius);
    drawPlate(painter, platePlace(plateSize(lines), to, busy, m_layout.plotArea(), gap), lines);
}

void StripOverlay::drawLinePointer(QPainter& painter, const StripPoint& point) const
{
    const StripBox* const box = m_layout.boxOf(point.plot);
    if (box == nullptr)
        return;
    const QRectF area = m_layout.plotArea();
    const double x = std::round(m_layout.xAt(point.seconds));
    QPen pen = pointerPen();
    QPen quiet = pen;
    quiet.setColor(m_look.mixed(pen.color(), QuietLine));
    painter.setPen(quiet);
    drawRule(painter, QLineF(x, area.top(), x, area.bottom()));
    painter.setPen(pen);
    drawRule(painter, QLineF(x, box->rect.top(), x, box->rect.bottom()));
}

void StripOverlay::drawPointPointer(QPainter& painter, const StripPoint& point) const
{
    const StripBox* const box = m_layout.boxOf(point.plot);
    if (box == nullptr)
        return;
    const QRectF& area = box->rect;
    const double x = m_layout.xAt(point.seconds);
    const double y = m_layout.yAt(*box, point.value);
    const QPen pen = pointerPen();
    QPen quiet = pen;
    quiet.setColor(m_look.mixed(pen.color(), QuietLine));
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setPen(quiet);
    drawRule(painter, QLineF(x, area.top(), x, area.bottom()));
    if (std::isfinite(point.value)) {
        drawRule(painter, QLineF(area.left(), y, area.right(), y));
        const double radius = m_layout.tickLength() * 0.8;
        painter.setRenderHint(QPainter::Antialiasing, true);
        painter.setPen(QPen(pen.color(), std::max(pen.widthF(), m_look.pixels(1.5))));
        painter.drawEllipse(QPointF(x, y), radius, radius);
    }
    painter.restore();
}

QSizeF StripOverlay::plateSize(const QStringList& lines) const
{
    const QFontMetricsF& metrics = m_look.metrics();
    double width = 0.0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    const double padding = std::round(metrics.height() * 0.35);
    return {std::ceil(width) + 2.0 * padding, std::ceil(metrics.height() * lines.size()) + padding};
}

void StripOverlay::drawPlate(QPainter& painter, const QRectF& rect, const QStringList& lines) const
{
    const QFontMetricsF& metrics = m_look.metrics();
    const QRectF plate(rect.toAlignedRect());
    QColor background = m_look.background();
    background.setAlpha(PlateAlpha);
    painter.setFont(m_look.font());
    painter.fillRect(plate, background);
    painter.setPen(m_look.quietPen(PlateBorder));
    painter.drawRect(plate.adjusted(0.0, 0.0, -1.0, -1.0));
    painter.setPen(m_look.text());
    const double padding = std::round(metrics.height() * 0.35);
    QRectF line(plate.left() + padding, plate.top() + padding / 2.0, plate.width() - padding,
                metrics.height());
    for (const QString& text : lines) {
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                         text);
        line.translate(0.0, metrics.height());
    }
}
