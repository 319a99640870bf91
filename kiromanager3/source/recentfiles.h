#pragma once

#include <QString>
#include <QStringList>

class IniStore;

/// The files opened last, the latest first: at most 10, none of them twice.
class RecentFiles
{
public:
    static constexpr int Most = 10;

    const QStringList& files() const { return m_files; }
    /// Puts a file first, whether or not it is there already; the last of more than `Most` goes. An empty
    /// path changes nothing.
    void add(const QString& path);
    /// False if it is not there.
    bool remove(const QString& path);

    /// What the store does not hold keeps its value. Empty paths, those that come again and those beyond
    /// `Most` are left out.
    void load(const IniStore& store, const QString& section);
    /// Into the section, which must exist.
    void save(IniStore& store, const QString& section) const;

private:
    QStringList m_files;
};
