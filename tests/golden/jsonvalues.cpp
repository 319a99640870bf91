#include "jsonvalues.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace
{

constexpr double FirstInexactInteger = 9007199254740992.0; // 2^53
constexpr std::size_t LongestText = 64;                    // shown, in bytes
constexpr std::size_t BytesBeforeDifference = 20;

QString cut(const QString& text)
{
    const int longest = 2 * static_cast<int>(LongestText);
    return text.size() <= longest ? text : text.left(longest) + QStringLiteral("...");
}

QString escaped(unsigned char byte)
{
    if (byte == '"' || byte == '\\')
        return QLatin1Char('\\') + QString(QLatin1Char(static_cast<char>(byte)));
    if (byte >= 0x20 && byte < 0x7f)
        return QString(QLatin1Char(static_cast<char>(byte)));
    return QStringLiteral("\\x%1").arg(static_cast<uint>(byte), 2, 16, QLatin1Char('0'));
}

QString jsonText(const QJsonValue& value)
{
    const QByteArray wrapped = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(wrapped.mid(1, wrapped.size() - 2));
}

bool sameDouble(const QJsonValue& wanted, double found)
{
    if (wanted.isDouble())
        return wanted.toDouble() == found;
    const QString text = wanted.toString();
    if (text == QLatin1String("nan"))
        return std::isnan(found);
    if (text == QLatin1String("inf"))
        return std::isinf(found) && found > 0;
    return text == QLatin1String("-inf") && std::isinf(found) && found < 0;
}

template <class Integer>
bool sameInteger(const QJsonValue& wanted, Integer found)
{
    if (wanted.isString())
        return wanted.toString() == shown(Number(found));
    // Larger numbers have lost their last digits on the way into a double; they have to stand as text.
    const double number = wanted.toDouble();
    return wanted.isDouble() && std::fabs(number) < FirstInexactInteger &&
           std::fabs(static_cast<double>(found)) < FirstInexactInteger &&
           number == static_cast<double>(found);
}

bool sameNumber(const QJsonValue& wanted, const Number& found)
{
    return std::visit(
        [&wanted](auto number) {
            if constexpr (std::is_same_v<decltype(number), double>)
                return sameDouble(wanted, number);
            else
                return sameInteger(wanted, number);
        },
        found);
}

} // namespace

std::string bytesOf(const QJsonValue& text)
{
    if (!text.isString())
        throw std::runtime_error("not a text: " + shown(text).toStdString());
    const QString characters = text.toString();
    const auto isNoByte = [](QChar character) { return character.unicode() > 0xff; };
    if (std::any_of(characters.begin(), characters.end(), isNoByte))
        throw std::runtime_error("a text with a character above 255");
    return characters.toLatin1().toStdString();
}

QString shown(const QJsonValue& value)
{
    if (value.isUndefined())
        return QStringLiteral("nothing");
    if (value.isDouble())
        return shown(Number(value.toDouble()));
    return cut(jsonText(value));
}

QString shown(const Number& number)
{
    if (const double* real = std::get_if<double>(&number))
        return QString::number(*real, 'g', QLocale::FloatingPointShortest);
    if (const std::int64_t* integer = std::get_if<std::int64_t>(&number))
        return QString::number(static_cast<qlonglong>(*integer));
    return QString::number(static_cast<qulonglong>(std::get<std::uint64_t>(number)));
}

QString shown(const std::string& text, std::size_t position)
{
    std::size_t start = 0;
    if (text.size() > LongestText && position > BytesBeforeDifference)
        start = std::min(position - BytesBeforeDifference, text.size() - LongestText);
    const std::size_t end = std::min(text.size(), start + LongestText);
    QString result;
    for (std::size_t i = start; i < end; ++i)
        result += escaped(static_cast<unsigned char>(text[i]));
    return (start > 0 ? QStringLiteral("...\"") : QStringLiteral("\"")) + result +
           (end < text.size() ? QStringLiteral("\"...") : QStringLiteral("\""));
}

Verdict compareBool(const QJsonValue& wanted, bool found)
{
    if (wanted.isBool() && wanted.toBool() == found)
        return {};
    return {{QString(), shown(wanted), found ? QStringLiteral("true") : QStringLiteral("false")}};
}

Verdict compareText(const QJsonValue& wanted, const std::string& found)
{
    if (!wanted.isString())
        return {{QString(), shown(wanted), shown(found)}};
    const std::string bytes = bytesOf(wanted);
    if (bytes == found)
        return {};
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(std::min(bytes.size(), found.size()));
    const auto position =
        static_cast<std::size_t>(std::mismatch(bytes.begin(), end, found.begin()).first - bytes.begin());
    return {{QString(), shown(bytes, position), shown(found, position)}};
}

Verdict compareNumber(const QJsonValue& wanted, const Number& found)
{
    if (sameNumber(wanted, found))
        return {};
    return {{QString(), shown(wanted), shown(found)}};
}

Verdict compareNumbers(const QJsonValue& wanted, const std::vector<Number>& found)
{
    const QString lengthText = QStringLiteral("%1 values");
    if (!wanted.isArray())
        return {{QString(), shown(wanted), lengthText.arg(found.size())}};
    const QJsonArray values = wanted.toArray();
    Verdict verdict;
    if (static_cast<std::size_t>(values.size()) != found.size())
        verdict.push_back({QString(), lengthText.arg(values.size()), lengthText.arg(found.size())});
    const int common = std::min(values.size(), static_cast<int>(found.size()));
    for (int i = 0; i < common; ++i) {
        const Verdict one = compareNumber(values[i], found[static_cast<std::size_t>(i)]);
        append(verdict, at(QStringLiteral("[%1]").arg(i), one));
    }
    return verdict;
}

Verdict at(const QString& prefix, Verdict verdict)
{
    for (Mismatch& mismatch : verdict)
        mismatch.place.prepend(prefix);
    return verdict;
}

void append(Verdict& verdict, const Verdict& more)
{
    verdict.insert(verdict.end(), more.begin(), more.end());
}
