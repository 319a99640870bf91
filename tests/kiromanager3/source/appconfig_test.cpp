#include "appconfig.h"

#include "recordingbuilder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace
{

/// One of the three checked paths.
struct CheckedPath
{
    const char* label;
    bool (AppConfig::*set)(const QString&);
    const QString& (AppConfig::*get)() const;
    const char* bareName;
};

void PrintTo(const CheckedPath& checked, std::ostream* stream)
{
    *stream << checked.label;
}

constexpr CheckedPath CheckedPaths[] = {
    {"config", &AppConfig::setConfigFile, &AppConfig::configFile, "kiromanager3.ini"},
    {"signals", &AppConfig::setSignalsFile, &AppConfig::signalsFile, "kiromanager3.sig"},
    {"log", &AppConfig::setLogFile, &AppConfig::logFile, "kiromanager3.txt"},
};

/// An AppConfig made in an empty working folder of its own.
class AppConfigTest : public testing::TestWithParam<CheckedPath>
{
protected:
    ~AppConfigTest() override { QDir::setCurrent(m_folderBefore); }

    bool set(const QString& path) { return (m_config.*GetParam().set)(path); }
    QString path() const { return (m_config.*GetParam().get)(); }
    QString bareName() const { return QString::fromLatin1(GetParam().bareName); }

    void expectRefused(const QString& refused)
    {
        EXPECT_FALSE(set(refused));
        EXPECT_EQ(path(), bareName()) << "the old path must stay";
    }

    TestFolder m_folder;

private:
    QString m_folderBefore = QDir::currentPath();
    bool m_moved = QDir::setCurrent(m_folder.path(QString()));

protected:
    AppConfig m_config;
};

QStringList allEntries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Files, AppConfigTest, testing::ValuesIn(CheckedPaths),
                         [](const auto& tested) { return std::string(tested.param.label); });

TEST_P(AppConfigTest, NewObjectHasTheBareNameAndLeavesNoFile)
{
    EXPECT_EQ(path(), bareName());
    EXPECT_EQ(allEntries(m_folder.path(QString())), QStringList());
}

TEST_P(AppConfigTest, MissingFileIsTakenAndNotLeftBehind)
{
    const QString wanted = m_folder.path(QStringLiteral("my settings"));
    EXPECT_TRUE(set(wanted));
    EXPECT_EQ(path(), wanted);
    EXPECT_FALSE(QFileInfo::exists(wanted));
}

TEST_P(AppConfigTest, ExistingFileIsTakenAndKeepsItsContent)
{
    const QString wanted = m_folder.path(QStringLiteral("own"));
    const std::string content("[MAIN]\r\nkey=\0value\n\n", 20);
    const KiroString file = m_folder.write(QStringLiteral("own"), content);
    EXPECT_TRUE(set(wanted));
    EXPECT_EQ(path(), wanted);
    EXPECT_EQ(fileBytes(file), content);
}

TEST_P(AppConfigTest, ExistingEmptyFileIsNotRemoved)
{
    m_folder.write(QStringLiteral("empty"), std::string());
    EXPECT_TRUE(set(m_folder.path(QStringLiteral("empty"))));
    EXPECT_TRUE(QFileInfo::exists(m_folder.path(QStringLiteral("empty"))));
}

TEST_P(AppConfigTest, RelativePathIsKeptAsGiven)
{
    EXPECT_TRUE(set(QStringLiteral("./other.txt")));
    EXPECT_EQ(path(), QStringLiteral("./other.txt"));
}

TEST_P(AppConfigTest, NameOutsideAsciiIsTaken)
{
    const QString wanted = m_folder.path(QString::fromUtf8("za\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87"));
    EXPECT_TRUE(set(wanted));
    EXPECT_EQ(path(), wanted);
}

TEST_P(AppConfigTest, FolderIsRefused)
{
    ASSERT_TRUE(QDir().mkdir(m_folder.path(QStringLiteral("folder"))));
    expectRefused(m_folder.path(QStringLiteral("folder")));
    EXPECT_TRUE(QFileInfo(m_folder.path(QStringLiteral("folder"))).isDir());
}

