#include "previewframe.h"

#include <QPainter>
#include <QPolygonF>

namespace
{

/// Corners of the sample as shares of the frame: a step from one level to another, as an eye's position makes
/// it, so that flat, steep and bent parts of a line are seen.
constexpr double Corners[][2] = {{0.06, 0.72}, {0.4, 0.72}, {0.52, 0.22}, {0.6, 0.32}, {0.94, 0.32}};

} // namespace

PreviewFrame::PreviewFrame(QWidget* parent)
    : QFrame(parent)
    , m_pen(QBrush(Qt::black), 0, Qt::SolidLine, Qt::FlatCap, Qt::BevelJoin)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
}

void PreviewFrame::setPen(const QPen& pen)
{
    m_pen = pen;
    update();
}

void PreviewFrame::setBackground(const QColor& background)
{
    m_background = background;
    update();
}

QSize PreviewFrame::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 32, fontMetrics().height() * 6};
}

QSize PreviewFrame::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 16, fontMetrics().height() * 3};
}

void PreviewFrame::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const QRectF area = contentsRect();
    painter.fillRect(area, m_background);
    QPolygonF sample;
    for (const auto& corner : Corners)
        sample << area.topLeft() + QPointF(corner[0] * area.width(), corner[1] * area.height());
    painter.setClipRect(area);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_pen);
    painter.drawPolyline(sample);
    painter.end();
    QFrame::paintEvent(event);
}
