#include "editor/formatting.hpp"

#include <string>

#include "app/main_form.hpp"
#include "editor/format_commands.hpp"

namespace quorrel {
namespace {

using namespace surface_command;

/// Gives the command its value, if the surface can do it.
void Apply(MainForm& main, int command, const std::string& value) {
    if (!value.empty() && SurfaceCan(main, command)) {
        RunOnSurface(main, command, CommandOption::kDontPromptUser, value);
    }
}

}  // namespace

bool SurfaceCan(MainForm& main, int command) {
    if (main.window.TabStrip2.SelectedIndex() != right_tab::kNormal) return false;
    try {
        return main.DHTMLEdit1.QueryStatus(command) >= command_status::kEnabled;
    } catch (const RuntimeError&) {
        return false;
    }
}

void RunOnSurface(MainForm& main, int command, CommandOption option, const CommandValue& value) {
    try {
        main.DHTMLEdit1.ExecCommand(command, option, value);
    } catch (const RuntimeError&) {
        // As with Copy where nothing is selected.
    }
}

void RunFormatCommand(MainForm& main, int command) {
    RunOnSurface(main, command,
                 command == DECMD_SETFORECOLOR ? CommandOption::kPromptUser
                                               : CommandOption::kDontPromptUser);
}

void Font_Click(MainForm& main) {
    RunOnSurface(main, DECMD_FONT, CommandOption::kPromptUser);
}

void center_kb_Click(MainForm& main) {
    if (SurfaceCan(main, DECMD_JUSTIFYCENTER)) RunOnSurface(main, DECMD_JUSTIFYCENTER);
}

void FormatSub_Click(MainForm& main, int index) {
    Apply(main, DECMD_SETBLOCKFMT, main.window.Named("FormatSub" + std::to_string(index)).Caption);
}

void ComboStyle_Click(MainForm& main) {
    Apply(main, DECMD_SETBLOCKFMT, main.window.ComboStyle.Text());
}

void FontCombo_Click(MainForm& main) {
    if (!main.editor.BlockFormatsLoaded) return;
    Apply(main, DECMD_SETFONTNAME, main.window.FontCombo.Text());
}

void FontSizeCombo_Click(MainForm& main) {
    if (!main.editor.BlockFormatsLoaded) return;
    Apply(main, DECMD_SETFONTSIZE, main.window.FontSizeCombo.Text());
}

void tablesub_Click(MainForm& main, int index) {
    const int command = kTableCommands.at(static_cast<std::size_t>(index));
    if (command != 0) RunOnSurface(main, command);
}

void D2DSub_Click(MainForm& main, int index) {
    const int command = kPositionCommands.at(static_cast<std::size_t>(index));
    if (command != 0) RunOnSurface(main, command);
}

void InsertButton_Click(MainForm& main) {
    try {
        const auto range = main.DHTMLEdit1.DOM().selection().createRange();
        if (range != nullptr) range->pasteHTML("<BUTTON TITLE=Button>Button!</BUTTON>");
    } catch (const RuntimeError&) {
        // There is no document to paste into.
    }
}

}  // namespace quorrel
