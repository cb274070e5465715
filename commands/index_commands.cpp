#include "commands/commands.h"

#include "base/report.h"
#include "index/factor.h"
#include "index/dlg_indexmapping.h"
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

void vorn_indexMapping()
{
    acDocManagerPtr()->pushResourceHandle();
    dlg_indexmapping panel;
    panel.DoModal();
    acDocManagerPtr()->popResourceHandle();
}
