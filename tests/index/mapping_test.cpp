// The union of regions by colour and the panel "Mapping Stability Index on
// Entries" driven by scripts over a drawing with pillars.
#include <gtest/gtest.h>

#include <cmath>

#include "../shell/cmd_scripted.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/lattice_union.h"
#include "drawing/region_merge.h"
#include "host/db_database.h"
#include "index_test_util.h"

namespace {

using vorn::Entity;
using vorn::ObjectId;
using vorn::host::HostDatabase;

vorn::Region square(double x, double y, double side)
{
    vorn::Region region;
    region.faces.push_back({{{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}}, {}});
    return region;
}

ObjectId addRegion(HostDatabase& db, const vorn::Region& region, int color)
{
    Entity entity;
    entity.shape = region;
    entity.common.colorIndex = color;
    ObjectId id;
    db.appendToModelSpace(entity, id);
    return id;
}

double areaOf(HostDatabase& db, ObjectId id)
{
    Entity entity;
    double area = 0.0;
    if (db.readEntity(id, entity) == vorn::eOk) db.getArea(entity, area);
    return area;
}

// The union as the system has always formed it: each region of a colour
// into the first of that colour, one at a time.
std::vector<ObjectId> mergeOneAtATime(HostDatabase& db, std::vector<ObjectId> ids)
{
    for (size_t a = 0; a < ids.size(); ++a) {
        Entity first;
        db.readEntity(ids[a], first);
        for (size_t b = ids.size(); b-- > a + 1;) {
            Entity other;
            db.readEntity(ids[b], other);
            if (other.common.colorIndex != first.common.colorIndex) continue;
            db.booleanOper(first, vorn::BoolOperType::Union, other);
            db.writeEntity(other);
            ids.erase(ids.begin() + static_cast<long>(b));
        }
        db.writeEntity(first);
    }
    return ids;
}

}  // namespace

TEST(MergeRegionsByColor, CoversWhatUnitingOneAtATimeCoversAndKeepsTheEmptiedInTheDrawing)
{
    // A checkerboard of 6 x 5 squares in three colours, with a gap and a
    // square apart, as two drawings: one merged each way.
    HostDatabase fast, reference;
    std::vector<ObjectId> fastIds, referenceIds;
    for (int i = 0; i < 6; ++i) {
        for (int j = 0; j < 5; ++j) {
            if (i == 2 && j == 2) continue;
            int color = 1 + (i + 2 * j) % 3;
            fastIds.push_back(addRegion(fast, square(i * 10.0, j * 10.0, 10.0), color));
            referenceIds.push_back(addRegion(reference, square(i * 10.0, j * 10.0, 10.0), color));
        }
    }
    fastIds.push_back(addRegion(fast, square(200, 200, 5), 2));
    referenceIds.push_back(addRegion(reference, square(200, 200, 5), 2));
    size_t entities = fast.modelSpace().size();

    vorn::ScopedPlatform platform({&fast, nullptr, nullptr, nullptr});
    mergeRegionsByColor(fastIds);
    referenceIds = mergeOneAtATime(reference, referenceIds);

    ASSERT_EQ(fastIds.size(), 3u);
    ASSERT_EQ(fastIds.size(), referenceIds.size());
    for (size_t k = 0; k < fastIds.size(); ++k) {
        EXPECT_EQ(fastIds[k], referenceIds[k]);
        EXPECT_NEAR(areaOf(fast, fastIds[k]), areaOf(reference, referenceIds[k]), 1e-9);
    }
    EXPECT_NEAR(areaOf(fast, fastIds[0]) + areaOf(fast, fastIds[1]) + areaOf(fast, fastIds[2]), 29 * 100.0 + 25.0, 1e-9);
    EXPECT_EQ(fast.modelSpace().size(), entities);
    EXPECT_EQ(areaOf(fast, fast.modelSpace()[3]), 0.0);
}

