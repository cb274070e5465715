#include "app/cli_util.h"

#include <cstdio>
#include <unistd.h>

#include "base/textnum.h"

namespace vorn::app {

void finishTerminalLine()
{
    if (isatty(fileno(stdout))) std::fputc('\n', stdout);
    std::fflush(stdout);
}

bool hasExtension(const std::string& path, const std::string& extension)
{
    return path.size() >= extension.size() &&
           vorn::iequals(std::string_view(path).substr(path.size() - extension.size()), extension);
}

}  // namespace vorn::app
