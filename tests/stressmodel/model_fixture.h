// Helpers of the stress model tests: a scratch folder that is the current
// folder for the test (the model writes beside it), and small `.inp`
// models built line by line.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "shell/report.h"
#include "stressmodel/modeldat.h"

namespace vorn::testing {

// Runs each test in a fresh folder of its own as the current folder.
class ScratchFolderTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        previous_ = std::filesystem::current_path();
        std::string pattern = (std::filesystem::temp_directory_path() / "vorn_stress_XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        std::filesystem::current_path(folder_);
    }
    void TearDown() override
    {
        std::filesystem::current_path(previous_);
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    static std::string readFile(const std::string& path)
    {
        std::ifstream in(path, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    static void writeFile(const std::string& path, const std::string& text)
    {
        std::ofstream(path, std::ios::binary) << text;
    }
    static std::vector<std::string> lines(const std::string& text)
    {
        std::vector<std::string> result;
        std::stringstream in(text);
        for (std::string line; std::getline(in, line);) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            result.push_back(line);
        }
        return result;
    }

    std::filesystem::path folder_;
    std::filesystem::path previous_;
};

// A small model as the lines of its `.inp` file; tests change a line and
// write it. Defaults: one seam of 10 x 10 elements, one coal material,
// one step with four mined elements in the middle.
struct ModelText {
    std::string title = "Small test model";
    std::string host = "      0.2500,    3000000.0,        600.0,   1,   0";
    std::string materialCount;  // empty: the number of material lines
    std::vector<std::string> materials = {"  1,     300000.0,     120000.0,          0.0,          0.0,          0.0"};
    std::string grid = "        60.0,  10,  10,      0.09167";
    std::vector<std::string> seams = {"0.0, 0.0, -7200.0,         72.0"};
    std::string control = "        1.50,     0.000001,    2000,   1,   1,   0,   0,   0";
    std::string boundary = "  0,   0,   0,   0";
    std::string offSeam;
    int countX = 10;
    int countY = 10;
    int steps = 1;
    // Codes of every step and seam, north row first; filled by default.
    std::vector<std::string> codeRows;

    void fillCodes(char fill = 'A', char middle = '1')
    {
        codeRows.clear();
        for (int block = 0; block < steps * static_cast<int>(seams.size()); ++block) {
            for (int y = countY; y >= 1; --y) {
                std::string row;
                for (int x = 1; x <= countX; ++x) {
                    bool centre = x > countX / 2 - 1 && x <= countX / 2 + 1 && y > countY / 2 - 1 && y <= countY / 2 + 1;
                    row += centre ? middle : fill;
                }
                codeRows.push_back(row);
            }
        }
    }
    std::string text() const
    {
        std::string out = title + "\r\n" + host + "\r\n" +
                          (materialCount.empty() ? std::to_string(materials.size()) : materialCount) + "\r\n";
        for (const std::string& m : materials) out += m + "\r\n";
        out += grid + "\r\n";
        for (const std::string& s : seams) out += s + "\r\n";
        out += control + "\r\n" + boundary + "\r\n";
        if (!offSeam.empty()) out += offSeam + "\r\n";
        for (const std::string& row : codeRows) out += row + "\r\n";
        return out;
    }
};

}  // namespace vorn::testing
