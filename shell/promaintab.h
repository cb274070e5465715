// The task frame: a tabbed main dialog whose pages are the steps of a task,
// and the base class of those pages. The frame carries the document's base
// grid strings and defect settings in and out.
#pragma once

#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "shell/docdata.h"

class CProMainTab;
class myGrid;

// The base of every page of a frame.
class CAcUiTabChildDialogExt {
public:
    virtual ~CAcUiTabChildDialogExt() = default;

    // The page's controls, as the frame shows them under its tab.
    virtual std::vector<vorn::PanelControl> pageControls() = 0;
    // Once, when the frame opens.
    virtual void OnInitDialog() {}
    // The tab is shown (true) or left (false).
    virtual void OnTabActivation(bool active) {}
    // Asked before a step button ("Next>>", "<< Back") moves on.
    virtual bool canLeave() { return true; }
    // Asked when the user leaves the tab; false keeps the page.
    virtual bool OnKillActive() { return true; }
    // The frame's OK closes the dialog.
    virtual void OnMainDialogOK() {}
    // The frame's Cancel is about to close the dialog: a page may still ask
    // to save its work.
    virtual void OnMainDialogCancel() {}
    // False while the page's work is unsaved and OK would lose it: the frame
    // does not offer its OK then.
    virtual bool okEnabled() { return true; }

    // Gives way to the drawing: the frame is hidden until showMainDialog.
    void hideMainDialog();
    // true: the frame is shown again; false: the frame ends as with Cancel.
    void showMainDialog(bool show);

    CProMainTab* mainDialog() const { return frame_; }
    void attachTo(CProMainTab* frame) { frame_ = frame; }

private:
    CProMainTab* frame_ = nullptr;
};

class CProMainTab : public vorn::Panel {
public:
    // Takes the current document's record (loadDocData).
    CProMainTab();

    // Appends a page; a null page changes nothing. Returns the page count.
    int addPage(const std::string& caption, unsigned resourceId, CAcUiTabChildDialogExt* page);
    CAcUiTabChildDialogExt* getPage(int index) const;
    int pageCount() const { return static_cast<int>(pages_.size()); }

    void setTitle(const std::string& title) { title_ = title; }
    void setShowBack(bool show) { showBack_ = show; }
    // Pages that want the step behaviour set "Next>>" on activation.
    void setOkCaption(const std::string& caption) { okCaption_ = caption; }
    const std::string& okCaption() const { return okCaption_; }

    // The lattice of the frame's base grid strings; true if it is defined.
    bool getBaseGrid(myGrid& grid) const;
    // Copy all fields from and to the current document's record.
    void loadDocData();
    void saveDocData() const;

    // The base grid strings, as held by the frame.
    std::string xNumText, yNumText, xCellText, yCellText, rotationText, originXText, originYText;
    // The working copy of the defect settings.
    CDefectRecords defects;
    bool defectsReady = false;

    // The panel as the host shows it.
    std::string panelTitle() const override;
    std::vector<vorn::PanelControl> panelControls() override;
    std::vector<std::string> panelTabs() const override { return captions_; }
    int panelActiveTab() const override { return activeTab_; }
    void selectPanelTab(int index) override;
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

    // OK is offered unless a page holds work that it would lose; a disabled
    // OK does nothing.
    bool okEnabled() const;

    // "<< Back": the previous page, from the first the last.
    void OnBack();

private:
    void activateTab(int index);
    void leaveTo(int index);

    std::vector<std::string> captions_;
    std::vector<CAcUiTabChildDialogExt*> pages_;
    std::vector<unsigned> resources_;
    std::string title_;
    bool showBack_ = false;
    std::string okCaption_ = "OK";
    int activeTab_ = -1;
};
