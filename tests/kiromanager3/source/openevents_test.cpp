#include "openevents.h"

#include <gtest/gtest.h>

TEST(OpenEventsTest, RecordingEventIsNumber1001WithThePath)
{
    const OpenKiroFileEvent event(QStringLiteral("/data/night 1.kiro"));
    EXPECT_EQ(int(event.type()), 1001);
    EXPECT_EQ(event.path(), QStringLiteral("/data/night 1.kiro"));
}

TEST(OpenEventsTest, SaccadeFileEventIsNumber1002WithThePath)
{
    const OpenSaccFileEvent event(QStringLiteral("/data/night 1.sacc"));
    EXPECT_EQ(int(event.type()), 1002);
    EXPECT_EQ(event.path(), QStringLiteral("/data/night 1.sacc"));
}

TEST(OpenEventsTest, ModuleFileEventIsNumber1003WithThePath)
{
    const OpenFileEvent event(QStringLiteral("/data/night 1.kiro"));
    EXPECT_EQ(int(event.type()), 1003);
    EXPECT_EQ(event.path(), QStringLiteral("/data/night 1.kiro"));
}
