#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/textfile.h"

namespace {
std::string tempPath(const char* name) { return (std::filesystem::temp_directory_path() / name).string(); }

std::string slurp(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}
}  // namespace

TEST(TextFile, WriterTurnsLineEndsIntoCrLf)
{
    std::string path = tempPath("vorn_textfile_w.txt");
    vorn::TextWriter w;
    ASSERT_TRUE(w.open(path));
    w.write("a\nb");
    w.printf("\n%d", 5);
    w.writeFixed6(1.5);
    ASSERT_TRUE(w.close());
    EXPECT_EQ(slurp(path), "a\r\nb\r\n51.500000");
    std::remove(path.c_str());
}

TEST(TextFile, ReaderAcceptsCrLfLfAndAnUnterminatedLastLine)
{
    std::string path = tempPath("vorn_textfile_r.txt");
    std::ofstream(path, std::ios::binary) << "one\r\ntwo\n\nlast";
    vorn::TextReader r;
    ASSERT_TRUE(r.open(path));
    std::string line;
    std::vector<std::string> lines;
    while (r.readLine(line)) lines.push_back(line);
    EXPECT_EQ(lines, (std::vector<std::string>{"one", "two", "", "last"}));
    std::remove(path.c_str());
}

TEST(TextFile, OpenFailureGivesTheCauseCode)
{
    vorn::TextReader r;
    int cause = -1;
    EXPECT_FALSE(r.open("/nonexistent-folder/x.grd", &cause));
    EXPECT_EQ(cause, vorn::kFileNotFound);
    EXPECT_EQ(vorn::shiftedByCause("File could not be opened: ", cause), "le could not be opened: ");
    vorn::TextWriter w;
    EXPECT_FALSE(w.open("/proc/version/x", &cause));
    EXPECT_EQ(cause, vorn::kFileBadPath);
}
