// Every input that ever crashed, hung or exhausted a reader under the fuzz
// targets (tests/fuzz_regressions/<reader>/), and every seed of the fuzz
// corpus (fuzz/seeds/<reader>/), goes through the reader again in this
// build: the test fails if one of them crashes, hangs or aborts. The DXF,
// grid, raster and element-file inputs also go through the `vornmark`
// commands, which must end with status 0 or 1.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "fuzz/feeders.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> inputsOf(const std::string& reader)
{
    std::vector<fs::path> inputs;
    for (const char* folder : {"tests/fuzz_regressions", "fuzz/seeds"}) {
        fs::path dir = fs::path(VORN_SOURCE_DIR) / folder / reader;
        if (!fs::is_directory(dir)) continue;
        for (const auto& entry : fs::directory_iterator(dir)) {
            if (entry.is_regular_file() && entry.path().filename().string()[0] != '.') inputs.push_back(entry.path());
        }
    }
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

std::string bytesOf(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// The exit status of a `vornmark` command on one input; -1 for a signal.
int commandStatus(const std::string& arguments)
{
    std::string command = std::string(VORN_BINARY) + " " + arguments + " >/dev/null 2>&1 </dev/null";
    int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class Replay : public ::testing::TestWithParam<std::string> {};

TEST_P(Replay, EveryInputEndsWithTheReadersOwnOutcome)
{
    const std::string reader = GetParam();
    auto feed = vornfuzz::feeders().at(reader);
    std::vector<fs::path> inputs = inputsOf(reader);
    EXPECT_FALSE(inputs.empty()) << "no seeds for " << reader;
    for (const fs::path& input : inputs) {
        SCOPED_TRACE(input.string());
        feed(bytesOf(input));
    }
}

TEST(ReplayCommands, DrawingsGridsAndElementFilesEndWithStatusZeroOrOne)
{
    fs::path scratch = vornfuzz::scratchFolder();
    for (const fs::path& input : inputsOf("dxf")) {
        fs::copy_file(input, scratch / "replay.dxf", fs::copy_options::overwrite_existing);
        std::string drawing = (scratch / "replay.dxf").string();
        for (const std::string& args : {"drawing info " + drawing, "drawing copy " + drawing + " " + (scratch / "copy.dxf").string()}) {
            int status = commandStatus(args);
            EXPECT_TRUE(status == 0 || status == 1) << args << " from " << input << " ended with " << status;
        }
    }
    // Grid files and rasters through `grid info`, each under the extension
    // that picks its reader (a raster keeps its own, if it has one).
    for (const auto& [reader, extension] : {std::pair<std::string, std::string>{"grd", ".grd"}, {"top", ".top"}, {"raster", ""}}) {
        for (const fs::path& input : inputsOf(reader)) {
            std::string name = "replay" + (extension.empty() ? input.extension().string() : extension);
            if (name == "replay") continue;
            fs::copy_file(input, scratch / name, fs::copy_options::overwrite_existing);
            std::string args = "grid info " + (scratch / name).string();
            int status = commandStatus(args);
            EXPECT_TRUE(status == 0 || status == 1) << args << " from " << input << " ended with " << status;
        }
    }
    for (const fs::path& input : inputsOf("element")) {
        fs::copy_file(input, scratch / "replay.f1", fs::copy_options::overwrite_existing);
        std::string element = (scratch / "replay.f1").string();
        for (const std::string& args : {"transfer " + element + " --list",
                                        "transfer " + element + " --step 1 --item 1 " + (scratch / "out.grd").string()}) {
            int status = commandStatus(args);
            EXPECT_TRUE(status == 0 || status == 1 || status == 2) << args << " from " << input << " ended with " << status;
        }
    }
}

std::vector<std::string> readerNames()
{
    std::vector<std::string> names;
    for (const auto& [name, feed] : vornfuzz::feeders()) names.push_back(name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Readers, Replay, ::testing::ValuesIn(readerNames()), [](const auto& param) { return param.param; });

}  // namespace
