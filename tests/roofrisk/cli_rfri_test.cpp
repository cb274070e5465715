// `vornmark rfri FOLDER`.
#include "../app/cli_fixture.h"

#include "grid/grid.h"

namespace {

TEST_F(Cli, RfriWritesTheFinalGridAndRemovesItsDefaults)
{
    myGrid grid;
    grid.setFillValue(5.0);
    grid.setup(3, 2, 10.0, 10.0, 0.0);
    ASSERT_TRUE(grid.writeGrd(path("RFRI_RockDebris.grd")));
    EXPECT_EQ(vornmark("rfri " + dir.string()), 0);
    std::string out = read("out.txt");
    EXPECT_NE(out.find("\nA default file was created for the Angular Discontinuity"), std::string::npos);
    EXPECT_NE(out.find("\nThe Final RFRI Grid has been Calculated"), std::string::npos);
    myGrid final;
    ASSERT_TRUE(final.readGrd(path("RFRI_FinalValue.grd")));
    // Rock debris (5) counts twice; the other ten factors are at 3, the adjustments at 0.
    EXPECT_NEAR(final.getValue(0, 0), 1.11 * (3 * 5 + 2 * (3 * 4 + 5)), 1e-9);
    EXPECT_TRUE(fs::exists(path("RFRI_RockDebris.grd")));
    EXPECT_FALSE(fs::exists(path("RFRI_AngDisc.grd")));
    EXPECT_FALSE(fs::exists(path("RFRI_Seismic.grd")));
}

TEST_F(Cli, RfriFailsWithoutGridsOrFolder)
{
    EXPECT_EQ(vornmark("rfri " + dir.string()), 1);
    EXPECT_NE(read("out.txt").find("You need to build RFRI grids before running this command"), std::string::npos);
    EXPECT_FALSE(fs::exists(path("RFRI_FinalValue.grd")));
    EXPECT_EQ(vornmark("rfri " + path("missing")), 1);
    EXPECT_EQ(vornmark("rfri"), 2);
}

}  // namespace
