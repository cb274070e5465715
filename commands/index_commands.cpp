#include "commands/commands.h"

#include "commands/command_support.h"

void vorn_genFactor() { vorn::reportMissing("vorn_genFactor", "the frame \"Individual Factor Generation/Normalization\""); }

void vorn_StabilityIndex() { vorn::reportMissing("vorn_StabilityIndex", "the panel dlg_stability"); }

void vorn_indexMapping() { vorn::reportMissing("vorn_indexMapping", "the panel dlg_indexmapping"); }
