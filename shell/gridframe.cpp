#include "shell/gridframe.h"


GridFrame::GridFrame(const std::string& title)
{
    acDocManagerPtr()->pushResourceHandle();
    frame_.addPage("Grid Dimension", IDD_GRIDTAB, &gridTab_);
    frame_.setTitle(title);
}

GridFrame::~GridFrame() { acDocManagerPtr()->popResourceHandle(); }
