// Helpers of the stress model tests: a scratch folder that is the current
// folder of the test (the models write beside their input), whole-file
// reads, runs of the executable and small `.inp` models built line by line.
#pragma once

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "base/report.h"
#include "base/textnum.h"

namespace vorn::testing {

inline std::string readFile(const std::filesystem::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

inline void writeFile(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

// The lines of `text` without their CR LF or LF.
inline std::vector<std::string> lines(const std::string& text)
{
    std::vector<std::string> result;
    std::stringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        result.push_back(line);
    }
    return result;
}

// Runs each test in a fresh folder of its own as the current folder, with
// the messages captured.
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
    std::string path(const std::string& name) const { return (folder_ / name).string(); }
    std::string lastBox() const { return capture.boxes.empty() ? std::string() : capture.boxes.back().text; }
    // Runs `vornmark ARGUMENTS` here with no input; its exit status, or -1
    // if it did not exit. Standard output and error land in `out`, `err`.
    int vornmark(const std::string& arguments)
    {
        const std::string command = std::string(VORN_BINARY) + " " + arguments + " < /dev/null > out.txt 2> err.txt";
        const int status = std::system(command.c_str());
        out = readFile("out.txt");
        err = readFile("err.txt");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::filesystem::path folder_;
    std::filesystem::path previous_;
    CaptureReporter capture;
    ScopedReporter scoped{capture};
    std::string out, err;
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
    // Codes of every step and seam, north row first.
    std::vector<std::string> codeRows;

    ModelText() { fillCodes(); }
    void fillCodes()
    {
        codeRows.clear();
        for (int block = 0; block < steps * static_cast<int>(seams.size()); ++block) {
            for (int y = countY; y >= 1; --y) {
                std::string row;
                for (int x = 1; x <= countX; ++x) {
                    const bool centre = x > countX / 2 - 1 && x <= countX / 2 + 1 && y > countY / 2 - 1 && y <= countY / 2 + 1;
                    row += centre ? '1' : 'A';
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

// The value of item `item` (1..5) of element (x, y) in step `step` of
// `elementFile`, all from 1.
inline double sampleValue(int step, int x, int y, int item) { return step * 1000 + x * 100 + y * 10 + item; }

// An element file as the model writes it, with `steps` steps of a
// `countX` by `countY` mesh at (120, -60).
inline std::string elementFile(int steps, int countX, int countY, double width, const char* lengthUnit = "in")
{
    std::string text = formatString("%3i, %7i, %12.5g, %3i, %3i, %12.5g, %12.5g\r\n", steps, countX * countY, width, countX,
                                    countY, 120.0, -60.0);
    text += "  5,Seam Convergence         ,Total Vertical Stress    ,Surface Effect Stress    ,Multiple Seam Stress     ,Overburden "
            "Stress        \r\n";
    text += formatString("%3d,%25s,%25s,%25s,%25s,%25s\r\n", 5, lengthUnit, "psi", "psi", "psi", "psi");
    for (int s = 1; s <= steps; ++s)
        for (int x = 1; x <= countX; ++x)
            for (int y = 1; y <= countY; ++y)
                text += formatString("%12.5g, %12.5g, %12.5g, %12.5g, %12.5g\r\n", sampleValue(s, x, y, 1), sampleValue(s, x, y, 2),
                                     sampleValue(s, x, y, 3), sampleValue(s, x, y, 4), sampleValue(s, x, y, 5));
    return text;
}

}  // namespace vorn::testing
