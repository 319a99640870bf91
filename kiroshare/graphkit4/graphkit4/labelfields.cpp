#include "labelfields.h"

#include <QDataStream>
#include <QTextCodec>

#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace
{

constexpr std::string_view NanMark = "nan:";

QByteArray hex(quint64 number, int digits)
{
    return QByteArray::number(number, 16).rightJustified(digits, '0');
}

/// Exactly `digits` hex digits.
template <class Number>
bool readHex(std::string_view field, std::size_t digits, Number& number)
{
    Number read = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), read, 16);
    if (field.size() != digits || error != std::errc() || end != field.data() + field.size())
        return false;
    number = read;
    return true;
}

quint64 bitsOf(double number)
{
    quint64 bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

bool readNan(std::string_view digits, double& number)
{
    quint64 bits = 0;
    double read = 0.0;
    if (!readHex(digits, 16, bits))
        return false;
    std::memcpy(&read, &bits, sizeof read);
    if (!std::isnan(read))
        return false;
    number = read;
    return true;
}

/// A colour as Qt stores it.
struct ColorParts
{
    static constexpr int NumberCount = 5;

    qint8 model = QColor::Invalid;
    quint16 numbers[NumberCount] = {}; ///< alpha, then the components of the model
};

constexpr const char* ColorModels[] = {"none", "rgb", "hsv", "cmyk", "hsl", "extended"};

ColorParts partsOf(const QColor& color)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(QDataStream::Qt_5_15);
    out << color;
    QDataStream in(bytes);
    ColorParts parts;
    in >> parts.model;
    for (quint16& number : parts.numbers)
        in >> number;
    return parts;
}

QColor colorOf(const ColorParts& parts)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << parts.model;
    for (const quint16 number : parts.numbers)
        out << number;
    QDataStream in(bytes);
    in.setVersion(QDataStream::Qt_5_15);
    QColor color;
    in >> color;
    return color;
}

/// Whether drawing can work with the numbers: hues in hundredths of a degree, or 65535 for none; halves
/// that are finite.
bool isSane(const ColorParts& parts)
{
    constexpr quint16 HalfExponent = 0x7c00;
    const quint16 hue = parts.numbers[1];
    switch (parts.model) {
    case QColor::Hsv:
    case QColor::Hsl:
        return hue <= 36000 || hue == 0xffff;
    case QColor::ExtendedRgb:
        for (int i = 0; i < 4; ++i) {
            if ((parts.numbers[i] & HalfExponent) == HalfExponent)
                return false;
        }
        return true;
    default:
        return true;
    }
}

bool readHashColor(std::string_view digits, QColor& color)
{
    quint32 argb = 0;
    if (!readHex(digits, 6, argb) && !readHex(digits, 8, argb))
        return false;
    if (digits.size() == 6)
        argb |= 0xff000000u;
    color = QColor::fromRgba(argb);
    return true;
}

bool readModel(std::string_view name, qint8& model)
{
    qint8 index = 0;
    for (const char* each : ColorModels) {
        if (name == each) {
            model = index;
            return true;
        }
        ++index;
    }
    return false;
}

/// "model:aaaa:bbbb:cccc:dddd:eeee"
bool readLongColor(std::string_view field, QColor& color)
{
    constexpr std::size_t Digits = 4;
    constexpr std::size_t Tail = ColorParts::NumberCount * (Digits + 1);
    ColorParts parts;
    if (field.size() < Tail || !readModel(field.substr(0, field.size() - Tail), parts.model))
        return false;
    field.remove_prefix(field.size() - Tail);
    for (quint16& number : parts.numbers) {
        if (field[0] != ':' || !readHex(field.substr(1, Digits), Digits, number))
            return false;
        field.remove_prefix(Digits + 1);
    }
    if (!isSane(parts))
        return false;
    color = colorOf(parts);
    return true;
}

struct Escape
{
    char16_t unit;
    char letter;
};

constexpr Escape Escapes[] = {{u'\\', '\\'}, {u'"', '"'}, {u'\t', 't'}, {u'\n', 'n'}, {u'\r', 'r'}};

bool isLoneSurrogate(std::u16string_view text, std::size_t index)
{
    const char16_t unit = text[index];
    if (QChar::isHighSurrogate(unit))
        return index + 1 == text.size() || !QChar::isLowSurrogate(text[index + 1]);
    return QChar::isLowSurrogate(unit) && (index == 0 || !QChar::isHighSurrogate(text[index - 1]));
}

/// What may not stand in a line as it is: control characters, the other line ends of Unicode, the byte order
/// mark, which editors drop, and what no UTF-8 can hold.
bool needsEscape(std::u16string_view text, std::size_t index)
{
    const char16_t unit = text[index];
    if (unit >= 0x20 && unit < 0x7f)
        return unit == u'\\' || unit == u'"';
    return unit < 0xa0 || unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator ||
           unit == QChar::ByteOrderMark || isLoneSurrogate(text, index);
}

