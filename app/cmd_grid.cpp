// `vornmark grid info FILE` and `vornmark grid convert INPUT OUTPUT`.
#include "app/cli_util.h"
#include "app/commands.h"
#include "grid/grid.h"
#include "grid/gridfiles.h"

namespace vorn::app {
namespace {

int gridInfo(const std::string& path)
{
    myGrid grid;
    bool read = readGridByName(grid, path, 1);
    if (read) grid.describe(true);
    finishTerminalLine();
    return read ? kExitOk : kExitFailure;
}

int gridConvert(const std::string& input, const std::string& output)
{
    bool toGrd = hasExtension(output, ".grd");
    if (!toGrd && !hasExtension(output, ".top")) throw UsageError{"the output must end in .grd or .top: " + output};
    myGrid grid;
    if (!readGridByName(grid, input, 1)) return kExitFailure;
    bool written = toGrd ? grid.writeGrd(output) : grid.writeTop(output);
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
