#include "programrun.h"

#include <gmock/gmock.h>

namespace
{

using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;

/// The end of the program after a fatal error. The exit status is 0 in every case.
class FatalErrorTest : public testing::Test
{
protected:
    ProgramRun::Result probe(const char* scenario)
    {
        ProgramRun::Result result = m_run.probe(scenario);
        EXPECT_TRUE(result.finished) << result.errors;
        EXPECT_EQ(result.exitCode, 0);
        return result;
    }

    std::string farewell() const
    {
        return "KiroManager has performed an illegal operation and will quit immediately!\nThe log file \"" +
               m_run.path(ProgramRun::defaultLog()).toStdString() +
               "\" in the application installation directory may be revised for additional details.";
    }

    /// Both boxes as the probe prints them, with critical icon, OK button and no parent.
    std::string boxes(const std::string& message) const
    {
        return "box=Critical application error\ntext=" + message +
               "\ncritical, plain text, OK only, without parent=1\nbox=KiroManager\ntext=" + farewell() +
               "\ncritical, plain text, OK only, without parent=1\n";
    }

    static std::string fatalEntry(const std::string& message)
    {
        return "Fatal: " + message +
               "\nFile: kiroshare/source/kiroutils\\.cpp , Line: [0-9]+ , "
               "Function: static void KiroError::fatalError\\(const char\\*\\)\n\n";
    }

    ProgramRun m_run;
};

} // namespace

TEST_F(FatalErrorTest, ShowsTheMessageThenTheFarewellAndLogsIt)
{
    const ProgramRun::Result result = probe("fatal");
    EXPECT_EQ(result.output, boxes("cannot read <b>sample</b> %1"));
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(m_run.log(), MatchesRegex(fatalEntry("cannot read <b>sample</b> %1")));
}

TEST_F(FatalErrorTest, WhileTheInterfaceIsBuiltItIsTheSame)
{
    EXPECT_EQ(probe("fatal in the factory").output, boxes("too early"));
    EXPECT_THAT(m_run.log(), MatchesRegex(fatalEntry("too early")));
}

TEST_F(FatalErrorTest, MessagesWhileABoxIsOpenDoNotBlock)
{
    const ProgramRun::Result result = probe("log while a box is open");
    EXPECT_EQ(result.output, boxes("cannot read <b>sample</b> %1"));
    const std::string loop = "Debug: from the event loop\nFile: [^\n]+\n\n";
    const std::string thread = "Debug: from a thread\nFile: [^\n]+\n\n";
    // While the second box is open, Qt sends messages of its own thread to standard error.
    EXPECT_THAT(m_run.log(),
                MatchesRegex(loop + thread + fatalEntry("cannot read <b>sample</b> %1") + thread));
    EXPECT_EQ(result.errors, "from the event loop\n");
}

TEST_F(FatalErrorTest, OthersOutOfAnOpenBoxOpenNoFurtherOnes)
{
    const ProgramRun::Result result = probe("fatal again while a box is open");
    EXPECT_EQ(result.output, boxes("cannot read <b>sample</b> %1"));
    EXPECT_THAT(m_run.log(), MatchesRegex(fatalEntry("once more")));
    EXPECT_EQ(result.errors, "once more\n");
}

TEST_F(FatalErrorTest, OnAnotherThreadTextsGoToStandardError)
{
    const ProgramRun::Result result = probe("fatal on a thread");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "Critical application error: on a thread\non a thread\nKiroManager: " + farewell() + "\n");
    EXPECT_THAT(m_run.log(), MatchesRegex(fatalEntry("on a thread")));
}

TEST_F(FatalErrorTest, RealProgramWithoutADisplayEndsWithItsTextsOnStandardError)
{
    m_run.setEnvironment("QT_QPA_PLATFORM", QStringLiteral("xcb"));
    m_run.unsetEnvironment("DISPLAY");
    m_run.unsetEnvironment("WAYLAND_DISPLAY");
    const ProgramRun::Result result = m_run.program();
    EXPECT_TRUE(result.finished) << result.errors;
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.errors, HasSubstr("no Qt platform plugin could be initialized"));
    EXPECT_THAT(result.errors, EndsWith("KiroManager: " + farewell() + "\n"));
    EXPECT_THAT(m_run.log(),
                HasSubstr("Fatal: This application failed to start because no Qt platform plugin could "
                          "be initialized."));
}
