#include "isolation.h"

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>
#include <thread>
#include <unistd.h>
#include <vector>

TEST(Isolation, WorkThatComesBackIsFine)
{
    EXPECT_EQ(runIsolated([] {}), QString());
}

TEST(Isolation, WorkThatThrowsIsFine)
{
    EXPECT_EQ(runIsolated([] { throw std::runtime_error("refused"); }), QString());
}

TEST(Isolation, CrashIsToldAndDoesNotReachTheCaller)
{
    EXPECT_TRUE(runIsolated([] { raise(SIGKILL); }).startsWith(QStringLiteral("a crash (")));
}

TEST(Isolation, EndOfTheProcessIsTold)
{
    EXPECT_EQ(runIsolated([] { _exit(1); }), QStringLiteral("the end of the process"));
}

TEST(Isolation, HangIsEnded)
{
    IsolationLimits limits;
    limits.seconds = 1;
    const auto hang = [] { std::this_thread::sleep_for(std::chrono::seconds(30)); };
    EXPECT_EQ(runIsolated(hang, limits), QStringLiteral("no answer"));
}

TEST(Isolation, TooMuchMemoryIsTold)
{
    constexpr std::size_t Bytes = std::size_t(300) << 20;
    IsolationLimits limits;
    limits.mebibytes = 280;
    const auto take = [] {
        std::vector<char> memory(Bytes, 'x');
        volatile char last = memory.back();
        Q_UNUSED(last)
    };
    EXPECT_TRUE(runIsolated(take, limits).endsWith(QStringLiteral("MiB of memory taken")));
    EXPECT_EQ(runIsolated([] {}, limits), QString());
}
