#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <memory>
#include <vector>

class QLockFile;
struct KiroSaccade;
struct SaccadeState;

/// Unsaved edits whose owner ended without saving or dropping them. As long as this object lives, nobody else
/// is offered them.
class LeftEdits
{
public:
    LeftEdits(LeftEdits&& other) noexcept;
    LeftEdits& operator=(LeftEdits&& other) noexcept;
    ~LeftEdits();

    const QDateTime& lastWritten() const { return m_lastWritten; }
    /// Of the saccades; empty if they were never saved.
    const QString& saccadeFile() const { return m_saccadeFile; }
    /// Of the recording.
    const QString& dataFile() const { return m_dataFile; }

    /// The state after the last edit that was kept; the header's arrays are its lists. Says in the log if the
    /// file is damaged further down, which ends the edits there. False, and `state` as it was, if it is
    /// damaged at its start.
    [[nodiscard]] bool read(SaccadeState& state) const;
    /// Removes them from the disk. Without it they are offered again once this object is gone.
    void discard();

private:
    friend class EditJournal;
    LeftEdits(QString path, std::unique_ptr<QLockFile> lock);
    bool readPaths();

    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
    QDateTime m_lastWritten;
    QString m_saccadeFile;
    QString m_dataFile;
};

/// Keeps the unsaved edits of one saccades browser on the disk, so that a crash loses the last one at most.
///
/// A journal is a file in a folder that all browsers share. The whole state is written first, through a
/// temporary file; then each edit adds a line, in one write. A lock beside the file, which dies with the
/// process, tells whether its owner is alive. Nothing is on the disk before the first keep() and after
/// drop().
///
/// A journal that cannot be written warns once in the log, and is tried again with the next edit.
class EditJournal
{
public:
    /// The folder is made when it is needed. With an empty one nothing is kept.
    explicit EditJournal(const QString& folder);
    /// Leaves the file: what was not dropped will be offered again.
    ~EditJournal();

    /// Keeps the state as it is after an action.
    void keep(const SaccadeState& state);
    /// Removes the file, after a save or if the edits are not wanted.
    void drop();
    /// Whether the file has the state that was last to be kept.
    bool isKept() const { return m_kept; }

    /// What dead owners left in a folder, the latest first. Files that cannot be read at all are passed over
    /// with a warning and left there.
    static std::vector<LeftEdits> leftBehind(const QString& folder);
    /// The folder of this program, beside its settings file; empty if that has no place.
    static QString journalFolder();

private:
    Q_DISABLE_COPY(EditJournal)
    bool write(const SaccadeState& state);
    bool writeEdit(const SaccadeState& state);
    bool writeWhole(const SaccadeState& state);
    bool append(const QByteArray& line);
    bool claim();
    bool fail(const QString& reason);

    QString m_folder;
    QString m_path;                    ///< of the file; empty while there is none
    std::unique_ptr<QLockFile> m_lock; ///< null while there is no file
    bool m_kept = false;
    bool m_warned = false;
    QString m_error;

    // What the file holds.
    QByteArray m_head;
    QList<KiroSaccade> m_saccades;
    int m_currentSaccade = 0;
    int m_edits = 0;         ///< behind the whole state
    qint64 m_wholeBytes = 0; ///< of the whole state
    qint64 m_bytes = 0;
};
