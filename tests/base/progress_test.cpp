// The terminal progress window: its title, range and step, and the user
// break as its Cancel.
#include <gtest/gtest.h>

#include <csignal>

#include "base/progress.h"
#include "base/userbreak.h"

namespace {

TEST(ProgressWindow, TitleCarriesStatusAndPercent)
{
    CProgressWnd window(nullptr, "Keldar in Progress ...");
    EXPECT_EQ(window.title(), "Keldar in Progress ...");
    EXPECT_EQ(window.setPos(42), 0);
    EXPECT_EQ(window.title(), "Keldar in Progress ... [42%]");
    window.setStatus("Mirror-Image Stresses");
    EXPECT_EQ(window.title(), "Keldar in Progress ... [Mirror-Image Stresses-42%]");
    window.setStatus("");
    window.setRange(0, 200);
    window.setStep(10);
    window.stepIt();
    EXPECT_EQ(window.pos(), 52);
    EXPECT_EQ(window.title(), "Keldar in Progress ... [26%]");
    window.offsetPos(-2);
    EXPECT_EQ(window.title(), "Keldar in Progress ... [25%]");
    window.setRange(0, 0);
    window.setPos(70);
    EXPECT_EQ(window.title(), "Keldar in Progress ... [0%]");
}

TEST(ProgressWindow, UserBreakCancelsUntilCleared)
{
    vorn::clearUserBreak();
    CProgressWnd window;
    window.setText("Calculating Seam 1 Displacements");
    window.peekAndPump();
    EXPECT_FALSE(window.cancelled());
    vorn::installUserBreakHandler();
    std::raise(SIGINT);
    EXPECT_TRUE(vorn::userBreakRequested());
    window.peekAndPump(false);
    EXPECT_FALSE(window.cancelled());
    EXPECT_TRUE(vorn::userBreakRequested());  // left for the next poll
    window.peekAndPump(true);
    EXPECT_TRUE(window.cancelled());
    EXPECT_FALSE(vorn::userBreakRequested());  // the window took it up
    window.peekAndPump();
    EXPECT_TRUE(window.cancelled());
    window.clear();
    EXPECT_FALSE(window.cancelled());
    EXPECT_EQ(window.text(), "");
    EXPECT_EQ(window.pos(), 0);
    std::signal(SIGINT, SIG_DFL);
}

}  // namespace
