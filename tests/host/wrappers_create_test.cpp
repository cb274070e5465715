#include <gtest/gtest.h>

#include "drawing/drag.h"
#include "drawing/drawing_helpers.h"
#include "drawing/tempgraphics.h"
#include "wrappers_fixture.h"

namespace vorn {
namespace {

class CreateWrappers : public ScriptedHost {};

TEST_F(CreateWrappers, PolylinesAndHatchesNeedEnoughPoints)
{
    Entity hatch;
    run([&] {
        ObjectId id;
        EXPECT_EQ(addPolylineFromPoints(id, {{0, 0}}, false, 0.0, 1), eInvalidInput);
        EXPECT_EQ(makeHatchFromPolygon(hatch, {{0, 0}, {1, 0}}), 3);
        EXPECT_EQ(makeHatchFromPolygon(hatch, {{0, 0}, {1, 0}, {1, 1}}), eOk);
    });
    const auto& loop = hatch.as<Hatch>()->loops.at(0);
    EXPECT_EQ(loop.points.size(), 4u);  // closed by repeating the first point
    EXPECT_EQ(hatch.as<Hatch>()->patternName, "SOLID");
    // Solid corners run in a Z; a face repeats its third corner.
    ObjectId solidId, faceId;
    run([&] {
        addSolid(solidId, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, 2, "");
        addFace(faceId, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}, 2, "");
    });
    Entity solid, face;
    ASSERT_EQ(database().readEntity(solidId, solid), eOk);
    EXPECT_EQ(solid.as<Solid>()->corners[2], (Point3d{0, 1, 0}));
    EXPECT_EQ(solid.as<Solid>()->corners[3], (Point3d{1, 1, 0}));
    ASSERT_EQ(database().readEntity(faceId, face), eOk);
    EXPECT_EQ(face.as<Face>()->corners[3], (Point3d{1, 1, 0}));
}

TEST_F(CreateWrappers, GroupsGetNumberedNamesAndStylesAreMadeOnce)
{
    ObjectId a = addSquare("A", 0, 0);
    std::string first, second;
    ObjectId style1, style2;
    run([&] {
        addGroup(first, {a}, "KelGrid");
        addGroup(second, {a, ObjectId{}}, "KelGrid");
        ensureMlineStyle(style1, "MineGrid_Pillar", 3, "NoSuchType");
        ensureMlineStyle(style2, "MineGrid_Pillar", 5, "Continuous");
    });
    EXPECT_EQ(first, "KelGrid");
    EXPECT_EQ(second, "KelGrid1");
    EXPECT_EQ(style1, style2);
    MlineStyle style;
    ASSERT_TRUE(database().findMlineStyle("MineGrid_Pillar", style));
    EXPECT_EQ(style.description, "MLineStyle created By Ornsby at QRL");
    ASSERT_EQ(style.elements.size(), 2u);
    EXPECT_EQ(style.elements[1].offset, -0.5);
    EXPECT_EQ(style.elements[0].linetype, "Continuous");
    // An associative hatch is known to its boundary.
    ObjectId boundary = addSquare("A", 0, 0);
    ObjectId hatchId;
    run([&] { EXPECT_EQ(addHatchFromLoop(hatchId, boundary), eOk); });
    Entity square;
    ASSERT_EQ(database().readEntity(boundary, square), eOk);
    EXPECT_EQ(square.common.reactors, (std::vector<ObjectId>{hatchId}));
}

TEST_F(CreateWrappers, TemporaryVectorsLastUntilRedraw)
{
    run([&] {
        drawPolygonOutline({{0, 0}, {1, 0}, {1, 1}}, 2, true);
        drawPolygonOutline({{0, 0}}, 2, true);  // one point draws nothing
    });
    ASSERT_EQ(editor().tempVectors().size(), 3u);
    EXPECT_EQ(editor().tempVectors()[2].from, (Point3d{1, 1, 0}));
    EXPECT_EQ(editor().tempVectors()[2].to, (Point3d{0, 0, 0}));
    EXPECT_EQ(editor().tempVectors()[0].highlight, 1);
    run([&] { redrawAndFlush(); });
    EXPECT_TRUE(editor().tempVectors().empty());
    run([&] {
        acedZoomWindow({0, 0, 0}, {100, 75, 0});
        Point3d lower, upper, center;
        ASSERT_TRUE(viewRectangle(lower, upper, center));
        EXPECT_DOUBLE_EQ(center.x, 50.0);
        EXPECT_NEAR(upper.x - lower.x, 100.0, 1e-9);
        EXPECT_NEAR(pixelsToDrawing(768), 75.0, 1e-9);
        acedZoomPrevious();
    });
}

TEST_F(CreateWrappers, MoveDragTranslatesFromTheBasePoint)
{
    ObjectId square = addSquare("A", 0, 0);
    answer("30,40\n");
    run([&] {
        SelectionSet set{{square}};
        setDragBase({10, 10, 0}, 0.0, 1.0);
        Point3d to;
        ASSERT_EQ(dragToNewPosition(set, dragMoveCallback, to), RTNORM);
        double matrix[4][4];
        dragMoveCallback(to, matrix);
        EXPECT_EQ(acedXformSS(set, matrix), RTNORM);
    });
    Entity moved;
    ASSERT_EQ(database().readEntity(square, moved), eOk);
    EXPECT_EQ(moved.as<LwPolyline>()->vertices[0].point, (Point2d{20, 30}));
    EXPECT_NE(transcript().find("\nNew position:30,40\n"), std::string::npos);
}

TEST_F(CreateWrappers, EntityColourLayerAndBounds)
{
    ObjectId square = addSquare("A", 5, -2);
    ObjectId text;
    run([&] {
        int color = 0;
        std::string layer;
        EXPECT_TRUE(setEntityColorLayer(square, 3, ""));
        EXPECT_TRUE(getEntityColorLayer(square, color, layer));
        EXPECT_EQ(color, 3);
        EXPECT_EQ(layer, "A");
        Point2d lower, upper;
        EXPECT_TRUE(getEntityBounds(square, lower, upper));
        EXPECT_EQ(lower, (Point2d{5, -2}));
        EXPECT_EQ(upper, (Point2d{15, 8}));
        Entity label;
        label.shape = Text{{0, 0, 0}, 1.0, 0.0, "x"};
        appendToModelSpace(text, label);
        EXPECT_FALSE(getEntityBounds(text, lower, upper));
        EXPECT_FALSE(getEntityColorLayer(ObjectId{}, color, layer));
    });
}

TEST(SmallHelpers, SplitFieldsSqueezesBlanks)
{
    std::vector<std::string> fields{"old"};
    EXPECT_EQ(splitFields("   ", fields, ','), 0);
    EXPECT_EQ(fields, (std::vector<std::string>{"old"}));
    EXPECT_EQ(splitFields("  1.5    2.5   3 ", fields, ' '), 3);
    EXPECT_EQ(fields, (std::vector<std::string>{"1.5", "2.5", "3"}));
    EXPECT_EQ(splitFields("a,,b", fields, ','), 3);
    EXPECT_EQ(joinSelectedItems({"A", "B", "C"}, {true, false, true}, ","), "A,C");
    EXPECT_STREQ(unitName(2, 1), "ft.");
    EXPECT_STREQ(unitName(4, 2), "MPa");
    ResultBuffer chain{ResultItem::ofText(8, "Layer"), ResultItem::ofReal(40, 2.5), ResultItem::ofInt(70, 3),
                       ResultItem::ofInt(90, 12), ResultItem::ofPoint(10, {1, 2, 3}), ResultItem::ofInt(330, 255),
                       ResultItem::ofReal(RTREAL, 1.0), ResultItem::ofInt(1071, 7)};
    std::vector<std::string> texts;
    EXPECT_EQ(resbufToStrings(texts, chain), 8);
    EXPECT_EQ(texts, (std::vector<std::string>{"Layer", "2.500", "3", "12l", "1.000, 2.000, 3.000", "<Entity name:       ff>",
                                               "1.000", "7l"}));
}

}  // namespace
}  // namespace vorn
