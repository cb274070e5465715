#include "stressmodel/transfer.h"

#include <algorithm>
#include <cstdio>

#include "grid/grid.h"
#include "base/report.h"
#include "base/textfile.h"
#include "base/textnum.h"

namespace vorn {

namespace {
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f'; }
}  // namespace

std::vector<std::string> splitAtCommas(const std::string& text)
{
    std::vector<std::string> fields;
    size_t start = 0;
    for (;;) {
        size_t comma = text.find(',', start);
        fields.push_back(text.substr(start, comma == std::string::npos ? std::string::npos : comma - start));
        if (comma == std::string::npos) return fields;
        start = comma + 1;
    }
}

std::vector<std::string> splitItemLine(const std::string& line)
{
    size_t first = 0;
    size_t last = line.size();
    while (first < last && isBlank(line[first])) ++first;
    while (last > first && isBlank(line[last - 1])) --last;
    std::string squeezed;
    squeezed.reserve(last - first);
    for (size_t k = first; k < last; ++k) {
        if (isBlank(line[k])) {
            if (!squeezed.empty() && squeezed.back() == ' ') continue;
            squeezed += ' ';
        } else {
            squeezed += line[k];
        }
    }
    return splitAtCommas(squeezed);
}

std::string fileFailureText(const std::string& path, int cause)
{
    switch (cause) {
    case kFileNotFound: return path + " was not found.";
    case kFileBadPath: return path + " contains an incorrect path.";
    case kFileTooManyOpen: return "Could not open " + path + " because there are too many open files.";
    case kFileAccessDenied: return "Access to " + path + " was denied.";
    case kFileSharingViolation: return "Sharing violation while accessing " + path + ".";
    default: return "An unexpected error occurred while accessing " + path + ".";
    }
}

}  // namespace vorn

namespace {
// What the platform says when a list index or field is out of range.
const char* const kImproperArgument = "Encountered an improper argument.";

// A line as the platform reads it: nothing at the end of the file is an
// empty line as well.
bool readNonEmptyLine(vorn::TextReader& file, std::string& line)
{
    if (!file.readLine(line)) line.clear();
    return !line.empty();
}

bool openOrSayWhy(vorn::TextReader& file, const std::string& path, std::string& failure)
{
    int cause = vorn::kFileNone;
    if (file.open(path, &cause)) return true;
    failure = "File could not be opened: " + vorn::fileFailureText(path, cause);
    return false;
}
}  // namespace

std::string CElementFileReader::fileLabel() const
{
    return path_.empty() ? "Current Keldar file: None" : path_;
}

bool CElementFileReader::selectFile(const std::string& path)
{
    std::vector<std::string> names;
    std::vector<std::string> units;
    if (!readHeader(path, names, units)) return false;
    if (!buildRows(names, units)) return false;
    path_ = path;
    return true;
}

bool CElementFileReader::readHeader(const std::string& path, std::vector<std::string>& names, std::vector<std::string>& units)
{
    vorn::TextReader file;
    std::string failure;
    if (!openOrSayWhy(file, path, failure)) {
        AfxMessageBox(failure);
        return false;
    }
    fileBytes_ = file.bytesLeft();
    std::string line;
    if (!readNonEmptyLine(file, line)) {
        AfxMessageBox("Read an empty line in the input file - CHR2-1");
        return false;
    }
    int fields = std::sscanf(line.c_str(), "%i, %i, %f, %i, %i, %f, %f", &stepCount, &elementCount, &elementWidth, &countX,
                             &countY, &originX, &originY);
    // The reader takes the width to be in inches, whatever the file's units.
    elementWidth = elementWidth / 12.0f;
    if (fields != 7) {
        AfxMessageBox(vorn::formatString("Only Read %2i Fields from Header Buffer", fields));
        return false;
    }
    if (!readNonEmptyLine(file, line)) {
        AfxMessageBox("Read an empty line in the input file - CHR2-2");
        return false;
    }
    names = vorn::splitItemLine(line);
    itemCount = _wtoi(names.front());
    names.erase(names.begin());
    if (!readNonEmptyLine(file, line)) {
        AfxMessageBox("Read an empty line in the input file - CHR2-3");
        return false;
    }
    units = vorn::splitItemLine(line);
    units.erase(units.begin());
    return true;
}

