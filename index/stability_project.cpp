#include "index/stability_project.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <unistd.h>

#include "base/report.h"
#include "base/textfile.h"
#include "base/textnum.h"
#include "grid/grid.h"
#include "index/index_support.h"

using vorn::formatString;

namespace {

// The project's bytes as the platform's text mode writes them: the count,
// then a CR LF before every field.
std::string projectText(const std::vector<StabilityFactor>& factors)
{
    std::string text = formatString("%i", static_cast<int>(factors.size()));
    for (const StabilityFactor& f : factors) {
        for (const std::string* field : {&f.name, &f.gridFile, &f.description, &f.weighting}) {
            text += "\r\n";
            text += *field;
        }
    }
    return text;
}

// Writes the bytes to a temporary beside the target and renames it over
// the target when all went well.
bool writeReplacing(const std::string& path, const std::string& bytes)
{
    std::string temporary = formatString("%s.%d.tmp", path.c_str(), static_cast<int>(::getpid()));
    std::FILE* file = std::fopen(temporary.c_str(), "wb");
    if (!file) return false;
    bool ok = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    ok = std::fclose(file) == 0 && ok;
    std::error_code error;
    if (ok) std::filesystem::rename(temporary, path, error);
    if (!ok || error) {
        std::filesystem::remove(temporary, error);
        return false;
    }
    return true;
}

bool readFactorGrid(const StabilityFactor& factor, myGrid& grid)
{
    if (grid.readGrd(factor.gridFile, 1)) return true;
    AfxMessageBox("Grid File Read fail: " + factor.gridFile);
    return false;
}

}  // namespace

ProjectReadStatus readProject(const std::string& path, std::vector<StabilityFactor>& factors)
{
    vorn::TextReader file;
    if (!file.open(path)) return ProjectReadStatus::Unopened;
    factors.clear();
    std::string line;
    if (!file.readLine(line)) return ProjectReadStatus::Truncated;
    int count = _wtoi(line);
    for (int k = 0; k < count; ++k) {
        StabilityFactor f;
        for (std::string* field : {&f.name, &f.gridFile, &f.description, &f.weighting})
            if (!file.readLine(*field)) return ProjectReadStatus::Truncated;
        factors.push_back(std::move(f));
    }
    return ProjectReadStatus::Complete;
}

bool writeProject(const std::string& path, const std::vector<StabilityFactor>& factors)
{
    return writeReplacing(path, projectText(factors));
}

void addSampledAtCentres(myGrid& grid, const myGrid& other)
{
    vorn::Point3 centre;
    for (int i = 0; i <= grid.xNum; ++i) {
        for (int j = 0; j <= grid.yNum; ++j) {
            grid.getCellCentre(i, j, centre);
            int a = 0;
            int b = 0;
            other.getCellOfPoint({centre.x, centre.y}, a, b);
            grid.setValue(i, j, grid.getValue(i, j) + other.getValue(a, b));
        }
    }
}

CompositeSum sumFactorGrids(const std::vector<StabilityFactor>& factors, const std::string& projectPath, myGrid& grid)
{
    CompositeSum sum;
    if (factors.empty() || !readFactorGrid(factors.front(), grid)) return sum;
    if (grid.xNum == 0 || grid.yNum == 0) {
        AfxMessageBox("Grid Size failure: " + factors.front().gridFile);
        return sum;
    }
    grid.setTitle(formatString("Composite Stability Index for Project: %s", projectPath.c_str()));
    double w1 = _wtof(factors.front().weighting);
    grid.multiplyValue(w1);
    sum.totalWeight = w1;
    for (size_t k = 1; k < factors.size(); ++k) {
        myGrid other;
        if (!readFactorGrid(factors[k], other)) return sum;
        double wk = _wtof(factors[k].weighting);
        other.multiplyValue(wk);
        sum.totalWeight += wk;
        addSampledAtCentres(grid, other);
    }
    sum.ok = true;
    return sum;
}

void finishComposite(myGrid& grid, double totalWeight)
{
    grid.multiplyValue(1.0 / totalWeight);
    grid.rescale(0, 100);
}

bool createCompositeIndex(const std::vector<StabilityFactor>& factors, const std::string& projectPath,
                          const CompositeQuestions& questions, std::string* written)
{
    if (factors.empty()) return false;
    myGrid grid;
    CompositeSum sum = sumFactorGrids(factors, projectPath, grid);
    if (!sum.ok) return false;
    if (std::fabs(sum.totalWeight) <= 1e-10) {
        acutPrintf("\nStrange! Total Weight could not be zero!");
        return false;
    }
    if (!questions.askSave("Final index for project: " + projectPath + " produced! Do you want to save?")) return false;
    std::string path = vorn::replaceAll(projectPath, ".prj", ".grd");
    if (!questions.choosePath(path)) return false;
    finishComposite(grid, sum.totalWeight);
    if (!grid.writeGrd(path)) return false;
    AfxMessageBox("Final Index saved to grid file: " + path);
    if (written) *written = path;
    return true;
}
