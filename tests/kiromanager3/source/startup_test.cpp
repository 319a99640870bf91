#include "startup.h"

#include "appconfig.h"
#include "recordingbuilder.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <vector>

namespace
{

/// Command lines read with the default folder and the working folder in a folder of the test.
class CommandLineTest : public testing::Test
{
protected:
    CommandLineTest() { qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.path(QStringLiteral("data")))); }
    ~CommandLineTest() override { qunsetenv("XDG_DATA_HOME"); }

    void read(const std::vector<QByteArray>& arguments)
    {
        std::vector<const char*> argv{"kiromanager"};
        for (const QByteArray& argument : arguments)
            argv.push_back(argument.constData());
        readCommandLine(int(argv.size()), argv.data(), m_config);
    }

    QByteArray encoded(const char* name) const { return QFile::encodeName(path(name)); }
    QString path(const char* name) const { return m_folder.path(QString::fromUtf8(name)); }

    TestFolder m_folder;
    AppConfig m_config;
};

} // namespace

TEST_F(CommandLineTest, WithoutArgumentsAllPathsAreDefaults)
{
    read({});
    EXPECT_EQ(m_config.configFile(), path("data/kiroconfig/kiromanager3.ini"));
    EXPECT_EQ(m_config.signalsFile(), path("data/kiroconfig/kiromanager3.sig"));
    EXPECT_EQ(m_config.logFile(), path("data/kiroconfig/kiromanager3.txt"));
    EXPECT_FALSE(m_config.isDeveloperVersion());
}

TEST_F(CommandLineTest, EachSwitchSetsItsPath)
{
    read({"-config", encoded("a"), "-signals", encoded("b"), "-log", encoded("c")});
    EXPECT_EQ(m_config.configFile(), path("a"));
    EXPECT_EQ(m_config.signalsFile(), path("b"));
    EXPECT_EQ(m_config.logFile(), path("c"));
    EXPECT_FALSE(QFileInfo::exists(path("data"))) << "no default was needed";
}

TEST_F(CommandLineTest, PathThatCannotBeUsedGivesTheDefaultOfThatFileOnly)
{
    read({"-config", encoded("missing/a"), "-signals", encoded("b"), "-log", encoded("missing/c")});
    EXPECT_EQ(m_config.configFile(), path("data/kiroconfig/kiromanager3.ini"));
    EXPECT_EQ(m_config.signalsFile(), path("b"));
    EXPECT_EQ(m_config.logFile(), path("data/kiroconfig/kiromanager3.txt"));
}

TEST_F(CommandLineTest, SwitchInLastPlaceDoesNothing)
{
    for (const char* last : {"-config", "-signals", "-log"}) {
        m_config = AppConfig();
        read({"night.kiro", last});
        EXPECT_EQ(m_config.configFile(), path("data/kiroconfig/kiromanager3.ini"));
        EXPECT_EQ(m_config.signalsFile(), path("data/kiroconfig/kiromanager3.sig"));
        EXPECT_EQ(m_config.logFile(), path("data/kiroconfig/kiromanager3.txt"));
    }
}

TEST_F(CommandLineTest, DeveloperVersionIsFoundAnywhere)
{
    read({"night.kiro", "-log", encoded("c"), "-developer_version"});
    EXPECT_TRUE(m_config.isDeveloperVersion());
    EXPECT_EQ(m_config.logFile(), path("c"));
}

TEST_F(CommandLineTest, ComparisonIsExact)
{
    read({"-Config", encoded("a"), "--log", encoded("c"), "-signals=", encoded("b"), "-Developer_version",
          "-developer_version "});
    EXPECT_EQ(m_config.configFile(), path("data/kiroconfig/kiromanager3.ini"));
    EXPECT_EQ(m_config.signalsFile(), path("data/kiroconfig/kiromanager3.sig"));
    EXPECT_EQ(m_config.logFile(), path("data/kiroconfig/kiromanager3.txt"));
    EXPECT_FALSE(m_config.isDeveloperVersion());
}

TEST_F(CommandLineTest, LaterPathReplacesAnEarlierOneIfItCanBeUsed)
{
    read({"-log", encoded("first"), "-log", encoded("second"), "-log", encoded("missing/third")});
    EXPECT_EQ(m_config.logFile(), path("second"));
}

TEST_F(CommandLineTest, PathIsReadInTheLocalEncoding)
{
    read({"-log", encoded("za\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87.txt")});
    EXPECT_EQ(m_config.logFile(), path("za\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87.txt"));
}
