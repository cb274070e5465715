#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "base/textnum.h"

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
    auto same = [](double v) {
        std::string fast;
        vorn::appendFixed6(fast, v);
        return fast == vorn::formatString("%f", v);
    };
    for (double v : {0.0, -0.0, 1.0 / 3.0, -2.5e-7, 123456789.123456789, 1e20, -1e20, 0.0000005, 2.0000005,
                     0.0078125, 0.0234375, -0.0078125, 999999999.9999995, 1e9, 4.9999995e-7, 0.0000015,
                     HUGE_VAL, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN(), 5e-324}) {
        EXPECT_TRUE(same(v)) << v;
    }
    // Exact ties at the seventh decimal, their neighbours, and random values
    // over many magnitudes.
    std::mt19937_64 random(7);
    for (int k = 0; k < 200000; ++k) {
        // x * 10^6 ends in exactly .5 for x = odd / 128.
        double tie = (2.0 * static_cast<double>(random() % (1u << 30)) + 1.0) / 128.0;
        double v = std::ldexp(std::uniform_real_distribution<double>(0.5, 1.0)(random),
                              static_cast<int>(random() % 60) - 30);
        for (double x : {tie, std::nextafter(tie, 0.0), std::nextafter(tie, 1.0), v, -v}) {
            ASSERT_TRUE(same(x)) << vorn::formatString("%.17g", x);
        }
    }
}

TEST(General12_5, MatchesPrintf)
{
    auto same = [](double v) {
        std::string fast;
        vorn::appendGeneral(fast, v, 12, 5);
        return fast == vorn::formatString("%12.5g", v);
    };
    for (double v : {0.0, -0.0, 1.0, -1.0, 0.0001, 0.00001, 123456.0, 99999.5, 999995.0, 1e-5, 9.99995e-5, -1e20,
                     1e300, 5e-324, HUGE_VAL, -HUGE_VAL, std::numeric_limits<double>::quiet_NaN(),
                     -std::numeric_limits<double>::quiet_NaN(), 1.000005, 2.5e-7}) {
        EXPECT_TRUE(same(v)) << v;
    }
    // Ties and near-ties at the fifth digit, and random values over many
    // magnitudes as the element files carry them.
    std::mt19937_64 random(11);
    for (int k = 0; k < 1000000; ++k) {
        double v = std::ldexp(std::uniform_real_distribution<double>(0.5, 1.0)(random),
                              static_cast<int>(random() % 100) - 50);
        double tie = static_cast<double>(random() % 200000) * 0.5 + 0.5;  // ends in .5: a tie at %.5g for 5-digit values
        for (double x : {v, -v, tie, std::nextafter(tie, 0.0)}) ASSERT_TRUE(same(x)) << vorn::formatString("%.17g", x);
    }
}
