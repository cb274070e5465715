#include "index/dlg_stability.h"

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/drawing_helpers.h"
#include "drawing/prompts.h"
#include "grid/grid.h"

using vorn::formatString;

dlg_stability::dlg_stability() { setProjectPath(projectPath); }

std::vector<vorn::PanelControl> dlg_stability::panelControls()
{
    using namespace vorn;
    refreshRows();
    return {
        staticControl("Current Project:", heading),
        buttonControl("< Select Project", [this] { OnSelectProject(); }),
        listControl("Factor List", clickedRow_, rowNames_, [this] { onRowClicked(clickedRow_); }),
        listControl("Factor List (double click)", doubleClickedRow_, rowNames_,
                    [this] { onRowDoubleClicked(doubleClickedRow_); }),
        editControl("Name", name),
        editControl("Weighting Factor", weighting),
        staticControl("Factor Grid:", gridPath),
        buttonControl("< Select Index Grid", [this] { OnSelectIndexGrid(); }),
        buttonControl("Add", [this] { OnAdd(); }),
        buttonControl("Remove", [this] { OnRemove(); }),
        buttonControl("Update", [this] { OnUpdate(); }),
        buttonControl("Create Index", [this] { OnCreateIndex(); }),
        buttonControl("Save and Exit", [this] { OnSaveAndExit(); }),
        buttonControl("Exit", [this] { OnExit(); }),
    };
}

// The list shows each factor by its name, its key; the selection keeps up
// with rows added and removed.
void dlg_stability::refreshRows()
{
    rowNames_.clear();
    for (const StabilityFactor& f : factors) rowNames_.push_back(f.name);
    selected.resize(factors.size(), false);
    clickedRow_ = joinSelectedItems(rowNames_, selected, ",");
}

void dlg_stability::setProjectPath(const std::string& path)
{
    projectPath = path;
    heading = "Current Project: " + path;
}

int dlg_stability::findRow(const std::string& rowName) const
{
    for (size_t k = 0; k < factors.size(); ++k)
        if (factors[k].name == rowName) return static_cast<int>(k);
    return -1;
}

void dlg_stability::onRowClicked(const std::string& rowName)
{
    int row = findRow(rowName);
    if (row >= 0) selected[static_cast<size_t>(row)] = !selected[static_cast<size_t>(row)];
    refreshRows();
}

void dlg_stability::onRowDoubleClicked(const std::string& rowName)
{
    int row = findRow(rowName);
    if (row < 0) return;
    const StabilityFactor& f = factors[static_cast<size_t>(row)];
    name = f.name;
    gridPath = f.gridFile;
    description = f.description;
    weighting = f.weighting;
}

void dlg_stability::OnSelectProject()
{
    std::string path = projectPath;
    if (pickFileName(true, "prj", path)) loadProject(path);
}

// A missing line stops the reading: the factors read so far stay listed,
// but the project heading keeps the old path.
void dlg_stability::loadProject(const std::string& path)
{
    ProjectReadStatus status = readProject(path, factors);
    selected.assign(factors.size(), false);
    if (status == ProjectReadStatus::Unopened) AfxMessageBox("File could not be opened: ");
    if (status == ProjectReadStatus::Complete) setProjectPath(path);
}

bool dlg_stability::checkFields() const
{
    if (name.empty() || weighting.empty() || gridPath.empty()) {
        AfxMessageBox("Not all data is specified!");
        return false;
    }
    if (_wtoi(weighting) <= 0) {
        AfxMessageBox("Weighting Factor must larger than zero!");
        return false;
    }
    return true;
}

void dlg_stability::OnAdd()
{
    if (!checkFields()) return;
    if (findRow(name) >= 0) {
        AfxMessageBox("The entry with same name is already in the list!");
        return;
    }
    factors.push_back({name, gridPath, description, weighting});
    selected.push_back(false);
}

void dlg_stability::OnRemove()
{
    for (size_t k = 0; k < factors.size(); ++k) {
        if (!selected[k]) continue;
        factors.erase(factors.begin() + static_cast<long>(k));
        selected.erase(selected.begin() + static_cast<long>(k));
        return;
    }
    AfxMessageBox("No items were selected!\n");
}

void dlg_stability::OnUpdate()
{
    if (!checkFields()) return;
    int row = findRow(name);
    if (row < 0) {
        AfxMessageBox("This entry not in the list!");
        return;
    }
    StabilityFactor& f = factors[static_cast<size_t>(row)];
    f.gridFile = gridPath;
    f.description = description;
    f.weighting = weighting;
}

// Only the header is read, which holds no title: the name is emptied and
// the description starts with a blank.
void dlg_stability::OnSelectIndexGrid()
{
    if (!pickFileName(true, "grd", gridPath)) return;
    myGrid grid;
    if (!grid.readGrd(gridPath, 0)) {
        AfxMessageBox("invalid grid file: reading failed");
        gridPath.clear();
        description.clear();
        return;
    }
    description = formatString("%s (grid: %d * %d)", grid.getTitle().c_str(), grid.xNum, grid.yNum);
    name = grid.getTitle();
    weighting = "50";
}

void dlg_stability::OnCreateIndex()
{
    CompositeQuestions questions;
    questions.askSave = [](const std::string& message) { return AfxMessageBox(message, MB_YESNO) == IDYES; };
    questions.choosePath = [](std::string& path) { return pickFileName(false, "grd", path); };
    createCompositeIndex(factors, projectPath, questions);
}

void dlg_stability::OnSaveAndExit()
{
    std::string path = projectPath;
    if (path == kDefaultProjectPath && !pickFileName(false, "prj", path)) return;
    if (!writeProject(path, factors)) {
        AfxMessageBox("File could not be opened for write");
        return;
    }
    setProjectPath(path);
    EndDialog(IDOK);
}
