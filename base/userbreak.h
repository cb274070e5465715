// The user break: one process-wide flag that Ctrl-C sets. Long loops poll it
// (the progress window's Cancel, the drawing loops' user break) and whoever
// acts on it clears it.
#pragma once

namespace vorn {

// Installs the Ctrl-C handler. The first Ctrl-C sets the flag; a second one
// while the flag is still set ends the process as Ctrl-C normally does.
void installUserBreakHandler();
bool userBreakRequested();
void requestUserBreak();
void clearUserBreak();

}  // namespace vorn
