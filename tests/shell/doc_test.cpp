#include <gtest/gtest.h>

#include "shell/docdata.h"
#include "shell/promaintab.h"

namespace {

// Two documents known to the document manager by address only.
struct Documents : ::testing::Test {
    void SetUp() override { acDocManagerPtr()->setCurDocument(first()); }
    void TearDown() override
    {
        acDocManagerPtr()->notifyToBeDestroyed(first());
        acDocManagerPtr()->notifyToBeDestroyed(second());
    }
    AcApDocument* first() { return reinterpret_cast<AcApDocument*>(&slots[0]); }
    AcApDocument* second() { return reinterpret_cast<AcApDocument*>(&slots[1]); }
    int slots[2] = {};
};

TEST_F(Documents, ANewDocumentShowsTenByTenCellsOfWidthTen)
{
    CProMainTab frame;
    EXPECT_EQ(frame.xNumText, "10");
    EXPECT_EQ(frame.yNumText, "10");
    EXPECT_EQ(frame.xCellText, "10");
    EXPECT_EQ(frame.yCellText, "10");
    EXPECT_EQ(frame.rotationText, "");
    EXPECT_EQ(frame.originXText, "");
    // The replacement is written into the record too.
    EXPECT_EQ(DocVars().docData().xCellText, "10");
}

TEST_F(Documents, TheIntegerReadingDecidesTheReplacementByTen)
{
    CDocData& data = DocVars().docData();
    data.xCellText = "0.5";
    data.yCellText = "1";
    data.xNumText = "abc";
    data.yNumText = "25";
    data.rotationText = "0.5";
    data.originXText = "0.000000";
    CProMainTab frame;
    EXPECT_EQ(frame.xCellText, "10");
    EXPECT_EQ(frame.yCellText, "1");
    EXPECT_EQ(frame.xNumText, "10");
    EXPECT_EQ(frame.yNumText, "25");
    EXPECT_EQ(frame.rotationText, "0.5");
    EXPECT_EQ(frame.originXText, "0.000000");
}

TEST_F(Documents, EachDocumentKeepsItsOwnRecordUntilItGoes)
{
    size_t before = DocVars().recordCount();
    DocVars().docData(first()).xNumText = "7";
    DocVars().docData(second()).xNumText = "9";
    EXPECT_EQ(DocVars().recordCount(), before + 2);
    acDocManagerPtr()->setCurDocument(second());
    CProMainTab frame;
    EXPECT_EQ(frame.xNumText, "9");
    acDocManagerPtr()->notifyToBeDestroyed(second());
    EXPECT_EQ(DocVars().recordCount(), before + 1);
    EXPECT_EQ(DocVars().docData(first()).xNumText, "7");
    EXPECT_EQ(acDocManagerPtr()->curDocument(), nullptr);
}

TEST_F(Documents, OnlyOkStoresTheFrameInTheRecord)
{
    {
        CProMainTab frame;
        frame.xNumText = "55";
        frame.OnCancel();
    }
    EXPECT_EQ(DocVars().docData().xNumText, "10");
    CProMainTab frame;
    frame.xNumText = "55";
    frame.OnOK();
    EXPECT_EQ(frame.endResult(), 1);
    EXPECT_EQ(DocVars().docData().xNumText, "55");
}

TEST_F(Documents, DefectDefaultsAreFilledOnceWhenTheCatalogueIsThere)
{
    int calls = 0;
    defectDefaultsFiller() = [&](CDefectRecords& records) {
        ++calls;
        records[0].defectLayer = "RFRI_AngDisc";
    };
    CProMainTab frame;
    CProMainTab again;
    defectDefaultsFiller() = nullptr;
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(again.defectsReady);
    EXPECT_EQ(again.defects[0].defectLayer, "RFRI_AngDisc");
}

}  // namespace
