// The defect pages of vorn_RFRI_Draw and the panel of vorn_RFRI_Calc, driven
// by script over drawings made in the test.
#include "scripted_fixture.h"

namespace {

using vorn::LwPolyline;

// Opens a page, makes its grid, saves it and leaves with OK.
std::string makeAndSave(const std::string& page)
{
    return "tab \"" + page + "\"\npress \"Make Grid\"\n<enter>\npress \"Save Grid\"\nbox ok\nok\n";
}

TEST_F(RoofScript, MakeGridWithoutFeaturesLeavesNothingToSave)
{
    EXPECT_EQ(run("vorn_RFRI_Draw", "tab \"Angular Discontinuities\"\npress \"Edit Grid\"\nbox ok\n"
                                    "press \"Make Grid\"\n<enter>\npress \"Edit Grid\"\nbox ok\nok\n"),
              0);
    EXPECT_TRUE(shows("The Grid needs to be defined and built before editing!"));
    EXPECT_TRUE(shows("Grid needs to be built before editing! -> OK"));
    EXPECT_TRUE(shows("[panel \"Draw the Defects for the RFRI\" opens, tab \"Grid Dimension\""));
    EXPECT_TRUE(shows("\nTotal number of features found: 0 in Layers: RFRI_AngDisc"));
    EXPECT_TRUE(shows("\n <Enter> key to Quit ..."));
    // "Save Grid" stays disabled without a grid, so a script cannot press it.
    EXPECT_TRUE(shows("\nLeaving the RFRI Drawing Menus!"));
    EXPECT_FALSE(fs::exists(dir / "RFRI_AngDisc.grd"));
}

TEST_F(RoofScript, MaximumPageTakesTheLevelOfTheWidthAndDropsOthers)
{
    addFeature("RFRI_StrataShift", square(10, 10, 30, 30), 2.0);  // level 1: changes nothing
    addFeature("RFRI_StrataShift", square(50, 50, 70, 70), 4.0);  // level 3
    addFeature("RFRI_StrataShift", square(50, 10, 90, 30), 7.0);  // outside the levels
    addFeature("RFRI_StrataShift", square(52, 72, 58, 98), 5.0);  // within one column
    EXPECT_EQ(run("vorn_RFRI_Draw", makeAndSave("Strata Shift")), 0);
    EXPECT_TRUE(shows("\nTotal number of features found: 4 in Layers: RFRI_StrataShift"));
    EXPECT_TRUE(shows("Strata Shift values will be saved to < " + (dir / "RFRI_StrataShift.grd").string() + " >"));
    myGrid grid = gridFile("RFRI_StrataShift.grd");
    EXPECT_EQ(grid.getTitle(), "Strata Shift");
    EXPECT_EQ(grid.getValue(5, 5), 3.0);
    EXPECT_EQ(grid.getValue(1, 1), 1.0);
    EXPECT_EQ(grid.getValue(6, 1), 1.0);
    EXPECT_EQ(grid.getValue(5, 8), 1.0);
}

TEST_F(RoofScript, FeaturesKeepTheirLevelThroughADxfRoundTrip)
{
    addFeature("RFRI_JointFreq", square(0, 0, 30, 30), 5.0);
    std::string error;
    const std::string path = (dir / "plan.dxf").string();
    ASSERT_TRUE(vorn::saveDrawing(*drawing, path, error)) << error;
    drawing = vorn::openDrawing(path, error);
    ASSERT_TRUE(drawing) << error;
    EXPECT_EQ(run("vorn_RFRI_Draw", makeAndSave("Joint Frequency")), 0);
    EXPECT_EQ(gridFile("RFRI_JointFreq.grd").getValue(1, 1), 5.0);
}

TEST_F(RoofScript, OverwritePageLetsTheLaterFeatureWin)
{
    addFeature("RFRI_Seismic", square(0, 0, 50, 50), 5.0);    // clustering, 25
    addFeature("RFRI_Seismic", square(20, 20, 70, 70), 1.0);  // no clustering, -5
    EXPECT_EQ(run("vorn_RFRI_Draw", makeAndSave("Seismic Activity")), 0);
    myGrid grid = gridFile("RFRI_Seismic.grd");
    EXPECT_EQ(grid.getValue(0, 0), 25.0);
    EXPECT_EQ(grid.getValue(3, 3), -5.0);
    EXPECT_EQ(grid.getValue(9, 9), 0.0);
}

TEST_F(RoofScript, LinePageReachesCellsAtExactlyTheReach)
{
    addFeature("RFRI_AngDisc", {{0, 55}, {100, 55}}, 3.0, false);  // level 3, reach 30
    EXPECT_EQ(run("vorn_RFRI_Draw", "tab \"Angular Discontinuities\"\npress \"View Grid\"\npress \"Make Grid\"\n"
                                    "<enter>\npress \"View Grid\"\n<enter>\npress \"Save Grid\"\nbox ok\nok\n"),
              0);
    // The preview plots the grid and waits; before a grid exists it does nothing.
    const std::string viewed = "press \"View Grid\"]\n[panel \"Draw the Defects for the RFRI\" hidden]";
    EXPECT_EQ(text.find(viewed), text.rfind(viewed));
    EXPECT_NE(text.find(viewed + "\n\n <Enter> key to continue ..."), std::string::npos);
    myGrid grid = gridFile("RFRI_AngDisc.grd");
    for (int j = 0; j < 10; ++j) EXPECT_EQ(grid.getValue(4, j), (j >= 2 && j <= 8) ? 3.0 : 1.0) << j;
}

TEST_F(RoofScript, DrawDefectsTakesKeywordsAndStoresTheLevelInTheWidth)
{
    std::string script = "tab \"Rock Debris\"\npress \"Draw Defects\"\n4\n10,10\n40,10\n40,40\n<enter>\n"
                         "20,20\n<esc>\n<enter>\n"
                         "tab \"Shear Rupture Surfaces\"\npress \"Draw Defects\"\n0,0\n50,0\n<esc>\n<enter>\nok\n";
    EXPECT_EQ(run("vorn_RFRI_Draw", script), 0);
    EXPECT_TRUE(shows("\nThe current defect level = 3"));
    EXPECT_TRUE(shows("\nThe current defect level = 4"));
    EXPECT_TRUE(shows("\nChange defect level [1/2/3/4/5] or\nSelect first point of the Rock Debris Area:"));
    EXPECT_TRUE(shows("\nThe current assessment level = 5"));
    std::vector<vorn::Entity> made = entities();
    ASSERT_EQ(made.size(), 2u);
    const LwPolyline* area = made[0].as<LwPolyline>();
    ASSERT_TRUE(area);
    EXPECT_EQ(made[0].common.layer, "RFRI_RockDebris");
    EXPECT_EQ(area->constantWidth, 4.0);
    EXPECT_TRUE(area->closed);
    EXPECT_EQ(area->vertices.size(), 3u);
    const LwPolyline* line = made[1].as<LwPolyline>();
    ASSERT_TRUE(line);
    EXPECT_EQ(made[1].common.layer, "RFRI_ShearRupt");
    EXPECT_EQ(line->constantWidth, 5.0);
    EXPECT_FALSE(line->closed);
    EXPECT_EQ(line->vertices.size(), 2u);
    vorn::LayerRecord layer;
    ASSERT_TRUE(db->findLayer("RFRI_RockDebris", layer));
    EXPECT_EQ(layer.color, 60);
    // The level chosen by keyword stays with the document.
    EXPECT_EQ(DocVars().docData().defects[7].levelIndex, 3);
}

TEST_F(RoofScript, APageOpensOnItsSavedGrid)
{
    addFeature("RFRI_Water", square(0, 0, 30, 30), 5.0);
    run("vorn_RFRI_Draw", makeAndSave("Ground Water") + "ok\n");
    EXPECT_EQ(app->run("vorn_RFRI_Draw"), 0);
    EXPECT_TRUE(contains(app->transcript(), "\nFile " + (dir / "RFRI_Water.grd").string() + " was successfully read into the grid"));
}

TEST_F(RoofScript, CalculationPanelMakesDefaultsSavesTheFinalGridAndRemovesThem)
{
    myGrid grid;
    grid.setFillValue(3.0);
    grid.setup(4, 4, 10.0, 10.0, 0.0);
    grid.writeGrd((dir / "RFRI_JointFreq.grd").string());
    EXPECT_EQ(run("vorn_RFRI_Calc", "press \"View Grid\"\nbox ok\npress \"Calculate RFRI\"\npress \"Save Grid\"\nbox ok\nok\n"), 0);
    EXPECT_TRUE(shows("The final RFRI Grid has not been calculated yet!"));
    EXPECT_TRUE(shows("\nA default file was created for the Angular Discontinuity"));
    EXPECT_TRUE(shows("The Final RFRI Values will be saved to < "));
    EXPECT_TRUE(shows("\nLeaving the RFRI Calculation!"));
    myGrid final = gridFile("RFRI_FinalValue.grd");
    EXPECT_EQ(final.getTitle(), "Final RFRI Value");
    EXPECT_NEAR(final.getValue(1, 1), 49.95, 1e-9);
    EXPECT_TRUE(fs::exists(dir / "RFRI_JointFreq.grd"));
    EXPECT_FALSE(fs::exists(dir / "RFRI_AngDisc.grd"));
    EXPECT_FALSE(fs::exists(dir / "RFRI_RoofDefRate.grd"));
}

TEST_F(RoofScript, CalculationPanelWithoutGridsOnlySaysSo)
{
    EXPECT_EQ(run("vorn_RFRI_Calc", "press \"Calculate RFRI\"\ncancel\n"), 0);
    EXPECT_TRUE(shows("\nYou need to build RFRI grids before running this command"));
    EXPECT_FALSE(shows("Leaving the RFRI Calculation!"));
    EXPECT_TRUE(fs::is_empty(dir));
}

}  // namespace
