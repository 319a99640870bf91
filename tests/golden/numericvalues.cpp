#include "numericvalues.h"

#include "files.h"
#include "objects.h"

#include <QDir>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace
{

const QString Exact = QStringLiteral("exact");

[[noreturn]] void refuse(const QString& what)
{
    throw std::runtime_error(what.toStdString());
}

QByteArray fileNamed(const QJsonValue& name, const QString& folder)
{
    const std::optional<QByteArray> bytes = readWhole(QDir(folder).filePath(name.toString()));
    if (!name.isString() || !bytes)
        refuse(QStringLiteral("no readable file ") + shown(name));
    return *bytes;
}

/// JSON has no numbers for the values that a file may hold and a text stands for.
QJsonValue jsonNumber(double number)
{
    if (std::isnan(number))
        return QStringLiteral("nan");
    if (std::isinf(number))
        return number > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");
    return number;
}

QJsonArray numbersInFile(const QJsonObject& place, const QString& folder)
{
    constexpr int Size = 8;
    const QJsonValue name = place.value(QLatin1String("f64"));
    const QByteArray bytes = fileNamed(name, folder);
    const int count = integerOf(place.value(QLatin1String("n")));
    if (bytes.size() % Size != 0 || bytes.size() / Size != count)
        refuse(QStringLiteral("%1 does not hold %2 doubles").arg(shown(name)).arg(count));
    QJsonArray numbers;
    for (int position = 0; position < bytes.size(); position += Size) {
        const auto bits = qFromLittleEndian<quint64>(bytes.constData() + position);
        double number = 0.0;
        std::memcpy(&number, &bits, sizeof(number));
        numbers.append(jsonNumber(number));
    }
    return numbers;
}

QJsonObject fieldsWithFiles(QJsonObject object, const QString& folder)
{
    for (auto field = object.begin(); field != object.end(); ++field)
        field.value() = withFiles(field.value(), folder);
    return object;
}

double numberOf(const QJsonValue& value)
{
    if (value.isDouble())
        return value.toDouble();
    const QString text = value.toString();
    if (text == QLatin1String("nan"))
        return std::numeric_limits<double>::quiet_NaN();
    if (text == QLatin1String("inf"))
        return std::numeric_limits<double>::infinity();
    if (text == QLatin1String("-inf"))
        return -std::numeric_limits<double>::infinity();
    refuse(QStringLiteral("not a number: ") + shown(value));
}

Tolerance toleranceOf(const QJsonValue& rule)
{
    if (rule == QJsonValue(Exact))
        return {};
    const QJsonObject parts = rule.toObject();
    if (parts.isEmpty() || !hasOnlyKeys(parts, "rel abs"))
        refuse(QStringLiteral("no rule of comparison: ") + shown(rule));
    Tolerance tolerance;
    if (parts.contains(QLatin1String("rel")))
        tolerance.rel = numberOf(parts.value(QLatin1String("rel")));
    if (parts.contains(QLatin1String("abs")))
        tolerance.abs = numberOf(parts.value(QLatin1String("abs")));
    return tolerance;
}

/// Whether the condition "when NAME is false" holds.
bool holdsFor(const QJsonObject& args, const QJsonValue& condition)
{
    const QStringList words = condition.toString().split(QLatin1Char(' '));
    if (words.size() != 4 || words[0] != QLatin1String("when") || words[2] != QLatin1String("is") ||
        words[3] != QLatin1String("false"))
        refuse(QStringLiteral("no condition: ") + shown(condition));
    return !args.value(words[1]).toBool();
}

Verdict compareWithin(const QJsonValue& wanted, const Number& found, Tolerance tolerance)
{
    Verdict verdict = compareNumber(wanted, found);
    const double* const number = std::get_if<double>(&found);
    if (verdict.empty() || !number || !wanted.isDouble())
        return verdict;
    const double allowed = std::max(tolerance.abs, tolerance.rel * std::fabs(wanted.toDouble()));
    if (std::fabs(*number - wanted.toDouble()) <= allowed)
        return {};
    return verdict;
}

QString shownAnswer(const Answer& answer)
{
    if (const bool* flag = std::get_if<bool>(&answer.value))
        return *flag ? QStringLiteral("true") : QStringLiteral("false");
    if (const Number* number = std::get_if<Number>(&answer.value))
        return shown(*number);
    if (const std::string* text = std::get_if<std::string>(&answer.value))
        return shown(*text);
    if (const Answer::List* list = std::get_if<Answer::List>(&answer.value))
        return QStringLiteral("%1 values").arg(list->size());
    if (const Answer::Fields* fields = std::get_if<Answer::Fields>(&answer.value))
        return QStringLiteral("%1 fields").arg(fields->size());
    return QStringLiteral("null");
}

} // namespace

QJsonValue withFiles(const QJsonValue& value, const QString& folder)
{
    if (value.isArray()) {
        QJsonArray elements = value.toArray();
        for (auto&& element : elements)
            element = withFiles(element, folder);
        return elements;
    }
    if (!value.isObject())
        return value;
    const QJsonObject object = value.toObject();
    if (object.contains(QLatin1String("f64")) && hasOnlyKeys(object, "f64 n"))
        return numbersInFile(object, folder);
    if (object.contains(QLatin1String("text")) && hasOnlyKeys(object, "text"))
        return QString::fromLatin1(fileNamed(object.value(QLatin1String("text")), folder));
    return fieldsWithFiles(object, folder);
}

