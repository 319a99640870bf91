#pragma once

#include <QString>
#include <QVector>

class IniStore;

/// What the file browser keeps from one window to the next, in its own section.
struct FileBrowserSettings
{
    /// Name of the section in the settings file.
    static QString section();

    uint counterSize = 256;    ///< last maximum of a packet counter
    QString openFolder;        ///< where the open dialog starts; the user's documents at first
    QString exportFilter;      ///< last filter picked in the export dialog
    QVector<int> columnWidths; ///< pixels, of the signal table; set to the present ones before load()

    FileBrowserSettings();

    /// What the store does not hold keeps its value.
    void load(const IniStore& store);
    /// Into the section, which must exist.
    void save(IniStore& store) const;
};
