#include "stripcurve.h"

#include "striptrace.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

/// Below so many samples a pixel, lines are drawn one by one and smoothly; above, columns are filled. Wide
/// lines cost more than their columns much earlier.
constexpr double FewThin = 0.5;
constexpr double FewWide = 0.125;
/// Pixels; wider pens are wide.
constexpr double ThinWidth = 1.5;
/// Up to this width the corners of square caps stand out of round joins by less than half a pixel.
constexpr double WidestSquare = 2.0;

double penWidth(const QPen& pen, const PixelGrid& grid)
{
    const double width = pen.isCosmetic() ? pen.widthF() : pen.widthF() * grid.scale;
    return std::isfinite(width) ? std::max(width, 1.0) : 1.0;
}

/// The pen that draws in pixels what `pen` draws in the painter's coordinates.
QPen pixelPen(const QPen& pen, double width)
{
    QPen made = pen;
    made.setWidthF(width);
    made.setCosmetic(true);
    made.setJoinStyle(Qt::RoundJoin);
    // Dashes keep their form.
    if (pen.style() == Qt::SolidLine)
        made.setCapStyle(Qt::RoundCap);
    return made;
}

/// A level line between two rows would be blurred over both: puts it on one.
void sharpenLevels(QPolygonF& line)
{
    const QPolygonF original = line;
    for (int i = 0; i < line.size(); ++i) {
        const double y = original[i].y();
        const bool level =
            (i > 0 && original[i - 1].y() == y) || (i + 1 < line.size() && original[i + 1].y() == y);
        if (level)
            line[i].setY(std::floor(y) + 0.5);
    }
}

/// Draws one view in pixels; the painter has been set up for them.
class StripDrawing
{
public:
    StripDrawing(QPainter& painter, const PixelGrid& grid, const SampleStore& samples, const StripView& view,
                 const QPen& pen)
        : m_painter(painter)
        , m_samples(samples)
        , m_raster(grid.raster)
        , m_tolerance(view.tolerance)
        , m_width(penWidth(pen, grid))
        , m_finePen(m_width)
        , m_fineness(m_width <= ThinWidth ? 1 : m_finePen.fineness())
        , m_smooth(grid, samples, view, m_finePen.reach() / m_finePen.fineness() + 1)
        , m_sharp(grid.finer(m_fineness), samples, view, m_fineness == 1 ? 1 : m_finePen.reach())
        , m_dotPen(m_width <= ThinWidth ? 1.0 : m_width)
        , m_dots(grid, samples, view, m_dotPen.reach() + 1, m_dotPen.shift())
        , m_pen(pixelPen(pen, m_width))
    {
    }

    bool isUsable() const { return m_sharp.isUsable(); }
    void drawPoints();
    void drawCurve();

private:
    bool isSparse() const;
    bool canBeLines() const;
    void trace(const StripGeometry& geometry, StripSink& sink) const;
    void drawLines();
    void drawPoint(const QPointF& point);
    void drawLine(const QPolygonF& line);
    void fill(const ColumnRaster& lines, const RunEnds& ends);
    void fill(const std::vector<ColumnSpan>& spans);

    QPainter& m_painter;
    const SampleStore& m_samples;
    bool m_raster;
    double m_tolerance;
    double m_width;
    FinePen m_finePen;
    int m_fineness;         ///< columns of m_sharp in one of m_smooth
    StripGeometry m_smooth; ///< for lines
    StripGeometry m_sharp;  ///< for columns and rows
    RoundPen m_dotPen;
    StripGeometry m_dots; ///< for points and the ends of wide lines
    QPen m_pen;
};

bool StripDrawing::isSparse() const
{
    const double few = m_width <= ThinWidth ? FewThin : FewWide;
    return m_smooth.end() - m_smooth.first() <= few * m_smooth.canvas().width();
}

/// Whether lines drawn one by one look like one curve.
bool StripDrawing::canBeLines() const
{
    return m_pen.style() != Qt::SolidLine || (m_width <= WidestSquare && m_pen.brush().isOpaque());
}

void StripDrawing::trace(const StripGeometry& geometry, StripSink& sink) const
{
    if (!(m_tolerance > 0.0)) {
        traceStrip(m_samples, geometry, sink);
        return;
    }
    // The points of a column may be off by up to a pixel already.
    ToleranceFilter filter(sink, std::max(m_tolerance - 1.0, 0.0));
    traceStrip(m_samples, geometry, filter);
}

