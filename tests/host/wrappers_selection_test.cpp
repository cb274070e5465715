#include <gtest/gtest.h>

#include "drawing/layers.h"
#include "drawing/selection.h"
#include "wrappers_fixture.h"

namespace vorn {
namespace {

class SelectionWrappers : public ScriptedHost {};

TEST_F(SelectionWrappers, TwoPointsCrossThePrintedWindowAnEmptyLayerStringNothing)
{
    addSquare("Pillars", 0, 0);
    SelectionSet set;
    run([&] { EXPECT_EQ(selectByLayer(set, "", {{0, 0}, {5, 5}}, ""), 0); });
    EXPECT_TRUE(set.ids.empty());
    EXPECT_EQ(transcript(), "");
    // Two points cross the printed window.
    addSquare("Pillars", 100, 100);
    addSquare("Gob", 5, 5);
    long count = 0;
    run([&] { count = selectByLayer(set, "Pillars", {{5, 5}, {20, 20}}, kPolylineTypes); });
    EXPECT_EQ(count, 1);
    EXPECT_EQ(transcript(), "\nPoint No 0, X = 5.000000, Y = 5.000000\nPoint No 1, X = 20.000000, Y = 20.000000");
}

TEST_F(SelectionWrappers, PolygonPointsAfterTheFirstArePrintedTwice)
{
    addSquare("Pillars", 0, 0);
    SelectionSet set;
    EXPECT_EQ(run([&] { EXPECT_EQ(selectByLayer(set, "Pillars", {{-1, -1}, {5, -1}, {5, 5}}, ""), 1); }), 0);
    EXPECT_EQ(transcript(),
              "\nPoint No 0, X = -1.000000, Y = -1.000000\nPoint No 1, X = 5.000000, Y = -1.000000"
              "\nPoint No 2, X = 5.000000, Y = 5.000000\nPoint No 1, X = 5.000000, Y = -1.000000"
              "\nPoint No 2, X = 5.000000, Y = 5.000000");
}

TEST_F(SelectionWrappers, TypeFilterAndLayerListsWithoutPoints)
{
    addSquare("A", 0, 0);
    addSquare("B", 50, 0);
    ObjectId line;
    run([&] { addLine(line, {0, 0, 0}, {1, 1, 0}, 2, "A"); });
    std::vector<ObjectId> ids;
    run([&] {
        EXPECT_EQ(selectIdsByLayer(ids, "A,B", kPolylineTypes), 2);
        EXPECT_EQ(selectIdsByLayer(ids, "A", ""), 2);
        EXPECT_EQ(selectIdsByLayer(ids, "A", "POINT"), 0);
    });
    EXPECT_TRUE(ids.empty());
}

TEST_F(SelectionWrappers, CrossingSeesOnlyVisibleLayersUntilRestored)
{
    addSquare("Keep", 0, 0);
    addSquare("Hide", 2, 2);
    std::vector<std::string> turnedOff;
    run([&] {
        isolateLayers({"Keep"}, turnedOff);
        std::vector<ObjectId> ids;
        EXPECT_EQ(selectIdsInWindow(ids, "Keep,Hide", {{-1, -1}, {3, 3}}, ""), 1);
        EXPECT_EQ(selectIdsByLayer(ids, "Hide", ""), 1);  // "X" sees hidden objects
        EXPECT_EQ(visibleLayerNames(), (std::vector<std::string>{"Keep"}));
        restoreLayers(turnedOff);
        EXPECT_EQ(selectIdsInWindow(ids, "Keep,Hide", {{-1, -1}, {3, 3}}, ""), 2);
    });
    EXPECT_EQ(turnedOff, (std::vector<std::string>{"0", "Hide"}));
}

TEST_F(SelectionWrappers, ClearLayerObjectsTakesEveryKind)
{
    addSquare("Work", 0, 0);
    ObjectId point;
    run([&] {
        addPoint(point, {1, 1, 0}, 3, "Work");
        clearLayerObjects("Work");
        std::vector<ObjectId> ids;
        EXPECT_EQ(selectIdsByLayer(ids, "Work", ""), 0);
    });
    EXPECT_TRUE(database().isErased(point));
    // Sets and ids copy without nulls or repeats.
    ObjectId a = addSquare("A", 0, 0);
    SelectionSet set;
    idsToSelection({a, ObjectId{}, a}, set);
    EXPECT_EQ(set.ids, (std::vector<ObjectId>{a}));
    std::vector<ObjectId> ids{ObjectId{99}};
    selectionToIds(set, ids);
    EXPECT_EQ(ids, (std::vector<ObjectId>{a}));
}

TEST_F(SelectionWrappers, LayerKeywordOfAnInteractiveSelection)
{
    ObjectId pillar = addSquare("Pillars", 0, 0);
    addSquare("Gob", 50, 0);
    answer("SL\nE\npick 0,5\npick 500,500\n");
    int status = 0;
    SelectionSet set;
    run([&] {
        acedSSSetKwordCallbackPtr(layerInputCallback);
        InteractiveSelection request;
        request.keywords = "SLayer";
        status = acedSSGet(":K", {}, {}, set, &request);
    });
    EXPECT_EQ(status, RTNORM);
    EXPECT_EQ(set.ids, (std::vector<ObjectId>{pillar}));
    EXPECT_NE(transcript().find("[<Input Layer Name>/Extract from object]:E\n"), std::string::npos) << transcript();
    EXPECT_NE(transcript().find("\nSelcted Layers: Pillars"), std::string::npos) << transcript();
}

TEST_F(SelectionWrappers, InteractiveSelectionHonoursItsFilter)
{
    addSquare("Pillars", 0, 0);
    ObjectId gob = addSquare("Gob", 50, 0);
    answer("select window -1,-1 100,100\n<enter>\n");
    SelectionSet set;
    int status = 0;
    run([&] {
        status = acedSSGet("", {}, {ResultItem::ofText(8, "Gob")}, set);
        EXPECT_EQ(set.ids, (std::vector<ObjectId>{gob}));
        EXPECT_EQ(acedSSGet("", {}, {}, set), RTERROR);
    });
    EXPECT_EQ(status, RTNORM);
}

}  // namespace
}  // namespace vorn
