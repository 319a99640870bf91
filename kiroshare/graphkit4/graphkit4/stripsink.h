#pragma once

#include "columnspans.h"

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QVector>

/// What a curve is handed to, from left to right, in pixels.
class StripSink
{
public:
    virtual ~StripSink() = default;

    /// Goes on to a sample; after a gap, and at first, the curve begins there.
    virtual void lineTo(double x, double y) = 0;
    /// The curve passes between these heights before it leaves the column of `x`.
    virtual void bar(double x, double high, double low) = 0;
    /// The curve ends; harmless where there is none.
    virtual void gap() = 0;
    /// Whether the sink knows that a bar would not change the picture.
    virtual bool covers(double x, double high, double low) const;
};

/// Lights pixels: of each column those rows whose centres the curve passes and those that it turns or ends
/// in; at least one.
class ColumnRaster final : public StripSink
{
public:
    explicit ColumnRaster(const QRect& canvas);

    void lineTo(double x, double y) override;
    void bar(double x, double high, double low) override;
    void gap() override;
    bool covers(double x, double high, double low) const override;
    /// What has been lit; complete after a gap().
    const std::vector<ColumnSpan>& spans() const { return m_list.spans(); }

private:
    int columnOf(double x) const;
    ColumnSpan litRows() const;
    ColumnSpan clipped(int top, int bottom) const;
    void turn();
    void enterColumn(int column, double y);
    void closeColumn();

    QRect m_canvas;
    SpanList m_list;
    bool m_drawing = false; ///< the following are of the point that was last gone to
    int m_column = 0;
    double m_x = 0.0;
    double m_y = 0.0;
    double m_step = 0.0; ///< the last change of height
    double m_high = 0.0; ///< heights that the curve has passed in this column ...
    double m_low = 0.0;
    int m_topTurn = 0; ///< ... and rows of its turns there, the upper one below the other if there are none
    int m_bottomTurn = 0;
};

/// Hands a curve on and lights the pixels that its ends stand on, also those of samples between two gaps.
class RunEnds final : public StripSink
{
public:
    /// The ends stand on a grid of their own, at the curve's places times `scale` and moved by `shift` right
    /// and down. `canvas` is that of this grid.
    RunEnds(StripSink& target, const QRect& canvas, double scale, double shift);

    void lineTo(double x, double y) override;
    void bar(double x, double high, double low) override;
    void gap() override;
    bool covers(double x, double high, double low) const override;
    /// Complete after a gap().
    const std::vector<ColumnSpan>& spans() const { return m_list.spans(); }

private:
    void light(double x, double y);
    void begin(double x, double y);

    StripSink& m_target;
    QRect m_canvas;
    double m_scale;
    double m_shift;
    SpanList m_list;
    bool m_drawing = false;
    double m_x = 0.0; ///< where the curve has got to
    double m_y = 0.0;
};

/// Gathers polylines, cut where they leave an area.
class PolylineSink final : public StripSink
{
public:
    explicit PolylineSink(const QRectF& area);

    void lineTo(double x, double y) override;
    void bar(double x, double high, double low) override;
    void gap() override;
    /// Complete after a gap().
    const QVector<QPolygonF>& lines() const { return m_lines; }
    /// Samples between two gaps.
    const QVector<QPointF>& points() const { return m_points; }

private:
    void endLine();

    QRectF m_area;
    QVector<QPolygonF> m_lines;
    QVector<QPointF> m_points;
    QPolygonF m_line;
    bool m_drawing = false;
    int m_samples = 0; ///< since the last gap
    QPointF m_last;
};

/// Parts a curve into its gentle and its steep lines.
///
/// The edges of a smooth line are blurred by up to a pixel across, and in steep lines that is many rows.
class SteepFilter final : public StripSink
{
public:
    /// Rows a column; a line is steep above.
    static constexpr double GreatestSlope = 3.0;

    /// The places of steep lines are multiplied by `scale`.
    SteepFilter(StripSink& gentle, StripSink& steep, double scale);

    void lineTo(double x, double y) override;
    void bar(double x, double high, double low) override;
    void gap() override;

private:
    void handOn(const QPointF& point);
    void endLine();

    StripSink& m_gentle;
    StripSink& m_steep;
    double m_scale;
    bool m_drawing = false;
    StripSink* m_current = nullptr; ///< the one that got the last line; null if there is none
    QPointF m_last;
};

/// Hands on fewer points, so that the polyline through them stays within `tolerance` pixels, measured
/// vertically, of the one through all: a point is left out while one line from the last kept point passes
/// all those left out.
class ToleranceFilter final : public StripSink
{
public:
    ToleranceFilter(StripSink& target, double tolerance);

    void lineTo(double x, double y) override;
    void bar(double x, double high, double low) override;
    void gap() override;

private:
    void keep(const QPointF& point);

    StripSink& m_target;
    double m_tolerance;
    bool m_drawing = false;
    bool m_pending = false; ///< m_candidate is not yet kept
    QPointF m_anchor;       ///< the last point kept
    QPointF m_candidate;    ///< the last point
    double m_least = 0.0;   ///< slopes of lines that pass all points since the anchor
    double m_greatest = 0.0;
};
