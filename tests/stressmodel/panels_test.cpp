// The three stress panels driven by scripts in the stand-alone host: their
// checks one by one, and files byte for byte the same as the command-line
// forms write for the same choices.
#include <filesystem>
#include <iterator>
#include <string>

#include "base/userbreak.h"
#include "stressmodel/keldar_flow.h"
#include "grid/grid.h"
#include "tests/shell/cmd_scripted.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {
namespace fs = std::filesystem;

// Runs one command of a scripted session; its status and transcript.
struct ScriptedRun {
    int status = 0;
    std::string transcript;
};
ScriptedRun runScripted(const std::string& command, const std::string& script)
{
    ScriptedApp app(script);
    ScriptedRun run;
    run.status = app.run(command);
    run.transcript = app.transcript();
    EXPECT_EQ(app.scriptError(), "");
    return run;
}

using KeldarPanel = ScratchFolderTest;

TEST_F(KeldarPanel, RunWritesWhatTheCommandLineWrites)
{
    ModelText text;
    for (const char* folder : {"cli", "panel"}) {
        fs::create_directory(folder);
        writeFile(fs::path(folder) / "tiny.inp", text.text());
    }
    ASSERT_EQ(vornmark("keldar cli/tiny.inp"), 0) << err;
    const std::string script = "press \"&Select File\"\nfile " + path("panel/tiny.inp") +
                               "\nbox ok\npress \"&Run\"\n<enter>\nbox ok\n";
    ScriptedRun run = runScripted("vorn_keldar", script);
    fs::current_path(folder_);
    EXPECT_EQ(run.status, 0) << run.transcript;
    EXPECT_TRUE(contains(run.transcript, "The Input File was Successfully Read")) << run.transcript;
    EXPECT_TRUE(contains(run.transcript, "\n Keldar Stress Calculation is ready to run, <Enter> to continue ..."));
    EXPECT_TRUE(contains(run.transcript, "Keldar was finished successfully!\nResults were saved to File(s):\n\t<tiny.f1> for Seam 1"));
    for (const char* file : {"tiny.out", "tiny.f1", "STEP1.CHR"}) {
        ASSERT_TRUE(fs::exists(fs::path("panel") / file)) << file;
        EXPECT_EQ(readFile(fs::path("panel") / file), readFile(fs::path("cli") / file)) << file;
    }
}

TEST_F(KeldarPanel, RunNeedsAModelThatReads)
{
    writeFile("bad.inp", "title only\n");
    ModelText text;
    writeFile("good.inp", text.text());
    const std::string script = "press \"&Run\"\nbox ok\n"                                  // nothing chosen
                               "press \"&Select File\"\nfile " + path("bad.inp") + "\nbox ok\nbox ok\n"  // RI2a, OFO1
                               "press \"&Run\"\nbox ok\n"                                  // still not ready
                               "press \"&Select File\"\nfile <esc>\n"
                               "press \"&Select File\"\nfile " + path("good.inp") + "\nbox ok\n"
                               "press \"&Exit\"\n";
    ScriptedRun run = runScripted("vorn_keldar", script);
    fs::current_path(folder_);
    const std::string sorry = "Sorry, Not Ready to run yet!";
    const size_t first = run.transcript.find(sorry);
    ASSERT_NE(first, std::string::npos) << run.transcript;
    EXPECT_NE(run.transcript.find(sorry, first + 1), std::string::npos);
    EXPECT_TRUE(contains(run.transcript, "The Input File was not the Correct Format - OFO1"));
    EXPECT_TRUE(contains(run.transcript, fieldNote("Input File Name: (.inp)", path("good.inp"))));
    EXPECT_FALSE(contains(run.transcript, "ready to run"));
    EXPECT_FALSE(fs::exists("good.f1"));
}

TEST_F(KeldarPanel, CancelInTheProgressWindowEndsTheRunUnsuccessfully)
{
    ModelText text;
    writeFile("tiny.inp", text.text());
    std::unique_ptr<CModelDat> model = chooseKeldarModel("tiny.inp");
    ASSERT_TRUE(readKeldarModel(*model));
    // The user presses Cancel (Ctrl-C) as the run starts.
    EXPECT_EQ(runKeldarModel(*model, [](const std::string&) {
                  requestUserBreak();
                  return true;
              }),
              1);
    EXPECT_FALSE(userBreakRequested());  // the progress window took it up
    EXPECT_EQ(lastBox(), "Keldar was finished unsuccessfully!");
    EXPECT_FALSE(fs::exists("tiny.f1"));
    // Escape at the prompt runs nothing.
    model = chooseKeldarModel("tiny.inp");
    ASSERT_TRUE(readKeldarModel(*model));
    EXPECT_EQ(runKeldarModel(*model, [](const std::string&) { return false; }), 2);
    EXPECT_FALSE(fs::exists("tiny.f1"));
}

