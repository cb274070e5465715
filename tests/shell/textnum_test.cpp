#include <gtest/gtest.h>

#include <cmath>

#include "shell/textnum.h"

TEST(Wtof, ReadsLikeThePlatform)
{
    EXPECT_DOUBLE_EQ(_wtof("  12.5abc"), 12.5);
    EXPECT_DOUBLE_EQ(_wtof("-3e2"), -300.0);
    EXPECT_DOUBLE_EQ(_wtof("+.25"), 0.25);
    EXPECT_DOUBLE_EQ(_wtof("abc"), 0.0);
    EXPECT_DOUBLE_EQ(_wtof(""), 0.0);
    EXPECT_DOUBLE_EQ(_wtof("--1"), 0.0);
    EXPECT_DOUBLE_EQ(_wtof("1e"), 1.0);
    EXPECT_TRUE(std::isinf(_wtof("1e999")));
    EXPECT_EQ(_wtof("1e-999"), 0.0);
}

TEST(Wtoi, ReadsLikeThePlatform)
{
    EXPECT_EQ(_wtoi(" 42 cells"), 42);
    EXPECT_EQ(_wtoi("-7"), -7);
    EXPECT_EQ(_wtoi("3.9"), 3);
    EXPECT_EQ(_wtoi("x1"), 0);
    EXPECT_EQ(_wtoi("99999999999"), 2147483647);
}

TEST(Fixed6, MatchesPrintf)
{
    for (double v : {0.0, -0.0, 1.0 / 3.0, -2.5e-7, 123456789.123456789, 1e20, -1e20, 0.0000005, 2.0000005}) {
        std::string fast;
        vorn::appendFixed6(fast, v);
        EXPECT_EQ(fast, vorn::formatString("%f", v)) << v;
    }
}
