#include "diagnostics.h"

#include "kiroutils.h"

#include <QtDebug>

#include <gtest/gtest.h>

#include <cstdlib>

TEST(KirobatchDiagnostics, FatalErrorOfTheCoreIsShownOnceAndEndsWithStatus1)
{
    const auto work = [] {
        installDiagnostics();
        KiroError::fatalError("sample behind the last frame");
    };
    EXPECT_EXIT(work(), testing::ExitedWithCode(1), "^kirobatch: sample behind the last frame\n$");
}

TEST(KirobatchDiagnostics, FatalMessageOfQtIsShownAndEndsWithStatus1)
{
    const auto work = [] {
        installDiagnostics();
        qFatal("no platform");
    };
    EXPECT_EXIT(work(), testing::ExitedWithCode(1), "^kirobatch: no platform\n$");
}

TEST(KirobatchDiagnostics, WarningGoesToStandardErrorAndWorkGoesOn)
{
    const auto work = [] {
        installDiagnostics();
        qWarning("odd");
        std::_Exit(0);
    };
    EXPECT_EXIT(work(), testing::ExitedWithCode(0), "^kirobatch: odd\n$");
}
