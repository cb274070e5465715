#include <gtest/gtest.h>

#include "drawing/platform.h"
#include "host/db_database.h"
#include "host/docs_manager.h"
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
    data.yCellText = "1.0";
    data.xNumText = "abc";
    data.yNumText = "25";
    data.rotationText = "0.5";
    data.originXText = "0.000000";
    CProMainTab frame;
    EXPECT_EQ(frame.xCellText, "10");
    EXPECT_EQ(frame.yCellText, "1.0");
    EXPECT_EQ(frame.xNumText, "10");
    EXPECT_EQ(frame.yNumText, "25");
    EXPECT_EQ(frame.rotationText, "0.5");
    EXPECT_EQ(frame.originXText, "0.000000");
}

TEST_F(Documents, EachDocumentKeepsItsOwnRecordUntilItGoes)
{
    size_t before = DocVars().recordCount();
    DocVars().docData(first()).xNumText = "17";
    DocVars().docData(second()).xNumText = "19";
    EXPECT_EQ(DocVars().recordCount(), before + 2);
    acDocManagerPtr()->setCurDocument(second());
    CProMainTab frame;
    EXPECT_EQ(frame.xNumText, "19");
    acDocManagerPtr()->notifyToBeDestroyed(second());
    EXPECT_EQ(DocVars().recordCount(), before + 1);
    EXPECT_EQ(DocVars().docData(first()).xNumText, "17");
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

namespace {

TEST(HostDocuments, TwoDrawingsKeepTheirOwnBaseGridAndClosingDropsTheRecord)
{
    vorn::host::HostDatabase firstDrawing, secondDrawing;
    vorn::HostDocuments documents;
    size_t before = DocVars().recordCount();
    AcApDocument* first = documents.open(firstDrawing, "first.dxf");
    {
        CProMainTab frame;
        frame.xNumText = "33";
        frame.OnOK();
    }
    AcApDocument* second = documents.open(secondDrawing, "second.dxf");
    EXPECT_EQ(vorn::platform().database, &secondDrawing);
    EXPECT_EQ(CProMainTab().xNumText, "10");
    documents.activate(first);
    EXPECT_EQ(vorn::platform().database, &firstDrawing);
    EXPECT_EQ(CProMainTab().xNumText, "33");
    EXPECT_EQ(DocVars().recordCount(), before + 2);
    documents.close(second);
    EXPECT_EQ(DocVars().recordCount(), before + 1);
    documents.close(first);
    EXPECT_EQ(documents.current(), nullptr);
    EXPECT_EQ(vorn::platform().database, nullptr);
}

}  // namespace
