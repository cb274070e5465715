// The polyline utility commands run through scripts on small drawings,
// checked on the transcript and on the drawing saved as DXF.
#include <gtest/gtest.h>

#include "polyline_fixture.h"

using namespace polyline_test;

namespace {

const char* const kBanner = "\nVornmark Modules' Polyline Utility";

std::vector<bool> closedFlags(const Outcome& out)
{
    std::vector<bool> flags;
    for (const Entity& e : out.entities(EntityKind::LwPolyline)) flags.push_back(e.as<LwPolyline>()->closed);
    return flags;
}

}  // namespace

TEST(CheckClosedPolylines, ClosesTheOpenPolylinesOfEveryKindOnYesOnly)
{
    struct Case {
        const char* script;
        std::vector<std::string> shown;
        std::vector<bool> closedAfter;  // the two lightweight polylines
    };
    const Case cases[] = {
        {"select all\n<enter>\n",
         {" 2 objects (in total 4) are not closed polylines!\n\r Do you want to close these polylines? [No/<Yes>]:",
          "\n2 polylines are made closed"},
         {true, true}},
        {"select all\nNo\n", {" 2 objects (in total 4) are not closed polylines!"}, {false, true}},
    };
    for (const Case& c : cases) {
        PolylineDrawing drawing;
        drawing.add(square(0, 0, 10, false));
        drawing.add(square(20, 0, 10, true));
        drawing.add(Polyline3d{{{{50, 0, 1}}, {{60, 0, 2}}, {{60, 10, 3}}}, false});
        drawing.add(Line{{0, 30, 0}, {10, 30, 0}});
        Outcome out = drawing.run("vorn_checkClosedPolylines", c.script);
        EXPECT_TRUE(out.shows(kBanner));
        EXPECT_TRUE(out.shows("\nThis command checks non-closed polylines and trys to make them closed."));
        for (const std::string& text : c.shown) EXPECT_TRUE(out.shows(text)) << c.script << out.transcript;
        EXPECT_EQ(closedFlags(out), c.closedAfter) << c.script;
        EXPECT_EQ(out.entities(EntityKind::Polyline3d).front().as<Polyline3d>()->closed, c.closedAfter[0]);
        EXPECT_TRUE(out.highlighted.empty());
    }
}

TEST(CheckClosedPolylines, NothingOpenNothingSelectedAndLockedLayers)
{
    PolylineDrawing allClosed;
    allClosed.add(square(0, 0, 10));
    EXPECT_TRUE(allClosed.run("vorn_checkClosedPolylines", "select all\n").shows("\nAll selected polylines are closed"));

    PolylineDrawing empty;
    empty.add(square(0, 0, 10));
    Outcome none = empty.run("vorn_checkClosedPolylines", "<enter>\n");
    EXPECT_TRUE(none.shows("\n No Objects selectes"));
    EXPECT_EQ(none.count(), 1u);

    // A polyline on a locked layer cannot be closed and is not counted.
    PolylineDrawing locked;
    locked.layer("Locked", true);
    locked.add(square(0, 0, 10, false), "Locked");
    locked.add(square(20, 0, 10, false));
    Outcome out = locked.run("vorn_checkClosedPolylines", "select all\nYes\n");
    EXPECT_TRUE(out.shows(" 2 objects (in total 2)")) << out.transcript;
    EXPECT_TRUE(out.shows("\n1 polylines are made closed"));
    EXPECT_EQ(closedFlags(out), (std::vector<bool>{false, true}));
}

