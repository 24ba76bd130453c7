#include "formats/javahelp/toc_xml.hpp"

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "contents/parent_numbers.hpp"
#include "formats/javahelp/item_tally.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "platform/text_budget.hpp"
#include "platform/text_lines.hpp"
#include "project/paths.hpp"

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

void WriteNode(std::string& text, const TreeNode& node, int level, XmlForm form) {
    const std::string indent = ItemIndent(level);
    const NodeData data = UnpackNodeData(node.Tag);
    const bool is_book = node.Children() > 0;
    AppendLine(text, {indent, "<tocitem text=\"", EscapedItemText(node.Text, form), "\"",
                      ItemAttribute("image", data.extra, form),
                      ItemAttribute("target", data.target, form), is_book ? ">" : "/>"});
    if (!is_book) return;
    for (int row = 0; row < node.Children(); ++row)
        WriteNode(text, *node.ChildAt(row), level + 1, form);
    AppendLine(text, {indent, "</tocitem>"});
}

}  // namespace

std::vector<LeftBehind> ReadTocXml(std::string_view text, const TopicTables& tables, TreeView& tree,
                                   const Trap& trap, XmlForm form) {
    constexpr int kLevels = 31;  // those below are not placed
    ItemTally tally("TOCITEM", {"text", "target", "image"}, "items", kLevels);
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
        ItemTaken taken;
        if (ContainsIgnoringAsciiCase(line, "<TOCITEM")) {
            taken.place = line.find('<');
            const std::string target = TextFromXml(XmlAttribute(line, 0, "TARGET"), form);
            const std::string image = TextFromXml(XmlAttribute(line, 0, "IMAGE"), form);
            trap([&] {
                TreeNode* parent = level == 1 ? nullptr : &tree.At(parents.At(level - 1));
                TreeNode& node =
                    tree.Add(parent, NodeRelation::kChild, TextFromXml(ItemText(line), form),
                             node_image::kPage, node_image::kPage);
                taken.level = level;
                if (parent != nullptr)
                    parent->Image = parent->SelectedImage = node_image::kClosedBook;
                const std::string location = LocationOfTarget(tables, target);
                taken.is_kept = budget.Take(location.size());
                if (taken.is_kept) node.Tag = PackNodeData(location, target, image);
            });
            // Also for an item that could not be placed.
            ++count;
        }
        tally.TakeLine(line, taken);
        level = next_level;
    }
    return tally.Findings();
}

std::string WriteTocXml(const TreeView& tree, XmlForm form) {
    std::string text = JavaHelpHead("toc", "TOC");
    for (const TreeNode* root : tree.Roots()) WriteNode(text, *root, 1, form);
    AppendLine(text, {"</toc>"});
    return text;
}

void JavaReadTOC(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaReadTOC: ");
    main.window.StatusBar1.SetPanel(1, "Reading Table of Contents...");
    main.contents.Tree1.Clear();
    if (!main.files.FileExists(main.project.hhcfile)) return;
    std::string text;
    if (!trap([&] { text = main.texts.ReadXml(main.project.hhcfile); })) return;
    std::vector<LeftBehind> findings =
        ReadTocXml(text, main.topics, main.contents.Tree1, trap, main.project.xml_form);
    // Without a view of the contents the variable has the name of the index file.
    const std::string index = std::string(BaseName(main.project.proj)) + "Index.xml";
    if (main.project.hhcfile == index) return;
    main.texts.CheckKind(main.project.hhcfile, text, {"<TOC"});
    main.texts.NoteLeftBehind(main.project.hhcfile, std::move(findings));
}

void JavaWriteTOC(MainForm& main) {
    if (!main.contents.toc_dirty) return;
    const Trap trap(main.log, "MainForm JavaWriteTOC: ");
    std::string& file = main.project.hhcfile;
    if (file.empty()) file = std::string(BaseName(main.project.proj)) + "TOC.xml";
    const bool replaces = main.files.FileExists(file);
    const std::string text = WriteTocXml(main.contents.Tree1, main.project.xml_form);
    // What could not be written is written by the next save.
    main.contents.toc_dirty = !main.texts.WriteXmlAndSwap(file, text, Backup::kNone, trap);
    if (main.contents.toc_dirty || !replaces) return;
    // Unlike all other files this one gets no backup: the old file goes first, then an earlier
    // backup, and then the old file would become the backup. That it is gone by then is logged, at
    // each save.
    const std::string backup = file + ".bak";
    if (main.files.FileExists(backup)) main.files.DeleteFile(backup);
    main.log.Note("MainForm JavaWriteTOC: ", run_time_error::kFileNotFound, "File not found");
}

}  // namespace quorrel
