#pragma once

#include <QString>

#include <cstdint>
#include <memory>
#include <string>

/// A narrow (8-bit) text of the recording core.
///
/// A value class around std::string. Bytes are in the machine's local 8-bit encoding; nothing here
/// changes them except the conversions from and to QString. A text may hold zero bytes.
/// Positions and lengths count bytes from 0. Nothing throws except for lack of memory.
class KiroString
{
public:
    KiroString() = default;
    KiroString(const KiroString& other);
    KiroString(KiroString&& other) noexcept;
    /// The bytes up to the zero byte; a null pointer gives the empty text.
    KiroString(const char* text);
    /// Converts with QString::toLocal8Bit.
    KiroString(const QString& text);
    virtual ~KiroString();

    KiroString& operator=(const KiroString& other);
    KiroString& operator=(KiroString&& other) noexcept;

    /// A text of just these bytes, zero bytes included.
    static KiroString fromBytes(std::string bytes);

    const std::string& bytes() const { return m_text; }
    const char* c_str() const { return m_text.c_str(); }
    /// Converts with QString::fromLocal8Bit.
    QString toQString() const;

    /// A writable copy of the text that ends in a zero byte, for C calls that want a `char*`.
    /// It belongs to this object and is valid until the next call, an assignment or destruction.
    char* scratch();

    void clear() { m_text.clear(); }
    int length() const { return static_cast<int>(m_text.size()); }
    bool isEmpty() const { return m_text.empty(); }
    /// The byte at `index`, which must lie inside the text: there is no bounds check.
    char at(int index) const { return m_text[static_cast<std::size_t>(index)]; }

    KiroString& operator+=(const KiroString& other);
    friend KiroString operator+(KiroString left, const KiroString& right) { return left += right; }

    /// Byte for byte.
    friend bool operator==(const KiroString& a, const KiroString& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const KiroString& a, const KiroString& b) { return a.m_text != b.m_text; }

    /// Below 0, 0 or above 0 as this text sorts before, equal to or after `other`: byte for byte if
    /// `caseSensitive`, else by the locale's collation without regard to case.
    int compare(const KiroString& other, bool caseSensitive = true) const;
    /// False if `other` is longer. Without `caseSensitive` compared as in compare().
    bool startsWith(const KiroString& other, bool caseSensitive = true) const;

    /// First position at or after `from` where the bytes of `other` stand, or -1. An empty `other`
    /// gives `from`; a negative `from` counts as 0.
    int indexOf(const KiroString& other, int from = 0) const;

    /// The first or last `count` bytes; the whole text if `count` is negative or too large.
    KiroString left(int count) const;
    KiroString right(int count) const;
    /// `count` bytes from `position` on, fewer where the text ends, all that remain if `count` is
    /// negative. Empty if `position` is negative or behind the end.
    KiroString mid(int position, int count = -1) const;

    /// Without blanks, tabs, carriage returns and line feeds at both ends, or at one.
    KiroString trimmed() const;
    KiroString trimmedLeft() const;
    KiroString trimmedRight() const;

    /// The decimal number at the start of the trimmed text. `ok`, if given, becomes true for every
    /// result but 0, and for 0 only if the trimmed text starts with a digit, or with "-" and a digit.
    int toInt(bool* ok = nullptr) const;

    /// A copy with each occurrence of the lowest-numbered placeholder (%0 to %99) replaced by the
    /// value, like QString::arg: padded on the left to `width` with `fill` (on the right if `width`
    /// is negative); numbers filled with '0' keep their sign in front. Without a placeholder the
    /// text stays as it is.
    KiroString arg(const KiroString& value, int width = 0, char fill = ' ') const;
    KiroString arg(const char* value, int width = 0, char fill = ' ') const;
    KiroString arg(std::int8_t value, int width = 0, int base = 10, char fill = ' ') const;
    KiroString arg(std::uint8_t value, int width = 0, int base = 10, char fill = ' ') const;
    KiroString arg(std::int16_t value, int width = 0, int base = 10, char fill = ' ') const;
    KiroString arg(std::uint16_t value, int width = 0, int base = 10, char fill = ' ') const;
    KiroString arg(std::int32_t value, int width = 0, int base = 10, char fill = ' ') const;
    KiroString arg(std::uint32_t value, int width = 0, int base = 10, char fill = ' ') const;
    KiroString arg(std::int64_t value, int width = 0, int base = 10, char fill = ' ') const;
    KiroString arg(std::uint64_t value, int width = 0, int base = 10, char fill = ' ') const;
    /// `format` and `precision` as in QString::arg(double).
    KiroString arg(double value, int width = 0, char format = 'g', int precision = -1, char fill = ' ') const;

private:
    KiroString withPlaceholderReplaced(const std::string& field) const;

    std::string m_text;
    std::unique_ptr<std::string> m_scratch; // null until scratch() is called
};
