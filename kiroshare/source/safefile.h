#pragma once

#include "kirostring.h"

#include <QSaveFile>

/// Replaces a file whole or not at all.
///
/// What is written goes to a temporary file beside the old one; commit() renames it over the old file
/// once every byte is on the disk. Whatever goes wrong before, and destruction without commit(), leaves
/// the old file as it was and removes the temporary one. Permissions of an old file are kept; a
/// symbolic link stays, and the file that it points to is replaced.
class SafeFile
{
public:
    explicit SafeFile(const QString& path);
    ~SafeFile();

    /// False with errorText() set if the folder or an existing file does not let itself be written.
    [[nodiscard]] bool open();
    /// Appends `count` bytes. After a failure nothing more is taken and commit() will refuse.
    bool write(const void* bytes, qint64 count);
    /// Replaces the file. False with errorText() set if any byte is in doubt; the old file then stands.
    [[nodiscard]] bool commit();
    /// Gives up: the old file stands.
    void cancel();

    const QString& errorText() const { return m_errorText; }

private:
    Q_DISABLE_COPY(SafeFile)
    bool fail(const QString& text);
    QString shortText() const;
    QString reason() const;

    QSaveFile m_file;
    QString m_errorText;
    qint64 m_written = 0;
    bool m_failed = false;
};
