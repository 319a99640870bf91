#include "labelentry.h"

#include "kirolabel.h"

#include <QLocale>

#include <cmath>
#include <limits>
#include <optional>

namespace
{

constexpr int TimeDecimals = 3;
constexpr int PositionDecimals = 6;

double wholeMilliseconds(double seconds)
{
    return std::floor(seconds * 1000.0 + 0.5);
}

std::optional<double> numberIn(const QString& text, const QLocale& locale)
{
    bool ok = false;
    const double number = locale.toDouble(text, &ok);
    // The words for infinity and for no number are read as well.
    return ok && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

/// The milliseconds of a time in seconds; none for a text that is no time that a label can have.
std::optional<quint32> timeIn(const QString& text, const QLocale& locale)
{
    const std::optional<double> seconds = numberIn(text, locale);
    if (!seconds || *seconds < 0.0 || wholeMilliseconds(*seconds) > std::numeric_limits<quint32>::max())
        return std::nullopt;
    return quint32(wholeMilliseconds(*seconds));
}

} // namespace

LabelEntry LabelEntry::of(const KiroLabel& label, const QLocale& locale)
{
    QLocale plain = locale;
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    const auto position = plain.toString(label.value, 'f', PositionDecimals);
    return {plain.toString(label.time / 1000.0, 'f', TimeDecimals),
            plain.toString(label.endTime / 1000.0, 'f', TimeDecimals),
            // A small negative value would come out as a zero with a sign.
            plain.toDouble(position) == 0.0 ? plain.toString(0.0, 'f', PositionDecimals) : position};
}

bool LabelEntry::store(KiroLabel& label, double maxTime, const QLocale& locale) const
{
    const auto isWithin = [lastMs = wholeMilliseconds(maxTime)](std::optional<quint32> time) {
        return time && *time <= lastMs;
    };
    const std::optional<quint32> startMs = timeIn(start, locale);
    const std::optional<quint32> endMs = timeIn(end, locale);
    const std::optional<double> value = numberIn(position, locale);
    if (KiroLabel::typeToString(label.type).isEmpty() || !isWithin(startMs))
        return false;
    if (label.hasValue() && !value)
        return false;
    if (label.hasEnd() && (!isWithin(endMs) || *endMs <= *startMs))
        return false;
    // The position that the label itself would show stands for its exact value.
    if (value && position != of(label, locale).position)
        label.value = *value;
    label.time = *startMs;
    label.endTime = endMs.value_or(label.endTime);
    return true;
}
