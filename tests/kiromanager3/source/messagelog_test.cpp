#include "messagelog.h"

#include "recordingbuilder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace
{

class MessageLogTest : public testing::Test
{
protected:
    /// Opens the log in the test's folder and logs one message as Qt would hand it over.
    void log(QtMsgType type, const char* text)
    {
        if (!m_open)
            m_open = openLog(m_path);
        ASSERT_TRUE(m_open);
        const QMessageLogContext context("kiromanager3/source/main.cpp", 42, "int work(char)", "default");
        logMessage(type, context, QString::fromUtf8(text));
    }

    std::string logged() const { return fileBytes(KiroString(m_path)); }

    TestFolder m_folder;
    QString m_path = m_folder.path(QStringLiteral("log.txt"));

private:
    bool m_open = false;
};

} // namespace

TEST_F(MessageLogTest, DebugMessageTakesThreeLines)
{
    log(QtDebugMsg, "half done");
    EXPECT_EQ(logged(), "Debug: half done\n"
                        "File: kiromanager3/source/main.cpp , Line: 42 , Function: int work(char)\n"
                        "\n");
}

TEST_F(MessageLogTest, WarningMessageTakesThreeLines)
{
    log(QtWarningMsg, "half done");
    EXPECT_EQ(logged(), "Warning: half done\n"
                        "File: kiromanager3/source/main.cpp , Line: 42 , Function: int work(char)\n"
                        "\n");
}

TEST_F(MessageLogTest, CriticalAndInfoMessagesAreDropped)
{
    log(QtCriticalMsg, "critical");
    log(QtInfoMsg, "info");
    EXPECT_EQ(logged(), "");
}

TEST_F(MessageLogTest, MessagesFollowEachOther)
{
    log(QtDebugMsg, "one");
    log(QtWarningMsg, "two");
    EXPECT_EQ(logged(), "Debug: one\n"
                        "File: kiromanager3/source/main.cpp , Line: 42 , Function: int work(char)\n"
                        "\n"
                        "Warning: two\n"
                        "File: kiromanager3/source/main.cpp , Line: 42 , Function: int work(char)\n"
                        "\n");
}

TEST_F(MessageLogTest, TextStandsAsItIs)
{
    log(QtDebugMsg, "a\n\n\tb%1 100 %\r\nza\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87 ");
    EXPECT_EQ(logged(), "Debug: a\n\n\tb%1 100 %\r\nza\xc5\xbc\xc3\xb3\xc5\x82\xc4\x87 \n"
                        "File: kiromanager3/source/main.cpp , Line: 42 , Function: int work(char)\n"
                        "\n");
}

TEST_F(MessageLogTest, MessageOfUnknownPlaceHasEmptyNames)
{
    ASSERT_TRUE(openLog(m_path));
    logMessage(QtWarningMsg, QMessageLogContext(), QStringLiteral("from a library"));
    EXPECT_EQ(logged(), "Warning: from a library\nFile:  , Line: 0 , Function: \n\n");
}

