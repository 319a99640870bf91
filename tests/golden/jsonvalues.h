#pragma once

#include <QJsonValue>
#include <QString>

#include <cstdint>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

/// One difference between what a corpus says and what the tree answers.
struct Mismatch
{
    QString place; ///< within the field or call, such as "[3]"; empty if it is the whole
    QString wanted;
    QString found;
};

/// All differences of one field or call; empty if it agrees.
using Verdict = std::vector<Mismatch>;

/// A number as the tree has it, without loss.
using Number = std::variant<std::int64_t, std::uint64_t, double>;

template <class Value>
Number toNumber(Value value)
{
    static_assert(std::is_arithmetic_v<Value>);
    if constexpr (std::is_floating_point_v<Value>)
        return static_cast<double>(value);
    else if constexpr (std::is_signed_v<Value>)
        return static_cast<std::int64_t>(value);
    else
        return static_cast<std::uint64_t>(value);
}

/// The bytes of a text, which stands in JSON as its bytes decoded as Latin-1. Throws
/// std::runtime_error if `text` is none or holds a character that is no byte.
std::string bytesOf(const QJsonValue& text);

/// A value in one readable line: texts quoted and escaped, long values cut.
QString shown(const QJsonValue& value);
QString shown(const Number& number);
/// At most 64 bytes of `text`, with the byte at `position` among them.
QString shown(const std::string& text, std::size_t position = 0);

Verdict compareBool(const QJsonValue& wanted, bool found);
/// Byte for byte.
Verdict compareText(const QJsonValue& wanted, const std::string& found);
/// An integer must be that very number: below 2^53 as a JSON number, or as decimal text of any size. A
/// double must be the same IEEE double, where 0.0 and -0.0 are equal and "nan", "inf" and "-inf" are texts.
Verdict compareNumber(const QJsonValue& wanted, const Number& found);
/// Element by element; another length is a difference of its own.
Verdict compareNumbers(const QJsonValue& wanted, const std::vector<Number>& found);

/// `verdict` with `prefix` before every place.
Verdict at(const QString& prefix, Verdict verdict);
/// Appends the differences of `more`.
void append(Verdict& verdict, const Verdict& more);
