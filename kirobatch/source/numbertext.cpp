#include "numbertext.h"

#include <charconv>

namespace
{

/// The text of `number` by std::to_chars with the given further arguments.
template <class Number, class... Format>
void appendChars(std::string& text, Number number, Format... format)
{
    // The longest text is a %f of the largest double: 309 digits, sign, point and decimals.
    char buffer[400];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), number, format...);
    text.append(buffer, result.ptr);
}

/// Whether `number` is no number that has digits; its text is then appended.
bool appendNonFinite(std::string& text, double number)
{
    if (std::isfinite(number))
        return false;
    text += std::isnan(number) ? "nan" : number > 0 ? "inf" : "-inf";
    return true;
}

std::string formatted(double number, std::chars_format format, int precision)
{
    std::string text;
    if (!appendNonFinite(text, number))
        appendChars(text, number, format, precision);
    return text;
}

} // namespace

void appendNumber(std::string& text, double number)
{
    if (!appendNonFinite(text, number))
        appendChars(text, number);
}

void appendNumber(std::string& text, std::int64_t number)
{
    appendChars(text, number);
}

void appendNumber(std::string& text, std::uint64_t number)
{
    appendChars(text, number);
}

std::string fixedText(double number, int decimals)
{
    return formatted(number, std::chars_format::fixed, decimals);
}

std::string generalText(double number, int digits)
{
    return formatted(number, std::chars_format::general, digits);
}

std::string counted(std::int64_t count, const char* noun)
{
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}
