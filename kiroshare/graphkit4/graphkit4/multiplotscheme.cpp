#include "multiplotscheme.h"

#include <cstddef>

namespace
{

constexpr const char* DrawStyleTexts[] = {"points", "lines"};
constexpr const char* UnitTypeTexts[] = {"time", "samples"};
constexpr const char* TimeStyleTexts[] = {"milliseconds", "seconds", "minutes", "hours"};

template <std::size_t Count>
QString textOf(const char* const (&texts)[Count], int value)
{
    return value >= 0 && value < int(Count) ? QString::fromLatin1(texts[value]) : QString();
}

template <class Value, std::size_t Count>
Value valueOf(const char* const (&texts)[Count], const QString& text, Value fallback)
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (text == QLatin1String(texts[i]))
            return static_cast<Value>(i);
    }
    return fallback;
}

QPen cosmeticPen(const QColor& color, Qt::PenStyle style = Qt::SolidLine)
{
    return QPen(color, 0, style, Qt::FlatCap, Qt::BevelJoin);
}

} // namespace

MultiPlotScheme::MultiPlotScheme()
    : m_bkg(Qt::white)
    , m_frg(cosmeticPen(QColor(0x30, 0x30, 0x30)))
    , m_data(cosmeticPen(QColor(0x1c, 0x5f, 0xa8)))
    , m_grid(cosmeticPen(QColor(0xdc, 0xdc, 0xdc)))
    , m_marker(cosmeticPen(QColor(0xb5, 0x3a, 0x16)))
    , m_pointer(cosmeticPen(QColor(0x7a, 0x1f, 0x8a)))
{
}

QString MultiPlotScheme::drawStyleString(DrawStyle style)
{
    return textOf(DrawStyleTexts, style);
}

MultiPlotScheme::DrawStyle MultiPlotScheme::drawStyleFromString(const QString& text)
{
    return valueOf(DrawStyleTexts, text, Lines);
}

QString MultiPlotScheme::horzUnitTypeString(UnitType type)
{
    return textOf(UnitTypeTexts, type);
}

MultiPlotScheme::UnitType MultiPlotScheme::horzUnitTypeFromString(const QString& text)
{
    return valueOf(UnitTypeTexts, text, Time);
}

QString MultiPlotScheme::horzTimeStyleString(TimeStyle style)
{
    return textOf(TimeStyleTexts, style);
}

MultiPlotScheme::TimeStyle MultiPlotScheme::horzTimeStyleFromString(const QString& text)
{
    return valueOf(TimeStyleTexts, text, Seconds);
}
