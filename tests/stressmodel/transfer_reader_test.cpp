#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "grid/grid.h"
#include "shell/report.h"
#include "shell/textnum.h"
#include "stressmodel/transfer.h"
#include "tests/stressmodel/topo_test_util.h"

namespace {
namespace fs = std::filesystem;


// The value of item `item` (1..5) of element (x, y) in step `step`, all from 1.
double sampleValue(int step, int x, int y, int item) { return step * 1000 + x * 100 + y * 10 + item; }

// An element file as the model writes it, with `steps` steps of a
// `countX` by `countY` mesh, CR LF line ends.
std::string elementFile(int steps, int countX, int countY, double width, const char* lengthUnit = "in")
{
    std::string text = vorn::formatString("%3i, %7i, %12.5g, %3i, %3i, %12.5g, %12.5g\r\n", steps, countX * countY, width, countX,
                                          countY, 120.0, -60.0);
    text += "  5,Seam Convergence         ,Total Vertical Stress    ,Surface Effect Stress    ,Multiple Seam Stress     ,Overburden "
            "Stress        \r\n";
    text += vorn::formatString("%3d,%25s,%25s,%25s,%25s,%25s\r\n", 5, lengthUnit, "psi", "psi", "psi", "psi");
    for (int s = 1; s <= steps; ++s) {
        for (int x = 1; x <= countX; ++x) {
            for (int y = 1; y <= countY; ++y) {
                text += vorn::formatString("%12.5g, %12.5g, %12.5g, %12.5g, %12.5g\r\n", sampleValue(s, x, y, 1),
                                           sampleValue(s, x, y, 2), sampleValue(s, x, y, 3), sampleValue(s, x, y, 4),
                                           sampleValue(s, x, y, 5));
            }
        }
    }
    return text;
}

struct TransferReader : ::testing::Test {
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope{capture};
    fs::path folder = stresstest::testFolder("vorn_transfer_reader");
    CElementFileReader reader;

    std::string file(const std::string& name, const std::string& text)
    {
        fs::path path = folder / name;
        gridtest::spit(path.string(), text);
        return path.string();
    }
    std::string lastBox() const { return capture.boxes.empty() ? std::string() : capture.boxes.back().text; }
};
}  // namespace

TEST_F(TransferReader, HeaderGivesTheListOfAllStepsWithNamesAsSplit)
{
    EXPECT_EQ(reader.fileLabel(), "Current Keldar file: None");
    std::string path = file("list.f1", elementFile(2, 2, 3, 60.0));
    ASSERT_TRUE(reader.selectFile(path));
    EXPECT_EQ(reader.fileLabel(), path);
    EXPECT_EQ(reader.stepCount, 2);
    EXPECT_EQ(reader.elementCount, 6);
    EXPECT_FLOAT_EQ(reader.elementWidth, 5.0f);
    EXPECT_EQ(reader.itemCount, 5);
    ASSERT_EQ(reader.rows().size(), 10u);
    const CElementItemRow& row = reader.rows()[6];
    EXPECT_EQ(row.number, "7");
    // Blank runs squeezed to one blank, kept in the field; the last name and
    // the units are trimmed at the line's ends only.
    EXPECT_EQ(row.name, "Total Vertical Stress ");
    EXPECT_EQ(reader.rows()[4].name, "Overburden Stress");
    EXPECT_EQ(row.unit, " psi");
    EXPECT_EQ(reader.rows()[0].unit, " in");
    EXPECT_EQ(row.step, "2");
    EXPECT_EQ(row.comments, "2 X 3");
    EXPECT_TRUE(capture.boxes.empty());
}

TEST_F(TransferReader, ItemIndexWithinALineStartsAtOneInEveryStep)
{
    ASSERT_TRUE(reader.selectFile(file("index.f1", elementFile(3, 2, 2, 12.0))));
    CElementItemChoice first = reader.choiceOfRow(10);
    EXPECT_EQ(first.step, 3);
    EXPECT_EQ(first.indexInLine, 1);
    EXPECT_EQ(first.name, "Seam Convergence ");
    CElementItemChoice second = reader.choiceOfRow(6);
    EXPECT_EQ(second.step, 2);
    EXPECT_EQ(second.indexInLine, 2);
}

TEST_F(TransferReader, ItemOfALaterStepSkipsTheEarlierStepsAndKeepsXOuter)
{
    ASSERT_TRUE(reader.selectFile(file("skip.f1", elementFile(3, 2, 3, 60.0))));
    myGrid grid;
    std::string failure;
    ASSERT_TRUE(reader.readItem(reader.choiceOfRow(2 * 5 + 1), grid, failure)) << failure;
    EXPECT_EQ(grid.getXNum(), 2);
    EXPECT_EQ(grid.getYNum(), 3);
    EXPECT_DOUBLE_EQ(grid.getXCellW(), 5.0);
    EXPECT_DOUBLE_EQ(grid.getOrigin().x, 120.0);
    EXPECT_DOUBLE_EQ(grid.getOrigin().y, -60.0);
    for (int x = 0; x < 2; ++x) {
        for (int y = 0; y < 3; ++y) EXPECT_DOUBLE_EQ(grid.getValue(x, y), sampleValue(3, x + 1, y + 1, 2)) << x << "," << y;
    }
}

