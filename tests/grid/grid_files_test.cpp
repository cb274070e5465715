#include <gtest/gtest.h>

#include "grid/grid.h"
#include "grid/gridfiles.h"
#include "grid_test_util.h"
#include "base/report.h"

using gridtest::slurp;
using gridtest::spit;
using gridtest::tempFile;

namespace {
myGrid sampleGrid()
{
    myGrid g;
    g.setOrigin(vorn::Point2{10.0, 20.0});
    g.setup(2, 2, 5.0, 2.5, 0);
    for (int i = 0; i <= 2; ++i)
        for (int j = 0; j <= 2; ++j) g.setValue(i, j, i + 0.5 * j);
    g.setTitle("Sample");
    return g;
}

// A .grd of 2 x 2 cells whose header and values are given, with CR LF or LF.
std::string grdText(const std::string& values, const std::string& tail, const char* eol = "\r\n")
{
    std::string text;
    for (const char* l : {"0", "0", "2", "2", "2", "2"}) text += std::string(l) + eol;
    return text + values + tail;
}

struct Messages : ::testing::Test {
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope{capture};
    std::string lastBox() const { return capture.boxes.empty() ? "" : capture.boxes.back().text; }
};
}  // namespace

TEST(GrdFile, WriterLayoutIsExact)
{
    myGrid g = sampleGrid();
    g.setValue(1, 1, NULL_VALUE);
    std::string path = tempFile("layout.grd");
    ASSERT_TRUE(g.writeGrd(path));
    EXPECT_EQ(slurp(path),
              "20.000000\r\n10.000000\r\n25.000000\r\n20.000000\r\n2\r\n2\r\n"
              "0.000000\r\n1.000000\r\n2.000000\r\n"
              "0.500000\r\nN\r\n2.500000\r\n"
              "1.000000\r\n2.000000\r\n3.000000\r\n"
              "Sample\r\nVORN Stability Application");
}

TEST(GrdFile, RoundTripKeepsValuesAndTitleWithoutAveraging)
{
    myGrid g = sampleGrid();
    g.setValue(2, 2, -3e20);
    std::string path = tempFile("roundtrip.grd");
    ASSERT_TRUE(g.writeGrd(path));
    myGrid back;
    ASSERT_TRUE(back.readGrd(path, 1));
    EXPECT_EQ(back.getTitle(), "Sample");
    EXPECT_EQ(back.getValue(1, 2), 2.0);
    EXPECT_EQ(back.getValue(2, 2), NULL_VALUE);
    EXPECT_EQ(back.getXCellW(), 5.0);
    EXPECT_EQ(back.getYCellW(), 2.5);
    EXPECT_EQ(back.origin.y, 20.0);

    myGrid untitled = sampleGrid();
    untitled.setTitle("");
    untitled.writeGrd(path);
    EXPECT_NE(slurp(path).find("3.000000\r\n\r\nVORN Stability Application"), std::string::npos);
}

TEST(GrdFile, ForeignFilesAreAveragedOntoCells)
{
    const std::string values = "0\n4\n8\n0\n4\n8\n0\n4\n8\n";
    std::string path = tempFile("foreign.grd");
    spit(path, grdText(values, "", "\n"));  // LF only, no title and no mark
    myGrid g;
    ASSERT_TRUE(g.readGrd(path, 1));
    EXPECT_EQ(g.getValue(0, 0), 2.0);
    EXPECT_EQ(g.getValue(1, 1), 6.0);
    EXPECT_EQ(g.getValue(2, 0), 8.0);  // the last column keeps its node values

    spit(path, grdText(values, "VORN STABILITY application", "\n"));  // the mark as the title line
    ASSERT_TRUE(g.readGrd(path, 1));
    EXPECT_EQ(g.getValue(0, 0), 0.0);
    EXPECT_EQ(g.getTitle(), "VORN STABILITY application");

    spit(path, grdText(values, "Other program\nsome trailer", "\n"));
    ASSERT_TRUE(g.readGrd(path, 1));
    EXPECT_EQ(g.getValue(0, 0), 2.0);
}

