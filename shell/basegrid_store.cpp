// The base grid's copies outside the document record: an xrecord in the
// drawing's dictionary and the profile. No command reads them back.
#include <string>
#include <vector>

#include "drawing/ui_port.h"
#include "drawing/stringlist.h"
#include "shell/gridframe.h"

void storeBaseGrid(const CDocData& data)
{
    saveStringList("VornBaseGrid", {data.xNumText, data.yNumText, data.xCellText, data.yCellText, data.originXText,
                                    data.originYText, data.rotationText});
    WriteProfileString("Settings", "GridXNum", data.xNumText);
    WriteProfileString("Settings", "GridYNum", data.yNumText);
    WriteProfileString("Settings", "GridXCellXW", data.xCellText);
    WriteProfileString("Settings", "GridXCellYW", data.yCellText);
    WriteProfileString("Settings", "GridRotA", data.rotationText);
    WriteProfileString("Settings", "GridOX", data.originXText);
    WriteProfileString("Settings", "GridOY", data.originYText);
}