using TransferPanel = ScratchFolderTest;

TEST_F(TransferPanel, TransferWritesWhatTheCommandLineWrites)
{
    writeFile("model.f1", elementFile(2, 10, 10, 120.0, "ft"));
    ASSERT_EQ(vornmark("transfer model.f1 --step 2 --item 2 cli.grd"), 0) << err;
    const std::string row = "7 | Total Vertical Stress | psi | 2 | 10 X 10";
    const std::string script = "press \"Select\"\nfile " + path("model.f1") + "\nchoose \"Item# | Item Name | Unit | Step | Comments\" " +
                               row + "\npress \"Transfer...\"\nbox ok\nfile " + path("panel.grd") + "\nbox ok\npress \"&Exit\"\n";
    ScriptedRun run = runScripted("vorn_convKelGrid", script);
    EXPECT_TRUE(contains(run.transcript, "Convert the item: Total Vertical Stress <2> in step 2")) << run.transcript;
    EXPECT_TRUE(contains(run.transcript, "File: " + path("panel.grd") + " is saved!"));
    ASSERT_TRUE(fs::exists("panel.grd"));
    EXPECT_EQ(readFile("panel.grd"), readFile("cli.grd"));
}

TEST_F(TransferPanel, ChecksAndPreview)
{
    writeFile("model.f1", elementFile(1, 10, 10, 120.0));
    writeFile("empty.f1", "");
    const std::string row = "2 | Total Vertical Stress | psi | 1 | 10 X 10";
    const std::string list = "choose \"Item# | Item Name | Unit | Step | Comments\" ";
    const std::string script = "press \"Transfer...\"\nbox ok\n"
                               "press \"Preview...\"\nbox ok\n"
                               "press \"Select\"\nfile " + path("empty.f1") + "\nbox ok\n"
                               "press \"Select\"\nfile " + path("model.f1") + "\n" + list + row + "\n"
                               "press \"Transfer...\"\nbox cancel\n"
                               "press \"Preview...\"\nbox ok\n<enter>\n"
                               "press \"&Exit\"\n";
    ScriptedRun run = runScripted("vorn_convKelGrid", script);
    EXPECT_TRUE(contains(run.transcript, "No items were selected!\n")) << run.transcript;
    EXPECT_TRUE(contains(run.transcript, "Read an empty line in the input file - CHR2-1"));
    EXPECT_TRUE(contains(run.transcript, "Current Keldar file: None"));
    EXPECT_TRUE(contains(run.transcript, "Preview the item: Total Vertical Stress <2> in step 1"));
    EXPECT_TRUE(contains(run.transcript, "\nLoading ..."));
    EXPECT_TRUE(contains(run.transcript, "\n <Enter> key to continue ..."));
    EXPECT_TRUE(contains(run.transcript, "[panel \"Grid Transfer from Keldar Output\" hidden]"));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()), 2);
}

// Copies of the example grids in the scratch folder.
class TopoPanel : public ScratchFolderTest {
protected:
    void SetUp() override
    {
        ScratchFolderTest::SetUp();
        for (const char* name : {"surface.grd", "seam.grd"})
            fs::copy_file(fs::path(VORN_SOURCE_DIR) / "examples" / "topo" / name, folder_ / name);
    }
    std::string loadBoth() const
    {
        return "press \"Load Topographic File\"\nfile " + path("surface.grd") + "\ntab \" Seam Grid \"\n"
               "press \"From File ...\"\nfile " + path("seam.grd") + "\n";
    }
};

TEST_F(TopoPanel, OkRunsWhatTheCommandLineRuns)
{
    fs::create_directory("cli");
    fs::create_directory("panel");
    ASSERT_EQ(vornmark("topostress surface.grd cli/Panel_Stress.grd --seam-grid seam.grd --units 1 --lamination 700"), 0) << err;
    const std::string script = "check \"inches/Psi\" on\n" + loadBoth() + "set \"Output File Name\" " +
                               path("panel/Panel_Stress.grd") + "\ntab \" Properties&&Controls \"\n"
                               "set \"Lamination(layer) Thickness (in.) :\" 700\nok\n<enter>\n";
    ScriptedRun run = runScripted("vorn_topoStressModel", script);
    EXPECT_EQ(run.status, 0) << run.transcript;
    EXPECT_TRUE(contains(run.transcript, "\nTopography grid file successfully loaded!"));
    EXPECT_TRUE(contains(run.transcript, "\nTopoModel was finished successfully!")) << run.transcript;
    for (const char* file : {"Panel_Stress.grd", "panel_stress.tmp"}) {
        ASSERT_TRUE(fs::exists(fs::path("panel") / file)) << file;
        EXPECT_EQ(readFile(fs::path("panel") / file), readFile(fs::path("cli") / file)) << file;
    }
}