// A lattice of 9 x 7 cells in three labels with cells meeting at corners,
// holes and a hole in a hole, united in one pass and one cell at a time.
TEST(UniteLatticeCells, CoversWhatUnitingTheCellsOneAtATimeCovers)
{
    const int nx = 9, ny = 7;
    std::vector<std::int32_t> labels(nx * ny);
    for (int i = 0; i < nx; ++i)
        for (int j = 0; j < ny; ++j) labels[i * ny + j] = (i * 7 + j * 3 + (i * j) % 5) % 3;
    labels[4 * ny + 3] = 5;  // a hole of its own in the middle
    HostDatabase db;
    auto node = [](int i, int j) { return vorn::Point2d{10.0 + 2.0 * i, -5.0 + 3.0 * j}; };
    for (std::int32_t label : {0, 1, 2, 5}) {
        vorn::Region fast = uniteLatticeCells(nx, ny, labels, label, node);
        Entity united;
        united.shape = vorn::Region{};
        int cells = 0;
        for (int i = 0; i < nx; ++i) {
            for (int j = 0; j < ny; ++j) {
                if (labels[i * ny + j] != label) continue;
                ++cells;
                Entity cell;
                cell.shape = square(0, 0, 1);
                auto& ring = std::get<vorn::Region>(cell.shape).faces[0].outer;
                ring = {node(i, j), node(i + 1, j), node(i + 1, j + 1), node(i, j + 1)};
                if (std::get<vorn::Region>(united.shape).faces.empty()) united = cell;
                else db.booleanOper(united, vorn::BoolOperType::Union, cell);
            }
        }
        Entity fastEntity;
        fastEntity.shape = fast;
        double fastArea = 0, slowArea = 0;
        db.getArea(fastEntity, fastArea);
        db.getArea(united, slowArea);
        EXPECT_NEAR(fastArea, cells * 6.0, 1e-9) << label;
        EXPECT_NEAR(fastArea, slowArea, 1e-9) << label;
        Entity difference = fastEntity;
        Entity slowCopy = united;
        db.booleanOper(difference, vorn::BoolOperType::Subtract, slowCopy);
        double left = 0;
        db.getArea(difference, left);
        EXPECT_NEAR(left, 0.0, 1e-9) << label;
    }
    EXPECT_TRUE(uniteLatticeCells(nx, ny, labels, 9, node).faces.empty());
}

// ---- the panel

namespace {

class MappingPanel : public indextest::ScratchDir {
protected:
    void SetUp() override
    {
        ScratchDir::SetUp();
        // 4 x 3 cells of 10 from the origin, valued i + 4j: mean 5.5 ... the
        // mean of the cells is (0 + ... + 11) / 12 = 5.5.
        indextest::writeGrid(path("index.grd"), 4, 3, 10, 0, 0, [](int i, int j) { return i + 4.0 * j; });
    }

    // A drawing with a pillar of exactly one cell (10,0)-(20,10) and an open
    // pillar line across the grid, both on "Pillars".
    std::unique_ptr<HostDatabase> plan(const std::string& current = "0")
    {
        auto db = std::make_unique<HostDatabase>();
        ObjectId layerId;
        for (const char* name : {"Pillars", "VORN_Working_Layer"}) {
            vorn::LayerRecord layer;
            layer.name = name;
            db->addLayer(layer, layerId);
        }
        db->setCurrentLayer(current);
        auto add = [&db](std::vector<vorn::Point2d> points, bool closed) {
            Entity e;
            vorn::LwPolyline pl;
            for (const auto& p : points) pl.vertices.push_back({p});
            pl.closed = closed;
            e.shape = pl;
            e.common.layer = "Pillars";
            ObjectId id;
            db->appendToModelSpace(e, id);
        };
        add({{10, 0}, {20, 0}, {20, 10}, {10, 10}}, true);
        add({{-5, 15}, {45, 15}}, false);
        return db;
    }

