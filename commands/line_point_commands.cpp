#include "commands/commands.h"

#include "commands/command_support.h"

void vorn_gridFromContour()
{
    runGridFrame("vorn_gridFromContour", "Create Grid from Contours", {"the page \"Build Grid\" (contours)"});
}

void vorn_topoGrid()
{
    runGridFrame("vorn_topoGrid", "Topography Grid Generator for Keldar", {"the page \"Build Grid\" (topography)"});
}

void vorn_gridFromPoint()
{
    runGridFrame("vorn_gridFromPoint", "Create Grid from Survey Points", {"the page \"Build Grid\" (survey points)"});
}

void vorn_geoFeatures()
{
    runGridFrame("vorn_geoFeatures", "Create Grid from Linear Geological Features",
                 {"the page \"Build Grid\" (linear features)"});
}
