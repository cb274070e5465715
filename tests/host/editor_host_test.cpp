#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "drawing/sysvars.h"
#include "drawing/ui_port.h"
#include "host/profile_ini.h"
#include "base/userbreak.h"
#include "wrappers_fixture.h"

namespace vorn {
namespace {

class EditorHost : public ScriptedHost {};

// Options of a session that prints nowhere and keeps no profile.
SessionOptions quietOptions(SessionOptions::Answering answering)
{
    SessionOptions options;
    options.answering = answering;
    options.profilePath = "";
    options.out = nullptr;
    options.err = nullptr;
    return options;
}

std::string contentsOf(std::FILE* file)
{
    std::rewind(file);
    char shown[256] = {};
    return std::string(shown, std::fread(shown, 1, sizeof shown - 1, file));
}

TEST_F(EditorHost, PicksByPointWithinTheAperture)
{
    ObjectId square = addSquare("A", 0, 0);
    run([&] { acedZoomWindow({0, 0, 0}, {100, 100, 0}); });  // aperture 3 px = 0.39 units
    answer("pick 10.2,5\n5,5\npick 0.3,-0.2\n<enter>\n");
    std::vector<int> statuses, errnos;
    ObjectId picked;
    run([&] {
        for (int i = 0; i < 4; ++i) {
            Point3d at;
            statuses.push_back(acedEntSel("\nSelect object:", picked, at));
            errnos.push_back(getIntVar("ERRNO"));
            if (statuses.back() == RTNORM) {
                EXPECT_EQ(picked, square);
            }
        }
    });
    EXPECT_EQ(statuses, (std::vector<int>{RTNORM, RTERROR, RTNORM, RTERROR}));
    EXPECT_EQ(errnos, (std::vector<int>{0, kErrnoNothingPicked, 0, kErrnoNullInput}));
}

TEST_F(EditorHost, KeywordsAndBitsOfThePromptFamily)
{
    answer("k\n7,8\n<enter>\n12\n3,4\n-2\n1,1\n4,5\n90\nwhatever\n");
    run([&] {
        Point3d point;
        std::string word;
        acedInitGet(RSG_OTHER, "Keep");
        EXPECT_EQ(acedGetPoint(nullptr, "\nPick:", point), RTKWORD);
        acedGetInput(word);
        EXPECT_EQ(word, "Keep");
        EXPECT_EQ(acedGetPoint(nullptr, "\nPick:", point), RTNORM);
        EXPECT_EQ(point, (Point3d{7, 8, 0}));
        double value = 0.0;
        EXPECT_EQ(acedGetReal("\nValue:", value), RTNONE);
        EXPECT_EQ(acedGetReal("\nValue:", value), RTNORM);
        EXPECT_DOUBLE_EQ(value, 12.0);
        Point3d base{0, 0, 5};
        acedInitGet(RSG_NOZERO | RSG_NONEG | RSG_2D, nullptr);
        EXPECT_EQ(acedGetDist(&base, "\nDistance:", value), RTNORM);
        EXPECT_DOUBLE_EQ(value, 5.0);  // in plan
        EXPECT_EQ(acedGetDist(nullptr, "\nDistance:", value), RTNORM);  // no bits now
        EXPECT_DOUBLE_EQ(value, -2.0);
        EXPECT_EQ(acedGetDist(nullptr, "\nDistance:", value), RTNORM);  // from a first to a second point
        EXPECT_DOUBLE_EQ(value, 5.0);
        EXPECT_EQ(acedGetOrient(nullptr, "\nAngle:", value), RTNORM);
        EXPECT_NEAR(value, std::acos(-1.0) / 2.0, 1e-12);
        acedInitGet(RSG_OTHER, "Keep");
        EXPECT_EQ(acedGetKword("\nEnter <K> to Keep:", word), RTNORM);
        EXPECT_EQ(word, "whatever");
    });
    EXPECT_NE(transcript().find("\nPick:k\n\nPick:7,8\n"), std::string::npos) << transcript();
}

TEST_F(EditorHost, BitsRefuseAnswersInAScriptStringsKeepOrCutBlanks)
{
    answer("0\n");
    int status = run([&] {
        double value = 0.0;
        acedInitGet(RSG_NOZERO, nullptr);
        acedGetDist(nullptr, "\nInput the size of a cell:", value);
    });
    EXPECT_EQ(status, 1);
    EXPECT_NE(session().scriptError().find("a distance or a point (not zero) or <enter> at \"Input the size of a cell:\""), std::string::npos)
        << session().scriptError();
    answer("<enter>\n");
    EXPECT_EQ(run([&] {
        Point3d point;
        acedInitGet(RSG_NONULL, nullptr);
        acedGetPoint(nullptr, "\nPoint:", point);
    }), 1);
    // Strings keep or cut blanks; <enter> is an empty string.
    answer("North Seam\nNorth Seam\n<enter>\n<esc>\n");
    run([&] {
        std::string text = "x";
        EXPECT_EQ(acedGetString(1, "\nInput new layer name:", text), RTNORM);
        EXPECT_EQ(text, "North Seam");
        EXPECT_EQ(acedGetString(0, "\nName:", text), RTNORM);
        EXPECT_EQ(text, "North");
        EXPECT_EQ(acedGetString(0, "\n <Enter> key to continue ...", text), RTNORM);
        EXPECT_EQ(text, "");
        EXPECT_EQ(acedGetString(0, "\n <Enter> key to continue ...", text), RTCAN);
    });
}

TEST_F(EditorHost, HatchCommandOnTheCurrentLayerUnitsFollowTheVariables)
{
    ObjectId square = addSquare("A", 0, 0);
    ObjectId open;
    run([&] {
        addPolylineFromPoints(open, {{0, 0}, {5, 5}}, false, 0.0, 1);
        EXPECT_EQ(acedHatchSolid(SelectionSet{{open}}), RTERROR);
        EXPECT_EQ(acedHatchSolid(SelectionSet{{square}}), RTNORM);
    });
    Entity hatch;
    ASSERT_EQ(database().readEntity(database().lastEntity(), hatch), eOk);
    ASSERT_NE(hatch.as<Hatch>(), nullptr);
    EXPECT_EQ(hatch.as<Hatch>()->loops.size(), 1u);
    EXPECT_EQ(hatch.common.layer, "0");
    // Unit conversion follows the variables.
    run([&] {
        std::string text;
        setIntVar("LUPREC", 1);
        acdbRToS(125.56, 2, -1, text);
        EXPECT_EQ(text, "125.6");
        double value = 0.0;
        EXPECT_EQ(acdbDisToF(text.c_str(), 2, value), RTNORM);
        EXPECT_DOUBLE_EQ(value, 125.6);
        EXPECT_EQ(acdbDisToF("abc", -1, value), RTERROR);
        acdbAngToS(std::acos(-1.0) / 4.0, 0, 1, text);
        EXPECT_EQ(text, "45.0");
    });
}

TEST_F(EditorHost, MeterAndUserBreak)
{
    std::FILE* terminal = std::tmpfile();
    editor().setProgressOutput(terminal);
    run([&] {
        acedSetStatusBarProgressMeter("Building grid", 0, 200);
        acedSetStatusBarProgressMeterPos(50);
        acedSetStatusBarProgressMeterPos(51);  // still 25 %
        EXPECT_EQ(editor().progressMeter().pos, 51);
        EXPECT_FALSE(acedUsrBrk());
        requestUserBreak();
        EXPECT_TRUE(acedUsrBrk());
        EXPECT_FALSE(acedUsrBrk());  // read once
        acedRestoreStatusBar();
    });
    EXPECT_FALSE(editor().progressMeter().shown);
    EXPECT_EQ(contentsOf(terminal).substr(0, 38), "\rBuilding grid   0%\rBuilding grid  25%");
    std::fclose(terminal);
    answer("5\n256\n<esc>\n");
    run([&] {
        int color = 3;
        EXPECT_TRUE(acedSetColorDialogTrueColor(color, false, 7));
        EXPECT_EQ(color, 5);
        EXPECT_TRUE(acedSetColorDialogTrueColor(color, true, 7));
        EXPECT_EQ(color, 256);
        EXPECT_FALSE(acedSetColorDialogTrueColor(color, false, 7));
        EXPECT_EQ(color, 256);
        acedGrText(-1, "Cell(1,2) Value: 3.00", 0);
    });
    EXPECT_EQ(editor().statusText(), "Cell(1,2) Value: 3.00");
    EXPECT_NE(transcript().find("[colour dialog starting on 3 -> 5]"), std::string::npos) << transcript();
    // Stored as 0xBBGGRR.
    EXPECT_EQ(acedGetRGB(13), 0x5252A5ul);  // 165, 82, 82
    EXPECT_EQ(acedGetRGB(140), 0xFFBF00ul);  // 0, 191, 255
    EXPECT_EQ(acedGetRGB(0), 0ul);
}

TEST(Profile, IniFileKeepsSectionsAndDialogData)
{
    std::string path = (std::filesystem::temp_directory_path() / "vorn_profile_test" / "profile.ini").string();
    std::filesystem::remove_all(std::filesystem::path(path).parent_path());
    {
        IniProfile profile(path);
        EXPECT_EQ(profile.get("Settings", "X", "none"), "none");
        EXPECT_TRUE(profile.set("Settings", "X", "120"));
        EXPECT_TRUE(profile.set("Dialogs\\dlg_gridutility", "LAYER", "Seam 1"));
        EXPECT_TRUE(profile.set("settings", "x", "130"));
    }
    IniProfile reread(path);
    EXPECT_EQ(reread.get("Settings", "X", ""), "130");
    EXPECT_EQ(reread.get("Dialogs\\dlg_gridutility", "LAYER", ""), "Seam 1");
    std::filesystem::remove_all(std::filesystem::path(path).parent_path());

    setenv("VORNMARK_PROFILE", "/tmp/explicit.ini", 1);
    EXPECT_EQ(IniProfile::defaultPath(), "/tmp/explicit.ini");
    unsetenv("VORNMARK_PROFILE");
    setenv("XDG_CONFIG_HOME", "/tmp/config", 1);
    EXPECT_EQ(IniProfile::defaultPath(), "/tmp/config/vornmark/profile.ini");
}

TEST_F(EditorHost, ProfileCallsReachTheSessionProfile)
{
    run([&] {
        EXPECT_EQ(GetProfileInt("Settings", "X", -1), -1);
        EXPECT_TRUE(WriteProfileInt("Settings", "X", 42));
        EXPECT_EQ(GetProfileInt("Settings", "X", -1), 42);
        EXPECT_EQ(GetProfileString("Settings", "Missing", "d"), "d");
    });
    EXPECT_EQ(session().profile().get("Settings", "X", ""), "42");
}

TEST(SessionRun, TranscriptFileHoldsPromptsAndAnswers)
{
    std::string path = (std::filesystem::temp_directory_path() / "vorn_transcript_test.txt").string();
    Session session(std::make_unique<host::HostDatabase>());
    SessionOptions options = quietOptions(SessionOptions::Answering::Script);
    options.scriptText = "10,20\n";
    options.transcriptPath = path;
    std::string error;
    ASSERT_TRUE(session.open(options, error));
    EXPECT_EQ(session.run([] {
        acutPrintf("\nStart");
        Point3d point;
        acedGetPoint(nullptr, "\nPick a Position Point:", point);
        acedGetPoint(nullptr, "\nPick Another Corner Point:", point);
        return 0;
    }),
              0);
    std::ifstream in(path);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(text, "\nStart\nPick a Position Point:10,20\n\nPick Another Corner Point:<esc>\n");
    std::filesystem::remove(path);
}

TEST(SessionRun, TerminalAnswersAreAskedAgainWhenWrong)
{
    std::FILE* typed = std::tmpfile();
    std::FILE* errors = std::tmpfile();
    std::fputs("Maybe\ny\n", typed);
    std::rewind(typed);
    Session session(std::make_unique<host::HostDatabase>());
    SessionOptions options = quietOptions(SessionOptions::Answering::Terminal);
    options.in = typed;
    options.err = errors;
    std::string error;
    ASSERT_TRUE(session.open(options, error));
    std::string word;
    EXPECT_EQ(session.run([&word] {
        acedInitGet(0, "Yes No");
        return acedGetKword("\nDelete? [Yes/<No>]:", word);
    }),
              RTNORM);
    EXPECT_EQ(word, "Yes");
    std::string complaint = contentsOf(errors);
    EXPECT_NE(complaint.find("terminal line 1: \"Maybe\": the system asked for a keyword (Yes, No)"), std::string::npos) << complaint;
    std::fclose(typed);
    std::fclose(errors);
}

}  // namespace
}  // namespace vorn
