#include "recentfiles.h"

#include "inistore.h"

#include <algorithm>

namespace
{

const QString CountKey = QStringLiteral("mru_count");

QString fileKey(int index)
{
    return QStringLiteral("mru_%1").arg(index);
}

} // namespace

void RecentFiles::add(const QString& path)
{
    if (path.isEmpty())
        return;
    const QString added = path; // `path` may be a reference to what goes
    m_files.removeAll(added);
    m_files.prepend(added);
    if (m_files.size() > Most)
        m_files.removeLast();
}

bool RecentFiles::remove(const QString& path)
{
    return m_files.removeOne(path);
}

void RecentFiles::load(const IniStore& store, const QString& section)
{
    if (!store.hasKey(section, CountKey))
        return;
    const int count = std::min(store.intValue(section, CountKey, 0), Most);
    QStringList stored;
    for (int i = 0; i < count; ++i)
        stored << store.value(section, fileKey(i), QString());
    stored.removeAll(QString());
    stored.removeDuplicates();
    m_files = stored;
}

void RecentFiles::save(IniStore& store, const QString& section) const
{
    store.setInt(section, CountKey, m_files.size());
    for (int i = 0; i < m_files.size(); ++i)
        store.setValue(section, fileKey(i), m_files[i]);
}
