#pragma once

#include <QObject>

#include <memory>

/// Settles the language, loads the translators, shows the launcher where it stood last, and opens the files
/// that the command line names, each in a window of its own, as soon as the event loop runs. What is returned
/// owns translators and launcher.
std::unique_ptr<QObject> startInterface();
