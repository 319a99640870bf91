#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <type_traits>

/// How a number is spelt. Json spells nan, inf, -inf and all 8-byte integers as JSON strings, since not
/// every JSON reader keeps them as numbers.
enum class NumberForm { Plain, Json };

/// Appends decimals that give back exactly `number`, and no more of them than that takes. Infinities are
/// "inf" and "-inf", every NaN is "nan". The locale does not matter.
void appendNumber(std::string& text, double number);
void appendNumber(std::string& text, std::int64_t number);
void appendNumber(std::string& text, std::uint64_t number);

/// `number` with `decimals` digits behind the point, as printf's %f in the C locale.
std::string fixedText(double number, int decimals);
/// `number` with at most `digits` digits, as printf's %g in the C locale.
std::string generalText(double number, int digits);

/// "1 packet", "2 packets".
std::string counted(std::int64_t count, const char* noun);

/// Appends a sample of any element type; a float is widened to double first.
template <class Number>
void appendSample(std::string& text, Number sample, NumberForm form)
{
    bool quoted = false;
    if constexpr (std::is_floating_point_v<Number>)
        quoted = form == NumberForm::Json && !std::isfinite(sample);
    else
        quoted = form == NumberForm::Json && sizeof(Number) == sizeof(std::int64_t);
    if (quoted)
        text += '"';
    if constexpr (std::is_floating_point_v<Number>)
        appendNumber(text, static_cast<double>(sample));
    else if constexpr (std::is_signed_v<Number>)
        appendNumber(text, static_cast<std::int64_t>(sample));
    else
        appendNumber(text, static_cast<std::uint64_t>(sample));
    if (quoted)
        text += '"';
    // Readers of JSON take "-0" for the integer and lose its sign.
    if constexpr (std::is_floating_point_v<Number>)
        text += form == NumberForm::Json && sample == 0 && std::signbit(sample) ? ".0" : "";
}
