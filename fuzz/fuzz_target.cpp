// The libFuzzer entry of one reader; VORN_FUZZ_READER names its feeder.
#include <cstddef>
#include <cstdint>

#include "fuzz/feeders.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static void (*const feed)(std::string_view) = vornfuzz::feeders().at(VORN_FUZZ_READER);
    feed(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
