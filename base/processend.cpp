#include "base/processend.h"

#include <atomic>
#include <cstdlib>

namespace vorn {

namespace {
std::atomic<ProcessEndHandler> endHandler{nullptr};
}

void endProcess(int status)
{
    if (ProcessEndHandler handler = endHandler.load()) handler(status);
    std::exit(status);
}

void setProcessEndHandler(ProcessEndHandler handler) { endHandler.store(handler); }

}  // namespace vorn
