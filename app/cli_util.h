// Small helpers shared by the command groups of the executable.
#pragma once

#include <string>

class CElementFileReader;

namespace vorn::app {

// Ends the command line text with a line end when standard output is a
// terminal, so the shell's prompt starts on a line of its own; redirected
// output stays exactly what the system printed.
void finishTerminalLine();

// True when `path` ends in `extension` (".grd"), compared without case.
bool hasExtension(const std::string& path, const std::string& extension);

// True for a path ending in ".f" and a seam number (".f1" ...), any case:
// an element file of the stress model.
bool isElementFile(const std::string& path);
// The items of all steps of a selected element file, as the transfer panel
// lists them.
void printItemList(const CElementFileReader& reader);
// `grid info` of an element file: its lattice and its list of items.
int describeElementFile(const std::string& path);

// After the system's own message for a file that could not be read or
// written, one line of the command line's own on standard error,
// "vornmark: PATH: reason", since the system's texts do not always name the
// file or the cause. `what` says what the file was to be ("a grid file").
void explainReadFailure(const std::string& path, const std::string& what);
void explainWriteFailure(const std::string& path);
// After a run that ended with the system's coded message: "vornmark: PATH:
// `what` did not finish; the code in the message above tells where".
void explainRunFailure(const std::string& path, const std::string& what);

}  // namespace vorn::app
