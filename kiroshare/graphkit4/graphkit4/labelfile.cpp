#include "labelfile.h"

#include "kiroheader.h"
#include "labelfields.h"
#include "safefile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <new>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr std::string_view Title = "Kiro labels ";
constexpr std::string_view EndLine = "end";
constexpr std::string_view ByteOrderMark = "\xef\xbb\xbf";
constexpr int TailSize = int(EndLine.size()) + 1; ///< with its line feed
constexpr char FieldEnd = '\t';

/// The layout that is written. Other minor versions are read too, other major ones are not.
constexpr uint MajorVersion = 1;
constexpr uint MinorVersion = 0;

constexpr const char* FieldTitles[] = {"type",  "start [ms]", "end [ms]", "signal",
                                       "value", "color",      "name",     "description"};
constexpr std::size_t FieldCount = std::size(FieldTitles);

QString tooLargeText()
{
    return QStringLiteral("a label file has at most %1 bytes").arg(LabelFileSizeLimit);
}

// Writing

QByteArray headLines()
{
    QByteArray head(Title.data(), int(Title.size()));
    head += QByteArray::number(MajorVersion) + '.' + QByteArray::number(MinorVersion) + "\n# ";
    for (const char* title : FieldTitles) {
        head += title;
        head += title == FieldTitles[FieldCount - 1] ? '\n' : FieldEnd;
    }
    return head;
}

QByteArray labelLine(const KiroLabel& label, const QByteArray& color)
{
    return KiroLabel::typeToString(label.type).toLatin1() + FieldEnd + QByteArray::number(label.time) +
           FieldEnd + QByteArray::number(label.endTime) + FieldEnd + QByteArray::number(label.signal) +
           FieldEnd + numberField(label.value) + FieldEnd + color + FieldEnd + textField(label.name()) +
           FieldEnd + textField(label.description()) + '\n';
}

/// False with `reason` set if the label cannot be written so that it can be read.
bool appendLabel(const KiroLabel& label, QByteArray& bytes, QString& reason)
{
    const QByteArray color = colorField(label.color);
    QColor readColor;
    if (KiroLabel::typeToString(label.type).isEmpty()) {
        reason = QStringLiteral("unknown type %1").arg(int(label.type));
        return false;
    }
    if (!readField(std::string_view(color.constData(), std::size_t(color.size())), readColor)) {
        reason = QStringLiteral("the color %1 is none").arg(QString::fromLatin1(color));
        return false;
    }
    // Before the texts are copied, as they may be huge.
    const bool mayFit = qint64(label.name().size()) + label.description().size() <= LabelFileSizeLimit;
    if (mayFit)
        bytes += labelLine(label, color);
    if (mayFit && bytes.size() + TailSize <= LabelFileSizeLimit)
        return true;
    reason = tooLargeText();
    return false;
}

// Reading

/// Takes the next line off `rest`, without its line feed and the carriage return that some editors put there.
std::string_view takeLine(std::string_view& rest)
{
    const std::size_t feed = rest.find('\n');
    std::string_view line = rest.substr(0, feed);
    rest.remove_prefix(feed == rest.npos ? rest.size() : feed + 1);
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return line;
}

bool holdsNothing(std::string_view line)
{
    return line.substr(0, 1) == "#" || line.find_first_not_of(" \t") == line.npos;
}

using Fields = std::array<std::string_view, FieldCount>;

/// The first fields of a line that has at least as many.
Fields fieldsOf(std::string_view line)
{
    Fields fields;
    for (std::string_view& field : fields) {
        const std::size_t end = line.find(FieldEnd);
        field = line.substr(0, end);
        line.remove_prefix(end == line.npos ? line.size() : end + 1);
    }
    return fields;
}

bool readType(std::string_view field, KiroLabel::Type& type)
{
    for (uint i = 0; i < KiroLabel::TypeCount; ++i) {
        type = KiroLabel::indexToType(i);
        if (KiroLabel::typeToString(type) == QLatin1String(field.data(), int(field.size())))
            return true;
    }
    return false;
}

/// "Kiro labels major.minor"; false if the line is another.
bool readVersion(std::string_view line, quint32& major, quint32& minor)
{
    if (line.substr(0, Title.size()) != Title)
        return false;
    line.remove_prefix(Title.size());
    const std::size_t dot = line.find('.');
    return dot != line.npos && readField(line.substr(0, dot), major) &&
           readField(line.substr(dot + 1), minor);
}

/// The lines of one file, from first to last.
class LabelLines
{
public:
    explicit LabelLines(std::string_view bytes)
        : m_rest(bytes)
    {
    }

    bool read(QList<KiroLabel>& labels)
    {
        if (!readHead())
            return false;
        while (!m_rest.empty()) {
            const std::string_view line = nextLine();
            if (holdsNothing(line))
                continue;
            if (m_ended)
                return fail(QStringLiteral("the text goes on behind the line \"end\""));
            m_ended = line == EndLine;
            if (!m_ended && !readLabel(line, labels))
                return false;
        }
        return m_ended || fail(QStringLiteral("the line \"end\" is missing behind it; the file may be cut"));
    }

    const QString& reason() const { return m_reason; }

private:
    std::string_view nextLine()
    {
        ++m_number;
        return takeLine(m_rest);
    }

    bool fail(const QString& what)
    {
        m_reason = QStringLiteral("line %1: %2").arg(m_number).arg(what);
        return false;
    }

