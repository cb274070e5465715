// Ending the process after a fatal message (a unit code out of range, an
// allocation that failed), as the stress model has always done. A host that
// must go on, such as a fuzz target, installs a handler that unwinds instead;
// a handler that returns lets the process end as usual.
#pragma once

namespace vorn {

using ProcessEndHandler = void (*)(int status);

[[noreturn]] void endProcess(int status);
// nullptr restores the plain end of the process.
void setProcessEndHandler(ProcessEndHandler handler);

}  // namespace vorn
