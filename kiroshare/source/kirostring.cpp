#include "kirostring.h"

#include <QCollator>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{

constexpr const char* Blanks = " \t\r\n";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Text for collation: the local encoding, or Latin-1 where the bytes are no valid local text, so that
/// different bytes never become the same replacement character.
QString collationText(const std::string& bytes)
{
    const QByteArray raw(bytes.data(), static_cast<int>(bytes.size()));
    const QString local = QString::fromLocal8Bit(raw);
    return local.toLocal8Bit() == raw ? local : QString::fromLatin1(raw);
}

int compareIgnoringCase(const std::string& a, const std::string& b)
{
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator.compare(collationText(a), collationText(b));
}

/// The placeholder number behind the "%" at `percent`, one or two digits, or -1 where none stands.
/// `length` becomes the placeholder's length with the "%".
int placeholderAt(const std::string& text, std::size_t percent, std::size_t& length)
{
    std::size_t i = percent + 1;
    int number = 0;
    while (i < text.size() && i < percent + 3 && isDigit(text[i]))
        number = number * 10 + (text[i++] - '0');
    length = i - percent;
    return length > 1 ? number : -1;
}

/// One field as QString::arg makes it. Numbers and padding are pure ASCII but for the fill character.
template <class Number>
std::string integerField(Number value, int width, int base, char fill)
{
    return QStringLiteral("%1").arg(value, width, base, QLatin1Char(fill)).toLatin1().toStdString();
}

} // namespace

KiroString::KiroString(const KiroString& other)
    : m_text(other.m_text)
{
}

KiroString::KiroString(KiroString&& other) noexcept = default;

KiroString::KiroString(const char* text)
    : m_text(text ? text : "")
{
}

KiroString::KiroString(const QString& text)
    : m_text(text.toLocal8Bit().toStdString())
{
}

KiroString::~KiroString() = default;

KiroString& KiroString::operator=(const KiroString& other)
{
    m_text = other.m_text;
    return *this;
}

KiroString& KiroString::operator=(KiroString&& other) noexcept = default;

KiroString KiroString::fromBytes(std::string bytes)
{
    KiroString result;
    result.m_text = std::move(bytes);
    return result;
}

QString KiroString::toQString() const
{
    return QString::fromLocal8Bit(m_text.data(), length());
}

char* KiroString::scratch()
{
    if (!m_scratch)
        m_scratch = std::make_unique<std::string>();
    *m_scratch = m_text;
    return m_scratch->data();
}

KiroString& KiroString::operator+=(const KiroString& other)
{
    m_text += other.m_text;
    return *this;
}

int KiroString::compare(const KiroString& other, bool caseSensitive) const
{
    return caseSensitive ? m_text.compare(other.m_text) : compareIgnoringCase(m_text, other.m_text);
}

bool KiroString::startsWith(const KiroString& other, bool caseSensitive) const
{
    if (other.m_text.size() > m_text.size())
        return false;
    const std::string head = m_text.substr(0, other.m_text.size());
    return caseSensitive ? head == other.m_text : compareIgnoringCase(head, other.m_text) == 0;
}

int KiroString::indexOf(const KiroString& other, int from) const
{
    from = std::max(from, 0);
    if (other.isEmpty())
        return from;
    const std::size_t found = m_text.find(other.m_text, static_cast<std::size_t>(from));
    return found == std::string::npos ? -1 : static_cast<int>(found);
}

KiroString KiroString::left(int count) const
{
    return count < 0 ? *this : mid(0, count);
}

KiroString KiroString::right(int count) const
{
    return count < 0 || count >= length() ? *this : mid(length() - count);
}

KiroString KiroString::mid(int position, int count) const
{
    if (position < 0 || position > length())
        return KiroString();
    const auto most = count < 0 ? std::string::npos : static_cast<std::size_t>(count);
    return fromBytes(m_text.substr(static_cast<std::size_t>(position), most));
}

KiroString KiroString::trimmed() const
{
    return trimmedLeft().trimmedRight();
}

KiroString KiroString::trimmedLeft() const
{
    const std::size_t first = m_text.find_first_not_of(Blanks);
    return first == std::string::npos ? KiroString() : fromBytes(m_text.substr(first));
}

KiroString KiroString::trimmedRight() const
{
    return fromBytes(m_text.substr(0, m_text.find_last_not_of(Blanks) + 1));
}

int KiroString::toInt(bool* ok) const
{
    const std::string text = trimmed().m_text;
    // strtol is what atoi stands for, but with a defined result for numbers that do not fit.
    const int result = static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
    const bool startsAsNumber =
        !text.empty() && (isDigit(text[0]) || (text.size() > 1 && text[0] == '-' && isDigit(text[1])));
    if (ok)
        *ok = result != 0 || startsAsNumber;
    return result;
}

KiroString KiroString::withPlaceholderReplaced(const std::string& field) const
{
    constexpr int NoPlaceholder = 100;
    int lowest = NoPlaceholder;
    std::size_t length = 0;
    for (std::size_t i = m_text.find('%'); i != std::string::npos; i = m_text.find('%', i + 1)) {
        const int number = placeholderAt(m_text, i, length);
        if (number >= 0)
            lowest = std::min(lowest, number);
    }
    if (lowest == NoPlaceholder)
        return *this;

    std::string result;
    std::size_t i = 0;
    while (i < m_text.size()) {
        if (m_text[i] == '%' && placeholderAt(m_text, i, length) == lowest) {
            result += field;
            i += length;
        } else {
            result += m_text[i++];
        }
    }
    return fromBytes(std::move(result));
}

KiroString KiroString::arg(const KiroString& value, int width, char fill) const
{
    const auto wanted = static_cast<std::size_t>(std::abs(width));
    std::string field = value.m_text;
    if (field.size() < wanted)
        field.insert(width > 0 ? 0 : field.size(), wanted - field.size(), fill);
    return withPlaceholderReplaced(field);
}

KiroString KiroString::arg(const char* value, int width, char fill) const
{
    return arg(KiroString(value), width, fill);
}

KiroString KiroString::arg(std::int8_t value, int width, int base, char fill) const
{
    return arg(std::int64_t(value), width, base, fill);
}

KiroString KiroString::arg(std::uint8_t value, int width, int base, char fill) const
{
    return arg(std::uint64_t(value), width, base, fill);
}

KiroString KiroString::arg(std::int16_t value, int width, int base, char fill) const
{
    return arg(std::int64_t(value), width, base, fill);
}

KiroString KiroString::arg(std::uint16_t value, int width, int base, char fill) const
{
    return arg(std::uint64_t(value), width, base, fill);
}

KiroString KiroString::arg(std::int32_t value, int width, int base, char fill) const
{
    return arg(std::int64_t(value), width, base, fill);
}

KiroString KiroString::arg(std::uint32_t value, int width, int base, char fill) const
{
    return arg(std::uint64_t(value), width, base, fill);
}

KiroString KiroString::arg(std::int64_t value, int width, int base, char fill) const
{
    return withPlaceholderReplaced(integerField(qlonglong(value), width, base, fill));
}

KiroString KiroString::arg(std::uint64_t value, int width, int base, char fill) const
{
    return withPlaceholderReplaced(integerField(qulonglong(value), width, base, fill));
}

KiroString KiroString::arg(double value, int width, char format, int precision, char fill) const
{
    return withPlaceholderReplaced(QStringLiteral("%1")
                                       .arg(value, width, format, precision, QLatin1Char(fill))
                                       .toLatin1()
                                       .toStdString());
}
