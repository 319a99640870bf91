#include "windowgeometry.h"

#include "appconfig.h"
#include "inistore.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace
{

/// The window system counts no further than this, in sizes and to both sides in places.
constexpr int MostPixels = 32767;

QPoint asPoint(const QSize& size)
{
    return {size.width(), size.height()};
}

QSize asSize(const QPoint& point)
{
    return {point.x(), point.y()};
}

bool canBeShown(const QSize& size)
{
    return !size.isEmpty() && size.width() <= MostPixels && size.height() <= MostPixels;
}

/// Whether some of it is on a screen: one of those that were there before may be gone.
bool isOnAScreen(const QPoint& position, const QSize& size)
{
    constexpr QRect Countable(-MostPixels, -MostPixels, 2 * MostPixels, 2 * MostPixels);
    const QList<QScreen*> screens = QGuiApplication::screens();
    return Countable.contains(position) &&
           std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
               return screen->geometry().intersects(QRect(position, size));
           });
}

QPoint centredPosition(const QSize& size)
{
    QRect rectangle(QPoint(), size);
    if (const QScreen* const screen = QGuiApplication::primaryScreen())
        rectangle.moveCenter(screen->availableGeometry().center());
    return rectangle.topLeft();
}

} // namespace

WindowGeometry WindowGeometry::read(const IniStore& store, const QString& section, const QWidget& window)
{
    const AppConfig& config = appConfig();
    WindowGeometry geometry;
    geometry.maximized = store.boolValue(section, config.winMaxKey(), false);
    geometry.size = asSize(store.pointValue(section, config.winSizeKey(), asPoint(window.size())));
    if (!canBeShown(geometry.size))
        geometry.size = window.size();
    const QPoint centred = centredPosition(geometry.size);
    geometry.position = store.pointValue(section, config.winPosKey(), centred);
    if (!isOnAScreen(geometry.position, geometry.size))
        geometry.position = centred;
    return geometry;
}

void WindowGeometry::place(QWidget& window) const
{
    window.move(position);
    window.resize(size);
}

void WindowGeometry::show(QWidget& window) const
{
    place(window);
    if (maximized)
        window.showMaximized();
    else
        window.show();
}

void WindowGeometry::write(IniStore& store, const QString& section, const QWidget& window)
{
    const AppConfig& config = appConfig();
    const bool maximized = window.isMaximized();
    if (window.isMinimized() && !maximized)
        return;
    store.setBool(section, config.winMaxKey(), maximized);
    if (maximized)
        return;
    store.setPoint(section, config.winPosKey(), window.pos());
    store.setPoint(section, config.winSizeKey(), asPoint(window.size()));
}
