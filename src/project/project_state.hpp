// The open project: its files, its options, its topics.
#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/list_view.hpp"

namespace quorrel {

/// How texts stand in the files of JavaHelp: as they were typed, which "&" makes unreadable, or as
/// XML has them.
enum class XmlForm { kAsTyped, kEscaped };

/// All paths are full Windows paths unless stated.
struct ProjectState {
    std::string proj;           // the project file, .hs or .hhp
    std::string opened_proj;    // the file that was opened: of a project just converted, the .hhp
    std::string proj_path;      // its folder, without a backslash at the end
    std::string hhcfile;        // contents file
    std::string hhkfile;        // index file
    std::string java_map_file;  // .jhm, or the header with the topic numbers
    std::string status_file;    // .stn
    std::string project_title;
    std::string project_def_topic;  // HTML Help: as the .hhp has it; JavaHelp: a map id
    std::string Pages_SubDir;       // name of the folder for topics under proj_path
    std::string Images_Subdir;      // name of the folder for graphics under proj_path
    std::string last_file_path;     // folder last used for a new topic
    std::string Alias_Prefix;       // of identifiers that the program makes
    std::string last_new_prefix;
    std::int64_t next_integer = 0;  // the last context integer handed out, 0 for none yet
    int help_mode = 0;              // 1 a JavaHelp project, 0 an HTML Help project
    XmlForm xml_form = XmlForm::kAsTyped;
    bool xml_form_offered = false;  // the other form, since the project was opened
    bool javahelp_do_fts = false;   // there is a full-text search database
    bool project_dirty = false;
    bool backup_all_html = false;  // a topic that is replaced stays as ".bak"; nothing sets it
    std::int64_t lngMapCount = 0;  // image maps made so far
    int replace_topic_option = 0;
    int common_flag = 0;        // 1 while the first topic of a new project is made
    bool import_after = false;  // a new topic is followed by an import of files
    int ProjSettingsTab = 1;    // the page that the project's options open with

    std::string recent_proj;    // hand-over slot: the project to open next
    bool proj_success = false;  // a project has been chosen
};

/// Cells of a ListTopics row beside its text, the title.
namespace topic_cell {
inline constexpr int kMapId = 1;  // JavaHelp map id or HTML Help alias
inline constexpr int kLocation = 2;
inline constexpr int kInteger = 3;   // context number, HTML Help only
inline constexpr int kKeywords = 5;  // full keys, each closed by ";"
inline constexpr int kModified = 6;  // "1" while an unsaved working copy exists
inline constexpr int kFullPath = 7;
}  // namespace topic_cell

/// Cell of a ListAliases row beside its text, the map id.
namespace alias_cell {
inline constexpr int kPath = 1;
}

struct TopicTables {
    ListView ListTopics{8, 0};
    ListView ListAliases{2};
    int current_topic_index = 0;  // row of the open topic, 0 for none
};

}  // namespace quorrel
