#include "generators/gridpage_fields.h"

#include <filesystem>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/drawing_helpers.h"
#include "drawing/editor_port.h"
#include "drawing/layers.h"
#include "drawing/prompts.h"

using vorn::formatString;

void OutputFileField::setDefault()
{
    std::string folder = drawingFolder();
    if (!folder.empty() && folder.back() != '/' && folder.back() != '\\') folder += '/';
    text = folder + "Untitled." + extension_;
    previous_ = text;
}

void OutputFileField::edited()
{
    if (!text.empty()) {
        std::string suffix = "." + extension_;
        std::string lower = vorn::toLower(text);
        if (lower.size() < suffix.size() || lower.compare(lower.size() - suffix.size(), suffix.size(), suffix) != 0)
            text += suffix;
        std::error_code error;
        if (text != previous_ && std::filesystem::is_regular_file(text, error) &&
            AfxMessageBox("File Exists, Do you want to Overwrite it?", MB_YESNO | MB_ICONQUESTION) == IDNO)
            text = previous_;
    }
    previous_ = text;
}

void OutputFileField::take(const std::string& path)
{
    text = path;
    previous_ = path;
}

void OutputFileField::pick()
{
    std::string path = text;
    if (pickFileName(false, extension_, path)) take(path);
}

void LayerChoiceList::fill(const std::vector<std::string>& layers)
{
    rows = layers;
    chosen.assign(rows.size(), false);
    join();
}

int LayerChoiceList::rowOf(const std::string& layer) const
{
    for (size_t k = 0; k < rows.size(); ++k)
        if (vorn::iequals(rows[k], layer)) return static_cast<int>(k);
    return -1;
}

bool LayerChoiceList::choose(const std::string& layer)
{
    int row = rowOf(layer);
    if (row < 0 || chosen[static_cast<size_t>(row)]) return false;
    chosen[static_cast<size_t>(row)] = true;
    join();
    return true;
}

void LayerChoiceList::unchoose(const std::string& layer)
{
    int row = rowOf(layer);
    if (row < 0) return;
    chosen[static_cast<size_t>(row)] = false;
    join();
}

bool LayerChoiceList::isChosen(const std::string& layer) const
{
    int row = rowOf(layer);
    return row >= 0 && chosen[static_cast<size_t>(row)];
}

void LayerChoiceList::join() { joined = joinSelectedItems(rows, chosen, ","); }

vorn::PanelControl LayerChoiceList::control(const std::string& caption, std::function<void(size_t)> onToggled)
{
    // The driver writes the row's text into the field, then runs the event.
    return vorn::listControl(caption, joined, rows, [this, onToggled] {
        int row = rowOf(joined);
        if (row >= 0) chosen[static_cast<size_t>(row)] = !chosen[static_cast<size_t>(row)];
        join();
        if (row >= 0 && onToggled) onToggled(static_cast<size_t>(row));
    });
}

bool readIntField(const std::string& text, int low, int high, int& value)
{
    size_t used = 0;
    int read = 0;
    try {
        read = std::stoi(text, &used);
    } catch (const std::exception&) {
        used = 0;
    }
    if (used == 0 || text.find_first_not_of(" \t", used) != std::string::npos) {
        AfxMessageBox("Please enter an integer.", MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    if (read < low || read > high) {
        AfxMessageBox(formatString("Please enter an integer between %d and %d.", low, high), MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    value = read;
    return true;
}

void askSaveOnLeaving(bool unsaved, const std::function<void()>& save)
{
    if (unsaved && AfxMessageBox("The Grid is not saved! Save it?", MB_YESNO | MB_ICONQUESTION) == IDYES) save();
}

int lastPickErrno()
{
    vorn::ResultItem value;
    if (acedGetVar("ERRNO", value) != RTNORM) return 0;
    return static_cast<int>(value.integer);
}

void pickLayersByObject(LayerChoiceList& list, const char* prompt, const std::function<void(size_t)>& onChosen)
{
    vorn::ObjectId id;
    ads_point picked;
    for (;;) {
        int status = acedEntSel(prompt, id, picked);
        if (status == RTERROR && lastPickErrno() == vorn::kErrnoNothingPicked) continue;
        if (status != RTNORM) return;
        std::string layer = entityLayerName(id);
        if (!list.choose(layer)) continue;
        acutPrintf("\nselected layer: %s", layer.c_str());
        for (size_t k = 0; k < list.rows.size(); ++k)
            if (vorn::iequals(list.rows[k], layer) && onChosen) onChosen(k);
    }
}
