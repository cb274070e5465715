// Assessment polygons: assigning, listing and labelling by script.
#include "scripted_fixture.h"

#include <array>

#include "base/textnum.h"
#include "roofrisk/assessment.h"

namespace {

using vorn::rfri::readAssessmentRecord;

const std::string kApplication = "RFRI_QRL_TOVAX_APPLICATION";

// Gives an entity an assessment record of these texts behind the head.
void assess(vorn::host::HostDatabase& database, vorn::ObjectId id, const std::vector<std::string>& texts)
{
    vorn::Entity entity;
    database.readEntity(id, entity);
    database.registerApplication(kApplication);
    vorn::ResultBuffer data{vorn::ResultItem::ofText(1001, kApplication)};
    for (const std::string& text : texts) data.push_back(vorn::ResultItem::ofText(1000, text));
    vorn::setXData(entity.common, data);
    database.writeEntity(entity);
}

std::vector<std::string> noneRecord(const std::string& measurement)
{
    std::vector<std::string> texts(10, "(1) None");
    texts.push_back("(0) Unknown");
    texts.push_back("(0) Unknown");
    texts.push_back(measurement);
    return texts;
}

TEST_F(RoofScript, InputDrawsAPolygonAndWritesTheWholeRecord)
{
    std::string script = "D\n0,0\n<esc>\n100,0\n100,100\n0,100\n<enter>\n"
                         "choose \"Angular Discontinuities:\" (5) Multiple Weak Contacts\n"
                         "choose \"Microseismic Activity:\" (30) Clustering\n"
                         "set \"Measurement ID:\" M7\nok\n<enter>\n";
    EXPECT_EQ(run("vorn_RFRI_Input", script), 0);
    EXPECT_TRUE(shows("\nAssign assessment value[Draw Polygon/<Select Polygon>]:"));
    EXPECT_TRUE(shows("[panel \"Assign RFRI Assesment Value\" opens"));
    std::vector<vorn::ObjectId> ids = db->modelSpace();
    ASSERT_EQ(ids.size(), 1u);
    vorn::Entity polygon;
    db->readEntity(ids[0], polygon);
    EXPECT_TRUE(polygon.as<vorn::LwPolyline>()->closed);
    EXPECT_EQ(polygon.as<vorn::LwPolyline>()->vertices.size(), 4u);
    std::vector<std::string> record;
    ASSERT_TRUE(readAssessmentRecord(ids[0], record));
    ASSERT_EQ(record.size(), 14u);
    EXPECT_EQ(record[0], kApplication);
    EXPECT_EQ(record[1], "(5) Multiple Weak Contacts");
    EXPECT_EQ(record[2], "(3) Unknown");
    EXPECT_EQ(record[4], "(3) Small Shear (cutter < 3ft) or Unknown");
    EXPECT_EQ(record[11], "(30) Clustering");
    EXPECT_EQ(record[12], "(0) Unknown");
    EXPECT_EQ(record[13], "M7");
}

TEST_F(RoofScript, InputWithOnePointEndsWithoutAnEntity)
{
    EXPECT_EQ(run("vorn_RFRI_Input", "D\n5,5\n<enter>\n"), 0);
    EXPECT_TRUE(db->modelSpace().empty());
    EXPECT_FALSE(shows("[panel"));
}

TEST_F(RoofScript, InputOnAnAssessedEntityModifiesItAndCancelKeepsIt)
{
    vorn::ObjectId line = addFeature("0", {{0, 0}, {100, 0}}, 0.0, false);
    assess(*drawing, line, noneRecord("OLD"));
    EXPECT_EQ(run("vorn_RFRI_Input", "pick 50,0\nset \"Measurement ID:\" NEW\ncancel\npick 50,0\nok\n<enter>\n"), 0);
    EXPECT_TRUE(shows("[panel \"Modify RFRI Assesment Value\" opens"));
    EXPECT_TRUE(shows(fieldNote("Measurement ID:", "OLD")));
    std::vector<std::string> record;
    ASSERT_TRUE(readAssessmentRecord(line, record));
    EXPECT_EQ(record[13], "OLD");
    EXPECT_EQ(record[1], "(1) None");
}

TEST_F(RoofScript, ListPrintsValidRecordsOnlyAndEscGoesOn)
{
    vorn::ObjectId a = addFeature("0", square(0, 0, 10, 10), 0.0);
    vorn::ObjectId b = addFeature("0", square(20, 0, 30, 10), 0.0);
    vorn::ObjectId c = addFeature("0", square(40, 0, 50, 10), 0.0);
    assess(*drawing, a, noneRecord("FIRST"));
    std::vector<std::string> shortRecord = noneRecord("SHORT");
    shortRecord.pop_back();
    assess(*drawing, b, shortRecord);
    assess(*drawing, c, noneRecord("THIRD"));
    EXPECT_EQ(run("vorn_RFRI_List", "select all\n<esc>\n<enter>\n"), 0);
    EXPECT_TRUE(shows("Select RFRI Entites:"));
    EXPECT_TRUE(shows("\nMeasurment: FIRST\nAngular Discontinuities: (1) None\nJoint Frequency: (1) None\n"));
    EXPECT_TRUE(shows("Microseismic Adjustment: (0) Unknown\nRoof Deformation Adjustment: (0) Unknown\n"));
    EXPECT_TRUE(shows("\nMeasurment: THIRD\n"));
    EXPECT_FALSE(shows("SHORT"));
}

TEST_F(RoofScript, LabelsSkipBlankIdsAndAutoSizeToThePolygon)
{
    vorn::ObjectId a = addFeature("0", square(0, 0, 40, 10), 0.0);
    vorn::ObjectId b = addFeature("0", square(100, 0, 130, 10), 0.0);
    assess(*drawing, a, noneRecord("  M12  "));
    assess(*drawing, b, noneRecord("   "));
    vorn::LayerRecord labels;
    labels.name = "Labels";
    vorn::ObjectId labelsId;
    drawing->addLayer(labels, labelsId);
    run("vorn_RFRI_Label", "select all\n0\ncheck \"Labels\" on\nok\n");
    EXPECT_TRUE(shows("[panel \"Select Layer for Labels\" opens"));
    std::vector<vorn::Entity> made = entities();
    ASSERT_EQ(made.size(), 3u);
    const vorn::Text* label = made[2].as<vorn::Text>();
    ASSERT_TRUE(label);
    EXPECT_EQ(label->text, "M12");
    EXPECT_DOUBLE_EQ(label->height, 0.6 * 40 / 3);
    EXPECT_EQ(label->position, (vorn::Point3d{20, 5, 0}));
    EXPECT_EQ(made[2].common.layer, "Labels");
    // Centred on that point, also in the saved drawing.
    EXPECT_EQ(label->horizontalMode, 1);
    EXPECT_EQ(label->verticalMode, 2);
    EXPECT_EQ(label->alignment, label->position);
    std::string error;
    const std::string path = (dir / "labels.dxf").string();
    ASSERT_TRUE(vorn::saveDrawing(*db, path, error)) << error;
    std::unique_ptr<vorn::host::HostDatabase> reopened = vorn::openDrawing(path, error);
    ASSERT_TRUE(reopened) << error;
    vorn::Entity saved;
    reopened->readEntity(reopened->modelSpace()[2], saved);
    ASSERT_TRUE(saved.as<vorn::Text>());
    EXPECT_EQ(*saved.as<vorn::Text>(), *label);
    EXPECT_TRUE(shows("\nSpecify label size(0 - Auto size) <0>:"));
}

// A record of twelve values, each written as the panel words it.
std::vector<std::string> valuedRecord(const std::array<int, 12>& values, const std::string& measurement)
{
    std::vector<std::string> texts;
    for (int value : values) texts.push_back(vorn::formatString("(%d) Some words", value));
    texts.push_back(measurement);
    return texts;
}

TEST_F(RoofScript, MappingHatchesAndNumbersEachAssessedPolygon)
{
    vorn::ObjectId none = addFeature("0", square(0, 0, 40, 10), 0.0);
    vorn::ObjectId worst = addFeature("0", square(100, 0, 140, 10), 0.0);
    vorn::ObjectId plain = addFeature("0", square(200, 0, 240, 10), 0.0);
    assess(*drawing, none, noneRecord("A"));                                                       // 16
    assess(*drawing, worst, valuedRecord({5, 5, 5, 5, 5, 5, 5, 5, 5, 5, 25, 30}, "B"));           // 138
    assess(*drawing, plain, valuedRecord({3, 3, 3, 3, 3, 3, 3, 3, 3, 3, 0, 0}, "   "));          // 49
    EXPECT_EQ(run("vorn_RFRI_Mapping", "select all\nok\nNo\n"), 0);
    // The legend range of indices 16 to 138.
    EXPECT_TRUE(shows(fieldNote("Minimum:", "15")));
    EXPECT_TRUE(shows(fieldNote("Maximum:", "140")));
    EXPECT_TRUE(shows("\n3 defects are processed."));
    std::vector<vorn::Entity> made = entities();
    ASSERT_EQ(made.size(), 9u);
    std::vector<std::string> labels;
    std::vector<int> colors;
    for (const vorn::Entity& entity : made) {
        if (const vorn::Text* label = entity.as<vorn::Text>()) labels.push_back(label->text);
        if (entity.as<vorn::Hatch>()) colors.push_back(entity.common.colorIndex);
    }
    EXPECT_EQ(labels, (std::vector<std::string>{"16", "138", "49"}));
    ASSERT_EQ(colors.size(), 3u);
    EXPECT_NE(colors[0], colors[1]);
}

TEST_F(RoofScript, MappingCancelledDrawsNothingButCounts)
{
    vorn::ObjectId a = addFeature("0", square(0, 0, 40, 10), 0.0);
    assess(*drawing, a, noneRecord("A"));
    EXPECT_EQ(run("vorn_RFRI_Mapping", "select all\ncancel\n"), 0);
    EXPECT_TRUE(shows("\n1 defects are processed."));
    EXPECT_EQ(entities().size(), 1u);
}

TEST_F(RoofScript, MappingWithoutValidRecordsSaysSo)
{
    vorn::ObjectId a = addFeature("0", square(0, 0, 40, 10), 0.0);
    std::vector<std::string> longRecord = noneRecord("A");
    longRecord.push_back("extra");
    assess(*drawing, a, longRecord);
    EXPECT_EQ(run("vorn_RFRI_Mapping", "select all\n"), 0);
    EXPECT_TRUE(shows("\nNo RFRI Data present."));
}

}  // namespace
