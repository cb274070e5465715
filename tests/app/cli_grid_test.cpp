// End-to-end runs of the executable's grid commands.
#include "grid/grid.h"
#include "tests/app/cli_fixture.h"

namespace {
std::string example() { return std::string(VORN_SOURCE_DIR) + "/examples/depth.grd"; }
}  // namespace

TEST_F(Cli, GridInfoDescribesAndFailsOnUnknownNames)
{
    EXPECT_EQ(vornmark("grid info " + example()), 0);
    EXPECT_EQ(read("out.txt").rfind("\nOverburden Depth\r\nGrid Orign: 1000.000000,  2000.000000,  0.000000", 0), 0u);
    EXPECT_EQ(vornmark("grid info " + path("x.txt")), 1);
    EXPECT_EQ(read("err.txt"), "Unknown grid file !\nvornmark: " + path("x.txt") + ": No such file or directory\n");
    EXPECT_EQ(vornmark("grid info"), 2);
    EXPECT_EQ(vornmark("grid info --help"), 0);
}

TEST_F(Cli, GridConvertToTopAndBack)
{
    ASSERT_EQ(vornmark("grid convert " + example() + " " + path("depth.top")), 0);
    myGrid a, b;
    ASSERT_TRUE(a.readGrd(example(), 1));
    ASSERT_TRUE(b.readTop(path("depth.top"), 1));
    EXPECT_EQ(a.getValue(7, 9), b.getValue(7, 9));
    EXPECT_EQ(vornmark("grid convert " + example() + " " + path("x.dat")), 2);
}

TEST_F(Cli, GenFactorTakesItsDefaultsFromTheGridAndPrintsExactly)
{
    const std::string out = path("depth_index.grd");
    const std::string saved = "\nIndex has been saved to grid file< " + out + " >";
    EXPECT_EQ(vornmark("genfactor " + example() + " " + out + " --function linear --tendency normal"), 0);
    EXPECT_EQ(read("out.txt"), "\nLoad from file " + example() + saved +
                                   "\nIndividual Factor Normalization/Formulization finished!");
    EXPECT_EQ(read("err.txt"), saved + "\n");
    myGrid index;
    ASSERT_TRUE(index.readGrd(out, 1));
    EXPECT_EQ(index.getTitle(), "Overburden Depth Index");
    double min = 0, max = 0;
    index.getMinMax(min, max);
    EXPECT_EQ(min, 0.0);
    EXPECT_EQ(max, 100.0);

    EXPECT_EQ(vornmark("genfactor " + example() + " " + out + " --function step --tendency inverse --description Mid"), 0);
    index.readGrd(out, 1);
    EXPECT_EQ(index.getTitle(), "Mid");

    EXPECT_EQ(vornmark("genfactor " + example() + " " + out + " --function cubic --tendency normal"), 2);
    EXPECT_EQ(vornmark("genfactor " + example() + " " + out + " --function linear --tendency normal --lower 5 --upper 5"), 1);
    EXPECT_EQ(vornmark("genfactor " + path("none.grd") + " " + out + " --function none --tendency normal"), 1);
}
