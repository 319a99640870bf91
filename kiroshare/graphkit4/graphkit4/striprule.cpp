#include "striprule.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

void drawRule(QPainter& painter, const QLineF& line)
{
    const QPen& pen = painter.pen();
    if (pen.style() != Qt::SolidLine || pen.brush().style() != Qt::SolidPattern) {
        painter.drawLine(line);
        return;
    }
    const double hairline = 1.0 / painter.device()->devicePixelRatioF();
    const double width = std::max(pen.widthF(), hairline);
    // The pixel where a line of one pixel lies is the one that begins at its coordinate.
    const double before = std::floor((width - hairline) / (2.0 * hairline)) * hairline;
    QRectF rect = QRectF(line.p1(), line.p2()).normalized();
    if (line.dx() == 0.0)
        rect = QRectF(rect.left() - before, rect.top(), width, rect.height() + hairline);
    else
        rect = QRectF(rect.left(), rect.top() - before, rect.width() + hairline, width);
    painter.fillRect(rect, pen.color());
}
