// `vornmark grid plot` and `vornmark grid stats`: the drawings they save
// must open in independent DXF readers (ezdxf's audit and GDAL's ogrinfo,
// through tests/dxf/check_dxf.py).
#include <cmath>

#include "grid/grid.h"
#include "tests/app/cli_fixture.h"

namespace {

std::string example() { return std::string(VORN_SOURCE_DIR) + "/examples/depth.grd"; }

class GridPlotCli : public Cli {
protected:
    // The checker's verdict on a saved drawing with the expected counts.
    int checkDxf(const std::string& file, const std::string& counts)
    {
        std::string command = "/usr/bin/python3 " + std::string(VORN_SOURCE_DIR) + "/tests/dxf/check_dxf.py " + path(file) +
                              " " + counts + " >" + path("check.txt") + " 2>&1";
        int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    // A 6 x 5 grid of a slope, so that runs of several colours form.
    void writeSlope()
    {
        myGrid grid;
        grid.setup(6, 5, 10.0, 10.0, 0.0);
        grid.setOrigin(100.0, 200.0, 0.0);
        for (int i = 0; i <= 6; ++i)
            for (int j = 0; j <= 5; ++j) grid.setValue(i, j, 10.0 * i + 3.0 * j);
        grid.writeGrd(path("slope.grd"));
    }
};

TEST_F(GridPlotCli, EveryKindSavesAValidDrawing)
{
    writeSlope();
    struct {
        const char* kind;
        const char* counts;
    } const cases[] = {
        {"polygons", "LWPOLYLINE=30"}, {"points", "POINT=42"},  {"faces", "3DFACE=30"},
        {"solids", "SOLID=16"},        {"splines", "SPLINE=13"}, {"3dlines", "LINE=71"},
        {"hatches", "HATCH=16"},       {"regions", "HATCH=10"},
    };
    for (const auto& c : cases) {
        std::string out = std::string(c.kind) + ".dxf";
        ASSERT_EQ(vornmark("grid plot " + path("slope.grd") + " " + path(out) + " --kind " + c.kind + " --color --group --layer PLOT"), 0)
            << c.kind << read("err.txt");
        EXPECT_EQ(checkDxf(out, c.counts), 0) << c.kind << "\n" << read("check.txt");
    }
}

TEST_F(GridPlotCli, PlotIntoABaseDrawingAndStats)
{
    writeSlope();
    ASSERT_EQ(vornmark("grid plot " + path("slope.grd") + " " + path("first.dxf") + " --kind hatches"), 0);
    ASSERT_EQ(vornmark("grid plot " + path("slope.grd") + " " + path("both.dxf") + " --drawing " + path("first.dxf") +
                       " --kind solids --group"),
              0);
    EXPECT_EQ(checkDxf("both.dxf", "HATCH=16 SOLID=16"), 0) << read("check.txt");
    EXPECT_EQ(vornmark("grid plot " + path("slope.grd") + " " + path("x.dxf") + " --kind cubes"), 2);
    EXPECT_EQ(vornmark("grid plot " + path("slope.grd") + " " + path("x.dxf") + " --color --bw"), 2);
    EXPECT_EQ(vornmark("grid plot " + path("none.grd") + " " + path("x.dxf")), 1);

    ASSERT_EQ(vornmark("grid stats " + path("slope.grd")), 0);
    EXPECT_EQ(read("out.txt"), "\nStatistics:\nTotal Sample: 30\nMean: 31.000000\nStandard Deviation: 17.597348\n"
                               "Minimum Value: 0.000000 (1 samples)\nMaximum Value: 62.000000 (1 samples)\n");
    ASSERT_EQ(vornmark("grid stats " + path("slope.grd") + " --correlate " + path("slope.grd")), 0);
    EXPECT_NE(read("out.txt").find("\nGrid: " + path("slope.grd") + ".\n"), std::string::npos);
    EXPECT_NE(read("out.txt").find("\nCorrelation Coefficent: 1.000000.\n"), std::string::npos);
    EXPECT_EQ(vornmark("grid stats " + example()), 0);
}

}  // namespace
