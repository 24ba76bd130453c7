#include "support/project_session.hpp"

#include "app/startup.hpp"
#include "editor/load_file.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"

namespace quorrel::test {

ProjectSession::ProjectSession(const ScratchFolder& folder, std::string_view project,
                               std::string_view edition)
    : main({files, screen, surface, source, browser, shell}, folder.Windows("settings"),
           MachineCodePage{}) {
    LoadSettings(main, edition);
    main.settings.Template_Dir = folder.Windows("share");
    main.project.recent_proj = folder.Windows(project);
    OpenProject_Click(main);
}

std::string ProjectSession::Open(const std::string& path) {
    main.editor.new_main_path = path;
    LoadFile(main);
    return surface.DocumentHTML();
}

void ProjectSession::SaveAll() {
    main.contents.toc_dirty = main.keywords.index_dirty = main.outline.doc_dirty = true;
    FileSave_Click(main);
}

}  // namespace quorrel::test
