// End-to-end runs of the GIS and picture commands: grids through GeoTIFF
// and ESRI ASCII and back, a DEM as the surface of the overburden stress,
// refusals, plan and grid pictures, the plan as a GeoPackage.
#include "grid/gisraster.h"
#include "grid/grid.h"
#include "tests/app/cli_fixture.h"

namespace {
std::string example(const std::string& name) { return std::string(VORN_SOURCE_DIR) + "/examples/" + name; }
}  // namespace

TEST_F(Cli, GridThroughGeoTiffAndEsriAsciiComesBackExact)
{
    for (const char* raster : {"depth.tif", "depth.asc"}) {
        SCOPED_TRACE(raster);
        ASSERT_EQ(vornmark("grid convert " + example("depth.grd") + " " + path(raster)), 0) << read("err.txt");
        ASSERT_EQ(vornmark("grid convert " + path(raster) + " " + path("back.grd")), 0) << read("err.txt");
        myGrid a, b;
        ASSERT_TRUE(a.readGrd(example("depth.grd"), 1));
        ASSERT_TRUE(b.readGrd(path("back.grd"), 1));
        ASSERT_EQ(a.getXNum(), b.getXNum());
        ASSERT_EQ(a.getYNum(), b.getYNum());
        EXPECT_EQ(a.getOrigin().x, b.getOrigin().x);
        EXPECT_EQ(a.getOrigin().y, b.getOrigin().y);
        for (int i = 0; i <= a.getXNum(); ++i)
            for (int j = 0; j <= a.getYNum(); ++j) ASSERT_EQ(a.getValue(i, j), b.getValue(i, j)) << i << "," << j;
    }
    // GeoTIFF keeps the title too: the file comes back byte for byte.
    ASSERT_EQ(vornmark("grid convert " + example("depth.grd") + " " + path("depth.tif")), 0);
    ASSERT_EQ(vornmark("grid convert " + path("depth.tif") + " " + path("back.grd")), 0);
    EXPECT_EQ(read("back.grd"), [] {
        std::stringstream text;
        text << std::ifstream(example("depth.grd"), std::ios::binary).rdbuf();
        return text.str();
    }());
}

TEST_F(Cli, SurferFormsAndRefusals)
{
    for (const char* form : {"surfer-text", "surfer-binary", "surfer7"}) {
        ASSERT_EQ(vornmark("grid convert " + example("depth.grd") + " " + path("s.grd") + " --format " + form), 0) << form;
        EXPECT_EQ(vornmark("grid info " + path("s.grd")), 0) << form;
    }
    EXPECT_EQ(vornmark("grid convert " + example("depth.grd") + " " + path("s.tif") + " --format surfer7"), 2);
    EXPECT_EQ(vornmark("grid convert " + example("depth.grd") + " " + path("s.grd") + " --format arcinfo"), 2);

    // Only a GeoTIFF holds a rotated lattice; the .grd keeps no rotation and says so.
    myGrid rotated;
    rotated.setup(4, 3, 10, 10, 25);
    for (int i = 0; i <= 4; ++i)
        for (int j = 0; j <= 3; ++j) rotated.setValue(i, j, i + j);
    std::string error;
    ASSERT_TRUE(vorn::writeRaster(rotated, path("rotated.tif"), vorn::RasterFormat::GeoTiff, error)) << error;
    EXPECT_EQ(vornmark("grid convert " + path("rotated.tif") + " " + path("rotated.asc")), 1);
    EXPECT_EQ(read("err.txt"), "vornmark: " + path("rotated.asc") + ": the format cannot hold a rotated lattice (GeoTIFF can)\n");
    EXPECT_FALSE(fs::exists(path("rotated.asc")));
    EXPECT_EQ(vornmark("grid convert " + path("rotated.tif") + " " + path("back.grd")), 0);
    EXPECT_EQ(read("err.txt"), "vornmark: " + path("back.grd") + ": a .grd file keeps no rotation: the lattice is written unrotated\n");
}

TEST_F(Cli, GeoTiffDemIsASurfaceForTheOverburdenStress)
{
    // A surveyed surface arrives as a GeoTIFF; both the DEM itself and the
    // grid converted from it give the stress of the original surface.
    ASSERT_EQ(vornmark("grid convert " + example("topo/surface.grd") + " " + path("dem.tif")), 0);
    ASSERT_EQ(vornmark("grid convert " + path("dem.tif") + " " + path("surface.grd")), 0);
    const std::string seam = " --seam-grid " + example("topo/seam.grd") + " </dev/null";
    ASSERT_EQ(vornmark("topostress " + example("topo/surface.grd") + " " + path("reference.grd") + seam), 0);
    ASSERT_EQ(vornmark("topostress " + path("dem.tif") + " " + path("from_dem.grd") + seam), 0) << read("err.txt");
    ASSERT_EQ(vornmark("topostress " + path("surface.grd") + " " + path("from_grd.grd") + seam), 0);
    EXPECT_EQ(read("from_dem.grd"), read("reference.grd"));
    EXPECT_EQ(read("from_grd.grd"), read("reference.grd"));
}

TEST_F(Cli, RenderAndExportThePlanAndAGrid)
{
    EXPECT_EQ(vornmark("render " + example("plan.dxf") + " " + path("plan.png") + " --width 800"), 0) << read("err.txt");
    EXPECT_EQ(read("plan.png").substr(1, 3), "PNG");
    EXPECT_EQ(vornmark("render " + example("plan.dxf") + " " + path("plan.png") + " --window 0,0 0,5"), 2);
    EXPECT_EQ(vornmark("render " + example("plan.dxf") + " " + path("plan.gif")), 1);
    EXPECT_FALSE(fs::exists(path("plan.gif")));
    EXPECT_EQ(vornmark("grid render " + example("depth.grd") + " " + path("depth.svg") + " --legend --contours 50 --drawing " +
                       example("plan.dxf")),
              0)
        << read("err.txt");
    EXPECT_EQ(read("depth.svg").substr(0, 5), "<?xml");
    ASSERT_EQ(vornmark("drawing export " + example("plan.dxf") + " " + path("plan.gpkg")), 0) << read("err.txt");
    EXPECT_EQ(read("out.txt").rfind("Exported ", 0), 0u);
    EXPECT_EQ(std::system(("ogrinfo -ro -so " + path("plan.gpkg") + " >/dev/null 2>&1").c_str()), 0);
    EXPECT_EQ(vornmark("drawing export " + example("plan.dxf") + " " + path("plan.kml")), 2);
}
