// Drawing to GIS vectors: a hatched stability map read back by OGR with its
// classes (colour, layer), holes kept, shapefile siblings and GeoJSON.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <memory>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <unistd.h>

#include "gis/vector_export.h"

namespace fs = std::filesystem;
using namespace vorn;

namespace {

struct Closer {
    void operator()(GDALDataset* d) const { GDALClose(d); }
};
using Dataset = std::unique_ptr<GDALDataset, Closer>;

Dataset openVector(const std::string& path)
{
    return Dataset(static_cast<GDALDataset*>(GDALOpenEx(path.c_str(), GDAL_OF_VECTOR, nullptr, nullptr, nullptr)));
}

HatchLoop square(double x, double y, double size)
{
    HatchLoop loop;
    loop.points = {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
    loop.bulges.assign(4, 0.0);
    return loop;
}

Entity hatch(const std::string& layer, int color, std::vector<HatchLoop> loops)
{
    Hatch shape;
    shape.loops = std::move(loops);
    Entity entity{{}, shape};
    entity.common.layer = layer;
    entity.common.colorIndex = color;
    return entity;
}

// Classes of a stability map: a stable class with a hole, two more classes
// (one coloured by its layer), an open line and a point.
std::vector<Entity> stabilityMap()
{
    std::vector<Entity> entities;
    // The hole comes first: the outer ring is found by its area.
    entities.push_back(hatch("STABLE", 3, {square(20, 20, 20), square(0, 0, 100)}));
    entities.push_back(hatch("FAIR", 2, {square(200, 0, 50)}));
    entities.push_back(hatch("POOR", kColorByLayer, {square(300, 0, 50)}));
    LwPolyline open;
    open.vertices = {{{0, 200}}, {{100, 200}}, {{100, 300}}};
    entities.push_back(Entity{{}, open});
    entities.back().common.layer = "ROADS";
    entities.back().common.xdata = {ResultItem::ofText(1001, "VORN"), ResultItem::ofText(1000, "belt"),
                                    ResultItem::ofReal(1040, 2.5)};
    entities.push_back(Entity{{}, PointEntity{{5, 5, 1}}});
    return entities;
}

std::vector<LayerRecord> mapLayers()
{
    return {{{}, "STABLE", 3}, {{}, "FAIR", 2}, {{}, "POOR", 1}, {{}, "ROADS", 7}, {{}, "0", 7}};
}

class Vectors : public ::testing::Test {
protected:
    void SetUp() override
    {
        dir = fs::temp_directory_path() / ("vorn_gis_vector_" + std::to_string(::getpid()));
        fs::create_directories(dir);
        GDALAllRegister();
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string path(const std::string& name) const { return (dir / name).string(); }
    fs::path dir;
};

}  // namespace

TEST_F(Vectors, HatchedMapOpensInGeoPackageWithItsClasses)
{
    vorn::VectorExportCounts counts;
    std::string error;
    ASSERT_TRUE(vorn::exportVectors(stabilityMap(), mapLayers(), {}, path("map.gpkg"), counts, error)) << error;
    EXPECT_EQ(counts.polygons, 3);
    EXPECT_EQ(counts.lines, 1);
    EXPECT_EQ(counts.points, 1);

    Dataset dataset = openVector(path("map.gpkg"));
    ASSERT_TRUE(dataset);
    OGRLayer* polygons = dataset->GetLayerByName("polygons");
    ASSERT_TRUE(polygons);
    ASSERT_EQ(polygons->GetFeatureCount(), 3);
    struct Expected {
        const char* layer;
        int color;
        double area;
        int holes;
    };
    const Expected expected[] = {{"STABLE", 3, 100 * 100 - 20 * 20, 1}, {"FAIR", 2, 2500, 0}, {"POOR", 1, 2500, 0}};
    polygons->ResetReading();
    for (const Expected& e : expected) {
        std::unique_ptr<OGRFeature> feature(polygons->GetNextFeature());
        ASSERT_TRUE(feature);
        EXPECT_STREQ(feature->GetFieldAsString("layer"), e.layer);
        EXPECT_STREQ(feature->GetFieldAsString("entity"), "HATCH");
        EXPECT_EQ(feature->GetFieldAsInteger("color"), e.color);
        const OGRGeometry* geometry = feature->GetGeometryRef();
        ASSERT_TRUE(geometry);
        ASSERT_EQ(wkbFlatten(geometry->getGeometryType()), wkbMultiPolygon);
        const OGRPolygon* polygon = geometry->toMultiPolygon()->getGeometryRef(0);
        EXPECT_EQ(polygon->getNumInteriorRings(), e.holes) << e.layer;
        EXPECT_NEAR(polygon->get_Area(), e.area, 1e-9) << e.layer;
    }
    OGRLayer* lines = dataset->GetLayerByName("lines");
    ASSERT_TRUE(lines);
    std::unique_ptr<OGRFeature> line(lines->GetNextFeature());
    ASSERT_TRUE(line);
    EXPECT_STREQ(line->GetFieldAsString("layer"), "ROADS");
    EXPECT_STREQ(line->GetFieldAsString("xdata"), "VORN: belt, 2.5");
    EXPECT_EQ(line->GetGeometryRef()->toLineString()->getNumPoints(), 3);
    ASSERT_TRUE(dataset->GetLayerByName("points"));
    EXPECT_EQ(dataset->GetLayerByName("points")->GetFeatureCount(), 1);
    dataset.reset();

    // Written again over the old file, through a temporary name that goes.
    ASSERT_TRUE(vorn::exportVectors(stabilityMap(), mapLayers(), {"FAIR"}, path("map.gpkg"), counts, error)) << error;
    EXPECT_EQ(openVector(path("map.gpkg"))->GetLayerByName("polygons")->GetFeatureCount(), 1);
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);
}

TEST_F(Vectors, LayersFilterAndOtherFormats)
{
    vorn::VectorExportCounts counts;
    std::string error;
    ASSERT_TRUE(vorn::exportVectors(stabilityMap(), mapLayers(), {"stable", "roads"}, path("map.shp"), counts, error)) << error;
    EXPECT_EQ(counts.polygons, 1);
    EXPECT_EQ(counts.lines, 1);
    EXPECT_EQ(counts.points, 0);
    for (const char* name : {"map.shp", "map.dbf", "map.shx", "map_lines.shp", "map_points.shp"})
        EXPECT_TRUE(fs::exists(dir / name)) << name;
    Dataset polygons = openVector(path("map.shp"));
    ASSERT_TRUE(polygons);
    EXPECT_EQ(polygons->GetLayer(0)->GetFeatureCount(), 1);

    ASSERT_TRUE(vorn::exportVectors(stabilityMap(), mapLayers(), {}, path("map.geojson"), counts, error)) << error;
    Dataset json = openVector(path("map.geojson"));
    ASSERT_TRUE(json);
    EXPECT_EQ(json->GetLayer(0)->GetFeatureCount(), 5);

    EXPECT_FALSE(vorn::exportVectors(stabilityMap(), mapLayers(), {}, path("map.kml"), counts, error));
    EXPECT_FALSE(vorn::exportVectors(stabilityMap(), mapLayers(), {}, path("none/map.gpkg"), counts, error));
    EXPECT_FALSE(fs::exists(dir / "none"));
}