    bool readHead()
    {
        if (m_rest.substr(0, ByteOrderMark.size()) == ByteOrderMark)
            m_rest.remove_prefix(ByteOrderMark.size());
        quint32 major = 0;
        if (!readVersion(nextLine(), major, m_minor))
            return fail(
                QStringLiteral("it is no label file, which begins with \"Kiro labels\" and a version"));
        if (major != MajorVersion)
            return fail(QStringLiteral("its version is %1.%2, and only versions %3.x can be read")
                            .arg(major)
                            .arg(m_minor)
                            .arg(MajorVersion));
        return true;
    }

    bool readLabel(std::string_view line, QList<KiroLabel>& labels)
    {
        const std::size_t count = 1 + std::size_t(std::count(line.begin(), line.end(), FieldEnd));
        const bool mayHaveMore = m_minor > MinorVersion;
        if (count < FieldCount || (count > FieldCount && !mayHaveMore))
            return fail(QStringLiteral("it has %1 fields, not %2").arg(count).arg(FieldCount));
        const Fields fields = fieldsOf(line);
        KiroLabel label;
        QString name;
        QString description;
        const bool good[FieldCount] = {
            readType(fields[0], label.type),     readField(fields[1], label.time),
            readField(fields[2], label.endTime), readField(fields[3], label.signal),
            readField(fields[4], label.value),   readField(fields[5], label.color),
            readField(fields[6], name),          readField(fields[7], description)};
        for (std::size_t i = 0; i < FieldCount; ++i) {
            if (!good[i])
                return fail(QStringLiteral("the field \"%1\" is broken").arg(QLatin1String(FieldTitles[i])));
        }
        label.setName(name);
        label.setDescription(description);
        labels.append(label);
        return true;
    }

    std::string_view m_rest;
    int m_number = 0;
    quint32 m_minor = 0;
    bool m_ended = false;
    QString m_reason;
};

// Files

bool isUsable(const QString& path, QString& reason)
{
    if (!path.isEmpty() && !path.contains(QChar(QChar::Null)))
        return true;
    reason = QStringLiteral("this is no file name");
    return false;
}

/// Whether the open file is a regular one of at most the limit.
bool isReadable(int handle, qint64& size, QString& reason)
{
    struct stat status = {};
    if (::fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) {
        reason = QStringLiteral("it is no regular file");
        return false;
    }
    size = status.st_size;
    if (size <= LabelFileSizeLimit)
        return true;
    reason = tooLargeText();
    return false;
}

bool readBytes(const QString& path, QByteArray& bytes, QString& reason)
{
    if (!isUsable(path, reason))
        return false;
    // Opening a pipe would wait for its writer.
    const int handle = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (handle < 0) {
        reason = qt_error_string(errno);
        return false;
    }
    qint64 size = 0;
    if (!isReadable(handle, size, reason)) {
        ::close(handle);
        return false;
    }
    QFile file;
    file.open(handle, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle);
    bytes = file.read(size);
    if (file.error() == QFileDevice::NoError)
        return true;
    reason = file.errorString();
    return false;
}

bool writeBytes(const QString& path, const QByteArray& bytes, QString& reason)
{
    if (!isUsable(path, reason))
        return false;
    const QFileInfo old(path);
    if (old.exists() && !old.isFile()) {
        reason = QStringLiteral("it is no regular file");
        return false;
    }
    SafeFile file(path);
    if (file.open() && file.write(bytes.constData(), bytes.size()) && file.commit())
        return true;
    reason = file.errorText();
    return false;
}

} // namespace

bool labelsToBytes(const QList<KiroLabel>& labels, QByteArray& bytes, QString& reason)
{
    QByteArray written = headLines();
    int number = 0;
    for (const KiroLabel& label : labels) {
        ++number;
        QString what;
        if (!appendLabel(label, written, what)) {
            reason = QStringLiteral("label %1: %2").arg(number).arg(what);
            return false;
        }
    }
    written.append(EndLine.data(), int(EndLine.size()));
    written += '\n';
    bytes = written;
    return true;
}

bool labelsFromBytes(const QByteArray& bytes, QList<KiroLabel>& labels, QString& reason)
{
    QList<KiroLabel> read;
    LabelLines lines(std::string_view(bytes.constData(), std::size_t(bytes.size())));
    if (!lines.read(read)) {
        reason = lines.reason();
        return false;
    }
    labels = read;
    return true;
}

bool readLabelFile(const QString& path, QList<KiroLabel>& labels, QString& reason)
{
    try {
        QByteArray bytes;
        return readBytes(path, bytes, reason) && labelsFromBytes(bytes, labels, reason);
    } catch (const std::bad_alloc&) {
        reason = QStringLiteral("there is not enough memory");
        return false;
    }
}

bool writeLabelFile(const QString& path, const QList<KiroLabel>& labels, QString& reason)
{
    try {
        // A name that was mistyped must not cost a recording.
        if (KiroHeader().load(KiroString(path))) {
            reason = QStringLiteral("there is a recording of this name");
            return false;
        }
        QByteArray bytes;
        return labelsToBytes(labels, bytes, reason) && writeBytes(path, bytes, reason);
    } catch (const std::bad_alloc&) {
        reason = QStringLiteral("there is not enough memory");
        return false;
    }
}
