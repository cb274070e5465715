// Selection sets of the stand-alone database: modes, filters, visibility and
// the spatial index against a plain scan.
#include <random>

#include <gtest/gtest.h>

#include "host/db_database.h"
#include "host/select_filter.h"

namespace vorn::host {
namespace {

class SelectTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const char* name : {"Pillars", "Entries", "Hidden", "Frozen"}) {
            LayerRecord layer;
            layer.name = name;
            layer.off = std::string(name) == "Hidden";
            layer.frozen = std::string(name) == "Frozen";
            ObjectId id;
            db.addLayer(layer, id);
        }
        db.registerApplication("RFRI_QRL_TOVAX_APPLICATION");
        pillar = add("Pillars", box(0, 0, 10, 10, true));
        entry = add("Entries", box(20, 0, 30, 0, false));
        hidden = add("Hidden", box(0, 0, 5, 5, true));
        frozen = add("Frozen", box(0, 0, 5, 5, true));
        Entity point{{}, PointEntity{{50, 50, 0}}};
        setXData(point.common, {ResultItem::ofText(1001, "RFRI_QRL_TOVAX_APPLICATION"), ResultItem::ofText(1000, "x")});
        survey = add("Entries", point);
        Entity invisibleLine{{}, Line{{1, 1, 0}, {2, 2, 0}}};
        invisibleLine.common.visible = false;
        invisible = add("Pillars", invisibleLine);
    }

    static LwPolyline box(double x0, double y0, double x1, double y1, bool closed)
    {
        LwPolyline pl;
        pl.vertices = {{{x0, y0}}, {{x1, y0}}, {{x1, y1}}, {{x0, y1}}};
        if (!closed) pl.vertices = {{{x0, y0}}, {{x1, y1}}};
        pl.closed = closed;
        return pl;
    }

    ObjectId add(const std::string& layer, LwPolyline shape) { return add(layer, Entity{{}, std::move(shape)}); }

    ObjectId add(const std::string& layer, Entity e)
    {
        e.common.layer = layer;
        ObjectId id;
        EXPECT_EQ(db.appendToModelSpace(e, id), eOk);
        return id;
    }

    std::vector<ObjectId> select(SelectMode mode, std::vector<Point2d> points, ResultBuffer filter = {})
    {
        return db.select({mode, std::move(points), std::move(filter)});
    }

    HostDatabase db;
    ObjectId pillar, entry, hidden, frozen, survey, invisible;
};

TEST_F(SelectTest, AllSeesEveryEntityCrossingOnlyVisibleOnes)
{
    EXPECT_EQ(select(SelectMode::All, {}).size(), 6u);
    EXPECT_EQ(select(SelectMode::All, {}, {ResultItem::ofText(8, "Hidden,FROZEN")}), (std::vector<ObjectId>{hidden, frozen}));
    EXPECT_EQ(select(SelectMode::Crossing, {{-1, -1}, {3, 3}}), std::vector<ObjectId>{pillar});
    EXPECT_EQ(select(SelectMode::CrossingPolygon, {{-1, -1}, {3, -1}, {3, 3}}), std::vector<ObjectId>{pillar});
}

TEST_F(SelectTest, WindowTakesWhollyInsideCrossingAlsoWhatCrosses)
{
    // The window crosses the pillar's right edge and holds the entry whole.
    std::vector<Point2d> corners{{5, -1}, {31, 1}};
    EXPECT_EQ(select(SelectMode::Window, corners), std::vector<ObjectId>{entry});
    EXPECT_EQ(select(SelectMode::Crossing, corners), (std::vector<ObjectId>{pillar, entry}));
    // Corners in any order.
    EXPECT_EQ(select(SelectMode::Crossing, {{31, 1}, {5, -1}}), (std::vector<ObjectId>{pillar, entry}));
    // A window inside a closed pillar touches nothing of it.
    EXPECT_TRUE(select(SelectMode::Crossing, {{4, 4}, {6, 6}}).empty());
    std::vector<Point2d> triangle{{-5, -5}, {40, -5}, {-5, 40}};
    EXPECT_EQ(select(SelectMode::WindowPolygon, triangle), (std::vector<ObjectId>{pillar, entry}));
    std::vector<Point2d> sliver{{9, -5}, {12, -5}, {12, 20}};
    EXPECT_EQ(select(SelectMode::CrossingPolygon, sliver), std::vector<ObjectId>{pillar});
    EXPECT_TRUE(select(SelectMode::WindowPolygon, sliver).empty());
    EXPECT_TRUE(select(SelectMode::Crossing, {{0, 0}}).empty());
}

TEST_F(SelectTest, FiltersOnTypeLayerAndApplication)
{
    EXPECT_EQ(select(SelectMode::All, {}, {ResultItem::ofText(8, "pillars"), ResultItem::ofText(0, "LWPOLYLINE,POLYLINE")}), std::vector<ObjectId>{pillar});
    EXPECT_EQ(select(SelectMode::All, {}, {ResultItem::ofText(0, "POINT,LINE,LWPOLYLINE,POLYLINE"), ResultItem::ofText(8, "Entries")}),
              (std::vector<ObjectId>{entry, survey}));
    EXPECT_EQ(select(SelectMode::All, {}, {ResultItem::ofText(8, "P*")}), (std::vector<ObjectId>{pillar, invisible}));
    EXPECT_EQ(select(SelectMode::All, {}, {ResultItem::ofText(-3, ""), ResultItem::ofText(1001, "RFRI_QRL_TOVAX_APPLICATION")}),
              std::vector<ObjectId>{survey});
    EXPECT_TRUE(select(SelectMode::All, {}, {ResultItem::ofText(-3, ""), ResultItem::ofText(1001, "OTHER")}).empty());
    EXPECT_TRUE(select(SelectMode::All, {}, {ResultItem::ofReal(40, 1.0)}).empty());  // unknown code
}

