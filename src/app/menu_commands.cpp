#include "app/menu_commands.hpp"

#include <array>
#include <string>

#include "app/commands.hpp"
#include "app/main_form.hpp"
#include "app/tool_bar.hpp"
#include "app/views.hpp"
#include "editor/format_commands.hpp"
#include "editor/formatting.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "platform/text.hpp"
#include "project/topic_title.hpp"

namespace quorrel {
namespace {

constexpr int kSnapToGrid = 11;

std::string Indexed(std::string_view name, std::size_t index) {
    return std::string(name) + std::to_string(index);
}

/// Greys the entries of a control array by the surface's commands behind them.
template <std::size_t kCount>
void GreyByStatus(MainForm& main, std::string_view name, const std::array<int, kCount>& commands) {
    for (std::size_t i = 0; i < kCount; ++i) {
        if (commands[i] == 0) continue;
        SetEnabled(main, Indexed(name, i), SurfaceCan(main, commands[i]));
    }
}

bool ShowsTab(const MainForm& main, int tab) {
    return main.window.TabStrip2.SelectedIndex() == tab;
}

int StatusOf(MainForm& main, int command) {
    try {
        return main.DHTMLEdit1.QueryStatus(command);
    } catch (const RuntimeError&) {
        return command_status::kNotSupported;
    }
}

bool IsControlSelected(MainForm& main) {
    try {
        return main.DHTMLEdit1.DOM().selection().Type() == SelectionType::kControl;
    } catch (const RuntimeError&) {
        return false;
    }
}

void RunInSource(SourceEdit& source, int command) {
    switch (command) {
        case surface_command::DECMD_UNDO:
            return source.Undo();
        case surface_command::DECMD_REDO:
            return source.Redo();
        case surface_command::DECMD_CUT:
            return source.Cut();
        case surface_command::DECMD_COPY:
            return source.Copy();
        case surface_command::DECMD_PASTE:
            return source.Paste();
        case surface_command::DECMD_SELECTALL:
            return source.SelectAll();
        case surface_command::DECMD_FINDTEXT:
            return source.Find();
        default:
            return;
    }
}

void ToggleSnapToGrid(MainForm& main) {
    const bool on = !main.DHTMLEdit1.SnapToGrid();
    main.DHTMLEdit1.SetSnapToGrid(on);
    main.window.Named("EditSub11").Checked = on;
}

void TellUpdates(MainForm& main, const std::string& text) {
    main.screen.ShowMessage(
        {text, main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kInformation});
}

}  // namespace

void file_Click(MainForm& main) {
    const bool has_project = !main.project.proj.empty();
    for (const std::string_view name :
         {"FileSave", "FileNew", "viewjavahelp", "buildsearch", "validatesearch", "importhtml"}) {
        SetEnabled(main, name, has_project);
    }
}

void edit_Click(MainForm& main) {
    const bool in_source = ShowsTab(main, right_tab::kSource);
    for (std::size_t i = 0; i < kEditCommands.size(); ++i) {
        const int command = kEditCommands[i];
        if (command == 0) continue;
        SetEnabled(main, Indexed("EditSub", i), in_source || SurfaceCan(main, command));
    }
    SetEnabled(main, "EditSub11", ShowsTab(main, right_tab::kNormal));
}

void insert_Click(MainForm& main) {
    // The menu itself stays as it was on the tabs behind the first one.
    const bool on_surface = ShowsTab(main, right_tab::kNormal);
    SetEnabled(main, "InsertSub0", SurfaceCan(main, surface_command::DECMD_IMAGE));
    SetEnabled(main, "InsertSub1", SurfaceCan(main, surface_command::DECMD_HYPERLINK));
    SetEnabled(main, "InsertHTML", on_surface && !IsControlSelected(main));
    SetEnabled(main, "InsertButton", on_surface);
}

void FormatMain_Click(MainForm& main) {
    SetEnabled(main, "Font", SurfaceCan(main, surface_command::DECMD_FONT));
}

void Format_Click(MainForm& main) {
    constexpr std::size_t kFormats = 16;
    const bool can_set = SurfaceCan(main, surface_command::DECMD_SETBLOCKFMT);
    for (std::size_t i = 0; i < kFormats; ++i) {
        const std::string name = Indexed("FormatSub", i);
        MenuEntry& entry = main.window.Named(name);
        entry.Visible = !entry.Caption().empty();
        SetEnabled(main, name, can_set);
    }
}

void table_Click(MainForm& main) {
    GreyByStatus(main, "tablesub", kTableCommands);
}

void D2D_Click(MainForm& main) {
    GreyByStatus(main, "D2DSub", kPositionCommands);
    MenuEntry& position = main.window.Named(Indexed("D2DSub", kPositionEntry));
    switch (StatusOf(main, surface_command::DECMD_MAKE_ABSOLUTE)) {
        case command_status::kLatched:
            position.Caption = "Set Position Attribute To 1D";
            break;
        case command_status::kEnabled:
            position.Caption = "Set Position Attribute To Absolute";
            break;
        default:
            break;
    }
    main.window.Named(Indexed("D2DSub", kLockEntry)).Checked =
        StatusOf(main, surface_command::DECMD_LOCK_ELEMENT) == command_status::kLatched;
}

void fileopen_Click(MainForm& main) {
    FileDialog dialog;
    dialog.title = "Open HTML File";
    dialog.filter = "HTML Files (*.htm;*.html)|*.htm;*.html";
    dialog.folder = main.project.proj_path;
    const std::string path = main.screen.ChooseFile(dialog);
    if (path.empty()) return;
    main.editor.new_main_path = path;
    LoadFile(main);
    // The user may have stayed with the document that was open.
    if (main.editor.main_path != path) return;
    const auto title = ScanTopicTitle(main.DHTMLEdit1.DocumentHTML(), path);
    main.window.StatusBar1.SetPanel(1, TitleText(title.value_or(std::string())));
    main.window.StatusBar1.SetPanel(2, main.files.NativePath(path));
}

void FileSaveAs_Click(MainForm& main) {
    bool is_saved = false;
    SaveDocument(main, true, is_saved);
}

void fileexit_Click(MainForm& main) {
    if (main.window.close) main.window.close();
}

void EditSub_Click(MainForm& main, int index) {
    if (index == kSnapToGrid) return ToggleSnapToGrid(main);
    const int command = kEditCommands.at(static_cast<std::size_t>(index));
    if (command == 0) return;
    if (ShowsTab(main, right_tab::kSource)) return RunInSource(main.Source1, command);
    RunOnSurface(main, command);
}

void Viewsub_Click(MainForm& main, int index) {
    EditSurface& surface = main.DHTMLEdit1;
    switch (index) {
        case 0: {
            const bool on = !surface.ShowBorders();
            surface.SetShowBorders(on);
            main.window.Named("Viewsub0").Checked = on;
            return;
        }
        case 1:
            return showhide_Click(main);
        default: {
            const bool preserve = !surface.SourceCodePreservation();
            surface.SetSourceCodePreservation(preserve);
            main.settings.preserve_html = preserve;
            main.window.Named("Viewsub2").Checked = !preserve;
        }
    }
}

void checkforupdates_Click(MainForm& main) {
    CheckForUpdates(main, QUORREL_UPDATE_URL);
}

void CheckForUpdates(MainForm& main, std::string_view address) {
    if (address.empty()) {
        return TellUpdates(main, "This build of the program has no page for updates.");
    }
    std::string page(address);
    page += main.settings.is_javahelp_edition ? "javahelp" : "htmlhelp";
    try {
        main.shell.Start("start " + page, WindowStyle::kNormal);
    } catch (const RuntimeError&) {
        TellUpdates(
            main,
            "Unable to launch your browser. Please visit the following URL for updates: " + page);
    }
}

void AboutQuorrelEdit_Click(MainForm& main) {
    if (main.window.show_about) main.window.show_about();
}

void preview_kb_Click(MainForm& main) {
    TabStrip& tabs = main.window.TabStrip2;
    if (tabs.SelectedIndex() == right_tab::kPreview) return TabStrip2_Click(main);
    tabs.SelectedIndex = right_tab::kPreview;
}

void popproperties_Click(MainForm& main) {
    main.window.TabStrip2.SelectedIndex = right_tab::kOrganizeTOC;
}

void expandpane_Click(MainForm& main) {
    WindowControls& window = main.window;
    MenuEntry& entry = window.Named("expandpane");
    entry.Checked = !entry.Checked();
    ExpandPane(window.panes, entry.Checked, window.TabStrip2.SelectedIndex);
    window.panes_changed.Emit();
}

}  // namespace quorrel
