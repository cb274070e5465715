// The command vorn_topoStressModel without its panel: the state of the
// three pages "Overburden Stress Calculation" (surface grid, seam grid,
// properties and controls), the checks of OK, and the run that follows: the
// `.tmp` input beside the output grid, the model, and the stress as a `.grd`.
#pragma once

#include <functional>
#include <string>

#include "grid/grid.h"

// Page 3 "Properties&&Controls": every value stays text until it is used.
struct CTopoProperties {
    std::string modulus;
    std::string poisson;
    std::string lamination;
    std::string gradient;
    std::string relaxation;
    std::string convergence;
    std::string iterations;

    // The values a page shows on opening for a unit system (1 to 4).
    static CTopoProperties defaultsFor(int unitSystem);
};

// "in.", "ft." or "m"; and "psi", "Pa" or "MPa".
std::string topoLengthText(int unitSystem);
std::string topoStressText(int unitSystem);

class CTopoStressCommand {
public:
    CTopoStressCommand();

    // Page 1 "Load Topographic File" with a chosen path: a path that holds
    // ".grd" is read as a `.grd`, any other as a `.top`. False, with the box
    // "Grid file read failed! ", if the grid does not read.
    bool loadSurface(const std::string& path);
    // Page 1 radio buttons: 1 "inches/Psi", 2 "feet/Psi", 3 "meters/Pa",
    // 4 meters and MPa. The properties keep what they hold until page 3
    // is next activated.
    void setUnitSystem(int units) { unitSystem = units; }
    // Page 3 on activation: after a change of the unit system since the
    // page last showed, all properties are that system's defaults again.
    void activatePropertiesPage();

    // Page 2 "New ...": a seam grid of zeros from a grid definition.
    bool defineSeamGrid(double originX, double originY, int xNum, int yNum, double xCellW, double yCellW,
                        double rotationDegrees);
    // Page 2 "From File ...": false, with "Grid file reading failed! ".
    bool loadSeamGrid(const std::string& path);
    // Page 2 "New ..." after the grid definition's OK: its lattice, all 0.
    bool takeSeamGrid(const myGrid& lattice);
    // Page 2 on activation: the seam level is locked to 0 for a surface of
    // overburden thickness, else it is the seam grid's mean when
    // `useSeamAverage` is set, else 0 until the user types one. An empty
    // output path becomes the surface path with "_Stress.grd" for its last
    // four characters, or `drawingFolder` and "Untitle.grd".
    void activateSeamPage();
    // The output field left with a new name: for a file that exists, "File
    // existes, Overwrite?" with yes and no; no keeps the former name.
    void changeOutputPath(const std::string& path);
    // The seam level typed into its field; false while the field is locked.
    bool typeSeamLevel(double level);

    // OK: the checks of the three pages in order. 0 when all pass, else the
    // number of the page that failed, after its message.
    int validate();
    // The run after OK: 0 when the stress grid was written, else 1.
    int run();

    // Answers the prompt after the model was read: true to go on. The
    // default prints the prompt and goes on, as Enter does.
    std::function<bool(const std::string& prompt)> confirmContinue;
    // With `previewResult`, shows the written stress grid file before the
    // closing line.
    std::function<void(const std::string& gridPath)> showResult;
    bool previewResult = false;
    // The unit system of the properties and of their labels on page 3.
    int propertiesUnits() const { return propertiesUnits_; }

    int unitSystem = 2;
    int surfaceType = 1;  // 1 "Overburden Thickness", 0 "Elevation"
    std::string surfaceDescription;
    std::string topoPath;
    myGrid seamGrid;
    std::string seamDescription;
    double seamLevel = 0.0;
    double seamMean = 0.0;
    bool useSeamAverage = false;
    bool levelLocked = true;
    std::string outputPath;
    // The drawing's folder with its trailing separator.
    std::string drawingFolder;
    CTopoProperties properties;

private:
    int propertiesUnits_ = 2;  // the unit system page 3 last showed
    void keepSeamGrid();
    int validateProperties();
    bool writeInputFile(myGrid& surface, const std::string& tmpPath) const;
    bool writeStressGrid(const class CTopoModelDat& model) const;
};

namespace vorn {

// The `.tmp` path of an output grid path: the file name lower-cased, with
// ".grd" replaced by ".tmp"; the folder stays as it is.
std::string topoInputPath(const std::string& outputPath);

}  // namespace vorn
