// MainForm: all that is alive for the whole run, grouped by the subsystem that owns it. Data
// only; the routines are free functions of their subsystems.
#pragma once

#include <string>

#include "app/settings_state.hpp"
#include "app/window_controls.hpp"
#include "contents/contents_state.hpp"
#include "documents/outline_state.hpp"
#include "editor/editor_state.hpp"
#include "platform/failure.hpp"
#include "platform/profile_store.hpp"
#include "platform/screen.hpp"
#include "platform/surfaces.hpp"
#include "platform/text_files.hpp"
#include "project/project_state.hpp"
#include "project/unsaved_work_state.hpp"

namespace quorrel {

/// What the program runs on. All of it outlives the form.
struct Services {
    FileSystem& files;
    Screen& screen;
    EditSurface& surface;
    SourceEdit& source;
    WebBrowser& browser;
    Shell& shell;
};

struct MainForm {
    /// `settings_folder` is a Windows path without a backslash at its end.
    MainForm(const Services& services, const std::string& settings_folder,
             MachineCodePage code_page = CodePageOfMachine())
        : files(services.files),
          screen(services.screen),
          DHTMLEdit1(services.surface),
          Source1(services.source),
          WebBrowser1(services.browser),
          shell(services.shell),
          log([this](std::string_view line) {
              try {
                  files.WriteFile("QRJavaHelp.log", std::string(line) + "\r\n");
              } catch (const RuntimeError&) {
                  // A log that cannot be written is no reason to stop.
              }
          }),
          texts(files, code_page),
          machine_texts(files, code_page),
          profiles(texts, settings_folder),
          machine_profiles(machine_texts, settings_folder) {}

    FileSystem& files;
    Screen& screen;
    EditSurface& DHTMLEdit1;
    SourceEdit& Source1;
    WebBrowser& WebBrowser1;
    Shell& shell;
    ErrorLog log;
    TextFiles texts;          // of the open project, in its encodings
    TextFiles machine_texts;  // of the machine, whatever project is open
    ProfileStore profiles;
    ProfileStore machine_profiles;

    SettingsState settings;
    RecentProjects recent;
    ProjectState project;
    TopicTables topics;
    ContentsState contents;
    KeywordState keywords;
    OutlineState outline;
    EditorState editor;
    UnsavedWork unsaved;
    WindowControls window;
};

}  // namespace quorrel
