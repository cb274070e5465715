#include "commands/command_help.h"

#include <algorithm>

#include "base/textnum.h"
#include "commands/menu.h"


namespace vorn {

namespace {

struct HelpText {
    const char* name;
    const char* description;
    const char* opens;
};

// In table order; the caption comes from the menu.
const HelpText kHelp[] = {
    {"vorn_setGrid", "define the base grid (lattice) of this drawing for the session",
     "the frame \"Define a Grid\" with the page \"Grid Dimension\""},
    {"vorn_gridFromContour", "build a factor grid from contour lines (interpolated between contours)",
     "the frame \"Create Grid from Contours\": \"Grid Dimension\", \"Build Grid\""},
    {"vorn_gridFromPoint", "build a factor grid from points such as drill holes (inverse distance or average)",
     "the frame \"Create Grid from Survey Points\": \"Grid Dimension\", \"Build Grid\""},
    {"vorn_geoFeatures", "build a factor grid from linear features such as faults (distance to the feature)",
     "the frame \"Create Grid from Linear Geological Features\": \"Grid Dimension\", \"Build Grid\""},
    {"vorn_sFactorInArea", "build a factor grid from closed area boundaries (inside and outside values)",
     "the frame \"Create Grid for Area Based Factor\": \"Grid Dimension\", \"Create Boundary\", \"Build Grid\""},
    {"vorn_topoStressModel", "overburden stress on the seam under an uneven surface",
     "the panel \"Overburden Stress Calculation\""},
    {"vorn_horizStress", "rate the entries against the direction of the horizontal stress",
     "the frame \"Create Grid for Horizontal Stress Effect on Entries\": \"Grid Dimension\", \"Build Grid\""},
    {"vorn_cmrr", "the same command as vorn_horizStress",
     "the frame \"Create Grid for Horizontal Stress Effect on Entries\""},
    {"vorn_topoGrid", "build the surface topography file (.top) of a stress model from contours",
     "the frame \"Topography Grid Generator for Keldar\": \"Grid Dimension\", \"Build Grid\""},
    {"vorn_seamGrid", "build the seam file of a stress model from pillars, gob and entries",
     "the frame \"Seam Grid Generator for Keldar\": \"Grid Dimension\", \"Build Grid\""},
    {"vorn_keldar", "run a laminated displacement-discontinuity stress model (.inp)",
     "the panel \"Keldar Stress Calculation\""},
    {"vorn_convKelGrid", "transfer a stress model result (element file) to a grid",
     "the panel \"Grid Transfer from Keldar Output\""},
    {"vorn_genFactor", "normalise a factor grid to an index grid of 0 to 100",
     "the frame \"Individual Factor Generation/Normalization\": \"Grid File\", \"Function\""},
    {"vorn_StabilityIndex", "combine index grids by weights into the composite stability index (.prj project)",
     "the panel of the composite stability index"},
    {"vorn_indexMapping", "map an index grid onto the entries of the plan as coloured hatches",
     "the panel of the index mapping"},
    {"vorn_gridUtility", "view, plot, edit, compare and combine grids", "the panel of the grid utility"},
    {"vorn_createPolylineFromObjects", "make one polyline through the vertices of picked objects", "prompts on the command line"},
    {"vorn_joinPolylines", "join polylines whose ends meet", "prompts on the command line"},
    {"vorn_checkClosedPolylines", "close the open polylines of a selection", "prompts on the command line"},
    {"vorn_checkOverlaps", "find polygons that overlap each other", "prompts on the command line"},
    {"vorn_checkDuplicates", "find polygons drawn twice", "prompts on the command line"},
    {"vorn_checkContours", "find contour lines that cross at different elevations, or stand at one",
     "prompts on the command line"},
    {"vorn_clearWorkingLayer", "erase the objects of a layer", "the layer choice panel"},
    {"vorn_RFRI_Draw", "draw the twelve roof defects and make their grids",
     "the frame \"Draw the Defects for the RFRI\": \"Grid Dimension\" and one page per defect"},
    {"vorn_RFRI_Calc", "calculate the Roof Fall Risk Index grid from the defect grids",
     "the panel of the RFRI calculation"},
    {"vorn_vornabout", "about the system", "the about box"},
    {"tabTest", "the base grid page alone, without storing the grid", "the frame \"Define a Grid\""},
    {"VORNMenu", "put the Vornmark pull-down on the menu bar, or take it off", "no panel"},
    {"vorn_RFRI_Input", "assign observed roof defects to assessment polygons", "the assessment panel"},
    {"vorn_RFRI_List", "list the defects of the assessment polygons", "prompts on the command line"},
    {"vorn_RFRI_Label", "label the assessment polygons with their defects", "prompts on the command line"},
    {"vorn_RFRI_Mapping", "calculate the RFRI of the assessment polygons and map it", "prompts on the command line"},
};

// The command a menu macro names: Ctrl-C Ctrl-C, an optional apostrophe and
// underscore, the name, a blank.
std::string macroCommand(const std::string& macro)
{
    size_t start = 0;
    while (start < macro.size() && (macro[start] == '\x03' || macro[start] == '\'' || macro[start] == '_')) ++start;
    size_t end = macro.find(' ', start);
    return macro.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

std::string menuCaption(const std::string& name)
{
    CVornMenu menu = buildVornMenu();
    for (size_t k = 0; k < menu.macros.size(); ++k) {
        if (!iequals(macroCommand(menu.macros[k]), name)) continue;
        std::string caption;
        for (char c : menu.labels[k].rfind("<-", 0) == 0 ? menu.labels[k].substr(2) : menu.labels[k])
            if (c != '&') caption += c;
        return caption;
    }
    return "";
}

std::string withoutUnderscore(const std::string& typed) { return !typed.empty() && typed[0] == '_' ? typed.substr(1) : typed; }

}  // namespace

std::vector<CommandHelp> commandHelp()
{
    std::vector<CommandHelp> entries;
    for (const HelpText& text : kHelp) entries.push_back({text.name, menuCaption(text.name), text.description, text.opens});
    return entries;
}

const CommandHelp* findCommandHelp(const std::string& typed)
{
    static const std::vector<CommandHelp> entries = commandHelp();
    for (const CommandHelp& entry : entries)
        if (iequals(entry.name, withoutUnderscore(typed))) return &entry;
    return nullptr;
}

std::string commandListing()
{
    std::string text;
    for (const CommandHelp& entry : commandHelp()) {
        std::string line = "  " + entry.name;
        line.resize(std::max<size_t>(line.size() + 1, 34), ' ');
        if (!entry.caption.empty()) line += "[" + entry.caption + "] ";
        text += line + entry.description + "\n";
    }
    return text;
}

std::string commandDetail(const CommandHelp& help)
{
    std::string text = help.name + ": " + help.description + ".\n";
    text += "  Opens: " + help.opens + ".\n";
    text += "  Menu: " + (help.caption.empty() ? std::string("no item of the Vornmark menu leads to it") : "Vornmark > " + help.caption) + ".\n";
    return text;
}

}  // namespace vorn
