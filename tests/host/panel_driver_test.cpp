// The panel drivers on a panel of every kind of control.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "host/panel_driver.h"

namespace {

using namespace vorn;

class ToyPanel : public Panel {
public:
    std::string panelTitle() const override { return "Toy"; }
    std::vector<PanelControl> panelControls() override
    {
        return {editControl("Name:", name, [this] { ++edits; }),
                checkControl("Keep", keep),
                radioControl("Colour", colour),
                comboControl("Layer", layer, layers),
                listControl("Kind", kind, kinds),
                buttonControl("Go", [this] { ++presses; }),
                buttonControl("Go", [this] { presses += 10; }),
                disabledButton()};
    }
    static PanelControl disabledButton()
    {
        PanelControl off = buttonControl("Off", [] {});
        off.readOnly = true;
        return off;
    }
    std::string name = "a";
    bool keep = false;
    bool colour = true;
    std::string layer = "0";
    std::vector<std::string> layers{"0", "Pillars"};
    std::string kind;
    std::vector<std::string> kinds{"line", "area"};
    int edits = 0;
    int presses = 0;
};

struct Driven {
    explicit Driven(const std::string& script) : answers(ScriptSource::fromText(script)), driver(answers, transcript) {}
    Answers answers;
    Transcript transcript;
    PanelDriver driver;
};

TEST(PanelDriver, SetsChecksChoosesAndPressesByCaption)
{
    Driven run("set \"Name:\" pillar one\ncheck \"Keep\" on\ncheck \"Colour\" off\nchoose \"Layer\" Pillars\n"
               "choose \"Kind\" area\npress \"Go [2]\"\nset \"Layer\" Typed\nok\n");
    ToyPanel panel;
    EXPECT_EQ(run.driver.runModal(panel), 1);
    EXPECT_EQ(panel.name, "pillar one");
    EXPECT_EQ(panel.edits, 1);
    EXPECT_TRUE(panel.keep);
    EXPECT_FALSE(panel.colour);
    EXPECT_EQ(panel.layer, "Typed") << "a combo box takes typed text";
    EXPECT_EQ(panel.kind, "area");
    EXPECT_EQ(panel.presses, 10);
    EXPECT_NE(run.transcript.text().find("  check \"Keep\" = \"on\""), std::string::npos);
    EXPECT_NE(run.transcript.text().find("[panel \"Toy\" closes with OK"), std::string::npos);
}

TEST(PanelDriver, RefusesItemsAndActionsThatDoNotFit)
{
    for (const char* line : {"choose \"Layer\" Gob\n", "press \"Name:\"\n", "set \"Go\" 5\n", "check \"Layer\" on\n",
                             "press \"Off\"\n"}) {
        Driven run(line);
        ToyPanel panel;
        EXPECT_THROW(run.driver.runModal(panel), ScriptError) << line;
    }
}

// Runs the terminal driver on `typed`; gives the panel's result and what it showed.
int runOnTerminal(ToyPanel& panel, std::string typed, std::string& form)
{
    Answers answers;
    Transcript transcript;
    std::FILE* in = typed.empty() ? std::fopen("/dev/null", "r") : fmemopen(typed.data(), typed.size(), "r");
    char* shown = nullptr;
    size_t shownSize = 0;
    std::FILE* out = open_memstream(&shown, &shownSize);
    int result = TerminalPanelDriver(answers, transcript, in, out).runModal(panel);
    std::fclose(in);
    std::fclose(out);
    form.assign(shown, shownSize);
    std::free(shown);
    return result;
}

TEST(TerminalPanelDriver, ReadsNumberedChoicesAndTheEndOfInputCancels)
{
    ToyPanel panel;
    std::string form;
    EXPECT_EQ(runOnTerminal(panel, "1 new name\n2\n4 Pillars\n9\n6\nok\n", form), 1);
    EXPECT_EQ(panel.name, "new name");
    EXPECT_TRUE(panel.keep);
    EXPECT_EQ(panel.layer, "Pillars");
    EXPECT_EQ(panel.presses, 1);
    EXPECT_NE(form.find("== Toy =="), std::string::npos);
    EXPECT_NE(form.find("  7 (Go [2])"), std::string::npos);
    EXPECT_NE(form.find("No such entry"), std::string::npos);
    EXPECT_EQ(runOnTerminal(panel, "", form), 2);
}

}  // namespace
