#pragma once

class QString;
class QWidget;

/// The boxes that windows show, each titled by the window's title, with plain text.

/// A warning with an OK button.
void showWarning(QWidget* window, const QString& text);
/// The same with a title of its own.
void showWarning(QWidget* window, const QString& title, const QString& text);
/// A note with an OK button.
void showInformation(QWidget* window, const QString& text);
/// A warning with Yes and No; true for Yes. Closing the box is No, and No is the default.
bool askWarning(QWidget* window, const QString& question);
