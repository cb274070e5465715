// GIS rasters: round trips through every format, the lattice as GDAL sees
// it, the Surfer forms by their headers, and refusals that leave no file.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>

#include <unistd.h>

#include <gdal_priv.h>

#include "grid/gisraster.h"
#include "grid/grid.h"

namespace fs = std::filesystem;
using vorn::RasterFormat;

namespace {

class Raster : public ::testing::Test {
protected:
    void SetUp() override
    {
        dir = fs::temp_directory_path() / ("vorn_gis_raster_" + std::to_string(::getpid()));
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string path(const std::string& name) const { return (dir / name).string(); }
    fs::path dir;
};

// A 6 x 4 cell lattice with six-decimal values and two "N" nodes.
myGrid sample(double rotationDegrees)
{
    myGrid grid;
    grid.setup(6, 4, 12.5, 7.25, rotationDegrees);
    grid.setOrigin(1000.5, 2000.25, 0.0);
    for (int i = 0; i <= 6; ++i)
        for (int j = 0; j <= 4; ++j) grid.setValue(i, j, 100.0 * i + j + 0.123456 * (i + 1));
    grid.setValue(2, 3, NULL_VALUE);
    grid.setValue(6, 0, NULL_VALUE);
    grid.setTitle("Overburden Depth");
    return grid;
}

void expectSameLattice(const myGrid& a, const myGrid& b, double tolerance)
{
    ASSERT_EQ(a.getXNum(), b.getXNum());
    ASSERT_EQ(a.getYNum(), b.getYNum());
    EXPECT_NEAR(a.getXCellW(), b.getXCellW(), 1e-9);
    EXPECT_NEAR(a.getYCellW(), b.getYCellW(), 1e-9);
    EXPECT_NEAR(a.getRotation(), b.getRotation(), 1e-12);
    EXPECT_NEAR(a.getOrigin().x, b.getOrigin().x, 1e-6);
    EXPECT_NEAR(a.getOrigin().y, b.getOrigin().y, 1e-6);
    for (int i = 0; i <= a.getXNum(); ++i)
        for (int j = 0; j <= a.getYNum(); ++j) {
            SCOPED_TRACE(testing::Message() << "node " << i << "," << j);
            if (a.getValue(i, j) <= NULL_VALUE) EXPECT_LE(b.getValue(i, j), NULL_VALUE);
            else EXPECT_NEAR(a.getValue(i, j), b.getValue(i, j), tolerance);
        }
}

}  // namespace

TEST_F(Raster, RoundTripsKeepLatticeValuesAndNodata)
{
    struct Case {
        const char* name;
        RasterFormat format;
        double rotation;
        double tolerance;  // Surfer 6 binary keeps floats
    };
    const Case cases[] = {
        {"plain.tif", RasterFormat::GeoTiff, 0.0, 5e-7},     {"rotated.tif", RasterFormat::GeoTiff, 30.0, 5e-7},
        {"turned.tif", RasterFormat::GeoTiff, -115.0, 5e-7}, {"plain.asc", RasterFormat::EsriAscii, 0.0, 5e-7},
        {"text.grd", RasterFormat::SurferText, 0.0, 5e-7},   {"binary.grd", RasterFormat::SurferBinary, 0.0, 1e-4},
        {"seven.grd", RasterFormat::Surfer7, 0.0, 5e-7},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        myGrid written = sample(c.rotation), read;
        std::string error;
        ASSERT_TRUE(vorn::writeRaster(written, path(c.name), c.format, error)) << error;
        EXPECT_EQ(vorn::rasterFormatOfFile(path(c.name)), c.format);
        ASSERT_TRUE(vorn::readRaster(path(c.name), read, error)) << error;
        expectSameLattice(written, read, c.tolerance);
        // Six decimals as the system's own .grd writes them.
        myGrid reread;
        ASSERT_TRUE(read.writeGrd(path("back.grd")));
        ASSERT_TRUE(reread.readGrd(path("back.grd"), 1));
        if (c.format != RasterFormat::SurferBinary) {
            EXPECT_EQ(reread.getValue(3, 2), written.getValue(3, 2));
            EXPECT_EQ(reread.getValue(0, 4), written.getValue(0, 4));
        }
    }
    for (const auto& entry : fs::directory_iterator(dir))
        EXPECT_EQ(entry.path().filename().string().find(".part"), std::string::npos) << entry.path();
}

TEST_F(Raster, GeoTiffHoldsNodeCentredPixelsAndTheRotation)
{
    // Independently of the writer: node (i, j) is at origin + R(rot) (i dx, j dy),
    // the centre of pixel column i, row yNum - j.
    myGrid grid = sample(30.0);
    std::string error;
    ASSERT_TRUE(vorn::writeRaster(grid, path("dem.tif"), RasterFormat::GeoTiff, error)) << error;
    GDALAllRegister();
    struct Closer {
        void operator()(GDALDataset* d) const { GDALClose(d); }
    };
    std::unique_ptr<GDALDataset, Closer> dataset(static_cast<GDALDataset*>(GDALOpen(path("dem.tif").c_str(), GA_ReadOnly)));
    ASSERT_TRUE(dataset);
    EXPECT_EQ(dataset->GetRasterXSize(), 7);
    EXPECT_EQ(dataset->GetRasterYSize(), 5);
    double t[6];
    ASSERT_EQ(dataset->GetGeoTransform(t), CE_None);
    const double c = std::cos(grid.getRotation()), s = std::sin(grid.getRotation());
    EXPECT_NEAR(t[1], 12.5 * c, 1e-12);
    EXPECT_NEAR(t[4], 12.5 * s, 1e-12);
    EXPECT_NEAR(t[2], 7.25 * s, 1e-12);
    EXPECT_NEAR(t[5], -7.25 * c, 1e-12);
    for (int i : {0, 3, 6})
        for (int j : {0, 1, 4}) {
            const double col = i + 0.5, row = 4 - j + 0.5;
            EXPECT_NEAR(t[0] + col * t[1] + row * t[2], 1000.5 + i * 12.5 * c - j * 7.25 * s, 1e-9);
            EXPECT_NEAR(t[3] + col * t[4] + row * t[5], 2000.25 + i * 12.5 * s + j * 7.25 * c, 1e-9);
        }
    GDALRasterBand* band = dataset->GetRasterBand(1);
    int hasNoData = 0;
    EXPECT_EQ(band->GetNoDataValue(&hasNoData), NULL_VALUE);
    EXPECT_TRUE(hasNoData);
    double pixel = 0;
    ASSERT_EQ(band->RasterIO(GF_Read, 5, 4 - 1, 1, 1, &pixel, 1, 1, GDT_Float64, 0, 0), CE_None);
    EXPECT_EQ(pixel, grid.getValue(5, 1));
    ASSERT_EQ(band->RasterIO(GF_Read, 2, 4 - 3, 1, 1, &pixel, 1, 1, GDT_Float64, 0, 0), CE_None);
    EXPECT_EQ(pixel, NULL_VALUE);
}

TEST_F(Raster, SystemGrdAndSurferFormsAreToldApartByTheHeader)
{
    myGrid grid = sample(0.0);
    ASSERT_TRUE(grid.writeGrd(path("own.grd")));
    EXPECT_EQ(vorn::rasterFormatOfFile(path("own.grd")), RasterFormat::None);
    EXPECT_EQ(vorn::rasterFormatOfFile(path("missing.grd")), RasterFormat::None);
    EXPECT_EQ(vorn::rasterFormatOfName(path("x.TIF")), RasterFormat::GeoTiff);
    EXPECT_EQ(vorn::rasterFormatOfName(path("x.grd")), RasterFormat::None);
    EXPECT_EQ(vorn::surferFormatNamed("surfer7"), RasterFormat::Surfer7);
    EXPECT_EQ(vorn::surferFormatNamed("surfer"), RasterFormat::None);
    myGrid read;
    ASSERT_TRUE(vorn::readAnyGrid(read, path("own.grd")));
    expectSameLattice(grid, read, 5e-7);
}

TEST_F(Raster, RotatedLatticeIsRefusedWhereTheFormatCannotHoldItAndNothingIsLeft)
{
    myGrid grid = sample(10.0);
    for (auto [name, format] : {std::pair{"r.asc", RasterFormat::EsriAscii}, {"r.grd", RasterFormat::SurferText},
                                {"r7.grd", RasterFormat::Surfer7}}) {
        std::string error;
        EXPECT_FALSE(vorn::writeRaster(grid, path(name), format, error));
        EXPECT_EQ(error, "the format cannot hold a rotated lattice (GeoTIFF can)");
    }
    std::string error;
    EXPECT_FALSE(vorn::writeRaster(grid, path("none/x.tif"), RasterFormat::GeoTiff, error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::is_empty(dir));
}

TEST_F(Raster, UnreadableRasterGivesTheCause)
{
    std::ofstream(path("bad.tif")) << "not a tiff";
    myGrid grid;
    std::string error;
    EXPECT_FALSE(vorn::readRaster(path("bad.tif"), grid, error));
    EXPECT_FALSE(error.empty());
}

TEST_F(Raster, HeaderClaimingMorePixelsThanTheFileHoldsIsRefusedBeforeTheGridIsMade)
{
    // A Surfer binary header for 8000 x 8000 pixels followed by one value:
    // the reader must fail on the missing pixels, not take 500 MB first.
    std::ofstream out(path("claims.grd"), std::ios::binary);
    const short counts[2] = {8000, 8000};
    const double bounds[6] = {0, 8000, 0, 8000, 0, 1};
    out.write("DSBB", 4);
    out.write(reinterpret_cast<const char*>(counts), sizeof counts);
    out.write(reinterpret_cast<const char*>(bounds), sizeof bounds);
    out.write("\0\0\0\0", 4);
    out.close();
    myGrid grid;
    std::string error;
    EXPECT_FALSE(vorn::readRaster(path("claims.grd"), grid, error));
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(grid.getXNum(), 0);
}
