#include <gtest/gtest.h>

#include "drawing/platform.h"
#include "host/db_database.h"
#include "host/docs_manager.h"
#include "shell/docdata.h"
#include "shell/promaintab.h"

namespace {

// A document known to the document manager by address only.
struct Documents : ::testing::Test {
    void SetUp() override { acDocManagerPtr()->setCurDocument(document()); }
    void TearDown() override { acDocManagerPtr()->notifyToBeDestroyed(document()); }
    AcApDocument* document() { return reinterpret_cast<AcApDocument*>(&slot); }
    int slot = 0;
};

TEST_F(Documents, TheIntegerReadingDecidesTheReplacementByTenWhichGoesIntoTheRecord)
{
    EXPECT_EQ(CProMainTab().xCellText, "10");
    EXPECT_EQ(DocVars().docData().xCellText, "10");
    EXPECT_EQ(DocVars().docData().rotationText, "");
    CDocData& data = DocVars().docData();
    data.xCellText = "0.5";
    data.yCellText = "1.0";
    data.xNumText = "abc";
    data.yNumText = "25";
    data.rotationText = "0.5";
    CProMainTab frame;
    EXPECT_EQ(frame.xCellText, "10");
    EXPECT_EQ(frame.yCellText, "1.0");
    EXPECT_EQ(frame.xNumText, "10");
    EXPECT_EQ(frame.yNumText, "25");
    EXPECT_EQ(frame.rotationText, "0.5");
}

TEST_F(Documents, OnlyOkStoresTheFrameInTheRecord)
{
    for (bool ok : {false, true}) {
        CProMainTab frame;
        frame.xNumText = "55";
        ok ? frame.OnOK() : frame.OnCancel();
        EXPECT_EQ(DocVars().docData().xNumText, ok ? "55" : "10");
    }
}

TEST_F(Documents, DefectDefaultsAreFilledOnceWhenTheCatalogueIsThere)
{
    int calls = 0;
    DefectDefaultsFiller installed = defectDefaultsFiller();
    defectDefaultsFiller() = [&](CDefectRecords& records) {
        ++calls;
        records[0].defectLayer = "RFRI_AngDisc";
    };
    CProMainTab frame;
    CProMainTab again;
    defectDefaultsFiller() = installed;
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(again.defectsReady);
    EXPECT_EQ(again.defects[0].defectLayer, "RFRI_AngDisc");
}

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
