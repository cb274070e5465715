#include "commands/commands.h"

#include "generators/areafacttab.h"
#include "generators/boundtab.h"
#include "generators/horizstresstab.h"
#include "generators/seamtab.h"
#include "shell/gridframe.h"

void vorn_sFactorInArea()
{
    GridFrame frame("Create Grid for Area Based Factor");
    CBoundTab boundTab;
    CAreaFactTab areaTab;
    frame.addPage("Create Boundary", IDD_BOUNDTAB, &boundTab);
    frame.addPage("Build Grid", IDD_AREAFACTTAB, &areaTab);
    frame.run();
}

// Also the body of vorn_cmrr.
void vorn_horizStress()
{
    GridFrame frame("Create Grid for Horizontal Stress Effect on Entries");
    CHorizonStressTab stressTab;
    frame.addPage("Build Grid", IDD_HORIZSTRESSTAB, &stressTab);
    frame.run();
}

void vorn_seamGrid()
{
    GridFrame frame("Seam Grid Generator for Keldar");
    CSeamTab seamTab;
    frame.addPage("Build Grid", IDD_SEAMTAB, &seamTab);
    frame.run();
}
