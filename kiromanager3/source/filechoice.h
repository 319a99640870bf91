#pragma once

#include <QString>

class QMimeData;
class QWidget;

/// What windows share that let the user choose files.

/// Where a file dialog begins: a folder that is not there would stand in it as a file's name, so then it is
/// the home folder.
QString startFolder(const QString& folder);

/// The one local file of a drag; empty if there is none or more than one.
QString draggedFile(const QMimeData* data);

/// `path` with the suffix, which is given without a dot, if its name has none.
QString withSuffix(const QString& path, const QString& suffix);

/// Asks over a window whether a file that is there may be replaced; for names that a file dialog has not
/// asked about.
bool mayReplace(QWidget* window, const QString& path);
