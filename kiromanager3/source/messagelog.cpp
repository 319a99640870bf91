#include "messagelog.h"

#include "criticalbox.h"
#include "safefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>
#include <QTextCodec>
#include <QTextStream>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace
{

struct Log
{
    QFile file;
    QTextStream stream;
    QMutex mutex;
};

/// Never destroyed: messages may come from the destructors of static objects.
Log& messageLog()
{
    static Log* const log = new Log;
    return *log;
}

/// Piece by piece, since a log can be larger than the memory.
bool copyAll(QFile& from, SafeFile& to)
{
    constexpr qint64 PieceBytes = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray piece = from.read(PieceBytes);
        if (piece.isEmpty() || !to.write(piece.constData(), piece.size()))
            return false;
    }
    return true;
}

bool copyTo(const QString& from, const QString& to)
{
    QFile source(from);
    SafeFile copy(to);
    return source.open(QIODevice::ReadOnly) && copy.open() && copyAll(source, copy) && copy.commit();
}

/// Null for a kind that the log does not take.
const char* prefixOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "Debug: ";
    case QtWarningMsg:
        return "Warning: ";
    case QtFatalMsg:
        return "Fatal: ";
    case QtCriticalMsg:
    case QtInfoMsg:
        break;
    }
    return nullptr;
}

/// Qt's own libraries give no names.
QString nameOrNothing(const char* name)
{
    return QString::fromLocal8Bit(name ? name : "");
}

void write(Log& log, const char* prefix, const QMessageLogContext& context, const QString& text)
{
    const QMutexLocker locker(&log.mutex);
    // After main() the codec of before may be gone; Qt then gives none and the stream writes Latin-1.
    log.stream.setCodec(QTextCodec::codecForLocale());
    log.stream << prefix << text << '\n';
    log.stream << "File: " << nameOrNothing(context.file) << " , Line: " << context.line
               << " , Function: " << nameOrNothing(context.function) << "\n\n";
    log.stream.flush();
    log.file.flush();
}

QString farewell(const QString& logFile)
{
    return QCoreApplication::translate(
               "MessageLog",
               "KiroManager has performed an illegal operation and will quit immediately!\n"
               "The log file \"%1\" in the application installation directory may be revised for "
               "additional details.")
        .arg(logFile);
}

void endAfterFatal(int)
{
    std::_Exit(EXIT_SUCCESS);
}

[[noreturn]] void endProcess(const QString& text, const QString& logFile)
{
    // A second fatal message, out of the event loop of the box, makes Qt abort.
    std::signal(SIGABRT, endAfterFatal);
    if (!canShowBox())
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    showCritical(QStringLiteral("KiroManager"), farewell(logFile));
    std::exit(EXIT_SUCCESS);
}

} // namespace

bool saveOldLog(const QString& path)
{
    const QString backup = path + QStringLiteral(".bak");
    const QFileInfo log(path);
    // A device or a pipe has no old content.
    if (!log.isFile() || copyTo(path, backup))
        return true;
    // Renaming needs no room on the disk. A link stays where the user has put it.
    return !log.isSymLink() && std::rename(QFile::encodeName(path), QFile::encodeName(backup)) == 0;
}

bool openLog(const QString& path)
{
    Log& log = messageLog();
    const QMutexLocker locker(&log.mutex);
    log.stream.setDevice(nullptr);
    log.file.close();
    log.file.setFileName(path);
    // Append: a second program on the same log then leaves no hole where the first one goes on writing.
    if (!log.file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Append | QIODevice::Text))
        return false;
    log.stream.setDevice(&log.file);
    return true;
}

void logMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    Log& log = messageLog();
    if (const char* prefix = prefixOf(type))
        write(log, prefix, context, text);
    if (type == QtFatalMsg)
        endProcess(text, log.file.fileName());
}
