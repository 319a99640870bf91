#include "safefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

namespace
{

/// Makes a rename in `folder` survive a loss of power. File systems that cannot do it are left alone.
void syncFolder(const QString& folder)
{
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    ::fsync(handle);
    ::close(handle);
}

} // namespace

SafeFile::SafeFile(const QString& path)
    : m_file(path)
{
}

SafeFile::~SafeFile() = default;

bool SafeFile::open()
{
    m_errorText.clear();
    m_written = 0;
    m_failed = false;
    return m_file.open(QIODevice::WriteOnly) || fail(m_file.errorString());
}

bool SafeFile::write(const void* bytes, qint64 count)
{
    if (m_failed || !m_file.isOpen())
        return false;
    const qint64 taken = m_file.write(static_cast<const char*>(bytes), count);
    if (taken != count)
        return fail(reason());
    m_written += count;
    return true;
}

bool SafeFile::commit()
{
    if (!m_file.isOpen() || m_failed)
        return false;
    // QSaveFile forgets a short write of a large block, so the length on the disk is what counts.
    if (!m_file.flush() || m_file.error() != QFileDevice::NoError)
        return fail(reason());
    if (m_file.size() != m_written)
        return fail(shortText());
    if (!m_file.commit())
        return fail(m_file.errorString());
    // A link was followed: the folder that changed is that of the file itself.
    syncFolder(QFileInfo(QFileInfo(m_file.fileName()).canonicalFilePath()).absolutePath());
    return true;
}

QString SafeFile::shortText() const
{
    return QCoreApplication::translate("SafeFile", "Not all bytes could be written");
}

/// What the system says; a full disk can leave QSaveFile without a word.
QString SafeFile::reason() const
{
    const QString saysNothing = QFile().errorString();
    const bool unknown = m_file.error() == QFileDevice::NoError || m_file.errorString() == saysNothing;
    return unknown ? shortText() : m_file.errorString();
}

void SafeFile::cancel()
{
    fail(QString());
}

bool SafeFile::fail(const QString& text)
{
    m_failed = true;
    m_errorText = text;
    if (m_file.isOpen()) {
        m_file.cancelWriting();
        m_file.commit();
    }
    return false;
}
