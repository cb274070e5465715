#include "index/genfactor_pages.h"

#include <cmath>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/prompts.h"
#include "grid/grid.h"
#include "index/index_support.h"

using vorn::formatString;

namespace {
constexpr unsigned IDD_GENFACT_FILE = 171;
constexpr unsigned IDD_GENFACT_FUNC = 172;
}  // namespace

// ---- "Grid File"

std::vector<vorn::PanelControl> CGenFactFileTab::pageControls()
{
    using namespace vorn;
    return {
        readOnlyControl("Input Grid File:", inputPath),
        buttonControl("Select a Grid File", [this] { OnSelectGridFile(); }),
        buttonControl("< Grid Preview", [this] { OnGridPreview(); }),
        readOnlyControl("Grid Information:", infoText),
        editControl("Output Grid File:", outputText, [this] { onOutputKillFocus(); }),
        buttonControl(kOutputButtonCaption, [this] { OnSelectOutputFile(); }),
        editControl("Description:", description),
    };
}

void CGenFactFileTab::OnTabActivation(bool active)
{
    if (active && mainDialog()) mainDialog()->setOkCaption("Next>>");
}

// Leaving needs a grid that was read and an output name; then the frame's
// first button becomes "OK" and the function page gets min and max.
bool CGenFactFileTab::OnKillActive()
{
    if (!ready) {
        AfxMessageBox("Input Grid file is not ready !");
        OnSelectGridFile();
        return false;
    }
    if (outputPath.empty()) {
        AfxMessageBox("Output file name is missing!");
        return false;
    }
    if (mainDialog()) mainDialog()->setOkCaption("OK");
    functionPage_.minText = minText;
    functionPage_.maxText = maxText;
    return true;
}

void CGenFactFileTab::OnSelectGridFile()
{
    std::string path = inputPath;
    if (!pickFileName(true, "grd", path)) return;
    readInputGrid(path);
}

void CGenFactFileTab::readInputGrid(const std::string& path)
{
    myGrid grid;
    inputPath = path;
    if (!grid.readGrd(path, 1)) {
        infoText = "Invalid Grid input file!";
        inputPath.clear();
        ready = false;
        return;
    }
    if (!grid.getTitle().empty()) description = grid.getTitle() + " Index";
    double min = 0.0;
    double max = 0.0;
    grid.getMinMax(min, max);
    infoText = formatString("Input Grid: %d X %d ;\r\nGrid Value Min: %f, Max: %f", grid.xNum, grid.yNum, min, max);
    if (std::fabs(max - min) <= 1e-10) infoText += "\r\nValue interval is very small!";
    minText = formatString("%f", min);
    maxText = formatString("%f", max);
    setOutputPath(vorn::replaceAll(inputPath, ".grd", "_index.grd"));
    ready = true;
}

void CGenFactFileTab::setOutputPath(const std::string& path)
{
    outputPath = path;
    outputText = path;
}

void CGenFactFileTab::OnSelectOutputFile()
{
    std::string path = outputPath;
    if (pickFileName(false, "grd", path)) setOutputPath(path);
}

// The text compared is the caption of the output button, as the page has
// always done, so in use the field's text is simply taken.
void CGenFactFileTab::onOutputKillFocus()
{
    const std::string compared = kOutputButtonCaption;
    if (vorn::iequals(compared, outputPath)) return;
    if (vorn::iequals(compared, inputPath)) {
        if (AfxMessageBox("Output file is the same as the input file, Overwrite?", MB_OKCANCEL) == IDCANCEL)
            setOutputPath(vorn::replaceAll(inputPath, ".grd", "_index.grd"));
        return;
    }
    outputPath = outputText;
}

void CGenFactFileTab::OnGridPreview()
{
    if (inputPath.empty()) {
        AfxMessageBox("Please specify the Grid file first!");
        return;
    }
    myGrid grid;
    if (!grid.readGrd(inputPath, 1)) {
        AfxMessageBox("Not read in Grid file!");
        return;
    }
    grid.describe(false);
    hideMainDialog();
    grid.plot();
    showMainDialog(true);
}

