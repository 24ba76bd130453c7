#include "formats/htmlhelp/map_files.hpp"

#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

TEST(MapFiles, AreFoundInTheirSections) {
    const auto find = [](std::string_view text) {
        const MapFileNames names = FindMapFiles(text);
        return names.alias_file + "|" + names.map_file;
    };
    EXPECT_EQ(find("#include no.h\n[ALIAS]\n#include a.ali\n\n[map]\n#include \"m m.h\" ; x\n"),
              "a.ali|m m.h");
    EXPECT_EQ(find("[ALIAS]\n#include a.ali\n[ALIAS] x\n; #include <b.ali> c\n"), "b.ali|");
    EXPECT_EQ(find("[MAP]\n#include\tm.h\n[x]\n#include n.h\n"), "|m.h");
    EXPECT_EQ(find("[MAP]\n#include\n#INCLUDE x\n#include<m.h>\n"), "|");
    EXPECT_EQ(find("[MAP]\n#include  m.h\n"), "| m.h");
}

class Topics : public testing::Test {
  protected:
    Topics() {
        for (const char* name : {"a", "b", "c"}) {
            ListRow& row = tables.ListTopics.Add(name);
            row.SetSubItem(topic_cell::kFullPath, std::string("C:\\p\\") + name + ".htm");
        }
    }
    ListRow& Row(int i) { return tables.ListTopics.At(i); }
    TopicTables tables;
};

TEST_F(Topics, GetTheirAliases) {
    ReadAliases(
        " A one = A.HTM\n=b.htm\nX=\nB=  b.htm \n\nC=sub\\..\\c.htm\nD=..\\p\\c.htm\nE=x.htm\n",
        "C:\\p\\guide.hhp", tables.ListTopics);
    EXPECT_EQ(Row(1).SubItems(topic_cell::kMapId), "A one");
    // Blanks behind a file name are a part of it.
    EXPECT_EQ(Row(2).SubItems(topic_cell::kMapId), "");
    EXPECT_EQ(Row(3).SubItems(topic_cell::kMapId), "D");
}

TEST_F(Topics, GetTheirContextNumbers) {
    Row(1).SetSubItem(topic_cell::kMapId, "A");
    Row(2).SetSubItem(topic_cell::kMapId, "B");
    std::int64_t next = 5;
    ReadMapHeader(
        "#define A 12\n  #define  b \t 0x10 // hex\n#define\tC\t99\n#define D\n#define\n"
        "#define A \n#define UNKNOWN 4000000000\n#define Z abc\n#DEFINE A 7\n",
        tables.ListTopics, next);
    EXPECT_EQ(Row(1).SubItems(topic_cell::kInteger), "12");
    EXPECT_EQ(Row(2).SubItems(topic_cell::kInteger), "0x10 // hex");
    EXPECT_EQ(next, 4000000000);
}

TEST_F(Topics, AreWrittenInListOrder) {
    Row(1).SetSubItem(topic_cell::kMapId, "A");
    Row(1).SetSubItem(topic_cell::kInteger, "0x10");
    Row(2).SetSubItem(topic_cell::kInteger, "7");
    EXPECT_EQ(WriteAliases(tables.ListTopics, "C:\\p\\guide.hhp"),
              "A=a.htm\r\n=b.htm\r\n=c.htm\r\n");
    EXPECT_EQ(WriteMapHeader(tables.ListTopics), "#define A 0x10\r\n");
}

class MapFilesOfAProject : public test::ProjectFixture {};

TEST_F(MapFilesOfAProject, AreReadThroughTheProjectFileAndWrittenWithoutBackup) {
    folder.Write("guide.hhp", "[ALIAS]\n#include sub\\x.ali\n[MAP]\n#include m.h\n");
    folder.Write("sub/x.ali", "A=a.htm\n");
    folder.Write("m.h", "#define A 3\n");
    main.project.proj = folder.Windows("guide.hhp");
    ListRow& row = main.topics.ListTopics.Add("t");
    row.SetSubItem(topic_cell::kFullPath, folder.Windows("a.htm"));
    ReadHTMLMapFiles(main);
    EXPECT_EQ(row.SubItems(topic_cell::kInteger), "3");
    EXPECT_EQ(main.project.next_integer, 3);
    HTMLWriteMapFile(main);
    EXPECT_EQ(folder.Read("guide.ali"), "A=a.htm\r\n");
    EXPECT_EQ(folder.Read("m.h"), "#define A 3\r\n");
    EXPECT_FALSE(folder.Exists("m.h.bak"));
}

TEST_F(MapFilesOfAProject, AMissingOneIsLoggedAndTheOtherRead) {
    folder.Write("guide.hhp",
                 "[ALIAS]\n#include guide.hhp\n#include \"C:\\abs.ali\"\n[MAP]\n#include m.h\n");
    folder.Write("m.h", "#define A 3\n");
    main.project.proj = folder.Windows("guide.hhp");
    ReadHTMLMapFiles(main);
    EXPECT_EQ(main.project.next_integer, 3);
    ASSERT_EQ(log_lines.size(), 1U);
    EXPECT_TRUE(log_lines[0].starts_with("MainForm ReadJavaMapFile: "));
}

}  // namespace
}  // namespace quorrel
