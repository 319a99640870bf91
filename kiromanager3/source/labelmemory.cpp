#include "labelmemory.h"

#include "inistore.h"
#include "multiplotscheme.h"
#include "settingsfields.h"

#include <algorithm>

namespace
{

const QString NameKey = QStringLiteral("label_name");
const QString DescriptionKey = QStringLiteral("label_description");
const QString ColorKey = QStringLiteral("label_color");
const QString CountKey = QStringLiteral("label_templates_count");

QString keyOf(const char* field, int index)
{
    return QStringLiteral("label_template_%1_%2").arg(QLatin1String(field)).arg(index);
}

LabelTemplate templateAt(const IniStore& store, const QString& section, int index)
{
    const auto text = [&](const char* field) { return readText(store, section, keyOf(field, index), {}); };
    return {text("name"), text("labelname"), text("labeldescription"),
            store.colorValue(section, keyOf("labelcolor", index), Qt::black)};
}

} // namespace

LabelMemory::LabelMemory()
    : m_next{QStringLiteral("Last label template"), defaultName(), defaultDescription(),
             MultiPlotScheme().marker().color()}
{
}

void LabelMemory::remember(const QString& name, const QString& description, const QColor& color)
{
    const bool isOfTemplate =
        std::any_of(m_templates.begin(), m_templates.end(), [&](const LabelTemplate& each) {
            return each.labelName == name && each.labelDescription == description &&
                   each.labelColor.rgb() == color.rgb();
        });
    const QString nextName = isOfTemplate ? name : defaultName();
    const QString nextDescription = isOfTemplate ? description : defaultDescription();
    m_next = {m_next.templateName, nextName, nextDescription, color};
}

void LabelMemory::load(const IniStore& store, const QString& section)
{
    m_next.labelName = readText(store, section, NameKey, m_next.labelName);
    m_next.labelDescription = readText(store, section, DescriptionKey, m_next.labelDescription);
    m_next.labelColor = store.colorValue(section, ColorKey, m_next.labelColor);
    if (!store.hasKey(section, CountKey))
        return;
    const int count = std::min(store.intValue(section, CountKey, 0), Most);
    QList<LabelTemplate> stored;
    for (int i = 0; i < count; ++i) {
        const LabelTemplate each = templateAt(store, section, i);
        if (!each.templateName.isEmpty())
            stored << each;
    }
    m_templates = stored;
}

void LabelMemory::save(IniStore& store, const QString& section) const
{
    writeText(store, section, NameKey, m_next.labelName);
    writeText(store, section, DescriptionKey, m_next.labelDescription);
    store.setColor(section, ColorKey, m_next.labelColor);
    store.setInt(section, CountKey, m_templates.size());
    for (int i = 0; i < m_templates.size(); ++i) {
        const LabelTemplate& each = m_templates[i];
        writeText(store, section, keyOf("name", i), each.templateName);
        writeText(store, section, keyOf("labelname", i), each.labelName);
        writeText(store, section, keyOf("labeldescription", i), each.labelDescription);
        store.setColor(section, keyOf("labelcolor", i), each.labelColor);
    }
}
