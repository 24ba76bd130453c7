#include "contents/key_fields.hpp"

#include <algorithm>
#include <string>

#include "app/main_form.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

/// Selects the last line that is exactly `key`. False where there is none.
bool SelectKey(ListBox& list, const std::string& key) {
    bool is_present = false;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List()[static_cast<std::size_t>(i)] != key) continue;
        list.ListIndex = i;
        is_present = true;
    }
    return is_present;
}

void EnableLineCommands(const KeyFields& fields, bool on) {
    fields.CommandEdit.Enabled = on;
    fields.CommandDelete.Enabled = on;
}

}  // namespace

void AddKey(MainForm& main, const KeyFields& fields) {
    std::string key(Trim(fields.EditKeyword.Text()));
    const std::string sub(Trim(fields.EditSubKey.Text()));
    if (!sub.empty() && key.empty()) {
        main.screen.ShowMessage({"You must enter a main keyword", main.settings.APP_NAME,
                                 MessageButtons::kOk, MessageIcon::kExclamation});
        fields.EditKeyword.SetFocus();
        return;
    }
    if (!sub.empty()) key += ":" + sub;
    ListBox& list = fields.ListKeys;
    if (!SelectKey(list, key)) {
        if (fields.editing) list.RemoveItem(list.ListIndex);
        list.AddItem(key);
        list.ListIndex = list.NewIndex();
        EnableLineCommands(fields, true);
    }
    fields.editing = false;
    fields.EditKeyword.Text = std::string();
    fields.EditSubKey.Text = std::string();
    fields.EditKeyword.SetFocus();
}

void EditKey(const KeyFields& fields) {
    if (fields.ListKeys.ListIndex < 0) return;
    fields.editing = true;
    const std::string line = fields.ListKeys.Text();
    const std::size_t colon = line.find(':');
    fields.EditSubKey.Text = colon == npos ? std::string() : line.substr(colon + 1);
    fields.EditKeyword.Text = line.substr(0, colon);
    fields.EditKeyword.SetFocus();
}

bool DeleteKey(const KeyFields& fields) {
    ListBox& list = fields.ListKeys;
    const int position = list.ListIndex;
    if (position < 0) return false;
    list.RemoveItem(position);
    if (list.ListCount() == 0) {
        EnableLineCommands(fields, false);
    } else {
        list.ListIndex = std::min(position, list.ListCount() - 1);
    }
    fields.editing = false;
    return true;
}

}  // namespace quorrel