TEST_F(TopoPanel, PagesShowTheirStateAndUnitsResetOnlyAfterAChange)
{
    auto closing = [](const std::string& script) {
        ScriptedApp app(script + "cancel\n");
        app.run("vorn_topoStressModel");
        const std::string transcript = app.transcript();
        return transcript.substr(transcript.find("closes with Cancel"));
    };
    const std::string seamPage = closing("tab \" Seam Grid \"\n");
    EXPECT_TRUE(contains(seamPage, "/Untitle.grd\"")) << seamPage;
    EXPECT_TRUE(contains(seamPage, fieldNote("Seam Level (ft.)", "0.000000")));

    const std::string typed = "tab \" Properties&&Controls \"\nset \"Lamination(layer) Thickness (ft.) :\" 70\n"
                              "tab \" Surface Grid \"\ncheck \"inches/Psi\" on\ncheck \"feet/Psi\" on\n";
    // 2, then 1, then 2 again before the page shows: what was typed stays.
    const std::string kept = closing(typed + "tab \" Properties&&Controls \"\n");
    EXPECT_TRUE(contains(kept, fieldNote("Lamination(layer) Thickness (ft.) :", "70"))) << kept;
    // A change to metres: the defaults of metres when the page shows next.
    const std::string metres = closing(typed + "check \"meters/Pa\" on\ntab \" Properties&&Controls \"\n");
    EXPECT_TRUE(contains(metres, fieldNote("Lamination(layer) Thickness (m) :", "15"))) << metres;
    EXPECT_TRUE(contains(metres, fieldNote("Elastic Modulus (Pa) :", "2.07E+10")));
}

TEST_F(TopoPanel, OkChecksThePagesInOrderAndShowsTheOneThatFails)
{
    myGrid odd;
    odd.setup(15, 10, 10.0, 10.0, 0.0);
    odd.writeGrd(path("odd.grd"));
    struct Case {
        std::string script;
        std::string message;
        std::string tab;
    };
    const std::string props = "tab \" Properties&&Controls \"\n";
    const Case cases[] = {
        {"ok\nbox ok\n", "topo grid file name is missing!", " Surface Grid "},
        {"press \"Load Topographic File\"\nfile " + path("surface.grd") + "\ntab \" Seam Grid \"\npress \"From File ...\"\nfile " +
             path("odd.grd") + "\nok\nbox ok\n",
         "Keldar requires the numbers of elements in X and Y are divisible by 10!", " Seam Grid "},
        {loadBoth() + props + "set \"Poission's Ratio :\" 0.5001\nok\nbox ok\n",
         "Poission Ratio should be larger than 0 and smaller than 0.5!", " Properties&&Controls "},
        {loadBoth() + props + "set \"Elastic Modulus (psi) :\" 0\nok\nbox ok\n", "Elastic Modulus should be larger than 0 ",
         " Properties&&Controls "},
        {loadBoth() + props + "set \"Vertical Stress Gradient (psi/ft.) :\" -1\nok\nbox ok\n",
         "Vertical Stress gradient should be larger than 0 ", " Properties&&Controls "},
        {loadBoth() + props + "set \"Lamination(layer) Thickness (ft.) :\" x\nok\nbox ok\n",
         "Lamination thickness should be larger than 0 ", " Properties&&Controls "},
        {loadBoth() + props + "set \"OverRelax Factor :\" 0\nok\nbox ok\n", "OverRelax factor should be larger than 0 ",
         " Properties&&Controls "},
        {loadBoth() + props + "set \"Max. Number of Iterations :\" 0.5\nok\nbox ok\n",
         "Maxmum iteration number should be larger than 0 ", " Properties&&Controls "},
        {loadBoth() + props + "set \"Disp. Convergence Level (ft.) :\" 0\nok\nbox ok\n",
         "Convergence Level  should be larger than 0 ", " Properties&&Controls "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        ScriptedApp app(c.script + "cancel\n");
        app.run("vorn_topoStressModel");
        const std::string& transcript = app.transcript();
        const size_t box = transcript.find(c.message);
        ASSERT_NE(box, std::string::npos) << transcript;
        EXPECT_NE(transcript.find("closes with Cancel, tab \"" + c.tab + "\"", box), std::string::npos) << transcript;
    }
    EXPECT_FALSE(fs::exists("surface_Stress.grd"));
}

}  // namespace
}  // namespace vorn::testing
