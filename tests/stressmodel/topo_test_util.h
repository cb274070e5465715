// Helpers of the overburden stress and transfer tests: a scratch folder for
// each test (tests may run side by side), whole-file reads and runs of the
// executable.
#pragma once

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "tests/grid/grid_test_util.h"

namespace stresstest {

using gridtest::slurp;

// An empty folder below the temporary folder, named after `group` and the
// running test.
inline std::filesystem::path testFolder(const std::string& group)
{
    std::filesystem::path folder = std::filesystem::temp_directory_path() / group /
                                   ::testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

// Runs `vornmark ARGUMENTS` in `folder`; its standard output and error are
// kept in `out` and `err`. The exit status, or -1 if it did not exit.
inline int runVornmark(const std::filesystem::path& folder, const std::string& arguments, std::string& out, std::string& err)
{
    std::string command = "cd '" + folder.string() + "' && " + VORN_BINARY + " " + arguments + " >out.txt 2>err.txt";
    int status = std::system(command.c_str());
    out = slurp((folder / "out.txt").string());
    err = slurp((folder / "err.txt").string());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace stresstest
