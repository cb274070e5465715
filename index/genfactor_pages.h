// The two pages of "Individual Factor Generation/Normalization": the grid
// files on "Grid File", the function and its limits on "Function". The OK of
// the frame hands their values to runFactorConversion.
#pragma once

#include <string>
#include <vector>

#include "index/factor.h"
#include "shell/promaintab.h"

class CGenFactFuncTab;

// The caption of the output file button; the output field's check compares
// this text, not the field's, with the paths.
inline constexpr const char* kOutputButtonCaption = "Select a Output Grid File";

class CGenFactFileTab : public CAcUiTabChildDialogExt {
public:
    explicit CGenFactFileTab(CGenFactFuncTab& functionPage) : functionPage_(functionPage) {}

    std::string inputPath;
    // The output path as stored, and the output field's text.
    std::string outputPath;
    std::string outputText;
    std::string infoText;
    std::string description;
    std::string minText;
    std::string maxText;
    bool ready = false;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnTabActivation(bool active) override;
    bool OnKillActive() override;

    // Buttons.
    void OnSelectGridFile();
    void OnSelectOutputFile();
    void OnGridPreview();
    // The output field lost the focus.
    void onOutputKillFocus();

    // Reads the input grid at `path` and fills the page from it.
    void readInputGrid(const std::string& path);

private:
    void setOutputPath(const std::string& path);

    CGenFactFuncTab& functionPage_;
};

class CGenFactFuncTab : public CAcUiTabChildDialogExt {
public:
    CGenFactFuncTab();

    int tendency = kTendencyNormal;
    int function = kFunctionNone;
    double lower = 0.0;
    double upper = 0.0;
    std::string minText;
    std::string maxText;
    bool preview = true;

    std::vector<vorn::PanelControl> pageControls() override;
    void OnTabActivation(bool active) override;

    // The list selection changed; the lower field lost the focus.
    void onFunctionChanged();
    void onLowerKillFocus();
    // The check of the frame's OK: false (with its message) keeps the page.
    bool checkBounds();
    // Sets lower and upper for the selected function from min and max.
    void setBounds();
    bool upperEnabled() const { return upperEnabled_; }

private:
    void showValues();
    void readValues();

    // The fields as the edits and the radios show them.
    std::string lowerText_;
    std::string upperText_;
    std::string functionText_;
    bool inverse_ = false;
    bool normal_ = true;
    bool upperEnabled_ = true;
    std::vector<std::string> functions_{"Linear", "Step", "Exponential"};
};

// The frame of vorn_genFactor: the two pages, and on the function page an OK
// that first checks the bounds.
class CGenFactFrame : public CProMainTab {
public:
    CGenFactFrame();
    void OnOK() override;
    // The conversion the pages describe.
    FactorConversion conversion() const;

    CGenFactFuncTab functionPage;
    CGenFactFileTab filePage{functionPage};
};
