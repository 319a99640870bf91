#include "programrun.h"

#include <QDir>

#include <gmock/gmock.h>

namespace
{

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::MatchesRegex;

/// The program's start-up as its user meets it.
class StartupTest : public testing::Test
{
protected:
    /// The paths and flags with which the probe came up.
    std::string settings(const QStringList& arguments = QStringList())
    {
        const ProgramRun::Result result = m_run.probe("settings", arguments);
        EXPECT_TRUE(result.finished);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.errors, "");
        return result.output;
    }

    std::string line(const char* name, const QString& file) const
    {
        return std::string(name) + '=' + m_run.path(file).toStdString() + '\n';
    }

    QStringList namesIn(const char* folder) const
    {
        return QDir(m_run.path(QString::fromLatin1(folder)))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    ProgramRun m_run;
};

const QString Log = ProgramRun::defaultLog();
const QString Backup = Log + QStringLiteral(".bak");

} // namespace

TEST_F(StartupTest, WithoutArgumentsAllFilesAreInTheDefaultFolder)
{
    EXPECT_EQ(settings(), line("config", QStringLiteral("data/kiroconfig/kiromanager3.ini")) +
                              line("signals", QStringLiteral("data/kiroconfig/kiromanager3.sig")) +
                              line("log", QStringLiteral("data/kiroconfig/kiromanager3.txt")) +
                              "developer=0\nlocale=C\narguments=\nsharp=1\n"
                              "interface destroyed, application there=1\n");
    EXPECT_EQ(namesIn("data/kiroconfig"), QStringList(QStringLiteral("kiromanager3.txt")));
    EXPECT_EQ(namesIn("work"), QStringList());
}

TEST_F(StartupTest, PathsOfTheCommandLineAreUsed)
{
    const std::string found = settings({QStringLiteral("-config"), m_run.path(QStringLiteral("my.ini")),
                                        QStringLiteral("-signals"), m_run.path(QStringLiteral("my.sig")),
                                        QStringLiteral("-log"), m_run.path(QStringLiteral("my.log"))});
    EXPECT_THAT(found, HasSubstr(line("config", QStringLiteral("my.ini"))));
    EXPECT_THAT(found, HasSubstr(line("signals", QStringLiteral("my.sig"))));
    EXPECT_THAT(found, HasSubstr(line("log", QStringLiteral("my.log"))));
    EXPECT_TRUE(m_run.exists(QStringLiteral("my.log")));
    EXPECT_FALSE(m_run.exists(QStringLiteral("data"))) << "no default was needed";
}

TEST_F(StartupTest, ConfigThatCannotBeMadeGivesTheDefault)
{
    const std::string found =
        settings({QStringLiteral("-config"), m_run.path(QStringLiteral("missing/my.ini"))});
    EXPECT_THAT(found, HasSubstr(line("config", QStringLiteral("data/kiroconfig/kiromanager3.ini"))));
    EXPECT_FALSE(m_run.exists(QStringLiteral("missing")));
}

TEST_F(StartupTest, LogAsTheLastArgumentHasNoEffect)
{
    EXPECT_THAT(settings({QStringLiteral("-log")}), HasSubstr(line("log", Log)));
    EXPECT_EQ(namesIn("work"), QStringList());
}

TEST_F(StartupTest, HomeServesIfTheDefaultFolderCannotBeMade)
{
    m_run.write(QStringLiteral("data"), "a file where the folder should be");
    EXPECT_THAT(settings(), HasSubstr(line("log", QStringLiteral("kiromanager3.txt"))));
    EXPECT_TRUE(m_run.exists(QStringLiteral("kiromanager3.txt")));
}

TEST_F(StartupTest, LocaleIsTheSystems)
{
    m_run.setEnvironment("LC_ALL", QStringLiteral("pl_PL.UTF-8"));
    EXPECT_THAT(settings(), HasSubstr("locale=pl_PL\n"));
}

TEST_F(StartupTest, LogNameOutsideAsciiIsUnderstood)
{
    const QString name = QString::fromUtf8("za\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87.txt");
    EXPECT_THAT(settings({QStringLiteral("-log"), m_run.path(name)}), HasSubstr(line("log", name)));
    EXPECT_TRUE(m_run.exists(name));
}

TEST_F(StartupTest, MessagesGoToTheLogWithTheirPlaceInTheSource)
{
    const ProgramRun::Result result = m_run.probe("messages");
    EXPECT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 0);
    const std::string place = "File: tests/endtoend/startupprobe\\.cpp , Line: [0-9]+ , Function: ";
    const std::string here = place + "void [^\n]*logAllKinds\\(\\)\n\n";
    EXPECT_THAT(m_run.bytes(Log),
                MatchesRegex("Debug: a debug message\n" + here + "Warning: a warning\n" + here +
                             "Debug: two\nlines\n" + here + "Debug: a late message\n" + place +
                             "[^\n]*LateMessage::~LateMessage\\(\\)\n\n"));
    EXPECT_EQ(result.errors, "");
}

