#pragma once

#include "jsonvalues.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <cstddef>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

/// `value` with everything that stands in files of `folder` put in its place, at any depth: for
/// {"f64": NAME, "n": COUNT} the COUNT numbers of a file of little-endian doubles, for {"text": NAME} the
/// bytes of a file, decoded as Latin-1. Throws std::runtime_error if a file is missing or of another length.
QJsonValue withFiles(const QJsonValue& value, const QString& folder);

/// Arguments of a call, or an object among them. Each function throws std::runtime_error if the argument
/// is absent or of another type.
class CallArgs
{
public:
    explicit CallArgs(QJsonObject args);

    bool has(const char* name) const;
    /// "nan", "inf" and "-inf" are numbers too.
    double number(const char* name) const;
    std::vector<double> numbers(const char* name) const;
    int integer(const char* name) const;
    bool flag(const char* name) const;
    /// The bytes of a text.
    std::string text(const char* name) const;
    CallArgs object(const char* name) const;
    QJsonArray array(const char* name) const;

private:
    QJsonValue value(const char* name) const;

    QJsonObject m_args;
};

/// What the tree answers to a call, in the form that the corpus has: null, flag, number, text, list or
/// named fields. Integers must be given as integers: they are compared exactly, whatever the tolerance.
struct Answer
{
    using List = std::vector<Answer>;
    using Fields = std::vector<std::pair<QString, Answer>>;

    // The conversions are meant: an answer is written down as the values that it holds.
    Answer(std::nullptr_t) {}
    Answer(std::string text)
        : value(std::move(text))
    {
    }
    Answer(const char* text)
        : value(std::string(text))
    {
    }
    Answer(List list)
        : value(std::move(list))
    {
    }
    Answer(Fields fields)
        : value(std::move(fields))
    {
    }
    template <class Value, std::enable_if_t<std::is_arithmetic_v<Value>, int> = 0>
    Answer(Value number)
    {
        if constexpr (std::is_same_v<Value, bool>)
            value = number;
        else
            value = toNumber(number);
    }
    template <class Value, std::enable_if_t<!std::is_same_v<Value, Answer>, int> = 0>
    Answer(const std::vector<Value>& values)
        : value(List(values.begin(), values.end()))
    {
    }

    std::variant<std::nullptr_t, bool, Number, std::string, List, Fields> value = nullptr;
};

/// How far a double may lie from the wanted one: by `abs`, or by `rel` times its size if that is more.
struct Tolerance
{
    double rel = 0.0;
    double abs = 0.0;
};

/// The rule of comparison of a case, its member "compare".
///
/// The text "exact", or an object. In it "rel" and "abs" hold for all doubles, "exact" with the text "when
/// NAME is false" takes them back for calls in which the argument NAME is not set, and any other member
/// holds, again "exact" or "rel" and "abs", for the field of that name and all below it. The member
/// "numbers" or "other" is for fields that no member names; without one they are exact.
class Comparison
{
public:
    /// Throws std::runtime_error if `rule` is no such rule.
    Comparison(const QJsonValue& rule, const QJsonObject& args);

    /// All differences. Integers, flags, texts, lengths and names of fields must be the same.
    Verdict compare(const QJsonValue& wanted, const Answer& found) const;

private:
    Verdict compareValue(const QJsonValue& wanted, const Answer& found, Tolerance tolerance) const;
    Verdict compareList(const QJsonValue& wanted, const Answer::List& found, Tolerance tolerance) const;
    Verdict compareFields(const QJsonValue& wanted, const Answer::Fields& found, Tolerance tolerance) const;
    Tolerance inField(const QString& name, Tolerance around) const;

    Tolerance m_all;
    std::map<QString, Tolerance> m_named;
};