QString escapeOf(char16_t unit)
{
    for (const Escape& each : Escapes) {
        if (unit == each.unit)
            return QLatin1Char('\\') + QString(QLatin1Char(each.letter));
    }
    return QLatin1String("\\u") + QString::fromLatin1(hex(unit, 4));
}

/// Takes the escape off the text, whose first unit is the backslash, and appends what it stands for. False if
/// it is none.
bool takeEscape(std::u16string_view& text, QString& plain)
{
    constexpr std::size_t Digits = 4;
    text.remove_prefix(1);
    const char16_t letter = text.empty() ? u'\0' : text.front();
    for (const Escape& each : Escapes) {
        if (letter == char16_t(each.letter)) {
            plain += QChar(each.unit);
            text.remove_prefix(1);
            return true;
        }
    }
    quint16 unit = 0;
    const std::u16string_view units = text.substr(letter == u'u' ? 1 : text.size(), Digits);
    const QByteArray digits = QStringView(units.data(), qsizetype(units.size())).toLatin1();
    if (!readHex(std::string_view(digits.constData(), std::size_t(digits.size())), Digits, unit))
        return false;
    plain += QChar(unit);
    text.remove_prefix(1 + Digits);
    return true;
}

std::u16string_view viewOf(const QString& text)
{
    return {QStringView(text).utf16(), std::size_t(text.size())};
}

/// Appends units as they are.
void append(QString& text, std::u16string_view units)
{
    text.append(reinterpret_cast<const QChar*>(units.data()), int(units.size()));
}

/// False if the bytes are not UTF-8.
bool decodeUtf8(std::string_view bytes, QString& text)
{
    static const QTextCodec* const codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    text = codec->toUnicode(bytes.data(), int(bytes.size()), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

} // namespace

QByteArray numberField(double number)
{
    if (std::isnan(number)) {
        return bitsOf(number) == bitsOf(std::numeric_limits<double>::quiet_NaN())
                   ? QByteArrayLiteral("nan")
                   : NanMark.data() + hex(bitsOf(number), 16);
    }
    char text[32];
    const auto [end, error] = std::to_chars(text, text + sizeof text, number);
    Q_ASSERT(error == std::errc());
    return QByteArray(text, int(end - text));
}

bool readField(std::string_view field, double& number)
{
    if (field.substr(0, NanMark.size()) == NanMark)
        return readNan(field.substr(NanMark.size()), number);
    const bool named = field == "inf" || field == "-inf" || field == "nan";
    double read = 0.0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), read);
    if (error != std::errc() || end != field.data() + field.size() || std::isfinite(read) == named)
        return false;
    number = field == "nan" ? std::numeric_limits<double>::quiet_NaN() : read;
    return true;
}

bool readField(std::string_view field, quint32& number)
{
    quint32 read = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), read);
    if (error != std::errc() || end != field.data() + field.size())
        return false;
    number = read;
    return true;
}

QByteArray colorField(const QColor& color)
{
    if (color == QColor())
        return QByteArrayLiteral("none");
    if (color.spec() == QColor::Rgb && color == QColor::fromRgba(color.rgba()))
        return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toLatin1();
    const ColorParts parts = partsOf(color);
    QByteArray text = ColorModels[parts.model];
    for (const quint16 number : parts.numbers)
        text += ':' + hex(number, 4);
    return text;
}

bool readField(std::string_view field, QColor& color)
{
    if (field == "none") {
        color = QColor();
        return true;
    }
    return field.substr(0, 1) == "#" ? readHashColor(field.substr(1), color) : readLongColor(field, color);
}

QByteArray textField(const QString& text)
{
    const std::u16string_view units = viewOf(text);
    QString escaped(QLatin1Char('"'));
    std::size_t plainFrom = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (!needsEscape(units, i))
            continue;
        append(escaped, units.substr(plainFrom, i - plainFrom));
        escaped += escapeOf(units[i]);
        plainFrom = i + 1;
    }
    append(escaped, units.substr(plainFrom));
    escaped += QLatin1Char('"');
    return escaped.toUtf8();
}

bool readField(std::string_view field, QString& text)
{
    QString escaped;
    if (field.size() < 2 || field.front() != '"' || field.back() != '"' ||
        !decodeUtf8(field.substr(1, field.size() - 2), escaped))
        return false;
    QString plain;
    std::u16string_view rest = viewOf(escaped);
    while (!rest.empty()) {
        std::size_t length = 0;
        while (length < rest.size() && rest[length] >= 0x20 && rest[length] != u'\\' && rest[length] != u'"')
            ++length;
        append(plain, rest.substr(0, length));
        rest.remove_prefix(length);
        if (!rest.empty() && (rest.front() != u'\\' || !takeEscape(rest, plain)))
            return false;
    }
    text = plain;
    return true;
}
