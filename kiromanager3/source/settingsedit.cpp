#include "settingsedit.h"

#include "inistore.h"

#include <QFileInfo>

bool editSection(const QString& path, const QString& section,
                 const std::function<void(IniStore& store)>& edit)
{
    IniStore store;
    const QFileInfo file(path);
    // What cannot be read must not be replaced by this one section.
    if (!store.load(path) && file.exists() && file.size() > 0)
        return false;
    store.setSection(section);
    edit(store);
    return store.saveAs(path);
}
