// The user guide is a help project: the program reads and saves it like those of the authors.
#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "project/save_project.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> FirstGroups(const std::string& text, const char* pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        found.push_back((*at)[1]);
    }
    return found;
}

class UserGuideProject : public ProjectFixture {
  protected:
    /// A scripted screen that expects nothing fails on any message.
    UserGuideProject() {
        fs::copy(fs::path(QUORREL_SOURCE) / "docs/help", folder.Native("guide"),
                 fs::copy_options::recursive);
        Open("guide/guide.hhp");
        EXPECT_EQ(log_lines, std::vector<std::string>{});
    }

    /// The files of the guide by their native path, with their bytes.
    [[nodiscard]] std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(folder.Native("guide"))) {
            if (!entry.is_regular_file()) continue;
            const std::string path = entry.path().string();
            found[path] = folder.Read(fs::relative(path, folder.Native()).string());
        }
        return found;
    }

    /// The native paths of the topics.
    [[nodiscard]] std::set<std::string> Topics() const {
        std::set<std::string> paths;
        const ListView& table = main.topics.ListTopics;
        for (int i = 1; i <= table.Count(); ++i) {
            paths.insert(files.NativePath(table.At(i).SubItems(topic_cell::kFullPath)));
        }
        return paths;
    }
};

TEST_F(UserGuideProject, EveryTopicIsListedReachedAndInTheIndex) {
    std::set<std::string> pages;
    for (const auto& [path, bytes] : Files()) {
        if (path.ends_with(".htm")) pages.insert(path);
    }
    EXPECT_EQ(Topics(), pages);
    std::set<std::string> reached;
    const TreeView& tree = main.contents.Tree1;
    for (int i = 1; i <= tree.Count(); ++i) {
        reached.insert(files.NativePath(UnpackNodeData(tree.At(i).Tag).location));
    }
    EXPECT_EQ(reached, pages);
    const ListView& table = main.topics.ListTopics;
    for (int i = 1; i <= table.Count(); ++i) {
        EXPECT_NE(table.At(i).SubItems(topic_cell::kKeywords), "") << table.At(i).Text();
    }
}

TEST_F(UserGuideProject, DialogsAndViewsFindTheirTopics) {
    for (const char* name :
         {"FormStartup", "FormCreateProject", "FormNewTopic", "FormProjectSettings", "FormSettings",
          "FormErrorLog", "FormSeeAlso", "FormRecover", "ViewNormal", "ViewTopicProperties",
          "ViewHTMLSource", "ViewPreviewTest", "ViewOrganizeTOC", "ViewTopicReport",
          "ViewDocumentWizard"}) {
        const ListRow* row =
            main.topics.ListTopics.FirstWith(topic_cell::kMapId, std::string("IDH_") + name);
        ASSERT_NE(row, nullptr) << name;
        EXPECT_NE(row->SubItems(topic_cell::kInteger), "") << name;
    }
}

TEST_F(UserGuideProject, LinksLeadToFilesAndPlacesThatAreThere) {
    const auto all = Files();
    for (const std::string& path : Topics()) {
        for (const std::string& link :
             FirstGroups(all.at(path), "<(?:a|link)\\s[^>]*href=\"([^\"]*)\"")) {
            const std::string file = link.substr(0, link.find('#'));
            const fs::path target = file.empty()
                                        ? fs::path(path)
                                        : (fs::path(path).parent_path() / file).lexically_normal();
            const auto found = all.find(target.string());
            ASSERT_NE(found, all.end()) << path << ": " << link;
            if (file == link) continue;
            const std::string place = link.substr(file.size() + 1);
            EXPECT_TRUE(Contains(found->second, "id=\"" + place + "\"")) << path << ": " << link;
        }
    }
}

TEST_F(UserGuideProject, SavingItChangesNothing) {
    const auto before = Files();
    main.contents.toc_dirty = true;
    FileSave_Click(main);
    EXPECT_EQ(log_lines, std::vector<std::string>{});
    auto after = Files();
    // Each save of any project adds this line.
    std::string& project = after.at(folder.Native("guide/guide.hhp"));
    constexpr std::string_view kAdded = "Compiled file=guide.chm\r\n";
    project.erase(project.find(kAdded), kAdded.size());
    for (const auto& [path, bytes] : before) EXPECT_EQ(after.at(path), bytes) << path;
    std::erase_if(after, [&](const auto& file) { return before.contains(file.first); });
    for (const auto& [path, bytes] : after) EXPECT_TRUE(path.ends_with(".bak")) << path;
}

}  // namespace
}  // namespace quorrel::test
