#include "commands/commands.h"

#include "base/report.h"
#include "index/factor.h"
#include "commands/command_support.h"
#include "index/dlg_stability.h"
#include "index/genfactor_pages.h"

// The two pages of the factor conversion; their OK runs the conversion.
void vorn_genFactor()
{
    acDocManagerPtr()->pushResourceHandle();
    CGenFactFrame frame;
    int result = frame.DoModal();
    acDocManagerPtr()->popResourceHandle();
    if (result == IDOK) runFactorConversion(frame.conversion());
}

void vorn_StabilityIndex()
{
    acDocManagerPtr()->pushResourceHandle();
    dlg_stability panel;
    panel.DoModal();
    acDocManagerPtr()->popResourceHandle();
}

void vorn_indexMapping() { vorn::reportMissing("vorn_indexMapping", "the panel dlg_indexmapping"); }
