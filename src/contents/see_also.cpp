#include "contents/see_also.hpp"

#include <memory>
#include <string>

#include "app/main_form.hpp"
#include "contents/keyword_spelling.hpp"
#include "contents/keyword_store.hpp"
#include "platform/text.hpp"

namespace quorrel {

void CommandSeeAlso_Click(MainForm& main) {
    main.screen.Show(std::make_unique<FormSeeAlso>(main));
}

void popiaddseealso_Click(MainForm& main) {
    CommandSeeAlso_Click(main);
}

FormSeeAlso::FormSeeAlso(MainForm& main) : main_(main) {
    Command1.Caption = std::string("Add to Index");
    CancelButton.Caption = std::string("Close");
}

void FormSeeAlso::Command1_Click() {
    const auto tell = [this](const char* text) {
        main_.screen.ShowMessage(
            {text, main_.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
    };
    const ListView& table = main_.keywords.ListKeywords;
    const ListRow* target = table.SelectedItem();
    if (target == nullptr) return tell("You must select an index entry in the index pane.");
    const std::string key = FullKeyOf(EditMainKey.Text());
    if (table.FirstWithExactly(keyword_cell::IDX_FULLKEY, key) != nullptr) {
        return tell("This keyword is already in the index.");
    }
    // The target as it is shown: one that is a sub-key is not found again by its blanks.
    AddToIndex(main_, key, "SEE ALSO: " + target->Text() + ">", key + ";");
    // So that closing asks: no topic tells of this entry.
    main_.project.project_dirty = true;
}

}  // namespace quorrel
