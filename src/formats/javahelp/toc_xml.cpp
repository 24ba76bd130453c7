#include "formats/javahelp/toc_xml.hpp"

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "contents/parent_numbers.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "platform/text_budget.hpp"
#include "platform/text_lines.hpp"
#include "project/tag_value.hpp"

namespace quorrel {
namespace {

std::string LocationOfTarget(const TopicTables& tables, std::string_view target) {
    if (target.empty()) return {};
    if (const ListRow* topic = tables.ListTopics.FirstWithExactly(topic_cell::kMapId, target)) {
        return topic->SubItems(topic_cell::kFullPath);
    }
    const ListRow* alias = tables.ListAliases.FirstWithExactly(0, target);
    return alias == nullptr ? std::string() : alias->SubItems(alias_cell::kPath);
}

}  // namespace

void ReadTocXml(std::string_view text, const TopicTables& tables, TreeView& tree,
                const Trap& trap) {
    ParentNumbers parents;
    TextBudget budget(trap);
    int level = 1;
    int next_level = 1;
    int count = 1;
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        next_level += LevelChange(line, "TOCITEM");
        trap([&] { parents.At(level) = count; });
        if (ContainsIgnoringAsciiCase(line, "<TOCITEM")) {
            const std::string target = TagValue(line, 1, "TARGET", "", TagMode::kRead);
            const std::string image = TagValue(line, 1, "IMAGE", "", TagMode::kRead);
            trap([&] {
                TreeNode* parent = level == 1 ? nullptr : &tree.At(parents.At(level - 1));
                TreeNode& node = tree.Add(parent, NodeRelation::kChild, ItemText(line),
                                          node_image::kPage, node_image::kPage);
                if (parent != nullptr)
                    parent->Image = parent->SelectedImage = node_image::kClosedBook;
                const std::string location = LocationOfTarget(tables, target);
                if (budget.Take(location.size())) node.Tag = PackNodeData(location, target, image);
            });
            // Also for an item that could not be placed.
            ++count;
        }
        level = next_level;
    }
}

void JavaReadTOC(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaReadTOC: ");
    main.window.StatusBar1.SetPanel(1, "Reading Table of Contents...");
    main.contents.Tree1.Clear();
    if (!main.files.FileExists(main.project.hhcfile)) return;
    std::string text;
    if (!trap([&] { text = main.texts.ReadXml(main.project.hhcfile); })) return;
    ReadTocXml(text, main.topics, main.contents.Tree1, trap);
}

}  // namespace quorrel
