// Runs the `vornmark` executable in a scratch folder of its own, with its
// standard output and error in out.txt and err.txt there.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

class Cli : public ::testing::Test {
protected:
    void SetUp() override
    {
        dir = fs::temp_directory_path() / ("vorn_cmd_cli_" + std::to_string(::getpid()));
        fs::create_directories(dir);
        setenv("VORNMARK_PROFILE", (dir / "profile.ini").c_str(), 1);
    }
    void TearDown() override { fs::remove_all(dir); }

    int vornmark(const std::string& arguments)
    {
        std::string command = std::string(VORN_BINARY) + " " + arguments + " >" + (dir / "out.txt").string() + " 2>" +
                              (dir / "err.txt").string();
        int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string read(const std::string& name)
    {
        std::stringstream text;
        text << std::ifstream(dir / name, std::ios::binary).rdbuf();
        return text.str();
    }
    void write(const std::string& name, const std::string& text) { std::ofstream(dir / name) << text; }
    std::string path(const std::string& name) { return (dir / name).string(); }

    fs::path dir;
};

