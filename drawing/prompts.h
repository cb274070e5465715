// The system's question on the command line, its file choice and the
// drawing's folder.
#pragma once

#include <string>

// Asks "<message> [No/<Yes>]:" (default 6) or "<message> [Yes/<No>]:" with
// the keywords Yes and No. Returns 6 for Yes, 7 for No, 2 when cancelled;
// Enter gives the default.
int askYesNo(const std::string& message, int defaultAnswer);
// A file dialog for files of `extension`; remembers the folder of the last
// choice. On a save the extension is appended when missing. False on Cancel.
bool pickFileName(bool forOpen, const std::string& extension, std::string& nameInOut);
// DWGPREFIX, or the current directory when it has no value.
std::string drawingFolder();
