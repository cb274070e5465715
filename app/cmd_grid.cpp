// `vornmark grid info FILE`, `vornmark grid convert INPUT OUTPUT`, and the
// batch forms of the grid workbench: `grid plot` and `grid stats`.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/report.h"
#include "grid/grid.h"
#include "grid/gridfiles.h"
#include "grid/gridplot.h"
#include "grid/gridutility.h"
#include "host/docs_session.h"

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

// The plot kinds by their command line names, in the order of plotType.
const std::vector<std::string> kKindNames = {"polygons", "points", "faces", "solids",
                                             "splines", "3dlines", "hatches", "regions"};

struct PlotArgs {
    std::string input;
    std::string output;
    std::string drawing;
    std::string kind = "polygons";
    std::string layer;
    bool group = false;
    bool color = false;
    bool bw = false;
};

// What "< Plot" does, without its questions: the grid with its default
// colour table drawn into the drawing, which is then saved.
int gridPlot(const PlotArgs& args)
{
    if (!hasExtension(args.output, ".dxf")) throw UsageError{"the output must end in .dxf: " + args.output};
    myGrid grid;
    if (!readGridFile(grid, args.input)) return kExitFailure;
    std::string error;
    SessionOptions options;
    options.answering = SessionOptions::Answering::None;
    auto app = startSession(args.drawing, options, false, error);
    if (!app) {
        std::fprintf(stderr, "vornmark: %s\n", error.c_str());
        return kExitFailure;
    }
    const int kind = static_cast<int>(std::find(kKindNames.begin(), kKindNames.end(), args.kind) - kKindNames.begin());
    int status = app->session().run([&] {
        grid.setPlotOptions(kind, args.color ? 2 : 1, args.layer, false, args.group);
        grid.plot();
        return 0;
    });
    finishTerminalLine();
    if (status != 0) return kExitFailure;
    if (!app->save(args.output, error)) {
        std::fprintf(stderr, "vornmark: %s: %s\n", args.output.c_str(), error.c_str());
        return kExitFailure;
    }
    return kExitOk;
}

// The lines of "Statistic" over the whole grid, or of "Correlation with".
int gridStats(const std::string& input, const std::string& other)
{
    myGrid grid;
    if (!readGridFile(grid, input)) return kExitFailure;
    if (other.empty()) {
        grid.computeStatistics({}, {}, 50.0);
        acutPrintf("\nStatistics:");
        for (const std::string& line : statisticLines(grid)) acutPrintf("\n%s", line.c_str());
    } else {
        myGrid second;
        if (!readGridFile(second, other)) return kExitFailure;
        for (const std::string& line : correlationLines(grid, second, other)) acutPrintf("\n%s.", line.c_str());
    }
    acutPrintf("\n");
    return kExitOk;
}

struct GridArgs {
    std::string file;
    std::string input;
    std::string output;
    std::string other;
};

CommandGroup group{20, [](CLI::App& parser, Action& action) {
    auto args = std::make_shared<GridArgs>();
    CLI::App* grid = parser.add_subcommand("grid", "Describe, convert, plot a grid file or take its statistics");
    grid->require_subcommand(1);

    CLI::App* info = grid->add_subcommand("info", "Read a grid file (.grd, .top, .f*) and describe it");
    info->add_option("FILE", args->file, "the grid file")->required();
    info->callback([args, &action] { action = [args] { return gridInfo(args->file); }; });

    CLI::App* convert = grid->add_subcommand("convert", "Read a grid file and write it as .grd or .top");
    convert->add_option("INPUT", args->input, "the grid file to read")->required();
    convert->add_option("OUTPUT", args->output, "the file to write, ending in .grd or .top")->required();
    convert->callback([args, &action] { action = [args] { return gridConvert(args->input, args->output); }; });

    auto plotArgs = std::make_shared<PlotArgs>();
    CLI::App* plot = grid->add_subcommand("plot", "Plot a grid with its default colour table into a DXF drawing");
    plot->add_option("INPUT", plotArgs->input, "the grid file to plot")->required();
    plot->add_option("OUTPUT", plotArgs->output, "the drawing to write (.dxf)")->required();
    plot->add_option("--drawing", plotArgs->drawing, "a drawing to plot into (DXF); a new drawing without it");
    plot->add_option("--kind", plotArgs->kind, "what to draw (default polygons)")
        ->check(CLI::IsMember(kKindNames));
    plot->add_option("--layer", plotArgs->layer, "the layer of the plot, made when missing; the current layer without it");
    plot->add_flag("--group", plotArgs->group, "gather the plot into the group Vorn_Grid_Group");
    auto* color = plot->add_flag("--color", plotArgs->color, "colour mode (as the panel's check box Color)");
    plot->add_flag("--bw", plotArgs->bw, "black and white mode (the default)")->excludes(color);
    plot->callback([plotArgs, &action] { action = [plotArgs] { return gridPlot(*plotArgs); }; });

    CLI::App* stats = grid->add_subcommand("stats", "Statistics of all cells of a grid, or its correlation with another");
    stats->add_option("INPUT", args->input, "the grid file")->required();
    stats->add_option("--correlate", args->other, "a second grid of the same shape");
    stats->callback([args, &action] { action = [args] { return gridStats(args->input, args->other); }; });
}};

}  // namespace
}  // namespace vorn::app
