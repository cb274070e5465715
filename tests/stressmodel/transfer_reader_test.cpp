// Reading the element files of the model for a transfer to a grid: the item
// list, the values of one item and the refusals of bad files.
#include <filesystem>
#include <string>

#include "grid/grid.h"
#include "stressmodel/transfer.h"
#include "tests/stressmodel/fixture.h"

namespace vorn::testing {
namespace {
namespace fs = std::filesystem;

class TransferReader : public ScratchFolderTest {
protected:
    std::string file(const std::string& name, const std::string& text)
    {
        writeFile(name, text);
        return path(name);
    }
    CElementFileReader reader;
};

TEST_F(TransferReader, HeaderGivesTheListOfAllStepsWithNamesAsSplit)
{
    EXPECT_EQ(reader.fileLabel(), "Current Keldar file: None");
    const std::string listed = file("list.f1", elementFile(2, 2, 3, 60.0));
    ASSERT_TRUE(reader.selectFile(listed));
    EXPECT_EQ(reader.fileLabel(), listed);
    EXPECT_FLOAT_EQ(reader.elementWidth, 5.0f);
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

    ASSERT_TRUE(reader.selectFile(file("metric.f1", elementFile(1, 2, 2, 3.0, "m"))));
    EXPECT_FLOAT_EQ(reader.elementWidth, 0.25f);  // still divided by twelve
}

TEST_F(TransferReader, ItemOfALaterStepSkipsTheEarlierStepsAndKeepsXOuter)
{
    ASSERT_TRUE(reader.selectFile(file("skip.f1", elementFile(3, 2, 3, 60.0))));
    const CElementItemChoice first = reader.choiceOfRow(10);
    EXPECT_EQ(first.step, 3);
    EXPECT_EQ(first.indexInLine, 1);  // from one in every step
    EXPECT_EQ(first.name, "Seam Convergence ");
    EXPECT_EQ(reader.choiceOfRow(6).indexInLine, 2);
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
    EXPECT_FALSE(reader.selectFile(path("missing.f1")));
    EXPECT_EQ(lastBox(), "File could not be opened: " + path("missing.f1") + " was not found.");
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
    std::string output = path("saved.grd");
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

// Headers that claim far more than the file holds: refused or read only as
// far as the lines go, never allocated in proportion to the claim.
TEST_F(TransferReader, HeadersClaimingMoreThanTheFileHoldsFailFast)
{
    ASSERT_TRUE(reader.selectFile(file("huge.f1", "1, 1, 12, 20000, 20000, 0, 0\r\n2,a,b\r\n2,in,psi\r\n1,2\r\n")));
    myGrid grid;
    std::string failure;
    EXPECT_FALSE(reader.readItem(reader.choiceOfRow(0), grid, failure));
    EXPECT_EQ(failure, "Read an empty line in the input file for row 1 col 0");
    EXPECT_EQ(grid.getXNum(), 0);

    std::string names = "300000", units = "300000";
    for (int k = 0; k < 300000; ++k) {
        names += ",a";
        units += ",b";
    }
    EXPECT_FALSE(reader.selectFile(file("wide.f1", "100000, 1, 12, 1, 1, 0, 0\r\n" + names + "\r\n" + units + "\r\n")));
    EXPECT_EQ(lastBox(), "The file is too short for 100000 steps of 1 elements with 300000 items");
    EXPECT_TRUE(reader.rows().empty());
    EXPECT_FALSE(reader.selectFile(file("steps.f1", "2147483647, 2147483647, 12, 1, 1, 0, 0\r\n1,a\r\n1,in\r\n1\r\n")));
}

}  // namespace
}  // namespace vorn::testing
