#include "curveplotpainter.h"

#include "curvepainter.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

/// Horizontal and vertical lines that are centred on a place as well as whole pixels of the device allow.
class CrispLines
{
public:
    CrispLines(QPainter& painter, const QPen& pen, double scale)
        : m_painter(painter)
        , m_pen(pen)
        , m_logical(painter.worldTransform())
    {
        const QTransform device = painter.deviceTransform();
        const bool isUpright =
            device.m11() > 0.0 && device.m22() > 0.0 && device.type() <= QTransform::TxScale;
        m_toDevice = isUpright ? device : QTransform();
        // Half a pixel more would make fine lines twice as wide.
        m_width = std::max(1.0, std::ceil(std::max(pen.widthF(), 1.0) * scale * m_toDevice.m11() - 0.5));
        m_pen.setWidthF(m_width);
        m_pen.setCosmetic(false);
        m_pen.setCapStyle(Qt::FlatCap);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing, false);
        if (isUpright)
            painter.setWorldTransform(device.inverted() * m_logical);
    }
    ~CrispLines() { m_painter.restore(); }
    CrispLines(const CrispLines&) = delete;
    CrispLines& operator=(const CrispLines&) = delete;

    /// From the outer edge of one place to that of the other.
    void horizontal(double y, double from, double to)
    {
        const double top = edge(m_toDevice.map(QPointF(0.0, y)).y());
        const double left = edge(m_toDevice.map(QPointF(from, 0.0)).x());
        const double right = edge(m_toDevice.map(QPointF(to, 0.0)).x()) + m_width;
        draw(QRectF(left, top, right - left, m_width), true);
    }
    void vertical(double x, double from, double to)
    {
        const double left = edge(m_toDevice.map(QPointF(x, 0.0)).x());
        const double top = edge(m_toDevice.map(QPointF(0.0, from)).y());
        const double bottom = edge(m_toDevice.map(QPointF(0.0, to)).y()) + m_width;
        draw(QRectF(left, top, m_width, bottom - top), false);
    }

private:
    double edge(double centre) const { return std::floor(centre - m_width * 0.5 + 0.5); }
    void draw(const QRectF& line, bool horizontal)
    {
        if (m_pen.style() == Qt::NoPen)
            return;
        if (m_pen.style() == Qt::SolidLine) {
            m_painter.fillRect(line, m_pen.brush());
            return;
        }
        m_painter.setPen(m_pen);
        const QPointF centre = line.center();
        if (horizontal)
            m_painter.drawLine(QPointF(line.left(), centre.y()), QPointF(line.right(), centre.y()));
        else
            m_painter.drawLine(QPointF(centre.x(), line.top()), QPointF(centre.x(), line.bottom()));
    }

    QPainter& m_painter;
    QPen m_pen;
    QTransform m_logical;
    QTransform m_toDevice;
    double m_width = 1.0;
};

/// The centres of the area's outermost pixels.
struct Edges
{
    explicit Edges(const QRect& area)
        : left(area.left() + 0.5)
        , top(area.top() + 0.5)
        , right(area.right() + 0.5)
        , bottom(area.bottom() + 0.5)
    {
    }

    double left;
    double top;
    double right;
    double bottom;
};

void drawGrid(QPainter& painter, const CurvePlotPicture& picture)
{
    const CurvePlotLayout& layout = picture.layout;
    const Edges edges(layout.area());
    CrispLines lines(painter, picture.scheme.grid(), picture.scale);
    for (const double value : layout.vertGridLines())
        lines.horizontal(layout.vert().position(value), edges.left, edges.right);
    for (const double value : layout.horzGridLines())
        lines.vertical(layout.horz().position(value), edges.top, edges.bottom);
}

void drawBorder(QPainter& painter, const CurvePlotPicture& picture)
{
    const CurvePlotLayout& layout = picture.layout;
    const Edges edges(layout.area());
    CrispLines lines(painter, picture.scheme.border(), picture.scale);
    lines.horizontal(edges.top, edges.left, edges.right);
    lines.horizontal(edges.bottom, edges.left, edges.right);
    lines.vertical(edges.left, edges.top, edges.bottom);
    lines.vertical(edges.right, edges.top, edges.bottom);
    for (const CurvePlotLayout::Number& number : layout.vertNumbers())
        lines.horizontal(layout.vert().position(number.value), edges.left - layout.tickLength(), edges.left);
    for (const CurvePlotLayout::Number& number : layout.horzNumbers())
        lines.vertical(layout.horz().position(number.value), edges.bottom,
                       edges.bottom + layout.tickLength());
}

/// Numbers stand on the lower edge of their places.
void drawNumbers(QPainter& painter, const QVector<CurvePlotLayout::Number>& numbers)
{
    for (const CurvePlotLayout::Number& number : numbers) {
        const QPointF start(std::round(number.place.left()), std::round(number.place.bottom()));
        painter.drawText(start, number.text);
    }
}

void drawTitle(QPainter& painter, const CurvePlotLayout::Title& title)
{
    painter.drawText(title.place, Qt::AlignCenter | Qt::TextSingleLine, title.lines.value(0));
}

void drawVertTitle(QPainter& painter, const CurvePlotLayout::Title& title)
{
    if (title.lines.isEmpty())
        return;
    painter.save();
    painter.translate(title.place.bottomLeft());
    painter.rotate(-90.0);
    const double thickness = title.place.width() / title.lines.size();
    for (int i = 0; i < title.lines.size(); ++i) {
        const QRectF place(0.0, i * thickness, title.place.height(), thickness);
        painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, title.lines[i]);
    }
    painter.restore();
}

void drawTexts(QPainter& painter, const CurvePlotPicture& picture)
{
    painter.setPen(picture.scheme.border().color());
    painter.setFont(picture.scheme.axis());
    drawNumbers(painter, picture.layout.horzNumbers());
    drawNumbers(painter, picture.layout.vertNumbers());
    painter.setFont(picture.scheme.axisTitle());
    drawTitle(painter, picture.layout.horzTitle());
    drawVertTitle(painter, picture.layout.vertTitle());
    painter.setFont(picture.scheme.title());
    drawTitle(painter, picture.layout.title());
}

} // namespace

void drawCurvePlot(QPainter& painter, const QRect& rect, const CurvePlotPicture& picture)
{
    const CurvePlotLayout& layout = picture.layout;
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.fillRect(rect, picture.scheme.bkg());
    drawGrid(painter, picture);
    drawBorder(painter, picture);
    CurvesView view;
    view.area = layout.area();
    view.horz = layout.horz();
    view.vert = layout.vert();
    view.foreground = picture.scheme.border().color();
    view.scale = picture.scale;
    view.isPrint = picture.isPrint;
    drawCurves(painter, picture.curves, picture.order, view);
    drawTexts(painter, picture);
    painter.restore();
}

void drawPointMark(QPainter& painter, const QPointF& place, double radius, const QColor& color,
                   const QColor& background)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(background, radius * 0.9));
    painter.drawEllipse(place, radius, radius);
    painter.setPen(QPen(color, radius * 0.4));
    painter.drawEllipse(place, radius, radius);
    painter.restore();
}
