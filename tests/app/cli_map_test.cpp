// `vornmark map`: the example index mapped onto the example plan, saved as
// a DXF file that independent readers open cleanly.
#include "cli_fixture.h"

#include <cstdlib>

namespace {

const std::string examples = std::string(VORN_SOURCE_DIR) + "/examples/";

// Runs a shell command quietly; its exit status.
int shell(const std::string& command)
{
    int status = std::system((command + " >/dev/null 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

TEST_F(Cli, MapHatchesTheIndexOnThePlanAndTheDxfOpensElsewhere)
{
    std::string out = path("mapped.dxf");
    ASSERT_EQ(vornmark("map " + examples + "stability/plan_depth.grd " + out + " --drawing " + examples +
                       "plan.dxf --pillars Pillars --layer MAP"),
              0)
        << read("err.txt");
    std::string printed = read("out.txt");
    EXPECT_NE(printed.find("\n968 regions are constructed!"), std::string::npos) << printed;
    EXPECT_NE(printed.find("The number of regions reduced to 10"), std::string::npos);
    EXPECT_NE(printed.find("\n10 hatchs are created, save it?"), std::string::npos);

    ASSERT_EQ(vornmark("drawing info " + out), 0);
    std::string info = read("out.txt");
    EXPECT_NE(info.find("MAP: HATCH 10 LWPOLYLINE"), std::string::npos) << info;

    if (shell("/usr/bin/python3 -c 'import ezdxf'") == 0) {
        EXPECT_EQ(shell("/usr/bin/python3 -c \"import ezdxf,sys; d=ezdxf.readfile('" + out +
                        "'); a=d.audit(); sys.exit(1 if a.has_errors else 0)\""),
                  0);
    }
    if (shell("which ogrinfo") == 0) {
        EXPECT_EQ(shell("ogrinfo -ro -al -so " + out), 0);
    }
}

TEST_F(Cli, MapWithoutPillarLayersIsRefusedAndSavesNothing)
{
    EXPECT_EQ(vornmark("map " + examples + "stability/plan_depth.grd " + path("m.dxf") + " --no-combine"), 1);
    EXPECT_NE(read("err.txt").find("No Pillar layer selected!"), std::string::npos) << read("err.txt");
    EXPECT_FALSE(fs::exists(path("m.dxf")));
}
