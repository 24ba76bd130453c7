#include "project/unsaved_work.hpp"

#include <array>
#include <ctime>

#include "app/main_form.hpp"
#include "editor/load_file.hpp"
#include "platform/fields.hpp"
#include "project/private_files.hpp"
#include "project/project_lists.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kTopicForm = "Quorrel topic 1";
constexpr std::string_view kListsForm = "Quorrel lists 1";
constexpr std::string_view kCopiesForm = "Quorrel copies 1";

std::size_t HashOf(std::string_view bytes) {
    return std::hash<std::string_view>{}(bytes);
}

std::string Now() {
    const std::time_t now = std::time(nullptr);
    std::array<char, 32> text{};
    const std::size_t size =
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", std::localtime(&now));
    return {text.data(), size};
}

void AppendFile(std::string& record, const LoadedFile& file) {
    AppendField(record, static_cast<std::int64_t>(file.stamp.size));
    AppendField(record, file.stamp.modified);
    AppendField(record, static_cast<std::int64_t>(file.hash));
}

LoadedFile ReadFileState(FieldReader& fields) {
    LoadedFile file;
    file.stamp.size = static_cast<std::uint64_t>(fields.NextNumber());
    file.stamp.modified = fields.NextNumber();
    file.hash = static_cast<std::size_t>(fields.NextNumber());
    return file;
}

/// Puts `content` into the file under its form and the time, or removes the file where there is
/// nothing to be kept.
void Keep(MainForm& main, std::string_view file, std::string_view form,
          const std::string& content) {
    auto& written = main.unsaved.written;
    const auto known = written.find(std::string(file));
    if (content.empty()) {
        if (known == written.end()) return;
        main.files.DeleteFile(PrivateFile(main, main.project.proj, file));
        written.erase(known);
        return;
    }
    const std::size_t hash = HashOf(content);
    if (known != written.end() && known->second == hash) return;
    std::string record;
    AppendField(record, form);
    AppendField(record, Now());
    WritePrivateFile(main, main.project.proj, file, record + content);
    written[std::string(file)] = hash;
}

/// The state of the topic's file that its edited version began with, where it is known.
const LoadedFile* StartOf(const MainForm& main, const std::string& topic) {
    const auto known = main.editor.loaded.find(topic);
    return known == main.editor.loaded.end() ? nullptr : &known->second;
}

std::string OpenTopicContent(MainForm& main) {
    const EditSurface& surface = main.DHTMLEdit1;
    const EditorState& editor = main.editor;
    // First: a surface that waits for its engine lets events run, and one may open another topic.
    if (!editor.source_edited && !surface.IsDirty()) return {};
    const std::string path = TopicPath(surface.CurrentDocumentPath());
    if (path.empty() || IsTemplateOpen(main)) return {};
    const DocumentCopy copy =
        editor.source_edited ? DocumentCopy{main.Source1.Text(), {}, {}} : surface.LastHeard();
    if (copy.edited.empty() && copy.source == editor.kept_html) return {};
    std::string content;
    AppendField(content, path);
    AppendField(content, static_cast<int>(surface.Encoding().form));
    AppendField(content, surface.Encoding().code_page);
    const LoadedFile* start = StartOf(main, path);
    AppendField(content, start == nullptr ? 0 : 1);
    AppendFile(content, start == nullptr ? LoadedFile{} : *start);
    AppendField(content, copy.source);
    AppendField(content, copy.base);
    AppendField(content, copy.edited);
    return content;
}

std::string ListsContent(const MainForm& main) {
    std::string content;
    for (const ProjectList& list : ProjectLists()) {
        const std::string text = list.text(main);
        const auto saved = main.unsaved.saved_lists.find(std::string(list.name));
        if (saved != main.unsaved.saved_lists.end() && saved->second == HashOf(text)) continue;
        AppendField(content, list.name);
        AppendField(content, text);
    }
    return content;
}

void AppendCopy(std::string& content, const KeptCopy& copy) {
    AppendField(content, copy.path);
    AppendField(content, copy.when);
    AppendFile(content, copy.started_from);
}

std::string CopiesContent(MainForm& main) {
    std::string content;
    const ListView& topics = main.topics.ListTopics;
    for (int i = 1; i <= topics.Count(); ++i) {
        const ListRow& row = topics.At(i);
        if (row.SubItems(topic_cell::kModified) != "1") continue;
        const std::string& path = row.SubItems(topic_cell::kFullPath);
        const auto stamp = main.files.Stamp(WorkingCopyOf(path));
        const LoadedFile* start = StartOf(main, path);
        if (!stamp || start == nullptr) continue;
        KnownCopy& copy = main.unsaved.copies[path];
        if (copy.stamp != *stamp) copy = {*stamp, Now()};
        AppendCopy(content, {path, copy.when, *start});
    }
    // What the author has not decided about is still there.
    for (const auto& [path, copy] : main.unsaved.left_copies) {
        const ListRow* row = topics.FirstWith(topic_cell::kFullPath, path);
        const bool is_flagged = row != nullptr && row->SubItems(topic_cell::kModified) == "1";
        if (!is_flagged && main.files.FileExists(WorkingCopyOf(path))) AppendCopy(content, copy);
    }
    return content;
}

}  // namespace

