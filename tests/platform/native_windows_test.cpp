// The Windows side of the platform layer: its paths, programs, code pages and profile files.
#include <chrono>
#include <thread>

#include "native_files_fixture.hpp"
#include "platform/code_page.hpp"
#include "platform/native_shell.hpp"
#include "platform/profile_file.hpp"
#include "platform/windows_api.hpp"

namespace quorrel {
namespace {

using test::NumberOf;

class WindowsFiles : public test::NativeFiles {};

TEST_F(WindowsFiles, PathsAreTheSystemsOwn) {
    EXPECT_EQ(files.NativePath("C:\\a\\b"), "C:\\a\\b");
    EXPECT_EQ(files.WindowsPath("C:\\a/.\\b\\..\\c"), "C:\\a\\c");
    EXPECT_EQ(files.WindowsPath("x/../y"), files.WindowsPath(".") + "\\y");
    std::string deep = folder.Windows();
    for (int i = 0; i < 12; ++i) {
        deep += "\\a folder with a name of some length";
        files.CreateFolder(deep);
    }
    files.WriteFile(deep + "\\page.htm", "x");
    EXPECT_EQ(files.ReadFile(deep + "\\PAGE.HTM"), "x");
}

TEST_F(WindowsFiles, DevicesAreNoFiles) {
    for (const char* name : {"NUL", "CON", "COM1"}) {
        EXPECT_FALSE(files.FileExists(name)) << name;
        EXPECT_NE(NumberOf([&] { (void)files.ReadFile(name); }), 0) << name;
        EXPECT_NE(NumberOf([&] { files.WriteFile(name, "x"); }), 0) << name;
    }
}

TEST_F(WindowsFiles, ReplacingKeepsTheSpellingAndHiddenFilesAreWritten) {
    folder.Write("Page.htm", "old");
    folder.Write("page.tmp", "new");
    ASSERT_TRUE(files.ReplaceFile(Path("page.tmp"), Path("PAGE.HTM")));
    WIN32_FIND_DATAW found{};
    FindClose(FindFirstFileW(Wide(Path("page.htm")).c_str(), &found));
    EXPECT_EQ(Narrow(found.cFileName), "Page.htm");
    EXPECT_EQ(folder.Read("Page.htm"), "new");
    ASSERT_NE(SetFileAttributesW(Wide(Path("page.htm")).c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
    files.WriteFile(Path("page.htm"), "n");
    EXPECT_EQ(folder.Read("Page.htm"), "n");
}

TEST_F(WindowsFiles, ProgramsAreStarted) {
    NativeShell shell(files);
    const auto shows = [&](const char* name) {
        for (int i = 0; i < 2000 && !files.FileExists(Path(name)); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return files.FileExists(Path(name));
    };
    shell.Start("cmd /c echo x> " + Path("one"), WindowStyle::kMinimized);
    EXPECT_TRUE(shows("one"));
    std::string command(MAX_PATH, ' ');
    command.resize(GetSystemDirectoryA(command.data(), MAX_PATH));
    shell.Start(command + "\\cmd.exe /c echo x> " + Path("two"), WindowStyle::kNormal);
    EXPECT_TRUE(shows("two"));
    for (const char* line :
         {"", "no-such-program x", "C:\\no\\such.exe", "\"C:\\no\\such.exe\" x"}) {
        EXPECT_EQ(NumberOf([&] { shell.Start(line, WindowStyle::kNormal); }), 53) << line;
    }
}

TEST(WindowsCodePages, AgreeWithTheSystemOnWholeTexts) {
    for (const int number :
         {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257}) {
        const CodePage& page = CodePage::Get(number);
        std::string bytes;
        for (char32_t c = 0xA0; c < 0xFFE0; ++c) {
            if (c < 0xD800 || c > 0xF8FF) page.Encode(c, bytes);
        }
        const auto size = static_cast<int>(bytes.size());
        std::wstring wide(bytes.size(), L'\0');
        wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
            static_cast<UINT>(number), 0, bytes.data(), size, wide.data(), size)));
        EXPECT_EQ(page.Decode(bytes), Narrow(wide)) << number;
        EXPECT_GE(wide.size(), 80U) << number;
    }
}

/// The program reads and writes these files itself: the system's calls lose what their code page
/// lacks. It does with them what the calls do.
TEST_F(WindowsFiles, ProfileFilesAreTakenAsTheSystemTakesThem) {
    const std::string text =
        "; comment\r\n[Settings]\r\nplain=value\r\n  lead = spaced out  \r\nQUOTED=\"in "
        "quotes\"\r\n"
        "sq='single'\r\nhalf=\"only one\r\nempty=\r\ndup=first\r\ndup=second\r\nnoequals\r\n"
        "tab\t=\tx\t\r\nsemi=a;b\r\n;gone=1\r\n[ settings ]\r\nother=1\r\n[Settings]\r\nlate=2\r\n"
        "[Open\r\nx=1\r\n [Indented]\r\ni=1\r\n[A]B]\r\nq=5\r\n";
    folder.Write("a.ini", text);
    const std::string file = Path("a.ini");
    const auto theirs = [&](const char* section, const char* key) {
        std::string value(300, '\0');
        value.resize(
            GetPrivateProfileStringA(section, key, "DEF", value.data(), 300, file.c_str()));
        return value;
    };
    const auto ours = [](const std::string& of, const char* section, const char* key) {
        return ProfileValue(of, section, key).value_or("DEF");
    };
    using Key = std::pair<const char*, const char*>;
    std::vector<Key> keys{{"SETTINGS", "PLAIN"}, {"settings", "other"}, {"Open", "x"},
                          {"Indented", "i"},     {"A]B", "q"},          {"none", "x"}};
    for (const char* key : {"plain", " plain ", "lead", "quoted", "sq", "half", "empty", "dup",
                            "noequals", "tab", "semi", "gone", "late"}) {
        keys.emplace_back("Settings", key);
    }
    for (const auto& [section, key] : keys) {
        EXPECT_EQ(ours(text, section, key), theirs(section, key)) << section << " " << key;
    }
    std::string written = text;
    const char* const changes[][3] = {{"Settings", "dup", "new"},
                                      {"settings", "fresh", "  two"},
                                      {"Settings", "empty", "\"q\""},
                                      {"Other", "key", ""}};
    for (const auto& [section, key, value] : changes) {
        written = SetProfileValue(written, section, key, value);
        ASSERT_NE(WritePrivateProfileStringA(section, key, value, file.c_str()), 0);
        keys.emplace_back(section, key);
    }
    const std::string by_system = folder.Read("a.ini");
    for (const auto& [section, key] : keys) {
        EXPECT_EQ(ours(written, section, key), theirs(section, key)) << section << " " << key;
        EXPECT_EQ(ours(written, section, key), ours(by_system, section, key))
            << section << " " << key;
    }
}

}  // namespace
}  // namespace quorrel
