#include "modulewindow.h"

#include "appconfig.h"
#include "filechoice.h"
#include "inistore.h"
#include "openevents.h"
#include "windowgeometry.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QShortcut>
#include <QTimer>
#include <QWidget>

#include <algorithm>

void showModuleWindow(QWidget* window, const QString& section)
{
    window->setAttribute(Qt::WA_DeleteOnClose);
    IniStore store;
    store.load(appConfig().configFile());
    WindowGeometry::read(store, section, *window).show(*window);
}

void addClosingShortcuts(QWidget* window)
{
    auto* const close = new QShortcut(QKeySequence(QStringLiteral("Ctrl+W")), window);
    QObject::connect(close, &QShortcut::activated, window, &QWidget::close);
    auto* const quit = new QShortcut(QKeySequence(QStringLiteral("Ctrl+Q")), window);
    QObject::connect(quit, &QShortcut::activated, qApp, &QApplication::closeAllWindows);
}

QString moduleTitle(const QString& moduleName, const QString& path)
{
    return moduleName + QStringLiteral(" - ") + path;
}

void acceptFile(QDragEnterEvent& event)
{
    if (!draggedFile(event.mimeData()).isEmpty())
        event.acceptProposedAction();
}

void openDropped(QWidget& window, QDropEvent& event)
{
    const QString path = draggedFile(event.mimeData());
    if (path.isEmpty())
        return;
    event.acceptProposedAction();
    QCoreApplication::postEvent(&window, new OpenFileEvent(path));
}

bool isBlocked(const QWidget& window)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [&window](const QWidget* other) {
        const bool ours = other->parentWidget() && other->parentWidget()->window() == &window;
        return other->isVisible() && (other->windowModality() == Qt::ApplicationModal ||
                                      (other->windowModality() == Qt::WindowModal && ours));
    });
}

void openLater(QWidget& window, const QString& path)
{
    QTimer::singleShot(BlockedMs, &window,
                       [&window, path] { QCoreApplication::postEvent(&window, new OpenFileEvent(path)); });
}