TEST_P(AppConfigTest, FileInAMissingFolderIsRefused)
{
    expectRefused(m_folder.path(QStringLiteral("missing/file")));
    EXPECT_FALSE(QFileInfo::exists(m_folder.path(QStringLiteral("missing"))));
}

TEST_P(AppConfigTest, PathThroughAFileIsRefused)
{
    m_folder.write(QStringLiteral("plain"), "content");
    expectRefused(m_folder.path(QStringLiteral("plain/file")));
}

TEST_P(AppConfigTest, ExistingFileThatCannotBeWrittenIsRefused)
{
    // The system lets nobody write to a program that runs, not even root.
    expectRefused(QCoreApplication::applicationFilePath());
}

TEST_P(AppConfigTest, EmptyPathIsRefused)
{
    expectRefused(QString());
}

TEST_P(AppConfigTest, LinkToNowhereIsTakenAndStaysAsItWas)
{
    const QString target = m_folder.path(QStringLiteral("target"));
    const QString middle = m_folder.path(QStringLiteral("middle"));
    const QString link = m_folder.path(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(target, middle));
    ASSERT_TRUE(QFile::link(QStringLiteral("middle"), link));
    EXPECT_TRUE(set(link));
    EXPECT_EQ(path(), link);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_TRUE(QFileInfo(middle).isSymLink());
    EXPECT_FALSE(QFileInfo::exists(target));
}

TEST_P(AppConfigTest, LinkIntoAMissingFolderIsRefused)
{
    const QString link = m_folder.path(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(m_folder.path(QStringLiteral("missing/target")), link));
    expectRefused(link);
    EXPECT_TRUE(QFileInfo(link).isSymLink());
}

TEST_P(AppConfigTest, LinkInACircleIsRefused)
{
    const QString link = m_folder.path(QStringLiteral("link"));
    ASSERT_TRUE(QFile::link(link, link));
    expectRefused(link);
}

TEST(AppConfigStartTest, PathsAreEmptyWhereNothingCanBeMade)
{
    const QString folderBefore = QDir::currentPath();
    // No file can be made in this folder, by root neither.
    ASSERT_TRUE(QDir::setCurrent(QStringLiteral("/proc/self")));
    const AppConfig config;
    QDir::setCurrent(folderBefore);
    EXPECT_EQ(config.configFile(), QString());
    EXPECT_EQ(config.signalsFile(), QString());
    EXPECT_EQ(config.logFile(), QString());
}

TEST(AppConfigStartTest, DefaultsLieInTheFolderForSharedData)
{
    const TestFolder folder;
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path(QStringLiteral("data"))));
    AppConfig config;
    EXPECT_TRUE(config.useDefaultConfigFile());
    EXPECT_TRUE(config.useDefaultSignalsFile());
    EXPECT_TRUE(config.useDefaultLogFile());
    qunsetenv("XDG_DATA_HOME");
    EXPECT_EQ(config.configFile(), folder.path(QStringLiteral("data/kiroconfig/kiromanager3.ini")));
    EXPECT_EQ(config.signalsFile(), folder.path(QStringLiteral("data/kiroconfig/kiromanager3.sig")));
    EXPECT_EQ(config.logFile(), folder.path(QStringLiteral("data/kiroconfig/kiromanager3.txt")));
    EXPECT_EQ(allEntries(folder.path(QStringLiteral("data/kiroconfig"))), QStringList());
}

TEST(AppConfigStartTest, DefaultThatCannotBeUsedLeavesThePath)
{
    const TestFolder folder;
    ASSERT_TRUE(QDir().mkpath(folder.path(QStringLiteral("kiroconfig/kiromanager3.ini"))));
    AppConfig config;
    ASSERT_TRUE(config.setConfigFile(folder.path(QStringLiteral("before.ini"))));
    qputenv("XDG_DATA_HOME", QFile::encodeName(folder.path(QString())));
    EXPECT_FALSE(config.useDefaultConfigFile());
    qunsetenv("XDG_DATA_HOME");
    EXPECT_EQ(config.configFile(), folder.path(QStringLiteral("before.ini")));
}