TEST(JoinPolylines, ConvertsHeavyPolylinesAndFlatLinesThenJoinsTheEnds)
{
    PolylineDrawing drawing;
    drawing.add(lw({{0, 0}, {10, 0}}, false));
    drawing.add(lw({{10, 0}, {10, 10}}, false));
    // A heavy 2-D polyline continuing the chain, and a closed one left out.
    drawing.add(Polyline2d{{{{10, 10, 0}}, {{0, 10, 0}}}, false});
    drawing.add(Polyline2d{{{{50, 0, 0}}, {{60, 0, 0}}, {{60, 10, 0}}}, true});
    drawing.add(Line{{0, 10, 0}, {0, 20, 0}});
    drawing.add(Line{{100, 0, 0}, {110, 0, 5}});  // sloped: stays a line
    drawing.add(square(200, 0, 5));              // closed: left out
    Outcome out = drawing.run("vorn_joinPolylines", "select all\nYes\n<enter>\n<enter>\n");
    EXPECT_TRUE(out.shows("\nThis command trys to join the polylines(lines) objects as many as possible"));
    EXPECT_TRUE(out.shows("Convert Line to Polyline? [No/<Yes>]:")) << out.transcript;
    EXPECT_TRUE(out.shows("\n 1 Lines are converted to Polylines."));
    EXPECT_TRUE(out.shows(" 4 objects (in total 7) are not closed polylines!\n\r Do you want to join these polylines?"));
    EXPECT_TRUE(out.shows("\n 3 polylines have been joined"));
    EXPECT_TRUE(out.shows("\n <Enter> to continue ..."));

    std::vector<Entity> lws = out.entities(EntityKind::LwPolyline);
    ASSERT_EQ(lws.size(), 2u);  // the closed square and the joined chain
    std::vector<Point2d> chain;
    for (const PolyVertex& v : lws[0].as<LwPolyline>()->vertices) chain.push_back(v.point);
    // Each meeting vertex stands twice.
    EXPECT_EQ(chain, (std::vector<Point2d>{{0, 0}, {10, 0}, {10, 0}, {10, 10}, {10, 10}, {0, 10}, {0, 10}, {0, 20}}))
        << "order of the joins";
    EXPECT_EQ(out.entities(EntityKind::Polyline2d).size(), 1u);
    EXPECT_TRUE(out.entities(EntityKind::Polyline2d).front().as<Polyline2d>()->closed);
    EXPECT_EQ(out.entities(EntityKind::Line).size(), 1u);
    EXPECT_TRUE(out.highlighted.empty());
}

TEST(JoinPolylines, CancelAtTheLineQuestionAndLockedPolylinesLoseNothing)
{
    PolylineDrawing cancelled;
    cancelled.add(lw({{0, 0}, {10, 0}}, false));
    cancelled.add(Line{{10, 0, 0}, {10, 10, 0}});
    Outcome out = cancelled.run("vorn_joinPolylines", "select all\n<esc>\n");
    EXPECT_FALSE(out.shows("Do you want to join"));
    EXPECT_EQ(out.entities(EntityKind::Line).size(), 1u);
    EXPECT_EQ(out.entities(EntityKind::LwPolyline).size(), 1u);

    // A polyline on a locked layer stays as it is, and so does its partner.
    PolylineDrawing locked;
    locked.layer("Locked", true);
    locked.add(lw({{0, 0}, {10, 0}}, false), "Locked");
    locked.add(lw({{10, 0}, {10, 10}}, false));
    locked.add(Polyline2d{{{{20, 0, 0}}, {{30, 0, 0}}}, false}, "Locked");
    Outcome kept = locked.run("vorn_joinPolylines", "select all\nYes\n<enter>\n");
    EXPECT_TRUE(kept.shows(" 1 objects (in total 3)")) << kept.transcript;
    EXPECT_TRUE(kept.shows("\n 0 polylines have been joined"));
    EXPECT_EQ(kept.entities(EntityKind::LwPolyline).size(), 2u);
    EXPECT_EQ(kept.entities(EntityKind::Polyline2d).size(), 1u);
}

