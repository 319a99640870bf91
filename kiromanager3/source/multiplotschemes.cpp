#include "multiplotschemes.h"

#include "inistore.h"
#include "settingsfields.h"

#include <algorithm>
#include <type_traits>

namespace
{

const QString CountKey = QStringLiteral("schemes_count");
const QString CurrentKey = QStringLiteral("current_multiplot_scheme");

QString keyOf(const char* part, int index)
{
    return QStringLiteral("scheme_%1_%2").arg(QLatin1String(part)).arg(index);
}

SchemeKeys keysOf(int index)
{
    return {keyOf("font", index),     keyOf("bkg", index),          keyOf("frg", index),
            keyOf("data", index),     keyOf("grid", index),         keyOf("marker", index),
            keyOf("pointer", index),  keyOf("drawstyle", index),    keyOf("horzgrid", index),
            keyOf("vertgrid", index), keyOf("horzunittype", index), keyOf("horztimestyle", index)};
}

MultiPlotScheme defaultScheme()
{
    MultiPlotScheme scheme;
    scheme.setName(QStringLiteral("MultiPlot default scheme"));
    return scheme;
}

bool isDrawStyle(const QString& text)
{
    return MultiPlotScheme::drawStyleString(MultiPlotScheme::drawStyleFromString(text)) == text;
}

bool isUnitType(const QString& text)
{
    return MultiPlotScheme::horzUnitTypeString(MultiPlotScheme::horzUnitTypeFromString(text)) == text;
}

bool isTimeStyle(const QString& text)
{
    return MultiPlotScheme::horzTimeStyleString(MultiPlotScheme::horzTimeStyleFromString(text)) == text;
}

/// One part of a scheme: what `field` makes of its value goes back, unless the scheme only is read.
template <class Scheme, class Field, class Value, class Set>
void walkPart(Scheme& scheme, const Field& field, const QString& key, Value value, Set set,
              bool (*accepts)(const Value&))
{
    if (key.isEmpty())
        return;
    field(key, value, accepts);
    if constexpr (!std::is_const_v<Scheme>)
        set(scheme, value);
}

/// The one list of parts, for reading and for writing.
template <class Scheme, class Field>
void walkScheme(Scheme& scheme, const SchemeKeys& keys, const Field& field)
{
    using S = MultiPlotScheme;
    const auto part = [&](const QString& key, auto value, auto set, auto accepts) {
        walkPart(scheme, field, key, value, set, accepts);
    };
    part(
        keys.font, scheme.font(), [](S& s, const QFont& font) { s.setFont(font); }, isPlotFont);
    part(
        keys.bkg, scheme.bkg(), [](S& s, const QColor& color) { s.setBkg(color); }, isColor);
    part(
        keys.frg, scheme.frg(), [](S& s, const QPen& pen) { s.setFrg(pen); }, isPlotPen);
    part(
        keys.data, scheme.data(), [](S& s, const QPen& pen) { s.setData(pen); }, isPlotPen);
    part(
        keys.grid, scheme.grid(), [](S& s, const QPen& pen) { s.setGrid(pen); }, isPlotPen);
    part(
        keys.marker, scheme.marker(), [](S& s, const QPen& pen) { s.setMarker(pen); }, isPlotPen);
    part(
        keys.pointer, scheme.pointer(), [](S& s, const QPen& pen) { s.setPointer(pen); }, isPlotPen);
    part(
        keys.drawStyle, S::drawStyleString(scheme.drawStyle()),
        [](S& s, const QString& text) { s.setDrawStyle(S::drawStyleFromString(text)); }, isDrawStyle);
    part(
        keys.horzGrid, scheme.horzGrid(), [](S& s, bool shown) { s.setHorzGrid(shown); }, anyBool);
    part(
        keys.vertGrid, scheme.vertGrid(), [](S& s, bool shown) { s.setVertGrid(shown); }, anyBool);
    part(
        keys.horzUnitType, S::horzUnitTypeString(scheme.horzUnitType()),
        [](S& s, const QString& text) { s.setHorzUnitType(S::horzUnitTypeFromString(text)); }, isUnitType);
    part(
        keys.horzTimeStyle, S::horzTimeStyleString(scheme.horzTimeStyle()),
        [](S& s, const QString& text) { s.setHorzTimeStyle(S::horzTimeStyleFromString(text)); }, isTimeStyle);
}

} // namespace

void readScheme(const IniStore& store, const QString& section, const SchemeKeys& keys,
                MultiPlotScheme& scheme)
{
    walkScheme(scheme, keys, SettingsReader(store, section));
}

void writeScheme(IniStore& store, const QString& section, const SchemeKeys& keys,
                 const MultiPlotScheme& scheme)
{
    walkScheme(scheme, keys, SettingsWriter(store, section));
}

MultiPlotSchemes::MultiPlotSchemes()
    : m_schemes{defaultScheme()}
    , m_currentName(defaultScheme().name())
{
}

MultiPlotScheme MultiPlotSchemes::current() const
{
    return m_schemes.value(indexOf(m_currentName));
}

bool MultiPlotSchemes::set(const QList<MultiPlotScheme>& schemes, const QString& currentName)
{
    if (schemes.isEmpty())
        return false;
    MultiPlotSchemes taken;
    taken.m_schemes.clear();
    for (const MultiPlotScheme& scheme : schemes) {
        if (taken.indexOf(scheme.name()) < 0)
            taken.m_schemes << scheme;
    }
    taken.m_currentName = taken.indexOf(currentName) >= 0 ? currentName : taken.m_schemes.first().name();
    *this = taken;
    return true;
}

void MultiPlotSchemes::changeCurrent(const MultiPlotScheme& scheme)
{
    MultiPlotScheme& changed = m_schemes[indexOf(m_currentName)];
    changed = scheme;
    changed.setName(m_currentName);
}

void MultiPlotSchemes::load(const IniStore& store, const QString& section)
{
    const int count = std::min(store.intValue(section, CountKey, 0), Most);
    QList<MultiPlotScheme> stored;
    for (int i = 0; i < count; ++i) {
        MultiPlotScheme scheme = defaultScheme();
        scheme.setName(readText(store, section, keyOf("name", i), {}));
        if (scheme.name().isEmpty())
            continue;
        readScheme(store, section, keysOf(i), scheme);
        stored << scheme;
    }
    set(stored.isEmpty() ? m_schemes : stored, readText(store, section, CurrentKey, m_currentName));
}

void MultiPlotSchemes::save(IniStore& store, const QString& section) const
{
    store.setInt(section, CountKey, m_schemes.size());
    for (int i = 0; i < m_schemes.size(); ++i) {
        writeText(store, section, keyOf("name", i), m_schemes[i].name());
        writeScheme(store, section, keysOf(i), m_schemes[i]);
    }
    writeText(store, section, CurrentKey, m_currentName);
}

int MultiPlotSchemes::indexOf(const QString& name) const
{
    const auto found = std::find_if(m_schemes.begin(), m_schemes.end(),
                                    [&](const MultiPlotScheme& each) { return each.name() == name; });
    return found == m_schemes.end() ? -1 : int(found - m_schemes.begin());
}
