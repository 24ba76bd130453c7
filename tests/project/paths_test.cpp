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
    EXPECT_EQ(MakeRelPathRel("\\a\\b", ""), "a\\b") << "an empty folder";
    EXPECT_EQ(MakeRelPathRel("abc", ""), "abc");
    // A letter whose upper case is shorter, and one whose case is beyond ASCII.
    EXPECT_EQ(MakeRelPathRel("C:\\D\xC4\xB1\xC5\x9F\\\xC3\x84.htm", "C:\\dI\xC5\x9E\\x.hhp"),
              "\xC3\x84.htm");
}

TEST(Paths, OfWhateverFolderDriveOrServerSurviveARoundTrip) {
    const struct {
        const char* path;
        const char* base;
        const char* relative;
    } cases[] = {
        {"C:\\help-common\\a.htm", "C:\\help\\x.hhp", "..\\help-common\\a.htm"},
        {"C:\\p\\help2\\q\\a.htm", "C:\\p\\help\\x.hhp", "..\\help2\\q\\a.htm"},
        {"C:\\helper", "C:\\help\\x.hhp", "..\\helper"},
        {"D:\\help\\a.htm", "C:\\help\\x.hhp", "D:\\help\\a.htm"},
        {"\\\\s\\share\\p\\a.htm", "\\\\s\\share\\p\\x.hhp", "a.htm"},
        {"\\\\s\\share\\q\\a.htm", "\\\\s\\share\\p\\r\\x.hhp", "..\\..\\q\\a.htm"},
        {"\\\\s\\other\\a.htm", "\\\\s\\share\\p\\x.hhp", "\\\\s\\other\\a.htm"},
        {"\\\\s\\share\\a.htm", "C:\\p\\x.hhp", "\\\\s\\share\\a.htm"},
        {"C:\\a.htm", "\\\\s\\share\\x.hhp", "C:\\a.htm"},
    };
    for (const auto& [path, base, relative] : cases) {
        EXPECT_EQ(MakeRelPathRel(path, base), relative);
        EXPECT_EQ(MakeFullPathRel(relative, base), path);
    }
    EXPECT_EQ(MakeFullPathRel("..\\..\\..\\a.htm", "\\\\s\\share\\p\\x.hhp"),
              "\\\\s\\share\\a.htm");
    EXPECT_EQ(MakeFullPath("a/b.htm", "\\\\s\\share\\p"), "\\\\s\\share\\p\\a\\b.htm");
    EXPECT_EQ(MakeFullPath("//s/share/a.htm", "C:\\p"), "\\\\s\\share\\a.htm");
    EXPECT_EQ(MakeFullPath("\\\\a", "C:\\p"), "C:\\p\\\\a") << "no share";
}

TEST(Paths, AddressesStayAsTheyAre) {
    // The folder of a project on drive P: would be found in "HTTP:\\".
    for (const char* address : {"http://h/a.htm", "HTTPS://h/a#b", "ftp://h/p", "mailto:a@b.c",
                                "ms-its:a.chm::/b.htm", "mk:@MSITStore:a.chm::/b.htm"}) {
        EXPECT_EQ(FullLocation(address, "P:\\x.hhp"), address);
        EXPECT_EQ(RelativeLocation(address, "P:\\x.hhp"), address);
    }
    EXPECT_EQ(FullLocation("p/http.htm", "P:\\x.hhp"), "P:\\p\\http.htm");
    EXPECT_EQ(RelativeLocation("P:\\http.htm", "P:\\x.hhp"), "http.htm");
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
    EXPECT_EQ(LocationOf("C:\\p2\\a.htm", "C:\\p"), "C:\\p2\\a.htm");
}

}  // namespace
}  // namespace quorrel
