#include "editor/surface_events.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "app/main_form.hpp"
#include "contents/contents_drag.hpp"
#include "editor/document_text.hpp"
#include "editor/format_commands.hpp"
#include "editor/selection.hpp"

namespace quorrel {
namespace {

void LoadBlockFormats(MainForm& main) {
    const CommandValue value = main.DHTMLEdit1.ExecCommand(surface_command::DECMD_GETBLOCKFMTNAMES);
    const auto* names = std::get_if<std::vector<std::string>>(&value);
    if (names == nullptr) return;
    WindowControls& window = main.window;
    const std::string selected = window.ComboStyle.Text();
    window.ComboStyle.Clear();
    for (std::size_t i = 0; i < names->size(); ++i) {
        window.Named("FormatSub" + std::to_string(i)).Caption = names->at(i);
        window.ComboStyle.AddItem(names->at(i));
    }
    window.ComboStyle.SelectText(selected);
    main.editor.BlockFormatsLoaded = true;
}

std::string_view TextOf(EngineLoss loss) {
    switch (loss) {
        case EngineLoss::kNothing:
            return "The web engine stopped and was started again. Your topic is shown as it was; "
                   "what you did to it so far can no longer be undone.";
        case EngineLoss::kLastWords:
            return "The web engine stopped and was started again. Your topic is shown as it was a "
                   "moment before, with the caret at its start: look whether the last words are "
                   "there.";
        case EngineLoss::kView:
            return "The web engine stops whenever it shows this topic.\r\n\r\nThe text is kept "
                   "with what you have typed. You can save it, and go on with it on the tab \"HTML "
                   "Source\".";
    }
    return {};
}

}  // namespace

void DHTMLEdit1_DocumentComplete(MainForm& main) {
    EditorState& editor = main.editor;
    switch (main.window.TabStrip2.SelectedIndex()) {
        case right_tab::kSource:
            if (!main.DHTMLEdit1.Busy()) FollowInSource(main);
            return;
        case right_tab::kPreview:
            return;
        default:
            break;
    }
    // The event of a document that another one has replaced meanwhile: its own is to come.
    if (main.DHTMLEdit1.Busy()) return;
    if (editor.DoRestoreSelection) {
        RestoreSelection(main);
        editor.DoRestoreSelection = false;
    }
    if (editor.BlockFormatsLoaded) return;
    try {
        LoadBlockFormats(main);
    } catch (const RuntimeError&) {
        // A surface without a document has none.
    }
}

void DHTMLEdit1_DisplayChanged(MainForm& main) {
    WindowControls& window = main.window;
    if (window.TabStrip2.SelectedIndex() != right_tab::kNormal) return;
    EditSurface& surface = main.DHTMLEdit1;
    try {
        InsertDroppedText(main);
        for (const FormatButton& button : kFormatButtons) {
            const int status = surface.QueryStatus(button.command);
            MenuEntry& entry = window.Named(button.key);
            entry.Enabled = status >= command_status::kEnabled;
            entry.Checked = status == command_status::kLatched;
        }
        constexpr int kGetFormat = surface_command::DECMD_GETBLOCKFMT;
        if (surface.QueryStatus(kGetFormat) < command_status::kEnabled) return;
        const CommandValue format = surface.ExecCommand(kGetFormat);
        if (const auto* name = std::get_if<std::string>(&format))
            window.ComboStyle.SelectText(*name);
    } catch (const RuntimeError&) {
        // The surface is gone or going; the next change tells how it stands.
    }
}

void DHTMLEdit1_EngineLost(MainForm& main, EngineLoss loss) {
    main.screen.ShowMessage({std::string(TextOf(loss)), main.settings.APP_NAME, MessageButtons::kOk,
                             MessageIcon::kExclamation, MessageAnswer::kOk, true});
}

}  // namespace quorrel
