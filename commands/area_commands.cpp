#include "commands/commands.h"

#include "commands/command_support.h"

void vorn_sFactorInArea()
{
    runGridFrame("vorn_sFactorInArea", "Create Grid for Area Based Factor",
                 {"the page \"Create Boundary\"", "the page \"Build Grid\" (area factor)"});
}

// Also the body of vorn_cmrr.
void vorn_horizStress()
{
    runGridFrame("vorn_horizStress", "Create Grid for Horizontal Stress Effect on Entries",
                 {"the page \"Build Grid\" (horizontal stress)"});
}

void vorn_seamGrid()
{
    runGridFrame("vorn_seamGrid", "Seam Grid Generator for Keldar", {"the page \"Build Grid\" (seam)"});
}
