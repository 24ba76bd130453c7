#include "project/topic_identifier.hpp"

#include <unordered_map>

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/verify_map_ids.hpp"

namespace quorrel {
namespace {

/// New identifiers by old ones.
using Changes = std::unordered_map<std::string, std::string>;

bool IsTaken(const TopicTables& topics, const ListRow& topic, std::string_view id) {
    if (topics.ListAliases.FirstWith(0, id) != nullptr) return true;
    // The first or the last of two is another one.
    const ListRow* const first = topics.ListTopics.FirstWith(topic_cell::kMapId, id);
    const ListRow* const last = topics.ListTopics.LastWith(topic_cell::kMapId, id);
    return first != nullptr && (first != &topic || last != &topic);
}

void TellTaken(MainForm& main, std::string_view taken, std::string_view kept) {
    const std::string name = main.settings.is_javahelp_edition ? "MapID" : "alias";
    std::string text = "The " + name + " \"";
    text.append(taken).append("\" is used already. This topic keeps ");
    if (kept.empty()) {
        text.append("none for now; please choose another one.");
    } else {
        text.append("\"").append(kept).append("\".");
    }
    main.screen.ShowMessage(
        {text, main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
}

/// Renames the aliases of bookmarks in the topic that were named after it.
void RenameBookmarks(TopicTables& topics, const std::string& path, Changes& changes,
                     const std::string& old_id, const std::string& new_id) {
    const std::string place = path + "#";
    const std::string old_name = old_id + "_";
    for (int i = 1; i <= topics.ListAliases.Count(); ++i) {
        ListRow& alias = topics.ListAliases.At(i);
        const std::string& target = alias.SubItems(alias_cell::kPath);
        const std::size_t mark = target.find('#');
        if (mark == npos || !EqualsIgnoringCase(target.substr(0, mark + 1), place)) continue;
        const std::string bookmark = target.substr(mark + 1);
        if (alias.Text() != old_name + bookmark) continue;
        std::string name = new_id + "_" + bookmark;
        const bool is_own = EqualsIgnoringCase(name, alias.Text());
        if (!is_own) name = FreeMapId(topics, std::move(name));
        changes.emplace(alias.Text(), name);
        alias.SetText(name);
    }
}

/// True if a node has changed. A node of another place keeps an identifier that two topics share.
bool ChangeTargets(TreeView& tree, const std::string& path, const Changes& changes) {
    bool has_changed = false;
    for (int i = 1; i <= tree.Count(); ++i) {
        TreeNode& node = tree.At(i);
        const NodeData data = UnpackNodeData(node.Tag);
        const auto change = changes.find(data.target);
        if (change == changes.end()) continue;
        const std::string_view file =
            std::string_view(data.location).substr(0, data.location.find('#'));
        if (!file.empty() && !EqualsIgnoringCase(file, path)) continue;
        node.Tag = PackNodeData(data.location, change->second, data.extra);
        has_changed = true;
    }
    return has_changed;
}

bool IsInIndex(const ListView& ListKeywords, const std::string& path) {
    const std::string target = ">" + path;
    for (int i = 1; i <= ListKeywords.Count(); ++i) {
        const ListRow& row = ListKeywords.At(i);
        if (FindIgnoringCase(row.SubItems(keyword_cell::IDX_TITLEPATH), target)) return true;
    }
    return false;
}

void ChangeReferences(MainForm& main, const std::string& path, const std::string& old_id,
                      const std::string& new_id) {
    Changes changes{{old_id, new_id}};
    RenameBookmarks(main.topics, path, changes, old_id, new_id);
    const bool in_contents = ChangeTargets(main.contents.Tree1, path, changes);
    ChangeTargets(main.outline.TreeDoc, path, changes);
    // Only the files of JavaHelp name topics by their identifiers.
    if (main.project.help_mode != 1) return;
    if (main.project.project_def_topic == old_id) main.project.project_def_topic = new_id;
    if (in_contents) main.contents.toc_dirty = true;
    if (IsInIndex(main.keywords.ListKeywords, path)) main.keywords.index_dirty = true;
}

}  // namespace

void ChangeTopicIdentifier(MainForm& main, ListRow& topic, std::string_view typed) {
    const std::string old_id = topic.SubItems(topic_cell::kMapId);
    if (typed == old_id) return;
    std::string new_id(typed);
    if (new_id.empty()) {
        // Without an identifier its number and the contents items that name it would be lost by
        // the next save.
        topic.SetSubItem(topic_cell::kMapId, {});
        new_id =
            MapIdFor(main.topics, topic.SubItems(topic_cell::kFullPath), main.project.Alias_Prefix);
    } else if (IsTaken(main.topics, topic, new_id)) {
        return TellTaken(main, new_id, old_id);
    }
    topic.SetSubItem(topic_cell::kMapId, new_id);
    if (!old_id.empty()) {
        ChangeReferences(main, topic.SubItems(topic_cell::kFullPath), old_id, new_id);
    }
}

}  // namespace quorrel
