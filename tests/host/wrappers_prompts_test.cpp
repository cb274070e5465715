#include <cstdio>
#include <filesystem>

#include <gtest/gtest.h>

#include "drawing/layers.h"
#include "drawing/prompts.h"
#include "drawing/sysvars.h"
#include "base/report.h"
#include "wrappers_fixture.h"

namespace vorn {
namespace {

class PromptWrappers : public ScriptedHost {};

TEST_F(PromptWrappers, AskYesNoAnswersEnterEscAndKeywordsOthersStopTheRun)
{
    answer("<enter>\n<esc>\nn\nYES\n<enter>\n");
    std::vector<int> replies;
    run([&] {
        replies.push_back(askYesNo("Compute Group Percentage?", IDYES));
        replies.push_back(askYesNo("Compute Group Percentage?", IDYES));
        replies.push_back(askYesNo("Delete?", IDYES));
        replies.push_back(askYesNo("Delete?", IDNO));
        replies.push_back(askYesNo("Delete?", IDNO));
        replies.push_back(askYesNo("Delete?", IDYES));  // the script has ended: <esc>
    });
    EXPECT_EQ(replies, (std::vector<int>{IDYES, IDCANCEL, IDNO, IDYES, IDNO, IDCANCEL}));
    EXPECT_NE(transcript().find("\nCompute Group Percentage? [No/<Yes>]:<enter>\n"), std::string::npos) << transcript();
    EXPECT_NE(transcript().find("\nDelete? [Yes/<No>]:YES\n"), std::string::npos) << transcript();
    // A wrong answer stops the run naming the line.
    answer("# answers\n<enter>\nMaybe\n");
    int status = run([&] {
        askYesNo("Keep?", IDYES);
        askYesNo("Keep?", IDYES);
        ADD_FAILURE() << "the run went on";
    });
    EXPECT_EQ(status, 1);
    EXPECT_NE(session().scriptError().find("test.scr line 3"), std::string::npos) << session().scriptError();
    EXPECT_NE(session().scriptError().find("a keyword (Yes, No)"), std::string::npos) << session().scriptError();
}

TEST_F(PromptWrappers, EnsureLayerUnlocksAndThawsKeepingTheColour)
{
    ObjectId id;
    LayerRecord layer{{}, "Seam", 3, "Continuous", false, true, true};
    database().addLayer(layer, id);
    run([&] {
        EXPECT_EQ(ensureLayer("Seam", 1), eOk);
        EXPECT_EQ(ensureWorkingLayer(), eOk);
    });
    ASSERT_TRUE(database().findLayer("Seam", layer));
    EXPECT_FALSE(layer.locked);
    EXPECT_FALSE(layer.frozen);
    EXPECT_EQ(layer.color, 3);
    ASSERT_TRUE(database().findLayer(kWorkingLayerName, layer));
    EXPECT_EQ(layer.color, 7);
    // System variables and the drawing folder.
    run([&] {
        EXPECT_EQ(drawingFolder(), "/plans/");
        EXPECT_EQ(setCmdEcho(5), RTNORM);
        EXPECT_EQ(getIntVar("CMDECHO"), 1);
        setCmdEcho(0);
        EXPECT_EQ(getIntVar("CMDECHO"), 0);
        EXPECT_EQ(getStringVar("CLAYER"), "0");
        EXPECT_EQ(getStringVar("LUPREC"), "");  // not a string
        EXPECT_EQ(setStringVar("CLAYER", "NoSuchLayer"), RTERROR);
        EXPECT_EQ(setStringVar("DWGPREFIX", "/x/"), RTERROR);
        EXPECT_EQ(setIntVar("NOSUCHVAR", 1), RTERROR);
    });
}

TEST_F(PromptWrappers, PickFileNameAppendsTheExtensionOnSave)
{
    std::string existing = (std::filesystem::temp_directory_path() / "vorn_pick_test.grd").string();
    std::FILE* file = std::fopen(existing.c_str(), "w");
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    answer("file /tmp/out/result\nfile " + existing + "\nfile <esc>\nfile /no/such/file.grd\n");
    std::string saved, opened, cancelled = "kept";
    int status = run([&] {
        EXPECT_TRUE(pickFileName(false, "grd", saved));
        EXPECT_TRUE(pickFileName(true, "grd", opened));
        EXPECT_FALSE(pickFileName(true, "grd", cancelled));
        pickFileName(true, "grd", cancelled);  // a script naming a missing file stops
    });
    EXPECT_EQ(saved, "/tmp/out/result.grd");
    EXPECT_EQ(opened, existing);
    EXPECT_EQ(cancelled, "kept");
    EXPECT_EQ(status, 1);
    EXPECT_NE(session().scriptError().find("line 4: \"file /no/such/file.grd\": the system asked for an existing file"), std::string::npos)
        << session().scriptError();
    EXPECT_NE(transcript().find("[file dialog \"Save As\" (Select Files (*.grd)|*.grd|All files(*.*)|*.*||) -> /tmp/out/result]"),
              std::string::npos)
        << transcript();
    std::filesystem::remove(existing);
}

TEST_F(PromptWrappers, MessageBoxesTakeScriptAnswers)
{
    answer("box no\nbox ok\n");
    std::vector<int> replies;
    int status = run([&] {
        replies.push_back(AfxMessageBox("Overwrite?", MB_YESNO));
        replies.push_back(AfxMessageBox("Done", MB_OK));
        replies.push_back(AfxMessageBox("Save?", MB_YESNOCANCEL));  // ended: Esc
        replies.push_back(AfxMessageBox("Really?", MB_YESNO));
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(replies, (std::vector<int>{IDNO, IDOK, IDCANCEL, IDNO}));
    EXPECT_NE(transcript().find("[box \"Vornmark\": Overwrite? -> No]"), std::string::npos) << transcript();
    // An answer that is no button of the box stops the run.
    answer("box yes\n");
    EXPECT_EQ(run([&] { AfxMessageBox("Done", MB_OK); }), 1);
    EXPECT_NE(session().scriptError().find("test.scr line 1"), std::string::npos);
}

}  // namespace
}  // namespace vorn