TEST(GrdFile, NullMarksAndHeaderOnlyReads)
{
    std::string path = tempFile("nulls.grd");
    spit(path, grdText("n\r\nN \r\nN\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n", "t\r\nVORN Stability Application"));
    myGrid g;
    ASSERT_TRUE(g.readGrd(path, 1));
    EXPECT_EQ(g.getValue(0, 0), NULL_VALUE);
    EXPECT_EQ(g.getValue(1, 0), 0.0);
    EXPECT_EQ(g.getValue(2, 0), NULL_VALUE);

    spit(path, grdText("1\r\n2\r\n", ""));  // fewer values than stated
    myGrid header;
    header.setFillValue(4);
    EXPECT_TRUE(header.readGrd(path, 0));
    EXPECT_EQ(header.getValue(2, 2), 4.0);
    EXPECT_FALSE(header.readGrd(path, 1));
}

TEST_F(Messages, GrdReaderAndWriterMessages)
{
    myGrid g;
    std::string path = tempFile("bad.grd");
    const char* lineErrors[] = {"Error in reading first line!", "Error in reading second line!",
                                "Error in reading third line!", "Error in reading fourth line!",
                                "Error in reading fifth line!", "Error in reading sixth line!"};
    std::string header;
    for (int k = 0; k < 6; ++k) {
        spit(path, header);
        EXPECT_FALSE(g.readGrd(path, 1));
        EXPECT_EQ(lastBox(), lineErrors[k]);
        header += "1\r\n";
    }
    spit(path, "0\r\n0\r\n5\r\n5\r\n0\r\n5\r\n");
    EXPECT_FALSE(g.readGrd(path, 1));
    EXPECT_EQ(lastBox(), "Error in calculating number of cells!");
    spit(path, "0\r\n0\r\n0\r\n5\r\n5\r\n5\r\n");  // zero Y width
    EXPECT_FALSE(g.readGrd(path, 1));
    EXPECT_EQ(lastBox(), "Error in setting up grid!");
    EXPECT_FALSE(g.readGrd(tempFile("missing.grd"), 1));
    EXPECT_EQ(lastBox(), "le could not be opened: ");

    myGrid undefined;
    EXPECT_FALSE(undefined.writeGrd(path));
    EXPECT_EQ(lastBox(), "Grid is not defined!");
    EXPECT_FALSE(sampleGrid().writeGrd("/nonexistent-dir/x.grd"));
    EXPECT_EQ(lastBox(), "le could not be opened to write");
    EXPECT_FALSE(sampleGrid().writeTop("/nonexistent-dir/x.top"));
    EXPECT_EQ(lastBox(), "le could not be opened ");
}

TEST(TopFile, WriterLayoutAndRoundTrip)
{
    myGrid g = sampleGrid();
    std::string path = tempFile("layout.top");
    ASSERT_TRUE(g.writeTop(path));
    EXPECT_EQ(slurp(path),
              "1,4,5.000000,2,2,10.000000,20.000000,0.750000\r\n1,Sample\r\n1,Inches"
              "\r\n0.000000\r\n0.500000\r\n1.000000\r\n1.500000");
    myGrid back;
    back.setTitle("kept");
    ASSERT_TRUE(back.readTop(path, 1));
    EXPECT_EQ(back.getValue(1, 1), 1.5);
    EXPECT_EQ(back.getValue(2, 2), 0.0);  // the last row and column are not stored
    EXPECT_EQ(back.getYCellW(), 5.0);
    EXPECT_EQ(back.getTitle(), "kept");

    g.setTitle("");
    g.writeTop(path);
    EXPECT_NE(slurp(path).find("\r\n1,NO TITLE\r\n"), std::string::npos);
}