    std::string run(const std::string& script, std::unique_ptr<HostDatabase> db)
    {
        ScriptedApp app(script, std::move(db));
        app.run("vorn_indexMapping");
        error = app.scriptError();
        entities = app.entityCount();
        return app.transcript();
    }
    std::string start(const std::string& filter = "")
    {
        return "press \"Pick the file\"\nfile " + path("index.grd") + "\nchoose \"Pillar Layer List\" Pillars\n" + filter +
               "press \"< &Analyze ...\"\n<enter>\nYes\n";
    }

    std::string error;
    size_t entities = 0;
};

}  // namespace

TEST_F(MappingPanel, FilterAndPillarsCutNothingAndEscAtSaveKeepsTheRegions)
{
    std::string t = run(start("check \"Larger than\" on\n") + "No\npress \"&Hatch\"\n<enter>\n<esc>\n" +
                            "press \"E&xit\"\nbox no\n",
                        plan());
    EXPECT_EQ(error, "");
    EXPECT_TRUE(contains(t, "\nFiltering out grid cells with value not larger than 5.500000")) << t;
    EXPECT_TRUE(contains(t, "\n2 Pillar objects from: Pillars"));
    EXPECT_TRUE(contains(t, "There are open pillar lines, treat as closed pillar?"));
    EXPECT_TRUE(contains(t, "\n12 regions are constructed!"));
    EXPECT_TRUE(contains(t, "\n12 hatchs are created, save it?"));
    EXPECT_TRUE(contains(t, "Some new regions do not hatched! Do you want to erase these regions?"));
    EXPECT_EQ(entities, 2u + 12u) << "the hatches are erased, the regions stay";
}

TEST_F(MappingPanel, NoKeepsTheFirstRegionsAndASecondAnalyzeAddsToThem)
{
    std::string t = run(start() + "No\npress \"< &Analyze ...\"\nbox no\n<enter>\nYes\nNo\n" +
                            "press \"E&xit\"\nbox yes\n",
                        plan());
    EXPECT_EQ(error, "");
    EXPECT_TRUE(contains(t, "There have been 12 regions in new region collection!")) << t;
    EXPECT_TRUE(contains(t, "static \"Status\" = \"Total 24 hatch regions are ready!\""));
    EXPECT_EQ(entities, 2u) << "Yes at Exit erases the regions";
}

TEST_F(MappingPanel, CombinedRegionsHatchThroughTheDrawingCommandOnePerColour)
{
    std::string t = run(start() + "Yes\n<enter>\npress \"&Hatch\"\n<enter>\nYes\npress \"E&xit\"\n", plan());
    EXPECT_EQ(error, "");
    size_t reduced = t.find("\nThe number of regions reduced to ");
    ASSERT_NE(reduced, std::string::npos) << t;
    int colours = std::atoi(t.c_str() + reduced + 34);
    EXPECT_GE(colours, 2);
    EXPECT_TRUE(contains(t, vorn::formatString("\n%d hatchs are created, save it?", colours)));
    EXPECT_EQ(entities, 2u + 2u * static_cast<size_t>(colours)) << "a region and a hatch per colour";
}

TEST_F(MappingPanel, TheThresholdIsTheMeanAsDisplayedAndTheWorkingLayerIsLeft)
{
    indextest::writeGrid(path("index.grd"), 3, 3, 10, 0, 0, [](int i, int j) { return (i == 0 && j == 0) ? 1.0 : 0.0; });
    std::string t = run("press \"Pick the file\"\nfile " + path("index.grd") + "\ncheck \"Small than\" on\ncancel\n",
                        plan("VORN_Working_Layer"));
    EXPECT_TRUE(contains(t, "edit \"Threshold:\" = \"0.1111\"")) << t;
    EXPECT_TRUE(contains(t, "combo \"Mapping Layer:\" = \"0\""));
}
