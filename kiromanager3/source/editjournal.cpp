#include "editjournal.h"

#include "appconfig.h"
#include "editjournaltext.h"
#include "saccadesplice.h"
#include "saccadestate.h"
#include "safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <algorithm>
#include <new>
#include <utility>

namespace
{

constexpr int MostJournals = 1000;
/// Edits may take as much room as the whole state, and this much in any case, until it is written anew.
constexpr qint64 RoomForEdits = 1 << 18;
/// A saccade takes about so many bytes of text.
constexpr qint64 BytesPerSaccade = 440;

const QString Suffix = QStringLiteral(".edits");

QString lockPath(const QString& path)
{
    return path + QStringLiteral(".lock");
}

/// Null if somebody alive has the journal, or if locks cannot be made; the error says which.
std::unique_ptr<QLockFile> lockJournal(const QString& path, QLockFile::LockError& error)
{
    auto lock = std::make_unique<QLockFile>(lockPath(path));
    lock->setStaleLockTime(0); // an owner that works for hours is alive all the same
    const bool locked = lock->tryLock(0);
    error = lock->error();
    return locked ? std::move(lock) : nullptr;
}

/// Removes a journal, and what a writer that was killed has left of one. The lock must be held.
bool removeJournal(const QString& path)
{
    const QFileInfo file(path);
    QDir folder = file.dir();
    for (const QString& temporary :
         folder.entryList({file.fileName() + QStringLiteral(".??????")}, QDir::Files))
        folder.remove(temporary);
    return !file.exists() || QFile::remove(path);
}

/// The bytes of a file; empty if it is too long or cannot be read whole.
QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) ||
        file.size() > EditJournalText::MostBytes)
        return {};
    const QByteArray content = file.readAll();
    return file.error() == QFileDevice::NoError ? content : QByteArray();
}

void warnOf(const QString& path, const QString& problem)
{
    qWarning("Unsaved edits in %s: %s", qUtf8Printable(path), qUtf8Printable(problem));
}

} // namespace

LeftEdits::LeftEdits(QString path, std::unique_ptr<QLockFile> lock)
    : m_path(std::move(path))
    , m_lock(std::move(lock))
    , m_lastWritten(QFileInfo(m_path).lastModified())
{
}

LeftEdits::LeftEdits(LeftEdits&& other) noexcept = default;
LeftEdits& LeftEdits::operator=(LeftEdits&& other) noexcept = default;
LeftEdits::~LeftEdits() = default;

