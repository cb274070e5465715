// Reading an element file (.f1 to .f4, or any file of that form such as the
// output of MulSim) back into grids: its header, the list of items of all
// steps, and one item of one step as a `myGrid`. This is the logic behind
// the panel "Grid Transfer from Keldar Output".
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class myGrid;

// One row of the item list, as the panel shows it.
struct CElementItemRow {
    std::string number;    // "Item#": running number from 1
    std::string name;      // "Item Name"
    std::string unit;      // "Unit"
    std::string step;      // "Step"
    std::string comments;  // "Comments": "<countX> X <countY>"
};

// The item a row stands for.
struct CElementItemChoice {
    std::string name;
    int step = 0;
    int indexInLine = 0;  // k: 1 for the first item of any step
};

class CElementFileReader {
public:
    // Reads the three header lines of `path` and rebuilds the item list.
    // A failure is shown in a box and gives false; the earlier path stays,
    // though the list may have been cleared.
    bool selectFile(const std::string& path);

    // "Current Keldar file: None" until a file is selected, then its path.
    std::string fileLabel() const;
    const std::string& filePath() const { return path_; }
    const std::vector<CElementItemRow>& rows() const { return rows_; }

    // The item of list row `row` (from 0).
    CElementItemChoice choiceOfRow(size_t row) const;

    // Builds `grid` from the item: lattice from the header, values from the
    // item's column of the step's lines. A failure gives false and its
    // message in `failure`; nothing is shown. With `skipEmptyLines` (the
    // preview) an empty line is shown in a box instead, the rest of that x
    // row is dropped and the next row goes on.
    bool readItem(const CElementItemChoice& item, myGrid& grid, std::string& failure, bool skipEmptyLines = false) const;

    // "Transfer...": asks "Convert the item: ..." with OK and Cancel, then
    // the output path from `chooseOutput` (false stops), reads the item and
    // saves it with `writeGrd`. True when the file was saved.
    bool transferRow(size_t row, const std::function<bool(std::string& path)>& chooseOutput) const;
    bool transferRow(size_t row, const std::string& outputPath) const;

    // "Preview...": asks "Preview the item: ..." with OK and Cancel, prints
    // "\nLoading ..." and builds the grid as the preview reads it. False
    // when the user cancelled or the file did not open (shown in a box).
    bool previewRow(size_t row, myGrid& grid) const;

    // Header fields of the selected file.
    int stepCount = 0;
    int elementCount = 0;
    float elementWidth = 0.0f;  // in feet: the header's width divided by 12
    int countX = 0;
    int countY = 0;
    float originX = 0.0f;
    float originY = 0.0f;
    int itemCount = 0;

private:
    bool readHeader(const std::string& path, std::vector<std::string>& names, std::vector<std::string>& units);
    bool buildRows(const std::vector<std::string>& names, const std::vector<std::string>& units);

    std::string path_;
    std::vector<CElementItemRow> rows_;
    std::uint64_t fileBytes_ = 0;
};

namespace vorn {

// The platform's text for a file that could not be opened, naming the path.
std::string fileFailureText(const std::string& path, int cause);

// The fields of a line split at every comma, empty fields kept.
std::vector<std::string> splitAtCommas(const std::string& text);

// The fields of an item line: trimmed at both ends, each run of blanks
// inside reduced to one blank, split at commas (empty fields kept).
std::vector<std::string> splitItemLine(const std::string& line);

}  // namespace vorn
