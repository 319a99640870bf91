#pragma once

#include <QString>

#include <functional>

class IniStore;

/// Loads the settings file afresh, has `edit` change the section, which is current and is made if missing,
/// and saves the file. What the section holds besides stays, unlike with replaceSection(). False, with the
/// file left alone, if it is there and cannot be read, or cannot be replaced.
bool editSection(const QString& path, const QString& section,
                 const std::function<void(IniStore& store)>& edit);