TEST(AppConfigStartTest, KeysVersionAndFlagAreThoseThatAllWindowsShare)
{
    AppConfig config;
    EXPECT_EQ(config.winMaxKey(), QStringLiteral("win_max"));
    EXPECT_EQ(config.winPosKey(), QStringLiteral("win_pos"));
    EXPECT_EQ(config.winSizeKey(), QStringLiteral("win_size"));
    EXPECT_EQ(config.buttonUseLabelKey(), QStringLiteral("button_use_label"));
    EXPECT_EQ(config.buttonShowFlatKey(), QStringLiteral("button_show_flat"));
    EXPECT_EQ(config.version(), QStringLiteral("3.12"));
    EXPECT_FALSE(config.isDeveloperVersion());
    config.setDeveloperVersion(true);
    EXPECT_TRUE(config.isDeveloperVersion());
}

TEST(AppConfigStartTest, ProcessHasOneObject)
{
    EXPECT_EQ(&appConfig(), &appConfig());
}

TEST(ConfigFolderTest, IsMadeWithinTheBaseAndItsMissingParents)
{
    const TestFolder folder;
    const QString wanted = folder.path(QStringLiteral("share/data/kiroconfig"));
    EXPECT_EQ(configFolder(folder.path(QStringLiteral("share/data")), QStringLiteral("/home/user")), wanted);
    EXPECT_TRUE(QFileInfo(wanted).isDir());
}

TEST(ConfigFolderTest, ExistingOneIsUsedWithItsFiles)
{
    const TestFolder folder;
    ASSERT_TRUE(QDir().mkdir(folder.path(QStringLiteral("kiroconfig"))));
    const KiroString file = folder.write(QStringLiteral("kiroconfig/kiromanager3.ini"), "[MAIN]");
    EXPECT_EQ(configFolder(folder.path(QStringLiteral(".")), QStringLiteral("/home/user")),
              folder.path(QStringLiteral("./kiroconfig")));
    EXPECT_EQ(fileBytes(file), "[MAIN]");
}

TEST(ConfigFolderTest, BaseThatEndsInLocalIsChangedThroughout)
{
    const TestFolder folder;
    const QString base = folder.path(QStringLiteral("Local users/AppData/Local"));
    const QString wanted = folder.path(QStringLiteral("Roaming users/AppData/Roaming/kiroconfig"));
    EXPECT_EQ(configFolder(base, QStringLiteral("/home/user")), wanted);
    EXPECT_TRUE(QFileInfo(wanted).isDir());
    EXPECT_FALSE(QFileInfo::exists(base));
}

TEST(ConfigFolderTest, OtherBasesStandAsTheyAre)
{
    const TestFolder folder;
    for (const QString& name : {QStringLiteral("Local/share"), QStringLiteral("local")})
        EXPECT_EQ(configFolder(folder.path(name), QStringLiteral("/home/user")),
                  folder.path(name) + QStringLiteral("/kiroconfig"));
}

TEST(ConfigFolderTest, HomeTakesItsPlaceIfItCannotBeMade)
{
    const TestFolder folder;
    folder.write(QStringLiteral("plain"), "content");
    EXPECT_EQ(configFolder(folder.path(QStringLiteral("plain")), QStringLiteral("/home/user")),
              QStringLiteral("/home/user"));
}

TEST(ConfigFolderTest, HomeTakesItsPlaceIfAFileHasItsName)
{
    const TestFolder folder;
    folder.write(QStringLiteral("kiroconfig"), "content");
    EXPECT_EQ(configFolder(folder.path(QString()), QStringLiteral("/home/user")),
              QStringLiteral("/home/user"));
}

TEST(ConfigFolderTest, HomeTakesItsPlaceWithoutABase)
{
    EXPECT_EQ(configFolder(QString(), QStringLiteral("/home/user")), QStringLiteral("/home/user"));
}
