#include "recentfiles.h"

#include "inistore.h"

#include <gtest/gtest.h>

namespace
{

const QString S = QStringLiteral("SIGNALS_REVIEW");

QStringList numbered(int first, int last)
{
    QStringList files;
    for (int i = first; i <= last; ++i)
        files << QStringLiteral("/data/%1.kiro").arg(i);
    return files;
}

/// /data/9.kiro to /data/0.kiro, added from 0 on.
RecentFiles ten()
{
    RecentFiles recent;
    const QStringList files = numbered(0, 9);
    for (const QString& file : files)
        recent.add(file);
    return recent;
}

RecentFiles loaded(const char* lines)
{
    IniStore store;
    store.parse(QStringLiteral("[SIGNALS_REVIEW]\n") + QString::fromUtf8(lines));
    RecentFiles recent;
    recent.load(store, S);
    return recent;
}

QString written(const RecentFiles& recent)
{
    IniStore store;
    store.setSection(S);
    recent.save(store, S);
    return store.toString();
}

} // namespace

TEST(RecentFilesTest, TheLatestStandsFirst)
{
    RecentFiles recent;
    recent.add(QStringLiteral("/a"));
    recent.add(QStringLiteral("/b"));
    EXPECT_EQ(recent.files(), (QStringList{QStringLiteral("/b"), QStringLiteral("/a")}));
}

TEST(RecentFilesTest, AFileThatIsThereMovesToTheFront)
{
    for (const int moved : {0, 5, 9}) {
        RecentFiles recent = ten();
        QStringList expected = recent.files();
        expected.move(moved, 0);
        recent.add(recent.files()[moved]);
        EXPECT_EQ(recent.files(), expected) << moved;
    }
}

TEST(RecentFilesTest, TheEleventhPushesTheLastOut)
{
    RecentFiles recent = ten();
    recent.add(QStringLiteral("/new"));
    ASSERT_EQ(recent.files().size(), 10);
    EXPECT_EQ(recent.files().first(), QStringLiteral("/new"));
    EXPECT_EQ(recent.files().last(), QStringLiteral("/data/1.kiro"));
}

TEST(RecentFilesTest, RemovedIsWhatWasThere)
{
    RecentFiles recent = ten();
    EXPECT_TRUE(recent.remove(QStringLiteral("/data/5.kiro")));
    EXPECT_EQ(recent.files().size(), 9);
    EXPECT_FALSE(recent.files().contains(QStringLiteral("/data/5.kiro")));
    EXPECT_FALSE(recent.remove(QStringLiteral("/data/5.kiro")));
    EXPECT_EQ(recent.files().size(), 9);
}

TEST(RecentFilesTest, AnEmptyPathIsNoFile)
{
    RecentFiles recent;
    recent.add(QString());
    EXPECT_EQ(recent.files(), QStringList());
}

TEST(RecentFilesTest, StandUnderTheirKeys)
{
    EXPECT_EQ(written(RecentFiles()), QStringLiteral("[SIGNALS_REVIEW]\nmru_count=0\n\n"));
    RecentFiles recent;
    recent.add(QStringLiteral("/a=b.kiro"));
    recent.add(QStringLiteral("/c d.kiro"));
    EXPECT_EQ(written(recent),
              QStringLiteral("[SIGNALS_REVIEW]\nmru_count=2\nmru_0=/c d.kiro\nmru_1=/a=b.kiro\n\n"));
}

TEST(RecentFilesTest, WhatIsWrittenIsReadAgain)
{
    IniStore store;
    store.setSection(S);
    ten().save(store, S);
    RecentFiles read;
    read.load(store, S);
    EXPECT_EQ(read.files(), ten().files());
}

TEST(RecentFilesTest, WithoutACountTheFilesStay)
{
    RecentFiles recent = ten();
    recent.load(IniStore(), S);
    EXPECT_EQ(recent.files(), ten().files());
}

TEST(RecentFilesTest, CountsThatCannotBeAreSurvived)
{
    const QStringList both{QStringLiteral("/a"), QStringLiteral("/b")};
    EXPECT_EQ(loaded("mru_count=2147483647\nmru_0=/a\nmru_1=/b\n").files(), both);
    EXPECT_EQ(loaded("mru_count=-1\nmru_0=/a\nmru_1=/b\n").files(), QStringList());
    EXPECT_EQ(loaded("mru_count=many\nmru_0=/a\n").files(), QStringList());
    EXPECT_EQ(loaded("mru_count=1\nmru_0=/a\nmru_1=/b\n").files(), both.mid(0, 1));
}

TEST(RecentFilesTest, MoreThanTenAreNotRead)
{
    QString lines = QStringLiteral("mru_count=11\n");
    const QStringList files = numbered(0, 10);
    for (int i = 0; i < files.size(); ++i)
        lines += QStringLiteral("mru_%1=%2\n").arg(i).arg(files[i]);
    EXPECT_EQ(loaded(qPrintable(lines)).files(), numbered(0, 9));
}

TEST(RecentFilesTest, GapsAndFilesThatComeTwiceAreLeftOut)
{
    EXPECT_EQ(loaded("mru_count=5\nmru_0=/a\nmru_1=\nmru_3=/a\nmru_4=/b\n").files(),
              (QStringList{QStringLiteral("/a"), QStringLiteral("/b")}));
}
