#include "programrun.h"

#include <gtest/gtest.h>

namespace
{

const QString Settings = QStringLiteral("data/kiroconfig/kiromanager3.ini");

/// Starts of the real program on systems of different languages.
class FirstStartTest : public testing::Test
{
protected:
    /// The settings after a start.
    std::string startOn(const char* locale)
    {
        m_run.setEnvironment("LC_ALL", QString::fromLatin1(locale));
        EXPECT_TRUE(m_run.programUntil(Settings));
        return m_run.bytes(Settings);
    }

    ProgramRun m_run;
};

} // namespace

TEST_F(FirstStartTest, OnAPolishSystemStoresPolishAndLaterOnesKeepIt)
{
    const std::string polish = "[GENERAL]\nlanguage=Polski\n\n";
    EXPECT_EQ(startOn("pl_PL.UTF-8"), polish);
    EXPECT_EQ(startOn("en_US.UTF-8"), polish);
}

TEST_F(FirstStartTest, OnAnyOtherSystemStoresEnglish)
{
    const std::string english = "[GENERAL]\nlanguage=English\n\n";
    EXPECT_EQ(startOn("de_DE.UTF-8"), english);
    EXPECT_EQ(startOn("pl_PL.UTF-8"), english);
}
