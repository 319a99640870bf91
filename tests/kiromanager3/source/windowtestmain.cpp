#include <QApplication>

#include <gtest/gtest.h>

/// The main() of tests that build windows. Listing the tests, which the build does, needs no platform.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
