// Small helpers shared by the command groups of the executable.
#pragma once

#include <string>

namespace vorn::app {

// Ends the command line text with a line end when standard output is a
// terminal, so the shell's prompt starts on a line of its own; redirected
// output stays exactly what the system printed.
void finishTerminalLine();

// True when `path` ends in `extension` (".grd"), compared without case.
bool hasExtension(const std::string& path, const std::string& extension);

}  // namespace vorn::app