TEST_F(MessageLogTest, MessagesOfSeveralThreadsStayWhole)
{
    ASSERT_TRUE(openLog(m_path));
    const auto logMany = [] {
        for (int i = 0; i < 200; ++i)
            logMessage(QtDebugMsg, QMessageLogContext("f", 1, "g", "default"), QStringLiteral("message"));
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(logMany);
    for (std::thread& thread : threads)
        thread.join();
    std::string expected;
    for (int i = 0; i < 800; ++i)
        expected += "Debug: message\nFile: f , Line: 1 , Function: g\n\n";
    EXPECT_EQ(logged(), expected);
}

TEST_F(MessageLogTest, OpeningEmptiesTheFile)
{
    m_folder.write(QStringLiteral("log.txt"), "old");
    EXPECT_TRUE(openLog(m_path));
    EXPECT_EQ(logged(), "");
}

TEST_F(MessageLogTest, LogThatCannotBeOpenedIsReported)
{
    EXPECT_FALSE(openLog(m_folder.path(QStringLiteral("missing/log.txt"))));
    EXPECT_FALSE(openLog(QString()));
}

TEST_F(MessageLogTest, SecondProgramOnTheLogLeavesNoHole)
{
    log(QtDebugMsg, "first program");
    // The second program empties the log while the first one has it open.
    m_folder.write(QStringLiteral("log.txt"), "new\n");
    log(QtDebugMsg, "still there");
    EXPECT_EQ(logged(), "new\n"
                        "Debug: still there\n"
                        "File: kiromanager3/source/main.cpp , Line: 42 , Function: int work(char)\n"
                        "\n");
}

namespace
{

class SaveOldLogTest : public testing::Test
{
protected:
    std::string backup() const { return fileBytes(KiroString(m_backup)); }
    QStringList names() const
    {
        return QDir(m_folder.path(QString())).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    TestFolder m_folder;
    QString m_log = m_folder.path(QStringLiteral("log.txt"));
    QString m_backup = m_folder.path(QStringLiteral("log.txt.bak"));
};

} // namespace

TEST_F(SaveOldLogTest, CopiesEveryByte)
{
    const std::string content("one\r\ntwo\n\0\xff\n", 12);
    m_folder.write(QStringLiteral("log.txt"), content);
    EXPECT_TRUE(saveOldLog(m_log));
    EXPECT_EQ(backup(), content);
    EXPECT_EQ(fileBytes(KiroString(m_log)), content);
}

TEST_F(SaveOldLogTest, CopiesALogOfSeveralMebibytes)
{
    std::string content;
    for (int i = 0; content.size() < 3'500'000; ++i)
        content += std::to_string(i) + '\n';
    m_folder.write(QStringLiteral("log.txt"), content);
    EXPECT_TRUE(saveOldLog(m_log));
    EXPECT_TRUE(backup() == content);
}

TEST_F(SaveOldLogTest, ReplacesAnEarlierBackup)
{
    m_folder.write(QStringLiteral("log.txt"), "new");
    m_folder.write(QStringLiteral("log.txt.bak"), "much longer and older");
    EXPECT_TRUE(saveOldLog(m_log));
    EXPECT_EQ(backup(), "new");
    EXPECT_EQ(names(), QStringList({QStringLiteral("log.txt"), QStringLiteral("log.txt.bak")}));
}

TEST_F(SaveOldLogTest, EmptyLogReplacesAnEarlierBackup)
{
    m_folder.write(QStringLiteral("log.txt"), "");
    m_folder.write(QStringLiteral("log.txt.bak"), "older");
    EXPECT_TRUE(saveOldLog(m_log));
    EXPECT_EQ(backup(), "");
}

TEST_F(SaveOldLogTest, WithoutALogTheEarlierBackupStays)
{
    m_folder.write(QStringLiteral("log.txt.bak"), "older");
    EXPECT_TRUE(saveOldLog(m_log));
    EXPECT_EQ(backup(), "older");
}

TEST_F(SaveOldLogTest, LogBehindALinkIsCopied)
{
    m_folder.write(QStringLiteral("real.txt"), "content");
    ASSERT_TRUE(QFile::link(m_folder.path(QStringLiteral("real.txt")), m_log));
    EXPECT_TRUE(saveOldLog(m_log));
    EXPECT_EQ(backup(), "content");
    EXPECT_TRUE(QFileInfo(m_log).isSymLink());
}

TEST_F(SaveOldLogTest, BackupThatCannotBeWrittenIsReportedAndTheLogStays)
{
    m_folder.write(QStringLiteral("log.txt"), "content");
    ASSERT_TRUE(QDir().mkpath(m_backup + QStringLiteral("/within")));
    EXPECT_FALSE(saveOldLog(m_log));
    EXPECT_EQ(fileBytes(KiroString(m_log)), "content");
}

TEST_F(SaveOldLogTest, LogIsRenamedWhereNoCopyCanBeWritten)
{
    m_folder.write(QStringLiteral("log.txt"), "content");
    // Nothing can be written through this link, yet a file can take its place.
    ASSERT_TRUE(QFile::link(QStringLiteral("/proc/none/there"), m_backup));
    EXPECT_TRUE(saveOldLog(m_log));
    EXPECT_EQ(backup(), "content");
    EXPECT_EQ(names(), QStringList(QStringLiteral("log.txt.bak")));
}

TEST_F(SaveOldLogTest, DeviceHasNoOldLog)
{
    EXPECT_TRUE(saveOldLog(QStringLiteral("/dev/null")));
    EXPECT_FALSE(QFileInfo::exists(QStringLiteral("/dev/null.bak")));
}
