#include "PosixFiles.h"
#include "FilesOnDisk.h"
#include "HeadlessFiles.h"
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmorath {
namespace {

namespace fs = std::filesystem;

fs::perms permissions(const std::string& path)
{
    return fs::status(path).permissions() & fs::perms::all;
}

std::size_t countIn(const std::string& folder)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

class PosixFilesTest : public testing::Test {
protected:
    PosixFilesTest() { fs::create_directory(m_folder); }

    std::optional<Error> replace(const std::string& path, std::string_view bytes)
    {
        return replaceFile(m_files, path, bytes);
    }

    HeadlessFiles m_scratch{{}};
    const std::string m_folder = *m_scratch.documentDirectory();
    const std::string m_path = m_folder + "/notes";
    PosixFiles m_files{m_folder, m_folder + "/defaults", "/"};
};

TEST_F(PosixFilesTest, ReplacesWholeFilesForTheOwnerAlone)
{
    auto path = m_folder + "/a/b/notes";
    EXPECT_FALSE(m_files.exists(path));
    EXPECT_FALSE(m_files.read(path));
    std::string bytes("long\0er", 7);
    ASSERT_FALSE(replace(path, bytes));
    EXPECT_EQ(*m_files.read(path), bytes);
    fs::permissions(path, fs::perms::all);
    ASSERT_FALSE(replace(path, ""));
    EXPECT_EQ(*m_files.read(path), "");
    EXPECT_EQ(permissions(path), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(permissions(m_folder + "/a"), fs::perms::owner_all);
    EXPECT_EQ(countIn(m_folder + "/a/b"), 1u);
}

TEST_F(PosixFilesTest, TakesOverWhatAKillLeft)
{
    ASSERT_FALSE(replace(m_path + ".new", "a much longer text than the next one"));
    ASSERT_FALSE(replace(m_path, "new"));
    EXPECT_EQ(*m_files.read(m_path), "new");
    EXPECT_EQ(countIn(m_folder), 1u);
}

TEST_F(PosixFilesTest, DoesNotDisturbAnotherWriter)
{
    int other = open((m_path + ".new").c_str(), O_CREAT | O_WRONLY, 0600);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_TRUE(replace(m_path, "new"));
    close(other);
    EXPECT_FALSE(replace(m_path, "new"));
}

TEST_F(PosixFilesTest, KeepsTheOldFileWhenTheDiskIsFull)
{
    ASSERT_FALSE(replace(m_path, "old"));
    auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit old;
    getrlimit(RLIMIT_FSIZE, &old);
    rlimit tight{1000, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    auto error = replace(m_path, std::string(5000, 'x'));
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_TRUE(error);
    EXPECT_EQ(*m_files.read(m_path), "old");
    EXPECT_EQ(countIn(m_folder), 1u);
}

TEST_F(PosixFilesTest, ReportsFoldersThatCannotBeWritten)
{
    auto inAFile = m_path + "/below";
    ASSERT_FALSE(replace(m_path, "old"));
    EXPECT_TRUE(replace(inAFile, "new"));
    EXPECT_FALSE(m_files.exists(inAFile));
    EXPECT_TRUE(replace("/proc/velmorath/notes", "new"));
    if (geteuid() == 0)
        return; // Permissions do not stop the superuser.
    fs::permissions(m_folder, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(replace(m_path, "new"));
    EXPECT_TRUE(m_files.setAside(m_path, "unreadable"));
    EXPECT_EQ(*m_files.read(m_path), "old");
    fs::permissions(m_folder, fs::perms::none);
    EXPECT_TRUE(m_files.exists(m_path));
    fs::permissions(m_folder, fs::perms::owner_all);
}

TEST_F(PosixFilesTest, RefusesWhatIsNotAFile)
{
    fs::create_directory(m_path);
    EXPECT_FALSE(m_files.read(m_path));
    EXPECT_TRUE(replace(m_path, "new"));
    EXPECT_FALSE(m_files.setAside(m_path, "unreadable"));
    ASSERT_EQ(mkfifo(m_path.c_str(), 0600), 0);
    EXPECT_FALSE(m_files.read(m_path));
    EXPECT_TRUE(replace(m_path, "new"));
}

TEST_F(PosixFilesTest, RefusesAGiganticFile)
{
    ASSERT_FALSE(replace(m_path, ""));
    fs::resize_file(m_path, PosixFiles::longestFile + 1);
    auto bytes = m_files.read(m_path);
    ASSERT_FALSE(bytes);
    EXPECT_NE(bytes.error().description.find("too long"), std::string::npos);
}

TEST_F(PosixFilesTest, FollowsLinksAndLeavesThemInPlace)
{
    auto target = m_folder + "/elsewhere/target";
    fs::create_symlink("elsewhere/target", m_path);
    EXPECT_FALSE(m_files.exists(m_path));
    ASSERT_FALSE(replace(m_path, "one"));
    ASSERT_FALSE(replace(m_path, "two"));
    EXPECT_TRUE(fs::is_symlink(m_path));
    EXPECT_EQ(*m_files.read(target), "two");
    ASSERT_FALSE(m_files.setAside(m_path, "unreadable"));
    EXPECT_TRUE(fs::is_symlink(m_path));
    EXPECT_EQ(*m_files.read(target + ".unreadable"), "two");

    fs::remove(m_path);
    fs::create_symlink(m_path, m_path);
    EXPECT_TRUE(replace(m_path, "three"));
}

TEST_F(PosixFilesTest, SetsAsideWithoutOverwriting)
{
    for (auto text : {"one", "two", "three"}) {
        ASSERT_FALSE(replace(m_path, text));
        ASSERT_FALSE(m_files.setAside(m_path, "unreadable"));
    }
    EXPECT_TRUE(m_files.setAside(m_path, "unreadable"));
    EXPECT_EQ(*m_files.read(m_path + ".unreadable"), "one");
    EXPECT_EQ(*m_files.read(m_path + ".unreadable-2"), "two");
    EXPECT_EQ(*m_files.read(m_path + ".unreadable-3"), "three");
}

TEST_F(PosixFilesTest, KeepsWhatSomebodyElsePutThere)
{
    ASSERT_FALSE(replace(m_path, "ours"));
    const auto version = m_files.version(m_path);
    EXPECT_EQ(m_files.version(m_path), version);
    replaceFromOutside(m_path, "their");
    EXPECT_NE(m_files.version(m_path), version);
    ASSERT_FALSE(replace(m_path, "ours"));
    ASSERT_EQ(m_files.copiesBeside(m_path).size(), 1u);
    EXPECT_EQ(*m_files.read(m_files.copiesBeside(m_path).front()), "their");

    // What was read is known, and what only looks like a copy is none.
    replaceFromOutside(m_path, "their");
    EXPECT_TRUE(m_files.read(m_path));
    ASSERT_FALSE(replace(m_path, "ours"));
    fs::create_directory(m_files.copiesBeside(m_path).front() + "2");
    EXPECT_EQ(m_files.copiesBeside(m_path).size(), 1u);
    fs::remove(m_path);
    EXPECT_FALSE(m_files.version(m_path));
    EXPECT_TRUE(m_files.copiesBeside(m_folder + "/none/notes.archive").empty());
}

TEST_F(PosixFilesTest, FindsTheCopiesOfALinkAndOfWhatItLeadsTo)
{
    const std::string folder = m_folder + "/elsewhere/";
    const std::string link = m_folder + "/list.archive";
    ASSERT_FALSE(replace(folder + "list-of-all.archive", "ours"));
    for (const char* const name : {"list-of-all.archive", "list-of-all.conflict.archive"})
        ASSERT_FALSE(replace(folder + name, name));
    ASSERT_FALSE(replace(m_folder + "/list.unsaved.archive", "unsaved"));
    fs::create_symlink("elsewhere/list-of-all.archive", link);
    EXPECT_EQ(m_files.copiesBeside(link),
        (std::vector{folder + "list-of-all.conflict.archive", m_folder + "/list.unsaved.archive"}));

    // What a link leads to is no copy of it, whatever its name.
    fs::remove(link);
    fs::create_symlink("list.unsaved.archive", link);
    EXPECT_TRUE(m_files.copiesBeside(link).empty());
}

TEST_F(PosixFilesTest, FindsTheUsersFolders)
{
    setenv("XDG_DATA_HOME", "/data", 1);
    setenv("XDG_CONFIG_HOME", "relative", 1);
    setenv("HOME", "/home/me", 1);
    auto files = PosixFiles::forUser("/resources");
    EXPECT_EQ(files.documentDirectory(), "/data/velmorath/Documents");
    EXPECT_EQ(files.defaultsFile(), "/home/me/.config/velmorath/defaults.plist");
    unsetenv("HOME");
    EXPECT_EQ(PosixFiles::forUser("/resources").defaultsFile(), std::nullopt);
    unsetenv("XDG_DATA_HOME");
    unsetenv("XDG_CONFIG_HOME");
}

} // namespace
} // namespace velmorath