TEST_F(StartupTest, DeveloperVersionHasAnEmptyLogAndMessagesOnStandardError)
{
    const ProgramRun::Result result = m_run.probe("messages", {QStringLiteral("-developer_version")});
    EXPECT_TRUE(result.finished);
    ASSERT_TRUE(m_run.exists(Log));
    EXPECT_EQ(m_run.bytes(Log), "");
    EXPECT_THAT(result.errors, HasSubstr("a debug message"));
    EXPECT_THAT(result.errors, HasSubstr("an info message"));
    EXPECT_THAT(result.errors, HasSubstr("a critical message"));
    EXPECT_THAT(settings({QStringLiteral("-developer_version")}), HasSubstr("developer=1\n"));
}

TEST_F(StartupTest, SecondStartFindsTheFirstLogInTheBackup)
{
    m_run.probe("messages");
    const std::string first = m_run.bytes(Log);
    ASSERT_THAT(first, HasSubstr("Debug: a debug message"));
    ASSERT_FALSE(m_run.exists(Backup));

    settings();
    EXPECT_EQ(m_run.bytes(Backup), first);
    EXPECT_EQ(m_run.bytes(Log), "");

    settings();
    EXPECT_EQ(m_run.bytes(Backup), "") << "only one generation is kept";
}

TEST_F(StartupTest, LogThatCannotBeBackedUpIsNamedInTheNewOne)
{
    m_run.write(Log, "old");
    m_run.write(Backup + QStringLiteral("/a folder has the name"), "");
    settings();
    EXPECT_THAT(m_run.bytes(Log),
                ContainsRegex("^Warning: The message log of the last run could not be saved to "
                              "\".*/data/kiroconfig/kiromanager3\\.txt\\.bak\"\n"));
}

TEST_F(StartupTest, WithoutALogMessagesStayOnStandardErrorAndTheProgramRuns)
{
    // Neither the default nor the bare name in the working folder can be a log.
    m_run.write(Log + QStringLiteral("/folder"), "");
    m_run.write(QStringLiteral("work/kiromanager3.txt/folder"), "");
    const ProgramRun::Result result = m_run.probe("messages");
    EXPECT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.errors, HasSubstr("a debug message"));
    EXPECT_THAT(result.errors, HasSubstr("an info message"));
}

TEST_F(StartupTest, BareNamesServeIfTheDefaultsCannot)
{
    m_run.write(Log + QStringLiteral("/folder"), "");
    EXPECT_THAT(settings(), HasSubstr("log=kiromanager3.txt\n"));
    EXPECT_TRUE(m_run.exists(QStringLiteral("work/kiromanager3.txt")));
}

TEST_F(StartupTest, ClosingTheLastWindowEndsTheProgram)
{
    const ProgramRun::Result result = m_run.probe("close");
    EXPECT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(StartupTest, RealProgramKeepsTheLogOfTheRunBefore)
{
    ASSERT_TRUE(m_run.programUntil(Log));
    EXPECT_FALSE(m_run.exists(Backup));
    m_run.write(Log, "Debug: of the first run\n");
    ASSERT_TRUE(m_run.programUntil(Backup));
    EXPECT_EQ(m_run.bytes(Backup), "Debug: of the first run\n");
    EXPECT_EQ(m_run.log(), "") << "an undisturbed run has nothing to say";
}

TEST_F(StartupTest, RealProgramFallsBackToTheDefaultConfig)
{
    const QStringList others{QStringLiteral("-signals"), m_run.path(QStringLiteral("my.sig")),
                             QStringLiteral("-log"), m_run.path(QStringLiteral("my.log"))};
    ASSERT_TRUE(m_run.programUntil(
        QStringLiteral("my.log"),
        others + QStringList{QStringLiteral("-config"), m_run.path(QStringLiteral("my.ini"))}));
    EXPECT_FALSE(m_run.exists(QStringLiteral("data")));

    ASSERT_TRUE(m_run.programUntil(
        QStringLiteral("data/kiroconfig"),
        others + QStringList{QStringLiteral("-config"), m_run.path(QStringLiteral("missing/my.ini"))}));
    EXPECT_FALSE(m_run.exists(QStringLiteral("missing")));
}

TEST_F(StartupTest, RealProgramIgnoresLogInLastPlace)
{
    ASSERT_TRUE(m_run.programUntil(Log, {QStringLiteral("-log")}));
    EXPECT_EQ(namesIn("work"), QStringList());
}

TEST_F(StartupTest, RealDeveloperVersionHasALogOfZeroBytes)
{
    ASSERT_TRUE(m_run.programUntil(Log, {QStringLiteral("-developer_version")}));
    EXPECT_EQ(m_run.bytes(Log), "");
}
