#pragma once

#include "kirolabel.h"

#include <QByteArray>

// The `.lab` file: a text of one line a label, which a person can read and later versions can extend. Its
// page is docs/formats/labels.md. KiroLabel::load() and KiroLabel::save() are the way to it for the rest.

/// Longer files are neither read nor written; bytes.
constexpr qint64 LabelFileSizeLimit = qint64(64) << 20;

/// The labels as the bytes of a file. False with `reason` set, and `bytes` untouched, if a label has a type
/// that is none of the five or a colour whose numbers are not finite, or if the text would pass the limit.
bool labelsToBytes(const QList<KiroLabel>& labels, QByteArray& bytes, QString& reason);

/// The labels of a file's bytes. False with `reason` set, which names the line, and `labels` untouched, if
/// any line is broken or the end is missing.
bool labelsFromBytes(const QByteArray& bytes, QList<KiroLabel>& labels, QString& reason);

/// Reads a file, at most the limit. Anything but a regular file is refused and never waited for. False with
/// `reason` set and `labels` untouched on failure.
bool readLabelFile(const QString& path, QList<KiroLabel>& labels, QString& reason);

/// Writes beside the old file and renames over it once all bytes are on the disk; a symbolic link stays, and
/// what it points to is replaced. A recording is never replaced. False with `reason` set on failure; the old
/// file then stands, and no other file is left.
bool writeLabelFile(const QString& path, const QList<KiroLabel>& labels, QString& reason);
