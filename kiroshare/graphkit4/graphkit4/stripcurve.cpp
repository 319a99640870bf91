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
        , m_round(m_width)
        , m_geometry(grid, samples, view, m_round.reach() + 1)
        , m_pen(pixelPen(pen, m_width))
    {
    }

    bool isUsable() const { return m_geometry.isUsable(); }
    void drawPoints();
    void drawCurve();

private:
    bool isSparse() const;
    void trace(StripSink& sink) const;
    void drawLines();
    void fill(const std::vector<ColumnSpan>& spans);

    QPainter& m_painter;
    const SampleStore& m_samples;
    bool m_raster;
    double m_tolerance;
    double m_width;
    RoundPen m_round;
    StripGeometry m_geometry;
    QPen m_pen;
};

bool StripDrawing::isSparse() const
{
    const double few = m_width <= ThinWidth ? FewThin : FewWide;
    return m_geometry.end() - m_geometry.first() <= few * m_geometry.canvas().width();
}

void StripDrawing::trace(StripSink& sink) const
{
    if (!(m_tolerance > 0.0)) {
        traceStrip(m_samples, m_geometry, sink);
        return;
    }
    // The points of a column may be off by up to a pixel already.
    ToleranceFilter filter(sink, std::max(m_tolerance - 1.0, 0.0));
    traceStrip(m_samples, m_geometry, filter);
}

void StripDrawing::drawLines()
{
    // Cuts lie so far outside that neither caps nor joins are seen.
    const double margin = m_width + 2.0;
    PolylineSink sink(QRectF(m_geometry.canvas()).adjusted(-margin, -margin, margin, margin));
    trace(sink);
    m_painter.setPen(m_pen);
    if (m_geometry.isMirrored()) {
        m_painter.translate(m_geometry.mirrored(0.0), 0.0);
        m_painter.scale(-1.0, 1.0);
    }
    m_painter.setRenderHint(QPainter::Antialiasing, m_raster);
    for (QPolygonF line : sink.lines()) {
        if (m_raster)
            sharpenLevels(line);
        m_painter.drawPolyline(line);
    }
    for (const QPointF& point : sink.points())
        m_painter.drawPoint(QPointF(std::floor(point.x()) + 0.5, std::floor(point.y()) + 0.5));
}

void StripDrawing::fill(const std::vector<ColumnSpan>& spans)
{
    std::vector<QRect> rects = rectsOf(m_round.widened(spans));
    if (m_geometry.isMirrored()) {
        for (QRect& rect : rects)
            rect.moveLeft(int(m_geometry.mirrored(rect.left() + rect.width())));
    }
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_pen.brush());
    m_painter.drawRects(rects.data(), int(rects.size()));
}

void StripDrawing::drawPoints()
{
    fill(traceStripPoints(m_samples, m_geometry));
}

void StripDrawing::drawCurve()
{
    if (!m_raster || isSparse()) {
        drawLines();
        return;
    }
    ColumnRaster raster(m_geometry.canvas());
    trace(raster);
    fill(raster.spans());
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