bool LeftEdits::readPaths()
{
    try {
        return EditJournalText::readPaths(contentOf(m_path), m_saccadeFile, m_dataFile);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool LeftEdits::read(SaccadeState& state) const
{
    if (!m_lock)
        return false;
    QString problem;
    bool read = false;
    try {
        read = EditJournalText::read(contentOf(m_path), state, problem);
    } catch (const std::bad_alloc&) {
        problem = QStringLiteral("there is too little memory");
    }
    if (!problem.isEmpty())
        warnOf(m_path, problem);
    return read;
}

void LeftEdits::discard()
{
    if (m_lock && !removeJournal(m_path))
        warnOf(m_path, QStringLiteral("the file cannot be removed"));
    m_lock.reset();
}

EditJournal::EditJournal(const QString& folder)
    : m_folder(folder)
{
}

EditJournal::~EditJournal() = default;

void EditJournal::keep(const SaccadeState& state)
{
    try {
        m_kept = write(state);
    } catch (const std::bad_alloc&) {
        m_kept = fail(QStringLiteral("there is too little memory"));
    }
    if (m_kept || m_warned)
        return;
    m_warned = true;
    qWarning("Unsaved edits cannot be kept in \"%s\": %s", qUtf8Printable(m_folder), qUtf8Printable(m_error));
}

void EditJournal::drop()
{
    if (m_lock && !removeJournal(m_path))
        warnOf(m_path, QStringLiteral("the file cannot be removed"));
    m_lock.reset();
    m_path.clear();
    m_saccades.clear();
    m_kept = false;
}

bool EditJournal::write(const SaccadeState& state)
{
    QByteArray head = EditJournalText::head(state);
    const bool onlySaccades = m_kept && head == m_head;
    if (onlySaccades && writeEdit(state))
        return true;
    m_head = std::move(head);
    return writeWhole(state);
}

/// Appends what changed. False if there is no room for it or the file is in doubt.
bool EditJournal::writeEdit(const SaccadeState& state)
{
    const SaccadeSplice splice = SaccadeSplice::between(m_saccades, state.saccades);
    if (splice.isEmpty() && state.currentSaccade == m_currentSaccade)
        return true;
    const qint64 room = std::max(m_wholeBytes, RoomForEdits) - (m_bytes - m_wholeBytes);
    if (m_edits == EditJournalText::MostEdits || splice.after.size() * BytesPerSaccade > room ||
        !append(EditJournalText::edit(m_edits + 1, splice, state.currentSaccade)))
        return false;
    ++m_edits;
    m_saccades = state.saccades;
    m_currentSaccade = state.currentSaccade;
    return true;
}

bool EditJournal::append(const QByteArray& line)
{
    QFile file(m_path);
    const bool asItWas = file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::ExistingOnly |
                                   QIODevice::Unbuffered) &&
                         file.size() == m_bytes;
    if (!asItWas || file.write(line) != line.size())
        return false;
    m_bytes += line.size();
    return true;
}

bool EditJournal::writeWhole(const SaccadeState& state)
{
    constexpr qint64 MostWhole = EditJournalText::MostBytes / 2;
    if (m_head.size() + state.saccades.size() * BytesPerSaccade > MostWhole)
        return fail(QStringLiteral("they are too many"));
    if (!claim())
        return false;
    const SaccadeSplice all = SaccadeSplice::between({}, state.saccades);
    const QByteArray text = m_head + EditJournalText::edit(0, all, state.currentSaccade);
    SafeFile file(m_path);
    if (!file.open() || !file.write(text.constData(), text.size()) || !file.commit())
        return fail(file.errorText());
    m_saccades = state.saccades;
    m_currentSaccade = state.currentSaccade;
    m_edits = 0;
    m_wholeBytes = m_bytes = text.size();
    return true;
}

/// Finds a free name, and locks it.
bool EditJournal::claim()
{
    if (m_lock)
        return true;
    if (m_folder.isEmpty() || !QDir().mkpath(m_folder))
        return fail(QStringLiteral("the folder cannot be made"));
    for (int number = 1; number <= MostJournals; ++number) {
        const QString path = m_folder + QLatin1Char('/') + QString::number(number) + Suffix;
        QLockFile::LockError error = QLockFile::NoError;
        auto lock = QFileInfo::exists(path) ? nullptr : lockJournal(path, error);
        if (error == QLockFile::PermissionError || error == QLockFile::UnknownError)
            return fail(QStringLiteral("%1 cannot be made").arg(lockPath(path)));
        // A journal may have come and been left in the meantime.
        if (!lock || QFileInfo::exists(path))
            continue;
        removeJournal(path);
        m_lock = std::move(lock);
        m_path = path;
        return true;
    }
    return fail(QStringLiteral("there are too many of them"));
}

bool EditJournal::fail(const QString& reason)
{
    m_error = reason;
    return false;
}

std::vector<LeftEdits> EditJournal::leftBehind(const QString& folder)
{
    std::vector<LeftEdits> found;
    if (folder.isEmpty())
        return found;
    for (const QFileInfo& file : QDir(folder).entryInfoList({QLatin1Char('*') + Suffix}, QDir::Files)) {
        const QString path = file.absoluteFilePath();
        QLockFile::LockError error = QLockFile::NoError;
        auto lock = lockJournal(path, error);
        if (!lock || !QFileInfo::exists(path))
            continue;
        LeftEdits edits(path, std::move(lock));
        if (edits.readPaths())
            found.push_back(std::move(edits));
        else
            warnOf(path, QStringLiteral("the file cannot be read"));
    }
    std::stable_sort(found.begin(), found.end(), [](const LeftEdits& a, const LeftEdits& b) {
        return a.lastWritten() > b.lastWritten();
    });
    return found;
}

QString EditJournal::journalFolder()
{
    const QString& settings = appConfig().configFile();
    if (settings.isEmpty())
        return {};
    const QFileInfo file(settings);
    return file.absolutePath() + QLatin1Char('/') + file.completeBaseName() + QStringLiteral(".unsaved");
}
