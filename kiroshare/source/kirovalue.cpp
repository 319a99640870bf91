#include "kirovalue.h"

#include "kirofile.h"

#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

namespace
{

/// Stands for a type and size without a number.
struct NoNumber
{
};

template <class Number>
Number loadNumber(const unsigned char* bytes)
{
    Number number;
    std::memcpy(&number, bytes, sizeof(number));
    return number;
}

template <class Integer, class Floating>
Integer truncatedAndHeld(Floating value)
{
    using Limits = std::numeric_limits<Integer>;
    if (std::isnan(value))
        return 0;
    // The upper limit plus one is a power of two and so exact in every floating type.
    const Floating upperEnd = std::ldexp(Floating(1), Limits::digits);
    const Floating lowerEnd = std::is_signed_v<Integer> ? -upperEnd : Floating(0);
    const Floating whole = std::trunc(value);
    if (whole >= upperEnd)
        return Limits::max();
    if (whole <= lowerEnd)
        return Limits::min();
    return static_cast<Integer>(whole);
}

} // namespace

KiroValue::Type KiroValue::typeFromCode(std::uint32_t code)
{
    return code < Unknown ? static_cast<Type>(code) : Unknown;
}

std::uint32_t KiroValue::codeFromType(Type type)
{
    return type < Unknown ? std::uint32_t(type) : UnknownCode;
}

const char* KiroValue::typeName(Type type)
{
    switch (type) {
    case Object:
        return "object";
    case SignedInt:
        return "signed int";
    case UnsignedInt:
        return "unsigned int";
    case Float:
        return "float";
    case Unknown:
        break;
    }
    return "unknown";
}

KiroValue::KiroValue(Type type, std::uint32_t size)
    : m_size(std::min(size, MaxSize))
    , m_type(type)
{
}

void KiroValue::setBytes(const void* bytes, bool reversed)
{
    const auto* source = static_cast<const unsigned char*>(bytes);
    if (reversed)
        std::reverse_copy(source, source + m_size, m_bytes);
    else
        std::copy_n(source, m_size, m_bytes);
}

/// Calls `visitor` with the number in its own type, or with NoNumber.
template <class Visitor>
auto KiroValue::visit(Visitor&& visitor) const
{
    switch (m_type) {
    case SignedInt:
        switch (m_size) {
        case 1:
            return visitor(loadNumber<std::int8_t>(m_bytes));
        case 2:
            return visitor(loadNumber<std::int16_t>(m_bytes));
        case 4:
            return visitor(loadNumber<std::int32_t>(m_bytes));
        case 8:
            return visitor(loadNumber<std::int64_t>(m_bytes));
        default:
            break;
        }
        break;
    case UnsignedInt:
        switch (m_size) {
        case 1:
            return visitor(loadNumber<std::uint8_t>(m_bytes));
        case 2:
            return visitor(loadNumber<std::uint16_t>(m_bytes));
        case 4:
            return visitor(loadNumber<std::uint32_t>(m_bytes));
        case 8:
            return visitor(loadNumber<std::uint64_t>(m_bytes));
        default:
            break;
        }
        break;
    case Float:
        switch (m_size) {
        case 4:
            return visitor(loadNumber<float>(m_bytes));
        case 8:
            return visitor(loadNumber<double>(m_bytes));
        default:
            break;
        }
        break;
    case Object:
    case Unknown:
        break;
    }
    return visitor(NoNumber());
}

template <class Number>
Number KiroValue::convert() const
{
    return visit([](auto value) -> Number {
        using Value = decltype(value);
        if constexpr (std::is_same_v<Value, NoNumber>)
            return Number(0);
        else if constexpr (std::is_floating_point_v<Value> && std::is_integral_v<Number>)
            return truncatedAndHeld<Number>(value);
        else
            return static_cast<Number>(value);
    });
}

double KiroValue::toDouble() const
{
    return convert<double>();
}

float KiroValue::toFloat() const
{
    return convert<float>();
}

std::int8_t KiroValue::toInt8() const
{
    return convert<std::int8_t>();
}

std::uint8_t KiroValue::toUInt8() const
{
    return convert<std::uint8_t>();
}

std::int16_t KiroValue::toInt16() const
{
    return convert<std::int16_t>();
}

std::uint16_t KiroValue::toUInt16() const
{
    return convert<std::uint16_t>();
}

std::int32_t KiroValue::toInt32() const
{
    return convert<std::int32_t>();
}

std::uint32_t KiroValue::toUInt32() const
{
    return convert<std::uint32_t>();
}

std::int64_t KiroValue::toInt64() const
{
    return convert<std::int64_t>();
}

std::uint64_t KiroValue::toUInt64() const
{
    return convert<std::uint64_t>();
}

QTextStream& operator<<(QTextStream& stream, const KiroValue& value)
{
    value.visit([&stream](auto number) {
        using Number = decltype(number);
        if constexpr (std::is_same_v<Number, NoNumber>)
            stream << QLatin1String("unknown value type");
        else if constexpr (std::is_same_v<Number, std::int8_t>)
            stream << QLatin1Char(static_cast<char>(number));
        else if constexpr (std::is_same_v<Number, std::uint8_t>)
            stream << uint(number);
        else if constexpr (std::is_same_v<Number, std::int64_t>)
            stream << qlonglong(number);
        else if constexpr (std::is_same_v<Number, std::uint64_t>)
            stream << qulonglong(number);
        else
            stream << number;
    });
    return stream;
}

bool KiroValue::write(KiroFile& file) const
{
    if (m_type == SignedInt && m_size == 1)
        return file.writeU32(static_cast<std::uint32_t>(toInt32()));
    unsigned char bytes[MaxSize];
    std::copy_n(m_bytes, m_size, bytes);
    if (!file.isMachineOrder())
        std::reverse(bytes, bytes + m_size);
    const auto count = static_cast<std::int32_t>(m_size);
    return file.writeRaw(bytes, count) == count;
}
