// The catalogue's level rules, the assessment record and index, and the
// legend range of the mapping.
#include <gtest/gtest.h>

#include "roofrisk/defect_catalogue.h"

namespace {

using namespace vorn::rfri;

TEST(Catalogue, WidthsMapToLevelPositionsByTheFactorsRules)
{
    struct Case {
        int factor;
        int width;
        int index;  // -1: the feature is dropped
    };
    const Case cases[] = {
        {0, 1, -1}, {0, 2, 0}, {0, 5, 3}, {0, 6, -1},     // angular discontinuities: 2 to 5
        {5, 2, 0}, {5, 4, 1}, {5, 5, 2}, {5, 0, -1},      // 1/3/5: even widths fall to the level below
        {3, 4, 0}, {3, 5, 1}, {3, 2, -1},                  // shear rupture: 3 and 5
        {4, 5, 0}, {4, 4, -1},                             // joint separation: 5 alone
        {10, 1, 0}, {10, 2, 0}, {10, 4, 1}, {10, 5, 2}, {10, 6, -1}, {10, 0, -1},  // seismic codes
        {11, 1, 0}, {11, 3, 2}, {11, 4, -1}, {11, 5, 3},   // roof deformation rate: code 4 dropped
    };
    for (const Case& c : cases) {
        EXPECT_EQ(defectFactor(c.factor).indexOfWidth(c.width), c.index) << "factor " << c.factor + 1 << " width " << c.width;
    }
    // The widths stored for each level read back as that level.
    for (const DefectFactor& factor : defectCatalogue()) {
        for (int k = 0; k <= factor.lastIndex(); ++k) EXPECT_EQ(factor.indexOfWidth(factor.widthOfIndex(k)), k) << factor.key;
    }
}

TEST(Catalogue, EveryFactorHasAWordingAndReachForEachLevel)
{
    for (const DefectFactor& factor : defectCatalogue()) {
        EXPECT_EQ(factor.pageWording.size(), factor.levels.size()) << factor.key;
        EXPECT_EQ(factor.reach.size(), factor.levels.size()) << factor.key;
        EXPECT_EQ(factor.widths.size(), factor.levels.size()) << factor.key;
        ASSERT_LT(factor.panelDefault, static_cast<int>(factor.panelWording.size())) << factor.key;
        // The page's wording carries the level's value in parentheses.
        for (size_t k = 0; k < factor.levels.size(); ++k) EXPECT_EQ(assessmentValue(factor.pageWording[k]), factor.levels[k]);
    }
    // Clustering is worth 25 on the page and 30 in the assessment panel.
    EXPECT_EQ(defectFactor(10).levels.back(), 25);
    EXPECT_EQ(assessmentValue(defectFactor(10).panelWording.back()), 30);
}

TEST(Catalogue, DefaultsFillAllTwelveRecords)
{
    CDefectRecords records;
    fillDefectDefaults(records);
    EXPECT_EQ(records[0].levelIndex, 1);
    EXPECT_EQ(records[4].levelIndex, 0);
    EXPECT_EQ(records[6].defectLayer, "RFRI_StrataSep");
    EXPECT_EQ(records[6].defectColor, 30);
    EXPECT_EQ(records[11].gridFile, "RFRI_RoofDefRate.grd");
    EXPECT_EQ(records[11].defectTitle, "Roof Def. Rate");
    EXPECT_EQ(records[11].reach, (std::vector<double>{0, 20, 30, 50}));
    EXPECT_FALSE(records[0].taper);
}

std::vector<std::string> record(const std::string& head, int entries)
{
    std::vector<std::string> strings{head};
    for (int k = 1; k < entries; ++k) strings.push_back("(1) None");
    return strings;
}

TEST(Assessment, RecordNeedsFourteenEntriesUnderTheApplicationName)
{
    EXPECT_TRUE(isAssessmentRecord(record("RFRI_QRL_TOVAX_APPLICATION", 14)));
    EXPECT_TRUE(isAssessmentRecord(record("rfri_qrl_tovax_application", 14)));
    EXPECT_FALSE(isAssessmentRecord(record("RFRI_QRL_TOVAX_APPLICATION", 13)));
    EXPECT_FALSE(isAssessmentRecord(record("RFRI_QRL_TOVAX_APPLICATION", 15)));
    EXPECT_FALSE(isAssessmentRecord(record("OTHER_APP", 14)));
}

TEST(Assessment, ValuesAndIndex)
{
    EXPECT_EQ(assessmentValue("(-5) No Microseismic Clustering"), -5);
    EXPECT_EQ(assessmentValue("(30) Clustering"), 30);
    EXPECT_EQ(assessmentValue(""), 0);
    // Everything "(1) None" or "(1) Smooth" and both adjustments unknown: S = 15.
    std::array<int, kFactorCount> none{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 0};
    EXPECT_EQ(assessmentIndex(none), 16);
    std::array<int, kFactorCount> worst{5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 30, 30};
    EXPECT_EQ(assessmentIndex(worst), 143);  // 75 * 1.11 = 83.25, + 60
    std::array<int, kFactorCount> low{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, -5, -5};
    EXPECT_EQ(assessmentIndex(low), 6);  // 16.65 - 10 = 6.65
    std::vector<std::string> defaults{"RFRI_QRL_TOVAX_APPLICATION"};
    for (const DefectFactor& factor : defectCatalogue()) defaults.push_back(factor.panelWording[factor.panelDefault]);
    defaults.push_back("M");
    EXPECT_EQ(assessmentIndex(defaults), 49);  // every factor "Unknown" at 3: 45 * 1.11
}

TEST(Assessment, LegendRangeRoundsToFives)
{
    struct Case {
        int min, max, lower, upper;
    };
    const Case cases[] = {{47, 62, 45, 65}, {40, 65, 40, 70}, {44, 60, 40, 60}, {16, 61, 15, 65}, {0, 0, 0, 0}, {5, 69, 5, 70}};
    for (const Case& c : cases) {
        int lower = 0;
        int upper = 0;
        legendRange(c.min, c.max, lower, upper);
        EXPECT_EQ(lower, c.lower) << c.min;
        EXPECT_EQ(upper, c.upper) << c.max;
    }
}

}  // namespace
