#include "platform/native_shell.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <thread>

#include "platform/text.hpp"
#include "support/error_number.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel::test {
namespace {

namespace fs = std::filesystem;

/// Waits for what another process does.
bool WaitFor(const std::function<bool()>& is_there) {
    for (int i = 0; i < 2000 && !is_there(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return is_there();
}

struct NativeShellTest : testing::Test {
    /// A program that writes its arguments, in brackets, to "out" beside it.
    void WriteTool(const std::string& name, const std::string& work = "printf '[%s]' \"$@\"") {
        folder.Write(name, "#!/bin/sh\ncd '" + folder.Native() + "'\n" + work +
                               " > out.part\nmv out.part out\n");
        fs::permissions(folder.Native(name), fs::perms::owner_all);
    }
    std::string OutputOf(const std::string& command_line) {
        fs::remove(folder.Native("out"));
        shell.Start(command_line, WindowStyle::kNormal);
        EXPECT_TRUE(WaitFor([&] { return folder.Exists("out"); })) << command_line;
        return folder.Read("out");
    }
    int ErrorOf(const std::string& command_line) {
        return NumberOf([&] { shell.Start(command_line, WindowStyle::kMinimized); });
    }

    ScratchFolder folder;
    NativeFileSystem files;
    NativeShell shell{files};
};

TEST_F(NativeShellTest, TheProgramMayHaveBlanksInItsPath) {
    WriteTool("My Tools/an editor");
    folder.Write("a b/Topic.htm", "");
    const std::string argument = "\"" + folder.Windows("A B/topic.HTM") + "\"";
    const std::string native = "[" + folder.Native("a b/Topic.htm") + "]";
    const std::string windows = folder.Windows("my tools/AN EDITOR");
    for (const std::string& program :
         {windows, "\"" + windows + "\"", folder.Native("My Tools/an editor"), "  " + windows}) {
        EXPECT_EQ(OutputOf(program + " " + argument), native) << program;
    }
}

TEST_F(NativeShellTest, ArgumentsAreSplitAtBlanksOutsideOfQuotes) {
    WriteTool("tool");
    const std::pair<const char*, const char*> cases[] = {
        {" -c  indexer.cfg\t-v ", "[-c][indexer.cfg][-v]"},
        {" \"a b\"c \"\" d\"\"\"e", "[a bc][][d\"e]"},
        {" C:\\x\\ \"C:\\y z\\\" *", "[C:\\x\\][C:\\y z\\][*]"},
        {" Z:\\none\\a.b z:/none/c Z: -o=Z:\\n", "[/none/a.b][/none/c][Z:][-o=Z:\\n]"},
        {" $HOME `id` ;'", "[$HOME][`id`][;']"}};
    for (const auto& [line, words] : cases) {
        EXPECT_EQ(OutputOf(folder.Windows("tool") + line), words) << line;
    }
}

TEST_F(NativeShellTest, APlainNameIsLookedUpInThePathAlone) {
    WriteTool("bin/quorrel-test-tool");
    const std::string before = std::getenv("PATH");
    setenv("PATH", ("relative::" + folder.Native("bin") + ":" + before).c_str(), 1);
    EXPECT_EQ(OutputOf("quorrel-test-tool x"), "[x]");
    EXPECT_EQ(ErrorOf("hh.exe x.chm"), 53);
    setenv("PATH", before.c_str(), 1);

    const fs::path current = fs::current_path();
    fs::current_path(folder.Native("bin"));
    EXPECT_EQ(ErrorOf("quorrel-test-tool x"), 53);
    fs::current_path(current);
}

TEST_F(NativeShellTest, WhatCannotBeStartedRaises) {
    folder.Write("text.txt", "no program");
    EXPECT_EQ(ErrorOf(folder.Windows("none") + " x"), 53);
    EXPECT_EQ(ErrorOf(folder.Windows()), 53);
    EXPECT_EQ(ErrorOf(""), 53);
    EXPECT_EQ(ErrorOf(folder.Windows("text.txt") + " x"), 5);
    EXPECT_EQ(ErrorOf(std::string("sh\0x", 4)), 5);
}

TEST_F(NativeShellTest, AStartedProgramStandsAlone) {
    folder.Write("ours", "");
    // Not closed by itself when another program is started.
    const int ours = open(folder.Native("ours").c_str(), O_RDONLY);
    WriteTool("tool",
              "{ ls -l /proc/$$/fd; cut -d' ' -f1,6 /proc/$$/stat; readlink /proc/$$/fd/0; }");
    const std::string output = OutputOf(folder.Windows("tool"));
    close(ours);
    EXPECT_FALSE(Contains(output, folder.Native("ours"))) << output;
    EXPECT_TRUE(output.ends_with("/dev/null\n")) << output;
    const std::string_view before_last = std::string_view(output).substr(0, output.rfind("/dev"));
    const std::string_view ids = AfterLast(before_last.substr(0, before_last.size() - 1), '\n');
    EXPECT_EQ(ids.substr(0, ids.find(' ')), AfterLast(ids, ' ')) << output;

    EXPECT_TRUE(WaitFor([] {
        siginfo_t ended{};
        return waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) < 0 && errno == ECHILD;
    })) << "the ended program was never asked for";
}

}  // namespace
}  // namespace quorrel::test
