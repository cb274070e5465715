// `vornmark topostress`: the overburden stress at a seam under an uneven
// surface, with the choices of the three pages "Overburden Stress
// Calculation" as options.
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/report.h"
#include "base/userbreak.h"
#include "stressmodel/topo_stress.h"

namespace vorn::app {

namespace {
struct TopoStressOptions {
    std::string surfacePath;
    std::string outputPath;
    int units = 2;
    std::string surface = "thickness";
    std::string seamFile;
    std::vector<int> seamCells;
    std::vector<double> seamCellWidth;
    std::vector<double> seamOrigin{0.0, 0.0};
    double seamRotation = 0.0;
    std::optional<double> seamLevel;
    bool seamAverage = false;
    std::optional<std::string> modulus, poisson, lamination, gradient, relaxation, convergence, iterations;
};

// The prompt after the model was read: a line from the terminal (the end of
// the input is no answer), or Enter in a batch run.
bool promptToContinue(const std::string& prompt)
{
    acutPrintf("%s", prompt.c_str());
    std::fflush(stdout);
    if (!isatty(STDIN_FILENO)) {
        acutPrintf("\n");
        return true;
    }
    std::string answer;
    return static_cast<bool>(std::getline(std::cin, answer));
}

// The current folder with its trailing separator: the drawing's folder of
// a run without a drawing.
std::string currentFolder()
{
    std::error_code error;
    std::string folder = std::filesystem::current_path(error).string();
    if (!folder.empty() && folder.back() != '/') folder += '/';
    return folder;
}

void takeSeamGrid(CTopoStressCommand& command, const TopoStressOptions& options)
{
    if (!options.seamFile.empty()) {
        if (!command.loadSeamGrid(options.seamFile)) throw UsageError{"the seam grid file could not be read"};
        return;
    }
    if (options.seamCells.empty()) return;
    if (options.seamCellWidth.empty()) throw UsageError{"--seam-cells needs --seam-cell-width"};
    double xWidth = options.seamCellWidth.front();
    double yWidth = options.seamCellWidth.back();
    if (!command.defineSeamGrid(options.seamOrigin[0], options.seamOrigin[1], options.seamCells[0], options.seamCells[1], xWidth,
                                yWidth, options.seamRotation)) {
        throw UsageError{"the seam grid needs counts above 0 and cell widths above 0.0001"};
    }
}

void takeProperties(CTopoProperties& properties, const TopoStressOptions& options)
{
    auto take = [](std::string& field, const std::optional<std::string>& value) {
        if (value) field = *value;
    };
    take(properties.modulus, options.modulus);
    take(properties.poisson, options.poisson);
    take(properties.lamination, options.lamination);
    take(properties.gradient, options.gradient);
    take(properties.relaxation, options.relaxation);
    take(properties.convergence, options.convergence);
    take(properties.iterations, options.iterations);
}

int runTopoStress(const TopoStressOptions& options)
{
    if (!hasExtension(options.outputPath, ".grd")) throw UsageError{"OUTPUT must be a .grd file"};
    CTopoStressCommand command;
    command.confirmContinue = promptToContinue;
    command.setUnitSystem(options.units);
    // As a user who looks at the properties after choosing the units.
    command.activatePropertiesPage();
    command.drawingFolder = currentFolder();
    command.surfaceType = options.surface == "elevation" ? 0 : 1;
    if (!options.surfacePath.empty() && !command.loadSurface(options.surfacePath)) {
        finishTerminalLine();
        explainReadFailure(options.surfacePath, "a surface grid");
        return kExitFailure;
    }
    takeSeamGrid(command, options);
    command.changeOutputPath(options.outputPath);
    command.useSeamAverage = options.seamAverage;
    command.activateSeamPage();
    if (options.seamLevel && !command.typeSeamLevel(*options.seamLevel)) {
        throw UsageError{"--seam-level needs --surface elevation"};
    }
    if (options.seamAverage && command.levelLocked) throw UsageError{"--seam-average needs --surface elevation"};
    takeProperties(command.properties, options);
    if (command.validate() != 0) return kExitFailure;
    installUserBreakHandler();
    int result = command.run();
    finishTerminalLine();
    if (result != 0) explainRunFailure(options.outputPath, "the overburden stress run");
    return result == 0 ? kExitOk : kExitFailure;
}

void addPropertyOptions(CLI::App* sub, TopoStressOptions& options)
{
    sub->add_option("--modulus", options.modulus, "Elastic Modulus (default by units: 3000000, 3000000, 2.07E+10, 20700)");
    sub->add_option("--poisson", options.poisson, "Poission's Ratio (default 0.25)");
    sub->add_option("--lamination", options.lamination, "Lamination(layer) Thickness (default 600, 50, 15, 15)");
    sub->add_option("--gradient", options.gradient, "Vertical Stress Gradient (default 0.0917, 1.1, 24900, 0.0249)");
    sub->add_option("--relaxation", options.relaxation, "OverRelax Factor (default 1.35)");
    sub->add_option("--convergence", options.convergence,
                    "Disp. Convergence Level (default 0.00001, 0.00001, 0.0000001, 0.0000001)");
    sub->add_option("--iterations", options.iterations, "Max. Number of Iterations (default 5000)");
}

void addSeamOptions(CLI::App* sub, TopoStressOptions& options)
{
    CLI::Option* file = sub->add_option("--seam-grid", options.seamFile, "seam grid from a .grd file");
    sub->add_option("--seam-cells", options.seamCells, "new seam grid: cells along X and Y (multiples of 10)")
        ->delimiter(',')
        ->expected(2)
        ->excludes(file);
    sub->add_option("--seam-cell-width", options.seamCellWidth, "new seam grid: cell width, or X,Y widths")
        ->delimiter(',')
        ->expected(1, 2)
        ->excludes(file);
    sub->add_option("--seam-origin", options.seamOrigin, "new seam grid: X,Y of node (0,0) (default 0,0)")
        ->delimiter(',')
        ->expected(2)
        ->excludes(file);
    sub->add_option("--seam-rotation", options.seamRotation, "new seam grid: rotation in degrees")->excludes(file);
    CLI::Option* level = sub->add_option("--seam-level", options.seamLevel, "seam level, for a surface of elevations");
    sub->add_flag("--seam-average", options.seamAverage, "use the seam grid's average as the seam level")->excludes(level);
}

CommandGroup group{42, [](CLI::App& parser, Action& action) {
    auto options = std::make_shared<TopoStressOptions>();
    CLI::App* sub = parser.add_subcommand("topostress", "overburden stress at a seam under an uneven surface, as a .grd file");
    sub->add_option("SURFACE", options->surfacePath, "surface grid: overburden thickness or elevation")->required();
    sub->add_option("OUTPUT", options->outputPath, "stress grid to write (.grd); the .tmp and .out files go beside it")
        ->required();
    sub->add_option("--units", options->units, "1 inches/Psi, 2 feet/Psi (default), 3 meters/Pa, 4 meters/MPa")
        ->type_name("1|2|3|4")
        ->check(CLI::Range(1, 4).description(""));
    sub->add_option("--surface", options->surface, "what the surface grid holds (default thickness)")
        ->type_name("thickness|elevation")
        ->check(CLI::IsMember({"thickness", "elevation"}).description(""));
    addSeamOptions(sub, *options);
    addPropertyOptions(sub, *options);
    sub->callback([&action, options] { action = [options] { return runTopoStress(*options); }; });
}};
}  // namespace

}  // namespace vorn::app
