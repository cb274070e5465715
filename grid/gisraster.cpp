#include "grid/gisraster.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <vector>

#include <cpl_conv.h>
#include <gdal_priv.h>

#include "base/report.h"
#include "base/textnum.h"
#include "grid/grid.h"
#include "grid/gridfiles.h"

namespace vorn {

namespace {

struct GdalDatasetCloser {
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using DatasetPtr = std::unique_ptr<GDALDataset, GdalDatasetCloser>;

void registerDrivers()
{
    static const bool registered = [] {
        // No side files: what a format cannot keep is not kept.
        CPLSetConfigOption("GDAL_PAM_ENABLED", "NO");
        // ESRI ASCII grids are read as doubles, not the driver's floats.
        CPLSetConfigOption("AAIGRID_DATATYPE", "Float64");
        GDALAllRegister();
        CPLSetErrorHandler(CPLQuietErrorHandler);
        return true;
    }();
    (void)registered;
}

std::string lowerExtension(const std::string& path)
{
    std::string extension = std::filesystem::path(path).extension().string();
    return toLower(extension);
}

const char* driverName(RasterFormat format)
{
    switch (format) {
    case RasterFormat::GeoTiff: return "GTiff";
    case RasterFormat::EsriAscii: return "AAIGrid";
    case RasterFormat::SurferText: return "GSAG";
    case RasterFormat::SurferBinary: return "GSBG";
    case RasterFormat::Surfer7: return "GS7BG";
    default: return nullptr;
    }
}

std::string lastGdalError(const std::string& fallback)
{
    const char* message = CPLGetLastErrorMsg();
    return message && *message ? std::string(message) : fallback;
}

// The pixels of band 1, top row first, read row by row in file order and
// in pieces of bounded width: what is kept grows with what the file really
// delivers, so a header that claims more pixels than its file holds fails
// on the first missing row before a grid is made for them.
bool readPixels(GDALRasterBand& band, int columns, int rows, std::vector<double>& pixels)
{
    constexpr int kPiece = 1 << 16;
    std::vector<double> piece(static_cast<size_t>(std::min(columns, kPiece)));
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; c += kPiece) {
            const int width = std::min(kPiece, columns - c);
            if (band.RasterIO(GF_Read, c, r, width, 1, piece.data(), width, 1, GDT_Float64, 0, 0) != CE_None) return false;
            pixels.insert(pixels.end(), piece.begin(), piece.begin() + width);
        }
    return true;
}

// The geotransform of the node lattice (see the header for the mapping).
void geoTransformOf(const myGrid& grid, double transform[6])
{
    const double c = std::cos(grid.getRotation());
    const double s = std::sin(grid.getRotation());
    const double dx = grid.getXCellW();
    const double dy = grid.getYCellW();
    const double top = grid.getYNum();
    transform[1] = dx * c;
    transform[2] = dy * s;
    transform[4] = dx * s;
    transform[5] = -dy * c;
    transform[0] = grid.getOrigin().x - top * dy * s - 0.5 * (transform[1] + transform[2]);
    transform[3] = grid.getOrigin().y + top * dy * c - 0.5 * (transform[4] + transform[5]);
}

bool isRotated(const double transform[6]) { return transform[2] != 0.0 || transform[4] != 0.0; }

}  // namespace

RasterFormat rasterFormatOfName(const std::string& path)
{
    std::string extension = lowerExtension(path);
    if (extension == ".tif" || extension == ".tiff") return RasterFormat::GeoTiff;
    if (extension == ".asc") return RasterFormat::EsriAscii;
    return RasterFormat::None;
}

RasterFormat surferFormatNamed(const std::string& name)
{
    if (name == "surfer-text") return RasterFormat::SurferText;
    if (name == "surfer-binary") return RasterFormat::SurferBinary;
    if (name == "surfer7") return RasterFormat::Surfer7;
    return RasterFormat::None;
}

RasterFormat rasterFormatOfFile(const std::string& path)
{
    RasterFormat byName = rasterFormatOfName(path);
    if (byName != RasterFormat::None || lowerExtension(path) != ".grd") return byName;
    char head[4] = {};
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return RasterFormat::None;
    size_t read = std::fread(head, 1, sizeof head, file);
    std::fclose(file);
    if (read < 4) return RasterFormat::None;
    if (std::memcmp(head, "DSAA", 4) == 0) return RasterFormat::SurferText;
    if (std::memcmp(head, "DSBB", 4) == 0) return RasterFormat::SurferBinary;
    if (std::memcmp(head, "DSRB", 4) == 0) return RasterFormat::Surfer7;
    return RasterFormat::None;
}

bool readRaster(const std::string& path, myGrid& grid, std::string& error)
{
    registerDrivers();
    CPLErrorReset();
    // Only the formats the system reads and writes are tried: a file in one
    // of GDAL's hundred others is refused rather than handed to a driver
    // that no one here has tried on bad input.
    static const char* const kReadDrivers[] = {"GTiff", "AAIGrid", "GSAG", "GSBG", "GS7BG", nullptr};
    DatasetPtr dataset(static_cast<GDALDataset*>(
        GDALOpenEx(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY, kReadDrivers, nullptr, nullptr)));
    if (!dataset) {
        error = lastGdalError("not a raster GDAL can read");
        return false;
    }
    const int columns = dataset->GetRasterXSize();
    const int rows = dataset->GetRasterYSize();
    if (dataset->GetRasterCount() < 1 || columns < 2 || rows < 2) {
        error = "a grid needs one band of at least 2 x 2 pixels";
        return false;
    }
    double transform[6];
    if (dataset->GetGeoTransform(transform) != CE_None) {
        transform[0] = 0.0, transform[1] = 1.0, transform[2] = 0.0;
        transform[3] = rows, transform[4] = 0.0, transform[5] = -1.0;
    }
    const double dx = std::hypot(transform[1], transform[4]);
    const double dy = std::hypot(transform[2], transform[5]);
    const double rotation = std::atan2(transform[4], transform[1]);
    if (!myGrid::canSetup(columns - 1, rows - 1, dy)) {
        error = "the pixel size or count gives no grid";
        return false;
    }
    GDALRasterBand* band = dataset->GetRasterBand(1);
    std::vector<double> pixels;
    if (!readPixels(*band, columns, rows, pixels)) {
        error = lastGdalError("a row could not be read");
        return false;
    }
    // In degrees by the grid's own pi, so that setup gives back these radians.
    if (!grid.setup(columns - 1, rows - 1, dx, dy, rotation * 180.0 / kGridPi)) {
        error = "the pixel size or count gives no grid";
        return false;
    }
    // Node (0, 0) is the centre of the bottom-left pixel.
    const double col = 0.5;
    const double row = rows - 0.5;
    grid.setOrigin(transform[0] + col * transform[1] + row * transform[2],
                   transform[3] + col * transform[4] + row * transform[5], 0.0);
    int hasNoData = 0;
    const double noData = band->GetNoDataValue(&hasNoData);
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            double value = pixels[static_cast<size_t>(r) * static_cast<size_t>(columns) + static_cast<size_t>(c)];
            bool missing = std::isnan(value) || (hasNoData && (value == noData || (std::isnan(noData) && std::isnan(value))));
            grid.setValue(c, rows - 1 - r, missing ? NULL_VALUE : value);
        }
    const char* title = dataset->GetMetadataItem("TITLE");
    grid.setTitle(title ? title : "");
    return true;
}

