#include <filesystem>

#include "native_files_fixture.hpp"

namespace quorrel {
namespace {

namespace fs = std::filesystem;
using test::NativeFiles;
using test::NumberOf;

TEST_F(NativeFiles, NamesAreFoundWhateverTheirCase) {
    folder.Write("Project/Темы/Éa.HTM", "content");
    for (const char* name : {"Project/Темы/Éa.HTM", "project/темы/éa.htm", "PROJECT/ТЕМЫ/ÉA.htm"}) {
        EXPECT_TRUE(files.FileExists(Path(name))) << name;
        EXPECT_FALSE(files.FolderExists(Path(name))) << name;
        EXPECT_EQ(files.ReadFile(Path(name)), "content") << name;
    }
    EXPECT_TRUE(files.FolderExists(Path("PROJECT/темы")));
    EXPECT_TRUE(files.FileExists(Path("project") + "\\темы\\..\\ТЕМЫ\\.\\éa.htm"));
    EXPECT_FALSE(files.FileExists(Path("project/temy/éa.htm")));
    EXPECT_FALSE(files.FileExists(Path("project/темы/éa.htm/x")));
}

TEST_F(NativeFiles, SpellingOnDiskStays) {
    folder.Write("Sub/File.Txt", "old");
    files.WriteFile(Path("SUB/FILE.TXT"), "new");
    EXPECT_EQ(folder.Read("Sub/File.Txt"), "new");
    EXPECT_FALSE(folder.Exists("SUB"));
    files.WriteFile(Path("SUB/Next.txt"), "n");
    EXPECT_EQ(folder.Read("Sub/Next.txt"), "n");
    EXPECT_EQ(files.ReadFileHead(Path("sub/next.txt"), 0), "");
    EXPECT_EQ(files.ReadFileHead(Path("SUB/FILE.TXT"), 2), "ne");
    EXPECT_EQ(files.ReadFileHead(Path("sub/file.txt"), 100), "new");
}

TEST_F(NativeFiles, ChangesByOthersAreSeen) {
    folder.Write("keep", "");
    for (int i = 0; i < 20; ++i) {
        ASSERT_FALSE(files.FileExists(Path("PAGE.HTM"))) << i;
        folder.Write("page.htm", "x");
        ASSERT_TRUE(files.FileExists(Path("PAGE.HTM"))) << i;
        fs::remove(folder.Native("page.htm"));
        ASSERT_FALSE(files.FileExists(Path("PAGE.HTM"))) << i;
        folder.Write("Page.Htm", "y");
        ASSERT_EQ(files.ReadFile(Path("PAGE.HTM")), "y") << i;
        fs::remove(folder.Native("Page.Htm"));
    }
}

TEST_F(NativeFiles, FailuresHaveTheirNumbers) {
    folder.Write("file", "x");
    folder.Write("sub/file", "x");
    const auto read = [&](std::string_view name) {
        return NumberOf([&] { (void)files.ReadFile(Path(name)); });
    };
    EXPECT_EQ(read("none"), 53);
    EXPECT_EQ(read("none/file"), 76);
    EXPECT_EQ(read("file/below"), 76);
    EXPECT_EQ(read("sub"), 70);
    EXPECT_EQ(NumberOf([&] { (void)files.ReadFileHead(Path("none"), 4); }), 53);
    EXPECT_EQ(NumberOf([&] { files.WriteFile(Path("SUB"), "x"); }), 70);
    EXPECT_EQ(NumberOf([&] { files.WriteFile(Path("none/file"), "x"); }), 76);
    EXPECT_EQ(NumberOf([&] { files.CreateFolder(Path("SUB")); }), 58);
    EXPECT_EQ(NumberOf([&] { files.CreateFolder(Path("FILE")); }), 58);
    EXPECT_EQ(NumberOf([&] { files.CreateFolder(Path("none/x")); }), 76);
    EXPECT_EQ(NumberOf([&] { files.CreateFolder(Path("new")); }), 0);
    EXPECT_TRUE(files.FolderExists(Path("NEW")));
}

TEST_F(NativeFiles, PathWithNulIsNoFile) {
    folder.Write("file", "x");
    folder.Write("other", "y");
    const std::string path = Path("file") + std::string(1, '\0') + ".bak";
    const std::string existing = Path("other");
    EXPECT_FALSE(files.FileExists(path));
    EXPECT_NE(NumberOf([&] { (void)files.ReadFile(path); }), 0);
    EXPECT_NE(NumberOf([&] { files.WriteFile(path, "z"); }), 0);
    EXPECT_FALSE(files.DeleteFile(path));
    EXPECT_FALSE(files.CopyFile(path, existing, true));
    EXPECT_FALSE(files.MoveFile(existing, path));
    EXPECT_NO_THROW(EXPECT_FALSE(files.MoveFile(path, existing)));
    EXPECT_EQ(folder.Read("file") + folder.Read("other"), "xy");
}

TEST_F(NativeFiles, MoveDoesNotReplace) {
    folder.Write("a.txt", "a");
    folder.Write("B.txt", "b");
    folder.Write("sub/c.txt", "c");
    EXPECT_FALSE(files.MoveFile(Path("a.txt"), Path("b.TXT")));
    EXPECT_FALSE(files.MoveFile(Path("a.txt"), Path("SUB")));
    EXPECT_FALSE(files.MoveFile(Path("none"), Path("a.txt")));
    EXPECT_FALSE(files.MoveFile(Path("a.txt"), Path("none/a.txt")));
    EXPECT_EQ(folder.Read("a.txt") + folder.Read("B.txt"), "ab");
    EXPECT_TRUE(files.MoveFile(Path("A.TXT"), Path("SUB/Moved.txt")));
    EXPECT_EQ(folder.Read("sub/Moved.txt"), "a");
    EXPECT_FALSE(folder.Exists("a.txt"));
}

TEST_F(NativeFiles, CopyReplacesOnlyWhenAllowed) {
    folder.Write("a", std::string("a\0a", 3));
    folder.Write("B", "b");
    EXPECT_FALSE(files.CopyFile(Path("a"), Path("b"), false));
    EXPECT_EQ(folder.Read("B"), "b");
    EXPECT_TRUE(files.CopyFile(Path("A"), Path("b"), true));
    EXPECT_EQ(folder.Read("B"), std::string("a\0a", 3));
    EXPECT_TRUE(files.CopyFile(Path("a"), Path("A"), true));
    EXPECT_EQ(folder.Read("a"), std::string("a\0a", 3));
    EXPECT_FALSE(files.CopyFile(Path("none"), Path("a"), true));
    EXPECT_EQ(folder.Read("a"), std::string("a\0a", 3));
    EXPECT_FALSE(files.CopyFile(Path("a"), Path("none/a"), true));
}

TEST_F(NativeFiles, DeleteTakesFilesOnly) {
    folder.Write("Sub/File", "x");
    EXPECT_FALSE(files.DeleteFile(Path("sub")));
    EXPECT_TRUE(files.DeleteFile(Path("SUB/file")));
    EXPECT_FALSE(folder.Exists("Sub/File"));
}

TEST_F(NativeFiles, ParentStepsAreTakenByTheText) {
    folder.Write("a/b.txt", "x");
    for (const char* way : {"missing\\..\\a\\b.txt", "a\\x\\..\\b.txt", "a\\..\\a\\B.TXT",
                            "m\\n\\..\\..\\a\\b.txt"}) {
        EXPECT_TRUE(files.FileExists(folder.Windows() + "\\" + way)) << way;
    }
    EXPECT_TRUE(files.FolderExists("missing\\..\\..\\."));
}

TEST_F(NativeFiles, PathsWithoutEndAreNoFiles) {
    std::string way = folder.Windows();
    for (int i = 0; i < 2'000'000; ++i) way += "\\a\\..";
    EXPECT_FALSE(files.FileExists(way));
    EXPECT_THROW((void)files.ReadFile(way), RuntimeError);
    EXPECT_FALSE(files.MoveFile(way, way));
}

}  // namespace
}  // namespace quorrel
