#include "curvepainter.h"

#include "columnfill.h"
#include "curvetrace.h"
#include "linecanvas.h"

#include <QFontInfo>
#include <QGlyphRun>
#include <QPaintEngine>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <vector>

namespace
{

/// Antialiased lines of so many pixels take a few milliseconds.
constexpr double MostFineInk = 400000.0;
/// On paper a little patience pays.
constexpr double MostFineInkOfPrint = 50.0 * MostFineInk;
/// How much longer a pixel of a wide line takes, and the start of any line.
constexpr double CostOfWidth = 8.0;
constexpr double CostOfPoint = 10.0;
constexpr double CostOfCurve = 40.0;
/// QPainter's time for a wide line grows with the square of its points where it crosses itself.
constexpr int PointsOfWideLine = 32;
constexpr double PixelsOfDash = 4.0;
constexpr double LeastDotWidth = 3.0;
constexpr double LeastLoneDotWidth = 2.0;
constexpr int MostRoundDots = 3000;
/// A canvas costs as much as filling the area, so that it isn't changed with QPainter too often.
constexpr int MostCanvases = 16;
constexpr double MostCanvasPixels = 1e8;

bool isDashed(const QPen& pen)
{
    return pen.style() != Qt::SolidLine && pen.style() != Qt::NoPen;
}

bool isDots(const Curve& curve)
{
    return curve.style() == Curve::Dots ||
           (curve.style() == Curve::Plain && curve.hasPen() && curve.pen().style() == Qt::NoPen);
}

/// Whether the points are so close that dashes along the line would drown in its noise.
bool isCrowded(const CurveTrace& trace)
{
    const QVector<QPointF>& points = trace.points();
    return trace.isDense() || std::abs(points.last().x() - points.first().x()) < points.size() * PixelsOfDash;
}

/// A character and where its middle lies.
struct Glyph
{
    QGlyphRun run;
    QPointF centre;

