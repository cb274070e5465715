#include <gtest/gtest.h>

#include "base/report.h"

TEST(Report, BoxesGoThroughTheInstalledReporterWithDefaults)
{
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope(capture);
    acutPrintf("\n%s=%d", "cells", 4);
    EXPECT_EQ(capture.printed, "\ncells=4");
    EXPECT_EQ(AfxMessageBox("plain"), IDOK);
    EXPECT_EQ(AfxMessageBox("ask", MB_YESNO | MB_DEFBUTTON2), IDNO);
    capture.queuedAnswers = {IDCANCEL};
    EXPECT_EQ(AfxMessageBox("go?", MB_OKCANCEL), IDCANCEL);
    ASSERT_EQ(capture.boxes.size(), 3u);
    EXPECT_EQ(capture.boxes[2].text, "go?");
}
