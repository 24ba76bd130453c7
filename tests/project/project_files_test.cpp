#include "project/project_files.hpp"

#include "contents/node_data.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

TEST(PlainPath, HasNoStepsInIt) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"Z:\\a\\b.htm", "Z:\\a\\b.htm"},
        {"Z:/a//b.htm", "Z:\\a\\b.htm"},
        {"Z:\\a\\.\\..\\b", "Z:\\b"},
        {"Z:\\a\\../..\\..\\b", "Z:\\b"},
        {"\\\\host\\a\\..\\b", "\\\\host\\b"},
        {"Z:\\a\\..b", "Z:\\a\\..b"},
        {".", ""},
        {"", ""}};
    for (const auto& [path, plain] : cases) EXPECT_EQ(PlainPath(path), plain) << path;
}

class ProjectFiles : public test::ProjectFixture {};

TEST_F(ProjectFiles, AreThoseOfItsFolderAndThoseThatItNames) {
    for (const char* name : {"help/a.htm", "help-common/a.css", "t/master.js", "out/named.htm",
                             "out/map.gif", "out/node.htm", "out/open.htm", "out/other.htm"}) {
        folder.Write(name, "x");
    }
    main.project.proj_path = folder.Windows("help");
    main.settings.Template_Dir = folder.Windows("t") + "\\";
    main.topics.ListTopics.Add("a").SetSubItem(topic_cell::kFullPath,
                                               folder.Windows("out/named.htm"));
    main.topics.ListAliases.Add("b").SetSubItem(alias_cell::kPath, folder.Windows("out/map.gif"));
    main.contents.Tree1.Add(nullptr, NodeRelation::kChild, "c", 3, 3).Tag =
        PackNodeData(folder.Windows("out/node.htm") + "#x", "", "");
    main.editor.main_path = folder.Windows("out/open.htm");

    for (const char* name : {"help/a.htm", "HELP/A.HTM", "help/none.htm", "help/sub/../a.htm",
                             "t/master.js", "out/named.htm", "out/NAMED.htm.tmp.htm", "out/map.gif",
                             "out/node.htm", "help/../out/open.htm"}) {
        EXPECT_TRUE(IsFileOfProject(main, folder.Windows(name))) << name;
    }
    for (const char* name : {"out/other.htm", "help-common/a.css", "help/../out/other.htm", "help",
                             "help/..", "out/none.htm"}) {
        EXPECT_FALSE(IsFileOfProject(main, folder.Windows(name))) << name;
    }
    for (const char* path : {"", "Z:\\", "\\\\host\\share\\a.htm", "Z:\\etc\\passwd", "a.htm"}) {
        EXPECT_FALSE(IsFileOfProject(main, path)) << path;
    }
    main.project.proj_path.clear();
    EXPECT_FALSE(IsFileOfProject(main, folder.Windows("help/a.htm")));
}

}  // namespace
}  // namespace quorrel
