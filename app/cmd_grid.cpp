// `vornmark grid info FILE` and `vornmark grid convert INPUT OUTPUT`.
#include <cstdio>
#include <string>
#include <vector>

#include "app/cli_util.h"
#include "app/commands.h"
#include "grid/grid.h"
#include "grid/gridfiles.h"

namespace vorn::app {
namespace {

// Reads a grid file chosen by its name; on failure adds the line that
// names the file and the cause.
bool readGridFile(myGrid& grid, const std::string& path)
{
    if (readGridByName(grid, path, 1)) return true;
    finishTerminalLine();
    explainReadFailure(path, "a grid file");
    return false;
}

int gridInfo(const std::string& path)
{
    if (isElementFile(path)) return describeElementFile(path);
    myGrid grid;
    if (!readGridFile(grid, path)) return kExitFailure;
    grid.describe(true);
    finishTerminalLine();
    return kExitOk;
}

bool hasNullCell(const myGrid& grid)
{
    for (int i = 0; i < grid.getXNum(); ++i)
        for (int j = 0; j < grid.getYNum(); ++j)
            if (!(grid.getValue(i, j) > NULL_VALUE)) return true;
    return false;
}

// What a .top file cannot keep of `grid`, as one sentence; "" for nothing.
std::string topLosses(const myGrid& grid)
{
    std::vector<std::string> lost{"the last row and column of nodes"};
    if (!grid.getTitle().empty()) lost.push_back("the title");
    if (grid.getYCellW() != grid.getXCellW()) lost.push_back("the cell height (the cell width stands for both)");
    if (grid.getRotation() != 0.0) lost.push_back("the rotation");
    if (hasNullCell(grid)) lost.push_back("the N marks (written as numbers)");
    std::string text;
    for (size_t k = 0; k < lost.size(); ++k) text += (k == 0 ? "" : k + 1 == lost.size() ? " and " : ", ") + lost[k];
    return text;
}

int gridConvert(const std::string& input, const std::string& output)
{
    bool toGrd = hasExtension(output, ".grd");
    if (!toGrd && !hasExtension(output, ".top")) throw UsageError{"the output must end in .grd or .top: " + output};
    if (isElementFile(input))
        throw UsageError{"an element file holds several items and steps: vornmark transfer " + input +
                         " --list shows them, --step S --item K OUTPUT.grd converts one"};
    myGrid grid;
    if (!readGridFile(grid, input)) return kExitFailure;
    if (!toGrd) {
        std::fprintf(stderr, "vornmark: %s: a .top file keeps the cells only: %s are not kept\n", output.c_str(),
                     topLosses(grid).c_str());
        if (grid.xNum > 2000 || grid.yNum > 2000)
            std::fprintf(stderr, "vornmark: %s: more than 2000 cells along an axis: the .top reader will refuse it\n",
                         output.c_str());
    }
    bool written = toGrd ? grid.writeGrd(output) : grid.writeTop(output);
    finishTerminalLine();
    if (!written) explainWriteFailure(output);
    return written ? kExitOk : kExitFailure;
}

struct GridArgs {
    std::string file;
    std::string input;
    std::string output;
};

CommandGroup group{20, [](CLI::App& parser, Action& action) {
    auto args = std::make_shared<GridArgs>();
    CLI::App* grid = parser.add_subcommand("grid", "Describe or convert a grid file");
    grid->require_subcommand(1);

    CLI::App* info = grid->add_subcommand("info", "Read a grid file (.grd, .top, .f*) and describe it");
    info->add_option("FILE", args->file, "the grid file")->required();
    info->callback([args, &action] { action = [args] { return gridInfo(args->file); }; });

    CLI::App* convert = grid->add_subcommand("convert", "Read a grid file and write it as .grd or .top");
    convert->add_option("INPUT", args->input, "the grid file to read")->required();
    convert->add_option("OUTPUT", args->output, "the file to write, ending in .grd or .top")->required();
    convert->callback([args, &action] { action = [args] { return gridConvert(args->input, args->output); }; });
}};

}  // namespace
}  // namespace vorn::app
