#include "filebrowsersettings.h"

#include "inistore.h"

#include <QStandardPaths>

namespace
{

QString columnKey(int column)
{
    return QStringLiteral("col_%1").arg(column);
}

} // namespace

QString FileBrowserSettings::section()
{
    return QStringLiteral("DATAFILE_CENTER");
}

FileBrowserSettings::FileBrowserSettings()
    : openFolder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
{
}

void FileBrowserSettings::load(const IniStore& store)
{
    counterSize = store.uintValue(section(), QStringLiteral("counter_size"), counterSize);
    openFolder = store.value(section(), QStringLiteral("dir_open"), openFolder);
    exportFilter = store.value(section(), QStringLiteral("filter_sel_raw"), exportFilter);
    for (int i = 0; i < columnWidths.size(); ++i)
        columnWidths[i] = store.intValue(section(), columnKey(i), columnWidths[i]);
}

void FileBrowserSettings::save(IniStore& store) const
{
    store.setUInt(section(), QStringLiteral("counter_size"), counterSize);
    store.setValue(section(), QStringLiteral("dir_open"), openFolder);
    store.setValue(section(), QStringLiteral("filter_sel_raw"), exportFilter);
    for (int i = 0; i < columnWidths.size(); ++i)
        store.setInt(section(), columnKey(i), columnWidths[i]);
}