void FollowUnsavedWork(MainForm& main) {
    const auto note = [&main] { main.unsaved.changed.Emit(); };
    const auto note_list = [&main] {
        main.unsaved.lists_changed = true;
        main.unsaved.changed.Emit();
    };
    main.DHTMLEdit1.TextHeard = note;
    for (TreeView* tree : {&main.contents.Tree1, &main.outline.TreeDoc}) {
        tree->nodes_changed.Connect(note_list);
        tree->node_changed.Connect([note_list](TreeNode&) { note_list(); });
    }
    for (ListView* table :
         {&main.topics.ListTopics, &main.topics.ListAliases, &main.keywords.ListKeywords}) {
        table->changed.Connect(note_list);
    }
}

void KeepUnsavedWork(MainForm& main) {
    const UnsavedWork& unsaved = main.unsaved;
    if (!unsaved.is_on || !unsaved.is_open || main.editor.loading) return;
    try {
        Keep(main, kTopicFile, kTopicForm, OpenTopicContent(main));
        Keep(main, kCopiesFile, kCopiesForm, CopiesContent(main));
        if (!main.unsaved.lists_changed) return;
        Keep(main, kListsFile, kListsForm, ListsContent(main));
        main.unsaved.lists_changed = false;
    } catch (const RuntimeError& error) {
        main.log.Note("MainForm KeepUnsavedWork: ", error.Number(), error.what());
    }
}

void NoteSavedLists(MainForm& main) {
    if (!main.unsaved.is_on) return;
    for (const ProjectList& list : ProjectLists()) {
        main.unsaved.saved_lists[std::string(list.name)] = HashOf(list.text(main));
    }
    main.unsaved.lists_changed = true;
}

void ForgetUnsavedWork(MainForm& main) {
    if (!main.unsaved.is_on || !main.unsaved.is_open) return;
    const auto forget = [&](std::string_view file) {
        if (main.unsaved.written.erase(std::string(file)) == 0) return;
        main.files.DeleteFile(PrivateFile(main, main.project.proj, file));
    };
    forget(kTopicFile);
    forget(kListsFile);
    // A working copy that did not take its topic's place is there still.
    try {
        Keep(main, kCopiesFile, kCopiesForm, CopiesContent(main));
    } catch (const RuntimeError& error) {
        main.log.Note("MainForm ForgetUnsavedWork: ", error.Number(), error.what());
    }
}

std::optional<KeptTopic> ReadKeptTopic(std::string_view record) {
    FieldReader fields(record);
    if (fields.Next() != kTopicForm) return std::nullopt;
    KeptTopic topic;
    topic.when = fields.Next();
    topic.path = fields.Next();
    topic.encoding.form = static_cast<TextEncoding::Form>(fields.NextNumber());
    topic.encoding.code_page = static_cast<int>(fields.NextNumber());
    const bool is_start_known = fields.NextNumber() == 1;
    const LoadedFile start = ReadFileState(fields);
    if (is_start_known) topic.started_from = start;
    topic.document.source = fields.Next();
    topic.document.base = fields.Next();
    topic.document.edited = fields.Next();
    return fields.IsDamaged() ? std::nullopt : std::optional(topic);
}

std::optional<KeptLists> ReadKeptLists(std::string_view record) {
    FieldReader fields(record);
    if (fields.Next() != kListsForm) return std::nullopt;
    KeptLists kept;
    kept.when = fields.Next();
    while (!fields.AtEnd()) {
        std::string name(fields.Next());
        kept.lists.push_back({std::move(name), std::string(fields.Next())});
    }
    return fields.IsDamaged() ? std::nullopt : std::optional(kept);
}

std::vector<KeptCopy> ReadKeptCopies(std::string_view record) {
    FieldReader fields(record);
    std::vector<KeptCopy> copies;
    if (fields.Next() != kCopiesForm) return copies;
    (void)fields.Next();
    while (!fields.AtEnd()) {
        std::string path(fields.Next());
        std::string when(fields.Next());
        const LoadedFile start = ReadFileState(fields);
        if (!fields.IsDamaged()) copies.push_back({std::move(path), std::move(when), start});
    }
    return copies;
}

}  // namespace quorrel