TEST(CheckOverlaps, HullsOverlapConcaveBaysCountTouchingDoesNot)
{
    PolylineDrawing drawing;
    // An L-shaped pillar and a square in its bay, which its hull covers.
    drawing.add(lw({{0, 0}, {20, 0}, {20, 5}, {5, 5}, {5, 20}, {0, 20}}, true));
    drawing.add(square(10, 10, 4));
    drawing.add(square(100, 0, 10));
    drawing.add(square(110, 0, 10));  // touches the one before along an edge
    drawing.add(square(200, 0, 10));
    drawing.add(square(205, 5, 10));  // overlaps the one before
    drawing.add(square(300, 0, 10, false));  // open: not checked
    drawing.add(lw({{400, 0}}, true));                      // one vertex
    drawing.add(lw({{400, 0}, {410, 10}, {410, 0}, {400, 10}}, true));  // a bow tie around it
    Outcome out = drawing.run("vorn_checkOverlaps", "select all\n<enter>\n<enter>\n");
    EXPECT_TRUE(out.shows("\nThis command check all selected objects and find overlaped close polylines."));
    EXPECT_TRUE(out.shows("\n 8 objects (Total 9) are closed polylines and will being cross checked!\n <Enter> to continue ..."));
    EXPECT_TRUE(out.shows("\n Processing polylines, please waiting..."));
    EXPECT_TRUE(out.shows("\n4 polylines may overlapped!")) << out.transcript;
    EXPECT_TRUE(out.highlighted.empty());

    PolylineDrawing apart;
    apart.add(square(0, 0, 10));
    apart.add(square(20, 0, 10));
    EXPECT_TRUE(apart.run("vorn_checkOverlaps", "select all\n<enter>\n").shows("\nNo polylines overlapped!"));
}

TEST(CheckDuplicates, FindsReversedCopiesAndMovesOrDeletesThem)
{
    struct Case {
        const char* answer;
        const char* shown;
        size_t onWorkingLayer;
        size_t polylines;
    };
    const Case cases[] = {
        {"Move\n", "\n1 duplicate polyline are moved to layer.", 1, 3},
        {"Delete\n", "\n1 duplicate polyline are removed.", 0, 2},
        {"<enter>\n", "[Move to working layer/Delete/<Do nothing> ]:", 0, 3},
    };
    for (const Case& c : cases) {
        PolylineDrawing drawing;
        drawing.add(square(0, 0, 10));
        drawing.add(lw({{0, 10}, {10, 10}, {10, 0}, {0, 0}}, true));  // the same, reversed
        drawing.add(square(50, 0, 10));                               // same area, elsewhere
        Outcome out = drawing.run("vorn_checkDuplicates", std::string("select all\n") + c.answer);
        EXPECT_TRUE(out.shows("\nThis command check all selected objects and find duplicated close polylines."));
        EXPECT_TRUE(out.shows("\n 3 objects (Total 3) are closed polylines and will being cross checked!"));
        EXPECT_TRUE(out.shows("\n1 polylines may duplicated!")) << out.transcript;
        EXPECT_TRUE(out.shows(c.shown)) << c.answer << out.transcript;
        std::vector<Entity> lws = out.entities(EntityKind::LwPolyline);
        EXPECT_EQ(lws.size(), c.polylines);
        size_t working = 0;
        for (const Entity& e : lws) working += e.common.layer == "VORN_Working_Layer";
        EXPECT_EQ(working, c.onWorkingLayer) << c.answer;
        LayerRecord layer;
        EXPECT_TRUE(out.saved->findLayer("VORN_Working_Layer", layer));
        EXPECT_TRUE(out.highlighted.empty());
    }

    PolylineDrawing none;
    none.add(square(0, 0, 10));
    none.add(square(5, 0, 10));  // overlaps but is no duplicate
    // Bad outlines: one vertex, a zero-length edge, a self-crossing bow tie twice.
    none.add(lw({{50, 50}}, true));
    none.add(lw({{60, 60}, {60, 60}, {70, 60}, {70, 70}}, true));
    none.add(lw({{80, 0}, {90, 10}, {90, 0}, {80, 10}}, true));
    none.add(lw({{80, 0}, {90, 10}, {90, 0}, {80, 10}}, true));
    Outcome out = none.run("vorn_checkDuplicates", "select all\n");
    EXPECT_TRUE(out.shows("\nNo polylines are duplicated!")) << out.transcript;
    EXPECT_EQ(out.count(), 6u);
}