    bool isValid() const { return !run.isEmpty(); }
};

Glyph glyphOf(QChar character, const QFont& font)
{
    Glyph glyph;
    if (!character.isPrint() || character.isSpace())
        return glyph;
    QTextLayout layout(QString(character), font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    if (runs.isEmpty() || runs.first().glyphIndexes().isEmpty())
        return glyph;
    glyph.run = runs.first();
    glyph.centre = glyph.run.rawFont().boundingRect(glyph.run.glyphIndexes().first()).center();
    return glyph;
}

class CurvePainter
{
public:
    CurvePainter(QPainter& painter, const CurvesView& view)
        : m_painter(painter)
        , m_view(view)
        , m_logical(painter.worldTransform())
    {
        painter.setClipRect(view.area, Qt::IntersectClip);
        const QTransform device = painter.deviceTransform();
        const bool isUpright =
            device.m11() > 0.0 && device.m22() > 0.0 && device.type() <= QTransform::TxScale;
        m_isImage =
            isUpright && painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster;
        m_toDevice = isUpright ? device : QTransform();
        m_inDevice = isUpright ? device.inverted() * m_logical : m_logical;
        m_deviceView.horz = deviceAxis(view.horz, m_toDevice.m11(), m_toDevice.dx());
        m_deviceView.vert = deviceAxis(view.vert, m_toDevice.m22(), m_toDevice.dy());
        m_deviceArea = m_toDevice.mapRect(QRectF(view.area));
    }
    ~CurvePainter()
    {
        flush();
        m_painter.setWorldTransform(m_logical);
    }
    CurvePainter(const CurvePainter&) = delete;
    CurvePainter& operator=(const CurvePainter&) = delete;

    void draw(const QList<Curve>& curves, const QVector<int>& order)
    {
        m_isFine = !m_isImage || isCheap(curves, order);
        m_painter.setWorldTransform(m_inDevice);
        std::size_t traced = 0;
        for (const int index : order) {
            const Curve& curve = curves[index];
            if (!curve.isVisible())
                continue;
            if (curve.style() == Curve::Characters)
                drawCharacters(curve);
            else if (isDots(curve))
                drawDots(curve);
            else if (traced < m_traces.size())
                drawLine(curve, m_traces[traced++]);
            else
                drawLine(curve, CurveTrace(curve, viewFor(curve)));
        }
    }

private:
    static DeviceAxis deviceAxis(const AxisMapping& mapping, double factor, double offset)
    {
        return {mapping.min(), (mapping.firstPixel() + 0.5) * factor + offset,
                mapping.pixelsPerUnit() * factor};
    }
    double deviceScale() const { return m_view.scale * m_toDevice.m11(); }
    double widthOf(const Curve& curve) const
    {
        return std::max(curve.hasPen() ? curve.pen().widthF() : 1.0, 1.0) * deviceScale();
    }
    QPen penOf(const Curve& curve) const
    {
        QPen pen = curve.hasPen() ? curve.pen() : QPen(m_view.foreground);
        pen.setWidthF(widthOf(curve));
        pen.setCosmetic(false);
        return pen;
    }
    /// As penOf(); many curves with the same pen one after the other get it faster.
    const QPen& linePenOf(const Curve& curve)
    {
        const QPen source = curve.hasPen() ? curve.pen() : QPen(m_view.foreground);
        if (!m_hasLinePen || source != m_linePenSource) {
            m_linePenSource = source;
            m_linePen = penOf(curve);
            m_hasLinePen = true;
        }
        return m_linePen;
    }
    /// With the room outside of the area from which a line or mark still reaches into it.
    DeviceView viewFor(const Curve& curve, double markWidth = 0.0) const
    {
        DeviceView view = m_deviceView;
        const double beside = std::max(widthOf(curve), markWidth) + 2.0;
        view.clip = m_deviceArea.adjusted(-beside, -beside, beside, beside);
        return view;
    }

    /// Whether all lines together can be antialiased; keeps the traces that it has made to find out.
    bool isCheap(const QList<Curve>& curves, const QVector<int>& order)
    {
        double cost = 0.0;
        m_traces.reserve(static_cast<std::size_t>(order.size()));
        for (const int index : order) {
            const Curve& curve = curves[index];
            if (!curve.isVisible() || curve.style() == Curve::Characters || isDots(curve))
                continue;
            m_traces.emplace_back(curve, viewFor(curve));
            const CurveTrace& trace = m_traces.back();
            const bool slow = widthOf(curve) > 1.0 && !trace.isDense();
            cost +=
                CostOfCurve + trace.points().size() * CostOfPoint + trace.ink() * (slow ? CostOfWidth : 1.0);
            if (cost > (m_view.isPrint ? MostFineInkOfPrint : MostFineInk))
                return false;
        }
        return true;
    }

    void setPen(const QPen& pen)
    {
        if (pen != m_painter.pen())
            m_painter.setPen(pen);
    }

    void drawLine(const Curve& curve, const CurveTrace& trace)
    {
        if (trace.runCount() == 0)
            return;
        const QPen& pen = linePenOf(curve);
        const bool opaque = pen.brush().isOpaque();
        // In whole columns a dense line is crisp. Among many lines the canvas draws such columns as well.
        const bool columns = isDashed(pen) ? curve.extent().ordered && isCrowded(trace)
                                           : trace.isDense() && (m_isFine || !opaque);
        if (m_isImage && columns) {
            drawColumns(curve, trace, pen);
        } else if (!m_isFine && !isDashed(pen) && opaque && prepareCanvas()) {
            const int width = std::max(1, static_cast<int>(std::lround(pen.widthF())));
            const QRgb color = pen.color().rgb();
            for (int run = 0; run < trace.runCount(); ++run)
                m_canvas->drawPolyline(trace.points().constData() + trace.runStart(run),
                                       trace.runEnd(run) - trace.runStart(run), width, color);
        } else {
            drawPolylines(trace, pen);
        }
    }

    void drawColumns(const Curve& curve, const CurveTrace& trace, const QPen& pen)
    {
        flushCanvas();
        const QRect canvas = viewFor(curve).clip.toAlignedRect();
        if (isDashed(pen) || !pen.brush().isOpaque()) {
            flushColumns();
            fillRects(
                columnsOf(trace, canvas, pen.widthF(), isDashed(pen) ? pen.dashPattern() : QVector<qreal>()),
                pen.brush());
            return;
        }
        // It does not show in what order opaque columns of one colour are drawn.
        if (m_columns && (pen.widthF() != m_columnPen.widthF() || pen.brush() != m_columnPen.brush()))
            flushColumns();
        if (!m_columns) {
            m_columns.emplace(canvas, pen.widthF());
            m_columnPen = pen;
        }
        m_columns->add(trace);
    }
    void flushColumns()
    {
        if (!m_columns)
            return;
        fillRects(m_columns->rects(), m_columnPen.brush());
        m_columns.reset();
    }
    void fillRects(const std::vector<QRect>& rects, const QBrush& brush)
    {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(brush);
        m_painter.setRenderHint(QPainter::Antialiasing, false);
        m_painter.drawRects(rects.data(), static_cast<int>(rects.size()));
        m_painter.setBrush(Qt::NoBrush);
    }
    /// Before anything is drawn over what is still to be drawn.
    void flush()
    {
        flushColumns();
        flushCanvas();
    }

    void drawPolylines(const CurveTrace& trace, const QPen& pen)
    {
        flush();
        m_painter.setRenderHint(QPainter::Antialiasing, m_isFine);
        setPen(pen);
        const QPointF* points = trace.points().constData();
        QVector<QPointF> loneDots;
        for (int run = 0; run < trace.runCount(); ++run) {
            const int start = trace.runStart(run);
            const int count = trace.runEnd(run) - start;
            if (count == 1)
                loneDots.append(points[start]);
            else if (pen.widthF() > 1.0 && m_isImage)
                drawWide(points + start, count, pen);
            else
                m_painter.drawPolyline(points + start, count);
        }
        if (!loneDots.isEmpty())
            drawRoundDots(loneDots, pen, std::max(pen.widthF(), LeastLoneDotWidth * deviceScale()));
    }

    void drawWide(const QPointF* points, int count, QPen pen)
    {
        double length = 0.0;
        // Where pieces meet, nothing translucent may lie twice.
        if (count > PointsOfWideLine && !pen.brush().isOpaque()) {
            pen.setCapStyle(Qt::FlatCap);
            setPen(pen);
        }
        for (int start = 0; start < count - 1; start += PointsOfWideLine) {
            const int end = std::min(start + PointsOfWideLine + 1, count);
            if (isDashed(pen)) {
                pen.setDashOffset(length / pen.widthF());
                setPen(pen);
            }
            m_painter.drawPolyline(points + start, end - start);
            for (int i = start + 1; i < end; ++i)
                length += std::hypot(points[i].x() - points[i - 1].x(), points[i].y() - points[i - 1].y());
        }
    }

    void drawDots(const Curve& curve)
    {
        const QPen pen = penOf(curve);
        const double width = std::max(pen.widthF(), LeastDotWidth * deviceScale());
        const QVector<QPointF> pixels = pixelsOfPoints(curve, viewFor(curve, width));
        if (pixels.isEmpty())
            return;
        flush();
        if (pixels.size() <= MostRoundDots)
            drawRoundDots(pixels, pen, width);
        else
            drawSquareDots(pixels, pen, width);
    }

    void drawRoundDots(const QVector<QPointF>& pixels, const QPen& pen, double width)
    {
        m_painter.setRenderHint(QPainter::Antialiasing);
        setPen(QPen(pen.brush(), width, Qt::SolidLine, Qt::RoundCap));
        m_painter.drawPoints(pixels.constData(), pixels.size());
    }

    void drawSquareDots(const QVector<QPointF>& pixels, const QPen& pen, double width)
    {
        const int side = std::max(1, static_cast<int>(std::lround(width)));
        QVector<QRect> squares;
        squares.reserve(pixels.size());
        for (const QPointF& pixel : pixels) {
            const QPointF corner = pixel - QPointF(side - 1, side - 1) * 0.5;
            squares.append(QRect(static_cast<int>(std::floor(corner.x())),
                                 static_cast<int>(std::floor(corner.y())), side, side));
        }
        m_painter.setRenderHint(QPainter::Antialiasing, false);
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(pen.brush());
        m_painter.drawRects(squares);
        m_painter.setBrush(Qt::NoBrush);
    }

    void drawCharacters(const Curve& curve)
    {
        const QFont font = m_view.isPrint ? printFont(curve.font(), m_view.scale) : curve.font();
        const Glyph glyph = glyphOf(curve.character(), font);
        if (!glyph.isValid()) {
            drawDots(curve);
            return;
        }
        flush();
        const QSizeF size = glyph.run.boundingRect().size();
        const DeviceView view = viewFor(curve, std::max(size.width(), size.height()) * m_toDevice.m11());
        const QTransform fromDevice = m_toDevice.inverted();
        QVector<QPointF> places = pixelsOfPoints(curve, view);
        for (QPointF& place : places)
            place = fromDevice.map(place) - glyph.centre;
        if (places.isEmpty())
            return;
        QGlyphRun run = glyph.run;
        run.setGlyphIndexes(QVector<quint32>(places.size(), glyph.run.glyphIndexes().first()));
        run.setPositions(places);
        m_painter.setWorldTransform(m_logical);
        setPen(QPen(penOf(curve).color()));
        m_painter.drawGlyphRun(QPointF(), run);
        m_painter.setWorldTransform(m_inDevice);
    }

    /// False if lines have to be drawn by QPainter.
    bool prepareCanvas()
    {
        flushColumns();
        if (m_canvas)
            return true;
        const QRect rect = m_deviceArea.toAlignedRect();
        if (m_canvasCount >= MostCanvases || double(rect.width()) * rect.height() > MostCanvasPixels)
            return false;
        ++m_canvasCount;
        m_canvas = std::make_unique<LineCanvas>(rect);
        if (!m_canvas->isUsable())
            m_canvas.reset();
        return m_canvas != nullptr;
    }
    void flushCanvas()
    {
        if (!m_canvas)
            return;
        m_painter.drawImage(m_canvas->rect().topLeft(), m_canvas->image());
        m_canvas.reset();
    }

    QPainter& m_painter;
    const CurvesView& m_view;
    QTransform m_logical;  // as the caller has set it
    QTransform m_inDevice; // with which coordinates are the device's own pixels
    QTransform m_toDevice; // from the caller's coordinates
    DeviceView m_deviceView;
    QRectF m_deviceArea;
    bool m_isImage = false;
    bool m_isFine = true;
    std::vector<CurveTrace> m_traces;
    std::optional<ColumnFill> m_columns; // not drawn yet, and their pen
    QPen m_columnPen;
    bool m_hasLinePen = false;
    QPen m_linePenSource; // as the last curve has it
    QPen m_linePen;       // as it is drawn
    std::unique_ptr<LineCanvas> m_canvas;
    int m_canvasCount = 0;
};

} // namespace

void drawCurves(QPainter& painter, const QList<Curve>& curves, const QVector<int>& order,
                const CurvesView& view)
{
    painter.save();
    CurvePainter(painter, view).draw(curves, order);
    painter.restore();
}

QFont printFont(const QFont& font, double scale)
{
    QFont sized = font;
    sized.setPixelSize(std::max(1, static_cast<int>(std::lround(QFontInfo(font).pixelSize() * scale))));
    return sized;
}
