#include "filebrowsersettings.h"

#include "inistore.h"

#include <QStandardPaths>

#include <gtest/gtest.h>

TEST(FileBrowserSettingsTest, BeginsWithTheUsersDocumentsAndACounterOf256)
{
    const FileBrowserSettings settings;
    EXPECT_EQ(settings.openFolder, QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    EXPECT_EQ(settings.counterSize, 256u);
    EXPECT_TRUE(settings.exportFilter.isEmpty());
}

TEST(FileBrowserSettingsTest, AreWrittenUnderTheirKeys)
{
    FileBrowserSettings settings;
    settings.counterSize = 4000000000u;
    settings.openFolder = QStringLiteral("/data");
    settings.exportFilter = QStringLiteral("Wave (*.wav)");
    settings.columnWidths = {10, 20};
    IniStore store;
    store.setSection(FileBrowserSettings::section());
    settings.save(store);
    EXPECT_EQ(store.toString(), QStringLiteral("[DATAFILE_CENTER]\ncounter_size=4000000000\ndir_open=/data\n"
                                               "filter_sel_raw=Wave (*.wav)\ncol_0=10\ncol_1=20\n\n"));
}

TEST(FileBrowserSettingsTest, WhatTheStoreLacksKeepsItsValue)
{
    IniStore store;
    store.parse(QStringLiteral("[DATAFILE_CENTER]\ncol_1=33\ncounter_size=1000\n"));
    FileBrowserSettings settings;
    settings.openFolder = QStringLiteral("/here");
    settings.columnWidths = {10, 20};
    settings.load(store);
    EXPECT_EQ(settings.counterSize, 1000u);
    EXPECT_EQ(settings.openFolder, QStringLiteral("/here"));
    EXPECT_EQ(settings.columnWidths, (QVector<int>{10, 33}));
}