TEST(CheckContours, ValueLooksAtTheFirstVertexIntersectionAtDifferentElevations)
{
    auto contours = [] {
        PolylineDrawing drawing;
        drawing.add(lw({{0, 0}, {100, 0}}, false, 100.0));
        drawing.add(Polyline3d{{{{0, 50, 100}}, {{100, 50, 120}}}, false});  // starts at 100
        drawing.add(lw({{50, -10}, {50, 60}}, false, 110.0));             // crosses both
        drawing.add(lw({{0, 80}, {100, 80}}, false, 100.0));
        drawing.add(lw({{20, 70}, {20, 90}}, false, 100.0));  // crosses one of its own elevation
        return drawing;
    };
    Outcome value = contours().run("vorn_checkContours", "100\nselect all\n");
    EXPECT_TRUE(value.shows("\nThis module checks the intersection or specified elevation of contour lines!"));
    EXPECT_TRUE(value.shows("\n<Intersection>/[Input the elevation value]:<I>"));
    EXPECT_TRUE(value.shows("\nSelect objects to check value 100.000000 :\nSelect objects to check:"));
    EXPECT_TRUE(value.shows("\n 4 in 5 contours have elevation of 100.000000")) << value.transcript;
    EXPECT_EQ(value.highlighted.size(), 4u);  // the highlight stays

    for (const char* answer : {"<enter>\n", "I\n"}) {
        Outcome crossing = contours().run("vorn_checkContours", std::string(answer) + "select all\n");
        EXPECT_TRUE(crossing.shows("\nSelect objects to check intersection:")) << answer;
        EXPECT_TRUE(crossing.shows("\n 3 in 5 contours may intersected!")) << crossing.transcript;
        EXPECT_EQ(crossing.highlighted.size(), 3u);
    }
    Outcome cancelled = contours().run("vorn_checkContours", "<esc>\n");
    EXPECT_FALSE(cancelled.shows("Select objects to check:"));
}

TEST(CreatePolylineFromObjects, BuildsFromPicksInNearestOrder)
{
    struct Case {
        const char* name;
        const char* script;
        std::vector<Point2d> vertices;  // empty: nothing made
        bool closed = false;
        double elevation = 0.0;
    };
    const Case cases[] = {
        {"one line and Close", "pick 5,0\nClose\n", {{0, 0}, {10, 0}}, true},
        {"the second line reversed to meet the nearest end", "pick 5,0\npick 10,5\n<enter>\n",
         {{0, 0}, {10, 0}, {10, 0}, {10, 10}}},
        {"farthest end", "pick 5,0\nFarthest\npick 10,5\n<enter>\n", {{0, 0}, {10, 0}, {10, 10}, {10, 0}}},
        {"a zero-length line gives one point", "pick 5,0\npick 30,30\n<enter>\n", {{0, 0}, {10, 0}, {30, 30}}},
        {"reverse and elevation", "pick 5,0\nReverse\nElevation\n7.5\n<enter>\n", {{10, 0}, {0, 0}}, false, 7.5},
        {"undo takes the points out again", "pick 5,0\npick 10,5\nUndo\npick 10,5\n<enter>\n", {{0, 0}, {10, 0}}},
        {"a single point is no polyline", "pick 30,30\n<enter>\n", {}},
        {"cancel makes nothing", "pick 5,0\npick 10,5\n<esc>\n", {}},
        {"cancel at the elevation finishes", "pick 5,0\nElevation\n<esc>\n", {{0, 0}, {10, 0}}},
    };
    for (const Case& c : cases) {
        PolylineDrawing drawing;
        drawing.add(Line{{0, 0, 0}, {10, 0, 0}});
        // Reads from (10,10) down to (10,0): meets the first line at its end.
        drawing.add(Line{{10, 10, 0}, {10, 0, 0}});
        drawing.add(Line{{30, 30, 0}, {30, 30, 0}});
        Outcome out = drawing.run("vorn_createPolylineFromObjects", c.script);
        EXPECT_TRUE(out.shows("\nThis command creates a polyline from selected objects\nCurrent elevation is <0.000000>"));
        std::vector<Entity> made = out.entities(EntityKind::LwPolyline);
        EXPECT_EQ(out.entities(EntityKind::Line).size(), 3u) << c.name;  // the sources stay
        if (c.vertices.empty()) {
            EXPECT_TRUE(made.empty()) << c.name;
            continue;
        }
        ASSERT_EQ(made.size(), 1u) << c.name << out.transcript;
        const LwPolyline& pl = *made.front().as<LwPolyline>();
        std::vector<Point2d> vertices;
        for (const PolyVertex& v : pl.vertices) vertices.push_back(v.point);
        EXPECT_EQ(vertices, c.vertices) << c.name;
        EXPECT_EQ(pl.closed, c.closed) << c.name;
        EXPECT_EQ(pl.elevation, c.elevation) << c.name;
        EXPECT_EQ(made.front().common.colorIndex, kColorByLayer);
    }
}

