// The frame of a task command: the page "Grid Dimension" first, then the
// pages of the task, run modally with the module's resources.
#pragma once

#include <string>

#include "shell/docdata.h"
#include "shell/gridtab.h"
#include "shell/promaintab.h"

// The dialog template id of the page "Grid Dimension".
inline constexpr unsigned IDD_GRIDTAB = 129;

class GridFrame {
public:
    explicit GridFrame(const std::string& title);
    ~GridFrame();
    GridFrame(const GridFrame&) = delete;
    GridFrame& operator=(const GridFrame&) = delete;

    // Appends a task page after "Grid Dimension".
    void addPage(const std::string& caption, unsigned resourceId, CAcUiTabChildDialogExt* page)
    {
        frame_.addPage(caption, resourceId, page);
    }
    CProMainTab& frame() { return frame_; }
    // Runs the frame; IDOK or IDCANCEL.
    int run() { return frame_.DoModal(); }

private:
    CProMainTab frame_;
    CGridTab gridTab_;
};

// Writes the base grid of a record to the xrecord `VornBaseGrid` of the
// drawing's dictionary and to the profile section "Settings".
void storeBaseGrid(const CDocData& data);
