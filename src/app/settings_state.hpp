// What the settings file says, and the recent projects.
#pragma once

#include <array>
#include <string>

namespace quorrel {

struct SettingsState {
    std::string ini_file;
    bool is_javahelp_edition = true;
    std::string APP_NAME;
    std::string program;   // the file of the running program, where it can be started again
    std::string main_dir;  // the installation folder, with its backslash at the end
    std::string found_main_dir;  // stands for it where the settings file names none
    std::string Template_Dir;
    std::string help_file;
    bool use_ext_editor = false;
    std::string ext_editor;
    std::string hhc;
    std::string javahelp_viewer;
    std::string javahelp_indexer;
    std::string javahelp_jar;
    std::string main_spell_dic;
    std::string custom_spell_dic;
    bool preserve_html = true;
    bool is_failure_told = false;  // the user knows that settings cannot be written
};

struct RecentProjects {
    static constexpr int kLimit = 25;
    static constexpr int kInMenu = 5;

    // An entry is the path, "|", the title. The list has room to move entries up by one, and two
    // empty keys are written behind the last.
    std::array<std::string, kLimit + 2> recent_list;
    int num_recent = 0;
};

}  // namespace quorrel
