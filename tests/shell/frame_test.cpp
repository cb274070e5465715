#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grid/grid.h"
#include "shell/promaintab.h"

namespace {

// A page that records what the frame asks of it.
class RecordingPage : public CAcUiTabChildDialogExt {
public:
    explicit RecordingPage(std::string name, std::vector<std::string>& log) : name_(std::move(name)), log_(log) {}
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
    std::vector<std::string>& log_;
};

class Frame : public ::testing::Test {
protected:
    void SetUp() override { acDocManagerPtr()->setCurDocument(reinterpret_cast<AcApDocument*>(&slot)); }
    void TearDown() override { acDocManagerPtr()->notifyToBeDestroyed(reinterpret_cast<AcApDocument*>(&slot)); }
    int slot = 0;
    std::vector<std::string> log;
};

TEST_F(Frame, AddsPagesInOrderAndIgnoresANullPage)
{
    CProMainTab frame;
    RecordingPage a("a", log), b("b", log);
    EXPECT_EQ(frame.addPage("A", 1, &a), 1);
    EXPECT_EQ(frame.addPage("None", 2, nullptr), 1);
    EXPECT_EQ(frame.addPage("B", 3, &b), 2);
    EXPECT_EQ(frame.getPage(1), &b);
    EXPECT_EQ(frame.getPage(2), nullptr);
    EXPECT_EQ(frame.getPage(-1), nullptr);
    EXPECT_EQ(b.mainDialog(), &frame);
    EXPECT_EQ(frame.panelTabs(), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(frame.panelTitle(), "Dialog");
    frame.setTitle("Define a Grid");
    EXPECT_EQ(frame.panelTitle(), "Define a Grid");
}

TEST_F(Frame, NextOnASinglePageComesBackToItself)
{
    CProMainTab frame;
    RecordingPage a("a", log);
    frame.addPage("A", 1, &a);
    frame.OnInitDialog();
    frame.setOkCaption("next>>");
    frame.OnOK();
    EXPECT_FALSE(frame.hasEnded());
    EXPECT_EQ(frame.panelActiveTab(), 0);
    EXPECT_EQ(log, (std::vector<std::string>{"+a", "-a", "+a"}));
}

TEST_F(Frame, StepsWrapAroundAndAskCanLeave)
{
    CProMainTab frame;
    RecordingPage a("a", log), b("b", log), c("c", log);
    frame.addPage("A", 1, &a);
    frame.addPage("B", 1, &b);
    frame.addPage("C", 1, &c);
    frame.setShowBack(true);
    frame.OnInitDialog();
    frame.OnBack();
    EXPECT_EQ(frame.panelActiveTab(), 2);
    frame.setOkCaption("Next>>");
    frame.OnOK();
    EXPECT_EQ(frame.panelActiveTab(), 0);
    a.leave = false;
    frame.OnOK();
    frame.OnBack();
    EXPECT_EQ(frame.panelActiveTab(), 0);
    a.leave = true;
    a.killOk = false;
    frame.selectPanelTab(1);
    EXPECT_EQ(frame.panelActiveTab(), 0);
    std::vector<vorn::PanelControl> controls = frame.panelControls();
    ASSERT_EQ(controls.size(), 4u);
    EXPECT_EQ(controls[1].caption, "Cancel");
    EXPECT_EQ(controls[2].caption, "<< Back");
    EXPECT_EQ(controls[3].caption, "Next>>");
}

TEST_F(Frame, OkTellsEveryPageThenEndsAndHidesNoBackByDefault)
{
    CProMainTab frame;
    RecordingPage a("a", log), b("b", log);
    frame.addPage("A", 1, &a);
    frame.addPage("B", 1, &b);
    frame.OnInitDialog();
    std::vector<vorn::PanelControl> controls = frame.panelControls();
    EXPECT_EQ(vorn::findControl(controls, "<< Back"), nullptr);
    vorn::findControl(controls, "OK")->action();
    EXPECT_TRUE(frame.hasEnded());
    EXPECT_EQ(frame.endResult(), 1);
    EXPECT_EQ(log, (std::vector<std::string>{"+a", "ok a", "ok b"}));
}

TEST_F(Frame, ShowMainDialogFalseEndsAsCancel)
{
    CProMainTab frame;
    RecordingPage a("a", log);
    frame.addPage("A", 1, &a);
    a.hideMainDialog();
    EXPECT_TRUE(frame.isHidden());
    a.showMainDialog(true);
    EXPECT_FALSE(frame.isHidden());
    a.showMainDialog(false);
    EXPECT_TRUE(frame.hasEnded());
    EXPECT_EQ(frame.endResult(), 2);
}

TEST_F(Frame, BaseGridComesFromTheFrameStrings)
{
    CProMainTab frame;
    frame.originXText = "100.000000";
    frame.originYText = "50.5";
    frame.xNumText = "20";
    frame.yNumText = "30";
    frame.xCellText = "2.5";
    frame.yCellText = "5.0";
    frame.rotationText = "";
    myGrid grid;
    ASSERT_TRUE(frame.getBaseGrid(grid));
    EXPECT_EQ(grid.xNum, 20);
    EXPECT_EQ(grid.yNum, 30);
    EXPECT_DOUBLE_EQ(grid.xCellW, 2.5);
    EXPECT_DOUBLE_EQ(grid.origin.x, 100.0);
    EXPECT_DOUBLE_EQ(grid.origin.y, 50.5);
    frame.xNumText = "1";
    myGrid thin;
    EXPECT_FALSE(frame.getBaseGrid(thin));
}

}  // namespace