bool writeRaster(const myGrid& grid, const std::string& path, RasterFormat format, std::string& error)
{
    registerDrivers();
    const char* name = driverName(format);
    GDALDriver* driver = name ? GetGDALDriverManager()->GetDriverByName(name) : nullptr;
    if (!driver) {
        error = "no GDAL driver for this format";
        return false;
    }
    if (grid.getXNum() < 1 || grid.getYNum() < 1) {
        error = "the grid is not defined";
        return false;
    }
    double transform[6];
    geoTransformOf(grid, transform);
    if (isRotated(transform) && format != RasterFormat::GeoTiff) {
        error = "the format cannot hold a rotated lattice (GeoTIFF can)";
        return false;
    }
    const int columns = grid.getXNum() + 1;
    const int rows = grid.getYNum() + 1;
    // Formats that GDAL writes only as a copy are made in memory first.
    GDALDriver* memory = GetGDALDriverManager()->GetDriverByName("MEM");
    const bool direct = format == RasterFormat::GeoTiff;
    namespace fs = std::filesystem;
    // A hidden name beside the target; the copy drivers want the extension.
    fs::path hidden = fs::path(path).filename();
    hidden += ".part";
    if (!direct) hidden += fs::path(path).extension();
    std::string hiddenName(1, '.');
    hiddenName.append(hidden.string());
    const std::string temporary = (fs::path(path).parent_path() / hiddenName).string();
    CPLErrorReset();
    DatasetPtr dataset((direct ? driver : memory)->Create(direct ? temporary.c_str() : "", columns, rows, 1, GDT_Float64, nullptr));
    if (!dataset) {
        error = lastGdalError("the file could not be created");
        return false;
    }
    dataset->SetGeoTransform(transform);
    if (!grid.getTitle().empty()) dataset->SetMetadataItem("TITLE", grid.getTitle().c_str());
    GDALRasterBand* band = dataset->GetRasterBand(1);
    band->SetNoDataValue(NULL_VALUE);
    std::vector<double> line(static_cast<size_t>(columns));
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < columns; ++c) {
            double value = grid.getValue(c, rows - 1 - r);
            line[static_cast<size_t>(c)] = value > NULL_VALUE ? value : NULL_VALUE;
        }
        if (band->RasterIO(GF_Write, 0, r, columns, 1, line.data(), columns, 1, GDT_Float64, 0, 0) != CE_None) {
            error = lastGdalError("a row could not be written");
            dataset.reset();
            std::remove(temporary.c_str());
            return false;
        }
    }
    if (!direct) {
        DatasetPtr copy(driver->CreateCopy(temporary.c_str(), dataset.get(), FALSE, nullptr, nullptr, nullptr));
        if (!copy) {
            error = lastGdalError("the file could not be written");
            return false;
        }
    }
    dataset.reset();
    std::error_code failure;
    fs::rename(temporary, path, failure);
    if (failure) {
        error = failure.message();
        std::remove(temporary.c_str());
        return false;
    }
    return true;
}

bool readAnyGrid(myGrid& grid, const std::string& path)
{
    if (rasterFormatOfFile(path) == RasterFormat::None) return readGridByName(grid, path, 1);
    std::string error;
    if (readRaster(path, grid, error)) return true;
    AfxMessageBox(error);
    return false;
}

}  // namespace vorn
