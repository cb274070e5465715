// The catalogue of the twelve roof fall risk factors: their order, keys
// (also the defect layers' names), grid files, titles, levels with both of
// their wordings, the shape of the defect page of each, the default file of
// the final calculation, and the extended entity data record that carries
// one assessment on a polygon.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "drawing/geom_types.h"
#include "shell/docdata.h"

namespace vorn::rfri {

inline constexpr int kFactorCount = 12;

// How a defect page turns its features into a grid.
enum class DefectForm {
    Line,           // distance to the feature within its reach
    AreaMaximum,    // covered cells keep the greatest level
    AreaOverwrite,  // covered cells take the level of the last feature
};

struct DefectFactor {
    const char* pageClass;
    const char* key;          // also the defect layer's name
    const char* gridFile;     // bare name, looked for in the drawing's folder
    const char* title;        // stored as the grid's title
    const char* pageCaption;  // tab of the defect frame
    int color;                // colour index of the defect layer
    DefectForm form;
    std::vector<int> levels;
    const char* keywords;     // the choices of the feature prompt
    int startIndex;           // levelIndex of a new record
    std::vector<double> reach;
    // A feature's constant width for each level position, and how a width
    // is turned back into a position: (width - widths[0]) / widthStep, or,
    // with a step of 0, the position of the width in `widths`.
    std::vector<int> widths;
    int widthStep;
    double outsideValue;      // value of a cell that no feature sets
    bool assessmentWord;      // the feature loop speaks of "assessment"
    const char* firstPrompt;
    const char* meterText;    // status bar meter of "Make Grid"
    const char* saveMessage;  // OK/Cancel box of "Save Grid", with the path
    std::vector<std::string> pageWording;   // combo box of the defect page
    // The assessment panel: its group, caption, list and default position.
    const char* panelGroup;
    const char* panelCaption;
    std::vector<std::string> panelWording;
    int panelDefault;
    const char* listLine;     // line of vorn_RFRI_List, with the record's text
    // The RFRI calculation panel: its group and row, the "Unknown" value of
    // a default file and the message that the default was made.
    const char* calcGroup;
    const char* calcRow;
    double defaultFill;
    const char* defaultMessage;

    int lastIndex() const { return static_cast<int>(levels.size()) - 1; }
    // The width that stores the level at `index`.
    int widthOfIndex(int index) const { return widths[static_cast<size_t>(index)]; }
    // The level position a feature of this (integer) width stands for, or
    // -1 when the page drops such a feature.
    int indexOfWidth(int width) const;
};

// The twelve factors in their fixed order.
const std::array<DefectFactor, kFactorCount>& defectCatalogue();
inline const DefectFactor& defectFactor(int number) { return defectCatalogue()[static_cast<size_t>(number)]; }

// The defaults of all twelve defect records.
void fillDefectDefaults(CDefectRecords& records);
// Installs fillDefectDefaults as the document state's defect filler.
void installDefectDefaults();

// `folder` + `file`, with a separator between them when the folder lacks one.
std::string inFolder(const std::string& folder, const std::string& file);

// The final grid of the calculation.
inline constexpr const char* kFinalFile = "RFRI_FinalValue.grd";
inline constexpr const char* kFinalTitle = "Final RFRI Value";

// ---- The assessment record -------------------------------------------------
// The registered application of the extended entity data of an assessment.
extern const std::string kAssessmentApplication;
inline constexpr int kAssessmentEntries = 14;
inline constexpr int kMeasurementPosition = 13;

// True for a record of exactly 14 entries whose first is the application
// name, compared without regard to case.
bool isAssessmentRecord(const std::vector<std::string>& record);
// The value of an assessment text: the leading integer after its first
// character, "(-5) No ..." giving -5.
int assessmentValue(const std::string& text);
// The index of an assessment record (its positions 1 to 12 by value).
int assessmentIndex(const std::vector<std::string>& record);
// The index of twelve assessment values V1..V12:
// truncate(1.11 * (V10 + 2*(V8+V7+V6+V5+V4) + V9 + V3 + V2 + V1) + V11 + V12).
int assessmentIndex(const std::array<int, kFactorCount>& values);

// The legend range of the mapping for the integer minimum and maximum.
void legendRange(int minimum, int maximum, int& lower, int& upper);

}  // namespace vorn::rfri
