#include "strippainter.h"

#include "kirolabel.h"
#include "labelpainter.h"
#include "stripcurve.h"
#include "striprule.h"

#include <QPainter>

#include <cmath>

namespace
{

/// How much of the text colour the quiet lines have.
constexpr double PartingLine = 0.25;
constexpr double AxisLine = 0.6;

} // namespace

StripPainter::StripPainter(const StripLayout& layout, const StripLook& look, const std::vector<Plot>& plots)
    : m_layout(layout)
    , m_look(look)
    , m_plots(plots)
{
}

void StripPainter::draw(QPainter& painter, const QList<KiroLabel>& labels, double tolerance) const
{
    painter.fillRect(m_layout.contents(), m_look.background());
    if (m_layout.strips().isEmpty())
        return;
    painter.setFont(m_look.font());
    const LabelPainter labelPainter(m_layout, m_look, m_plots, labels);
    labelPainter.drawBands(painter);
    drawGrid(painter);
    drawCurves(painter, tolerance);
    drawAxes(painter);
    drawTitles(painter);
    labelPainter.drawMarks(painter);
}

void StripPainter::drawGrid(QPainter& painter) const
{
    painter.setPen(m_look.pen(m_look.scheme().grid()));
    const QRectF area = m_layout.plotArea();
    if (m_look.scheme().horzGrid()) {
        for (const AxisMark& mark : m_layout.timeMarks())
            drawRule(painter, QLineF(mark.position, area.top(), mark.position, area.bottom() - 1.0));
    }
    if (!m_look.scheme().vertGrid())
        return;
    for (const StripBox& box : m_layout.strips()) {
        for (const AxisMark& mark : box.marks)
            drawRule(painter, QLineF(area.left(), mark.position, area.right(), mark.position));
    }
}

void StripPainter::drawCurves(QPainter& painter, double tolerance) const
{
    const TimeAxis& axis = m_layout.timeAxis();
    if (!axis.isUsable())
        return;
    const QPen pen = m_look.dataPen();
    for (const StripBox& box : m_layout.strips()) {
        const Plot& plot = m_plots[static_cast<std::size_t>(box.plot)];
        StripView view;
        view.rect = box.rect;
        view.first = plot.rangeStart();
        view.count = plot.rangeCount();
        view.timePerSample = plot.timePerSample;
        view.timeOffset = plot.timeOffset;
        view.horzMin = axis.min;
        view.horzMax = axis.max;
        view.scaleMin = box.edge.least;
        view.scaleMax = box.edge.greatest;
        view.calibFactor = plot.drawnFactor();
        view.calibOffset = plot.drawnOffset();
        view.connected = m_look.scheme().drawStyle() == MultiPlotScheme::Lines;
        view.tolerance = tolerance;
        drawStripCurve(painter, plot.samples(), view, pen);
    }
}

void StripPainter::drawAxes(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    const QRectF area = m_layout.plotArea();
    const double tick = m_layout.tickLength();
    QVector<QLineF> axisLines = {
        QLineF(area.left() - 1.0, area.top(), area.left() - 1.0, area.bottom() - 1.0)};
    QVector<QLineF> partingLines;
    const double left = m_layout.contents().left();
    const double right = m_layout.contents().right();
    for (const StripBox& box : m_layout.strips()) {
        // Between curves a few pixels high the lines would be all that is seen.
        if (box.rect.height() >= m_look.metrics().capHeight())
            partingLines.append(QLineF(left, box.rect.bottom(), right, box.rect.bottom()));
        for (const AxisMark& mark : box.marks)
            axisLines.append(QLineF(area.left() - tick, mark.position, area.left() - 1.0, mark.position));
    }
    const double bottom = area.bottom() - 1.0;
    if (!m_layout.timeMarks().isEmpty())
        axisLines.append(QLineF(left, bottom, right, bottom));
    for (const AxisMark& mark : m_layout.timeMarks())
        axisLines.append(
            QLineF(mark.position, bottom, mark.position, bottom + tick * (mark.text.isEmpty() ? 0.5 : 1.0)));
    painter.setPen(m_look.quietPen(PartingLine));
    for (const QLineF& line : qAsConst(partingLines))
        drawRule(painter, line);
    painter.setPen(m_look.quietPen(AxisLine));
    for (const QLineF& line : qAsConst(axisLines))
        drawRule(painter, line);
}

void StripPainter::drawTitles(QPainter& painter) const
{
    painter.setPen(m_look.text());
    for (const StripBox& box : m_layout.strips()) {
        for (const AxisMark& mark : box.marks)
            drawNumber(painter, mark);
        QRectF line = box.titleRect;
        line.setHeight(m_look.metrics().height());
        for (const QString& text : box.titleLines) {
            painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                             text);
            line.translate(0.0, m_look.metrics().height());
        }
    }
    for (const AxisMark& mark : m_layout.timeMarks()) {
        if (!mark.text.isEmpty())
            painter.drawText(mark.textRect, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip,
                             mark.text);
    }
    painter.drawText(m_layout.timeTitleRect(),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     m_layout.timeTitle());
}

void StripPainter::drawNumber(QPainter& painter, const AxisMark& mark) const
{
    if (mark.text.isEmpty())
        return;
    // Digits have no descenders, so they are centred by the height of capitals.
    const double baseline = mark.textRect.center().y() + m_look.metrics().capHeight() / 2.0;
    painter.drawText(QPointF(mark.textRect.left(), std::round(baseline)), mark.text);
}
