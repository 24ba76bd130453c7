#include "project/paths.hpp"

#include <gtest/gtest.h>

#include "project/side_files.hpp"

namespace quorrel {
namespace {

TEST(Paths, GetRelativePathGoesByTheExactSpelling) {
    EXPECT_EQ(GetRelativePath("C:\\p\\a.htm", "C:\\p\\x.htm"), "a.htm");
    EXPECT_EQ(GetRelativePath("C:\\P\\a.htm", "C:\\p\\x.htm"), "C:\\P\\a.htm");
    EXPECT_EQ(GetRelativePath("D:\\a.htm", "C:\\p\\x.htm"), "D:\\a.htm");
    EXPECT_EQ(GetRelativePath("file://C:\\p\\a.htm", "C:\\p\\x.htm"), "a.htm");
    EXPECT_EQ(GetRelativePath("file://", "C:\\p\\x.htm"), "");
    EXPECT_EQ(GetRelativePath("x.htm#a", "x.htm"), "#a");
}

TEST(Paths, MakeFullPathKeepsWhatHasAColon) {
    EXPECT_EQ(MakeFullPath("a/b.htm", "C:\\p"), "C:\\p\\a\\b.htm");
    EXPECT_EQ(MakeFullPath("\\a.htm", "C:\\p"), "C:\\p\\a.htm");
    EXPECT_EQ(MakeFullPath("http://x/y", "C:\\p"), "http:\\\\x\\y");
    EXPECT_EQ(MakeFullPath("a\\\\\\\\b", "C:\\p"), "C:\\p\\a\\\\b");
}

TEST(Paths, MakeFullPathRelStopsCuttingAtTheDrive) {
    EXPECT_EQ(MakeFullPathRel("../a.htm", "C:\\p\\q\\x.hhp"), "C:\\p\\a.htm");
    EXPECT_EQ(MakeFullPathRel("..\\..\\a.htm", "C:\\p\\x.hhp"), "C:\\a.htm");
    EXPECT_EQ(MakeFullPathRel("D:/a.htm", "C:\\p\\x.hhp"), "D:\\a.htm");
    EXPECT_EQ(MakeFullPathRel("a.htm", "x.hhp"), "x.hhp\\a.htm");
    // The first "..\" goes each time, wherever it stands, also one that arises.
    EXPECT_EQ(MakeFullPathRel("q\\..\\a.htm", "C:\\p\\r\\x.hhp"), "C:\\p\\q\\a.htm");
    EXPECT_EQ(MakeFullPathRel("...\\.\\a", "C:\\p\\r\\x.hhp"), "C:\\a");
}

TEST(Paths, MakeFullPathRelTakesALongWayUpInOnePass) {
    std::string path;
    for (int i = 0; i < 300000; ++i) path += "../";
    EXPECT_EQ(MakeFullPathRel(path + "a", "C:\\p\\q\\x.hhp"), "C:\\a");
}

TEST(Paths, MakeRelPathRelFindsAFolderAnywhere) {
    EXPECT_EQ(MakeRelPathRel("c:\\P\\Q\\a.htm", "C:\\p\\x.hhp"), "Q\\a.htm");
    EXPECT_EQ(MakeRelPathRel("C:\\a.htm", "C:\\p\\q\\x.hhp"), "..\\..\\a.htm");
    EXPECT_EQ(MakeRelPathRel("D:/a.htm", "C:\\p\\x.hhp"), "D:/a.htm");
    EXPECT_EQ(MakeRelPathRel("", "C:\\p\\x.hhp"), "");
    EXPECT_EQ(MakeRelPathRel("D:\\C:\\p\\a.htm", "C:\\p\\x.hhp"), "a.htm");
    // An empty folder stands at the very beginning: the first character goes.
    EXPECT_EQ(MakeRelPathRel("abc", ""), "bc");
    // A letter whose upper case is shorter, and one whose case is beyond ASCII.
    EXPECT_EQ(MakeRelPathRel("C:\\D\xC4\xB1\xC5\x9F\\\xC3\x84.htm", "C:\\dI\xC5\x9E\\x.hhp"),
              "\xC3\x84.htm");
}

TEST(Colours, AreTurnedRound) {
    EXPECT_EQ(FormatRGBString(255), "#FF0000");
    EXPECT_EQ(FormatRGBString(0x123456), "#563412");
    EXPECT_EQ(RevFormatRGBString("#ff0000"), 255);
    EXPECT_EQ(RevFormatRGBString(""), 0);
    EXPECT_EQ(RevFormatRGBString("red"), 0xD);
}

TEST(Paths, ProjectFileNames) {
    EXPECT_EQ(GetProjFile("C:\\a.b\\guide.hhp"), "guide.prj");
    EXPECT_EQ(BaseName("C:\\a.b\\guide"), "C:\\a");
    EXPECT_EQ(LocationOf("c:\\P\\q\\a.htm", "C:\\p"), "\\q\\a.htm");
    EXPECT_EQ(LocationOf("D:\\a.htm", "C:\\p"), "D:\\a.htm");
}

}  // namespace
}  // namespace quorrel
