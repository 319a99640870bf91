#pragma once

#include <QLineF>

class QPainter;

/// Draws level or upright lines with the painter's pen. A solid pen fills rectangles, which paints the same
/// pixels as a line does at a small part of the cost; the ends are square to the line and not rounded.
void drawRule(QPainter& painter, const QLineF& line);
