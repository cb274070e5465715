#include "commands/commands.h"

#include "commands/command_support.h"

void vorn_topoStressModel() { vorn::reportMissing("vorn_topoStressModel", "the overburden stress front end"); }

void vorn_keldar() { vorn::reportMissing("vorn_keldar", "the solver panel dlg_keldar"); }

void vorn_convKelGrid() { vorn::reportMissing("vorn_convKelGrid", "the panel dlg_convkelgrid"); }
