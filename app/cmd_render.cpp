// `vornmark render`, `vornmark grid render` and `vornmark drawing export`:
// pictures of plans and grids (Cairo) and the drawing as GIS vectors (OGR).
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/textnum.h"
#include "gis/vector_export.h"
#include "grid/gisraster.h"
#include "grid/grid.h"
#include "host/dxf_codec.h"
#include "pictures/grid_render.h"
#include "pictures/plan_render.h"

namespace vorn::app {
namespace {

bool loadPlan(const std::string& path, PlanContent& plan)
{
    host::HostDatabase db;
    host::DxfLoadResult result = host::loadDxf(path, db);
    if (!result.ok) {
        std::fprintf(stderr, "vornmark: cannot load %s: %s\n", path.c_str(), result.error.c_str());
        return false;
    }
    for (ObjectId id : db.modelSpace()) {
        Entity entity;
        if (db.readEntity(id, entity) == eOk) plan.entities.push_back(std::move(entity));
    }
    plan.layers = db.layers();
    plan.mlineStyles = db.mlineStyles();
    return true;
}

std::vector<std::string> splitNames(const std::string& text)
{
    std::vector<std::string> names;
    size_t start = 0;
    while (start <= text.size() && !text.empty()) {
        size_t comma = text.find(',', start);
        std::string name = text.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
        if (!name.empty()) names.push_back(name);
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return names;
}

// "X1,Y1 X2,Y2" as two corners.
Window parseWindow(const std::vector<std::string>& corners)
{
    if (corners.size() != 2) throw UsageError{"--window takes two corners: X1,Y1 X2,Y2"};
    Window window;
    for (const std::string& corner : corners) {
        size_t comma = corner.find(',');
        if (comma == std::string::npos) throw UsageError{"a corner of --window is X,Y: " + corner};
        window.add(_wtof(corner.substr(0, comma)), _wtof(corner.substr(comma + 1)));
    }
    if (window.empty()) throw UsageError{"the --window corners must span an area"};
    return window;
}

struct RenderArgs {
    std::string input;
    std::string output;
    std::string layers;
    std::vector<std::string> window;
    int width = 1600;
    std::string background = "white";
    std::string colors = "default";
    bool legend = false;
    double contours = 0.0;
    std::string drawing;
};

int renderDrawing(const RenderArgs& args)
{
    PlanContent plan;
    if (!loadPlan(args.input, plan)) return kExitFailure;
    PlanPictureOptions options;
    options.layers = splitNames(args.layers);
    if (!args.window.empty()) options.window = parseWindow(args.window);
    options.width = args.width;
    options.blackBackground = args.background == "black";
    std::string error;
    if (renderPlan(plan, options, args.output, error)) return kExitOk;
    std::fprintf(stderr, "vornmark: %s: %s\n", args.output.c_str(), error.c_str());
    return kExitFailure;
}

int renderGridPicture(const RenderArgs& args)
{
    myGrid grid;
    if (!readAnyGrid(grid, args.input)) {
        finishTerminalLine();
        explainReadFailure(args.input, "a grid file");
        return kExitFailure;
    }
    GridPictureOptions options;
    if (args.colors == "bw") options.colors = GridPictureOptions::Colors::BlackWhite;
    else if (args.colors != "default") {
        options.colors = GridPictureOptions::Colors::File;
        options.colorFile = args.colors;
    }
    options.legend = args.legend;
    options.contourInterval = args.contours;
    options.width = args.width;
    PlanContent plan;
    if (!args.drawing.empty()) {
        if (!loadPlan(args.drawing, plan)) return kExitFailure;
        options.plan = &plan;
    }
    std::string error;
    if (renderGrid(grid, options, args.output, error)) return kExitOk;
    std::fprintf(stderr, "vornmark: %s: %s\n", args.output.c_str(), error.c_str());
    return kExitFailure;
}

int exportDrawing(const RenderArgs& args)
{
    if (vectorDriverOfName(args.output).empty()) throw UsageError{"the output must end in .gpkg, .shp or .geojson"};
    PlanContent plan;
    if (!loadPlan(args.input, plan)) return kExitFailure;
    VectorExportCounts counts;
    std::string error;
    if (!exportVectors(plan.entities, plan.layers, splitNames(args.layers), args.output, counts, error)) {
        std::fprintf(stderr, "vornmark: %s: %s\n", args.output.c_str(), error.c_str());
        return kExitFailure;
    }
    std::printf("Exported %d polygons, %d lines and %d points to %s\n", counts.polygons, counts.lines, counts.points,
                args.output.c_str());
    return kExitOk;
}

void addPictureOptions(CLI::App& sub, RenderArgs& args)
{
    sub.add_option("--width", args.width, "picture width in pixels (default 1600)")->check(CLI::Range(100, 20000));
}

CommandGroup renderGroup{45, [](CLI::App& parser, Action& action) {
    auto args = std::make_shared<RenderArgs>();
    CLI::App* render = parser.add_subcommand("render", "Draw a DXF plan as a picture (PNG, SVG or PDF by the extension)");
    render->add_option("DRAWING", args->input, "DXF drawing")->required();
    render->add_option("OUTPUT", args->output, "picture to write: .png, .svg or .pdf")->required();
    render->add_option("--layers", args->layers, "only these layers, comma-separated");
    render->add_option("--window", args->window, "the part of the plan to show: X1,Y1 X2,Y2")->expected(2);
    render->add_option("--background", args->background, "white (default) or black")
        ->type_name("white|black")
        ->check(CLI::IsMember({"white", "black"}).description(""));
    addPictureOptions(*render, *args);
    render->callback([args, &action] { action = [args] { return renderDrawing(*args); }; });

    CLI::App* grid = parser.get_subcommand("grid");
    CLI::App* gridRender = grid->add_subcommand("render", "Draw a grid as a coloured raster in its place (PNG, SVG or PDF)");
    gridRender->add_option("GRID", args->input, "grid file (.grd, .top, .tif, .asc, Surfer .grd)")->required();
    gridRender->add_option("OUTPUT", args->output, "picture to write: .png, .svg or .pdf")->required();
    gridRender->add_option("--colors", args->colors, "default (ten groups), bw (greys) or a file of \"break,colour\" lines")
        ->type_name("default|bw|FILE");
    gridRender->add_flag("--legend", args->legend, "draw the legend of the colour groups");
    gridRender->add_option("--contours", args->contours, "contour lines at this interval")->check(CLI::PositiveNumber);
    gridRender->add_option("--drawing", args->drawing, "a DXF plan drawn over the grid");
    addPictureOptions(*gridRender, *args);
    gridRender->callback([args, &action] { action = [args] { return renderGridPicture(*args); }; });

    CLI::App* drawing = parser.get_subcommand("drawing");
    CLI::App* exporter = drawing->add_subcommand("export", "Write a drawing as GIS vectors (.gpkg, .shp, .geojson)");
    exporter->add_option("DRAWING", args->input, "DXF drawing")->required();
    exporter->add_option("OUTPUT", args->output, "GeoPackage, shapefile or GeoJSON to write")->required();
    exporter->add_option("--layers", args->layers, "only these layers, comma-separated");
    exporter->callback([args, &action] { action = [args] { return exportDrawing(*args); }; });
}};

}  // namespace
}  // namespace vorn::app
