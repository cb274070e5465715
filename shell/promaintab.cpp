#include "shell/promaintab.h"

#include "grid/grid.h"
#include "base/report.h"
#include "base/textnum.h"

void CAcUiTabChildDialogExt::hideMainDialog()
{
    if (frame_) frame_->setHidden(true);
}

void CAcUiTabChildDialogExt::showMainDialog(bool show)
{
    if (!frame_) return;
    if (show)
        frame_->setHidden(false);
    else
        frame_->OnCancel();
}

CProMainTab::CProMainTab() { loadDocData(); }

int CProMainTab::addPage(const std::string& caption, unsigned resourceId, CAcUiTabChildDialogExt* page)
{
    if (page) {
        captions_.push_back(caption);
        pages_.push_back(page);
        resources_.push_back(resourceId);
        page->attachTo(this);
    }
    return pageCount();
}

CAcUiTabChildDialogExt* CProMainTab::getPage(int index) const
{
    if (index < 0 || index >= pageCount()) return nullptr;
    return pages_[static_cast<size_t>(index)];
}

namespace {
// A count or width whose integer reading is 0 becomes "10".
void defaultToTen(std::string& text)
{
    if (_wtoi(text) == 0) text = "10";
}
}  // namespace

void CProMainTab::loadDocData()
{
    CDocData& data = DocVars().docData();
    defaultToTen(data.xNumText);
    defaultToTen(data.yNumText);
    defaultToTen(data.xCellText);
    defaultToTen(data.yCellText);
    if (!data.defectsReady && defectDefaultsFiller()) {
        defectDefaultsFiller()(data.defects);
        data.defectsReady = true;
    }
    xNumText = data.xNumText;
    yNumText = data.yNumText;
    xCellText = data.xCellText;
    yCellText = data.yCellText;
    rotationText = data.rotationText;
    originXText = data.originXText;
    originYText = data.originYText;
    defects = data.defects;
    defectsReady = data.defectsReady;
}

void CProMainTab::saveDocData() const
{
    CDocData& data = DocVars().docData();
    data.xNumText = xNumText;
    data.yNumText = yNumText;
    data.xCellText = xCellText;
    data.yCellText = yCellText;
    data.rotationText = rotationText;
    data.originXText = originXText;
    data.originYText = originYText;
    data.defects = defects;
    data.defectsReady = defectsReady;
}

bool CProMainTab::getBaseGrid(myGrid& grid) const
{
    grid.setOrigin(_wtof(originXText), _wtof(originYText), 0.0);
    grid.setup(_wtoi(xNumText), _wtoi(yNumText), _wtof(xCellText), _wtof(yCellText), _wtof(rotationText));
    return grid.isDefined();
}

std::string CProMainTab::panelTitle() const { return title_.empty() ? "Dialog" : title_; }

std::vector<vorn::PanelControl> CProMainTab::panelControls()
{
    std::vector<vorn::PanelControl> controls;
    if (CAcUiTabChildDialogExt* page = getPage(activeTab_)) controls = page->pageControls();
    controls.push_back(vorn::buttonControl("Cancel", [this] { OnCancel(); }));
    if (showBack_) controls.push_back(vorn::buttonControl("<< Back", [this] { OnBack(); }));
    if (okEnabled())
        controls.push_back(vorn::buttonControl(okCaption_, [this] { OnOK(); }));
    return controls;
}

void CProMainTab::OnInitDialog()
{
    for (CAcUiTabChildDialogExt* page : pages_) page->OnInitDialog();
    activeTab_ = -1;
    if (!pages_.empty()) activateTab(0);
}

void CProMainTab::activateTab(int index)
{
    if (CAcUiTabChildDialogExt* old = getPage(activeTab_)) old->OnTabActivation(false);
    activeTab_ = index;
    if (CAcUiTabChildDialogExt* page = getPage(activeTab_)) page->OnTabActivation(true);
}

void CProMainTab::selectPanelTab(int index)
{
    if (index != activeTab_) leaveTo(index);
}

// Leaves the shown page for `index`; the same index shows the page afresh.
void CProMainTab::leaveTo(int index)
{
    if (!getPage(index)) return;
    CAcUiTabChildDialogExt* page = getPage(activeTab_);
    if (page && !page->OnKillActive()) return;
    activateTab(index);
}

// OK ends the frame and stores the pages' results, unless a page has set
// the step caption "Next>>": then it moves on to the next page, from the
// last page back to the first.
bool CProMainTab::okEnabled() const
{
    for (CAcUiTabChildDialogExt* page : pages_)
        if (!page->okEnabled()) return false;
    return true;
}

void CProMainTab::OnOK()
{
    if (!okEnabled()) return;
    if (!vorn::iequals(okCaption_, "Next>>")) {
        for (CAcUiTabChildDialogExt* page : pages_) page->OnMainDialogOK();
        saveDocData();
        EndDialog(IDOK);
        return;
    }
    if (pages_.empty()) return;
    CAcUiTabChildDialogExt* page = getPage(activeTab_);
    if (page && !page->canLeave()) return;
    leaveTo((activeTab_ + 1) % pageCount());
}

void CProMainTab::OnCancel()
{
    for (CAcUiTabChildDialogExt* page : pages_) page->OnMainDialogCancel();
    EndDialog(IDCANCEL);
}

void CProMainTab::OnBack()
{
    if (pages_.empty()) return;
    CAcUiTabChildDialogExt* page = getPage(activeTab_);
    if (page && !page->canLeave()) return;
    leaveTo((activeTab_ + pageCount() - 1) % pageCount());
}
