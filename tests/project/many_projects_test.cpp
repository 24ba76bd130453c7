// Projects by chance, opened, saved with everything marked changed and opened again. The two
// states are equal but for what the formats have no place for: the tables below, all of it.
#include <gtest/gtest.h>

#include "contents/index_targets.hpp"
#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"
#include "support/project_session.hpp"
#include "support/random_project.hpp"

namespace quorrel {
namespace {

using test::ProjectSession;
using test::RandomProject;

/// A project that has been saved, on its way to what opening it again gives.
struct Saved {
    MainForm& main;
    std::vector<ListRow*> keywords;  // in the order of the file
};

struct Difference {
    const char* what;
    void (*apply)(const Saved& saved);
};

std::string UndoEscapes(std::string_view text) {
    return ReplaceAll(ReplaceAll(text, "&lt;", "<"), "%22", "\"");
}

void EscapeCaptions(const Saved& saved) {
    TreeView& tree = saved.main.contents.Tree1;
    for (int i = 1; i <= tree.Count(); ++i)
        tree.At(i).Text = ReplaceAll(tree.At(i).Text, "<", "&lt;");
}

void OrderKeywordsOfTopics(const Saved& saved) {
    ListView& topics = saved.main.topics.ListTopics;
    for (int i = 1; i <= topics.Count(); ++i) topics.At(i).SetSubItem(topic_cell::kKeywords, "");
    for (const ListRow* row : saved.keywords) {
        const std::string& key = row->SubItems(keyword_cell::IDX_FULLKEY);
        for (const IndexTarget& target : IndexTargets(row->SubItems(keyword_cell::IDX_TITLEPATH))) {
            ListRow* topic = topics.FirstWith(topic_cell::kFullPath, target.path);
            if (topic == nullptr || Contains(topic->SubItems(topic_cell::kKeywords), key)) continue;
            topic->AppendToSubItem(topic_cell::kKeywords, key + ";");
        }
    }
}

void ForEachKeyword(const Saved& saved, void (*change)(const Saved&, ListRow&)) {
    for (ListRow* row : saved.keywords) change(saved, *row);
}

const Difference kHtmlHelp[] = {
    {"the escapes of a caption are written and not undone", EscapeCaptions},
    {"a default topic is relative to the project",
     [](const Saved& saved) {
         ProjectState& project = saved.main.project;
         project.project_def_topic = MakeRelPathRel(project.project_def_topic, project.proj);
     }},
    {"a \"New\" of 0 is none",
     [](const Saved& saved) {
         TreeView& tree = saved.main.contents.Tree1;
         for (int i = 1; i <= tree.Count(); ++i)
             tree.At(i).Tag = ReplaceAll(tree.At(i).Tag, ",0,", ",,");
     }},
    {"the number of an identifier that no topic has is not written",
     [](const Saved& saved) {
         std::int64_t& highest = saved.main.project.next_integer = 0;
         const ListView& topics = saved.main.topics.ListTopics;
         for (int i = 1; i <= topics.Count(); ++i) {
             highest =
                 std::max(highest, LeadingNumber(topics.At(i).SubItems(topic_cell::kInteger)));
         }
     }},
    {"a keyword that leads nowhere refers to itself",
     [](const Saved& saved) {
         ForEachKeyword(saved, [](const Saved&, ListRow& row) {
             if (!row.SubItems(keyword_cell::IDX_TITLEPATH).empty()) return;
             row.SetSubItem(keyword_cell::IDX_TITLEPATH,
                            "SEE ALSO: " + std::string(TrimLeft(row.Text())) + ">");
         });
     }},
    {"paths of the index have backslashes",
     [](const Saved& saved) {
         ForEachKeyword(saved, [](const Saved&, ListRow& row) {
             if (IsSeeAlso(row)) return;
             const std::string& targets = row.SubItems(keyword_cell::IDX_TITLEPATH);
             row.SetSubItem(keyword_cell::IDX_TITLEPATH, ReplaceAll(targets, "/", "\\"));
         });
     }},
    {"the keywords of a topic come in the order of the index", OrderKeywordsOfTopics},
};

void NameNoFileWithoutEntries(const Saved& saved) {
    ProjectState& project = saved.main.project;
    // The name of the index file lands in the variable of the contents.
    if (saved.main.contents.Tree1.Count() == 0) {
        project.hhcfile = std::string(BaseName(project.proj)) + "Index.xml";
    }
    if (saved.keywords.empty()) project.hhkfile.clear();
}

bool IsImage(const ListRow& alias) {
    return Contains(alias.SubItems(alias_cell::kPath), ".gif");
}

void PutImagesFirst(const Saved& saved) {
    ListView& aliases = saved.main.topics.ListAliases;
    std::vector<std::pair<std::string, std::string>> ordered;
    for (const bool images : {true, false}) {
        for (int i = 1; i <= aliases.Count(); ++i) {
            const ListRow& row = aliases.At(i);
            if (IsImage(row) == images) ordered.emplace_back(row.Text(), row.SubItems(1));
        }
    }
    aliases.Clear();
    for (const auto& [name, path] : ordered) aliases.Add(name).SetSubItem(alias_cell::kPath, path);
}

const Difference kJavaHelp[] = {
    {"the escapes of a caption are written and not undone", EscapeCaptions},
    {"the map has its images first", PutImagesFirst},
    {"a HelpSet names no file for a view without entries", NameNoFileWithoutEntries},
    {"the keywords of a topic come in the order of the index", OrderKeywordsOfTopics},
};

const Difference kEscaped[] = {
    {"the map has its images first", PutImagesFirst},
    {"a HelpSet names no file for a view without entries", NameNoFileWithoutEntries},
    {"the keywords of a topic come in the order of the index", OrderKeywordsOfTopics},
};

/// What a map id leads to when the files are read: title and path.
IndexTarget BearerOf(const TopicTables& tables, std::string_view id) {
    if (const ListRow* topic = tables.ListTopics.FirstWithExactly(topic_cell::kMapId, id)) {
        return {topic->Text(), topic->SubItems(topic_cell::kFullPath)};
    }
    const ListRow* alias = tables.ListAliases.FirstWithExactly(0, id);
    return alias == nullptr ? IndexTarget{}
                            : IndexTarget{alias->Text(), alias->SubItems(alias_cell::kPath)};
}

std::string IdOf(const TopicTables& tables, const std::string& path) {
    if (const ListRow* topic = tables.ListTopics.FirstWith(topic_cell::kFullPath, path)) {
        return topic->SubItems(topic_cell::kMapId);
    }
    const ListRow* alias =
        Contains(path, "#") ? tables.ListAliases.FirstWith(alias_cell::kPath, path) : nullptr;
    return alias == nullptr ? "" : alias->Text();
}

const Difference kConversion[] = {
    {"the escapes of a caption are written and not undone", EscapeCaptions},
    {"those of a keyword are undone",
     [](const Saved& saved) {
         ForEachKeyword(saved, [](const Saved&, ListRow& row) {
             row.SetText(UndoEscapes(row.Text()));
             row.SetSubItem(keyword_cell::IDX_FULLKEY,
                            UndoEscapes(row.SubItems(keyword_cell::IDX_FULLKEY)));
         });
     }},
    {"there are neither context numbers nor site properties",
     [](const Saved& saved) {
         MainForm& main = saved.main;
         ListView& topics = main.topics.ListTopics;
         for (int i = 1; i <= topics.Count(); ++i)
             topics.At(i).SetSubItem(topic_cell::kInteger, "");
         main.project.next_integer = 0;
         main.contents.site_properties_toc.clear();
         main.keywords.site_properties_index.clear();
     }},
    {"the titles are those of the topic files",
     [](const Saved& saved) {
         std::vector<ListRow*> rows;
         ListView& topics = saved.main.topics.ListTopics;
         for (int i = 1; i <= topics.Count(); ++i) rows.push_back(&topics.At(i));
         for (ListRow* row : rows) {
             row->SetText(
                 RandomProject::TitleOfFile(AfterLast(row->SubItems(topic_cell::kFullPath), '\\')));
         }
     }},
    {"a page that the map names is a topic, and not there if it has no file",
     [](const Saved& saved) {
         TopicTables& tables = saved.main.topics;
         for (int i = 1; i <= tables.ListAliases.Count();) {
             const std::string id = tables.ListAliases.At(i).Text();
             const std::string path = tables.ListAliases.At(i).SubItems(alias_cell::kPath);
             if (!Contains(path, ".ht") || Contains(path, "#") || IsAddress(path)) {
                 ++i;
                 continue;
             }
             tables.ListAliases.Remove(i);
             if (!saved.main.files.FileExists(path)) continue;
             ListRow& topic =
                 tables.ListTopics.Add(RandomProject::TitleOfFile(AfterLast(path, '\\')));
             topic.SetSubItem(topic_cell::kMapId, id);
             topic.SetSubItem(topic_cell::kFullPath, path);
             topic.SetSubItem(topic_cell::kLocation,
                              LocationOf(path, saved.main.project.proj_path));
         }
     }},
    {"the map has its images first", PutImagesFirst},
    {"a contents entry leads where the first bearer of its id does",
     [](const Saved& saved) {
         TreeView& tree = saved.main.contents.Tree1;
         for (int i = 1; i <= tree.Count(); ++i) {
             const NodeData data = UnpackNodeData(tree.At(i).Tag);
             const std::string location =
                 data.target.empty() ? "" : BearerOf(saved.main.topics, data.target).path;
             tree.At(i).Tag = PackNodeData(location, data.target, data.extra);
         }
     }},
    {"so does a keyword, by the title there; see-alsos and what has no id lead nowhere",
     [](const Saved& saved) {
         ForEachKeyword(saved, [](const Saved& all, ListRow& row) {
             std::string targets;
             for (const IndexTarget& target :
                  IndexTargets(row.SubItems(keyword_cell::IDX_TITLEPATH))) {
                 const std::string id = IdOf(all.main.topics, target.path);
                 if (id.empty()) continue;
                 const IndexTarget bearer = BearerOf(all.main.topics, id);
                 targets += bearer.title + ">" + bearer.path + ";:";
             }
             row.SetSubItem(keyword_cell::IDX_TITLEPATH, targets);
         });
     }},
    {"a HelpSet names no file for a view without entries", NameNoFileWithoutEntries},
    {"the keywords of a topic come in the order of the index", OrderKeywordsOfTopics},
};

void AddTable(std::string& state, const char* name, const ListView& table, std::vector<int> cells) {
    for (int i = 1; i <= table.Count(); ++i) {
        state.append(name).append(" ").append(table.At(i).Text());
        for (const int cell : cells) state.append(" | ").append(table.At(i).SubItems(cell));
        state += '\n';
    }
}

void AddTree(std::string& state, const char* name, const TreeView& tree) {
    for (int i = 1; i <= tree.Count(); ++i) {
        const TreeNode& node = tree.At(i);
        state.append(name).append(" ").append(node.FullPath()).append(" ");
        state.append(std::to_string(node.Image)).append(" ").append(node.Tag).append("\n");
    }
}

/// Everything that a dump shows, but for the flag of a working copy.
std::string State(const MainForm& main) {
    const ProjectState& project = main.project;
    std::string state;
    for (const std::string& field :
         {std::to_string(project.help_mode), project.proj, project.proj_path, project.hhcfile,
          project.hhkfile, project.java_map_file, main.outline.doc_outline, project.status_file,
          project.project_title, project.project_def_topic, std::to_string(project.next_integer),
          std::to_string(project.javahelp_do_fts), main.contents.site_properties_toc,
          main.keywords.site_properties_index}) {
        state += field + "\n";
    }
    AddTable(state, "topic", main.topics.ListTopics, {1, 2, 3, 4, 5, 7});
    AddTable(state, "alias", main.topics.ListAliases, {1});
    AddTable(state, "keyword", main.keywords.ListKeywords, {1, 2});
    AddTree(state, "contents", main.contents.Tree1);
    AddTree(state, "outline", main.outline.TreeDoc);
    return state;
}

/// How one of the three ways of a project goes, and how many projects each difference concerns:
/// one that concerns none has no business in the table.
template <std::size_t kCount>
void CheckManyProjects(void (RandomProject::*write)(const test::ScratchFolder&), const char* first,
                       const char* edition, const char* again,
                       const Difference (&differences)[kCount]) {
    constexpr unsigned kProjects = 60;
    std::vector<int> concerned(kCount, 0);
    for (unsigned seed = 1; seed <= kProjects; ++seed) {
        const test::ScratchFolder folder;
        (RandomProject(seed).*write)(folder);
        ProjectSession session(folder, first, edition);
        session.SaveAll();
        Saved saved{session.main, {}};
        ListView& keywords = session.main.keywords.ListKeywords;
        for (int i = 1; i <= keywords.Count(); ++i) saved.keywords.push_back(&keywords.At(i));
        std::string expected = State(session.main);
        for (std::size_t i = 0; i < kCount; ++i) {
            differences[i].apply(saved);
            const std::string changed = State(session.main);
            if (changed != expected) ++concerned[i];
            expected = changed;
        }
        const ProjectSession reopened(folder, again, edition);
        ASSERT_EQ(State(reopened.main), expected) << "seed " << seed;
        // What the program has written holds nothing that a save would leave out.
        for (const FileLeftBehind& file : reopened.main.texts.FilesLeftBehind()) {
            ADD_FAILURE() << "seed " << seed << ": " << file.path << ": " << Listed(file.kinds);
        }
    }
    for (std::size_t i = 0; i < kCount; ++i) EXPECT_GT(concerned[i], 0) << differences[i].what;
}

TEST(ManyProjects, OfHtmlHelpComeBack) {
    CheckManyProjects(&RandomProject::WriteHtmlHelp, "p/g.hhp", "html", "p/g.hhp", kHtmlHelp);
}

TEST(ManyProjects, OfJavaHelpComeBack) {
    CheckManyProjects(&RandomProject::WriteJavaHelp, "p/g.hs", "", "p/g.hs", kJavaHelp);
}

TEST(ManyProjects, OfJavaHelpComeBackAsXml) {
    CheckManyProjects(&RandomProject::WriteEscapedJavaHelp, "p/g.hs", "", "p/g.hs", kEscaped);
}

TEST(ManyProjects, ComeBackConverted) {
    CheckManyProjects(&RandomProject::WriteHtmlHelp, "p/g.hhp", "", "p/g.hs", kConversion);
}

}  // namespace
}  // namespace quorrel
