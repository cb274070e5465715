// The final Roof Fall Risk Index from the twelve defect grid files of one
// folder: the scan that checks the files share one lattice, the default
// files for what is missing, the weighted sum, and the removal of the
// defaults. What the panel dlg_RFRI_RFRICalc and `vornmark rfri` share.
#pragma once

#include <array>
#include <string>

#include "grid/grid.h"
#include "roofrisk/defect_catalogue.h"

namespace vorn::rfri {

// True for a regular file that can be opened for reading.
bool canOpenForReading(const std::string& path);

struct CalcRow {
    std::string gridFile;  // bare file name
    bool found = false;    // the file could be opened
    bool valid = false;    // its lattice fits the base
    bool defaultMade = false;
};

class CRFRICalculation {
public:
    // The files are looked for in `folder`.
    explicit CRFRICalculation(std::string folder);

    // The rows take the catalogue's file names, or those of the records
    // once the records are set up.
    void setFileNames(const CDefectRecords& records, bool defectsReady);
    // Reads each file; the first readable one sets the base lattice.
    void scanFiles();
    // Writes a default file for each row that is not found and valid;
    // false (with the message) when no file set a base.
    bool makeDefaultFiles();
    // The weighted sum into finalGrid; false (with the message) without base.
    bool calculate();
    // Removes the default files this calculation made.
    void removeDefaultFiles();

    std::string pathOf(const std::string& file) const { return inFolder(folder_, file); }

    std::array<CalcRow, kFactorCount> rows;
    myGrid workGrid;
    myGrid finalGrid;
    bool haveBase = false;
    bool calculated = false;
    int baseXNum = 0;
    int baseYNum = 0;
    double baseXCellW = 0.0;
    double baseYCellW = 0.0;
    double baseRotation = 0.0;
    double baseOriginX = 0.0;
    double baseOriginY = 0.0;

private:
    void takeBase(const std::string& path);
    bool matchesBase();
    void writeDefault(int row);

    std::string folder_;
};

}  // namespace vorn::rfri
