#include "index/index_support.h"

#include <cstdint>
#include <cstdlib>

#include "base/textnum.h"

namespace vorn {

std::string replaceAll(std::string text, const std::string& what, const std::string& with)
{
    if (what.empty()) return text;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

std::string doubleFieldText(double value) { return formatString("%.15g", value); }

long wtol32(const std::string& text)
{
    long long value = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<long>(static_cast<std::int32_t>(value));
}

}  // namespace vorn
