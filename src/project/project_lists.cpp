#include "project/project_lists.hpp"

#include "app/main_form.hpp"
#include "contents/contents_tree.hpp"
#include "platform/fields.hpp"
#include "project/paths.hpp"
#include "project/topic_rows.hpp"

namespace quorrel {
namespace {

// ---- Trees

const TreeNode* NextInOrder(const TreeNode* node, int& depth) {
    if (node->Child() != nullptr) {
        ++depth;
        return node->Child();
    }
    for (; node != nullptr; node = node->Parent(), --depth) {
        if (node->Next() != nullptr) return node->Next();
    }
    return nullptr;
}

std::string TreeText(const TreeView& tree) {
    std::string text;
    int depth = 0;
    const TreeNode* node = tree.Roots().empty() ? nullptr : tree.Roots().front();
    for (; node != nullptr; node = NextInOrder(node, depth)) {
        AppendField(text, depth);
        AppendField(text, node->Text);
        AppendField(text, node->Tag);
        AppendField(text, node->Image);
        AppendField(text, node->SelectedImage);
        AppendField(text, node->Expanded ? 1 : 0);
    }
    return text;
}

void TakeTree(TreeView& tree, std::string_view text) {
    tree.Clear();
    std::vector<TreeNode*> above;  // the last node of each depth
    for (FieldReader fields(text); !fields.AtEnd();) {
        const auto depth = static_cast<std::size_t>(fields.NextNumber());
        std::string caption(fields.Next());
        std::string tag(fields.Next());
        const auto image = static_cast<int>(fields.NextNumber());
        const auto selected_image = static_cast<int>(fields.NextNumber());
        const bool is_expanded = fields.NextNumber() == 1;
        if (fields.IsDamaged() || depth > above.size()) return;
        above.resize(depth);
        TreeNode& node = tree.Add(above.empty() ? nullptr : above.back(),
                                  above.empty() ? NodeRelation::kNext : NodeRelation::kChild,
                                  std::move(caption), image, selected_image);
        node.Tag = std::move(tag);
        node.Expanded = is_expanded;
        above.push_back(&node);
    }
}

std::string ContentsText(const MainForm& main) {
    return TreeText(main.contents.Tree1);
}

void TakeContents(MainForm& main, std::string_view text) {
    TakeTree(main.contents.Tree1, text);
    SetContentsDirty(main);
}

std::string OutlineText(const MainForm& main) {
    return TreeText(main.outline.TreeDoc);
}

void TakeOutline(MainForm& main, std::string_view text) {
    TakeTree(main.outline.TreeDoc, text);
    main.outline.doc_dirty = true;
}

// ---- The index, in its own table and in the topics' cells

std::string IndexText(const MainForm& main) {
    std::string text;
    const ListView& topics = main.topics.ListTopics;
    AppendField(text, topics.Count());
    for (int i = 1; i <= topics.Count(); ++i) {
        AppendField(text, topics.At(i).SubItems(topic_cell::kFullPath));
        AppendField(text, topics.At(i).SubItems(topic_cell::kKeywords));
    }
    const ListView& keys = main.keywords.ListKeywords;
    for (int i = 1; i <= keys.Count(); ++i) {
        AppendField(text, keys.At(i).Text());
        AppendField(text, keys.At(i).SubItems(keyword_cell::IDX_TITLEPATH));
        AppendField(text, keys.At(i).SubItems(keyword_cell::IDX_FULLKEY));
    }
    return text;
}

void TakeIndex(MainForm& main, std::string_view text) {
    FieldReader fields(text);
    for (std::int64_t topics = fields.NextNumber(); topics > 0 && !fields.IsDamaged(); --topics) {
        const std::string_view path = fields.Next();
        ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, path);
        std::string keys(fields.Next());
        if (row != nullptr) row->SetSubItem(topic_cell::kKeywords, std::move(keys));
    }
    ListView& table = main.keywords.ListKeywords;
    table.Clear();
    while (!fields.AtEnd() && !fields.IsDamaged()) {
        ListRow& row = table.Add(std::string(fields.Next()));
        row.SetSubItem(keyword_cell::IDX_TITLEPATH, std::string(fields.Next()));
        row.SetSubItem(keyword_cell::IDX_FULLKEY, std::string(fields.Next()));
    }
    main.keywords.index_dirty = true;
}

// ---- The topics with their names, and the options of the project

std::string TopicsText(const MainForm& main) {
    const ProjectState& project = main.project;
    std::string text;
    AppendField(text, project.project_title);
    AppendField(text, project.project_def_topic);
    AppendField(text, project.hhcfile);
    AppendField(text, project.hhkfile);
    AppendField(text, project.java_map_file);
    AppendField(text, project.next_integer);
    const ListView& aliases = main.topics.ListAliases;
    AppendField(text, aliases.Count());
    for (int i = 1; i <= aliases.Count(); ++i) {
        AppendField(text, aliases.At(i).Text());
        AppendField(text, aliases.At(i).SubItems(alias_cell::kPath));
    }
    const ListView& topics = main.topics.ListTopics;
    for (int i = 1; i <= topics.Count(); ++i) {
        for (const int cell : {0, topic_cell::kMapId, topic_cell::kLocation, topic_cell::kInteger,
                               topic_cell::kFullPath}) {
            AppendField(text, topics.At(i).Cell(cell));
        }
    }
    return text;
}

void TakeOptions(ProjectState& project, FieldReader& fields) {
    for (std::string* option : {&project.project_title, &project.project_def_topic,
                                &project.hhcfile, &project.hhkfile, &project.java_map_file}) {
        *option = std::string(fields.Next());
    }
    project.next_integer = fields.NextNumber();
}

void TakeAliases(ListView& aliases, FieldReader& fields) {
    aliases.Clear();
    for (std::int64_t count = fields.NextNumber(); count > 0 && !fields.IsDamaged(); --count) {
        ListRow& row = aliases.Add(std::string(fields.Next()));
        row.SetSubItem(alias_cell::kPath, std::string(fields.Next()));
    }
}

/// The row keeps what the record does not have, its keywords among it.
void TakeTopic(ListView& topics, FieldReader& fields) {
    std::string title(fields.Next());
    std::string id(fields.Next());
    std::string location(fields.Next());
    std::string integer(fields.Next());
    const std::string path(fields.Next());
    if (path.empty()) return;
    ListRow* row = topics.FirstWith(topic_cell::kFullPath, path);
    if (row == nullptr) {
        row = &topics.Add(title);
        row->SetSubItem(topic_cell::kFullPath, path);
    }
    row->SetText(std::move(title));
    row->SetSubItem(topic_cell::kMapId, std::move(id));
    row->SetSubItem(topic_cell::kLocation, std::move(location));
    row->SetSubItem(topic_cell::kInteger, std::move(integer));
}

void RemoveTopicsWithout(ListView& topics, std::string_view record) {
    ListView wanted{2};
    FieldReader fields(record);
    while (!fields.AtEnd() && !fields.IsDamaged()) {
        for (int i = 0; i < 4; ++i) (void)fields.Next();
        wanted.Add({}).SetSubItem(1, std::string(fields.Next()));
    }
    for (int i = topics.Count(); i >= 1; --i) {
        const std::string& path = topics.At(i).SubItems(topic_cell::kFullPath);
        if (wanted.FirstWith(1, path) == nullptr) topics.Remove(i);
    }
}

void TakeTopics(MainForm& main, std::string_view text) {
    const OpenRowKeeper keeper(main.topics);
    FieldReader fields(text);
    TakeOptions(main.project, fields);
    TakeAliases(main.topics.ListAliases, fields);
    if (fields.IsDamaged()) return;
    ListView& topics = main.topics.ListTopics;
    RemoveTopicsWithout(topics, fields.Rest());
    while (!fields.AtEnd() && !fields.IsDamaged()) TakeTopic(topics, fields);
}

}  // namespace

const std::vector<ProjectList>& ProjectLists() {
    // The index sets cells of topics, which must be there.
    static const std::vector<ProjectList> lists = {
        {"topics", "Titles and identifiers of topics, project options", TopicsText, TakeTopics},
        {"contents", "Table of contents", ContentsText, TakeContents},
        {"index", "Keyword index", IndexText, TakeIndex},
        {"outline", "Outline of the printed document", OutlineText, TakeOutline},
    };
    return lists;
}

}  // namespace quorrel
