#pragma once

#include <cstdint>

class KiroFile;
class QTextStream;

/// One sample of a recording: up to eight bytes with their size and value type.
///
/// A plain value without allocation. Multi-byte numbers are held in the machine's order.
class KiroValue
{
public:
    /// Codes as stored in a recording. Every other stored code is Unknown, which is stored as
    /// UnknownCode.
    enum Type : std::uint8_t { Object = 0, SignedInt = 1, UnsignedInt = 2, Float = 3, Unknown = 4 };
    static constexpr std::uint32_t UnknownCode = 255;
    /// Largest sample in bytes that fits.
    static constexpr std::uint32_t MaxSize = 8;

    static Type typeFromCode(std::uint32_t code);
    static std::uint32_t codeFromType(Type type);
    /// "object", "signed int", "unsigned int", "float" or "unknown".
    static const char* typeName(Type type);

    /// Unknown, of size 0.
    KiroValue() = default;
    /// `size` in bytes, at most MaxSize.
    KiroValue(Type type, std::uint32_t size);

    Type type() const { return m_type; }
    std::uint32_t size() const { return m_size; }

    /// Copies size() bytes, in reverse order if `reversed`.
    void setBytes(const void* bytes, bool reversed);

    /// Conversions. Integers of 1, 2, 4 and 8 bytes and floats of 4 and 8 bytes convert; all else
    /// gives 0. A wider integer is cut to its low bytes; a float is truncated towards zero, held at the
    /// limits of the integer type, and NaN gives 0.
    double toDouble() const;
    float toFloat() const;
    std::int8_t toInt8() const;
    std::uint8_t toUInt8() const;
    std::int16_t toInt16() const;
    std::uint16_t toUInt16() const;
    std::int32_t toInt32() const;
    std::uint32_t toUInt32() const;
    std::int64_t toInt64() const;
    std::uint64_t toUInt64() const;

    /// Decimal number of the value's own width; a signed value of one byte goes out as the character
    /// of that Latin-1 code; a float by the stream's settings; what does not convert as
    /// "unknown value type".
    friend QTextStream& operator<<(QTextStream& stream, const KiroValue& value);

    /// Writes the value in the file's byte order by its size, but a signed value of one byte as a
    /// 32-bit number: recordings copied this way have always held 4 bytes there, and readers of such
    /// copies rely on it. False if the file did not take it.
    bool write(KiroFile& file) const;

private:
    template <class Number>
    Number convert() const;
    template <class Visitor>
    auto visit(Visitor&& visitor) const;

    unsigned char m_bytes[MaxSize] = {};
    std::uint32_t m_size = 0;
    Type m_type = Unknown;
};
