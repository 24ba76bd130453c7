#include "platform/installation.hpp"

#include <gtest/gtest.h>

#include "platform/native_file_system.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel {
namespace {

TEST(Installation, IsFoundBesideTheProgram) {
    const test::ScratchFolder folder;
    NativeFileSystem files;
    const std::string program = folder.Windows("usr/bin");
    EXPECT_EQ(InstallationOf(files, ""), "");
    EXPECT_EQ(InstallationOf(files, program), "");
    folder.Write("usr/bin/program", "");
    folder.Write("usr/share/quorrel/Topic Templates/htmlhelp/x", "");
    EXPECT_EQ(InstallationOf(files, program), program + "\\..\\share\\quorrel\\");
    folder.Write("usr/bin/share/Topic Templates/htmlhelp/x", "");
    EXPECT_EQ(InstallationOf(files, program), program + "\\share\\");
    EXPECT_TRUE(files.FolderExists(files.WindowsPath(NativeProgramFolder())));
}

}  // namespace
}  // namespace quorrel
