#include "app/cli_util.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "app/commands.h"
#include "base/report.h"
#include "base/textnum.h"
#include "stressmodel/transfer.h"

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

bool isElementFile(const std::string& path)
{
    size_t dot = path.find_last_of("./");
    if (dot == std::string::npos || path[dot] != '.' || dot + 2 >= path.size()) return false;
    if (path[dot + 1] != 'f' && path[dot + 1] != 'F') return false;
    return path.find_first_not_of("0123456789", dot + 2) == std::string::npos;
}

void printItemList(const CElementFileReader& reader)
{
    acutPrintf("%s\n", reader.fileLabel().c_str());
    acutPrintf("Item#\tItem Name\tUnit\tStep\tComments\n");
    for (const CElementItemRow& row : reader.rows()) {
        acutPrintf("%s\t%s\t%s\t%s\t%s\n", row.number.c_str(), row.name.c_str(), row.unit.c_str(), row.step.c_str(),
                   row.comments.c_str());
    }
}

int describeElementFile(const std::string& path)
{
    CElementFileReader reader;
    if (!reader.selectFile(path)) {
        explainReadFailure(path, "an element file");
        return kExitFailure;
    }
    acutPrintf("Element file of %d step(s), %d item(s) a step\n", reader.stepCount, reader.itemCount);
    acutPrintf("Lattice: %d x %d elements of width %g ft, seam origin %g, %g\n", reader.countX, reader.countY,
               reader.elementWidth, reader.originX, reader.originY);
    printItemList(reader);
    acutPrintf("vornmark transfer %s --step S --item K OUTPUT.grd makes a grid of one item\n", path.c_str());
    return kExitOk;
}

namespace {

void explain(const std::string& path, const std::string& reason)
{
    std::fflush(stdout);
    std::fprintf(stderr, "vornmark: %s: %s\n", path.c_str(), reason.c_str());
}

std::string folderOf(const std::string& path)
{
    size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool isDirectory(const std::string& path)
{
    struct stat info {};
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

void explainReadFailure(const std::string& path, const std::string& what)
{
    if (isDirectory(path)) return explain(path, "is a folder, not a file");
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return explain(path, std::strerror(errno));
    std::fclose(file);
    explain(path, "could not be read as " + what + " (see the message above)");
}

void explainRunFailure(const std::string& path, const std::string& what)
{
    explain(path, what + " did not finish; the code in the message above tells where");
}

void explainWriteFailure(const std::string& path)
{
    if (isDirectory(path)) return explain(path, "cannot be written: it is a folder");
    std::string folder = folderOf(path);
    if (!isDirectory(folder)) return explain(path, "cannot be written: the folder " + folder + " does not exist");
    if (access(folder.c_str(), W_OK) != 0) return explain(path, "cannot be written: " + std::string(std::strerror(errno)));
    if (access(path.c_str(), F_OK) == 0 && access(path.c_str(), W_OK) != 0)
        return explain(path, "cannot be written: " + std::string(std::strerror(errno)));
    explain(path, "could not be written");
}

}  // namespace vorn::app
