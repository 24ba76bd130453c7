#include "platform/text_files.hpp"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/failure.hpp"
#include "platform/native_file_system.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel {
namespace {

TEST(Failure, TrapGoesOnAndLogs) {
    std::vector<std::string> written;
    std::vector<std::string> reported;
    ErrorLog log([&](std::string_view line) { written.emplace_back(line); });
    log.listener = [&](std::string_view line) { reported.emplace_back(line); };
    const Trap trap(log, "Save_Click: ");
    EXPECT_TRUE(trap([] {}));
    EXPECT_TRUE(written.empty());
    const auto missing = [] { throw RuntimeError(run_time_error::kFileNotFound); };
    EXPECT_FALSE(trap(missing));
    EXPECT_FALSE(trap(missing));
    EXPECT_FALSE(trap([] { throw std::bad_alloc(); }));
    EXPECT_FALSE(trap([] { throw RuntimeError(1000, "own text"); }));
    EXPECT_FALSE(trap(missing));
    const std::vector<std::string> lines = {
        "Save_Click: 53 File not found", "Save_Click: 7 Out of memory", "Save_Click: 1000 own text",
        "Save_Click: 53 File not found"};
    EXPECT_EQ(reported, lines);
    EXPECT_EQ(written.back(), lines.back());
}

TEST(Failure, OtherExceptionsPassThroughTheTrap) {
    ErrorLog log([](std::string_view line) { ADD_FAILURE() << line; });
    EXPECT_THROW(Trap(log, "x: ")([] { throw std::logic_error("fault"); }), std::logic_error);
}

class TextFilesTest : public testing::Test {
  protected:
    test::ScratchFolder folder;
    NativeFileSystem files;
    TextFiles texts{files, MachineCodePage{1251, false}};
    std::vector<std::string> lines;
    ErrorLog log{[this](std::string_view line) { lines.emplace_back(line); }};
    Trap trap{log, "Swap: "};
    std::string path = folder.Windows("a.txt");
};

TEST_F(TextFilesTest, EncodingOfTheLastReadIsWritten) {
    EXPECT_EQ(texts.Encoded(path, "ж"), "\xE6");
    folder.Write("a.txt", "\xFF\xFE");
    EXPECT_EQ(texts.Read(path), "");
    EXPECT_EQ(texts.Encoded(folder.Windows("A.TXT"), "ж"), "\xFF\xFE\x36\x04");
    EXPECT_EQ(texts.Encoded(folder.Windows("b.txt"), "ж"), "\xE6");
    EXPECT_TRUE(texts.WriteAndSwap(path, "жж", Backup::kNone, trap));
    EXPECT_EQ(folder.Read("a.txt"), "\xFF\xFE\x36\x04\x36\x04");
    texts.Write(path, "ж");
    EXPECT_EQ(folder.Read("a.txt"), "\xFF\xFE\x36\x04");

    folder.Write("a.txt", "\xE6");
    EXPECT_EQ(texts.Read(path), "ж");
    EXPECT_EQ(texts.Encoded(path, "ж"), "\xE6");

    folder.Write("a.txt", "ж");
    EXPECT_EQ(texts.Read(path), "ж");
    EXPECT_EQ(texts.Encoded(path, "é"), "é");
    texts.StartProject("");
    EXPECT_EQ(texts.Encoded(path, "жé"), "\xE6&#233;");
}

TEST_F(TextFilesTest, ProjectChoosesThePageUnlessTheMachineIsFixed) {
    EXPECT_EQ(texts.CodePageNumber(), 1251);
    texts.UseLanguage("0x411 Japanese");
    EXPECT_EQ(texts.CodePageNumber(), 932);
    texts.UseLanguage("damaged");
    EXPECT_EQ(texts.CodePageNumber(), 1251);
    TextFiles fixed(files, {1253, true});
    fixed.UseLanguage("0x411 Japanese");
    EXPECT_EQ(fixed.CodePageNumber(), 1253);
}

TEST_F(TextFilesTest, SwapKeepsOneBackup) {
    EXPECT_TRUE(texts.WriteAndSwap(path, "1", Backup::kKept, trap));
    EXPECT_FALSE(folder.Exists("a.txt.bak"));
    EXPECT_TRUE(texts.WriteAndSwap(path, "2", Backup::kKept, trap));
    EXPECT_EQ(folder.Read("a.txt.bak"), "1");
    EXPECT_TRUE(texts.WriteAndSwap(path, "3", Backup::kNone, trap));
    EXPECT_EQ(folder.Read("a.txt.bak"), "1");
    EXPECT_EQ(folder.Read("a.txt"), "3");
    EXPECT_FALSE(folder.Exists("a.txt.tmp"));
    EXPECT_TRUE(lines.empty());
}

TEST_F(TextFilesTest, FailingSwapLeavesTheOldFile) {
    folder.Write("a.txt", "old");
    folder.Write("a.txt.bak", "older");
    folder.Write("a.txt.tmp/x", "");
    EXPECT_FALSE(texts.WriteAndSwap(path, "new", Backup::kKept, trap));
    EXPECT_EQ(lines, std::vector<std::string>{"Swap: 70 Permission denied"});
    EXPECT_EQ(folder.Read("a.txt.bak"), "older");

    folder.Write("b.txt.bak/no room", "");
    folder.Write("b.txt", "old");
    EXPECT_FALSE(texts.WriteAndSwap(folder.Windows("b.txt"), "new", Backup::kKept, trap));
    EXPECT_EQ(folder.Read("a.txt") + folder.Read("b.txt"), "oldold");
    EXPECT_FALSE(folder.Exists("b.txt.tmp"));

    folder.Write("c.txt/x", "kept");
    EXPECT_FALSE(texts.WriteAndSwap(folder.Windows("c.txt"), "new", Backup::kNone, trap));
    EXPECT_EQ(folder.Read("c.txt/x"), "kept");
}

TEST_F(TextFilesTest, AnOriginalIsKeptOnceOfWhatLosesSomething) {
    const auto save = [&](std::string_view text) {
        return texts.WriteAndSwap(path, text, Backup::kKept, trap);
    };
    texts.NoteLeftBehind(path, {"lines", 1, 2});
    EXPECT_TRUE(save("1")) << "there is nothing to keep yet";
    EXPECT_FALSE(folder.Exists("a.txt.orig"));
    texts.NoteLeftBehind(folder.Windows("A.TXT"), {"lines", 2, 2});
    texts.NoteLeftBehind(folder.Windows("b.txt"), {"lines", 0, 2});
    ASSERT_EQ(texts.FilesLeftBehind().size(), 1U);
    EXPECT_EQ(texts.FilesLeftBehind()[0].kinds[0].count, 2);
    EXPECT_TRUE(save("2") && save("3"));
    EXPECT_EQ(folder.Read("a.txt.orig"), "1");
    EXPECT_EQ(folder.Read("a.txt.bak"), "2");

    // Another original of the same name, and then one that is kept already.
    for (const char* original : {"other", "other", "1"}) {
        texts.StartProject("");
        folder.Write("a.txt", original);
        texts.NoteLeftBehind(path, {"lines", 1});
        EXPECT_TRUE(save("4"));
    }
    EXPECT_EQ(folder.Read("a.txt.orig"), "1");
    EXPECT_EQ(folder.Read("a.txt.orig.2"), "other");
    EXPECT_FALSE(folder.Exists("a.txt.orig.3"));
    EXPECT_TRUE(lines.empty());
}

TEST_F(TextFilesTest, WithoutAnOriginalNothingIsReplaced) {
    folder.Write("a.txt", "old");
    folder.Write("a.txt.orig/no room", "");
    texts.NoteLeftBehind(path, {"lines", 1});
    EXPECT_FALSE(texts.WriteAndSwap(path, "new", Backup::kNone, trap));
    EXPECT_EQ(folder.Read("a.txt"), "old");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NE(lines[0].find("a.txt was not replaced"), std::string::npos) << lines[0];
}

}  // namespace
}  // namespace quorrel
