#include "gis/vector_export.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>

#include <cpl_conv.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "base/textnum.h"
#include "drawing/geometry_curves.h"

namespace vorn {

namespace {

constexpr double kArcStep = 0.05;  // radians between flattened arc points

enum class Kind { Polygon, Line, Point };

struct DatasetCloser {
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};
using DatasetPtr = std::unique_ptr<GDALDataset, DatasetCloser>;

struct Feature {
    Kind kind;
    std::unique_ptr<OGRGeometry> geometry;
};

OGRLinearRing ringOf(const std::vector<Point2d>& points)
{
    OGRLinearRing ring;
    for (const Point2d& p : points) ring.addPoint(p.x, p.y);
    ring.closeRings();
    return ring;
}

OGRLineString lineOf(const std::vector<Point2d>& points)
{
    OGRLineString line;
    for (const Point2d& p : points) line.addPoint(p.x, p.y);
    return line;
}

// Rings of a polygon: the first ring is the outer one, the others holes.
std::unique_ptr<OGRGeometry> polygonOf(const std::vector<std::vector<Point2d>>& rings)
{
    auto polygon = std::make_unique<OGRPolygon>();
    for (const auto& ring : rings)
        if (ring.size() >= 3) polygon->addRingDirectly(new OGRLinearRing(ringOf(ring)));
    if (polygon->IsEmpty()) return nullptr;
    return polygon;
}

std::unique_ptr<OGRGeometry> regionOf(const Region& region)
{
    auto multi = std::make_unique<OGRMultiPolygon>();
    for (const RegionFace& face : region.faces) {
        std::vector<std::vector<Point2d>> rings{face.outer};
        rings.insert(rings.end(), face.holes.begin(), face.holes.end());
        if (auto polygon = polygonOf(rings)) multi->addGeometryDirectly(polygon.release());
    }
    if (multi->IsEmpty()) return nullptr;
    return multi;
}

// A hatch: the loop of largest area is the outer ring, the others holes.
std::unique_ptr<OGRGeometry> hatchOf(const Hatch& hatch)
{
    std::vector<std::vector<Point2d>> rings;
    for (const HatchLoop& loop : hatch.loops) rings.push_back(flatten(hatchLoopPath(loop), kArcStep));
    std::stable_sort(rings.begin(), rings.end(), [](const auto& a, const auto& b) {
        return std::fabs(ringArea(a)) > std::fabs(ringArea(b));
    });
    return polygonOf(rings);
}

std::unique_ptr<OGRGeometry> cornersOf(const Point3d corners[4], bool solidOrder)
{
    // A solid's third and fourth corners stand crosswise.
    int order[4] = {0, 1, solidOrder ? 3 : 2, solidOrder ? 2 : 3};
    std::vector<Point2d> ring;
    for (int k : order) ring.push_back({corners[k].x, corners[k].y});
    return polygonOf({ring});
}

Feature featureOf(const Entity& entity)
{
    switch (entity.kind()) {
    case EntityKind::Point: {
        const auto& p = entity.as<PointEntity>()->position;
        return {Kind::Point, std::make_unique<OGRPoint>(p.x, p.y, p.z)};
    }
    case EntityKind::Text: {
        const auto& p = entity.as<Text>()->position;
        return {Kind::Point, std::make_unique<OGRPoint>(p.x, p.y)};
    }
    case EntityKind::Hatch: return {Kind::Polygon, hatchOf(*entity.as<Hatch>())};
    case EntityKind::Region: return {Kind::Polygon, regionOf(*entity.as<Region>())};
    case EntityKind::Solid: return {Kind::Polygon, cornersOf(entity.as<Solid>()->corners, true)};
    case EntityKind::Face: return {Kind::Polygon, cornersOf(entity.as<Face>()->corners, false)};
    default: break;
    }
    Path path;
    if (!curvePath(entity, path)) return {Kind::Line, nullptr};
    std::vector<Point2d> points = flatten(path, kArcStep);
    if (path.closed && points.size() >= 4) return {Kind::Polygon, polygonOf({points})};
    if (points.size() < 2) return {Kind::Line, nullptr};
    return {Kind::Line, std::make_unique<OGRLineString>(lineOf(points))};
}

int resolvedColor(const Entity& entity, const std::map<std::string, int>& layerColors)
{
    if (entity.common.colorIndex != kColorByLayer && entity.common.colorIndex != kColorByBlock)
        return entity.common.colorIndex;
    auto found = layerColors.find(toLower(entity.common.layer));
    return found == layerColors.end() ? 7 : std::abs(found->second);
}

bool layerWanted(const std::string& layer, const std::vector<std::string>& onlyLayers)
{
    if (onlyLayers.empty()) return true;
    for (const std::string& name : onlyLayers)
        if (iequals(name, layer)) return true;
    return false;
}

OGRLayer* createLayer(GDALDataset& dataset, const std::string& name, OGRwkbGeometryType type)
{
    OGRLayer* layer = dataset.CreateLayer(name.c_str(), nullptr, type, nullptr);
    if (!layer) return nullptr;
    OGRFieldDefn layerField("layer", OFTString);
    OGRFieldDefn typeField("entity", OFTString);
    OGRFieldDefn colorField("color", OFTInteger);
    OGRFieldDefn textField("text", OFTString);
    OGRFieldDefn xdataField("xdata", OFTString);
    for (OGRFieldDefn* field : {&layerField, &typeField, &colorField, &textField, &xdataField})
        if (layer->CreateField(field) != OGRERR_NONE) return nullptr;
    return layer;
}

std::string siblingShapefile(const std::string& path, const char* suffix)
{
    std::filesystem::path p(path);
    return (p.parent_path() / (p.stem().string() + suffix + ".shp")).string();
}

}  // namespace

std::string vectorDriverOfName(const std::string& path)
{
    std::string extension = toLower(std::filesystem::path(path).extension().string());
    if (extension == ".gpkg") return "GPKG";
    if (extension == ".shp") return "ESRI Shapefile";
    if (extension == ".geojson" || extension == ".json") return "GeoJSON";
    return "";
}

std::string xdataText(const ResultBuffer& xdata)
{
    std::string text;
    bool first = true;
    for (const ResultItem& item : xdata) {
        if (item.restype == 1001) {
            text += (text.empty() ? "" : "; ") + item.text + ":";
            first = true;
            continue;
        }
        std::string value;
        switch (valueKindOfCode(item.restype)) {
        case ValueKind::Text: value = item.text; break;
        case ValueKind::Real: value = formatString("%g", item.real); break;
        case ValueKind::Integer: value = formatString("%lld", static_cast<long long>(item.integer)); break;
        case ValueKind::Point: value = formatString("(%g %g %g)", item.point.x, item.point.y, item.point.z); break;
        default: value = item.text; break;
        }
        text += (first ? " " : ", ") + value;
        first = false;
    }
    return text;
}

bool exportVectors(const std::vector<Entity>& entities, const std::vector<LayerRecord>& layers,
                   const std::vector<std::string>& onlyLayers, const std::string& path, VectorExportCounts& counts,
                   std::string& error)
{
    static const bool registered = [] {
        GDALAllRegister();
        CPLSetErrorHandler(CPLQuietErrorHandler);
        return true;
    }();
    (void)registered;
    const std::string driverName = vectorDriverOfName(path);
    GDALDriver* driver = driverName.empty() ? nullptr : GetGDALDriverManager()->GetDriverByName(driverName.c_str());
    if (!driver) {
        error = "the output must end in .gpkg, .shp or .geojson";
        return false;
    }
    std::map<std::string, int> layerColors;
    for (const LayerRecord& layer : layers) layerColors[toLower(layer.name)] = layer.color;

    const bool shapefiles = driverName == "ESRI Shapefile";
    const bool mixed = driverName == "GeoJSON";
    // A GeoPackage or GeoJSON file is made under a temporary name beside the
    // target and renamed over it when complete; a shapefile set (three
    // files, each with its siblings) is written in place and removed again
    // when the export fails.
    namespace fs = std::filesystem;
    const fs::path output(path);
    const std::string temporary =
        (output.parent_path() / ("." + output.stem().string() + ".part" + output.extension().string())).string();
    std::vector<std::string> files{shapefiles ? path : temporary};
    if (shapefiles) files = {path, siblingShapefile(path, "_lines"), siblingShapefile(path, "_points")};
    std::vector<DatasetPtr> datasets;
    auto fail = [&](const std::string& cause) {
        error = cause.empty() ? "the file could not be written" : cause;
        datasets.clear();
        for (const std::string& file : files) driver->Delete(file.c_str());
        return false;
    };
    CPLErrorReset();
    for (const std::string& file : files) {
        VSIStatBufL stat;
        if (VSIStatL(file.c_str(), &stat) == 0) driver->Delete(file.c_str());
        datasets.emplace_back(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        if (!datasets.back()) {
            datasets.pop_back();
            files.resize(datasets.size());
            return fail(CPLGetLastErrorMsg());
        }
    }
    OGRLayer* targets[3] = {};
    const char* names[3] = {"polygons", "lines", "points"};
    const OGRwkbGeometryType types[3] = {wkbMultiPolygon, wkbLineString, wkbPoint};
    for (int k = 0; k < 3; ++k) {
        GDALDataset& dataset = *datasets[shapefiles ? static_cast<size_t>(k) : 0];
        if (mixed && k > 0) {
            targets[k] = targets[0];
            continue;
        }
        targets[k] = createLayer(dataset, mixed ? "drawing" : names[k], mixed ? wkbUnknown : types[k]);
        if (!targets[k]) return fail("the layer could not be created");
    }
    counts = {};
    for (const Entity& entity : entities) {
        if (!layerWanted(entity.common.layer, onlyLayers)) continue;
        Feature feature = featureOf(entity);
        if (!feature.geometry) continue;
        const int index = static_cast<int>(feature.kind);
        OGRLayer* target = targets[index];
        OGRFeature row(target->GetLayerDefn());
        row.SetField("layer", entity.common.layer.c_str());
        row.SetField("entity", dxfTypeName(entity.kind()));
        row.SetField("color", resolvedColor(entity, layerColors));
        if (const Text* text = entity.as<Text>()) row.SetField("text", text->text.c_str());
        row.SetField("xdata", xdataText(entity.common.xdata).c_str());
        if (feature.kind == Kind::Polygon && !mixed && feature.geometry->getGeometryType() == wkbPolygon) {
            auto multi = std::make_unique<OGRMultiPolygon>();
            multi->addGeometryDirectly(feature.geometry.release());
            feature.geometry = std::move(multi);
        }
        row.SetGeometryDirectly(feature.geometry.release());
        if (target->CreateFeature(&row) != OGRERR_NONE) return fail(CPLGetLastErrorMsg());
        ++(feature.kind == Kind::Polygon ? counts.polygons : feature.kind == Kind::Line ? counts.lines : counts.points);
    }
    CPLErrorReset();
    datasets.clear();  // closing writes what is left
    if (CPLGetLastErrorType() >= CE_Failure) return fail(CPLGetLastErrorMsg());
    if (shapefiles) return true;
    std::error_code failure;
    fs::rename(temporary, path, failure);
    if (failure) return fail(failure.message());
    return true;
}

}  // namespace vorn