CallArgs::CallArgs(QJsonObject args)
    : m_args(std::move(args))
{
}

bool CallArgs::has(const char* name) const
{
    return m_args.contains(QLatin1String(name));
}

double CallArgs::number(const char* name) const
{
    return numberOf(value(name));
}

std::vector<double> CallArgs::numbers(const char* name) const
{
    const QJsonArray elements = array(name);
    std::vector<double> result;
    std::transform(elements.begin(), elements.end(), std::back_inserter(result), numberOf);
    return result;
}

int CallArgs::integer(const char* name) const
{
    return integerOf(value(name));
}

bool CallArgs::flag(const char* name) const
{
    if (!value(name).isBool())
        refuse(QStringLiteral("%1 is no flag").arg(QLatin1String(name)));
    return value(name).toBool();
}

std::string CallArgs::text(const char* name) const
{
    return bytesOf(value(name));
}

CallArgs CallArgs::object(const char* name) const
{
    if (!value(name).isObject())
        refuse(QStringLiteral("%1 is no object").arg(QLatin1String(name)));
    return CallArgs(value(name).toObject());
}

QJsonArray CallArgs::array(const char* name) const
{
    if (!value(name).isArray())
        refuse(QStringLiteral("%1 is no array").arg(QLatin1String(name)));
    return value(name).toArray();
}

QJsonValue CallArgs::value(const char* name) const
{
    if (!has(name))
        refuse(QStringLiteral("no argument %1").arg(QLatin1String(name)));
    return m_args.value(QLatin1String(name));
}

Comparison::Comparison(const QJsonValue& rule, const QJsonObject& args)
{
    if (!rule.isObject()) {
        m_all = toleranceOf(rule);
        return;
    }
    QJsonObject members = rule.toObject();
    const QJsonValue condition = members.take(Exact);
    QJsonObject all;
    for (const QString& name : {QStringLiteral("rel"), QStringLiteral("abs")}) {
        if (members.contains(name))
            all.insert(name, members.take(name));
    }
    for (auto member = members.begin(); member != members.end(); ++member) {
        const Tolerance tolerance = toleranceOf(member.value());
        if (member.key() == QLatin1String("numbers") || member.key() == QLatin1String("other"))
            m_all = tolerance;
        else
            m_named[member.key()] = tolerance;
    }
    if (!all.isEmpty())
        m_all = toleranceOf(all);
    if (!condition.isUndefined() && holdsFor(args, condition))
        m_all = {};
}

Verdict Comparison::compare(const QJsonValue& wanted, const Answer& found) const
{
    return compareValue(wanted, found, m_all);
}

Verdict Comparison::compareValue(const QJsonValue& wanted, const Answer& found, Tolerance tolerance) const
{
    if (const bool* flag = std::get_if<bool>(&found.value))
        return compareBool(wanted, *flag);
    if (const Number* number = std::get_if<Number>(&found.value))
        return compareWithin(wanted, *number, tolerance);
    if (const std::string* text = std::get_if<std::string>(&found.value))
        return compareText(wanted, *text);
    if (const Answer::List* list = std::get_if<Answer::List>(&found.value))
        return compareList(wanted, *list, tolerance);
    if (const Answer::Fields* fields = std::get_if<Answer::Fields>(&found.value))
        return compareFields(wanted, *fields, tolerance);
    if (wanted.isNull())
        return {};
    return {{QString(), shown(wanted), shownAnswer(found)}};
}

Verdict Comparison::compareList(const QJsonValue& wanted, const Answer::List& found,
                                Tolerance tolerance) const
{
    if (!wanted.isArray())
        return {{QString(), shown(wanted), shownAnswer(found)}};
    const QJsonArray values = wanted.toArray();
    Verdict verdict;
    if (static_cast<std::size_t>(values.size()) != found.size())
        verdict.push_back({QString(), QStringLiteral("%1 values").arg(values.size()), shownAnswer(found)});
    const int common = std::min(values.size(), static_cast<int>(found.size()));
    for (int i = 0; i < common; ++i) {
        const Verdict one = compareValue(values[i], found[static_cast<std::size_t>(i)], tolerance);
        append(verdict, at(QStringLiteral("[%1]").arg(i), one));
    }
    return verdict;
}

Verdict Comparison::compareFields(const QJsonValue& wanted, const Answer::Fields& found,
                                  Tolerance tolerance) const
{
    if (!wanted.isObject())
        return {{QString(), shown(wanted), shownAnswer(found)}};
    QJsonObject remaining = wanted.toObject();
    Verdict verdict;
    for (const auto& [name, answer] : found) {
        const QString place = QLatin1Char('.') + name;
        if (!remaining.contains(name)) {
            verdict.push_back({place, shown(QJsonValue(QJsonValue::Undefined)), shownAnswer(answer)});
            continue;
        }
        append(verdict, at(place, compareValue(remaining.take(name), answer, inField(name, tolerance))));
    }
    for (auto field = remaining.begin(); field != remaining.end(); ++field)
        verdict.push_back({QLatin1Char('.') + field.key(), shown(field.value()), QStringLiteral("nothing")});
    return verdict;
}

Tolerance Comparison::inField(const QString& name, Tolerance around) const
{
    const auto named = m_named.find(name);
    return named == m_named.end() ? around : named->second;
}
