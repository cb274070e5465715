// End-to-end runs of the executable's grid commands.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>

#include "grid/grid.h"

namespace {
struct RunResult {
    int status;
    std::string out;
};

// Runs vornmark with the arguments; standard error goes to `errPath`.
RunResult vornmark(const std::string& args, const std::string& errPath = "/dev/null")
{
    std::string command = std::string(VORN_BINARY) + " " + args + " 2>" + errPath;
    FILE* pipe = popen(command.c_str(), "r");
    std::string out;
    std::array<char, 4096> buffer;
    size_t got = 0;
    while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) out.append(buffer.data(), got);
    int status = pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, out};
}

std::string slurp(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

std::string dir()
{
    auto d = std::filesystem::temp_directory_path() / "vorn_cli_tests";
    std::filesystem::create_directories(d);
    return d.string();
}

std::string example() { return std::string(VORN_SOURCE_DIR) + "/examples/depth.grd"; }
}  // namespace

TEST(CliGrid, InfoDescribesAndFailsOnUnknownNames)
{
    RunResult info = vornmark("grid info " + example());
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.out.rfind("\nOverburden Depth\r\nGrid Orign: 1000.000000,  2000.000000,  0.000000", 0), 0u);
    std::string err = dir() + "/err.txt";
    RunResult unknown = vornmark("grid info " + dir() + "/x.txt", err);
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(slurp(err), "Unknown grid file !\n");
    EXPECT_EQ(vornmark("grid info").status, 2);
    EXPECT_EQ(vornmark("grid info --help").status, 0);
}

TEST(CliGrid, ConvertToTopAndBack)
{
    std::string top = dir() + "/depth.top";
    ASSERT_EQ(vornmark("grid convert " + example() + " " + top).status, 0);
    myGrid a, b;
    ASSERT_TRUE(a.readGrd(example(), 1));
    ASSERT_TRUE(b.readTop(top, 1));
    EXPECT_EQ(a.getValue(7, 9), b.getValue(7, 9));
    EXPECT_EQ(vornmark("grid convert " + example() + " " + dir() + "/x.dat").status, 2);
}

TEST(CliGenFactor, DefaultsFromTheGridAndExactOutput)
{
    std::string out = dir() + "/depth_index.grd";
    std::string err = dir() + "/gen_err.txt";
    RunResult run = vornmark("genfactor " + example() + " " + out + " --function linear --tendency normal", err);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "\nLoad from file " + example() + "\nIndex has been saved to grid file< " + out + " >" +
                           "\nIndividual Factor Normalization/Formulization finished!");
    EXPECT_EQ(slurp(err), "\nIndex has been saved to grid file< " + out + " >\n");
    myGrid index;
    ASSERT_TRUE(index.readGrd(out, 1));
    EXPECT_EQ(index.getTitle(), "Overburden Depth Index");
    double min = 0, max = 0;
    index.getMinMax(min, max);
    EXPECT_EQ(min, 0.0);
    EXPECT_EQ(max, 100.0);

    run = vornmark("genfactor " + example() + " " + out + " --function step --tendency inverse --description Mid");
    EXPECT_EQ(run.status, 0);
    index.readGrd(out, 1);
    EXPECT_EQ(index.getTitle(), "Mid");

    EXPECT_EQ(vornmark("genfactor " + example() + " " + out + " --function cubic --tendency normal").status, 2);
    EXPECT_EQ(vornmark("genfactor " + example() + " " + out + " --function linear --tendency normal --lower 5 --upper 5")
                  .status,
              1);
    EXPECT_EQ(vornmark("genfactor " + dir() + "/none.grd " + out + " --function none --tendency normal").status, 1);
}
