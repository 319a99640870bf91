#pragma once

#include <functional>

class QPainter;
class QRect;
class QString;
class QWidget;

/// Takes a picture of a widget under a name.
using KeepWidget = std::function<void(QWidget& widget, const QString& name)>;
/// Prints a page under a name: `draw` gets a painter on paper and the rectangle to fill.
using KeepPage = std::function<void(const QString& name,
                                    const std::function<void(QPainter& painter, const QRect& rect)>& draw)>;

/// Shows the plot widgets in all modes and styles, and prints them.
void showPlots(const KeepWidget& keep, const KeepPage& keepPage);
/// Shows those of the plot widgets whose colours are the desktop's.
void showPlotsOfDesktop(const KeepWidget& keep);
