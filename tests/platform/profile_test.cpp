#include <gtest/gtest.h>

#include "platform/native_file_system.hpp"
#include "platform/profile_file.hpp"
#include "platform/profile_store.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kProfile =
    "; comment\r\n[Settings]\r\nplain=value\r\n  lead =  spaced out  \r\nQUOTED=\"in quotes\"\r\n"
    "sq='single'\r\nhalf=\"only one\r\nempty=\r\ndup=first\r\ndup=second\r\nnoequals\r\n"
    "tab\t=\tx\t\r\nsemi=a;b\r\n;gone=1\r\n[ settings ]\r\nother=1\r\n[Settings]\r\nlate=2\r\n"
    "plain=again\r\n[Open\r\nx=1\r\n [Indented]\r\ni=1\r\n[A]B]\r\nq=5\r\n";

TEST(ProfileFile, AnswersOfEveryKindOfLine) {
    const std::pair<std::string_view, std::string_view> of_settings[] = {
        {"PLAIN", "value"}, {" plain ", "value"},   {"lead", "spaced out"}, {"quoted", "in quotes"},
        {"sq", "single"},   {"half", "\"only one"}, {"empty", ""},          {"dup", "first"},
        {"tab", "x"},       {"semi", "a;b"}};
    for (const auto& [key, value] : of_settings) {
        EXPECT_EQ(ProfileValue(kProfile, "SETTINGS", key).value_or("DEF"), value) << key;
    }
    for (const char* key : {"noequals", "gone", ";gone", "late", "other"}) {
        EXPECT_EQ(ProfileValue(kProfile, "Settings", key), std::nullopt) << key;
    }
    EXPECT_EQ(ProfileValue(kProfile, " settings ", "other"), "1");
    EXPECT_EQ(ProfileValue(kProfile, "Open", "x"), std::nullopt);
    EXPECT_EQ(ProfileValue(kProfile, "Indented", "i"), "1");
    EXPECT_EQ(ProfileValue(kProfile, "A]B", "q"), "5");
    EXPECT_EQ(ProfileValue(kProfile, "", "plain"), std::nullopt);
    EXPECT_FALSE(ProfileValue("[a", "a", "b").has_value());
    EXPECT_EQ(ProfileValue("[Раздел]\nКлюч=ж", "РАЗДЕЛ", "ключ"), "ж");
    EXPECT_EQ(ProfileValue("[a]\rb=\"\"\rc=\"", "a", "b"), "");
    EXPECT_EQ(ProfileValue("[a]\rb=\"\"\rc=\"", "a", "c"), "\"");
    EXPECT_EQ(ProfileValue("[a]\nb=c=d", "a", "b"), "c=d");
}

TEST(ProfileFile, WritingChangesOneLine) {
    struct Case {
        std::string_view text, section, key, value, result;
    };
    const Case cases[] = {
        {"", "S", "k", "v", "[S]\r\nk=v\r\n"},
        {"[S]\r\nKey=1\r\n", "s", "KEY", "2", "[S]\r\nKey=2\r\n"},
        {"[S]\na=1\n; c\n\n[T]\nb=2\n", "S", "n", "v", "[S]\na=1\n; c\nn=v\n\n[T]\nb=2\n"},
        {"[S]\n\n\n[T]\n", "S", "n", "v", "[S]\nn=v\n\n\n[T]\n"},
        {"[S]\r\na=1", "S", "n", "v", "[S]\r\na=1\r\nn=v\r\n"},
        {"[S]\na=1", "T", "n", "v", "[S]\na=1\n[T]\nn=v\n"},
        {"[S]\ra=1\r", "T", "n", "v", "[S]\ra=1\r[T]\rn=v\r"},
        {"[S]\na=1", "S", "a", "v", "[S]\na=v"},
        {"[S]\na=1\na=2\n[S]\na=3\n", "S", "a", "v", "[S]\na=v\na=2\n[S]\na=3\n"},
        {"[S]\na=1\n[S]\nb=3\n", "S", "b", "v", "[S]\na=1\nb=v\n[S]\nb=3\n"},
        {"[S]\n;a=1\na\n", "S", "a", "v", "[S]\n;a=1\na\na=v\n"},
        {"[S]\na=1\n", "S", "a", " \t v ", "[S]\na=v \n"},
        {"[S]\na=1\n", "S", "a", "   ", "[S]\na=\n"},
        {"[S]\na='1'\n", "S", "a", "\"v\"", "[S]\na=\"v\"\n"},
        {"[S]\r\na=1\r\n  b = 2 \r\n\t\r\nx\r\n", "S", "a", "v",
         "[S]\r\na=v\r\n  b = 2 \r\n\t\r\nx\r\n"}};
    for (const Case& c : cases) {
        EXPECT_EQ(SetProfileValue(c.text, c.section, c.key, c.value), c.result)
            << testing::PrintToString(c.text) << " [" << c.section << "] " << c.key << "="
            << c.value;
    }
}

