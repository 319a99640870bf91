#pragma once

#include <QImage>
#include <QPointF>
#include <QRect>

/// A transparent picture of a part of a device for very many plain lines: opaque, solid and not antialiased,
/// which QPainter draws several times more slowly, above all the wide ones.
///
/// Each line lights every pixel column (or, if it is steep, row) that it passes, as thick as the pen across
/// its direction; corners of wide lines are filled up with squares.
class LineCanvas
{
public:
    /// The pixels of the device that can be drawn into.
    explicit LineCanvas(const QRect& rect);

    /// False if there was no memory for the picture; it must not be drawn into then.
    bool isUsable() const { return !m_image.isNull(); }
    /// To be drawn at rect().topLeft().
    const QImage& image() const { return m_image; }
    QRect rect() const { return m_rect; }

    /// A polyline `width` pixels wide, at least 1; a single point is a square. The points lie within some
    /// thousand pixels of the rectangle.
    void drawPolyline(const QPointF* points, int count, int width, QRgb color);

private:
    void drawLine(const QPointF& from, const QPointF& to, int width, QRgb color);
    void drawFlat(const QPointF& from, const QPointF& to, int height, QRgb color);
    void drawSteep(const QPointF& from, const QPointF& to, int width, QRgb color);
    void fill(int left, int top, int width, int height, QRgb color);

    QRect m_rect;
    QImage m_image;
    QRgb* m_pixels = nullptr;
    int m_pixelsPerLine = 0;
};
