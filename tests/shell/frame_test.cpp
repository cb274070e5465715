#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "grid/grid.h"
#include "shell/promaintab.h"

namespace {

using Log = std::vector<std::string>;

// A page that records what the frame asks of it.
class RecordingPage : public CAcUiTabChildDialogExt {
public:
    RecordingPage(std::string name, Log& log) : name_(std::move(name)), log_(log) {}
    std::vector<vorn::PanelControl> pageControls() override { return {vorn::editControl("Field", field)}; }
    void OnTabActivation(bool active) override { log_.push_back((active ? "+" : "-") + name_); }
    bool canLeave() override { return leave; }
    bool OnKillActive() override { return killOk; }
    void OnMainDialogOK() override { log_.push_back("ok " + name_); }

    std::string field;
    bool leave = true;
    bool killOk = true;

private:
    std::string name_;
    Log& log_;
};

// The current document for as long as it lives, known by address only.
struct CurrentDocument {
    CurrentDocument() { acDocManagerPtr()->setCurDocument(reinterpret_cast<AcApDocument*>(this)); }
    ~CurrentDocument() { acDocManagerPtr()->notifyToBeDestroyed(reinterpret_cast<AcApDocument*>(this)); }
};

class Frame : public ::testing::Test {
protected:
    // Adds a page for each name, then opens the frame.
    void open(const Log& names)
    {
        for (const std::string& name : names) frame.addPage(name, 1, &pages.emplace_back(name, log));
        frame.OnInitDialog();
    }
    CurrentDocument document;
    Log log;
    std::deque<RecordingPage> pages;
    CProMainTab frame;
};

TEST_F(Frame, AddsPagesInOrderAndIgnoresANullPage)
{
    RecordingPage a("a", log), b("b", log);
    EXPECT_EQ(frame.addPage("A", 1, &a), 1);
    EXPECT_EQ(frame.addPage("None", 2, nullptr), 1);
    EXPECT_EQ(frame.addPage("B", 3, &b), 2);
    EXPECT_EQ(frame.getPage(1), &b);
    EXPECT_EQ(frame.getPage(2), nullptr);
    EXPECT_EQ(frame.getPage(-1), nullptr);
    EXPECT_EQ(b.mainDialog(), &frame);
    EXPECT_EQ(frame.panelTabs(), (Log{"A", "B"}));
}

TEST_F(Frame, NextOnASinglePageComesBackToItself)
{
    open({"a"});
    frame.setOkCaption("next>>");
    frame.OnOK();
    EXPECT_FALSE(frame.hasEnded());
    EXPECT_EQ(log, (Log{"+a", "-a", "+a"}));
}

TEST_F(Frame, StepsWrapAroundAndAskCanLeave)
{
    frame.setShowBack(true);
    open({"a", "b", "c"});
    frame.OnBack();
    EXPECT_EQ(frame.panelActiveTab(), 2);
    frame.setOkCaption("Next>>");
    frame.OnOK();
    EXPECT_EQ(frame.panelActiveTab(), 0);
    pages[0].leave = false;
    frame.OnOK();
    frame.OnBack();
    EXPECT_EQ(frame.panelActiveTab(), 0);
    pages[0].leave = true;
    pages[0].killOk = false;
    frame.selectPanelTab(1);
    EXPECT_EQ(frame.panelActiveTab(), 0);
    std::vector<vorn::PanelControl> controls = frame.panelControls();
    ASSERT_EQ(controls.size(), 4u);
    EXPECT_EQ(controls[2].caption, "<< Back");
    EXPECT_EQ(controls[3].caption, "Next>>");
}

TEST_F(Frame, OkTellsEveryPageThenEndsAndHidesNoBackByDefault)
{
    open({"a", "b"});
    std::vector<vorn::PanelControl> controls = frame.panelControls();
    EXPECT_EQ(vorn::findControl(controls, "<< Back"), nullptr);
    vorn::findControl(controls, "OK")->action();
    EXPECT_EQ(frame.endResult(), 1);
    EXPECT_EQ(log, (Log{"+a", "ok a", "ok b"}));
}

TEST_F(Frame, APageHidesAndShowsTheFrameAndShowingFalseEndsAsCancel)
{
    open({"a"});
    pages[0].hideMainDialog();
    EXPECT_TRUE(frame.isHidden());
    pages[0].showMainDialog(true);
    EXPECT_FALSE(frame.isHidden());
    pages[0].showMainDialog(false);
    EXPECT_TRUE(frame.hasEnded());
    EXPECT_EQ(frame.endResult(), 2);
}

TEST_F(Frame, BaseGridComesFromTheFrameStringsAndNeedsTwoCellsEachWay)
{
    frame.originXText = "100.000000";
    frame.originYText = "50.5";
    frame.xNumText = "20";
    frame.xCellText = "2.5";
    frame.rotationText = "";
    myGrid grid;
    ASSERT_TRUE(frame.getBaseGrid(grid));
    EXPECT_EQ(grid.xNum, 20);
    EXPECT_DOUBLE_EQ(grid.xCellW, 2.5);
    EXPECT_DOUBLE_EQ(grid.origin.y, 50.5);
    frame.xNumText = "1";
    EXPECT_FALSE(frame.getBaseGrid(grid));
}

}  // namespace