TEST(ClearWorkingLayer, ClearsTheWorkingLayerOrTheLayersChosenInThePanel)
{
    struct Case {
        const char* name;
        const char* script;
        std::vector<std::string> shown;
        size_t left;
    };
    const Case cases[] = {
        {"enter takes the working layer", "<enter>\nbox ok\n",
         {"Remove all 2 objects in layer:<VORN_Working_Layer>! -> OK", "\n 2 objects in layer:<VORN_Working_Layer> are removed!"},
         3},
        {"cancel in the box keeps them", "W\nbox cancel\n", {"-> Cancel"}, 5},
        {"layers chosen by check box", "Select\ncheck \"A\" on\ncheck \"B\" on\nok\nbox ok\n",
         {"[panel \"Select Layers to Clear\" opens", "\n 2 objects in layer:<A,B> are removed!"}, 3},
        {"single choice keeps the last check", "S\ncheck \"Single Choice\" on\ncheck \"A\" on\ncheck \"B\" on\nok\nbox ok\n",
         {"\n 1 objects in layer:<B> are removed!"}, 4},
        {"pick layer checks the picked object's layer", "S\npress \"<< Pick Layer\"\npick 50,0\nok\nbox ok\n",
         {"\nSelect any object in the layer", "hidden", "\n 1 objects in layer:<A> are removed!"}, 4},
        {"a cancelled panel ends", "S\ncancel\n", {"closes with Cancel"}, 5},
        {"an empty layer", "S\ncheck \"0\" on\nok\n", {"\n no objects in layer: 0"}, 5},
    };
    for (const Case& c : cases) {
        PolylineDrawing drawing;
        drawing.layer("VORN_Working_Layer");
        drawing.layer("A");
        drawing.layer("B");
        drawing.layer("Frozen", false, true);
        drawing.add(square(0, 0, 10), "VORN_Working_Layer");
        drawing.add(Line{{0, 20, 0}, {10, 20, 0}}, "VORN_Working_Layer");
        drawing.add(square(50, 0, 10), "A");
        drawing.add(square(100, 0, 10), "B");
        drawing.add(square(150, 0, 10), "Frozen");
        Outcome out = drawing.run("vorn_clearWorkingLayer", c.script);
        EXPECT_TRUE(out.shows("\n[Select Layers to clear/<VORN_Working_Layer>]:")) << c.name;
        for (const std::string& text : c.shown) EXPECT_TRUE(out.shows(text)) << c.name << "\n" << out.transcript;
        EXPECT_EQ(out.count(), c.left) << c.name;
        EXPECT_FALSE(out.shows("check \"Frozen\"")) << "a frozen layer is never offered";
        EXPECT_TRUE(out.highlighted.empty());
    }
}
