// `vornmark map INDEX.grd OUTPUT.dxf`: the <Analyze> and <Hatch> path of
// the panel "Mapping Stability Index on Entries" in one batch run on a
// drawing, its questions answered as a user who goes straight through
// would, and the drawing saved to OUTPUT.
#include <cstdio>

#include "app/cli_util.h"
#include "app/commands.h"
#include "base/report.h"
#include "drawing/database_port.h"
#include "drawing/selection.h"
#include "grid/grid.h"
#include "host/docs_session.h"
#include "index/dlg_indexmapping.h"

namespace vorn::app {
namespace {

struct MapArgs {
    std::string index;
    std::string output;
    std::string drawing;
    std::string pillars;
    std::string layer;
    bool combine = true;
    bool blackWhite = false;
};

std::vector<std::string> commaList(const std::string& text)
{
    std::vector<std::string> items;
    size_t start = 0;
    while (start <= text.size()) {
        size_t comma = text.find(',', start);
        if (comma == std::string::npos) comma = text.size();
        if (comma > start) items.push_back(text.substr(start, comma - start));
        start = comma + 1;
    }
    return items;
}

// Whether <Analyze> will ask about open pillars: an open polyline on the
// pillar layers crossing the grid's outline.
bool hasOpenPillars(const DatabasePort& drawing, const myGrid& grid, const std::string& layers)
{
    SelectionQuery query;
    query.mode = SelectMode::CrossingPolygon;
    std::vector<vorn::Point2> outline;
    grid.getOutline(outline);
    for (const vorn::Point2& p : outline) query.points.push_back({p.x, p.y});
    query.filter = {ResultItem::ofText(8, layers), ResultItem::ofText(0, kPolylineTypes)};
    for (ObjectId id : drawing.select(query)) {
        Entity entity;
        if (drawing.readEntity(id, entity) == eOk && !drawing.isClosed(entity)) return true;
    }
    return false;
}

// The answers in the order the panel asks: Enter to go on, open pillars
// taken as closed, the combine question and its Enter, Enter before the
// hatching, and Yes to keep the hatches.
std::string answersFor(const MapArgs& args, bool openPillars)
{
    std::string script = "<enter>\n";
    if (openPillars) script += "Yes\n";
    script += args.combine ? "Yes\n<enter>\n" : "No\n";
    return script + "<enter>\nYes\n";
}

int mapIndex(const MapArgs& args)
{
    myGrid grid;
    if (!grid.readGrd(args.index, 1)) {
        AfxMessageBox("Read grid file error!");
        explainReadFailure(args.index, "a grid file");
        return kExitFailure;
    }
    std::string error;
    auto drawing = openDrawing(args.drawing, error);
    if (!drawing) {
        std::fprintf(stderr, "vornmark: %s: %s\n", args.drawing.c_str(), error.c_str());
        return kExitFailure;
    }
    SessionOptions options;
    options.answering = SessionOptions::Answering::Script;
    options.scriptText = answersFor(args, !args.pillars.empty() && hasOpenPillars(*drawing, grid, args.pillars));
    options.drawingFolder = folderOf(args.drawing);
    AppSession app(std::move(drawing), args.drawing);
    if (!app.open(options, false, error)) {
        std::fprintf(stderr, "vornmark: %s\n", error.c_str());
        return kExitFailure;
    }
    int status = app.session().run([&args] {
        dlg_indexmapping panel;
        panel.OnInitDialog();
        if (!panel.loadGrid(args.index)) return 1;
        if (!args.layer.empty()) panel.mappingLayer = args.layer;
        panel.selectPillarLayers(commaList(args.pillars));
        panel.blackWhite = args.blackWhite;
        panel.OnAnalyze();
        if (panel.newRegions.empty()) return 1;
        panel.OnHatch();
        return panel.total() == 0 ? 0 : 1;
    });
    std::fputs("\n", stdout);
    if (status != 0) return kExitFailure;
    if (!app.save(args.output, error)) {
        std::fprintf(stderr, "vornmark: %s: %s\n", args.output.c_str(), error.c_str());
        return kExitFailure;
    }
    return kExitOk;
}

CommandGroup group{14, [](CLI::App& parser, Action& action) {
    auto args = std::make_shared<MapArgs>();
    CLI::App* sub = parser.add_subcommand("map", "Map an index grid onto the plan as coloured regions and solid hatches");
    sub->add_option("INDEX", args->index, "the index grid (.grd)")->required();
    sub->add_option("OUTPUT", args->output, "the drawing to save (DXF)")->required();
    sub->add_option("--drawing", args->drawing, "the plan to map onto (DXF); a new drawing without it");
    sub->add_option("--pillars", args->pillars, "pillar layers, comma-separated (the panel needs at least one)");
    sub->add_option("--layer", args->layer, "the mapping layer (default: the current layer; made when missing)");
    sub->add_flag("--combine,!--no-combine", args->combine, "unite the regions of a colour (default) or not");
    sub->add_flag("--bw", args->blackWhite, "grey shades instead of colours");
    sub->callback([args, &action] { action = [args] { return mapIndex(*args); }; });
}};

}  // namespace
}  // namespace vorn::app
