// What only a system with "/" paths has.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "native_files_fixture.hpp"

namespace quorrel {
namespace {

namespace fs = std::filesystem;
using test::NumberOf;

class PosixFiles : public test::NativeFiles {};

TEST_F(PosixFiles, RootIsTheDriveZ) {
    const std::pair<std::string_view, std::string_view> cases[] = {{"/", "Z:\\"},
                                                                   {"/a/b.txt", "Z:\\a\\b.txt"},
                                                                   {"//a///b/", "Z:\\a\\b"},
                                                                   {"/a/./b/../c", "Z:\\a\\c"},
                                                                   {"/../..", "Z:\\"},
                                                                   {"/a/..", "Z:\\"},
                                                                   {"/a/../../b", "Z:\\b"},
                                                                   {"/дом/é", "Z:\\дом\\é"},
                                                                   {"/..a/b..", "Z:\\..a\\b.."}};
    for (const auto& [native, windows] : cases) {
        EXPECT_EQ(files.WindowsPath(native), windows) << native;
    }
    EXPECT_EQ(files.NativePath("z:\\"), "/");
    EXPECT_EQ(files.NativePath("a\\b"), "a/b");
    EXPECT_EQ(files.WindowsPath("x/../y"), files.WindowsPath(fs::current_path().string() + "/y"));
    EXPECT_TRUE(files.FolderExists("Z:"));
    EXPECT_FALSE(files.FileExists("Z:\\"));
    EXPECT_TRUE(files.FolderExists("Z:\\..\\.."));
    folder.Write("a/b.txt", "x");
    EXPECT_FALSE(files.FileExists(folder.Windows() + "\\a..\\b.txt")) << "dots are of the name";
}

TEST_F(PosixFiles, ExactSpellingWins) {
    folder.Write("readme", "lower");
    folder.Write("README", "upper");
    EXPECT_EQ(files.ReadFile(Path("readme")), "lower");
    EXPECT_EQ(files.ReadFile(Path("README")), "upper");
    EXPECT_EQ(files.ReadFile(Path("ReadMe")), files.ReadFile(Path("rEADmE")));
    EXPECT_FALSE(files.MoveFile(Path("readme"), Path("README")));
}

// Programs that unpack or mirror a folder set its time stamp to that of the original.
TEST_F(PosixFiles, ChangesUnderAnOldFolderStampAreSeen) {
    const timespec old_times[] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    const std::string native = folder.Native();
    folder.Write("first", "");
    ASSERT_EQ(utimensat(AT_FDCWD, native.c_str(), old_times, 0), 0);
    ASSERT_TRUE(files.FileExists(Path("FIRST")));
    folder.Write("second", "");
    ASSERT_EQ(utimensat(AT_FDCWD, native.c_str(), old_times, 0), 0);
    EXPECT_TRUE(files.FileExists(Path("SECOND")));
}

TEST_F(PosixFiles, ReadOnlyFileIsNotWritten) {
    if (geteuid() == 0) GTEST_SKIP() << "permissions do not bind the superuser";
    folder.Write("file", "x");
    ASSERT_EQ(chmod(folder.Native("file").c_str(), 0444), 0);
    EXPECT_EQ(NumberOf([&] { files.WriteFile(Path("file"), "y"); }), 70);
    EXPECT_EQ(folder.Read("file"), "x");
}

TEST_F(PosixFiles, FullDeviceIsError61) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    EXPECT_EQ(NumberOf([&] { files.WriteFile("Z:\\dev\\full", "x"); }), 61);
}

TEST_F(PosixFiles, MoveChangesTheCaseOfAName) {
    folder.Write("Sub/page.htm", "x");
    EXPECT_TRUE(files.MoveFile(Path("sub/page.htm"), Path("SUB/Page.HTM")));
    EXPECT_EQ(folder.Read("Sub/Page.HTM"), "x");
    EXPECT_FALSE(folder.Exists("Sub/page.htm"));
    EXPECT_TRUE(files.MoveFile(Path("Sub"), Path("SUB")));
    EXPECT_EQ(folder.Read("SUB/Page.HTM"), "x");
}

// Two names of one file are a collision all the same: the target must not be lost.
TEST_F(PosixFiles, MoveOntoALinkedFileIsRefused) {
    folder.Write("real.txt", "x");
    fs::create_symlink("real.txt", folder.Native("symbolic.txt"));
    EXPECT_FALSE(files.MoveFile(Path("symbolic.txt"), Path("real.txt")));
    EXPECT_FALSE(fs::is_symlink(folder.Native("real.txt")));

    folder.Write("sub/hard.txt", "y");
    fs::create_hard_link(folder.Native("sub/hard.txt"), folder.Native("other.txt"));
    EXPECT_FALSE(files.MoveFile(Path("sub/hard.txt"), Path("other.txt")));
    EXPECT_TRUE(folder.Exists("sub/hard.txt"));
    EXPECT_FALSE(folder.Exists("sub/other.txt"));
}

TEST_F(PosixFiles, NamesThatAreNoUtf8ComeBack) {
    folder.Write("dir\xFF/n\xC3me\xE9.htm", "x");
    const std::string path = Path("dir\xFF/n\xC3me\xE9.htm");
    EXPECT_EQ(files.ReadFile(path), "x");
    EXPECT_EQ(files.ReadFile(Path("DIR\xFF/N\xC3ME\xE9.HTM")), "x");
    EXPECT_FALSE(files.FileExists(Path("dir\xFE/n\xC3me\xE9.htm")));
    files.WriteFile(path, "y");
    EXPECT_EQ(folder.Read("dir\xFF/n\xC3me\xE9.htm"), "y");
    EXPECT_TRUE(files.MoveFile(path, path + ".bak"));
    EXPECT_EQ(folder.Read("dir\xFF/n\xC3me\xE9.htm.bak"), "y");
}

TEST_F(PosixFiles, TheRealPathHasNoLinks) {
    folder.Write("there/File.txt", "x");
    fs::create_symlink(folder.Native("there"), folder.Native("here"));
    EXPECT_EQ(files.RealPath(Path("HERE/file.txt")),
              files.WindowsPath(fs::canonical(folder.Native("there/File.txt")).string()));
    EXPECT_EQ(files.RealPath(Path("here/none.txt")), "");
    EXPECT_EQ(files.RealPath(""), "");
}

TEST_F(PosixFiles, APipeIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(folder.Native("pipe").c_str(), 0600), 0);
    EXPECT_EQ(NumberOf([&] { (void)files.ReadFile(Path("pipe")); }), 70);
}

}  // namespace
}  // namespace quorrel
