#include "favoriteviews.h"

#include "inistore.h"
#include "settingsfields.h"

#include <algorithm>

namespace
{

const QString Between = QStringLiteral("<<;;;>>"); // the names of a list
const QString CountKey = QStringLiteral("views_count");

QString keyOf(const char* field, int index)
{
    return QStringLiteral("view_%1%2").arg(QLatin1String(field)).arg(index);
}

FavoriteView viewAt(const IniStore& store, const QString& section, int index)
{
    const auto text = [&](const char* field) { return readText(store, section, keyOf(field, index), {}); };
    const auto list = [&](const char* field) { return text(field).split(Between, Qt::SkipEmptyParts); };
    return {text(""), list("allsignals_"), list("viewsignals_")};
}

} // namespace

void FavoriteViews::activate(const QStringList& signalNames)
{
    for (FavoriteView& view : m_views)
        view.active = !signalNames.isEmpty() && view.allSignals == signalNames;
}

QStringList FavoriteViews::activeNames() const
{
    QStringList names;
    for (const FavoriteView& view : m_views) {
        if (view.active)
            names << view.name;
    }
    return names;
}

std::optional<FavoriteView> FavoriteViews::firstActive() const
{
    const auto found =
        std::find_if(m_views.begin(), m_views.end(), [](const FavoriteView& view) { return view.active; });
    return found == m_views.end() ? std::nullopt : std::optional<FavoriteView>(*found);
}

std::optional<FavoriteView> FavoriteViews::activeView(const QString& name) const
{
    const int index = activeIndex(name);
    return index < 0 ? std::nullopt : std::optional<FavoriteView>(m_views[index]);
}

int FavoriteViews::numberShowing(const QStringList& shownSignals) const
{
    const auto found = std::find_if(m_views.begin(), m_views.end(), [&](const FavoriteView& view) {
        return view.active && view.viewSignals == shownSignals;
    });
    return found == m_views.end() ? 0 : int(found - m_views.begin()) + 1;
}

bool FavoriteViews::isFree(const QString& name) const
{
    return name != customName() && activeIndex(name) < 0;
}

bool FavoriteViews::add(const QString& name, const QStringList& allSignals, const QStringList& shownSignals)
{
    if (name.isEmpty() || !isFree(name))
        return false;
    m_views << FavoriteView{name, allSignals, shownSignals, true};
    return true;
}

bool FavoriteViews::remove(const QString& name)
{
    const int index = activeIndex(name);
    if (index < 0)
        return false;
    m_views.removeAt(index);
    return true;
}

void FavoriteViews::load(const IniStore& store, const QString& section)
{
    if (!store.hasKey(section, CountKey))
        return;
    const int count = std::min(store.intValue(section, CountKey, 0), Most);
    QList<FavoriteView> stored;
    for (int i = 0; i < count; ++i) {
        const FavoriteView view = viewAt(store, section, i);
        if (!view.name.isEmpty())
            stored << view;
    }
    m_views = stored;
}

void FavoriteViews::save(IniStore& store, const QString& section) const
{
    store.setInt(section, CountKey, m_views.size());
    for (int i = 0; i < m_views.size(); ++i) {
        const FavoriteView& view = m_views[i];
        writeText(store, section, keyOf("", i), view.name);
        writeText(store, section, keyOf("allsignals_", i), view.allSignals.join(Between));
        writeText(store, section, keyOf("viewsignals_", i), view.viewSignals.join(Between));
        store.setInt(section, keyOf("signalscount_", i), view.allSignals.size());
    }
}

int FavoriteViews::activeIndex(const QString& name) const
{
    const auto found = std::find_if(m_views.begin(), m_views.end(), [&](const FavoriteView& view) {
        return view.active && view.name == name;
    });
    return found == m_views.end() ? -1 : int(found - m_views.begin());
}
