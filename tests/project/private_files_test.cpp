#include "project/private_files.hpp"

#include <gtest/gtest.h>

#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

using PrivateFiles = ProjectFixture;

TEST_F(PrivateFiles, OneProjectHasOneFolderHoweverItsPathIsSpelled) {
    const std::string proj = folder.Windows("help\\My.hhp");
    const std::string place = PrivateFolder(main, proj);
    EXPECT_EQ(PrivateFolder(main, UpperUnicode(proj)), place);
    EXPECT_EQ(PrivateFolder(main, folder.Windows("other\\..\\help\\My.hhp")), place);
    EXPECT_NE(PrivateFolder(main, folder.Windows("help\\My.hs")), place);
    // Other runs, and other builds of the program, have to find the same name.
    const std::string fixed = PrivateFolder(main, "Z:\\a.hhp");
    EXPECT_EQ(fixed.substr(fixed.rfind('\\')), "\\dc37b334ed2552f0");
}

TEST_F(PrivateFiles, AFileIsWrittenWithItsFolder) {
    const std::string proj = folder.Windows("My.hhp");
    WritePrivateFile(main, proj, "note", "one");
    WritePrivateFile(main, proj, "note", "two");
    EXPECT_EQ(files.ReadFile(PrivateFile(main, proj, "note")), "two");
}

}  // namespace
}  // namespace quorrel::test