TEST(TopFile, OldHeaderFormAndSinglePrecision)
{
    std::string path = tempFile("old.top");
    spit(path, "4,2.5,2,2,1234567.125,7.0,0\n1\n2\n3\n4");
    myGrid g;
    ASSERT_TRUE(g.readTop(path, 1));
    EXPECT_EQ(g.getValue(0, 1), 2.0);
    EXPECT_EQ(g.origin.x, static_cast<double>(1234567.125f));
    EXPECT_EQ(g.getXCellW(), 2.5);

    // An old header whose cell count is 1 is taken for the current form.
    spit(path, "1,2.5,2,2,0,0,0\n1\n2\n3\n4");
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope(capture);
    EXPECT_FALSE(g.readTop(path, 1));
    EXPECT_EQ(capture.boxes.back().text, " bad grid definition -- 2!");
}

TEST_F(Messages, TopReaderMessages)
{
    myGrid g;
    std::string path = tempFile("bad.top");
    spit(path, "");
    EXPECT_FALSE(g.readTop(path, 1));
    EXPECT_EQ(lastBox(), "Could not read from input file.");
    for (const char* header : {"1,4,1.0,0,2,0,0,0", "1,4,1.0,2,0,0,0,0", "1,4,0.00009,2,2,0,0,0", "1,4,1.0,5,2,0,0,0"}) {
        spit(path, std::string(header) + "\n1,t\n1,Inches");
        EXPECT_FALSE(g.readTop(path, 1));
        EXPECT_EQ(lastBox(), " bad grid definition -- 2!") << header;
    }
    spit(path, "1,4002000,1.0,2001,2000,0,0,0\n1,t\n1,Inches");
    EXPECT_FALSE(g.readTop(path, 1));
    EXPECT_EQ(lastBox(), "bad grid definition -- 3!");
    spit(path, "1,4,1.0,2,2,0,0,0\n1,t\n1,Inches\n1\n2");
    capture.boxes.clear();
    EXPECT_FALSE(g.readTop(path, 1));  // values missing: no message
    EXPECT_TRUE(capture.boxes.empty());
    EXPECT_TRUE(g.readTop(path, 0));
}

// A header that claims more values than the file holds fails before the
// lattice is allocated: as when the values run out, without a message. A
// header-only read sets up any lattice the file could hold, and small ones.
TEST_F(Messages, HeadersClaimingMoreThanTheFileHoldsFailFast)
{
    std::string path = tempFile("claims.grd");
    spit(path, "0\n0\n20000\n20000\n20000\n20000\n");
    myGrid g;
    EXPECT_FALSE(g.readGrd(path, 1));
    EXPECT_FALSE(g.readGrd(path, 0));
    EXPECT_TRUE(capture.boxes.empty());
    EXPECT_EQ(g.getXNum(), 0);
    spit(path, "0\n0\n1\n1\n2147483647\n1\n");
    EXPECT_FALSE(g.readGrd(path, 0));
    EXPECT_EQ(lastBox(), "Error in setting up grid!");
    EXPECT_FALSE(g.setup(2147483647, 1, 1.0, 1.0, 0.0));
    spit(path, "1,4000000,1.0,2000,2000,0,0,0\n1,t\n1,Inches\n");
    capture.boxes.clear();
    EXPECT_FALSE(g.readTop(path, 1));
    EXPECT_TRUE(g.readTop(path, 0));
    EXPECT_TRUE(capture.boxes.empty());
}

TEST(GridFileChoice, ReaderByName)
{
    using vorn::GridFileKind;
    EXPECT_EQ(vorn::gridFileKindOf("/a/Depth.GRD"), GridFileKind::Grd);
    EXPECT_EQ(vorn::gridFileKindOf(".grd"), GridFileKind::Unknown);
    EXPECT_EQ(vorn::gridFileKindOf("model.f2"), GridFileKind::Top);
    EXPECT_EQ(vorn::gridFileKindOf("surface.top"), GridFileKind::Top);
    EXPECT_EQ(vorn::gridFileKindOf("notes.txt"), GridFileKind::Unknown);
    vorn::CaptureReporter capture;
    vorn::ScopedReporter scope(capture);
    myGrid g;
    EXPECT_FALSE(vorn::readGridByName(g, "notes.txt", 1));
    EXPECT_EQ(capture.boxes.back().text, "Unknown grid file !");
}