// ---- "Function"

CGenFactFuncTab::CGenFactFuncTab() { showValues(); }

std::vector<vorn::PanelControl> CGenFactFuncTab::pageControls()
{
    using namespace vorn;
    PanelControl upperField = editControl("Upper:", upperText_, [this] { readValues(); });
    upperField.readOnly = !upperEnabled_;
    return {
        radioControl("Inverse", inverse_, [this] { tendency = inverse_ ? kTendencyInverse : kTendencyNormal; normal_ = !inverse_; }),
        radioControl("Normal", normal_, [this] { tendency = normal_ ? kTendencyNormal : kTendencyInverse; inverse_ = !normal_; }),
        listControl("Functions", functionText_, functions_, [this] { onFunctionChanged(); }),
        readOnlyControl("Minimum Value:", minText),
        readOnlyControl("Maxmum Value:", maxText),
        editControl("Lower:", lowerText_, [this] { onLowerKillFocus(); }),
        upperField,
        checkControl("Preview Final Grid", preview),
    };
}

void CGenFactFuncTab::OnTabActivation(bool active)
{
    if (active) setBounds();
}

void CGenFactFuncTab::onFunctionChanged()
{
    function = kFunctionNone;
    for (size_t k = 0; k < functions_.size(); ++k)
        if (functions_[k] == functionText_) function = static_cast<int>(k);
    setBounds();
}

// "Linear" spans min to max with the upper field open; every other choice,
// none included, puts both bounds at the midpoint and closes the upper field.
void CGenFactFuncTab::setBounds()
{
    double min = _wtof(minText);
    double max = _wtof(maxText);
    upperEnabled_ = function == kFunctionLinear;
    if (function == kFunctionLinear) {
        lower = min;
        upper = max;
    } else {
        lower = upper = min + (max - min) * 0.5;
    }
    showValues();
}

// "Step" keeps the upper bound on the lower one; "Exponential" does not, and
// its upper bound stays at the midpoint.
void CGenFactFuncTab::onLowerKillFocus()
{
    readValues();
    if (function == kFunctionStep) upper = lower;
    showValues();
}

bool CGenFactFuncTab::checkBounds()
{
    readValues();
    if (function == kFunctionLinear && upper - lower <= 1e-10) {
        AfxMessageBox("Limit bound error: Upper limit has to greater than lower limit!");
        return false;
    }
    return true;
}

void CGenFactFuncTab::showValues()
{
    lowerText_ = vorn::doubleFieldText(lower);
    upperText_ = vorn::doubleFieldText(upper);
    inverse_ = tendency == kTendencyInverse;
    normal_ = tendency == kTendencyNormal;
}

void CGenFactFuncTab::readValues()
{
    lower = _wtof(lowerText_);
    upper = _wtof(upperText_);
}

// ---- the frame

CGenFactFrame::CGenFactFrame()
{
    setTitle("Individual Factor Generation/Normalization");
    addPage("Grid File", IDD_GENFACT_FILE, &filePage);
    addPage("Function", IDD_GENFACT_FUNC, &functionPage);
}

void CGenFactFrame::OnOK()
{
    if (okCaption() == "OK" && getPage(panelActiveTab()) == &functionPage && !functionPage.checkBounds()) return;
    CProMainTab::OnOK();
}

FactorConversion CGenFactFrame::conversion() const
{
    FactorConversion c;
    c.inputPath = filePage.inputPath;
    c.outputPath = filePage.outputPath;
    c.description = filePage.description;
    c.tendency = functionPage.tendency;
    c.function = functionPage.function;
    c.lower = functionPage.lower;
    c.upper = functionPage.upper;
    c.preview = functionPage.preview;
    return c;
}
