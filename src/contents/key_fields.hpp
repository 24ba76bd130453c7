// Two fields, a main key and a sub-key, that fill a list of keywords.
#pragma once

#include "platform/controls/control.hpp"
#include "platform/controls/list_box.hpp"

namespace quorrel {

struct MainForm;

/// The controls, and the flag that the next key replaces the selected line of the list. A line is
/// a main key, or main key, ":" and sub-key.
struct KeyFields {
    ListBox& ListKeys;
    TextBox& EditKeyword;
    TextBox& EditSubKey;
    Control& CommandEdit;
    Control& CommandDelete;
    bool& editing;
};

/// Puts what stands in the fields into the list; a key that is there already is only selected.
/// A sub-key alone is told, and everything stays.
void AddKey(MainForm& main, const KeyFields& fields);
/// Puts the selected line into the fields.
void EditKey(const KeyFields& fields);
/// Removes the selected line. False where there is none.
bool DeleteKey(const KeyFields& fields);

}  // namespace quorrel
