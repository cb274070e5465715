#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/atomicfile.h"
#include "base/textfile.h"

namespace fs = std::filesystem;

namespace {

class ReplacingFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        folder = fs::temp_directory_path() / ("vorn_atomic_" + std::to_string(::getpid()));
        fs::remove_all(folder);
        fs::create_directories(folder);
        target = (folder / "result.grd").string();
        std::ofstream(target, std::ios::binary) << "old";
    }
    void TearDown() override
    {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }

    std::string contents() const
    {
        std::ifstream in(target, std::ios::binary);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
    // Every name in the folder: no temporary may be left behind.
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder)) found.push_back(entry.path().filename().string());
        return found;
    }

    fs::path folder;
    std::string target;
};

TEST_F(ReplacingFileTest, CommitPutsTheNewTextInPlaceAndKeepsThePermissions)
{
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    vorn::TextWriter writer;
    ASSERT_TRUE(writer.openReplacing(target));
    writer.write("new\n");
    EXPECT_EQ(contents(), "old");  // nothing shows under the name until the end
    ASSERT_TRUE(writer.close());
    EXPECT_EQ(contents(), "new\r\n");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EXPECT_EQ(names(), std::vector<std::string>{"result.grd"});
}

TEST_F(ReplacingFileTest, AWriterLeftUnfinishedLeavesTheOldFile)
{
    {
        vorn::TextWriter writer;
        ASSERT_TRUE(writer.openReplacing(target));
        writer.write(std::string(3 << 20, 'x'));  // past the buffer: on disk in the temporary
    }
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(names(), std::vector<std::string>{"result.grd"});
}

TEST_F(ReplacingFileTest, APathThatIsAFolderFailsToOpenAsFopenWould)
{
    fs::create_directory(folder / "sub.grd");
    int cause = vorn::kFileNone;
    vorn::TextWriter writer;
    EXPECT_FALSE(writer.openReplacing((folder / "sub.grd").string(), &cause));
    EXPECT_EQ(cause, vorn::kFileAccessDenied);
    int missing = vorn::kFileNone;
    EXPECT_FALSE(writer.openReplacing((folder / "none" / "x.grd").string(), &missing));
    EXPECT_EQ(missing, vorn::kFileNotFound);
    EXPECT_TRUE(fs::is_directory(folder / "sub.grd"));
}

TEST_F(ReplacingFileTest, AFailedRenameRemovesTheTemporary)
{
    std::string late = (folder / "late").string();
    vorn::ReplacingFile file;
    ASSERT_TRUE(file.open(late));
    std::fputs("text", file.stream());
    fs::create_directory(late);  // the name turns into a folder before the end
    fs::create_directory(late + "/keep");
    int cause = vorn::kFileNone;
    EXPECT_FALSE(file.commit(&cause));
    EXPECT_NE(cause, vorn::kFileNone);
    EXPECT_TRUE(fs::exists(late + "/keep"));
    EXPECT_EQ(names().size(), 2u);  // result.grd and the folder, no temporary
}

TEST_F(ReplacingFileTest, AReadOnlyFolderOrFileRefusesAndKeepsTheOldFile)
{
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    if (::access(folder.c_str(), W_OK) == 0) GTEST_SKIP() << "permissions do not bind this user";
    int cause = vorn::kFileNone;
    EXPECT_FALSE(vorn::writeFileReplacing(target, "new", &cause));
    EXPECT_EQ(cause, vorn::kFileAccessDenied);
    EXPECT_EQ(contents(), "old");
    fs::permissions(folder, fs::perms::owner_all);
    fs::permissions(target, fs::perms::owner_read);
    EXPECT_FALSE(vorn::writeFileReplacing(target, "new", &cause));
    EXPECT_EQ(contents(), "old");
}

// A disk that fills up part way through, as a file size limit makes it even
// for a user whom permissions do not bind: the write fails, the old file
// stays and no temporary is left. Run in a child so that the limit ends there.
TEST_F(ReplacingFileTest, AWriteThatFailsPartWayKeepsTheOldFileAndLeavesNoTemporary)
{
    pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        struct rlimit limit {4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        vorn::TextWriter writer;
        if (!writer.openReplacing(target)) ::_exit(2);
        writer.write(std::string(3 << 20, 'x'));
        ::_exit(writer.close() ? 3 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "2: not opened, 3: the failed write was reported as written";
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(names(), std::vector<std::string>{"result.grd"});
}

}  // namespace
