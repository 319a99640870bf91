#pragma once

#include <QString>

class QDragEnterEvent;
class QDropEvent;
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

/// Accepts the drag of one local file.
void acceptFile(QDragEnterEvent& event);
/// Has the window open the one file that was dropped on it, once the drop is over: the program that the file
/// comes from waits for that, and there may be questions.
void openDropped(QWidget& window, QDropEvent& event);

/// Whether a dialog keeps a window from the user, whose answer is about what the window shows now.
bool isBlocked(const QWidget& window);
/// Milliseconds after which what had to wait for a dialog is tried again.
constexpr int BlockedMs = 100;
/// Has the window open a file when it is no longer blocked, or asks again then.
void openLater(QWidget& window, const QString& path);
