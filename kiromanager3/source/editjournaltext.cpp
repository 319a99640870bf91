#include "editjournaltext.h"

#include "detectionfields.h"
#include "saccadesplice.h"
#include "saccadestate.h"
#include "saccrecords.h"

#include <QCryptographicHash>
#include <QList>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>
#include <new>
#include <optional>
#include <utility>
#include <variant>

namespace
{

const QByteArray Mark = QByteArrayLiteral("kiromanager unsaved edits 1");
const QByteArray SumMark = QByteArrayLiteral(" #");
constexpr int SumLength = 16;
constexpr int SaccadeBytes = SaccLayout::saccadeSize(SaccLayout::Last) + 1;

QByteArray sumOf(const QByteArray& content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex().left(SumLength);
}

QByteArray line(const QByteArray& content)
{
    return content + SumMark + sumOf(content) + '\n';
}

/// Takes whole lines from a text.
class Lines
{
public:
    explicit Lines(const QByteArray& text)
        : m_text(text)
    {
    }

    /// What the next line says; no value at the end and if it is broken.
    std::optional<QByteArray> next()
    {
        const int end = m_text.indexOf('\n', m_at);
        if (end < 0)
            return {};
        const QByteArray whole = m_text.mid(m_at, end - m_at);
        const QByteArray content = whole.left(std::max(whole.size() - SumLength - SumMark.size(), 0));
        m_broken = whole != content + SumMark + sumOf(content);
        if (m_broken)
            return {};
        m_at = end + 1;
        return content;
    }
    bool isBroken() const { return m_broken; }

private:
    const QByteArray& m_text;
    int m_at = 0;
    bool m_broken = false;
};

/// Printable characters as they are, others as % and four hexadecimal digits.
QByteArray written(const QString& text)
{
    QString result;
    for (const QChar c : text) {
        if (c.isPrint() && !c.isSurrogate() && c != QLatin1Char('%'))
            result += c;
        else
            result += QStringLiteral("%%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return result.toUtf8();
}

bool readValue(const QByteArray& value, QString& text)
{
    const QString escaped = QString::fromUtf8(value);
    QString result;
    for (int i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != QLatin1Char('%')) {
            result += escaped[i];
            continue;
        }
        bool ok = false;
        const ushort code = escaped.mid(i + 1, 4).toUShort(&ok, 16);
        if (!ok || i + 4 >= escaped.size())
            return false;
        result += QChar(code);
        i += 4;
    }
    text = result;
    return true;
}

QByteArray written(const KiroString& text)
{
    return QByteArray::fromStdString(text.bytes()).toPercentEncoding(" /:,;()");
}

bool readValue(const QByteArray& value, KiroString& text)
{
    text = KiroString::fromBytes(QByteArray::fromPercentEncoding(value).toStdString());
    return true;
}

QByteArray written(std::int32_t number)
{
    return QByteArray::number(number);
}

bool readValue(const QByteArray& value, std::int32_t& number)
{
    bool ok = false;
    number = value.toInt(&ok);
    return ok;
}

bool readValue(const QByteArray& value, std::uint32_t& number)
{
    bool ok = false;
    number = value.toUInt(&ok);
    return ok;
}

/// With so many digits that the same bits come back. What digits do not tell is written as its bits: what is
/// no number, and the sign of 0.
QByteArray written(double number)
{
    const bool minusZero = number == 0.0 && std::signbit(number);
    if (std::isfinite(number) && !minusZero)
        return QByteArray::number(number, 'g', 17);
    quint64 bits;
    std::memcpy(&bits, &number, sizeof(bits));
    return "0x" + QByteArray::number(bits, 16);
}

bool readValue(const QByteArray& value, double& number)
{
    bool ok = false;
    if (!value.startsWith("0x")) {
        number = value.toDouble(&ok);
        return ok;
    }
    const quint64 bits = value.mid(2).toULongLong(&ok, 16);
    std::memcpy(&number, &bits, sizeof(bits));
    return ok;
}

template <class Record, std::size_t Count>
QByteArray writtenFields(const Record& record, const std::array<DetectionField<Record>, Count>& fields)
{
    QList<QByteArray> numbers;
    for (const auto& field : fields)
        std::visit([&](auto member) { numbers.append(written(record.*member)); }, field.member);
    return numbers.join(' ');
}

template <class Record, std::size_t Count>
bool readFields(const QByteArray& value, const std::array<DetectionField<Record>, Count>& fields,
                Record& record)
{
    const QList<QByteArray> numbers = value.split(' ');
    if (numbers.size() != int(Count))
        return false;
    bool read = true;
    for (std::size_t i = 0; i < Count; ++i) {
        const auto readMember = [&](auto member) { return readValue(numbers[int(i)], record.*member); };
        read = read && std::visit(readMember, fields[i].member);
    }
    return read;
}

bool decoded(const QByteArray& value, QByteArray& bytes)
{
    auto result = QByteArray::fromBase64Encoding(value, QByteArray::AbortOnBase64DecodingErrors);
    bytes = std::move(result.decoded);
    return result.decodingStatus == QByteArray::Base64DecodingStatus::Ok;
}

/// The header with the blinks, but without the saccades, as a saccade file.
QByteArray writtenHeader(const SaccadeState& state)
{
    KiroSaccHeader header = state.header;
    header.saccades.clear();
    header.blinks.assign(state.blinks.begin(), state.blinks.end());
    return QByteArray::fromStdString(header.toBytes()).toBase64();
}

bool readHeader(const QByteArray& value, SaccadeState& state)
{
    QByteArray bytes;
    if (!decoded(value, bytes) || !state.header.fromBytes(bytes.toStdString()) ||
        state.header.missingBytes() != 0)
        return false;
    state.blinks = QList<KiroBlink>(state.header.blinks.begin(), state.header.blinks.end());
    return true;
}

/// One line of the head.
struct HeadLine
{
    const char* name;
    QByteArray (*write)(const SaccadeState& state);
    bool (*read)(const QByteArray& value, SaccadeState& state);
};

template <QString SaccadeState::*Path>
constexpr HeadLine pathLine(const char* name)
{
    return {name, [](const SaccadeState& state) { return written(state.*Path); },
            [](const QByteArray& value, SaccadeState& state) { return readValue(value, state.*Path); }};
}

/// A text of the header, which a saccade file may have cut.
template <KiroString KiroSaccHeader::*Text>
constexpr HeadLine textLine(const char* name)
{
    return {
        name, [](const SaccadeState& state) { return written(state.header.*Text); },
        [](const QByteArray& value, SaccadeState& state) { return readValue(value, state.header.*Text); }};
}

constexpr HeadLine HeadLines[] = {
    pathLine<&SaccadeState::saccadeFile>("saccadeFile"),
    pathLine<&SaccadeState::dataFile>("dataFile"),
    {"header", writtenHeader, readHeader},
    {"header.version", [](const SaccadeState& state) { return QByteArray::number(state.header.version); },
     [](const QByteArray& value, SaccadeState& state) { return readValue(value, state.header.version); }},
    textLine<&KiroSaccHeader::fileName>("header.fileName"),
    textLine<&KiroSaccHeader::relativeDataFile>("header.relativeDataFile"),
    textLine<&KiroSaccHeader::dataFile>("header.dataFile"),
    textLine<&KiroSaccHeader::comment>("header.comment"),
    textLine<&KiroSaccHeader::error>("header.error"),
    {"header.params",
     [](const SaccadeState& state) { return writtenFields(state.header.params, SaccadeFields); },
     [](const QByteArray& value, SaccadeState& state) {
         return readFields(value, SaccadeFields, state.header.params);
     }},
    {"saccadeParams",
     [](const SaccadeState& state) { return writtenFields(state.saccadeParams, SaccadeFields); },
     [](const QByteArray& value, SaccadeState& state) {
         return readFields(value, SaccadeFields, state.saccadeParams);
     }},
    {"blinkParams", [](const SaccadeState& state) { return writtenFields(state.blinkParams, BlinkFields); },
     [](const QByteArray& value, SaccadeState& state) {
         return readFields(value, BlinkFields, state.blinkParams);
     }},
};

/// Reads the first `count` lines of the head behind the mark.
bool readHead(Lines& lines, std::size_t count, SaccadeState& state)
{
    if (lines.next() != Mark)
        return false;
    for (std::size_t i = 0; i < count; ++i) {
        const HeadLine& row = HeadLines[i];
        const std::optional<QByteArray> content = lines.next();
        const QByteArray start = QByteArray(row.name) + ' ';
        if (!content || !content->startsWith(start) || !row.read(content->mid(start.size()), state))
            return false;
    }
    return true;
}

QByteArray writtenSaccades(const QList<KiroSaccade>& saccades)
{
    const SaccRecords<KiroSaccadeEye> blocks(SaccLayout::BlockRows, SaccLayout::Last);
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(saccades.size()) * SaccadeBytes);
    for (const KiroSaccade& saccade : saccades) {
        blocks.append(bytes, saccade.main);
        blocks.append(bytes, saccade.left);
        blocks.append(bytes, saccade.right);
        bytes += saccade.valid ? '\1' : '\0';
    }
    return QByteArray::fromStdString(bytes).toBase64();
}

bool readSaccades(const QByteArray& value, QList<KiroSaccade>& saccades)
{
    QByteArray bytes;
    if (!decoded(value, bytes) || bytes.size() % SaccadeBytes != 0)
        return false;
    const SaccRecords<KiroSaccadeEye> blocks(SaccLayout::BlockRows, SaccLayout::Last);
    saccades.reserve(bytes.size() / SaccadeBytes);
    for (const char* next = bytes.constData(); next != bytes.constEnd(); ++next) {
        KiroSaccade saccade;
        blocks.read(next, saccade.main);
        blocks.read(next, saccade.left);
        blocks.read(next, saccade.right);
        saccade.valid = *next != 0;
        saccades.append(saccade);
    }
    return true;
}

/// Makes the edit `number` that `content` names. False, and nothing changed, if it is another one or does not
/// fit the list.
bool applyEdit(const QByteArray& content, int number, SaccadeState& state)
{
    const QList<QByteArray> words = content.split(' ');
    const char* const names[] = {"edit", "current", "at", "removed", "added"};
    constexpr int NameCount = 5;
    if (words.size() != 2 * NameCount + 1)
        return false;
    std::int32_t numbers[NameCount] = {};
    for (int i = 0; i < NameCount; ++i) {
        if (words[2 * i] != names[i] || !readValue(words[2 * i + 1], numbers[i]))
            return false;
    }
    const auto [readNumber, current, at, removed, added] = numbers;
    SaccadeSplice splice;
    const bool fits = readNumber == number && at >= 0 && removed >= 0 && at <= state.saccades.size() &&
                      removed <= state.saccades.size() - at;
    if (!fits || !readSaccades(words[2 * NameCount], splice.after) || splice.after.size() != added)
        return false;
    splice.from = at;
    splice.before = state.saccades.mid(at, removed);
    splice.apply(state.saccades);
    state.currentSaccade = std::clamp(current, -1, std::max(state.saccades.size() - 1, 0));
    return true;
}

QString inLine(int number)
{
    return QStringLiteral("line %1 cannot be read").arg(number);
}

/// Makes the edits; returns how many of them.
int applyEdits(Lines& lines, SaccadeState& state, QString& problem)
{
    constexpr int LinesAhead = 1 + int(std::size(HeadLines));
    for (int number = 0;; ++number) {
        const std::optional<QByteArray> content = lines.next();
        const bool made =
            content && number <= EditJournalText::MostEdits && applyEdit(*content, number, state);
        if (made)
            continue;
        if (content || lines.isBroken())
            problem = inLine(LinesAhead + number + 1);
        return number;
    }
}

bool readState(const QByteArray& text, SaccadeState& state, QString& problem)
{
    Lines lines(text);
    if (!readHead(lines, std::size(HeadLines), state)) {
        problem = QStringLiteral("its first lines cannot be read");
        return false;
    }
    if (applyEdits(lines, state, problem) == 0) {
        problem = QStringLiteral("it has no list of saccades");
        return false;
    }
    state.header.saccades.assign(state.saccades.begin(), state.saccades.end());
    return true;
}

} // namespace

