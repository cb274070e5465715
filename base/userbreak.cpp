#include "base/userbreak.h"

#include <atomic>
#include <csignal>

#include "base/atomicfile.h"

namespace vorn {

namespace {
std::atomic<bool> breakFlag{false};
static_assert(std::atomic<bool>::is_always_lock_free, "the flag is set from a signal handler");

void onInterrupt(int signal)
{
    if (breakFlag.exchange(true)) {
        // No half-written file outlives the process.
        removePendingTemporaries();
        std::signal(signal, SIG_DFL);
        std::raise(signal);
    }
}
}  // namespace

void installUserBreakHandler() { std::signal(SIGINT, onInterrupt); }
bool userBreakRequested() { return breakFlag.load(); }
void requestUserBreak() { breakFlag.store(true); }
void clearUserBreak() { breakFlag.store(false); }

}  // namespace vorn
