// `vornmark stability`: a project's composite index, and the project and
// factor files that make it fail without writing anything.
#include "cli_fixture.h"

#include "grid/grid.h"

namespace {

void writeIndexGrid(const std::string& path, double base)
{
    myGrid grid;
    grid.setup(3, 2, 10.0, 10.0, 0.0);
    for (int i = 0; i <= 3; ++i)
        for (int j = 0; j <= 2; ++j) grid.setValue(i, j, base + i + j);
    grid.writeGrd(path);
}

std::string project(const std::vector<std::pair<std::string, std::string>>& factors)
{
    std::string text = std::to_string(factors.size());
    for (const auto& [grid, weight] : factors) text += "\r\nf\r\n" + grid + "\r\n\r\n" + weight;
    return text;
}

}  // namespace

TEST_F(Cli, StabilityWritesTheCompositeTitledWithTheProjectAsGiven)
{
    writeIndexGrid(path("a.grd"), 20.0);
    writeIndexGrid(path("b.grd"), 0.0);
    write("p.prj", project({{path("a.grd"), "50"}, {path("b.grd"), "0.5"}}));
    EXPECT_EQ(vornmark("stability " + path("p.prj") + " " + path("out.grd")), 0) << read("err.txt");
    myGrid out;
    ASSERT_TRUE(out.readGrd(path("out.grd"), 1));
    EXPECT_EQ(out.getTitle(), "Composite Stability Index for Project: " + path("p.prj"));
    EXPECT_DOUBLE_EQ(out.getValue(0, 0), 0.0);
    EXPECT_DOUBLE_EQ(out.getValue(2, 1), 100.0);
    EXPECT_NE(read("err.txt").find("Final Index saved to grid file: " + path("out.grd")), std::string::npos);
}

TEST_F(Cli, StabilityRefusesBadProjectsAndLeavesThemAlone)
{
    writeIndexGrid(path("a.grd"), 1.0);
    write("foreign.grd", "hello\n");
    struct Case {
        const char* name;
        std::string text;
        const char* message;
    } cases[] = {
        {"truncated", "2\r\nf\r\n" + path("a.grd") + "\r\n\r\n50\r\ng", "ends before its last factor"},
        {"missing grid", project({{path("a.grd"), "50"}, {path("none.grd"), "50"}}), "Grid File Read fail: "},
        {"foreign grid", project({{path("foreign.grd"), "50"}}), "Grid File Read fail: "},
        {"weights not numbers", project({{path("a.grd"), "abc"}}), "Strange! Total Weight could not be zero!"},
        {"zero total", project({{path("a.grd"), "2"}, {path("a.grd"), "-2"}}), "Strange! Total Weight could not be zero!"},
        {"empty", "0", "lists no factor"},
    };
    for (const Case& c : cases) {
        write("p.prj", c.text);
        EXPECT_EQ(vornmark("stability " + path("p.prj") + " " + path("out.grd")), 1) << c.name;
        EXPECT_NE((read("err.txt") + read("out.txt")).find(c.message), std::string::npos) << c.name << read("err.txt");
        EXPECT_FALSE(fs::exists(path("out.grd"))) << c.name;
        EXPECT_EQ(read("p.prj"), c.text) << c.name;
    }
    EXPECT_EQ(vornmark("stability " + path("nowhere.prj") + " " + path("out.grd")), 1);
    EXPECT_NE(read("err.txt").find("File could not be opened: "), std::string::npos);
}
