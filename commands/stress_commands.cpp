#include "commands/commands.h"

#include <memory>
#include <string>

#include "base/report.h"
#include "drawing/editor_port.h"
#include "drawing/prompts.h"
#include "grid/grid.h"
#include "stressmodel/convkelgrid_panel.h"
#include "stressmodel/keldar_flow.h"
#include "stressmodel/keldar_panel.h"
#include "stressmodel/topostress_panel.h"

namespace {
// A prompt on the command line that waits for Enter; Escape is no answer.
bool waitForEnter(const std::string& prompt)
{
    std::string answer;
    return acedGetString(0, prompt.c_str(), answer) == RTNORM;
}

std::string withSeparator(std::string folder)
{
    if (!folder.empty() && folder.back() != '/') folder += '/';
    return folder;
}
}  // namespace

void vorn_topoStressModel()
{
    dlg_topostress panel;
    panel.command.drawingFolder = withSeparator(drawingFolder());
    panel.command.confirmContinue = waitForEnter;
    panel.command.showResult = [](const std::string& path) {
        myGrid grid;
        if (grid.readGrd(path, 1)) dlg_convkelgrid::plotPreview(grid);
    };
    if (panel.DoModal() != IDOK) return;
    panel.command.run();
}

void vorn_keldar()
{
    dlg_keldar panel;
    if (panel.DoModal() != IDOK) return;
    std::unique_ptr<CModelDat> model = panel.takeModel();
    if (model) vorn::runKeldarModel(*model, waitForEnter);
}

void vorn_convKelGrid()
{
    dlg_convkelgrid panel;
    panel.DoModal();
}