TEST_F(TransferReader, MetricWidthIsStillDividedByTwelve)
{
    ASSERT_TRUE(reader.selectFile(file("metric.f1", elementFile(1, 2, 2, 3.0, "m"))));
    EXPECT_FLOAT_EQ(reader.elementWidth, 0.25f);
    EXPECT_FLOAT_EQ(reader.originX, 120.0f);
}

TEST_F(TransferReader, HeaderFailuresAreShownAndKeepTheEarlierPath)
{
    std::string good = file("good.f1", elementFile(1, 2, 2, 12.0));
    ASSERT_TRUE(reader.selectFile(good));

    EXPECT_FALSE(reader.selectFile(file("empty1.f1", "\r\nx\r\n")));
    EXPECT_EQ(lastBox(), "Read an empty line in the input file - CHR2-1");
    EXPECT_FALSE(reader.selectFile(file("short.f1", "  1,  4,  12\r\n")));
    EXPECT_EQ(lastBox(), "Only Read  3 Fields from Header Buffer");
    EXPECT_FALSE(reader.selectFile(file("empty2.f1", "1, 4, 12, 2, 2, 0, 0\r\n")));
    EXPECT_EQ(lastBox(), "Read an empty line in the input file - CHR2-2");
    EXPECT_FALSE(reader.selectFile(file("empty3.f1", "1, 4, 12, 2, 2, 0, 0\r\n2,a,b\r\n\r\n")));
    EXPECT_EQ(lastBox(), "Read an empty line in the input file - CHR2-3");
    EXPECT_FALSE(reader.selectFile(file("names.f1", "1, 4, 12, 2, 2, 0, 0\r\n3,a,b\r\n3,in,psi,psi\r\n")));
    EXPECT_EQ(lastBox(), "Encountered an improper argument.");
    EXPECT_FALSE(reader.selectFile((folder / "missing.f1").string()));
    EXPECT_EQ(lastBox(), "File could not be opened: " + (folder / "missing.f1").string() + " was not found.");
    EXPECT_EQ(reader.fileLabel(), good);
}

TEST_F(TransferReader, EmptyOrShortValueLinesStopTheRead)
{
    // Header and three value lines, then a gap where element (x 1, y 0) stands.
    std::string text = elementFile(1, 2, 3, 12.0);
    size_t cut = 0;
    for (int line = 0; line < 6; ++line) cut = text.find("\r\n", cut) + 2;
    std::string withGap = text.substr(0, cut) + "\r\n" + text.substr(cut);
    ASSERT_TRUE(reader.selectFile(file("gap.f1", withGap)));
    myGrid grid;
    std::string failure;
    EXPECT_FALSE(reader.readItem(reader.choiceOfRow(0), grid, failure));
    EXPECT_EQ(failure, "Read an empty line in the input file for row 0 col 1");

    ASSERT_TRUE(reader.selectFile(file("narrow.f1", "1, 4, 12, 2, 2, 0, 0\r\n2,a,b\r\n2,in,psi\r\n1\r\n2\r\n3\r\n4\r\n")));
    EXPECT_TRUE(reader.readItem(reader.choiceOfRow(0), grid, failure));
    EXPECT_FALSE(reader.readItem(reader.choiceOfRow(1), grid, failure));
    EXPECT_EQ(failure, "Encountered an improper argument.");
}

TEST_F(TransferReader, TransferAsksSavesWithTitleOrStopsOnCancel)
{
    ASSERT_TRUE(reader.selectFile(file("save.f2", elementFile(2, 2, 2, 24.0))));
    std::string output = (folder / "saved.grd").string();
    fs::remove(output);
    capture.queuedAnswers = {IDCANCEL};
    EXPECT_FALSE(reader.transferRow(6, output));
    EXPECT_FALSE(fs::exists(output));

    ASSERT_TRUE(reader.transferRow(6, output));
    ASSERT_GE(capture.boxes.size(), 3u);
    const std::string question = "Convert the item: Total Vertical Stress <2> in step 2";
    EXPECT_EQ(capture.boxes[1].text, question);
    EXPECT_EQ(capture.boxes[1].type & MB_TYPEMASK, static_cast<unsigned>(MB_OKCANCEL));
    EXPECT_EQ(lastBox(), "File: " + output + " is saved!");
    myGrid saved;
    ASSERT_TRUE(saved.readGrd(output, 1));
    EXPECT_EQ(saved.getTitle(), question);
    EXPECT_DOUBLE_EQ(saved.getValue(1, 0), sampleValue(2, 2, 1, 2));
}