QByteArray EditJournalText::head(const SaccadeState& state)
{
    QByteArray text = line(Mark);
    for (const HeadLine& row : HeadLines)
        text += line(QByteArray(row.name) + ' ' + row.write(state));
    return text;
}

QByteArray EditJournalText::edit(int number, const SaccadeSplice& splice, int currentSaccade)
{
    const QList<QByteArray> words = {"edit",
                                     QByteArray::number(number),
                                     "current",
                                     QByteArray::number(currentSaccade),
                                     "at",
                                     QByteArray::number(splice.from),
                                     "removed",
                                     QByteArray::number(splice.before.size()),
                                     "added",
                                     QByteArray::number(splice.after.size()),
                                     writtenSaccades(splice.after)};
    return line(words.join(' '));
}

bool EditJournalText::read(const QByteArray& text, SaccadeState& state, QString& problem)
{
    problem.clear();
    try {
        SaccadeState fresh;
        if (!readState(text, fresh, problem))
            return false;
        state = std::move(fresh);
        return true;
    } catch (const std::bad_alloc&) {
        problem = QStringLiteral("there is too little memory");
        return false;
    }
}

bool EditJournalText::readPaths(const QByteArray& text, QString& saccadeFile, QString& dataFile)
{
    constexpr std::size_t PathLines = 2;
    SaccadeState state;
    Lines lines(text);
    if (!readHead(lines, PathLines, state))
        return false;
    saccadeFile = state.saccadeFile;
    dataFile = state.dataFile;
    return true;
}
