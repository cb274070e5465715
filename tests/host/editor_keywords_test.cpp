#include "host/editor_keywords.h"

#include <gtest/gtest.h>

#include "host/editor_units.h"

namespace vorn {
namespace {

std::string match(const std::string& list, const std::string& input)
{
    return matchKeyword(parseKeywords(list), input).value_or("<none>");
}

TEST(Keywords, CapitalLettersOrTheCommaFormAreTheShortcut)
{
    EXPECT_EQ(match("Keep", "K"), "Keep");
    EXPECT_EQ(match("Keep", "ke"), "Keep");
    EXPECT_EQ(match("Keep", "keep"), "Keep");
    EXPECT_EQ(match("Keep", "keeps"), "<none>");
    EXPECT_EQ(match("SLayer", "S"), "<none>");
    EXPECT_EQ(match("SLayer", "sl"), "SLayer");
    EXPECT_EQ(match("SLayer", "slay"), "SLayer");
    EXPECT_EQ(match("eXit", "x"), "eXit");
    EXPECT_EQ(match("eXit", "ex"), "<none>");
    // Comma form, and the first match wins.
    EXPECT_EQ(match("YES,Y NO,N", "y"), "YES");
    EXPECT_EQ(match("YES,Y NO,N", "ye"), "YES");
    EXPECT_EQ(match("WINDOW,W CROSSING,C CPOLYGON,CP", "cp"), "CPOLYGON");
    EXPECT_EQ(match("Draw,D", "draw"), "Draw");
    EXPECT_EQ(match("Yes No", "n"), "No");
    EXPECT_EQ(match("Select Working", "w"), "Working");
    EXPECT_EQ(match("YES", "Y"), "<none>");  // a word in one case must be typed whole
    EXPECT_EQ(match("Move Delete Ok", ""), "<none>");
}

TEST(Units, DecimalAndAngles)
{
    EXPECT_EQ(realToString(125.5, 2, 4), "125.5000");
    EXPECT_EQ(realToString(-0.00001, 2, 2), "0.00");
    EXPECT_EQ(realToString(1500.0, 1, 2), "1.50E+03");
    EXPECT_EQ(angleToString(3.14159265358979, 0, 2), "180.00");
    EXPECT_EQ(angleToString(-1.5707963267949, 0, 0), "270");
    double value = 0.0;
    EXPECT_TRUE(stringToDistance(" 12.25 ", 2, value));
    EXPECT_DOUBLE_EQ(value, 12.25);
    EXPECT_FALSE(stringToDistance("12abc", 2, value));
    EXPECT_FALSE(stringToDistance("", 2, value));
}

}  // namespace
}  // namespace vorn