void StripDrawing::drawLines()
{
    // Cuts lie so far outside that neither caps nor joins are seen.
    const double margin = m_width + 2.0;
    PolylineSink lines(QRectF(m_smooth.canvas()).adjusted(-margin, -margin, margin, margin));
    const bool isSolid = m_raster && m_pen.style() == Qt::SolidLine;
    if (isSolid) {
        ColumnRaster raster(m_sharp.canvas());
        SteepFilter filter(lines, raster, m_fineness);
        RunEnds ends(filter, m_dots.canvas(), 1.0, m_dotPen.shift());
        trace(m_smooth, ends);
        fill(raster, ends);
    } else {
        trace(m_smooth, lines);
    }
    if (m_smooth.isMirrored()) {
        m_painter.translate(m_smooth.mirrored(0.0), 0.0);
        m_painter.scale(-1.0, 1.0);
    }
    m_painter.setRenderHint(QPainter::Antialiasing, m_raster);
    m_painter.setPen(m_pen);
    for (const QPointF& point : lines.points()) {
        if (!isSolid)
            drawPoint(point);
    }
    for (QPolygonF line : lines.lines()) {
        if (m_raster)
            sharpenLevels(line);
        drawLine(line);
    }
}

/// Lights the pixel of a point.
void StripDrawing::drawPoint(const QPointF& point)
{
    const QPointF corner(std::floor(point.x()), std::floor(point.y()));
    if (m_width <= ThinWidth)
        m_painter.fillRect(QRectF(corner, QSizeF(1.0, 1.0)), m_pen.brush());
    else
        m_painter.drawPoint(corner + QPointF(0.5, 0.5));
}

void StripDrawing::drawLine(const QPolygonF& line)
{
    if (!m_raster || m_pen.style() != Qt::SolidLine) {
        m_painter.drawPolyline(line);
        return;
    }
    QPen pen = m_pen;
    if (m_width <= ThinWidth) {
        // A round cap would reach into a column that the line does not.
        drawPoint(line.first());
        drawPoint(line.last());
        pen.setCapStyle(Qt::FlatCap);
        m_painter.setPen(pen);
        m_painter.drawPolyline(line);
        return;
    }
    // Many times as fast as stroking a wide polyline.
    QVector<QLineF> lines;
    for (int i = 1; i < line.size(); ++i)
        lines.append(QLineF(line[i - 1], line[i]));
    pen.setCapStyle(Qt::SquareCap);
    m_painter.setPen(pen);
    m_painter.drawLines(lines);
}

void StripDrawing::fill(const std::vector<ColumnSpan>& spans)
{
    std::vector<QRect> rects = rectsOf(spans);
    if (m_smooth.isMirrored()) {
        for (QRect& rect : rects)
            rect.moveLeft(int(m_smooth.mirrored(rect.left() + rect.width())));
    }
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_pen.brush());
    m_painter.drawRects(rects.data(), int(rects.size()));
}

/// Lights lines and their ends.
void StripDrawing::fill(const ColumnRaster& lines, const RunEnds& ends)
{
    const std::vector<ColumnSpan>& spans = lines.spans();
    fill(united(m_fineness == 1 ? spans : m_finePen.widened(spans), m_dotPen.widened(ends.spans())));
}

void StripDrawing::drawPoints()
{
    fill(m_dotPen.widened(traceStripPoints(m_samples, m_dots)));
}

void StripDrawing::drawCurve()
{
    if (!m_raster || (isSparse() && canBeLines())) {
        drawLines();
        return;
    }
    ColumnRaster raster(m_sharp.canvas());
    RunEnds ends(raster, m_dots.canvas(), 1.0 / m_fineness, m_dotPen.shift());
    trace(m_sharp, m_fineness == 1 ? static_cast<StripSink&>(raster) : ends);
    fill(raster, ends);
}

} // namespace

void drawStripCurve(QPainter& painter, const SampleStore& samples, const StripView& view, const QPen& pen)
{
    const PixelGrid grid(painter, view.rect);
    if (grid.visible.isEmpty() || pen.style() == Qt::NoPen)
        return;
    StripDrawing drawing(painter, grid, samples, view, pen);
    if (!drawing.isUsable())
        return;
    painter.save();
    painter.setWorldTransform(grid.fromView.inverted(), true);
    painter.setClipRect(grid.visible, Qt::IntersectClip);
    if (view.connected)
        drawing.drawCurve();
    else
        drawing.drawPoints();
    painter.restore();
}
