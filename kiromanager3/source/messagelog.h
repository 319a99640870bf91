#pragma once

#include <QMessageLogContext>
#include <QString>

// The file to which all diagnostic messages of a run go.
//
// The log belongs to the process, is open from openLog() to the very end and takes messages of all
// threads, also those of static objects that are destroyed after main().

/// Saves the log of the run before: copies `path` to the same name with ".bak" added, replacing an earlier
/// one. If that copy cannot be written the file is renamed instead. True if nothing was there to
/// save or it is safe now.
bool saveOldLog(const QString& path);

/// Opens the log at `path` and empties it, letting go of a log that is open already.
bool openLog(const QString& path);

/// Qt's message handler. Debug, warning and fatal messages go to the open log: a line with kind and text, a
/// line with the place in the source, an empty line. Others are dropped. A fatal message then shows a
/// box and ends the process with exit status 0.
///
/// Qt itself hands a message that arises on a thread within the handler, its box included, to standard error
/// and not to the handler again.
void logMessage(QtMsgType type, const QMessageLogContext& context, const QString& text);
