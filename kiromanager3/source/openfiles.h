#pragma once

#include "openevents.h"

#include <QStringList>

#include <memory>

/// The event for the launcher that opens the file: OpenKiroFileEvent for the suffix "kiro", OpenSaccFileEvent
/// for "sacc", in small letters only. Null for another suffix or if there is no such file.
std::unique_ptr<FilePathEvent> openEventFor(const QString& path);

/// Whether there is such a file and the file browser can import it, which its suffix says: "bdf", "edf" or
/// "rec", in any case.
bool isForImport(const QString& path);

/// The arguments that can be names of files; the first one, the program, is none. What follows "-config" and
/// "-log" is left out, what follows "-signals" is not.
QStringList fileArguments(const QStringList& arguments);
