#include "app/user_guide.hpp"

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "formats/htmlhelp/hhp.hpp"
#include "formats/htmlhelp/map_files.hpp"
#include "platform/text.hpp"

namespace quorrel {

std::string GuideFolder(const MainForm& main) {
    return main.settings.main_dir + "Help";
}

std::string UserGuide::PathOf(std::string_view identifier) const {
    const ListView& table = topics.ListTopics;
    if (!identifier.empty()) {
        const ListRow* row = table.FirstWith(topic_cell::kMapId, identifier);
        if (row != nullptr) return row->SubItems(topic_cell::kFullPath);
    }
    const std::vector<TreeNode*>& roots = contents.Roots();
    if (!roots.empty()) return UnpackNodeData(roots.front()->Tag).location;
    return table.Count() == 0 ? std::string() : table.At(1).SubItems(topic_cell::kFullPath);
}

void ReadUserGuide(MainForm& main, UserGuide& guide) {
    const std::string folder = GuideFolder(main);
    const std::string project = folder + "\\guide.hhp";
    TextFiles& texts = main.machine_texts;
    const Trap trap(main.log, "ReadUserGuide: ");
    // The contents have the titles; a topic file is not opened before it is shown.
    const auto no_title = [](const std::string&) { return std::string(); };
    ListView& topics = guide.topics.ListTopics;
    // Of an installation that lacks a file the rest is shown.
    trap([&] { ReadFileList(texts.Read(project), folder, topics, no_title, trap); });
    trap([&] { ReadAliases(texts.Read(folder + "\\guide.ali"), project, topics); });
    trap([&] {
        const std::string contents = folder + "\\guide.hhc";
        std::string site_properties;
        ReadContents(texts.Read(contents),
                     {contents, false, topics, guide.topics.ListAliases, trap}, guide.contents,
                     site_properties);
    });
}

std::string HelpIdentifier(std::string_view form) {
    return "IDH_" + std::string(form);
}

void ShowHelp(MainForm& main, std::string_view identifier) {
    const std::string project = GuideFolder(main) + "\\guide.hhp";
    if (!main.files.FileExists(project)) {
        main.screen.ShowMessage({"Cannot find file " + main.files.NativePath(project) + ".",
                                 main.settings.APP_NAME, MessageButtons::kOk,
                                 MessageIcon::kExclamation});
        return;
    }
    if (main.window.show_help) main.window.show_help(identifier);
}

void helpcontents_Click(MainForm& main) {
    ShowHelp(main, {});
}

}  // namespace quorrel