TEST_F(SelectTest, PicksComeNearestFirstIndexFollowsMovesAndErasures)
{
    ObjectId near = add("Entries", box(0, 10.5, 10, 10.5, false));
    EXPECT_EQ(db.entitiesNear({5, 10.4}, 0.5), (std::vector<ObjectId>{near, pillar}));
    EXPECT_EQ(db.entitiesNear({5, 9.8}, 0.3), std::vector<ObjectId>{pillar});
    EXPECT_TRUE(db.entitiesNear({5, 5}, 1.0).empty());
    EXPECT_EQ(db.entitiesNear({50.1, 50}, 0.2), std::vector<ObjectId>{survey});
    // The index follows moves and erasures.
    Entity e;
    db.readEntity(pillar, e);
    e.shape = box(100, 100, 110, 110, true);
    ASSERT_EQ(db.writeEntity(e), eOk);
    EXPECT_TRUE(select(SelectMode::Crossing, {{-1, -1}, {3, 3}}).empty());
    EXPECT_EQ(select(SelectMode::Window, {{99, 99}, {111, 111}}), std::vector<ObjectId>{pillar});
    db.erase(pillar);
    EXPECT_TRUE(select(SelectMode::Window, {{99, 99}, {111, 111}}).empty());
}

TEST_F(SelectTest, AreaKindsAreFoundByTheirOutlines)
{
    Hatch hatch;
    hatch.loops = {{1, {{100, 0}, {110, 0}, {110, 10}, {100, 10}}, {}}};
    Region region;
    region.faces = {{{{120, 0}, {130, 0}, {130, 10}, {120, 10}}, {}}};
    Solid solid;
    solid.corners[0] = {140, 0, 0}, solid.corners[1] = {150, 0, 0}, solid.corners[2] = {140, 10, 0}, solid.corners[3] = {150, 10, 0};
    ObjectId hatchId = add("Pillars", Entity{{}, hatch});
    ObjectId regionId = add("Pillars", Entity{{}, region});
    ObjectId solidId = add("Pillars", Entity{{}, solid});
    ObjectId textId = add("Pillars", Entity{{}, Text{{160, 0, 0}, 2.0, 0.0, "P1"}});
    EXPECT_EQ(select(SelectMode::Window, {{99, -1}, {170, 11}}), (std::vector<ObjectId>{hatchId, regionId, solidId, textId}));
    // A fence-like crossing line through the right halves.
    EXPECT_EQ(select(SelectMode::CrossingPolygon, {{108, 1}, {161, 1}, {161, 1.5}}), (std::vector<ObjectId>{hatchId, regionId, solidId, textId}));
    EXPECT_EQ(select(SelectMode::Crossing, {{145, 4}, {146, 6}}), std::vector<ObjectId>{});  // inside the solid, touching no edge
    EXPECT_EQ(db.entitiesNear({150, 5}, 0.1), std::vector<ObjectId>{solidId});
}

TEST(SelectWildcards, PatternsAndLists)
{
    EXPECT_TRUE(wildcardMatch("VORN_*", "vorn_working_layer"));
    EXPECT_TRUE(wildcardMatch("L?NE", "LINE"));
    EXPECT_TRUE(wildcardMatch("Seam#", "Seam3"));
    EXPECT_FALSE(wildcardMatch("Seam#", "SeamX"));
    EXPECT_TRUE(wildcardMatch("~Pillars", "Entries"));
    EXPECT_TRUE(wildcardMatch("A`*B", "A*B"));
    EXPECT_FALSE(wildcardMatch("A`*B", "AxB"));
    EXPECT_TRUE(matchesPatternList("LWPOLYLINE,LINE", "line"));
    EXPECT_FALSE(matchesPatternList("LWPOLYLINE,LINE", "POLYLINE"));
}

// The index answers as a scan of every entity would.
TEST(SelectIndex, AgreesWithAPlainScan)
{
    HostDatabase db;
    std::mt19937 random(7);
    std::uniform_real_distribution<double> at(0.0, 1000.0), size(0.5, 30.0);
    std::vector<ObjectId> ids;
    std::vector<std::array<double, 4>> boxes;
    for (int k = 0; k < 2000; ++k) {
        double x = at(random), y = at(random), w = size(random), h = size(random);
        Entity e{{}, LwPolyline{{{{x, y}}, {{x + w, y}}, {{x + w, y + h}}, {{x, y + h}}}, true, 0.0, 0.0}};
        ObjectId id;
        db.appendToModelSpace(e, id);
        ids.push_back(id);
        boxes.push_back({x, y, x + w, y + h});
    }
    for (int q = 0; q < 20; ++q) {
        double x0 = at(random), y0 = at(random), x1 = x0 + size(random) * 5, y1 = y0 + size(random) * 5;
        std::vector<ObjectId> inside, crossing;
        for (std::size_t k = 0; k < ids.size(); ++k) {
            const auto& b = boxes[k];
            if (b[0] >= x0 && b[2] <= x1 && b[1] >= y0 && b[3] <= y1) inside.push_back(ids[k]);
            bool apart = b[2] < x0 || b[0] > x1 || b[3] < y0 || b[1] > y1;
            bool encloses = b[0] < x0 && b[2] > x1 && b[1] < y0 && b[3] > y1;
            if (!apart && !encloses) crossing.push_back(ids[k]);
        }
        EXPECT_EQ(db.select({SelectMode::Window, {{x0, y0}, {x1, y1}}, {}}), inside);
        EXPECT_EQ(db.select({SelectMode::Crossing, {{x0, y0}, {x1, y1}}, {}}), crossing);
    }
}

}  // namespace
}  // namespace vorn::host
