// What the command handlers share: the notice for a part this build lacks,
// and the task frame with the pages a command has.
#pragma once

#include <initializer_list>
#include <string>

namespace vorn {
// Says on the command line which part of a command this build lacks, and
// marks the run as incomplete.
void reportMissing(const char* command, const std::string& what);
}  // namespace vorn

// Runs the frame "Grid Dimension" alone for a command whose task pages are
// not built yet, naming each missing page. Returns IDOK or IDCANCEL.
int runGridFrame(const char* command, const char* title, std::initializer_list<const char*> missingPages);
