// The buttons of the two tool bars.
#include "app/command_tables.hpp"
#include "app/menu_commands.hpp"
#include "app/tool_bar.hpp"
#include "editor/format_commands.hpp"
#include "editor/formatting.hpp"
#include "project/form_create_project.hpp"
#include "project/new_topic.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"

namespace quorrel {
namespace {

constexpr Routine kNotBuilt = nullptr;

void Save(MainForm& main) {
    FileSave_Click(main);
}

constexpr ToolButton kToolBar[] = {
    {"NewProj", "New Project", FileNewProject_Click, "project-development-new-template"},
    {"New", "New Topic", FileNew_Click, "document-new"},
    {"Open", "Open Project", OpenProject_Click, "document-open"},
    {"Save", "Save Project", Save, "document-save"},
    {"Print", "Print", Print_Click, "document-print"},
    {"Cut", "Cut", Cut_Click, "edit-cut"},
    {"Copy", "Copy", Copy_Click, "edit-copy"},
    {"Paste", "Paste", Paste_Click, "edit-paste"},
    {"Find", "Find", Find_Click, "edit-find"},
    {"Graphic", "Insert/Edit Graphic", kNotBuilt, "insert-image"},
    {"Table", "Insert Table", kNotBuilt, "insert-table"},
    {"Link", "Insert/Edit Hyperlink", kNotBuilt, "insert-link"},
    {"expand", "Insert Expanding/Contracting Section", kNotBuilt, "view-list-tree"},
    {"Popup", "Insert Pop-up or Secondary Window", kNotBuilt, "window-new"},
    {"Bookmark", "Insert Bookmark", kNotBuilt, "bookmark-new"},
    {"midkey", "Insert mid-Topic Keyword", kNotBuilt, "tag-new"},
    {"Spell", "Spelling Check", kNotBuilt, "tools-check-spelling"},
    {"GoBack", "Go Back", GoBack_Click, "go-previous", "Alt+Left"},
    // It stops the browser, and "Stop" does nothing: what authors are used to.
    {"Refresh", "Refresh", StopBrowser, "view-refresh"},
    {"Stop", "Stop", DoNothing, "process-stop"},
    {"Compile", "Compile HTML Help File", kNotBuilt, "run-build"},
    {"Run", "View JavaHelp System", kNotBuilt, "system-run"},
    {"jar", "Compress into JAR File", kNotBuilt, "archive-insert"},
    {"showhide", "Show/Hide - (Requires IE 5 or Later)", showhide_Click, "view-visible", "", true},
};

consteval int CommandOf(std::string_view key) {
    for (const FormatButton& button : kFormatButtons) {
        if (button.key == key) return button.command;
    }
    throw "no such button";
}

template <int kCommand>
void Run(MainForm& main) {
    RunFormatCommand(main, kCommand);
}

constexpr ToolButton kFormatBar[] = {
    {"Bold", "Bold", Run<CommandOf("Bold")>, "format-text-bold", "Ctrl+B", true},
    {"Italic", "Italic", Run<CommandOf("Italic")>, "format-text-italic", "Ctrl+I", true},
    {"Underline", "Underline", Run<CommandOf("Underline")>, "format-text-underline", "Ctrl+U",
     true},
    {"Color", "Text Color", Run<CommandOf("Color")>, "format-text-color"},
    {"LeftJustify", "Align Left", Run<CommandOf("LeftJustify")>, "format-justify-left", "", true},
    {"Center", "Center", Run<CommandOf("Center")>, "format-justify-center", "", true},
    {"RightJustify", "Align Right", Run<CommandOf("RightJustify")>, "format-justify-right", "",
     true},
    {"Numbers", "Numbered List", Run<CommandOf("Numbers")>, "format-list-ordered", "", true},
    {"Bullets", "Bulleted List", Run<CommandOf("Bullets")>, "format-list-unordered", "", true},
    {"Outdent", "Decrease Indent", Run<CommandOf("Outdent")>, "format-indent-less"},
    {"Indent", "Increase Indent", Run<CommandOf("Indent")>, "format-indent-more"},
};

}  // namespace

std::span<const ToolButton> ToolBarButtons() {
    return kToolBar;
}

std::span<const ToolButton> FormatBarButtons() {
    return kFormatBar;
}

}  // namespace quorrel
