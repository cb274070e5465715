// The stability project: factor index grids with weights, its `.prj` file,
// and the composite index that "Create Index" makes of it.
#pragma once

#include <functional>
#include <string>
#include <vector>

class myGrid;

// One factor of a project: the four columns of the panel's list, all text.
struct StabilityFactor {
    std::string name;
    std::string gridFile;
    std::string description;
    std::string weighting;
    bool operator==(const StabilityFactor&) const = default;
};

// The project path of a panel that has not read or saved one.
inline constexpr const char* kDefaultProjectPath = "Project1.prj";

enum class ProjectReadStatus {
    Complete,   // the count and all its factors were read
    Truncated,  // a line was missing: the factors before it were read
    Unopened,   // the file could not be opened; nothing changed
};

// Reads a project: one line for the count, four for each factor. `factors`
// is emptied once the file is open; complete factors are appended as read.
ProjectReadStatus readProject(const std::string& path, std::vector<StabilityFactor>& factors);

// Writes a project: the count by "%i", then a line end before every field,
// none after the last. The file is written under a temporary name beside
// the target and renamed over it when complete; false (the target as it
// was) when it cannot be written.
bool writeProject(const std::string& path, const std::vector<StabilityFactor>& factors);

// The weighted sum of the factor grids at the cell centres of the first
// grid, the answer of "Create Index" before its save question.
struct CompositeSum {
    bool ok = false;
    double totalWeight = 0.0;
};

// Builds the weighted sum in `grid` (the first factor's grid, titled for
// the project). A grid that cannot be read, or a first grid without cells,
// shows its message and gives ok false.
CompositeSum sumFactorGrids(const std::vector<StabilityFactor>& factors, const std::string& projectPath, myGrid& grid);

// Adds `other`, sampled at the cell centre of each node (i, j) of `grid` at
// the cell of `other` holding it (0 outside), to `grid`'s value there.
void addSampledAtCentres(myGrid& grid, const myGrid& other);

// The final scaling of a composite: the mean by the total weight, then the
// cells rescaled to span 0 to 100.
void finishComposite(myGrid& grid, double totalWeight);

// The questions of "Create Index": whether to save, and where (the path in
// and out); false for No or Cancel.
struct CompositeQuestions {
    std::function<bool(const std::string& message)> askSave;
    std::function<bool(std::string& path)> choosePath;
};

// "Create Index" on a project: sums, asks, scales and writes, with the
// panel's messages. True when a grid was written (its path in `written`).
bool createCompositeIndex(const std::vector<StabilityFactor>& factors, const std::string& projectPath,
                          const CompositeQuestions& questions, std::string* written = nullptr);