TEST(ProfileFile, AllButTheChangedLineStays) {
    std::string expected(kProfile);
    expected.insert(expected.find("[ settings ]"), "late=3\r\n");
    EXPECT_EQ(SetProfileValue(kProfile, "Settings", "late", "3"), expected);
}

class ProfileStoreTest : public testing::Test {
  protected:
    test::ScratchFolder folder;
    NativeFileSystem files;
    TextFiles texts{files, MachineCodePage{}};
    ProfileStore store{texts, folder.Windows("config/quorrel")};
};

TEST_F(ProfileStoreTest, BareNameGoesToTheSettingsFolder) {
    EXPECT_EQ(store.Get("q.ini", "S", "k", "DEF"), "DEF");
    EXPECT_FALSE(folder.Exists("config"));
    EXPECT_TRUE(store.Set("q.ini", "S", {{"k", "\"  v  \""}}));
    EXPECT_EQ(folder.Read("config/quorrel/q.ini"), "[S]\r\nk=\"  v  \"\r\n");
    EXPECT_EQ(store.Get("Q.INI", "s", "K", "DEF"), "  v  ");

    const std::string other = folder.Windows("other.ini");
    EXPECT_TRUE(store.Set(other, "S", {{"k", "w"}}));
    EXPECT_EQ(folder.Read("other.ini"), "[S]\r\nk=w\r\n");
}

TEST_F(ProfileStoreTest, ValueIsCutInCharacters) {
    const std::string path = folder.Windows("a.ini");
    std::string letters;
    for (int i = 0; i < 300; ++i) letters += "ж";
    folder.Write("a.ini", "[S]\nlong=" + letters + "\nplain=value\nnul=a" + std::string(1, '\0'));
    EXPECT_EQ(store.Get(path, "S", "long", ""), letters.substr(0, 598));
    EXPECT_EQ(store.Get(path, "S", "plain", "DEF", 3), "val");
    EXPECT_EQ(store.Get(path, "S", "none", "default", 3), "def");
    EXPECT_EQ(store.Get(path, "S", "nul", "DEF"), "a");
    EXPECT_EQ(store.Get(path, "S", "plain", "DEF", 0), "");
}

TEST_F(ProfileStoreTest, EncodingOfTheFileStays) {
    const std::string path = folder.Windows("a.ini");
    folder.Write("a.ini", "\xEF\xBB\xBF[S]\r\nk=1\r\n");
    EXPECT_TRUE(store.Set(path, "S", {{"k", "жé"}}));
    EXPECT_EQ(folder.Read("a.ini"), "\xEF\xBB\xBF[S]\r\nk=жé\r\n");
    EXPECT_TRUE(store.Set("new.ini", "S", {{"k", "жé"}}));
    EXPECT_EQ(folder.Read("config/quorrel/new.ini"), "[S]\r\nk=&#1078;\xE9\r\n");
    EXPECT_EQ(store.Get("new.ini", "S", "k", "DEF"), "жé");
}

TEST_F(ProfileStoreTest, KeysGoIntoTheFileTogetherAndOnlyWhereTheyAreNews) {
    EXPECT_TRUE(store.Set("q.ini", "S", {{"k", "1"}, {"l", "2"}}));
    EXPECT_EQ(folder.Read("config/quorrel/q.ini"), "[S]\r\nk=1\r\nl=2\r\n");
    // Where nothing changes the file need not be one that can be written.
    folder.Write("config/quorrel/q.ini.tmp/in the way", "");
    EXPECT_TRUE(store.Set("q.ini", "S", {{"l", "2"}, {"k", "1"}}));
}

TEST_F(ProfileStoreTest, FailingWriteIsToldAndRaisesNothing) {
    folder.Write("folder.ini/x", "");
    EXPECT_FALSE(store.Set(folder.Windows("folder.ini"), "S", {{"k", "v"}}));
    EXPECT_FALSE(store.Set(folder.Windows("none/a.ini"), "S", {{"k", "v"}}));
    EXPECT_FALSE(folder.Exists("none"));
    folder.Write("config", "a file where the folder should be");
    EXPECT_FALSE(store.Set("q.ini", "S", {{"k", "v"}}));
}

}  // namespace
}  // namespace quorrel
