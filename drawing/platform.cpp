#include "drawing/platform.h"

namespace vorn {

Platform& platform()
{
    static Platform current;
    return current;
}

ScopedPlatform::ScopedPlatform(const Platform& p) : previous_(platform()) { platform() = p; }
ScopedPlatform::~ScopedPlatform() { platform() = previous_; }

}  // namespace vorn
