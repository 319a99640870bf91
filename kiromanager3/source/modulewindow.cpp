#include "modulewindow.h"

#include "appconfig.h"
#include "inistore.h"
#include "windowgeometry.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>

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

void keepModuleGeometry(const QWidget& window, const QString& section)
{
    replaceSection(appConfig().configFile(), section,
                   [&](IniStore& store) { WindowGeometry::write(store, section, window); });
}