bool CElementFileReader::buildRows(const std::vector<std::string>& names, const std::vector<std::string>& units)
{
    rows_.clear();
    // Every step holds its element lines with a field for each item: a
    // header that claims more than the file's bytes could hold lists no
    // rows, rather than rows in proportion to the claim.
    const double claimed = static_cast<double>(std::max(stepCount, 1)) * std::max(elementCount, 1) * std::max(itemCount, 1);
    if (claimed > static_cast<double>(fileBytes_)) {
        AfxMessageBox(vorn::formatString("The file is too short for %d steps of %d elements with %d items", stepCount,
                                         elementCount, itemCount));
        return false;
    }
    int number = 1;
    for (int step = 1; step <= stepCount; ++step) {
        for (int k = 1; k <= itemCount; ++k, ++number) {
            if (static_cast<size_t>(k) > names.size() || static_cast<size_t>(k) > units.size()) {
                AfxMessageBox(kImproperArgument);
                return false;
            }
            rows_.push_back({vorn::formatString("%d", number), names[k - 1], units[k - 1], vorn::formatString("%d", step),
                             vorn::formatString("%d X %d", countX, countY)});
        }
    }
    return true;
}

CElementItemChoice CElementFileReader::choiceOfRow(size_t row) const
{
    const CElementItemRow& selected = rows_.at(row);
    CElementItemChoice item;
    item.name = selected.name;
    item.step = _wtoi(selected.step);
    item.indexInLine = _wtoi(selected.number) - itemCount * (item.step - 1);
    return item;
}

bool CElementFileReader::readItem(const CElementItemChoice& item, myGrid& grid, std::string& failure,
                                  bool skipEmptyLines) const
{
    vorn::TextReader file;
    if (!openOrSayWhy(file, path_, failure)) return false;
    std::string line;
    long long skip = static_cast<long long>(item.step - 1) * elementCount + 3;
    for (long long k = 0; k < skip && file.readLine(line); ++k) {
    }
    // The values are gathered first, so that the grid is only as large as
    // the lines the file really holds.
    std::vector<double> values;
    for (int x = 0; x < countX; ++x) {
        for (int y = 0; y < countY; ++y) {
            if (!readNonEmptyLine(file, line)) {
                failure = vorn::formatString("Read an empty line in the input file for row %d col %d", y, x);
                if (!skipEmptyLines) return false;
                AfxMessageBox(failure);
                failure.clear();
                break;
            }
            std::vector<std::string> fields = vorn::splitAtCommas(line);
            if (item.indexInLine < 1 || static_cast<size_t>(item.indexInLine) > fields.size()) {
                failure = kImproperArgument;
                return false;
            }
            values.push_back(_wtof(fields[item.indexInLine - 1]));
        }
    }
    grid.setOrigin(originX, originY, 0.0);
    grid.setup(countX, countY, elementWidth, elementWidth, 0.0);
    size_t next = 0;
    for (int x = 0; x < countX; ++x) {
        for (int y = 0; y < countY; ++y) grid.setValue(x, y, values[next++]);
    }
    return true;
}

bool CElementFileReader::transferRow(size_t row, const std::function<bool(std::string& path)>& chooseOutput) const
{
    CElementItemChoice item = choiceOfRow(row);
    std::string question = vorn::formatString("Convert the item: %s<%d> in step %d", item.name.c_str(), item.indexInLine, item.step);
    if (AfxMessageBox(question, MB_OKCANCEL) != IDOK) return false;
    std::string outputPath;
    if (!chooseOutput(outputPath)) return false;
    myGrid grid;
    std::string failure;
    if (!readItem(item, grid, failure)) {
        AfxMessageBox(failure);
        return false;
    }
    grid.setTitle(question);
    if (!grid.writeGrd(outputPath)) return false;
    AfxMessageBox(vorn::formatString("File: %s is saved!", outputPath.c_str()));
    return true;
}

bool CElementFileReader::transferRow(size_t row, const std::string& outputPath) const
{
    return transferRow(row, [&outputPath](std::string& path) {
        path = outputPath;
        return true;
    });
}

bool CElementFileReader::previewRow(size_t row, myGrid& grid) const
{
    CElementItemChoice item = choiceOfRow(row);
    std::string question = vorn::formatString("Preview the item: %s<%d> in step %d", item.name.c_str(), item.indexInLine, item.step);
    if (AfxMessageBox(question, MB_OKCANCEL) != IDOK) return false;
    acutPrintf("\nLoading ...");
    std::string failure;
    if (!readItem(item, grid, failure, true)) {
        AfxMessageBox(failure);
        return false;
    }
    grid.setTitle(question);
    return true;
}
