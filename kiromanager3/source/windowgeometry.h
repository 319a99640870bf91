#pragma once

#include <QPoint>
#include <QSize>

class IniStore;
class QString;
class QWidget;

/// Where a window stood, as every window keeps it in its section of the settings: "win_max", and "win_pos"
/// and "win_size" unless it was maximized. A window that closes minimized keeps nothing.
struct WindowGeometry
{
    bool maximized = false;
    QPoint position; ///< of the frame's corner on the desktop
    QSize size;      ///< without the frame

    /// What the section holds for `window`. What is missing or cannot be shown is made up: not maximized, the
    /// window's present size, and the place that centres the size on the desktop.
    static WindowGeometry read(const IniStore& store, const QString& section, const QWidget& window);
    /// Moves and resizes the window, which a dialog does before it runs.
    void place(QWidget& window) const;
    /// Moves, resizes and shows the window.
    void show(QWidget& window) const;

    /// Writes the present geometry of `window` into the section, which must exist.
    static void write(IniStore& store, const QString& section, const QWidget& window);
};
