#include "openfiles.h"

#include "support/recordingbuilder.h"

#include <gtest/gtest.h>

namespace
{

class OpenEventTest : public testing::Test
{
protected:
    /// Number of the event for a file of this name, 0 for none.
    int eventNumber(const char* name) const
    {
        m_folder.write(QString::fromUtf8(name), "");
        const auto event = openEventFor(m_folder.path(QString::fromUtf8(name)));
        return event ? int(event->type()) : 0;
    }

    TestFolder m_folder;
};

QStringList list(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result.append(QString::fromUtf8(text));
    return result;
}

} // namespace

TEST_F(OpenEventTest, FollowsTheExactSuffix)
{
    EXPECT_EQ(eventNumber("r.kiro"), 1001);
    EXPECT_EQ(eventNumber("r.sacc"), 1002);
    EXPECT_EQ(eventNumber("a.b.sacc.kiro"), 1001);
    for (const char* name : {"r.KIRO", "r.Kiro", "r.SACC", "r.txt", "kiro", "r.kiro~", "r.kirox", "r.bdf"})
        EXPECT_EQ(eventNumber(name), 0) << name;
}

TEST_F(OpenEventTest, CarriesThePath)
{
    const QString path = m_folder.path(QStringLiteral("żółw.kiro"));
    m_folder.write(QStringLiteral("żółw.kiro"), "");
    const auto event = openEventFor(path);
    ASSERT_NE(event, nullptr);
    EXPECT_EQ(event->path(), path);
}

TEST_F(OpenEventTest, MissingFilesAndFoldersHaveNone)
{
    EXPECT_EQ(openEventFor(m_folder.path(QStringLiteral("missing.kiro"))), nullptr);
    m_folder.write(QStringLiteral("folder.kiro"), "");
    QFile::remove(m_folder.path(QStringLiteral("folder.kiro")));
    ASSERT_TRUE(QDir().mkdir(m_folder.path(QStringLiteral("folder.kiro"))));
    EXPECT_EQ(openEventFor(m_folder.path(QStringLiteral("folder.kiro"))), nullptr);
    EXPECT_EQ(openEventFor(QString()), nullptr);
}

TEST(FileArgumentsTest, ProgramIsNone)
{
    EXPECT_EQ(fileArguments(list({"/bin/own.kiro", "a.kiro", "b.sacc"})), list({"a.kiro", "b.sacc"}));
    EXPECT_EQ(fileArguments(list({"/bin/kiromanager"})), QStringList());
    EXPECT_EQ(fileArguments(QStringList()), QStringList());
}

TEST(FileArgumentsTest, ValuesOfConfigAndLogAreNoneButThatOfSignalsIs)
{
    EXPECT_EQ(
        fileArguments(list({"k", "-config", "c.kiro", "a.kiro", "-log", "l.kiro", "-signals", "s.kiro"})),
        list({"a.kiro", "-signals", "s.kiro"}));
}

TEST(FileArgumentsTest, SwitchesInLastPlaceAndOtherSpellings)
{
    EXPECT_EQ(fileArguments(list({"k", "a.kiro", "-log"})), list({"a.kiro"}));
    EXPECT_EQ(fileArguments(list({"k", "-config", "-log", "a.kiro"})), list({"a.kiro"}))
        << "the switch behind a switch is its value";
    EXPECT_EQ(fileArguments(list({"k", "-Config", "a.kiro", "-developer_version"})),
              list({"-Config", "a.kiro", "-developer_version"}));
}
