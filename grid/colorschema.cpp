#include "grid/colorschema.h"

#include <algorithm>
#include <cmath>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/platform.h"
#include "drawing/ui_port.h"

namespace {

// The persistence keys: the panel reads one and writes the other, so a
// written list is never read back.
constexpr const char* kColorsReadKey = "CRainBowColor";
constexpr const char* kColorsWriteKey = "RainBowColor";
constexpr size_t kMaxKeptColors = 11;

std::string dialogData(const std::string& key)
{
    vorn::UiPort* ui = vorn::platform().ui;
    return ui ? ui->dialogData(kColorSchemaDialog, key, "") : std::string();
}

void setDialogData(const std::string& key, const std::string& value)
{
    if (vorn::UiPort* ui = vorn::platform().ui) ui->setDialogData(kColorSchemaDialog, key, value);
}

std::vector<unsigned> persistedColors()
{
    std::vector<unsigned> result;
    std::string text = dialogData(kColorsReadKey);
    size_t start = 0;
    while (!text.empty() && start <= text.size() && result.size() < kMaxKeptColors) {
        size_t comma = text.find(',', start);
        std::string field = text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
        result.push_back(static_cast<unsigned>(_wtoi(field)));
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return result;
}

}  // namespace

void CColorRainbow::fillDefaultColors(size_t count)
{
    colors.assign(count, 0);
    for (size_t k = 0; k < count; ++k) {
        if (count >= 10)
            colors[k] = kRainbowColors[k % 10];
        else if (count == 1)
            colors[k] = kRainbowColors[0];
        else
            colors[k] = kRainbowColors[static_cast<int>(static_cast<double>(k) * 9.0 / static_cast<double>(count - 1))];
    }
}

void CColorRainbow::setRange(double a, double b, int groups)
{
    double lo = std::min(a, b);
    double hi = std::max(a, b);
    if (hi - lo <= 1e-10) {
        lo = 0.0;
        hi = 10.0;
    }
    minimum = lo;
    maximum = hi;
    int n = groups <= 0 ? 2 : groups;
    interval = std::fabs(hi - lo) / n;
    // Wide intervals become whole numbers, which can give more groups.
    if (interval > 10.0) interval = std::floor(interval);
    int count = static_cast<int>((hi - lo) / interval) + 1;
    breaks.resize(static_cast<size_t>(count));
    for (int k = 0; k < count; ++k) breaks[k] = lo + k * interval;
    fillDefaultColors(static_cast<size_t>(std::max(count - 1, 1)));
    table.clear();
    for (int k = 0; k < count; ++k) table.push_back({breaks[k], static_cast<double>(colors[k % colors.size()])});
}

const ColorTable& CColorRainbow::getTable()
{
    if (table.empty()) setRange(0.0, 100.0, 10);
    return table;
}

// ---- the panel -------------------------------------------------------------

std::vector<vorn::PanelControl> CColorRainbow::panelControls()
{
    using namespace vorn;
    return {
        editControl("Minimum:", minimumText),
        editControl("Maximum:", maximumText),
        editControl("Interval:", intervalText),
        buttonControl("Reset >>", [this] { OnReset(); }),
        editControl("Break:", newBreakText),
        buttonControl("Add >>", [this] { OnAdd(); }),
        buttonControl("Delete Selection", [this] { OnDeleteSelection(); }),
        listControl("Preview Color", selectedRowText, rows),
        buttonControl("Row Color ...", [this] { OnRowDoubleClick(); }),
        buttonControl("B/W", [this] { OnBlackWhite(); }),
        buttonControl("Default", [this] { OnDefault(); }),
    };
}

void CColorRainbow::OnInitDialog()
{
    breaks.clear();
    colors.clear();
    if (!table.empty()) {
        for (const vorn::Point2& entry : table) breaks.push_back(entry.x);
        for (size_t k = 0; k + 1 < table.size(); ++k) colors.push_back(static_cast<unsigned>(table[k].y));
        minimum = breaks.front();
        maximum = breaks.back();
        interval = colors.empty() ? 0.0 : (maximum - minimum) / static_cast<double>(colors.size());
    } else {
        colors = persistedColors();
        if (colors.empty()) colors.assign(std::begin(kRainbowColors), std::end(kRainbowColors));
    }
    if (breaks.empty()) setRange(0.0, 100.0, 10);
    showFields();
    rebuildList();
}

void CColorRainbow::showFields()
{
    minimumText = vorn::formatString("%g", minimum);
    maximumText = vorn::formatString("%g", maximum);
    intervalText = vorn::formatString("%g", interval);
    newBreakText = vorn::formatString("%g", newBreak);
}

void CColorRainbow::readFields()
{
    minimum = _wtof(minimumText);
    maximum = _wtof(maximumText);
    interval = _wtof(intervalText);
    newBreak = _wtof(newBreakText);
}

void CColorRainbow::rebuildList()
{
    rows.clear();
    swatches.clear();
    for (int g = static_cast<int>(breaks.size()) - 2; g >= 0; --g) {
        rows.push_back(vorn::formatString("%g - %g", breaks[g], breaks[g + 1]));
        unsigned color = colors.empty() ? 7u : colors[g % colors.size()];
        swatches.push_back(acedGetRGB(static_cast<int>(color)));
    }
    if (std::find(rows.begin(), rows.end(), selectedRowText) == rows.end()) selectedRowText.clear();
}

int CColorRainbow::selectedRow() const
{
    auto it = std::find(rows.begin(), rows.end(), selectedRowText);
    return it == rows.end() || selectedRowText.empty() ? -1 : static_cast<int>(it - rows.begin());
}

void CColorRainbow::OnReset()
{
    readFields();
    if (!(interval > 0.0) || !(maximum > minimum)) return;
    breaks.clear();
    double value = minimum;
    for (int k = 0; value <= maximum; value = minimum + (++k) * interval) breaks.push_back(value);
    if (breaks.back() < maximum) breaks.push_back(value);
    fillDefaultColors(breaks.size() - 1);
    rebuildList();
}

void CColorRainbow::OnAdd()
{
    readFields();
    if (breaks.empty() || newBreak > breaks.back()) {
        breaks.push_back(newBreak);
    } else {
        for (auto it = breaks.begin(); it != breaks.end(); ++it) {
            if (std::fabs(*it - newBreak) < 1e-10) return;
            if (*it > newBreak) {
                breaks.insert(it, newBreak);
                break;
            }
        }
    }
    rebuildList();
}

void CColorRainbow::OnDeleteSelection()
{
    int row = selectedRow();
    if (row < 0) return;
    int k = static_cast<int>(breaks.size()) - row - 2;
    if (k < 0 || k >= static_cast<int>(breaks.size())) return;
    if (AfxMessageBox(vorn::formatString("Delete value break point: %g", breaks[k]), MB_YESNO) != IDYES) return;
    breaks.erase(breaks.begin() + k);
    rebuildList();
}

void CColorRainbow::OnBlackWhite()
{
    colors.assign(std::begin(kGreyColors), std::end(kGreyColors));
    rebuildList();
}

void CColorRainbow::OnDefault()
{
    size_t groups = breaks.size() > 1 ? breaks.size() - 1 : colors.size();
    fillDefaultColors(groups);
    rebuildList();
}

void CColorRainbow::OnRowDoubleClick()
{
    int row = selectedRow();
    if (row < 0 || colors.empty()) return;
    int group = static_cast<int>(breaks.size()) - 2 - row;
    if (group < 0) return;
    size_t slot = static_cast<size_t>(group) % colors.size();
    int color = static_cast<int>(colors[slot]);
    if (!acedSetColorDialogTrueColor(color, false, 7)) return;
    colors[slot] = static_cast<unsigned>(color);
    rebuildList();
}

void CColorRainbow::OnOK()
{
    if (colors.empty()) return;
    std::string text = vorn::formatString("%d", static_cast<int>(colors[0]));
    for (size_t k = 1; k < colors.size(); ++k) text += vorn::formatString(",%d", static_cast<int>(colors[k]));
    setDialogData(kColorsWriteKey, text);
    table.clear();
    for (size_t k = 0; k < breaks.size(); ++k) table.push_back({breaks[k], static_cast<double>(colors[k % colors.size()])});
    EndDialog(IDOK);
}

// ---- the shared continuous palette -------------------------------------------

namespace {

struct SharedPalette {
    std::vector<int> colorList;
    std::vector<int> greyList;
    bool useGrey = false;
    double minimum = 0.0;
    double maximum = 0.0;
};

SharedPalette& palette()
{
    static SharedPalette shared;
    return shared;
}

}  // namespace

bool colorPaletteIsEmpty() { return palette().colorList.empty() && palette().greyList.empty(); }

void loadDefaultColorPalette()
{
    palette().colorList = {100, 90, 80, 70, 60, 50, 40, 30, 20, 10};
    palette().greyList = {255, 254, 253, 252, 251, 250};
}

void setColorRange(double min, double max, bool useSix)
{
    if (colorPaletteIsEmpty()) loadDefaultColorPalette();
    palette().minimum = min;
    palette().maximum = max;
    palette().useGrey = useSix;
}

int colorOfValue(double value)
{
    const SharedPalette& p = palette();
    const std::vector<int>& list = p.useGrey ? p.greyList : p.colorList;
    if (list.empty()) return 7;
    if (list.size() == 1) return list[0];
    double step = (p.maximum - p.minimum) / static_cast<double>(list.size() - 1);
    if (step < 0.0001) return 7;
    value = std::clamp(value, p.minimum, p.maximum);
    size_t index = static_cast<size_t>(std::fabs(p.minimum - value) / step);
    return list[std::min(index, list.size() - 1)];
}
