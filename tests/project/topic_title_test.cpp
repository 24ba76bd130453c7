#include "project/topic_title.hpp"

#include <gtest/gtest.h>

#include "platform/native_file_system.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel {
namespace {

TEST(TopicTitle, IsTakenAsFound) {
    const auto title = [](std::string_view text) {
        return ScanTopicTitle(text, "C:\\p\\file.htm").value_or("(none)");
    };
    EXPECT_EQ(title("<html><TITLE>A &amp; B </title>"), "A &amp; B ");
    EXPECT_EQ(title("<title\n>late</title>"), " >late");
    EXPECT_EQ(title("<title lang=en>x</title><body>"), "x");
    EXPECT_EQ(title("<title>\n  two\nlines</title>\n"), "   two lines");
    EXPECT_EQ(title("<html>\n<Body bgcolor=x>\n<title>late</title>"), "file.htm");
    EXPECT_EQ(title("<title>open\nstill\n"), "(none)");
    EXPECT_EQ(title("<title></title>"), "");
}

TEST(TopicTitle, IsReadInTheTopicsOwnEncoding) {
    const test::ScratchFolder folder;
    NativeFileSystem files;
    const auto title = [&](std::string_view bytes, int code_page = 1252) {
        folder.Write("t.htm", bytes);
        return ReadTopicTitle(files, folder.Windows("t.htm"), code_page).value_or("(none)");
    };
    const std::string e_acute = "\xC3\xA9";
    EXPECT_EQ(title("<title>\xE9</title>"), e_acute);
    EXPECT_EQ(title("<title>\xC3\xA9</title>"), e_acute);
    EXPECT_EQ(title("<title>\xE9</title>", 1251), "\xD0\xB9");
    EXPECT_EQ(title("<title>\xE9</title><meta content=\"text/html; charset=koi8-r\">"), "\xD0\x98");
    EXPECT_EQ(title("<meta charset='Shift_JIS'><title>\x83\x5C</title>"), "\xE3\x82\xBD");
    EXPECT_EQ(title(std::string_view("\xFF\xFE<\0t\0i\0t\0l\0e\0>\0\xE9\0<\0", 20)), e_acute);
    EXPECT_EQ(ReadTopicTitle(files, folder.Windows("missing.htm"), 1252), std::nullopt);
    EXPECT_EQ(ReadTopicTitle(files, folder.Windows(), 1252), std::nullopt);
}

TEST(TopicTitle, ReferencesAreReadAsCharactersAndWrittenOnlyWhereNeeded) {
    EXPECT_EQ(TitleText("&#1063;&#x430;&#1081; &eacute; Q&amp;A AT&T &copies &nope;"),
              "Чай é Q&A AT&T &copies &nope;");
    for (const char* title : {"Q&A", "Tips & Tricks", "a > b", "Чай &nope;"}) {
        EXPECT_EQ(TitleInHtml(title), title);
    }
    EXPECT_EQ(TitleInHtml("a < b & &lt;"), "a &lt; b &amp; &amp;lt;");
    EXPECT_EQ(TitleText(TitleInHtml("a < b & &lt;")), "a < b & &lt;");
    const test::ScratchFolder folder;
    NativeFileSystem files;
    const auto read = [&](const std::string& html) {
        folder.Write("t.htm", html);
        return ReadTopicTitle(files, folder.Windows("t.htm"), 1251).value_or("(none)");
    };
    EXPECT_EQ(read("<title>&#1063;\xE0</title>"), "Ча");
    EXPECT_EQ(read("<meta charset=utf-8><title>\xD7\xE0\xE9</title>"), "Чай") << "no UTF-8 at all";
    EXPECT_EQ(read("<meta charset=utf-8><title>Чай</title>"), "Чай");
}

TEST(TopicTitle, IsFoundBehindALongHead) {
    const test::ScratchFolder folder;
    NativeFileSystem files;
    // The title straddles every boundary that a reader in pieces could have.
    for (std::size_t padding = 16 * 1024 - 20; padding < 16 * 1024 + 5; ++padding) {
        folder.Write("t.htm", "<!--" + std::string(padding, 'x') + "-->\n<title>a\nb</title>");
        EXPECT_EQ(ReadTopicTitle(files, folder.Windows("t.htm"), 1252), "a b") << padding;
    }
}

TEST(TopicTitle, NeedsTheWholeFileOnlyForAnUntoldEncoding) {
    struct HeadsOnly : NativeFileSystem {
        std::string ReadFile(std::string_view path) override {
            ++whole;
            return NativeFileSystem::ReadFile(path);
        }
        int whole = 0;
    };
    const test::ScratchFolder folder;
    HeadsOnly files;
    const auto title = [&](const std::string& head) {
        folder.Write("t.htm", head + "\n<body>\n" + std::string(100'000, 'x'));
        return ReadTopicTitle(files, folder.Windows("t.htm"), 1252);
    };
    const std::string e_acute = "\xC3\xA9";
    EXPECT_EQ(title("<title>a</title>"), "a");
    EXPECT_EQ(title("<title>\xC3\xA9</title><meta charset=utf-8>"), e_acute);
    EXPECT_EQ(title("<title>\x83\x5C</title><meta charset=shift_jis>"), "\xE3\x82\xBD");
    EXPECT_EQ(files.whole, 0);
    EXPECT_EQ(title("<title>\xC3\xA9</title>"), e_acute);
    EXPECT_EQ(files.whole, 1);
}

}  // namespace
}  // namespace quorrel
