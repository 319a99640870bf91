#pragma once

#include <QString>

class QWidget;

/// What the windows of all modules share. Each module has a section of the settings file, which its window
/// reads when it opens and replaces when it closes.

/// Puts a new window of a module where the section says and shows it. From then on the window belongs to
/// itself: closing destroys it.
void showModuleWindow(QWidget* window, const QString& section);

/// Makes and shows one more window of a module.
template <typename Window>
Window* openModuleWindow(const QString& section)
{
    auto* const window = new Window;
    showModuleWindow(window, section);
    return window;
}

/// Ctrl+W closes the window, Ctrl+Q all windows, each of which keeps its settings.
void addClosingShortcuts(QWidget* window);

/// Such as "Signals browser - /home/anna/r.kiro".
QString moduleTitle(const QString& moduleName, const QString& path);

/// Replaces the section by the window's geometry; for windows that have nothing else to keep.
void keepModuleGeometry(const QWidget& window, const QString& section);
